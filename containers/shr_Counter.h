#ifndef SHR_COUNTER_H
#define SHR_COUNTER_H

#include "platform/base/bas_Export.h"

#include <cstddef>

/// A reference count of 32 bits, and the allocator from which counters and the blocks of paged arrays come.
/// Counts are plain integers: what is counted together stays within one thread.
class YLD_API shr_Counter
{
public:
    int count = 1;

    static void* operator new(std::size_t bytes);
    static void operator delete(void* block) noexcept;
};

#endif
