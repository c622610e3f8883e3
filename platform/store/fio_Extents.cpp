#include "platform/store/fio_Extents.h"

#include "platform/store/fio_Database.h"

#include <algorithm>
#include <cstring>

namespace {

long long extentCount(std::size_t bytes)
{
    return static_cast<long long>((bytes + fio_Database::extentBytes - 1) / fio_Database::extentBytes);
}

// What is gathered before it is written: large enough that a sync costs little a byte, small enough to be no burden.
constexpr std::size_t gatherBytes = std::size_t{16} << 20;

// Smaller ones are worth a copy, so that their own memory does not wait for the disk.
constexpr std::size_t smallBytes = std::size_t{1} << 20;

struct Room
{
    fio_Buffer chunk;
    std::size_t used = 0;
};

Room& ownRoom()
{
    thread_local Room room;
    return room;
}

bool isInRoom(const fio_Buffer& bytes)
{
    const std::shared_ptr<void>& chunk = ownRoom().chunk.memory();
    return !bytes.memory().owner_before(chunk) && !chunk.owner_before(bytes.memory());
}

} // namespace

fio_Buffer fio_Extents::roomFor(std::size_t bytes)
{
    // A batch is written when it is full, so it is never larger than two.
    constexpr std::size_t chunkBytes = 2 * gatherBytes;
    if (bytes == 0 || bytes > gatherBytes) return fio_Buffer(bytes);
    Room& room = ownRoom();
    if (room.chunk.memory().use_count() == 1) room.used = 0;
    if (room.chunk.isEmpty() || bytes > room.chunk.size() - room.used) room = {fio_Buffer(chunkBytes), 0};
    const fio_Buffer given = room.chunk.part(room.used, bytes);
    room.used += (bytes + fio_Buffer::alignment - 1) / fio_Buffer::alignment * fio_Buffer::alignment;
    return given;
}

fio_Buffer fio_Extents::take(std::span<const Piece> pieces)
{
    if (pieces.size() == 1 && pieces.front().count >= gatherBytes) {
        return fio_Buffer::borrow(pieces.front().bytes, pieces.front().count);
    }
    std::size_t bytes = 0;
    for (const Piece& piece : pieces) bytes += piece.count;
    fio_Buffer taken = roomFor(bytes);
    char* to = taken.writable();
    for (const Piece& piece : pieces) {
        if (piece.count == 0) continue;
        std::memcpy(to, piece.bytes, piece.count);
        to += piece.count;
    }
    return taken;
}

long long fio_Extents::append(const fio_Buffer& bytes)
{
    if (bytes.isEmpty()) return 0;
    const long long first = m_next;
    if (bytes.size() < smallBytes && !isInRoom(bytes)) {
        fio_Buffer copy = roomFor(bytes.size());
        std::memcpy(copy.writable(), bytes.data(), bytes.size());
        m_gathered.push_back({first, copy});
    } else {
        m_gathered.push_back({first, bytes});
    }
    m_gatheredBytes += bytes.size();
    m_next += extentCount(bytes.size());
    return first;
}

void fio_Extents::withdraw(long long first)
{
    if (m_gathered.empty() || m_gathered.back().first != first) return;
    m_gatheredBytes -= m_gathered.back().bytes.size();
    m_gathered.pop_back();
}

bool fio_Extents::isFull() const { return m_gatheredBytes >= gatherBytes; }

const fio_Extents::Gathered* fio_Extents::findGathered(long long first) const
{
    const auto found = std::lower_bound(m_gathered.begin(), m_gathered.end(), first,
                                        [](const Gathered& entry, long long id) { return entry.first < id; });
    return found != m_gathered.end() && found->first == first ? &*found : nullptr;
}

void fio_Extents::read(long long first, std::size_t offset, void* into, std::size_t count)
{
    if (const Gathered* gathered = findGathered(first)) {
        if (offset > gathered->bytes.size() || count > gathered->bytes.size() - offset) {
            m_database.raise("an array is shorter than its owner says");
        }
        std::memcpy(into, gathered->bytes.data() + offset, count);
        return;
    }
    if (count > 0 && (first < 1 || first >= m_next)) {
        m_database.raise("extent " + std::to_string(first) + " is missing; the file is damaged");
    }
    auto* target = static_cast<char*>(into);
    while (count > 0) {
        const std::size_t inside = offset % fio_Database::extentBytes;
        const std::size_t piece = std::min(count, fio_Database::extentBytes - inside);
        m_database.readExtent(first + static_cast<long long>(offset / fio_Database::extentBytes), inside, target,
                              piece);
        target += piece;
        offset += piece;
        count -= piece;
    }
}

void fio_Extents::verify(long long first, std::size_t bytes)
{
    if (bytes == 0 || findGathered(first)) return;
    const long long count = extentCount(bytes);
    // Before anything is worked out: a run that no save has given, or an array larger than the whole file.
    if (first < 1 || first >= m_next || count > m_next - first ||
        static_cast<long long>(bytes) > m_database.fileBytes()) {
        m_database.raise("an array of " + std::to_string(bytes) + " bytes from extent " + std::to_string(first) +
                         " cannot be; the file is damaged");
    }
    const long long last = first + count - 1;
    const auto expected =
        static_cast<long long>(bytes - static_cast<std::size_t>(count - 1) * fio_Database::extentBytes);
    const long long size = m_database.extentSize(last);
    if (size != expected) {
        m_database.raise("extent " + std::to_string(last) + " should have " + std::to_string(expected) +
                         " bytes but has " + (size < 0 ? std::string("none") : std::to_string(size)) +
                         "; the file is damaged");
    }
}

void fio_Extents::release(long long first, std::size_t bytes)
{
    if (first > 0 && bytes > 0) m_released.push_back({first, extentCount(bytes)});
}

void fio_Extents::writeGathered()
{
    fio_Statement insert = m_database.prepare("INSERT INTO extent(id, bytes) VALUES(?1, ?2)");
    for (const Gathered& gathered : m_gathered) {
        long long id = gathered.first;
        for (std::size_t at = 0; at < gathered.bytes.size(); at += fio_Database::extentBytes) {
            insert.bind(1, id++);
            insert.bindBlob(2, gathered.bytes.data() + at,
                            std::min(fio_Database::extentBytes, gathered.bytes.size() - at));
            insert.run();
        }
    }
}

void fio_Extents::gatheredDone()
{
    m_gathered.clear();
    m_gatheredBytes = 0;
}

void fio_Extents::erase(long long first, long long count)
{
    fio_Statement erase = m_database.prepare("DELETE FROM extent WHERE id >= ?1 AND id < ?2");
    erase.bind(1, first);
    erase.bind(2, first + count);
    erase.run();
}

void fio_Extents::dropFrom(long long limit)
{
    fio_Statement look = m_database.prepare("SELECT 1 FROM extent WHERE id >= ?1 LIMIT 1");
    look.bind(1, limit);
    if (!look.step()) return;
    fio_Statement erase = m_database.prepare("DELETE FROM extent WHERE id >= ?1");
    erase.bind(1, limit);
    erase.run();
}
