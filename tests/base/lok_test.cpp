#include "platform/base/lok_GlobalLock.h"
#include "platform/base/lok_GlobalSingleton.h"
#include "platform/base/lok_Mutex.h"
#include "platform/base/lok_ThreadSingleton.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

struct Counted : lok_GlobalSingletonBase<Counted>
{
    Counted()
    {
        ++made;
        visibleInConstructor = Exists() && &Instance() == this;
    }
    ~Counted()
    {
        ++gone;
        visibleInDestructor = Exists() && &Instance() == this;
    }

    static inline std::atomic<int> made{0};
    static inline std::atomic<int> gone{0};
    static inline bool visibleInConstructor = false;
    static inline bool visibleInDestructor = false;
};

struct Failing : lok_GlobalSingletonBase<Failing>
{
    Failing()
    {
        if (fail) {
            throw std::runtime_error("cannot be made");
        }
    }

    static inline bool fail = true;
};

struct Local
{
    Local() { ++alive; }
    ~Local() { --alive; }
    Local(const Local&) = delete;
    Local& operator=(const Local&) = delete;

    int value = 0;
    static inline std::atomic<int> alive{0};
};

} // namespace

TEST(lok_Mutex, lets_one_thread_in)
{
    lok_Mutex mutex;
    int sum = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int k = 0; k < 1000; ++k) {
                mutex.Lock();
                ++sum;
                mutex.Unlock();
            }
        });
    }
    for (auto& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(sum, 4000);
}

TEST(lok_GlobalLock, is_held_as_long_as_the_object_lives)
{
    std::atomic<bool> entered{false};
    std::thread other;
    {
        const lok_GlobalLock held;
        other = std::thread([&] {
            const lok_GlobalLock waiting;
            entered = true;
        });
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        EXPECT_FALSE(entered);
    }
    other.join();
    EXPECT_TRUE(entered);
}

TEST(lok_GlobalSingletonBase, is_made_once_and_again_behind_finalize)
{
    Counted::made = Counted::gone = 0;
    EXPECT_FALSE(Counted::Exists());
    Counted::Finalize();
    EXPECT_EQ(Counted::gone, 0) << "nothing to finalize";
    Counted* const first = &Counted::Instance();
    EXPECT_EQ(&Counted::Instance(), first);
    EXPECT_EQ(Counted::made, 1);
    Counted::Finalize();
    EXPECT_EQ(Counted::gone, 1);
    EXPECT_FALSE(Counted::Exists());
    Counted::Instance();
    EXPECT_EQ(Counted::made, 2);
    Counted::Finalize();
    EXPECT_EQ(Counted::gone, 2);
}

TEST(lok_GlobalSingletonBase, is_visible_in_constructor_and_destructor)
{
    Counted::visibleInConstructor = Counted::visibleInDestructor = false;
    Counted::Instance();
    EXPECT_TRUE(Counted::visibleInConstructor);
    Counted::Finalize();
    EXPECT_TRUE(Counted::visibleInDestructor);
}

TEST(lok_GlobalSingletonBase, is_one_for_all_threads)
{
    for (int round = 0; round < 20; ++round) {
        Counted::made = 0;
        std::atomic<int> waiting{4};
        std::vector<std::thread> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([&] {
                --waiting;
                while (waiting > 0) {
                }
                Counted::Instance();
            });
        }
        for (auto& thread : threads) {
            thread.join();
        }
        EXPECT_EQ(Counted::made, 1);
        Counted::Finalize();
    }
}

TEST(lok_GlobalSingletonBase, a_constructor_that_throws_leaves_nothing_behind)
{
    EXPECT_THROW(Failing::Instance(), std::runtime_error);
    EXPECT_FALSE(Failing::Exists());
    Failing::fail = false;
    EXPECT_NO_THROW(Failing::Instance());
    EXPECT_TRUE(Failing::Exists());
    Failing::Finalize();
}

TEST(lok_GlobalSingleton, holds_a_class_that_knows_nothing_of_it)
{
    lok_GlobalSingleton<std::string>::Instance() = "kept";
    EXPECT_EQ(lok_GlobalSingleton<std::string>::Instance(), "kept");
    EXPECT_TRUE(lok_GlobalSingleton<std::string>::Exists());
    lok_GlobalSingleton<std::string>::Finalize();
    EXPECT_FALSE(lok_GlobalSingleton<std::string>::Exists());
    EXPECT_EQ(lok_GlobalSingleton<std::string>::Instance(), "");
    lok_GlobalSingleton<std::string>::Finalize();
}

TEST(lok_ThreadSingleton, is_one_for_each_thread_and_goes_with_it)
{
    lok_ThreadSingleton<Local>::Instance().value = 7;
    EXPECT_EQ(Local::alive, 1);
    std::thread([] {
        EXPECT_FALSE(lok_ThreadSingleton<Local>::Exists());
        EXPECT_EQ(lok_ThreadSingleton<Local>::Instance().value, 0);
        EXPECT_EQ(&lok_ThreadSingleton<Local>::Instance(), &lok_ThreadSingleton<Local>::Instance());
        EXPECT_EQ(Local::alive, 2);
    }).join();
    EXPECT_EQ(Local::alive, 1);
    EXPECT_EQ(lok_ThreadSingleton<Local>::Instance().value, 7);
    lok_ThreadSingleton<Local>::Finalize();
    EXPECT_EQ(Local::alive, 0);
    EXPECT_FALSE(lok_ThreadSingleton<Local>::Exists());
}

TEST(lok_ThreadSingleton, finalize_in_a_thread_and_again_at_its_end)
{
    std::thread([] {
        lok_ThreadSingleton<Local>::Instance();
        lok_ThreadSingleton<Local>::Finalize();
        EXPECT_EQ(Local::alive, 0);
        lok_ThreadSingleton<Local>::Instance();
        EXPECT_EQ(Local::alive, 1);
    }).join();
    EXPECT_EQ(Local::alive, 0);
}

TEST(lok_isFirstThread, knows_the_thread_of_main)
{
    EXPECT_TRUE(lok_isFirstThread());
    std::thread([] { EXPECT_FALSE(lok_isFirstThread()); }).join();
}
