// How fast a mesh goes into a database and how fast it is walked, through the public interface, beside plain operations
// on the same bytes. A ratio of 1 is as fast as plain, 0.2 five times as slow.

#include "bench_ratio.h"

#include "platform/sto/sto_Model.h"
#include "platform/sto/sto_ModelOf.h"
#include "platform/store/fio_File.h"
#include "yld/impl/model/yld_Mesh.h"
#include "yld_Assembly.h"
#include "yld_Part.h"

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <map>
#include <unistd.h>
#include <unordered_map>

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
                    elementLabels.push_back(isShuffled ? static_cast<int>(order * 1103515245LL % 2147483647LL)
                                                       : static_cast<int>(order));
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
        model = sto_Model::create(file.body(), sto_defaultModel);
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

// The block as a client has it who gives it to a part.
struct Given
{
    yld_Sequence<int> nodeLabels;
    yld_Sequence<yld_Sequence<float>> coordinates;
    yld_Sequence<int> elementLabels;
    yld_Sequence<yld_Sequence<int>> connectivity;

    explicit Given(const Block& block)
        : nodeLabels(block.nodeLabels.data(), static_cast<int>(block.nodeLabels.size())),
          coordinates(static_cast<int>(block.nodeLabels.size())),
          elementLabels(block.elementLabels.data(), static_cast<int>(block.elementLabels.size())),
          connectivity(static_cast<int>(block.elementLabels.size()))
    {
        for (std::size_t i = 0; i < block.coordinates.size(); i += 3) {
            coordinates.append(yld_Sequence<float>(block.coordinates.data() + i, 3));
        }
        for (std::size_t i = 0; i < block.connectivity.size(); i += 8) {
            connectivity.append(yld_Sequence<int>(block.connectivity.data() + i, 8));
        }
    }
};

struct Model : File
{
    Model() : parts(model) {}

