#include "yld_Step.h"

#include "platform/attribute/stpC_Steps.h"
#include "platform/base/mmo_Memory.h"
#include "platform/sto/sto_FieldDescription.h"
#include "platform/sto/sto_FieldFrame.h"
#include "platform/sto/sto_Frame.h"
#include "platform/sto/sto_Model.h"
#include "platform/sto/sto_ModelOf.h"
#include "platform/sto/sto_Procedure.h"
#include "platform/sto/sto_Step.h"
#include "platform/sto/sto_StoStep.h"
#include "yld/impl/base/yld_Convert.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld/impl/step/yld_FrameMatch.h"
#include "yld/impl/step/yld_StepHistory.h"

#include <limits>

namespace {

yld_LoadCase loadCaseOf(const sto_Frame& frame)
{
    return frame.hasLoadCase() ? yld_LoadCase(frame.loadCaseName()) : yld_LoadCase();
}

bool isNamed(const yld_LoadCase& loadCase) { return !loadCase.name().empty(); }

} // namespace

yld_SequenceFrame::yld_SequenceFrame() = default;

yld_SequenceFrame::yld_SequenceFrame(const yld_Step& step)
    : m_step(step.step()), m_assembly(step.assembly()), m_domain(step.domain()), m_owner(step.withoutFrames())
{
}

yld_SequenceFrame::yld_SequenceFrame(const yld_SequenceFrame&) = default;
yld_SequenceFrame& yld_SequenceFrame::operator=(const yld_SequenceFrame&) = default;
yld_SequenceFrame::~yld_SequenceFrame() = default;

int yld_SequenceFrame::size() const { return m_step.IsValid() ? m_step->numFrames() : 0; }

yld_Frame& yld_SequenceFrame::hold(int index) const
{
    if (m_step.IsNull()) yld_raise("The step has no frames.");
    const sto_Frame frame = yld_guard([&] { return m_step->frame(index); });
    if (m_current.IsValid() && m_current->frameIndex() != index) leave();
    const yld_Frame made(index, shr_COW<sto_Frame>(frame), m_assembly, m_domain, m_owner, loadCaseOf(frame));
    // The slot itself stays where it is, so that an older reference shows the new frame and nothing worse.
    if (m_current.IsValid() && m_current.Count() == 1) *m_current = made;
    else m_current = new yld_Frame(made);
    return *m_current;
}

void yld_SequenceFrame::leave() const
{
    // What the store keeps of the fields of a frame is given back with the frame; a reader who has taken a field
    // of it along is not touched by that.
    if (m_current->fieldOutputs().hasStore()) m_current->fieldOutputs().fieldFrame().ConstGet().release();
}

bool yld_SequenceFrame::updateCurrent()
{
    return m_current.IsValid() && m_current->fieldOutputs().isFullyRead() && m_current->update();
}

yld_Frame& yld_SequenceFrame::get(int index)
{
    yld_Frame& frame = hold(index);
    // The frame's row is read now: a frame that cannot be read is found here and not by its first user.
    yld_guard([&] { m_step->frame(index).shortCut().fetch(); });
    return frame;
}

const yld_Frame& yld_SequenceFrame::constGet(int index) const { return hold(index); }

void yld_SequenceFrame::append(const yld_Frame&) { throw exc_TextException("\"SequenceFrame::Append\" == 0"); }

yld_Step::yld_Step() = default;

yld_Step::yld_Step(const sto_StoStep& modelStep) : m_name(modelStep.name()), m_modelStep(new sto_StoStep(modelStep)) {}

yld_Step::yld_Step(const yld_String& name, const sto_Step& step, const yld_String& description,
                   const shr_ArrayCOW<sto_Assembly>& assembly, yld_Enum::yld_DomainEnum domain,
                   const yld_String& previousStepName, const yld_String& procedure)
    : m_name(name), m_description(description), m_domain(domain), m_procedure(procedure),
      m_previousStepName(previousStepName), m_step(new sto_Step(step)), m_assembly(assembly),
      m_modelStep(new sto_StoStep(step.modelStep()))
{
    for (const std::string& loadCase : step.loadCaseNames()) {
        m_loadCases.insert(loadCase.c_str(), yld_LoadCase(loadCase.c_str()));
    }
    m_history = new yld_StepHistory;
    m_frames = yld_SequenceFrame(*this);
    m_knownFrames = m_frames.size();
}

