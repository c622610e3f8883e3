#ifndef HOSTILE_FILES_H
#define HOSTILE_FILES_H

#include "mutations.h"
#include "platform/text/exc_Exception.h"
#include "test_files.h"

#include <csignal>
#include <cstring>
#include <functional>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/time.h>

/// A place to open files that lie, where nothing worse than a test can fail.

/// What became of many files.
struct Outcome
{
    int data = 0;       ///< walked to the end
    int refused = 0;    ///< ended in one exception of ours, whose text begins with the file's path
    double slowest = 0; ///< seconds, to look at
    std::vector<std::string> failures;
};

#if defined(__SANITIZE_ADDRESS__)
constexpr bool hasSanitizer = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr bool hasSanitizer = true;
#else
constexpr bool hasSanitizer = false;
#endif
#else
constexpr bool hasSanitizer = false;
#endif

/// Makes and opens the files of the numbers [0, count) in processes of their own, many in each, with at most 256 MB for
/// a file, and a minute, after which it hangs. A process that ends early fails the number that it was at, and another
/// goes on after it.
/// @param make  makes file number n at a path
/// @param walk  opens and reads everything; odd turns may open for writing
/// @param namesPath  whether each refusal must begin with the file's path
inline Outcome openAll(int count, const std::function<void(unsigned, const std::string&)>& make,
                       const std::function<void(unsigned, const std::string&)>& walk, bool namesPath = true)
{
    constexpr time_t mostSeconds = 60;
    constexpr long long mostBytes = 256LL << 20;
    struct Board
    {
        volatile int at = 0;
        volatile int data = 0;
        volatile int refused = 0;
        volatile double slowest = 0.0;
        char text[4096];
    };
    void* memory = mmap(nullptr, sizeof(Board), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) std::abort();
    auto* board = new (memory) Board();
    Outcome outcome;
    const ScratchFolder folder;
    const std::string path = folder.file("m.yld");
    while (board->at < count) {
        board->text[0] = '\0';
        const pid_t child = fork();
        if (child == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            const auto fail = [board](const std::string& what) {
                std::snprintf(board->text, sizeof board->text, "%s", what.c_str());
                _exit(1);
            };
            while (board->at < count) {
                const auto number = static_cast<unsigned>(board->at);
                make(number, path);
                rusage before{};
                getrusage(RUSAGE_SELF, &before);
                long long space = 0;
                if (std::FILE* own = std::fopen("/proc/self/statm", "r")) {
                    if (std::fscanf(own, "%lld", &space) != 1) space = 0;
                    std::fclose(own);
                }
                rlimit limit{};
                getrlimit(RLIMIT_AS, &limit);
                // The sanitizer keeps terabytes of addresses; there, what is resident is looked at instead.
                if (!hasSanitizer) {
                    const rlimit narrow{static_cast<rlim_t>(space * 4096 + mostBytes), limit.rlim_max};
                    setrlimit(RLIMIT_AS, &narrow);
                }
                const itimerval patience{{0, 0}, {mostSeconds, 0}};
                setitimer(ITIMER_REAL, &patience, nullptr);
                timespec start{};
                clock_gettime(CLOCK_MONOTONIC, &start);
                try {
                    walk(number, path);
                    board->data = board->data + 1;
                } catch (const exc_Exception& failure) {
                    const std::string text = failure.what();
                    if (text.empty()) fail("an exception without a text");
                    if (namesPath && text.compare(0, path.size() + 2, path + ": ") != 0) {
                        fail("the text names no path: " + text);
                    }
                    // What does not fit was asked for all the same.
                    if (text.find(path + ": out of memory") != std::string::npos) fail("wanted more than 256 MB");
                    board->refused = board->refused + 1;
                } catch (const std::exception& failure) {
                    fail(std::string("a foreign exception: ") + failure.what());
                }
                timespec end{};
                clock_gettime(CLOCK_MONOTONIC, &end);
                const itimerval calm{};
                setitimer(ITIMER_REAL, &calm, nullptr);
                setrlimit(RLIMIT_AS, &limit);
                const double seconds = static_cast<double>(end.tv_sec - start.tv_sec) +
                                       static_cast<double>(end.tv_nsec - start.tv_nsec) * 1e-9;
                if (seconds > board->slowest) board->slowest = seconds;
                rusage after{};
                getrusage(RUSAGE_SELF, &after);
                const long long grown = (after.ru_maxrss - before.ru_maxrss) * 1024LL;
                if (grown > mostBytes) fail("took " + std::to_string(grown >> 20) + " MB");
                std::filesystem::remove(path);
                std::filesystem::remove(path + "-journal");
                std::filesystem::remove(path + "-wal");
                std::filesystem::remove(path + "-shm");
                board->at = board->at + 1;
            }
            _exit(0);
        }
        int status = 0;
        waitpid(child, &status, 0);
        if (WIFEXITED(status) && WEXITSTATUS(status) == 0) break;
        std::string what = board->text;
        if (WIFSIGNALED(status)) {
            what = WTERMSIG(status) == SIGALRM ? "took more than a minute"
                                               : std::string("ended by ") + strsignal(WTERMSIG(status));
        } else if (what.empty()) {
            what = "ended with status " + std::to_string(WEXITSTATUS(status));
        }
        outcome.failures.push_back("file " + std::to_string(board->at) + ": " + what);
        for (const char* suffix : {"", "-journal", "-wal", "-shm"}) std::filesystem::remove(path + suffix);
        board->at = board->at + 1;
    }
    outcome.data = board->data;
    outcome.refused = board->refused;
    outcome.slowest = board->slowest;
    munmap(memory, sizeof(Board));
    return outcome;
}

#endif
