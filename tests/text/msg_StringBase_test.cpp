#include "platform/text/msg_StringBase.h"

#include "containers/shr_String.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <type_traits>

namespace {

constexpr int lowest = std::numeric_limits<int>::min();
constexpr int toEnd = msg_StringBase::toEnd;

msg_StringBase text(const char* characters) { return msg_StringBase(characters); }

} // namespace

TEST(msg_StringBase, is_two_words_and_empty_by_default)
{
    const msg_StringBase empty;
    EXPECT_EQ(sizeof empty, 2 * sizeof(void*));
    EXPECT_EQ(empty.length(), 0);
    EXPECT_TRUE(empty.empty());
    ASSERT_NE(empty.cStr(), nullptr);
    EXPECT_STREQ(empty.cStr(), "");
    const msg_StringBase other;
    EXPECT_EQ(empty.cStr(), other.cStr()) << "one static empty text serves all";
    EXPECT_TRUE(empty.sharesWith(other)) << "both have no body";
}

TEST(msg_StringBase, null_and_empty_texts_have_no_body)
{
    const msg_StringBase none;
    EXPECT_TRUE(msg_StringBase(static_cast<const char*>(nullptr)).sharesWith(none));
    EXPECT_TRUE(msg_StringBase("").sharesWith(none));
    EXPECT_TRUE(msg_StringBase("abc", 0).sharesWith(none));
    EXPECT_TRUE(msg_StringBase(nullptr, 5).sharesWith(none));
}

TEST(msg_StringBase, length_in_the_constructor_is_clamped)
{
    EXPECT_STREQ(msg_StringBase("abcdef", 3).cStr(), "abc");
    EXPECT_EQ(msg_StringBase("abcdef", 3).length(), 3);
    EXPECT_STREQ(msg_StringBase("abc", 100).cStr(), "abc");
    EXPECT_STREQ(msg_StringBase("abc", toEnd).cStr(), "abc");
    EXPECT_STREQ(msg_StringBase("abc", -1).cStr(), "");
    const char unterminated[] = {'x', 'y'};
    EXPECT_STREQ(msg_StringBase(unterminated, 2).cStr(), "xy");
}

TEST(msg_StringBase, numbers_become_decimal_text)
{
    EXPECT_STREQ(msg_StringBase(0).cStr(), "0");
    EXPECT_STREQ(msg_StringBase(-17).cStr(), "-17");
    EXPECT_STREQ(msg_StringBase(lowest).cStr(), "-2147483648");
    EXPECT_STREQ(msg_StringBase(4294967295u).cStr(), "4294967295");
}

TEST(msg_StringBase, doubles_become_the_shortest_text_that_reads_back)
{
    EXPECT_STREQ(msg_StringBase(0.1).cStr(), "0.1");
    EXPECT_STREQ(msg_StringBase(1.5).cStr(), "1.5");
    EXPECT_STREQ(msg_StringBase(3.0).cStr(), "3");
    EXPECT_STREQ(msg_StringBase(-0.0).cStr(), "-0");
    EXPECT_STREQ(msg_StringBase(1e300).cStr(), "1e+300");
    EXPECT_STREQ(msg_StringBase(2.2250738585072014e-308).cStr(), "2.2250738585072014e-308");
    EXPECT_STREQ(msg_StringBase(1.7976931348623157e308).cStr(), "1.7976931348623157e+308");
    EXPECT_STREQ(msg_StringBase(std::numeric_limits<double>::infinity()).cStr(), "inf");
    EXPECT_STREQ(msg_StringBase(std::numeric_limits<double>::quiet_NaN()).cStr(), "nan");
    std::mt19937_64 random(7);
    for (int i = 0; i < 2000; ++i) {
        double value;
        const auto bits = random();
        static_assert(sizeof value == sizeof bits);
        std::memcpy(&value, &bits, sizeof value);
        if (std::isfinite(value)) {
            EXPECT_EQ(std::strtod(msg_StringBase(value).cStr(), nullptr), value);
        }
    }
}

