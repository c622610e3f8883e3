#include "platform/attribute/stpC_Step.h"

#include "platform/attribute/stpC_Steps.h"
#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"

#include <array>

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

template<class T> std::shared_ptr<const stpC_Step> load(const lnk_AnyShortCut& reference)
{
    return lnk_ShortCut<T>(reference.file(), reference.id()).fetch();
}

struct Loader
{
    const char* className;
    std::shared_ptr<const stpC_Step> (*load)(const lnk_AnyShortCut&);
};

template<class T> constexpr Loader loaderOf() { return {T::className, &load<T>}; }

constexpr Loader loaders[] = {
    loaderOf<stpC_StaticStep>(),           loaderOf<stpC_StaticLinearPerturbationStep>(),
    loaderOf<stpC_HeatTransferStep>(),     loaderOf<stpC_StaticRiksStep>(),
    loaderOf<stpC_ExplicitDynamicsStep>(), loaderOf<stpC_SubstructureGenerateStep>(),
};

} // namespace

const char* stpC_argumentName(int number, int part)
{
    constexpr int most = 32;
    constexpr int parts = 3;
    static const auto names = [] {
        std::array<std::string, most * parts> made;
        const char* const endings[parts] = {"", " used", " text"};
        for (int i = 0; i < most * parts; ++i) {
            made[static_cast<std::size_t>(i)] = "argument " + std::to_string(i / parts + 1) + endings[i % parts];
        }
        return made;
    }();
    return names[static_cast<std::size_t>((number - 1) * parts + part)].c_str();
}

std::shared_ptr<const stpC_Step> stpC_Step::fetch(const lnk_AnyShortCut& reference, const std::string& className)
{
    for (const Loader& loader : loaders) {
        if (className == loader.className) return loader.load(reference);
    }
    fio_raise(reference.file()->path(), "has an analysis step of the unknown class \"" + className + "\"");
}

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

template<> const val_PrimEnumRow* val_PrimEnum<stpC_Step::NlgeomEnm>::Table()
{
    static constexpr val_PrimEnumRow rows[] = {
        {"OFF", stpC_Step::NLGEOM_OFF}, {"ON", stpC_Step::NLGEOM_ON}, {nullptr, 0}};
    return rows;
}

template<> const val_PrimEnumRow* val_PrimEnum<stpC_Step::StabilizationEnm>::Table()
{
    static constexpr val_PrimEnumRow rows[] = {{"NONE", stpC_Step::STABILIZATION_NONE},
                                               {"ENERGY_FRACTION", stpC_Step::STABILIZATION_ENERGY_FRACTION},
                                               {"DAMPING", stpC_Step::STABILIZATION_DAMPING},
                                               {nullptr, 0}};
    return rows;
}

template<> const val_PrimEnumRow* val_PrimEnum<stpC_Step::TimeIncrementationMethodEnm>::Table()
{
    static constexpr val_PrimEnumRow rows[] = {
        {"FIXED", stpC_Step::INCREMENTS_FIXED}, {"AUTOMATIC", stpC_Step::INCREMENTS_AUTOMATIC}, {nullptr, 0}};
    return rows;
}

template<> const val_PrimEnumRow* val_PrimEnum<stpC_Step::AmplitudeEnm>::Table()
{
    static constexpr val_PrimEnumRow rows[] = {
        {"STEP", stpC_Step::AMPLITUDE_STEP}, {"RAMP", stpC_Step::AMPLITUDE_RAMP}, {nullptr, 0}};
    return rows;
}

template<> const val_PrimEnumRow* val_PrimEnum<stpC_Step::MatrixSolverEnm>::Table()
{
    static constexpr val_PrimEnumRow rows[] = {
        {"DIRECT", stpC_Step::SOLVER_DIRECT}, {"ITERATIVE", stpC_Step::SOLVER_ITERATIVE}, {nullptr, 0}};
    return rows;
}

template<> const val_PrimEnumRow* val_PrimEnum<stpC_Step::ResponseEnm>::Table()
{
    static constexpr val_PrimEnumRow rows[] = {
        {"STEADY_STATE", stpC_Step::RESPONSE_STEADY_STATE}, {"TRANSIENT", stpC_Step::RESPONSE_TRANSIENT}, {nullptr, 0}};
    return rows;
}

template<> const val_PrimEnumRow* val_PrimEnum<stpC_Step::ExtrapolationEnm>::Table()
{
    static constexpr val_PrimEnumRow rows[] = {{"NONE", stpC_Step::EXTRAPOLATION_NONE},
                                               {"LINEAR", stpC_Step::EXTRAPOLATION_LINEAR},
                                               {"PARABOLIC", stpC_Step::EXTRAPOLATION_PARABOLIC},
                                               {nullptr, 0}};
    return rows;
}
