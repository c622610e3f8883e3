#ifndef YLD_STEP_H
#define YLD_STEP_H

#include "containers/shr_COW.h"
#include "platform/base/bas_Export.h"
#include "yld_Enum.h"
#include "yld_Frame.h"
#include "yld_HistoryRegionPers.h"
#include "yld_MassScaling.h"
#include "yld_NodalDofs.h"
#include "yld_Repository.h"
#include "yld_RestartRequest.h"
#include "yld_Sequence.h"
#include "yld_String.h"
#include "yld_Union.h"

class sto_Assembly;
class sto_Step;
class sto_Sto;
class sto_StoStep;
class stpC_Step;
class yld_StepHistory;
class yld_Yld;

/// The frames of a step. It holds one frame at a time: a reference to a frame is good until the next is asked for.
class YLD_API yld_SequenceFrame
{
public:
    yld_SequenceFrame();
    explicit yld_SequenceFrame(const yld_Step& step);
    yld_SequenceFrame(const yld_SequenceFrame&);
    yld_SequenceFrame& operator=(const yld_SequenceFrame&);
    ~yld_SequenceFrame();

    int size() const;
    /// The frame at a place counted from 0, unchecked against the size but for what the store says.
    yld_Frame& get(int index);
    const yld_Frame& constGet(int index) const;
    const yld_Frame& operator[](int index) const { return constGet(index); }
    /// Frames are made by their step: always raises exc_TextException with the text "SequenceFrame::Append" == 0.
    void append(const yld_Frame& frame);

private:
    friend class yld_Step;

    yld_Frame& hold(int index) const;
    bool updateCurrent();
    void leave() const;

    shr_CountedHld<sto_Step> m_step;
    shr_ArrayCOW<sto_Assembly> m_assembly;
    mutable shr_CountedHld<yld_Frame> m_current;
    yld_Enum::yld_DomainEnum m_domain = yld_Enum::TIME;
    shr_CountedHld<yld_Step> m_owner;
};

/// One phase of the analysis, with its frames and load cases.
class YLD_API yld_Step
{
public:
    yld_Step();
    /// A shell on the model side alone.
    explicit yld_Step(const sto_StoStep& modelStep);
    yld_Step(const yld_String& name, const sto_Step& step, const yld_String& description,
             const shr_ArrayCOW<sto_Assembly>& assembly, yld_Enum::yld_DomainEnum domain,
             const yld_String& previousStepName, const yld_String& procedure);
    yld_Step(const yld_Step&);
    yld_Step& operator=(const yld_Step&);
    ~yld_Step();

    const yld_String& name() const { return m_name; }
    const yld_String& description() const { return m_description; }
    int number() const;
    yld_Enum::yld_DomainEnum domain() const { return m_domain; }
    /// The procedure keyword, for example "*STATIC".
    const yld_String& procedure() const { return m_procedure; }
    double timePeriod() const;
    /// The analysis time at which the step begins.
    double totalTime() const;
    const yld_String& previousStepName() const { return m_previousStepName; }
    /// Whether geometric nonlinearity is on.
    bool nlgeom() const;
    bool isAnalysisStep() const;
    bool isPerturbation() const;
    /// What the model weighs as the step finds it, in the model's units; 0 where nobody has worked it out.
    double mass() const;
    double acousticMass() const;
    /// Three coordinates; empty where nobody has worked them out.
    yld_Sequence<double> massCenter() const;
    yld_Sequence<double> acousticMassCenter() const;
    /// Six components in the order 11, 22, 33, 12, 13, 23; empty where nobody has worked them out.
    yld_Sequence<double> inertiaAboutCenter() const;
    yld_Sequence<double> inertiaAboutOrigin() const;
    /// The modes, counted from 1, and the degrees of freedom that a step generating a substructure keeps or loses;
    /// empty for any other step.
    yld_Sequence<int> retainedEigenModes() const;
    yld_SequenceNodalDofs retainedNodalDofs() const;
    yld_SequenceNodalDofs eliminatedNodalDofs() const;
    /// Lines of solver input that follow those of the step itself.
    yld_String solverInput() const;
    void setSolverInput(const yld_String& text);

    /// A new frame at the end of the step; the caller gets a copy of its own.
    yld_Frame Frame(int incrementNumber, double frameValue, const yld_String& description = yld_String());
    /// Raises "Invalid LoadCase" for a load case that the step lacks.
    yld_Frame Frame(const yld_LoadCase& loadCase, const yld_String& description);
    yld_Frame Frame(const yld_LoadCase& loadCase, const yld_String& description, double frameValue);
    /// Raises "Incorrect index for frame.". The reference is good until the next frame of this step is asked for.
    yld_Frame& frames(int index);
    const yld_Frame& frames(int index) const;
    yld_SequenceFrame& frames() { return m_frames; }
    const yld_SequenceFrame& frames() const { return m_frames; }
    /// The frame that matches a value. Raises "Frame not found".
    yld_Frame getFrame(double value, yld_Enum::yld_MatchEnum match = yld_Enum::MATCH_CLOSEST);
    yld_Frame getFrame(const yld_LoadCase& loadCase, double value,
                       yld_Enum::yld_MatchEnum match = yld_Enum::MATCH_CLOSEST);
    /// The places of all frames at the best distance, in order.
    yld_Sequence<int> findFrames(double value, yld_Enum::yld_MatchEnum match = yld_Enum::MATCH_CLOSEST);
    yld_Sequence<int> findFrames(const yld_LoadCase& loadCase, double value,
                                 yld_Enum::yld_MatchEnum match = yld_Enum::MATCH_CLOSEST);

