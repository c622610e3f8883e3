// Writing of results through the public interface, saved, beside write and fsync of the same bytes; the sequences of
// sequences beside the plain arrays; and many small blocks. Ratios are of speeds: 1 is as fast as the other.
#include "bench_folder.h"
#include "bench_ratio.h"
#include "yld.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

constexpr int numEntities = 1000000; // nodes, and elements
constexpr int nodesPerElement = 8;
constexpr int pointsPerElement = 8;

// Labels with gaps, in the order of the mesh.
std::vector<int> meshLabels()
{
    std::vector<int> labels(numEntities);
    for (int i = 0; i < numEntities; ++i) labels[static_cast<std::size_t>(i)] = 2 * i + 1;
    return labels;
}

std::vector<float> numbers(std::size_t count)
{
    std::vector<float> values(count);
    for (std::size_t i = 0; i < count; ++i) values[i] = static_cast<float>(i % 1000) * 0.25F;
    return values;
}

yld_Sequence<yld_Sequence<float>> rowsOf(const std::vector<float>& values, int width)
{
    const int count = static_cast<int>(values.size()) / width;
    yld_Sequence<yld_Sequence<float>> rows(count);
    for (int i = 0; i < count; ++i) {
        rows.append(yld_Sequence<float>(values.data() + static_cast<std::ptrdiff_t>(i) * width, width));
    }
    return rows;
}

