#ifndef FIO_FILE_H
#define FIO_FILE_H

#include "platform/store/fio_Database.h"
#include "platform/store/fio_Extents.h"
#include "platform/store/mrp_Container.h"
#include "platform/store/pcl_Persistent.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

/// What one open file consists of: the connection, the bulk arrays, the objects read so far and the containers.
/// It outlives its closing as an empty shell, so that a reference into a closed file gives an error and nothing worse.
class fio_FileBody : public std::enable_shared_from_this<fio_FileBody>
{
public:
    /// The version of databases that this library writes.
    static constexpr int currentVersion = 891;

    fio_FileBody(const std::string& path, fio_Database::Access access);
    ~fio_FileBody();

    const std::string& path() const { return m_path; }
    bool isOpen() const { return m_database.has_value(); }
    bool isWritable() const { return m_writable; }
    /// Raises when the file is closed.
    fio_Database& database();
    fio_Extents& extents();

    /// The moment of creation, in microseconds since 1970, and the identity that goes with it.
    long long creationDate() const { return m_creationDate; }
    const std::string& uid() const { return m_uid; }
    /// The moment of the save that this handle sees, in microseconds since 1970; of a file never saved, that of its
    /// creation.
    long long modificationDate() const { return m_modificationDate != 0 ? m_modificationDate : m_creationDate; }
    /// The number of the saved state that this handle sees: a reader stays with the one that it found when it opened
    /// the file, whatever a writer saves since. For tests.
    long long saveCount() const { return m_saveCount; }
    int version();

    long long newId() { return m_nextId++; }
    /// The object with which everything begins; 0 in a new file.
    long long rootObject() const { return m_rootObject; }
    void setRootObject(long long id) { m_rootObject = id; }

    std::shared_ptr<const pcl_Persistent> fetch(long long id, const pcl_ClassMetadata& metadata, lnk_MakeObject make);
    void replace(long long id, const std::shared_ptr<pcl_Persistent>& object);
    mrp_Entries& entries(long long container);
    /// Keeps an object in memory with one of the file's, under a name and in the place of what had that name, until the
    /// file is closed. No save writes it, and it makes no change of the file.
    void keepTemporary(long long owner, const std::string& name, const lnk_AnyShortCut& object);
    /// What is kept so, by name.
    std::vector<lnk_AnyShortCut> temporaries(long long owner) const;
    /// Takes a bulk array over and sends it to disk when enough has gathered; a borrowed one at once.
    /// @return the number of its first extent
    long long appendBulk(const fio_Buffer& bytes);
    /// Takes over the arrays that changed objects hold: large ones go to disk, the rest with the next batch or save.
    void takeArrays();
    /// Sends the bulk arrays that have gathered to disk.
    void flushBulk();
    /// Forgets an object or the objects of a container as far as they hold no unsaved change.
    void release(long long id);
    void releaseContainer(long long container);

    /// Whether anything waits for a save, for tests.
    bool hasChanges() const;
    /// Writes everything that changed, in one transaction; what a failed save leaves on disk is the state before.
    void save();
    /// Drops what is not saved and lets go of the file.
    void close();
    /// For a reader: looks whether another process has saved since; if so forgets everything read and sees the new
    /// state.
    bool refresh();
    /// Raises: what a reader of an older state asks for is gone, or the file is damaged.
    [[noreturn]] void raiseMissing(const std::string& what);
    /// Raises when a reader's state is no longer the latest.
    void raiseIfChanged();

    /// How long rows and extents that a save has superseded stay for readers of the state before; told by tests
    /// alone.
    void keepSuperseded(int seconds) { m_keepSeconds = seconds; }
    static constexpr int defaultKeepSeconds = 60;

    std::size_t loadedObjects() const { return m_objects.size(); }

private:
    struct Object
    {
        std::shared_ptr<pcl_Persistent> object;
        bool changed = false;
        long long since = 0; // the save that wrote the row; 0 for an object that the file lacks
    };
    struct Table
    {
        bool exists = false;
        std::vector<int> columns; // of each attribute: its place in the select list, or -1
        bool hasUnknownColumns = false;
        std::string select;
        std::string insert;
        std::string update;
        std::string erase;
    };

    void createTables();
    void readHeader();
    void writeHeader();
    Table& tableOf(const pcl_ClassMetadata& metadata);
    void makeTable(const pcl_ClassMetadata& metadata, Table& table);
    void claim();
    std::vector<long long> changedObjects() const;
    void writeObject(long long id, const Object& entry, long long save, long long now);
    void writeEntries(long long container, mrp_Entries& entries, long long save);
    void supersede(long long save, long long now, long long classId, long long id, long long which);
    void purge(long long now);

    std::string m_path;
    bool m_writable;
    std::optional<fio_Database> m_database;
    std::optional<fio_Extents> m_extents;
    std::unordered_map<long long, Object> m_objects;
    std::unordered_map<long long, std::unique_ptr<mrp_Entries>> m_containers;
    std::unordered_map<unsigned, Table> m_tables;
    std::unordered_map<long long, std::map<std::string, lnk_AnyShortCut>> m_temporaries;
    long long m_nextId = 1;
    long long m_rootObject = 0;
    long long m_creationDate = 0;
    long long m_modificationDate = 0; // of the last save; 0 in a file that lacks it
    long long m_saveCount = 0;
    long long m_savedExtents = 1; // the first extent that no saved state has
    int m_keepSeconds = defaultKeepSeconds;
    std::string m_uid;
    std::string m_writerToken; // what this writer has put in the header, once it has written
};

/// While it lives, reading many small arrays of the file is fast; see fio_Database::beginReads().
class fio_ReadSession
{
public:
    explicit fio_ReadSession(fio_FileBody& file) : m_file(file.shared_from_this()) { file.database().beginReads(); }
    fio_ReadSession(const fio_ReadSession&) = delete;
    fio_ReadSession& operator=(const fio_ReadSession&) = delete;
    ~fio_ReadSession()
    {
        if (m_file->isOpen()) m_file->database().endReads();
    }

private:
    std::shared_ptr<fio_FileBody> m_file;
};

/// A handle on a file of the store. The last handle to go closes the file: objects and their file hold each other, and
/// only closing lets go of both.
class fio_File
{
public:
    fio_File() = default;

    /// Opens an existing database. @param flag  always true
    /// Raises with the path when the file is missing, foreign or damaged, or the path is a URL.
    static fio_File Open(const char* path, bool forWriting, bool flag);
    /// Makes a new database; what stood at the path must be gone.
    static fio_File Create(const char* path);

    bool isValid() const { return m_body != nullptr; }
    const std::shared_ptr<fio_FileBody>& body() const { return m_body; }

private:
    explicit fio_File(const std::shared_ptr<fio_FileBody>& body);

    std::shared_ptr<fio_FileBody> m_body;
    std::shared_ptr<void> m_closing;
};

#endif
