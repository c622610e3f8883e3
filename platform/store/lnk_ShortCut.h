#ifndef LNK_SHORT_CUT_H
#define LNK_SHORT_CUT_H

#include <memory>

class fio_FileBody;
class pcl_ClassMetadata;
class pcl_Persistent;

/// A reference to a stored object: the file and the object's id there. Costs nothing until it is resolved.
class lnk_AnyShortCut
{
public:
    lnk_AnyShortCut() = default;
    lnk_AnyShortCut(const std::shared_ptr<fio_FileBody>& file, long long id) : m_file(file), m_id(id) {}

    bool isNull() const { return m_id == 0; }
    bool isValid() const { return m_id != 0; }
    /// Whether the object is temporary: it belongs to the references to it, and no save writes it.
    bool isTemporary() const { return m_id < 0; }
    long long id() const { return m_id; }
    const std::shared_ptr<fio_FileBody>& file() const { return m_file; }

    bool operator==(const lnk_AnyShortCut& other) const { return m_id == other.m_id && m_file == other.m_file; }

protected:
    friend class pcl_RowReader;
    std::shared_ptr<fio_FileBody> m_file;
    long long m_id = 0;
    std::shared_ptr<const pcl_Persistent> m_apart;
};

using lnk_MakeObject = std::shared_ptr<pcl_Persistent> (*)();

/// The untyped half of the root; see lnk_ShortCut.
std::shared_ptr<const pcl_Persistent> lnk_fetch(const lnk_AnyShortCut& shortCut, const pcl_ClassMetadata& metadata,
                                                lnk_MakeObject make);
void lnk_replace(const lnk_AnyShortCut& shortCut, const std::shared_ptr<pcl_Persistent>& object);
long long lnk_create(const std::shared_ptr<fio_FileBody>& file, const std::shared_ptr<pcl_Persistent>& object);
/// The id of an object that no file has: negative, another one for each.
long long lnk_apartId();

/// A reference to a stored object of class T.
template<class T> class lnk_ShortCut : public lnk_AnyShortCut
{
public:
    lnk_ShortCut() = default;
    lnk_ShortCut(const std::shared_ptr<fio_FileBody>& file, long long id) : lnk_AnyShortCut(file, id) {}
    /// The object must be a T.
    explicit lnk_ShortCut(const lnk_AnyShortCut& other) : lnk_AnyShortCut(other) {}

    /// A new object, to be written by the next save.
    static lnk_ShortCut create(const std::shared_ptr<fio_FileBody>& file, T object)
    {
        return lnk_ShortCut(file, lnk_create(file, std::make_shared<T>(std::move(object))));
    }

    /// A new temporary object, which lives in memory alone. It may refer to stored objects, not they to it; it
    /// is never changed, and goes with the last reference. Works for files that are open for reading only.
    static lnk_ShortCut temporary(const std::shared_ptr<fio_FileBody>& file, T object)
    {
        lnk_ShortCut made(file, lnk_apartId());
        made.m_apart = std::make_shared<const T>(std::move(object));
        return made;
    }

    /// The object as it stands, read on first use. It does not change behind the caller: a later edit makes a new one.
    /// Raises when the file is closed or has no such object.
    std::shared_ptr<const T> fetch() const
    {
        if (m_apart) return std::static_pointer_cast<const T>(m_apart);
        return std::static_pointer_cast<const T>(lnk_fetch(
            *this, T::ClassMetadata(), [] { return std::static_pointer_cast<pcl_Persistent>(std::make_shared<T>()); }));
    }

    /// A private copy to change. Nothing is changed until replace() puts it back.
    std::shared_ptr<T> fetchWritable() const { return std::make_shared<T>(*fetch()); }

    /// Puts a changed copy in the object's place, to be written by the next save.
    void replace(const std::shared_ptr<T>& object) const { lnk_replace(*this, object); }

    /// Changes the object: a copy is handed to `change`, and put in the object's place once that is through. When it
    /// raises, the object stays as it was. Within it, the object is not to be edited a second time: that would be lost.
    template<class Change> void edit(Change&& change) const
    {
        const std::shared_ptr<T> object = fetchWritable();
        change(*object);
        replace(object);
    }
};

#endif
