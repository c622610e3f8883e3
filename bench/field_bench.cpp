// Reading of a nodal vector field through the public interface, beside reading of the same bytes from a plain file, in
// one run. write_bench has the writing.
#include "bench_folder.h"
#include "yld.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

constexpr int numNodes = 1000000;
constexpr int numFrames = 10;
constexpr int width = 3;

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start) { return std::chrono::duration<double>(Clock::now() - start).count(); }

// Labels with gaps, in the order of the mesh.
std::vector<int> nodeLabels()
{
    std::vector<int> labels(numNodes);
    for (int i = 0; i < numNodes; ++i) labels[static_cast<std::size_t>(i)] = 2 * i + 1;
    return labels;
}

std::vector<float> fieldValues()
{
    std::vector<float> values(static_cast<std::size_t>(numNodes) * width);
    for (std::size_t i = 0; i < values.size(); ++i) values[i] = static_cast<float>(i % 1000) * 0.25F;
    return values;
}

void makeModel(yld_Yld& yld, const std::vector<int>& labels)
{
    yld_Part& part = yld.Part("part", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
    yld_Sequence<int> nodes(labels.data(), numNodes);
    yld_Sequence<yld_Sequence<float>> coordinates(numNodes);
    const float origin[3] = {0.0F, 0.0F, 0.0F};
    const yld_Sequence<float> row(origin, 3);
    for (int i = 0; i < numNodes; ++i) coordinates.append(row);
    part.addNodes(nodes, coordinates);
    yld.rootAssembly().Instance("part-1", part);
    yld.Step("Step-1", "", yld_Enum::TIME, 1.0);
}

double writeFields(const std::string& path, const std::vector<int>& labels, const std::vector<float>& values)
{
    yld_Yld& yld = Yld("bench", "", "", path.c_str());
    makeModel(yld, labels);
    yld.save();
    yld_Instance& instance = yld.rootAssembly().instances().get("part-1");
    const Clock::time_point start = Clock::now();
    for (int f = 0; f < numFrames; ++f) {
        yld_Frame frame = yld.steps().get("Step-1").Frame(f, 0.1 * f);
        frame.FieldOutput("U", "displacement", yld_Enum::VECTOR)
            .addBulkData(yld_Enum::NODAL, instance, labels.data(), numNodes, values.data(), numNodes, width);
    }
    yld.save();
    const double seconds = secondsSince(start);
    yld.close();
    return seconds;
}

double writePlain(const std::string& path, const std::vector<float>& values)
{
    const Clock::time_point start = Clock::now();
    const int file = open(path.c_str(), O_CREAT | O_TRUNC | O_WRONLY, 0600);
    for (int f = 0; f < numFrames; ++f) benchWriteAll(file, values.data(), values.size() * sizeof(float));
    if (fsync(file) != 0) std::abort();
    close(file);
    return secondsSince(start);
}

double sumOf(const float* values, std::size_t count)
{
    double sum = 0.0;
    for (std::size_t i = 0; i < count; i += 16) sum += static_cast<double>(values[i]); // one of each cache line
    return sum;
}

double readFields(const std::string& path)
{
    yld_Yld& yld = openYld(path.c_str(), true);
    yld_Step& step = yld.steps().get("Step-1");
    const Clock::time_point start = Clock::now();
    for (int f = 0; f < numFrames; ++f) {
        const yld_FieldBulkData& bulk = step.frames(f).fieldOutputs().get("U").bulkDataBlocks()[0];
        if (bulk.length() != numNodes || bulk.nodeLabels()[numNodes - 1] != 2 * numNodes - 1) std::abort();
        benchmark::DoNotOptimize(sumOf(bulk.data(), static_cast<std::size_t>(numNodes) * width));
    }
    const double seconds = secondsSince(start);
    yld.close();
    return seconds;
}

double readPlain(const std::string& path)
{
    std::vector<float> values(static_cast<std::size_t>(numNodes) * width);
    const Clock::time_point start = Clock::now();
    const int file = open(path.c_str(), O_RDONLY);
    const std::size_t size = values.size() * sizeof(float);
    for (int f = 0; f < numFrames; ++f) {
        if (pread(file, values.data(), size, static_cast<off_t>(size) * f) != static_cast<ssize_t>(size)) std::abort();
        benchmark::DoNotOptimize(sumOf(values.data(), values.size()));
    }
    close(file);
    return secondsSince(start);
}

// The speed of ours as a part of that of plain, as in the other programs; the times are sums over the runs.
void report(benchmark::State& state, double ours, double plain)
{
    constexpr double bytes = static_cast<double>(numNodes) * width * sizeof(float) * numFrames;
    const auto runs = static_cast<double>(state.iterations());
    state.counters["ratio"] = plain / ours;
    state.counters["plain_ms"] = plain / runs * 1e3;
    state.counters["ours_ms"] = ours / runs * 1e3;
    state.counters["GB/s"] = bytes * runs / ours * 1e-9;
}

void reading(benchmark::State& state)
{
    const BenchFolder folder;
    const std::vector<float> values = fieldValues();
    writeFields(folder.file("bench.yld"), nodeLabels(), values);
    writePlain(folder.file("plain"), values);
    double ours = 0.0;
    double plain = 0.0;
    for (auto _ : state) {
        const double seconds = readFields(folder.file("bench.yld"));
        ours += seconds;
        plain += readPlain(folder.file("plain"));
        state.SetIterationTime(seconds);
    }
    report(state, ours, plain);
}
BENCHMARK(reading)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

} // namespace
