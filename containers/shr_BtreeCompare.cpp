#include "containers/shr_BtreeCompare.h"

#include "platform/text/msg_NaturalOrder.h"
#include "platform/text/msg_StringBase.h"

#include <cstring>

int BtreeCompare(const msg_StringBase& nodeKey, const msg_StringBase& key)
{
    if (msg_getNaturalOrder()) {
        return strnatcmp(key.cStr(), nodeKey.cStr());
    }
    return std::strcmp(key.cStr(), nodeKey.cStr());
}
