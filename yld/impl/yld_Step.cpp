#include "yld_Step.h"

#include "platform/sto/sto_Assembly.h"
#include "platform/sto/sto_FieldFrame.h"
#include "platform/sto/sto_Frame.h"
#include "platform/sto/sto_Result.h"
#include "platform/sto/sto_Step.h"
#include "platform/sto/sto_StepContainer.h"
#include "platform/sto/sto_Sto.h"
#include "platform/sto/sto_StoStep.h"
#include "yld/impl/yld_Raise.h"
#include "yld/impl/yld_StepHistory.h"

#include <cmath>
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
    m_current = new yld_Frame(index, shr_COW<sto_Frame>(frame), m_assembly, m_domain, m_owner, loadCaseOf(frame));
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

yld_Step::yld_Step() = default;

yld_Step::yld_Step(const sto_StoStep& modelStep)
    : m_name(modelStep.name()), m_modelStep(new sto_StoStep(modelStep))
{
}

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
    step->m_history = m_history;
    return step;
}

int yld_Step::number() const { return m_modelStep.IsValid() ? m_modelStep->stepId() : 0; }

double yld_Step::timePeriod() const { return m_step.IsValid() ? m_step->time() : 0.0; }

double yld_Step::totalTime() const { return m_step.IsValid() ? m_step->totalTime() : 0.0; }

bool yld_Step::nlgeom() const { return m_modelStep.IsValid() && m_modelStep->isNlgeom(); }

bool yld_Step::isAnalysisStep() const { return m_modelStep.IsValid() && m_modelStep->isAnalisysStep(); }

bool yld_Step::isPerturbation() const { return m_modelStep.IsValid() && m_modelStep->isPerturbation(); }

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

    // Which of two frames that fit equally well is taken differs from match to match; callers rely on each.
    int found = -1;
    double best = std::numeric_limits<double>::max();
    for (int i = 0; i < walk.size(); ++i) {
        if (!walk.isWanted(i)) continue;
        const double v = walk.value(i);
        const double distance = std::fabs(value - v);
        bool skip = false;
        switch (match) {
        case yld_Enum::MATCH_CLOSEST:
            skip = distance > best;
            break;
        case yld_Enum::MATCH_BEFORE:
            skip = v > value || value - v >= best;
            break;
        case yld_Enum::MATCH_AFTER:
            skip = v < value || v - value > best;
            break;
        case yld_Enum::MATCH_EXACT:
            skip = !(distance == 0.0);
            break;
        }
        if (skip) continue;
        found = i;
        best = distance;
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

    double best = std::numeric_limits<double>::max();
    for (int i = 0; i < walk.size(); ++i) {
        if (!walk.isWanted(i)) continue;
        const double v = walk.value(i);
        const double distance = std::fabs(value - v);
        if (match == yld_Enum::MATCH_BEFORE && v > value) continue;
        if (match == yld_Enum::MATCH_AFTER && v < value) continue;
        if (match == yld_Enum::MATCH_EXACT && !(distance == 0.0)) continue;
        if (match != yld_Enum::MATCH_EXACT && distance > best) continue;
        if (distance < best) {
            found.clearAll();
            best = distance;
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
    m_frames = yld_SequenceFrame();
    m_frames = yld_SequenceFrame(*this);
}

yld_StepRepository::yld_StepRepository() = default;

yld_StepRepository::yld_StepRepository(const sto_Sto& store) : m_store(store) {}

yld_StepRepository::yld_StepRepository(const yld_StepRepository&) = default;
yld_StepRepository& yld_StepRepository::operator=(const yld_StepRepository&) = default;
yld_StepRepository::~yld_StepRepository() = default;

int yld_StepRepository::size() const { return m_names.size(); }

bool yld_StepRepository::isMember(const yld_String& name) const { return m_names.isMember(name); }

yld_Step& yld_StepRepository::get(const yld_String& name)
{
    const int place = m_names.findFirst(name);
    if (place >= m_names.size()) yld_raise("No step named \"%s\" in StepContainer.", name);
    return m_steps.Get(place);
}

const yld_Step& yld_StepRepository::constGet(const yld_String& name) const
{
    const int place = m_names.findFirst(name);
    if (place >= m_names.size()) yld_raise("No step named \"%s\" in StepContainer.", name);
    return m_steps[place];
}

void yld_StepRepository::file(const yld_Step& step, const yld_String& previousStepName)
{
    if (isMember(step.name())) yld_raise("Invalid step name.");
    if (previousStepName.empty()) {
        m_steps.Append(step);
        m_names.append(step.name());
        return;
    }
    const int place = previousStepName == "Initial" ? -1 : m_names.findFirst(previousStepName);
    if (place == m_names.size()) yld_raise("Invalid previous step name.");
    m_steps.Insert(place + 1, step);
    m_names.insert(place + 1, step.name());
}

const sto_Sto& yld_StepRepository::store() const { return m_store.ConstGet(); }

void yld_StepRepositoryIT::next()
{
    if (!isDone()) {
        yld_Step& step = m_repository->at(m_position);
        step.ClearFrameContainer();
        if (step.step().IsValid()) {
            const sto_Sto& store = m_repository->store();
            if (store.hasResult()) store.result().steps().release(currentKey());
        }
    }
    ++m_position;
}

yld_Step& yld_StepRepositoryIT::currentValue()
{
    if (isDone()) yld_raise("StepContainerIterator done.");
    return m_repository->at(m_position);
}

const yld_String& yld_StepRepositoryIT::currentKey() const
{
    if (isDone()) yld_raise("StepContainerIterator done.");
    return m_repository->stepNames()[m_position];
}
