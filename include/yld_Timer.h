#ifndef YLD_TIMER_H
#define YLD_TIMER_H

#include "platform/base/sys_Timer.h"

/// A stop watch for wall time and for the processor time of the whole process.
class YLD_API yld_Timer
{
public:
    /// Begins to count, or goes on counting; without effect while running.
    void Start() { m_timer.Start(); }
    /// Ends the interval since the last Start(); without effect while stopped.
    void Stop() { m_timer.Stop(); }
    /// Stops and sets both times to 0.
    void Reset() { m_timer.Reset(); }

    /// Wall time in seconds, summed over all intervals; also good while running.
    double GetElapsedTime() const { return m_timer.GetElapsedTime(); }
    /// Processor time in seconds of all threads of the process, summed likewise.
    double GetTotalCpuTime() const { return m_timer.GetTotalCpuTime(); }

private:
    sys_Timer m_timer;
};

#endif
