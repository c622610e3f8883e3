#include "platform/os/osu_Version.h"
#include "platform/rmt/rmt_RemoteConnectionsRep.h"
#include "platform/sto/sto_Model.h"
#include "platform/sto/sto_ModelOf.h"
#include "platform/sto/sto_Result.h"
#include "platform/sto/sto_UserData.h"
#include "platform/store/hdr_YLDHeaderParser.h"
#include "platform/store/lnk_Root.h"
#include "platform/text/msg_Format.h"
#include "platform/text/prg_WIP.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld/impl/life/yld_YldRepository.h"
#include "yld_Exception.h"
#include "yld_Yld.h"

#include <cstdio>

namespace {

fio_File openForReading(const yld_String& path) { return fio_File::Open(path.cStr(), false, true); }

// The path that a client gave, and where it leads: through a remote connection to a URL, or to a file here.
struct Place
{
    Place(const yld_String& name, const yld_String& givenPath)
        : given(givenPath.empty() ? name : givenPath), path(given)
    {
    }

    void resolve()
    {
        const rmt_RemoteConnectionsRep& connections = rmt_RemoteConnectionsRep::Instance();
        isRemote = connections.isPrefixMyRemoteConnections(path);
        if (isRemote) path = connections.MapRemotePathToUrl(path);
        path = yld_YldRepository::normalisedPath(path);
    }

    yld_String given;
    yld_String path;
    bool isRemote = false;
};

void requireCurrentVersion(const Place& place, bool readOnly)
{
    int version = 0;
    const fio_File file = openForReading(place.path);
    const hdr_YLDHeaderParser::Status status = hdr_YLDHeaderParser(file).GetUpToDateStatus(&version);
    file.body()->close();
    // The user knows a remote file by the form that he gave.
    const yld_String& named = place.isRemote ? place.given : place.path;
    if (status == hdr_YLDHeaderParser::NEWER) {
        throw yld_Exception(named, yld_DATABASE_TOO_NEW, version, fio_FileBody::currentVersion);
    }
    if (status != hdr_YLDHeaderParser::CURRENT) {
        throw yld_Exception(named, yld_UPGRADE_NEEDED, version, fio_FileBody::currentVersion, readOnly);
    }
}

void refuseWhileReplaced(const yld_YldRepository& registry, const yld_String& path)
{
    const yld_String phase = registry.GetLockPhase(path);
    if (phase.compare("Analysis Input File Processor") != 0 && phase.compare("ZANTRA/Explicit Packager") != 0) return;
    yld_raise("The .lck file for the output database %1$s indicates that the %2$s is currently modifying the "
              "database.  The database cannot be opened at this time.",
              path, phase);
}

void warnOfRefusedWriting(const Place& place)
{
    const char* const text =
        place.isRemote ? "Output database %s cannot be opened with write access because write access is not supported "
                         "by the Network YLD Connector.\nThe YLD will be opened read-only."
                       : "Output database %s cannot be opened with write access due to file permission settings or a "
                         "database version incompatibility.\nThe YLD will be opened read-only.";
    prg_WIPBase::Warning(msg_Format(text, place.path));
}

// Opens the store for writing, or for reading where that is asked for or writing is refused.
sto_Sto openStore(const Place& place, bool& readOnly)
{
    sto_StoToolset& toolset = sto_StoToolset::Instance();
    if (lnk_Root::IsMember(place.path.cStr())) {
        // The text is made and nobody is told: the caller's flag stays as it is, though the handle only reads.
        if (!readOnly) {
            msg_Format("YLD is already in use by someone else. database cannot be opened for writing and will be "
                       "opened readOnly");
        }
        return toolset.OpenYld(openForReading(place.path), true);
    }
    try {
        return toolset.OpenYld(fio_File::Open(place.path.cStr(), !readOnly, true), true);
    } catch (const exc_Exception&) {
        if (readOnly) throw;
    }
    readOnly = true;
    const sto_Sto store = toolset.OpenYld(openForReading(place.path), true);
    warnOfRefusedWriting(place);
    return store;
}

// Reads the header strings of a store and enters it in the registry, where an entry of that name stays.
void enterStore(yld_YldRepository& registry, const yld_String& name, const yld_String& path, const sto_Sto& store,
                bool readOnly)
{
    const yld_String title(store.model().modelTitle().c_str());
    const yld_String description(store.description());
    registry.insert(name, yld_Yld(name, title, description, path, store, readOnly, true));
}

// Closes what was opened on a path for an entry that did not come about, but no store that was open before.
class StoreKeeper
{
public:
    explicit StoreKeeper(const yld_String& path) : m_path(path), m_wasOpen(lnk_Root::IsMember(path.cStr())) {}