TEST(msg_StringBase, numbers_do_not_convert_by_accident)
{
    static_assert(!std::is_convertible_v<int, msg_StringBase>);
    static_assert(!std::is_convertible_v<double, shr_String>);
    static_assert(std::is_convertible_v<const char*, shr_String>);
    static_assert(std::is_convertible_v<msg_StringBase, shr_String>);
    static_assert(std::is_convertible_v<shr_String, msg_StringBase>);
    static_assert(sizeof(shr_String) == sizeof(msg_StringBase));
}

TEST(msg_StringBase, copies_share_and_a_change_unshares)
{
    msg_StringBase original("text");
    msg_StringBase copy(original);
    EXPECT_TRUE(copy.sharesWith(original));
    EXPECT_EQ(copy.cStr(), original.cStr());
    copy.append("!");
    EXPECT_FALSE(copy.sharesWith(original));
    EXPECT_STREQ(original.cStr(), "text");
    EXPECT_STREQ(copy.cStr(), "text!");
}

TEST(msg_StringBase, each_mutating_member_leaves_a_copy_alone)
{
    const msg_StringBase original("abC");
    const auto check = [&](auto change) {
        msg_StringBase copy(original);
        const msg_StringBase* const result = &change(copy);
        EXPECT_EQ(result, &copy) << "gives the string itself";
        EXPECT_STREQ(original.cStr(), "abC");
        EXPECT_FALSE(copy.sharesWith(original));
        return copy;
    };
    using S = msg_StringBase;
    EXPECT_EQ(check([](S& s) -> S& { return s.append("d"); }), "abCd");
    EXPECT_EQ(check([](S& s) -> S& { return s += "d"; }), "abCd");
    EXPECT_EQ(check([](S& s) -> S& { return s += S("d"); }), "abCd");
    EXPECT_EQ(check([](S& s) -> S& { return s.append("defg", 2); }), "abCde");
    EXPECT_EQ(check([](S& s) -> S& { return s.append(S("defg"), 1, 2); }), "abCef");
    EXPECT_EQ(check([](S& s) -> S& { return s.erase(); }), "");
    EXPECT_EQ(check([](S& s) -> S& { return s.erase(1, 1); }), "aC");
    EXPECT_EQ(check([](S& s) -> S& { return s.insert(1, "xyz", 2); }), "axybC");
    EXPECT_EQ(check([](S& s) -> S& { return s.insert(1, S("xyz")); }), "axyzbC");
    EXPECT_EQ(check([](S& s) -> S& { return s.insert(1, S("xyz"), 1, 1); }), "aybC");
    EXPECT_EQ(check([](S& s) -> S& { return s.replace(0, 2, "xyz"); }), "xyzC");
    EXPECT_EQ(check([](S& s) -> S& { return s.replace(0, 2, S("xyz")); }), "xyzC");
    EXPECT_EQ(check([](S& s) -> S& { return s.replace(0, 2, S("xyz"), 2, 1); }), "zC");
    EXPECT_EQ(check([](S& s) -> S& { return s.replace(0, 2, "xyz", 1); }), "xC");
    EXPECT_EQ(check([](S& s) -> S& { return s.leftTrim("a"); }), "bC");
    EXPECT_EQ(check([](S& s) -> S& { return s.rightTrim("C"); }), "ab");
    EXPECT_EQ(check([](S& s) -> S& { return s.trim("aC"); }), "b");
    EXPECT_EQ(check([](S& s) -> S& { return s.toLower(); }), "abc");
    EXPECT_EQ(check([](S& s) -> S& { return s.toUpper(); }), "ABC");
    EXPECT_EQ(check([](S& s) -> S& { return s.capitalize(); }), "AbC");
    EXPECT_EQ(check([](S& s) -> S& { return s.uncapitalize(); }), "abC");
    EXPECT_EQ(check([](S& s) -> S& { return s.reverse(); }), "Cba");
    EXPECT_EQ(check([](S& s) -> S& {
                  s[1] = 'x';
                  return s;
              }),
              "axC");
}

