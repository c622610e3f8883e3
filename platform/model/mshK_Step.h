#ifndef MSHK_STEP_H
#define MSHK_STEP_H

#include "platform/store/pcl_Persistent.h"

#include <string>

class stpC_Restart;
class stpC_Step;

/// The model side of a step: what was analysed, apart from what came out of it.
class mshK_Step : public pcl_Class<mshK_Step>
{
public:
    static constexpr const char* className = "mshK_Step";
    static constexpr unsigned classId = 0x00200001;
    static constexpr int classVersion = 2;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("step id", self.m_stepId);
        visit("name", self.m_name);
        visit("description", self.m_description);
        visit("domain", self.m_domain);
        visit("procedure", self.m_procedure);
        visit("period", self.m_period);
        visit("previous name", self.m_previousName);
        visit("nlgeom", self.m_isNlgeom);
        visit("perturbation", self.m_isPerturbation);
        visit("analysis step", self.m_isAnalysisStep);
        visit("solver input", self.m_solverInput);
        visit("settings", self.m_settings);
        visit("settings class", self.m_settingsClass);
        visit("restart", self.m_restart);
    }

    /// The name under which the state before the first step stands.
    static const char* InitialStepName();

    int m_stepId = 0; ///< counted from 1 in the order of creation; 0 is the initial step
    std::string m_name;
    std::string m_description;
    int m_domain = 0;    ///< 0 time, 1 frequency, 2 modal, 3 arc length
    int m_procedure = 0; ///< a procedure number, see sto_Procedure
    double m_period = 0.0;
    std::string m_previousName;
    bool m_isNlgeom = false;
    bool m_isPerturbation = false;
    bool m_isAnalysisStep = true;
    std::string m_solverInput;          ///< text for the solver, to follow the step's own lines
    lnk_ShortCut<stpC_Step> m_settings; ///< read through stpC_Step::fetch; null for a step made for results alone
    std::string m_settingsClass;        ///< which class of step that is
    lnk_ShortCut<stpC_Restart> m_restart;
};

#endif
