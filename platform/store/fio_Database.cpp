#include "platform/store/fio_Database.h"

#include "platform/store/fio_Error.h"
#include "platform/store/fio_SharingVfs.h"

#include <sqlite3.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// No value of a row is longer, bulk goes in extents: what claims more was not written here.
constexpr int longestValue = 64 << 20;

constexpr const char* mapFile = "PRAGMA mmap_size = 0x7fffffffffff";
// Pages read through the map stay resident; having read this much, the map is taken down and made anew.
constexpr long long mostMappedBytes = 32LL << 20;

// Below this a database lacks even its first page.
constexpr off_t leastBytes = 4096;

// SQLite takes an absent or empty file for a new database, and waits on special files: what is not a regular file
// with content is told apart before.
void refuseWhatIsNoFile(const std::string& path)
{
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0) fio_raise(path, std::strerror(errno));
    if (S_ISDIR(status.st_mode)) fio_raise(path, "is a directory");
    if (!S_ISREG(status.st_mode)) fio_raise(path, "is not a regular file");
    if (status.st_size == 0) fio_raise(path, "the file is empty");
}

// SQLite has room for so many bytes of a path, with links followed, and the ending of its journal; a longer one it
// cannot tell from a missing file.
void refuseLongPath(const std::string& path)
{
    const auto most = static_cast<std::size_t>(sqlite3_vfs_find(nullptr)->mxPathname) - std::strlen("-journal");
    const std::unique_ptr<char, void (*)(void*)> resolved(realpath(path.c_str(), nullptr), std::free);
    if (path.size() > most || (resolved && std::strlen(resolved.get()) > most)) {
        fio_raise(path, "the path is longer than " + std::to_string(most) + " bytes");
    }
}

} // namespace

fio_Statement::fio_Statement(fio_Database& database, sqlite3_stmt* statement)
    : m_database(database), m_statement(statement)
{
}

fio_Statement::~fio_Statement()
{
    sqlite3_reset(m_statement);
    sqlite3_clear_bindings(m_statement);
}

void fio_Statement::check(int code)
{
    if (code != SQLITE_OK) m_database.raiseCode(code);
}

void fio_Statement::bind(int parameter, long long value) { check(sqlite3_bind_int64(m_statement, parameter, value)); }
void fio_Statement::bind(int parameter, double value) { check(sqlite3_bind_double(m_statement, parameter, value)); }

void fio_Statement::bind(int parameter, const std::string& text)
{
    check(sqlite3_bind_text64(m_statement, parameter, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8));
}

void fio_Statement::bindBlob(int parameter, const void* bytes, std::size_t count)
{
    // A null pointer would bind NULL; an empty list is an empty blob.
    check(sqlite3_bind_blob64(m_statement, parameter, bytes ? bytes : "", count, SQLITE_STATIC));
}

bool fio_Statement::step()
{
    if (!m_stepped) {
        m_database.refuseEmptiedFile();
        ++m_database.m_statements;
    }
    m_stepped = true;
    const int code = sqlite3_step(m_statement);
    if (code == SQLITE_ROW) return true;
    if (code == SQLITE_DONE) return false;
    m_database.raiseCode(code);
}

void fio_Statement::run()
{
    while (step()) {
    }
    check(sqlite3_reset(m_statement));
    m_stepped = false;
}

bool fio_Statement::isNull(int column) const { return sqlite3_column_type(m_statement, column) == SQLITE_NULL; }
long long fio_Statement::integer(int column) const { return sqlite3_column_int64(m_statement, column); }
double fio_Statement::real(int column) const { return sqlite3_column_double(m_statement, column); }

std::string fio_Statement::text(int column) const
{
    const auto* characters = reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column));
    if (!characters) return {};
    return {characters, static_cast<std::size_t>(sqlite3_column_bytes(m_statement, column))};
}

const void* fio_Statement::blob(int column, std::size_t& count) const
{
    const void* bytes = sqlite3_column_blob(m_statement, column);
    count = bytes ? static_cast<std::size_t>(sqlite3_column_bytes(m_statement, column)) : 0;
    return bytes;
}

