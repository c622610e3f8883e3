#ifndef STO_HISTORYCLOCK_H
#define STO_HISTORYCLOCK_H

#include "platform/result/fld_History.h"
#include "platform/sto/sto_HistoryArray.h"

/// A handle on the times of a curve. Copies, and curves that are made with one clock, see each other's times.
///
/// What a clock keeps is shared further: the times stand in a series that all clocks of the step use as long as they
/// are given the same times, in whatever turn. A clock that is given another time goes on in a series that has it, or
/// in one of its own.
class sto_HistoryClock
{
public:
    /// No clock.
    sto_HistoryClock() = default;
    explicit sto_HistoryClock(const lnk_ShortCut<fld_HistoryClock>& clock) : m_clock(clock) {}

    bool isValid() const { return m_clock.isValid(); }
    const lnk_ShortCut<fld_HistoryClock>& shortCut() const { return m_clock; }

    long long numTimes() const { return m_clock.fetch()->m_count; }
    /// All times, copied. Raises when the file has fewer than the clock says.
    sto_HistoryArray<double> timeArray() const;
    /// @param into  room for count numbers
    void readTimes(long long from, long long count, double* into) const;

    /// A time at the end, kept in double precision. It is gathered in memory and goes to disk in large pieces.
    void appendTimeValueNoBufferSeq(double time);
    void appendTimeValueNoBufferSeq(float time) { appendTimeValueNoBufferSeq(static_cast<double>(time)); }
    /// Takes the last time back, when what belongs to it could not be kept.
    void dropLastTime();

private:
    lnk_ShortCut<fld_HistoryClock> m_clock;
};

#endif
