#ifndef AXS_ENUM_H
#define AXS_ENUM_H

/// The kind of a stored coordinate system; UNDEFINED counts as rectangular. The numbers stand in files:
/// append only, never renumber.
enum class axs_CsysTypeEnm : int
{
    UNDEFINED = 0,
    CARTESIAN = 1,
    CYLINDRICAL = 2,
    SPHERICAL = 3
};

#endif
