#include "yld_EnumMap.h"

#include "platform/attribute/kvp_Enum.h"
#include "platform/attribute/ntsC_Enum.h"
#include "platform/model/axs_Enum.h"
#include "platform/model/prtC_Enum.h"
#include "platform/result/fld_Enum.h"
#include "yld/impl/base/yld_Raise.h"

#include <cstddef>

namespace {

/// One map, said once and searched both ways. The first row that has the value wins, so a later row with a
/// number that already occurred on one side is a road in the other direction only.
template<class Store, class Public, std::size_t count> struct EnumTable
{
    struct Row
    {
        Store store;
        Public open;
    };

    const char* message;
    Row rows[count];

    Public toPublic(Store store) const
    {
        for (const Row& row : rows)
            if (row.store == store) return row.open;
        yld_raise(message);
    }

    Store toStore(Public open) const
    {
        for (const Row& row : rows)
            if (row.open == open) return row.store;
        yld_raise(message);
    }
};

constexpr EnumTable<fld_DataTypeEnm, yld_Enum::yld_DataTypeEnum, 12> s_dataTypes = {
    "Could not map DataType Enumeration",
    {{fld_DataTypeEnm::BOOLEAN, yld_Enum::BOOLEAN},
     {fld_DataTypeEnm::INTEGER, yld_Enum::INTEGER},
     {fld_DataTypeEnm::SCALAR, yld_Enum::SCALAR},
     {fld_DataTypeEnm::VECTOR, yld_Enum::VECTOR},
     {fld_DataTypeEnm::MATRIX, yld_Enum::MATRIX},
     {fld_DataTypeEnm::QUATERNION_2D, yld_Enum::QUATERNION_2D},
     {fld_DataTypeEnm::QUATERNION_3D, yld_Enum::QUATERNION_3D},
     {fld_DataTypeEnm::TENSOR_3D_FULL, yld_Enum::TENSOR_3D_FULL},
     {fld_DataTypeEnm::TENSOR_3D_PLANAR, yld_Enum::TENSOR_3D_PLANAR},
     {fld_DataTypeEnm::TENSOR_3D_SURFACE, yld_Enum::TENSOR_3D_SURFACE},
     {fld_DataTypeEnm::TENSOR_2D_PLANAR, yld_Enum::TENSOR_2D_PLANAR},
     {fld_DataTypeEnm::TENSOR_2D_SURFACE, yld_Enum::TENSOR_2D_SURFACE}}};

// Nodal values that elements carry are NODAL to a client, and NODAL is plain nodal to the store: the row of
// NODAL_BY_ELEMENT stands after that of NODAL, and the row of public number 14 after both.
constexpr EnumTable<fld_OutputPositionEnm, yld_Enum::yld_ResultPositionEnum, 17> s_positions = {
    "Could not map OutputPosition Enumeration",
    {{fld_OutputPositionEnm::UNDEFINED, yld_Enum::UNDEFINED_POSITION},
     {fld_OutputPositionEnm::NODAL, yld_Enum::NODAL},
     {fld_OutputPositionEnm::INTEGRATION_POINT, yld_Enum::INTEGRATION_POINT},
     {fld_OutputPositionEnm::ELEMENT_FACE, yld_Enum::ELEMENT_FACE},
     {fld_OutputPositionEnm::ELEMENT_NODAL, yld_Enum::ELEMENT_NODAL},
     {fld_OutputPositionEnm::WHOLE_ELEMENT, yld_Enum::WHOLE_ELEMENT},
     {fld_OutputPositionEnm::CENTROID, yld_Enum::CENTROID},
     {fld_OutputPositionEnm::WHOLE_REGION, yld_Enum::WHOLE_REGION},
     {fld_OutputPositionEnm::WHOLE_PART_INSTANCE, yld_Enum::WHOLE_PART_INSTANCE},
     {fld_OutputPositionEnm::WHOLE_MODEL, yld_Enum::WHOLE_MODEL},
     {fld_OutputPositionEnm::GENERAL_PARTICLE, yld_Enum::GENERAL_PARTICLE},
     {fld_OutputPositionEnm::WHOLE_FACE, yld_Enum::RESULT_POSITION_13},
     {fld_OutputPositionEnm::NODAL_BY_ELEMENT, yld_Enum::NODAL},
     {fld_OutputPositionEnm::NODAL_BY_ELEMENT, yld_Enum::RESULT_POSITION_14},
     {fld_OutputPositionEnm::ELEMENT_FACE_INTEGRATION_POINT, yld_Enum::ELEMENT_FACE_INTEGRATION_POINT},
     {fld_OutputPositionEnm::SURFACE_INTEGRATION_POINT, yld_Enum::SURFACE_INTEGRATION_POINT},
     {fld_OutputPositionEnm::OTHER, yld_Enum::RESULT_POSITION_15}}};

// Clients compare the text, and the maps of axes, orientation methods and datum systems have always used it.
constexpr const char* s_invariantMessage = "Could not map Invariant Enumeration";

constexpr EnumTable<fld_InvariantEnm, yld_Enum::yld_InvariantEnum, 11> s_invariants = {
    s_invariantMessage,
    {{fld_InvariantEnm::MAX_PRINCIPAL, yld_Enum::MAX_PRINCIPAL},
     {fld_InvariantEnm::MID_PRINCIPAL, yld_Enum::MID_PRINCIPAL},
     {fld_InvariantEnm::MIN_PRINCIPAL, yld_Enum::MIN_PRINCIPAL},
     {fld_InvariantEnm::MAX_INPLANE_PRINCIPAL, yld_Enum::MAX_INPLANE_PRINCIPAL},
     {fld_InvariantEnm::MIN_INPLANE_PRINCIPAL, yld_Enum::MIN_INPLANE_PRINCIPAL},
     {fld_InvariantEnm::OUTOFPLANE_PRINCIPAL, yld_Enum::OUTOFPLANE_PRINCIPAL},
     {fld_InvariantEnm::MISES, yld_Enum::MISES},
     {fld_InvariantEnm::TRESCA, yld_Enum::TRESCA},
     {fld_InvariantEnm::PRESS, yld_Enum::PRESS},
     {fld_InvariantEnm::INV3, yld_Enum::INV3},
     {fld_InvariantEnm::MAGNITUDE, yld_Enum::MAGNITUDE}}};

constexpr EnumTable<kvp_SourceTypeEnm, yld_Enum::yld_XYSourceTypeEnm, 5> s_sourceTypes = {
    "Could not map SourceType Enumeration",
    {{kvp_SourceTypeEnm::KEYBOARD, yld_Enum::XY_FROM_KEYBOARD},
     {kvp_SourceTypeEnm::TEXT_FILE, yld_Enum::XY_FROM_FILE},
     {kvp_SourceTypeEnm::FIELD_OUTPUT, yld_Enum::XY_FROM_FIELD_OUTPUT},
     {kvp_SourceTypeEnm::HISTORY_OUTPUT, yld_Enum::XY_FROM_HISTORY_OUTPUT},
     {kvp_SourceTypeEnm::OPERATION, yld_Enum::XY_FROM_OPERATION}}};

constexpr EnumTable<prtC_AxisEnm, yld_Enum::yld_AxisEnum, 3> s_axes = {s_invariantMessage,
                                                                       {{prtC_AxisEnm::AXIS_1, yld_Enum::AXIS_1},
                                                                        {prtC_AxisEnm::AXIS_2, yld_Enum::AXIS_2},
                                                                        {prtC_AxisEnm::AXIS_3, yld_Enum::AXIS_3}}};

constexpr EnumTable<prtC_OrientationMethodEnm, yld_Enum::yld_OrientationMethodEnum, 3> s_orientationMethods = {
    s_invariantMessage,
    {{prtC_OrientationMethodEnm::COSINES, yld_Enum::ORIENTATION_BY_COSINES},
     {prtC_OrientationMethodEnm::CSYS, yld_Enum::ORIENTATION_BY_CSYS},
     {prtC_OrientationMethodEnm::VECTOR, yld_Enum::ORIENTATION_BY_VECTOR}}};

constexpr EnumTable<axs_CsysTypeEnm, yld_Enum::yld_DatumCsysTypeEnum, 4> s_csysTypes = {
    s_invariantMessage,
    {{axs_CsysTypeEnm::UNDEFINED, yld_Enum::UNDEFINED_CSYS},
     {axs_CsysTypeEnm::CARTESIAN, yld_Enum::CARTESIAN},
     {axs_CsysTypeEnm::CYLINDRICAL, yld_Enum::CYLINDRICAL},
     {axs_CsysTypeEnm::SPHERICAL, yld_Enum::SPHERICAL}}};

constexpr EnumTable<ntsC_RelativePositionEnm, yld_Enum::yld_RelativePositionEnm, 8> s_relativePositions = {
    "Could not map RelativePosition Enumeration",
    {{ntsC_RelativePositionEnm::BOTTOM_LEFT, yld_Enum::BOTTOM_LEFT},
     {ntsC_RelativePositionEnm::BOTTOM_CENTER, yld_Enum::BOTTOM_CENTER},
     {ntsC_RelativePositionEnm::BOTTOM_RIGHT, yld_Enum::BOTTOM_RIGHT},
     {ntsC_RelativePositionEnm::CENTER_LEFT, yld_Enum::CENTER_LEFT},
     {ntsC_RelativePositionEnm::CENTER_RIGHT, yld_Enum::CENTER_RIGHT},
     {ntsC_RelativePositionEnm::TOP_LEFT, yld_Enum::TOP_LEFT},
     {ntsC_RelativePositionEnm::TOP_CENTER, yld_Enum::TOP_CENTER},
     {ntsC_RelativePositionEnm::TOP_RIGHT, yld_Enum::TOP_RIGHT}}};

constexpr EnumTable<ntsC_ArrowHeadStyleEnm, yld_Enum::yld_ArrowHeadStyleEnm, 9> s_arrowHeads = {
    "Could not map ArrowHeadStyle Enumeration",
    {{ntsC_ArrowHeadStyleEnm::NONE, yld_Enum::ARROW_HEAD_NONE},
     {ntsC_ArrowHeadStyleEnm::OPEN, yld_Enum::ARROW_HEAD_OPEN},
     {ntsC_ArrowHeadStyleEnm::CLOSED, yld_Enum::ARROW_HEAD_CLOSED},
     {ntsC_ArrowHeadStyleEnm::FILLED, yld_Enum::ARROW_HEAD_FILLED},
     {ntsC_ArrowHeadStyleEnm::CIRCLE, yld_Enum::ARROW_HEAD_CIRCLE},
     {ntsC_ArrowHeadStyleEnm::FILLED_CIRCLE, yld_Enum::ARROW_HEAD_FILLED_CIRCLE},
     {ntsC_ArrowHeadStyleEnm::SQUARE, yld_Enum::ARROW_HEAD_SQUARE},
     {ntsC_ArrowHeadStyleEnm::FILLED_SQUARE, yld_Enum::ARROW_HEAD_FILLED_SQUARE},
     {ntsC_ArrowHeadStyleEnm::DIAMOND, yld_Enum::ARROW_HEAD_DIAMOND}}};

constexpr EnumTable<ntsC_LineStyleEnm, yld_Enum::yld_LineStyleEnm, 5> s_lineStyles = {
    "Could not map Line Style Enumeration",
    {{ntsC_LineStyleEnm::SOLID, yld_Enum::LINE_SOLID},
     {ntsC_LineStyleEnm::DASHED, yld_Enum::LINE_DASHED},
     {ntsC_LineStyleEnm::DOTTED, yld_Enum::LINE_DOTTED},
     {ntsC_LineStyleEnm::DASH_DOT, yld_Enum::LINE_DASH_DOT},
     {ntsC_LineStyleEnm::DASH_DOT_DOT, yld_Enum::LINE_DASH_DOT_DOT}}};

constexpr EnumTable<ntsC_LineThicknessEnm, yld_Enum::yld_LineThicknessEnm, 4> s_lineThicknesses = {
    "Could not map LineThickness Enumeration",
    {{ntsC_LineThicknessEnm::VERY_THIN, yld_Enum::LINE_VERY_THIN},
     {ntsC_LineThicknessEnm::THIN, yld_Enum::LINE_THIN},
     {ntsC_LineThicknessEnm::MEDIUM, yld_Enum::LINE_MEDIUM},
     {ntsC_LineThicknessEnm::THICK, yld_Enum::LINE_THICK}}};

constexpr EnumTable<ntsC_BackgroundStyleEnm, yld_Enum::yld_BackgroundStyleEnm, 3> s_backgroundStyles = {
    "Could not map yld_Enum::BackgroundStyleEnm Enumeration",
    {{ntsC_BackgroundStyleEnm::TRANSPARENT, yld_Enum::BACKGROUND_TRANSPARENT},
     {ntsC_BackgroundStyleEnm::OF_VIEW, yld_Enum::BACKGROUND_OF_VIEW},
     {ntsC_BackgroundStyleEnm::COLORED, yld_Enum::BACKGROUND_COLORED}}};

constexpr EnumTable<ntsC_LineJustificationEnm, yld_Enum::yld_LineJustificationEnm, 3> s_justifications = {
    "Could not map yld_Enum::LineJustificationEnm Enumeration",
    {{ntsC_LineJustificationEnm::LEFT, yld_Enum::JUSTIFY_LEFT},
     {ntsC_LineJustificationEnm::CENTER, yld_Enum::JUSTIFY_CENTER},
     {ntsC_LineJustificationEnm::RIGHT, yld_Enum::JUSTIFY_RIGHT}}};

constexpr EnumTable<prtC_StackDirectionEnm, yld_Enum::yld_StackDirectionEnum, 4> s_stackDirections = {
    "Could not map stack direction enumeration.",
    {{prtC_StackDirectionEnm::DIRECTION_1, yld_Enum::STACK_DIRECTION_1},
     {prtC_StackDirectionEnm::DIRECTION_2, yld_Enum::STACK_DIRECTION_2},
     {prtC_StackDirectionEnm::DIRECTION_3, yld_Enum::STACK_DIRECTION_3},
     {prtC_StackDirectionEnm::OF_ORIENTATION, yld_Enum::STACK_DIRECTION_OF_ORIENTATION}}};

} // namespace

