#ifndef TEXTS_H
#define TEXTS_H

#include "yld_EnumText.h"
#include "yld_Sequence.h"
#include "yld_String.h"

#include <string>
#include <vector>

/// The enumerator as text, for example "NODAL"; its number for one that has no name.
template<class Enum> std::string tool_nameOf(Enum value)
{
    const char* const text = yld_EnumText::of(value);
    return text ? text : std::to_string(static_cast<int>(value));
}

inline std::string tool_text(const yld_String& text) { return text.cStr(); }
std::vector<std::string> tool_texts(const yld_Sequence<yld_String>& texts);

/// ", there is: a, b, c" for an error message; a count where the names would fill the screen, and a word for
/// none.
std::string tool_choices(const std::vector<std::string>& names);

/// Line breaks and other control characters become blanks, blanks in a row become one.
std::string tool_oneLine(const std::string& text);

#endif
