#ifndef FAULTY_DISK_H
#define FAULTY_DISK_H

#include <cstring>
#include <memory>
#include <sqlite3.h>
#include <string>
#include <vector>

/// A disk whose Nth read, write, sync, truncation or lock fails. While it lives it is the default of this process;
/// memory mapping is off on it, so that every read is seen.
class FaultyDisk
{
public:
    FaultyDisk()
    {
        s_disk = this;
        m_base = sqlite3_vfs_find(nullptr);
        m_vfs = *m_base;
        m_vfs.zName = "faulty";
        m_vfs.szOsFile = static_cast<int>(sizeof(File)) + m_base->szOsFile;
        m_vfs.xOpen = open;
        sqlite3_vfs_register(&m_vfs, 1);
    }
    FaultyDisk(const FaultyDisk&) = delete;
    FaultyDisk& operator=(const FaultyDisk&) = delete;
    ~FaultyDisk()
    {
        sqlite3_vfs_unregister(&m_vfs);
        sqlite3_vfs_register(m_base, 1);
        s_disk = nullptr;
    }

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
    struct File
    {
        sqlite3_file base;
        sqlite3_file* real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
    };

    static File* own(sqlite3_file* file) { return reinterpret_cast<File*>(file); }

    static bool fails()
    {
        if (++s_disk->m_calls != s_disk->m_failing) return false;
        s_disk->m_failed = true;
        return true;
    }

    static int open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags)
    {
        File* mine = own(file);
        const int code = s_disk->m_base->xOpen(s_disk->m_base, name, mine->real(), flags, outFlags);
        file->pMethods = code == SQLITE_OK ? &s_methods : nullptr;
        return code;
    }
    static int close(sqlite3_file* f) { return own(f)->real()->pMethods->xClose(own(f)->real()); }
    static int read(sqlite3_file* f, void* into, int count, sqlite3_int64 at)
    {
        if (fails()) return SQLITE_IOERR_READ;
        return own(f)->real()->pMethods->xRead(own(f)->real(), into, count, at);
    }
    static int write(sqlite3_file* f, const void* from, int count, sqlite3_int64 at)
    {
        if (fails()) return s_disk->m_code;
        return own(f)->real()->pMethods->xWrite(own(f)->real(), from, count, at);
    }
    static int truncate(sqlite3_file* f, sqlite3_int64 size)
    {
        if (fails()) return s_disk->m_code;
        return own(f)->real()->pMethods->xTruncate(own(f)->real(), size);
    }
    static int sync(sqlite3_file* f, int flags)
    {
        if (fails()) return s_disk->m_code;
        return own(f)->real()->pMethods->xSync(own(f)->real(), flags);
    }
    static int fileSize(sqlite3_file* f, sqlite3_int64* size)
    {
        return own(f)->real()->pMethods->xFileSize(own(f)->real(), size);
    }
    static int lock(sqlite3_file* f, int level)
    {
        if (fails()) return SQLITE_IOERR_LOCK;
        return own(f)->real()->pMethods->xLock(own(f)->real(), level);
    }
    static int unlock(sqlite3_file* f, int level) { return own(f)->real()->pMethods->xUnlock(own(f)->real(), level); }
    static int reserved(sqlite3_file* f, int* out)
    {
        return own(f)->real()->pMethods->xCheckReservedLock(own(f)->real(), out);
    }
    static int control(sqlite3_file* f, int op, void* argument)
    {
        return own(f)->real()->pMethods->xFileControl(own(f)->real(), op, argument);
    }
    static int sector(sqlite3_file* f) { return own(f)->real()->pMethods->xSectorSize(own(f)->real()); }
    static int device(sqlite3_file* f) { return own(f)->real()->pMethods->xDeviceCharacteristics(own(f)->real()); }

    static inline const sqlite3_io_methods s_methods = {1,        close,    read,   write,   truncate, sync,
                                                        fileSize, lock,     unlock, reserved, control,  sector,
                                                        device,   nullptr,  nullptr, nullptr, nullptr,  nullptr,
                                                        nullptr};
    static inline FaultyDisk* s_disk = nullptr;

    sqlite3_vfs* m_base;
    sqlite3_vfs m_vfs;
    int m_calls = 0;
    int m_failing = 0;
    int m_code = SQLITE_IOERR;
    bool m_failed = false;
};

#endif
