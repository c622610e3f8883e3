#include "platform/base/sys_Timer.h"

#include <ctime>

namespace {

double secondsOf(clockid_t clock)
{
    timespec now{};
    clock_gettime(clock, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

} // namespace

void sys_Timer::Start()
{
    if (!m_running) {
        m_running = true;
        m_elapsedAtStart = secondsOf(CLOCK_MONOTONIC);
        m_cpuAtStart = secondsOf(CLOCK_PROCESS_CPUTIME_ID);
    }
}

void sys_Timer::Stop()
{
    m_elapsed = GetElapsedTime();
    m_cpu = GetTotalCpuTime();
    m_running = false;
}

void sys_Timer::Reset() { *this = sys_Timer(); }

double sys_Timer::GetElapsedTime() const
{
    return m_running ? m_elapsed + secondsOf(CLOCK_MONOTONIC) - m_elapsedAtStart : m_elapsed;
}

double sys_Timer::GetTotalCpuTime() const
{
    return m_running ? m_cpu + secondsOf(CLOCK_PROCESS_CPUTIME_ID) - m_cpuAtStart : m_cpu;
}
