#include "yld_Union.h"

#include "yld_Exception.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>

struct yld_UnionTestAccess
{
    static int integer(const yld_Union& u) { return u.m_integer; }
    static std::uint32_t single(const yld_Union& u) { return std::bit_cast<std::uint32_t>(u.m_single); }
    static std::uint64_t real(const yld_Union& u) { return std::bit_cast<std::uint64_t>(u.m_double); }
    static bool boolean(const yld_Union& u) { return u.m_boolean; }
    static const yld_String& string(const yld_Union& u) { return u.m_string; }
    static int tag(const yld_Union& u) { return u.m_tag; }
};

namespace {

using Access = yld_UnionTestAccess;

constexpr std::uint32_t unsetSingle = 0x00800000u;
constexpr std::uint64_t unsetDouble = 0x0010000000000000u;
constexpr int unsetInteger = -2147483647 - 1;

void expectFields(const yld_Union& u, int tag, int integer, std::uint32_t single, std::uint64_t real, bool boolean,
                  const char* string)
{
    EXPECT_EQ(Access::tag(u), tag);
    EXPECT_EQ(Access::integer(u), integer);
    EXPECT_EQ(Access::single(u), single);
    EXPECT_EQ(Access::real(u), real);
    EXPECT_EQ(Access::boolean(u), boolean);
    EXPECT_EQ(Access::string(u), string);
}

template<class Get> void expectRefused(const Get& get, const char* message)
{
    try {
        get();
        ADD_FAILURE() << "not raised: " << message;
    } catch (const yld_Exception& caught) {
        EXPECT_EQ(caught.errorNo(), 6);
        EXPECT_EQ(caught.JournalMessage(), message);
    }
}

// Every getter refuses but those that are allowed.
void expectKinds(const yld_Union& u, bool asInt, bool asFloat, bool asDouble, bool asBool, bool asString)
{
    if (!asInt) expectRefused([&] { u.getInt(); }, "The union is not of type int");
    if (!asFloat) expectRefused([&] { u.getFloat(); }, "The union is not of type float");
    if (!asDouble) expectRefused([&] { u.getDouble(); }, "The union is not of type double");
    if (!asBool) expectRefused([&] { u.getBool(); }, "The union is not of type bool");
    if (!asString) expectRefused([&] { u.getString(); }, "The union is not of type string");
}

} // namespace

TEST(yld_Union, of_int)
{
    const yld_Union u(42);
    EXPECT_EQ(u.getInt(), 42);
    expectKinds(u, true, false, false, false, false);
    expectFields(u, 0, 42, unsetSingle, unsetDouble, false, "");
}

TEST(yld_Union, of_float)
{
    const yld_Union u(1.5f);
    EXPECT_EQ(u.getFloat(), 1.5f);
    expectKinds(u, false, true, false, false, false);
    expectFields(u, 1, unsetInteger, 0x3fc00000u, unsetDouble, false, "");
}

TEST(yld_Union, of_double)
{
    const yld_Union u(1.5);
    EXPECT_EQ(u.getDouble(), 1.5);
    expectKinds(u, false, true, true, false, false);
    expectFields(u, 2, unsetInteger, unsetSingle, 0x3ff8000000000000u, false, "");
}

TEST(yld_Union, of_bool)
{
    const yld_Union u(true);
    EXPECT_TRUE(u.getBool());
    EXPECT_FALSE(yld_Union(false).getBool());
    expectKinds(u, false, false, false, true, false);
    expectFields(u, 3, unsetInteger, unsetSingle, unsetDouble, true, "");
}

TEST(yld_Union, of_string)
{
    const yld_String text("text");
    const yld_Union u(text);
    EXPECT_TRUE(u.getString().sharesWith(text));
    expectKinds(u, false, false, false, false, true);
    expectFields(u, 4, unsetInteger, unsetSingle, unsetDouble, false, "text");
}

TEST(yld_Union, of_characters_is_a_string_and_no_bool)
{
    const yld_Union u("text");
    EXPECT_EQ(u.getString(), "text");
    expectFields(u, 4, unsetInteger, unsetSingle, unsetDouble, false, "text");
}

TEST(yld_Union, a_double_can_be_read_as_float_but_not_the_other_way_round)
{
    EXPECT_EQ(yld_Union(1.5).getFloat(), 1.5f);
    EXPECT_EQ(yld_Union(0.1).getFloat(), 0.1f) << "narrowed";
    expectRefused([] { yld_Union(1.5f).getDouble(); }, "The union is not of type double");
}

TEST(yld_Union, copies_and_assignments_take_everything)
{
    const yld_Union text("text");
    yld_Union u(text);
    EXPECT_TRUE(u.getString().sharesWith(text.getString()));
    u = yld_Union(7);
    EXPECT_EQ(u.getInt(), 7);
    expectFields(u, 0, 7, unsetSingle, unsetDouble, false, "");
    const yld_Union& same = u;
    u = same;
    EXPECT_EQ(u.getInt(), 7);
    EXPECT_EQ(text.getString(), "text");
}
