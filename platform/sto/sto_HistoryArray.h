#ifndef STO_HISTORYARRAY_H
#define STO_HISTORYARRAY_H

#include "platform/store/fio_Buffer.h"

/// The times or the values of a curve, row by row. Copies share them.
template<class T> class sto_HistoryArray
{
public:
    sto_HistoryArray() = default;
    /// Not initialised.
    sto_HistoryArray(long long rows, int columns)
        : m_buffer(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns) * sizeof(T)), m_columns(columns)
    {
    }

    /// How many numbers, over all columns.
    long long size() const { return static_cast<long long>(m_buffer.size() / sizeof(T)); }
    int columns() const { return m_columns; }
    long long rows() const { return size() / m_columns; }
    const T* data() const { return reinterpret_cast<const T*>(m_buffer.data()); }
    T* writable() { return reinterpret_cast<T*>(m_buffer.writable()); }
    const T& operator[](long long index) const { return data()[index]; }

private:
    fio_Buffer m_buffer;
    int m_columns = 1;
};

#endif
