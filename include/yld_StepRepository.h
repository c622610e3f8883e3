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

/// The steps of a database, in the order of the analysis.
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

    /// Files the state before the first step, if there is no step yet.
    void setInitialStep();
    /// The name of that state; files it if there is no step yet. The reference is good as long as the repository.
    const yld_String& getInitialStepName();

    // Steps with the settings of an analysis. They stand in the model, in the order of the arguments, and hold no
    // results: a step to write results to is made by the database. Numbers and flags without a name are the solver's
    // affair. A step without a previous one goes to the end; "Initial" stands before the first.
    //
    // Raise what val_PrimEnum raises for a text that its enumeration has not (with the texts that it has), and, when
    // the model has the step already, "Invalid step name." and "Invalid previous step name.".

    /// @param nlgeom         OFF, ON
    /// @param stabilization  NONE, ENERGY_FRACTION, DAMPING
    /// @param incrementation FIXED, AUTOMATIC
    /// @param amplitude      STEP, RAMP
    yld_Step& StaticStep(const yld_String& name, const yld_String& previous, const yld_String& description,
                         double timePeriod, const yld_String& nlgeom, int argument3, double argument4, double argument5,
                         double argument6, const yld_String& stabilization, double argument8, bool argument9,
                         const yld_String& incrementation, const yld_String& amplitude);
    /// @param matrixSolver  DIRECT, ITERATIVE
    yld_Step& StaticLinearPerturbationStep(const yld_String& name, const yld_String& previous,
                                           const yld_String& description, const yld_String& matrixSolver);
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
    /// @param nlgeom         OFF, ON
    /// @param incrementation FIXED, AUTOMATIC
    /// @param argument5, argument9  a double, which is used; or a text: "NONE" for a value that is not used
    yld_Step& ExplicitDynamicsStep(const yld_String& name, const yld_String& previous, const yld_String& description,
                                   double timePeriod, const yld_String& nlgeom, bool argument3,
                                   const yld_String& incrementation, const yld_Union& argument5, double argument6,
                                   double argument7, double argument8, const yld_Union& argument9,
                                   const yld_MassScalingList& massScaling);

    /// Files a step: at the end without a previous name, else behind the previous one; "Initial" stands before
    /// the first. Raises "Invalid step name.", "Invalid previous step name.".
    void file(const yld_Step& step, const yld_String& previousStepName);
    /// By place, unchecked.
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

/// Walks the steps in order. Leaving a step gives back the memory of its frames.
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
