#include "platform/attribute/stpC_Step.h"

#include "platform/attribute/stpC_Steps.h"
#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"

namespace {

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

std::shared_ptr<const stpC_Step> stpC_Step::fetch(const lnk_AnyShortCut& reference, const std::string& className)
{
    for (const Loader& loader : loaders) {
        if (className == loader.className) return loader.load(reference);
    }
    fio_raise(reference.file()->path(), "has an analysis step of the unknown class \"" + className + "\"");
}

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
