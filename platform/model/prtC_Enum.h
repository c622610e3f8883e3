#ifndef PRTC_ENUM_H
#define PRTC_ENUM_H

// The numbers below stand in files: append only, never renumber.

/// The kind of body that a stored part is.
enum class prtC_PartTypeEnm : int
{
    DEFORMABLE_BODY = 4001,
    DISCRETE_RIGID_SURFACE = 4002,
    ANALYTIC_RIGID_SURFACE = 4003
};

/// An axis of the coordinate system of a stored orientation.
enum class prtC_AxisEnm : int
{
    AXIS_1 = 0,
    AXIS_2 = 1,
    AXIS_3 = 2
};

/// How a stored beam orientation gives the direction of the cross-section.
enum class prtC_OrientationMethodEnm : int
{
    COSINES = 0,
    CSYS = 1,
    VECTOR = 2
};

/// The direction in which the layers of a stored material orientation are stacked.
enum class prtC_StackDirectionEnm : int
{
    DIRECTION_1 = 0,
    DIRECTION_2 = 1,
    DIRECTION_3 = 2,
    OF_ORIENTATION = 3
};

#endif
