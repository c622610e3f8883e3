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

namespace {

// Positions at the end of a list count up in eight bytes, and begin in the middle so that there is room in front.
constexpr std::size_t countedBytes = 8;
constexpr unsigned char firstByte = 0x40;

std::string nextPosition(const std::string& last)
{
    std::string position = last.substr(0, countedBytes);
    position.resize(countedBytes, '\0');
    for (std::size_t i = countedBytes; i-- > 0;) {
        const auto byte = static_cast<unsigned char>(position[i]);
        position[i] = static_cast<char>(byte + 1);
        if (byte != 0xff) return position;
    }
    return mrp_positionBetween(last, std::string());
}

} // namespace

std::string mrp_positionBetween(const std::string& before, const std::string& after)
{
    std::string position;
    bool isBounded = !after.empty();
    for (std::size_t i = 0;; ++i) {
        const int low = i < before.size() ? static_cast<unsigned char>(before[i]) : 0;
        int high = 256;
        if (isBounded) high = i < after.size() ? static_cast<unsigned char>(after[i]) : 0;
        if (high - low > 1) {
            position += static_cast<char>(low + (high - low) / 2);
            return position;
        }
        position += static_cast<char>(low);
        // From here on any continuation stays below what comes after.
        if (high > low) isBounded = false;
        // Positions of a damaged file may stand in no order: the result then is one after the first.
        if (isBounded && i > after.size() && i > before.size()) isBounded = false;
    }
}

void mrp_Entries::append(const std::string& key, long long object)
{
    const std::string position =
        m_entries.empty() ? std::string(1, static_cast<char>(firstByte)) + std::string(countedBytes - 1, '\0')
                          : nextPosition(m_entries.back().position);
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
    const std::string between =
        mrp_positionBetween(position == 0 ? std::string() : (place - 1)->position, place->position);
    m_entries.insert(place, {key, object, between, true});
    ++m_unsaved;
    m_indexed = false;
}

const mrp_Entries& mrp_entries(const std::shared_ptr<fio_FileBody>& file, long long container)
{
    return file->entries(container);
}

mrp_Entries& mrp_writableEntries(const std::shared_ptr<fio_FileBody>& file, long long container)
{
    // A damaged row may refer to no list where every sound one has its own.
    if (!file || container == 0) {
        fio_raise(file ? file->path() : std::string("the database"), "a list is missing; the file is damaged");
    }
    if (!file->isWritable()) fio_raise(file->path(), "the database is open for reading only");
    return file->entries(container);
}

void mrp_release(const std::shared_ptr<fio_FileBody>& file, long long container) { file->releaseContainer(container); }

long long mrp_createContainer(const std::shared_ptr<fio_FileBody>& file) { return file->newId(); }
