#ifndef MSG_FORMAT_H
#define MSG_FORMAT_H

#include "platform/text/msg_translate.h"

/// A finished message: the format, translated, with the values in its placeholders in their order. Values are
/// texts (const char*, any string of the library) or integers, at most nine.
template<class... Values> msg_StringBase msg_Format(const char* format, const Values&... values)
{
    static_assert(sizeof...(Values) <= msg_translate::mostValues);
    msg_translate message(format);
    [[maybe_unused]] int position = 0;
    (message.msg_SubstituteFormat(++position, values), ...);
    return message.Result();
}

#endif
