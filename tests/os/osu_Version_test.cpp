#include "platform/os/osu_Version.h"

#include <gtest/gtest.h>

#include <string>

TEST(osu_Version, numbers_are_those_of_the_text)
{
    const std::string begin = std::to_string(osu_Version::Major()) + "." + std::to_string(osu_Version::Minor());
    EXPECT_EQ(std::string(osu_Version::VersionNumber()).substr(0, begin.size() + 1), begin + ".");
}
