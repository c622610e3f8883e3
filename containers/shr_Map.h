#ifndef SHR_MAP_H
#define SHR_MAP_H

#include "containers/shr_1DArrayList.h"
#include "containers/shr_BtreeIterator.h"

/// A table from keys to values for use within the library: the copy-on-write tree with its look-ups open. A
/// shr_BtreeIterator walks it in the order of the keys; Key(i) tells the order in which they went in.
template<class K, class V> class shr_Map : public shr_Btree<K, V>
{
public:
    shr_Map() = default;
    shr_Map(const shr_Map&) = default;
    ~shr_Map() = default;
    /// The other map may be a value of this one, and go with what is assigned over.
    shr_Map& operator=(const shr_Map& other)
    {
        const shr_1DArrayList<K> keys(other.m_keys);
        shr_Btree<K, V>::operator=(other);
        m_keys = keys;
        return *this;
    }

    /// @return false, and the old value stays, if the key is there already
    bool Insert(const K& key, const V& value)
    {
        if (!shr_Btree<K, V>::InsertUnlessMember(key, value)) return false;
        m_keys.Append(key);
        return true;
    }
    bool InsertUnlessMember(const K& key, const V& value) { return Insert(key, value); }
    /// @return false if the key is not there
    bool Remove(const K& key)
    {
        if (!shr_Btree<K, V>::Remove(key)) return false;
        m_keys.RemoveMember(key);
        return true;
    }
    void Clear() noexcept
    {
        shr_Btree<K, V>::Clear();
        m_keys = shr_1DArrayList<K>();
    }
    /// The key that went in as number i of those that are there, counted from 0.
    const K& Key(int i) const { return m_keys[i]; }

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

private:
    shr_1DArrayList<K> m_keys;
};

#endif
