#include "platform/base/mmo_Memory.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <new>

// Too large for any machine, and hidden from the compiler, which would refuse it.
static std::size_t tooMuch()
{
    volatile std::size_t bytes = PTRDIFF_MAX / 2;
    return bytes;
}

TEST(mmo_Memory, reallocKeepsContents)
{
    char* block = static_cast<char*>(mmo_Malloc(4));
    std::memcpy(block, "abc", 4);
    block = static_cast<char*>(mmo_Realloc(block, 4000));
    EXPECT_STREQ(block, "abc");
    mmo_Free(block);
}

TEST(mmo_Memory, nullBlockCountsAsNewAndMayBeFreed)
{
    void* const block = mmo_Realloc(nullptr, 8);
    ASSERT_NE(block, nullptr);
    std::memset(block, 1, 8);
    mmo_Free(block);
    mmo_Free(nullptr);
}

TEST(mmo_Memory, noBytesIsNoFailure)
{
    void* const none = mmo_Malloc(0);
    EXPECT_NE(none, nullptr);
    void* const still = mmo_Realloc(none, 0);
    EXPECT_NE(still, nullptr);
    mmo_Free(still);
}

// An address sanitizer's allocator is told by its options whether it may return null; by default it ends the
// program.
#if !defined(__SANITIZE_ADDRESS__)
TEST(mmo_Memory, raisesBadAllocAndKeepsTheOldBlock)
{
    EXPECT_THROW(mmo_Malloc(tooMuch()), std::bad_alloc);
    char* const block = static_cast<char*>(mmo_Malloc(4));
    std::memcpy(block, "abc", 4);
    EXPECT_THROW(mmo_Realloc(block, tooMuch()), std::bad_alloc);
    EXPECT_STREQ(block, "abc");
    mmo_Free(block);
}
#else
TEST(mmo_Memory, raisesBadAllocAndKeepsTheOldBlock)
{
    GTEST_SKIP() << "the sanitizer's allocator does not return null (" << tooMuch() << " bytes)";
}
#endif
