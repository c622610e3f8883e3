#ifndef BENCH_FOLDER_H
#define BENCH_FOLDER_H

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

#endif
