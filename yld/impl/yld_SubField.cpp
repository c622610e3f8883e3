#include "yld_SubField.h"

#include "platform/sto/sto_Assembly.h"
#include "platform/sto/sto_Field.h"
#include "platform/sto/sto_FieldDescription.h"
#include "yld_EnumMap.h"

yld_SubField::yld_SubField() = default;

yld_SubField::yld_SubField(int key, const sto_Field& field, const shr_ArrayCOW<sto_Assembly>& assembly,
                           yld_Enum::yld_DataTypeEnum type)
    : m_key(key), m_field(field), m_description(field.fieldDescription()), m_assembly(assembly), m_type(type)
{
    const std::shared_ptr<const fld_FieldDescription> description = m_description.ConstGet().data();
    m_label = description->m_label.c_str();
    m_storedLength = description->m_length;
    if (description->position() == fld_OutputPositionEnm::WHOLE_MODEL) return;
    if (description->m_instance.isValid()) {
        m_meshIndex = m_description.ConstGet().partInstance().mesh().meshIndex();
    } else if (assembly.IsValid() && assembly.ConstGet().isValid() && assembly.ConstGet().hasMesh()) {
        m_meshIndex = assembly.ConstGet().mesh().meshIndex();
    }
    const int setType = m_description.ConstGet().setType();
    if (setType == setC_Set::elementSet || setType == setC_Set::surface) m_elementClass = description->m_classIndex;
}

yld_SubField::yld_SubField(const yld_SubField&) = default;
yld_SubField& yld_SubField::operator=(const yld_SubField&) = default;
yld_SubField::~yld_SubField() = default;

yld_Enum::yld_ResultPositionEnum yld_SubField::position() const
{
    return mapOutputPosition(m_description.ConstGet().position());
}

bool yld_SubField::hasDescription() const
{
    return m_description.IsValid() && m_description.ConstGet().isValid();
}

void yld_SubField::setSubsetSet(const sto_Set& set) { m_subsetSet = shr_COW<sto_Set>(set); }
