#ifndef PRTC_MATERIALORIENTATION_H
#define PRTC_MATERIALORIENTATION_H

#include "platform/model/dfrC_DatumRef.h"
#include "platform/model/prtC_Enum.h"
#include "platform/model/setC_Region.h"
#include "platform/store/pcl_Persistent.h"

#include <string>

/// The local directions of the material, or of the rebars, in a region: a datum system, turned about one of its axes.
class prtC_MaterialOrientation : public pcl_Class<prtC_MaterialOrientation>
{
public:
    static constexpr const char* className = "prtC_MaterialOrientation";
    static constexpr unsigned classId = 0x00100042;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("region", self.m_region);
        visit("name", self.m_name);
        dfrC_DatumRef::attributes(self.m_datum, visit, "datum id", "datum");
        visit("axis", self.m_axis);
        visit("angle", self.m_angle);
        visit("stack direction", self.m_stackDirection);
    }

    setC_Region m_region;
    std::string m_name; ///< of the datum system
    dfrC_DatumRef m_datum;
    int m_axis = static_cast<int>(prtC_AxisEnm::AXIS_1);
    float m_angle = 0;                                                            ///< degrees
    int m_stackDirection = static_cast<int>(prtC_StackDirectionEnm::DIRECTION_3); ///< of materials alone
};

#endif
