// Bulk arrays through the store against read and write of the same bytes.

#include "bench_folder.h"
#include "bench_ratio.h"
#include "platform/store/fio_File.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <limits>
#include <string>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

class bench_Array : public pcl_Class<bench_Array>
{
public:
    static constexpr const char* className = "bench_Array";
    static constexpr unsigned classId = 0x7f000002;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit) { visit("values", self.m_values); }

    pcl_Array<float> m_values;
};

const BenchFolder& folder()
{
    static const BenchFolder made;
    return made;
}

fio_Buffer filled(std::size_t bytes)
{
    fio_Buffer buffer(bytes);
    auto* values = reinterpret_cast<float*>(buffer.writable());
    for (std::size_t i = 0; i < bytes / sizeof(float); ++i) values[i] = static_cast<float>(i);
    return buffer;
}

void readBlocks(benchmark::State& state)
{
    const auto blockBytes = static_cast<std::size_t>(state.range(0));
    const auto total = static_cast<std::size_t>(state.range(1));
    const std::size_t blocks = total / blockBytes;
    const std::string plainPath = folder().file("plain");
    const std::string path = folder().file("read.yld");
    std::filesystem::remove(path);
    const fio_Buffer block = filled(blockBytes);
    std::vector<long long> firsts;
    {
        const int descriptor = ::open(plainPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        const fio_File file = fio_File::Create(path.c_str());
        for (std::size_t i = 0; i < blocks; ++i) {
            if (::write(descriptor, block.data(), blockBytes) < 0) std::abort();
            firsts.push_back(file.body()->extents().append(block));
        }
        ::close(descriptor);
        file.body()->save();
        file.body()->close();
    }
    const int descriptor = ::open(plainPath.c_str(), O_RDONLY);
    const fio_File file = fio_File::Open(path.c_str(), false, true);
    fio_Extents& extents = file.body()->extents();
    // Each side reads into the memory that it would take: plain memory here, the store's large pages there.
    std::vector<char> plainInto(blockBytes);
    fio_Buffer into(blockBytes);
    benchRatio(
        state, static_cast<double>(blocks * blockBytes),
        [&] {
            for (std::size_t i = 0; i < blocks; ++i) {
                if (::pread(descriptor, plainInto.data(), blockBytes, static_cast<off_t>(i * blockBytes)) < 0) {
                    std::abort();
                }
                benchmark::DoNotOptimize(plainInto.data());
            }
        },
        [&] {
            const fio_ReadSession session(*file.body());
            for (const long long first : firsts) {
                extents.read(first, 0, into.writable(), blockBytes);
                benchmark::DoNotOptimize(into.data());
            }
        });
    file.body()->close();
    ::close(descriptor);
}
BENCHMARK(readBlocks)
    ->Args({16 << 20, 512 << 20})
    ->Args({40 << 10, 256 << 20})
    ->Args({1200, 64 << 20})
    ->UseManualTime()
    ->Iterations(5)
    ->Unit(benchmark::kMillisecond);

void writeBlocksWithSaves(benchmark::State& state)
{
    const auto blockBytes = static_cast<std::size_t>(state.range(0));
    const int blocks = static_cast<int>(state.range(1));
    const int saves = static_cast<int>(state.range(2));
    const std::string plainPath = folder().file("plain");
    const std::string path = folder().file("write.yld");
    const fio_Buffer block = filled(blockBytes);
    benchRatio(
        state, static_cast<double>(blockBytes) * blocks,
        [&] {
            std::filesystem::remove(plainPath);
            const int descriptor = ::open(plainPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
            for (int i = 0; i < blocks; ++i) {
                if (::write(descriptor, block.data(), blockBytes) < 0) std::abort();
                if ((i + 1) % (blocks / saves) == 0) ::fsync(descriptor);
            }
            ::close(descriptor);
        },
        [&] {
            std::filesystem::remove(path);
            const fio_File file = fio_File::Create(path.c_str());
            for (int i = 0; i < blocks; ++i) {
                bench_Array array;
                array.m_values.adopt(block);
                array.m_values.toDisk(file.body());
                lnk_ShortCut<bench_Array>::create(file.body(), array);
                if ((i + 1) % (blocks / saves) == 0) file.body()->save();
            }
            file.body()->close();
        });
}
BENCHMARK(writeBlocksWithSaves)
    ->Args({9 << 20, 20, 10})
    ->Args({1200, 20000, 1})
    ->UseManualTime()
    ->Iterations(5)
    ->Unit(benchmark::kMillisecond);

// Objects like those of a results database: steps list frames, frames list fields, fields hold values.
class bench_Node : public pcl_Class<bench_Node>
{
public:
    static constexpr const char* className = "bench_Node";
    static constexpr unsigned classId = 0x7f000005;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("name", self.m_name);
        visit("nodes", self.m_nodes);
    }

    std::string m_name;
    mrp_Container<bench_Node> m_nodes;
};

class bench_Frame : public pcl_Class<bench_Frame>
{
public:
    static constexpr const char* className = "bench_Frame";
    static constexpr unsigned classId = 0x7f000006;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit) { visit("blocks", self.m_blocks); }

    mrp_Container<bench_Array> m_blocks;
};

