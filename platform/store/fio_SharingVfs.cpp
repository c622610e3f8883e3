#include "platform/store/fio_SharingVfs.h"

#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <map>
#include <memory>
#include <new>
#include <thread>
#include <vector>

namespace {

// What is kept back of old pages at most; a transaction that changes more shuts readers out earlier.
constexpr std::size_t mostKeptBack = 8u << 20;
// New pages fewer than these are synced together with the old ones: a sync of their own would cost more time than it
// takes from readers.
constexpr sqlite3_int64 fewBytes = 64 << 10;

sqlite3_vfs* base() { return sqlite3_vfs_find(nullptr); }

// The file as the disk has it, and what is kept back from it. Only the database itself is held back, its journal never.
class SharedFile
{
public:
    /// @param database  of a journal that may be new: the database that it belongs to
    SharedFile(std::unique_ptr<char[]> memory, bool isDatabase, SharedFile* database)
        : m_memory(std::move(memory)), m_isDatabase(isDatabase), m_database(database)
    {
    }

    sqlite3_file* real() const { return reinterpret_cast<sqlite3_file*>(m_memory.get()); }
    const sqlite3_io_methods& disk() const { return *real()->pMethods; }

    int lock(int level)
    {
        // From SHARED alone it is a rollback of what a crash has left, which must come before anybody reads.
        if (m_isDatabase && level == SQLITE_LOCK_EXCLUSIVE && m_level == SQLITE_LOCK_RESERVED && m_savedBytes > 0) {
            m_keepsBack = true;
            return SQLITE_OK;
        }
        const int code = disk().xLock(real(), level);
        if (code != SQLITE_OK) return code;
        m_level = level;
        if (level == SQLITE_LOCK_RESERVED) return disk().xFileSize(real(), &m_savedBytes);
        return code;
    }

    int unlock(int level)
    {
        m_keepsBack = false;
        m_newBytes = 0;
        drop();
        m_level = level;
        return disk().xUnlock(real(), level);
    }

    int write(const void* bytes, int count, sqlite3_int64 offset)
    {
        if (!m_keepsBack || offset >= m_savedBytes) {
            m_newBytes += count;
            return disk().xWrite(real(), bytes, count, offset);
        }
        return keepBack(static_cast<const char*>(bytes), count, offset);
    }

    int read(void* into, int count, sqlite3_int64 offset)
    {
        auto page = m_pages.upper_bound(offset);
        if (page != m_pages.begin()) {
            --page;
            const sqlite3_int64 inside = offset - page->first;
            if (inside + count <= static_cast<sqlite3_int64>(page->second.size())) {
                std::memcpy(into, page->second.data() + inside, static_cast<std::size_t>(count));
                return SQLITE_OK;
            }
        }
        return disk().xRead(real(), into, count, offset);
    }

    int truncate(sqlite3_int64 size)
    {
        if (m_keepsBack && size < m_savedBytes) {
            const int code = shutReadersOut();
            if (code != SQLITE_OK) return code;
        }
        return disk().xTruncate(real(), size);
    }

    int sync(int flags)
    {
        if (m_keepsBack && !m_pages.empty()) {
            if (m_newBytes > fewBytes) {
                const int code = disk().xSync(real(), flags);
                if (code != SQLITE_OK) return code;
            }
            const int code = shutReadersOut();
            if (code != SQLITE_OK) return code;
        }
        const int code = disk().xSync(real(), flags);
        if (m_database && code == SQLITE_OK) m_database->m_hasJournal = true;
        return code;
    }

    /// Whether the journal's entry in its folder is on the disk.
    bool hasJournal() const { return m_hasJournal; }

    // What is kept back is not in the memory map.
    bool mayMap() const { return m_pages.empty(); }

private:
    int keepBack(const char* bytes, int count, sqlite3_int64 offset)
    {
        try {
            // A rollback puts back what is on the disk still.
            m_onDisk.resize(static_cast<std::size_t>(count));
            const auto found = m_pages.find(offset);
            if (found != m_pages.end() && disk().xRead(real(), m_onDisk.data(), count, offset) == SQLITE_OK &&
                std::memcmp(m_onDisk.data(), bytes, m_onDisk.size()) == 0) {
                m_bytes -= found->second.size();
                m_pages.erase(found);
                return SQLITE_OK;
            }
            std::vector<char>& page = m_pages[offset];
            m_bytes += static_cast<std::size_t>(count) - page.size();
            page.assign(bytes, bytes + count);
        } catch (const std::bad_alloc&) {
            return SQLITE_NOMEM;
        }
        return m_bytes > mostKeptBack ? shutReadersOut() : SQLITE_OK;
    }

