#ifndef SHR_COUNTEDHLD_H
#define SHR_COUNTEDHLD_H

#include "containers/shr_Counter.h"

/// A handle on a T that is shared by count: two words, the counter and the T. Copying is constant time and
/// shares the T; the last holder deletes it. The T may be null.
///
/// A class may hold a handle on a T that is only declared so far; T must be complete where a handle is
/// destroyed or assigned to, so such a class defines its destructor and assignment in its source.
template<class T> class shr_CountedHld
{
public:
    /// Holds nothing.
    shr_CountedHld() : m_counter(new shr_Counter), m_held(nullptr) {}
    /// Takes ownership; if no counter can be had, the T is deleted and std::bad_alloc raised.
    explicit shr_CountedHld(T* held) : m_counter(nullptr), m_held(held)
    {
        Keeper keeper{held};
        m_counter = new shr_Counter;
        keeper.held = nullptr;
    }
    shr_CountedHld(const shr_CountedHld& other) noexcept : m_counter(other.m_counter), m_held(other.m_held)
    {
        ++m_counter->count;
    }
    ~shr_CountedHld() { Drop(); }

    shr_CountedHld& operator=(const shr_CountedHld& other) noexcept
    {
        // Up before down, so that assigning a handle to itself, or to one that its own T holds, is safe.
        shr_Counter* const counter = other.m_counter;
        T* const held = other.m_held;
        ++counter->count;
        Drop();
        m_counter = counter;
        m_held = held;
        return *this;
    }

    /// Takes ownership of another T. A sole holder deletes its old T; otherwise the other holders keep it.
    /// Giving a handle the T that it holds changes nothing.
    shr_CountedHld& operator=(T* held)
    {
        if (held && held == m_held) {
            return *this;
        }
        if (m_counter->count == 1) {
            T* const old = m_held;
            m_held = held;
            Destroy(old);
        } else {
            Keeper keeper{held};
            shr_Counter* const counter = new shr_Counter;
            keeper.held = nullptr;
            --m_counter->count;
            m_counter = counter;
            m_held = held;
        }
        return *this;
    }

    /// The T, borrowed; null if the handle holds nothing. Reading or writing through it is seen by all
    /// holders.
    T* Ptr() const noexcept { return m_held; }
    T* operator->() const noexcept { return m_held; }
    T& operator*() const noexcept { return *m_held; }

    bool IsNull() const noexcept { return m_held == nullptr; }
    bool IsValid() const noexcept { return m_held != nullptr; }
    explicit operator bool() const noexcept { return m_held != nullptr; }

    /// How many handles hold the T together.
    int Count() const noexcept { return m_counter->count; }
    /// For tests.
    bool SharesWith(const shr_CountedHld& other) const noexcept { return m_counter == other.m_counter; }

    /// Whether both hold the very same T; not a comparison of values. Two handles on nothing are equal.
    friend bool operator==(const shr_CountedHld& a, const shr_CountedHld& b) noexcept { return a.m_held == b.m_held; }

protected:
    /// Deletes a T that no handle has come to own.
    struct Keeper
    {
        T* held;
        ~Keeper() { Destroy(held); }
    };

    /// Deletes the T and frees the counter; what is left holds nothing and may only be overwritten. Kept out of
    /// line: the rare path stays out of the way, and the compiler does not take a count that another handle
    /// shares for one that was freed here.
    [[gnu::noinline]] void Delete()
    {
        // Both words are cleared before the T goes, whose destructor may come back to this handle.
        T* const held = m_held;
        shr_Counter* const counter = m_counter;
        m_held = nullptr;
        m_counter = nullptr;
        Destroy(held);
        delete counter;
    }

private:
    static void Destroy(T* held)
    {
        static_assert(sizeof(T) > 0, "the held class must be complete where a handle on it dies");
        delete held;
    }

    void Drop()
    {
        if (--m_counter->count == 0) {
            Delete();
        }
    }

    shr_Counter* m_counter;
    T* m_held;
};

#endif