using Seconds = std::chrono::duration<double>;
using Clock = std::chrono::steady_clock;

// Many small blocks in many frames, and one save.
void saveSmallBlocksInFrames(benchmark::State& state)
{
    constexpr int frames = 1000;
    constexpr int blocksInFrame = 20;
    constexpr std::size_t blockBytes = 1200;
    const std::string path = folder().file("frames.yld");
    const fio_Buffer block = filled(blockBytes);
    double best = std::numeric_limits<double>::max();
    double bestSave = std::numeric_limits<double>::max();
    double bestWork = std::numeric_limits<double>::max();
    for (auto _ : state) {
        std::filesystem::remove(path);
        const fio_File file = fio_File::Create(path.c_str());
        const auto start = Clock::now();
        const std::clock_t work = std::clock();
        bench_Frame root;
        auto list = mrp_Container<bench_Frame>::create(file.body());
        for (int f = 0; f < frames; ++f) {
            bench_Frame frame;
            frame.m_blocks = mrp_Container<bench_Array>::create(file.body());
            for (int b = 0; b < blocksInFrame; ++b) {
                bench_Array array;
                array.m_values.adopt(block);
                array.m_values.toDisk(file.body());
                frame.m_blocks.append("S", lnk_ShortCut<bench_Array>::create(file.body(), array));
            }
            list.append("frame", lnk_ShortCut<bench_Frame>::create(file.body(), frame));
        }
        const auto middle = Clock::now();
        file.body()->save();
        const auto end = Clock::now();
        best = std::min(best, Seconds(end - start).count());
        bestSave = std::min(bestSave, Seconds(end - middle).count());
        bestWork = std::min(bestWork, static_cast<double>(std::clock() - work) / CLOCKS_PER_SEC);
        state.SetIterationTime(Seconds(end - start).count());
    }
    state.counters["us/block"] = best * 1e6 / (frames * blocksInFrame);
    state.counters["processor_us/block"] = bestWork * 1e6 / (frames * blocksInFrame);
    state.counters["save_ms"] = bestSave * 1e3;
}
BENCHMARK(saveSmallBlocksInFrames)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

// A process that opens the file and reads its last block over and over, until it is ended.
pid_t startReader(const std::string& path)
{
    const pid_t child = fork();
    if (child != 0) return child;
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    for (;;) {
        try {
            const fio_File file = fio_File::Open(path.c_str(), false, true);
            if (file.body()->rootObject() != 0) {
                const auto root = lnk_ShortCut<bench_Frame>(file.body(), file.body()->rootObject()).fetch();
                const int blocks = root->m_blocks.size();
                if (blocks > 0) benchmark::DoNotOptimize(root->m_blocks.at(blocks - 1).fetch()->m_values.data());
            }
        } catch (const std::exception&) {
            // Before its first save the file is no database yet.
        }
        usleep(2000);
    }
}

void writeWhileReadersWatch(benchmark::State& state)
{
    constexpr std::size_t blockBytes = 9u << 20;
    constexpr int blocks = 20;
    const int readers = static_cast<int>(state.range(0));
    const std::string plainPath = folder().file("plain");
    const std::string path = folder().file("watched.yld");
    const fio_Buffer block = filled(blockBytes);
    std::vector<pid_t> children;
    for (int i = 0; i < readers; ++i) children.push_back(startReader(path));
    benchRatio(
        state, static_cast<double>(blockBytes) * blocks,
        [&] {
            std::filesystem::remove(plainPath);
            const int descriptor = ::open(plainPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
            for (int i = 0; i < blocks; ++i) {
                if (::write(descriptor, block.data(), blockBytes) < 0) std::abort();
                if (i % 2 == 1) ::fsync(descriptor);
            }
            ::close(descriptor);
        },
        [&] {
            std::filesystem::remove(path);
            const fio_File file = fio_File::Create(path.c_str());
            bench_Frame root;
            root.m_blocks = mrp_Container<bench_Array>::create(file.body());
            file.body()->setRootObject(lnk_ShortCut<bench_Frame>::create(file.body(), root).id());
            for (int i = 0; i < blocks; ++i) {
                bench_Array array;
                array.m_values.adopt(block);
                array.m_values.toDisk(file.body());
                root.m_blocks.append("b", lnk_ShortCut<bench_Array>::create(file.body(), array));
                if (i % 2 == 1) file.body()->save();
            }
        });
    for (const pid_t child : children) {
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
    }
}
BENCHMARK(writeWhileReadersWatch)->Arg(0)->Arg(2)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);

