#include "yld_Enum.h"

#include "yld_AnalysisWarningError.h"

#include <gtest/gtest.h>

#include <type_traits>

// Clients are compiled with the numbers, so each is written down here a second time.

namespace {

struct Row
{
    const char* name;
    int number;
    int expected;
};

#define ROW(enumerator, number)                                                                                        \
    {                                                                                                                  \
#enumerator, yld_Enum::enumerator, number                                                                      \
    }
constexpr Row rows[] = {
    // analysis code
    ROW(UNKNOWN_ANALYSIS_CODE, 0),
    ROW(ZANTRA_STANDARD, 1),
    ROW(ZANTRA_EXPLICIT, 2),
    // precision
    ROW(SINGLE_PRECISION, 0),
    ROW(DOUBLE_PRECISION, 1),
    // product add on
    ROW(WELD_MARINE, 0),
    ROW(ZANTRA_DESIGN, 1),
    // dimension
    ROW(THREE_D, 0),
    ROW(TWO_D_PLANAR, 1),
    ROW(AXISYMMETRIC, 2),
    ROW(UNKNOWN_DIMENSION, 3),
    // part type
    ROW(DEFORMABLE_BODY, 0),
    ROW(DISCRETE_RIGID_SURFACE, 1),
    ROW(ANALYTIC_RIGID_SURFACE, 2),
    // domain
    ROW(TIME, 0),
    ROW(FREQUENCY, 1),
    ROW(MODAL, 2),
    ROW(ARC_LENGTH, 3),
    // data type
    ROW(BOOLEAN, 0),
    ROW(INTEGER, 1),
    ROW(SCALAR, 2),
    ROW(VECTOR, 3),
    ROW(MATRIX, 4),
    ROW(TENSOR_3D_FULL, 5),
    ROW(TENSOR_3D_PLANAR, 6),
    ROW(TENSOR_3D_SURFACE, 7),
    ROW(TENSOR_2D_PLANAR, 8),
    ROW(TENSOR_2D_SURFACE, 9),
    ROW(QUATERNION_3D, 10),
    ROW(QUATERNION_2D, 11),
    ROW(UNDEFINED_DATATYPE, 12),
    // data subtype
    ROW(UNDEFINED_DATASUBTYPE, 0),
    ROW(SYMMETRIC_MATRIX, 1),
    // result position
    ROW(UNDEFINED_POSITION, 0),
    ROW(NODAL, 1),
    ROW(ELEMENT_NODAL, 2),
    ROW(INTEGRATION_POINT, 3),
    ROW(CENTROID, 4),
    ROW(ELEMENT_FACE, 5),
    ROW(ELEMENT_FACE_INTEGRATION_POINT, 6),
    ROW(SURFACE_INTEGRATION_POINT, 7),
    ROW(WHOLE_ELEMENT, 8),
    ROW(WHOLE_REGION, 9),
    ROW(WHOLE_PART_INSTANCE, 10),
    ROW(WHOLE_MODEL, 11),
    ROW(GENERAL_PARTICLE, 12),
    ROW(RESULT_POSITION_13, 13),
    ROW(RESULT_POSITION_14, 14),
    ROW(RESULT_POSITION_15, 15),
    // invariant
    ROW(UNDEFINED_INVARIANT, 0),
    ROW(MAX_PRINCIPAL, 1),
    ROW(MID_PRINCIPAL, 2),
    ROW(MIN_PRINCIPAL, 3),
    ROW(MISES, 4),
    ROW(TRESCA, 5),
    ROW(PRESS, 6),
    ROW(INV3, 7),
    ROW(MAGNITUDE, 8),
    ROW(MAX_INPLANE_PRINCIPAL, 9),
    ROW(MIN_INPLANE_PRINCIPAL, 10),
    ROW(OUTOFPLANE_PRINCIPAL, 11),
    // element face
    ROW(FACE_UNKNOWN, 0),
    ROW(END1, 1),
    ROW(END2, 2),
    ROW(END3, 3),
    ROW(FACE1, 11),
    ROW(FACE2, 12),
    ROW(FACE3, 13),
    ROW(FACE4, 14),
    ROW(FACE5, 15),
    ROW(FACE6, 16),
    ROW(EDGE2, 102),
    ROW(EDGE3, 103),
    ROW(EDGE4, 104),
    ROW(SIDE1, 1001),
    ROW(SIDE2, 1002),
    ROW(SIDE3, 1003),
    // match
    ROW(MATCH_CLOSEST, 0),
    ROW(MATCH_BEFORE, 1),
    ROW(MATCH_AFTER, 2),
    ROW(MATCH_EXACT, 3),
    // set type
    ROW(NODE_SET, 0),
    ROW(ELEMENT_SET, 1),
    ROW(SURFACE_SET, 2),
    ROW(UNKNOWN_SET, 7),
    // datum csys type
    ROW(CYLINDRICAL, 2),
    ROW(SPHERICAL, 3),
    // axis
    ROW(AXIS_1, 0),
    ROW(AXIS_2, 1),
    ROW(AXIS_3, 2),
    // math operation
    ROW(OPERATION_MULTIPLY, 0),
    ROW(OPERATION_DIVIDE, 1),
    ROW(OPERATION_SUBTRACT, 2),
    ROW(OPERATION_ADD, 3),
    ROW(OPERATION_POWER, 4),
    ROW(OPERATION_ABS, 5),
    ROW(OPERATION_COMPLEX_MAGNITUDE, 6),
    ROW(OPERATION_COMPLEX_PHASE, 7),
    ROW(OPERATION_COMPLEX_REAL, 8),
    ROW(OPERATION_COMPLEX_IMAG, 9),
    ROW(OPERATION_ACOS, 10),
    ROW(OPERATION_ASIN, 11),
    ROW(OPERATION_ATAN, 12),
    ROW(OPERATION_COS, 13),
    ROW(OPERATION_SIN, 14),
    ROW(OPERATION_TAN, 15),
    ROW(OPERATION_DEGREE_TO_RADIAN, 16),
    ROW(OPERATION_RADIAN_TO_DEGREE, 17),
    ROW(OPERATION_EXP, 18),
    ROW(OPERATION_EXP10, 19),
    ROW(OPERATION_LOG, 20),
    ROW(OPERATION_LOG10, 21),
    ROW(OPERATION_SQRT, 22),
    ROW(OPERATION_TRANSPOSE, 23),
    // increment stats
    ROW(NUMBER_OF_ATTEMPTS, 0),
    ROW(NUMBER_OF_SEVERE_DISCONTINUITY_ITERATIONS, 1),
    ROW(NUMBER_OF_EQUILIBRIUM_ITERATIONS, 2),
    ROW(NUMBER_OF_ITERATIONS, 3),
    ROW(STEP_TIME_COMPLETED, 4),
    ROW(INCREMENT_SIZE, 5),
    // element geometry class
    ROW(UNKNOWN_GEOMETRY, 0),
    ROW(POINT_GEOMETRY, 1),
    ROW(LINEAR_LINE, 6),
    ROW(QUADRATIC_LINE, 7),
    ROW(LINEAR_TRIANGLE, 10),
    ROW(QUADRATIC_TRIANGLE, 12),
    ROW(LINEAR_QUADRILATERAL, 11),
    ROW(QUADRATIC_QUADRILATERAL, 13),
    ROW(LINEAR_HEXAHEDRON, 16),
    ROW(QUADRATIC_HEXAHEDRON, 19),
    ROW(LINEAR_WEDGE, 15),
    ROW(QUADRATIC_WEDGE, 18),
    ROW(LINEAR_TETRAHEDRON, 14),
    ROW(QUADRATIC_TETRAHEDRON, 17),
    // of these, the first and the last
    ROW(ARROW_HEAD_NONE, 0),
    ROW(ARROW_HEAD_DIAMOND, 8),
    ROW(BACKGROUND_TRANSPARENT, 0),
    ROW(BACKGROUND_COLORED, 2),
    ROW(JUSTIFY_LEFT, 0),
    ROW(JUSTIFY_RIGHT, 2),
    ROW(LINE_SOLID, 0),
    ROW(LINE_DASH_DOT_DOT, 4),
    ROW(LINE_VERY_THIN, 0),
    ROW(LINE_THICK, 3),
    ROW(ORIENTATION_BY_COSINES, 0),
    ROW(ORIENTATION_BY_VECTOR, 2),
    ROW(STACK_DIRECTION_1, 0),
    ROW(STACK_DIRECTION_OF_ORIENTATION, 3),
    ROW(XY_FROM_KEYBOARD, 0),
    ROW(XY_FROM_OPERATION, 4),
    ROW(BOTTOM_LEFT, 0),
    ROW(TOP_RIGHT, 8),
    ROW(UNDEFINED_CSYS, 0),
    ROW(SPHERICAL, 3),
};
#undef ROW

} // namespace

