#include "platform/shape/shc_ShapeDictionary.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace {

struct Definition
{
    const char* label;
    int family;
    shc_Interpolant::CodeEnm code;
    int spaceDimension;
    bool axisymmetric;
};

using I = shc_Interpolant;

constexpr Definition definitions[] = {{"POINTMASS", 0, I::POINT1, 3, false}, {"RNODE2D", 0, I::POINT1, 2, false},
                                      {"RNODE3D", 0, I::POINT1, 3, false},

                                      {"TRUSS2", 1, I::LINE2, 3, false},     {"TRUSS2D2", 1, I::LINE2, 2, false},
                                      {"BEAM2", 1, I::LINE2, 3, false},      {"BEAM2D2", 1, I::LINE2, 2, false},
                                      {"SHELLAX2", 1, I::LINE2, 2, true},    {"CONN2D2", 1, I::LINE2, 2, false},
                                      {"CONN3D2", 1, I::LINE2, 3, false},

                                      {"TRUSS3", 2, I::LINE3, 3, false},     {"TRUSS2D3", 2, I::LINE3, 2, false},
                                      {"BEAM3", 2, I::LINE3, 3, false},      {"BEAM2D3", 2, I::LINE3, 2, false},
                                      {"SHELLAX3", 2, I::LINE3, 2, true},

                                      {"TRI3", 3, I::TRIANGLE3, 2, false},   {"AXTRI3", 3, I::TRIANGLE3, 2, true},
                                      {"SHELL3", 3, I::TRIANGLE3, 3, false}, {"MEMBRANE3", 3, I::TRIANGLE3, 3, false},

                                      {"TRI6", 4, I::TRIANGLE6, 2, false},   {"AXTRI6", 4, I::TRIANGLE6, 2, true},
                                      {"SHELL6", 4, I::TRIANGLE6, 3, false}, {"MEMBRANE6", 4, I::TRIANGLE6, 3, false},

                                      {"QUAD4", 5, I::QUAD4, 2, false},      {"AXQUAD4", 5, I::QUAD4, 2, true},
                                      {"SHELL4", 5, I::QUAD4, 3, false},     {"MEMBRANE4", 5, I::QUAD4, 3, false},
                                      {"QUAD4R", 5, I::QUAD4R, 2, false},    {"AXQUAD4R", 5, I::QUAD4R, 2, true},
                                      {"SHELL4R", 5, I::QUAD4R, 3, false},   {"MEMBRANE4R", 5, I::QUAD4R, 3, false},

                                      {"QUAD8", 6, I::QUAD8, 2, false},      {"AXQUAD8", 6, I::QUAD8, 2, true},
                                      {"SHELL8", 6, I::QUAD8, 3, false},     {"MEMBRANE8", 6, I::QUAD8, 3, false},
                                      {"QUAD8R", 6, I::QUAD8R, 2, false},    {"AXQUAD8R", 6, I::QUAD8R, 2, true},
                                      {"SHELL8R", 6, I::QUAD8R, 3, false},   {"MEMBRANE8R", 6, I::QUAD8R, 3, false},

                                      {"QUAD9", 7, I::QUAD9, 2, false},      {"AXQUAD9", 7, I::QUAD9, 2, true},
                                      {"SHELL9", 7, I::QUAD9, 3, false},     {"MEMBRANE9", 7, I::QUAD9, 3, false},
                                      {"QUAD9R", 7, I::QUAD9R, 2, false},    {"AXQUAD9R", 7, I::QUAD9R, 2, true},
                                      {"SHELL9R", 7, I::QUAD9R, 3, false},   {"MEMBRANE9R", 7, I::QUAD9R, 3, false},

                                      {"HEX8", 8, I::HEX8, 3, false},        {"HEX8R", 8, I::HEX8R, 3, false},
                                      {"HEX20", 9, I::HEX20, 3, false},      {"HEX20R", 9, I::HEX20R, 3, false},
                                      {"HEX27", 9, I::HEX27, 3, false},      {"HEX27R", 9, I::HEX27R, 3, false},
                                      {"WEDGE6", 10, I::WEDGE6, 3, false},   {"WEDGE15", 11, I::WEDGE15, 3, false},
                                      {"WEDGE18", 11, I::WEDGE18, 3, false}, {"TET4", 12, I::TET4, 3, false},
                                      {"TET10", 13, I::TET10, 3, false},     {"PYRAMID5", 14, I::PYRAMID5, 3, false}};

constexpr int numDefinitions = static_cast<int>(std::size(definitions));

} // namespace

struct shc_ShapeDictionary::Table
{
    shc_Topology topology[numDefinitions];

    Table()
    {
        for (int i = 0; i < numDefinitions; ++i) {
            const Definition& definition = definitions[i];
            shc_Topology& shape = topology[i];
            shape.m_label = definition.label;
            shape.m_family = definition.family;
            shape.m_interpolant = &shc_Interpolant::Get(definition.code);
            shape.m_spaceDimension = definition.spaceDimension;
            shape.m_attribute = (definition.axisymmetric ? shc_Topology::AXISYMMETRIC_BIT : 0) |
                                (shape.m_interpolant->IsReduced() ? shc_Topology::REDUCED_BIT : 0) |
                                (shape.IsShellLike() ? shc_Topology::SHELL_BIT : 0) |
                                (shape.IsConnector() ? shc_Topology::CONNECTOR_BIT : 0) |
                                (shape.IsRigidNode() ? shc_Topology::RIGID_NODE_BIT : 0);
        }
        std::sort(topology, topology + numDefinitions,
                  [](const shc_Topology& a, const shc_Topology& b) { return std::strcmp(a.Label(), b.Label()) < 0; });
    }
};

const shc_ShapeDictionary::Table& shc_ShapeDictionary::table()
{
    static const Table table;
    return table;
}

int shc_ShapeDictionary::NumShapes() { return numDefinitions; }

const shc_Topology& shc_ShapeDictionary::Shape(int index) { return table().topology[index]; }

const shc_Topology* shc_ShapeDictionary::GetShape(const char* type)
{
    return type ? GetShape(std::string_view(type)) : nullptr;
}

const shc_Topology* shc_ShapeDictionary::GetShape(std::string_view type)
{
    thread_local shc_ShapeDictionary dictionary;
    // Callers walk element classes in order, so the same label comes again and again.
    if (dictionary.m_last && type == dictionary.m_last->Label()) return dictionary.m_last;
    const shc_Topology* begin = table().topology;
    const shc_Topology* end = begin + numDefinitions;
    const shc_Topology* found = std::lower_bound(
        begin, end, type, [](const shc_Topology& shape, std::string_view label) { return shape.Label() < label; });
    if (found == end || type != found->Label()) return nullptr;
    dictionary.m_last = found;
    return found;
}
