#ifndef RMT_REMOTE_CONNECTIONS_REP_H
#define RMT_REMOTE_CONNECTIONS_REP_H

#include "containers/shr_String.h"
#include "platform/store/mrp_MapOfCowsRepository.h"

/// How the files of one host are reached.
struct rmt_RemoteConnection
{
    shr_String host;       ///< its name or address; empty for this machine itself
    int port = 0;          ///< where its connector listens; 0 for one that finds its own
    shr_String driverPath; ///< of the program that starts a connector there
    bool hasShell = false; ///< whether `shell` is used instead of the plain remote shell
    shr_String shell;      ///< empty for the secure shell
};

/// The connections of this process by name: a table that its programs fill. A path that begins with the name of a
/// connection and a colon, such as `cluster:/scratch/job.yld`, goes through it.
class YLD_API rmt_RemoteConnectionsRep : public mrp_MapOfCowsRepository<rmt_RemoteConnection>
{
public:
    /// The one table; empty at the start.
    static rmt_RemoteConnectionsRep& Instance();

    /// Whether a path begins with the name of a connection and a colon.
    bool isPrefixMyRemoteConnections(const msg_StringBase& path) const;
    /// The URL that stands for a path through a connection: "yld://host:port/path", without the port where there is
    /// none; "file:///path" for this machine.
    /// Raises exc_TextException "\"%s\" does not go through a remote connection.", "\"%s\" names no file.".
    shr_String MapRemotePathToUrl(const msg_StringBase& path) const;
    /// The name of the connection that a path goes through; empty for other paths.
    shr_String ExtractRemoteConnectionName(const msg_StringBase& path) const;
    /// The first connection by name whose host and port are those of the URL; empty if there is none.
    shr_String MapUrlToRemoteConnectionName(const msg_StringBase& url) const;
};

#endif
