#include "platform/sto/sto_HistoryClock.h"

#include "platform/result/fld_Series.h"
#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <vector>

namespace {

// Of the step's series, how many a clock tries before it makes one of its own.
constexpr int candidates = 16;
constexpr long long blockRows = 8192;

bool isSame(double a, double b) { return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b); }

bool beginAlike(const fld_Series& a, const fld_Series& b, long long count, const std::shared_ptr<fio_FileBody>& file)
{
    std::vector<double> left(static_cast<std::size_t>(std::min(count, blockRows)));
    std::vector<double> right(left.size());
    for (long long from = 0; from < count; from += blockRows) {
        const long long piece = std::min(blockRows, count - from);
        a.read(file, from, piece, left.data());
        b.read(file, from, piece, right.data());
        if (!std::equal(left.begin(), left.begin() + piece, right.begin(), isSame)) return false;
    }
    return true;
}

// A series that begins with what the clock has and goes on with the time; where there is none, a new one that begins
// with what the clock has.
lnk_ShortCut<fld_Series> otherSeries(const fld_HistoryClock& clock, const fld_Series& present, double time,
                                     const std::shared_ptr<fio_FileBody>& file)
{
    mrp_Container<fld_Series> all = clock.m_step.fetch()->m_times;
    const long long count = clock.m_count;
    for (int i = all.size() - 1; i >= 0 && i >= all.size() - candidates; --i) {
        const std::shared_ptr<const fld_Series> series = all.at(i).fetch();
        if (series.get() == &present || series->m_rows <= count) continue;
        if (isSame(series->at(file, count), time) && beginAlike(*series, present, count, file)) return all.at(i);
    }
    fld_Series fresh;
    fresh.m_storageType = 1;
    const auto made = lnk_ShortCut<fld_Series>::create(file, std::move(fresh));
    fld_Series& series = fld_inPlace(made);
    std::vector<double> block(static_cast<std::size_t>(std::min(count, blockRows)));
    for (long long from = 0; from < count; from += blockRows) {
        const long long piece = std::min(blockRows, count - from);
        present.read(file, from, piece, block.data());
        for (long long i = 0; i < piece; ++i) series.append(file, block[static_cast<std::size_t>(i)]);
    }
    all.append(std::to_string(all.size()), made);
    return made;
}

} // namespace

sto_HistoryArray<double> sto_HistoryClock::timeArray() const
{
    const std::shared_ptr<const fld_HistoryClock> clock = m_clock.fetch();
    const auto& file = m_clock.file();
    const std::shared_ptr<const fld_Series> times = clock->m_times.fetch();
    // Before memory is taken: a damaged count must not cost more than the look.
    times->verify(file);
    if (clock->m_count < 0 || clock->m_count > times->m_rows || times->m_columns != 1) {
        fio_raise(file->path(), "a history clock counts " + std::to_string(clock->m_count) + " times, but there are " +
                                    std::to_string(times->m_rows) + "; the file is damaged");
    }
    sto_HistoryArray<double> array(clock->m_count, 1);
    times->read(file, 0, clock->m_count, array.writable());
    return array;
}

void sto_HistoryClock::readTimes(long long from, long long count, double* into) const
{
    const std::shared_ptr<const fld_Series> times = m_clock.fetch()->m_times.fetch();
    if (times->m_columns != 1) fio_raise(m_clock.file()->path(), "times have two columns; the file is damaged");
    times->read(m_clock.file(), from, count, into);
}

void sto_HistoryClock::appendTimeValueNoBufferSeq(double time)
{
    const auto& file = m_clock.file();
    fld_HistoryClock& clock = fld_inPlace(m_clock);
    const std::shared_ptr<const fld_Series> times = clock.m_times.fetch();
    if (clock.m_count == times->m_rows) {
        fld_inPlace(clock.m_times).append(file, time);
    } else if (!isSame(times->at(file, clock.m_count), time)) {
        const lnk_ShortCut<fld_Series> other = otherSeries(clock, *times, time, file);
        if (other.fetch()->m_rows == clock.m_count) fld_inPlace(other).append(file, time);
        clock.m_times = other;
    }
    ++clock.m_count;
}

void sto_HistoryClock::dropLastTime()
{
    // The series keeps it: other clocks may have it, and this one will be given it again or go on in another series.
    fld_HistoryClock& clock = fld_inPlace(m_clock);
    if (clock.m_count > 0) --clock.m_count;
}
