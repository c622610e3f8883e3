#ifndef SQL_LOG_H
#define SQL_LOG_H

#include <sqlite3.h>

#include <string>
#include <vector>

/// While it lives it takes down what every connection that is opened meanwhile is asked, and how many rows it gives.
class SqlLog
{
public:
    SqlLog()
    {
        s_log = this;
        sqlite3_auto_extension(reinterpret_cast<void (*)()>(watch));
    }
    SqlLog(const SqlLog&) = delete;
    SqlLog& operator=(const SqlLog&) = delete;
    ~SqlLog()
    {
        sqlite3_cancel_auto_extension(reinterpret_cast<void (*)()>(watch));
        s_log = nullptr;
    }

    void clear()
    {
        statements.clear();
        rows = 0;
    }
    /// How many statements name a table or anything else.
    int naming(const std::string& word) const
    {
        int count = 0;
        for (const std::string& statement : statements) {
            if (statement.find(word) != std::string::npos) ++count;
        }
        return count;
    }

    std::vector<std::string> statements;
    int rows = 0;

private:
    static int watch(sqlite3* connection, char**, const sqlite3_api_routines*)
    {
        return sqlite3_trace_v2(connection, SQLITE_TRACE_STMT | SQLITE_TRACE_ROW, note, nullptr);
    }

    static int note(unsigned event, void*, void* statement, void*)
    {
        if (!s_log) return 0;
        if (event == SQLITE_TRACE_ROW) {
            ++s_log->rows;
            return 0;
        }
        // With its values, so that the name of a class that is looked up by a parameter shows.
        char* const text = sqlite3_expanded_sql(static_cast<sqlite3_stmt*>(statement));
        s_log->statements.emplace_back(text ? text : "");
        sqlite3_free(text);
        return 0;
    }

    static inline SqlLog* s_log = nullptr;
};

#endif
