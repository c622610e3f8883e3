#include "platform/model/grd_LabelList.h"

#include "platform/store/fio_Error.h"

#include <algorithm>
#include <limits>
#include <numeric>

void grd_LabelIndex::enter(int label, int place)
{
    const std::size_t mask = m_slots.size() - 1;
    std::size_t slot = (static_cast<unsigned>(label) * 0x9E3779B1u) >> m_shift;
    while (m_slots[slot] != 0) slot = (slot + 1) & mask;
    m_slots[slot] = place + 1;
}

void grd_LabelIndex::reserve(int count)
{
    if (m_slots.size() >= 2 * static_cast<std::size_t>(count)) return;
    int bits = 5;
    while (bits < 31 && (std::size_t{1} << bits) < 2 * static_cast<std::size_t>(count)) ++bits;
    // At most half full, and doubled each time, so that growing by single labels stays linear.
    if (std::size_t{1} << bits < 2 * static_cast<std::size_t>(count)) bits = 32;
    m_slots.assign(std::size_t{1} << bits, 0);
    m_shift = 32 - bits;
    m_indexed = 0;
}

void grd_LabelIndex::grow(const int* labels, int count)
{
    reserve(count);
    for (; m_indexed < count; ++m_indexed) enter(labels[m_indexed], m_indexed);
}

int grd_LabelIndex::find(const int* labels, int count, int label)
{
    if (m_indexed < count) grow(labels, count);
    const std::size_t mask = m_slots.size() - 1;
    std::size_t slot = (static_cast<unsigned>(label) * 0x9E3779B1u) >> m_shift;
    for (; m_slots[slot] != 0; slot = (slot + 1) & mask) {
        const int place = m_slots[slot] - 1;
        if (place < count && labels[place] == label) return place;
    }
    return -1;
}

int grd_LabelList::find(int label, int hint) const
{
    const int count = size();
    if (count == 0 || label < m_smallest || label > m_largest) return -1;
    const int* labels = m_labels.data();
    if (hint >= 0 && hint < count) {
        if (labels[hint] == label) return hint;
        if (hint + 1 < count && labels[hint + 1] == label) return hint + 1;
    }
    const long long offset = static_cast<long long>(label) - m_smallest;
    if (offset < count && labels[offset] == label) return static_cast<int>(offset);
    if (m_ascending) {
        const int* found = std::lower_bound(labels, labels + count, label);
        return found != labels + count && *found == label ? static_cast<int>(found - labels) : -1;
    }
    if (!m_index) m_index = std::make_shared<grd_LabelIndex>();
    return m_index->find(labels, count, label);
}

void grd_LabelList::append(const int* labels, int count)
{
    if (count == 0) return;
    if (isEmpty()) m_smallest = m_largest = labels[0];
    else m_ascending = m_ascending && labels[0] > m_largest;
    for (int i = 0; i < count; ++i) {
        if (i > 0 && labels[i] <= labels[i - 1]) m_ascending = false;
        m_smallest = std::min(m_smallest, labels[i]);
        m_largest = std::max(m_largest, labels[i]);
    }
    // Made here, so that the copies to come share one.
    if (!m_ascending && !m_index) m_index = std::make_shared<grd_LabelIndex>();
    m_labels.append(labels, count);
}

int grd_LabelList::findRun(const int* labels, int count) const
{
    const int length = size();
    if (count <= 0 || count > length || labels[0] < m_smallest || labels[0] > m_largest) return -1;
    const int* all = m_labels.data();
    // A look at every label costs less than an index, unless it is for a few labels only.
    constexpr int fewOfMany = 64;
    int first = 0;
    if (m_ascending || count < length / fewOfMany) {
        first = find(labels[0]);
    } else {
        first = static_cast<int>(std::find(all, all + length, labels[0]) - all);
    }
    if (first < 0 || first > length - count) return -1;
    return std::equal(labels, labels + count, all + first) ? first : -1;
}

int grd_LabelList::findAll(const int* labels, int count, int* places) const
{
    if (const int first = findRun(labels, count); first >= 0) {
        if (places) std::iota(places, places + count, first);
        return count;
    }
    int last = -1;
    for (int i = 0; i < count; ++i) {
        last = find(labels[i], last + 1);
        if (last < 0) return i;
        if (places) places[i] = last;
    }
    return count;
}

int grd_LabelList::firstPresent(const int* labels, int count) const
{
    if (isEmpty()) return count;
    int last = -1;
    for (int i = 0; i < count; ++i) {
        if (labels[i] < m_smallest || labels[i] > m_largest) continue;
        last = find(labels[i], last + 1);
        if (last >= 0) return i;
    }
    return count;
}

int grd_LabelList::firstRepeated(const int* labels, int count)
{
    int i = 1;
    while (i < count && labels[i] > labels[i - 1]) ++i;
    if (i >= count) return -1;
    grd_LabelIndex seen;
    seen.reserve(count);
    for (i = 1; i < count; ++i) {
        if (seen.find(labels, i, labels[i]) >= 0) return i;
    }
    return -1;
}

void grd_LabelList::verify(const std::string& path) const
{
    if (m_labels.size() > std::numeric_limits<int>::max()) {
        fio_raise(path, "a list of labels is longer than any mesh can be; the file is damaged");
    }
}