yld_Step::yld_Step(const yld_Step&) = default;
yld_Step& yld_Step::operator=(const yld_Step&) = default;
yld_Step::~yld_Step() = default;

yld_Step* yld_Step::withoutFrames() const
{
    // A step that owned the frame that it is the owner of would never be freed.
    auto* step = new yld_Step();
    step->m_name = m_name;
    step->m_description = m_description;
    step->m_domain = m_domain;
    step->m_procedure = m_procedure;
    step->m_previousStepName = m_previousStepName;
    step->m_step = m_step;
    step->m_assembly = m_assembly;
    step->m_loadCases = m_loadCases;
    step->m_modelStep = m_modelStep;
    step->m_restartRequest = m_restartRequest;
    step->m_history = m_history;
    return step;
}

int yld_Step::number() const { return m_modelStep.IsValid() ? m_modelStep->stepId() : 0; }

double yld_Step::timePeriod() const { return m_step.IsValid() ? m_step->time() : 0.0; }

double yld_Step::totalTime() const { return m_step.IsValid() ? m_step->totalTime() : 0.0; }

bool yld_Step::nlgeom() const { return m_modelStep.IsValid() && m_modelStep->isNlgeom(); }

bool yld_Step::isAnalysisStep() const { return m_modelStep.IsValid() && m_modelStep->isAnalisysStep(); }

bool yld_Step::isPerturbation() const { return m_modelStep.IsValid() && m_modelStep->isPerturbation(); }

double yld_Step::mass() const { return m_step.IsValid() ? m_step->mass() : 0.0; }

double yld_Step::acousticMass() const { return m_step.IsValid() ? m_step->acousticMass() : 0.0; }

yld_Sequence<double> yld_Step::massCenter() const
{
    return m_step.IsValid() ? yld_Convert::sequence(m_step->massCenter()) : yld_Sequence<double>();
}

yld_Sequence<double> yld_Step::acousticMassCenter() const
{
    return m_step.IsValid() ? yld_Convert::sequence(m_step->acousticMassCenter()) : yld_Sequence<double>();
}

yld_Sequence<double> yld_Step::inertiaAboutCenter() const
{
    return m_step.IsValid() ? yld_Convert::sequence(m_step->inertiaAboutCenter()) : yld_Sequence<double>();
}

yld_Sequence<double> yld_Step::inertiaAboutOrigin() const
{
    return m_step.IsValid() ? yld_Convert::sequence(m_step->inertiaAboutOrigin()) : yld_Sequence<double>();
}

namespace {

// The settings of a step that generates a substructure; null for any other.
std::shared_ptr<const stpC_SubstructureGenerateStep> substructureOf(const shr_CountedHld<sto_StoStep>& step)
{
    if (step.IsNull() || step->getProcedureType() != sto_Procedure::SUBSTRUCTURE_GENERATE) return nullptr;
    return std::dynamic_pointer_cast<const stpC_SubstructureGenerateStep>(step->analysisStep());
}

} // namespace

yld_Sequence<int> yld_Step::retainedEigenModes() const
{
    return yld_guard([this] {
        const auto settings = substructureOf(m_modelStep);
        return settings ? yld_Convert::sequence(settings->m_retainedEigenModes) : yld_Sequence<int>();
    });
}

yld_SequenceNodalDofs yld_Step::nodalDofs(bool isRetained) const
{
    return yld_guard([&] {
        yld_SequenceNodalDofs all;
        const auto settings = substructureOf(m_modelStep);
        if (!settings) return all;
        const mrp_Container<stpC_NodalDofs>& stored =
            isRetained ? settings->m_retainedNodalDofs : settings->m_eliminatedNodalDofs;
        const sto_Model model(sto_modelOf(m_modelStep->shortCut().file()));
        for (int i = 0; i < stored.size(); ++i) {
            const auto each = stored.at(i).fetch();
            all.append(yld_NodalDofs(each->argument<1>(), yld_Convert::sequence(each->argument<2>()), model));
        }
        return all;
    });
}

yld_SequenceNodalDofs yld_Step::retainedNodalDofs() const { return nodalDofs(true); }

