#include "schema/kcnC_CORMLabelMap.h"

kcnC_CORMLabelMap::kcnC_CORMLabelMap()
    : aux_TranslationMap({{"None", 0}, {"U1", 1}, {"U2", 2}, {"U3", 3}, {"UR1", 4}, {"UR2", 5}, {"UR3", 6}})
{
}
