#include "containers/shr_String.h"
#include "platform/text/msg_StringBase.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

namespace {

// A zero-terminated text of more than 2^31 characters 'x' that takes next to no memory: the same page again
// and again, and one page for the end.
class EndlessText
{
public:
    explicit EndlessText(std::size_t length)
        : m_bytes((length / pageSize + 1) * pageSize),
          m_text(
              static_cast<char*>(mmap(nullptr, m_bytes, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0)))
    {
        const std::string page(pageSize, 'x');
        const int file = memfd_create("text", 0);
        m_good = m_text != MAP_FAILED && file >= 0 && write(file, page.data(), pageSize) == ssize_t(pageSize);
        for (std::size_t at = 0; m_good && at < m_bytes; at += pageSize) {
            m_good =
                mmap(m_text + at, pageSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_FIXED, file, 0) != MAP_FAILED;
        }
        close(file);
        if (m_good) {
            m_text[length] = '\0';
        }
    }
    EndlessText(const EndlessText&) = delete;
    EndlessText& operator=(const EndlessText&) = delete;
    ~EndlessText()
    {
        if (m_text != MAP_FAILED) {
            munmap(m_text, m_bytes);
        }
    }

    bool isGood() const { return m_good; }
    const char* get() const { return m_text; }

private:
    static constexpr std::size_t pageSize = std::size_t(1) << 20;

    std::size_t m_bytes;
    char* m_text;
    bool m_good = false;
};

template<class Action> std::string lengthErrorOf(const Action& action)
{
    try {
        action();
    } catch (const std::length_error& error) {
        return error.what();
    }
    return "(taken)";
}

msg_StringBase withZero()
{
    msg_StringBase text("abcdef");
    text[2] = '\0';
    return text;
}

std::string whole(const msg_StringBase& text)
{
    return std::string(text.cStr(), static_cast<std::size_t>(text.length()));
}

} // namespace

TEST(msg_StringBase, a_text_that_no_length_can_count_is_refused)
{
    const EndlessText endless(std::size_t(INT_MAX) + 1000);
    ASSERT_TRUE(endless.isGood());
    msg_StringBase text("abc");
    EXPECT_EQ(lengthErrorOf([&] { msg_StringBase refused(endless.get()); }), "text too long");
    EXPECT_EQ(lengthErrorOf([&] { text = endless.get(); }), "text too long");
    EXPECT_EQ(lengthErrorOf([&] { text.append(endless.get()); }), "text too long");
    EXPECT_EQ(lengthErrorOf([&] { text.append(endless.get(), INT_MAX); }), "text too long");
    EXPECT_EQ(lengthErrorOf([&] { text.append(endless.get(), INT_MAX - 1); }), "text too long");
    EXPECT_EQ(lengthErrorOf([&] { text.insert(1, endless.get()); }), "text too long");
    EXPECT_EQ(lengthErrorOf([&] { text.replace(1, 1, endless.get()); }), "text too long");
    EXPECT_EQ(text, "abc") << "a refused change changes nothing";
    EXPECT_EQ(text.find(endless.get()), -1);
    EXPECT_EQ(text.rFind(endless.get()), -1);
    EXPECT_EQ(text.compare(endless.get()), -1);
    EXPECT_EQ(text.append(endless.get(), 2), "abcxx") << "as much of it as is asked for can be had";
}

TEST(msg_StringBase, extreme_positions_and_lengths_stay_inside)
{
    for (const int position : {INT_MIN, INT_MIN + 1, -1, 4, 5, INT_MAX - 1, INT_MAX}) {
        for (const int count : {INT_MIN, -1, 0, 1, INT_MAX - 1, INT_MAX}) {
            const std::string plain("abcd");
            const std::size_t at = position < 0 ? 0 : std::min<std::size_t>(4, static_cast<std::size_t>(position));
            const std::size_t n = count < 0 ? 0 : static_cast<std::size_t>(count);
            const msg_StringBase text("abcd");
            EXPECT_EQ(whole(text.substr(position, count)), plain.substr(at, n)) << position << ' ' << count;
            EXPECT_EQ(whole(msg_StringBase(text).erase(position, count)), std::string(plain).erase(at, n));
            EXPECT_EQ(whole(msg_StringBase(text).insert(position, text, position, count)),
                      std::string(plain).insert(at, plain.substr(at, n)));
            EXPECT_EQ(whole(msg_StringBase(text).replace(position, count, "xy")),
                      std::string(plain).replace(at, n, "xy"));
            EXPECT_EQ(whole(msg_StringBase(text).replace(position, count, text, position, count)),
                      std::string(plain).replace(at, n, plain.substr(at, n)));
            EXPECT_EQ(whole(msg_StringBase(text).append(text, position, count)), plain + plain.substr(at, n));
        }
    }
}

TEST(msg_StringBase, a_zero_inside_counts_for_the_length_and_ends_comparisons)
{
    const msg_StringBase text = withZero();
    EXPECT_EQ(text.length(), 6);
    EXPECT_EQ(whole(text), std::string("ab\0def", 6));
    EXPECT_STREQ(text.cStr(), "ab");
    EXPECT_EQ(text.compare("ab"), 0);
    EXPECT_EQ(text.compare("abc"), -1);
    EXPECT_EQ(msg_StringBase("abc").compare(text), 1);
    EXPECT_FALSE(text.empty());
}

