#include "platform/sto/sto_Assembly.h"
#include "platform/sto/sto_Field.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld/impl/field/yld_FieldValueList.h"
#include "yld_Element.h"
#include "yld_FieldLocation.h"
#include "yld_Instance.h"
#include "yld_Node.h"
#include "yld_SequenceFieldValue.h"
#include "yld_Set.h"

template<class Keeps> yld_SequenceFieldValue yld_SequenceFieldValue::filtered(Keeps keeps) const
{
    yld_SequenceFieldValue subset;
    yld_guard([&] {
        for (const yld_SubField& block : m_blocks) {
            if (keeps(block)) subset.append(block);
        }
    });
    return subset;
}

yld_SequenceFieldValue yld_SequenceFieldValue::getSubset(yld_Enum::yld_ResultPositionEnum position) const
{
    return filtered([position](const yld_SubField& block) { return block.position() == position; });
}

yld_SequenceFieldValue yld_SequenceFieldValue::getSubset(const yld_SectionPoint& sectionPoint) const
{
    return filtered([&sectionPoint](const yld_SubField& block) {
        const yld_FieldLocation location(block.description());
        return !location.sectionPoints().isEmpty() && location.sectionPoint(0) == sectionPoint;
    });
}

yld_SequenceFieldValue yld_SequenceFieldValue::getSubset(const yld_FieldLocation& location) const
{
    const yld_Sequence<yld_SectionPoint>& wanted = location.sectionPoints();
    return filtered([&](const yld_SubField& block) {
        const yld_FieldLocation own(block.description());
        if (own.position() != location.position()) return false;
        return wanted.isEmpty() || own.sectionPoints().isEmpty() || wanted.isMember(own.sectionPoint(0));
    });
}

yld_SequenceFieldValue yld_SequenceFieldValue::getSubset(const yld_String& elementType) const
{
    return filtered([&elementType](const yld_SubField& block) {
        const sto_ElementClass onClass = block.description().elementClass();
        return onClass.isValid() && elementType == onClass.typeLabel().c_str();
    });
}

yld_SequenceFieldValue yld_SequenceFieldValue::getSubset(const yld_Instance& instance) const
{
    if (instance.name() == "rootAssembly") return *this;
    std::string name;
    yld_guard([&] {
        const sto_PartInstance stored = instance.instance();
        if (stored.isValid()) name = stored.name();
    });
    return filtered([&name](const yld_SubField& block) {
        const sto_FieldDescription& description = block.description();
        return !name.empty() && description.hasPartInstance() && description.partInstance().name() == name;
    });
}

yld_SequenceFieldValue yld_SequenceFieldValue::getSubset(const yld_Set& set) const
{
    const yld_Enum::yld_SetTypeEnum type = set.type();
    const yld_String name = set.name();
    // Blocks that are the set's own stay as they are.
    yld_SequenceFieldValue subset =
        filtered([&](const yld_SubField& block) { return block.setType() == type && block.setName() == name; });
    if (subset.numBlocks() > 0) return subset;
    for (const yld_SubField& block : m_blocks) {
        const yld_Sequence<int> indices = block.indicesInSet(set);
        if (indices.isEmpty()) continue;
        yld_SubField part = block.subsetAt(indices, type == yld_Enum::NODE_SET ? yld_Enum::NODAL : block.position());
        part.setSubsetSet(set.set());
        subset.append(part);
    }
    return subset;
}

yld_SequenceFieldValue
yld_SequenceFieldValue::getSubset(const yld_Sequence<yld_Sequence<float>>& localCoordSystem) const
{
    yld_SequenceFieldValue subset;
    for (int i = 0; i < m_blocks.size(); ++i) {
        const yld_Sequence<int> found = list(i).placesOfSystem(localCoordSystem);
        if (!found.isEmpty()) subset.append(m_blocks[i].subsetAt(found, m_blocks[i].position()));
    }
    return subset;
}

yld_SequenceFieldValue yld_SequenceFieldValue::getSubset(const yld_Node& node) const
{
    yld_SequenceFieldValue subset;
    const int label = node.label();
    const yld_Sequence<int> labels(&label, 1);
    for (const yld_SubField& block : m_blocks) {
        if (block.meshIndex() != node.meshIndex()) continue;
        const yld_Sequence<int> indices = block.indicesOfNodes(labels);
        if (!indices.isEmpty()) subset.append(block.subsetAt(indices, yld_Enum::NODAL));
    }
    return subset;
}

yld_SequenceFieldValue yld_SequenceFieldValue::getSubset(const yld_Element& element) const
{
    yld_SequenceFieldValue subset;
    const int label = element.label();
    const yld_Sequence<int> labels(&label, 1);
    for (const yld_SubField& block : m_blocks) {
        if (block.meshIndex() != element.meshIndex()) continue;
        const yld_Sequence<int> indices = block.indicesOfElements(labels);
        if (!indices.isEmpty()) subset.append(block.subsetAt(indices, block.position()));
    }
    return subset;
}
