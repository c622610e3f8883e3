#ifndef MEASURED_CHILD_H
#define MEASURED_CHILD_H

#include <chrono>
#include <cstdio>
#include <fstream>
#include <functional>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

/// Parts of a test run in processes of their own, so that each peak of memory is its own.

constexpr long long mostResidentMegabytes = 300;

inline double secondsSince(std::chrono::steady_clock::time_point start)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

inline long long statusNumber(const char* name)
{
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word) {
        if (word == name) {
            long long kilobytes = 0;
            status >> kilobytes;
            return kilobytes;
        }
    }
    throw std::runtime_error(std::string("/proc/self/status has no ") + name);
}

inline void demand(bool holds, const std::string& what)
{
    if (!holds) throw std::runtime_error(what);
}

/// Runs a function in a process of its own; false if it fails or takes more memory than is allowed.
inline bool inChild(const char* what, const std::function<void()>& function)
{
    const pid_t child = fork();
    if (child == 0) {
        try {
            const auto start = std::chrono::steady_clock::now();
            function();
            const long long peak = statusNumber("VmHWM:") / 1024;
            std::printf("%s: %.1f s, %lld MB resident at most, %lld MB of them not the file's own pages now\n", what,
                        secondsSince(start), peak, statusNumber("RssAnon:") / 1024);
            std::fflush(stdout);
            demand(peak < mostResidentMegabytes, "too much memory");
            _exit(0);
        } catch (const std::exception& failure) {
            std::fprintf(stderr, "%s: %s\n", what, failure.what());
        }
        _exit(1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

#endif
