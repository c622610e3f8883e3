#ifndef YLD_EXCEPTION_H
#define YLD_EXCEPTION_H

#include "platform/store/pcl_Uid.h"
#include "platform/text/exc_Exception.h"
#include "yld_String.h"

class pcl_MetadataRegistrar;

/// What went wrong, in the field errorNo() of a yld_Exception. The numbers are stored: never renumber.
enum yld_ErrorNoEnm : int
{
    yld_UPGRADE_NEEDED = 0,       ///< the database is of an older version and needs an upgrade
    yld_DATABASE_TOO_NEW = 1,     ///< the database is newer than this library
    yld_CONVERSION_FAILED = 2,    ///< an upgrade or downgrade did not succeed
    yld_VERSION_CHECK_FAILED = 3, ///< whether the database is up to date could not be found out
    yld_DISK_SPACE = 4,           ///< no room for the converted file
    yld_DATABASE_TOO_OLD = 5,     ///< older than conversion can reach
    yld_GENERAL = 6,              ///< everything else; the message tells all
    yld_INVALID_VERSION = 7       ///< the version is on the list of invalid numbers
};

/// The one class in which failures of the public interface leave the library: an error number, a message and,
/// if it is about a file, the file's name and versions. Caught as yld_Exception, exc_CommandException,
/// exc_Exception or std::exception; what() gives the same text as JournalMessage() and lives as long as the
/// object.
class YLD_API yld_Exception : public virtual exc_Exception, public exc_Typed<yld_Exception, exc_CommandException>
{
public:
    /// Error numbers are values of yld_ErrorNoEnm; any other gives an empty text.
    yld_Exception(int errorNo, const yld_String& message);
    yld_Exception(const yld_String& fileName, int errorNo, const yld_String& message);
    yld_Exception(const yld_String& fileName, int errorNo);
    yld_Exception(const yld_String& fileName, int errorNo, int versionNumber);
    yld_Exception(const yld_String& fileName, int errorNo, int versionNumber, int expectedVersion);
    yld_Exception(const yld_String& fileName, int errorNo, int versionNumber, int expectedVersion, bool readOnly);
    yld_Exception(const yld_Exception&);
    yld_Exception& operator=(const yld_Exception&);
    ~yld_Exception() override;

    /// A copy on the heap; the caller owns it.
    yld_Exception* Copy() const override;
    /// The fields by attribute name, if the visitor takes the class.
    void DBWrite(pcl_WriteVisitor& visitor) const override;
    /// The user's text: fixed by the error number, with the file's name, version or the message in it; for
    /// yld_GENERAL the message unchanged.
    msg_StringBase JournalMessage() const override;
    /// "YldError".
    const char* PythonType() const override;

    /// The database concerned; empty if the error is not about a file.
    const yld_String& fileName() const noexcept { return m_FileName; }
    yld_ErrorNoEnm errorNo() const noexcept { return m_ErrorNo; }
    /// The message as given; empty for errors whose text is fixed.
    const yld_String& errMsg() const noexcept { return m_ErrMsg; }
    /// Version of the database concerned, 0 if not given.
    int versionNumber() const noexcept { return m_VersionNumber; }
    /// The version that this library expects, 0 if not given.
    int zantraVersion() const noexcept { return m_ZantraVersion; }
    /// The read-only flag of the failed open; true if not given.
    bool readOnly() const noexcept { return m_ReadOnly; }

    /// 0x290001.
    static unsigned TypeId();
    /// Declares the class and its attributes.
    static void initClassMetadata(pcl_MetadataRegistrar& registrar);
    /// The release that wrote a database of the given version, as a report names it: "1", "2", or the numbers
    /// of the current release.
    static yld_String versionLabel(int version);

private:
    friend struct yld_ExceptionTestAccess;
    struct Release
    {
        int major;
        int minor;
    };
    static int majorVersion(int version, Release current);
    static int minorVersion(int version, Release current);
    static yld_String versionLabel(int version, Release current);

    yld_String m_FileName;
    yld_ErrorNoEnm m_ErrorNo;
    yld_String m_ErrMsg;
    int m_VersionNumber = 0;
    int m_ZantraVersion = 0;
    bool m_ReadOnly = true;
    pcl_Uid m_uid;
};

#endif
