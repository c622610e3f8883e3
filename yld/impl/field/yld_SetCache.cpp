#include "yld/impl/field/yld_SetCache.h"

#include "platform/sto/sto_FieldBlock.h"
#include "platform/store/fio_File.h"
#include "yld/impl/base/yld_Raise.h"

#include <algorithm>

namespace {

// A few labels tell sets apart; whether it is the same set is for the members to say.
std::uint64_t hashOf(const sto_Mesh& mesh, int type, const int* labels, int count)
{
    constexpr int samples = 64;
    std::uint64_t hash = static_cast<std::uint64_t>(count) * 4 + static_cast<std::uint64_t>(type);
    const auto mix = [&hash](std::uint64_t part) {
        hash = (hash ^ part) * 0x9e3779b97f4a7c15u;
        hash ^= hash >> 29;
    };
    mix(static_cast<std::uint64_t>(mesh.shortCut().id()));
    const int step = count > samples ? count / samples : 1;
    for (int i = 0; i < count; i += step) mix(static_cast<std::uint32_t>(labels[i]));
    if (count > 0) mix(static_cast<std::uint32_t>(labels[count - 1]));
    return hash;
}

// Whether the set has these labels: each subset a part of them, in their order.
bool holds(const sto_Set& set, const sto_Mesh& mesh, const int* labels, int count)
{
    if (set.numMembers() != count) return false;
    // A set of labels has one group of nodes, and of elements one a class.
    std::vector<sto_Labels> parts;
    for (int i = 0; i < set.numSubsets(); ++i) {
        parts.push_back(sto_FieldBlock(mesh, set, set.subSet(i)).memberLabels());
    }
    if (parts.empty()) return count == 0;
    if (parts.size() == 1) return std::equal(parts[0].begin(), parts[0].end(), labels, labels + count);
    std::vector<int> next(parts.size(), 0);
    std::size_t current = 0;
    for (int i = 0; i < count; ++i) {
        const auto isNext = [&] {
            return next[current] < parts[current].size() && parts[current][next[current]] == labels[i];
        };
        std::size_t tried = 0;
        for (; tried < parts.size() && !isNext(); ++tried) current = (current + 1) % parts.size();
        if (tried == parts.size()) return false;
        ++next[current];
    }
    return true;
}

} // namespace

yld_SetCache& yld_SetCache::instance()
{
    thread_local yld_SetCache cache;
    return cache;
}

sto_Set yld_SetCache::find(std::uint64_t hash, const sto_Mesh& mesh, int type, const int* labels, int count,
                           const std::string& family) const
{
    const auto [begin, end] = m_entries.equal_range(hash);
    for (auto entry = begin; entry != end; ++entry) {
        const Entry& known = entry->second;
        if (known.mesh != mesh.shortCut().id() || known.family != family || known.file.lock() != mesh.modelFile())
            continue;
        const sto_Set set(lnk_ShortCut<setC_Set>(mesh.modelFile(), known.set));
        if (set.setType() == type && holds(set, mesh, labels, count)) return set;
    }
    return {};
}

sto_Set yld_SetCache::get(const sto_Mesh& mesh, int type, const int* labels, int count, const std::string& name,
                          const std::string& nextName, int number)
{
    const std::uint64_t hash = hashOf(mesh, type, labels, count);
    const sto_Set known = find(hash, mesh, type, labels, count, nextName);
    if (known.isValid()) return known;

    const sto_SetList sets = mesh.set();
    std::string free = name;
    while (sets.has(type, free)) {
        free = nextName + std::to_string(number);
        // Sets of other steps are many at times: go on where they may end.
        number = std::max(number + 1, sets.length() - 1);
    }
    sto_Mesh on = mesh;
    sto_Set made;
    if (type == setC_Set::nodeSet) {
        const int bad = on.nodeData().CheckUserNodeLabels(labels, count);
        if (bad < count) yld_raise("Invalid node label %d", labels[bad]);
        made = on.Nset(free, labels, count, true, false);
    } else {
        const int bad = on.elementData().CheckUserElementLabels(labels, count);
        if (bad < count) yld_raise("Invalid element label %d", labels[bad]);
        made = on.Elset(free, labels, count, true);
    }
    // Now and then: files that are closed leave nothing behind.
    if (m_entries.size() % 256 == 0)
        std::erase_if(m_entries, [](const auto& entry) { return entry.second.file.expired(); });
    m_entries.emplace(hash, Entry{mesh.modelFile(), mesh.shortCut().id(), made.shortCut().id(), nextName});
    return made;
}
