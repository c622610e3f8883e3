#ifndef NTSC_ENUM_H
#define NTSC_ENUM_H

// The numbers below stand in files: append only, never renumber.

/// A named point of a box, row by row from the bottom. The number 4 is not in use.
enum class ntsC_RelativePositionEnm : int
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

/// The head at one end of a stored arrow.
enum class ntsC_ArrowHeadStyleEnm : int
{
    NONE = 0,
    OPEN = 1,
    CLOSED = 2,
    FILLED = 3,
    CIRCLE = 4,
    FILLED_CIRCLE = 5,
    SQUARE = 6,
    FILLED_SQUARE = 7,
    DIAMOND = 8
};

/// The stroke of the line of a stored arrow.
enum class ntsC_LineStyleEnm : int
{
    SOLID = 0,
    DASHED = 1,
    DOTTED = 2,
    DASH_DOT = 3,
    DASH_DOT_DOT = 4
};

/// The width of the line of a stored arrow.
enum class ntsC_LineThicknessEnm : int
{
    VERY_THIN = 0,
    THIN = 1,
    MEDIUM = 2,
    THICK = 3
};

/// The background of a stored text.
enum class ntsC_BackgroundStyleEnm : int
{
    TRANSPARENT = 0,
    OF_VIEW = 1,
    COLORED = 2
};

/// How the lines of a stored text stand to each other.
enum class ntsC_LineJustificationEnm : int
{
    LEFT = 0,
    CENTER = 1,
    RIGHT = 2
};

#endif
