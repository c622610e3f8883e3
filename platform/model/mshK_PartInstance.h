#ifndef MSHK_PART_INSTANCE_H
#define MSHK_PART_INSTANCE_H

#include "platform/model/prtC_AssignmentLists.h"
#include "platform/store/pcl_Persistent.h"

class mshK_Mesh;
class mshK_Part;

/// A part placed in the assembly.
class mshK_PartInstance : public pcl_Class<mshK_PartInstance>
{
public:
    static constexpr const char* className = "mshK_PartInstance";
    static constexpr unsigned classId = 0x00100006;
    static constexpr int classVersion = 2;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("name", self.m_name);
        visit("part name", self.m_partName);
        visit("part", self.m_part);
        visit("mesh", self.m_mesh);
        visit("placement", self.m_placement);
        prtC_AssignmentLists::attributes(self.m_assigned, visit);
    }

    void AssignSection(const std::shared_ptr<fio_FileBody>& file, const prtC_SectionAssignment& assignment)
    {
        prtC_append(file, m_assigned.m_sections, assignment.m_sectionName, assignment);
    }

    std::string m_name;
    std::string m_partName;
    lnk_ShortCut<mshK_Part> m_part;
    lnk_ShortCut<mshK_Mesh> m_mesh;
    std::vector<double> m_placement; ///< rotation vector and translation, or empty
    prtC_AssignmentLists m_assigned;
};

#endif
