#ifndef ELEMENT_TYPES_H
#define ELEMENT_TYPES_H

#include <string>

/// How the sides of an element type are numbered in a side set.
enum tool_SideRuleEnm
{
    tool_FACES,       ///< side n is FACEn: solids, and plane elements, whose edges are their faces
    tool_SHELL_SIDES, ///< sides 1 and 2 are SIDE1 and SIDE2, side n from 3 on is edge FACE(n-2)
    tool_PLANE_ENDS,  ///< sides 1 and 2 are END1 and END2: lines in the plane
    tool_LINE,        ///< side 1 is FACE1, the one that a line in space has
    tool_NO_SIDES     ///< points
};

/// What a block of elements becomes.
struct tool_ElementType
{
    const char* label; ///< the library's element type label
    int numNodes;
    const int* order; ///< ours[i] = theirs[order[i]]; null where the orders agree
    tool_SideRuleEnm sides;
    int numPoints; ///< integration points
};

/// The element type for a block's type name, case ignored and with or without a node count at the end, the
/// nodes an element has, and the dimension of the model. Null for a type that the library lacks.
const tool_ElementType* tool_elementType(const std::string& name, int numNodes, int dimension);

#endif
