#ifndef FIO_EXTENTS_H
#define FIO_EXTENTS_H

#include "platform/store/fio_Buffer.h"
#include "platform/store/fio_Database.h"

#include <cstddef>
#include <deque>
#include <span>
#include <vector>

/// The bulk arrays of one file. An array is a run of extents with consecutive numbers, all full but the last; it
/// goes to disk as it comes, in small transactions of its own, and is referred to by the number of its first extent.
class fio_Extents
{
public:
    /// Room for an array that is to be filled and appended soon, not initialised. What is gathered lies side by side in
    /// memory that serves again when the disk has it: among the objects that stay, thousands of buffers that come and
    /// go would leave holes that nothing fits into, and fresh memory is cleared before it is written to.
    static fio_Buffer roomFor(std::size_t bytes);
    /// Bytes of a caller's, who keeps them until what is given here has been appended.
    struct Piece
    {
        const void* bytes;
        std::size_t count;
    };
    /// The pieces one after the other, to be appended soon: lent by the caller where appending writes them at once and
    /// they lie in one piece, else copied into room.
    static fio_Buffer take(std::span<const Piece> pieces);

    explicit fio_Extents(fio_Database& database) : m_database(database) {}

    /// Takes an array over. Small ones are gathered, side by side in that room, and written together.
    /// @return the number of the first extent; 0 for an empty array
    long long append(const fio_Buffer& bytes);
    /// Forgets the array that was taken last, whose memory is about to go.
    void withdraw(long long first);

    /// Reads part of an array, also one that is still gathered.
    /// @param first   number of the array's first extent
    /// @param offset  in bytes from the array's start
    void read(long long first, std::size_t offset, void* into, std::size_t count);

    /// Raises unless the array's last extent is there with the right size. Costs one look, whatever the size, and is
    /// called before memory is taken for the array.
    void verify(long long first, std::size_t bytes);

    struct Run
    {
        long long first;
        long long count;
    };

    /// Remembers extents that no object refers to any more, for the next save to deal with.
    void release(long long first, std::size_t bytes);
    const std::vector<Run>& released() const { return m_released; }
    void releaseDone() { m_released.clear(); }

    /// Writes what is gathered, in a transaction of its own.
    /// @param claim  called first inside the transaction: makes sure that the file is still this program's to write
    template<class Claim> void flush(Claim&& claim);
    /// Writes what is gathered inside a transaction of the caller's, who tells with gatheredDone() that it stands.
    void writeGathered();
    void gatheredDone();
    /// For tests.
    bool hasGathered() const { return !m_gathered.empty(); }
    /// Whether so much is gathered that it should go to disk.
    bool isFull() const;

    /// The first number that no array has yet.
    long long limit() const { return m_next; }
    void setLimit(long long limit) { m_next = limit; }
    void erase(long long first, long long count);
    /// Deletes extents that no saved state refers to: what a crash or a close without save left behind.
    void dropFrom(long long limit);

    /// For tests.
    std::size_t gatheredBytes() const { return m_gatheredBytes; }

private:
    struct Gathered
    {
        long long first;
        fio_Buffer bytes;
    };
    const Gathered* findGathered(long long first) const;

    fio_Database& m_database;
    std::deque<Gathered> m_gathered;
    std::size_t m_gatheredBytes = 0;
    std::vector<Run> m_released;
    long long m_next = 1;
};

template<class Claim> void fio_Extents::flush(Claim&& claim)
{
    if (m_gathered.empty()) return;
    m_database.begin();
    try {
        claim();
        writeGathered();
        m_database.commit();
    } catch (...) {
        m_database.rollback();
        throw;
    }
    gatheredDone();
}

#endif
