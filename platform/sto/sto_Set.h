#ifndef STO_SET_H
#define STO_SET_H

#include "platform/model/setC_Set.h"
#include "platform/store/mrp_Container.h"

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

/// The sets of a mesh or an assembly: first those that users made, then the internal ones, last those that live in
/// memory alone, which are internal too. Going through the list reads no set.
class sto_SetList
{
public:
    sto_SetList() = default;
    sto_SetList(const mrp_Container<setC_Set>& sets, const mrp_Container<setC_Set>& internalSets)
        : m_sets(sets), m_internalSets(internalSets), m_numPublic(sets.size())
    {
    }
    sto_SetList(const mrp_Container<setC_Set>& sets, const mrp_Container<setC_Set>& internalSets,
                std::vector<lnk_AnyShortCut> temporarySets);

    /// @param includeInternal  false leaves the internal sets out
    int length(bool includeInternal = true) const
    {
        return m_numPublic + (includeInternal ? m_internalSets.size() + static_cast<int>(m_temporary.size()) : 0);
    }
    sto_Set get(int index) const;
    /// Label, type and flag of a set, known without reading it. One whose key says nothing has no label and type -1.
    std::string setLabel(int index) const
    {
        const std::string& known = key(index);
        return known.empty() ? known : known.substr(1);
    }
    int setType(int index) const { return setC_Set::typeOfKey(key(index)); }
    bool internalSet(int index) const { return index >= m_numPublic; }

    /// The set of that type and label; no set where there is none.
    sto_Set find(int type, const std::string& label) const;
    /// Whether the file has such a set.
    bool has(int type, const std::string& label) const { return findStored(setC_Set::key(type, label)).isValid(); }
    /// A set in the making. Raises "Duplicate set or surface name %s" for a name that a set of the same type has.
    setC_Set begin(int type, const std::string& name, bool isInternal, bool isUnsorted) const;
    /// The set of that type and label. Raises "Set "%s" does not exist.".
    lnk_ShortCut<setC_Set> require(int type, const std::string& label) const;
    /// Takes a new set in. @return a handle on it
    sto_Set add(const std::shared_ptr<fio_FileBody>& file, setC_Set set);

private:
    struct Temporary
    {
        std::string key;
        lnk_ShortCut<setC_Set> set;
    };
    const std::string& key(int index) const;
    const Temporary* temporary(int index) const;
    lnk_ShortCut<setC_Set> findStored(const std::string& key) const;

    mrp_Container<setC_Set> m_sets;
    mrp_Container<setC_Set> m_internalSets;
    std::vector<Temporary> m_temporary;
    int m_numPublic = 0;
};

/// What a surface is made of: the faces or the edges of elements, by label.
struct sto_SurfaceSubset
{
    int subsetType = setC_SubSet::faces;
    std::vector<int> labels;
    std::vector<int> facets; ///< one a label, counted from 0
};

#endif
