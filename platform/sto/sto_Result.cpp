#include "platform/sto/sto_Result.h"

#include "platform/model/mshK_Step.h"
#include "platform/result/fld_Frame.h"
#include "platform/sto/sto_Step.h"
#include "platform/sto/sto_StepContainer.h"
#include "platform/sto/sto_StoStep.h"
#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"

sto_Result sto_Result::create(const std::shared_ptr<fio_FileBody>& file)
{
    fld_Result result;
    result.m_steps = mrp_Container<fld_Step>::create(file);
    return sto_Result(lnk_ShortCut<fld_Result>::create(file, std::move(result)));
}

sto_Step sto_Result::Step(const shr_String& name, const sto_StoStep& modelStep, const shr_String& previous)
{
    const auto& file = m_result.file();
    mrp_Container<fld_Step> steps = m_result.fetch()->m_steps;
    if (steps.isNull()) fio_raise(file->path(), "the results have no list of steps; the file is damaged");

    fld_Step step;
    step.m_name = name.cStr();
    step.m_frames = mrp_Container<fld_Frame>::create(file);
    step.m_modelStep = modelStep.shortCut();
    step.m_period = modelStep.period();
    const lnk_ShortCut<fld_Step> created = lnk_ShortCut<fld_Step>::create(file, std::move(step));
    steps.insert(sto_StepContainer::placeBehind(steps, previous.cStr()), name.cStr(), created);
    return sto_Step(created);
}

sto_Step sto_Result::Step(const shr_String& name)
{
    const sto_StoStep modelStep(sto_Step::findModelStep(m_result.file(), name.cStr()));
    if (!modelStep.isValid()) {
        fio_raise(m_result.file()->path(), "the model has no step named \"" + std::string(name.cStr()) + "\"");
    }
    return Step(name, modelStep, modelStep.previousName());
}

sto_Step sto_Result::step(const shr_String& name) const { return steps().get(name); }

bool sto_Result::hasStep(const shr_String& name) const { return steps().isMember(name); }

sto_StepContainer sto_Result::steps() const { return sto_StepContainer(m_result.fetch()->m_steps); }
