#include "yld_SequenceNode.h"

#include "yld/impl/yld_Mesh.h"
#include "yld/impl/yld_MeshInput.h"
#include "yld/impl/yld_Raise.h"

#include <algorithm>

yld_SequenceNode::yld_SequenceNode() : m_mesh(new yld_Mesh) {}

yld_SequenceNode::yld_SequenceNode(const yld_MeshHandle& mesh) : m_wholeMesh(true), m_mesh(mesh) {}

yld_SequenceNode::yld_SequenceNode(const yld_Sequence<int>& indices, const yld_MeshHandle& mesh)
    : m_indices(indices), m_mesh(mesh)
{
}

yld_SequenceNode::yld_SequenceNode(const yld_SequenceNode&) = default;
yld_SequenceNode& yld_SequenceNode::operator=(const yld_SequenceNode&) = default;
yld_SequenceNode::~yld_SequenceNode() = default;

int yld_SequenceNode::size() const { return m_wholeMesh ? m_mesh->numNodes() : m_indices.size(); }

yld_Node yld_SequenceNode::node(unsigned index) const
{
    const char* const outOfRange = "Node index out of range.";
    if (!m_wholeMesh && index >= static_cast<unsigned>(m_indices.size())) yld_raise(outOfRange);
    const int place = static_cast<int>(index);
    return yld_MeshInput::guarded([&] { return m_mesh->nodeAt(m_wholeMesh ? place : m_indices[place]); });
}

yld_String yld_SequenceNode::instanceName() const { return m_mesh->name(); }

void yld_SequenceNode::append(const yld_Node& node)
{
    if (m_mesh->name().empty()) yld_raise("SequenceNode is not associated with an discrete entity.");
    const int place = yld_MeshInput::guarded([&] { return m_mesh->nodeIndexFromLabel(node.label()); });
    if (place < 0) yld_raise("Node index out of range.");
    m_indices.append(place);
}

void yld_SequenceNode::append(const yld_SequenceNode& other)
{
    if (!(m_mesh->name() == other.m_mesh->name())) yld_raise("Cannot Append. Sequence belongs to different part.");
    m_indices.append(other.m_indices);
}

yld_SequenceNode yld_SequenceNode::slice(const int& from, const int& to) const
{
    if (!m_wholeMesh) return yld_SequenceNode(m_indices.slice(std::max(from, 0), to), m_mesh);
    yld_Sequence<int> places;
    for (int i = std::max(from, 0); i < to; ++i) places.append(i);
    return yld_SequenceNode(places, m_mesh);
}

bool yld_SequenceNode::isMember(const yld_Node& wanted) const
{
    const int count = size();
    for (int i = 0; i < count; ++i) {
        if (node(static_cast<unsigned>(i)) == wanted) return true;
    }
    return false;
}

bool yld_SequenceNode::isEqual(const yld_SequenceNode& other) const
{
    if (!(m_mesh->name() == other.m_mesh->name())) return false;
    const int count = size();
    if (count != other.size()) return false;
    for (int i = 0; i < count; ++i) {
        if (node(static_cast<unsigned>(i)) != other.node(static_cast<unsigned>(i))) return false;
    }
    return true;
}