yld_Enum::yld_DataTypeEnum mapDataType(fld_DataTypeEnm type) { return s_dataTypes.toPublic(type); }

fld_DataTypeEnm unMapDataType(yld_Enum::yld_DataTypeEnum type) { return s_dataTypes.toStore(type); }

yld_Enum::yld_ResultPositionEnum mapOutputPosition(fld_OutputPositionEnm position)
{
    return s_positions.toPublic(position);
}

fld_OutputPositionEnm unMapOutputPosition(yld_Enum::yld_ResultPositionEnum position)
{
    return s_positions.toStore(position);
}

yld_Enum::yld_InvariantEnum mapInvarEnum(fld_InvariantEnm invariant) { return s_invariants.toPublic(invariant); }

fld_InvariantEnm unMapInvarEnum(yld_Enum::yld_InvariantEnum invariant) { return s_invariants.toStore(invariant); }

yld_Enum::yld_XYSourceTypeEnm mapSourceType(kvp_SourceTypeEnm source) { return s_sourceTypes.toPublic(source); }

kvp_SourceTypeEnm unMapSourceType(yld_Enum::yld_XYSourceTypeEnm source) { return s_sourceTypes.toStore(source); }

yld_Enum::yld_AxisEnum mapAxisEnum(prtC_AxisEnm axis) { return s_axes.toPublic(axis); }

