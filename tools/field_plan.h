#ifndef FIELD_PLAN_H
#define FIELD_PLAN_H

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

/// One field to be made of one or more variables of a file.
struct tool_PlannedField
{
    enum TypeEnm
    {
        SCALAR,
        VECTOR, ///< of nodal variables, one a component
        TENSOR  ///< of six element variables in the order 11 22 33 12 13 23
    };

    std::string name;
    TypeEnm type = SCALAR;
    std::vector<std::string> componentLabels; ///< the variables' own names; empty for a scalar
    std::vector<std::size_t> nodal;           ///< the nodal variables, by place; none for a tensor
    std::vector<std::size_t> element; ///< the element variables; none for a vector. A scalar may have both
};

/// Decides which variables of a file make which fields.
///
/// Nodal variables named stem + "x", "y", "z" (with or without "_" before the letter, all in one case; in a
/// model of two dimensions "x" and "y") become a vector named by the stem. Element variables named stem +
/// "xx", "yy", "zz", "xy", "yz" and "zx" (or "xz", "zy", "yx"; any case, any order) become a tensor named by
/// the stem, if the same blocks have all six. A stem that is the name of another variable or field is left
/// alone: its variables stay scalars, and `note` is told. All others are scalars under their own names; a
/// nodal and an element variable of one name are one field with two positions. No name and no variable is
/// lost.
/// @param sameBlocks  tells whether two element variables are present in exactly the same blocks
std::vector<tool_PlannedField>
tool_planFields(int dimension, const std::vector<std::string>& nodal, const std::vector<std::string>& element,
                const std::function<bool(std::size_t, std::size_t)>& sameBlocks,
                const std::function<void(const std::string&)>& note);

#endif
