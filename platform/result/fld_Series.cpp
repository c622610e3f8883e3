#include "platform/result/fld_Series.h"

#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"
#include "platform/text/exc_Exception.h"

#include <algorithm>
#include <atomic>
#include <limits>

namespace {

// Tails with something in them, over all open databases.
std::atomic<int> s_tails{0};

constexpr std::size_t firstCapacity = 128;
// Runs below this size are joined at a save.
constexpr std::size_t joinedBytes = 64u << 10;
constexpr long long windowRows = 512;

[[noreturn]] void raiseDamage(const std::shared_ptr<fio_FileBody>& file)
{
    fio_raise(file->path(), "the runs of a history curve make no sense; the file is damaged");
}

// Runs an action that reads: the extents of an older state may be gone by now, which is no damage.
template<class Action> void orChanged(const std::shared_ptr<fio_FileBody>& file, const Action& action)
{
    try {
        action();
    } catch (const exc_Exception&) {
        if (file->isOpen()) file->raiseIfChanged();
        throw;
    }
}

long long extentsOf(std::size_t bytes)
{
    return static_cast<long long>((bytes + fio_Database::extentBytes - 1) / fio_Database::extentBytes);
}

} // namespace

fld_Tail::fld_Tail(const fld_Tail& other) : m_buffer(other.m_used), m_used(other.m_used)
{
    if (m_used == 0) return;
    std::memcpy(m_buffer.writable(), other.data(), m_used);
    ++s_tails;
}

std::size_t fld_Tail::limit()
{
    const auto tails = static_cast<std::size_t>(std::max(1, s_tails.load(std::memory_order_relaxed)));
    return std::clamp(budget / tails, shortest, longest) / fio_Buffer::alignment * fio_Buffer::alignment;
}

bool fld_Tail::grow()
{
    const std::size_t most = limit();
    if (m_used >= most) return false;
    fio_Buffer grown(std::clamp(2 * m_buffer.size(), firstCapacity, most));
    if (m_used > 0) std::memcpy(grown.writable(), m_buffer.data(), m_used);
    if (m_buffer.isEmpty()) ++s_tails;
    m_buffer = grown;
    return true;
}

void fld_Tail::clear()
{
    if (m_buffer.isEmpty()) return;
    --s_tails;
    m_buffer = fio_Buffer();
    m_used = 0;
}

void fld_Series::addRun(long long first, long long rows)
{
    m_runs.push_back(static_cast<double>(first));
    m_runs.push_back(static_cast<double>(rows));
}

void fld_Series::makeRoom(const std::shared_ptr<fio_FileBody>& file)
{
    if (m_tail.grow()) return;
    const auto rows = static_cast<long long>(m_tail.used() / rowBytes());
    m_runs.reserve(m_runs.size() + 2);
    addRun(file->appendBulk(m_tail.bytes()), rows);
    m_tail.clear();
    m_tail.grow();
}

void fld_Series::StoreArrays(const std::shared_ptr<fio_FileBody>& file)
{
    if (m_tail.used() > 0) {
        std::size_t bytes = m_tail.used();
        std::size_t kept = numRuns();
        while (kept > 0 && runBytes(kept - 1) < 2 * bytes && bytes + runBytes(kept - 1) <= joinedBytes) {
            bytes += runBytes(--kept);
        }
        const auto rows = static_cast<long long>(bytes / rowBytes());
        fio_Buffer run = m_tail.bytes();
        if (kept < numRuns()) {
            run = fio_Buffer(bytes);
            readBytes(file, m_rows - rows, rows, run.writable());
        }
        m_runs.reserve(m_runs.size() + 2);
        const long long first = file->appendBulk(run);
        for (std::size_t i = kept; i < numRuns(); ++i) file->extents().release(firstExtent(i), runBytes(i));
        m_runs.resize(2 * kept);
        addRun(first, rows);
        m_tail.clear();
    }
    m_mark.clear();
}

void fld_Series::verify(const std::shared_ptr<fio_FileBody>& file) const
{
    if (m_isVerified) return;
    orChanged(file, [&] { look(file); });
    m_isVerified = true;
}

