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
/// A block is a handle: copies share what stands behind it, and a block that materialises does so for all of them. The
/// operations that set something give this handle a body of its own first.
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

    int key() const;
    const yld_String& label() const;
    /// How many values the block shows: as many as it has indices, or all that are stored when it has none.
    int length() const;
    int storedLength() const;
    yld_Enum::yld_ResultPositionEnum position() const;
    yld_Enum::yld_DataTypeEnum type() const;
    int elementClass() const;
    int meshIndex() const;
    /// The stored values that the block shows; empty for all of them.
    const yld_Sequence<int>& indices() const;
    void setIndices(const yld_Sequence<int>& indices);

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
    /// The values that lie in a set. Both lists of labels are taken for ascending: what stands out of order is missed.
    /// In a block that shows some values alone only those are looked for. Linear.
    yld_Sequence<int> indicesInSet(const yld_Set& set) const;
    /// All values of elements, in the order of the block. Materialises the block first.
    yld_Sequence<int> indicesOfElements(const yld_Sequence<int>& labels) const;
    /// The first value of each node, in the order given; element data have nodes at ELEMENT_NODAL alone. Materialises
    /// the block first.
    yld_Sequence<int> indicesOfNodes(const yld_Sequence<int>& labels) const;
    /// A block that shows these values, in the place of those that this one shows. At the block's own position it
    /// shares the stored values and reads nothing; at another, the values are taken out into a field in memory.
    /// @param indices  places in the stored values; a block of nothing for none
    yld_SubField subsetAt(const yld_Sequence<int>& indices, yld_Enum::yld_ResultPositionEnum position) const;
    /// Takes the values that the block shows out into a field in memory, in single precision, which is then all that
    /// the block has: for every handle that shares the block. Nothing happens to a block that shows all its values. If
    /// it fails the block is as it was. Makes the set "api_tmp_set" of the instance, in memory, unless the set that the
    /// block was chosen by serves.
    void materialize() const;

    /// Whether it is the very same object: values are never compared.
    bool operator==(const yld_SubField& other) const { return this == &other; }

private:
    const yld_SubFieldBody& body() const;
    yld_SubFieldBody& ownBody();

    std::shared_ptr<yld_SubFieldBody> m_body; // null for a block of nothing
};

#endif
