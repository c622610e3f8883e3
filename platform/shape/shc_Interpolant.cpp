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
        for (int code = 0; code < NUM_CODES; ++code) interpolant[code].build(static_cast<CodeEnm>(code));
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
    m_gauss = definition.gauss;
    buildRules();
    buildMatrices();
}

void shc_Interpolant::buildRules()
{
    const int gauss = m_gauss;
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
        for (int p = 0; p < rule.count; ++p) m_cell->PointOnEdge(edge, shc_Rule::GaussPoint(gauss, p), rule.point[p]);
        m_edgeRule[edge] = rule;
    }
}

static void lagrange(int n, double x, double* weights)
{
    for (int i = 0; i < n; ++i) {
        weights[i] = 1;
        for (int j = 0; j < n; ++j)
            if (j != i)
                weights[i] *=
                    (x - shc_Rule::GaussPoint(n, j)) / (shc_Rule::GaussPoint(n, i) - shc_Rule::GaussPoint(n, j));
    }
}

// Linear through points that form a smaller copy of the cell: point k + 1 lies apart from point 0 in
// direction k.
static void simplexWeights(const shc_Rule& rule, int dimension, const double* point, double* weights)
{
    weights[0] = 1;
    for (int k = 0; k < dimension; ++k) {
        const double origin = rule.point[0][k];
        weights[k + 1] = (point[k] - origin) / (rule.point[k + 1][k] - origin);
        weights[0] -= weights[k + 1];
    }
}

// f = a (p0 + p1 xi + p2 eta + p3 xi eta) + b q with a = (1 - zeta) / 2 and b = (1 + zeta) / 2, which is what
// the shape functions span. The mean of the four points and the fifth give p0 and q, the differences the
// rest.
static void pyramidWeights(const shc_Rule& rule, const double* point, double* weights)
{
    const double a = 0.5 * (1 - point[2]);
    const double b = 0.5 * (1 + point[2]);
    const double aLow = 0.5 * (1 - rule.point[0][2]);
    const double bLow = 0.5 * (1 + rule.point[0][2]);
    const double aHigh = 0.5 * (1 - rule.point[4][2]);
    const double bHigh = 0.5 * (1 + rule.point[4][2]);
    const double determinant = aLow * bHigh - aHigh * bLow;
    for (int p = 0; p < 4; ++p) {
        const double x = point[0] / rule.point[p][0];
        const double y = point[1] / rule.point[p][1];
        weights[p] = 0.25 * ((a * bHigh - b * aHigh) / determinant + a / aLow * (x + y + x * y));
    }
    weights[4] = (b * aLow - a * bLow) / determinant;
}

void shc_Interpolant::PointWeights(const double* point, double* weights) const
{
    if (m_rule.count == 1) {
        weights[0] = 1;
        return;
    }
    switch (m_cell->Kind()) {
    case shc_Cell::TRIANGLE6:
    case shc_Cell::TET10:
        simplexWeights(m_rule, m_cell->Dimension(), point, weights);
        return;
    case shc_Cell::PYRAMID5:
        pyramidWeights(m_rule, point, weights);
        return;
    default:
        break;
    }
    double factor[3][3];
    int count[3] = {1, 1, 1};
    factor[0][0] = factor[1][0] = factor[2][0] = 1;
    if (m_cell->ShapeCode() == shc_Cell::IRREGULAR) {
        // A wedge: the triangle takes the place of the first direction.
        count[0] = m_rule.count / m_gauss;
        if (count[0] == 3) simplexWeights(m_rule, 2, point, factor[0]);
        count[2] = m_gauss;
        lagrange(m_gauss, point[2], factor[2]);
    } else {
        for (int k = 0; k < m_cell->Dimension(); ++k) {
            count[k] = m_gauss;
            lagrange(m_gauss, point[k], factor[k]);
        }
    }
    for (int z = 0; z < count[2]; ++z)
        for (int y = 0; y < count[1]; ++y)
            for (int x = 0; x < count[0]; ++x) *weights++ = factor[0][x] * factor[1][y] * factor[2][z];
}

void shc_Interpolant::buildMatrices()
{
    const int points = m_rule.count;
    const int nodes = m_cell->NumNodes();
    for (int node = 0; node < nodes; ++node)
        PointWeights(m_cell->NodeCoordinates(node), m_pointsToNodes + node * points);
    for (int p = 0; p < points; ++p) m_cell->ShapeFunctions(m_rule.point[p], m_nodesToPoints + p * nodes);
    for (int face = 0; face < m_cell->NumFaces(); ++face) {
        double centre[3];
        m_cell->FaceCentre(face, centre);
        PointWeights(centre, m_pointsToFaces + face * points);
        m_cell->ShapeFunctions(centre, m_nodesToFaces + face * nodes);
    }
    PointWeights(m_cell->Centroid(), m_pointsToCentroid);
    m_cell->ShapeFunctions(m_cell->Centroid(), m_nodesToCentroid);
}
