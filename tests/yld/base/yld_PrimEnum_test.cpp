#include "yld/impl/base/yld_PrimEnum.h"

#include "containers/shr_Map.h"
#include "platform/value/val_ValueErrorException.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

using Rows = std::vector<std::pair<const char*, int>>;

/// The table has these rows, in this order; each is found by its text, and by its number if it is the first
/// with that number; near misses and numbers beside the table are refused.
template<class E> void expectTable(const Rows& rows)
{
    std::string texts;
    for (const auto& row : rows) texts += (texts.empty() ? "" : ", ") + std::string(row.first);

    const val_PrimEnumRow* stored = val_PrimEnum<E>::Table();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.first);
        ASSERT_NE(nullptr, stored->text);
        EXPECT_STREQ(row.first, stored->text);
        EXPECT_EQ(row.second, stored->value);
        ++stored;

        val_PrimEnum<E> value{shr_String(row.first)};
        EXPECT_STREQ(row.first, value.GetText());
        EXPECT_EQ(row.second, static_cast<int>(value.GetValue()));
        EXPECT_STREQ(texts.c_str(), value.PermissibleValuesAsString().cStr());
        EXPECT_FALSE(value.SetValue((std::string(row.first) + "_").c_str()));

        const char* first = nullptr;
        for (const auto& candidate : rows)
            if (!first && candidate.second == row.second) first = candidate.first;
        EXPECT_STREQ(first, val_PrimEnum<E>(static_cast<E>(row.second)).GetText());
    }
    EXPECT_EQ(nullptr, stored->text);

    const shr_Map<shr_String, unsigned> permissible =
        val_PrimEnum<E>(static_cast<E>(rows.front().second)).PermissibleValues();
    EXPECT_EQ(static_cast<int>(rows.size()), permissible.Size());
    int place = 0;
    for (const auto& row : rows) {
        EXPECT_STREQ(row.first, permissible.Key(place++).cStr());
        const unsigned* number = permissible.Lookup(shr_String(row.first));
        ASSERT_NE(nullptr, number) << row.first;
        EXPECT_EQ(static_cast<unsigned>(row.second), *number) << row.first;
    }

    for (int number = -2; number <= 1100; ++number) {
        bool known = false;
        for (const auto& row : rows) known = known || row.second == number;
        if (known) continue;
        const std::string message =
            "val_PrimEnum(Enum) - Enum value not allowed: " + std::to_string(number) + "  Permissible: " + texts;
        try {
            val_PrimEnum<E> value(static_cast<E>(number));
            ADD_FAILURE() << number << " is allowed";
        } catch (const val_ValueErrorException& error) {
            ASSERT_EQ(message, error.AsString().cStr());
        }
    }
}

} // namespace

TEST(yld_PrimEnum, analysisCode)
{
    expectTable<yld_Enum::yld_AnalysisCodeEnum>(
        {{"UNKNOWN_ANALYSIS_CODE", 0}, {"ZANTRA_STANDARD", 1}, {"ZANTRA_EXPLICIT", 2}});
}

TEST(yld_PrimEnum, jobStatus)
{
    expectTable<yld_DiagnosticData::JobStatus>({{"JOB_STATUS_UNKNOWN", 0},
                                                {"JOB_STATUS_COMPLETED_SUCCESSFULLY", 1},
                                                {"JOB_STATUS_EXITED_WITH_ERROR", 2},
                                                {"JOB_STATUS_TERMINATED_BY_EXTERNAL_REQUEST", 3}});
}

TEST(yld_PrimEnum, precision)
{
    expectTable<yld_Enum::yld_PrecisionEnum>({{"SINGLE_PRECISION", 0}, {"DOUBLE_PRECISION", 1}});
}

TEST(yld_PrimEnum, productAddOn)
{
    expectTable<yld_Enum::yld_ProductAddOnEnum>({{"WELD_MARINE", 0}, {"ZANTRA_DESIGN", 1}});
}

TEST(yld_PrimEnum, dimension)
{
    expectTable<yld_Enum::yld_DimensionEnum>(
        {{"THREE_D", 0}, {"TWO_D_PLANAR", 1}, {"AXISYMMETRIC", 2}, {"UNKNOWN_DIMENSION", 3}});
}

