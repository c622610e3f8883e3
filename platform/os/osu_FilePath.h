#ifndef OSU_FILEPATH_H
#define OSU_FILEPATH_H

#include "containers/shr_String.h"

/// Parts of a path by its text alone. The extension begins with the last point of the last component, unless
/// that point is the component's first character.
class osu_FilePathParser
{
public:
    explicit osu_FilePathParser(const msg_StringBase& path);

    bool HasDirName() const;
    /// What stands before the last component, with its slash only if that is all: "/a/b" gives "/a", "/a" gives
    /// "/", "a" the empty text.
    shr_String DirName() const;
    /// The last component without its extension.
    shr_String BaseName() const;
    /// With its point; empty if there is none.
    shr_String Extension() const;

private:
    shr_String m_dirName;
    shr_String m_baseName;
    shr_String m_extension;
};

/// A path on this machine. URLs pass through every operation unchanged.
class osu_FilePath
{
public:
    /// @param directory  where a relative path begins; empty means the current directory
    osu_FilePath(const msg_StringBase& path, const msg_StringBase& directory);

    /// The same path in the form that all programs of this machine understand: a file URL's prefix taken
    /// away.
    osu_FilePath Portable() const;

    /// The path as it was given, below the directory if there is one and the path is relative.
    const shr_String& PathName() const { return m_path; }
    /// From the root, without ".", ".." and doubled or trailing slashes, which are resolved by their text
    /// alone: symbolic links stay, and the file need not exist. Letter case stays. An empty path stays empty.
    /// Paths of any length. Raises exc_TextException "Cannot determine the current directory." if that is
    /// needed and gone.
    shr_String AbsolutePathName() const;

    shr_String DirName() const { return osu_FilePathParser(m_path).DirName(); }
    shr_String BaseName() const { return osu_FilePathParser(m_path).BaseName(); }
    shr_String Extension() const { return osu_FilePathParser(m_path).Extension(); }

    /// Whether there is a file, directory or anything else of this name.
    bool Exists() const;

private:
    explicit osu_FilePath(const msg_StringBase& path);

    shr_String m_path;
};

#endif
