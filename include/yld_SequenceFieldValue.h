#ifndef YLD_SEQUENCE_FIELD_VALUE_H
#define YLD_SEQUENCE_FIELD_VALUE_H

#include "containers/shr_1DArray.h"
#include "containers/shr_COW.h"
#include "platform/base/bas_Export.h"
#include "yld_Enum.h"
#include "yld_FieldValue.h"
#include "yld_Sequence.h"
#include "yld_SubField.h"

class sto_FieldContainer;
class yld_Element;
class yld_FieldLocation;
class yld_FieldValueList;
class yld_Instance;
class yld_Node;
class yld_Set;

/// The values of a field as one sequence: those of the first block, then those of the second, and so on. A block is
/// read when one of its values is first asked for, and stays in memory as long as this sequence or a copy of it. Also
/// calls that are const move a cursor, so a sequence is for one thread.
class YLD_API yld_SequenceFieldValue
{
public:
    yld_SequenceFieldValue();
    explicit yld_SequenceFieldValue(const yld_Sequence<yld_SubField>& blocks);
    yld_SequenceFieldValue(const yld_SequenceFieldValue&);
    yld_SequenceFieldValue& operator=(const yld_SequenceFieldValue&);
    ~yld_SequenceFieldValue();

    /// The number of values over all blocks. Reads nothing.
    int size() const { return m_numValues; }
    void clearAll();

    /// The value at an index, counted from 0. Raises "FieldValue index out of range.".
    /// Cost: the first value of a block reads the block; a walk in order looks for each block once.
    yld_FieldValue get(unsigned index) const;
    yld_FieldValue constGet(unsigned index) const { return get(index); }
    yld_FieldValue value(unsigned index) const { return get(index); }
    yld_FieldValue operator[](unsigned index) const { return get(index); }

    void append(const yld_SubField& block);
    /// Appends a block for each stored field. Raises "Could not read field '%1$d':\n  %2$s".
    void appendSubField(const yld_Sequence<int>& keys, const sto_FieldContainer& fields,
                        const shr_ArrayCOW<sto_Assembly>& assembly);
    void append(const yld_FieldValueList& list);
    /// Always raises "Appending field values not allowed.".
    void append(const yld_FieldValue& value);
    /// Always raises "Appending an yld_SequenceFieldValue not allowed.".
    void append(yld_SequenceFieldValue& other);

    /// The values at a position, where it has any. This and the next four share whole blocks and read nothing.
    yld_SequenceFieldValue getSubset(yld_Enum::yld_ResultPositionEnum position) const;
    /// The values at a section point, equal in number and text.
    yld_SequenceFieldValue getSubset(const yld_SectionPoint& sectionPoint) const;
    /// The values at a position that belong to one of its section points, or to none.
    yld_SequenceFieldValue getSubset(const yld_FieldLocation& location) const;
    /// The values on elements of a type.
    yld_SequenceFieldValue getSubset(const yld_String& elementType) const;
    /// The values of one part instance; of "rootAssembly" all values.
    yld_SequenceFieldValue getSubset(const yld_Instance& instance) const;
    /// The values on a set, with a local system, of a node, of an element: as yld_FieldOutput::getSubset() tells.
    yld_SequenceFieldValue getSubset(const yld_Set& set) const;
    yld_SequenceFieldValue getSubset(const yld_Sequence<yld_Sequence<float>>& localCoordSystem) const;
    yld_SequenceFieldValue getSubset(const yld_Node& node) const;
    yld_SequenceFieldValue getSubset(const yld_Element& element) const;

    const yld_Sequence<yld_SubField>& blocks() const { return m_blocks; }
    int numBlocks() const { return m_numBlocks; }
    /// For the layers underneath: whether the sequence was made of blocks that had been read; and what was read of a
    /// block, borrowed from this sequence.
    bool isListOnly() const { return m_isListOnly; }
    const yld_FieldValueList& list(int block) const;

private:
    template<class Keeps> yld_SequenceFieldValue filtered(Keeps keeps) const;

    bool m_firstFlag = false;
    bool m_isListOnly = false;
    yld_Sequence<yld_SubField> m_blocks;
    int m_listCount = 0;
    mutable shr_1DArray<yld_FieldValueList> m_lists;
    mutable int m_firstIndex = -1;
    mutable int m_currentBlock = 0;
    mutable int m_currentLength = 0;
    int m_numBlocks = 0;
    int m_numValues = 0;
};

#endif
