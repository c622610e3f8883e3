#include "platform/sto/sto_Result.h"

#include "platform/attribute/mshK_Step.h"
#include "platform/result/fld_Frame.h"
#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"
#include "platform/sto/sto_Step.h"
#include "platform/sto/sto_StepContainer.h"

sto_Result sto_Result::create(const std::shared_ptr<fio_FileBody>& file)
{
    fld_Result result;
    result.m_steps = mrp_Container<fld_Step>::create(file);
    return sto_Result(lnk_ShortCut<fld_Result>::create(file, std::move(result)));
}

sto_Step sto_Result::Step(const shr_String& name)
{
    const auto& file = m_result.file();
    mrp_Container<fld_Step> steps = m_result.fetch()->m_steps;
    if (steps.isNull()) fio_raise(file->path(), "the results have no list of steps; the file is damaged");

    fld_Step step;
    step.m_name = name.cStr();
    step.m_frames = mrp_Container<fld_Frame>::create(file);
    step.m_modelStep = sto_Step::findModelStep(file, step.m_name);
    int place = steps.size();
    if (step.m_modelStep.isValid()) {
        const std::shared_ptr<const mshK_Step> model = step.m_modelStep.fetch();
        step.m_period = model->m_period;
        place = sto_StepContainer::placeBehind(steps, model->m_previousName.c_str());
    }
    const lnk_ShortCut<fld_Step> created = lnk_ShortCut<fld_Step>::create(file, std::move(step));
    steps.insert(place, name.cStr(), created);
    return sto_Step(created);
}

sto_Step sto_Result::step(const shr_String& name) const { return steps().get(name); }

bool sto_Result::hasStep(const shr_String& name) const { return steps().isMember(name); }

sto_StepContainer sto_Result::steps() const { return sto_StepContainer(m_result.fetch()->m_steps); }
