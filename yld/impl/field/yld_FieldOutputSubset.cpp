#include "platform/sto/sto_Assembly.h"
#include "platform/sto/sto_Field.h"
#include "platform/sto/sto_FieldFrame.h"
#include "platform/sto/sto_FieldStep.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld_Element.h"
#include "yld_FieldOutput.h"
#include "yld_Instance.h"
#include "yld_Node.h"
#include "yld_Set.h"

yld_FieldOutput yld_FieldOutput::subsetOf(const yld_SequenceFieldValue& values) const
{
    yld_FieldOutput subset(*this);
    subset.m_values = values;
    subset.refreshLocations();
    subset.m_isOrphan = true;
    subset.narrowTensorType();
    return subset;
}

yld_FieldOutput yld_FieldOutput::getSubset(yld_Enum::yld_ResultPositionEnum position, bool keepInMemory,
                                           bool orientations) const
{
    yld_FieldOutput subset = subsetOf(m_values.getSubset(position));
    const fld_OutputPosition* place = fld_OutputPosition::askedBy(position);
    if (subset.m_values.numBlocks() > 0 || !place || !place->isMovedTo) return subset;
    const yld_SequenceFieldValue source = m_values.getSubset(yld_Enum::INTEGRATION_POINT);
    if (source.numBlocks() == 0) return subset;
    subset.moveToPosition(source, position, keepInMemory || m_isOrphan, orientations);
    subset.narrowTensorType();
    return subset;
}

// The calculator moves values from integration points to another position, and puts the moved blocks, with their keys
// and locations, in the place of this field's.
void yld_FieldOutput::moveToPosition(const yld_SequenceFieldValue& source, yld_Enum::yld_ResultPositionEnum, bool, bool)
{
    yld_raise("The %1$d values of field \"%2$s\" at integration points cannot be moved to another position.",
              source.size(), m_name);
}

yld_FieldOutput yld_FieldOutput::getSubset(const yld_Set& set) const { return subsetOf(m_values.getSubset(set)); }

yld_FieldOutput yld_FieldOutput::getSubset(const yld_Sequence<yld_Sequence<float>>& localCoordSystem) const
{
    return subsetOf(m_values.getSubset(localCoordSystem));
}

yld_FieldOutput yld_FieldOutput::getSubset(const yld_SectionPoint& sectionPoint) const
{
    return subsetOf(m_values.getSubset(sectionPoint));
}

yld_FieldOutput yld_FieldOutput::getSubset(const yld_FieldLocation& location) const
{
    return subsetOf(m_values.getSubset(location));
}

yld_FieldOutput yld_FieldOutput::getSubset(const yld_Node& node) const { return subsetOf(m_values.getSubset(node)); }

yld_FieldOutput yld_FieldOutput::getSubset(const yld_Element& element) const
{
    return subsetOf(m_values.getSubset(element));
}

yld_FieldOutput yld_FieldOutput::getSubset(const yld_Instance& instance) const
{
    return subsetOf(m_values.getSubset(instance));
}

yld_FieldOutput yld_FieldOutput::getSubset(const yld_String& elementType) const
{
    return subsetOf(m_values.getSubset(elementType));
}
