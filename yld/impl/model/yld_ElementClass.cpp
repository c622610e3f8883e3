#include "yld_ElementClass.h"

#include "platform/sto/sto_ElementClass.h"

yld_ElementClass::yld_ElementClass() = default;

yld_ElementClass::yld_ElementClass(const sto_ElementClass& elementClass, int classIndex)
    : m_class(new sto_ElementClass(elementClass)), m_classIndex(classIndex)
{
}

yld_ElementClass::yld_ElementClass(const yld_ElementClass&) = default;
yld_ElementClass& yld_ElementClass::operator=(const yld_ElementClass&) = default;
yld_ElementClass::~yld_ElementClass() = default;

yld_String yld_ElementClass::typeLabel() const
{
    return m_class.IsNull() ? yld_String() : yld_String(m_class->typeLabel().c_str());
}

yld_String yld_ElementClass::categoryLabel() const
{
    return m_class.IsNull() ? yld_String() : yld_String(m_class->categoryLabel().c_str());
}

int yld_ElementClass::numElements() const { return m_class.IsNull() ? 0 : m_class->numElements(); }

int yld_ElementClass::numNodesPerElement() const { return m_class.IsNull() ? 0 : m_class->numNodesPerElement(); }

int yld_ElementClass::numIntegrationPointsPerElement() const
{
    return m_class.IsNull() ? 0 : m_class->numIntegrationPointsPerElement();
}

int yld_ElementClass::numFacesPerElement() const { return m_class.IsNull() ? 0 : m_class->numFacesPerElement(); }

int yld_ElementClass::maxIntegrationPointsPerFace() const
{
    return m_class.IsNull() ? 0 : m_class->maxIntegrationPointsPerFace();
}

bool yld_ElementClass::operator==(const yld_ElementClass& other) const
{
    if (m_classIndex != other.m_classIndex) return false;
    if (m_class.IsNull() || other.m_class.IsNull()) return m_class.IsNull() && other.m_class.IsNull();
    return m_class->shortCut() == other.m_class->shortCut();
}