TEST(msg_StringBase, assignment_shares_and_survives_itself)
{
    msg_StringBase a("a");
    const msg_StringBase b("b");
    a = b;
    EXPECT_TRUE(a.sharesWith(b));
    const msg_StringBase& same = a;
    a = same;
    EXPECT_EQ(a, "b");
    a = "long text";
    a = a.cStr() + 5;
    EXPECT_EQ(a, "text") << "assigned from its own characters";
    a = static_cast<const char*>(nullptr);
    EXPECT_TRUE(a.empty());
}

TEST(msg_StringBase, moved_from_is_empty)
{
    msg_StringBase a("a");
    msg_StringBase b(std::move(a));
    EXPECT_EQ(b, "a");
    EXPECT_TRUE(a.empty()); // NOLINT: the moved-from state is what is tested
    msg_StringBase c("c");
    c = std::move(b);
    EXPECT_EQ(c, "a");
    EXPECT_TRUE(b.empty()); // NOLINT
}

TEST(msg_StringBase, append_to_an_empty_text_shares)
{
    const msg_StringBase source("abc");
    msg_StringBase target;
    target.append(source);
    EXPECT_TRUE(target.sharesWith(source));
}

TEST(msg_StringBase, appends_a_part_of_itself)
{
    msg_StringBase a("abc");
    a.append(a);
    EXPECT_EQ(a, "abcabc");
    a.append(a.cStr() + 4);
    EXPECT_EQ(a, "abcabcbc");
    a.insert(1, a.cStr() + 6);
    EXPECT_EQ(a, "abcbcabcbc");
    a.replace(0, 9, a, 8, 2);
    EXPECT_EQ(a, "bcc");
}

TEST(msg_StringBase, appending_is_linear_in_the_whole)
{
    msg_StringBase a;
    const char* before = a.cStr();
    int moves = 0;
    for (int i = 0; i < 100000; ++i) {
        a.append("x");
        moves += a.cStr() != before;
        before = a.cStr();
    }
    EXPECT_EQ(a.length(), 100000);
    EXPECT_LT(moves, 100);
}

TEST(msg_StringBase, compares_byte_by_byte_with_itself_on_the_left)
{
    EXPECT_EQ(text("abc").compare("abd"), -1);
    EXPECT_EQ(text("abd").compare("abc"), 1);
    EXPECT_EQ(text("abc").compare(text("abc")), 0);
    EXPECT_EQ(text("ab").compare(text("abc")), -1);
    EXPECT_EQ(text("z").compare("a"), 1) << "1, not the difference of the bytes";
    EXPECT_EQ(text("\xc3\xa4").compare("z"), 1) << "bytes are unsigned";
    EXPECT_EQ(text("").compare(static_cast<const char*>(nullptr)), 0);
    msg_StringBase cut("abc");
    cut[1] = '\0';
    EXPECT_EQ(cut.compare("a"), 0) << "stops at the terminating zero";
}

TEST(msg_StringBase, operators_agree_with_compare)
{
    const msg_StringBase a("a");
    const msg_StringBase b("b");
    EXPECT_TRUE(a == "a" && "a" == a && a != b && a != "b" && "b" != a);
    EXPECT_TRUE(a < b && b > a && a <= b && b >= a && a <= "a" && "a" <= b);
    EXPECT_FALSE(b < a);
}

