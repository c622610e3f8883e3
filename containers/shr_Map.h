#ifndef SHR_MAP_H
#define SHR_MAP_H

#include "containers/shr_BtreeIterator.h"

/// An ordered table from keys to values for use within the library: the copy-on-write tree with its look-ups
/// open. Walk it with a shr_BtreeIterator.
template<class K, class V>
class shr_Map : public shr_Btree<K, V>
{
public:
    /// @return false, and the old value stays, if the key is there already
    bool Insert(const K& key, const V& value) { return this->InsertUnlessMember(key, value); }

    /// The value of a key, null if there is none. Good until the map is next written.
    const V* Lookup(const K& key) const
    {
        const auto* const node = this->ConstFind(key);
        return node ? &node->Value() : nullptr;
    }
    /// The value of a key; the default value if there is none.
    const V& ConstGet(const K& key) const
    {
        const V* const value = Lookup(key);
        return value ? *value : this->DefaultValue();
    }
    const V& operator[](const K& key) const { return ConstGet(key); }
    /// The value of a key for writing, null if there is none. Unshares the way to it.
    V* Get(const K& key)
    {
        auto* const node = this->Find(key);
        return node ? &node->Value() : nullptr;
    }
};

#endif
