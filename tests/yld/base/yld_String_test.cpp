#include "yld_String.h"

#include <gtest/gtest.h>

#include <type_traits>

TEST(yld_String, empty_by_default_with_a_valid_text)
{
    const yld_String empty;
    EXPECT_EQ(empty.length(), 0);
    EXPECT_TRUE(empty.empty());
    ASSERT_NE(empty.cStr(), nullptr);
    EXPECT_STREQ(empty.cStr(), "");
}

TEST(yld_String, adds_no_data)
{
    static_assert(sizeof(yld_String) == 2 * sizeof(void*));
    static_assert(std::is_base_of_v<shr_String, yld_String>);
}

TEST(yld_String, has_a_constructor_for_each_source)
{
    EXPECT_EQ(yld_String("abc"), "abc");
    EXPECT_EQ(yld_String("abc", 2), "ab");
    EXPECT_EQ(yld_String(-12), "-12");
    EXPECT_EQ(yld_String(12u), "12");
    EXPECT_EQ(yld_String(0.25), "0.25");
}

TEST(yld_String, shares_with_the_platform_texts_both_ways)
{
    const msg_StringBase base("abc");
    const yld_String fromBase(base);
    EXPECT_EQ(fromBase.cStr(), base.cStr());
    const shr_String platform(fromBase);
    EXPECT_EQ(platform.cStr(), base.cStr());
    const yld_String back(platform);
    EXPECT_EQ(back.cStr(), base.cStr());
    yld_String assigned;
    assigned = platform;
    EXPECT_TRUE(assigned.sharesWith(base));
}

TEST(yld_String, a_change_to_a_copy_leaves_the_original_alone)
{
    const yld_String original("abc");
    yld_String copy(original);
    EXPECT_TRUE(copy.sharesWith(original));
    copy[0] = 'x';
    EXPECT_EQ(copy, "xbc");
    EXPECT_EQ(original, "abc");
}

TEST(yld_String, each_mutating_member_gives_the_string_itself)
{
    yld_String s("  hello  ");
    yld_String& same = s.trim(" ").capitalize().append("!").insert(0, ">").replace(0, 1, "<").toUpper().reverse();
    EXPECT_EQ(&same, &s);
    EXPECT_EQ(s, "!OLLEH<");
    EXPECT_EQ(&s.erase(6), &s);
    EXPECT_EQ(&(s += "x"), &s);
    EXPECT_EQ(&(s += yld_String("y")), &s);
    EXPECT_EQ(&s.append("abc", 1), &s);
    EXPECT_EQ(&s.append(yld_String("abc"), 1, 1), &s);
    EXPECT_EQ(s, "!OLLEHxyab");
    EXPECT_EQ(&s.toLower().uncapitalize().leftTrim("!").rightTrim("b"), &s);
    EXPECT_EQ(s, "ollehxya");
    EXPECT_EQ(&s.insert(0, yld_String("1")), &s);
    EXPECT_EQ(&s.insert(0, yld_String("234"), 1, 1), &s);
    EXPECT_EQ(&s.insert(0, "567", 1), &s);
    EXPECT_EQ(s, "531ollehxya");
    EXPECT_EQ(&s.replace(0, 1, yld_String("a")), &s);
    EXPECT_EQ(&s.replace(1, 1, yld_String("abc"), 1, 1), &s);
    EXPECT_EQ(&s.replace(2, 1, "cde", 1), &s);
    EXPECT_EQ(s, "abcollehxya");
    EXPECT_EQ(&(s = "new"), &s);
    EXPECT_EQ(s, "new");
}

TEST(yld_String, erase_and_substr_without_arguments_take_the_whole)
{
    yld_String s("abc");
    const yld_String whole = s.substr();
    EXPECT_TRUE(whole.sharesWith(s));
    EXPECT_TRUE(s.erase().empty());
    EXPECT_EQ(whole, "abc");
    EXPECT_EQ(whole.substr(1, 0x7fffffff), "bc");
}

TEST(yld_String, reads_through_const_by_value)
{
    const yld_String s("abc");
    static_assert(std::is_same_v<decltype(s[0]), char>);
    EXPECT_EQ(s[2], 'c');
    EXPECT_EQ(s.find("c"), 2);
    EXPECT_EQ(s.rFind("a"), 0);
    EXPECT_EQ(s.compare(yld_String("abd")), -1);
    EXPECT_EQ(s.compare("abb"), 1);
}
