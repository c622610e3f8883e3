#ifndef LOK_GLOBALSINGLETON_H
#define LOK_GLOBALSINGLETON_H

#include "platform/base/lok_GlobalLock.h"
#include "platform/base/lok_Mutex.h"

#include <atomic>

/// Base of a class T of which the process has at most one object: `class T : public
/// lok_GlobalSingletonBase<T>`. T needs a default constructor and destructor that this class can reach (a
/// friend, if they are private).
///
/// The constructor of this base publishes the object, so T's own constructor, and whatever that calls, can
/// already use Instance(). T's destructor can use it as well: the pointer is cleared after it.
template<class T> class lok_GlobalSingletonBase
{
public:
    lok_GlobalSingletonBase(const lok_GlobalSingletonBase&) = delete;
    lok_GlobalSingletonBase& operator=(const lok_GlobalSingletonBase&) = delete;

    /// The object, made by the first call. After Finalize() the next call makes another.
    static T& Instance();
    /// Whether there is an object.
    static bool Exists() noexcept { return s_instance.load(std::memory_order_acquire) != nullptr; }
    /// Destroys the object and its lock if there is one. No other thread may be using it.
    static void Finalize();

protected:
    lok_GlobalSingletonBase() noexcept { s_instance.store(static_cast<T*>(this), std::memory_order_release); }
    ~lok_GlobalSingletonBase() = default;

private:
    static lok_Mutex& mutex();

    static inline constinit std::atomic<T*> s_instance{nullptr};
    static inline constinit lok_Mutex* s_mutex = nullptr;
};

template<class T> T& lok_GlobalSingletonBase<T>::Instance()
{
    if (T* const known = s_instance.load(std::memory_order_acquire)) {
        return *known;
    }
    struct Held
    {
        explicit Held(lok_Mutex& m) : mutex(m) { mutex.Lock(); }
        ~Held() { mutex.Unlock(); }
        Held(const Held&) = delete;
        Held& operator=(const Held&) = delete;
        lok_Mutex& mutex;
    };
    const Held held(mutex());
    if (!s_instance.load(std::memory_order_acquire)) {
        try {
            new T;
        } catch (...) {
            s_instance.store(nullptr, std::memory_order_release);
            throw;
        }
    }
    return *s_instance.load(std::memory_order_acquire);
}

template<class T> void lok_GlobalSingletonBase<T>::Finalize()
{
    T* const instance = s_instance.load(std::memory_order_acquire);
    if (!instance) {
        return;
    }
    lok_Mutex& own = mutex();
    own.Lock();
    delete instance;
    s_instance.store(nullptr, std::memory_order_release);
    const lok_GlobalLock global;
    own.Unlock();
    delete s_mutex;
    s_mutex = nullptr;
}

template<class T> lok_Mutex& lok_GlobalSingletonBase<T>::mutex()
{
    const lok_GlobalLock global;
    if (!s_mutex) {
        s_mutex = new lok_Mutex;
    }
    return *s_mutex;
}

/// The process's one object of a class that knows nothing of it.
template<class T> class lok_GlobalSingleton
{
public:
    static T& Instance() { return Holder::Instance().object; }
    static bool Exists() noexcept { return Holder::Exists(); }
    static void Finalize() { Holder::Finalize(); }

private:
    struct Holder : lok_GlobalSingletonBase<Holder>
    {
        T object;
    };
};

#endif
