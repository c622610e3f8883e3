#include "platform/os/osu_Version.h"

#include <cstdlib>
#include <cstring>

const char* osu_Version::VersionNumber() { return YLD_VERSION; }

int osu_Version::Major() { return std::atoi(VersionNumber()); }

int osu_Version::Minor()
{
    const char* const point = std::strchr(VersionNumber(), '.');
    return point ? std::atoi(point + 1) : 0;
}
