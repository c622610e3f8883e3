#ifndef GRD_NODE_DATA_H
#define GRD_NODE_DATA_H

#include "platform/model/grd_LabelList.h"
#include "platform/store/pcl_Persistent.h"

#include <unordered_map>

/// The nodes of a mesh: labels and coordinates. A part and its instances share one.
///
/// The mesh of an assembly can also refer to nodes of part instances. Such foreign nodes have indices of their
/// own, from firstForeignNode on, so that nodes of both kinds can be added in any order.
class grd_NodeData : public pcl_Class<grd_NodeData>
{
public:
    static constexpr const char* className = "grd_NodeData";
    static constexpr unsigned classId = 0x00100002;
    static constexpr int classVersion = 1;
    static constexpr int firstForeignNode = 0x40000000;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("dimension", self.m_dimension);
        grd_LabelList::attributes(self.m_labels, visit);
        visit("coordinates", self.m_coordinates);
        visit("foreign instances", self.m_foreignInstances);
        visit("foreign nodes", self.m_foreignNodes);
    }

    int NumNodes() const { return m_labels.size(); }
    int Dim() const { return m_dimension; }
    /// The position of the first label of a list that does not exist, or the list's length when all exist.
    int CheckUserNodeLabels(const int* labels, int count) const { return m_labels.findAll(labels, count, nullptr); }
    int numForeignNodes() const { return static_cast<int>(m_foreignNodes.size() / 3); }
    /// The index of a foreign node; it is appended if need be.
    /// @param node, label  its index and label in the instance
    int foreignNode(const std::string& instance, int node, int label);
    /// Raises when the parts of the row do not fit each other.
    void verify(const std::string& path) const;

    int m_dimension = 3;
    grd_LabelList m_labels;
    pcl_Array<float> m_coordinates; ///< m_dimension numbers a node
    std::vector<std::string> m_foreignInstances;
    pcl_Array<int> m_foreignNodes; ///< triples: place in m_foreignInstances, index of the node there, its label

private:
    // Places of foreign nodes by instance and node, as far as they have been entered; shared by copies.
    struct ForeignIndex
    {
        std::unordered_map<long long, int> places;
        int entered = 0;
    };
    std::shared_ptr<ForeignIndex> m_foreignIndex;
};

#endif