TEST(msg_StringBase, erase_clamps)
{
    EXPECT_EQ(text("abc").erase(), "");
    EXPECT_EQ(text("abc").erase(1), "a");
    EXPECT_EQ(text("abc").erase(1, toEnd), "a");
    EXPECT_EQ(text("abc").erase(3, 5), "abc");
    EXPECT_EQ(text("abc").erase(99, 1), "abc");
    EXPECT_EQ(text("abc").erase(-4, 1), "bc");
    EXPECT_EQ(text("abc").erase(0, lowest), "abc");
    EXPECT_EQ(msg_StringBase().erase(), "");
}

TEST(msg_StringBase, finds_forwards)
{
    const msg_StringBase s("abcabc");
    EXPECT_EQ(s.find("bc"), 1);
    EXPECT_EQ(s.find("bc", 2), 4);
    EXPECT_EQ(s.find("bc", 5), -1);
    EXPECT_EQ(s.find(msg_StringBase("ca"), 0), 2);
    EXPECT_EQ(s.find("bcx", 0, 2), 1) << "only the first two characters of the pattern";
    EXPECT_EQ(s.find("abcabcabc"), -1);
    EXPECT_EQ(s.find("a", -3), 0);
    EXPECT_EQ(s.find("a", 99), -1);
    EXPECT_EQ(s.find("", 2), 2);
    EXPECT_EQ(s.find("", 99), 6);
    EXPECT_EQ(s.find(static_cast<const char*>(nullptr), 0), 0);
    EXPECT_EQ(s.find("bc", 0, -1), 0);
    EXPECT_EQ(msg_StringBase().find("a"), -1);
}

TEST(msg_StringBase, finds_backwards)
{
    const msg_StringBase s("abcabc");
    EXPECT_EQ(s.rFind("bc"), 4);
    EXPECT_EQ(s.rFind("bc", 4), 4) << "an occurrence may begin at the start of the search";
    EXPECT_EQ(s.rFind("bc", 3), 1);
    EXPECT_EQ(s.rFind("bc", 0), -1);
    EXPECT_EQ(s.rFind("abc", -5), 0);
    EXPECT_EQ(s.rFind(msg_StringBase("a"), toEnd), 3);
    EXPECT_EQ(s.rFind("axx", toEnd, 1), 3);
    EXPECT_EQ(s.rFind(""), 6);
    EXPECT_EQ(msg_StringBase().rFind("a"), -1);
}

TEST(msg_StringBase, insert_clamps)
{
    EXPECT_EQ(text("abc").insert(99, "x"), "abcx");
    EXPECT_EQ(text("abc").insert(-1, "x"), "xabc");
    EXPECT_EQ(text("abc").insert(1, "xyz", 99), "axyzbc");
    EXPECT_EQ(text("abc").insert(1, "xyz", -1), "abc");
    EXPECT_EQ(text("abc").insert(1, msg_StringBase("xyz"), 2, 99), "azbc");
    EXPECT_EQ(text("abc").insert(1, msg_StringBase("xyz"), 99, 1), "abc");
    EXPECT_EQ(msg_StringBase().insert(0, "x"), "x");
}

TEST(msg_StringBase, replace_clamps)
{
    EXPECT_EQ(text("abc").replace(1, 99, "x"), "ax");
    EXPECT_EQ(text("abc").replace(99, 99, "x"), "abcx");
    EXPECT_EQ(text("abc").replace(-1, 1, "x"), "xbc");
    EXPECT_EQ(text("abc").replace(1, -1, "x"), "axbc");
    EXPECT_EQ(text("abc").replace(0, toEnd, ""), "");
    EXPECT_EQ(text("abc").replace(1, 1, msg_StringBase("xyz"), -1, 2), "axyc");
    EXPECT_EQ(text("abc").replace(1, 1, static_cast<const char*>(nullptr)), "ac");
}

