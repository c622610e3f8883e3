#ifndef YLD_SECTION_CATEGORY_H
#define YLD_SECTION_CATEGORY_H

#include "platform/base/bas_Export.h"
#include "yld_Repository.h"
#include "yld_Sequence.h"
#include "yld_String.h"

class grd_ElementClass;
class sto_ElementClass;

/// One point through the thickness or profile of a section, at which results are computed.
class YLD_API yld_SectionPoint
{
public:
    /// No section point: number -1, empty description.
    yld_SectionPoint() = default;
    /// @param number       counted from 1
    /// @param description  text of the point, for example "SNEG, (fraction = -1.0)"
    yld_SectionPoint(int number, const yld_String& description);

    int number() const { return m_number; }
    const yld_String& description() const { return m_description; }

    /// Equal numbers and, byte for byte, equal descriptions.
    bool operator==(const yld_SectionPoint& other) const;
    bool operator!=(const yld_SectionPoint& other) const { return !(*this == other); }

private:
    int m_number = -1;
    yld_String m_description;
};

/// What elements have for a cross section: a name, a description, and the section points at which they may have
/// results. A value; elements that are added with a category keep what it says then.
class YLD_API yld_SectionCategory
{
public:
    yld_SectionCategory() = default;
    yld_SectionCategory(const yld_String& name, const yld_String& description);
    /// The category of a stored element class, with the section points that the class has, numbered from 1.
    yld_SectionCategory(const sto_ElementClass& elementClass, const yld_String& description);
    yld_SectionCategory(const grd_ElementClass& elementClass, const yld_String& description);

    const yld_String& name() const { return m_name; }
    const yld_String& description() const { return m_description; }

    /// Appends a section point and returns the new last entry. Neither the number nor duplicates are checked.
    /// The reference holds until the category is next changed or copied.
    yld_SectionPoint& SectionPoint(int number, const yld_String& description);

    /// The point at an index counted from 0. The index is not checked.
    const yld_SectionPoint& sectionPoint(int index) const { return m_sectionPoints[index]; }
    const yld_SectionPoint& sectionPoints(int index) const { return m_sectionPoints[index]; }
    const yld_Sequence<yld_SectionPoint>& sectionPoint() const { return m_sectionPoints; }
    const yld_Sequence<yld_SectionPoint>& sectionPoints() const { return m_sectionPoints; }
    yld_Sequence<yld_SectionPoint>& sectionPoint() { return m_sectionPoints; }
    yld_Sequence<yld_SectionPoint>& sectionPoints() { return m_sectionPoints; }

private:
    yld_String m_name;
    yld_String m_description;
    yld_Sequence<yld_SectionPoint> m_sectionPoints;
};

/// The section categories of a database, by name.
class YLD_API yld_SectionCategoryRepository : public yld_Repository<yld_String, yld_SectionCategory>
{
public:
    /// A new category; or the one that has the name already. The reference is good until a category is added.
    yld_SectionCategory& SectionCategory(const yld_String& name, const yld_String& description);
};

#endif
