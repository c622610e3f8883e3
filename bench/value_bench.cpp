// Reading results through the public interface: bulk data, value by value, invariants and subsets, each beside the
// plain operation on the same numbers in the same run.
#include "bench_folder.h"
#include "bench_ratio.h"
#include "yld.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

constexpr int numElements = 1250000;
constexpr int numPoints = 8;
constexpr int numValues = numElements * numPoints;
constexpr int width = 6;
constexpr double megabytes = static_cast<double>(numValues) * width * sizeof(float) / 1e6;

std::size_t sizeOf(long long count) { return static_cast<std::size_t>(count); }

int labelOf(int element) { return 2 * element + 1; }

/// Ten million stress tensors at integration points, a number for each element, and a set of 100,000 of a million
/// elements; beside them the same tensors as a plain file.
class Model
{
public:
    Model() { write(); }
    std::string path() const { return m_folder.file("bench.yld"); }
    std::string plainPath() const { return m_folder.file("plain"); }

private:
    void write()
    {
        std::vector<int> labels(sizeOf(numElements));
        for (int i = 0; i < numElements; ++i) labels[sizeOf(i)] = labelOf(i);
        std::vector<float> stresses(sizeOf(numValues) * width);
        for (std::size_t i = 0; i < stresses.size(); ++i) stresses[i] = static_cast<float>(i % 1009) - 300.0F;

        yld_Yld& yld = Yld("bench", "", "", path().c_str());
        yld_Part& part = yld.Part("part", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
        const int nodes[] = {1, 2, 3, 4, 5, 6, 7, 8};
        yld_Sequence<yld_Sequence<float>> coordinates;
        for (const int node : nodes) {
            const float point[] = {static_cast<float>(node & 1), static_cast<float>(node & 2),
                                   static_cast<float>(node & 4)};
            coordinates.append(yld_Sequence<float>(point, 3));
        }
        part.addNodes(yld_Sequence<int>(nodes, 8), coordinates);
        const yld_Sequence<int> row(nodes, 8);
        yld_Sequence<yld_Sequence<int>> connectivity(numElements);
        for (int i = 0; i < numElements; ++i) connectivity.append(row);
        part.addElements(yld_Sequence<int>(labels.data(), numElements), connectivity, "HEX8");
        yld_Instance& instance = yld.rootAssembly().Instance("part-1", part);
        yld_Sequence<int> tenth;
        for (int i = 0; i < 1000000; i += 10) tenth.append(labelOf(i));
        instance.ElementSet("tenth", tenth);
        yld.Step("Step-1", "", yld_Enum::TIME, 1.0);
        yld_Frame frame = yld.steps().get("Step-1").Frame(1, 1.0);
        frame.FieldOutput("S", "stress", yld_Enum::TENSOR_3D_FULL)
            .addBulkData(yld_Enum::INTEGRATION_POINT, instance, labels.data(), numElements, stresses.data(), numValues,
                         width);
        frame.FieldOutput("V", "volume", yld_Enum::SCALAR)
            .addBulkData(yld_Enum::CENTROID, instance, labels.data(), 1000000, stresses.data(), 1000000, 1);
        yld.save();
        yld.close();

        const int file = open(plainPath().c_str(), O_CREAT | O_TRUNC | O_WRONLY, 0600);
        benchWriteAll(file, stresses.data(), stresses.size() * sizeof(float));
        close(file);
    }

    BenchFolder m_folder;
};

const Model& model()
{
    static const Model made;
    return made;
}

/// The database, open for reading as long as this lives.
class Opened
{
public:
    Opened() : m_yld(openYld(model().path().c_str(), true)) {}
    ~Opened() { m_yld.close(); }
    const yld_FieldOutput& field(const char* name)
    {
        return m_yld.steps().get("Step-1").frames(0).fieldOutputs().constGet(name);
    }
    yld_Instance& instance() { return m_yld.rootAssembly().instances().get("part-1"); }

private:
    yld_Yld& m_yld;
};

// One number of each cache line: enough to have seen them all.
double touch(const float* values)
{
    double sum = 0.0;
    for (std::size_t i = 0; i < sizeOf(numValues) * width; i += 16) sum += static_cast<double>(values[i]);
    return sum;
}

void plainRead()
{
    const std::size_t bytes = sizeOf(numValues) * width * sizeof(float);
    const std::unique_ptr<float[]> values(new float[sizeOf(numValues) * width]);
    const int file = open(model().plainPath().c_str(), O_RDONLY);
    if (pread(file, values.get(), bytes, 0) != static_cast<ssize_t>(bytes)) std::abort();
    close(file);
    benchmark::DoNotOptimize(touch(values.get()));
}

void bulkOfTenMillionTensors(benchmark::State& state)
{
    model();
    benchRatio(state, megabytes * 1e6, plainRead, [] {
        Opened yld;
        const yld_FieldBulkData& bulk = yld.field("S").bulkDataBlocks()[0];
        if (bulk.length() != numValues) std::abort();
        benchmark::DoNotOptimize(touch(bulk.data()));
    });
}
BENCHMARK(bulkOfTenMillionTensors)->UseManualTime()->Iterations(7)->Unit(benchmark::kMillisecond);

// The plain walk copies each row, which every value has to do too.
void valueByValue(benchmark::State& state)
{
    Opened yld;
    const yld_FieldOutput& s = yld.field("S");
    const float* rows = s.bulkDataBlocks()[0].data();
    benchRatio(
        state, 0.0,
        [rows] {
            double sum = 0.0;
            for (int i = 0; i < numValues; ++i) {
                float row[width];
                std::memcpy(row, rows + static_cast<std::ptrdiff_t>(i) * width, sizeof row);
                benchmark::DoNotOptimize(row);
                sum += static_cast<double>(row[3]);
            }
            benchmark::DoNotOptimize(sum);
        },
        [&s] {
            double sum = 0.0;
            const yld_SequenceFieldValue& values = s.values();
            for (int i = 0; i < numValues; ++i) sum += values[static_cast<unsigned>(i)].data()[3];
            benchmark::DoNotOptimize(sum);
        });
    state.counters["values/s"] = numValues / (state.counters["ours_ms"].value * 1e-3);
}
BENCHMARK(valueByValue)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);

