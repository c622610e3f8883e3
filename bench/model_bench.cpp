// How fast a mesh goes into a database and how fast it is walked, beside plain operations on the same bytes.

#include "platform/sto/sto_Model.h"
#include "platform/store/fio_File.h"
#include "yld/impl/yld_Mesh.h"
#include "yld_Part.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

namespace {

constexpr int side = 100; // side^3 hexahedra: a million

struct Block
{
    std::vector<int> nodeLabels;
    std::vector<float> coordinates;
    std::vector<int> elementLabels;
    std::vector<int> connectivity;

    // Sends the elements' labels far from any order, to see what that costs.
    explicit Block(bool isShuffled)
    {
        const int n = side + 1;
        for (int z = 0; z < n; ++z) {
            for (int y = 0; y < n; ++y) {
                for (int x = 0; x < n; ++x) {
                    nodeLabels.push_back(static_cast<int>(nodeLabels.size()) + 1);
                    coordinates.insert(coordinates.end(),
                                       {static_cast<float>(x), static_cast<float>(y), static_cast<float>(z)});
                }
            }
        }
        for (int z = 0; z < side; ++z) {
            for (int y = 0; y < side; ++y) {
                for (int x = 0; x < side; ++x) {
                    const long long order = static_cast<long long>(elementLabels.size()) + 1;
                    elementLabels.push_back(
                        isShuffled ? static_cast<int>(order * 1103515245LL % 2147483647LL) : static_cast<int>(order));
                    const int first = (z * n + y) * n + x + 1;
                    for (int corner : {0, 1, n + 1, n}) connectivity.push_back(first + corner);
                    for (int corner : {0, 1, n + 1, n}) connectivity.push_back(first + n * n + corner);
                }
            }
        }
    }
    std::size_t bytes() const
    {
        return 4 * (nodeLabels.size() + coordinates.size() + elementLabels.size() + connectivity.size());
    }
};

const Block& plainBlock()
{
    static const Block block(false);
    return block;
}
const Block& shuffledBlock()
{
    static const Block block(true);
    return block;
}

struct File
{
    File() : path((std::filesystem::temp_directory_path() / ("model_bench" + std::to_string(getpid()))).string())
    {
        std::filesystem::remove(path);
        file = fio_File::Create(path.c_str());
        model = sto_Model::create(file.body(), "Default Model");
    }
    ~File()
    {
        file.body()->close();
        std::filesystem::remove(path);
    }

    std::string path;
    fio_File file;
    sto_Model model;
};

void fill(sto_Model& model, const Block& block)
{
    sto_Mesh mesh = model.Part("block", 2000, 4001).mesh();
    mesh.addNodes(block.nodeLabels.data(), block.coordinates.data(), static_cast<int>(block.nodeLabels.size()), "");
    sto_ElementArg arg;
    arg.type = "HEX8";
    arg.labels = block.elementLabels.data();
    arg.numElements = static_cast<int>(block.elementLabels.size());
    arg.connectivity = block.connectivity.data();
    arg.nodesPerElement = 8;
    mesh.addElements(arg, "", nullptr);
}

double seconds(const std::chrono::steady_clock::time_point& from)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - from).count();
}

void writeAll(int descriptor, const void* data, std::size_t bytes)
{
    const char* at = static_cast<const char*>(data);
    while (bytes > 0) {
        const ssize_t written = write(descriptor, at, bytes);
        if (written <= 0) std::abort();
        at += written;
        bytes -= static_cast<std::size_t>(written);
    }
}

double plainWrite(const Block& block)
{
    const std::string path = (std::filesystem::temp_directory_path() / "model_bench_plain").string();
    const auto from = std::chrono::steady_clock::now();
    const int descriptor = open(path.c_str(), O_CREAT | O_TRUNC | O_WRONLY, 0600);
    writeAll(descriptor, block.nodeLabels.data(), 4 * block.nodeLabels.size());
    writeAll(descriptor, block.coordinates.data(), 4 * block.coordinates.size());
    writeAll(descriptor, block.elementLabels.data(), 4 * block.elementLabels.size());
    writeAll(descriptor, block.connectivity.data(), 4 * block.connectivity.size());
    fsync(descriptor);
    close(descriptor);
    const double took = seconds(from);
    unlink(path.c_str());
    return took;
}

void addMesh(benchmark::State& state, const Block& block)
{
    double ours = 0;
    double plain = 0;
    for (auto _ : state) {
        state.PauseTiming();
        plain += plainWrite(block);
        File database;
        state.ResumeTiming();
        const auto from = std::chrono::steady_clock::now();
        fill(database.model, block);
        database.file.body()->save();
        ours += seconds(from);
        state.PauseTiming();
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(block.bytes()));
    state.counters["times plain write and sync"] = ours / plain;
}

void BM_addMillionHex8(benchmark::State& state) { addMesh(state, plainBlock()); }
void BM_addMillionHex8Shuffled(benchmark::State& state) { addMesh(state, shuffledBlock()); }

void BM_walkElementsByIndex(benchmark::State& state)
{
    File database;
    fill(database.model, plainBlock());
    yld_Mesh mesh(database.model.part("block").mesh(), "block", false);
    const int count = mesh.elementCount(false);
    long long sum = 0;
    for (auto _ : state) {
        for (int i = 0; i < count; ++i) sum += mesh.elementAt(i, true).label();
    }
    benchmark::DoNotOptimize(sum);
    state.SetItemsProcessed(state.iterations() * count);
}

void walkByLabel(benchmark::State& state, const Block& block, int stride)
{
    File database;
    fill(database.model, block);
    yld_Mesh mesh(database.model.part("block").mesh(), "block", false);
    const std::size_t count = block.elementLabels.size();
    long long sum = 0;
    for (auto _ : state) {
        std::size_t at = 0;
        for (std::size_t i = 0; i < count; ++i) {
            sum += mesh.elementFromLabel(block.elementLabels[at]).index();
            at = (at + static_cast<std::size_t>(stride)) % count;
        }
    }
    benchmark::DoNotOptimize(sum);
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(count));
}

void BM_elementsByLabelInOrder(benchmark::State& state) { walkByLabel(state, plainBlock(), 1); }
void BM_elementsByLabelShuffledInOrder(benchmark::State& state) { walkByLabel(state, shuffledBlock(), 1); }
void BM_elementsByLabelShuffledAtRandom(benchmark::State& state) { walkByLabel(state, shuffledBlock(), 354224); }

void BM_walkNodesByIndex(benchmark::State& state)
{
    File database;
    fill(database.model, plainBlock());
    yld_Mesh mesh(database.model.part("block").mesh(), "block", false);
    float sum = 0;
    for (auto _ : state) {
        for (int i = 0; i < mesh.numNodes(); ++i) sum += mesh.nodeAt(i).coordinate(0);
    }
    benchmark::DoNotOptimize(sum);
    state.SetItemsProcessed(state.iterations() * mesh.numNodes());
}

BENCHMARK(BM_addMillionHex8)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_addMillionHex8Shuffled)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_walkElementsByIndex)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_elementsByLabelInOrder)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_elementsByLabelShuffledInOrder)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_elementsByLabelShuffledAtRandom)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_walkNodesByIndex)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