TEST(yld_PrimEnum, partType)
{
    expectTable<yld_Enum::yld_PartTypeEnum>(
        {{"DEFORMABLE_BODY", 0}, {"DISCRETE_RIGID_SURFACE", 1}, {"ANALYTIC_RIGID_SURFACE", 2}});
}

TEST(yld_PrimEnum, domain)
{
    expectTable<yld_Enum::yld_DomainEnum>({{"TIME", 0}, {"FREQUENCY", 1}, {"MODAL", 2}, {"ARC_LENGTH", 3}});
}

TEST(yld_PrimEnum, dataType)
{
    expectTable<yld_Enum::yld_DataTypeEnum>({{"QUATERNION_3D", 10},
                                             {"QUATERNION_2D", 11},
                                             {"SCALAR", 2},
                                             {"VECTOR", 3},
                                             {"MATRIX", 4},
                                             {"TENSOR_3D_FULL", 5},
                                             {"TENSOR_3D_PLANAR", 6},
                                             {"TENSOR_3D_SURFACE", 7},
                                             {"TENSOR_2D_PLANAR", 8},
                                             {"TENSOR_2D_SURFACE", 9}});
}

TEST(yld_PrimEnum, dataSubtype)
{
    expectTable<yld_Enum::yld_DataSubtypeEnum>({{"SYMMETRIC_MATRIX", 1}, {"UNDEFINED_DATASUBTYPE", 0}});
}

TEST(yld_PrimEnum, resultPosition)
{
    expectTable<yld_Enum::yld_ResultPositionEnum>({{"UNDEFINED_POSITION", 0},
                                                   {"NODAL", 1},
                                                   {"ELEMENT_NODAL", 2},
                                                   {"INTEGRATION_POINT", 3},
                                                   {"CENTROID", 4},
                                                   {"ELEMENT_FACE", 5},
                                                   {"ELEMENT_FACE_INTEGRATION_POINT", 6},
                                                   {"SURFACE_INTEGRATION_POINT", 7},
                                                   {"WHOLE_ELEMENT", 8},
                                                   {"WHOLE_REGION", 9},
                                                   {"WHOLE_PART_INSTANCE", 10},
                                                   {"WHOLE_MODEL", 11}});
}

TEST(yld_PrimEnum, invariant)
{
    expectTable<yld_Enum::yld_InvariantEnum>({{"UNDEFINED_INVARIANT", 0},
                                              {"MAGNITUDE", 8},
                                              {"MISES", 4},
                                              {"TRESCA", 5},
                                              {"PRESS", 6},
                                              {"INV3", 7},
                                              {"MAX_PRINCIPAL", 1},
                                              {"MID_PRINCIPAL", 2},
                                              {"MIN_PRINCIPAL", 3},
                                              {"MAX_INPLANE_PRINCIPAL", 9},
                                              {"MIN_INPLANE_PRINCIPAL", 10},
                                              {"OUTOFPLANE_PRINCIPAL", 11}});
}

TEST(yld_PrimEnum, elementFace)
{
    expectTable<yld_Enum::yld_ElementFaceEnum>({{"FACE_UNKNOWN", 0},
                                                {"FACE1", 11},
                                                {"FACE2", 12},
                                                {"FACE3", 13},
                                                {"FACE4", 14},
                                                {"FACE5", 15},
                                                {"FACE6", 16},
                                                {"SIDE1", 1001},
                                                {"SIDE2", 1002},
                                                {"END1", 1},
                                                {"END2", 2},
                                                {"END3", 3}});
}

TEST(yld_PrimEnum, booleanAndIntegerAreRefused)
{
    const std::string permissible = "QUATERNION_3D, QUATERNION_2D, SCALAR, VECTOR, MATRIX, TENSOR_3D_FULL, "
                                    "TENSOR_3D_PLANAR, TENSOR_3D_SURFACE, TENSOR_2D_PLANAR, TENSOR_2D_SURFACE";
    for (const yld_Enum::yld_DataTypeEnum type : {yld_Enum::BOOLEAN, yld_Enum::INTEGER}) {
        try {
            val_PrimEnum<yld_Enum::yld_DataTypeEnum> value(type);
            ADD_FAILURE() << "allowed";
        } catch (const val_ValueErrorException& error) {
            EXPECT_EQ("val_PrimEnum(Enum) - Enum value not allowed: " + std::to_string(type) +
                          "  Permissible: " + permissible,
                      error.AsString().cStr());
        }
    }
}

