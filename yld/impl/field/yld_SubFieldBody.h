#ifndef YLD_SUBFIELDBODY_H
#define YLD_SUBFIELDBODY_H

#include "yld_SubField.h"

#include "platform/sto/sto_Field.h"
#include "platform/sto/sto_FieldBlock.h"

/// What the handles on one block share.
struct yld_SubFieldBody
{
    int key = -1;
    yld_String label;
    sto_Field field;
    sto_FieldDescription description;
    shr_ArrayCOW<sto_Assembly> assembly;
    int storedLength = 0;
    yld_Enum::yld_DataTypeEnum type = yld_Enum::UNDEFINED_DATATYPE;
    int elementClass = -1;
    int meshIndex = -1;
    yld_Sequence<int> indices;
    shr_COW<sto_Set> subsetSet;

    /// What the values belong to, as it stands now.
    sto_FieldBlock place() const { return sto_FieldBlock(description); }
    /// How many values an element has, at least one: elements of a type that is not known have no points that could be
    /// counted. 1 for nodes and faces.
    int valuesPerEntity() const;
};

#endif