prtC_AxisEnm unMapAxisEnum(yld_Enum::yld_AxisEnum axis) { return s_axes.toStore(axis); }

yld_Enum::yld_OrientationMethodEnum mapOrientationMethod(prtC_OrientationMethodEnm method)
{
    return s_orientationMethods.toPublic(method);
}

prtC_OrientationMethodEnm unMapOrientationMethod(yld_Enum::yld_OrientationMethodEnum method)
{
    return s_orientationMethods.toStore(method);
}

axs_CsysTypeEnm unMapDatumCsysType(yld_Enum::yld_DatumCsysTypeEnum type) { return s_csysTypes.toStore(type); }

yld_Enum::yld_RelativePositionEnm mapRelativePositionEnm(ntsC_RelativePositionEnm position)
{
    return s_relativePositions.toPublic(position);
}

ntsC_RelativePositionEnm unMapRelativePositionEnm(yld_Enum::yld_RelativePositionEnm position)
{
    return s_relativePositions.toStore(position);
}

yld_Enum::yld_ArrowHeadStyleEnm mapArrowHeadStyleEnm(ntsC_ArrowHeadStyleEnm style)
{
    return s_arrowHeads.toPublic(style);
}

ntsC_ArrowHeadStyleEnm unMapArrowHeadStyleEnm(yld_Enum::yld_ArrowHeadStyleEnm style)
{
    return s_arrowHeads.toStore(style);
}

