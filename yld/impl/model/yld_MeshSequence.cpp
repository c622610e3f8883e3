#include "yld_MeshSequence.h"

#include "yld/impl/base/yld_Raise.h"
#include "yld/impl/model/yld_Mesh.h"
#include "yld_SequenceElement.h"
#include "yld_SequenceNode.h"

#include <algorithm>

namespace {

// How the mesh gives the items of one kind.
template<class Item> struct Access;

template<> struct Access<yld_Node>
{
    static constexpr const char* outOfRange = "Node index out of range.";
    static constexpr const char* noEntity = "SequenceNode is not associated with an discrete entity.";
    static int count(yld_Mesh& mesh) { return mesh.numNodes(); }
    static yld_Node at(yld_Mesh& mesh, int place) { return mesh.nodeAt(place); }
    static int placeOf(yld_Mesh& mesh, int label)
    {
        const int place = mesh.nodeIndexFromLabel(label);
        if (place < 0) yld_raise(outOfRange);
        return place;
    }
};

template<> struct Access<yld_Element>
{
    static constexpr const char* outOfRange = "Element index out of range.";
    static constexpr const char* noEntity = "SequenceElement is not associated with an discrete entity.";
    static int count(yld_Mesh& mesh) { return mesh.elementCount(false); }
    static yld_Element at(yld_Mesh& mesh, int place) { return mesh.elementAt(place, true); }
    static int placeOf(yld_Mesh& mesh, int label) { return mesh.elementIndexFromLabel(label); }
};

} // namespace

template<class Sequence, class Item> yld_MeshSequence<Sequence, Item>::yld_MeshSequence() : m_mesh(new yld_Mesh) {}

template<class Sequence, class Item>
yld_MeshSequence<Sequence, Item>::yld_MeshSequence(const yld_MeshHandle& mesh) : m_wholeMesh(true), m_mesh(mesh)
{
}

template<class Sequence, class Item>
yld_MeshSequence<Sequence, Item>::yld_MeshSequence(const yld_Sequence<int>& indices, const yld_MeshHandle& mesh)
    : m_indices(indices), m_mesh(mesh)
{
}

// Written out: what is defaulted counts as inline, and stays hidden from clients that inline nothing.
template<class Sequence, class Item>
yld_MeshSequence<Sequence, Item>::yld_MeshSequence(const yld_MeshSequence& other)
    : m_wholeMesh(other.m_wholeMesh), m_indices(other.m_indices), m_mesh(other.m_mesh)
{
}
template<class Sequence, class Item>
yld_MeshSequence<Sequence, Item>& yld_MeshSequence<Sequence, Item>::operator=(const yld_MeshSequence& other)
{
    m_wholeMesh = other.m_wholeMesh;
    m_indices = other.m_indices;
    m_mesh = other.m_mesh;
    return *this;
}
template<class Sequence, class Item> yld_MeshSequence<Sequence, Item>::~yld_MeshSequence() {}

template<class Sequence, class Item> int yld_MeshSequence<Sequence, Item>::size() const
{
    if (!m_wholeMesh) return m_indices.size();
    return yld_guard([this] { return Access<Item>::count(*m_mesh); });
}

template<class Sequence, class Item> Item yld_MeshSequence<Sequence, Item>::get(unsigned index) const
{
    if (!m_wholeMesh && index >= static_cast<unsigned>(m_indices.size())) yld_raise(Access<Item>::outOfRange);
    const int place = static_cast<int>(index);
    return yld_guard([&] { return Access<Item>::at(*m_mesh, m_wholeMesh ? place : m_indices[place]); });
}

template<class Sequence, class Item> yld_String yld_MeshSequence<Sequence, Item>::instanceName() const
{
    return m_mesh->name();
}

template<class Sequence, class Item> void yld_MeshSequence<Sequence, Item>::append(const Item& item)
{
    if (m_mesh->name().empty()) yld_raise(Access<Item>::noEntity);
    m_indices.append(yld_guard([&] { return Access<Item>::placeOf(*m_mesh, item.label()); }));
}

template<class Sequence, class Item> void yld_MeshSequence<Sequence, Item>::append(const Sequence& other)
{
    if (!(m_mesh->name() == other.m_mesh->name())) yld_raise("Cannot Append. Sequence belongs to different part.");
    m_indices.append(other.m_indices);
}

template<class Sequence, class Item>
Sequence yld_MeshSequence<Sequence, Item>::slice(const int& from, const int& to) const
{
    const int end = m_wholeMesh ? to : std::min(to, m_indices.size());
    yld_Sequence<int> places;
    for (int i = std::max(from, 0); i < end; ++i) places.append(m_wholeMesh ? i : m_indices[i]);
    return Sequence(places, m_mesh);
}

template<class Sequence, class Item> bool yld_MeshSequence<Sequence, Item>::isMember(const Item& item) const
{
    const int count = size();
    for (int i = 0; i < count; ++i) {
        if (get(static_cast<unsigned>(i)) == item) return true;
    }
    return false;
}

template<class Sequence, class Item> bool yld_MeshSequence<Sequence, Item>::isEqual(const Sequence& other) const
{
    if (!(m_mesh->name() == other.m_mesh->name())) return false;
    const int count = size();
    if (count != other.size()) return false;
    for (int i = 0; i < count; ++i) {
        if (get(static_cast<unsigned>(i)) != other.get(static_cast<unsigned>(i))) return false;
    }
    return true;
}

template class yld_MeshSequence<yld_SequenceNode, yld_Node>;
template class yld_MeshSequence<yld_SequenceElement, yld_Element>;
