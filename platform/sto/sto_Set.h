#ifndef STO_SET_H
#define STO_SET_H

#include "platform/model/setC_Set.h"
#include "platform/store/lnk_ShortCut.h"

#include <string>
#include <vector>

/// One group of a set's members: those of one mesh and one class.
class sto_Subset
{
public:
    sto_Subset(const std::shared_ptr<const setC_Set>& set, const setC_SubSet& row) : m_set(set), m_row(row) {}

    int meshIndex() const { return m_row.meshIndex; }
    /// The class that the members count in; negative when they are indices in the mesh.
    int classIndex() const { return m_row.classIndex; }
    /// One of setC_SubSet's numbers: 4 element faces, 5 edges, 6 nodes, 7 elements.
    int subsetType() const { return m_row.subsetType; }
    int numMembers() const { return m_row.numMembers; }
    /// Whether the members are firstMember(), firstMember() + 1, and so on; then no list of them exists.
    bool isRun() const { return m_row.isRun(); }
    int firstMember() const { return m_row.first; }
    /// The list of members; null for a run. The first call reads the members of the whole set, which then stay in
    /// memory; borrowed until the set is changed or the database saved.
    const int* memberList() const;
    /// Copies the members, of a run too, and leaves nothing behind in memory.
    std::vector<int> members() const;
    bool hasFacets() const { return m_row.hasFacets; }
    /// The facet of each member, counted from 0; empty when there are none.
    std::vector<int> facets() const;

private:
    std::shared_ptr<const setC_Set> m_set;
    setC_SubSet m_row;
};

/// A handle on a stored set. What it tells is up to date with every call, and but for members comes from the set's
/// row alone.
class sto_Set
{
public:
    /// No set.
    sto_Set() = default;
    explicit sto_Set(const lnk_ShortCut<setC_Set>& reference) : m_reference(reference) {}

    bool isValid() const { return m_reference.isValid(); }
    std::string setLabel() const { return set()->m_label; }
    /// 0 nodes, 1 elements, 2 surface.
    int setType() const { return set()->m_type; }
    bool internalSet() const { return set()->m_internal; }
    bool unsortedSet() const { return set()->m_unsorted; }
    int numSubsets() const { return set()->numSubsets(); }
    sto_Subset subSet(int index) const;
    /// Over all subsets.
    int numMembers() const { return set()->numMembers(); }

    std::shared_ptr<const setC_Set> set() const;
    /// Stands for the set for good, whatever its members become.
    const lnk_ShortCut<setC_Set>& shortCut() const { return m_reference; }

private:
    lnk_ShortCut<setC_Set> m_reference;
};

/// What a surface is made of: the faces or the edges of elements, by label.
struct sto_SurfaceSubset
{
    int subsetType = setC_SubSet::faces;
    std::vector<int> labels;
    std::vector<int> facets; ///< one a label, counted from 0
};

#endif
