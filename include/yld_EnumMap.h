#ifndef YLD_ENUM_MAP_H
#define YLD_ENUM_MAP_H

#include "platform/base/bas_Export.h"
#include "yld_Enum.h"

// The store's enumerations are named here and defined with the classes that keep them. A client needs the
// names only to hand on a number that it was given.
enum class fld_DataTypeEnm : int;
enum class fld_OutputPositionEnm : int;
enum class fld_InvariantEnm : int;
enum class fld_DimensionEnm : int;
enum class kvp_SourceTypeEnm : int;
enum class prtC_PartTypeEnm : int;
enum class prtC_AxisEnm : int;
enum class prtC_OrientationMethodEnm : int;
enum class prtC_StackDirectionEnm : int;
enum class axs_CsysTypeEnm : int;
enum class ntsC_RelativePositionEnm : int;
enum class ntsC_ArrowHeadStyleEnm : int;
enum class ntsC_LineStyleEnm : int;
enum class ntsC_LineThicknessEnm : int;
enum class ntsC_BackgroundStyleEnm : int;
enum class ntsC_LineJustificationEnm : int;

/// @file
/// Files keep other numbers for enumerators than `yld_Enum` has. These functions translate: `map...` from the
/// number of the file to the public one, `unMap...` from the public one to that of the file. Each looks its value
/// up in a table of a few rows, allocates nothing unless it raises, and may be called from any thread. A value that
/// is not in the table raises `yld_Exception` with error number 6 and the text given here; the functions at the end
/// raise nothing.

/// What a value is: a scalar, a vector, a tensor. UNDEFINED_DATATYPE is not in the table.
/// Raises "Could not map DataType Enumeration".
YLD_API yld_Enum::yld_DataTypeEnum mapDataType(fld_DataTypeEnm type);
YLD_API fld_DataTypeEnm unMapDataType(yld_Enum::yld_DataTypeEnum type);

/// Where values belong. The two are not each other's inverse: nodal values that elements carry (store 12) are
/// presented as NODAL, and NODAL goes to the store as plain nodal (1); public number 14 goes to store 12.
/// Raises "Could not map OutputPosition Enumeration".
YLD_API yld_Enum::yld_ResultPositionEnum mapOutputPosition(fld_OutputPositionEnm position);
YLD_API fld_OutputPositionEnm unMapOutputPosition(yld_Enum::yld_ResultPositionEnum position);

/// Scalars derived from a field. UNDEFINED_INVARIANT is not in the table.
/// Raises "Could not map Invariant Enumeration".
YLD_API yld_Enum::yld_InvariantEnum mapInvarEnum(fld_InvariantEnm invariant);
YLD_API fld_InvariantEnm unMapInvarEnum(yld_Enum::yld_InvariantEnum invariant);

/// Where a curve came from. Raises "Could not map SourceType Enumeration".
YLD_API yld_Enum::yld_XYSourceTypeEnm mapSourceType(kvp_SourceTypeEnm source);
YLD_API kvp_SourceTypeEnm unMapSourceType(yld_Enum::yld_XYSourceTypeEnm source);

/// An axis of a coordinate system. Raises "Could not map Invariant Enumeration": axes, orientation methods
/// and datum systems share the text of the invariants, and clients compare it.
YLD_API yld_Enum::yld_AxisEnum mapAxisEnum(prtC_AxisEnm axis);
YLD_API prtC_AxisEnm unMapAxisEnum(yld_Enum::yld_AxisEnum axis);

/// How a beam orientation is given. Raises "Could not map Invariant Enumeration".
YLD_API yld_Enum::yld_OrientationMethodEnum mapOrientationMethod(prtC_OrientationMethodEnm method);
YLD_API prtC_OrientationMethodEnm unMapOrientationMethod(yld_Enum::yld_OrientationMethodEnum method);

