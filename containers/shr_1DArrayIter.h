#ifndef SHR_1DARRAYITER_H
#define SHR_1DARRAYITER_H

#include "containers/shr_1DArray.h"

/// Walks the elements of a paged array from first to last. It holds a copy of the array, so it walks the
/// elements as they were when it was made, and keeps them alive. An array whose first block is absent counts
/// as empty; where a later block is absent there is no element to ask for (HasCurrent).
template<class T>
class YLD_API shr_1DArrayIter
{
public:
    explicit shr_1DArrayIter(const shr_1DArray<T>& array)
        : m_array(array), m_end(array.End()), m_blockSize(1 << array.BlockPower()), m_position(0),
          m_offset(0), m_elements(nullptr)
    {
        if (m_end != 0 && !elementsAt(m_array.Head())) {
            m_end = 0;
        }
        First();
    }

    void First() noexcept
    {
        m_position = m_array.Head();
        m_offset = m_position & (m_blockSize - 1);
        m_elements = m_position < m_end ? elementsAt(m_position) : nullptr;
    }
    void Next() noexcept
    {
        ++m_position;
        if (++m_offset == m_blockSize) {
            m_offset = 0;
            m_elements = m_position < m_end ? elementsAt(m_position) : nullptr;
        }
    }
    bool IsDone() const noexcept { return m_position >= m_end; }
    bool HasCurrent() const noexcept { return !IsDone() && m_elements; }
    /// The element; there must be one. Good as long as the iterator.
    const T& Current() const noexcept { return m_elements[m_offset]; }
    /// Its index.
    int Index() const noexcept { return m_position - m_array.Head(); }

private:
    const T* elementsAt(int position) const noexcept
    {
        const int entry = position >> m_array.BlockPower();
        if (entry >= m_array.TableLength()) {
            return nullptr;
        }
        const shr_1DArrayBlock<T>* const block = m_array.BlockAt(entry);
        return block ? block->elements : nullptr;
    }

    shr_1DArray<T> m_array;
    int m_end;
    int m_blockSize;
    int m_position;
    int m_offset;
    const T* m_elements;
};

#endif
