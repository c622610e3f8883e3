#include "yld/impl/field/yld_SetCache.h"

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

// The labels of a subset's members, one after the other.
struct Part
{
    const int* labels = nullptr;
    const int* list = nullptr;
    int first = 0;
    int size = 0;
    int limit = 0;
    int at = 0;

    bool isNext(int label) const
    {
        if (at >= size || !labels) return false;
        const int member = list ? list[at] : first + at;
        return member >= 0 && member < limit && labels[member] == label;
    }
    bool isStretchOf(const int* given, int count) const
    {
        return labels && !list && size == count && first >= 0 && first <= limit - count &&
               std::equal(given, given + count, labels + first);
    }
};

// Whether the set has these labels: each subset a part of them, in their order.
bool holds(const sto_Set& set, const sto_Mesh& mesh, const int* labels, int count)
{
    if (set.numMembers() != count) return false;
    std::vector<sto_Subset> subsets;
    std::vector<sto_ElementClass> classes; // hold what the parts point into
    std::vector<Part> parts;
    const sto_NodeData nodes = mesh.nodeData();
    for (int i = 0; i < set.numSubsets(); ++i) {
        subsets.push_back(set.subSet(i));
        const sto_Subset& members = subsets.back();
        Part part;
        part.size = members.numMembers();
        part.first = members.firstMember();
        part.list = members.isRun() ? nullptr : members.memberList();
        if (set.setType() == setC_Set::nodeSet) {
            part.labels = nodes.GetUserNodeLabels();
            part.limit = nodes.NumNodes();
        } else {
            classes.push_back(mesh.elementData().elementClass(members.classIndex()));
            part.labels = classes.back().userElementLabels();
            part.limit = classes.back().numElements();
        }
        parts.push_back(part);
    }
    if (parts.empty()) return count == 0;
    if (parts.size() == 1 && !parts[0].list) return parts[0].isStretchOf(labels, count);
    std::size_t current = 0;
    for (int i = 0; i < count; ++i) {
        std::size_t tried = 0;
        while (tried < parts.size() && !parts[current].isNext(labels[i])) {
            current = (current + 1) % parts.size();
            ++tried;
        }
        if (tried == parts.size()) return false;
        ++parts[current].at;
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
