#include "element_types.h"

#include "exodus_order.h"

#include <cctype>
#include <string_view>

namespace {

enum FamilyEnm
{
    POINT,
    TRUSS,
    BEAM,
    TRIANGLE,
    QUADRILATERAL,
    HEXAHEDRON,
    TETRAHEDRON,
    WEDGE,
    PYRAMID,
    NO_FAMILY
};

struct FamilyName
{
    std::string_view name;
    FamilyEnm family;
};

// clang-format off
constexpr FamilyName familyNames[] = {
    {"POINT", POINT},        {"SPHERE", POINT},      {"CIRCLE", POINT},       {"NODE", POINT},
    {"TRUSS", TRUSS},        {"BAR", TRUSS},         {"ROD", TRUSS},          {"EDGE", TRUSS},
    {"BEAM", BEAM},          {"TRI", TRIANGLE},      {"TRIANGLE", TRIANGLE},  {"TRISHELL", TRIANGLE},
    {"QUAD", QUADRILATERAL}, {"SHELL", QUADRILATERAL}, {"HEX", HEXAHEDRON},   {"HEXAHEDRON", HEXAHEDRON},
    {"TET", TETRAHEDRON},    {"TETRA", TETRAHEDRON}, {"WEDGE", WEDGE},        {"PYRAMID", PYRAMID},
    {"PYRA", PYRAMID},
};
// clang-format on

struct Row
{
    FamilyEnm family;
    bool inSpace; // a model of three dimensions
    tool_ElementType type;
};

constexpr Row rows[] = {
    {POINT, true, {"POINTMASS", 1, nullptr, tool_NO_SIDES, 1}},
    {POINT, false, {"POINTMASS", 1, nullptr, tool_NO_SIDES, 1}},
    {TRUSS, true, {"TRUSS2", 2, nullptr, tool_LINE, 1}},
    {TRUSS, true, {"TRUSS3", 3, nullptr, tool_LINE, 2}},
    {TRUSS, false, {"TRUSS2D2", 2, nullptr, tool_PLANE_ENDS, 1}},
    {TRUSS, false, {"TRUSS2D3", 3, nullptr, tool_PLANE_ENDS, 2}},
    {BEAM, true, {"BEAM2", 2, nullptr, tool_LINE, 1}},
    {BEAM, true, {"BEAM3", 3, nullptr, tool_LINE, 2}},
    {BEAM, false, {"BEAM2D2", 2, nullptr, tool_PLANE_ENDS, 1}},
    {BEAM, false, {"BEAM2D3", 3, nullptr, tool_PLANE_ENDS, 2}},
    {TRIANGLE, true, {"SHELL3", 3, nullptr, tool_SHELL_SIDES, 1}},
    {TRIANGLE, true, {"SHELL6", 6, nullptr, tool_SHELL_SIDES, 3}},
    {TRIANGLE, false, {"TRI3", 3, nullptr, tool_FACES, 1}},
    {TRIANGLE, false, {"TRI6", 6, nullptr, tool_FACES, 3}},
    {QUADRILATERAL, true, {"SHELL4", 4, nullptr, tool_SHELL_SIDES, 4}},
    {QUADRILATERAL, true, {"SHELL8", 8, nullptr, tool_SHELL_SIDES, 9}},
    {QUADRILATERAL, true, {"SHELL9", 9, nullptr, tool_SHELL_SIDES, 9}},
    {QUADRILATERAL, false, {"QUAD4", 4, nullptr, tool_FACES, 4}},
    {QUADRILATERAL, false, {"QUAD8", 8, nullptr, tool_FACES, 9}},
    {QUADRILATERAL, false, {"QUAD9", 9, nullptr, tool_FACES, 9}},
    {HEXAHEDRON, true, {"HEX8", 8, nullptr, tool_FACES, 8}},
    {HEXAHEDRON, true, {"HEX20", 20, exodus_hex20Order, tool_FACES, 27}},
    {HEXAHEDRON, true, {"HEX27", 27, exodus_hex27Order, tool_FACES, 27}},
    {TETRAHEDRON, true, {"TET4", 4, nullptr, tool_FACES, 1}},
    {TETRAHEDRON, true, {"TET10", 10, nullptr, tool_FACES, 4}},
    {WEDGE, true, {"WEDGE6", 6, nullptr, tool_FACES, 2}},
    {WEDGE, true, {"WEDGE15", 15, exodus_wedge15Order, tool_FACES, 9}},
    {WEDGE, true, {"WEDGE18", 18, exodus_wedge18Order, tool_FACES, 9}},
    {PYRAMID, true, {"PYRAMID5", 5, nullptr, tool_FACES, 5}},
};

FamilyEnm familyOf(const std::string& name, int numNodes)
{
    std::string letters;
    std::string digits;
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        if (std::isdigit(byte)) digits.push_back(c);
        else if (!digits.empty()) return NO_FAMILY;
        else letters.push_back(static_cast<char>(std::toupper(byte)));
    }
    // A count in the name that is not the block's own would make another element of it.
    if (!digits.empty() && digits != std::to_string(numNodes)) return NO_FAMILY;
    for (const FamilyName& entry : familyNames)
        if (entry.name == letters) return entry.family;
    return NO_FAMILY;
}

} // namespace

const tool_ElementType* tool_elementType(const std::string& name, int numNodes, int dimension)
{
    const FamilyEnm family = familyOf(name, numNodes);
    for (const Row& row : rows)
        if (row.family == family && row.type.numNodes == numNodes && row.inSpace == (dimension == 3)) return &row.type;
    return nullptr;
}