TEST(yld_Enum, everyEnumeratorHasItsNumber)
{
    for (const Row& row : rows) EXPECT_EQ(row.expected, row.number) << row.name;
}

namespace {

template<class... Enums> constexpr bool carryAnyInt = (std::is_same_v<std::underlying_type_t<Enums>, int> && ...);

} // namespace

TEST(yld_Enum, everyEnumerationCarriesAnyInt)
{
    constexpr bool all = carryAnyInt<
        yld_Enum::yld_AnalysisCodeEnum, yld_Enum::yld_PrecisionEnum, yld_Enum::yld_ProductAddOnEnum,
        yld_Enum::yld_DimensionEnum, yld_Enum::yld_PartTypeEnum, yld_Enum::yld_DomainEnum, yld_Enum::yld_DataTypeEnum,
        yld_Enum::yld_DataSubtypeEnum, yld_Enum::yld_ResultPositionEnum, yld_Enum::yld_InvariantEnum,
        yld_Enum::yld_ElementFaceEnum, yld_Enum::yld_ApiType, yld_Enum::yld_ArrowHeadStyleEnm, yld_Enum::yld_AxisEnum,
        yld_Enum::yld_BackgroundStyleEnm, yld_Enum::yld_ConstraintVariableEnum, yld_Enum::yld_ContactCriterionEnum,
        yld_Enum::yld_CorrectionCheckEnum, yld_Enum::yld_DatumCsysTypeEnum, yld_Enum::yld_ElementGeometryClass,
        yld_Enum::yld_FieldVariableEnum, yld_Enum::yld_IncrementStatsEnum, yld_Enum::yld_IncrementationSchemeEnum,
        yld_Enum::yld_LineJustificationEnm, yld_Enum::yld_LineStyleEnm, yld_Enum::yld_LineThicknessEnm,
        yld_Enum::yld_MatchEnum, yld_Enum::yld_MathOperationEnum, yld_Enum::yld_OrientationMethodEnum,
        yld_Enum::yld_RelativePositionEnm, yld_Enum::yld_ResidualCheckEnum, yld_Enum::yld_SetTypeEnum,
        yld_Enum::yld_StackDirectionEnum, yld_Enum::yld_XYSourceTypeEnm, yld_AnalysisWarningError::Category>;
    static_assert(all);
    EXPECT_EQ(-7, static_cast<yld_Enum::yld_DomainEnum>(-7));
}
