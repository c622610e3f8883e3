#ifndef YLD_STRING_H
#define YLD_STRING_H

#include "containers/shr_String.h"

/// The text of the public interface: a zero-terminated byte string with a shared body.
///
/// Two words in size. Copying shares the text, in constant time; the first change to a shared text copies it.
/// A text made by the default constructor holds no memory. Positions and lengths count bytes from 0, are
/// clamped to the text, and 0x7fffffff stands for the end; nothing here reads or writes outside of the text.
/// The sharing counts are not atomic: a text and its copies belong to one thread.
class YLD_API yld_String : public shr_String
{
public:
    yld_String() noexcept = default;
    /// A null pointer gives the empty text.
    yld_String(const char* text) : shr_String(text) {}
    /// At most `length` characters of `text`, fewer if its terminating zero comes first.
    yld_String(const char* text, int length) : shr_String(text, length) {}
    /// Decimal text.
    explicit yld_String(int number) : shr_String(number) {}
    explicit yld_String(unsigned int number) : shr_String(number) {}
    /// The shortest text that reads back as the same double, whatever the locale.
    explicit yld_String(double number) : shr_String(number) {}
    /// Shares the body.
    yld_String(const msg_StringBase& text) noexcept : shr_String(text) {}

    yld_String& operator=(const char* text) { return self(msg_StringBase::operator=(text)); }

    /// Add a text, its first `length` characters, or `length` characters from `position` on, to the end.
    yld_String& append(const msg_StringBase& text) { return self(msg_StringBase::append(text)); }
    yld_String& append(const char* text) { return self(msg_StringBase::append(text)); }
    yld_String& append(const char* text, int length) { return self(msg_StringBase::append(text, length)); }
    yld_String& append(const msg_StringBase& text, int position, int length)
    {
        return self(msg_StringBase::append(text, position, length));
    }
    yld_String& operator+=(const msg_StringBase& text) { return append(text); }
    yld_String& operator+=(const char* text) { return append(text); }

    /// Removes `length` characters from `position` on; without arguments, everything.
    yld_String& erase(int position = 0, int length = toEnd) { return self(msg_StringBase::erase(position, length)); }

    /// Puts the first `count` characters of a text before the character at `position`.
    yld_String& insert(int position, const char* text, int count = toEnd)
    {
        return self(msg_StringBase::insert(position, text, count));
    }
    yld_String& insert(int position, const msg_StringBase& text)
    {
        return self(msg_StringBase::insert(position, text));
    }
    yld_String& insert(int position, const msg_StringBase& text, int start, int count)
    {
        return self(msg_StringBase::insert(position, text, start, count));
    }

    /// Puts a text, or a part of it, in the place of `count` characters from `position` on.
    yld_String& replace(int position, int count, const char* text)
    {
        return self(msg_StringBase::replace(position, count, text));
    }
    yld_String& replace(int position, int count, const msg_StringBase& text)
    {
        return self(msg_StringBase::replace(position, count, text));
    }
    yld_String& replace(int position, int count, const msg_StringBase& text, int start, int length)
    {
        return self(msg_StringBase::replace(position, count, text, start, length));
    }
    yld_String& replace(int position, int count, const char* text, int length)
    {
        return self(msg_StringBase::replace(position, count, text, length));
    }

    /// Remove the characters that occur in the given set from the beginning, the end, or both.
    yld_String& leftTrim(const char* characters) { return self(msg_StringBase::leftTrim(characters)); }
    yld_String& rightTrim(const char* characters) { return self(msg_StringBase::rightTrim(characters)); }
    yld_String& trim(const char* characters) { return self(msg_StringBase::trim(characters)); }

    /// A part of the text; without arguments, the whole of it.
    yld_String substr(int position = 0, int length = toEnd) const { return msg_StringBase::substr(position, length); }

    /// In place, ASCII letters only.
    yld_String& toLower() { return self(msg_StringBase::toLower()); }
    yld_String& toUpper() { return self(msg_StringBase::toUpper()); }
    /// The first character only.
    yld_String& capitalize() { return self(msg_StringBase::capitalize()); }
    yld_String& uncapitalize() { return self(msg_StringBase::uncapitalize()); }
    yld_String& reverse() { return self(msg_StringBase::reverse()); }

private:
    yld_String& self(msg_StringBase&) noexcept { return *this; }
};

#endif
