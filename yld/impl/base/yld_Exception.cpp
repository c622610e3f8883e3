#include "yld_Exception.h"

#include "platform/os/osu_Version.h"
#include "platform/store/pcl_ClassMetadata.h"
#include "platform/store/pcl_MetadataRegistrar.h"
#include "platform/store/pcl_WriteVisitor.h"
#include "platform/text/msg_Format.h"

yld_Exception::yld_Exception(int errorNo, const yld_String& message)
    : m_ErrorNo(static_cast<yld_ErrorNoEnm>(errorNo)), m_ErrMsg(message)
{
}

yld_Exception::yld_Exception(const yld_String& fileName, int errorNo, const yld_String& message)
    : m_FileName(fileName), m_ErrorNo(static_cast<yld_ErrorNoEnm>(errorNo)), m_ErrMsg(message)
{
}

yld_Exception::yld_Exception(const yld_String& fileName, int errorNo)
    : m_FileName(fileName), m_ErrorNo(static_cast<yld_ErrorNoEnm>(errorNo))
{
}

yld_Exception::yld_Exception(const yld_String& fileName, int errorNo, int versionNumber)
    : m_FileName(fileName), m_ErrorNo(static_cast<yld_ErrorNoEnm>(errorNo)), m_VersionNumber(versionNumber)
{
}

yld_Exception::yld_Exception(const yld_String& fileName, int errorNo, int versionNumber, int expectedVersion)
    : m_FileName(fileName), m_ErrorNo(static_cast<yld_ErrorNoEnm>(errorNo)), m_VersionNumber(versionNumber),
      m_ZantraVersion(expectedVersion)
{
}

yld_Exception::yld_Exception(const yld_String& fileName, int errorNo, int versionNumber, int expectedVersion,
                             bool readOnly)
    : m_FileName(fileName), m_ErrorNo(static_cast<yld_ErrorNoEnm>(errorNo)), m_VersionNumber(versionNumber),
      m_ZantraVersion(expectedVersion), m_ReadOnly(readOnly)
{
}

yld_Exception::yld_Exception(const yld_Exception&) = default;

yld_Exception& yld_Exception::operator=(const yld_Exception&) = default;

yld_Exception::~yld_Exception() = default;

yld_Exception* yld_Exception::Copy() const { return new yld_Exception(*this); }

void yld_Exception::DBWrite(pcl_WriteVisitor& visitor) const
{
    if (!visitor.StartWrite(TypeId())) {
        return;
    }
    exc_CommandException::DBWrite(visitor);
    visitor.Write("m_FileName", m_FileName.cStr());
    visitor.Write("m_ErrorNo", static_cast<int>(m_ErrorNo));
    visitor.Write("m_ErrMsg", m_ErrMsg.cStr());
    visitor.Write("m_VersionNumber", m_VersionNumber);
    visitor.Write("m_ZantraVersion", m_ZantraVersion);
    visitor.Write("m_ReadOnly", m_ReadOnly);
}

msg_StringBase yld_Exception::JournalMessage() const
{
    switch (m_ErrorNo) {
    case yld_UPGRADE_NEEDED:
        return msg_Format("The database is from a previous version of ZANTRA. \n"
                          "Run zantra -upgrade -job <newFileName> -yld <oldYldFileName> to upgrade it.");
    case yld_DATABASE_TOO_NEW:
        return msg_Format("%1$s is from a more recent version of ZANTRA.\n\n"
                          " The current ZANTRA installation must be upgraded before this output database can be "
                          "opened.",
                          m_FileName);
    case yld_CONVERSION_FAILED:
        return msg_Format("cannot convert database %1$s, %2$s", m_FileName, m_ErrMsg);
    case yld_VERSION_CHECK_FAILED:
        return msg_Format("isUpgradeRequiredForYld failed, %1$s", m_ErrMsg);
    case yld_DISK_SPACE:
        return msg_Format("Not enough disk space to create the converted file %1$s. \n"
                          "Please free some disk space and rerun the upgrade or run \n"
                          "zantra -upgrade  -job <newFileName> -yld <oldYldFileName> \n"
                          "to upgrade the file to a different disk drive. \n"
                          "Trying to upgrade the file without enough disk space may \n"
                          "cause the application to abort.\n",
                          m_FileName);
    case yld_DATABASE_TOO_OLD:
        return msg_Format("%1$s is an old format YLD file.\n"
                          "YLD files generated with an ZANTRA analysis \n"
                          "version prior to 6.1-1 cannot be opened with \n"
                          "the current version of ZANTRA/Viewer. \n"
                          "Please rerun the analysis using the current \n"
                          "ZANTRA analysis version.",
                          m_FileName);
    case yld_GENERAL:
        return m_ErrMsg;
    case yld_INVALID_VERSION:
        return msg_Format("The database file %1$s has version %2$s. \n"
                          "This version number is marked as an invalid database version. \n"
                          "Yld upgrade is not supported for this database",
                          m_FileName, m_VersionNumber);
    }
    return shr_String();
}

const char* yld_Exception::PythonType() const { return "YldError"; }

unsigned yld_Exception::TypeId() { return 0x290001; }

void yld_Exception::initClassMetadata(pcl_MetadataRegistrar& registrar)
{
    pcl_ClassMetadata metadata("yld_Exception", TypeId(), 800, "exc_CommandException");
    metadata.AddAttribute("m_FileName", pcl_Kind::STRING);
    metadata.AddAttribute("m_ErrorNo", pcl_Kind::INT32);
    metadata.AddAttribute("m_ErrMsg", pcl_Kind::STRING);
    metadata.AddAttribute("m_VersionNumber", pcl_Kind::INT32);
    metadata.AddAttribute("m_ZantraVersion", pcl_Kind::INT32);
    metadata.AddAttribute("m_ReadOnly", pcl_Kind::BOOL);
    registrar.add(metadata);
}

yld_String yld_Exception::versionLabel(int version)
{
    return versionLabel(version, {osu_Version::Major(), osu_Version::Minor()});
}

// Databases up to version 41 were written by the first two releases, which had no minor number in their
// names.
int yld_Exception::majorVersion(int version, Release current)
{
    return version < 15 ? 1 : version < 42 ? 2 : current.major;
}

int yld_Exception::minorVersion(int version, Release current) { return version < 42 ? 0 : current.minor; }

yld_String yld_Exception::versionLabel(int version, Release current)
{
    const int major = majorVersion(version, current);
    const int minor = minorVersion(version, current);
    yld_String label(major);
    if (major == 1 || major == 2) {
        return label;
    }
    if (minor != 0) {
        return label.append(".").append(yld_String(minor));
    }
    return label.append(".0.").append(yld_String(version));
}