TEST(msg_StringBase, a_zero_inside_is_carried_through_every_edit)
{
    const msg_StringBase text = withZero();
    EXPECT_EQ(whole(msg_StringBase(text).append("!")), std::string("ab\0def!", 7));
    EXPECT_EQ(whole(msg_StringBase("<").append(text)), std::string("<ab\0def", 7));
    EXPECT_EQ(whole(msg_StringBase("<>").insert(1, text)), std::string("<ab\0def>", 8));
    EXPECT_EQ(whole(msg_StringBase("<->").replace(1, 1, text)), std::string("<ab\0def>", 8));
    EXPECT_EQ(whole(msg_StringBase(text).erase(3, 2)), std::string("ab\0f", 4));
    EXPECT_EQ(whole(text.substr(1, 3)), std::string("b\0d", 3));
    EXPECT_EQ(whole(msg_StringBase(text).reverse()), std::string("fed\0ba", 6));
    EXPECT_EQ(whole(msg_StringBase(text).toUpper()), std::string("AB\0DEF", 6));
    EXPECT_EQ(whole(msg_StringBase(text).trim("abf")), std::string("\0de", 3))
        << "the set of characters cannot name a zero";
}

TEST(msg_StringBase, searching_goes_beyond_a_zero_inside)
{
    const msg_StringBase text = withZero();
    EXPECT_EQ(text.find("de"), 3);
    EXPECT_EQ(text.rFind("a"), 0);
    EXPECT_EQ(text.find(text.substr(1, 3)), 1) << "a string may look for a zero";
    EXPECT_EQ(text.find("b\0d", 0, 3), 1) << "characters end at theirs: this looks for b";
    EXPECT_EQ(msg_StringBase("ab").find("b\0d", 0, 3), 1);
}

TEST(msg_StringBase, replaces_a_part_of_itself_by_the_whole)
{
    msg_StringBase alone("abcd");
    alone.replace(1, 2, alone);
    EXPECT_EQ(alone, "aabcdd");
    const msg_StringBase original("abcd");
    msg_StringBase shared(original);
    shared.replace(1, 2, shared);
    EXPECT_EQ(shared, "aabcdd");
    EXPECT_EQ(original, "abcd");
    shared.replace(0, 1, original);
    EXPECT_EQ(shared, "abcdabcdd");
}

TEST(msg_StringBase, inserts_itself_anywhere)
{
    for (int position = -1; position <= 5; ++position) {
        const std::size_t at = static_cast<std::size_t>(std::min(std::max(position, 0), 4));
        msg_StringBase text("abcd");
        text.insert(position, text);
        EXPECT_EQ(whole(text), std::string("abcd").insert(at, "abcd")) << position;
        msg_StringBase characters("abcd");
        characters.insert(position, characters.cStr() + 1, 2);
        EXPECT_EQ(whole(characters), std::string("abcd").insert(at, "bc")) << position;
    }
}

TEST(msg_StringBase, edits_itself_in_place_where_there_is_room)
{
    msg_StringBase text("0123456789");
    text.append("0123456789").append("0123456789"); // leaves room after the text
    text.erase(8);
    text.append(text.cStr() + 4, 3);
    EXPECT_EQ(text, "01234567456");
    text.insert(2, text.cStr(), 4);
    EXPECT_EQ(text, "010123234567456");
    text.replace(0, 3, text.cStr() + 10);
    EXPECT_EQ(text, "67456123234567456");
    text.append(text.cStr() + text.length());
    EXPECT_EQ(text.length(), 17) << "its own end is an empty text";
}

TEST(msg_StringBase, appends_a_character_of_itself_by_reference)
{
    msg_StringBase text("xyz");
    const msg_StringBase copy(text);
    text.append(&text[0], 1);
    EXPECT_EQ(text, "xyzx");
    for (int i = 0; i < 100; ++i) {
        text.append(&text[1], 1);
    }
    EXPECT_EQ(whole(text), "xyzx" + std::string(100, 'y'));
    EXPECT_EQ(copy, "xyz");
}

TEST(msg_StringBase, the_writable_character_unshares_and_the_readable_does_not)
{
    const msg_StringBase original("abc");
    msg_StringBase copy(original);
    EXPECT_EQ(static_cast<const msg_StringBase&>(copy)[1], 'b');
    EXPECT_TRUE(copy.sharesWith(original));
    EXPECT_EQ(copy[1], 'b') << "reading through the writable one";
    EXPECT_FALSE(copy.sharesWith(original));
    char* const before = &copy[0];
    copy[0] = 'x';
    EXPECT_EQ(&copy[0], before) << "a text of its own stays where it is";
    EXPECT_EQ(original, "abc");
    EXPECT_EQ(copy, "xbc");
}

TEST(msg_StringBase, an_index_outside_unshares_nothing)
{
    const msg_StringBase original("abc");
    msg_StringBase copy(original);
    copy[3] = 'x';
    copy[INT_MIN] = 'x';
    copy[INT_MAX] = 'x';
    EXPECT_TRUE(copy.sharesWith(original));
    EXPECT_EQ(original, "abc");
}

TEST(msg_StringBase, every_copy_counts)
{
    msg_StringBase first("abc");
    msg_StringBase second(first);
    msg_StringBase third(second);
    second.append("2");
    third.append("3");
    EXPECT_EQ(first, "abc");
    const char* const before = first.cStr();
    first[0] = 'x';
    EXPECT_EQ(first.cStr(), before) << "the others have left: nothing to copy";
    EXPECT_EQ(second, "abc2");
    EXPECT_EQ(third, "abc3");
}
