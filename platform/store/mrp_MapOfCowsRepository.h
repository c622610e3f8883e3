#ifndef MRP_MAP_OF_COWS_REPOSITORY_H
#define MRP_MAP_OF_COWS_REPOSITORY_H

#include "containers/shr_Btree.h"
#include "containers/shr_COW.h"
#include "containers/shr_String.h"

/// Named values of one class, shared with whoever holds a copy until one side writes.
template<class T> class mrp_MapOfCowsRepository : private shr_Btree<shr_String, shr_COW<T>>
{
public:
    using Map = shr_Btree<shr_String, shr_COW<T>>;

    using Map::Size;
    bool IsMember(const msg_StringBase& name) const { return Map::IsMember(name); }
    /// The value of a name that is there, borrowed until the name is put or removed; for any other name an empty one.
    const T& Get(const msg_StringBase& name) const
    {
        const auto* const node = this->ConstFind(name);
        return node ? node->Value().ConstGet() : m_none;
    }
    /// Adds a value, or takes the place of the one of that name.
    void Put(const msg_StringBase& name, const T& value)
    {
        Remove(name);
        this->InsertUnlessMember(name, shr_COW<T>(value));
    }
    /// False if there is none of that name.
    bool Remove(const msg_StringBase& name) { return Map::Remove(name); }
    /// For walking.
    const Map& All() const { return *this; }

private:
    T m_none;
};

#endif
