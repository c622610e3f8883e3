#include "platform/model/setC_Set.h"

#include "platform/store/fio_Error.h"

#include <limits>
#include <numeric>

std::string setC_Set::key(int type, const std::string& label)
{
    return (type == nodeSet ? 'N' : type == elementSet ? 'E' : 'S') + label;
}

int setC_Set::typeOfKey(const std::string& key)
{
    if (key.empty()) return -1;
    return key[0] == 'N' ? nodeSet : key[0] == 'E' ? elementSet : key[0] == 'S' ? surface : -1;
}

setC_SubSet setC_Set::SubSet(int index) const
{
    setC_SubSet subset;
    for (int i = 0; i <= index; ++i) {
        if (!subset.isRun()) subset.membersAt += subset.numMembers;
        if (subset.hasFacets) subset.facetsAt += subset.numMembers;
        const int* row = m_subsets.data() + static_cast<std::size_t>(i) * numbers;
        subset.meshIndex = row[0];
        subset.classIndex = row[1];
        subset.subsetType = row[2];
        subset.numMembers = row[3];
        subset.first = row[4];
        subset.hasFacets = row[5] != 0;
    }
    return subset;
}

int setC_Set::numMembers() const
{
    int total = 0;
    for (std::size_t i = 0; i < m_subsets.size(); i += numbers) total += m_subsets[i + 3];
    return total;
}

void setC_Set::members(const setC_SubSet& subset, int* into) const
{
    if (subset.isRun()) {
        for (int i = 0; i < subset.numMembers; ++i) into[i] = subset.first + i;
    } else {
        m_members.read(subset.membersAt, subset.numMembers, into);
    }
}

void setC_Set::facets(const setC_SubSet& subset, int* into) const
{
    m_facets.read(subset.facetsAt, subset.numMembers, into);
}

void setC_Set::append(int meshIndex, int classIndex, int subsetType, const int* members, const int* facets, int count)
{
    bool run = count > 0 && members[0] >= 0;
    for (int i = 1; run && i < count; ++i) run = members[i] == members[0] + i;
    if (facets) m_facets.append(facets, count);
    if (!m_subsets.empty()) {
        // What goes on where the last subset ends joins it, so that a set that grows in many steps stays small.
        int* last = m_subsets.data() + m_subsets.size() - numbers;
        if (last[0] == meshIndex && last[1] == classIndex && last[2] == subsetType &&
            (last[5] != 0) == (facets != nullptr)) {
            const bool goesOn = last[4] >= 0 && run && members[0] == last[4] + last[3];
            if (goesOn || last[4] < 0) {
                if (!goesOn) m_members.append(members, count);
                last[3] += count;
                return;
            }
        }
    }
    const int row[numbers] = {meshIndex, classIndex, subsetType, count, run ? members[0] : -1, facets ? 1 : 0};
    m_subsets.insert(m_subsets.end(), row, row + numbers);
    if (!run) m_members.append(members, count);
}

void setC_Set::appendRun(int meshIndex, int classIndex, int subsetType, int first, int count)
{
    if (!m_subsets.empty()) {
        std::vector<int> members(static_cast<std::size_t>(count));
        std::iota(members.begin(), members.end(), first);
        append(meshIndex, classIndex, subsetType, members.data(), nullptr, count);
        return;
    }
    m_subsets = {meshIndex, classIndex, subsetType, count, first, 0};
}

void setC_Set::clear()
{
    m_subsets.clear();
    m_members.assign(nullptr, 0);
    m_facets.assign(nullptr, 0);
}

void setC_Set::verify(const std::string& path) const
{
    long long total = 0;
    long long members = 0;
    long long facets = 0;
    bool good = m_subsets.size() % numbers == 0;
    for (std::size_t i = 0; good && i < m_subsets.size(); i += numbers) {
        const int* row = m_subsets.data() + i;
        good =
            row[3] >= 0 && row[4] >= -1 && static_cast<long long>(row[4]) + row[3] <= std::numeric_limits<int>::max();
        total += row[3];
        if (row[4] < 0) members += row[3];
        if (row[5] != 0) facets += row[3];
    }
    if (!good || total > std::numeric_limits<int>::max() || members != m_members.size() || facets != m_facets.size()) {
        fio_raise(path, "the members of set \"" + m_label + "\" differ from their count; the file is damaged");
    }
}
