#include "platform/text/msg_NaturalOrder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

TEST(msg_NaturalOrder, is_off_until_switched_on)
{
    EXPECT_FALSE(msg_getNaturalOrder());
    msg_setNaturalOrder(true);
    EXPECT_TRUE(msg_getNaturalOrder());
    msg_setNaturalOrder(false);
    EXPECT_FALSE(msg_getNaturalOrder());
}

TEST(strnatcmp, runs_of_digits_count_by_value)
{
    EXPECT_EQ(strnatcmp("Step-2", "Step-10"), -1);
    EXPECT_EQ(strnatcmp("Step-10", "Step-2"), 1);
    EXPECT_EQ(strnatcmp("Step-10", "Step-10"), 0);
    EXPECT_EQ(strnatcmp("a2b10", "a2b9"), 1);
    EXPECT_EQ(strnatcmp("99999999999999999999999", "100000000000000000000000"), -1) << "longer than any integer";
}

TEST(strnatcmp, everything_else_counts_by_its_byte)
{
    EXPECT_EQ(strnatcmp("abc", "abd"), -1);
    EXPECT_EQ(strnatcmp("ab", "abc"), -1);
    EXPECT_EQ(strnatcmp("B", "a"), -1);
    EXPECT_EQ(strnatcmp("\xc3", "z"), 1);
    EXPECT_EQ(strnatcmp("", ""), 0);
    EXPECT_EQ(strnatcmp("a", nullptr), 1);
    EXPECT_EQ(strnatcmp("a1", "ab"), -1);
}

TEST(strnatcmp, leading_zeros_alone_tell_texts_apart)
{
    EXPECT_EQ(strnatcmp("a01", "a1"), -1);
    EXPECT_EQ(strnatcmp("a1", "a01"), 1);
    EXPECT_EQ(strnatcmp("a01b", "a1a"), 1) << "what follows counts first";
    EXPECT_EQ(strnatcmp("0", "00"), -1);
    EXPECT_EQ(strnatcmp("a0", "a"), 1);
}

TEST(strnatcmp, is_an_order)
{
    std::vector<std::string> texts;
    for (const char* a : {"", "0", "00", "1", "01", "2", "10", "a", "/", ":"}) {
        for (const char* b : {"", "0", "1", "01", "12", "a", "/", ":"}) {
            texts.push_back(std::string(a) + b);
        }
    }
    for (const auto& a : texts) {
        for (const auto& b : texts) {
            const int ab = strnatcmp(a.c_str(), b.c_str());
            ASSERT_EQ(ab, -strnatcmp(b.c_str(), a.c_str())) << a << ' ' << b;
            ASSERT_EQ(ab == 0, a == b) << a << ' ' << b;
            for (const auto& c : texts) {
                if (ab < 0 && strnatcmp(b.c_str(), c.c_str()) < 0) {
                    ASSERT_EQ(strnatcmp(a.c_str(), c.c_str()), -1) << a << ' ' << b << ' ' << c;
                }
            }
        }
    }
}
