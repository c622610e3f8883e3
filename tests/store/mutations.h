#ifndef MUTATIONS_H
#define MUTATIONS_H

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <sqlite3.h>
#include <string>
#include <vector>

/// Files that lie, made from true ones.

inline std::string bytesOf(const std::string& path)
{
    std::string bytes(std::filesystem::file_size(path), '\0');
    std::ifstream(path, std::ios::binary).read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return bytes;
}

inline void putBytes(const std::string& path, const std::string& bytes)
{
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

/// The tables of a file, open to every lie: nothing is checked, and what fails is left undone.
class Liar
{
public:
    /// @param largest  statements that would make the file larger fail; 0 for no bound
    explicit Liar(const std::string& path, unsigned seed = 1, std::size_t largest = 0) : m_random(seed)
    {
        sqlite3_open(path.c_str(), &m_handle);
        // Chance, but the same chance for the same seed.
        sqlite3_create_function(
            m_handle, "random", 0, SQLITE_UTF8, this,
            [](sqlite3_context* context, int, sqlite3_value**) {
                auto* liar = static_cast<Liar*>(sqlite3_user_data(context));
                sqlite3_result_int64(context, static_cast<sqlite3_int64>(liar->m_random()));
            },
            nullptr, nullptr);
        run("PRAGMA synchronous = OFF");
        run("PRAGMA journal_mode = MEMORY");
        run("PRAGMA writable_schema = ON");
        if (largest == 0) return;
        const auto page = list("PRAGMA page_size");
        if (!page.empty()) run("PRAGMA max_page_count = " + std::to_string(largest / std::stoul(page.front())));
    }
    Liar(const Liar&) = delete;
    Liar& operator=(const Liar&) = delete;
    ~Liar() { sqlite3_close(m_handle); }

    bool run(const std::string& sql)
    {
        return sqlite3_exec(m_handle, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
    }
    std::vector<std::string> list(const std::string& sql)
    {
        std::vector<std::string> found;
        sqlite3_exec(
            m_handle, sql.c_str(),
            [](void* into, int, char** values, char**) {
                static_cast<std::vector<std::string>*>(into)->push_back(values[0] ? values[0] : "");
                return 0;
            },
            &found, nullptr);
        return found;
    }
    std::vector<std::string> tables() { return list("SELECT name FROM sqlite_schema WHERE type = 'table'"); }
    std::vector<std::string> columns(const std::string& table)
    {
        return list("SELECT name FROM pragma_table_info('" + table + "')");
    }

private:
    sqlite3* m_handle = nullptr;
    std::mt19937 m_random;
};

/// Turns a true file into one of very many false ones, the same for the same number.
class Mutation
{
public:
    Mutation(std::string original, unsigned number, std::size_t largest = 0)
        : m_original(std::move(original)), m_random(number * 2654435761u + 1), m_largest(largest)
    {
    }

    /// Bits, bytes, pages and lengths of the file.
    void bytes(const std::string& path)
    {
        std::string file = m_original;
        const std::size_t pages = file.size() / page;
        switch (below(8)) {
        case 0:
            file[below(file.size())] ^= static_cast<char>(1u << below(8));
            break;
        case 1: // the file's own header and the schema, where a byte weighs most
            for (int i = 0; i < 8; ++i) file[below(page)] = static_cast<char>(m_random());
            break;
        case 2: // the first bytes of pages: kinds, counts and pointers to cells
            for (int i = 0; i < 4; ++i) file[below(pages) * page + below(64)] = static_cast<char>(m_random());
            break;
        case 3: {
            const std::size_t at = below(pages) * page;
            for (std::size_t i = 0; i < page; ++i) file[at + i] = static_cast<char>(m_random());
            break;
        }
        case 4:
            file.resize(below(file.size()));
            break;
        case 5: {
            const std::size_t one = below(pages) * page;
            const std::size_t other = below(pages) * page;
            std::swap_ranges(file.begin() + static_cast<std::ptrdiff_t>(one),
                             file.begin() + static_cast<std::ptrdiff_t>(one + page),
                             file.begin() + static_cast<std::ptrdiff_t>(other));
            break;
        }
        case 6: // a page twice
            file.replace(below(pages) * page, page, file, below(pages) * page, page);
            break;
        default:
            for (int i = 0; i < 200; ++i) file[below(file.size())] = static_cast<char>(m_random());
        }
        putBytes(path, file);
    }

    /// Rows that lie: values of other kinds and sizes, rows lost, doubled and moved, references to anything.
    void rows(const std::string& path)
    {
        putBytes(path, m_original);
        Liar liar(path, m_random(), m_largest);
        const auto tables = liar.tables();
        for (std::size_t i = 1 + below(3); i > 0; --i) {
            const std::string table = quoted(one(tables));
            const auto columns = liar.columns(table.substr(1, table.size() - 2));
            if (columns.empty()) continue;
            const std::string column = quoted(one(columns));
            const std::string some =
                below(3) == 0 ? "" : " WHERE abs(random()) % " + std::to_string(1 + below(12)) + " = 0";
            switch (below(6)) {
            case 0:
                liar.run("DELETE FROM " + table + some);
                break;
            case 1: // a column that takes what another has, so that an id points at something else that is there
                liar.run("UPDATE OR REPLACE " + table + " SET " + column + " = " + quoted(one(columns)) + some);
                break;
            case 2: // ids that exist, of any class
                liar.run("UPDATE OR REPLACE " + table + " SET " + column + " = abs(random()) % 60" + some);
                break;
            default:
                liar.run("UPDATE OR REPLACE " + table + " SET " + column + " = " + value() + some);
            }
        }
    }

    /// Tables and columns that are missing, of other kinds, or no tables at all.
    void schema(const std::string& path)
    {
        putBytes(path, m_original);
        Liar liar(path, m_random(), m_largest);
        const std::string name = one(liar.tables());
        const std::string table = quoted(name);
        const auto columns = liar.columns(name);
        if (columns.empty()) return;
        const std::string column = quoted(one(columns));
        std::string all;
        for (const auto& c : columns) all += (all.empty() ? "" : ", ") + quoted(c);
        switch (below(12)) {
        case 0:
            liar.run("DROP TABLE " + table);
            break;
        case 1:
            if (!liar.run("ALTER TABLE " + table + " DROP COLUMN " + column)) liar.run("DROP TABLE " + table);
            break;
        case 2:
            liar.run("ALTER TABLE " + table + " RENAME COLUMN " + column + " TO other");
            break;
        case 3: // no keys, no kinds, and all values texts
            rebuild(liar, table, all, "");
            for (const auto& c : columns)
                liar.run("UPDATE " + table + " SET " + quoted(c) + " = " + quoted(c) + " || ''");
            break;
        case 4: // a view that would never end
            moveAway(liar, table);
            liar.run("CREATE VIEW " + table +
                     " AS WITH RECURSIVE n(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM n) "
                     "SELECT x AS " +
                     all.substr(0, all.find(',')) + " FROM n");
            break;
        case 5: // a view of the true rows
            moveAway(liar, table);
            liar.run("CREATE VIEW " + table + " AS SELECT * FROM moved");
            break;
        case 6: // a trigger that would empty the file as soon as something is written
            liar.run("CREATE TRIGGER t AFTER INSERT ON " + table + " BEGIN DELETE FROM extent; END");
            liar.run("CREATE TRIGGER u AFTER UPDATE ON header BEGIN DELETE FROM entry; END");
            break;
        case 7: // every row twice
            rebuild(liar, table, all, "");
            liar.run("INSERT INTO " + table + " SELECT * FROM " + table);
            break;
        case 8: // the statement that made the table is no statement, or another
            liar.run("UPDATE sqlite_schema SET sql = " + value() + " WHERE name = '" + name + "'");
            break;
        case 9: // tables that share their pages
            liar.run(
                "UPDATE sqlite_schema SET rootpage = (SELECT rootpage FROM sqlite_schema ORDER BY random() LIMIT 1) "
                "WHERE name = '" +
                name + "'");
            break;
        case 10:
            moveAway(liar, table);
            liar.run("CREATE VIRTUAL TABLE " + table + " USING " +
                     (below(2) ? "fts5(" + all + ")" : std::string("rtree(id, a, b)")));
            break;
        default: // very many columns
            for (int i = 0; i < 60; ++i) {
                liar.run("ALTER TABLE " + table + " ADD COLUMN extra" + std::to_string(i) + " DEFAULT " + value());
            }
        }
    }

    /// The bulk and the lists: extents of other sizes, counts that no file holds, circles, long lists.
    void structure(const std::string& path)
    {
        putBytes(path, m_original);
        Liar liar(path, m_random(), m_largest);
        std::vector<std::string> classes;
        for (const auto& table : liar.tables()) {
            const auto columns = liar.columns(table);
            if (std::find(columns.begin(), columns.end(), "oid") != columns.end()) classes.push_back(table);
        }
        const std::string table = one(classes);
        const std::string count = std::to_string(1LL << below(63));
        switch (below(9)) {
        case 0:
            liar.run("UPDATE extent SET bytes = zeroblob(" + std::to_string(below(100000)) +
                     ") WHERE abs(random()) % 3 = 0");
            break;
        case 1:
            liar.run("UPDATE OR REPLACE extent SET id = id + " + std::to_string(below(5)) +
                     " WHERE abs(random()) % 3 = 0");
            break;
        case 2:
            liar.run("UPDATE extent SET bytes = " + value() + " WHERE abs(random()) % 4 = 0");
            break;
        case 3:
            for (const auto& column : liar.columns(table)) {
                if (column.find(".count") != std::string::npos) {
                    liar.run("UPDATE " + quoted(table) + " SET " + quoted(column) + " = " + count);
                }
            }
            break;
        case 4: // every reference and every list points at one object or list
            for (const auto& column : liar.columns(table)) {
                if (column == "oid" || column == "since" || column == "base") continue;
                liar.run("UPDATE " + quoted(table) + " SET " + quoted(column) + " = (SELECT oid FROM " + quoted(table) +
                         " ORDER BY random() LIMIT 1)");
            }
            break;
        case 5: // one list with all that there is, each container the same
            liar.run("UPDATE OR REPLACE entry SET container = (SELECT min(container) FROM entry), position = random()");
            break;
        case 6: // a long list
            liar.run(
                "INSERT OR REPLACE INTO entry SELECT e.container, n.value, e.key, e.object, e.since FROM "
                "(SELECT * FROM entry LIMIT 1) e, (WITH RECURSIVE c(value) AS (SELECT 1 UNION ALL SELECT value + 1 "
                "FROM c LIMIT " +
                std::to_string(below(20000)) + ") SELECT value FROM c) n");
            break;
        case 7:
            liar.run("UPDATE header SET value = " + value() + " WHERE abs(random()) % 2 = 0");
            break;
        default:
            liar.run("UPDATE entry SET object = (SELECT oid FROM " + quoted(table) +
                     " ORDER BY random() LIMIT 1), key = " + value());
        }
    }

    /// Databases of other programs that bear our sign, and other kinds of the same file.
    void foreign(const std::string& path)
    {
        std::filesystem::remove(path);
        const std::size_t what = below(9);
        if (what == 0 || what == 1) {
            putBytes(path, m_original);
            Liar liar(path, m_random());
            liar.run("PRAGMA page_size = " + std::to_string(512u << below(8)));
            liar.run(what == 0 ? "PRAGMA auto_vacuum = FULL" : "PRAGMA auto_vacuum = INCREMENTAL");
            liar.run("VACUUM");
            return;
        }
        if (what == 2) { // says that it has a write-ahead log
            std::string file = m_original;
            file[18] = file[19] = 2;
            putBytes(path, file);
            return;
        }
        Liar liar(path, m_random());
        if (what == 3) liar.run("PRAGMA encoding = 'UTF-16le'");
        if (what == 4) liar.run("PRAGMA page_size = 512");
        liar.run("PRAGMA application_id = 0x796c6431");
        liar.run("PRAGMA user_version = " + std::to_string(below(2) ? 891 : below(2000)));
        switch (what) {
        case 3:
        case 4:
            liar.run("CREATE TABLE header(name, value)");
            liar.run(
                "INSERT INTO header VALUES('uid', 'x'), ('root object', 1), ('next object', 5), ('next extent', 5), "
                "('save count', 9)");
            liar.run("CREATE TABLE extent(id INTEGER PRIMARY KEY, bytes)");
            liar.run("CREATE TABLE entry(container, position, key, object, since)");
            break;
        case 5:
            break; // nothing but the sign
        case 6:
            liar.run("CREATE TABLE something(a, b)");
            break;
        case 7:
            liar.run("CREATE VIEW header AS SELECT 'uid' AS name, 'x' AS value");
            break;
        default:
            liar.run("CREATE TABLE header(name, value)");
            for (const char* name :
                 {"uid", "root object", "next object", "next extent", "save count", "creation date"}) {
                liar.run(std::string("INSERT INTO header VALUES('") + name + "', " + value() + ")");
            }
        }
    }

private:
    static constexpr std::size_t page = 16384;

    std::size_t below(std::size_t limit) { return static_cast<std::size_t>(m_random()) % limit; }
    const std::string& one(const std::vector<std::string>& list)
    {
        static const std::string none = "header";
        return list.empty() ? none : list[below(list.size())];
    }
    static std::string quoted(const std::string& name) { return "\"" + name + "\""; }

    std::string value()
    {
        switch (below(20)) {
        case 0:
            return "NULL";
        case 1:
            return "-1";
        case 2:
            return "0";
        case 3:
            return "9223372036854775807";
        case 4:
            return "-9223372036854775807";
        case 5:
            return "2147483648";
        case 6:
            return "1e308";
        case 7:
            return "-9e999";
        case 8:
            return "'text'";
        case 9:
            return "''";
        case 10:
            return "x'010203'";
        case 11:
            return "x''";
        case 12:
            return "zeroblob(" + std::to_string(below(200000)) + ")";
        case 13:
            return "printf('%.*c', " + std::to_string(below(200000)) + ", 'x')";
        case 14:
            return "'99999999999999999999:a,'";
        case 15:
            return "'3:abc,4:'";
        case 16:
            return "cast(x'ff00fe41' AS TEXT)";
        case 17:
            return "0.5";
        case 18:
            return "randomblob(8)";
        default:
            return std::to_string(below(100));
        }
    }

    static void rebuild(Liar& liar, const std::string& table, const std::string& columns, const std::string& options)
    {
        moveAway(liar, table);
        liar.run("CREATE TABLE " + table + "(" + columns + ")" + options);
        liar.run("INSERT INTO " + table + " SELECT * FROM moved");
    }
    static void moveAway(Liar& liar, const std::string& table)
    {
        liar.run("ALTER TABLE " + table + " RENAME TO moved");
    }

    std::string m_original;
    std::mt19937 m_random;
    std::size_t m_largest;
};

#endif
