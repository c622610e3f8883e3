#ifndef YLD_ROWARRAY_H
#define YLD_ROWARRAY_H

#include "platform/store/fio_Buffer.h"
#include "yld_Sequence.h"

#include <cstddef>
#include <type_traits>
#include <vector>

/// Rows of numbers, one after the other in one array. Rows of the same width need no more than that; others say
/// where each begins. The numbers are borrowed or held.
class yld_RowArray
{
public:
    yld_RowArray() = default;
    /// Borrows rows of one width.
    yld_RowArray(const float* values, int count, int width) : m_values(values), m_count(count), m_width(width) {}
    yld_RowArray(const double* values, int count, int width) : m_doubles(values), m_count(count), m_width(width) {}
    /// Copies rows of any widths.
    explicit yld_RowArray(const yld_Sequence<yld_Sequence<float>>& rows);
    yld_RowArray(const yld_RowArray&) = delete;
    yld_RowArray& operator=(const yld_RowArray&) = delete;
    yld_RowArray(yld_RowArray&&) = default;
    yld_RowArray& operator=(yld_RowArray&&) = default;

    int size() const { return m_count; }
    bool isDouble() const { return m_doubles != nullptr; }
    bool isUniform() const { return m_starts.empty(); }
    int width(int row) const
    {
        return isUniform() ? m_width : static_cast<int>(m_starts[place(row) + 1] - m_starts[place(row)]);
    }
    /// The rows, where they are held and have one width; else empty. Shared, so that they need no other copy.
    const fio_Buffer& held() const { return m_rows; }
    /// A row in single precision.
    const float* row(int index) const { return row<float>(index); }
    /// A row in the precision that the array has.
    template<class T> const T* row(int index) const
    {
        const std::ptrdiff_t start =
            isUniform() ? static_cast<std::ptrdiff_t>(index) * m_width : m_starts[place(index)];
        if constexpr (std::is_same_v<T, double>) return m_doubles + start;
        else return m_values + start;
    }

private:
    static std::size_t place(int row) { return static_cast<std::size_t>(row); }
    void takeRow(const yld_Sequence<float>& row, int at);
    void takeOtherWidths(int at);

    fio_Buffer m_rows;                    // of one width
    std::vector<float> m_held;            // rows of several widths
    std::vector<std::ptrdiff_t> m_starts; // one more than rows
    const float* m_values = nullptr;
    const double* m_doubles = nullptr;
    int m_count = 0;
    int m_width = 0;
};

/// Local systems as direction cosines: one for all rows, or one a row.
class yld_SystemArray
{
public:
    using Sequences = yld_Sequence<yld_Sequence<yld_Sequence<float>>>;

    yld_SystemArray() = default;
    /// Borrows systems as sequences of axes.
    explicit yld_SystemArray(const Sequences& systems) : m_sequences(&systems), m_count(systems.size()) {}
    /// Borrows systems of nine numbers each, axis by axis.
    yld_SystemArray(const float* cosines, int count) : m_cosines(cosines), m_count(count) {}

    int size() const { return m_count; }
    bool isEmpty() const { return m_count == 0; }
    /// Nine numbers, the axes row by row. In the plane two rows of two will do.
    /// Raises "A coordinate system should have three rows of three direction cosines.".
    void cosines(int system, bool isPlanar, float* into) const;

private:
    const Sequences* m_sequences = nullptr;
    const float* m_cosines = nullptr;
    int m_count = 0;
};

#endif
