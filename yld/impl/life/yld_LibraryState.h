#ifndef YLD_LIBRARYSTATE_H
#define YLD_LIBRARYSTATE_H

#include <cstdint>

class yld_StoToolsetClient;
class yld_WipReporter;

/// What the library knows of its own start: plain process-wide data.
struct yld_LibraryState
{
    std::uint32_t apiCount = 0;                    ///< nested yld_initializeAPI()
    int moduleToken = 0;                           ///< libraries that are up, by yld_initializeAPI()
    std::uint32_t libraryCount = 0;                ///< nested yld_initialize()
    yld_WipReporter* reporter = nullptr;           ///< the one that the latest start made
    yld_StoToolsetClient* toolsetClient = nullptr; ///< registered with the store while the library is up
};

const yld_LibraryState& yld_libraryState();

/// The number of this library among the components; the upper half of its type ids.
constexpr int yld_componentNumber = 41;

#endif