yld_SequenceNodalDofs yld_Step::eliminatedNodalDofs() const { return nodalDofs(false); }

yld_String yld_Step::solverInput() const
{
    return m_modelStep.IsValid() ? yld_String(m_modelStep->solverInput()) : yld_String();
}

void yld_Step::setSolverInput(const yld_String& text)
{
    if (m_modelStep.IsValid()) yld_guard([&] { m_modelStep->setSolverInput(text); });
}

const yld_RestartRequest& yld_Step::RestartRequest(const int& argument1, const int& argument2, const bool& argument3,
                                                   const bool& argument4)
{
    if (m_modelStep.IsNull()) yld_raise("Step \"%s\" is not in a model.", m_name);
    m_restartRequest = new yld_RestartRequest(
        yld_guard([&] { return m_modelStep->Restart(argument1, argument4, argument3, argument2); }));
    return *m_restartRequest;
}

void yld_Step::markFrames(const yld_FieldOutput& field, void (sto_Frame::*mark)(int)) const
{
    if (m_step.IsNull()) return;
    yld_guard([&] {
        std::vector<sto_FieldDescription> descriptions;
        for (const yld_SubField& block : field.SubField()) {
            if (block.hasDescription()) descriptions.push_back(block.description());
        }
        if (descriptions.empty()) return;
        const int count = m_step->numFrames();
        for (int i = 0; i < count; ++i) {
            sto_Frame frame = m_step->frame(i);
            if (!frame.hasField()) continue;
            const int key = frame.fieldFrame().firstKeyOf(descriptions);
            if (key >= 0) (frame.*mark)(key);
        }
    });
}

void yld_Step::setDefaultField(const yld_FieldOutput& field)
{
    markFrames(field, &sto_Frame::setDefaultPrimaryVariable);
}

void yld_Step::setDefaultDeformedField(const yld_FieldOutput& field)
{
    markFrames(field, &sto_Frame::setDefaultDeformedVariable);
}

yld_Frame yld_Step::newFrame(const yld_String& description, double frameValue, int incrementNumber,
                             const yld_LoadCase& loadCase)
{
    if (m_step.IsNull()) yld_raise("Step \"%s\" has no results.", m_name);
    sto_Frame frame = yld_guard([&] { return m_step->Frame(description, frameValue, incrementNumber); });
    const int index = m_frames.size() > 0 ? m_frames.size() - 1 : 0;
    if (isNamed(loadCase)) {
        frame.setLoadCaseName(loadCase.name());
        m_step->setFrameLoadCaseName(index, loadCase.name());
    }
    yld_Frame created(index, shr_COW<sto_Frame>(frame), m_assembly, m_domain, *this, loadCase);
    m_frames = yld_SequenceFrame(*this);
    m_knownFrames = m_frames.size();
    return created;
}

yld_Frame yld_Step::Frame(int incrementNumber, double frameValue, const yld_String& description)
{
    return newFrame(description, frameValue, incrementNumber, yld_LoadCase());
}

yld_Frame yld_Step::Frame(const yld_LoadCase& loadCase, const yld_String& description)
{
    return Frame(loadCase, description, 0.0);
}

yld_Frame yld_Step::Frame(const yld_LoadCase& loadCase, const yld_String& description, double frameValue)
{
    if (!m_loadCases.isMember(loadCase.name())) yld_raise("Invalid LoadCase");
    return newFrame(description, frameValue, 0, loadCase);
}

yld_Frame& yld_Step::frames(int index)
{
    if (index < 0 || index >= m_frames.size()) yld_raise("Incorrect index for frame.");
    return m_frames.get(index);
}

const yld_Frame& yld_Step::frames(int index) const
{
    if (index < 0 || index >= m_frames.size()) yld_raise("Incorrect index for frame.");
    return m_frames.constGet(index);
}

namespace {

// What the search for frames needs of each, without building it.
class FrameWalk
{
public:
    FrameWalk(const sto_Step& step, const yld_LoadCase& loadCase)
        : m_frames(step.frames()), m_named(isNamed(loadCase)), m_loadCase(loadCase.name().cStr())
    {
        if (m_named) m_loadCases = step.frameLoadCaseNames();
    }

