#ifndef YLD_SUB_FIELD_H
#define YLD_SUB_FIELD_H

#include "containers/shr_COW.h"
#include "yld_Enum.h"
#include "yld_Export.h"
#include "yld_Sequence.h"
#include "yld_String.h"

class sto_Assembly;
class sto_Field;
class sto_FieldDescription;
class sto_Set;

/// One block of a field: its values at one position, of one element class, section point and instance.
class YLD_API yld_SubField
{
public:
    yld_SubField();
    /// @param type  the type that the block presents; it may differ from the stored one
    yld_SubField(int key, const sto_Field& field, const shr_ArrayCOW<sto_Assembly>& assembly,
                 yld_Enum::yld_DataTypeEnum type);
    yld_SubField(const yld_SubField&);
    yld_SubField& operator=(const yld_SubField&);
    ~yld_SubField();

    int key() const { return m_key; }
    const yld_String& label() const { return m_label; }
    /// How many values the block shows.
    int length() const { return m_indices.size() != 0 ? m_indices.size() : m_storedLength; }
    int storedLength() const { return m_storedLength; }
    yld_Enum::yld_ResultPositionEnum position() const;
    yld_Enum::yld_DataTypeEnum type() const { return m_type; }
    int elementClass() const { return m_elementClass; }
    int meshIndex() const { return m_meshIndex; }
    const yld_Sequence<int>& indices() const { return m_indices; }
    void setIndices(const yld_Sequence<int>& indices) { m_indices = indices; }

    const sto_Field& field() const { return m_field.ConstGet(); }
    bool hasDescription() const;
    const sto_FieldDescription& description() const { return m_description.ConstGet(); }
    const shr_ArrayCOW<sto_Assembly>& assembly() const { return m_assembly; }
    const shr_COW<sto_Set>& subsetSet() const { return m_subsetSet; }
    void setSubsetSet(const sto_Set& set);

    bool operator==(const yld_SubField& other) const { return this == &other; }

private:
    int m_key = -1;
    yld_String m_label;
    shr_COW<sto_Field> m_field;
    shr_COW<sto_FieldDescription> m_description;
    shr_ArrayCOW<sto_Assembly> m_assembly;
    int m_storedLength = 0;
    yld_Enum::yld_DataTypeEnum m_type = yld_Enum::UNDEFINED_DATATYPE;
    int m_elementClass = -1;
    int m_meshIndex = -1;
    yld_Sequence<int> m_indices;
    shr_COW<sto_Set> m_subsetSet;
};

#endif
