#ifndef STO_STOSTEP_H
#define STO_STOSTEP_H

#include "platform/attribute/mshK_Step.h"
#include "platform/store/lnk_ShortCut.h"
#include "platform/text/shr_String.h"

class mshK_Model;

/// A handle on the model side of a step.
class sto_StoStep
{
public:
    sto_StoStep() = default;
    explicit sto_StoStep(const lnk_ShortCut<mshK_Step>& step) : m_step(step) {}

    /// A new step in time behind the one that it follows, or at the end without one.
    /// @param position   how many steps there are
    /// @param procedure  a procedure number, see sto_Procedure; it decides the domain
    /// @param period     the time that the step lasts
    /// @param flag       1: geometric nonlinearity may be on
    static sto_StoStep GeneralStep(const lnk_ShortCut<mshK_Model>& model, int position, const shr_String& name,
                                   const shr_String& description, int procedure, double period,
                                   const shr_String& previous, int flag);
    /// A new perturbation about the state that the step before has reached.
    static sto_StoStep PerturbationStep(const lnk_ShortCut<mshK_Model>& model, int position, const shr_String& name,
                                        const shr_String& description, int procedure, double period,
                                        const shr_String& previous);
    /// The step of that name. Raises when the model has none.
    static sto_StoStep step(const lnk_ShortCut<mshK_Model>& model, const shr_String& name);
    static bool hasStep(const lnk_ShortCut<mshK_Model>& model, const shr_String& name);

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

private:
    lnk_ShortCut<mshK_Step> m_step;
};

/// The name of the state before the first step.
shr_String stpC_InitialStepName();

#endif
