#include "yld/impl/field/yld_RowArray.h"

#include "platform/store/fio_Extents.h"
#include "yld/impl/base/yld_Raise.h"

#include <algorithm>

// What a row costs is finding it: its table, its block and its numbers lie in three places.
void yld_RowArray::takeRow(const yld_Sequence<float>& row, int at)
{
    const int width = row.size();
    if (at == 0) {
        m_width = width;
        m_rows = fio_Extents::roomFor(place(m_count) * place(width) * sizeof(float));
    } else if (width != m_width && m_starts.empty()) {
        takeOtherWidths(at);
    }
    float* to = nullptr;
    if (m_starts.empty()) {
        to = reinterpret_cast<float*>(m_rows.writable());
        if (to) to += place(at) * place(width);
    } else {
        const std::size_t used = m_held.size();
        m_starts.push_back(static_cast<std::ptrdiff_t>(used));
        m_held.resize(used + place(width));
        to = m_held.data() + used;
    }
    for (int i = 0, length = 0; i < width; i += length) {
        const float* run = row.run(i, length);
        to = std::copy_n(run, length, to);
    }
}

// From here on it has to be told where each row begins.
void yld_RowArray::takeOtherWidths(int at)
{
    const auto* const first = reinterpret_cast<const float*>(m_rows.data());
    if (first) m_held.assign(first, first + static_cast<std::ptrdiff_t>(at) * m_width);
    for (int i = 0; i < at; ++i) m_starts.push_back(static_cast<std::ptrdiff_t>(i) * m_width);
    m_rows = fio_Buffer();
}

yld_RowArray::yld_RowArray(const yld_Sequence<yld_Sequence<float>>& rows) : m_count(rows.size())
{
    int at = 0;
    for (const yld_Sequence<float>& row : rows) takeRow(row, at++);
    if (m_starts.empty()) {
        m_values = reinterpret_cast<const float*>(m_rows.data());
    } else {
        m_starts.push_back(static_cast<std::ptrdiff_t>(m_held.size()));
        m_values = m_held.data();
    }
}

void yld_SystemArray::cosines(int system, bool isPlanar, float* into) const
{
    if (m_cosines) {
        std::copy_n(m_cosines + static_cast<std::ptrdiff_t>(system) * 9, 9, into);
        return;
    }
    const yld_Sequence<yld_Sequence<float>>& axes = (*m_sequences)[system];
    const int wanted = isPlanar && axes.size() == 2 ? 2 : 3;
    const auto refuse = [] { yld_raise("A coordinate system should have three rows of three direction cosines."); };
    if (axes.size() != wanted) refuse();
    for (int i = 0; i < 9; ++i) into[i] = i % 4 == 0 ? 1.0F : 0.0F;
    for (int i = 0; i < wanted; ++i) {
        if (axes[i].size() < wanted) refuse();
        for (int k = 0; k < wanted; ++k) into[3 * i + k] = axes[i][k];
    }
}
