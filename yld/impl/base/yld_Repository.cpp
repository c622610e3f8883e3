#include "yld_Repository.h"

#include "yld/impl/base/yld_Raise.h"

int BtreeCompare(const yld_String& nodeKey, const yld_String& key)
{
    return BtreeCompare(static_cast<const msg_StringBase&>(nodeKey), static_cast<const msg_StringBase&>(key));
}

void yld_raiseUnknownKey(const yld_String& key) { yld_raise("Key \"%s\" not found in repository", key); }

void yld_raiseUnknownKey(int key) { yld_raiseUnknownKey(yld_String(key)); }
