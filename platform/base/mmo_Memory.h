#ifndef MMO_MEMORY_H
#define MMO_MEMORY_H

#include "platform/base/bas_Export.h"

#include <cstddef>

/// The allocator of the containers' tables and counters. A block comes from mmo_Malloc or mmo_Realloc and
/// goes back through mmo_Free or mmo_Realloc. A request that cannot be met raises std::bad_alloc and changes
/// nothing; a request for 0 bytes gives a block that may be freed.
YLD_API void* mmo_Malloc(std::size_t bytes);

/// Changes the size of a block, moving it where needed, and keeps its contents up to the lesser size. A null
/// block counts as a new one. If it raises std::bad_alloc the old block is still whole.
YLD_API void* mmo_Realloc(void* block, std::size_t bytes);

/// A null pointer is allowed.
YLD_API void mmo_Free(void* block) noexcept;

/// Hands memory that is free back to the system, which otherwise keeps counting it as the process's own.
/// Cost: a look at all free blocks; for moments at which much was let go of.
void mmo_GiveBack() noexcept;

#endif
