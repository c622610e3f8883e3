#ifndef YLD_SEQUENCE_H
#define YLD_SEQUENCE_H

#include "containers/shr_1DArrayList.h"
#include "platform/base/bas_Export.h"
#include "yld_String.h"

#include <type_traits>

template<class T, class List> class yld_Sequence;

/// The type under which a sequence stores its elements. Texts and sequences are stored as the plain class
/// that they derive from, so that a list can go between this interface and the inner libraries by sharing.
template<class T> struct yld_Stored
{
    using Type = T;
};
template<> struct yld_Stored<yld_String>
{
    using Type = shr_String;
};
template<class T, class List> struct yld_Stored<yld_Sequence<T, List>>
{
    using Type = List;
};

/// An ordered collection with value semantics: copying is constant time, and the first write to a copy clones
/// the table of blocks and the one block that it writes. Elements do not move while the sequence grows at its
/// end.
///
/// Indices count from 0 and are not checked anywhere: one that an operation does not allow is undefined
/// behaviour. Nothing is raised but std::bad_alloc and what copying an element raises. References are good
/// until this sequence is next copied and written. The counts of the sharing are not atomic: a sequence
/// and its copies belong to one thread.
///
/// @tparam T     any type that can be default-constructed and assigned; it may still be incomplete where a class
///               has a sequence as a member
/// @tparam List  the list that stores the elements, from which the sequence derives without adding data
template<class T, class List = shr_1DArrayList<typename yld_Stored<T>::Type>> class YLD_API yld_Sequence : public List
{
public:
    using Stored = typename yld_Stored<T>::Type;

    /// An empty sequence without storage.
    yld_Sequence() = default;
    /// A copy of n values.
    yld_Sequence(const T* values, int n) : List(n > 0 ? n : 0)
    {
        if constexpr (std::is_same_v<T, Stored>) {
            this->m_array.SetFromArray(values, n);
        } else {
            for (int i = 0; i < n; ++i) {
                this->m_array.Get(i) = values[i];
            }
        }
        this->m_count = n > 0 ? n : 0;
    }
    /// Shares the storage of a list.
    yld_Sequence(const List& list) : List(list) {}
    /// An empty sequence with storage for n elements set aside: size() is 0, allocatedSize() n. Filling it is
    /// faster, and reading it too, than letting an empty one grow, for it gets few large blocks.
    explicit yld_Sequence(int n) : List(n) {}

    /// The number of elements.
    int size() const noexcept { return this->m_count; }
    bool isEmpty() const noexcept { return this->m_count == 0; }
    /// The number of elements that have storage.
    int allocatedSize() const noexcept { return this->m_array.Size(); }

    /// Changes the storage to n elements. A size above n drops to n; a size below stays.
    bool grow(int n)
    {
        if (n < this->m_count) {
            this->m_count = n;
        }
        return this->m_array.Grow(n);
    }

    /// Amortised constant time.
    void append(const T& element) { List::Append(element); }
    /// Appends all elements of another sequence.
    void append(const yld_Sequence& other) { List::Append(static_cast<const List&>(other)); }

    /// Element i for writing. Unshares, and extends the storage if i lies beyond it; the size stays the same.
    T& get(int i) { return access(this->m_array.Get(i)); }
    /// Element i for reading. Safe for any index below allocatedSize(): storage that was never touched is
    /// made, and seen by all copies.
    const T& constGet(int i) const { return access(this->m_array.PartialArrayConstGet(i)); }
    /// Element i for reading, the fastest way; i must be below the size.
    const T& operator[](int i) const noexcept { return access(this->m_array.FullArrayConstGet(i)); }

    /// The elements from i on that lie side by side in memory: sets `length` to their number and returns the
    /// first. The next run begins at i + length. For bulk reading; i must be below the size.
    const T* run(int i, int& length) const noexcept
    {
        return &access(*this->m_array.ConstRun(i, this->m_count - i, length));
    }

    /// Puts an element before the one at i; i may be size(). Moves all elements after it. @return true
    bool insert(int i, const T& element) { return List::Insert(i, element); }
    /// Takes the element at i out; i must be below the size. @return true
    bool remove(int i) { return List::Remove(i); }
    /// Leaves the sequence empty, without storage.
    void clearAll() { List::ClearAll(); }

    /// Whether some element equals the given one. Linear search.
    bool isMember(const T& element) const { return List::IsMember(element); }
    /// Index of the first element that equals the given one; size(), not -1, if there is none.
    int findFirst(const T& element) const { return List::FindFirst(element); }
    /// Whether both hold equal elements in the same order. Elements in storage that both share are equal
    /// without being compared, so a copy equals its original in constant time for each element, even one that
    /// is not a number.
    bool isEqual(const yld_Sequence& other) const { return List::IsEqual(other); }
    /// The elements from `from` up to `to`, exclusive, or up to the end if that comes first; `from` must not
    /// be negative.
    yld_Sequence slice(int from, int to) const { return yld_Sequence(List::Slice(from, to)); }

    /// Read the elements in a range-for, which the sequence must survive unchanged.
    shr_1DArrayWalk<Stored, T> begin() const noexcept { return {this->m_array, this->m_count}; }
    shr_1DArrayWalk<Stored, T> end() const noexcept { return {}; }

private:
    // The one place where a stored element is taken for one of the public class. That class derives from the
    // stored one and adds nothing to it, neither data nor a virtual operation, so both look the same in
    // memory.
    static T& access(Stored& element) noexcept
    {
        checkAccess();
        return static_cast<T&>(element);
    }
    static const T& access(const Stored& element) noexcept
    {
        checkAccess();
        return static_cast<const T&>(element);
    }
    static constexpr void checkAccess() noexcept
    {
        if constexpr (!std::is_same_v<T, Stored>) {
            static_assert(std::is_base_of_v<Stored, T>, "the public element must derive from the stored one");
            static_assert(sizeof(T) == sizeof(Stored), "the public element must add no data");
            static_assert(alignof(T) == alignof(Stored), "the public element must be aligned as the stored one");
            static_assert(!std::is_polymorphic_v<T>, "the public element must have no virtual operation");
        }
        static_assert(sizeof(yld_Sequence) == sizeof(List), "a sequence must add no data to its list");
    }
};

// The sequences of the interface that many sources use are compiled once, in the library.
#define YLD_SEQUENCE_INSTANCES(prefix)                                                                                 \
    SHR_1DARRAY_INSTANCE(prefix, shr_String)                                                                           \
    prefix template class yld_Sequence<int>;                                                                           \
    prefix template class yld_Sequence<float>;                                                                         \
    prefix template class yld_Sequence<double>;                                                                        \
    prefix template class yld_Sequence<yld_String>;                                                                    \
    prefix template class yld_Sequence<yld_Sequence<int>>;                                                             \
    prefix template class yld_Sequence<yld_Sequence<float>>;                                                           \
    prefix template class yld_Sequence<yld_Sequence<double>>;                                                          \
    prefix template class yld_Sequence<yld_Sequence<yld_Sequence<float>>>;                                             \
    prefix template class yld_Sequence<yld_Sequence<yld_Sequence<double>>>;

YLD_SEQUENCE_INSTANCES(extern)

#endif
