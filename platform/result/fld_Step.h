#ifndef FLD_STEP_H
#define FLD_STEP_H

#include "platform/store/mrp_Container.h"
#include "platform/store/pcl_Persistent.h"

#include <string>
#include <vector>

class fld_FieldDescription;
class fld_Frame;
class fld_HistoryStep;
class mshK_Step;

/// What the fields of a step have in common: their descriptions, one for each distinct combination, so that a
/// thousand frames say once what their values are.
class fld_FieldStep : public pcl_Class<fld_FieldStep>
{
public:
    static constexpr const char* className = "fld_FieldStep";
    static constexpr unsigned classId = 0x00300003;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("descriptions", self.m_descriptions);
        visit("next field key", self.m_nextFieldKey);
    }

    mrp_Container<fld_FieldDescription> m_descriptions;
    int m_nextFieldKey = 0; ///< the key of the next stored field; unique within the step
};

/// The result side of a step: its frames and its time.
class fld_Step : public pcl_Class<fld_Step>
{
public:
    static constexpr const char* className = "fld_Step";
    static constexpr unsigned classId = 0x00300002;
    static constexpr int classVersion = 2;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("name", self.m_name);
        visit("model step", self.m_modelStep);
        visit("total time", self.m_totalTime);
        visit("period", self.m_period);
        visit("frames", self.m_frames);
        visit("field step", self.m_fieldStep);
        visit("load case names", self.m_loadCaseNames);
        visit("frame load case names", self.m_frameLoadCaseNames);
        visit("mass", self.m_mass);
        visit("acoustic mass", self.m_acousticMass);
        visit("mass center", self.m_massCenter);
        visit("inertia about center", self.m_inertiaAboutCenter);
        visit("inertia about origin", self.m_inertiaAboutOrigin);
        visit("acoustic mass center", self.m_acousticMassCenter);
        visit("history step", self.m_historyStep);
    }

    std::string m_name;
    lnk_ShortCut<mshK_Step> m_modelStep;
    double m_totalTime = 0.0;
    double m_period = 0.0;
    mrp_Container<fld_Frame> m_frames;
    lnk_ShortCut<fld_FieldStep> m_fieldStep; ///< null until the step may have fields
    std::vector<std::string> m_loadCaseNames;
    std::vector<std::string> m_frameLoadCaseNames; ///< by frame, as far as any frame has one
    // Of the whole model at the beginning of the step; empty lists where the analysis has not told them.
    double m_mass = 0.0;
    double m_acousticMass = 0.0;
    std::vector<double> m_massCenter;         ///< three coordinates
    std::vector<double> m_inertiaAboutCenter; ///< 11, 22, 33, 12, 13, 23
    std::vector<double> m_inertiaAboutOrigin;
    std::vector<double> m_acousticMassCenter;
    lnk_ShortCut<fld_HistoryStep> m_historyStep; ///< null until the step may have history
};

#endif
