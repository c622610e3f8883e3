#ifndef SHC_SHAPEDICTIONARY_H
#define SHC_SHAPEDICTIONARY_H

#include "platform/shape/shc_Topology.h"

#include <string_view>

/// Finds the topology of an element type by its label. One dictionary a thread; the topologies are common.
class shc_ShapeDictionary
{
public:
    /// The topology of a type; null for a label that is not known. Labels are compared letter by letter.
    /// The pointer stays good until the process ends. Cost: one comparison when the label is the one asked
    /// for last by this thread, otherwise a binary search over some sixty labels; nothing is allocated.
    static const shc_Topology* GetShape(std::string_view type);
    static const shc_Topology* GetShape(const char* type);

    /// All element types in the order of their labels, for listings.
    static int NumShapes();
    static const shc_Topology& Shape(int index);

private:
    struct Table;

    static const Table& table();

    const shc_Topology* m_last = nullptr;
};

#endif