    // Takes the lock that SQLite believes to have, and writes what was kept back.
    int shutReadersOut()
    {
        int code = SQLITE_BUSY;
        for (int attempt = 0; code == SQLITE_BUSY; ++attempt) {
            code = disk().xLock(real(), SQLITE_LOCK_EXCLUSIVE);
            if (code == SQLITE_BUSY && !fio_waitForPeer(nullptr, attempt)) break;
        }
        if (code != SQLITE_OK) return code;
        m_level = SQLITE_LOCK_EXCLUSIVE;
        m_keepsBack = false;
        for (const auto& [offset, page] : m_pages) {
            code = disk().xWrite(real(), page.data(), static_cast<int>(page.size()), offset);
            if (code != SQLITE_OK) return code;
        }
        drop();
        return SQLITE_OK;
    }

    void drop()
    {
        m_pages.clear();
        m_bytes = 0;
    }

    std::unique_ptr<char[]> m_memory; // of the file below
    bool m_isDatabase;
    SharedFile* m_database;
    bool m_hasJournal = false;
    int m_level = SQLITE_LOCK_NONE;
    bool m_keepsBack = false;
    sqlite3_int64 m_savedBytes = 0; // the file as it was when the transaction began
    sqlite3_int64 m_newBytes = 0;
    std::map<sqlite3_int64, std::vector<char>> m_pages;
    std::size_t m_bytes = 0;
    std::vector<char> m_onDisk;
};

struct Handle
{
    sqlite3_file head;
    SharedFile* file;
};

SharedFile& of(sqlite3_file* file) { return *reinterpret_cast<Handle*>(file)->file; }

int closeFile(sqlite3_file* file)
{
    SharedFile* shared = &of(file);
    const int code = shared->disk().xClose(shared->real());
    delete shared;
    file->pMethods = nullptr;
    return code;
}

int fetchPage(sqlite3_file* file, sqlite3_int64 offset, int count, void** page)
{
    SharedFile& shared = of(file);
    if (shared.disk().iVersion >= 3 && shared.mayMap()) return shared.disk().xFetch(shared.real(), offset, count, page);
    *page = nullptr;
    return SQLITE_OK;
}

int unfetchPage(sqlite3_file* file, sqlite3_int64 offset, void* page)
{
    SharedFile& shared = of(file);
    return shared.disk().iVersion >= 3 ? shared.disk().xUnfetch(shared.real(), offset, page) : SQLITE_OK;
}

// No shared memory is offered: the journal is a plain one, and a file that asks for another kind is refused.
const sqlite3_io_methods methods = [] {
    sqlite3_io_methods made{};
    made.iVersion = 3;
    made.xClose = closeFile;
    made.xRead = [](sqlite3_file* file, void* into, int count, sqlite3_int64 offset) {
        return of(file).read(into, count, offset);
    };
    made.xWrite = [](sqlite3_file* file, const void* bytes, int count, sqlite3_int64 offset) {
        return of(file).write(bytes, count, offset);
    };
    made.xTruncate = [](sqlite3_file* file, sqlite3_int64 size) { return of(file).truncate(size); };
    made.xSync = [](sqlite3_file* file, int flags) { return of(file).sync(flags); };
    made.xFileSize = [](sqlite3_file* file, sqlite3_int64* size) {
        return of(file).disk().xFileSize(of(file).real(), size);
    };
    made.xLock = [](sqlite3_file* file, int level) { return of(file).lock(level); };
    made.xUnlock = [](sqlite3_file* file, int level) { return of(file).unlock(level); };
    made.xCheckReservedLock = [](sqlite3_file* file, int* reserved) {
        return of(file).disk().xCheckReservedLock(of(file).real(), reserved);
    };
    made.xFileControl = [](sqlite3_file* file, int operation, void* argument) {
        return of(file).disk().xFileControl(of(file).real(), operation, argument);
    };
    made.xSectorSize = [](sqlite3_file* file) { return of(file).disk().xSectorSize(of(file).real()); };
    made.xDeviceCharacteristics = [](sqlite3_file* file) {
        return of(file).disk().xDeviceCharacteristics(of(file).real());
    };
    made.xFetch = fetchPage;
    made.xUnfetch = unfetchPage;
    return made;
}();

int openBelow(const char* name, sqlite3_file* real, int flags, int* outFlags)
{
    sqlite3_vfs* below = base();
    const int code = below->xOpen(below, name, real, flags, outFlags);
    if (code != SQLITE_OK && real->pMethods) {
        real->pMethods->xClose(real);
        real->pMethods = nullptr;
    }
    return code;
}

int openFile(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags)
{
    file->pMethods = nullptr;
    try {
        std::unique_ptr<char[]> memory(new char[static_cast<std::size_t>(base()->szOsFile)]());
        // A journal that may be new has its folder synced with it. The kept one is there already.
        constexpr int newJournal = SQLITE_OPEN_MAIN_JOURNAL | SQLITE_OPEN_CREATE;
        SharedFile* database = (flags & newJournal) == newJournal ? &of(sqlite3_database_file_object(name)) : nullptr;
        auto shared = std::make_unique<SharedFile>(std::move(memory), (flags & SQLITE_OPEN_MAIN_DB) != 0, database);
        int code = SQLITE_CANTOPEN;
        if (database && database->hasJournal()) {
            code = openBelow(name, shared->real(), flags & ~SQLITE_OPEN_CREATE, outFlags);
        }
        if (code != SQLITE_OK) code = openBelow(name, shared->real(), flags, outFlags);
        if (code != SQLITE_OK) return code;
        reinterpret_cast<Handle*>(file)->file = shared.release();
        file->pMethods = &methods;
        return SQLITE_OK;
    } catch (const std::bad_alloc&) {
        return SQLITE_NOMEM;
    }
}

sqlite3_vfs madeVfs()
{
    sqlite3_vfs made{};
    made.iVersion = 2;
    made.szOsFile = sizeof(Handle);
    made.mxPathname = base()->mxPathname;
    made.zName = "yld-sharing";
    made.xOpen = openFile;
    made.xDelete = [](sqlite3_vfs*, const char* name, int sync) { return base()->xDelete(base(), name, sync); };
    made.xAccess = [](sqlite3_vfs*, const char* name, int flags, int* result) {
        return base()->xAccess(base(), name, flags, result);
    };
    made.xFullPathname = [](sqlite3_vfs*, const char* name, int count, char* out) {
        return base()->xFullPathname(base(), name, count, out);
    };
    made.xRandomness = [](sqlite3_vfs*, int count, char* out) { return base()->xRandomness(base(), count, out); };
    made.xSleep = [](sqlite3_vfs*, int microseconds) { return base()->xSleep(base(), microseconds); };
    made.xCurrentTime = [](sqlite3_vfs*, double* now) { return base()->xCurrentTime(base(), now); };
    made.xCurrentTimeInt64 = [](sqlite3_vfs*, sqlite3_int64* now) { return base()->xCurrentTimeInt64(base(), now); };
    made.xGetLastError = [](sqlite3_vfs*, int count, char* out) { return base()->xGetLastError(base(), count, out); };
    return made;
}

} // namespace

int fio_waitForPeer(void*, int attempt)
{
    // A tenth of a millisecond for the first twentieth of a second, then doubled up to 16 ms.
    constexpr int shortPauses = 500;
    constexpr int doublings = 8;
    const int grown = std::clamp(attempt - shortPauses, 0, doublings);
    const auto pause = std::chrono::microseconds(100) * (1 << grown);
    const double waited = 0.1 * std::min(attempt, shortPauses) + 25.6 * std::max(0, attempt - shortPauses - doublings);
    if (waited > fio_longestWaitMilliseconds) return 0;
    std::this_thread::sleep_for(pause);
    return 1;
}

const char* fio_sharingVfs()
{
    static sqlite3_vfs vfs = [] {
        sqlite3_initialize();
        return madeVfs();
    }();
    static const int registered = sqlite3_vfs_register(&vfs, 0);
    return registered == SQLITE_OK ? vfs.zName : nullptr;
}
