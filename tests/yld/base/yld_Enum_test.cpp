#include "yld_Enum.h"

#include "yld_AnalysisWarningError.h"

#include <gtest/gtest.h>

#include <type_traits>

// Clients are compiled with the numbers, so each is written down here a second time.

TEST(yld_Enum, analysisCode)
{
    EXPECT_EQ(0, yld_Enum::UNKNOWN_ANALYSIS_CODE);
    EXPECT_EQ(1, yld_Enum::ZANTRA_STANDARD);
    EXPECT_EQ(2, yld_Enum::ZANTRA_EXPLICIT);
}

TEST(yld_Enum, precision)
{
    EXPECT_EQ(0, yld_Enum::SINGLE_PRECISION);
    EXPECT_EQ(1, yld_Enum::DOUBLE_PRECISION);
}

TEST(yld_Enum, productAddOn)
{
    EXPECT_EQ(0, yld_Enum::WELD_MARINE);
    EXPECT_EQ(1, yld_Enum::ZANTRA_DESIGN);
}

TEST(yld_Enum, dimension)
{
    EXPECT_EQ(0, yld_Enum::THREE_D);
    EXPECT_EQ(1, yld_Enum::TWO_D_PLANAR);
    EXPECT_EQ(2, yld_Enum::AXISYMMETRIC);
    EXPECT_EQ(3, yld_Enum::UNKNOWN_DIMENSION);
}

TEST(yld_Enum, partType)
{
    EXPECT_EQ(0, yld_Enum::DEFORMABLE_BODY);
    EXPECT_EQ(1, yld_Enum::DISCRETE_RIGID_SURFACE);
    EXPECT_EQ(2, yld_Enum::ANALYTIC_RIGID_SURFACE);
}

TEST(yld_Enum, domain)
{
    EXPECT_EQ(0, yld_Enum::TIME);
    EXPECT_EQ(1, yld_Enum::FREQUENCY);
    EXPECT_EQ(2, yld_Enum::MODAL);
    EXPECT_EQ(3, yld_Enum::ARC_LENGTH);
}

TEST(yld_Enum, dataType)
{
    EXPECT_EQ(0, yld_Enum::BOOLEAN);
    EXPECT_EQ(1, yld_Enum::INTEGER);
    EXPECT_EQ(2, yld_Enum::SCALAR);
    EXPECT_EQ(3, yld_Enum::VECTOR);
    EXPECT_EQ(4, yld_Enum::MATRIX);
    EXPECT_EQ(5, yld_Enum::TENSOR_3D_FULL);
    EXPECT_EQ(6, yld_Enum::TENSOR_3D_PLANAR);
    EXPECT_EQ(7, yld_Enum::TENSOR_3D_SURFACE);
    EXPECT_EQ(8, yld_Enum::TENSOR_2D_PLANAR);
    EXPECT_EQ(9, yld_Enum::TENSOR_2D_SURFACE);
    EXPECT_EQ(10, yld_Enum::QUATERNION_3D);
    EXPECT_EQ(11, yld_Enum::QUATERNION_2D);
    EXPECT_EQ(12, yld_Enum::UNDEFINED_DATATYPE);
}

TEST(yld_Enum, dataSubtype)
{
    EXPECT_EQ(0, yld_Enum::UNDEFINED_DATASUBTYPE);
    EXPECT_EQ(1, yld_Enum::SYMMETRIC_MATRIX);
}

TEST(yld_Enum, resultPosition)
{
    EXPECT_EQ(0, yld_Enum::UNDEFINED_POSITION);
    EXPECT_EQ(1, yld_Enum::NODAL);
    EXPECT_EQ(2, yld_Enum::ELEMENT_NODAL);
    EXPECT_EQ(3, yld_Enum::INTEGRATION_POINT);
    EXPECT_EQ(4, yld_Enum::CENTROID);
    EXPECT_EQ(5, yld_Enum::ELEMENT_FACE);
    EXPECT_EQ(6, yld_Enum::ELEMENT_FACE_INTEGRATION_POINT);
    EXPECT_EQ(7, yld_Enum::SURFACE_INTEGRATION_POINT);
    EXPECT_EQ(8, yld_Enum::WHOLE_ELEMENT);
    EXPECT_EQ(9, yld_Enum::WHOLE_REGION);
    EXPECT_EQ(10, yld_Enum::WHOLE_PART_INSTANCE);
    EXPECT_EQ(11, yld_Enum::WHOLE_MODEL);
    EXPECT_EQ(12, yld_Enum::GENERAL_PARTICLE);
    EXPECT_EQ(13, yld_Enum::RESULT_POSITION_13);
    EXPECT_EQ(14, yld_Enum::RESULT_POSITION_14);
    EXPECT_EQ(15, yld_Enum::RESULT_POSITION_15);
}

