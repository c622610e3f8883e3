#ifndef YLD_STEP_H
#define YLD_STEP_H

#include "containers/shr_COW.h"
#include "platform/base/bas_Export.h"
#include "yld_Enum.h"
#include "yld_Frame.h"
#include "yld_HistoryRegionPers.h"
#include "yld_NodalDofs.h"
#include "yld_Repository.h"
#include "yld_RestartRequest.h"
#include "yld_Sequence.h"
#include "yld_String.h"

class sto_Assembly;
class sto_Step;
class sto_StoStep;
class yld_StepHistory;

/// The frames of a step, counted from 0. It holds one frame at a time, so that a walk over a thousand of them takes the
/// memory of one: the reference to a frame is good until another frame is asked for. Take a copy of a frame to keep it.
class YLD_API yld_SequenceFrame
{
public:
    yld_SequenceFrame();
    explicit yld_SequenceFrame(const yld_Step& step);
    yld_SequenceFrame(const yld_SequenceFrame&);
    yld_SequenceFrame& operator=(const yld_SequenceFrame&);
    ~yld_SequenceFrame();

    int size() const;
    /// The frame at a place. An index that no frame has raises what the store says; yld_Step::frames(index) has a text
    /// of its own. Reads the frame's row, and none of its fields.
    yld_Frame& get(int index);
    const yld_Frame& constGet(int index) const;
    const yld_Frame& operator[](int index) const { return constGet(index); }
    /// Always raises exc_TextException with the text "SequenceFrame::Append" == 0: yld_Step::Frame() makes frames.
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

/// One step of the analysis, with its frames, load cases and history. A copy stands for the same step, with the frame
/// that it holds; histories are shared by all copies. Steps come from yld_Yld::steps(), new ones from yld_Yld::Step().
class YLD_API yld_Step
{
public:
    yld_Step();
    /// A step of the model that has no results.
    explicit yld_Step(const sto_StoStep& modelStep);
    yld_Step(const yld_String& name, const sto_Step& step, const yld_String& description,
             const shr_ArrayCOW<sto_Assembly>& assembly, yld_Enum::yld_DomainEnum domain,
             const yld_String& previousStepName, const yld_String& procedure);
    yld_Step(const yld_Step&);
    yld_Step& operator=(const yld_Step&);
    ~yld_Step();

    const yld_String& name() const { return m_name; }
    const yld_String& description() const { return m_description; }
    /// The number of the step in the order of creation, from 1; 0 for the initial state.
    int number() const;
    /// What its frames are counted along: time, frequency, modes and so on.
    yld_Enum::yld_DomainEnum domain() const { return m_domain; }
    /// The procedure keyword, for example "*STATIC".
    const yld_String& procedure() const { return m_procedure; }
    /// The length of the step, as it was given.
    double timePeriod() const;
    /// The analysis time at which the step begins.
    double totalTime() const;
    const yld_String& previousStepName() const { return m_previousStepName; }
    /// Whether geometric nonlinearity is on.
    bool nlgeom() const;
    /// False for the initial state alone.
    bool isAnalysisStep() const;
    bool isPerturbation() const;
    /// The mass of the model at the beginning of the step, in the model's units; 0 where the analysis has not told it.
    double mass() const;
    double acousticMass() const;
    /// Three coordinates; empty where the analysis has not told them.
    yld_Sequence<double> massCenter() const;
    yld_Sequence<double> acousticMassCenter() const;
    /// Six components in the order 11, 22, 33, 12, 13, 23; empty where the analysis has not told them.
    yld_Sequence<double> inertiaAboutCenter() const;
    yld_Sequence<double> inertiaAboutOrigin() const;
    /// Of a step that generates a substructure: the eigenmodes that are kept, counted from 1, and the degrees of
    /// freedom that are kept and those that are eliminated. Empty for any other step.
    yld_Sequence<int> retainedEigenModes() const;
    yld_SequenceNodalDofs retainedNodalDofs() const;
    yld_SequenceNodalDofs eliminatedNodalDofs() const;
    /// Lines of solver input that follow those of the step itself.
    yld_String solverInput() const;
    void setSolverInput(const yld_String& text);

