#ifndef LOK_MUTEX_H
#define LOK_MUTEX_H

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

#endif
