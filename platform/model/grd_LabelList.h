#ifndef GRD_LABEL_LIST_H
#define GRD_LABEL_LIST_H

#include "platform/store/pcl_Array.h"

#include <memory>
#include <string>
#include <vector>

/// Finds the places of labels in an unordered list that only grows: a hash table over places, which is extended by
/// what was appended since the last question.
class grd_LabelIndex
{
public:
    /// @param labels  the list from its beginning, at least as far as at the last call
    /// @return the place of the label among the first `count`, or -1
    int find(const int* labels, int count, int label);
    int size() const { return m_indexed; }
    /// Room for that many labels, so that they come in without being moved.
    void reserve(int count);

private:
    void grow(const int* labels, int count);
    void enter(int label, int place);

    std::vector<int> m_slots; // place + 1, 0 for free
    int m_shift = 32;
    int m_indexed = 0;
};

/// The user labels of nodes or elements, by index. Labels are unique, in any order and with any gaps.
/// An ascending list is searched as it is, a list without gaps by arithmetic; for any other an index is built when
/// first needed, which copies of the list share and extend.
class grd_LabelList
{
public:
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("labels", self.m_labels);
        visit("smallest label", self.m_smallest);
        visit("largest label", self.m_largest);
        visit("ascending", self.m_ascending);
    }

    int size() const { return static_cast<int>(m_labels.size()); }
    bool isEmpty() const { return m_labels.isEmpty(); }
    /// Borrowed until the list is changed, saved or destroyed.
    const int* data() const { return m_labels.data(); }
    const pcl_Array<int>& array() const { return m_labels; }
    int smallest() const { return m_smallest; }
    int largest() const { return m_largest; }

    /// The place of a label, or -1. @param hint  where to look first
    int find(int label, int hint = 0) const;
    /// The labels must be new to the list.
    void append(const int* labels, int count);
    /// The places of labels, found fastest when they stand in the list's own order.
    /// @param places  room for `count` places, or null
    /// @return the position of the first label that is not in the list, or `count`
    int findAll(const int* labels, int count, int* places) const;

    /// The place of the first of these labels if they are a run of the list, in its own order; else -1.
    /// One comparison of the two arrays; neither sorts nor builds an index over a list without order, as long as the
    /// labels are many.
    int findRun(const int* labels, int count) const;
    /// How many labels the index covers by now: 0 as long as no search has needed one. For tests.
    int numIndexed() const { return m_index ? m_index->size() : 0; }

    /// The position of the first label that stands in the list already, or `count`.
    int firstPresent(const int* labels, int count) const;
    /// The position of a label that occurs twice among these, or -1.
    static int firstRepeated(const int* labels, int count);

    /// Raises unless the list can be addressed with 32-bit places.
    void verify(const std::string& path) const;

private:
    pcl_Array<int> m_labels;
    int m_smallest = 0;
    int m_largest = 0;
    bool m_ascending = true;
    mutable std::shared_ptr<grd_LabelIndex> m_index;
};

#endif
