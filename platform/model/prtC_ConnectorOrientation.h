#ifndef PRTC_CONNECTORORIENTATION_H
#define PRTC_CONNECTORORIENTATION_H

#include "platform/model/dfrC_DatumRef.h"
#include "platform/model/prtC_Enum.h"
#include "platform/model/setC_Region.h"
#include "platform/store/pcl_Persistent.h"

#include <string>

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