TEST(yld_Enum, invariant)
{
    EXPECT_EQ(0, yld_Enum::UNDEFINED_INVARIANT);
    EXPECT_EQ(1, yld_Enum::MAX_PRINCIPAL);
    EXPECT_EQ(2, yld_Enum::MID_PRINCIPAL);
    EXPECT_EQ(3, yld_Enum::MIN_PRINCIPAL);
    EXPECT_EQ(4, yld_Enum::MISES);
    EXPECT_EQ(5, yld_Enum::TRESCA);
    EXPECT_EQ(6, yld_Enum::PRESS);
    EXPECT_EQ(7, yld_Enum::INV3);
    EXPECT_EQ(8, yld_Enum::MAGNITUDE);
    EXPECT_EQ(9, yld_Enum::MAX_INPLANE_PRINCIPAL);
    EXPECT_EQ(10, yld_Enum::MIN_INPLANE_PRINCIPAL);
    EXPECT_EQ(11, yld_Enum::OUTOFPLANE_PRINCIPAL);
}

TEST(yld_Enum, elementFace)
{
    EXPECT_EQ(0, yld_Enum::FACE_UNKNOWN);
    EXPECT_EQ(1, yld_Enum::END1);
    EXPECT_EQ(2, yld_Enum::END2);
    EXPECT_EQ(3, yld_Enum::END3);
    EXPECT_EQ(11, yld_Enum::FACE1);
    EXPECT_EQ(12, yld_Enum::FACE2);
    EXPECT_EQ(13, yld_Enum::FACE3);
    EXPECT_EQ(14, yld_Enum::FACE4);
    EXPECT_EQ(15, yld_Enum::FACE5);
    EXPECT_EQ(16, yld_Enum::FACE6);
    EXPECT_EQ(102, yld_Enum::EDGE2);
    EXPECT_EQ(103, yld_Enum::EDGE3);
    EXPECT_EQ(104, yld_Enum::EDGE4);
    EXPECT_EQ(1001, yld_Enum::SIDE1);
    EXPECT_EQ(1002, yld_Enum::SIDE2);
    EXPECT_EQ(1003, yld_Enum::SIDE3);
}

TEST(yld_Enum, match)
{
    EXPECT_EQ(0, yld_Enum::MATCH_CLOSEST);
    EXPECT_EQ(1, yld_Enum::MATCH_BEFORE);
    EXPECT_EQ(2, yld_Enum::MATCH_AFTER);
    EXPECT_EQ(3, yld_Enum::MATCH_EXACT);
}

TEST(yld_Enum, setType)
{
    EXPECT_EQ(0, yld_Enum::NODE_SET);
    EXPECT_EQ(1, yld_Enum::ELEMENT_SET);
    EXPECT_EQ(2, yld_Enum::SURFACE_SET);
    EXPECT_EQ(7, yld_Enum::UNKNOWN_SET);
}

TEST(yld_Enum, datumCsysType)
{
    EXPECT_EQ(2, yld_Enum::CYLINDRICAL);
    EXPECT_EQ(3, yld_Enum::SPHERICAL);
}

TEST(yld_Enum, axis)
{
    EXPECT_EQ(0, yld_Enum::AXIS_1);
    EXPECT_EQ(1, yld_Enum::AXIS_2);
    EXPECT_EQ(2, yld_Enum::AXIS_3);
}

TEST(yld_Enum, mathOperation)
{
    EXPECT_EQ(0, yld_Enum::OPERATION_MULTIPLY);
    EXPECT_EQ(1, yld_Enum::OPERATION_DIVIDE);
    EXPECT_EQ(2, yld_Enum::OPERATION_SUBTRACT);
    EXPECT_EQ(3, yld_Enum::OPERATION_ADD);
    EXPECT_EQ(4, yld_Enum::OPERATION_POWER);
    EXPECT_EQ(5, yld_Enum::OPERATION_ABS);
    EXPECT_EQ(6, yld_Enum::OPERATION_COMPLEX_MAGNITUDE);
    EXPECT_EQ(7, yld_Enum::OPERATION_COMPLEX_PHASE);
    EXPECT_EQ(8, yld_Enum::OPERATION_COMPLEX_REAL);
    EXPECT_EQ(9, yld_Enum::OPERATION_COMPLEX_IMAG);
    EXPECT_EQ(10, yld_Enum::OPERATION_ACOS);
    EXPECT_EQ(11, yld_Enum::OPERATION_ASIN);
    EXPECT_EQ(12, yld_Enum::OPERATION_ATAN);
    EXPECT_EQ(13, yld_Enum::OPERATION_COS);
    EXPECT_EQ(14, yld_Enum::OPERATION_SIN);
    EXPECT_EQ(15, yld_Enum::OPERATION_TAN);
    EXPECT_EQ(16, yld_Enum::OPERATION_DEGREE_TO_RADIAN);
    EXPECT_EQ(17, yld_Enum::OPERATION_RADIAN_TO_DEGREE);
    EXPECT_EQ(18, yld_Enum::OPERATION_EXP);
    EXPECT_EQ(19, yld_Enum::OPERATION_EXP10);
    EXPECT_EQ(20, yld_Enum::OPERATION_LOG);
    EXPECT_EQ(21, yld_Enum::OPERATION_LOG10);
    EXPECT_EQ(22, yld_Enum::OPERATION_SQRT);
    EXPECT_EQ(23, yld_Enum::OPERATION_TRANSPOSE);
}

