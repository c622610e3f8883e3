#ifndef YLD_SEQUENCE_NODE_H
#define YLD_SEQUENCE_NODE_H

#include "yld_MeshSequence.h"
#include "yld_Node.h"

class yld_SequenceNode;
extern template class yld_MeshSequence<yld_SequenceNode, yld_Node>;

/// All nodes of a mesh, or a chosen list of them.
class YLD_API yld_SequenceNode : public yld_MeshSequence<yld_SequenceNode, yld_Node>
{
public:
    /// No nodes, on an empty mesh of its own.
    yld_SequenceNode() = default;
    /// Every node of the mesh.
    explicit yld_SequenceNode(const yld_MeshHandle& mesh) : yld_MeshSequence(mesh) {}
    /// @param indices  places in the mesh, counted from 0
    yld_SequenceNode(const yld_Sequence<int>& indices, const yld_MeshHandle& mesh) : yld_MeshSequence(indices, mesh) {}

    /// As get().
    yld_Node node(unsigned index) const { return get(index); }
};

#endif