void fld_Series::look(const std::shared_ptr<fio_FileBody>& file) const
{
    // Numbers stay where a double tells whole ones apart.
    constexpr double largest = 1LL << 52;
    if (m_storageType < 0 || m_storageType > 1 || m_columns < 1 || m_columns > 2 || m_rows < 0 ||
        m_runs.size() % 2 != 0) {
        raiseDamage(file);
    }
    long long rows = static_cast<long long>(m_tail.used() / rowBytes());
    long long next = 1;
    for (std::size_t i = 0; i < numRuns(); ++i) {
        for (const double number : {m_runs[2 * i], m_runs[2 * i + 1]}) {
            if (!(number >= 1.0 && number <= largest)) raiseDamage(file);
        }
        // One run after the other: so that no extent is counted twice.
        if (firstExtent(i) < next || runRows(i) > std::numeric_limits<long long>::max() / 16 - rows) raiseDamage(file);
        file->extents().verify(firstExtent(i), runBytes(i));
        next = firstExtent(i) + extentsOf(runBytes(i));
        rows += runRows(i);
    }
    if (rows != m_rows) raiseDamage(file);
}

void fld_Series::readBytes(const std::shared_ptr<fio_FileBody>& file, long long from, long long count, char* into) const
{
    const std::size_t width = rowBytes();
    const fio_ReadSession session(*file);
    long long begin = 0;
    for (std::size_t i = 0; i < numRuns() && count > 0; ++i) {
        const long long end = begin + runRows(i);
        if (from < end) {
            const long long piece = std::min(count, end - from);
            const std::size_t bytes = static_cast<std::size_t>(piece) * width;
            file->extents().read(firstExtent(i), static_cast<std::size_t>(from - begin) * width, into, bytes);
            into += bytes;
            from += piece;
            count -= piece;
        }
        begin = end;
    }
    if (count > 0) {
        std::memcpy(into, m_tail.data() + static_cast<std::size_t>(from - begin) * width,
                    static_cast<std::size_t>(count) * width);
    }
}

template<class T>
void fld_Series::read(const std::shared_ptr<fio_FileBody>& file, long long from, long long count, T* into) const
{
    verify(file);
    if (from < 0 || count < 0 || from > m_rows - count) {
        fio_raise(file->path(), "a history curve is shorter than what is asked of it");
    }
    orChanged(file, [&] {
        if (m_storageType == (sizeof(T) == sizeof(double) ? 1 : 0)) {
            readBytes(file, from, count, reinterpret_cast<char*>(into));
            return;
        }
        using Stored = std::conditional_t<sizeof(T) == sizeof(double), float, double>;
        constexpr long long blockRows = 8192;
        std::vector<Stored> block(static_cast<std::size_t>(std::min(count, blockRows) * m_columns));
        T* target = into;
        for (long long done = 0; done < count; done += blockRows) {
            const long long piece = std::min(count - done, blockRows);
            readBytes(file, from + done, piece, reinterpret_cast<char*>(block.data()));
            target = std::transform(block.data(), block.data() + piece * m_columns, target,
                                    [](Stored value) { return static_cast<T>(value); });
        }
    });
}

template void fld_Series::read(const std::shared_ptr<fio_FileBody>&, long long, long long, float*) const;
template void fld_Series::read(const std::shared_ptr<fio_FileBody>&, long long, long long, double*) const;

double fld_Series::at(const std::shared_ptr<fio_FileBody>& file, long long row) const
{
    verify(file);
    if (row < 0 || row >= m_rows) fio_raise(file->path(), "a history curve is shorter than what is asked of it");
    const std::size_t width = rowBytes();
    const long long inTail = row - (m_rows - static_cast<long long>(m_tail.used() / width));
    if (inTail >= 0) {
        const char* const place = m_tail.data() + static_cast<std::size_t>(inTail) * width;
        double wide = 0.0;
        float narrow = 0.0F;
        if (m_storageType == 1) std::memcpy(&wide, place, sizeof wide);
        else std::memcpy(&narrow, place, sizeof narrow);
        return m_storageType == 1 ? wide : static_cast<double>(narrow);
    }
    const auto windowEnd = m_windowFrom + static_cast<long long>(m_window.size()) / m_columns;
    if (row < m_windowFrom || row >= windowEnd) {
        const long long count = std::min(windowRows, m_rows - row);
        m_window.clear();
        std::vector<double> window(static_cast<std::size_t>(count * m_columns));
        read(file, row, count, window.data());
        m_window.swap(window);
        m_windowFrom = row;
    }
    return m_window[static_cast<std::size_t>((row - m_windowFrom) * m_columns)];
}