fio_Database::fio_Database(const std::string& path, Access access) : m_path(path), m_access(access)
{
    int flags = SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
    if (access == Access::CREATE) {
        // The file is made here, exclusively, so that two programs never create one database.
        const int descriptor = ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (descriptor < 0) fio_raise(path, std::strerror(errno));
        ::close(descriptor);
        flags |= SQLITE_OPEN_READWRITE;
    } else {
        refuseWhatIsNoFile(path);
        // Also a reader has to roll back what a killed writer has left half written, where the file may be written;
        // anything else it is kept from by query_only.
        flags |= SQLITE_OPEN_READWRITE;
    }
    try {
        const int code = sqlite3_open_v2(path.c_str(), &m_handle, flags, isWritable() ? fio_sharingVfs() : nullptr);
        if ((code & 0xff) == SQLITE_CANTOPEN) refuseLongPath(path);
        if (code != SQLITE_OK) raiseCode(code);
        // SQLite opens for reading, without a word, what it may not write.
        if (access == Access::WRITE && sqlite3_db_readonly(m_handle, "main") == 1) raise("the file cannot be written");
        configure();
        if (access != Access::CREATE) {
            checkApplication();
            m_hasContent = true;
        }
    } catch (...) {
        for (auto& [sql, statement] : m_prepared) sqlite3_finalize(statement);
        sqlite3_close(m_handle);
        if (access == Access::CREATE) ::unlink(path.c_str());
        throw;
    }
}

fio_Database::~fio_Database()
{
    sqlite3_blob_close(m_blob);
    for (auto& [sql, statement] : m_prepared) sqlite3_finalize(statement);
    // At rest the database is one plain file.
    if (isWritable()) sqlite3_exec(m_handle, "PRAGMA journal_mode = DELETE", nullptr, nullptr, nullptr);
    sqlite3_close(m_handle);
}

