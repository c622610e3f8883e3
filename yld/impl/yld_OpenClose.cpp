#include "platform/base/osu_Version.h"
#include "platform/sto/sto_Model.h"
#include "platform/sto/sto_Result.h"
#include "platform/sto/sto_UserData.h"
#include "platform/store/hdr_YLDHeaderParser.h"
#include "platform/store/lnk_Root.h"
#include "platform/text/msg_Format.h"
#include "platform/text/prg_WIP.h"
#include "yld/impl/yld_Raise.h"
#include "yld/impl/yld_YldRepository.h"
#include "yld_Exception.h"
#include "yld_Yld.h"

namespace {

constexpr const char* defaultModel = "Default Model";

// A lookup may ask for the store's text through the exception that it throws, or end in one of the standard library,
// out of memory for one: both become the one exception of the public interface.
[[noreturn]] void raiseFile(const char* format, const yld_String& path, const char* reason)
{
    yld_raise(format, path, reason);
}

fio_File openForReading(const yld_String& path) { return fio_File::Open(path.cStr(), false, true); }

void requireCurrentVersion(const yld_String& path, bool readOnly)
{
    int version = 0;
    const fio_File file = openForReading(path);
    const hdr_YLDHeaderParser::Status status = hdr_YLDHeaderParser(file).GetUpToDateStatus(&version);
    file.body()->close();
    if (status == hdr_YLDHeaderParser::NEWER) {
        throw yld_Exception(path, yld_DATABASE_TOO_NEW, version, fio_FileBody::currentVersion);
    }
    if (status != hdr_YLDHeaderParser::CURRENT) {
        throw yld_Exception(path, yld_UPGRADE_NEEDED, version, fio_FileBody::currentVersion, readOnly);
    }
}

void refuseWhileReplaced(const yld_YldRepository& registry, const yld_String& path)
{
    const yld_String phase = registry.GetLockPhase(path);
    if (phase.compare("Analysis Input File Processor") != 0 && phase.compare("ZANTRA/Explicit Packager") != 0) return;
    yld_raise("The .lck file for the output database %1$s indicates that the %2$s is currently modifying the database.  "
              "The database cannot be opened at this time.",
              path, phase);
}

} // namespace

yld_Yld& openYld(const yld_String& path, bool readOnly) { return openYld(path, path, readOnly, false); }

yld_Yld& openYld(const yld_String& name, const yld_String& givenPath, bool readOnly, bool checkPhase)
{
    if (!readOnly) checkPhase = false;
    yld_YldRepository& registry = yld_YldRepository::Instance();
    const yld_String path = yld_YldRepository::normalisedPath(givenPath.empty() ? name : givenPath);
    try {
        if (registry.isMember(name)) {
            const fio_File file = openForReading(path);
            const bool isSameFile = lnk_Root::VerifyCreationDate(file);
            file.body()->close();
            if (isSameFile) {
                if (registry.constGet(name).path().compare(path) != 0) {
                    yld_raise("A database named ('%s') already exists.", name);
                }
                if (!readOnly && registry.constGet(name).isReadOnly()) {
                    prg_WIPBase::Warning(msg_Format(
                        "The database has been opened with readOnly flag on. It will remain readOnly."));
                }
                return registry.get(name);
            }
        }
        requireCurrentVersion(path, readOnly);
        if (!readOnly) readOnly = registry.IsYldLocked(path);
        if (readOnly && checkPhase) refuseWhileReplaced(registry, path);
        bool locked = false;
        if (!readOnly) locked = registry.LockYld(path);

        sto_Sto store;
        if (lnk_Root::IsMember(path.cStr())) {
            store = sto_StoToolset::Instance().OpenYld(openForReading(path), true);
        } else {
            try {
                store = sto_StoToolset::Instance().OpenYld(fio_File::Open(path.cStr(), !readOnly, true), true);
            } catch (const exc_Exception&) {
                if (readOnly) throw;
                readOnly = true;
                try {
                    store = sto_StoToolset::Instance().OpenYld(openForReading(path), true);
                } catch (...) {
                    if (locked) registry.RemoveLock(path);
                    throw;
                }
                prg_WIPBase::Warning(
                    msg_Format("Output database %s cannot be opened with write access due to file permission settings "
                               "or a database version incompatibility.\nThe YLD will be opened read-only.",
                               path));
            }
        }
        const yld_String title(store.model(defaultModel).modelTitle().c_str());
        const yld_String description(store.description());
        registry.insert(name, yld_Yld(name, title, description, path, store, readOnly, true));
        if (readOnly && locked) registry.RemoveLock(path);
        return registry.get(name);
    } catch (const yld_Exception&) {
        throw;
    } catch (const exc_Exception& failure) {
        raiseFile("Cannot open file %1$s. %2$s", path, failure.what());
    }
}

yld_Yld& Yld(const yld_String& name, const yld_String& analysisTitle, const yld_String& description,
             const yld_String& givenPath)
{
    yld_YldRepository& registry = yld_YldRepository::Instance();
    const yld_String path = yld_YldRepository::normalisedPath(givenPath.empty() ? name : givenPath);
    if (registry.isMember(name)) {
        yld_raise("A database named ('%s') already exists.", name);
    }
    if (registry.IsFileOpen(path)) {
        yld_raise("The path '%s' has an existing sto associated with it.", path);
    }
    try {
        sto_StoContainer& container = registry.StoContainer();
        sto_Sto store;
        container.CreateSto(store, path, description);
        sto_Model model = store.Model(defaultModel);
        store.Result();
        store.UserData();
        yld_String version("ZANTRA/Scripting Interface ");
        version += osu_Version::VersionNumber();
        store.setAnalysisVersion(version);
        model.setModelTitle(analysisTitle.cStr());
        store.Save();
        container.CloseSto(store);
        store = sto_StoToolset::Instance().OpenYld(fio_File::Open(path.cStr(), true, true), true);
        registry.insert(name, yld_Yld(name, analysisTitle, description, path, store, false, true));
        return registry.get(name);
    } catch (const exc_Exception& failure) {
        raiseFile("Cannot create file %1$s. %2$s", path, failure.what());
    }
}

void saveYld(yld_Yld& yld)
{
    if (yld.isReadOnly()) {
        prg_WIPBase::Warning(msg_Format("Database was opened read-only and cannot be saved."));
        return;
    }
    sto_Sto store = yld.sto();
    yld_YldRepository::Instance().StoContainer().SaveSto(store);
}

void closeYld(yld_Yld& yld) { sto_StoToolset::Instance().CloseYld(yld.path()); }
