#include "yld/impl/base/yld_PrimEnum.h"

#include "platform/result/fld_DataType.h"
#include "platform/result/fld_OutputPosition.h"

// Rows stand in the order in which clients are told the enumerators, which is not always that of the numbers.

// clang-format off
#define YLD_ROW(name) val_PrimEnumRow{#name, yld_Enum::name}
// clang-format on

namespace {

// These two have their texts where they have everything else.
val_PrimEnumRow typeRow(yld_Enum::yld_DataTypeEnum type) { return {fld_DataType::shownBy(type).name, type}; }
val_PrimEnumRow positionRow(yld_Enum::yld_ResultPositionEnum position)
{
    return {fld_OutputPosition::shownBy(position)->name, position};
}

} // namespace

template<> const val_PrimEnumRow* val_PrimEnum<yld_Enum::yld_AnalysisCodeEnum>::Table()
{
    static constexpr val_PrimEnumRow rows[] = {YLD_ROW(UNKNOWN_ANALYSIS_CODE), YLD_ROW(ZANTRA_STANDARD),
                                               YLD_ROW(ZANTRA_EXPLICIT), val_PrimEnumRow{nullptr, 0}};
    return rows;
}

template<> const val_PrimEnumRow* val_PrimEnum<yld_Enum::yld_PrecisionEnum>::Table()
{
    static constexpr val_PrimEnumRow rows[] = {YLD_ROW(SINGLE_PRECISION), YLD_ROW(DOUBLE_PRECISION),
                                               val_PrimEnumRow{nullptr, 0}};
    return rows;
}

template<> const val_PrimEnumRow* val_PrimEnum<yld_Enum::yld_ProductAddOnEnum>::Table()
{
    static constexpr val_PrimEnumRow rows[] = {YLD_ROW(WELD_MARINE), YLD_ROW(ZANTRA_DESIGN),
                                               val_PrimEnumRow{nullptr, 0}};
    return rows;
}

template<> const val_PrimEnumRow* val_PrimEnum<yld_Enum::yld_DimensionEnum>::Table()
{
    static constexpr val_PrimEnumRow rows[] = {YLD_ROW(THREE_D), YLD_ROW(TWO_D_PLANAR), YLD_ROW(AXISYMMETRIC),
                                               YLD_ROW(UNKNOWN_DIMENSION), val_PrimEnumRow{nullptr, 0}};
    return rows;
}

template<> const val_PrimEnumRow* val_PrimEnum<yld_Enum::yld_PartTypeEnum>::Table()
{
    static constexpr val_PrimEnumRow rows[] = {YLD_ROW(DEFORMABLE_BODY), YLD_ROW(DISCRETE_RIGID_SURFACE),
                                               YLD_ROW(ANALYTIC_RIGID_SURFACE), val_PrimEnumRow{nullptr, 0}};
    return rows;
}

template<> const val_PrimEnumRow* val_PrimEnum<yld_Enum::yld_DomainEnum>::Table()
{
    static constexpr val_PrimEnumRow rows[] = {YLD_ROW(TIME), YLD_ROW(FREQUENCY), YLD_ROW(MODAL), YLD_ROW(ARC_LENGTH),
                                               val_PrimEnumRow{nullptr, 0}};
    return rows;
}

template<> const val_PrimEnumRow* val_PrimEnum<yld_Enum::yld_DataTypeEnum>::Table()
{
    static const val_PrimEnumRow rows[] = {typeRow(yld_Enum::QUATERNION_3D),    typeRow(yld_Enum::QUATERNION_2D),
                                           typeRow(yld_Enum::SCALAR),           typeRow(yld_Enum::VECTOR),
                                           typeRow(yld_Enum::MATRIX),           typeRow(yld_Enum::TENSOR_3D_FULL),
                                           typeRow(yld_Enum::TENSOR_3D_PLANAR), typeRow(yld_Enum::TENSOR_3D_SURFACE),
                                           typeRow(yld_Enum::TENSOR_2D_PLANAR), typeRow(yld_Enum::TENSOR_2D_SURFACE),
                                           val_PrimEnumRow{nullptr, 0}};
    return rows;
}

template<> const val_PrimEnumRow* val_PrimEnum<yld_Enum::yld_DataSubtypeEnum>::Table()
{
    static constexpr val_PrimEnumRow rows[] = {YLD_ROW(SYMMETRIC_MATRIX), YLD_ROW(UNDEFINED_DATASUBTYPE),
                                               val_PrimEnumRow{nullptr, 0}};
    return rows;
}

