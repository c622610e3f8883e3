#ifndef SHC_INTERPOLANT_H
#define SHC_INTERPOLANT_H

#include "platform/shape/shc_Rule.h"

/// A cell together with an integration rule: everything that all element types of one cell and one rule have
/// in common. Made once per process, in double precision, and never changed.
class shc_Interpolant
{
public:
    enum CodeEnm
    {
        POINT1,
        LINE2,
        LINE3,
        TRIANGLE3,
        TRIANGLE6,
        QUAD4,
        QUAD4R,
        QUAD8,
        QUAD8R,
        QUAD9,
        QUAD9R,
        HEX8,
        HEX8R,
        HEX20,
        HEX20R,
        HEX27,
        HEX27R,
        WEDGE6,
        WEDGE15,
        WEDGE18,
        TET4,
        TET10,
        PYRAMID5,
        NUM_CODES
    };

    static const shc_Interpolant& Get(CodeEnm code);

    const shc_Cell& Cell() const { return *m_cell; }
    bool IsReduced() const { return m_reduced; }
    /// Integration points of the element.
    const shc_Rule& Rule() const { return m_rule; }
    /// Integration points on a face of a solid; points are in the element's natural coordinates, weights
    /// belong to the face's own. The single face of a line or a plane cell has the element's own points.
    const shc_Rule& FaceRule(int face) const { return m_faceRule[face]; }
    /// The same on an edge.
    const shc_Rule& EdgeRule(int edge) const { return m_edgeRule[edge]; }

    /// Weights of the integration points in the value at a point of the element: the polynomial through the
    /// integration points. Products of one-dimensional Lagrange polynomials for Gauss products, linear
    /// through three points of a triangle and four of a tetrahedron, constant for one point, and for a
    /// pyramid the combination of its five shape functions that takes the values of its five points.
    void PointWeights(const double* point, double* weights) const;

    /// These weights at the nodes: NumNodes rows of Rule().count numbers.
    const double* PointsToNodes() const { return m_pointsToNodes; }
    /// At the centres of the faces: NumFaces rows of Rule().count numbers.
    const double* PointsToFaces() const { return m_pointsToFaces; }
    /// At the centroid: Rule().count numbers.
    const double* PointsToCentroid() const { return m_pointsToCentroid; }
    /// Shape functions at the integration points: Rule().count rows of NumNodes numbers.
    const double* NodesToPoints() const { return m_nodesToPoints; }
    /// Shape functions at the centres of the faces: NumFaces rows of NumNodes numbers.
    const double* NodesToFaces() const { return m_nodesToFaces; }
    /// Shape functions at the centroid: NumNodes numbers.
    const double* NodesToCentroid() const { return m_nodesToCentroid; }

    shc_Interpolant(const shc_Interpolant&) = delete;
    shc_Interpolant& operator=(const shc_Interpolant&) = delete;

private:
    struct Store;

    shc_Interpolant() = default;
    void build(CodeEnm code);
    void buildRules();
    void buildMatrices();

    const shc_Cell* m_cell = nullptr;
    bool m_reduced = false;
    int m_gauss = 1;
    shc_Rule m_rule;
    shc_Rule m_faceRule[shc_Cell::MAX_FACES];
    shc_Rule m_edgeRule[shc_Cell::MAX_EDGES];
    double m_pointsToNodes[shc_Cell::MAX_NODES * shc_Rule::MAX_POINTS] = {};
    double m_pointsToFaces[shc_Cell::MAX_FACES * shc_Rule::MAX_POINTS] = {};
    double m_pointsToCentroid[shc_Rule::MAX_POINTS] = {};
    double m_nodesToPoints[shc_Rule::MAX_POINTS * shc_Cell::MAX_NODES] = {};
    double m_nodesToFaces[shc_Cell::MAX_FACES * shc_Cell::MAX_NODES] = {};
    double m_nodesToCentroid[shc_Cell::MAX_NODES] = {};
};

#endif
