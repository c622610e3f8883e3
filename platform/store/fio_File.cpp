#include "platform/store/fio_File.h"

#include "platform/os/osu_UrlParser.h"
#include "platform/store/fio_Error.h"
#include "platform/store/pcl_Row.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <random>

namespace {

std::string quoted(const std::string& name) { return "\"" + name + "\""; }

// The columns of an attribute: one, but for a bulk array, which has its first extent and its count.
struct Column
{
    std::string name;
    const char* type;
};

std::vector<Column> columnsOf(const pcl_ClassMetadata::Attribute& attribute)
{
    switch (attribute.kind) {
    case pcl_Kind::INT32:
    case pcl_Kind::INT64:
    case pcl_Kind::BOOL:
        return {{attribute.name, "INTEGER"}};
    case pcl_Kind::FLOAT:
    case pcl_Kind::DOUBLE:
        return {{attribute.name, "REAL"}};
    case pcl_Kind::STRING:
    case pcl_Kind::STRINGS:
        return {{attribute.name, "TEXT"}};
    case pcl_Kind::INTS:
    case pcl_Kind::DOUBLES:
        return {{attribute.name, "BLOB"}};
    case pcl_Kind::REFERENCE:
        return {{attribute.name, "INTEGER"}};
    case pcl_Kind::INT_ARRAY:
    case pcl_Kind::FLOAT_ARRAY:
    case pcl_Kind::DOUBLE_ARRAY:
        return {{attribute.name, "INTEGER"}, {attribute.name + ".count", "INTEGER"}};
    }
    return {};
}

void refuseUrl(const char* path)
{
    if (osu_UrlParser::IsUrl(path)) fio_raise(path, "is a URL; only files of this machine can be opened");
}

std::string freshUid()
{
    std::random_device device;
    char text[33];
    std::snprintf(text, sizeof text, "%08x%08x%08x%08x", device(), device(), device(), device());
    return text;
}

long long microsecondsNow()
{
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::microseconds>(now).count();
}

} // namespace

fio_FileBody::fio_FileBody(const std::string& path, fio_Database::Access access)
    : m_path(path), m_writable(access != fio_Database::Access::READ)
{
    m_database.emplace(path, access);
    m_extents.emplace(*m_database);
    if (access == fio_Database::Access::CREATE) {
        createTables();
    } else {
        readHeader();
    }
}

fio_FileBody::~fio_FileBody() = default;

fio_Database& fio_FileBody::database()
{
    if (!m_database) fio_raise(m_path, "the database is closed");
    return *m_database;
}

fio_Extents& fio_FileBody::extents()
{
    if (!m_extents) fio_raise(m_path, "the database is closed");
    return *m_extents;
}

int fio_FileBody::version() { return database().databaseVersion(); }

void fio_FileBody::createTables()
{
    m_uid = freshUid();
    m_creationDate = microsecondsNow();
    fio_Database& db = *m_database;
    try {
        db.begin();
        db.setDatabaseVersion(currentVersion);
        db.execute("CREATE TABLE header(name TEXT PRIMARY KEY, value) WITHOUT ROWID");
        db.execute("CREATE TABLE catalogue(\"Class Name\" TEXT PRIMARY KEY, \"Class Id\" INTEGER NOT NULL, "
                   "\"Class Version\" INTEGER NOT NULL, \"Class Table\" TEXT NOT NULL) WITHOUT ROWID");
        db.execute("CREATE TABLE extent(id INTEGER PRIMARY KEY, bytes BLOB NOT NULL)");
        db.execute("CREATE TABLE entry(container INTEGER NOT NULL, position BLOB NOT NULL, key TEXT NOT NULL, "
                   "object INTEGER NOT NULL, since INTEGER NOT NULL, PRIMARY KEY(container, position)) WITHOUT ROWID");
        db.execute("CREATE TABLE superseded(save INTEGER NOT NULL, at INTEGER NOT NULL, class INTEGER NOT NULL, "
                   "id INTEGER NOT NULL, which INTEGER NOT NULL)");
        writeHeader();
        db.commit();
    } catch (...) {
        db.rollback();
        m_extents.reset();
        m_database.reset();
        std::remove(m_path.c_str());
        throw;
    }
}

