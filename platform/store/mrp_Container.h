#ifndef MRP_CONTAINER_H
#define MRP_CONTAINER_H

#include "platform/store/lnk_ShortCut.h"

#include <string>
#include <unordered_map>
#include <vector>

/// A position between two others, as bytes that are compared one by one: there is always one, so entries that stand
/// never move. Empty before means the front, empty after the end.
std::string mrp_positionBetween(const std::string& before, const std::string& after);

/// The entries of one container: keys with the ids of objects, in order. Kept in the file's entry table and read whole
/// on first use; the objects stay unread.
class mrp_Entries
{
public:
    struct Entry
    {
        std::string key;
        long long object;
        std::string position; ///< ascends byte by byte along the list; see mrp_positionBetween
        bool isNew = false;
    };

    int size() const { return static_cast<int>(m_entries.size()); }
    const Entry& operator[](int position) const { return m_entries[static_cast<std::size_t>(position)]; }
    /// The first entry of that key, or -1.
    int find(const std::string& key) const;
    void append(const std::string& key, long long object);
    void insert(int position, const std::string& key, long long object);
    bool isChanged() const { return m_unsaved != 0; }

private:
    friend class fio_FileBody;

    std::vector<Entry> m_entries;
    mutable std::unordered_multimap<std::string, int> m_index;
    mutable bool m_indexed = false;
    int m_unsaved = 0; // how many entries the file lacks
};

long long mrp_createContainer(const std::shared_ptr<fio_FileBody>& file);

template<class T> class mrp_Container;

/// Walks a container in the order of its entries:
///
///     for (entry.first(); !entry.isDone(); entry.next()) { use(entry.currentKey(), entry.currentValue()); }
template<class T> class mrp_ContainerIterator
{
public:
    explicit mrp_ContainerIterator(const mrp_Container<T>& container) : m_container(container) {}

    void first() { m_position = 0; }
    void next() { ++m_position; }
    bool isDone() const { return m_position >= m_container.size(); }
    /// The entry at hand; there must be one.
    const std::string& currentKey() const { return m_container.key(m_position); }
    lnk_ShortCut<T> currentValue() const { return m_container.at(m_position); }

private:
    mrp_Container<T> m_container;
    int m_position = 0;
};

/// An ordered list of named references to objects of class T, itself named by an id that its owner keeps.
template<class T> class mrp_Container : public lnk_AnyShortCut
{
public:
    mrp_Container() = default;
    mrp_Container(const std::shared_ptr<fio_FileBody>& file, long long id) : lnk_AnyShortCut(file, id) {}
    /// A new, empty container.
    static mrp_Container create(const std::shared_ptr<fio_FileBody>& file)
    {
        return mrp_Container(file, mrp_createContainer(file));
    }

    int size() const { return m_id == 0 ? 0 : entries().size(); }
    bool isEmpty() const { return size() == 0; }
    mrp_ContainerIterator<T> createIterator() const { return mrp_ContainerIterator<T>(*this); }
    const std::string& key(int position) const { return entries()[position].key; }
    lnk_ShortCut<T> at(int position) const { return lnk_ShortCut<T>(m_file, entries()[position].object); }
    /// The place of the first entry with that key, or -1.
    int find(const std::string& key) const { return m_id == 0 ? -1 : entries().find(key); }
    /// A null reference where there is no such key.
    lnk_ShortCut<T> get(const std::string& key) const
    {
        const int position = find(key);
        return position < 0 ? lnk_ShortCut<T>() : at(position);
    }
    void append(const std::string& key, const lnk_ShortCut<T>& object) { writableEntries().append(key, object.id()); }
    void insert(int position, const std::string& key, const lnk_ShortCut<T>& object)
    {
        writableEntries().insert(position, key, object.id());
    }
    /// Gives back the memory of entries and objects that hold no unsaved change.
    void release() const;

private:
    const mrp_Entries& entries() const;
    mrp_Entries& writableEntries();
};

const mrp_Entries& mrp_entries(const std::shared_ptr<fio_FileBody>& file, long long container);
mrp_Entries& mrp_writableEntries(const std::shared_ptr<fio_FileBody>& file, long long container);
void mrp_release(const std::shared_ptr<fio_FileBody>& file, long long container);

template<class T> const mrp_Entries& mrp_Container<T>::entries() const { return mrp_entries(m_file, m_id); }
template<class T> mrp_Entries& mrp_Container<T>::writableEntries() { return mrp_writableEntries(m_file, m_id); }
template<class T> void mrp_Container<T>::release() const
{
    if (m_id != 0) mrp_release(m_file, m_id);
}

#endif
