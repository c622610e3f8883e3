#ifndef SHR_1DARRAYLIST_H
#define SHR_1DARRAYLIST_H

#include "containers/shr_1DArrayIter.h"

/// Reads the elements of a list in a range-for, run by run. It borrows: the list must neither change nor die.
/// @tparam Shown  what the elements are shown as: T or a class derived from T that adds no data
template<class T, class Shown = T> class shr_1DArrayWalk
{
public:
    /// The end of every walk.
    shr_1DArrayWalk() = default;
    shr_1DArrayWalk(const shr_1DArray<T>& array, int count) : m_array(&array), m_count(count) { nextRun(); }

    const Shown& operator*() const noexcept { return static_cast<const Shown&>(*m_current); }
    const Shown* operator->() const noexcept { return static_cast<const Shown*>(m_current); }
    shr_1DArrayWalk& operator++() noexcept
    {
        if (++m_current == m_runEnd) {
            nextRun();
        }
        return *this;
    }
    friend bool operator==(const shr_1DArrayWalk& a, const shr_1DArrayWalk& b) noexcept
    {
        return a.m_current == b.m_current;
    }

private:
    void nextRun() noexcept
    {
        if (m_next < m_count) {
            int length = 0;
            m_current = m_array->ConstRun(m_next, m_count - m_next, length);
            m_runEnd = m_current + length;
            m_next += length;
        } else {
            m_current = nullptr;
        }
    }

    const T* m_current = nullptr;
    const T* m_runEnd = nullptr;
    const shr_1DArray<T>* m_array = nullptr;
    int m_next = 0;
    int m_count = 0;
};

