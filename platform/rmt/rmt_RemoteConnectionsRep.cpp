#include "platform/rmt/rmt_RemoteConnectionsRep.h"

#include "containers/shr_BtreeIterator.h"
#include "platform/base/lok_GlobalSingleton.h"
#include "platform/os/osu_UrlParser.h"
#include "platform/text/exc_Exception.h"
#include "platform/text/msg_Format.h"

namespace {

// Host and port as they stand in a URL; an address with colons goes into brackets.
shr_String authorityOf(const rmt_RemoteConnection& connection)
{
    const bool isAddress = connection.host.find(":") >= 0 && connection.host.cStr()[0] != '[';
    shr_String text(isAddress ? "[" : "");
    text.append(connection.host).append(isAddress ? "]" : "");
    if (connection.port != 0) text.append(":").append(shr_String(connection.port));
    return text;
}

} // namespace

rmt_RemoteConnectionsRep& rmt_RemoteConnectionsRep::Instance()
{
    return lok_GlobalSingleton<rmt_RemoteConnectionsRep>::Instance();
}

bool rmt_RemoteConnectionsRep::isPrefixMyRemoteConnections(const msg_StringBase& path) const
{
    return !ExtractRemoteConnectionName(path).empty();
}

shr_String rmt_RemoteConnectionsRep::ExtractRemoteConnectionName(const msg_StringBase& path) const
{
    const int colon = path.find(":");
    if (colon <= 0 || osu_UrlParser::IsUrl(path)) return shr_String();
    const shr_String name = path.substr(0, colon);
    return IsMember(name) ? name : shr_String();
}

shr_String rmt_RemoteConnectionsRep::MapRemotePathToUrl(const msg_StringBase& path) const
{
    const shr_String name = ExtractRemoteConnectionName(path);
    if (name.empty()) {
        exc_TextException(msg_Format("\"%s\" does not go through a remote connection.", path))
            .Throw(__FILE__, __LINE__);
    }
    const shr_String file = path.substr(name.length() + 1);
    if (file.empty()) exc_TextException(msg_Format("\"%s\" names no file.", path)).Throw(__FILE__, __LINE__);
    const rmt_RemoteConnection& connection = Get(name);
    shr_String url(connection.host.empty() ? "file://" : "yld://");
    if (!connection.host.empty()) url.append(authorityOf(connection));
    if (file.cStr()[0] != '/') url.append("/");
    return url.append(file);
}

shr_String rmt_RemoteConnectionsRep::MapUrlToRemoteConnectionName(const msg_StringBase& url) const
{
    if (!osu_UrlParser::IsUrl(url)) return shr_String();
    shr_BtreeIterator<shr_String, shr_COW<rmt_RemoteConnection>> walk(All());
    for (walk.First(); !walk.IsDone(); walk.Next()) {
        const rmt_RemoteConnection& connection = walk.CurrentValue().ConstGet();
        shr_String sameHost("yld://");
        sameHost.append(authorityOf(connection));
        if (osu_UrlParser::GetHost(sameHost) == osu_UrlParser::GetHost(url) &&
            osu_UrlParser::GetPort(url) == connection.port) {
            return walk.CurrentKey();
        }
    }
    return shr_String();
}
