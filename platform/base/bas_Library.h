#ifndef BAS_LIBRARY_H
#define BAS_LIBRARY_H

/// One of the libraries that are started together: a nesting count, and the work that the first start and the
/// last stop do. The counts are plain integers: start and stop in one thread.
class bas_Library
{
public:
    using Work = void (*)();
    /// Told of each real start before its work, and of each real stop after its work.
    using Trace = void (*)(const char* prefix, bool started);

    /// @param prefix  the library's prefix without underscore; static
    constexpr explicit bas_Library(const char* prefix, Work start = nullptr, Work stop = nullptr)
        : m_prefix(prefix), m_start(start), m_stop(stop)
    {
    }
    bas_Library(const bas_Library&) = delete;
    bas_Library& operator=(const bas_Library&) = delete;

    /// The first of nested starts raises the token by one and does the work of the start.
    void initialize(int& token);
    /// The last of nested stops does the work of the stop and lowers the token by one; one stop too many has
    /// no effect.
    void finalize(int& token);

    const char* prefix() const noexcept { return m_prefix; }
    unsigned count() const noexcept { return m_count; }

    /// Installs an observer of all starts and stops; null takes it away. For tests. @return the one before
    static Trace SetTrace(Trace trace);

private:
    const char* m_prefix;
    Work m_start;
    Work m_stop;
    unsigned m_count = 0;
};

#endif