TEST(yld_Enum, incrementStats)
{
    EXPECT_EQ(0, yld_Enum::NUMBER_OF_ATTEMPTS);
    EXPECT_EQ(1, yld_Enum::NUMBER_OF_SEVERE_DISCONTINUITY_ITERATIONS);
    EXPECT_EQ(2, yld_Enum::NUMBER_OF_EQUILIBRIUM_ITERATIONS);
    EXPECT_EQ(3, yld_Enum::NUMBER_OF_ITERATIONS);
    EXPECT_EQ(4, yld_Enum::STEP_TIME_COMPLETED);
    EXPECT_EQ(5, yld_Enum::INCREMENT_SIZE);
}

TEST(yld_Enum, elementGeometryClass)
{
    EXPECT_EQ(0, yld_Enum::UNKNOWN_GEOMETRY);
    EXPECT_EQ(1, yld_Enum::POINT_GEOMETRY);
    EXPECT_EQ(6, yld_Enum::LINEAR_LINE);
    EXPECT_EQ(7, yld_Enum::QUADRATIC_LINE);
    EXPECT_EQ(10, yld_Enum::LINEAR_TRIANGLE);
    EXPECT_EQ(12, yld_Enum::QUADRATIC_TRIANGLE);
    EXPECT_EQ(11, yld_Enum::LINEAR_QUADRILATERAL);
    EXPECT_EQ(13, yld_Enum::QUADRATIC_QUADRILATERAL);
    EXPECT_EQ(16, yld_Enum::LINEAR_HEXAHEDRON);
    EXPECT_EQ(19, yld_Enum::QUADRATIC_HEXAHEDRON);
    EXPECT_EQ(15, yld_Enum::LINEAR_WEDGE);
    EXPECT_EQ(18, yld_Enum::QUADRATIC_WEDGE);
    EXPECT_EQ(14, yld_Enum::LINEAR_TETRAHEDRON);
    EXPECT_EQ(17, yld_Enum::QUADRATIC_TETRAHEDRON);
}

TEST(yld_Enum, enumerationsKnownByTheirRange)
{
    EXPECT_EQ(0, yld_Enum::ARROW_HEAD_NONE);
    EXPECT_EQ(8, yld_Enum::ARROW_HEAD_DIAMOND);
    EXPECT_EQ(0, yld_Enum::BACKGROUND_TRANSPARENT);
    EXPECT_EQ(2, yld_Enum::BACKGROUND_COLORED);
    EXPECT_EQ(0, yld_Enum::JUSTIFY_LEFT);
    EXPECT_EQ(2, yld_Enum::JUSTIFY_RIGHT);
    EXPECT_EQ(0, yld_Enum::LINE_SOLID);
    EXPECT_EQ(4, yld_Enum::LINE_DASH_DOT_DOT);
    EXPECT_EQ(0, yld_Enum::LINE_VERY_THIN);
    EXPECT_EQ(3, yld_Enum::LINE_THICK);
    EXPECT_EQ(0, yld_Enum::ORIENTATION_BY_COSINES);
    EXPECT_EQ(2, yld_Enum::ORIENTATION_BY_VECTOR);
    EXPECT_EQ(0, yld_Enum::STACK_DIRECTION_1);
    EXPECT_EQ(3, yld_Enum::STACK_DIRECTION_OF_ORIENTATION);
    EXPECT_EQ(0, yld_Enum::XY_FROM_KEYBOARD);
    EXPECT_EQ(4, yld_Enum::XY_FROM_OPERATION);
    EXPECT_EQ(0, yld_Enum::BOTTOM_LEFT);
    EXPECT_EQ(8, yld_Enum::TOP_RIGHT);
    EXPECT_EQ(0, yld_Enum::UNDEFINED_CSYS);
    EXPECT_EQ(3, yld_Enum::SPHERICAL);
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
