#ifndef DATABASE_H
#define DATABASE_H

#include <string>

class yld_Step;
class yld_Yld;

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
