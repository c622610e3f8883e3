#ifndef MSHK_STEP_H
#define MSHK_STEP_H

#include "platform/store/pcl_Persistent.h"

#include <string>

/// The model side of a step: what was analysed, apart from what came out of it.
class mshK_Step : public pcl_Class<mshK_Step>
{
public:
    static constexpr const char* className = "mshK_Step";
    static constexpr unsigned classId = 0x00200001;
    static constexpr int classVersion = 1;
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
};

#endif
