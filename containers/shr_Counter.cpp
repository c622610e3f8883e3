#include "containers/shr_Counter.h"

#include "platform/base/mmo_Memory.h"

static_assert(sizeof(shr_Counter) == 4, "a counter is one 32-bit integer");

void* shr_Counter::operator new(std::size_t bytes) { return mmo_Malloc(bytes); }

void shr_Counter::operator delete(void* block) noexcept { mmo_Free(block); }
