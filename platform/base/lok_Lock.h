#ifndef LOK_LOCK_H
#define LOK_LOCK_H

#include <mutex>

/// A lock that one thread at a time holds; not recursive.
class lok_Mutex
{
public:
    lok_Mutex() = default;
    lok_Mutex(const lok_Mutex&) = delete;
    lok_Mutex& operator=(const lok_Mutex&) = delete;

    void Lock() { m_mutex.lock(); }
    void Unlock() { m_mutex.unlock(); }

private:
    std::mutex m_mutex;
};

/// Holds the one lock of the process that guards the making and unmaking of other locks, for as long as the
/// object lives. Usable at any time from before main() to after exit().
class lok_GlobalLock
{
public:
    lok_GlobalLock();
    ~lok_GlobalLock();
    lok_GlobalLock(const lok_GlobalLock&) = delete;
    lok_GlobalLock& operator=(const lok_GlobalLock&) = delete;
};

#endif
