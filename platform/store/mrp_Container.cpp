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
    m_entries.push_back({key, object});
    if (m_indexed) m_index.emplace(key, size() - 1);
}

void mrp_Entries::insert(int position, const std::string& key, long long object)
{
    if (position == size()) {
        append(key, object);
        return;
    }
    m_entries.insert(m_entries.begin() + position, {key, object});
    m_indexed = false;
    m_rewrite = true;
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
