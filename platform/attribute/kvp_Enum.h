#ifndef KVP_ENUM_H
#define KVP_ENUM_H

/// Where the points of a stored curve came from. The numbers stand in files: append only, never renumber.
enum class kvp_SourceTypeEnm : int
{
    KEYBOARD = 0,
    TEXT_FILE = 1,
    FIELD_OUTPUT = 2,
    HISTORY_OUTPUT = 3,
    OPERATION = 4
};

#endif
