#include "platform/sto/sto_StoStep.h"

#include "platform/model/mshK_Model.h"
#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"
#include "platform/sto/sto_Procedure.h"
#include "platform/sto/sto_StepContainer.h"

namespace {

sto_StoStep enter(const lnk_ShortCut<mshK_Model>& model, mshK_Step step, const shr_String& previous)
{
    const auto& file = model.file();
    const std::shared_ptr<const mshK_Model> body = model.fetch();
    mrp_Container<mshK_Step> steps = body->m_steps;
    if (steps.isNull()) fio_raise(file->path(), "the model has no list of steps; the file is damaged");
    step.m_previousName = previous.cStr();
    const std::string name = step.m_name;
    const int place = sto_StepContainer::placeBehind(steps, previous.cStr());
    const lnk_ShortCut<mshK_Step> created = lnk_ShortCut<mshK_Step>::create(file, std::move(step));
    steps.insert(place, name, created);
    return sto_StoStep(created);
}

mshK_Step describe(int position, const shr_String& name, const shr_String& description, int procedure, double period)
{
    mshK_Step step;
    step.m_stepId = position + 1;
    step.m_name = name.cStr();
    step.m_description = description.cStr();
    step.m_procedure = procedure;
    step.m_domain = sto_Procedure::domain(procedure);
    step.m_period = period;
    return step;
}

} // namespace

sto_StoStep sto_StoStep::GeneralStep(const lnk_ShortCut<mshK_Model>& model, int position, const shr_String& name,
                                     const shr_String& description, int procedure, double period,
                                     const shr_String& previous, int flag)
{
    mshK_Step step = describe(position, name, description, procedure, period);
    step.m_isNlgeom = flag == 1;
    return enter(model, std::move(step), previous);
}

sto_StoStep sto_StoStep::PerturbationStep(const lnk_ShortCut<mshK_Model>& model, int position, const shr_String& name,
                                          const shr_String& description, int procedure, double period,
                                          const shr_String& previous)
{
    mshK_Step step = describe(position, name, description, procedure, period);
    step.m_isPerturbation = true;
    return enter(model, std::move(step), previous);
}

sto_StoStep sto_StoStep::step(const lnk_ShortCut<mshK_Model>& model, const shr_String& name)
{
    const lnk_ShortCut<mshK_Step> found = model.fetch()->m_steps.get(name.cStr());
    if (found.isNull()) fio_raise(model.file()->path(), "the model has no step named \"" + std::string(name.cStr()) + "\"");
    return sto_StoStep(found);
}

bool sto_StoStep::hasStep(const lnk_ShortCut<mshK_Model>& model, const shr_String& name)
{
    return model.fetch()->m_steps.find(name.cStr()) >= 0;
}

int sto_StoStep::stepId() const { return m_step.fetch()->m_stepId; }

shr_String sto_StoStep::name() const { return m_step.fetch()->m_name.c_str(); }

shr_String sto_StoStep::description() const { return m_step.fetch()->m_description.c_str(); }

int sto_StoStep::getDomain() const { return m_step.fetch()->m_domain; }

void sto_StoStep::setDomain(int domain)
{
    const std::shared_ptr<mshK_Step> step = m_step.fetchWritable();
    step->m_domain = domain;
    m_step.replace(step);
}

int sto_StoStep::getProcedureType() const { return m_step.fetch()->m_procedure; }

shr_String sto_StoStep::procedureKeyword() const { return sto_Procedure::keyword(getProcedureType()); }

double sto_StoStep::period() const { return m_step.fetch()->m_period; }

shr_String sto_StoStep::previousName() const { return m_step.fetch()->m_previousName.c_str(); }

bool sto_StoStep::isNlgeom() const { return m_step.fetch()->m_isNlgeom; }

bool sto_StoStep::isAnalisysStep() const { return m_step.fetch()->m_isAnalysisStep; }

bool sto_StoStep::isPerturbation() const { return m_step.fetch()->m_isPerturbation; }

shr_String stpC_InitialStepName() { return mshK_Step::InitialStepName(); }
