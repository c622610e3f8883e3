#ifndef NAMES_H
#define NAMES_H

#include "yld_EnumMap.h"
#include "yld_Sequence.h"
#include "yld_String.h"

#include <string>
#include <vector>

class yld_Step;
class yld_Yld;

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

/// A database opened for reading; closed with this object.
class tool_Database
{
public:
    /// Raises tool_Failure for a path that cannot be a database, and what openYld raises.
    explicit tool_Database(const std::string& path);
    ~tool_Database();
    tool_Database(const tool_Database&) = delete;
    tool_Database& operator=(const tool_Database&) = delete;

    yld_Yld& operator*() { return *m_database; }
    yld_Yld* operator->() { return m_database; }

private:
    yld_Yld* m_database;
};

/// The step of that name; the last one for an empty name. Raises tool_Failure. @param path  of the database, for the
/// message
yld_Step& tool_findStep(yld_Yld& database, const std::string& path, const std::string& name);

#endif