TEST(yld_PrimEnum, categories)
{
    expectTable<yld_AnalysisWarningError::Category>({{"INTERNAL", 0x1010000},
                                                     {"NODE", 0x2010000},
                                                     {"ELEMENT", 0x2020000},
                                                     {"REINFORCEMENT", 0x2030000},
                                                     {"SURFACE", 0x2040000},
                                                     {"MATERIAL", 0x2050000},
                                                     {"SECTION", 0x2060000},
                                                     {"ORIENTATION", 0x2070000},
                                                     {"TRANSFORMATION", 0x2080000},
                                                     {"INITIAL_CONDITION", 0x3010000},
                                                     {"AMPLITUDE", 0x3020000},
                                                     {"BOUNDARY_CONDITION", 0x3030000},
                                                     {"LOAD", 0x3040000},
                                                     {"LOAD_CASE", 0x3050000},
                                                     {"ASSEMBLY_LOAD", 0x3060000},
                                                     {"PREDEFINED_FIELD", 0x3070000},
                                                     {"EQUATION", 0x4010000},
                                                     {"MPC", 0x4020000},
                                                     {"KINEMATIC_COUPLING", 0x4030000},
                                                     {"DISTRIBUTING_COUPLING", 0x4040000},
                                                     {"MESH_TIE", 0x4050000},
                                                     {"SHELL_TO_SOLID_COUPLING", 0x4060000},
                                                     {"FASTENER", 0x4070000},
                                                     {"CONNECTOR", 0x4080000},
                                                     {"EMBEDDED_ELEMENT", 0x4090000},
                                                     {"END_RELEASE", 0x40a0000},
                                                     {"RIGID_BODY", 0x40b0000},
                                                     {"OVERCONSTRAINT", 0x40c0000},
                                                     {"MECHANICAL_CONTACT", 0x5010000},
                                                     {"PRESSURE_PENETRATION", 0x5020000},
                                                     {"THERMAL_CONTACT", 0x5030000},
                                                     {"ELECTRICAL_CONTACT", 0x5040000},
                                                     {"PORE_FLUID_CONTACT", 0x5050000},
                                                     {"CAVITY_RADIATION", 0x5060000},
                                                     {"MEMORY", 0x6010000},
                                                     {"DISK", 0x6020000},
                                                     {"PARALLEL", 0x6030000},
                                                     {"OUTPUT", 0x7010000},
                                                     {"STATIC", 0x8010000},
                                                     {"STATIC_PERTURBATION", 0x8020000},
                                                     {"RIKS", 0x8030000},
                                                     {"EIGENVALUE_BUCKLING", 0x8040000},
                                                     {"QUASI_STATIC", 0x8050000},
                                                     {"DIRECT_CYCLIC", 0x8060000},
                                                     {"IMPLICIT_DYNAMIC", 0x8070000},
                                                     {"EXPLICIT_DYNAMIC", 0x8080000},
                                                     {"SUBSPACE_DYNAMIC", 0x8090000},
                                                     {"DIRECT_STEADY_STATE_DYNAMIC", 0x80a0000},
                                                     {"NATURAL_FREQUENCY_EXTRACTION", 0x80b0000},
                                                     {"MODE_BASED_DYNAMIC", 0x80c0000},
                                                     {"MODE_BASED_STEADY_STATE_DYNAMIC", 0x80d0000},
                                                     {"SUBSPACE_STEADY_STATE_DYNAMIC", 0x80e0000},
                                                     {"RESPONSE_SPECTRUM", 0x80f0000},
                                                     {"RANDOM_RESPONSE", 0x8100000},
                                                     {"STEADY_STATE_TRANSPORT", 0x8110000},
                                                     {"HEAT_TRANSFER", 0x8120000},
                                                     {"SEQUENTIAL_THERMAL_STRESS", 0x8130000},
                                                     {"COUPLED_THERMAL_STRESS", 0x8140000},
                                                     {"COUPLED_THERMAL_ELECTRICAL", 0x8150000},
                                                     {"PIEZOELECTRIC", 0x8160000},
                                                     {"PORE_FLUID_DIFFUSION", 0x8160000},
                                                     {"MASS_DIFFUSION", 0x8180000},
                                                     {"ACOUSTICS", 0x8190000},
                                                     {"MARINE", 0x81a0000},
                                                     {"RESTART", 0x9010000},
                                                     {"SUBSTRUCTURING", 0x9020000},
                                                     {"SUBMODELING", 0x9030000},
                                                     {"INERTIA_RELIEF", 0x9040000},
                                                     {"MODEL_CHANGE", 0x9050000},
                                                     {"IMPERFECTION", 0x9060000},
                                                     {"IMPORT", 0x9070000},
                                                     {"SYMMETRIC_MODEL_GENERATION", 0x9080000},
                                                     {"CYCLIC_SYMMETRY", 0x9090000},
                                                     {"FRACTURE_MECHANICS", 0x90a0000},
                                                     {"ANNEALING", 0x90b0000},
                                                     {"HYDROSTATIC_FLUID_MODELING", 0x90c0000},
                                                     {"MESHED_BEAM_SECTION", 0x90d0000},
                                                     {"DESIGN_SENSITIVITY", 0x90e0000},
                                                     {"MASS_SCALING", 0x90f0000},
                                                     {"ADAPTIVE_MESHING", 0x9100000},
                                                     {"NUMERICAL_PROBLEM", 0xa010000},
                                                     {"SEPARATED_SOLUTION", 0xa020000},
                                                     {"QUASI_NEWTON_METHOD", 0xa030000},
                                                     {"LINE_SEARCH", 0xa040000},
                                                     {"DIRECT_SOLVER", 0xa050000},
                                                     {"ITERATIVE_SOLVER", 0xa060000},
                                                     {"SUBSPACE_EIGENSOLVER", 0xa070000},
                                                     {"LANCZOS_EIGENSOLVER", 0xa080000},
                                                     {"COMPLEX_EIGENSOLVER", 0xa090000},
                                                     {"INCREMENTATION", 0xa0a0000},
                                                     {"CONVERGENCE", 0xa0b0000},
                                                     {"STABILIZATION", 0xa0c0000},
                                                     {"TIME_INTEGRATION", 0xa0d0000},
                                                     {"USER_SUBROUTINE", 0xb010000}});
}

