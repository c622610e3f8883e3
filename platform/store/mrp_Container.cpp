#include "platform/store/mrp_Container.h"

#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"

int mrp_Entries::find(const std::string& key) const
{
    // A short list is searched as it is; an index would cost more than it saves.
    if (m_entries.size() < 16) {
        for (std::size_t i = 0; i < m_entries.size(); ++i) {
            if (m_entries[i].key == key) return static_cast<int>(i);
        }
        return -1;
    }
    if (!m_indexed) {
        m_index.clear();
        for (std::size_t i = 0; i < m_entries.size(); ++i) m_index.emplace(m_entries[i].key, static_cast<int>(i));
        m_indexed = true;
    }
    const auto [begin, end] = m_index.equal_range(key);
    int first = -1;
    for (auto found = begin; found != end; ++found) {
        if (first < 0 || found->second < first) first = found->second;
    }
    return first;
}

void mrp_Entries::append(const std::string& key, long long object)
{
    const double position = m_entries.empty() ? 0.0 : m_entries.back().position + 1.0;
    m_entries.push_back({key, object, position, true});
    ++m_unsaved;
    if (m_indexed) m_index.emplace(key, size() - 1);
}

void mrp_Entries::insert(int position, const std::string& key, long long object)
{
    if (position == size()) {
        append(key, object);
        return;
    }
    const auto place = m_entries.begin() + position;
    const double after = place->position;
    const double before = position == 0 ? after - 2.0 : (place - 1)->position;
    const double between = before + (after - before) / 2.0;
    m_entries.insert(place, {key, object, between, true});
    ++m_unsaved;
    m_indexed = false;
    if (between > before && between < after) return;
    // Halving has come to its end: deal the positions out again, and write all.
    m_spread = true;
    m_unsaved = size();
    for (int i = 0; i < size(); ++i) {
        m_entries[static_cast<std::size_t>(i)].position = i;
        m_entries[static_cast<std::size_t>(i)].isNew = true;
    }
}

const mrp_Entries& mrp_entries(const std::shared_ptr<fio_FileBody>& file, long long container)
{
    return file->entries(container);
}

mrp_Entries& mrp_writableEntries(const std::shared_ptr<fio_FileBody>& file, long long container)
{
    if (!file->isWritable()) fio_raise(file->path(), "the database is open for reading only");
    return file->entries(container);
}

void mrp_release(const std::shared_ptr<fio_FileBody>& file, long long container)
{
    file->releaseContainer(container);
}

long long mrp_createContainer(const std::shared_ptr<fio_FileBody>& file) { return file->newId(); }
