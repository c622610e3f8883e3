#ifndef YLD_ENUM_H
#define YLD_ENUM_H

#include "platform/base/bas_Export.h"

/// The public enumerations, all members of one class so that their names never meet those of a client.
///
/// The numbers are part of the interface and never change; they are not the numbers of the store, see
/// yld_EnumMap.h. Every enumeration has `int` underneath, so that any number can be carried, compared and
/// handed to a function which then refuses it. Enumerators are unique across the class.
class YLD_API yld_Enum
{
public:
    /// What solved the analysis.
    enum yld_AnalysisCodeEnum : int
    {
        UNKNOWN_ANALYSIS_CODE = 0,
        ZANTRA_STANDARD = 1,
        ZANTRA_EXPLICIT = 2
    };

    /// Precision of a job or of the numbers of a field.
    enum yld_PrecisionEnum : int
    {
        SINGLE_PRECISION = 0,
        DOUBLE_PRECISION = 1
    };

    /// Products that a job ran with besides the solver.
    enum yld_ProductAddOnEnum : int
    {
        WELD_MARINE = 0,
        ZANTRA_DESIGN = 1
    };

    /// The space that a part or an instance is embedded in.
    enum yld_DimensionEnum : int
    {
        THREE_D = 0,
        TWO_D_PLANAR = 1,
        AXISYMMETRIC = 2,
        UNKNOWN_DIMENSION = 3
    };

    /// The kind of body that a part is.
    enum yld_PartTypeEnum : int
    {
        DEFORMABLE_BODY = 0,
        DISCRETE_RIGID_SURFACE = 1,
        ANALYTIC_RIGID_SURFACE = 2
    };

    /// What the frames of a step are counted along.
    enum yld_DomainEnum : int
    {
        TIME = 0,
        FREQUENCY = 1,
        MODAL = 2,
        ARC_LENGTH = 3
    };

    /// What one value of a field or of a history is. UNDEFINED_DATATYPE is a field whose type is not yet
    /// known; the store has no number for it.
    enum yld_DataTypeEnum : int
    {
        BOOLEAN = 0,
        INTEGER = 1,
        SCALAR = 2,
        VECTOR = 3,
        MATRIX = 4,
        TENSOR_3D_FULL = 5,
        TENSOR_3D_PLANAR = 6,
        TENSOR_3D_SURFACE = 7,
        TENSOR_2D_PLANAR = 8,
        TENSOR_2D_SURFACE = 9,
        QUATERNION_3D = 10,
        QUATERNION_2D = 11,
        UNDEFINED_DATATYPE = 12
    };

    /// A narrower form of a data type.
    enum yld_DataSubtypeEnum : int
    {
        UNDEFINED_DATASUBTYPE = 0,
        SYMMETRIC_MATRIX = 1
    };

    /// Where in the mesh values belong. The last three have no public meaning of their own; they are carried
    /// so that a field found with them keeps its position. RESULT_POSITION_14 goes to the store as a number
    /// that comes back as NODAL.
    enum yld_ResultPositionEnum : int
    {
        UNDEFINED_POSITION = 0,
        NODAL = 1,
        ELEMENT_NODAL = 2,
        INTEGRATION_POINT = 3,
        CENTROID = 4,
        ELEMENT_FACE = 5,
        ELEMENT_FACE_INTEGRATION_POINT = 6,
        SURFACE_INTEGRATION_POINT = 7,
        WHOLE_ELEMENT = 8,
        WHOLE_REGION = 9,
        WHOLE_PART_INSTANCE = 10,
        WHOLE_MODEL = 11,
        GENERAL_PARTICLE = 12,
        RESULT_POSITION_13 = 13,
        RESULT_POSITION_14 = 14,
        RESULT_POSITION_15 = 15
    };

    /// Scalars derived from vectors (MAGNITUDE) and tensors (the others).
    enum yld_InvariantEnum : int
    {
        UNDEFINED_INVARIANT = 0,
        MAX_PRINCIPAL = 1,
        MID_PRINCIPAL = 2,
        MIN_PRINCIPAL = 3,
        MISES = 4,
        TRESCA = 5,
        PRESS = 6,
        INV3 = 7,
        MAGNITUDE = 8,
        MAX_INPLANE_PRINCIPAL = 9,
        MIN_INPLANE_PRINCIPAL = 10,
        OUTOFPLANE_PRINCIPAL = 11
    };

    /// A side of an element: END for the ends of beams in the plane, FACE for the faces of solids and the
    /// edges of plane and shell elements, SIDE for the two sides of a shell. SIDE3 is a further facet of a
    /// shell; the EDGE numbers occur only on the way to the store.
    enum yld_ElementFaceEnum : int
    {
        FACE_UNKNOWN = 0,
        END1 = 1,
        END2 = 2,
        END3 = 3,
        FACE1 = 11,
        FACE2 = 12,
        FACE3 = 13,
        FACE4 = 14,
        FACE5 = 15,
        FACE6 = 16,
        EDGE2 = 102,
        EDGE3 = 103,
        EDGE4 = 104,
        SIDE1 = 1001,
        SIDE2 = 1002,
        SIDE3 = 1003
    };

