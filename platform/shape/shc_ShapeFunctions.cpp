// Shape functions of all cells and their derivatives by natural coordinates.
#include "platform/shape/shc_Cell.h"

namespace {

// One-dimensional factor of the node at s (-1, 0 or +1): value and slope at x.
struct Factor
{
    double value = 1;
    double slope = 0;
};

Factor linear(double s, double x) { return {0.5 * (1 + s * x), 0.5 * s}; }

Factor quadratic(double s, double x)
{
    if (s == 0) return {1 - x * x, -2 * x};
    return {0.5 * x * (x + s), x + 0.5 * s};
}

// What a node contributes: value and the derivatives in three directions.
struct Term
{
    double value = 0;
    double slope[3] = {0, 0, 0};
};

Term product(const Factor* factor, int dimension)
{
    Term term;
    term.value = 1;
    for (int k = 0; k < dimension; ++k) term.value *= factor[k].value;
    for (int k = 0; k < dimension; ++k) {
        term.slope[k] = factor[k].slope;
        for (int j = 0; j < dimension; ++j)
            if (j != k) term.slope[k] *= factor[j].value;
    }
    return term;
}

Term tensorTerm(const double* node, const double* x, int dimension, Factor (*rule)(double, double))
{
    Factor factor[3];
    for (int k = 0; k < dimension; ++k) factor[k] = rule(node[k], x[k]);
    return product(factor, dimension);
}

// Quadrilateral of 8, hexahedron of 20: no node inside a face or the cell.
Term serendipityTerm(const double* node, const double* x, int dimension)
{
    Factor factor[3];
    bool corner = true;
    double reach = 1 - dimension;
    for (int k = 0; k < dimension; ++k) {
        corner = corner && node[k] != 0;
        factor[k] = node[k] == 0 ? quadratic(0, x[k]) : linear(node[k], x[k]);
        reach += node[k] * x[k];
    }
    Term term = product(factor, dimension);
    if (corner) {
        for (int k = 0; k < dimension; ++k) term.slope[k] = term.slope[k] * reach + term.value * node[k];
        term.value *= reach;
    }
    return term;
}

// Barycentric coordinates of triangles and tetrahedra.
struct Barycentric
{
    double value[4];
    double slope[4][3];

    Barycentric(const double* x, int dimension)
    {
        value[0] = 1;
        for (int k = 0; k < 3; ++k) slope[0][k] = k < dimension ? -1 : 0;
        for (int i = 1; i <= dimension; ++i) {
            value[0] -= x[i - 1];
            value[i] = x[i - 1];
            for (int k = 0; k < 3; ++k) slope[i][k] = k == i - 1 ? 1 : 0;
        }
    }

    Term linearTerm(int i) const
    {
        Term term;
        term.value = value[i];
        for (int k = 0; k < 3; ++k) term.slope[k] = slope[i][k];
        return term;
    }

    Term cornerTerm(int i) const
    {
        Term term;
        term.value = value[i] * (2 * value[i] - 1);
        for (int k = 0; k < 3; ++k) term.slope[k] = (4 * value[i] - 1) * slope[i][k];
        return term;
    }

