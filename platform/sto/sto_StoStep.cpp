#include "platform/sto/sto_StoStep.h"

#include "platform/attribute/stpC_Steps.h"
#include "platform/model/mshK_Model.h"
#include "platform/sto/sto_Model.h"
#include "platform/sto/sto_Procedure.h"
#include "platform/sto/sto_StepContainer.h"
#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"

#include <algorithm>

namespace {

mrp_Container<mshK_Step> stepsOf(const lnk_ShortCut<mshK_Model>& model)
{
    const mrp_Container<mshK_Step> steps = model.fetch()->m_steps;
    if (steps.isNull()) fio_raise(model.file()->path(), "the model has no list of steps; the file is damaged");
    return steps;
}

sto_StoStep enter(const lnk_ShortCut<mshK_Model>& model, mshK_Step step, const shr_String& previous)
{
    const auto& file = model.file();
    mrp_Container<mshK_Step> steps = stepsOf(model);
    const bool hasInitial = steps.find(mshK_Step::InitialStepName()) >= 0;
    step.m_stepId = steps.size() + (hasInitial ? 0 : 1);
    step.m_previousName = previous.cStr();
    const std::string name = step.m_name;
    // What is found under a name stays: a step that comes in under a name that is taken goes after its namesake.
    const int place = std::max(sto_StepContainer::placeBehind(steps, previous.cStr()), steps.find(name) + 1);
    const lnk_ShortCut<mshK_Step> created = lnk_ShortCut<mshK_Step>::create(file, std::move(step));
    steps.insert(place, name, created);
    return sto_StoStep(created);
}

mshK_Step describe(const shr_String& name, const shr_String& description, int procedure, double period)
{
    mshK_Step step;
    step.m_name = name.cStr();
    step.m_description = description.cStr();
    step.m_procedure = procedure;
    step.m_domain = sto_Procedure::domain(procedure);
    step.m_period = period;
    return step;
}

} // namespace

sto_StoStep sto_Model::GeneralStep(int, const shr_String& name, const shr_String& description, int procedure,
                                   double period, const shr_String& previous, int flag) const
{
    mshK_Step step = describe(name, description, procedure, period);
    step.m_isNlgeom = flag == 1;
    return enter(m_reference, std::move(step), previous);
}

sto_StoStep sto_Model::PerturbationStep(int, const shr_String& name, const shr_String& description, int procedure,
                                        double period, const shr_String& previous) const
{
    mshK_Step step = describe(name, description, procedure, period);
    step.m_isPerturbation = true;
    return enter(m_reference, std::move(step), previous);
}

sto_StoStep sto_Model::Step(int, const shr_String& name, const shr_String& description, const stpC_Step& settings,
                            const shr_String& previous) const
{
    const pcl_Persistent& stored = settings.persistent();
    mshK_Step step = describe(name, description, settings.procedure(), settings.timePeriod());
    step.m_isNlgeom = settings.isNlgeom();
    step.m_isPerturbation = settings.isPerturbation();
    step.m_settings = lnk_ShortCut<stpC_Step>(modelFile(), lnk_create(modelFile(), stored.Clone()));
    step.m_settingsClass = stored.Metadata().name();
    return enter(m_reference, std::move(step), previous);
}

sto_StoStep sto_Model::step(const shr_String& name) const
{
    mrp_Container<mshK_Step> steps = stepsOf(m_reference);
    lnk_ShortCut<mshK_Step> found = steps.get(name.cStr());
    if (found.isValid()) return sto_StoStep(found);
    if (name.compare(mshK_Step::InitialStepName()) != 0) {
        fio_raise(modelFile()->path(), "the model has no step named \"" + std::string(name.cStr()) + "\"");
    }
    mshK_Step initial;
    initial.m_name = mshK_Step::InitialStepName();
    initial.m_isAnalysisStep = false;
    found = lnk_ShortCut<mshK_Step>::create(modelFile(), std::move(initial));
    steps.insert(0, mshK_Step::InitialStepName(), found);
    return sto_StoStep(found);
}

int sto_StoStep::stepId() const { return m_step.fetch()->m_stepId; }

shr_String sto_StoStep::name() const { return m_step.fetch()->m_name.c_str(); }

shr_String sto_StoStep::description() const { return m_step.fetch()->m_description.c_str(); }

int sto_StoStep::getDomain() const { return m_step.fetch()->m_domain; }

namespace {

template<class Change> void edit(const lnk_ShortCut<mshK_Step>& shortCut, Change change)
{
    const std::shared_ptr<mshK_Step> step = shortCut.fetchWritable();
    change(*step);
    shortCut.replace(step);
}

} // namespace

void sto_StoStep::setDomain(int domain)
{
    edit(m_step, [domain](mshK_Step& step) { step.m_domain = domain; });
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
    edit(m_step, [&text](mshK_Step& step) { step.m_solverInput = text.cStr(); });
}

std::shared_ptr<const stpC_Step> sto_StoStep::analysisStep() const
{
    const std::shared_ptr<const mshK_Step> step = m_step.fetch();
    return step->m_settings.isValid() ? stpC_Step::fetch(step->m_settings, step->m_settingsClass) : nullptr;
}

sto_Restart sto_StoStep::Restart(int first, bool second, bool third, int fourth)
{
    const auto created = lnk_ShortCut<stpC_Restart>::create(m_step.file(), stpC_Restart(first, second, third, fourth));
    edit(m_step, [&created](mshK_Step& step) { step.m_restart = created; });
    return sto_Restart(created);
}

sto_Restart sto_StoStep::restart() const { return sto_Restart(m_step.fetch()->m_restart); }

int sto_Restart::first() const { return m_restart.fetch()->argument<1>(); }
bool sto_Restart::second() const { return m_restart.fetch()->argument<2>(); }
bool sto_Restart::third() const { return m_restart.fetch()->argument<3>(); }
int sto_Restart::fourth() const { return m_restart.fetch()->argument<4>(); }

shr_String stpC_InitialStepName() { return mshK_Step::InitialStepName(); }
