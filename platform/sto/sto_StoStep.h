#ifndef STO_STOSTEP_H
#define STO_STOSTEP_H

#include "containers/shr_String.h"
#include "platform/model/mshK_Step.h"
#include "platform/store/lnk_ShortCut.h"

class sto_Restart;

/// A handle on the model side of a step.
class sto_StoStep
{
public:
    sto_StoStep() = default;
    explicit sto_StoStep(const lnk_ShortCut<mshK_Step>& step) : m_step(step) {}

    bool isValid() const { return m_step.isValid(); }
    const lnk_ShortCut<mshK_Step>& shortCut() const { return m_step; }

    /// Counted from 1 in the order of creation; 0 is the initial step.
    int stepId() const;
    shr_String name() const;
    shr_String description() const;
    /// 0 time, 1 frequency, 2 modal, 3 arc length.
    int getDomain() const;
    /// For a caller who knows the domain better than the procedure tells.
    void setDomain(int domain);
    int getProcedureType() const;
    /// The keyword of the procedure; empty for a number that has none.
    shr_String procedureKeyword() const;
    double period() const;
    shr_String previousName() const;
    bool isNlgeom() const;
    bool isAnalisysStep() const;
    bool isPerturbation() const;
    shr_String solverInput() const;
    void setSolverInput(const shr_String& text);

    /// The analysis settings; null for a step without any.
    std::shared_ptr<const stpC_Step> analysisStep() const;

    /// Asks for restart data; a later call replaces what an earlier one has asked for. The arguments are the solver's
    /// and are kept in this order.
    sto_Restart Restart(int first, bool second, bool third, int fourth);
    /// For tests.
    bool hasRestart() const { return m_step.fetch()->m_restart.isValid(); }
    sto_Restart restart() const;

private:
    lnk_ShortCut<mshK_Step> m_step;
};

/// A handle on what a step asks for so that a job can be taken up again.
class sto_Restart
{
public:
    sto_Restart() = default;
    explicit sto_Restart(const lnk_ShortCut<stpC_Restart>& restart) : m_restart(restart) {}

    bool isValid() const { return m_restart.isValid(); }
    const lnk_ShortCut<stpC_Restart>& shortCut() const { return m_restart; }
    /// The arguments of sto_StoStep::Restart, in their order.
    int first() const;
    bool second() const;
    bool third() const;
    int fourth() const;

private:
    lnk_ShortCut<stpC_Restart> m_restart;
};

/// The name of the state before the first step.
shr_String stpC_InitialStepName();

#endif
