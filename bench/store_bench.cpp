// Bulk arrays through the store against read and write of the same bytes.

#include "bench_ratio.h"
#include "platform/store/fio_File.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <string>
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

std::string folder()
{
    static const std::string path = [] {
        std::string pattern = (std::filesystem::temp_directory_path() / "yld-bench-XXXXXX").string();
        if (!mkdtemp(pattern.data())) std::abort();
        std::atexit([] { std::filesystem::remove_all(folder()); });
        return pattern;
    }();
    return path;
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
    const std::string plainPath = folder() + "/plain";
    const std::string path = folder() + "/read.yld";
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
    fio_Buffer into(blockBytes);
    benchRatio(
        state, static_cast<double>(blocks * blockBytes),
        [&] {
            for (std::size_t i = 0; i < blocks; ++i) {
                if (::pread(descriptor, into.writable(), blockBytes, static_cast<off_t>(i * blockBytes)) < 0) {
                    std::abort();
                }
                benchmark::DoNotOptimize(into.data());
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
BENCHMARK(readBlocks)->Args({16 << 20, 512 << 20})->Args({40 << 10, 256 << 20})->Args({1200, 64 << 20})
    ->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

void writeBlocksWithSaves(benchmark::State& state)
{
    const auto blockBytes = static_cast<std::size_t>(state.range(0));
    const int blocks = static_cast<int>(state.range(1));
    const int saves = static_cast<int>(state.range(2));
    const std::string plainPath = folder() + "/plain";
    const std::string path = folder() + "/write.yld";
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
BENCHMARK(writeBlocksWithSaves)->Args({9 << 20, 20, 10})->Args({1200, 20000, 1})
    ->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