/// The kind of a datum system, on its way to the store only.
/// Raises "Could not map Invariant Enumeration".
YLD_API axs_CsysTypeEnm unMapDatumCsysType(yld_Enum::yld_DatumCsysTypeEnum type);

/// A named point of an annotation's box. The number 4 is not in the table.
/// Raises "Could not map RelativePosition Enumeration".
YLD_API yld_Enum::yld_RelativePositionEnm mapRelativePositionEnm(ntsC_RelativePositionEnm position);
YLD_API ntsC_RelativePositionEnm unMapRelativePositionEnm(yld_Enum::yld_RelativePositionEnm position);

/// The head of an arrow. Raises "Could not map ArrowHeadStyle Enumeration".
YLD_API yld_Enum::yld_ArrowHeadStyleEnm mapArrowHeadStyleEnm(ntsC_ArrowHeadStyleEnm style);
YLD_API ntsC_ArrowHeadStyleEnm unMapArrowHeadStyleEnm(yld_Enum::yld_ArrowHeadStyleEnm style);

/// The stroke of a line. Raises "Could not map Line Style Enumeration".
YLD_API yld_Enum::yld_LineStyleEnm mapLineStyleEnm(ntsC_LineStyleEnm style);
YLD_API ntsC_LineStyleEnm unMapLineStyleEnm(yld_Enum::yld_LineStyleEnm style);

/// The width of a line. Raises "Could not map LineThickness Enumeration".
YLD_API yld_Enum::yld_LineThicknessEnm mapLineThicknessEnm(ntsC_LineThicknessEnm thickness);
YLD_API ntsC_LineThicknessEnm unMapLineThicknessEnm(yld_Enum::yld_LineThicknessEnm thickness);

/// The background of a text annotation. Raises "Could not map yld_Enum::BackgroundStyleEnm Enumeration".
YLD_API yld_Enum::yld_BackgroundStyleEnm mapBackgroundStyleEnm(ntsC_BackgroundStyleEnm style);
YLD_API ntsC_BackgroundStyleEnm unMapBackgroundStyleEnm(yld_Enum::yld_BackgroundStyleEnm style);

/// How the lines of a text stand. Raises "Could not map yld_Enum::LineJustificationEnm Enumeration".
YLD_API yld_Enum::yld_LineJustificationEnm mapLineJustificationEnm(ntsC_LineJustificationEnm justification);
YLD_API ntsC_LineJustificationEnm unMapLineJustificationEnm(yld_Enum::yld_LineJustificationEnm justification);

/// The stacking of layers. Raises "Could not map stack direction enumeration.", with the full stop.
YLD_API yld_Enum::yld_StackDirectionEnum mapStackDirectionEnm(prtC_StackDirectionEnm direction);
YLD_API prtC_StackDirectionEnm unMapStackDirectionEnumToStackDirection(yld_Enum::yld_StackDirectionEnum direction);

/// The space of a stored part; any number that is not a dimension gives UNKNOWN_DIMENSION. Raises nothing.
YLD_API yld_Enum::yld_DimensionEnum mapDimension(fld_DimensionEnm dimension);

/// The kind of a stored part; any number that is not a kind gives DEFORMABLE_BODY. Raises nothing.
YLD_API yld_Enum::yld_PartTypeEnum mapPartType(prtC_PartTypeEnm type);

/// The face that the store keeps as a zero-based number.
/// @param face   number of the face, side or edge, counted from 0
/// @param shell  the element is shell-like: its faces 0 and 1 are its two sides
/// @param edge   the number counts edges
/// @return FACE_UNKNOWN for a number that the combination of flags does not know; raises nothing
YLD_API yld_Enum::yld_ElementFaceEnum mapFaceIndex(int face, bool shell, bool edge);

/// The zero-based number that the store keeps for a face: the place of the face among its kind, and 0 for
/// every value that is not a face. Raises nothing.
YLD_API int unMapFaceIndex(yld_Enum::yld_ElementFaceEnum face);

#endif
