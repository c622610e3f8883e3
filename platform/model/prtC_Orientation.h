#ifndef PRTC_ORIENTATION_H
#define PRTC_ORIENTATION_H

#include "platform/model/dfrC_DatumRef.h"
#include "platform/model/prtC_Enum.h"
#include "platform/model/setC_Region.h"

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

/// The local directions of the connectors in a region, at their first and at their second node.
class prtC_ConnectorOrientation : public pcl_Class<prtC_ConnectorOrientation>
{
public:
    static constexpr const char* className = "prtC_ConnectorOrientation";
    static constexpr unsigned classId = 0x00100044;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("region", self.m_region);
        dfrC_DatumRef::attributes(self.m_first.datum, visit, "first datum id", "first datum");
        visit("first datum name", self.m_first.datumName);
        visit("first axis", self.m_first.axis);
        visit("first angle", self.m_first.angle);
        visit("second same as first", self.m_orient2sameAs1);
        dfrC_DatumRef::attributes(self.m_second.datum, visit, "second datum id", "second datum");
        visit("second datum name", self.m_second.datumName);
        visit("second axis", self.m_second.axis);
        visit("second angle", self.m_second.angle);
    }

    /// The directions at one node.
    struct End
    {
        dfrC_DatumRef datum; ///< none for the global system
        std::string datumName;
        int axis = static_cast<int>(prtC_AxisEnm::AXIS_1);
        double angle = 0; ///< degrees
    };

    setC_Region m_region;
    End m_first;
    bool m_orient2sameAs1 = false; ///< the second end counts for nothing
    End m_second;
};

#endif
