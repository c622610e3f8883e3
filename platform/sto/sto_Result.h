#ifndef STO_RESULT_H
#define STO_RESULT_H

#include "containers/shr_String.h"
#include "platform/result/fld_Result.h"
#include "platform/store/lnk_ShortCut.h"

class sto_Step;
class sto_StepContainer;
class sto_StoStep;

/// A handle on the results of a database.
class sto_Result
{
public:
    sto_Result() = default;
    explicit sto_Result(const lnk_ShortCut<fld_Result>& result) : m_result(result) {}
    /// New, empty results; the caller keeps the reference in the root object.
    static sto_Result create(const std::shared_ptr<fio_FileBody>& file);

    bool isValid() const { return m_result.isValid(); }
    const lnk_ShortCut<fld_Result>& shortCut() const { return m_result; }

    /// The result side of a new step.
    /// @param modelStep  the other side, which gives the period
    /// @param previous   as for sto_StoStep::create, so that both sides stand in one order
    sto_Step Step(const shr_String& name, const sto_StoStep& modelStep, const shr_String& previous);
    /// The same for a model side that is found by its name.
    sto_Step Step(const shr_String& name);
    /// Raises when there is no step of that name.
    sto_Step step(const shr_String& name) const;
    /// For tests.
    bool hasStep(const shr_String& name) const;
    sto_StepContainer steps() const;

private:
    lnk_ShortCut<fld_Result> m_result;
};

#endif
