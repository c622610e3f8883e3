#ifndef COUNTED_MEMORY_H
#define COUNTED_MEMORY_H

/// How often this program has asked for memory on this thread, through new or malloc; -1 where a tool that watches the
/// memory keeps the count to itself.
long long countOfAllocations();

#endif
