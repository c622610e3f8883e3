#include "yld_Node.h"

#include "platform/sto/sto_NodeData.h"

yld_Node::yld_Node(int index, int label, int meshIndex, const float* coordinates)
    : m_index(index), m_label(label),
      m_meshIndex(meshIndex), m_coordinates{coordinates[0], coordinates[1], coordinates[2]}
{
}

yld_Node::yld_Node(const sto_Node& node) : yld_Node(node.index(), node.label(), node.meshIndex(), node.coordinates()) {}

bool yld_Node::operator==(const yld_Node& other) const
{
    if (m_meshIndex < 0) return other.m_meshIndex < 0;
    return m_label == other.m_label && m_meshIndex == other.m_meshIndex && m_coordinates[0] == other.m_coordinates[0] &&
           m_coordinates[1] == other.m_coordinates[1] && m_coordinates[2] == other.m_coordinates[2];
}
