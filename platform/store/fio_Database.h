#ifndef FIO_DATABASE_H
#define FIO_DATABASE_H

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <vector>

struct sqlite3;
struct sqlite3_blob;
struct sqlite3_stmt;

/// One prepared statement in use. Bindings and position are reset when it goes out of scope; the statement itself
/// stays with its database for the next use. Parameters are numbered from 1, columns from 0.
class fio_Statement
{
public:
    fio_Statement(class fio_Database& database, sqlite3_stmt* statement);
    fio_Statement(const fio_Statement&) = delete;
    fio_Statement& operator=(const fio_Statement&) = delete;
    ~fio_Statement();

    void bind(int parameter, long long value);
    void bind(int parameter, double value);
    /// The text is borrowed until the statement is stepped for the last time.
    void bind(int parameter, const std::string& text);
    /// The bytes are borrowed in the same way.
    void bindBlob(int parameter, const void* bytes, std::size_t count);

    /// Goes to the next row; false at the end.
    bool step();
    /// Runs a statement that gives no rows, and makes it ready for the next bindings.
    void run();

    bool isNull(int column) const;
    long long integer(int column) const;
    double real(int column) const;
    std::string text(int column) const;
    /// Borrowed until the next step. @param[out] count  in bytes
    const void* blob(int column, std::size_t& count) const;

private:
    void check(int code);

    fio_Database& m_database;
    sqlite3_stmt* m_statement;
    bool m_stepped = false;
};

/// A connection to one database file: the only door to SQLite. Every failure raises an exception with the path.
/// For one thread.
class fio_Database
{
public:
    enum class Access
    {
        READ,
        WRITE,
        CREATE ///< makes the file; one that is there is refused
    };

    /// What the file's header says of its maker: "yld1".
    static constexpr int applicationId = 0x796c6431;
    /// Bytes of one extent at most.
    static constexpr std::size_t extentBytes = 4u << 20;

    fio_Database(const std::string& path, Access access);
    fio_Database(const fio_Database&) = delete;
    fio_Database& operator=(const fio_Database&) = delete;
    ~fio_Database();

    const std::string& path() const { return m_path; }
    bool isWritable() const { return m_access != Access::READ; }
    /// The version kept in the file's own header.
    int databaseVersion();
    void setDatabaseVersion(int version);

    /// A statement with this text; prepared on first use and kept.
    fio_Statement prepare(const std::string& sql);
    void execute(const char* sql);
    /// The size of the file on disk; -1 where there is none.
    long long fileBytes() const;
    /// Raises when a table of the file works values out instead of keeping them: no table of ours does, and the work
    /// may be without end.
    void refuseComputedColumns(const std::string& table);

    void begin();
    void commit();
    /// Never raises: it also serves on the way out of a failure.
    void rollback() noexcept;

    /// Reads bytes out of one extent into a buffer. Raises when the extent is not there or is too short.
    void readExtent(long long extent, std::size_t offset, void* into, std::size_t count);
    /// The size of an extent; -1 where there is none.
    long long extentSize(long long extent);

    /// Between these calls the handle on the extents stays open, which makes reading many small ones fast, and holds
    /// the file against a writer's save: for the length of one call of a client, no more. Calls nest.
    void beginReads() { ++m_readers; }
    void endReads();

    /// How many statements, whatever the rows that they gave, and extent reads this connection has run, for tests and
    /// benchmarks.
    long long statementCount() const { return m_statements; }
    long long extentReadCount() const { return m_extentReads; }
    long long extentReadBytes() const { return m_extentReadBytes; }

    [[noreturn]] void raise(const std::string& what) const;
    /// Turns an SQLite result into an exception with words that a user can act on.
    [[noreturn]] void raiseCode(int code) const;

private:
    friend class fio_Statement;

    bool openExtent(long long extent);
    void closeExtent();
    void refuseEmptiedFile() const;
    void configure();
    void checkApplication();

    std::string m_path;
    Access m_access;
    sqlite3* m_handle = nullptr;
    sqlite3_blob* m_blob = nullptr;
    std::map<std::string, sqlite3_stmt*, std::less<>> m_prepared;
    bool m_hasContent = false; // a new file is empty up to its first commit
    int m_readers = 0;
    long long m_statements = 0;
    long long m_extentReads = 0;
    long long m_extentReadBytes = 0;
    long long m_mappedAt = 0; // how much had been read when the file was last mapped
};

#endif
