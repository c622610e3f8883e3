#ifndef OSU_VERSION_H
#define OSU_VERSION_H

/// The version of the library, the same as that of its package.
class osu_Version
{
public:
    /// The whole text, such as "1.2.0"; static.
    static const char* VersionNumber();
    /// The first and the second number of the text, 0 where it has none.
    static int Major();
    static int Minor();
};

#endif
