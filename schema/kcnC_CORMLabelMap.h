#ifndef KCNC_CORMLABELMAP_H
#define KCNC_CORMLABELMAP_H

#include "platform/auxiliary/aux_TranslationMap.h"
#include "platform/base/lok_GlobalSingleton.h"

/// The connector classes' number in the table of components.
constexpr int kcnC_componentNumber = 684;

/// The labels of a connector's components of relative motion: "None" for 0, "U1" to "U3" and "UR1" to "UR3" for 1 to 6.
/// Lives from its first use to the last stop of the library.
class kcnC_CORMLabelMap : public aux_TranslationMap, public lok_GlobalSingletonBase<kcnC_CORMLabelMap>
{
private:
    friend class lok_GlobalSingletonBase<kcnC_CORMLabelMap>;
    kcnC_CORMLabelMap();
    ~kcnC_CORMLabelMap() = default;
};

#endif
