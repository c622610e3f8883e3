// One program saves without pause while four others walk what is saved: what that costs the writer against saving
// alone, and how long a reader waits.

#include "bench_folder.h"
#include "store/watched_file.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <ctime>
#include <functional>
#include <string>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

constexpr int saves = 200;
constexpr int numReaders = 4;

// What the processes tell each other.
struct Board
{
    volatile bool finished = false; // no more saves are coming
    struct Reader
    {
        volatile int states = 0;      // how many different ones it saw
        volatile double median = 0.0; // milliseconds that a walk's slowest call waited
        volatile double worst = 0.0;
    } readers[numReaders];
};

double millisecondsOf(clockid_t clock)
{
    timespec now{};
    clock_gettime(clock, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) * 1e-6;
}

// Tells waiting from working: the time of a call in which its process did not run.
class Waits
{
public:
    template<class Call> auto operator()(Call&& call)
    {
        struct Watch
        {
            Waits& waits;
            double wall = millisecondsOf(CLOCK_MONOTONIC);
            double own = millisecondsOf(CLOCK_PROCESS_CPUTIME_ID);
            ~Watch()
            {
                const double all = millisecondsOf(CLOCK_MONOTONIC) - wall;
                const double waited = all - (millisecondsOf(CLOCK_PROCESS_CPUTIME_ID) - own);
                waits.m_slowest = std::max(waits.m_slowest, waited);
            }
        } watch{*this};
        return call();
    }
    void endWalk()
    {
        m_walks.push_back(m_slowest);
        m_slowest = 0.0;
    }
    void report(Board::Reader& reader)
    {
        if (m_walks.empty()) return;
        std::sort(m_walks.begin(), m_walks.end());
        reader.median = m_walks[m_walks.size() / 2];
        reader.worst = m_walks.back();
    }

private:
    std::vector<double> m_walks;
    double m_slowest = 0.0;
};

// Reads the root, the last blocks and their values. @return the number of the state
int walk(const fio_File& file, Waits& waits)
{
    const auto root = waits([&] { return watchedRoot(file).fetch(); });
    waits([&] { return root->m_values.data(); });
    const int blocks = waits([&] { return root->m_blocks.size(); });
    for (int i = std::max(0, blocks - 2 * bulkBlocksBetweenSaves); i < blocks; ++i) {
        const auto block = waits([&] { return root->m_blocks.at(i).fetch(); });
        benchmark::DoNotOptimize(*waits([&] { return block->m_values.data(); }));
    }
    const auto current = waits([&] { return root->m_current.fetch(); });
    benchmark::DoNotOptimize(*waits([&] { return current->m_values.data(); }));
    return root->m_number;
}

void readAgainAndAgain(const std::string& path, const Board& board, Board::Reader& reader)
{
    Waits waits;
    int last = 0;
    while (!board.finished) {
        const fio_File file = waits([&] { return fio_File::Open(path.c_str(), false, true); });
        const int number = walk(file, waits);
        waits.endWalk();
        if (number != last) reader.states = reader.states + 1;
        last = number;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    waits.report(reader);
}

pid_t started(const std::function<void()>& function)
{
    const pid_t child = fork();
    if (child != 0) return child;
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    try {
        function();
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "in another process: %s\n", failure.what());
        _exit(1);
    }
    _exit(0);
}

// @return the seconds that all saves took
double written(const std::string& path)
{
    const fio_File file = fio_File::Open(path.c_str(), true, true);
    const double start = millisecondsOf(CLOCK_MONOTONIC);
    for (int number = 1; number <= saves; ++number) writeState(file, number);
    return (millisecondsOf(CLOCK_MONOTONIC) - start) * 1e-3;
}

void watchedWriter(benchmark::State& state)
{
    void* memory = mmap(nullptr, sizeof(Board), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) std::abort();
    double alone = 0.0;
    double watched = 0.0;
    double worst = 0.0;
    std::vector<double> medians;
    int fewestStates = saves;
    for (auto _ : state) {
        const BenchFolder folder;
        const std::string quiet = folder.file("alone.yld");
        makeWatchedFile(quiet);
        alone += written(quiet);

        const std::string path = folder.file("watched.yld");
        makeWatchedFile(path);
        Board& board = *new (memory) Board();
        std::vector<pid_t> readers;
        for (Board::Reader& reader : board.readers) {
            readers.push_back(started([&] { readAgainAndAgain(path, board, reader); }));
        }
        const double seconds = written(path);
        watched += seconds;
        board.finished = true;
        for (const pid_t reader : readers) {
            int status = 0;
            waitpid(reader, &status, 0);
            if (status != 0) state.SkipWithError("a reader failed");
        }
        for (const Board::Reader& reader : board.readers) {
            fewestStates = std::min(fewestStates, static_cast<int>(reader.states));
            medians.push_back(static_cast<double>(reader.median));
            worst = std::max(worst, static_cast<double>(reader.worst));
        }
        state.SetIterationTime(seconds);
    }
    munmap(memory, sizeof(Board));
    std::sort(medians.begin(), medians.end());
    state.counters["against_alone"] = watched / alone;
    state.counters["fewest_states"] = fewestStates;
    state.counters["median_wait_ms"] = medians[medians.size() / 2];
    state.counters["worst_wait_ms"] = worst;
}

} // namespace

BENCHMARK(watchedWriter)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);
