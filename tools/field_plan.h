#ifndef FIELD_PLAN_H
#define FIELD_PLAN_H

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

/// What a file says of its variables.
struct tool_Variables
{
    int dimension = 3;
    std::vector<std::string> nodal;
    std::vector<std::string> element;
    std::vector<std::string> nodeSet;
    std::vector<std::string> sideSet;
    std::size_t numBlocks = 0;
    std::function<bool(std::size_t block, std::size_t variable)> hasVariable; ///< of element variables
    std::function<int(std::size_t block)> numPoints; ///< integration points an element of the block has
};

/// One field to be made of one or more variables of a file. Each list of variables has one for each component.
struct tool_PlannedField
{
    enum TypeEnm
    {
        SCALAR,
        VECTOR,
        TENSOR, ///< six components in the order 11 22 33 12 13 23
        NINE,   ///< nine, row by row: a tensor if its values are symmetric, else a matrix
        MATRIX  ///< nine, row by row
    };

    std::string name;
    TypeEnm type = SCALAR;
    std::vector<std::string> componentLabels;     ///< the variables' own names; empty for a scalar or a matrix
    std::vector<std::size_t> nodal;               ///< nodal variables, by place; empty for none
    std::vector<std::size_t> element;             ///< element variables
    std::vector<std::size_t> elementBlocks;       ///< the blocks that have them
    std::vector<std::vector<std::size_t>> points; ///< element variables by component and integration point
    std::vector<std::size_t> pointBlocks;         ///< the blocks whose elements have so many points
    std::vector<std::size_t> nodeSet;             ///< one node set variable
    std::vector<std::size_t> sideSet;             ///< one side set variable
};

/// Decides which variables of a file make which fields.
///
/// Element variables named base + "_1" to "_n" are values at integration points in those blocks that have exactly
/// these of them and whose elements have n points, at least two. In other blocks they stay what they are.
///
/// At one place (nodes, elements, integration points) variables named stem + "x", "y", "z" (with or without "_"
/// before the letter, all in one case; in a model of two dimensions "x" and "y") become a vector named by the stem;
/// stem + "xx", "yy", "zz", "xy", "yz" and "zx" (or "xz", "zy", "yx"; any case, any order) a tensor; stem + "_1_1" to
/// "_3_3" at nodes, and stem + "_1" to "_9" at integration points, a field of nine components. On elements the same
/// blocks have to have all of them. A stem that is the name of another variable or field is left alone: its variables
/// stay scalars, and `note` is told. All others are scalars under their own names. Variables of one name and type at
/// several places are one field with several positions. No name and no variable is lost.
std::vector<tool_PlannedField> tool_planFields(const tool_Variables& variables,
                                               const std::function<void(const std::string&)>& note);

/// Makes a tensor of a field of nine components, or a matrix.
void tool_settleNine(tool_PlannedField& field, bool isSymmetric);

#endif