/// A list: a count and a paged array that holds at least so many elements. Copies share their storage until
/// one of them writes. Indices are not checked. Unless told otherwise an operation may be given an element of
/// the very list that it changes.
template<class T> class YLD_API shr_1DArrayList
{
public:
    shr_1DArrayList() = default;
    /// Empty, with storage for n elements set aside.
    explicit shr_1DArrayList(int n) : m_array(n) {}
    /// A copy of n values.
    shr_1DArrayList(const T* values, int n) : m_count(n > 0 ? n : 0), m_array(m_count)
    {
        m_array.SetFromArray(values, m_count);
    }

    int Size() const noexcept { return m_count; }
    bool IsEmpty() const noexcept { return m_count == 0; }

    /// For writing; unshares. An index past the storage extends it, and the count stays.
    T& Get(int i) { return m_array.Get(i); }
    /// For reading; any index within the table of the storage will do.
    const T& ConstGet(int i) const { return m_array.PartialArrayConstGet(i); }
    /// For reading; the index must be below the count.
    const T& operator[](int i) const noexcept { return m_array.FullArrayConstGet(i); }

    /// Amortised constant time; no element moves.
    void Append(const T& element)
    {
        m_array.Get(m_count) = element;
        ++m_count;
    }
    void Append(const shr_1DArrayList& other)
    {
        const int added = other.m_count;
        if (added > m_count) {
            m_array.Grow(added);
        }
        for (int i = 0; i < added; ++i) {
            Append(other[i]);
        }
    }
    /// @return whether it was appended
    bool AppendUnlessMember(const T& element)
    {
        if (IsMember(element)) {
            return false;
        }
        Append(element);
        return true;
    }

    /// Puts the element before the one at i; i may be the count.
    bool Insert(int i, const T& element)
    {
        if (i == m_count) {
            Append(element);
            return true;
        }
        const T kept(element); // the elements move under it
        T* to = &m_array.Get(m_count);
        for (int j = m_count - 1; j >= i; --j) {
            T* const from = &m_array.Get(j);
            *to = *from;
            to = from;
        }
        *to = kept;
        ++m_count;
        return true;
    }
    /// Takes the element at i out; the slot that falls vacant at the end gets a default element, so nothing
    /// that the last element held is held any longer.
    bool Remove(int i)
    {
        --m_count;
        T* to = &m_array.Get(i);
        for (int j = i; j < m_count; ++j) {
            T* const from = &m_array.Get(j + 1);
            *to = *from;
            to = from;
        }
        *to = T();
        return true;
    }
    /// Removes the first that equals the element. @return whether there was one
    bool RemoveMember(const T& element)
    {
        const int i = FindFirst(element);
        return i < m_count && Remove(i);
    }
    /// Takes the last element off and returns it; there must be one.
    T Pop()
    {
        T last(ConstGet(m_count - 1));
        Remove(m_count - 1);
        return last;
    }

    /// The elements from `from` up to `to`, exclusive, or up to the end.
    shr_1DArrayList Slice(int from, int to) const
    {
        shr_1DArrayList part;
        SliceOnto(from, to, part);
        return part;
    }
    /// Does nothing: kept for callers of the form with a destination, who have never been given anything.
    void Slice(int, int, shr_1DArrayList&) const {}

    /// Index of the first that equals the element; the count if there is none.
    int FindFirst(const T& element) const
    {
        int i = 0;
        for (shr_1DArrayIter<T> iter(m_array); i < m_count && !iter.IsDone(); iter.Next(), ++i) {
            if (iter.Current() == element) {
                return i;
            }
        }
        return m_count;
    }
    /// Always the count: it does not search.
    int FindLast(const T&) const noexcept { return m_count; }
    bool IsMember(const T& element) const { return FindFirst(element) < m_count; }

    /// Whether both hold equal elements in the same order. An element that both share is equal to itself
    /// without being asked, even if it is not a number.
    bool IsEqual(const shr_1DArrayList& other) const
    {
        if (m_count != other.m_count) {
            return false;
        }
        for (int i = 0; i < m_count; ++i) {
            const T& a = (*this)[i];
            const T& b = other[i];
            if (&a != &b && !(a == b)) {
                return false;
            }
        }
        return true;
    }
    friend bool operator==(const shr_1DArrayList& a, const shr_1DArrayList& b) { return a.IsEqual(b); }

    /// Gives the storage up.
    void ClearAll()
    {
        m_array = shr_1DArray<T>();
        m_count = 0;
    }

    /// The elements as an array made with new[], which the caller owns; sets n to the count.
    T* GetCArray(int& n) const
    {
        struct Holder
        {
            T* values;
            ~Holder() { delete[] values; }
        } holder{new T[static_cast<std::size_t>(m_count)]()};
        for (int i = 0; i < m_count; ++i) {
            holder.values[i] = (*this)[i];
        }
        n = m_count;
        T* const values = holder.values;
        holder.values = nullptr;
        return values;
    }

    /// The storage under the list; for tests, measurements and bulk reading (shr_1DArray::ConstRun).
    const shr_1DArray<T>& Array() const noexcept { return m_array; }

    shr_1DArrayWalk<T> begin() const noexcept { return {m_array, m_count}; }
    shr_1DArrayWalk<T> end() const noexcept { return {}; }

protected:
    void SliceOnto(int from, int to, shr_1DArrayList& part) const
    {
        const int last = to < m_count ? to : m_count;
        for (int i = from; i < last; ++i) {
            part.Append((*this)[i]);
        }
    }

    int m_count = 0;
    shr_1DArray<T> m_array;
};

// What many sources use is compiled once, in the library and for its clients. A copy that a source made for itself
// would be a hidden one, and hide that of the library with it.
#define SHR_1DARRAY_INSTANCE(prefix, ...)                                                                              \
    prefix template class shr_1DArrayBlock<__VA_ARGS__>;                                                               \
    prefix template class shr_1DArray<__VA_ARGS__>;                                                                    \
    prefix template class shr_1DArrayIter<__VA_ARGS__>;                                                                \
    prefix template class shr_1DArrayList<__VA_ARGS__>;

#define SHR_1DARRAY_INSTANCES(prefix)                                                                                  \
    SHR_1DARRAY_INSTANCE(prefix, int)                                                                                  \
    SHR_1DARRAY_INSTANCE(prefix, float)                                                                                \
    SHR_1DARRAY_INSTANCE(prefix, double)                                                                               \
    SHR_1DARRAY_INSTANCE(prefix, shr_1DArrayList<int>)                                                                 \
    SHR_1DARRAY_INSTANCE(prefix, shr_1DArrayList<float>)                                                               \
    SHR_1DARRAY_INSTANCE(prefix, shr_1DArrayList<double>)                                                              \
    SHR_1DARRAY_INSTANCE(prefix, shr_1DArrayList<shr_1DArrayList<float>>)                                              \
    SHR_1DARRAY_INSTANCE(prefix, shr_1DArrayList<shr_1DArrayList<double>>)

SHR_1DARRAY_INSTANCES(extern)

#endif
