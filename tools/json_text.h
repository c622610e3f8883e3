#ifndef JSON_TEXT_H
#define JSON_TEXT_H

#include "output.h"

#include <string>
#include <string_view>

/// The shortest decimal text that reads back as the same number; "nan", "inf", "-inf" for what is none.
std::string tool_numberText(float number);
std::string tool_numberText(double number);

/// The text with U+FFFD in the place of each byte that is not UTF-8.
std::string tool_validUtf8(std::string_view text);

/// Writes one JSON document as it comes, so that a million values need no memory. Commas and nesting are
/// looked after; keys and values must come in turn. Text that is not UTF-8 gets U+FFFD in the place of each
/// bad byte. Numbers are printed so that they read back exactly; NaN and the infinities, which JSON lacks,
/// become null.
class tool_JsonWriter
{
public:
    explicit tool_JsonWriter(tool_Output& output) : m_output(output) {}

    tool_JsonWriter& beginObject() { return open('{'); }
    tool_JsonWriter& endObject() { return close('}'); }
    tool_JsonWriter& beginArray() { return open('['); }
    tool_JsonWriter& endArray() { return close(']'); }
    tool_JsonWriter& key(std::string_view name);

    tool_JsonWriter& value(std::string_view text);
    tool_JsonWriter& value(const char* text) { return value(std::string_view(text)); }
    tool_JsonWriter& value(int number);
    tool_JsonWriter& value(long long number);
    tool_JsonWriter& value(float number);
    tool_JsonWriter& value(double number);

    /// A key with its value.
    template<class T> tool_JsonWriter& member(std::string_view name, const T& what) { return key(name).value(what); }

private:
    tool_JsonWriter& open(char bracket);
    tool_JsonWriter& close(char bracket);
    void separate();
    void quote(std::string_view text);

    tool_Output& m_output;
    bool m_needsComma = false;
};

#endif
