#include "yld/impl/base/yld_Raise.h"

#include "yld_Repository.h"
#include "yld_Union.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

template<class Action> std::string reportOf(const Action& action)
{
    try {
        action();
    } catch (const yld_Exception& caught) {
        return caught.DeveloperReport().cStr();
    }
    return "(nothing raised)";
}

} // namespace

TEST(yld_raise, names_the_place_of_its_caller)
{
    const int line = __LINE__ + 1;
    EXPECT_EQ(reportOf([] { yld_raise("%1$s has %2$s", "a", 3); }),
              std::string(__FILE__) + ":" + std::to_string(line) + ": a has 3");
}

TEST(yld_raise, is_of_the_general_kind)
{
    try {
        yld_raise("100%");
    } catch (const yld_Exception& caught) {
        EXPECT_EQ(caught.errorNo(), 6);
        EXPECT_EQ(caught.errMsg(), "100%");
        EXPECT_EQ(caught.fileName(), "");
        EXPECT_TRUE(caught.readOnly());
    }
}

TEST(yld_raise, gives_every_refusal_of_the_foundation_a_place)
{
    const std::string ofUnion = reportOf([] { yld_Union(1).getBool(); });
    EXPECT_NE(ofUnion.find("yld_Union.cpp:"), std::string::npos) << ofUnion;
    EXPECT_NE(ofUnion.find(": The union is not of type bool"), std::string::npos) << ofUnion;
    const std::string ofRepository = reportOf([] { yld_Repository<yld_String, int>().CheckKey("k"); });
    EXPECT_NE(ofRepository.find("yld_Repository.cpp:"), std::string::npos) << ofRepository;
    EXPECT_NE(ofRepository.find(": Key \"k\" not found in repository"), std::string::npos) << ofRepository;
}

TEST(yld_Union, a_double_beyond_the_floats_narrows_to_infinity)
{
    EXPECT_EQ(yld_Union(1e300).getFloat(), std::numeric_limits<float>::infinity());
    EXPECT_EQ(yld_Union(-1e300).getFloat(), -std::numeric_limits<float>::infinity());
    EXPECT_EQ(yld_Union(1e-300).getFloat(), 0.0f);
}

TEST(yld_Union, the_unset_markers_can_be_held)
{
    EXPECT_EQ(yld_Union(std::numeric_limits<int>::min()).getInt(), std::numeric_limits<int>::min());
    EXPECT_EQ(yld_Union(std::numeric_limits<double>::min()).getDouble(), 2.2250738585072014e-308);
    EXPECT_EQ(yld_Union(static_cast<const char*>(nullptr)).getString(), "");
}