// The plain operation reads all components once and writes one float in six: what the memory can give.
void misesOfTenMillionTensors(benchmark::State& state)
{
    Opened yld;
    const yld_FieldOutput& s = yld.field("S");
    const float* rows = s.bulkDataBlocks()[0].data();
    const yld_FieldBulkData* bulk = nullptr;
    benchRatio(
        state, megabytes * 1e6,
        [rows] {
            const std::unique_ptr<float[]> into(new float[sizeOf(numValues)]);
            for (std::size_t i = 0; i < sizeOf(numValues); ++i) {
                const float* row = rows + i * width;
                into[i] = (row[0] + row[1]) + (row[2] + row[3]) + (row[4] + row[5]);
            }
            benchmark::DoNotOptimize(into.get());
            benchmark::ClobberMemory();
        },
        [&] {
            bulk = &s.bulkDataBlocks()[0];
            benchmark::DoNotOptimize(bulk->mises());
        });
}
BENCHMARK(misesOfTenMillionTensors)->UseManualTime()->Iterations(7)->Unit(benchmark::kMillisecond);

// The plain operation intersects the two lists of labels.
void subsetByTenthOfAMillionElements(benchmark::State& state)
{
    Opened yld;
    const yld_FieldOutput& v = yld.field("V");
    const yld_Set& tenth = yld.instance().elementSets().constGet("tenth");
    std::vector<int> labels(1000000);
    std::vector<int> wanted;
    for (int i = 0; i < 1000000; ++i) labels[sizeOf(i)] = labelOf(i);
    for (int i = 0; i < 1000000; i += 10) wanted.push_back(labelOf(i));
    benchRatio(
        state, 0.0,
        [&] {
            std::vector<int> both;
            std::set_intersection(labels.begin(), labels.end(), wanted.begin(), wanted.end(), std::back_inserter(both));
            benchmark::DoNotOptimize(both.data());
        },
        [&] {
            const yld_FieldOutput part = v.getSubset(tenth);
            if (part.values().size() != 100000) std::abort();
        });
}
BENCHMARK(subsetByTenthOfAMillionElements)->UseManualTime()->Iterations(9)->Unit(benchmark::kMillisecond);

void bulkOfThatSubset(benchmark::State& state)
{
    Opened yld;
    const yld_FieldOutput& v = yld.field("V");
    const yld_Set& tenth = yld.instance().elementSets().constGet("tenth");
    const float* all = v.bulkDataBlocks()[0].data();
    benchRatio(
        state, 0.0,
        [all] {
            std::vector<float> picked;
            for (int i = 0; i < 1000000; i += 10) picked.push_back(all[i]);
            benchmark::DoNotOptimize(picked.data());
        },
        [&] {
            const yld_FieldOutput part = v.getSubset(tenth);
            benchmark::DoNotOptimize(part.bulkDataBlocks()[0].data());
        });
}
BENCHMARK(bulkOfThatSubset)->UseManualTime()->Iterations(9)->Unit(benchmark::kMillisecond);

} // namespace