yld_Enum::yld_LineStyleEnm mapLineStyleEnm(ntsC_LineStyleEnm style) { return s_lineStyles.toPublic(style); }

ntsC_LineStyleEnm unMapLineStyleEnm(yld_Enum::yld_LineStyleEnm style) { return s_lineStyles.toStore(style); }

yld_Enum::yld_LineThicknessEnm mapLineThicknessEnm(ntsC_LineThicknessEnm thickness)
{
    return s_lineThicknesses.toPublic(thickness);
}

ntsC_LineThicknessEnm unMapLineThicknessEnm(yld_Enum::yld_LineThicknessEnm thickness)
{
    return s_lineThicknesses.toStore(thickness);
}

yld_Enum::yld_BackgroundStyleEnm mapBackgroundStyleEnm(ntsC_BackgroundStyleEnm style)
{
    return s_backgroundStyles.toPublic(style);
}

ntsC_BackgroundStyleEnm unMapBackgroundStyleEnm(yld_Enum::yld_BackgroundStyleEnm style)
{
    return s_backgroundStyles.toStore(style);
}

yld_Enum::yld_LineJustificationEnm mapLineJustificationEnm(ntsC_LineJustificationEnm justification)
{
    return s_justifications.toPublic(justification);
}

ntsC_LineJustificationEnm unMapLineJustificationEnm(yld_Enum::yld_LineJustificationEnm justification)
{
    return s_justifications.toStore(justification);
}

