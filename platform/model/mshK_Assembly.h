#ifndef MSHK_ASSEMBLY_H
#define MSHK_ASSEMBLY_H

#include "platform/model/prtC_AssignmentLists.h"
#include "platform/store/mrp_Container.h"
#include "platform/store/pcl_Persistent.h"

class mshK_Mesh;
class mshK_PartInstance;
class setC_Set;

/// The root assembly. Its sets are kept as those of a mesh are.
class mshK_Assembly : public pcl_Class<mshK_Assembly>
{
public:
    static constexpr const char* className = "mshK_Assembly";
    static constexpr unsigned classId = 0x00100007;
    static constexpr int classVersion = 2;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("name", self.m_name);
        visit("mesh", self.m_mesh);
        visit("instances", self.m_instances);
        visit("sets", self.m_sets);
        visit("internal sets", self.m_internalSets);
        visit("section assignments", self.m_sectionAssignments);
        visit("connector orientations", self.m_connectorOrientations);
        visit("solver input", self.m_solverInput);
    }

    void AssignSection(const std::shared_ptr<fio_FileBody>& file, const prtC_SectionAssignment& assignment)
    {
        prtC_append(file, m_sectionAssignments, assignment.m_sectionName, assignment);
    }
    void AssignConnectorOrientation(const std::shared_ptr<fio_FileBody>& file,
                                    const prtC_ConnectorOrientation& orientation)
    {
        prtC_append(file, m_connectorOrientations, orientation.m_first.datumName, orientation);
    }

    std::string m_name;
    lnk_ShortCut<mshK_Mesh> m_mesh; ///< null until the assembly gets nodes of its own
    mrp_Container<mshK_PartInstance> m_instances;
    mrp_Container<setC_Set> m_sets;
    mrp_Container<setC_Set> m_internalSets;
    mrp_Container<prtC_SectionAssignment> m_sectionAssignments;
    mrp_Container<prtC_ConnectorOrientation> m_connectorOrientations;
    std::string m_solverInput;
};

#endif
