#include "yld/impl/life/yld_YldRepository.h"

#include "platform/os/osu_FilePath.h"
#include "platform/os/osu_UrlParser.h"
#include "platform/sto/sto_Model.h"
#include "platform/store/lnk_Root.h"
#include "platform/text/msg_Format.h"
#include "platform/text/prg_WIP.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld_Sequence.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <fstream>
#include <string>
#include <sys/file.h>
#include <unistd.h>

namespace {

yld_String lockName(const yld_String& path)
{
    const osu_FilePath file(path, yld_String());
    yld_String name(file.DirName());
    if (!name.empty() && name[name.length() - 1] != '/') name += "/";
    name += file.BaseName();
    name += ".lck";
    return name;
}

constexpr int lockPermissions = 0600;

// Whether some program keeps a file open for writing, or has locked it as a whole.
bool isHeldByWriter(int descriptor)
{
#ifdef F_SETLEASE
    // A reader's lease is refused while anybody has the file open for writing. Who opens it for writing in the instant
    // that the lease lasts waits for its end, and the notice of that comes as a signal that programs ignore by default.
    if (fcntl(descriptor, F_SETSIG, SIGURG) == 0) {
        if (fcntl(descriptor, F_SETLEASE, F_RDLCK) == 0) fcntl(descriptor, F_SETLEASE, F_UNLCK);
        else if (errno == EAGAIN) return true;
    }
#endif
    return ::flock(descriptor, LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

} // namespace

yld_YldRepository::yld_YldRepository() : m_stoContainer(sto_StoContainer()) {}

yld_YldRepository::~yld_YldRepository()
{
    yld_Sequence<yld_String> names;
    yld_YldRepositoryIT walk(*this);
    for (walk.first(); !walk.isDone(); walk.next()) names.append(walk.currentKey());
    for (int i = 0; i < names.size(); ++i) remove(names[i]);
}

void yld_YldRepository::insert(const yld_String& name, const yld_Yld& yld) { m_map.InsertUnlessMember(name, yld); }

yld_Yld& yld_YldRepository::get(const yld_String& name) { return m_map.get(name); }

const yld_Yld& yld_YldRepository::constGet(const yld_String& name) const { return m_map.constGet(name); }

bool yld_YldRepository::isMember(const yld_String& name) const { return m_map.IsMember(name); }

int yld_YldRepository::size() const { return m_map.Size(); }

void yld_YldRepository::remove(const yld_String& name)
{
    if (!isMember(name)) return;
    const yld_String path = constGet(name).path();
    int onPath = 0;
    yld_YldRepositoryIT walk(*this);
    for (walk.first(); !walk.isDone(); walk.next()) {
        if (walk.currentValue().path().compare(path) == 0) ++onPath;
    }
    if (!constGet(name).isReadOnly()) RemoveLock(path);
    if (onPath > 2) m_map.Remove(name);
    else sto_StoToolset::Instance().CloseYld(path);
}

bool yld_YldRepository::IsFileOpen(const yld_String& path) const
{
    yld_YldRepositoryIT walk(*this);
    for (walk.first(); !walk.isDone(); walk.next()) {
        if (walk.currentValue().path().compare(path) == 0) return true;
    }
    return false;
}

void yld_YldRepository::RespondToCloseYld(const yld_String& path)
{
    yld_Sequence<yld_String> names;
    yld_YldRepositoryIT walk(*this);
    for (walk.first(); !walk.isDone(); walk.next()) {
        if (walk.currentValue().path().compare(path) == 0) names.append(walk.currentKey());
    }
    for (int i = 0; i < names.size(); ++i) m_map.Remove(names[i]);
}

yld_String yld_YldRepository::normalisedPath(const yld_String& path)
{
    return yld_String(osu_FilePath(path, yld_String()).Portable().AbsolutePathName());
}

bool yld_YldRepository::IsYldLocked(const yld_String& path) const
{
    if (osu_UrlParser::IsUrl(path)) return false;
    const yld_String name = lockName(path);
    const int descriptor = ::open(name.cStr(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0) return false;
    const bool isHeld = isHeldByWriter(descriptor);
    ::close(descriptor);
    // It counts as none, as a lock file that cannot be opened does.
    if (isHeld) return false;
    prg_WIPBase::Warning(msg_Format("An output database lock file %1$s has been detected. This may indicate that the "
                                    "output database is opened for writing by another application.\n%2$s will be "
                                    "opened read-only. ",
                                    name, path));
    return true;
}

bool yld_YldRepository::LockYld(const yld_String& path) const
{
    if (osu_UrlParser::IsUrl(path)) return true;
    const yld_String name = lockName(path);
    int descriptor = -1;
    // It waits for a program that is testing the file at this instant.
    do descriptor = ::open(name.cStr(), O_WRONLY | O_CREAT | O_CLOEXEC, lockPermissions);
    while (descriptor < 0 && errno == EINTR);
    if (descriptor < 0) return false;
    ::close(descriptor);
    return true;
}

bool yld_YldRepository::RemoveLock(const yld_String& path) const
{
    if (osu_UrlParser::IsUrl(path)) return true;
    return std::remove(lockName(path).cStr()) == 0;
}

yld_String yld_YldRepository::GetLockPhase(const yld_String& path) const
{
    if (osu_UrlParser::IsUrl(path)) return yld_String();
    std::ifstream file(lockName(path).cStr());
    yld_String phase;
    char line[101];
    while (file && !file.eof()) {
        file.getline(line, sizeof line);
        if (file.good()) phase = line;
        else if (file.fail() && !file.eof() && !file.bad()) file.clear();
    }
    return phase;
}

void yld_StoToolsetClient::NotifyOpenYld(const char*) {}

void yld_StoToolsetClient::NotifyCloseYld(const char* fileName)
{
    yld_YldRepository::Instance().RespondToCloseYld(yld_String(fileName));
}

void yld_StoToolsetClient::NotifyUpdateYld(const char* fileName)
{
    yld_YldRepository::Instance().get(yld_String(fileName)).update();
}

namespace {

void requireAtMostOne(int open)
{
    if (open > 1) yld_raise("The getActiveYld method can only be called if a single yld file is open.");
}

// The one store that is open without an entry here.
yld_Yld& enterOnlyStore(yld_YldRepository& registry)
{
    const std::vector<fio_File>& stores = lnk_Root::Instance().stores();
    requireAtMostOne(static_cast<int>(stores.size()));
    if (stores.empty()) yld_raise("No yld files are open.");
    const std::string persistentName = stores.front().body()->uid();
    const sto_Sto store = sto_StoContainer().getByPersName(persistentName.c_str());
    const yld_String file(lnk_Root::GetFileName(persistentName.c_str()).c_str());
    const yld_String title(store.model().modelTitle().c_str());
    registry.insert(file, yld_Yld(file, title, yld_String(store.description()), yld_YldRepository::normalisedPath(file),
                                  store, true, true));
    return registry.get(file);
}

} // namespace

yld_Yld& getActiveYld()
{
    yld_YldRepository& registry = yld_YldRepository::Instance();
    requireAtMostOne(registry.size());
    // The one entry is looked up under no name, which gives the registry's empty object: callers rely on it.
    if (registry.size() == 1) return registry.get(yld_String());
    return yld_guard([&]() -> yld_Yld& { return enterOnlyStore(registry); });
}
