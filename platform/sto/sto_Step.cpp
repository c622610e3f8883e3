#include "platform/sto/sto_Step.h"

#include "platform/model/mshK_Model.h"
#include "platform/model/mshK_Step.h"
#include "platform/result/fld_FieldDescription.h"
#include "platform/result/fld_Frame.h"
#include "platform/sto/sto_FieldStep.h"
#include "platform/sto/sto_Frame.h"
#include "platform/sto/sto_HistoryStep.h"
#include "platform/sto/sto_ModelOf.h"
#include "platform/sto/sto_StoStep.h"
#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"

sto_Step::sto_Step(const lnk_ShortCut<fld_Step>& step) : m_step(step), m_index(std::make_shared<sto_FieldStepIndex>())
{
}

shr_String sto_Step::name() const { return m_step.fetch()->m_name.c_str(); }

double sto_Step::time() const { return m_step.fetch()->m_period; }

double sto_Step::totalTime() const { return m_step.fetch()->m_totalTime; }

void sto_Step::setTotalTime(double time)
{
    m_step.edit([time](fld_Step& step) { step.m_totalTime = time; });
}

double sto_Step::mass() const { return m_step.fetch()->m_mass; }

double sto_Step::acousticMass() const { return m_step.fetch()->m_acousticMass; }

void sto_Step::setMass(double mass, double acousticMass)
{
    m_step.edit([mass, acousticMass](fld_Step& step) {
        step.m_mass = mass;
        step.m_acousticMass = acousticMass;
    });
}

std::vector<double> sto_Step::massCenter() const { return m_step.fetch()->m_massCenter; }

std::vector<double> sto_Step::acousticMassCenter() const { return m_step.fetch()->m_acousticMassCenter; }

void sto_Step::setMassCenter(const std::vector<double>& center, const std::vector<double>& acousticCenter)
{
    m_step.edit([&](fld_Step& step) {
        step.m_massCenter = center;
        step.m_acousticMassCenter = acousticCenter;
    });
}

std::vector<double> sto_Step::inertiaAboutCenter() const { return m_step.fetch()->m_inertiaAboutCenter; }

std::vector<double> sto_Step::inertiaAboutOrigin() const { return m_step.fetch()->m_inertiaAboutOrigin; }

void sto_Step::setInertia(const std::vector<double>& aboutCenter, const std::vector<double>& aboutOrigin)
{
    m_step.edit([&](fld_Step& step) {
        step.m_inertiaAboutCenter = aboutCenter;
        step.m_inertiaAboutOrigin = aboutOrigin;
    });
}

lnk_ShortCut<mshK_Step> sto_Step::findModelStep(const std::shared_ptr<fio_FileBody>& file, const std::string& name)
{
    const lnk_ShortCut<mshK_Model> model = sto_modelOf(file);
    return model.isNull() ? lnk_ShortCut<mshK_Step>() : model.fetch()->m_steps.get(name);
}

sto_StoStep sto_Step::modelStep() const
{
    const std::shared_ptr<const fld_Step> step = m_step.fetch();
    if (step->m_modelStep.isValid()) return sto_StoStep(step->m_modelStep);
    const lnk_ShortCut<mshK_Step> found = findModelStep(m_step.file(), step->m_name);
    if (found.isNull()) fio_raise(m_step.file()->path(), "the model has no step named \"" + step->m_name + "\"");
    return sto_StoStep(found);
}

void sto_Step::FieldStep()
{
    if (hasField()) return;
    fld_FieldStep fields;
    fields.m_descriptions = mrp_Container<fld_FieldDescription>::create(m_step.file());
    const auto created = lnk_ShortCut<fld_FieldStep>::create(m_step.file(), std::move(fields));
    m_step.edit([&created](fld_Step& step) { step.m_fieldStep = created; });
}

bool sto_Step::hasField() const { return m_step.fetch()->m_fieldStep.isValid(); }

sto_FieldStep sto_Step::fieldStep() const { return sto_FieldStep(m_step.fetch()->m_fieldStep, m_index); }

void sto_Step::HistoryStep()
{
    if (hasHistory()) return;
    fld_HistoryStep history;
    history.m_histories = mrp_Container<fld_History>::create(m_step.file());
    history.m_times = mrp_Container<fld_Series>::create(m_step.file());
    m_step.edit([&](fld_Step& step) {
        step.m_historyStep = lnk_ShortCut<fld_HistoryStep>::create(m_step.file(), std::move(history));
    });
}

bool sto_Step::hasHistory() const { return m_step.fetch()->m_historyStep.isValid(); }

sto_HistoryStep sto_Step::historyStep() const { return sto_HistoryStep(m_step.fetch()->m_historyStep); }

std::vector<std::string> sto_Step::loadCaseNames() const { return m_step.fetch()->m_loadCaseNames; }

void sto_Step::addLoadCaseName(const shr_String& name)
{
    m_step.edit([&name](fld_Step& step) { step.m_loadCaseNames.emplace_back(name.cStr()); });
}

std::vector<std::string> sto_Step::frameLoadCaseNames() const { return m_step.fetch()->m_frameLoadCaseNames; }

void sto_Step::setFrameLoadCaseName(int frame, const shr_String& name)
{
    if (frame < 0 || frame >= numFrames()) {
        fio_raise(m_step.file()->path(), "there is no frame " + std::to_string(frame) + " to name a load case for");
    }
    m_step.edit([frame, &name](fld_Step& step) {
        const auto place = static_cast<std::size_t>(frame);
        if (step.m_frameLoadCaseNames.size() <= place) step.m_frameLoadCaseNames.resize(place + 1);
        step.m_frameLoadCaseNames[place] = name.cStr();
    });
}

int sto_Step::numFrames() const { return m_step.isNull() ? 0 : m_step.fetch()->m_frames.size(); }

sto_FrameContainer sto_Step::frames() const { return sto_FrameContainer(m_step.fetch()->m_frames); }

sto_Frame sto_Step::frame(int index) const { return frames().get(index); }

sto_Frame sto_Step::Frame(const shr_String& label, double value, int increment)
{
    const auto& file = m_step.file();
    mrp_Container<fld_Frame> frames = m_step.fetch()->m_frames;
    if (frames.isNull()) fio_raise(file->path(), "the step has no list of frames; the file is damaged");
    fld_Frame frame;
    frame.m_label = label.cStr();
    frame.m_value = static_cast<float>(value);
    frame.m_increment = increment;
    frame.m_fields = mrp_Container<fld_Field>::create(file);
    const lnk_ShortCut<fld_Frame> created = lnk_ShortCut<fld_Frame>::create(file, std::move(frame));
    frames.append(std::to_string(frames.size()), created);
    return sto_Frame(created);
}
