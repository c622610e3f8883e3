#include "platform/os/osu_FilePath.h"

#include "platform/os/osu_UrlParser.h"
#include "platform/text/exc_Exception.h"

#include <cstdlib>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace {

shr_String currentDirectory()
{
    const std::unique_ptr<char, void (*)(void*)> directory(getcwd(nullptr, 0), std::free);
    if (!directory) {
        exc_TextException("Cannot determine the current directory.").Throw(__FILE__, __LINE__);
    }
    return directory.get();
}

bool isAbsolute(const msg_StringBase& path) { return path.cStr()[0] == '/'; }

shr_String joined(const msg_StringBase& directory, const msg_StringBase& path)
{
    shr_String whole(directory);
    whole.append("/").append(path);
    return whole;
}

// Resolves an absolute path component by component; ".." at the root stays at the root.
shr_String resolved(const msg_StringBase& path)
{
    shr_String result;
    const char* text = path.cStr();
    while (*text) {
        while (*text == '/') {
            ++text;
        }
        const char* const begin = text;
        while (*text && *text != '/') {
            ++text;
        }
        const int length = static_cast<int>(text - begin);
        if (length == 0 || (length == 1 && begin[0] == '.')) {
            continue;
        }
        if (length == 2 && begin[0] == '.' && begin[1] == '.') {
            const int slash = result.rFind("/");
            result.erase(slash < 0 ? 0 : slash);
            continue;
        }
        result.append("/").append(begin, length);
    }
    return result.empty() ? shr_String("/") : result;
}

} // namespace

osu_FilePathParser::osu_FilePathParser(const msg_StringBase& path)
{
    const int slash = path.rFind("/");
    if (slash >= 0) {
        m_dirName = path.substr(0, slash == 0 ? 1 : slash);
    }
    m_baseName = path.substr(slash + 1);
    const int point = m_baseName.rFind(".");
    if (point > 0 && !(m_baseName == "..")) {
        m_extension = m_baseName.substr(point);
        m_baseName.erase(point);
    }
}

bool osu_FilePathParser::HasDirName() const { return !m_dirName.empty(); }

shr_String osu_FilePathParser::DirName() const { return m_dirName; }

shr_String osu_FilePathParser::BaseName() const { return m_baseName; }

shr_String osu_FilePathParser::Extension() const { return m_extension; }

osu_FilePath::osu_FilePath(const msg_StringBase& path) : m_path(path) {}

osu_FilePath::osu_FilePath(const msg_StringBase& path, const msg_StringBase& directory) : m_path(path)
{
    if (!path.empty() && !directory.empty() && !isAbsolute(path) && !osu_UrlParser::IsUrl(path)) {
        m_path = joined(directory, path);
    }
}

osu_FilePath osu_FilePath::Portable() const
{
    static const char prefix[] = "file://";
    const int length = static_cast<int>(sizeof prefix) - 1;
    if (m_path.find(prefix) == 0 && m_path.cStr()[length] == '/') {
        return osu_FilePath(m_path.substr(length));
    }
    return *this;
}

shr_String osu_FilePath::AbsolutePathName() const
{
    if (m_path.empty() || osu_UrlParser::IsUrl(m_path)) {
        return m_path;
    }
    return resolved(isAbsolute(m_path) ? m_path : joined(currentDirectory(), m_path));
}

bool osu_FilePath::Exists() const
{
    struct stat status;
    return stat(m_path.cStr(), &status) == 0;
}
