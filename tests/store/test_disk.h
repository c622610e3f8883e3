#ifndef TEST_DISK_H
#define TEST_DISK_H

#include <sqlite3.h>

#include <cstddef>
#include <string>

/// A disk that tells a test of every call before it is made, and lets the test refuse it. While it lives it is the
/// default of this process; memory mapping is off on it, so that every read is seen.
class TestDisk
{
public:
    TestDisk()
    {
        s_disk = this;
        m_base = sqlite3_vfs_find(nullptr);
        m_vfs = *m_base;
        m_vfs.zName = "test";
        m_vfs.szOsFile = static_cast<int>(sizeof(File)) + m_base->szOsFile;
        m_vfs.xOpen = open;
        m_vfs.xDelete = remove;
        sqlite3_vfs_register(&m_vfs, 1);
    }
    TestDisk(const TestDisk&) = delete;
    TestDisk& operator=(const TestDisk&) = delete;
    virtual ~TestDisk()
    {
        sqlite3_vfs_unregister(&m_vfs);
        sqlite3_vfs_register(m_base, 1);
        s_disk = nullptr;
    }

protected:
    // What these give other than SQLITE_OK is what the call fails with.
    virtual int onOpened(const std::string&) { return SQLITE_OK; }
    virtual int onDelete(const std::string&) { return SQLITE_OK; }
    virtual int onRead(const std::string&) { return SQLITE_OK; }
    virtual int onWrite(const std::string&, const char*, std::size_t, long long) { return SQLITE_OK; }
    virtual int onTruncate(const std::string&, long long) { return SQLITE_OK; }
    virtual int onSync(const std::string&) { return SQLITE_OK; }
    virtual int onLock(const std::string&, int) { return SQLITE_OK; }

private:
    struct File
    {
        sqlite3_file base;
        std::string* name;
        sqlite3_file* real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
        const sqlite3_io_methods& disk() { return *real()->pMethods; }
    };

    static File& own(sqlite3_file* file) { return *reinterpret_cast<File*>(file); }

    static int open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags)
    {
        File& mine = own(file);
        file->pMethods = nullptr;
        const int code = s_disk->m_base->xOpen(s_disk->m_base, name, mine.real(), flags, outFlags);
        if (code != SQLITE_OK) return code;
        mine.name = new std::string(name ? name : "");
        file->pMethods = &s_methods;
        return s_disk->onOpened(*mine.name);
    }
    static int remove(sqlite3_vfs*, const char* name, int sync)
    {
        const int code = s_disk->onDelete(name);
        return code != SQLITE_OK ? code : s_disk->m_base->xDelete(s_disk->m_base, name, sync);
    }
    static int close(sqlite3_file* f)
    {
        delete own(f).name;
        return own(f).disk().xClose(own(f).real());
    }
    static int read(sqlite3_file* f, void* into, int count, sqlite3_int64 at)
    {
        const int code = s_disk->onRead(*own(f).name);
        return code != SQLITE_OK ? code : own(f).disk().xRead(own(f).real(), into, count, at);
    }
    static int write(sqlite3_file* f, const void* from, int count, sqlite3_int64 at)
    {
        const int code =
            s_disk->onWrite(*own(f).name, static_cast<const char*>(from), static_cast<std::size_t>(count), at);
        return code != SQLITE_OK ? code : own(f).disk().xWrite(own(f).real(), from, count, at);
    }
    static int truncate(sqlite3_file* f, sqlite3_int64 size)
    {
        const int code = s_disk->onTruncate(*own(f).name, size);
        return code != SQLITE_OK ? code : own(f).disk().xTruncate(own(f).real(), size);
    }
    static int sync(sqlite3_file* f, int flags)
    {
        const int code = s_disk->onSync(*own(f).name);
        return code != SQLITE_OK ? code : own(f).disk().xSync(own(f).real(), flags);
    }
    static int fileSize(sqlite3_file* f, sqlite3_int64* size) { return own(f).disk().xFileSize(own(f).real(), size); }
    static int lock(sqlite3_file* f, int level)
    {
        const int code = s_disk->onLock(*own(f).name, level);
        return code != SQLITE_OK ? code : own(f).disk().xLock(own(f).real(), level);
    }
    static int unlock(sqlite3_file* f, int level) { return own(f).disk().xUnlock(own(f).real(), level); }
    static int reserved(sqlite3_file* f, int* out) { return own(f).disk().xCheckReservedLock(own(f).real(), out); }
    static int control(sqlite3_file* f, int op, void* argument)
    {
        return own(f).disk().xFileControl(own(f).real(), op, argument);
    }
    static int sector(sqlite3_file* f) { return own(f).disk().xSectorSize(own(f).real()); }
    static int device(sqlite3_file* f) { return own(f).disk().xDeviceCharacteristics(own(f).real()); }

    static inline const sqlite3_io_methods s_methods = {1,       close,   read,     write,   truncate, sync,   fileSize,
                                                        lock,    unlock,  reserved, control, sector,   device, nullptr,
                                                        nullptr, nullptr, nullptr,  nullptr, nullptr};
    static inline TestDisk* s_disk = nullptr;

    sqlite3_vfs* m_base;
    sqlite3_vfs m_vfs;
};

/// A disk whose Nth read, write, sync, truncation or lock fails.
class FaultyDisk : public TestDisk
{
public:
    /// The call with this number from now on fails, counted from 1; 0 lets all pass.
    void failCall(int number, int code)
    {
        m_calls = 0;
        m_failing = number;
        m_code = code;
        m_failed = false;
    }
    bool hasFailed() const { return m_failed; }
    int calls() const { return m_calls; }

private:
    int pass(int code)
    {
        if (++m_calls != m_failing) return SQLITE_OK;
        m_failed = true;
        return code;
    }
    int onRead(const std::string&) override { return pass(SQLITE_IOERR_READ); }
    int onWrite(const std::string&, const char*, std::size_t, long long) override { return pass(m_code); }
    int onTruncate(const std::string&, long long) override { return pass(m_code); }
    int onSync(const std::string&) override { return pass(m_code); }
    int onLock(const std::string&, int) override { return pass(SQLITE_IOERR_LOCK); }

    int m_calls = 0;
    int m_failing = 0;
    int m_code = SQLITE_IOERR;
    bool m_failed = false;
};

#endif
