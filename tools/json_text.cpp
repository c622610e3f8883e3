#include "json_text.h"

#include <charconv>
#include <cmath>

namespace {

template<class T> std::string_view shortest(T number, char (&buffer)[32])
{
    if (std::isnan(number)) return "nan";
    if (std::isinf(number)) return number < 0 ? "-inf" : "inf";
    const std::to_chars_result end = std::to_chars(buffer, buffer + sizeof buffer, number);
    return {buffer, static_cast<std::size_t>(end.ptr - buffer)};
}

// The length of the UTF-8 character that starts here; 0 if there is none: stray or missing continuation
// bytes, overlong forms, surrogates, numbers past the last character.
std::size_t characterLength(std::string_view text)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const auto follows = [&](std::size_t i, unsigned low = 0x80, unsigned high = 0xbf) {
        return i < text.size() && byte(i) >= low && byte(i) <= high;
    };
    const unsigned first = byte(0);
    if (first < 0x80) return 1;
    if (first >= 0xc2 && first <= 0xdf) return follows(1) ? 2 : 0;
    if (first >= 0xe0 && first <= 0xef) {
        const unsigned low = first == 0xe0 ? 0xa0 : 0x80;
        const unsigned high = first == 0xed ? 0x9f : 0xbf;
        return follows(1, low, high) && follows(2) ? 3 : 0;
    }
    if (first >= 0xf0 && first <= 0xf4) {
        const unsigned low = first == 0xf0 ? 0x90 : 0x80;
        const unsigned high = first == 0xf4 ? 0x8f : 0xbf;
        return follows(1, low, high) && follows(2) && follows(3) ? 4 : 0;
    }
    return 0;
}

} // namespace

std::string tool_numberText(float number)
{
    char buffer[32];
    return std::string(shortest(number, buffer));
}

std::string tool_numberText(double number)
{
    char buffer[32];
    return std::string(shortest(number, buffer));
}

std::string tool_validUtf8(std::string_view text)
{
    std::string valid;
    while (!text.empty()) {
        const std::size_t length = characterLength(text);
        if (length == 0) valid += "\xef\xbf\xbd";
        else valid += text.substr(0, length);
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return valid;
}

tool_JsonWriter& tool_JsonWriter::key(std::string_view name)
{
    separate();
    quote(name);
    m_output << ':';
    m_needsComma = false;
    return *this;
}

tool_JsonWriter& tool_JsonWriter::value(std::string_view text)
{
    separate();
    quote(text);
    return *this;
}

tool_JsonWriter& tool_JsonWriter::value(int number)
{
    separate();
    m_output << number;
    return *this;
}

tool_JsonWriter& tool_JsonWriter::value(long long number)
{
    separate();
    m_output << std::to_string(number);
    return *this;
}

tool_JsonWriter& tool_JsonWriter::value(float number)
{
    separate();
    char buffer[32];
    m_output << (std::isfinite(number) ? shortest(number, buffer) : std::string_view("null"));
    return *this;
}

tool_JsonWriter& tool_JsonWriter::value(double number)
{
    separate();
    char buffer[32];
    m_output << (std::isfinite(number) ? shortest(number, buffer) : std::string_view("null"));
    return *this;
}

tool_JsonWriter& tool_JsonWriter::open(char bracket)
{
    separate();
    m_output << bracket;
    m_needsComma = false;
    return *this;
}

tool_JsonWriter& tool_JsonWriter::close(char bracket)
{
    m_output << bracket;
    m_needsComma = true;
    return *this;
}

void tool_JsonWriter::separate()
{
    if (m_needsComma) m_output << ',';
    m_needsComma = true;
}

void tool_JsonWriter::quote(std::string_view text)
{
    m_output << '"';
    while (!text.empty()) {
        const std::size_t length = characterLength(text);
        const char c = text.front();
        if (length == 0) {
            m_output << "\\ufffd";
        } else if (length > 1) {
            m_output << text.substr(0, length);
        } else if (c == '"' || c == '\\') {
            m_output << '\\' << c;
        } else if (static_cast<unsigned char>(c) < 0x20 || c == 0x7f) {
            constexpr char digits[] = "0123456789abcdef";
            m_output << "\\u00" << digits[(c >> 4) & 0xf] << digits[c & 0xf];
        } else {
            m_output << c;
        }
        text.remove_prefix(length == 0 ? 1 : length);
    }
    m_output << '"';
}
