#ifndef TEXTS_H
#define TEXTS_H

#include "yld_EnumMap.h"
#include "yld_Sequence.h"
#include "yld_String.h"

#include <string>
#include <vector>

/// The enumerator as text, for example "NODAL"; its number for one that has no name.
inline std::string tool_positionName(yld_Enum::yld_ResultPositionEnum position)
{
    return enumeratorName(position).cStr();
}
inline std::string tool_typeName(yld_Enum::yld_DataTypeEnum type) { return enumeratorName(type).cStr(); }
std::string tool_domainName(yld_Enum::yld_DomainEnum domain);

inline std::string tool_text(const yld_String& text) { return text.cStr(); }
std::vector<std::string> tool_texts(const yld_Sequence<yld_String>& texts);

/// ", there is: a, b, c" for an error message; a count where the names would fill the screen, and a word for
/// none.
std::string tool_choices(const std::vector<std::string>& names);

/// Line breaks and other control characters become blanks, blanks in a row become one.
std::string tool_oneLine(const std::string& text);

#endif
