#ifndef PRTC_SECTION_ASSIGNMENT_H
#define PRTC_SECTION_ASSIGNMENT_H

#include "platform/model/setC_Region.h"

/// A region of the mesh has the section of a name.
class prtC_SectionAssignment : public pcl_Class<prtC_SectionAssignment>
{
public:
    static constexpr const char* className = "prtC_SectionAssignment";
    static constexpr unsigned classId = 0x00100041;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("region", self.m_region);
        visit("section name", self.m_sectionName);
        visit("offset", self.m_offset);
    }

    prtC_SectionAssignment() = default;
    prtC_SectionAssignment(const setC_Region& region, const std::string& sectionName, double offset)
        : m_region(region), m_sectionName(sectionName), m_offset(offset)
    {
    }
    static int TypeId() { return static_cast<int>(classId); }

    setC_Region m_region;
    std::string m_sectionName;
    double m_offset = 0; ///< of the reference surface, in thicknesses
};

#endif
