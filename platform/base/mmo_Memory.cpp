#include "platform/base/mmo_Memory.h"

#include <cstdlib>
#include <new>

#ifdef __GLIBC__
#include <malloc.h>
#endif

// The C library may answer a request for no bytes with a null pointer, which would look like a failure.
void* mmo_Malloc(std::size_t bytes)
{
    void* const block = std::malloc(bytes ? bytes : 1);
    if (!block) {
        throw std::bad_alloc();
    }
    return block;
}

void* mmo_Realloc(void* block, std::size_t bytes)
{
    void* const moved = std::realloc(block, bytes ? bytes : 1);
    if (!moved) {
        throw std::bad_alloc();
    }
    return moved;
}

void mmo_Free(void* block) noexcept { std::free(block); }

void mmo_GiveBack() noexcept
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}