void fio_FileBody::readHeader()
{
    fio_Statement read = m_database->prepare("SELECT name, value FROM header");
    while (read.step()) {
        const std::string name = read.text(0);
        if (name == "creation date") m_creationDate = read.integer(1);
        else if (name == "modification date") m_modificationDate = read.integer(1);
        else if (name == "uid") m_uid = read.text(1);
        else if (name == "save count") m_saveCount = read.integer(1);
        else if (name == "next object") m_nextId = read.integer(1);
        else if (name == "next extent") m_extents->setLimit(read.integer(1));
        else if (name == "root object") m_rootObject = read.integer(1);
    }
    m_savedExtents = m_extents->limit();
    // Numbers stay far from where counting on would overflow.
    constexpr long long largest = 1LL << 60;
    if (m_nextId > largest || m_extents->limit() > largest || m_saveCount < 0 || m_saveCount > largest ||
        m_nextId < 1 || m_extents->limit() < 1 || m_uid.empty())
        m_database->raise("the header makes no sense; the file is damaged");
}

void fio_FileBody::writeHeader()
{
    fio_Statement write = m_database->prepare("INSERT OR REPLACE INTO header(name, value) VALUES(?1, ?2)");
    const auto put = [&write](const std::string& name, long long value) {
        write.bind(1, name);
        write.bind(2, value);
        write.run();
    };
    put("creation date", m_creationDate);
    put("modification date", m_modificationDate);
    put("save count", m_saveCount);
    put("next object", m_nextId);
    put("next extent", m_extents->limit());
    put("root object", m_rootObject);
    const std::string name = "uid";
    write.bind(1, name);
    write.bind(2, m_uid);
    write.run();
}

// Inside a transaction: makes sure that nobody else writes this file. The first time the saved state must be the one
// that was opened, and what an earlier writer has left behind unsaved goes; later this writer's token must still stand.
void fio_FileBody::claim()
{
    fio_Database& db = database();
    const std::string name = "writer";
    if (!m_writerToken.empty()) {
        fio_Statement read = db.prepare("SELECT value FROM header WHERE name = ?1");
        read.bind(1, name);
        if (!read.step() || read.text(0) != m_writerToken) {
            db.raise("another program has begun to write the database; nothing was saved here");
        }
        return;
    }
    {
        fio_Statement read = db.prepare("SELECT value FROM header WHERE name = 'save count'");
        if (!read.step() || read.integer(0) != m_saveCount) {
            db.raise("another program has saved the database since it was opened here; nothing was saved here");
        }
    }
    m_extents->dropFrom(m_savedExtents);
    const std::string token = freshUid();
    fio_Statement write = db.prepare("INSERT OR REPLACE INTO header(name, value) VALUES(?1, ?2)");
    write.bind(1, name);
    write.bind(2, token);
    write.run();
    m_writerToken = token;
}

void fio_FileBody::flushBulk()
{
    const std::string before = m_writerToken;
    try {
        extents().flush([this] { claim(); });
    } catch (...) {
        m_writerToken = before;
        throw;
    }
}

long long fio_FileBody::appendBulk(const fio_Buffer& bytes)
{
    if (!m_writable) fio_raise(m_path, "the database is open for reading only");
    const long long first = extents().append(bytes);
    if (!extents().isFull() && !bytes.isBorrowed()) return first;
    try {
        flushBulk();
    } catch (...) {
        // What is the store's own may go to disk with a later attempt.
        if (bytes.isBorrowed()) extents().withdraw(first);
        throw;
    }
    return first;
}

fio_FileBody::Table& fio_FileBody::tableOf(const pcl_ClassMetadata& metadata)
{
    const auto [found, isNew] = m_tables.try_emplace(metadata.id());
    Table& table = found->second;
    if (!isNew && table.exists) return table;

    // Which of the declared columns this file has; SELECT names those alone, so that a file that knows more or
    // less than the program is read all the same.
    std::vector<std::string> present;
    {
        fio_Statement info = database().prepare("SELECT name FROM pragma_table_info(?1)");
        info.bind(1, metadata.name());
        while (info.step()) present.push_back(info.text(0));
    }
    database().refuseComputedColumns(metadata.name());
    table.exists = !present.empty();
    table.columns.clear();
    table.select = "SELECT since";
    std::size_t known = 3; // oid, since, base
    int next = 1;
    for (const auto& attribute : metadata.attributes()) {
        const std::vector<Column> columns = columnsOf(attribute);
        const bool all = std::all_of(columns.begin(), columns.end(), [&present](const Column& column) {
            return std::find(present.begin(), present.end(), column.name) != present.end();
        });
        table.columns.push_back(all ? next : -1);
        if (!all) continue;
        for (const Column& column : columns) table.select += ", " + quoted(column.name);
        next += static_cast<int>(columns.size());
        known += columns.size();
    }
    table.select += " FROM " + quoted(metadata.name()) + " WHERE oid = ?1 AND since <= ?2 ORDER BY since DESC LIMIT 1";
    table.erase = "DELETE FROM " + quoted(metadata.name()) + " WHERE oid = ?1 AND since = ?2";
    table.hasUnknownColumns = present.size() > known;
    return table;
}

