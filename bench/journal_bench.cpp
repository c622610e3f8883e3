// Ways to keep a save atomic, on the same rows: what they cost the writer against plain write and fsync, and how long
// another process waits that reads the last row over and over. This is why the store works as it does.

#include "bench_folder.h"
#include "platform/store/fio_SharingVfs.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

enum class Way
{
    DELETED_JOURNAL,
    KEPT_JOURNAL,
    KEPT_JOURNAL_SHARING, // what the store does
    WRITE_AHEAD_LOG
};

constexpr const char* names[] = {"journal, deleted", "journal, kept", "journal, kept, new pages shared", "WAL"};

void check(int code)
{
    if (code != SQLITE_OK && code != SQLITE_DONE && code != SQLITE_ROW) std::abort();
}

void run(sqlite3* db, const char* sql) { check(sqlite3_exec(db, sql, nullptr, nullptr, nullptr)); }

sqlite3* opened(const std::string& path, const char* layer)
{
    sqlite3* db = nullptr;
    check(sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, layer));
    sqlite3_busy_handler(db, fio_waitForPeer, nullptr);
    return db;
}

struct Waits
{
    volatile bool done = false;
    volatile int reads = 0;
    volatile double median = 0.0;
    volatile double worst = 0.0;
};

double milliseconds(clockid_t clock)
{
    timespec now{};
    clock_gettime(clock, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) * 1e-6;
}

// Reads until the writer is done, and tells how long the reads waited: their time less what the processor worked.
void readOverAndOver(const std::string& path, Waits& waits)
{
    sqlite3* db = opened(path, nullptr);
    sqlite3_stmt* read = nullptr;
    check(sqlite3_prepare_v2(db, "SELECT value FROM state", -1, &read, nullptr));
    std::vector<double> all;
    while (!waits.done) {
        const double wall = milliseconds(CLOCK_MONOTONIC);
        const double own = milliseconds(CLOCK_PROCESS_CPUTIME_ID);
        check(sqlite3_step(read));
        check(sqlite3_reset(read));
        all.push_back(milliseconds(CLOCK_MONOTONIC) - wall - (milliseconds(CLOCK_PROCESS_CPUTIME_ID) - own));
        usleep(500);
    }
    std::sort(all.begin(), all.end());
    waits.reads = static_cast<int>(all.size());
    if (all.empty()) return;
    waits.median = all[all.size() / 2];
    waits.worst = all.back();
}

void saves(benchmark::State& state)
{
    const auto way = static_cast<Way>(state.range(0));
    const auto count = static_cast<int>(state.range(1));
    const auto bytes = static_cast<std::size_t>(state.range(2));
    const bool isWatched = state.range(3) != 0;
    state.SetLabel(names[static_cast<int>(way)]);

    const BenchFolder folder;
    const std::string path = folder.file("a");
    const std::vector<char> block(bytes, 'x');
    double plain = 1e30;
    double ours = 1e30;
    void* memory = mmap(nullptr, sizeof(Waits), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) std::abort();
    auto* waits = new (memory) Waits();
    for (auto _ : state) {
        const int descriptor = ::open(folder.file("plain").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        const auto begin = Clock::now();
        for (int i = 0; i < count; ++i) {
            if (::write(descriptor, block.data(), bytes) < 0) std::abort();
            ::fsync(descriptor);
        }
        plain = std::min(plain, std::chrono::duration<double>(Clock::now() - begin).count());
        ::close(descriptor);

        for (const char* tail : {"", "-journal", "-wal", "-shm"}) std::filesystem::remove(path + tail);
        sqlite3* db = opened(path, way == Way::KEPT_JOURNAL_SHARING ? fio_sharingVfs() : nullptr);
        run(db, "PRAGMA page_size = 16384");
        run(db, way == Way::WRITE_AHEAD_LOG   ? "PRAGMA journal_mode = WAL"
                : way == Way::DELETED_JOURNAL ? "PRAGMA journal_mode = DELETE"
                                              : "PRAGMA journal_mode = PERSIST");
        // A deleted journal may come back with the power unless its folder is synced, too.
        run(db, way == Way::DELETED_JOURNAL ? "PRAGMA synchronous = EXTRA" : "PRAGMA synchronous = FULL");
        run(db, "PRAGMA cache_size = -2048");
        run(db, "CREATE TABLE extent(id INTEGER PRIMARY KEY, bytes BLOB)");
        run(db, "CREATE TABLE state(value INTEGER)");
        run(db, "INSERT INTO state VALUES(0)");
        pid_t reader = 0;
        if (isWatched) {
            waits->done = false;
            reader = fork();
            if (reader == 0) {
                prctl(PR_SET_PDEATHSIG, SIGKILL);
                readOverAndOver(path, *waits);
                _exit(0);
            }
        }
        sqlite3_stmt* insert = nullptr;
        sqlite3_stmt* update = nullptr;
        check(sqlite3_prepare_v2(db, "INSERT INTO extent(bytes) VALUES(?1)", -1, &insert, nullptr));
        check(sqlite3_prepare_v2(db, "UPDATE state SET value = value + 1", -1, &update, nullptr));
        const auto start = Clock::now();
        for (int i = 0; i < count; ++i) {
            run(db, "BEGIN IMMEDIATE");
            check(sqlite3_bind_blob64(insert, 1, block.data(), bytes, SQLITE_STATIC));
            for (sqlite3_stmt* statement : {insert, update}) {
                check(sqlite3_step(statement));
                check(sqlite3_reset(statement));
            }
            run(db, "COMMIT");
        }
        const double taken = std::chrono::duration<double>(Clock::now() - start).count();
        ours = std::min(ours, taken);
        state.SetIterationTime(taken);
        waits->done = true;
        if (reader > 0) waitpid(reader, nullptr, 0);
        sqlite3_finalize(insert);
        sqlite3_finalize(update);
        sqlite3_close(db);
    }
    state.counters["ratio"] = plain / ours;
    if (isWatched) {
        state.counters["reads"] = waits->reads;
        state.counters["median_wait_ms"] = waits->median;
        state.counters["worst_wait_ms"] = waits->worst;
    }
    munmap(memory, sizeof(Waits));
}

void eachWay(benchmark::internal::Benchmark* bench)
{
    for (const int watched : {0, 1}) {
        for (const int way : {0, 1, 2, 3}) bench->Args({way, 10, 9 << 20, watched});
        for (const int way : {0, 1, 2, 3}) bench->Args({way, 500, 24 << 10, watched});
    }
}
BENCHMARK(saves)
    ->Apply(eachWay)
    ->ArgNames({"way", "saves", "bytes", "watched"})
    ->UseManualTime()
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);

} // namespace