// A database with a million nodes, and a million hexahedra if asked for.
class Database
{
public:
    Database(const std::string& path, const std::vector<int>& labels, bool hasElements)
        : m_yld(Yld("bench", "", "", path.c_str()))
    {
        yld_Part& part = m_yld.Part("part", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
        const yld_Sequence<int> all(labels.data(), numEntities);
        yld_Sequence<yld_Sequence<float>> coordinates(numEntities);
        const float origin[3] = {0.0F, 0.0F, 0.0F};
        const yld_Sequence<float> point(origin, 3);
        for (int i = 0; i < numEntities; ++i) coordinates.append(point);
        part.addNodes(all, coordinates);
        if (hasElements) {
            const yld_Sequence<int> nodes(labels.data(), nodesPerElement);
            yld_Sequence<yld_Sequence<int>> connectivity(numEntities);
            for (int i = 0; i < numEntities; ++i) connectivity.append(nodes);
            part.addElements(all, connectivity, "HEX8");
        }
        m_yld.rootAssembly().Instance("part-1", part);
        m_yld.Step("Step-1", "", yld_Enum::TIME, 1.0);
        m_yld.save();
    }
    ~Database() { m_yld.close(); }
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    yld_Yld& yld() { return m_yld; }
    const yld_Instance& instance() { return m_yld.rootAssembly().instances().get("part-1"); }
    yld_Frame frame() { return m_yld.steps().get("Step-1").Frame(m_numFrames++, 0.1); }

private:
    yld_Yld& m_yld;
    int m_numFrames = 0;
};

void writePlain(const std::string& path, const std::vector<float>& values)
{
    const int file = open(path.c_str(), O_CREAT | O_APPEND | O_WRONLY, 0600);
    benchWriteAll(file, values.data(), values.size() * sizeof(float));
    if (fsync(file) != 0) std::abort();
    close(file);
}

void nodalVector(benchmark::State& state)
{
    const BenchFolder folder;
    const std::vector<int> labels = meshLabels();
    const std::vector<float> values = numbers(std::size_t{numEntities} * 3);
    Database database(folder.file("bench.yld"), labels, false);
    benchRatio(
        state, static_cast<double>(values.size() * sizeof(float)), [&] { writePlain(folder.file("plain"), values); },
        [&] {
            database.frame()
                .FieldOutput("U", "", yld_Enum::VECTOR)
                .addBulkData(yld_Enum::NODAL, database.instance(), labels.data(), numEntities, values.data(),
                             numEntities, 3);
            database.yld().save();
        });
}
BENCHMARK(nodalVector)->UseManualTime()->Iterations(15)->Unit(benchmark::kMillisecond);

void integrationPointTensor(benchmark::State& state)
{
    const BenchFolder folder;
    const std::vector<int> labels = meshLabels();
    constexpr int rows = numEntities * pointsPerElement;
    const std::vector<float> values = numbers(std::size_t{rows} * 6);
    Database database(folder.file("bench.yld"), labels, true);
    benchRatio(
        state, static_cast<double>(values.size() * sizeof(float)), [&] { writePlain(folder.file("plain"), values); },
        [&] {
            database.frame()
                .FieldOutput("S", "", yld_Enum::TENSOR_3D_FULL)
                .addBulkData(yld_Enum::INTEGRATION_POINT, database.instance(), labels.data(), numEntities,
                             values.data(), rows, 6);
            database.yld().save();
        });
}
BENCHMARK(integrationPointTensor)->UseManualTime()->Iterations(9)->Unit(benchmark::kMillisecond);

// The overload with sequences of sequences beside that with plain arrays, both saved.
void sequencesBesideArrays(benchmark::State& state, yld_Enum::yld_DataTypeEnum type, int width)
{
    const BenchFolder folder;
    const std::vector<int> labels = meshLabels();
    const std::vector<float> values = numbers(static_cast<std::size_t>(numEntities) * static_cast<std::size_t>(width));
    const yld_Sequence<int> sequence(labels.data(), numEntities);
    const yld_Sequence<yld_Sequence<float>> rows = rowsOf(values, width);
    Database database(folder.file("bench.yld"), labels, false);
    benchRatio(
        state, static_cast<double>(values.size() * sizeof(float)),
        [&] {
            database.frame()
                .FieldOutput("U", "", type)
                .addBulkData(yld_Enum::NODAL, database.instance(), labels.data(), numEntities, values.data(),
                             numEntities, width);
            database.yld().save();
        },
        [&] {
            database.frame().FieldOutput("U", "", type).addData(yld_Enum::NODAL, database.instance(), sequence, rows);
            database.yld().save();
        });
}
BENCHMARK_CAPTURE(sequencesBesideArrays, vector, yld_Enum::VECTOR, 3)
    ->UseManualTime()
    ->Iterations(10)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(sequencesBesideArrays, tensor, yld_Enum::TENSOR_3D_FULL, 6)
    ->UseManualTime()
    ->Iterations(10)
    ->Unit(benchmark::kMillisecond);

// Frames of twenty fields over a hundred nodes each, saved at the end.
void smallBlocks(benchmark::State& state)
{
    constexpr int numFrames = 1000;
    constexpr int numFields = 20;
    constexpr int numNodes = 100;
    using clock = std::chrono::steady_clock;
    double best = std::numeric_limits<double>::max();
    const std::vector<float> values = numbers(numNodes * 3);
    std::vector<int> labels(numNodes);
    for (int i = 0; i < numNodes; ++i) labels[static_cast<std::size_t>(i)] = i + 1;
    std::vector<yld_String> names;
    for (int f = 0; f < numFields; ++f) names.emplace_back(std::string("F").append(std::to_string(f)).c_str());
    for (auto _ : state) {
        const BenchFolder folder;
        yld_Yld& yld = Yld("bench", "", "", folder.file("bench.yld").c_str());
        yld_Part& part = yld.Part("part", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
        yld_Sequence<yld_Sequence<float>> coordinates;
        for (int i = 0; i < numNodes; ++i) coordinates.append(yld_Sequence<float>(values.data(), 3));
        part.addNodes(yld_Sequence<int>(labels.data(), numNodes), coordinates);
        yld.rootAssembly().Instance("part-1", part);
        yld_Step& step = yld.Step("Step-1", "", yld_Enum::TIME, 1.0);
        yld.save();
        const yld_Instance& instance = yld.rootAssembly().instances().get("part-1");
        const auto start = clock::now();
        for (int i = 0; i < numFrames; ++i) {
            yld_Frame frame = step.Frame(i, 0.001 * i);
            for (const yld_String& name : names) {
                frame.FieldOutput(name, "", yld_Enum::VECTOR)
                    .addBulkData(yld_Enum::NODAL, instance, labels.data(), numNodes, values.data(), numNodes, 3);
            }
        }
        yld.save();
        const double time = std::chrono::duration<double>(clock::now() - start).count();
        best = std::min(best, time);
        state.SetIterationTime(time);
        yld.close();
    }
    state.counters["us_a_block"] = best * 1e6 / (numFrames * numFields);
}
BENCHMARK(smallBlocks)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

} // namespace
