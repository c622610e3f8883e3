#ifndef YLD_STEP_REPOSITORY_H
#define YLD_STEP_REPOSITORY_H

#include "containers/shr_COW.h"
#include "platform/base/bas_Export.h"
#include "yld_MassScaling.h"
#include "yld_Sequence.h"
#include "yld_Step.h"
#include "yld_String.h"
#include "yld_Union.h"

class sto_Sto;
class stpC_Step;

/// The steps of a database, in the order of the analysis. References to steps are good until a step is added.
class YLD_API yld_StepRepository
{
public:
    yld_StepRepository();
    explicit yld_StepRepository(const sto_Sto& store);
    yld_StepRepository(const yld_StepRepository&);
    yld_StepRepository& operator=(const yld_StepRepository&);
    ~yld_StepRepository();

    int size() const;
    bool isMember(const yld_String& name) const;
    /// Raises "No step named "%s" in StepContainer.".
    yld_Step& get(const yld_String& name);
    const yld_Step& get(const yld_String& name) const { return constGet(name); }
    const yld_Step& constGet(const yld_String& name) const;
    yld_Step& operator[](const yld_String& name) { return get(name); }
    const yld_Step& operator[](const yld_String& name) const { return constGet(name); }
    const shr_1DArrayList<yld_Step>& stepList() const { return m_steps; }
    const yld_Sequence<yld_String>& stepNames() const { return m_names; }

    /// Adds the initial state, which every model has, as the first step, if there is no step yet.
    void setInitialStep();
    /// The name of the initial state, "Initial"; adds it as above. The reference is good as long as the repository.
    const yld_String& getInitialStepName();

    // The next five functions make steps that tell a solver what to do. Such a step belongs to the model and holds no
    // results: yld_Yld::Step() makes the steps that results are written to.
    //
    // The database keeps every argument as it is given. Those without a name (argument3 and so on) mean something to
    // the solver alone. An argument that is one of a few words is a text; the words are listed with each function.
    //
    // name      of the new step
    // previous  the step that it follows; empty for the last one, "Initial" for the first place
    //
    // They raise for a text that is none of the words a message that lists these; "Invalid step name." for a name that
    // this repository has; "Invalid previous step name." for a step that it lacks. The last two come when the model has
    // the new step already. The reference is good until a step is added.

    /// A static step.
    /// @param nlgeom         OFF, ON
    /// @param stabilization  NONE, ENERGY_FRACTION, DAMPING
    /// @param incrementation FIXED, AUTOMATIC
    /// @param amplitude      STEP, RAMP
    yld_Step& StaticStep(const yld_String& name, const yld_String& previous, const yld_String& description,
                         double timePeriod, const yld_String& nlgeom, int argument3, double argument4, double argument5,
                         double argument6, const yld_String& stabilization, double argument8, bool argument9,
                         const yld_String& incrementation, const yld_String& amplitude);
    /// A linear static perturbation.
    /// @param matrixSolver  DIRECT, ITERATIVE
    yld_Step& StaticLinearPerturbationStep(const yld_String& name, const yld_String& previous,
                                           const yld_String& description, const yld_String& matrixSolver);
    /// A heat transfer step.
    /// @param response       STEADY_STATE, TRANSIENT
    /// @param amplitude      STEP, RAMP
    /// @param incrementation FIXED, AUTOMATIC
    /// @param extrapolation  NONE, LINEAR, PARABOLIC
    /// @param matrixSolver   DIRECT, ITERATIVE
    yld_Step& HeatTransferStep(const yld_String& name, const yld_String& previous, const yld_String& description,
                               const yld_String& response, const yld_String& amplitude,
                               const yld_String& incrementation, double argument4, int argument5, double argument6,
                               double argument7, double argument8, double argument9, double argument10,
                               const yld_String& extrapolation, const yld_String& matrixSolver);
    /// A static step by arc length (Riks).
    /// @param nlgeom         OFF, ON
    /// @param region         a set that the solver watches; an empty one for none
    /// @param incrementation FIXED, AUTOMATIC
    /// @param matrixSolver   DIRECT, ITERATIVE
    /// @param extrapolation  NONE, LINEAR, PARABOLIC
    yld_Step& StaticRiksStep(const yld_String& name, const yld_String& previous, const yld_String& description,
                             const yld_String& nlgeom, bool argument2, double argument3, bool argument4,
                             double argument5, int argument6, const yld_Set& region, const yld_String& incrementation,
                             int argument9, double argument10, double argument11, double argument12, double argument13,
                             const yld_String& matrixSolver, const yld_String& extrapolation,
                             const yld_String& argument16, bool argument17, bool argument18, int argument19,
                             int argument20, bool argument21);
    /// An explicit dynamic step.
    /// @param nlgeom         OFF, ON
    /// @param incrementation FIXED, AUTOMATIC
    /// @param argument5, argument9  a double; or a text in its place, "NONE" if there shall be no such value
    /// @param massScaling    kept in this order
    yld_Step& ExplicitDynamicsStep(const yld_String& name, const yld_String& previous, const yld_String& description,
                                   double timePeriod, const yld_String& nlgeom, bool argument3,
                                   const yld_String& incrementation, const yld_Union& argument5, double argument6,
                                   double argument7, double argument8, const yld_Union& argument9,
                                   const yld_MassScalingList& massScaling);

    /// Adds a step to this list, and to nothing else: after the previous one, at the end if that is empty, at the first
    /// place if it is "Initial". Raises "Invalid step name.", "Invalid previous step name.".
    void file(const yld_Step& step, const yld_String& previousStepName);
    /// By place in the list, which is not checked.
    yld_Step& at(int position) { return m_steps.Get(position); }
    const sto_Sto& store() const;

private:
    yld_Step& factory(const yld_String& name, const yld_String& previous, const yld_String& description,
                      const stpC_Step& settings);

    shr_1DArrayList<yld_Step> m_steps;
    yld_Sequence<yld_String> m_names;
    yld_String m_initialStepName;
    shr_COW<sto_Sto> m_store;
};

/// Walks the steps in order. It borrows the repository. Going on gives back the memory of the frames of the step that
/// is left.
class YLD_API yld_StepRepositoryIT
{
public:
    explicit yld_StepRepositoryIT(yld_StepRepository& repository) : m_repository(&repository) {}

    void first() { m_position = 0; }
    void next();
    bool isDone() const { return m_position >= m_repository->size(); }
    /// Raise "StepContainerIterator done." past the end.
    yld_Step& currentValue();
    const yld_String& currentKey() const;

private:
    int m_position = 0;
    yld_StepRepository* m_repository;
};

#endif
