#ifndef YLD_SEQUENCE_NODE_H
#define YLD_SEQUENCE_NODE_H

#include "yld_Node.h"
#include "yld_MeshList.h"
#include "yld_Sequence.h"

/// All nodes of a mesh, or a chosen list of them. Holds indices at most, never the nodes themselves: each access
/// builds its node from the mesh. Reading moves the mesh's cursor, so a sequence is for one thread.
class YLD_API yld_SequenceNode
{
public:
    /// No nodes, on an empty mesh of its own.
    yld_SequenceNode();
    /// Every node of the mesh.
    explicit yld_SequenceNode(const yld_MeshHandle& mesh);
    /// @param indices  places in the mesh, counted from 0
    yld_SequenceNode(const yld_Sequence<int>& indices, const yld_MeshHandle& mesh);
    yld_SequenceNode(const yld_SequenceNode&);
    yld_SequenceNode& operator=(const yld_SequenceNode&);
    ~yld_SequenceNode();

    int size() const;
    /// Raises "Node index out of range." where the mesh has no such node.
    yld_Node node(unsigned index) const;
    yld_Node operator[](unsigned index) const { return node(index); }
    yld_Node get(unsigned index) const { return node(index); }
    yld_Node constGet(unsigned index) const { return node(index); }
    /// The name of the mesh: of its part or instance, or "rootAssembly".
    yld_String instanceName() const;

    /// Appends this mesh's node of the argument's label.
    /// Raises "SequenceNode is not associated with an discrete entity." on a mesh without a name.
    void append(const yld_Node& node);
    /// Appends the chosen indices of a sequence of the same mesh; a whole-mesh sequence has none to append.
    /// Raises "Cannot Append. Sequence belongs to different part.".
    void append(const yld_SequenceNode& other);
    /// The places from `from` up to but excluding `to`, on the same mesh.
    yld_SequenceNode slice(const int& from, const int& to) const;
    /// Linear: builds the nodes one by one.
    bool isMember(const yld_Node& node) const;
    bool isEqual(const yld_SequenceNode& other) const;
    bool operator==(const yld_SequenceNode& other) const { return isEqual(other); }

    const yld_MeshHandle& mesh() const { return m_mesh; }
    bool isWholeMesh() const { return m_wholeMesh; }
    const yld_Sequence<int>& indices() const { return m_indices; }

private:
    bool m_wholeMesh = false;
    yld_Sequence<int> m_indices;
    yld_MeshHandle m_mesh;
};

#endif
