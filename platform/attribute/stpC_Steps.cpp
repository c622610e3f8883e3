#include "platform/attribute/stpC_Steps.h"

namespace {

// The procedure numbers that the step classes stand for.
constexpr int staticProcedure = 1;
constexpr int explicitDynamics = 6;
constexpr int steadyStateHeatTransfer = 8;
constexpr int heatTransfer = 9;
constexpr int staticPerturbation = 38;
constexpr int staticRiks = 39;
constexpr int substructureGenerate = 40;

template<class E> bool isOf(const std::string& text, E value) { return val_PrimEnum<E>(value).GetText() == text; }

} // namespace

int stpC_StaticStep::procedure() const { return staticProcedure; }
bool stpC_StaticStep::isNlgeom() const { return isOf(argument<2>(), NLGEOM_ON); }

int stpC_StaticLinearPerturbationStep::procedure() const { return staticPerturbation; }

int stpC_HeatTransferStep::procedure() const
{
    return isOf(argument<1>(), RESPONSE_STEADY_STATE) ? steadyStateHeatTransfer : heatTransfer;
}

int stpC_StaticRiksStep::procedure() const { return staticRiks; }
bool stpC_StaticRiksStep::isNlgeom() const { return isOf(argument<1>(), NLGEOM_ON); }

int stpC_ExplicitDynamicsStep::procedure() const { return explicitDynamics; }
bool stpC_ExplicitDynamicsStep::isNlgeom() const { return isOf(argument<2>(), NLGEOM_ON); }

int stpC_SubstructureGenerateStep::procedure() const { return substructureGenerate; }
