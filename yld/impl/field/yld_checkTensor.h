#ifndef YLD_CHECKTENSOR_H
#define YLD_CHECKTENSOR_H

#include "platform/sto/sto_Field.h"
#include "yld/impl/base/yld_Raise.h"

#include <type_traits>

/// Refuses a tensor field that is not stored in the precision in which it is going to be read, as one with a storage
/// type that means nothing. Raises "Invalid data: must be float tensor.", "Double tensor data expected.".
template<class T> void yld_checkTensor(const sto_Field& field)
{
    if constexpr (std::is_same_v<T, float>) {
        if (field.storageType() != 0) yld_raise("Invalid data: must be float tensor.");
    } else {
        if (field.storageType() != 1) yld_raise("Double tensor data expected.");
    }
}

#endif
