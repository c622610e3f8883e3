#ifndef SHR_STRING_H
#define SHR_STRING_H

#include "platform/text/msg_StringBase.h"

/// The text type of the platform: msg_StringBase under its own name, with no data of its own. Going from one
/// to the other shares the body.
class YLD_API shr_String : public msg_StringBase
{
public:
    using msg_StringBase::msg_StringBase;
    shr_String() noexcept = default;
    shr_String(const msg_StringBase& text) noexcept : msg_StringBase(text) {}

    shr_String& operator=(const char* text)
    {
        msg_StringBase::operator=(text);
        return *this;
    }
};

#endif
