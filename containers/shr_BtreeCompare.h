#ifndef SHR_BTREECOMPARE_H
#define SHR_BTREECOMPARE_H

#include "platform/base/bas_Export.h"

#include <type_traits>

class msg_StringBase;
class yld_String;

// The order of the keys of a shr_Btree: negative if the searched key sorts before the node's key, zero if
// they are equal, positive if it sorts after. A further type of key needs an overload beside its class.

/// Plain 32-bit subtraction. It wraps around, so keys more than 2147483647 apart sort the wrong way round.
inline int BtreeCompare(int nodeKey, int key) noexcept
{
    return static_cast<int>(static_cast<unsigned>(key) - static_cast<unsigned>(nodeKey));
}

template<class Enum>
requires std::is_enum_v<Enum>
int BtreeCompare(Enum nodeKey, Enum key) noexcept
{
    return BtreeCompare(static_cast<int>(nodeKey), static_cast<int>(key));
}

/// Byte by byte, or with the digits in it by value if msg_getNaturalOrder() says so. The switch must not
/// change while there are trees.
YLD_API int BtreeCompare(const msg_StringBase& nodeKey, const msg_StringBase& key);
YLD_API int BtreeCompare(const yld_String& nodeKey, const yld_String& key);

#endif