    /// A new frame at the end of the step. What is written to the returned object goes to the database; the next save
    /// keeps it.
    /// @param frameValue  time, frequency or another measure of the step; kept in single precision
    /// Raises "Step \"%s\" has no results." for a step of the model alone.
    yld_Frame Frame(int incrementNumber, double frameValue, const yld_String& description = yld_String());
    /// Raises "Invalid LoadCase" for a load case that the step lacks.
    yld_Frame Frame(const yld_LoadCase& loadCase, const yld_String& description);
    yld_Frame Frame(const yld_LoadCase& loadCase, const yld_String& description, double frameValue);
    /// Raises "Incorrect index for frame.". The reference is good until the next frame of this step is asked for.
    yld_Frame& frames(int index);
    const yld_Frame& frames(int index) const;
    yld_SequenceFrame& frames() { return m_frames; }
    const yld_SequenceFrame& frames() const { return m_frames; }
    /// The frame whose value matches: the closest, the closest at or before, the closest at or after, or exactly this
    /// one. Of frames that match equally well the last, but with MATCH_BEFORE the first. With a load case only its
    /// frames count, and a negative value means its first frame. Raises "Frame not found". Reads the rows of the
    /// frames.
    yld_Frame getFrame(double value, yld_Enum::yld_MatchEnum match = yld_Enum::MATCH_CLOSEST);
    yld_Frame getFrame(const yld_LoadCase& loadCase, double value,
                       yld_Enum::yld_MatchEnum match = yld_Enum::MATCH_CLOSEST);
    /// The places of all frames that match equally well and best, ascending; empty where none does.
    yld_Sequence<int> findFrames(double value, yld_Enum::yld_MatchEnum match = yld_Enum::MATCH_CLOSEST);
    yld_Sequence<int> findFrames(const yld_LoadCase& loadCase, double value,
                                 yld_Enum::yld_MatchEnum match = yld_Enum::MATCH_CLOSEST);

    /// A new history region, to get curves by HistoryOutput(). The reference is good as long as the database is open.
    /// The instance of a node or an element is found by the number of its mesh. The database has the region from its
    /// first curve on. Raises "A historyRegion named '%1$s' already exists in step '%2$s'.", and with a load case that
    /// the step lacks "Invalid LoadCase".
    yld_HistoryRegion& HistoryRegion(const yld_String& name, const yld_String& description,
                                     const yld_HistoryPoint& point);
    yld_HistoryRegion& HistoryRegion(const yld_String& name, const yld_String& description,
                                     const yld_HistoryPoint& point, const yld_LoadCase& loadCase);
    yld_HistoryRegion& HistoryRegion(const yld_String& name, const yld_String& description, const yld_Node& node);
    yld_HistoryRegion& HistoryRegion(const yld_String& name, const yld_String& description, const yld_Node& node,
                                     const yld_LoadCase& loadCase);
    /// The regions that have been read or made so far; reads none.
    yld_Repository<yld_String, yld_HistoryRegionPers>& historyRegion();
    /// All regions by name. The first call reads them with the names of their curves, and no pair.
    yld_Repository<yld_String, yld_HistoryRegionPers>& historyRegions();
    const yld_Repository<yld_String, yld_HistoryRegionPers>& historyRegions() const;
    /// The region at a place. Where several are at it, the first by name, with a warning for each of the others. Cost:
    /// linear in the regions.
    /// Raises "HistoryRegion not found.".
    yld_HistoryRegion& getHistoryRegion(const yld_HistoryPoint& point);
    yld_HistoryRegion& getHistoryRegion(const yld_HistoryPoint& point, const yld_LoadCase& loadCase);

    /// A new load case. Raises "Invalid LoadCase" for a name that the step has.
    yld_LoadCase& LoadCase(const yld_String& name);
    const yld_Repository<yld_String, yld_LoadCase>& loadCases() const { return m_loadCases; }

    /// Looks for what a writer has added since the last look: frames, load cases, curves if the history has been read,
    /// and fields of the held frame if all of its fields have been read. Tells whether there was anything.
    bool update();
    /// Gives back the memory of the held frame and its fields; references to them are good no longer.
    void ClearFrameContainer();

    /// Tells viewers which field to show first, and by which field to deform the model. It is noted in every frame of
    /// the step that has the field with the same description; other frames stay as they were. Cost: one look at the
    /// names of each frame's fields.
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

#endif
