#include "yld_SequenceFieldValue.h"

#include "platform/sto/sto_Assembly.h"
#include "platform/sto/sto_Field.h"
#include "platform/sto/sto_FieldContainer.h"
#include "platform/text/exc_Exception.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld/impl/field/yld_FieldValueList.h"
#include "yld_EnumMap.h"
#include "yld_Instance.h"

#include <limits>

yld_SequenceFieldValue::yld_SequenceFieldValue() = default;

yld_SequenceFieldValue::yld_SequenceFieldValue(const yld_Sequence<yld_SubField>& blocks)
{
    for (const yld_SubField& block : blocks) append(block);
}

yld_SequenceFieldValue::yld_SequenceFieldValue(const yld_SequenceFieldValue&) = default;
yld_SequenceFieldValue& yld_SequenceFieldValue::operator=(const yld_SequenceFieldValue&) = default;
yld_SequenceFieldValue::~yld_SequenceFieldValue() = default;

void yld_SequenceFieldValue::clearAll() { *this = yld_SequenceFieldValue(); }

const yld_FieldValueList& yld_SequenceFieldValue::list(int block) const
{
    // Read into the storage that copies of this sequence share: what one of them has read, all have.
    auto& list = const_cast<yld_FieldValueList&>(m_lists.PartialArrayConstGet(block));
    // A block that has materialised since no longer shows values by their indices.
    if (!m_isListOnly && !list.isReadFrom(m_blocks[block])) yld_guard([&] { list.read(m_blocks[block]); });
    return list;
}

yld_FieldValue yld_SequenceFieldValue::get(unsigned index) const
{
    if (index > static_cast<unsigned>(m_numValues) - 1U) yld_raise("FieldValue index out of range.");
    const auto wanted = static_cast<long long>(index);
    const auto lengthOf = [this](int block) { return m_blocks[block].length(); };

    if (m_firstIndex < 0) {
        m_firstIndex = 0;
        m_currentBlock = 0;
        m_currentLength = 0;
    }
    if (wanted < m_firstIndex) {
        while (wanted < m_firstIndex) {
            if (m_currentBlock == 0) yld_raise("FieldValue index out of range.");
            --m_currentBlock;
            m_currentLength = lengthOf(m_currentBlock);
            m_firstIndex -= m_currentLength;
        }
    } else if (wanted >= static_cast<long long>(m_firstIndex) + m_currentLength) {
        int block = m_currentBlock;
        int first = m_firstIndex;
        if (m_currentLength > 0) {
            first += m_currentLength;
            ++block;
        }
        for (;; ++block) {
            if (block >= m_blocks.size()) yld_raise("FieldValue index out of range.");
            const int length = lengthOf(block);
            if (wanted - first < length) {
                m_currentLength = length;
                break;
            }
            first += length;
        }
        m_currentBlock = block;
        m_firstIndex = first;
    }
    return list(m_currentBlock).value(static_cast<int>(wanted - m_firstIndex));
}

void yld_SequenceFieldValue::append(const yld_SubField& block)
{
    if (block.length() > std::numeric_limits<int>::max() - m_numValues) {
        yld_raise("Field \"%s\" has more values than can be counted.", block.label());
    }
    m_isListOnly = false;
    m_blocks.append(block);
    // The list is made when the block is read: a writer never asks for it. Where a run of lists stands already,
    // copies of this sequence may hold it too, and it has to become this one's own.
    const int at = m_listCount++;
    m_lists.Grow(m_listCount);
    if (m_lists.BlockAt((m_lists.Head() + at) >> m_lists.BlockPower())) m_lists.Get(at) = yld_FieldValueList();
    m_numValues += block.length();
    ++m_numBlocks;
}

void yld_SequenceFieldValue::appendSubField(const yld_Sequence<int>& keys, const sto_FieldContainer& fields,
                                            const shr_ArrayCOW<sto_Assembly>& assembly)
{
    for (const int key : keys) {
        try {
            const sto_Field field = fields.get(key);
            append(yld_SubField(key, field, assembly, mapDataType(field.fieldDescription().dataType())));
        } catch (const exc_Exception& error) {
            yld_raise("Could not read field '%1$d':\n  %2$s", key, error.UserReport());
        }
    }
}

void yld_SequenceFieldValue::append(const yld_FieldValueList& list)
{
    m_isListOnly = true;
    m_lists.Get(m_listCount++) = list;
}

void yld_SequenceFieldValue::append(const yld_FieldValue&) { yld_raise("Appending field values not allowed."); }

void yld_SequenceFieldValue::append(yld_SequenceFieldValue&)
{
    yld_raise("Appending an yld_SequenceFieldValue not allowed.");
}
