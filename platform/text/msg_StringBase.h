#ifndef MSG_STRINGBASE_H
#define MSG_STRINGBASE_H

#include "platform/base/bas_Export.h"

#include <compare>
#include <cstdint>

/// Text with a shared body: two words, a pointer to the characters and a pointer to a counted body that holds
/// the length. Both are null for an empty text that never held anything.
///
/// Copying shares the body, in constant time; the first change to a shared body makes a copy of it. The
/// counts are plain integers, so a body must stay within one thread.
///
/// Positions and lengths are counted in bytes from 0 and are clamped to the text: a negative one counts as 0,
/// one past the end as the end. The value `toEnd` stands for the end of the text. A null `const char*` counts
/// as the empty text; a `const char*` with a length is read up to its terminating zero if that comes first.
/// Letter case is that of ASCII, whatever the locale. A text longer than 2147483630 bytes raises
/// std::length_error.
class YLD_API msg_StringBase
{
public:
    /// The end of the string, as a length or as a position.
    static constexpr int toEnd = 0x7fffffff;

    msg_StringBase() noexcept = default;
    msg_StringBase(const char* text);
    msg_StringBase(const char* text, int length);
    /// Decimal text of the number.
    explicit msg_StringBase(int number);
    explicit msg_StringBase(unsigned int number);
    /// The shortest text that reads back as the same double, with a point whatever the locale: 0.1, 1e+300,
    /// inf, nan; a whole number has no point.
    explicit msg_StringBase(double number);
    msg_StringBase(const msg_StringBase& other) noexcept : m_text(other.m_text), m_body(other.m_body)
    {
        if (m_body) {
            ++m_body->holders;
        }
    }
    msg_StringBase(msg_StringBase&& other) noexcept : m_text(other.m_text), m_body(other.m_body)
    {
        other.m_text = nullptr;
        other.m_body = nullptr;
    }
    ~msg_StringBase() { letGo(); }

    msg_StringBase& operator=(const msg_StringBase& other) noexcept;
    msg_StringBase& operator=(msg_StringBase&& other) noexcept;
    msg_StringBase& operator=(const char* text);

    /// The characters with a terminating zero; a static empty text if there is no body. Good until this
    /// string changes or dies.
    const char* cStr() const noexcept { return m_text ? m_text : ""; }
    int length() const noexcept { return m_body ? static_cast<int>(m_body->length) : 0; }
    bool empty() const noexcept { return length() == 0; }

    msg_StringBase& append(const msg_StringBase& text);
    msg_StringBase& append(const char* text);
    msg_StringBase& append(const char* text, int length);
    msg_StringBase& append(const msg_StringBase& text, int position, int length);
    msg_StringBase& operator+=(const msg_StringBase& text) { return append(text); }
    msg_StringBase& operator+=(const char* text) { return append(text); }

    /// Byte-wise, bytes unsigned, up to the first difference or the terminating zero: -1, 0 or 1 with this
    /// string as the left operand.
    int compare(const msg_StringBase& other) const noexcept;
    int compare(const char* other) const noexcept;

    msg_StringBase& erase(int position = 0, int length = toEnd);

    /// Position of the first occurrence that begins at `start` or after it, -1 if there is none. An empty
    /// pattern is found at the clamped start. Cost: length of text times length of pattern at worst.
    int find(const char* pattern, int start = 0) const noexcept;
    int find(const msg_StringBase& pattern, int start = 0) const noexcept;
    int find(const char* pattern, int start, int length) const noexcept;
    /// Position of the last occurrence that begins at `start` or before it, -1 if there is none.
    int rFind(const char* pattern, int start = toEnd) const noexcept;
    int rFind(const msg_StringBase& pattern, int start = toEnd) const noexcept;
    int rFind(const char* pattern, int start, int length) const noexcept;

    /// Puts `count` characters of the text before the one at `position`.
    msg_StringBase& insert(int position, const char* text, int count = toEnd);
    msg_StringBase& insert(int position, const msg_StringBase& text);
    msg_StringBase& insert(int position, const msg_StringBase& text, int start, int count);

    /// Puts a text in the place of the `count` characters from `position` on.
    msg_StringBase& replace(int position, int count, const char* text);
    msg_StringBase& replace(int position, int count, const msg_StringBase& text);
    msg_StringBase& replace(int position, int count, const msg_StringBase& text, int start, int length);
    msg_StringBase& replace(int position, int count, const char* text, int length);

    /// Remove the characters of a set from the beginning, the end, or both.
    msg_StringBase& leftTrim(const char* characters);
    msg_StringBase& rightTrim(const char* characters);
    msg_StringBase& trim(const char* characters);

    /// A copy of a part of the text; the whole text shares its body.
    msg_StringBase substr(int position = 0, int length = toEnd) const;

    msg_StringBase& toLower();
    msg_StringBase& toUpper();
    /// First character to upper or to lower case, the others as they are.
    msg_StringBase& capitalize();
    msg_StringBase& uncapitalize();
    /// Bytes in the opposite order.
    msg_StringBase& reverse();

    /// The character at an index, zero if there is none.
    char operator[](int index) const noexcept;
    /// Unshares. The reference is good until this string is next changed or copied; an index outside of the
    /// text gives a spare character that belongs to no string.
    char& operator[](int index);

    /// Whether both strings stand on the same body, for tests.
    bool sharesWith(const msg_StringBase& other) const noexcept { return m_body == other.m_body; }

    friend bool operator==(const msg_StringBase& a, const msg_StringBase& b) noexcept { return a.compare(b) == 0; }
    friend bool operator==(const msg_StringBase& a, const char* b) noexcept { return a.compare(b) == 0; }
    friend std::strong_ordering operator<=>(const msg_StringBase& a, const msg_StringBase& b) noexcept
    {
        return a.compare(b) <=> 0;
    }
    friend std::strong_ordering operator<=>(const msg_StringBase& a, const char* b) noexcept
    {
        return a.compare(b) <=> 0;
    }

private:
    struct Body
    {
        std::uint32_t holders;
        std::uint32_t length;
        std::uint32_t capacity;
    };

    static Body* newBody(std::int64_t length, std::int64_t capacity);
    static char* charactersOf(Body* body) noexcept { return reinterpret_cast<char*>(body + 1); }
    void adopt(Body* body) noexcept;
    void letGo() noexcept
    {
        if (m_body && --m_body->holders == 0) {
            deleteBody(m_body);
        }
    }
    void release() noexcept;
    static void deleteBody(Body* body) noexcept;
    void set(const char* text, std::int64_t length);
    void unshare();
    msg_StringBase& splice(int position, int count, const char* text, int length);

    char* m_text = nullptr;
    Body* m_body = nullptr;
};

#endif
