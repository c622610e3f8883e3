#include "yld_SectionCategory.h"

#include "platform/sto/sto_ElementClass.h"

yld_SectionPoint::yld_SectionPoint(int number, const yld_String& description)
    : m_number(number), m_description(description)
{
}

bool yld_SectionPoint::operator==(const yld_SectionPoint& other) const
{
    return m_number == other.m_number && m_description == other.m_description;
}

yld_SectionCategory::yld_SectionCategory(const yld_String& name, const yld_String& description)
    : m_name(name), m_description(description)
{
}

yld_SectionCategory::yld_SectionCategory(const sto_ElementClass& elementClass, const yld_String& description)
    : m_name(elementClass.categoryLabel().c_str()), m_description(description)
{
    for (int i = 0; i < elementClass.numLocation(); ++i) {
        m_sectionPoints.append(yld_SectionPoint(i + 1, yld_String(elementClass.sectionPointLabel(i).c_str())));
    }
}

yld_SectionCategory::yld_SectionCategory(const grd_ElementClass& elementClass, const yld_String& description)
    : m_name(elementClass.m_category.c_str()), m_description(description)
{
    for (int i = 0; i < elementClass.NumSectionPoints(); ++i) {
        m_sectionPoints.append(yld_SectionPoint(i + 1, yld_String(elementClass.SectionPointLabel(i).c_str())));
    }
}

yld_SectionPoint& yld_SectionCategory::SectionPoint(int number, const yld_String& description)
{
    m_sectionPoints.append(yld_SectionPoint(number, description));
    return m_sectionPoints.get(m_sectionPoints.size() - 1);
}

yld_SectionCategory& yld_SectionCategoryRepository::SectionCategory(const yld_String& name,
                                                                    const yld_String& description)
{
    insert(name, yld_SectionCategory(name, description));
    return get(name);
}
