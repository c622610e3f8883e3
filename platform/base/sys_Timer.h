#ifndef SYS_TIMER_H
#define SYS_TIMER_H

#include "platform/base/bas_Export.h"

/// A stop watch for wall time and for the processor time of the whole process. Sums up all intervals between
/// Start() and Stop(); a running watch can be read.
class YLD_API sys_Timer
{
public:
    /// Begins an interval; without effect on a running watch.
    void Start();
    /// Ends the interval; without effect on a stopped watch.
    void Stop();
    /// Stops the watch and sets both times to 0.
    void Reset();

    /// Seconds.
    double GetElapsedTime() const;
    double GetTotalCpuTime() const;

private:
    double m_elapsed = 0;
    double m_cpu = 0;
    double m_elapsedAtStart = 0;
    double m_cpuAtStart = 0;
    bool m_running = false;
};

#endif
