#ifndef TEST_FILES_H
#define TEST_FILES_H

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

/// A folder of its own for each test, gone with the test.
class ScratchFolder
{
public:
    ScratchFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "yld-test-XXXXXX").string();
        if (!mkdtemp(pattern.data())) std::abort();
        m_path = pattern;
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    std::string file(const std::string& name) const { return (m_path / name).string(); }
    const std::filesystem::path& path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

/// Runs a function in a process of its own and gives its exit status; 99 for an exception, 98 for a failed
/// expectation, -signal for a signal.
template<class Function> int inOtherProcess(Function&& function)
{
    const pid_t child = fork();
    if (child == 0) {
        int status = 99;
        try {
            function();
            status = ::testing::Test::HasFailure() ? 98 : 0;
        } catch (const std::exception& failure) {
            fprintf(stderr, "in the other process: %s\n", failure.what());
        }
        _exit(status);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

#endif
