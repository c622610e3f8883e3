#include "platform/text/arc_ArchCompTable.h"

#include <bit>
#include <map>

namespace {

std::map<int, arc_LayoutEntry>& table()
{
    static std::map<int, arc_LayoutEntry> entries;
    return entries;
}

} // namespace

arc_LayoutEntry arc_LayoutEntry::ofThisMachine(const char* name)
{
    arc_LayoutEntry entry;
    entry.name = name;
    entry.littleEndian = std::endian::native == std::endian::little;
    return entry;
}

void arc_ArchCompTable::InsertEntry(int component, const arc_LayoutEntry& entry) { table()[component] = entry; }

const arc_LayoutEntry* arc_ArchCompTable::Find(int component)
{
    const auto found = table().find(component);
    return found == table().end() ? nullptr : &found->second;
}
