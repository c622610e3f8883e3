#ifndef YLD_FIELD_LOCATION_H
#define YLD_FIELD_LOCATION_H

#include "platform/base/bas_Export.h"
#include "yld_Enum.h"
#include "yld_SectionCategory.h"
#include "yld_Sequence.h"

class fld_FieldDescription;
class sto_FieldDescription;

/// One position at which a field has values, nodes or integration points for example, with the section points that
/// occur there. A value.
class YLD_API yld_FieldLocation
{
public:
    yld_FieldLocation() = default;
    explicit yld_FieldLocation(yld_Enum::yld_ResultPositionEnum position);
    yld_FieldLocation(yld_Enum::yld_ResultPositionEnum position, const yld_SectionPoint& sectionPoint);
    yld_FieldLocation(yld_Enum::yld_ResultPositionEnum position, const yld_Sequence<yld_SectionPoint>& sectionPoints);
    explicit yld_FieldLocation(const sto_FieldDescription& description);
    explicit yld_FieldLocation(const fld_FieldDescription& description);

    yld_Enum::yld_ResultPositionEnum position() const { return m_position; }
    const yld_Sequence<yld_SectionPoint>& sectionPoint() const { return m_sectionPoints; }
    const yld_Sequence<yld_SectionPoint>& sectionPoints() const { return m_sectionPoints; }
    const yld_SectionPoint& sectionPoint(int index) const { return m_sectionPoints[index]; }
    const yld_SectionPoint& sectionPoints(int index) const { return m_sectionPoints[index]; }

    /// Adds a section point. One that is there already, or whose number is below 1, is left out.
    void add(const yld_SectionPoint& sectionPoint);

    /// Equal positions, and section points equal one by one.
    bool operator==(const yld_FieldLocation& other) const;
    bool operator!=(const yld_FieldLocation& other) const { return !(*this == other); }

private:
    yld_Enum::yld_ResultPositionEnum m_position = yld_Enum::UNDEFINED_POSITION;
    yld_Sequence<yld_SectionPoint> m_sectionPoints;
};

/// The positions of a field, each at most once.
class YLD_API yld_SequenceFieldLocation
{
public:
    int size() const { return m_locations.size(); }
    /// Raises "Index out of range." for an index greater than the count; an index equal to the count is not caught.
    const yld_FieldLocation& constGet(int index) const;
    yld_FieldLocation& get(int index);
    const yld_FieldLocation& operator[](int index) const { return constGet(index); }

    /// Add a position; one that is there gets the new section points besides those that it has.
    void append(const yld_FieldLocation& location);
    void append(yld_Enum::yld_ResultPositionEnum position);
    void append(yld_Enum::yld_ResultPositionEnum position, const yld_SectionPoint& sectionPoint);
    void append(yld_Enum::yld_ResultPositionEnum position, const yld_Sequence<yld_SectionPoint>& sectionPoints);
    void append(const yld_SequenceFieldLocation& other);
    /// Whether one of the positions equals this one, section points included.
    bool isMember(const yld_FieldLocation& location) const;
    void clearAll() { m_locations.clearAll(); }

private:
    yld_FieldLocation* find(yld_Enum::yld_ResultPositionEnum position);

    yld_Sequence<yld_FieldLocation> m_locations;
};

#endif
