#ifndef ARC_ARCHCOMPTABLE_H
#define ARC_ARCHCOMPTABLE_H

#include <cstddef>

/// How a component's data lie in memory on the machine that runs it.
struct arc_LayoutEntry
{
    const char* name = ""; ///< the component's prefix; static
    bool littleEndian = true;
    std::size_t pointerSize = sizeof(void*);
    std::size_t longSize = sizeof(long);
    std::size_t doubleAlignment = alignof(double);

    /// The entry of a component that was compiled for this machine.
    static arc_LayoutEntry ofThisMachine(const char* name);
};

/// The layout entries of the components in use, by component number.
class arc_ArchCompTable
{
public:
    /// Enters a component, or replaces its entry.
    static void InsertEntry(int component, const arc_LayoutEntry& entry);
    /// The entry, good until it is replaced; null if the component is not entered.
    static const arc_LayoutEntry* Find(int component);
};

#endif
