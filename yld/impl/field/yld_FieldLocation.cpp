#include "yld_FieldLocation.h"

#include "platform/sto/sto_FieldDescription.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld_EnumMap.h"

yld_FieldLocation::yld_FieldLocation(yld_Enum::yld_ResultPositionEnum position) : m_position(position) {}

yld_FieldLocation::yld_FieldLocation(yld_Enum::yld_ResultPositionEnum position, const yld_SectionPoint& sectionPoint)
    : m_position(position)
{
    add(sectionPoint);
}

yld_FieldLocation::yld_FieldLocation(yld_Enum::yld_ResultPositionEnum position,
                                     const yld_Sequence<yld_SectionPoint>& sectionPoints)
    : m_position(position)
{
    for (int i = 0; i < sectionPoints.size(); ++i) add(sectionPoints[i]);
}

yld_FieldLocation::yld_FieldLocation(const sto_FieldDescription& description)
    : m_position(mapOutputPosition(description.position()))
{
    const int index = description.locationIndex();
    if (index >= 0) add(yld_SectionPoint(index + 1, description.sectionPointLabel()));
}

yld_FieldLocation::yld_FieldLocation(const fld_FieldDescription& description)
    : m_position(mapOutputPosition(description.position()))
{
    if (description.m_locationIndex >= 0) {
        add(yld_SectionPoint(description.m_locationIndex + 1, sto_FieldDescription::sectionPointLabel(description)));
    }
}

void yld_FieldLocation::add(const yld_SectionPoint& sectionPoint)
{
    if (sectionPoint.number() <= 0 || m_sectionPoints.isMember(sectionPoint)) return;
    m_sectionPoints.append(sectionPoint);
}

bool yld_FieldLocation::operator==(const yld_FieldLocation& other) const
{
    return m_position == other.m_position && m_sectionPoints.isEqual(other.m_sectionPoints);
}

const yld_FieldLocation& yld_SequenceFieldLocation::constGet(int index) const
{
    // An index equal to the count passes: callers rely on it, and get an empty location.
    if (index > m_locations.size()) yld_raise("Index out of range.");
    static const yld_FieldLocation nowhere;
    return index >= 0 && index < m_locations.size() ? m_locations[index] : nowhere;
}

yld_FieldLocation& yld_SequenceFieldLocation::get(int index)
{
    if (index > m_locations.size()) yld_raise("Index out of range.");
    return m_locations.get(index);
}

yld_FieldLocation* yld_SequenceFieldLocation::find(yld_Enum::yld_ResultPositionEnum position)
{
    for (int i = 0; i < m_locations.size(); ++i) {
        if (m_locations[i].position() == position) return &m_locations.get(i);
    }
    return nullptr;
}

void yld_SequenceFieldLocation::append(const yld_FieldLocation& location)
{
    if (location.sectionPoints().isEmpty()) append(location.position());
    else append(location.position(), location.sectionPoints());
}

void yld_SequenceFieldLocation::append(yld_Enum::yld_ResultPositionEnum position)
{
    if (!find(position)) m_locations.append(yld_FieldLocation(position));
}

void yld_SequenceFieldLocation::append(yld_Enum::yld_ResultPositionEnum position, const yld_SectionPoint& sectionPoint)
{
    if (yld_FieldLocation* present = find(position)) present->add(sectionPoint);
    else m_locations.append(yld_FieldLocation(position, sectionPoint));
}

void yld_SequenceFieldLocation::append(yld_Enum::yld_ResultPositionEnum position,
                                       const yld_Sequence<yld_SectionPoint>& sectionPoints)
{
    if (yld_FieldLocation* present = find(position)) {
        for (int i = 0; i < sectionPoints.size(); ++i) present->add(sectionPoints[i]);
    } else {
        m_locations.append(yld_FieldLocation(position, sectionPoints));
    }
}

void yld_SequenceFieldLocation::append(const yld_SequenceFieldLocation& other)
{
    const yld_SequenceFieldLocation kept(other); // it may be this one
    for (int i = 0; i < kept.size(); ++i) append(kept.m_locations[i]);
}

bool yld_SequenceFieldLocation::isMember(const yld_FieldLocation& location) const
{
    return m_locations.isMember(location);
}
