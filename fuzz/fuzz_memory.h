#ifndef FUZZ_MEMORY_H
#define FUZZ_MEMORY_H

#include <atomic>
#include <cstdio>
#include <cstdlib>

// Not every compiler that has the sanitizer has its header.
#if defined(__has_feature) && __has_include(<sanitizer/allocator_interface.h>)
#if __has_feature(address_sanitizer)
#define FUZZ_COUNTS_MEMORY 1
#include <sanitizer/allocator_interface.h>
#endif
#endif

/// Counts what an input has in memory at the most, and ends the process when that is more than it may be. The address
/// sanitizer tells each block that is taken and given back, and leaves out its own; without it nothing is counted.
class FuzzMemory
{
public:
    static constexpr long long most = 256LL << 20;

#if defined(FUZZ_COUNTS_MEMORY)
    FuzzMemory()
    {
        [[maybe_unused]] static const int installed = __sanitizer_install_malloc_and_free_hooks(taken, given);
        s_now = 0;
        s_highest = 0;
    }
    FuzzMemory(const FuzzMemory&) = delete;
    FuzzMemory& operator=(const FuzzMemory&) = delete;
    ~FuzzMemory()
    {
        if (s_highest <= most) return;
        std::fprintf(stderr, "took %lld MB\n", s_highest.load() >> 20);
        std::abort();
    }

private:
    static void taken(const volatile void*, std::size_t bytes)
    {
        const long long now = s_now += static_cast<long long>(bytes);
        if (now > s_highest) s_highest = now;
    }
    static void given(const volatile void* block)
    {
        if (block) s_now -= static_cast<long long>(__sanitizer_get_allocated_size(const_cast<const void*>(block)));
    }

    static inline std::atomic<long long> s_now = 0;
    static inline std::atomic<long long> s_highest = 0;
#else
    FuzzMemory() {}
#endif
};

#endif
