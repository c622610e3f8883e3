#include "platform/base/sys_Timer.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace {

void rest() { std::this_thread::sleep_for(std::chrono::milliseconds(20)); }

// Keeps the processor busy for at least so many seconds of its time.
void work(double seconds)
{
    sys_Timer own;
    own.Start();
    while (own.GetTotalCpuTime() < seconds) {
    }
}

} // namespace

TEST(sys_Timer, begins_at_zero_and_stays_there_until_started)
{
    sys_Timer timer;
    rest();
    EXPECT_EQ(timer.GetElapsedTime(), 0);
    EXPECT_EQ(timer.GetTotalCpuTime(), 0);
    timer.Stop();
    EXPECT_EQ(timer.GetElapsedTime(), 0);
}

TEST(sys_Timer, counts_while_running_and_keeps_when_stopped)
{
    sys_Timer timer;
    timer.Start();
    rest();
    EXPECT_GE(timer.GetElapsedTime(), 0.020);
    timer.Stop();
    const double elapsed = timer.GetElapsedTime();
    EXPECT_GE(elapsed, 0.020);
    rest();
    EXPECT_EQ(timer.GetElapsedTime(), elapsed);
    timer.Start();
    rest();
    timer.Stop();
    EXPECT_GE(timer.GetElapsedTime(), elapsed + 0.020);
}

TEST(sys_Timer, start_of_a_running_watch_has_no_effect)
{
    sys_Timer timer;
    timer.Start();
    rest();
    timer.Start();
    EXPECT_GE(timer.GetElapsedTime(), 0.020);
}

TEST(sys_Timer, processor_time_counts_work_and_not_rest)
{
    sys_Timer timer;
    timer.Start();
    rest();
    const double atRest = timer.GetTotalCpuTime();
    EXPECT_LT(atRest, timer.GetElapsedTime());
    work(0.02);
    timer.Stop();
    EXPECT_GE(timer.GetTotalCpuTime(), atRest + 0.02);
}

TEST(sys_Timer, processor_time_counts_other_threads)
{
    sys_Timer timer;
    timer.Start();
    std::thread(work, 0.02).join();
    timer.Stop();
    EXPECT_GE(timer.GetTotalCpuTime(), 0.02);
}

TEST(sys_Timer, reset_stops_and_clears)
{
    sys_Timer timer;
    timer.Start();
    rest();
    timer.Reset();
    EXPECT_EQ(timer.GetElapsedTime(), 0);
    EXPECT_EQ(timer.GetTotalCpuTime(), 0);
    rest();
    EXPECT_EQ(timer.GetElapsedTime(), 0);
}
