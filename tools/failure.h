#ifndef FAILURE_H
#define FAILURE_H

#include <stdexcept>
#include <string>

/// A failure to tell the user in one line: what went wrong, and where. Ends the program with exit code 1.
class tool_Failure : public std::runtime_error
{
public:
    explicit tool_Failure(const std::string& what) : std::runtime_error(what) {}
};

/// The reader of our standard output went away, as `head` does when it has enough: nothing to complain about.
class tool_BrokenPipe : public std::runtime_error
{
public:
    tool_BrokenPipe() : std::runtime_error("broken pipe") {}
};

#endif
