#ifndef STPC_STEP_H
#define STPC_STEP_H

#include "platform/store/lnk_ShortCut.h"
#include "platform/value/val_PrimEnum.h"

#include <memory>
#include <string>

class pcl_Persistent;

/// The analysis settings of a step, beyond what the model side of every step says. Which class it is tells the
/// procedure; the settings themselves mean something to the solver alone.
class stpC_Step
{
public:
    // The numbers may change, the texts stand in files; see val_PrimEnum.

    /// Whether the geometry is taken as it deforms.
    enum NlgeomEnm : int
    {
        NLGEOM_OFF = 0,
        NLGEOM_ON = 1
    };
    /// How a step that would lose its footing is held.
    enum StabilizationEnm : int
    {
        STABILIZATION_NONE = 0,
        STABILIZATION_ENERGY_FRACTION = 1,
        STABILIZATION_DAMPING = 2
    };
    enum TimeIncrementationMethodEnm : int
    {
        INCREMENTS_FIXED = 0,
        INCREMENTS_AUTOMATIC = 1
    };
    /// How loads without a history of their own come on.
    enum AmplitudeEnm : int
    {
        AMPLITUDE_STEP = 0,
        AMPLITUDE_RAMP = 1
    };
    enum MatrixSolverEnm : int
    {
        SOLVER_DIRECT = 0,
        SOLVER_ITERATIVE = 1
    };
    enum ResponseEnm : int
    {
        RESPONSE_STEADY_STATE = 0,
        RESPONSE_TRANSIENT = 1
    };
    /// How an increment is begun from those before it.
    enum ExtrapolationEnm : int
    {
        EXTRAPOLATION_NONE = 0,
        EXTRAPOLATION_LINEAR = 1,
        EXTRAPOLATION_PARABOLIC = 2
    };

    virtual ~stpC_Step() = default;

    /// The procedure number, see sto_Procedure.
    virtual int procedure() const = 0;
    /// The time that the step lasts; 0 for a procedure that is not given one.
    virtual double timePeriod() const { return 0.0; }
    virtual bool isNlgeom() const { return false; }
    /// Whether the step is a perturbation about the state that the step before has reached.
    virtual bool isPerturbation() const { return false; }
    /// The same object as the store sees it.
    virtual const pcl_Persistent& persistent() const = 0;

    /// A stored object, by the class that it was stored as. Raises for a class that is none of a step.
    static std::shared_ptr<const stpC_Step> fetch(const lnk_AnyShortCut& reference, const std::string& className);
};

template<> const val_PrimEnumRow* val_PrimEnum<stpC_Step::NlgeomEnm>::Table();
template<> const val_PrimEnumRow* val_PrimEnum<stpC_Step::StabilizationEnm>::Table();
template<> const val_PrimEnumRow* val_PrimEnum<stpC_Step::TimeIncrementationMethodEnm>::Table();
template<> const val_PrimEnumRow* val_PrimEnum<stpC_Step::AmplitudeEnm>::Table();
template<> const val_PrimEnumRow* val_PrimEnum<stpC_Step::MatrixSolverEnm>::Table();
template<> const val_PrimEnumRow* val_PrimEnum<stpC_Step::ResponseEnm>::Table();
template<> const val_PrimEnumRow* val_PrimEnum<stpC_Step::ExtrapolationEnm>::Table();

#endif