TEST(msg_StringBase, trims_sets_of_characters)
{
    EXPECT_EQ(text(" \t a b \t").trim(" \t"), "a b");
    EXPECT_EQ(text("xxaxx").leftTrim("x"), "axx");
    EXPECT_EQ(text("xxaxx").rightTrim("x"), "xxa");
    EXPECT_EQ(text("xyyx").trim("xy"), "");
    EXPECT_EQ(text("xax").trim(""), "xax");
    EXPECT_EQ(text("xax").trim(nullptr), "xax");
    EXPECT_EQ(msg_StringBase().trim(" "), "");
}

TEST(msg_StringBase, substr_shares_the_whole_and_clamps_the_rest)
{
    const msg_StringBase s("abcdef");
    EXPECT_TRUE(s.substr().sharesWith(s));
    EXPECT_EQ(s.substr(2), "cdef");
    EXPECT_EQ(s.substr(2, 3), "cde");
    EXPECT_EQ(s.substr(4, 99), "ef");
    EXPECT_EQ(s.substr(99, 1), "");
    EXPECT_EQ(s.substr(-2, 3), "abc");
    EXPECT_EQ(s.substr(0, -1), "");
    EXPECT_EQ(msg_StringBase().substr(), "");
}

TEST(msg_StringBase, case_is_that_of_ascii)
{
    EXPECT_EQ(text("aZ\xc3\xa4[`{@").toUpper(), "AZ\xc3\xa4[`{@");
    EXPECT_EQ(text("aZ\xc3\x84[`{@").toLower(), "az\xc3\x84[`{@");
    EXPECT_EQ(text("hello World").capitalize(), "Hello World");
    EXPECT_EQ(text("HELLO").uncapitalize(), "hELLO");
    EXPECT_EQ(msg_StringBase().toUpper().toLower().capitalize().uncapitalize().reverse(), "");
}

TEST(msg_StringBase, index_outside_reads_zero_and_writes_nowhere)
{
    msg_StringBase s("ab");
    const msg_StringBase& reader = s;
    EXPECT_EQ(reader[0], 'a');
    EXPECT_EQ(reader[2], '\0');
    EXPECT_EQ(reader[-1], '\0');
    EXPECT_EQ(msg_StringBase()[0], '\0');
    s[2] = 'x';
    s[-1] = 'x';
    EXPECT_EQ(s[2], '\0') << "the spare character is clean each time";
    EXPECT_EQ(s, "ab");
    EXPECT_EQ(s.length(), 2);
}

TEST(msg_StringBase, random_edits_match_a_plain_string)
{
    std::mt19937 random(42);
    const auto number = [&](int limit) { return std::uniform_int_distribution<int>(0, limit)(random); };
    msg_StringBase ours;
    std::string plain;
    for (int i = 0; i < 20000; ++i) {
        const int size = static_cast<int>(plain.size());
        const int position = number(size);
        const int count = number(8);
        const std::string piece(static_cast<std::size_t>(number(12)), static_cast<char>('a' + number(25)));
        const msg_StringBase kept(ours);
        const std::string keptPlain(plain);
        switch (number(5)) {
        case 0:
            ours.append(piece.c_str());
            plain.append(piece);
            break;
        case 1:
            ours.insert(position, piece.c_str());
            plain.insert(static_cast<std::size_t>(position), piece);
            break;
        case 2:
            ours.replace(position, count, piece.c_str());
            plain.replace(static_cast<std::size_t>(position), static_cast<std::size_t>(count), piece);
            break;
        case 3:
            ours.insert(position, ours, 0, count);
            plain.insert(static_cast<std::size_t>(position), std::string(plain, 0, std::size_t(count)));
            break;
        case 4:
            ours.reverse();
            plain.assign(plain.rbegin(), plain.rend());
            break;
        default:
            ours.erase(position, count * 4);
            plain.erase(static_cast<std::size_t>(position), static_cast<std::size_t>(count) * 4);
            break;
        }
        ASSERT_EQ(ours.cStr(), plain);
        ASSERT_EQ(ours.length(), static_cast<int>(plain.size()));
        ASSERT_EQ(kept.cStr(), keptPlain);
    }
}