TEST(yld_PrimEnum, theEndsOfTheCategoryGroups)
{
    const std::pair<int, yld_AnalysisWarningError::Category> rows[] = {
        {0x1010000, yld_AnalysisWarningError::INTERNAL},
        {0x2080000, yld_AnalysisWarningError::TRANSFORMATION},
        {0x3070000, yld_AnalysisWarningError::PREDEFINED_FIELD},
        {0x40c0000, yld_AnalysisWarningError::OVERCONSTRAINT},
        {0x5060000, yld_AnalysisWarningError::CAVITY_RADIATION},
        {0x6030000, yld_AnalysisWarningError::PARALLEL},
        {0x7010000, yld_AnalysisWarningError::OUTPUT},
        {0x81a0000, yld_AnalysisWarningError::MARINE},
        {0x9100000, yld_AnalysisWarningError::ADAPTIVE_MESHING},
        {0xa0d0000, yld_AnalysisWarningError::TIME_INTEGRATION},
        {0xb010000, yld_AnalysisWarningError::USER_SUBROUTINE}};
    for (const auto& [number, category] : rows) EXPECT_EQ(number, category);
}

TEST(yld_PrimEnum, piezoelectricAndPoreFluidDiffusionShareANumber)
{
    using CategoryValue = val_PrimEnum<yld_AnalysisWarningError::Category>;
    EXPECT_EQ(0x8160000, yld_AnalysisWarningError::PIEZOELECTRIC);
    EXPECT_EQ(0x8160000, yld_AnalysisWarningError::PORE_FLUID_DIFFUSION);
    EXPECT_EQ(0x8180000, yld_AnalysisWarningError::MASS_DIFFUSION);

    const CategoryValue found(static_cast<yld_AnalysisWarningError::Category>(0x8160000));
    EXPECT_STREQ("PIEZOELECTRIC", found.GetText());
    const CategoryValue named(shr_String("PORE_FLUID_DIFFUSION"));
    EXPECT_STREQ("PORE_FLUID_DIFFUSION", named.GetText());
    EXPECT_EQ(0x8160000, named.GetNumber());
    EXPECT_THROW(CategoryValue(static_cast<yld_AnalysisWarningError::Category>(0x8170000)), val_ValueErrorException);
}
