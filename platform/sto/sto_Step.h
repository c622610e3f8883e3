#ifndef STO_STEP_H
#define STO_STEP_H

#include "containers/shr_String.h"
#include "platform/result/fld_Step.h"
#include "platform/sto/sto_FrameContainer.h"

#include <memory>
#include <string>
#include <vector>

class sto_FieldStep;
class sto_FieldStepIndex;
class sto_Frame;
class sto_HistoryStep;
class sto_StoStep;

/// A handle on the result side of a step. Copies stand for the same step.
class sto_Step
{
public:
    sto_Step() = default;
    explicit sto_Step(const lnk_ShortCut<fld_Step>& step);

    bool isValid() const { return m_step.isValid(); }
    const lnk_ShortCut<fld_Step>& shortCut() const { return m_step; }

    shr_String name() const;
    /// The time that the step lasts.
    double time() const;
    /// The analysis time at which the step begins.
    double totalTime() const;
    void setTotalTime(double time);
    /// The other side of the step. Raises when the model has none of this name.
    sto_StoStep modelStep() const;

    /// What the model weighs as the step finds it.
    double mass() const;
    double acousticMass() const;
    /// For tests: the library writes none.
    void setMass(double mass, double acousticMass);
    /// Three coordinates; empty where the analysis has not told them.
    std::vector<double> massCenter() const;
    std::vector<double> acousticMassCenter() const;
    /// For tests: the library writes none.
    void setMassCenter(const std::vector<double>& center, const std::vector<double>& acousticCenter);
    /// Six components, 11, 22, 33, 12, 13, 23; empty where the analysis has not told them.
    std::vector<double> inertiaAboutCenter() const;
    std::vector<double> inertiaAboutOrigin() const;
    /// For tests: the library writes none.
    void setInertia(const std::vector<double>& aboutCenter, const std::vector<double>& aboutOrigin);

    /// Lets the step have fields.
    void FieldStep();
    bool hasField() const;
    sto_FieldStep fieldStep() const;

    /// Lets the step have history.
    void HistoryStep();
    bool hasHistory() const;
    sto_HistoryStep historyStep() const;

    std::vector<std::string> loadCaseNames() const;
    void addLoadCaseName(const shr_String& name);
    /// By frame, as far as any frame has one.
    std::vector<std::string> frameLoadCaseNames() const;
    void setFrameLoadCaseName(int frame, const shr_String& name);

    int numFrames() const;
    /// Raises when there is no such frame.
    sto_Frame frame(int index) const;
    sto_FrameContainer frames() const;
    /// A new frame at the end.
    sto_Frame Frame(const shr_String& label, double value, int increment);

    /// The step of that name in the one model, or null.
    static lnk_ShortCut<mshK_Step> findModelStep(const std::shared_ptr<fio_FileBody>& file, const std::string& name);

private:
    lnk_ShortCut<fld_Step> m_step;
    std::shared_ptr<sto_FieldStepIndex> m_index; // shared by the copies of this handle
};

#endif