    /// The part of the interface that a registered extension adds to.
    enum yld_ApiType : int
    {
        MODEL_API = 0,
        RESULT_API = 1,
        DIAGNOSTIC_API = 2
    };

    /// The head at one end of an arrow annotation.
    enum yld_ArrowHeadStyleEnm : int
    {
        ARROW_HEAD_NONE = 0,
        ARROW_HEAD_OPEN = 1,
        ARROW_HEAD_CLOSED = 2,
        ARROW_HEAD_FILLED = 3,
        ARROW_HEAD_CIRCLE = 4,
        ARROW_HEAD_FILLED_CIRCLE = 5,
        ARROW_HEAD_SQUARE = 6,
        ARROW_HEAD_FILLED_SQUARE = 7,
        ARROW_HEAD_DIAMOND = 8
    };

    /// An axis of a coordinate system.
    enum yld_AxisEnum : int
    {
        AXIS_1 = 0,
        AXIS_2 = 1,
        AXIS_3 = 2
    };

    /// The background of a text annotation.
    enum yld_BackgroundStyleEnm : int
    {
        BACKGROUND_TRANSPARENT = 0,
        BACKGROUND_OF_VIEW = 1,
        BACKGROUND_COLORED = 2
    };

    /// The constraint whose compatibility error an iteration reports.
    enum yld_ConstraintVariableEnum : int
    {
        VOLUMETRIC_CONSTRAINT = 0,
        AXIAL_CONSTRAINT = 1,
        TRANSVERSE_SHEAR_CONSTRAINT = 2
    };

    /// What is extracted from the contact diagnostics of the iterations: how many entries a diagnostic has,
    /// or the largest absolute value among them.
    enum yld_ContactCriterionEnum : int
    {
        NUMBER_OF_CONTACT_POINTS = 0,
        LARGEST_CONTACT_VALUE = 1
    };

    /// What the test of a correction against its increment came to.
    enum yld_CorrectionCheckEnum : int
    {
        CORRECTION_NOT_CHECKED = 0,
        CORRECTION_ACCEPTED = 1,
        CORRECTION_REFUSED = 2
    };

    /// The kind of a datum coordinate system. UNDEFINED_CSYS counts as rectangular.
    enum yld_DatumCsysTypeEnum : int
    {
        UNDEFINED_CSYS = 0,
        CARTESIAN = 1,
        CYLINDRICAL = 2,
        SPHERICAL = 3
    };

    /// The geometry of an element, from the kind of its shape. The numbers without a shape are reserved.
    enum yld_ElementGeometryClass : int
    {
        UNKNOWN_GEOMETRY = 0,
        POINT_GEOMETRY = 1,
        RESERVED_GEOMETRY_2 = 2,
        RESERVED_GEOMETRY_3 = 3,
        RESERVED_GEOMETRY_4 = 4,
        RESERVED_GEOMETRY_5 = 5,
        LINEAR_LINE = 6,
        QUADRATIC_LINE = 7,
        RESERVED_GEOMETRY_8 = 8,
        RESERVED_GEOMETRY_9 = 9,
        LINEAR_TRIANGLE = 10,
        LINEAR_QUADRILATERAL = 11,
        QUADRATIC_TRIANGLE = 12,
        QUADRATIC_QUADRILATERAL = 13,
        LINEAR_TETRAHEDRON = 14,
        LINEAR_WEDGE = 15,
        LINEAR_HEXAHEDRON = 16,
        QUADRATIC_TETRAHEDRON = 17,
        QUADRATIC_WEDGE = 18,
        QUADRATIC_HEXAHEDRON = 19
    };

    /// The solution variable whose residual an iteration reports. The diagnostics keep the number plus one.
    enum yld_FieldVariableEnum : int
    {
        DISPLACEMENT_FIELD = 0,
        ROTATION_FIELD = 1,
        TEMPERATURE_FIELD = 2,
        PORE_PRESSURE_FIELD = 3,
        ELECTRIC_POTENTIAL_FIELD = 4,
        CONCENTRATION_FIELD = 5,
        ACOUSTIC_PRESSURE_FIELD = 6,
        WARPING_FIELD = 7,
        FLUID_PRESSURE_FIELD = 8
    };

