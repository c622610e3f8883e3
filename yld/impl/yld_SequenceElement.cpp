#include "yld_SequenceElement.h"

#include "yld/impl/yld_Mesh.h"
#include "yld/impl/yld_MeshInput.h"
#include "yld/impl/yld_Raise.h"

#include <algorithm>

yld_SequenceElement::yld_SequenceElement() : m_mesh(new yld_Mesh) {}

yld_SequenceElement::yld_SequenceElement(const yld_MeshHandle& mesh) : m_wholeMesh(true), m_mesh(mesh) {}

yld_SequenceElement::yld_SequenceElement(const yld_Sequence<int>& indices, const yld_MeshHandle& mesh)
    : m_indices(indices), m_mesh(mesh)
{
}

yld_SequenceElement::yld_SequenceElement(const yld_SequenceElement&) = default;
yld_SequenceElement& yld_SequenceElement::operator=(const yld_SequenceElement&) = default;
yld_SequenceElement::~yld_SequenceElement() = default;

int yld_SequenceElement::size() const { return m_wholeMesh ? m_mesh->elementCount(false) : m_indices.size(); }

yld_Element yld_SequenceElement::element(unsigned index) const
{
    const char* const outOfRange = "Element index out of range.";
    if (!m_wholeMesh && index >= static_cast<unsigned>(m_indices.size())) yld_raise(outOfRange);
    const int place = static_cast<int>(index);
    return yld_MeshInput::guarded([&] { return m_mesh->elementAt(m_wholeMesh ? place : m_indices[place], true); });
}

yld_String yld_SequenceElement::instanceName() const { return m_mesh->name(); }

void yld_SequenceElement::append(const yld_Element& element)
{
    if (m_mesh->name().empty()) yld_raise("SequenceElement is not associated with an discrete entity.");
    m_indices.append(yld_MeshInput::guarded([&] { return m_mesh->elementIndexFromLabel(element.label()); }));
}

void yld_SequenceElement::append(const yld_SequenceElement& other)
{
    if (!(m_mesh->name() == other.m_mesh->name())) yld_raise("Cannot Append. Sequence belongs to different part.");
    m_indices.append(other.m_indices);
}

yld_SequenceElement yld_SequenceElement::slice(const int& from, const int& to) const
{
    if (!m_wholeMesh) return yld_SequenceElement(m_indices.slice(std::max(from, 0), to), m_mesh);
    yld_Sequence<int> places;
    for (int i = std::max(from, 0); i < to; ++i) places.append(i);
    return yld_SequenceElement(places, m_mesh);
}

bool yld_SequenceElement::isMember(const yld_Element& wanted) const
{
    const int count = size();
    for (int i = 0; i < count; ++i) {
        if (element(static_cast<unsigned>(i)) == wanted) return true;
    }
    return false;
}

bool yld_SequenceElement::isEqual(const yld_SequenceElement& other) const
{
    if (!(m_mesh->name() == other.m_mesh->name())) return false;
    const int count = size();
    if (count != other.size()) return false;
    for (int i = 0; i < count; ++i) {
        if (element(static_cast<unsigned>(i)) != other.element(static_cast<unsigned>(i))) return false;
    }
    return true;
}
