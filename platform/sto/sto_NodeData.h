#ifndef STO_NODE_DATA_H
#define STO_NODE_DATA_H

#include "platform/model/grd_NodeData.h"

#include <string>

class sto_Mesh;

/// What a program needs to make the nodes of a mesh: numbers a node, and the precision of each in bits.
struct sto_NodeArg
{
    int dimension = 3;
    int precision = 32;
};

/// The nodes of a stored mesh, as they stood when the handle was taken.
class sto_NodeData
{
public:
    /// No nodes.
    sto_NodeData() = default;
    explicit sto_NodeData(const lnk_ShortCut<grd_NodeData>& reference);

    bool isValid() const { return m_data != nullptr; }
    int NumNodes() const { return m_data ? m_data->NumNodes() : 0; }
    /// 2 or 3.
    int Dim() const { return m_data ? m_data->Dim() : 3; }
    /// All labels, by index; null for no nodes. Borrowed until the mesh is changed or saved.
    const int* GetUserNodeLabels() const { return m_data ? m_data->m_labels.data() : nullptr; }
    /// The same array, to be held on to.
    const pcl_Array<int>& labels() const { return m_data->m_labels.array(); }
    /// The label of one node, also of a foreign one. Raises for an index that no node has.
    int GetUserNodeLabel(int index) const;
    /// The same; the label is kept with this mesh, so the mesh is not looked at.
    int GetUserNodeLabel(int index, const sto_Mesh&) const { return GetUserNodeLabel(index); }
    /// The index of a label, or -1. @param hint  where to look first
    int GetNodeIndexFromLabel(int label, int hint = 0) const
    {
        return m_data ? m_data->m_labels.find(label, hint) : -1;
    }
    /// The position of the first label of a list that does not exist, or the list's length when all exist.
    int CheckUserNodeLabels(const int* labels, int count) const
    {
        return m_data ? m_data->CheckUserNodeLabels(labels, count) : 0;
    }
    /// The indices of labels; a list in the order of the mesh costs one pass.
    /// @param indices  room for `count` numbers
    /// @return as CheckUserNodeLabels
    int GetNodeIndices(const int* labels, int count, int* indices) const
    {
        return m_data ? m_data->m_labels.findAll(labels, count, indices) : 0;
    }
    /// Dim() coordinates of one node as the mesh keeps them, unmoved; the index is not checked.
    void GetNodalCoord(int index, float* coordinates) const;

    const std::shared_ptr<const grd_NodeData>& data() const { return m_data; }

private:
    std::shared_ptr<const grd_NodeData> m_data;
};

/// One node as the store gives it.
class sto_Node
{
public:
    sto_Node(int index, int label, int meshIndex, const float* coordinates)
        : m_index(index), m_label(label),
          m_meshIndex(meshIndex), m_coordinates{coordinates[0], coordinates[1], coordinates[2]}
    {
    }

    int index() const { return m_index; }
    int label() const { return m_label; }
    int meshIndex() const { return m_meshIndex; }
    const float* coordinates() const { return m_coordinates; }

private:
    int m_index;
    int m_label;
    int m_meshIndex;
    float m_coordinates[3];
};

#endif