    Term middleTerm(int i, int j) const
    {
        Term term;
        term.value = 4 * value[i] * value[j];
        for (int k = 0; k < 3; ++k) term.slope[k] = 4 * (slope[i][k] * value[j] + value[i] * slope[j][k]);
        return term;
    }
};

// A triangle's function times one of zeta.
Term raised(const Term& triangle, const Factor& zeta)
{
    Term term;
    term.value = triangle.value * zeta.value;
    term.slope[0] = triangle.slope[0] * zeta.value;
    term.slope[1] = triangle.slope[1] * zeta.value;
    term.slope[2] = triangle.value * zeta.slope;
    return term;
}

Term simplexTerm(const shc_Cell& cell, const Barycentric& bary, int node)
{
    if (!cell.IsQuadratic()) return bary.linearTerm(node);
    if (node < cell.NumCorners()) return bary.cornerTerm(node);
    const shc_Cell::Side& edge = cell.Edge(node - cell.NumCorners());
    return bary.middleTerm(edge.node[0], edge.node[1]);
}

// The triangle's node over which a corner or an edge node of the wedge stands.
Term wedgeTriangleTerm(const shc_Cell& cell, const Barycentric& bary, int node)
{
    if (node < 6) return bary.cornerTerm(node % 3);
    const shc_Cell::Side& edge = cell.Edge(node - 6);
    const int i = edge.node[0] % 3;
    const int j = edge.node[1] % 3;
    return i == j ? bary.cornerTerm(i) : bary.middleTerm(i, j);
}

Term wedgeTerm(const shc_Cell& cell, const Barycentric& bary, double x, int node)
{
    const double s = cell.NodeCoordinates(node)[2];
    switch (cell.Kind()) {
    case shc_Cell::WEDGE6:
        return raised(bary.linearTerm(node % 3), linear(s, x));
    case shc_Cell::WEDGE18:
        if (node >= 15) {
            const shc_Cell::Side& face = cell.Face(node - 15);
            // Two of the four corners lie below; the node stands over the middle between them.
            int below[2] = {0, 0};
            int found = 0;
            for (int c = 0; c < face.corners; ++c)
                if (face.node[c] < 3) below[found++] = face.node[c];
            return raised(bary.middleTerm(below[0], below[1]), quadratic(s, x));
        }
        return raised(wedgeTriangleTerm(cell, bary, node), quadratic(s, x));
    default:
        break;
    }
    if (node >= 12) return raised(bary.linearTerm(node - 12), quadratic(0, x));
    if (node >= 6) return raised(wedgeTriangleTerm(cell, bary, node), linear(s, x));
    // A corner of 15: the quadratic triangle times the linear factor, less half of the node above it.
    Term term = raised(bary.cornerTerm(node % 3), linear(s, x));
    const Term above = raised(bary.linearTerm(node % 3), quadratic(0, x));
    term.value -= 0.5 * above.value;
    for (int k = 0; k < 3; ++k) term.slope[k] -= 0.5 * above.slope[k];
    return term;
}

Term pyramidTerm(const double* node, const double* x, int index)
{
    if (index < 4) return tensorTerm(node, x, 3, linear);
    Term term;
    term.value = 0.5 * (1 + x[2]);
    term.slope[2] = 0.5;
    return term;
}

template<class Take> void forEachTerm(const shc_Cell& cell, const double* x, Take take)
{
    const int dimension = cell.Dimension();
    const double none[3] = {0, 0, 0};
    const bool wedge = cell.Kind() >= shc_Cell::WEDGE6 && cell.Kind() <= shc_Cell::WEDGE18;
    const Barycentric bary(dimension == 0 ? none : x, wedge ? 2 : dimension);
    for (int node = 0; node < cell.NumNodes(); ++node) {
        const double* s = cell.NodeCoordinates(node);
        switch (cell.Kind()) {
        case shc_Cell::POINT1: {
            Term one;
            one.value = 1;
            take(node, one);
            break;
        }
        case shc_Cell::LINE2:
        case shc_Cell::QUAD4:
        case shc_Cell::HEX8:
            take(node, tensorTerm(s, x, dimension, linear));
            break;
        case shc_Cell::LINE3:
        case shc_Cell::QUAD9:
        case shc_Cell::HEX27:
            take(node, tensorTerm(s, x, dimension, quadratic));
            break;
        case shc_Cell::QUAD8:
        case shc_Cell::HEX20:
            take(node, serendipityTerm(s, x, dimension));
            break;
        case shc_Cell::PYRAMID5:
            take(node, pyramidTerm(s, x, node));
            break;
        default:
            take(node, wedge ? wedgeTerm(cell, bary, x[2], node) : simplexTerm(cell, bary, node));
            break;
        }
    }
}

} // namespace

void shc_Cell::ShapeFunctions(const double* point, double* values) const
{
    forEachTerm(*this, point, [values](int node, const Term& term) { values[node] = term.value; });
}

void shc_Cell::Derivatives(const double* point, double* derivatives) const
{
    forEachTerm(*this, point, [derivatives](int node, const Term& term) {
        for (int k = 0; k < 3; ++k) derivatives[3 * node + k] = term.slope[k];
    });
}
