#include "platform/base/bas_Library.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace {

std::string events;

void onStart() { events += "work "; }

void onStop() { events += "undo "; }

void onTrace(const char* prefix, bool started) { events += std::string(prefix) + (started ? "+ " : "- "); }

void failAtStart() { throw std::runtime_error("no start"); }

class bas_LibraryTest : public testing::Test
{
protected:
    void SetUp() override
    {
        events.clear();
        m_before = bas_Library::SetTrace(onTrace);
    }
    void TearDown() override { EXPECT_EQ(bas_Library::SetTrace(m_before), onTrace); }

private:
    bas_Library::Trace m_before = nullptr;
};

} // namespace

TEST_F(bas_LibraryTest, only_the_first_start_and_the_last_stop_count)
{
    bas_Library library("abc", onStart, onStop);
    int token = 5;
    library.initialize(token);
    EXPECT_EQ(token, 6);
    EXPECT_EQ(events, "abc+ work ");
    library.initialize(token);
    EXPECT_EQ(token, 6);
    EXPECT_EQ(library.count(), 2u);
    library.finalize(token);
    EXPECT_EQ(token, 6);
    EXPECT_EQ(events, "abc+ work ");
    library.finalize(token);
    EXPECT_EQ(token, 5);
    EXPECT_EQ(events, "abc+ work undo abc- ");
    EXPECT_EQ(library.count(), 0u);
}

TEST_F(bas_LibraryTest, a_stop_too_many_has_no_effect)
{
    bas_Library library("abc", onStart, onStop);
    int token = 0;
    library.finalize(token);
    EXPECT_EQ(token, 0);
    EXPECT_EQ(library.count(), 0u);
    EXPECT_EQ(events, "");
}

TEST_F(bas_LibraryTest, failing_work_reaches_the_caller)
{
    bas_Library library("abc", failAtStart);
    int token = 0;
    EXPECT_THROW(library.initialize(token), std::runtime_error);
    EXPECT_EQ(token, 1);
}

TEST_F(bas_LibraryTest, runs_without_work)
{
    bas_Library library("abc");
    int token = 0;
    library.initialize(token);
    library.finalize(token);
    EXPECT_EQ(events, "abc+ abc- ");
    EXPECT_STREQ(library.prefix(), "abc");
}
