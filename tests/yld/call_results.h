#ifndef CALL_RESULTS_H
#define CALL_RESULTS_H

#include "yld_API.h"
#include "yld_Exception.h"
#include "yld_Yld.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

/// The library, up for as long as this lives.
class Library
{
public:
    Library() { yld_initializeAPI(); }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library() { yld_finalizeAPI(); }
};

/// The text of the exception of the general kind that an action raises.
inline std::string failureOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const yld_Exception& failure) {
        EXPECT_EQ(failure.errorNo(), yld_GENERAL);
        return failure.what();
    }
    return "no exception";
}

/// What goes to the standard error stream during an action.
inline std::string warningsOf(const std::function<void()>& action)
{
    testing::internal::CaptureStderr();
    try {
        action();
    } catch (...) {
        testing::internal::GetCapturedStderr();
        throw;
    }
    return testing::internal::GetCapturedStderr();
}

/// A database at rest, without parts and steps.
inline void makeDatabase(const std::string& path) { Yld(path.c_str(), "title", "description", path.c_str()).close(); }

#endif
