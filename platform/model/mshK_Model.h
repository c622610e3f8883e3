#ifndef MSHK_MODEL_H
#define MSHK_MODEL_H

#include "platform/model/mshK_AttributeKinds.h"
#include "platform/store/mrp_Container.h"
#include "platform/store/pcl_Persistent.h"

#include <string>
#include <vector>

class axs_DatumCsys;
class mshK_Assembly;
class mshK_Part;
class mshK_Step;
class secC_Section;

/// The model of a database: parts, root assembly, the model side of the steps.
class mshK_Model : public pcl_Class<mshK_Model>
{
public:
    static constexpr const char* className = "mshK_Model";
    static constexpr unsigned classId = 0x00100001;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("name", self.m_name);
        visit("title", self.m_title);
        visit("analysis version", self.m_analysisVersion);
        visit("global job", self.m_globalJob);
        visit("shell to solid", self.m_shellToSolid);
        visit("dimension", self.m_dimension);
        visit("next mesh index", self.m_nextMeshIndex);
        visit("parts", self.m_parts);
        visit("root assembly", self.m_rootAssembly);
        visit("steps", self.m_steps);
        visit("solver input", self.m_solverInput);
        visit("top level solver input", self.m_topLevelSolverInput);
        visit("sector axis", self.m_sectorAxis);
        visit("sectors", self.m_sectors);
        visit("sector ties", self.m_sectorTies);
        visit("datums", self.m_datums);
        visit("sections", self.m_sections);
#define MSHK_VISIT(stored, value, repository, member, text) visit(text, self.m_##member);
        MSHK_ATTRIBUTE_KINDS(MSHK_VISIT)
#undef MSHK_VISIT
    }

    /// The name of the datum with that id; empty for an id that none has. Looks at the row of each.
    std::string datumNameFromID(int id) const;

    /// Turns the progress messages of the model layer on or off for the process.
    static void GenerateWipMessages(bool on);
    /// For tests.
    static bool generatesWipMessages();

    std::string m_name;
    std::string m_title;
    std::string m_analysisVersion;
    std::string m_globalJob;
    bool m_shellToSolid = false;
    int m_dimension = 3; ///< of the space that the parts are in
    int m_nextMeshIndex = 0;
    mrp_Container<mshK_Part> m_parts;
    lnk_ShortCut<mshK_Assembly> m_rootAssembly;
    mrp_Container<mshK_Step> m_steps;
    std::string m_solverInput;
    std::string m_topLevelSolverInput;
    std::vector<double> m_sectorAxis; ///< two points of the axis of cyclic symmetry, six coordinates; empty without
    int m_sectors = 0;
    std::vector<std::string> m_sectorTies; ///< names of the constraints that tie neighbouring sectors
    mrp_Container<axs_DatumCsys> m_datums; ///< by name; null until there is one, as the sections are
    mrp_Container<secC_Section> m_sections;
    // How the analysis was set up, by name; each null until there is one of its kind.
#define MSHK_MEMBER(stored, value, repository, member, text) mrp_Container<stored> m_##member;
    MSHK_ATTRIBUTE_KINDS(MSHK_MEMBER)
#undef MSHK_MEMBER
};

#endif