    void closeUnlessEntered(const yld_YldRepository& registry) const
    {
        if (!m_wasOpen && !registry.IsFileOpen(m_path)) sto_StoToolset::Instance().CloseYld(m_path);
    }

private:
    yld_String m_path;
    bool m_wasOpen;
};

// The open database of a name, if it is the file that is asked for; null if the name is free or its file was replaced.
yld_Yld* findOpen(yld_YldRepository& registry, const yld_String& name, const yld_String& path, bool readOnly)
{
    if (!registry.isMember(name)) return nullptr;
    const fio_File file = openForReading(path);
    const bool isSameFile = lnk_Root::VerifyCreationDate(file);
    file.body()->close();
    if (!isSameFile) return nullptr;
    if (registry.constGet(name).path().compare(path) != 0) {
        yld_raise("A database named ('%s') already exists.", name);
    }
    if (!readOnly && registry.constGet(name).isReadOnly()) {
        prg_WIPBase::Warning(
            msg_Format("The database has been opened with readOnly flag on. It will remain readOnly."));
    }
    return &registry.get(name);
}

} // namespace

yld_Yld& openYld(const yld_String& path, bool readOnly) { return openYld(path, path, readOnly, false); }

yld_Yld& openYld(const yld_String& name, const yld_String& givenPath, bool readOnly, bool checkPhase)
{
    if (!readOnly) checkPhase = false;
    yld_YldRepository& registry = yld_YldRepository::Instance();
    Place place(name, givenPath);
    try {
        place.resolve();
        if (yld_Yld* const open = findOpen(registry, name, place.path, readOnly)) return *open;
        requireCurrentVersion(place, readOnly);
        if (!readOnly) readOnly = registry.IsYldLocked(place.path);
        if (readOnly && checkPhase) refuseWhileReplaced(registry, place.path);
        const bool locked = !readOnly && registry.LockYld(place.path);
        const bool isNew = !registry.isMember(name);
        const StoreKeeper keeper(place.path);
        try {
            const sto_Sto store = openStore(place, readOnly);
            enterStore(registry, name, place.path, store, readOnly);
        } catch (...) {
            if (locked) registry.RemoveLock(place.path);
            keeper.closeUnlessEntered(registry);
            throw;
        }
        // Nobody would remove the lock of a reader, nor that of a database which gave way to the entry of its name.
        if (locked && (readOnly || !isNew)) registry.RemoveLock(place.path);
        keeper.closeUnlessEntered(registry);
        return registry.get(name);
    } catch (const yld_Exception&) {
        throw;
    } catch (const exc_Exception& failure) {
        yld_raise("Cannot open file %1$s. %2$s", place.path, failure.what());
    }
}

namespace {

[[noreturn]] void raiseCreate(const yld_String& path, const exc_Exception& failure)
{
    yld_raise("Cannot create file %1$s. %2$s", path, failure.what());
}

// Where a new database goes; neither its name nor its path may be in use.
yld_String freePath(const yld_YldRepository& registry, const yld_String& name, const yld_String& givenPath)
{
    yld_String path = givenPath.empty() ? name : givenPath;
    try {
        path = yld_YldRepository::normalisedPath(path);
    } catch (const exc_Exception& failure) {
        raiseCreate(path, failure);
    }
    if (registry.isMember(name)) {
        yld_raise("A database named ('%s') already exists.", name);
    }
    if (registry.IsFileOpen(path)) {
        yld_raise("The path '%s' has an existing sto associated with it.", path);
    }
    return path;
}

} // namespace

yld_Yld& Yld(const yld_String& name, const yld_String& analysisTitle, const yld_String& description,
             const yld_String& givenPath)
{
    yld_YldRepository& registry = yld_YldRepository::Instance();
    const yld_String path = freePath(registry, name, givenPath);
    bool isMade = false;
    try {
        sto_StoContainer& container = registry.StoContainer();
        sto_Sto store;
        container.CreateSto(store, path, description);
        isMade = true;
        sto_Model model = store.Model(sto_defaultModel);
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
        // What was begun here and not brought to its end is no database.
        if (isMade) {
            sto_StoToolset::Instance().CloseYld(path);
            std::remove(path.cStr());
        }
        raiseCreate(path, failure);
    }
}

void saveYld(yld_Yld& yld)
{
    if (yld.isReadOnly()) {
        prg_WIPBase::Warning(msg_Format("Database was opened read-only and cannot be saved."));
        return;
    }
    sto_Sto store = yld.sto();
    yld_guard([&] { yld_YldRepository::Instance().StoContainer().SaveSto(store); });
}

void closeYld(yld_Yld& yld) { sto_StoToolset::Instance().CloseYld(yld.path()); }