void fio_FileBody::makeTable(const pcl_ClassMetadata& metadata, Table& table)
{
    if (!table.insert.empty()) return;
    fio_Database& db = database();
    std::string names = "oid, since, base";
    std::string places = "?1, ?2, ?3";
    std::string updates = "since = ?2, base = ?3";
    std::string declarations = "oid INTEGER NOT NULL, since INTEGER NOT NULL, base INTEGER NOT NULL";
    int parameter = 4;
    for (std::size_t i = 0; i < metadata.attributes().size(); ++i) {
        for (const Column& column : columnsOf(metadata.attributes()[i])) {
            const std::string name = quoted(column.name);
            const std::string place = "?" + std::to_string(parameter++);
            names += ", " + name;
            places += ", " + place;
            updates += ", " + name + " = " + place;
            declarations += ", " + name + " " + column.type;
            if (table.exists && table.columns[i] < 0) {
                db.execute(
                    ("ALTER TABLE " + quoted(metadata.name()) + " ADD COLUMN " + name + " " + column.type).c_str());
            }
        }
    }
    if (!table.exists) {
        db.execute(("CREATE TABLE " + quoted(metadata.name()) + "(" + declarations +
                    ", PRIMARY KEY(oid, since)) WITHOUT ROWID")
                       .c_str());
    }
    {
        fio_Statement enter = db.prepare("INSERT OR REPLACE INTO catalogue VALUES(?1, ?2, ?3, ?1)");
        enter.bind(1, metadata.name());
        enter.bind(2, static_cast<long long>(metadata.id()));
        enter.bind(3, static_cast<long long>(metadata.version()));
        enter.run();
    }
    table.exists = false; // looked up afresh: the columns have changed
    Table& fresh = tableOf(metadata);
    fresh.insert = "INSERT INTO " + quoted(metadata.name()) + "(" + names + ") VALUES(" + places + ")";
    fresh.update = "UPDATE " + quoted(metadata.name()) + " SET " + updates + " WHERE oid = ?1 AND since = ?" +
                   std::to_string(parameter);
}

std::shared_ptr<const pcl_Persistent> fio_FileBody::fetch(long long id, const pcl_ClassMetadata& metadata,
                                                          lnk_MakeObject make)
{
    const auto found = m_objects.find(id);
    if (found != m_objects.end()) {
        if (&found->second.object->Metadata() != &metadata) {
            database().raise("object " + std::to_string(id) + " is not of class " + metadata.name() +
                             "; the file is damaged");
        }
        return found->second.object;
    }
    fio_Database& db = database();
    const Table& table = tableOf(metadata);
    if (!table.exists) db.raise("has no object of class " + metadata.name() + "; the file is damaged");
    std::shared_ptr<pcl_Persistent> object = make();
    long long since = 0;
    {
        fio_Statement row = db.prepare(table.select);
        row.bind(1, id);
        row.bind(2, m_saveCount);
        if (row.step()) {
            since = row.integer(0);
            pcl_RowReader reader(metadata, table.columns, row, shared_from_this());
            object->DBRead(reader);
        }
    }
    if (since == 0) raiseMissing("object " + std::to_string(id) + " of class " + metadata.name() + " is missing");
    m_objects[id] = {object, false, since};
    return object;
}

void fio_FileBody::replace(long long id, const std::shared_ptr<pcl_Persistent>& object)
{
    if (!m_writable) fio_raise(m_path, "the database is open for reading only");
    database();
    Object& entry = m_objects[id];
    entry.object = object;
    entry.changed = true;
}

void fio_FileBody::keepTemporary(long long owner, const std::string& name, const lnk_AnyShortCut& object)
{
    m_temporaries[owner][name] = object;
}

