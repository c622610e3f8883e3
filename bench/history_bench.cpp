// The hot paths of history beside the plain operations that they are measured against: reading a long curve against
// pread of the same bytes, appending pair by pair, and listing regions without touching their data.

#include "bench_folder.h"
#include "bench_ratio.h"
#include "platform/sto/sto_Sto.h"
#include "platform/store/fio_File.h"
#include "yld.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <limits>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

using Seconds = std::chrono::duration<double>;
using Clock = std::chrono::steady_clock;

const BenchFolder& folder()
{
    static const BenchFolder made;
    return made;
}

yld_Yld& newDatabase(const std::string& path)
{
    std::filesystem::remove(path);
    yld_Yld& database = Yld(path.c_str(), "", "", path.c_str());
    database.Step("Step-1", "", yld_Enum::TIME, 1.0);
    return database;
}

double secondsOf(const Clock::time_point& start) { return Seconds(Clock::now() - start).count(); }

void appendPairs(benchmark::State& state)
{
    const long long pairs = state.range(0);
    const std::string path = folder().file("append.yld");
    double bestAppend = std::numeric_limits<double>::max();
    double bestSave = std::numeric_limits<double>::max();
    for (auto _ : state) {
        yld_Yld& database = newDatabase(path);
        yld_HistoryRegion& region =
            database.steps().get("Step-1").HistoryRegion("r", "", yld_HistoryPoint(database.rootAssembly()));
        yld_HistoryOutput& output = region.HistoryOutput("u", "", yld_Enum::SCALAR);
        const auto start = Clock::now();
        for (long long i = 0; i < pairs; ++i) output.addData(static_cast<double>(i), static_cast<double>(i % 1000));
        const double append = secondsOf(start);
        const auto saving = Clock::now();
        database.save();
        bestAppend = std::min(bestAppend, append);
        bestSave = std::min(bestSave, secondsOf(saving));
        state.SetIterationTime(append);
        database.close();
    }
    state.counters["ns/pair"] = bestAppend * 1e9 / static_cast<double>(pairs);
    state.counters["save_ms"] = bestSave * 1e3;
}
BENCHMARK(appendPairs)->Arg(10000000)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);

