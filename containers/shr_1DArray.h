#ifndef SHR_1DARRAY_H
#define SHR_1DARRAY_H

#include "containers/shr_1DArrayBlock.h"
#include "containers/shr_Counter.h"
#include "platform/base/mmo_Memory.h"

#include <bit>
#include <cstdint>
#include <cstring>

/// A paged array: a table of blocks of 2^power elements. The table is shared by all copies of an array, and
/// each block by all tables that hold it, until somebody writes: then the writer gets a table of its own, and
/// of the blocks just the one that it writes. Elements never move while an array grows at its end.
///
/// An empty array takes no memory. Copying costs six words and one increment; the first write after a copy costs one
/// table and one block. Indices are not checked. Counts are plain integers: an array and its copies stay within one
/// thread.
///
/// Every entry of a table owns one count of its block, also those after the end, which a shrunken array
/// keeps and finds again when it grows back; so the last holder of a table leaves nothing behind.
template<class T> class YLD_API shr_1DArray
{
public:
    using Block = shr_1DArrayBlock<T>;

    shr_1DArray() noexcept
        : m_tableLength(0), m_power(0), m_end(0), m_head(0), m_tableCounter(nullptr), m_table(nullptr)
    {
    }

    /// An array of `size` elements, without any block yet: a block is made by the first Get or
    /// PartialArrayConstGet that falls into it. The size of the blocks follows from that of the array: 16
    /// elements up to size 255, from there on so that 8 to 16 blocks serve.
    explicit shr_1DArray(int size) : shr_1DArray()
    {
        // Read from the size as a float: its exponent is the logarithm, the upper bits of its mantissa the
        // eighths.
        const std::uint32_t bits = std::bit_cast<std::uint32_t>(static_cast<float>(size));
        const int exponent = static_cast<int>((bits >> 23) & 0xffu) - 130;
        const std::uint32_t mantissa = bits & 0x7fffffu;
        int length = SpareEntries;
        int power = DefaultPower;
        if (exponent > DefaultPower) {
            power = exponent;
            length += static_cast<int>((mantissa + 0x8fffffu) >> 20);
        }
        lengthenTable(length);
        m_power = power;
        m_end = size;
    }

    shr_1DArray(const shr_1DArray& other) noexcept
        : m_tableLength(other.m_tableLength), m_power(other.m_power), m_end(other.m_end), m_head(other.m_head),
          m_tableCounter(other.m_tableCounter), m_table(other.m_table)
    {
        if (m_tableCounter) {
            ++m_tableCounter->count;
        }
    }

    shr_1DArray& operator=(const shr_1DArray& other) noexcept
    {
        if (this == &other) {
            return *this;
        }
        // Held before the old table goes: the other array may live in one of its elements.
        shr_1DArray kept(other);
        swap(kept);
        return *this;
    }

    ~shr_1DArray() { release(); }

    /// Exchanges two arrays; no count changes.
    void swap(shr_1DArray& other) noexcept
    {
        exchange(m_tableLength, other.m_tableLength);
        exchange(m_power, other.m_power);
        exchange(m_end, other.m_end);
        exchange(m_head, other.m_head);
        exchange(m_tableCounter, other.m_tableCounter);
        exchange(m_table, other.m_table);
    }

    /// Copies n values to the beginning, block by block, growing the array if it is shorter.
    void SetFromArray(const T* values, int n)
    {
        if (n > Size()) {
            Grow(n);
        }
        for (int i = 0; i < n;) {
            T* const run = &Get(i);
            const int length = lesser(n - i, blockSize() - ((m_head + i) & (blockSize() - 1)));
            for (int k = 0; k < length; ++k) {
                run[k] = values[i + k];
            }
            i += length;
        }
    }

    /// Element i for writing: unshares the table and the block, makes a missing block, and extends the array
    /// if i lies beyond it. The reference is good until this array is next copied and written.
    T& Get(int i)
    {
        if (i >= m_end - m_head) {
            Grow(i + 1);
        } else {
            CopyArray();
        }
        return fullAccess(i);
    }

    /// Element i for reading; any index within the table will do, since a missing block is made. It is made
    /// in the shared table, so all arrays on that table see it.
    const T& PartialArrayConstGet(int i) const
    {
        const int position = m_head + i;
        Block*& block = m_table[position >> m_power];
        if (!block) {
            block = new Block(blockSize());
        }
        return block->elements[position & (blockSize() - 1)];
    }

    /// Element i for reading, without any test: the block must exist.
    const T& FullArrayConstGet(int i) const noexcept
    {
        const int position = m_head + i;
        return m_table[position >> m_power]->elements[position & (blockSize() - 1)];
    }

    /// The elements from i on that lie side by side: sets `length` to their number, at most `most`, and
    /// returns the first. Element i must exist. For bulk reading without arithmetic for each element.
    const T* ConstRun(int i, int most, int& length) const noexcept
    {
        const int offset = (m_head + i) & (blockSize() - 1);
        length = lesser(most, blockSize() - offset);
        return &FullArrayConstGet(i);
    }

    /// Changes the number of elements to n. Growing makes no block and moves no element. Shrinking, except to
    /// 0, only moves the end: what lies after it is found again by growing back. 0 gives everything back.
    bool Grow(int n)
    {
        CopyArray();
        if (n != 0) {
            const int power = m_end == 0 ? static_cast<int>(DefaultPower) : m_power;
            const int end = m_head + n;
            const int needed = blocksFor(end, power);
            if (needed > m_tableLength) {
                lengthenTable(needed + SpareEntries);
            }
            m_power = power;
            m_end = end;
        } else {
            releaseBlocks(0, m_tableLength);
            mmo_Free(m_table);
            delete m_tableCounter;
            m_tableCounter = nullptr;
            m_table = nullptr;
            m_tableLength = 0;
            m_power = 0;
            m_end = 0;
            m_head = 0;
        }
        return true;
    }

    /// Opens one new element in front of the first and returns it for writing. If there is no room in front,
    /// the blocks in use move to the top of the table, so room for many more is made at once. An array whose
    /// table is full up to its last entry then also has the rest of its last block as elements.
    T& GetHead()
    {
        if (m_head > 0) {
            CopyArray();
            --m_head;
            return fullAccess(0);
        }
        const int used = UsedBlocks();
        if (used < m_tableLength) {
            CopyArray();
            ++m_end;
        } else {
            Grow((used << m_power) + 1);
        }
        // The entries after the end are about to be overwritten.
        releaseBlocks(used, m_tableLength);
        const int shift = m_tableLength - used;
        std::memmove(static_cast<void*>(m_table + shift), m_table, sizeof(Block*) * static_cast<std::size_t>(used));
        std::memset(static_cast<void*>(m_table), 0, sizeof(Block*) * static_cast<std::size_t>(shift));
        m_head = (shift << m_power) - 1;
        m_end += m_head;
        return fullAccess(0);
    }

    /// Drops the first element. The storage of a block goes when its last element is dropped.
    void RemoveHead()
    {
        const int block = m_head >> m_power;
        if ((m_head + 1) >> m_power != block && block < m_tableLength) {
            CopyArray();
            releaseBlocks(block, block + 1);
        }
        ++m_head;
    }

    /// Gives this array a table of its own; the blocks stay shared.
    void CopyArray()
    {
        if (!m_tableCounter || m_tableCounter->count == 1) {
            return;
        }
        Block** const table = static_cast<Block**>(mmo_Malloc(bytesFor(m_tableLength)));
        shr_Counter* counter;
        try {
            counter = new shr_Counter;
        } catch (...) {
            mmo_Free(table);
            throw;
        }
        for (int i = 0; i < m_tableLength; ++i) {
            table[i] = m_table[i];
            if (table[i]) {
                ++table[i]->count;
            }
        }
        --m_tableCounter->count;
        m_tableCounter = counter;
        m_table = table;
    }

    /// The number of elements.
    int Size() const noexcept { return m_end - m_head; }

    /// What the array looks like inside; for tests and measurements.
    int TableLength() const noexcept { return m_tableLength; }
    int BlockPower() const noexcept { return m_power; }
    int End() const noexcept { return m_end; }
    int Head() const noexcept { return m_head; }
    int TableCount() const noexcept { return m_tableCounter ? m_tableCounter->count : 1; }
    bool HasTable() const noexcept { return m_table != nullptr; }
    bool SharesTableWith(const shr_1DArray& other) const noexcept
    {
        return this == &other || (m_tableCounter && m_tableCounter == other.m_tableCounter);
    }
    /// Blocks up to the end, present or not.
    int UsedBlocks() const noexcept { return blocksFor(m_end, m_power); }
    /// The block in an entry of the table, null if absent.
    const Block* BlockAt(int entry) const noexcept { return m_table[entry]; }

private:
    enum : int
    {
        DefaultPower = 4, // of an array that was not made for a size
        SpareEntries = 16 // of a new or lengthened table
    };

    static int lesser(int a, int b) noexcept { return a < b ? a : b; }

    template<class Word> static void exchange(Word& a, Word& b) noexcept
    {
        const Word kept = a;
        a = b;
        b = kept;
    }

    int blockSize() const noexcept { return 1 << m_power; }

    static int blocksFor(int end, int power) noexcept
    {
        return static_cast<int>((std::int64_t{end} + (std::int64_t{1} << power) - 1) >> power);
    }

    // The allocation for a table depends on the table's length alone. That of a long table is rounded up
    // by up to a quarter, so that appending, which lengthens the table by few entries at a time, seldom moves
    // it.
    static std::size_t bytesFor(int length) noexcept
    {
        std::size_t entries = static_cast<std::size_t>(length);
        if (entries > 64) {
            const std::size_t step = std::bit_floor(entries) / 4;
            entries = (entries + step - 1) / step * step;
        }
        return entries * sizeof(Block*);
    }

    // For a table that is not shared.
    void lengthenTable(int length)
    {
        const std::size_t bytes = bytesFor(length);
        if (!m_table) {
            shr_Counter* const counter = new shr_Counter;
            try {
                m_table = static_cast<Block**>(mmo_Malloc(bytes));
            } catch (...) {
                delete counter;
                throw;
            }
            m_tableCounter = counter;
        } else if (bytes != bytesFor(m_tableLength)) {
            m_table = static_cast<Block**>(mmo_Realloc(m_table, bytes));
        }
        std::memset(static_cast<void*>(m_table + m_tableLength), 0,
                    sizeof(Block*) * static_cast<std::size_t>(length - m_tableLength));
        m_tableLength = length;
    }

    // For a table that is not shared.
    T& fullAccess(int i)
    {
        const int position = m_head + i;
        Block*& block = m_table[position >> m_power];
        if (!block) {
            block = new Block(blockSize());
        } else if (block->count > 1) {
            Block* const clone = new Block(*block, blockSize());
            --block->count;
            block = clone;
        }
        return block->elements[position & (blockSize() - 1)];
    }

    // An entry is cleared before its block goes, since elements may hold what comes back here.
    void releaseBlocks(int from, int to) noexcept
    {
        for (int i = from; i < to; ++i) {
            Block* const block = m_table[i];
            m_table[i] = nullptr;
            if (block && --block->count == 0) {
                delete block;
            }
        }
    }

    void release() noexcept
    {
        if (m_tableCounter && --m_tableCounter->count == 0) {
            releaseBlocks(0, m_tableLength);
            mmo_Free(m_table);
            delete m_tableCounter;
        }
    }

    int m_tableLength;
    int m_power;
    int m_end;
    int m_head;
    shr_Counter* m_tableCounter; // null as long as there is no table to share
    Block** m_table;
};

#endif
