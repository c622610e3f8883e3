#include "platform/text/msg_Format.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace {

class Words : public msg_Catalogue
{
public:
    explicit Words(std::map<std::string, std::string> words) : m_words(std::move(words)) {}
    const char* Find(const char* format) const override
    {
        const auto found = m_words.find(format);
        return found == m_words.end() ? nullptr : found->second.c_str();
    }

private:
    std::map<std::string, std::string> m_words;
};

class Installed
{
public:
    explicit Installed(const msg_Catalogue& catalogue) : m_before(msg_installCatalogue(&catalogue)) {}
    ~Installed() { msg_installCatalogue(m_before); }

private:
    const msg_Catalogue* m_before;
};

} // namespace

TEST(msg_translate, keeps_a_text_without_translation)
{
    EXPECT_EQ(msg_translate("No yld files are open.").Result(), "No yld files are open.");
    EXPECT_EQ(msg_translate("").Result(), "");
    EXPECT_EQ(msg_translate(nullptr).Result(), "");
}

TEST(msg_translate, fills_placeholders_in_their_order)
{
    msg_translate message("Key \"%s\" at %d");
    message.msg_SubstituteFormat(1, "Step-1");
    message.msg_SubstituteFormat(2, 7);
    EXPECT_EQ(message.Result(), "Key \"Step-1\" at 7");
}

TEST(msg_translate, fills_placeholders_by_number)
{
    msg_translate message("%2$s, %1$s and %2$d");
    message.msg_SubstituteFormat(1, msg_StringBase("a"));
    message.msg_SubstituteFormat(2, 4000000000u);
    EXPECT_EQ(message.Result(), "4000000000, a and 4000000000");
}

TEST(msg_translate, does_not_look_into_values)
{
    EXPECT_EQ(msg_Format("%1$s-%2$s", "%2$s%s", "100%"), "%2$s%s-100%");
    EXPECT_EQ(msg_Format("%s", "50% of"), "50% of");
}

TEST(msg_translate, leaves_what_has_no_value)
{
    EXPECT_EQ(msg_Format("%s and %s", "one"), "one and %s");
    EXPECT_EQ(msg_Format("%3$s"), "%3$s");
    EXPECT_EQ(msg_Format("%"), "%");
    EXPECT_EQ(msg_Format("100% sure %x"), "100% sure %x");
    EXPECT_EQ(msg_Format("%1$", "x"), "%1$");
    EXPECT_EQ(msg_Format("%0$s", "x"), "%0$s");
    EXPECT_EQ(msg_Format("%%s", "x"), "%s");
}

TEST(msg_translate, ignores_positions_that_do_not_exist)
{
    msg_translate message("%s");
    message.msg_SubstituteFormat(0, "no");
    message.msg_SubstituteFormat(-1, "no");
    message.msg_SubstituteFormat(10, "no");
    EXPECT_EQ(message.Result(), "%s");
    message.msg_SubstituteFormat(1, "first");
    message.msg_SubstituteFormat(1, "second");
    EXPECT_EQ(message.Result(), "second");
}

TEST(msg_translate, more_placeholders_than_values_can_be)
{
    EXPECT_EQ(msg_Format("%s%s%s%s%s%s%s%s%s%s%s", 1, 2, 3, 4, 5, 6, 7, 8, 9), "123456789%s%s");
    msg_StringBase many;
    for (int i = 0; i < 70; ++i) {
        many.append("%s");
    }
    EXPECT_EQ(msg_Format(many.cStr(), "x"), msg_StringBase("x").append(many, 2, msg_StringBase::toEnd));
}

TEST(msg_Format, has_a_form_for_every_need)
{
    const msg_StringBase a("a");
    EXPECT_EQ(msg_Format("plain"), "plain");
    EXPECT_EQ(msg_Format("<%s>", a), "<a>");
    EXPECT_EQ(msg_Format("<%1$s%2$s>", a, "b"), "<ab>");
    EXPECT_EQ(msg_Format("<%1$s%2$d>", a, -3), "<a-3>");
    EXPECT_EQ(msg_Format("<%d>", 5), "<5>");
    EXPECT_EQ(msg_Format("<%1$d%2$d>", 5, 6), "<56>");
    EXPECT_EQ(msg_Format("%1$s%2$s%3$s%4$s", "a", "b", "c", "d"), "abcd");
}

TEST(msg_Format, a_catalogue_translates_and_reorders)
{
    const Words words({{"%1$s of %2$s", "%2$s, davon %1$s"}, {"none", "nichts"}});
    {
        const Installed installed(words);
        EXPECT_EQ(msg_Format("%1$s of %2$s", "a", "b"), "b, davon a");
        EXPECT_EQ(msg_Format("none"), "nichts") << "texts without values are translated, too";
        EXPECT_EQ(msg_Format("unknown %s", "a"), "unknown a");
    }
    EXPECT_EQ(msg_Format("none"), "none");
}

TEST(msg_installCatalogue, gives_the_one_before)
{
    const Words words({});
    EXPECT_EQ(msg_installCatalogue(&words), nullptr);
    EXPECT_EQ(msg_installCatalogue(nullptr), &words);
}
