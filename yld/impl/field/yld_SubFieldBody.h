#ifndef YLD_SUBFIELDBODY_H
#define YLD_SUBFIELDBODY_H

#include "yld_SubField.h"

#include "platform/sto/sto_Field.h"

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

    /// How many values a node, element or face has: 1 but for the nodes and the integration points of an element.
    int valuesPerEntity() const;
    /// The members of the set that the values belong to: of a node block on its mesh, of others on its mesh and in its
    /// class; one entry a value of a node, an element or a face. Raises for a member that the mesh has not.
    std::vector<int> members() const;
    /// The nodes of an element of the class, as indices in the mesh; one row of valuesPerEntity() an element.
    const int* connectivity() const;
    /// The user labels of nodes, and of the elements of the class. Raises where elements have none.
    std::vector<int> nodeLabels(const std::vector<int>& places) const;
    std::vector<int> elementLabels(const std::vector<int>& places) const;
    [[noreturn]] void refuse(const char* what) const;
};

#endif
