#ifndef SETC_REGION_H
#define SETC_REGION_H

#include "platform/model/setC_Set.h"

/// The place in the model that a setting is about: a set, by reference, so that it follows the set. Null for none.
class setC_Region : public lnk_ShortCut<setC_Set>
{
public:
    setC_Region() = default;
    explicit setC_Region(const lnk_ShortCut<setC_Set>& set) : lnk_ShortCut<setC_Set>(set) {}

    /// Raises for a region of no set.
    std::shared_ptr<const setC_Set> ConstSet() const { return fetch(); }
};

#endif
