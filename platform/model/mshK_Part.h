#ifndef MSHK_PART_H
#define MSHK_PART_H

#include "platform/model/prtC_AssignmentLists.h"
#include "platform/store/pcl_Persistent.h"

class mshK_Mesh;

/// A part.
class mshK_Part : public pcl_Class<mshK_Part>
{
public:
    static constexpr const char* className = "mshK_Part";
    static constexpr unsigned classId = 0x00100005;
    static constexpr int classVersion = 2;
    // Stored: never renumber.
    static constexpr int spaceThreeD = 2000;
    static constexpr int spaceTwoDPlanar = 2001;
    static constexpr int spaceAxisymmetric = 2002;
    static constexpr int typeDeformable = 4001;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("name", self.m_name);
        visit("space", self.m_space);
        visit("type", self.m_type);
        visit("mesh", self.m_mesh);
        prtC_AssignmentLists::attributes(self.m_assigned, visit);
    }

    void AssignSection(const std::shared_ptr<fio_FileBody>& file, const prtC_SectionAssignment& assignment)
    {
        prtC_append(file, m_assigned.m_sections, assignment.m_sectionName, assignment);
    }

    std::string m_name;
    int m_space = spaceThreeD;
    int m_type = typeDeformable;
    lnk_ShortCut<mshK_Mesh> m_mesh;
    prtC_AssignmentLists m_assigned;
};

#endif
