#ifndef PRTC_BEAMORIENTATION_H
#define PRTC_BEAMORIENTATION_H

#include "platform/model/prtC_Enum.h"
#include "platform/model/setC_Region.h"
#include "platform/store/pcl_Persistent.h"

#include <vector>

/// The direction of the cross-section of the beams in a region.
class prtC_BeamOrientation : public pcl_Class<prtC_BeamOrientation>
{
public:
    static constexpr const char* className = "prtC_BeamOrientation";
    static constexpr unsigned classId = 0x00100043;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("region", self.m_region);
        visit("method", self.m_method);
        visit("vector", self.m_vector);
    }

    setC_Region m_region;
    int m_method = static_cast<int>(prtC_OrientationMethodEnm::COSINES);
    std::vector<double> m_vector = {0, 0, 0};
};

#endif
