#ifndef YLD_FIELDSUBSET_H
#define YLD_FIELDSUBSET_H

#include "yld/impl/field/yld_SubFieldBody.h"

#include "platform/sto/sto_FieldDescriptionBuilder.h"
#include "platform/store/fio_Buffer.h"

/// Takes values out of a block and makes a field of them that lives in memory alone.
class yld_FieldSubset
{
public:
    /// Borrows the block.
    explicit yld_FieldSubset(const yld_SubFieldBody& block);

    /// Copies values, local systems and labels out, in single precision. Warns where there is nothing to take.
    /// @param indices  places in the stored values
    /// @param target   where the values are going; nodes have another label than the elements that they come from
    void extract(const std::vector<int>& indices, yld_Enum::yld_ResultPositionEnum target);
    /// User labels of what was taken: one a node, or one an element.
    const std::vector<int>& labels() const { return m_labels; }

    /// Makes the set "api_tmp_set" of the labels, and the field on it.
    /// Raises "Transformation not allowed for scalar, vector or matrix data.", "Subfield spanning subsets is invalid.".
    void writeWithTempSet(yld_SubFieldBody& into, yld_Enum::yld_ResultPositionEnum position, const sto_Mesh& mesh);
    /// Puts a field of what was taken into a block. The block is changed when nothing can fail any more.
    /// @param subset  which subset of the set the values belong to
    void writeOrphanField(yld_SubFieldBody& into, yld_Enum::yld_ResultPositionEnum position, const sto_Set& set,
                          int subset);

private:
    template<class T> void extractRows(const std::vector<int>& indices);
    void extractLabels(const std::vector<int>& indices, yld_Enum::yld_ResultPositionEnum target);
    void checkOrientation() const;
    /// The type that the block presents.
    const fld_DataType& presented() const;
    sto_FieldDescriptionBuilder describe(yld_Enum::yld_ResultPositionEnum position, const sto_Set& set,
                                         int subset) const;
    void checkSectionPoint(const sto_ElementClass& onClass) const;

    const yld_SubFieldBody& m_block;
    sto_FieldBlock m_place;
    std::shared_ptr<const fld_FieldDescription> m_description;
    fio_Buffer m_values;
    fio_Buffer m_conjugate;
    fio_Buffer m_orientation;
    int m_orientationWidth = 0;
    int m_width = 0;
    int m_numRows = 0;
    std::vector<int> m_labels;
};

#endif
