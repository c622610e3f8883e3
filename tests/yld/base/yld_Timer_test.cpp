#include "yld_Timer.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

TEST(yld_Timer, counts_between_start_and_stop)
{
    yld_Timer timer;
    EXPECT_EQ(timer.GetElapsedTime(), 0.0);
    EXPECT_EQ(timer.GetTotalCpuTime(), 0.0);
    timer.Start();
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    timer.Stop();
    const double elapsed = timer.GetElapsedTime();
    EXPECT_GE(elapsed, 0.020);
    EXPECT_GE(timer.GetTotalCpuTime(), 0.0);
    EXPECT_LE(timer.GetTotalCpuTime(), elapsed);
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
    EXPECT_EQ(timer.GetElapsedTime(), elapsed);
}

TEST(yld_Timer, reset_clears)
{
    yld_Timer timer;
    timer.Start();
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
    timer.Reset();
    EXPECT_EQ(timer.GetElapsedTime(), 0.0);
    EXPECT_EQ(timer.GetTotalCpuTime(), 0.0);
}
