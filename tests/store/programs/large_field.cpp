// A field of 4 GiB in 256 arrays of 16 MiB goes to disk as it comes and is read back in parts, in little memory.
//
//     large_field [FOLDER]

#include "measured_child.h"
#include "platform/store/fio_File.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr long long blockBytes = 16LL << 20;
constexpr long long valuesInBlock = blockBytes / static_cast<long long>(sizeof(float));
constexpr int allBlocks = 256;

class large_Block : public pcl_Class<large_Block>
{
public:
    static constexpr const char* className = "large_Block";
    static constexpr unsigned classId = 0x7f000040;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("number", self.m_number);
        visit("values", self.m_values);
    }

    int m_number = 0;
    pcl_Array<float> m_values;
};

class large_Field : public pcl_Class<large_Field>
{
public:
    static constexpr const char* className = "large_Field";
    static constexpr unsigned classId = 0x7f000041;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit) { visit("blocks", self.m_blocks); }

    mrp_Container<large_Block> m_blocks;
};

// Exact in a float, and different in every block.
float valueAt(int block, long long i) { return static_cast<float>((i * 31 + block * 7919LL) & 0xffffff); }

void writeField(const std::string& path, int blocks)
{
    const fio_File file = fio_File::Create(path.c_str());
    large_Field field;
    field.m_blocks = mrp_Container<large_Block>::create(file.body());
    for (int b = 0; b < blocks; ++b) {
        fio_Buffer values(static_cast<std::size_t>(blockBytes));
        auto* into = reinterpret_cast<float*>(values.writable());
        for (long long i = 0; i < valuesInBlock; ++i) into[i] = valueAt(b, i);
        large_Block block;
        block.m_number = b;
        block.m_values.adopt(values);
        block.m_values.toDisk(file.body());
        field.m_blocks.append(std::to_string(b), lnk_ShortCut<large_Block>::create(file.body(), block));
    }
    file.body()->setRootObject(lnk_ShortCut<large_Field>::create(file.body(), field).id());
    file.body()->save();
}

void readField(const std::string& path, int blocks)
{
    const fio_File file = fio_File::Open(path.c_str(), false, true);
    const auto field = lnk_ShortCut<large_Field>(file.body(), file.body()->rootObject()).fetch();
    demand(field->m_blocks.size() == blocks, "the field has another number of blocks");
    std::vector<float> part(100000);
    for (int b = 0; b < blocks; ++b) {
        const auto ref = field->m_blocks.at(b);
        {
            const auto block = ref.fetch();
            demand(block->m_number == b && block->m_values.size() == valuesInBlock,
                   "a block is not the one that was written");
            if (b % 2 == 0) { // whole, and given back
                const float* values = block->m_values.data();
                for (long long i = 0; i < valuesInBlock; ++i) {
                    demand(values[i] == valueAt(b, i), "a value differs");
                }
            } else { // in parts, without the rest
                for (long long from = 0; from < valuesInBlock; from += static_cast<long long>(part.size())) {
                    const long long count = std::min(static_cast<long long>(part.size()), valuesInBlock - from);
                    block->m_values.read(from, count, part.data());
                    for (long long i = 0; i < count; ++i) {
                        demand(part[static_cast<std::size_t>(i)] == valueAt(b, from + i), "a value differs");
                    }
                }
            }
        }
        file.body()->release(ref.id());
    }
}

} // namespace

int main(int count, char** arguments)
{
    const std::filesystem::path parent =
        count > 1 ? std::filesystem::path(arguments[1]) : std::filesystem::temp_directory_path();
    std::string folder = (parent / "yld-large-XXXXXX").string();
    if (!mkdtemp(folder.data())) {
        std::fprintf(stderr, "%s: %s\n", folder.c_str(), std::strerror(errno));
        return 2;
    }
    int blocks = allBlocks;
    const auto free = std::filesystem::space(folder).available;
    if (free < (12ull << 30)) {
        blocks = static_cast<int>(free / 3 / static_cast<unsigned long long>(blockBytes));
        std::printf("only %llu MB are free: the field is scaled down to %d blocks of 16 MiB\n",
                    static_cast<unsigned long long>(free >> 20), blocks);
    }
    const std::string path = folder + "/large.yld";
    const auto start = std::chrono::steady_clock::now();
    const bool good = blocks > 0 && inChild("write", [&] { writeField(path, blocks); }) &&
                      inChild("read", [&] { readField(path, blocks); });
    const double seconds = secondsSince(start);
    std::printf("%d blocks of 16 MiB, %.1f s in all\n", blocks, seconds);
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
    if (!good) return 1;
    return 0;
}
