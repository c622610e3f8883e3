#ifndef LOK_THREADSINGLETON_H
#define LOK_THREADSINGLETON_H

/// Whether the caller is the thread in which the process began.
bool lok_isFirstThread();

/// One object of T for each thread, made by the thread's first call.
///
/// A thread's object goes with the thread. The first thread's stays for the exit handlers, which run after
/// the end of its thread-local objects; it goes when Finalize() says so, or with the process.
template<class T> class lok_ThreadSingleton
{
public:
    static T& Instance();
    static bool Exists() noexcept { return s_instance != nullptr; }
    /// Destroys the calling thread's object if there is one; the next Instance() makes another.
    static void Finalize();

private:
    struct EndOfThread
    {
        ~EndOfThread() { Finalize(); }
        void watch() noexcept {}
    };

    static inline thread_local constinit T* s_instance = nullptr;
};

template<class T> T& lok_ThreadSingleton<T>::Instance()
{
    if (!s_instance) {
        s_instance = new T;
        if (!lok_isFirstThread()) {
            static thread_local EndOfThread end;
            end.watch();
        }
    }
    return *s_instance;
}

template<class T> void lok_ThreadSingleton<T>::Finalize()
{
    T* const instance = s_instance;
    s_instance = nullptr;
    delete instance;
}

#endif
