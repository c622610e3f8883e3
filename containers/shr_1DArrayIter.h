#ifndef SHR_1DARRAYITER_H
#define SHR_1DARRAYITER_H

#include "containers/shr_1DArray.h"

/// Walks the elements of a paged array from first to last. It holds a copy of the array, so it walks the
/// elements as they were when it was made, and keeps them alive. An array whose first block is absent counts
/// as empty; where a later block is absent there is no element to ask for (HasCurrent).
template<class T> class YLD_API shr_1DArrayIter
{
public:
    explicit shr_1DArrayIter(const shr_1DArray<T>& array)
        : m_array(array), m_end(array.End()), m_blockSize(1 << array.BlockPower()), m_start(0), m_offset(0), m_stop(0),
          m_elements(nullptr)
    {
        if (m_end != 0 && !elementsAt(m_array.Head())) {
            m_end = 0;
        }
        First();
    }

    void First() noexcept
    {
        m_start = m_array.Head() & ~(m_blockSize - 1);
        enterBlock(m_array.Head() - m_start);
    }
    void Next() noexcept
    {
        if (++m_offset == m_stop) {
            nextBlock();
        }
    }
    /// Known right after Next() without another look: a loop costs one comparison an element.
    bool IsDone() const noexcept { return m_offset == m_stop; }
    bool HasCurrent() const noexcept { return !IsDone() && m_elements; }
    /// The element; there must be one. Good as long as the iterator.
    const T& Current() const noexcept { return m_elements[m_offset]; }
    /// Its index.
    int Index() const noexcept { return m_start + static_cast<int>(m_offset) - m_array.Head(); }

private:
    void nextBlock() noexcept
    {
        m_start += m_blockSize;
        enterBlock(0);
    }
    // The walk goes from one offset of a block to another and looks at nothing else; it stands at both when it
    // is done.
    void enterBlock(int offset) noexcept
    {
        const int left = m_end - m_start;
        m_offset = offset;
        m_stop = left <= offset ? offset : left < m_blockSize ? left : m_blockSize;
        m_elements = IsDone() ? nullptr : elementsAt(m_start);
    }
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
    int m_start;             // the position where the block begins
    std::ptrdiff_t m_offset; // in the block; as wide as an address, which saves widening it for each element
    std::ptrdiff_t m_stop;   // the offset after the last one to visit in the block
    const T* m_elements;
};

#endif