// 1,000 steps of 100 frames with 50 fields each: five million entries.
const std::string& largeTree()
{
    static const std::string path = [] {
        const std::string made = folder().file("tree.yld");
        const fio_File file = fio_File::Create(made.c_str());
        const auto leaf = lnk_ShortCut<bench_Node>::create(file.body(), bench_Node());
        bench_Node root;
        root.m_nodes = mrp_Container<bench_Node>::create(file.body());
        for (int s = 0; s < 1000; ++s) {
            bench_Node step;
            step.m_name = "Step-" + std::to_string(s);
            step.m_nodes = mrp_Container<bench_Node>::create(file.body());
            for (int f = 0; f < 100; ++f) {
                bench_Node frame;
                frame.m_nodes = mrp_Container<bench_Node>::create(file.body());
                for (int i = 0; i < 50; ++i) frame.m_nodes.append("Field-" + std::to_string(i), leaf);
                step.m_nodes.append(std::to_string(f), lnk_ShortCut<bench_Node>::create(file.body(), frame));
            }
            root.m_nodes.append(step.m_name, lnk_ShortCut<bench_Node>::create(file.body(), step));
            // What is saved and released takes no memory.
            if (s % 100 == 99) {
                file.body()->setRootObject(root.m_nodes.at(0).id());
                file.body()->save();
            }
        }
        file.body()->setRootObject(lnk_ShortCut<bench_Node>::create(file.body(), root).id());
        file.body()->save();
        return made;
    }();
    return path;
}

void openLargeTree(benchmark::State& state)
{
    const std::string& path = largeTree();
    double bestOpen = std::numeric_limits<double>::max();
    double bestList = std::numeric_limits<double>::max();
    for (auto _ : state) {
        const auto start = Clock::now();
        const fio_File file = fio_File::Open(path.c_str(), false, true);
        const auto root = lnk_ShortCut<bench_Node>(file.body(), file.body()->rootObject()).fetch();
        const auto opened = Clock::now();
        if (root->m_nodes.size() != 1000) std::abort();
        const auto listed = Clock::now();
        bestOpen = std::min(bestOpen, Seconds(opened - start).count());
        bestList = std::min(bestList, Seconds(listed - opened).count());
        state.SetIterationTime(Seconds(opened - start).count());
    }
    state.counters["open_ms"] = bestOpen * 1e3;
    state.counters["steps_ms"] = bestList * 1e3;
    state.counters["file_MB"] = static_cast<double>(std::filesystem::file_size(path)) * 1e-6;
}
BENCHMARK(openLargeTree)->UseManualTime()->Iterations(20)->Unit(benchmark::kMillisecond);

// From the root to a field by the names of step, frame and field; each turn goes where nothing has been read yet.
void resolveByName(benchmark::State& state)
{
    const std::string& path = largeTree();
    const fio_File file = fio_File::Open(path.c_str(), false, true);
    const auto root = lnk_ShortCut<bench_Node>(file.body(), file.body()->rootObject()).fetch();
    if (root->m_nodes.size() != 1000) std::abort();
    std::vector<double> fields;
    std::vector<double> all;
    int turn = 0;
    for (auto _ : state) {
        const std::string stepName = "Step-" + std::to_string(turn * 37 % 1000);
        const std::string frameName = std::to_string(turn * 13 % 100);
        ++turn;
        const auto start = Clock::now();
        const auto step = root->m_nodes.get(stepName).fetch();
        const auto frame = step->m_nodes.get(frameName).fetch();
        const auto middle = Clock::now();
        const auto field = frame->m_nodes.get("Field-33").fetch();
        const auto end = Clock::now();
        benchmark::DoNotOptimize(field);
        fields.push_back(Seconds(end - middle).count());
        all.push_back(Seconds(end - start).count());
        state.SetIterationTime(Seconds(end - start).count());
    }
    std::nth_element(fields.begin(), fields.begin() + static_cast<std::ptrdiff_t>(fields.size() / 2), fields.end());
    std::nth_element(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(all.size() / 2), all.end());
    state.counters["field_us"] = fields[fields.size() / 2] * 1e6;
    state.counters["step_frame_field_us"] = all[all.size() / 2] * 1e6;
}
BENCHMARK(resolveByName)->UseManualTime()->Iterations(1000)->Unit(benchmark::kMicrosecond);

} // namespace