yld_Enum::yld_StackDirectionEnum mapStackDirectionEnm(prtC_StackDirectionEnm direction)
{
    return s_stackDirections.toPublic(direction);
}

prtC_StackDirectionEnm unMapStackDirectionEnumToStackDirection(yld_Enum::yld_StackDirectionEnum direction)
{
    return s_stackDirections.toStore(direction);
}

yld_Enum::yld_DimensionEnum mapDimension(fld_DimensionEnm dimension)
{
    switch (dimension) {
    case fld_DimensionEnm::THREE_D:
        return yld_Enum::THREE_D;
    case fld_DimensionEnm::TWO_D_PLANAR:
        return yld_Enum::TWO_D_PLANAR;
    case fld_DimensionEnm::AXISYMMETRIC:
        return yld_Enum::AXISYMMETRIC;
    }
    return yld_Enum::UNKNOWN_DIMENSION;
}

yld_Enum::yld_PartTypeEnum mapPartType(prtC_PartTypeEnm type)
{
    switch (type) {
    case prtC_PartTypeEnm::DEFORMABLE_BODY:
        return yld_Enum::DEFORMABLE_BODY;
    case prtC_PartTypeEnm::DISCRETE_RIGID_SURFACE:
        return yld_Enum::DISCRETE_RIGID_SURFACE;
    case prtC_PartTypeEnm::ANALYTIC_RIGID_SURFACE:
        return yld_Enum::ANALYTIC_RIGID_SURFACE;
    }
    return yld_Enum::DEFORMABLE_BODY;
}

yld_Enum::yld_ElementFaceEnum mapFaceIndex(int face, bool shell, bool edge)
{
    const bool sides = shell && !edge;
    const bool solid = !shell && !edge;
    switch (face) {
    case 0:
        return sides ? yld_Enum::SIDE1 : yld_Enum::FACE1;
    case 1:
        return sides ? yld_Enum::SIDE2 : yld_Enum::FACE2;
    case 2:
        return sides ? yld_Enum::FACE_UNKNOWN : yld_Enum::FACE3;
    case 3:
        return sides ? yld_Enum::FACE_UNKNOWN : yld_Enum::FACE4;
    case 4:
        return solid ? yld_Enum::FACE5 : yld_Enum::FACE_UNKNOWN;
    case 5:
        return solid ? yld_Enum::FACE6 : yld_Enum::FACE_UNKNOWN;
    // The further facet of a shell is stored among its sides, without the edge flag, and must come back.
    case 6:
        return shell ? yld_Enum::SIDE3 : yld_Enum::FACE_UNKNOWN;
    default:
        return yld_Enum::FACE_UNKNOWN;
    }
}

int unMapFaceIndex(yld_Enum::yld_ElementFaceEnum face)
{
    switch (face) {
    case yld_Enum::END2:
    case yld_Enum::FACE2:
    case yld_Enum::EDGE2:
    case yld_Enum::SIDE2:
        return 1;
    case yld_Enum::END3:
    case yld_Enum::FACE3:
    case yld_Enum::EDGE3:
        return 2;
    case yld_Enum::FACE4:
    case yld_Enum::EDGE4:
        return 3;
    case yld_Enum::FACE5:
        return 4;
    case yld_Enum::FACE6:
        return 5;
    case yld_Enum::SIDE3:
        return 6;
    default:
        return 0;
    }
}