// Many curves of the nodes of a mesh, a pair each an increment, as a solver writes them.
const std::string& manyCurves(int curves, int increments, double* secondsAppending = nullptr)
{
    static const std::string path = folder().file("many.yld");
    yld_Yld& database = newDatabase(path);
    yld_Part& part = database.Part("part", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
    yld_Sequence<int> labels;
    yld_Sequence<yld_Sequence<float>> points;
    for (int i = 0; i < curves; ++i) {
        const float point[] = {static_cast<float>(i), 0.0F, 0.0F};
        labels.append(i + 1);
        points.append(yld_Sequence<float>(point, 3));
    }
    part.addNodes(labels, points);
    const yld_Instance& instance = database.rootAssembly().Instance("part-1", part);
    yld_Step& step = database.steps().get("Step-1");
    std::vector<yld_HistoryOutput> outputs;
    for (int i = 0; i < curves; ++i) {
        const std::string name = "Node part-1." + std::to_string(i + 1);
        outputs.push_back(step.HistoryRegion(name.c_str(), "", instance.nodes(i))
                              .HistoryOutput("U1", "displacement", yld_Enum::SCALAR));
    }
    const auto start = Clock::now();
    for (int increment = 0; increment < increments; ++increment) {
        for (yld_HistoryOutput& output : outputs) output.addData(0.1 * increment, increment);
    }
    if (secondsAppending) *secondsAppending = secondsOf(start);
    outputs.clear();
    database.save();
    database.close();
    return path;
}

void appendToManyCurves(benchmark::State& state)
{
    constexpr int curves = 10000;
    constexpr int increments = 1000;
    double best = std::numeric_limits<double>::max();
    for (auto _ : state) {
        double seconds = 0.0;
        manyCurves(curves, increments, &seconds);
        best = std::min(best, seconds);
        state.SetIterationTime(seconds);
    }
    state.counters["ns/pair"] = best * 1e9 / (static_cast<double>(curves) * increments);
}
BENCHMARK(appendToManyCurves)->UseManualTime()->Iterations(2)->Unit(benchmark::kMillisecond);

void readLongCurve(benchmark::State& state)
{
    const long long pairs = state.range(0);
    const std::string path = folder().file("long.yld");
    const std::string plainPath = folder().file("plain");
    {
        yld_Yld& database = newDatabase(path);
        yld_HistoryOutput& output = database.steps()
                                        .get("Step-1")
                                        .HistoryRegion("r", "", yld_HistoryPoint(database.rootAssembly()))
                                        .HistoryOutput("u", "", yld_Enum::SCALAR);
        for (long long i = 0; i < pairs; ++i) output.addData(static_cast<double>(i), static_cast<double>(i % 1000));
        database.save();
        database.close();
    }
    std::vector<double> times(static_cast<std::size_t>(pairs));
    std::vector<float> values(times.size());
    const std::size_t timeBytes = times.size() * sizeof(double);
    const std::size_t valueBytes = values.size() * sizeof(float);
    const int descriptor = ::open(plainPath.c_str(), O_RDWR | O_CREAT | O_TRUNC, 0600);
    for (const std::size_t bytes : {timeBytes, valueBytes}) {
        std::size_t done = 0;
        while (done < bytes) {
            const ssize_t count = ::write(descriptor, reinterpret_cast<const char*>(times.data()) + done, bytes - done);
            if (count < 0) std::abort();
            done += static_cast<std::size_t>(count);
        }
    }
    const auto readPlain = [descriptor](void* into, std::size_t bytes, std::size_t from) {
        constexpr std::size_t piece = 4u << 20;
        for (std::size_t done = 0; done < bytes; done += piece) {
            const std::size_t wanted = std::min(piece, bytes - done);
            const ssize_t count =
                ::pread(descriptor, static_cast<char*>(into) + done, wanted, static_cast<off_t>(from + done));
            if (count != static_cast<ssize_t>(wanted)) std::abort();
        }
        benchmark::DoNotOptimize(into);
    };
    yld_Yld& database = openYld(path.c_str(), true);
    const yld_HistoryOutput output = database.steps().get("Step-1").historyRegions().get("r").historyOutput("u");
    benchRatio(
        state, static_cast<double>(timeBytes + valueBytes),
        [&] {
            readPlain(times.data(), timeBytes, 0);
            readPlain(values.data(), valueBytes, timeBytes);
        },
        [&] {
            output.readData(0, pairs, times.data(), values.data());
            benchmark::DoNotOptimize(values.data());
        });
    if (values.back() != static_cast<float>((pairs - 1) % 1000)) std::abort();
    database.close();
    ::close(descriptor);
}
BENCHMARK(readLongCurve)->Arg(10000000)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

// What a viewer does first: all regions with the names of their curves.
void listRegions(benchmark::State& state)
{
    constexpr int curves = 10000;
    const std::string path = manyCurves(curves, 100);
    double best = std::numeric_limits<double>::max();
    long long extentBytes = 0;
    for (auto _ : state) {
        yld_Yld& database = openYld(path.c_str(), true);
        const yld_Step& step = database.steps().get("Step-1");
        fio_Database& store = database.sto().file()->database();
        const long long before = store.extentReadBytes();
        const auto start = Clock::now();
        int outputs = 0;
        yld_RepositoryIT<yld_String, yld_HistoryRegionPers> entry(step.historyRegions());
        for (entry.first(); !entry.isDone(); entry.next()) outputs += entry.currentValue().historyOutputs().size();
        const double seconds = secondsOf(start);
        if (outputs != curves) std::abort();
        extentBytes = store.extentReadBytes() - before;
        best = std::min(best, seconds);
        state.SetIterationTime(seconds);
        database.close();
    }
    state.counters["us/region"] = best * 1e6 / curves;
    // Labels and coordinates of the nodes; the curves themselves have 4,000,000 bytes of values.
    state.counters["bulk_bytes_read"] = static_cast<double>(extentBytes);
}
BENCHMARK(listRegions)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

} // namespace
