#ifndef SETC_REGION_H
#define SETC_REGION_H

#include "platform/model/setC_Set.h"

/// What an assignment applies to: a set, whatever its members become.
class setC_Region
{
public:
    setC_Region() = default;
    explicit setC_Region(const lnk_ShortCut<setC_Set>& set) : m_set(set) {}

    /// Reads the set's row. Raises when there is no set.
    std::shared_ptr<const setC_Set> ConstSet() const { return m_set.fetch(); }

    lnk_ShortCut<setC_Set> m_set;
};

#endif
