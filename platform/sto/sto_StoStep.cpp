#include "platform/sto/sto_StoStep.h"

#include "platform/attribute/stpC_Restart.h"
#include "platform/attribute/stpC_Step.h"
#include "platform/sto/sto_Procedure.h"

int sto_StoStep::stepId() const { return m_step.fetch()->m_stepId; }

shr_String sto_StoStep::name() const { return m_step.fetch()->m_name.c_str(); }

shr_String sto_StoStep::description() const { return m_step.fetch()->m_description.c_str(); }

int sto_StoStep::getDomain() const { return m_step.fetch()->m_domain; }

void sto_StoStep::setDomain(int domain)
{
    m_step.edit([domain](mshK_Step& step) { step.m_domain = domain; });
}

int sto_StoStep::getProcedureType() const { return m_step.fetch()->m_procedure; }

shr_String sto_StoStep::procedureKeyword() const { return sto_Procedure::keyword(getProcedureType()); }

double sto_StoStep::period() const { return m_step.fetch()->m_period; }

shr_String sto_StoStep::previousName() const { return m_step.fetch()->m_previousName.c_str(); }

bool sto_StoStep::isNlgeom() const { return m_step.fetch()->m_isNlgeom; }

bool sto_StoStep::isAnalisysStep() const { return m_step.fetch()->m_isAnalysisStep; }

bool sto_StoStep::isPerturbation() const { return m_step.fetch()->m_isPerturbation; }

shr_String sto_StoStep::solverInput() const { return m_step.fetch()->m_solverInput.c_str(); }

void sto_StoStep::setSolverInput(const shr_String& text)
{
    m_step.edit([&text](mshK_Step& step) { step.m_solverInput = text.cStr(); });
}

std::shared_ptr<const stpC_Step> sto_StoStep::analysisStep() const
{
    const std::shared_ptr<const mshK_Step> step = m_step.fetch();
    return step->m_settings.isValid() ? stpC_Step::fetch(step->m_settings, step->m_settingsClass) : nullptr;
}

sto_Restart sto_StoStep::Restart(int first, bool second, bool third, int fourth)
{
    const auto created = lnk_ShortCut<stpC_Restart>::create(m_step.file(), stpC_Restart(first, second, third, fourth));
    m_step.edit([&created](mshK_Step& step) { step.m_restart = created; });
    return sto_Restart(created);
}

sto_Restart sto_StoStep::restart() const { return sto_Restart(m_step.fetch()->m_restart); }

int sto_Restart::first() const { return m_restart.fetch()->argument<1>(); }
bool sto_Restart::second() const { return m_restart.fetch()->argument<2>(); }
bool sto_Restart::third() const { return m_restart.fetch()->argument<3>(); }
int sto_Restart::fourth() const { return m_restart.fetch()->argument<4>(); }

shr_String stpC_InitialStepName() { return mshK_Step::InitialStepName(); }
