#ifndef YLD_SUB_FIELD_H
#define YLD_SUB_FIELD_H

#include "containers/shr_COW.h"
#include "platform/base/bas_Export.h"
#include "yld_Enum.h"
#include "yld_Sequence.h"
#include "yld_String.h"

#include <memory>
#include <vector>

class sto_Assembly;
class sto_Field;
class sto_FieldDescription;
class sto_Set;
class yld_Set;
struct yld_SubFieldBody;

/// One block of a field: its values at one position, of one element class, section point and instance.
///
/// A handle: copies share one state, also when materialize() changes it. setIndices() and setSubsetSet() give this
/// handle a state of its own first.
class YLD_API yld_SubField
{
public:
    /// A block of nothing: key -1, no type, no description.
    yld_SubField();
    /// @param type  the type that the block presents; it may differ from the stored one
    yld_SubField(int key, const sto_Field& field, const shr_ArrayCOW<sto_Assembly>& assembly,
                 yld_Enum::yld_DataTypeEnum type);
    yld_SubField(const yld_SubField&);
    yld_SubField& operator=(const yld_SubField&);
    ~yld_SubField();

    /// The number under which the step keeps the block.
    int key() const;
    /// The name of the field.
    const yld_String& label() const;
    /// How many values the block shows: as many as indices() has, or all that are stored when that is empty.
    int length() const;
    /// How many values are stored.
    int storedLength() const;
    yld_Enum::yld_ResultPositionEnum position() const;
    yld_Enum::yld_DataTypeEnum type() const;
    /// The number of the element class within its mesh, -1 for values at nodes; and the number of the mesh in the
    /// model.
    int elementClass() const;
    int meshIndex() const;
    /// Which of the stored values the block shows, by place from 0; empty for all of them.
    const yld_Sequence<int>& indices() const;
    void setIndices(const yld_Sequence<int>& indices);

    // The next four are for the layers underneath.
    const sto_Field& field() const;
    bool hasDescription() const;
    const sto_FieldDescription& description() const;
    const shr_ArrayCOW<sto_Assembly>& assembly() const;
    /// The set that the block was chosen by; an empty handle when it was not.
    const shr_COW<sto_Set>& subsetSet() const;
    void setSubsetSet(const sto_Set& set);
    /// Type and label of that set, or else of the set that the values belong to.
    /// Raises "Unknown Set type." for values that belong to no set of nodes, elements or faces.
    yld_Enum::yld_SetTypeEnum setType() const;
    yld_String setName() const;

    /// The user labels of the nodes or elements that the values belong to, in the order of the values; one a node,
    /// element or face.
    std::vector<int> entityLabels() const;
    // These find values by their labels; they give places in the stored values, for subsetAt().

    /// The values whose nodes or elements are in a set. The labels of set and block are taken to ascend: one that
    /// stands out of order is missed. Of a block that shows some of its values only these are looked for. Cost: linear
    /// in both.
    yld_Sequence<int> indicesInSet(const yld_Set& set) const;
    /// All values of the elements, in the order of the block. Calls materialize() first.
    yld_Sequence<int> indicesOfElements(const yld_Sequence<int>& labels) const;
    /// The first value of each node, in the order of the labels. Of values on elements only those at ELEMENT_NODAL have
    /// nodes. Calls materialize() first.
    yld_Sequence<int> indicesOfNodes(const yld_Sequence<int>& labels) const;
    /// A block that shows these values alone. With the block's own position it shares the stored values and reads
    /// nothing; with another position the values are read and copied into a field in memory.
    /// @param indices  places in the stored values; for none the result is a block of nothing
    yld_SubField subsetAt(const yld_Sequence<int>& indices, yld_Enum::yld_ResultPositionEnum position) const;
    /// Makes the values that the block shows contiguous: copies them, in single precision, into a field in memory,
    /// which from then on is all that the block has, for every handle that shares it. A block that shows all its values
    /// stays as it is, and so does one for which it fails. The nodes or elements of the values become a set
    /// "api_tmp_set" of the instance, in memory, unless the set that the block was chosen by will do.
    void materialize() const;

    /// Whether it is the very same object: values are never compared.
    bool operator==(const yld_SubField& other) const { return this == &other; }

private:
    const yld_SubFieldBody& body() const;
    yld_SubFieldBody& ownBody();

    std::shared_ptr<yld_SubFieldBody> m_body; // null for a block of nothing
};

#endif
