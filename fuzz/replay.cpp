// Drives a fuzzer where there is no libFuzzer: shows it the files that are named, and changed ones made from them.
//
//     file_replay [--data] [--mutations N] FILE-OR-FOLDER...
//
// With --data each of the files has to be read to its end.

#include "fuzz_target.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <random>
#include <string>
#include <vector>

using Bytes = std::vector<std::uint8_t>;

namespace {

std::mt19937 chance(1);

std::size_t below(std::size_t limit) { return static_cast<std::size_t>(chance()) % limit; }

Bytes bytesOf(const std::filesystem::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
}

bool show(const Bytes& bytes)
{
    // Exactly as large as its content, so that the sanitizer sees who reads past it.
    const std::unique_ptr<std::uint8_t[]> copy(new std::uint8_t[bytes.size()]);
    std::copy(bytes.begin(), bytes.end(), copy.get());
    LLVMFuzzerTestOneInput(copy.get(), bytes.size());
    return fuzz_gaveData;
}

} // namespace

// The plain changes that libFuzzer offers.
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* bytes, std::size_t count, std::size_t largest)
{
    if (count == 0) {
        if (largest == 0) return 0;
        bytes[0] = static_cast<std::uint8_t>(chance());
        return 1;
    }
    switch (below(4)) {
    case 0:
        bytes[below(count)] ^= static_cast<std::uint8_t>(1u << below(8));
        return count;
    case 1:
        for (int i = 0; i < 4; ++i) bytes[below(count)] = static_cast<std::uint8_t>(chance());
        return count;
    case 2:
        return below(count);
    default:
        if (count == largest) return count;
        const std::size_t at = below(count);
        std::memmove(bytes + at + 1, bytes + at, count - at);
        bytes[at] = static_cast<std::uint8_t>(chance());
        return count + 1;
    }
}

// A fuzzer may know better.
extern "C" __attribute__((weak)) std::size_t LLVMFuzzerCustomMutator(std::uint8_t* bytes, std::size_t count,
                                                                     std::size_t largest, unsigned)
{
    return LLVMFuzzerMutate(bytes, count, largest);
}

int main(int count, char** arguments)
{
    bool demandsData = false;
    int mutations = 0;
    std::vector<std::filesystem::path> files;
    for (int i = 1; i < count; ++i) {
        const std::string argument = arguments[i];
        if (argument == "--data") {
            demandsData = true;
        } else if (argument == "--mutations" && i + 1 < count) {
            mutations = std::atoi(arguments[++i]);
        } else if (std::filesystem::is_directory(argument)) {
            for (const auto& entry : std::filesystem::directory_iterator(argument)) files.push_back(entry.path());
        } else {
            files.push_back(argument);
        }
    }
    std::sort(files.begin(), files.end());
    if (files.empty()) {
        std::fprintf(stderr, "usage: %s [--data] [--mutations N] FILE-OR-FOLDER...\n", arguments[0]);
        return 2;
    }
    int data = 0;
    int refused = 0;
    for (const std::filesystem::path& path : files) {
        if (!std::filesystem::is_regular_file(path)) {
            std::fprintf(stderr, "%s: no file\n", path.c_str());
            return 2;
        }
        const Bytes original = bytesOf(path);
        ++(show(original) ? data : refused);
        if (demandsData && refused > 0) {
            std::fprintf(stderr, "%s: was not read to its end\n", path.c_str());
            return 1;
        }
    }
    std::printf("%zu files: %d gave data, %d were refused\n", files.size(), data, refused);
    data = refused = 0;
    for (const std::filesystem::path& path : files) {
        const Bytes original = bytesOf(path);
        for (int i = 0; i < mutations; ++i) {
            Bytes changed(2 * original.size() + 64);
            std::copy(original.begin(), original.end(), changed.begin());
            changed.resize(LLVMFuzzerCustomMutator(changed.data(), original.size(), changed.size(),
                                                   static_cast<unsigned>(chance())));
            ++(show(changed) ? data : refused);
        }
    }
    std::printf("%d changed ones: %d gave data, %d were refused\n", data + refused, data, refused);
    return 0;
}
