#ifndef YLD_NODE_H
#define YLD_NODE_H

#include "platform/base/bas_Export.h"

class sto_Node;

/// One node, a plain value made on demand; it keeps no link to the mesh.
class YLD_API yld_Node
{
public:
    /// A node of no mesh: index, label and mesh index -1, coordinates 0.
    yld_Node() = default;
    /// @param coordinates  three floats, copied
    yld_Node(int index, int label, int meshIndex, const float* coordinates);
    explicit yld_Node(const sto_Node& node);

    /// The number that the user gave the node.
    int label() const { return m_label; }
    /// x, y, z in model units, borrowed from this value; z is 0 in a plane model.
    const float* coordinates() const { return m_coordinates; }
    float coordinate(int axis) const { return m_coordinates[axis]; }
    /// The zero-based place in the mesh.
    int index() const { return m_index; }
    /// The number of the mesh within the model.
    int meshIndex() const { return m_meshIndex; }

    /// Nodes of no mesh are equal to each other alone; others are equal when label, mesh index and all three
    /// coordinates agree exactly.
    bool operator==(const yld_Node& other) const;
    bool operator!=(const yld_Node& other) const { return !(*this == other); }

private:
    int m_index = -1;
    int m_label = -1;
    int m_meshIndex = -1;
    float m_coordinates[3] = {0.0f, 0.0f, 0.0f};
};

#endif
