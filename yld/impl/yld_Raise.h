#ifndef YLD_RAISE_H
#define YLD_RAISE_H

#include "platform/text/msg_Format.h"
#include "yld_Exception.h"

/// Raises yld_Exception of the general kind with a finished message.
template<class... Values>
[[noreturn]] void yld_raise(const char* format, const Values&... values)
{
    throw yld_Exception(yld_GENERAL, msg_Format(format, values...));
}

#endif