    int size() const { return m_frames.size(); }
    bool isNamed() const { return m_named; }
    bool hasLoadCase(int index) const
    {
        const auto place = static_cast<std::size_t>(index);
        return place < m_loadCases.size() && m_loadCases[place] == m_loadCase;
    }
    bool isWanted(int index) const { return !m_named || hasLoadCase(index); }
    double value(int index) const
    {
        return yld_guard([&] { return static_cast<double>(m_frames.get(index).time()); });
    }

private:
    static bool isNamed(const yld_LoadCase& loadCase) { return !loadCase.name().empty(); }

    sto_FrameContainer m_frames;
    bool m_named;
    std::string m_loadCase;
    std::vector<std::string> m_loadCases;
};

} // namespace

yld_Frame yld_Step::getFrame(double value, yld_Enum::yld_MatchEnum match)
{
    return getFrame(yld_LoadCase(), value, match);
}

yld_Frame yld_Step::getFrame(const yld_LoadCase& loadCase, double value, yld_Enum::yld_MatchEnum match)
{
    if (m_step.IsNull()) yld_raise("Frame not found");
    const FrameWalk walk(*m_step, loadCase);
    if (walk.isNamed() && value < 0.0) {
        for (int i = 0; i < walk.size(); ++i) {
            if (!walk.hasLoadCase(i)) continue;
            const sto_Frame stored = m_step->frame(i);
            yld_Frame frame(i, shr_COW<sto_Frame>(stored), m_assembly, m_domain, *this, loadCaseOf(stored));
            frame.update();
            return frame;
        }
        yld_raise("Frame not found");
    }

    int found = -1;
    yld_FrameMatch search(value, match);
    for (int i = 0; i < walk.size(); ++i) {
        if (walk.isWanted(i) && search.isBetter(walk.value(i))) found = i;
    }
    if (found < 0) yld_raise("Frame not found");
    return m_frames.get(found);
}

yld_Sequence<int> yld_Step::findFrames(double value, yld_Enum::yld_MatchEnum match)
{
    return findFrames(yld_LoadCase(), value, match);
}

yld_Sequence<int> yld_Step::findFrames(const yld_LoadCase& loadCase, double value, yld_Enum::yld_MatchEnum match)
{
    yld_Sequence<int> found;
    if (m_step.IsNull()) return found;
    const FrameWalk walk(*m_step, loadCase);
    if (walk.isNamed() && value < 0.0) {
        for (int i = 0; i < walk.size(); ++i) {
            if (walk.hasLoadCase(i)) found.append(i);
        }
        return found;
    }

    const yld_FrameMatch search(value, match);
    double best = std::numeric_limits<double>::max();
    for (int i = 0; i < walk.size(); ++i) {
        if (!walk.isWanted(i)) continue;
        const std::optional<double> distance = search.distance(walk.value(i));
        if (!distance || *distance > best) continue;
        if (*distance < best) {
            found.clearAll();
            best = *distance;
        }
        found.append(i);
    }
    return found;
}

yld_LoadCase& yld_Step::LoadCase(const yld_String& name)
{
    if (m_loadCases.isMember(name)) yld_raise("Invalid LoadCase");
    if (m_step.IsValid()) yld_guard([&] { m_step->addLoadCaseName(name); });
    m_loadCases.insert(name, yld_LoadCase(name));
    return m_loadCases.get(name);
}

bool yld_Step::update()
{
    if (m_step.IsNull()) return false;
    bool isNew = false;
    for (const std::string& loadCase : m_step->loadCaseNames()) {
        if (m_loadCases.insert(loadCase.c_str(), yld_LoadCase(loadCase.c_str()))) isNew = true;
    }
    const int frames = m_step->numFrames();
    if (frames != m_knownFrames) isNew = true;
    if (isNew) m_frames = yld_SequenceFrame(*this);
    else isNew = m_frames.updateCurrent();
    m_knownFrames = frames;
    if (updateHistory()) isNew = true;
    return isNew;
}

void yld_Step::ClearFrameContainer()
{
    if (m_step.IsNull() || !m_step->hasField()) return;
    if (m_frames.m_current.IsValid()) m_frames.leave();
    m_frames = yld_SequenceFrame();
    m_frames = yld_SequenceFrame(*this);
    mmo_GiveBack();
}