void fio_Database::configure()
{
    // A file is hostile until proven otherwise.
    sqlite3_db_config(m_handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(m_handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(m_handle, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(m_handle, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    sqlite3_limit(m_handle, SQLITE_LIMIT_ATTACHED, 0);
    sqlite3_limit(m_handle, SQLITE_LIMIT_LENGTH, longestValue);
    sqlite3_busy_handler(m_handle, fio_waitForPeer, nullptr);
    if (m_access == Access::CREATE) {
        execute("PRAGMA page_size = 16384");
        execute("PRAGMA application_id = 0x796c6431");
    }
    execute("PRAGMA cell_size_check = ON");
    execute("PRAGMA temp_store = MEMORY");
    // Bulk goes through once: a large page cache only costs time.
    execute("PRAGMA cache_size = -2048");
    execute(mapFile);
    if (!isWritable()) execute("PRAGMA query_only = ON");
    if (isWritable()) {
        // A rollback journal needs no shared memory. While the file is open for writing its journal stays beside it,
        // which spares making and deleting it with each transaction, and the syncs of the folder that make that last.
        execute("PRAGMA journal_mode = PERSIST");
        execute("PRAGMA synchronous = FULL");
    }
}

void fio_Database::checkApplication()
{
    fio_Statement statement = prepare("PRAGMA application_id");
    if (!statement.step() || statement.integer(0) != applicationId) {
        raise("is not a results database of this library");
    }
    // Reading the schema finds a file that is cut short or overwritten before anything is built on it.
    {
        fio_Statement schema = prepare("SELECT count(*) FROM sqlite_schema");
        schema.step();
    }
    // SQLite counts a last page that is there in part as a whole one, and reads zeros where it ends.
    fio_Statement pages = prepare("SELECT page_count * page_size FROM pragma_page_count, pragma_page_size");
    struct stat status = {};
    if (pages.step() && stat(m_path.c_str(), &status) == 0 && status.st_size < pages.integer(0)) {
        raise("the file was cut short");
    }
    for (const char* table : {"header", "catalogue", "extent", "entry", "superseded"}) refuseComputedColumns(table);
}

int fio_Database::databaseVersion()
{
    fio_Statement statement = prepare("PRAGMA user_version");
    return statement.step() ? static_cast<int>(statement.integer(0)) : 0;
}

void fio_Database::setDatabaseVersion(int version)
{
    // A pragma takes no parameters; the number is an integer and nothing else.
    execute(("PRAGMA user_version = " + std::to_string(version)).c_str());
}

fio_Statement fio_Database::prepare(const std::string& sql)
{
    auto found = m_prepared.find(sql);
    if (found == m_prepared.end()) {
        sqlite3_stmt* statement = nullptr;
        const int code = sqlite3_prepare_v3(m_handle, sql.c_str(), static_cast<int>(sql.size()) + 1,
                                            SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
        if (code != SQLITE_OK) raiseCode(code);
        found = m_prepared.emplace(sql, statement).first;
    } else if (sqlite3_stmt_busy(found->second)) {
        raise("a statement is in use twice");
    }
    return fio_Statement(*this, found->second);
}

// SQLite looks at the size of the file at the start of each transaction, but reads the first page through the memory
// map before: if another process has emptied the file, that would be a signal and no error.
void fio_Database::refuseEmptiedFile() const
{
    // Inside a transaction it has been asked already.
    if (!m_hasContent || !sqlite3_get_autocommit(m_handle)) return;
    struct stat status = {};
    if (stat(m_path.c_str(), &status) == 0 && status.st_size < leastBytes) raise("the file was cut short");
}

void fio_Database::execute(const char* sql)
{
    ++m_statements;
    const int code = sqlite3_exec(m_handle, sql, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) raiseCode(code);
}

void fio_Database::begin() { prepare("BEGIN IMMEDIATE").run(); }

void fio_Database::commit()
{
    prepare("COMMIT").run();
    m_hasContent = true;
}

void fio_Database::rollback() noexcept
{
    if (!sqlite3_get_autocommit(m_handle)) sqlite3_exec(m_handle, "ROLLBACK", nullptr, nullptr, nullptr);
}

bool fio_Database::openExtent(long long extent)
{
    int code = SQLITE_OK;
    if (m_blob) {
        code = sqlite3_blob_reopen(m_blob, extent);
        if (code != SQLITE_OK) {
            sqlite3_blob_close(m_blob);
            m_blob = nullptr;
        }
    }
    if (!m_blob) {
        refuseEmptiedFile();
        code = sqlite3_blob_open(m_handle, "main", "extent", "bytes", extent, 0, &m_blob);
        if (code != SQLITE_OK) m_blob = nullptr;
    }
    if (code == SQLITE_OK) return true;
    // SQLITE_ERROR is what an absent row or a value of another kind gives.
    if ((code & 0xff) == SQLITE_ERROR) return false;
    raiseCode(code);
}

void fio_Database::closeExtent()
{
    sqlite3_blob_close(m_blob);
    m_blob = nullptr;
}

void fio_Database::endReads()
{
    if (--m_readers == 0) closeExtent();
}

long long fio_Database::extentSize(long long extent)
{
    if (!openExtent(extent)) return -1;
    const long long size = sqlite3_blob_bytes(m_blob);
    if (m_readers == 0) closeExtent();
    return size;
}

void fio_Database::readExtent(long long extent, std::size_t offset, void* into, std::size_t count)
{
    ++m_extentReads;
    m_extentReadBytes += static_cast<long long>(count);
    if (!openExtent(extent)) raise("extent " + std::to_string(extent) + " is missing; the file is damaged");
    const auto size = static_cast<std::size_t>(sqlite3_blob_bytes(m_blob));
    int code = SQLITE_OK;
    const bool fits = offset <= size && count <= size - offset;
    if (fits) code = sqlite3_blob_read(m_blob, into, static_cast<int>(count), static_cast<int>(offset));
    // An open handle holds a read lock on the file, which would keep a writer from saving.
    if (m_readers == 0) closeExtent();
    if (!fits) {
        raise("extent " + std::to_string(extent) + " has " + std::to_string(size) + " bytes where " +
              std::to_string(offset + count) + " are expected; the file is damaged");
    }
    if (code != SQLITE_OK) raiseCode(code);
    if (m_readers == 0 && m_extentReadBytes - m_mappedAt > mostMappedBytes) {
        m_mappedAt = m_extentReadBytes;
        execute("PRAGMA mmap_size = 0");
        execute(mapFile);
    }
}

long long fio_Database::fileBytes() const
{
    struct stat status = {};
    return stat(m_path.c_str(), &status) == 0 ? static_cast<long long>(status.st_size) : -1;
}

void fio_Database::refuseComputedColumns(const std::string& table)
{
    fio_Statement look = prepare("SELECT 1 FROM pragma_table_xinfo(?1) WHERE hidden > 1 LIMIT 1");
    look.bind(1, table);
    if (look.step()) raise("table " + table + " has computed columns; the file is damaged");
}

void fio_Database::raise(const std::string& what) const { fio_raise(m_path, what); }

void fio_Database::raiseCode(int code) const
{
    switch (code & 0xff) {
    case SQLITE_NOTADB:
        raise("is not a results database of this library");
    case SQLITE_CORRUPT:
        raise("the file is damaged");
    case SQLITE_FULL:
        raise("no space is left on the device");
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        raise("another program holds the file");
    case SQLITE_READONLY:
        raise("the file cannot be written");
    case SQLITE_CANTOPEN:
        raise(std::string("cannot be opened: ") + std::strerror(errno));
    case SQLITE_NOMEM:
        raise("out of memory");
    case SQLITE_IOERR:
        raise("input or output failed");
    default:
        raise(m_handle ? sqlite3_errmsg(m_handle) : sqlite3_errstr(code));
    }
}
