#ifndef YLD_RAISE_H
#define YLD_RAISE_H

#include "platform/text/msg_Format.h"
#include "yld_Exception.h"

/// The format of a message together with the place that raises it: made from the bare text where that is
/// handed to yld_raise, so that the developer's report names the caller.
struct yld_RaiseFormat
{
    yld_RaiseFormat(const char* text, const char* callersFile = __builtin_FILE(), int callersLine = __builtin_LINE())
        : format(text), file(callersFile), line(callersLine)
    {
    }

    const char* format;
    const char* file;
    int line;
};

/// Raises yld_Exception of the general kind with a finished message.
template<class... Values> [[noreturn]] void yld_raise(const yld_RaiseFormat& message, const Values&... values)
{
    yld_Exception(yld_GENERAL, msg_Format(message.format, values...)).Throw(message.file, message.line);
}

/// Runs an action of the public interface: what the store raises in it leaves as yld_Exception with the same text.
template<class Action> auto yld_guard(Action&& action) -> decltype(action())
{
    try {
        return action();
    } catch (const yld_Exception&) {
        throw;
    } catch (const exc_Exception& failure) {
        throw yld_Exception(yld_GENERAL, failure.UserReport());
    }
}

#endif
