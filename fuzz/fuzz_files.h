#ifndef FUZZ_FILES_H
#define FUZZ_FILES_H

#include "fuzz_memory.h"
#include "fuzz_target.h"
#include "platform/text/exc_Exception.h"
#include "store/mutations.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <unistd.h>

/// What the fuzzers of files have in common.

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* bytes, std::size_t count, std::size_t largest);

/// A file in memory where the machine has such a folder; of this process alone, since fuzzers run side by side.
class FuzzFile
{
public:
    explicit FuzzFile(const char* purpose)
        : m_path(std::string(access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp") + "/yld-fuzz-" + purpose + "-" +
                 std::to_string(getpid()) + ".yld")
    {
    }
    FuzzFile(const FuzzFile&) = delete;
    FuzzFile& operator=(const FuzzFile&) = delete;
    ~FuzzFile() { remove(); }

    const std::string& path() const { return m_path; }
    void put(const std::uint8_t* bytes, std::size_t count) const
    {
        remove();
        putBytes(m_path, std::string(reinterpret_cast<const char*>(bytes), count));
        if (bytesOf(m_path).size() != count) std::abort();
    }

private:
    void remove() const
    {
        for (const char* suffix : {"", "-journal", "-wal", "-shm"}) unlink((m_path + suffix).c_str());
    }

    const std::string m_path;
};

/// Does something to a file whose bytes were put at a path, which ends well or in one exception of ours; anything else
/// ends the process, and so does too much memory.
template<class Action> bool fuzz_dataOrOneException(Action&& action)
{
    const FuzzMemory memory;
    try {
        action();
        return true;
    } catch (const exc_Exception& failure) {
        if (!failure.what() || !*failure.what()) std::abort();
        return false;
    }
}

/// Bytes changed blindly seldom get past the first look at the file, so most changes are made to tables and rows; the
/// rest to bytes, and half of these where a page keeps its kind, its counts and its pointers.
inline std::size_t fuzz_mutateFile(std::uint8_t* bytes, std::size_t count, std::size_t largest, unsigned seed)
{
    static const FuzzFile scratch("mutation");
    const unsigned kind = seed % 16;
    if (kind >= 12) return LLVMFuzzerMutate(bytes, count, largest);
    if (count < 512) return LLVMFuzzerMutate(bytes, count, largest);
    if (kind >= 10) {
        std::size_t page = static_cast<std::size_t>(bytes[16]) << 8 | bytes[17];
        if (page < 512 || page > count) page = 512;
        unsigned chance = seed;
        const auto below = [&chance](std::size_t limit) {
            chance = chance * 1664525u + 1013904223u;
            return (chance >> 8) % limit;
        };
        for (std::size_t left = 1 + below(4); left > 0; --left) {
            const std::size_t at = below(count / page) * page + below(16);
            bytes[at] = static_cast<std::uint8_t>(below(256));
        }
        return count;
    }
    scratch.put(bytes, count);
    Mutation mutation(std::string(reinterpret_cast<const char*>(bytes), count), seed, largest);
    if (kind < 7) {
        mutation.rows(scratch.path());
    } else if (kind < 9) {
        mutation.structure(scratch.path());
    } else {
        mutation.schema(scratch.path());
    }
    const std::string changed = bytesOf(scratch.path());
    if (changed.empty() || changed.size() > largest) return LLVMFuzzerMutate(bytes, count, largest);
    std::memcpy(bytes, changed.data(), changed.size());
    return changed.size();
}

#endif
