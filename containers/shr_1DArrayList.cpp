#include "containers/shr_1DArrayList.h"

SHR_1DARRAY_INSTANCES()