template<> const val_PrimEnumRow* val_PrimEnum<yld_Enum::yld_ResultPositionEnum>::Table()
{
    static const val_PrimEnumRow rows[] = {positionRow(yld_Enum::UNDEFINED_POSITION),
                                           positionRow(yld_Enum::NODAL),
                                           positionRow(yld_Enum::ELEMENT_NODAL),
                                           positionRow(yld_Enum::INTEGRATION_POINT),
                                           positionRow(yld_Enum::CENTROID),
                                           positionRow(yld_Enum::ELEMENT_FACE),
                                           positionRow(yld_Enum::ELEMENT_FACE_INTEGRATION_POINT),
                                           positionRow(yld_Enum::SURFACE_INTEGRATION_POINT),
                                           positionRow(yld_Enum::WHOLE_ELEMENT),
                                           positionRow(yld_Enum::WHOLE_REGION),
                                           positionRow(yld_Enum::WHOLE_PART_INSTANCE),
                                           positionRow(yld_Enum::WHOLE_MODEL),
                                           val_PrimEnumRow{nullptr, 0}};
    return rows;
}

template<> const val_PrimEnumRow* val_PrimEnum<yld_Enum::yld_InvariantEnum>::Table()
{
    static constexpr val_PrimEnumRow rows[] = {YLD_ROW(UNDEFINED_INVARIANT),
                                               YLD_ROW(MAGNITUDE),
                                               YLD_ROW(MISES),
                                               YLD_ROW(TRESCA),
                                               YLD_ROW(PRESS),
                                               YLD_ROW(INV3),
                                               YLD_ROW(MAX_PRINCIPAL),
                                               YLD_ROW(MID_PRINCIPAL),
                                               YLD_ROW(MIN_PRINCIPAL),
                                               YLD_ROW(MAX_INPLANE_PRINCIPAL),
                                               YLD_ROW(MIN_INPLANE_PRINCIPAL),
                                               YLD_ROW(OUTOFPLANE_PRINCIPAL),
                                               val_PrimEnumRow{nullptr, 0}};
    return rows;
}

template<> const val_PrimEnumRow* val_PrimEnum<yld_Enum::yld_ElementFaceEnum>::Table()
{
    static constexpr val_PrimEnumRow rows[] = {YLD_ROW(FACE_UNKNOWN),
                                               YLD_ROW(FACE1),
                                               YLD_ROW(FACE2),
                                               YLD_ROW(FACE3),
                                               YLD_ROW(FACE4),
                                               YLD_ROW(FACE5),
                                               YLD_ROW(FACE6),
                                               YLD_ROW(SIDE1),
                                               YLD_ROW(SIDE2),
                                               YLD_ROW(END1),
                                               YLD_ROW(END2),
                                               YLD_ROW(END3),
                                               val_PrimEnumRow{nullptr, 0}};
    return rows;
}

