#ifndef VALUES_H
#define VALUES_H

#include <string>

/// Which values to print, and how.
struct tool_ValuesRequest
{
    enum FormatEnm
    {
        TABLE,
        CSV,
        JSON
    };

    std::string path;
    std::string step; ///< empty for the last step
    int frame = -1;   ///< counted from 0; from the end when negative, -1 is the last
    std::string field;
    std::string instance; ///< empty for all
    std::string position; ///< empty for all; a name as "NODAL"
    FormatEnm format = TABLE;
};

/// Prints the values of one field in one frame, one line or object a value, in the order in which they are
/// kept. Memory: the field.
void tool_values(const tool_ValuesRequest& request);

#endif