std::vector<lnk_AnyShortCut> fio_FileBody::temporaries(long long owner) const
{
    std::vector<lnk_AnyShortCut> all;
    const auto found = m_temporaries.find(owner);
    if (found == m_temporaries.end()) return all;
    for (const auto& [name, object] : found->second) all.push_back(object);
    return all;
}

mrp_Entries& fio_FileBody::entries(long long container)
{
    fio_Database& db = database();
    const auto [found, isNew] = m_containers.try_emplace(container);
    if (isNew) {
        auto entries = std::make_unique<mrp_Entries>();
        try {
            fio_Statement read =
                db.prepare("SELECT key, object, position FROM entry WHERE container = ?1 AND since <= ?2 "
                           "ORDER BY position");
            read.bind(1, container);
            read.bind(2, m_saveCount);
            while (read.step()) {
                std::size_t count = 0;
                const void* position = read.blob(2, count);
                entries->m_entries.push_back(
                    {read.text(0), read.integer(1), std::string(static_cast<const char*>(position), count)});
            }
        } catch (...) {
            m_containers.erase(found);
            throw;
        }
        found->second = std::move(entries);
    }
    return *found->second;
}

void fio_FileBody::release(long long id)
{
    const auto found = m_objects.find(id);
    if (found != m_objects.end() && !found->second.changed) m_objects.erase(found);
}

void fio_FileBody::releaseContainer(long long container)
{
    const auto found = m_containers.find(container);
    if (found == m_containers.end()) return;
    for (const mrp_Entries::Entry& entry : found->second->m_entries) release(entry.object);
    if (!found->second->isChanged()) m_containers.erase(found);
}

bool fio_FileBody::hasChanges() const
{
    return std::any_of(m_objects.begin(), m_objects.end(), [](const auto& entry) { return entry.second.changed; }) ||
           std::any_of(m_containers.begin(), m_containers.end(),
                       [](const auto& entry) { return entry.second->isChanged(); });
}

void fio_FileBody::writeObject(long long id, const Object& entry, long long save, long long now)
{
    const pcl_ClassMetadata& metadata = entry.object->Metadata();
    makeTable(metadata, tableOf(metadata));
    const Table& table = tableOf(metadata);
    // Columns of another program stay only with the row that has them, so such a row is changed in its place.
    const bool inPlace = entry.since != 0 && table.hasUnknownColumns;
    fio_Statement row = database().prepare(inPlace ? table.update : table.insert);
    row.bind(1, id);
    row.bind(2, save);
    row.bind(3, 0LL);
    pcl_RowWriter writer(metadata, row);
    entry.object->DBWrite(writer);
    if (inPlace) row.bind(writer.parameterCount() + 1, entry.since);
    row.run();
    if (entry.since != 0 && !inPlace) supersede(save, now, metadata.id(), id, entry.since);
}

void fio_FileBody::writeEntries(long long container, mrp_Entries& entries, long long save)
{
    fio_Database& db = database();
    fio_Statement insert =
        db.prepare("INSERT INTO entry(container, position, key, object, since) VALUES(?1, ?2, ?3, ?4, ?5)");
    for (const mrp_Entries::Entry& entry : entries.m_entries) {
        if (!entry.isNew) continue;
        insert.bind(1, container);
        insert.bindBlob(2, entry.position.data(), entry.position.size());
        insert.bind(3, entry.key);
        insert.bind(4, entry.object);
        insert.bind(5, save);
        insert.run();
    }
}

// Extents are entered with class 0, their first number and how many they are; rows with their class, object id and
// the save that wrote them.
void fio_FileBody::supersede(long long save, long long now, long long classId, long long id, long long which)
{
    fio_Statement enter = database().prepare("INSERT INTO superseded VALUES(?1, ?2, ?3, ?4, ?5)");
    enter.bind(1, save);
    enter.bind(2, now);
    enter.bind(3, classId);
    enter.bind(4, id);
    enter.bind(5, which);
    enter.run();
}

void fio_FileBody::purge(long long now)
{
    struct Old
    {
        long long rowId;
        long long classId;
        long long id;
        long long which;
    };
    std::vector<Old> old;
    {
        fio_Statement read = database().prepare("SELECT rowid, class, id, which FROM superseded WHERE at <= ?1");
        read.bind(1, now - m_keepSeconds);
        while (read.step()) old.push_back({read.integer(0), read.integer(1), read.integer(2), read.integer(3)});
    }
    fio_Statement done = database().prepare("DELETE FROM superseded WHERE rowid = ?1");
    for (const Old& entry : old) {
        if (entry.classId == 0) {
            extents().erase(entry.id, entry.which);
        } else {
            // A class that this program does not know stays for one that does.
            const auto table = m_tables.find(static_cast<unsigned>(entry.classId));
            if (table == m_tables.end() || !table->second.exists) continue;
            fio_Statement erase = database().prepare(table->second.erase);
            erase.bind(1, entry.id);
            erase.bind(2, entry.which);
            erase.run();
        }
        done.bind(1, entry.rowId);
        done.run();
    }
}

