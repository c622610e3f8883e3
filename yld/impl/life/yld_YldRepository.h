#ifndef YLD_YLD_REPOSITORY_H
#define YLD_YLD_REPOSITORY_H

#include "containers/shr_Btree.h"
#include "containers/shr_BtreeIterator.h"
#include "containers/shr_COW.h"
#include "platform/base/lok_GlobalSingleton.h"
#include "platform/sto/sto_StoContainer.h"
#include "platform/sto/sto_StoToolset.h"
#include "yld_String.h"
#include "yld_Yld.h"

/// The open databases of the process, by name. References that openYld() and Yld() hand out point to the values here.
class yld_YldRepository : public lok_GlobalSingletonBase<yld_YldRepository>
{
public:
    /// A name that is present keeps its database; the new one is dropped.
    void insert(const yld_String& name, const yld_Yld& yld);
    /// An unknown name gives an empty database of the registry's own.
    yld_Yld& get(const yld_String& name);
    const yld_Yld& constGet(const yld_String& name) const;
    bool isMember(const yld_String& name) const;
    int size() const;
    /// Takes a database out: its lock file goes unless it was read-only; the store is closed unless more than two
    /// names stand on its path, and then every name on the path goes.
    void remove(const yld_String& name);
    /// Whether any database has exactly this path.
    bool IsFileOpen(const yld_String& path) const;
    /// Takes out every name on a path whose store was closed.
    void RespondToCloseYld(const yld_String& path);
    sto_StoContainer& StoContainer() { return m_stoContainer.Get(); }
    const shr_Btree<yld_String, yld_Yld>& yldMap() const { return m_map; }

    /// Whether another program's lock file stands beside the database; warns if so.
    bool IsYldLocked(const yld_String& path) const;
    /// Makes the lock file; false when that fails.
    bool LockYld(const yld_String& path) const;
    bool RemoveLock(const yld_String& path) const;
    /// The last line of the lock file: which phase of an analysis holds it.
    yld_String GetLockPhase(const yld_String& path) const;

    /// The form in which paths are kept and compared: absolute and portable.
    static yld_String normalisedPath(const yld_String& path);

private:
    friend class lok_GlobalSingletonBase<yld_YldRepository>;
    yld_YldRepository();
    ~yld_YldRepository();

    // An unknown name gives the tree's default value, and no error.
    struct Map : shr_Btree<yld_String, yld_Yld>
    {
        yld_Yld& get(const yld_String& name)
        {
            auto* const node = Find(name);
            return node ? node->Value() : Default();
        }
        const yld_Yld& constGet(const yld_String& name) const
        {
            const auto* const node = ConstFind(name);
            return node ? node->Value() : DefaultValue();
        }
    };

    shr_COW<sto_StoContainer> m_stoContainer;
    Map m_map;
};

/// Walks the registry by name, ascending.
class yld_YldRepositoryIT
{
public:
    explicit yld_YldRepositoryIT(const yld_YldRepository& repository) : m_iterator(repository.yldMap()) {}

    void first() { m_iterator.First(); }
    void next() { m_iterator.Next(); }
    bool isDone() const { return m_iterator.IsDone(); }
    const yld_Yld& currentValue() const { return m_iterator.CurrentValue(); }
    const yld_String& currentKey() const { return m_iterator.CurrentKey(); }

private:
    shr_BtreeIterator<yld_String, yld_Yld> m_iterator;
};

/// Hears from the store when a file was closed or has changed.
class yld_StoToolsetClient : public sto_StoToolsetClient
{
public:
    void NotifyOpenYld(const char* fileName) override;
    void NotifyCloseYld(const char* fileName) override;
    void NotifyUpdateYld(const char* fileName) override;
};

#endif
