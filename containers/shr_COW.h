#ifndef SHR_COW_H
#define SHR_COW_H

#include "containers/shr_CountedHld.h"

/// How a copy-on-write handle duplicates its T: by the copy constructor.
struct shr_Direct
{
    template<class T> static T* Copy(const T& original) { return new T(original); }
};

/// By the virtual Copy() of T, for class hierarchies held through the base class.
struct shr_Virtual
{
    template<class T> static T* Copy(const T& original) { return original.Copy(); }
};

/// A handle that shares its T until somebody writes. Reading goes through ConstGet, `->` or `*` and never
/// copies; writing goes through Get, which first gives this handle a T of its own if others hold it too.
///
/// As with shr_CountedHld, T need not be complete where a class has a handle as a member.
template<class T, class Policy = shr_Direct> class shr_COW : public shr_CountedHld<T>
{
public:
    /// Holds nothing.
    shr_COW() = default;
    /// Makes a private copy.
    explicit shr_COW(const T& original) : shr_CountedHld<T>(Policy::Copy(original)) {}
    /// Takes ownership.
    explicit shr_COW(T* held) : shr_CountedHld<T>(held) {}
    shr_COW(const shr_COW&) noexcept = default;
    shr_COW& operator=(const shr_COW&) noexcept = default;
    using shr_CountedHld<T>::operator=;
    ~shr_COW() = default;

    /// For writing. The handle must hold something. The reference is good until the handle is next copied and
    /// written, assigned to or destroyed. If duplicating fails, nothing has changed.
    T& Get()
    {
        if (this->Count() != 1 && this->IsValid()) {
            *this = Policy::Copy(ConstGet());
        }
        return *this->Ptr();
    }
    /// For reading. The handle must hold something.
    const T& ConstGet() const noexcept { return *this->Ptr(); }
    const T* operator->() const noexcept { return this->Ptr(); }
    const T& operator*() const noexcept { return *this->Ptr(); }
};

/// The same handle under the name that it has for the assembly.
template<class T, class Policy = shr_Direct> using shr_ArrayCOW = shr_COW<T, Policy>;

#endif