std::vector<long long> fio_FileBody::changedObjects() const
{
    std::vector<long long> changed;
    for (const auto& [id, entry] : m_objects) {
        if (entry.changed) changed.push_back(id);
    }
    // Ascending ids put new rows at the end of their tables.
    std::sort(changed.begin(), changed.end());
    return changed;
}

void fio_FileBody::takeArrays()
{
    for (long long id : changedObjects()) m_objects[id].object->StoreArrays(shared_from_this());
}

void fio_FileBody::save()
{
    fio_Database& db = database();
    if (!m_writable) db.raise("the database is open for reading only");

    const std::vector<long long> changed = changedObjects();
    // What is left of the bulk goes with the rows: there is little of it, since full batches go as they come.
    for (long long id : changed) m_objects[id].object->StoreArrays(shared_from_this());

    const long long save = m_saveCount + 1;
    const long long moment = microsecondsNow();
    const long long now = moment / 1000000;
    const long long dateBefore = m_modificationDate;
    const std::string tokenBefore = m_writerToken;
    db.begin();
    try {
        claim();
        extents().writeGathered();
        for (long long id : changed) writeObject(id, m_objects[id], save, now);
        for (auto& [id, entries] : m_containers) {
            if (entries->isChanged()) writeEntries(id, *entries, save);
        }
        for (const fio_Extents::Run& run : extents().released()) {
            if (run.first >= m_savedExtents) extents().erase(run.first, run.count);
            else supersede(save, now, 0, run.first, run.count);
        }
        purge(now);
        m_saveCount = save;
        m_modificationDate = moment;
        writeHeader();
        db.commit();
    } catch (...) {
        db.rollback();
        m_saveCount = save - 1;
        m_modificationDate = dateBefore;
        m_writerToken = tokenBefore;
        // A table made in the transaction is gone again.
        m_tables.clear();
        throw;
    }
    for (long long id : changed) {
        m_objects[id].changed = false;
        m_objects[id].since = save;
    }
    for (auto& [id, entries] : m_containers) {
        if (!entries->isChanged()) continue;
        for (mrp_Entries::Entry& entry : entries->m_entries) entry.isNew = false;
        entries->m_unsaved = 0;
    }
    m_savedExtents = extents().limit();
    extents().gatheredDone();
    extents().releaseDone();
}

void fio_FileBody::close()
{
    m_temporaries.clear();
    m_containers.clear();
    m_objects.clear();
    m_tables.clear();
    m_extents.reset();
    m_database.reset();
}

void fio_FileBody::raiseIfChanged()
{
    if (m_writable) return;
    fio_Statement read = database().prepare("SELECT value FROM header WHERE name = 'save count'");
    if (read.step() && read.integer(0) != m_saveCount) {
        database().raise("another program has changed the database since it was read here; read it anew");
    }
}

void fio_FileBody::raiseMissing(const std::string& what)
{
    raiseIfChanged();
    database().raise(what + "; the file is damaged");
}

bool fio_FileBody::refresh()
{
    if (m_writable) return false;
    const long long before = m_saveCount;
    readHeader();
    if (m_saveCount == before) return false;
    m_temporaries.clear();
    m_containers.clear();
    m_objects.clear();
    m_tables.clear();
    return true;
}

fio_File::fio_File(const std::shared_ptr<fio_FileBody>& body)
    : m_body(body), m_closing(nullptr, [body](void*) { body->close(); })
{
}

fio_File fio_File::Open(const char* path, bool forWriting, bool)
{
    refuseUrl(path);
    return fio_File(
        std::make_shared<fio_FileBody>(path, forWriting ? fio_Database::Access::WRITE : fio_Database::Access::READ));
}

fio_File fio_File::Create(const char* path)
{
    refuseUrl(path);
    return fio_File(std::make_shared<fio_FileBody>(path, fio_Database::Access::CREATE));
}
