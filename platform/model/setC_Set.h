#ifndef SETC_SET_H
#define SETC_SET_H

#include "platform/store/pcl_Persistent.h"

#include <vector>

/// One group of members of a set: those of one mesh and one class.
struct setC_SubSet
{
    // Stored: never renumber.
    static constexpr int faces = 4;
    static constexpr int edges = 5;
    static constexpr int nodes = 6;
    static constexpr int elements = 7;

    int meshIndex = -1;
    int classIndex = -1; ///< -1: the members are indices in the mesh
    int subsetType = nodes;
    int numMembers = 0;
    int first = -1; ///< of a run of consecutive members; -1 when they stand in the member list
    bool hasFacets = false;
    long long membersAt = 0; ///< where they begin in the member list
    long long facetsAt = 0;  ///< where their facets begin in the facet list

    bool isRun() const { return first >= 0; }
};

/// A node set, an element set or a surface. What the row holds tells everything but the members themselves.
class setC_Set : public pcl_Class<setC_Set>
{
public:
    static constexpr const char* className = "setC_Set";
    static constexpr unsigned classId = 0x00100008;
    static constexpr int classVersion = 1;
    // Stored: never renumber.
    static constexpr int nodeSet = 0;
    static constexpr int elementSet = 1;
    static constexpr int surface = 2;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("label", self.m_label);
        visit("type", self.m_type);
        visit("internal", self.m_internal);
        visit("unsorted", self.m_unsorted);
        visit("subsets", self.m_subsets);
        visit("members", self.m_members);
        visit("facets", self.m_facets);
    }

    /// The key of a set in its container.
    static std::string key(int type, const std::string& label);
    static int typeOfKey(const std::string& key);

    int numSubsets() const { return static_cast<int>(m_subsets.size() / numbers); }
    setC_SubSet SubSet(int index) const;
    /// All members of all subsets.
    int numMembers() const;
    /// Copies the members of a subset out; the rest stays unread.
    void members(const setC_SubSet& subset, int* into) const;
    void facets(const setC_SubSet& subset, int* into) const;

    /// Appends a subset; members that are consecutive numbers are kept as a run.
    /// @param facets  one a member, or null
    void append(int meshIndex, int classIndex, int subsetType, const int* members, const int* facets, int count);
    /// Appends consecutive members without a list of them.
    void appendRun(int meshIndex, int classIndex, int subsetType, int first, int count);
    /// Takes all subsets away.
    void clear();
    /// Raises when the parts of the row do not fit each other.
    void verify(const std::string& path) const;

    std::string m_label;
    int m_type = nodeSet;
    bool m_internal = false;
    bool m_unsorted = false;
    std::vector<int> m_subsets; ///< a few numbers a subset, see append()
    pcl_Array<int> m_members;
    pcl_Array<int> m_facets;

private:
    static constexpr int numbers = 6;
};

#endif
