#include "yld/impl/yld_YldRepository.h"

#include "platform/base/osu_FilePath.h"
#include "platform/base/osu_UrlParser.h"
#include "platform/text/msg_Format.h"
#include "platform/text/prg_WIP.h"
#include "yld_Sequence.h"

#include <cerrno>
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
    const int descriptor = ::open(name.cStr(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) return false;
    // A lock file that a writer keeps locked counts as none, as one that cannot be opened does.
    const bool held = ::flock(descriptor, LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    ::close(descriptor);
    if (held) return false;
    prg_WIPBase::Warning(msg_Format("An output database lock file %1$s has been detected. This may indicate that the "
                                    "output database is opened for writing by another application.\n%2$s will be "
                                    "opened read-only. ",
                                    name, path));
    return true;
}

bool yld_YldRepository::LockYld(const yld_String& path) const
{
    if (osu_UrlParser::IsUrl(path)) return true;
    const int descriptor = ::open(lockName(path).cStr(), O_WRONLY | O_CREAT | O_CLOEXEC, lockPermissions);
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