    yld_Part& add(const Given& given, const char* name = "block")
    {
        yld_Part& part = parts.Part(name, yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
        part.addNodes(given.nodeLabels, given.coordinates);
        part.addElements(given.elementLabels, given.connectivity, "HEX8");
        return part;
    }

    yld_PartRepository parts;
};

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

void plainWrite(const Block& block)
{
    const std::string path = (std::filesystem::temp_directory_path() / "model_bench_plain").string();
    const int descriptor = open(path.c_str(), O_CREAT | O_TRUNC | O_WRONLY, 0600);
    writeAll(descriptor, block.nodeLabels.data(), 4 * block.nodeLabels.size());
    writeAll(descriptor, block.coordinates.data(), 4 * block.coordinates.size());
    writeAll(descriptor, block.elementLabels.data(), 4 * block.elementLabels.size());
    writeAll(descriptor, block.connectivity.data(), 4 * block.connectivity.size());
    fsync(descriptor);
    close(descriptor);
    unlink(path.c_str());
}

void addMesh(benchmark::State& state, const Block& block)
{
    const Given given(block);
    Model database;
    int parts = 0;
    benchRatio(
        state, static_cast<double>(block.bytes()), [&] { plainWrite(block); },
        [&] {
            database.add(given, ("block " + std::to_string(++parts)).c_str());
            database.file.body()->save();
        });
}

void BM_addMillionHex8(benchmark::State& state) { addMesh(state, plainBlock()); }
void BM_addMillionHex8Shuffled(benchmark::State& state) { addMesh(state, shuffledBlock()); }

// A walk beside one over the bare arrays; what counts besides is items a second.
template<class Plain, class Ours> void walk(benchmark::State& state, double items, Plain&& plain, Ours&& ours)
{
    benchRatio(state, 0.0, plain, ours);
    state.counters["million/s"] = items / state.counters["ours_ms"] * 1e-3;
}

void BM_walkNodesByIndex(benchmark::State& state)
{
    const Block& block = plainBlock();
    Model database;
    const yld_SequenceNode& nodes = database.add(Given(block)).nodes();
    const unsigned count = static_cast<unsigned>(nodes.size());
    float sum = 0;
    walk(
        state, count,
        [&] {
            for (std::size_t i = 0; i < block.coordinates.size(); i += 3) sum += block.coordinates[i];
            benchmark::DoNotOptimize(sum);
        },
        [&] {
            for (unsigned i = 0; i < count; ++i) sum += nodes[i].coordinate(0);
            benchmark::DoNotOptimize(sum);
        });
}

void BM_walkElementsByIndex(benchmark::State& state)
{
    const Block& block = plainBlock();
    Model database;
    yld_Part& part = database.add(Given(block));
    const yld_SequenceElement& elements = part.elements();
    const unsigned count = static_cast<unsigned>(elements.size());
    long long sum = 0;
    const long long before = part.mesh()->classLoads();
    walk(
        state, count,
        [&] {
            for (std::size_t i = 0; i < block.elementLabels.size(); ++i) {
                sum += block.elementLabels[i] + block.connectivity[8 * i];
            }
            benchmark::DoNotOptimize(sum);
        },
        [&] {
            for (unsigned i = 0; i < count; ++i) {
                const yld_Element element = elements[i];
                int nodes = 0;
                sum += element.label() + element.connectivity(nodes)[0];
            }
            benchmark::DoNotOptimize(sum);
        });
    state.counters["class loads"] = static_cast<double>(part.mesh()->classLoads() - before);
}

// Labels in their own order, or far from each other, beside the same questions to a hash map.
template<class Look>
void lookUp(benchmark::State& state, const std::vector<int>& labels, std::size_t stride, Look&& look)
{
    std::unordered_map<int, int> places;
    for (std::size_t i = 0; i < labels.size(); ++i) places.emplace(labels[i], static_cast<int>(i));
    look(labels[0]); // the index is built on first use
    long long sum = 0;
    const auto all = [&](auto&& each) {
        for (std::size_t i = 0, at = 0; i < labels.size(); ++i, at = (at + stride) % labels.size()) {
            sum += each(labels[at]);
        }
        benchmark::DoNotOptimize(sum);
    };
    walk(
        state, static_cast<double>(labels.size()), [&] { all([&](int label) { return places.find(label)->second; }); },
        [&] { all(look); });
}

constexpr std::size_t scattered = 354224;

void elementsByLabel(benchmark::State& state, const Block& block, std::size_t stride)
{
    Model database;
    const yld_Part& part = database.add(Given(block));
    lookUp(state, block.elementLabels, stride, [&part](int label) { return part.getElementFromLabel(label).index(); });
}

void BM_elementsByLabelInOrder(benchmark::State& state) { elementsByLabel(state, plainBlock(), 1); }
void BM_elementsByLabelAtRandom(benchmark::State& state) { elementsByLabel(state, plainBlock(), scattered); }
void BM_elementsByLabelShuffledInOrder(benchmark::State& state) { elementsByLabel(state, shuffledBlock(), 1); }
void BM_elementsByLabelShuffledAtRandom(benchmark::State& state) { elementsByLabel(state, shuffledBlock(), scattered); }

void BM_nodesByLabelAtRandom(benchmark::State& state)
{
    const Block& block = plainBlock();
    Model database;
    const yld_Part& part = database.add(Given(block));
    lookUp(state, block.nodeLabels, scattered, [&part](int label) { return part.getNodeFromLabel(label).index(); });
}

// The list of the sets of a part that was just opened, with its sizes, beside the making of as many plain entries.
void BM_listTenThousandSets(benchmark::State& state)
{
    constexpr int sets = 10000;
    File database;
    {
        yld_PartRepository parts(database.model);
        yld_Part& part = parts.Part("P", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
        const int labels[3] = {3, 1, 2};
        const float points[3] = {};
        yld_Sequence<yld_Sequence<float>> places;
        for (int i = 0; i < 3; ++i) places.append(yld_Sequence<float>(points, 3));
        part.addNodes(yld_Sequence<int>(labels, 3), places);
        sto_Mesh mesh = part.part().mesh();
        const int backward[3] = {2, 3, 1}; // no run of indices, so that there is a list of members
        for (int i = 0; i < sets; ++i) mesh.Nset("set " + std::to_string(i), backward, 3, false, false);
    }
    database.file.body()->save();
    const long long model = database.model.shortCut().id();
    database.file.body()->close();
    std::size_t loaded = 0;
    benchRatio(
        state, 0.0,
        [&] {
            std::map<std::string, std::string> plain;
            for (int i = 0; i < sets; ++i) plain.emplace("set " + std::to_string(i), "members");
            benchmark::DoNotOptimize(plain);
        },
        [&] {
            const fio_File file = fio_File::Open(database.path.c_str(), false, true);
            const sto_Part stored = sto_Model(lnk_ShortCut<mshK_Model>(file.body(), model)).part(0);
            const yld_MeshHandle mesh(new yld_Mesh(stored.mesh(), "P", false));
            yld_Part part("P", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY, stored, mesh);
            if (part.nodeSets().size() != sets) std::abort();
            loaded = file.body()->loadedObjects();
            file.body()->close();
        });
    state.counters["objects read"] = static_cast<double>(loaded);
}

BENCHMARK(BM_addMillionHex8)->UseManualTime()->Iterations(8)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_addMillionHex8Shuffled)->UseManualTime()->Iterations(8)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_walkNodesByIndex)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_walkElementsByIndex)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_elementsByLabelInOrder)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_elementsByLabelAtRandom)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_elementsByLabelShuffledInOrder)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_elementsByLabelShuffledAtRandom)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_nodesByLabelAtRandom)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_listTenThousandSets)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