#undef YLD_ROW
#define YLD_ROW(name)                                                                                                  \
    val_PrimEnumRow { #name, yld_DiagnosticData::name }

template<> const val_PrimEnumRow* val_PrimEnum<yld_DiagnosticData::JobStatus>::Table()
{
    static constexpr val_PrimEnumRow rows[] = {
        YLD_ROW(JOB_STATUS_UNKNOWN), YLD_ROW(JOB_STATUS_COMPLETED_SUCCESSFULLY), YLD_ROW(JOB_STATUS_EXITED_WITH_ERROR),
        YLD_ROW(JOB_STATUS_TERMINATED_BY_EXTERNAL_REQUEST), val_PrimEnumRow{nullptr, 0}};
    return rows;
}

#undef YLD_ROW
// clang-format off
#define YLD_ROW(name) val_PrimEnumRow{#name, yld_AnalysisWarningError::name}
// clang-format on

template<> const val_PrimEnumRow* val_PrimEnum<yld_AnalysisWarningError::Category>::Table()
{
    static constexpr val_PrimEnumRow rows[] = {YLD_ROW(INTERNAL),
                                               YLD_ROW(NODE),
                                               YLD_ROW(ELEMENT),
                                               YLD_ROW(REINFORCEMENT),
                                               YLD_ROW(SURFACE),
                                               YLD_ROW(MATERIAL),
                                               YLD_ROW(SECTION),
                                               YLD_ROW(ORIENTATION),
                                               YLD_ROW(TRANSFORMATION),
                                               YLD_ROW(INITIAL_CONDITION),
                                               YLD_ROW(AMPLITUDE),
                                               YLD_ROW(BOUNDARY_CONDITION),
                                               YLD_ROW(LOAD),
                                               YLD_ROW(LOAD_CASE),
                                               YLD_ROW(ASSEMBLY_LOAD),
                                               YLD_ROW(PREDEFINED_FIELD),
                                               YLD_ROW(EQUATION),
                                               YLD_ROW(MPC),
                                               YLD_ROW(KINEMATIC_COUPLING),
                                               YLD_ROW(DISTRIBUTING_COUPLING),
                                               YLD_ROW(MESH_TIE),
                                               YLD_ROW(SHELL_TO_SOLID_COUPLING),
                                               YLD_ROW(FASTENER),
                                               YLD_ROW(CONNECTOR),
                                               YLD_ROW(EMBEDDED_ELEMENT),
                                               YLD_ROW(END_RELEASE),
                                               YLD_ROW(RIGID_BODY),
                                               YLD_ROW(OVERCONSTRAINT),
                                               YLD_ROW(MECHANICAL_CONTACT),
                                               YLD_ROW(PRESSURE_PENETRATION),
                                               YLD_ROW(THERMAL_CONTACT),
                                               YLD_ROW(ELECTRICAL_CONTACT),
                                               YLD_ROW(PORE_FLUID_CONTACT),
                                               YLD_ROW(CAVITY_RADIATION),
                                               YLD_ROW(MEMORY),
                                               YLD_ROW(DISK),
                                               YLD_ROW(PARALLEL),
                                               YLD_ROW(OUTPUT),
                                               YLD_ROW(STATIC),
                                               YLD_ROW(STATIC_PERTURBATION),
                                               YLD_ROW(RIKS),
                                               YLD_ROW(EIGENVALUE_BUCKLING),
                                               YLD_ROW(QUASI_STATIC),
                                               YLD_ROW(DIRECT_CYCLIC),
                                               YLD_ROW(IMPLICIT_DYNAMIC),
                                               YLD_ROW(EXPLICIT_DYNAMIC),
                                               YLD_ROW(SUBSPACE_DYNAMIC),
                                               YLD_ROW(DIRECT_STEADY_STATE_DYNAMIC),
                                               YLD_ROW(NATURAL_FREQUENCY_EXTRACTION),
                                               YLD_ROW(MODE_BASED_DYNAMIC),
                                               YLD_ROW(MODE_BASED_STEADY_STATE_DYNAMIC),
                                               YLD_ROW(SUBSPACE_STEADY_STATE_DYNAMIC),
                                               YLD_ROW(RESPONSE_SPECTRUM),
                                               YLD_ROW(RANDOM_RESPONSE),
                                               YLD_ROW(STEADY_STATE_TRANSPORT),
                                               YLD_ROW(HEAT_TRANSFER),
                                               YLD_ROW(SEQUENTIAL_THERMAL_STRESS),
                                               YLD_ROW(COUPLED_THERMAL_STRESS),
                                               YLD_ROW(COUPLED_THERMAL_ELECTRICAL),
                                               YLD_ROW(PIEZOELECTRIC),
                                               YLD_ROW(PORE_FLUID_DIFFUSION),
                                               YLD_ROW(MASS_DIFFUSION),
                                               YLD_ROW(ACOUSTICS),
                                               YLD_ROW(MARINE),
                                               YLD_ROW(RESTART),
                                               YLD_ROW(SUBSTRUCTURING),
                                               YLD_ROW(SUBMODELING),
                                               YLD_ROW(INERTIA_RELIEF),
                                               YLD_ROW(MODEL_CHANGE),
                                               YLD_ROW(IMPERFECTION),
                                               YLD_ROW(IMPORT),
                                               YLD_ROW(SYMMETRIC_MODEL_GENERATION),
                                               YLD_ROW(CYCLIC_SYMMETRY),
                                               YLD_ROW(FRACTURE_MECHANICS),
                                               YLD_ROW(ANNEALING),
                                               YLD_ROW(HYDROSTATIC_FLUID_MODELING),
                                               YLD_ROW(MESHED_BEAM_SECTION),
                                               YLD_ROW(DESIGN_SENSITIVITY),
                                               YLD_ROW(MASS_SCALING),
                                               YLD_ROW(ADAPTIVE_MESHING),
                                               YLD_ROW(NUMERICAL_PROBLEM),
                                               YLD_ROW(SEPARATED_SOLUTION),
                                               YLD_ROW(QUASI_NEWTON_METHOD),
                                               YLD_ROW(LINE_SEARCH),
                                               YLD_ROW(DIRECT_SOLVER),
                                               YLD_ROW(ITERATIVE_SOLVER),
                                               YLD_ROW(SUBSPACE_EIGENSOLVER),
                                               YLD_ROW(LANCZOS_EIGENSOLVER),
                                               YLD_ROW(COMPLEX_EIGENSOLVER),
                                               YLD_ROW(INCREMENTATION),
                                               YLD_ROW(CONVERGENCE),
                                               YLD_ROW(STABILIZATION),
                                               YLD_ROW(TIME_INTEGRATION),
                                               YLD_ROW(USER_SUBROUTINE),
                                               val_PrimEnumRow{nullptr, 0}};
    return rows;
}

#undef YLD_ROW
