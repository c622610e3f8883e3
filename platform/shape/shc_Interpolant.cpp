#include "platform/shape/shc_Interpolant.h"

namespace {

struct Definition
{
    shc_Cell::KindEnm cell;
    bool reduced;
    int gauss; // points in each Gauss direction; with triangles, points along an edge
};

constexpr Definition definitions[shc_Interpolant::NUM_CODES] = {
    {shc_Cell::POINT1, false, 1},    {shc_Cell::LINE2, false, 1},     {shc_Cell::LINE3, false, 2},
    {shc_Cell::TRIANGLE3, false, 1}, {shc_Cell::TRIANGLE6, false, 2}, {shc_Cell::QUAD4, false, 2},
    {shc_Cell::QUAD4, true, 1},      {shc_Cell::QUAD8, false, 3},     {shc_Cell::QUAD8, true, 2},
    {shc_Cell::QUAD9, false, 3},     {shc_Cell::QUAD9, true, 2},      {shc_Cell::HEX8, false, 2},
    {shc_Cell::HEX8, true, 1},       {shc_Cell::HEX20, false, 3},     {shc_Cell::HEX20, true, 2},
    {shc_Cell::HEX27, false, 3},     {shc_Cell::HEX27, true, 2},      {shc_Cell::WEDGE6, false, 2},
    {shc_Cell::WEDGE15, false, 3},   {shc_Cell::WEDGE18, false, 3},   {shc_Cell::TET4, false, 1},
    {shc_Cell::TET10, false, 2},     {shc_Cell::PYRAMID5, false, 2}};

} // namespace

struct shc_Interpolant::Store
{
    shc_Interpolant interpolant[NUM_CODES];

    Store()
    {
        for (int code = 0; code < NUM_CODES; ++code)
            interpolant[code].build(static_cast<CodeEnm>(code));
    }
};

const shc_Interpolant& shc_Interpolant::Get(CodeEnm code)
{
    static const Store store;
    return store.interpolant[code];
}

void shc_Interpolant::build(CodeEnm code)
{
    const Definition& definition = definitions[code];
    m_cell = &shc_Cell::Get(definition.cell);
    m_reduced = definition.reduced;
    buildRules(definition.gauss);
}

void shc_Interpolant::buildRules(int gauss)
{
    const bool quadratic = m_cell->IsQuadratic();
    switch (m_cell->Kind()) {
    case shc_Cell::POINT1:
        m_rule = shc_Rule::Point();
        break;
    case shc_Cell::TRIANGLE3:
    case shc_Cell::TRIANGLE6:
        m_rule = shc_Rule::Triangle(quadratic ? 3 : 1);
        break;
    case shc_Cell::TET4:
    case shc_Cell::TET10:
        m_rule = shc_Rule::Tetrahedron(quadratic ? 4 : 1);
        break;
    case shc_Cell::WEDGE6:
    case shc_Cell::WEDGE15:
    case shc_Cell::WEDGE18:
        m_rule = shc_Rule::Wedge(quadratic ? 3 : 1, gauss);
        break;
    case shc_Cell::PYRAMID5:
        m_rule = shc_Rule::Pyramid();
        break;
    default:
        m_rule = shc_Rule::Gauss(m_cell->Dimension(), gauss);
        break;
    }
    for (int face = 0; face < m_cell->NumFaces(); ++face) {
        if (m_cell->Dimension() < 3) {
            m_faceRule[face] = m_rule;
            continue;
        }
        const bool triangle = m_cell->Face(face).corners == 3;
        shc_Rule rule = triangle ? shc_Rule::Triangle(quadratic ? 3 : 1) : shc_Rule::Gauss(2, gauss);
        for (int p = 0; p < rule.count; ++p) {
            const double own[2] = {rule.point[p][0], rule.point[p][1]};
            m_cell->PointOnFace(face, own, rule.point[p]);
        }
        m_faceRule[face] = rule;
    }
    for (int edge = 0; edge < m_cell->NumEdges(); ++edge) {
        shc_Rule rule = shc_Rule::Gauss(1, gauss);
        for (int p = 0; p < rule.count; ++p)
            m_cell->PointOnEdge(edge, shc_Rule::GaussPoint(gauss, p), rule.point[p]);
        m_edgeRule[edge] = rule;
    }
}
