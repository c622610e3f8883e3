#ifndef YLD_MASS_SCALING_H
#define YLD_MASS_SCALING_H

#include "platform/base/bas_Export.h"
#include "yld_Sequence.h"
#include "yld_Set.h"

/// Mass that an explicit analysis scales, of the whole model or of a set, so that its increments become longer.
class YLD_API yld_MassScaling
{
public:
    yld_MassScaling() = default;
    /// @param factor         by which mass is multiplied
    /// @param timeIncrement  the increment that is wanted; 0 for none
    /// @param increments     how many increments lie between two times of scaling; 0 for once
    yld_MassScaling(double factor, double timeIncrement, int increments)
        : m_factor(factor), m_timeIncrement(timeIncrement), m_increments(increments)
    {
    }
    /// @param region  the set whose mass is scaled
    yld_MassScaling(const yld_Set& region, double factor, double timeIncrement, int increments)
        : m_region(region), m_factor(factor), m_timeIncrement(timeIncrement), m_increments(increments)
    {
    }

    /// An empty set for the whole model.
    const yld_Set& region() const { return m_region; }
    double factor() const { return m_factor; }
    double timeIncrement() const { return m_timeIncrement; }
    int increments() const { return m_increments; }

    /// Whether it is the very same object.
    bool operator==(const yld_MassScaling& other) const { return this == &other; }

private:
    yld_Set m_region;
    double m_factor = 1.0;
    double m_timeIncrement = 0.0;
    int m_increments = 0;
};

using yld_MassScalingList = yld_Sequence<yld_MassScaling>;

#endif
