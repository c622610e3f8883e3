#ifndef FLD_ENUM_H
#define FLD_ENUM_H

// The numbers below stand in files: append only, never renumber. They are not the numbers of the public
// enumerations of the same meaning; scoped, so that the two are never mixed up without a word.

/// What one stored value is.
enum class fld_DataTypeEnm : int
{
    UNDEFINED = 0,
    BOOLEAN = 1,
    INTEGER = 2,
    SCALAR = 3,
    VECTOR = 4,
    MATRIX = 5,
    QUATERNION_2D = 6,
    QUATERNION_3D = 7,
    TENSOR = 8, ///< a tensor of which no shape is told; no field presents itself as one
    TENSOR_3D_FULL = 9,
    TENSOR_3D_PLANAR = 10,
    TENSOR_3D_SURFACE = 11,
    TENSOR_2D_PLANAR = 12,
    TENSOR_2D_SURFACE = 13,
    UNUSED_14 = 14, ///< no type has ever had it; writers by set let it pass
    NOT_FOUND = 15  ///< the answer of a look-up that finds no type
};

/// Where in the mesh stored values belong.
enum class fld_OutputPositionEnm : int
{
    UNDEFINED = 0,
    NODAL = 1,
    INTEGRATION_POINT = 2,
    ELEMENT_FACE = 3,
    ELEMENT_NODAL = 4,
    WHOLE_ELEMENT = 5,
    CENTROID = 6,
    WHOLE_REGION = 7,
    WHOLE_PART_INSTANCE = 8,
    WHOLE_MODEL = 9,
    GENERAL_PARTICLE = 10,
    WHOLE_FACE = 11,       ///< by element, several values an element; the set tells how many
    NODAL_BY_ELEMENT = 12, ///< nodal values carried by elements, counted and labelled like NODAL
    UNUSED_13 = 13,        ///< these three no position has ever had
    UNUSED_14 = 14,
    UNUSED_15 = 15,
    ELEMENT_FACE_INTEGRATION_POINT = 16,
    SURFACE_INTEGRATION_POINT = 17,
    OTHER = 18 ///< carried, with no meaning of its own here
};

/// Scalars derived from stored tensors, and from vectors (MAGNITUDE).
enum class fld_InvariantEnm : int
{
    MAX_PRINCIPAL = 0,
    MID_PRINCIPAL = 1,
    MIN_PRINCIPAL = 2,
    MAX_INPLANE_PRINCIPAL = 3,
    MIN_INPLANE_PRINCIPAL = 4,
    OUTOFPLANE_PRINCIPAL = 5,
    MISES = 6,
    TRESCA = 7,
    PRESS = 8,
    INV3 = 9,
    MAGNITUDE = 10
};

/// The space that a part is embedded in.
enum class fld_DimensionEnm : int
{
    THREE_D = 2000,
    TWO_D_PLANAR = 2001,
    AXISYMMETRIC = 2002
};

#endif
