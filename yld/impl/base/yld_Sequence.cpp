#include "yld_Sequence.h"

#include "yld_String.h"

YLD_SEQUENCE_INSTANCES()

static_assert(sizeof(yld_Sequence<int>) == sizeof(shr_1DArrayList<int>));
static_assert(sizeof(yld_Sequence<yld_String>) == sizeof(shr_1DArrayList<shr_String>));
