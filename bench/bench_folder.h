#ifndef BENCH_FOLDER_H
#define BENCH_FOLDER_H

#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <unistd.h>

/// A folder for the files of a measurement, gone with it.
class BenchFolder
{
public:
    BenchFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "yld-bench-XXXXXX").string();
        if (!mkdtemp(pattern.data())) std::abort();
        m_path = pattern;
    }
    ~BenchFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    std::string file(const char* name) const { return (m_path / name).string(); }

private:
    std::filesystem::path m_path;
};

/// Writes all bytes to an open file, as a plain program would.
inline void benchWriteAll(int file, const void* bytes, std::size_t count)
{
    const auto* next = static_cast<const char*>(bytes);
    while (count > 0) {
        const ssize_t written = ::write(file, next, count);
        if (written <= 0) std::abort();
        next += written;
        count -= static_cast<std::size_t>(written);
    }
}

#endif