    /// What is extracted from the converged increments of a step; the iterations are those of the last
    /// attempt.
    enum yld_IncrementStatsEnum : int
    {
        NUMBER_OF_ATTEMPTS = 0,
        NUMBER_OF_SEVERE_DISCONTINUITY_ITERATIONS = 1,
        NUMBER_OF_EQUILIBRIUM_ITERATIONS = 2,
        NUMBER_OF_ITERATIONS = 3,
        STEP_TIME_COMPLETED = 4,
        INCREMENT_SIZE = 5
    };

    /// How the size of the increments of a step is chosen.
    enum yld_IncrementationSchemeEnum : int
    {
        FIXED_INCREMENTATION = 0,
        AUTOMATIC_INCREMENTATION = 1
    };

    /// How the lines of a text annotation stand to each other.
    enum yld_LineJustificationEnm : int
    {
        JUSTIFY_LEFT = 0,
        JUSTIFY_CENTER = 1,
        JUSTIFY_RIGHT = 2
    };

    /// The stroke of the line of an arrow annotation.
    enum yld_LineStyleEnm : int
    {
        LINE_SOLID = 0,
        LINE_DASHED = 1,
        LINE_DOTTED = 2,
        LINE_DASH_DOT = 3,
        LINE_DASH_DOT_DOT = 4
    };

    /// The width of the line of an arrow annotation.
    enum yld_LineThicknessEnm : int
    {
        LINE_VERY_THIN = 0,
        LINE_THIN = 1,
        LINE_MEDIUM = 2,
        LINE_THICK = 3
    };

    /// Which frame is meant by a time (or frequency, or mode) that need not be a frame's own.
    enum yld_MatchEnum : int
    {
        MATCH_CLOSEST = 0,
        MATCH_BEFORE = 1,
        MATCH_AFTER = 2,
        MATCH_EXACT = 3
    };

    /// The operators and functions on fields and histories. OPERATION_LOG is the natural logarithm.
    enum yld_MathOperationEnum : int
    {
        OPERATION_MULTIPLY = 0,
        OPERATION_DIVIDE = 1,
        OPERATION_SUBTRACT = 2,
        OPERATION_ADD = 3,
        OPERATION_POWER = 4,
        OPERATION_ABS = 5,
        OPERATION_COMPLEX_MAGNITUDE = 6,
        OPERATION_COMPLEX_PHASE = 7,
        OPERATION_COMPLEX_REAL = 8,
        OPERATION_COMPLEX_IMAG = 9,
        OPERATION_ACOS = 10,
        OPERATION_ASIN = 11,
        OPERATION_ATAN = 12,
        OPERATION_COS = 13,
        OPERATION_SIN = 14,
        OPERATION_TAN = 15,
        OPERATION_DEGREE_TO_RADIAN = 16,
        OPERATION_RADIAN_TO_DEGREE = 17,
        OPERATION_EXP = 18,
        OPERATION_EXP10 = 19,
        OPERATION_LOG = 20,
        OPERATION_LOG10 = 21,
        OPERATION_SQRT = 22,
        OPERATION_TRANSPOSE = 23
    };

    /// How the cross-section direction of beams is given.
    enum yld_OrientationMethodEnum : int
    {
        ORIENTATION_BY_COSINES = 0,
        ORIENTATION_BY_CSYS = 1,
        ORIENTATION_BY_VECTOR = 2
    };

    /// A named point of the box around an annotation, or of the view, row by row. The number 4 is not in use.
    enum yld_RelativePositionEnm : int
    {
        BOTTOM_LEFT = 0,
        BOTTOM_CENTER = 1,
        BOTTOM_RIGHT = 2,
        CENTER_LEFT = 3,
        CENTER_RIGHT = 5,
        TOP_LEFT = 6,
        TOP_CENTER = 7,
        TOP_RIGHT = 8
    };

    /// What the test of a residual against its flux came to.
    enum yld_ResidualCheckEnum : int
    {
        RESIDUAL_NOT_CHECKED = 0,
        RESIDUAL_ACCEPTED = 1,
        RESIDUAL_REFUSED = 2
    };

    /// What a set holds.
    enum yld_SetTypeEnum : int
    {
        NODE_SET = 0,
        ELEMENT_SET = 1,
        SURFACE_SET = 2,
        UNKNOWN_SET = 7
    };

    /// The direction in which the layers of a material orientation are stacked: a direction of the element,
    /// or the one of the orientation itself.
    enum yld_StackDirectionEnum : int
    {
        STACK_DIRECTION_1 = 0,
        STACK_DIRECTION_2 = 1,
        STACK_DIRECTION_3 = 2,
        STACK_DIRECTION_OF_ORIENTATION = 3
    };

    /// Where the points of a user's curve came from.
    enum yld_XYSourceTypeEnm : int
    {
        XY_FROM_KEYBOARD = 0,
        XY_FROM_FILE = 1,
        XY_FROM_FIELD_OUTPUT = 2,
        XY_FROM_HISTORY_OUTPUT = 3,
        XY_FROM_OPERATION = 4
    };
};

#endif