    /// A new history region, good as long as the step. A node or element of an instance gets that instance. The region
    /// is kept in the database with its first curve.
    /// Raises "A historyRegion named '%1$s' already exists in step '%2$s'.", and with a load case that the step lacks
    /// "Invalid LoadCase".
    yld_HistoryRegion& HistoryRegion(const yld_String& name, const yld_String& description,
                                     const yld_HistoryPoint& point);
    yld_HistoryRegion& HistoryRegion(const yld_String& name, const yld_String& description,
                                     const yld_HistoryPoint& point, const yld_LoadCase& loadCase);
    yld_HistoryRegion& HistoryRegion(const yld_String& name, const yld_String& description, const yld_Node& node);
    yld_HistoryRegion& HistoryRegion(const yld_String& name, const yld_String& description, const yld_Node& node,
                                     const yld_LoadCase& loadCase);
    /// The regions as they stand; nothing is read.
    yld_Repository<yld_String, yld_HistoryRegionPers>& historyRegion();
    /// The regions, read on first demand without any of their values.
    yld_Repository<yld_String, yld_HistoryRegionPers>& historyRegions();
    const yld_Repository<yld_String, yld_HistoryRegionPers>& historyRegions() const;
    /// The first region at a place, in the order of their names; warns of each further one. A linear search.
    /// Raises "HistoryRegion not found.".
    yld_HistoryRegion& getHistoryRegion(const yld_HistoryPoint& point);
    yld_HistoryRegion& getHistoryRegion(const yld_HistoryPoint& point, const yld_LoadCase& loadCase);

    /// A new load case. Raises "Invalid LoadCase" for a name that the step has.
    yld_LoadCase& LoadCase(const yld_String& name);
    const yld_Repository<yld_String, yld_LoadCase>& loadCases() const { return m_loadCases; }

    /// Looks for frames, load cases and, once history was read, curves that came in since the last look, and, if all
    /// fields of the frame at hand have been read, for fields of it; tells whether there were any.
    bool update();
    /// Gives back the memory of the frame at hand and its fields.
    void ClearFrameContainer();

    /// Makes a field the one that each frame shows first, or by which it shows the model deformed. A frame that does
    /// not hold the field, as the field's own frame describes it, stays as it was.
    /// Cost: one look at the names of each frame's fields.
    void setDefaultField(const yld_FieldOutput& field);
    void setDefaultDeformedField(const yld_FieldOutput& field);
    /// Asks for restart data; a later request takes the place of an earlier one. What the arguments mean is the
    /// solver's affair. The reference is good until the next request of this step.
    const yld_RestartRequest& RestartRequest(const int& argument1, const int& argument2, const bool& argument3,
                                             const bool& argument4);

    const shr_CountedHld<sto_Step>& step() const { return m_step; }
    const shr_CountedHld<sto_StoStep>& modelStep() const { return m_modelStep; }
    const shr_ArrayCOW<sto_Assembly>& assembly() const { return m_assembly; }

private:
    friend class yld_Frame;
    friend class yld_SequenceFrame;

    yld_Step* withoutFrames() const;
    yld_SequenceNodalDofs nodalDofs(bool isRetained) const;
    void markFrames(const yld_FieldOutput& field, void (sto_Frame::*mark)(int)) const;
    yld_StepHistory& history() const;
    yld_StepHistory& readHistory() const;
    bool updateHistory();
    yld_Frame newFrame(const yld_String& description, double frameValue, int incrementNumber,
                       const yld_LoadCase& loadCase);

    yld_String m_name;
    yld_String m_description;
    yld_Enum::yld_DomainEnum m_domain = yld_Enum::TIME;
    yld_String m_procedure;
    yld_String m_previousStepName;
    shr_CountedHld<sto_Step> m_step;
    shr_ArrayCOW<sto_Assembly> m_assembly;
    yld_SequenceFrame m_frames;
    int m_knownFrames = 0;
    yld_Repository<yld_String, yld_LoadCase> m_loadCases;
    shr_CountedHld<sto_StoStep> m_modelStep;
    shr_CountedHld<yld_RestartRequest> m_restartRequest;
    mutable shr_CountedHld<yld_StepHistory> m_history; // shared by all copies; null until asked for
};

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

    /// Files a step: at the end without a previous name, else after the previous one; "Initial" stands before
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
