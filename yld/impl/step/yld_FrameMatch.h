#ifndef YLD_FRAMEMATCH_H
#define YLD_FRAMEMATCH_H

#include "yld_Enum.h"

#include <cmath>
#include <limits>
#include <optional>

/// The search for the frame that a value stands for.
class yld_FrameMatch
{
public:
    yld_FrameMatch(double value, yld_Enum::yld_MatchEnum match) : m_value(value), m_match(match) {}

    /// How far a frame at this value is; none for one that the match rules out.
    std::optional<double> distance(double at) const
    {
        const double distance = std::fabs(m_value - at);
        if (m_match == yld_Enum::MATCH_BEFORE && at > m_value) return {};
        if (m_match == yld_Enum::MATCH_AFTER && at < m_value) return {};
        if (m_match == yld_Enum::MATCH_EXACT && !(distance == 0.0)) return {};
        return distance;
    }

    /// Whether a frame at this value is to be taken in place of those asked about before it. Of two that fit equally
    /// well it is the later one, but for a match before the value the earlier one; callers rely on each.
    bool isBetter(double at)
    {
        const std::optional<double> found = distance(at);
        if (!found || *found > m_best) return false;
        if (m_match == yld_Enum::MATCH_BEFORE && *found == m_best) return false;
        m_best = *found;
        return true;
    }

private:
    double m_value;
    yld_Enum::yld_MatchEnum m_match;
    double m_best = std::numeric_limits<double>::max();
};

#endif
