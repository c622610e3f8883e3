#ifndef YLD_REPOSITORY_H
#define YLD_REPOSITORY_H

#include "containers/shr_BtreeIterator.h"
#include "platform/base/bas_Export.h"
#include "yld_Sequence.h"

/// Raises yld_Exception, error number 6, "Key \"%s\" not found in repository" with the key filled in.
[[noreturn]] YLD_API void yld_raiseUnknownKey(const yld_String& key);
/// The same with the number as text.
[[noreturn]] YLD_API void yld_raiseUnknownKey(int key);

/// A collection by key, walked in the order of the keys: texts byte by byte (or with the digits in them by
/// value, as the process has chosen), numbers by value. Copies share their entries until one of them is
/// written; copying is constant time, looking up logarithmic.
///
/// The operations that hand out a value for writing (get, the operator[] of an object that is not const)
/// unshare the entries on the way to it, even if the key is unknown. References are good until the repository
/// is next copied and written, or the entry removed. The counts of the sharing are not atomic: a
/// repository and its copies belong to one thread.
template<class K, class V> class yld_Repository : public shr_Btree<K, V>
{
public:
    using Key = K;
    using Value = V;

    /// The number of entries.
    int size() const noexcept { return this->Size(); }
    bool isEmpty() const noexcept { return this->IsEmpty(); }
    bool isMember(const K& key) const { return this->ConstFind(key) != nullptr; }

    /// True for a key that is there.
    /// @throws yld_Exception, error number 6, "Key \"%s\" not found in repository" with the key, if it is not
    bool CheckKey(const K& key) const
    {
        if (this->ConstFind(key)) {
            return true;
        }
        if constexpr (std::is_enum_v<K>) {
            yld_raiseUnknownKey(static_cast<int>(key));
        } else {
            yld_raiseUnknownKey(key);
        }
    }

    /// The value of a key for writing. Raises what CheckKey raises.
    V& get(const K& key)
    {
        CheckKey(key);
        auto* const node = this->Find(key);
        return node ? node->Value() : this->Default();
    }
    /// The value of a key for reading. Raises what CheckKey raises. Touches no count.
    const V& constGet(const K& key) const
    {
        const auto* const node = this->ConstFind(key);
        if (!node) {
            CheckKey(key);
        }
        return node ? node->Value() : this->DefaultValue();
    }
    V& operator[](const K& key) { return get(key); }
    const V& operator[](const K& key) const { return constGet(key); }

    /// Adds an entry. @return false, and the old value stays, if the key is there already
    bool insert(const K& key, const V& value) { return this->InsertUnlessMember(key, value); }
    /// Takes an entry out. @return false if there is none of that key
    bool remove(const K& key) { return this->Remove(key); }

    /// All keys in their order.
    yld_Sequence<K> keys() const
    {
        yld_Sequence<K> all(size());
        shr_BtreeIterator<K, V> entry(*this);
        for (entry.First(); !entry.IsDone(); entry.Next()) {
            all.append(entry.CurrentKey());
        }
        return all;
    }
};

/// Walks a repository in the order of its keys:
///
///     for (entry.first(); !entry.isDone(); entry.next()) { use(entry.currentKey(), entry.currentValue()); }
///
/// It borrows the repository, which must neither change nor die meanwhile, and unshares nothing.
template<class K, class V> class yld_RepositoryIT
{
public:
    explicit yld_RepositoryIT(const yld_Repository<K, V>& repository) : m_iterator(repository) {}

    void first() { m_iterator.First(); }
    void next() { m_iterator.Next(); }
    bool isDone() const noexcept { return m_iterator.IsDone(); }
    /// The entry at hand; there must be one.
    const K& currentKey() const noexcept { return m_iterator.CurrentKey(); }
    const V& currentValue() const noexcept { return m_iterator.CurrentValue(); }

private:
    shr_BtreeIterator<K, V> m_iterator;
};

#endif
