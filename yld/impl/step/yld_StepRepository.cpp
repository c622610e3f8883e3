#include "yld_StepRepository.h"

#include "platform/attribute/stpC_Steps.h"
#include "platform/sto/sto_Assembly.h"
#include "platform/sto/sto_Model.h"
#include "platform/sto/sto_Result.h"
#include "platform/sto/sto_StepContainer.h"
#include "platform/sto/sto_Sto.h"
#include "platform/sto/sto_StoStep.h"
#include "yld/impl/base/yld_Raise.h"

#include <string>

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

void yld_StepRepository::setInitialStep()
{
    if (size() != 0) return;
    file(yld_guard([this] { return yld_Step(m_store.ConstGet().model().step(stpC_InitialStepName())); }), yld_String());
}

const yld_String& yld_StepRepository::getInitialStepName()
{
    setInitialStep();
    m_initialStepName = yld_String(stpC_InitialStepName());
    return m_initialStepName;
}

yld_Step& yld_StepRepository::factory(const yld_String& name, const yld_String& previous, const yld_String& description,
                                      const stpC_Step& settings)
{
    setInitialStep();
    const sto_StoStep made =
        yld_guard([&] { return m_store.ConstGet().model().Step(size(), name, description, settings, previous); });
    file(yld_Step(made), previous);
    return get(name);
}

namespace {

// A double is used as it is; a text tells whether the solver's own value is.
stpC_Optional optionalOf(const yld_Union& value)
{
    stpC_Optional result;
    try {
        result.value = value.getDouble();
        result.isUsed = true;
    } catch (const yld_Exception&) {
        const yld_String& text = value.getString();
        result.isUsed = text.compare("NONE") != 0;
        result.text = text.cStr();
    }
    return result;
}

setC_Region regionOf(const yld_Set& set) { return setC_Region(set.set().shortCut()); }

} // namespace

yld_Step& yld_StepRepository::StaticStep(const yld_String& name, const yld_String& previous,
                                         const yld_String& description, double timePeriod, const yld_String& nlgeom,
                                         int argument3, double argument4, double argument5, double argument6,
                                         const yld_String& stabilization, double argument8, bool argument9,
                                         const yld_String& incrementation, const yld_String& amplitude)
{
    const stpC_StaticStep settings = yld_guard([&] {
        return stpC_StaticStep(timePeriod, nlgeom, argument3, argument4, argument5, argument6, stabilization, argument8,
                               argument9, incrementation, amplitude);
    });
    return factory(name, previous, description, settings);
}

yld_Step& yld_StepRepository::StaticLinearPerturbationStep(const yld_String& name, const yld_String& previous,
                                                           const yld_String& description,
                                                           const yld_String& matrixSolver)
{
    const auto settings = yld_guard([&] { return stpC_StaticLinearPerturbationStep(matrixSolver); });
    return factory(name, previous, description, settings);
}

yld_Step& yld_StepRepository::HeatTransferStep(const yld_String& name, const yld_String& previous,
                                               const yld_String& description, const yld_String& response,
                                               const yld_String& amplitude, const yld_String& incrementation,
                                               double argument4, int argument5, double argument6, double argument7,
                                               double argument8, double argument9, double argument10,
                                               const yld_String& extrapolation, const yld_String& matrixSolver)
{
    const auto settings = yld_guard([&] {
        return stpC_HeatTransferStep(response, amplitude, incrementation, argument4, argument5, argument6, argument7,
                                     argument8, argument9, argument10, extrapolation, matrixSolver);
    });
    return factory(name, previous, description, settings);
}

yld_Step& yld_StepRepository::StaticRiksStep(const yld_String& name, const yld_String& previous,
                                             const yld_String& description, const yld_String& nlgeom, bool argument2,
                                             double argument3, bool argument4, double argument5, int argument6,
                                             const yld_Set& region, const yld_String& incrementation, int argument9,
                                             double argument10, double argument11, double argument12, double argument13,
                                             const yld_String& matrixSolver, const yld_String& extrapolation,
                                             const yld_String& argument16, bool argument17, bool argument18,
                                             int argument19, int argument20, bool argument21)
{
    const auto settings = yld_guard([&] {
        return stpC_StaticRiksStep(nlgeom, argument2, argument3, argument4, argument5, argument6, regionOf(region),
                                   incrementation, argument9, argument10, argument11, argument12, argument13,
                                   matrixSolver, extrapolation, argument16, argument17, argument18, argument19,
                                   argument20, argument21);
    });
    return factory(name, previous, description, settings);
}

yld_Step& yld_StepRepository::ExplicitDynamicsStep(const yld_String& name, const yld_String& previous,
                                                   const yld_String& description, double timePeriod,
                                                   const yld_String& nlgeom, bool argument3,
                                                   const yld_String& incrementation, const yld_Union& argument5,
                                                   double argument6, double argument7, double argument8,
                                                   const yld_Union& argument9, const yld_MassScalingList& massScaling)
{
    const auto settings = yld_guard([&] {
        const auto& file = m_store.ConstGet().file();
        const stpC_ExplicitDynamicsStep checked(timePeriod, nlgeom, argument3, incrementation, optionalOf(argument5),
                                                argument6, argument7, argument8, optionalOf(argument9),
                                                mrp_Container<stpC_MassScaling>::create(file));
        mrp_Container<stpC_MassScaling> list = checked.argument<10>();
        for (int i = 0; i < massScaling.size(); ++i) {
            const yld_MassScaling& each = massScaling[i];
            list.append(std::to_string(i), lnk_ShortCut<stpC_MassScaling>::create(
                                               file, stpC_MassScaling(regionOf(each.region()), each.factor(),
                                                                      each.timeIncrement(), each.increments())));
        }
        return checked;
    });
    return factory(name, previous, description, settings);
}

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
