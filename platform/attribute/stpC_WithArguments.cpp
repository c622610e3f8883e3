#include "platform/attribute/stpC_WithArguments.h"

#include <array>
#include <string>

const char* stpC_argumentName(int number, int part)
{
    constexpr int most = 32;
    constexpr int parts = 3;
    static const auto names = [] {
        std::array<std::string, most * parts> made;
        const char* const endings[parts] = {"", " used", " text"};
        for (int i = 0; i < most * parts; ++i) {
            made[static_cast<std::size_t>(i)] = "argument " + std::to_string(i / parts + 1) + endings[i % parts];
        }
        return made;
    }();
    return names[static_cast<std::size_t>((number - 1) * parts + part)].c_str();
}
