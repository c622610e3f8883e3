#ifndef SHC_TOPOLOGY_H
#define SHC_TOPOLOGY_H

#include "platform/shape/shc_Interpolant.h"

#include <string_view>

/// One element type: what its label says about nodes, edges, faces, dimensions and integration points.
///
/// Topologies are made once per process and never change; pointers to them stay good until the process ends
/// and may be shared between threads. shc_ShapeDictionary finds them by label.
class shc_Topology
{
public:
    /// Output positions that values can be moved from, in the store's numbering.
    enum PositionEnm
    {
        INTEGRATION_POINT = 2,
        ELEMENT_FACE = 3,
        ELEMENT_NODAL = 4,
        WHOLE_ELEMENT = 5,
        CENTROID = 6
    };

    /// Bits of Attribute().
    enum AttributeEnm
    {
        AXISYMMETRIC_BIT = 1,
        REDUCED_BIT = 2,
        SHELL_BIT = 4,
        CONNECTOR_BIT = 8,
        RIGID_NODE_BIT = 16
    };

    /// Element type label, as in "HEX8R".
    const char* Label() const { return m_label; }
    /// Shape kind, 0 to 14: what geometry classes of elements are mapped from.
    int Family() const { return m_family; }
    /// 0 point, 1 line, 2 triangle, 3 quadrilateral, 4 tetrahedron, 5 hexahedron, 7 wedge or pyramid, whose
    /// faces differ in their number of integration points.
    int ShapeCode() const { return Cell().ShapeCode(); }
    /// Dimension of the element itself: 0 point, 1 line, 2 surface, 3 solid.
    int Dimension() const { return Cell().Dimension(); }
    /// Dimension of the space that it lies in: 2 or 3.
    int SpaceDimension() const { return m_spaceDimension; }
    bool IsAxisymmetric() const { return (m_attribute & AXISYMMETRIC_BIT) != 0; }
    /// One integer that tells types of one cell apart: a sum of AttributeEnm bits.
    int Attribute() const { return m_attribute; }

    int NumNodes() const { return Cell().NumNodes(); }
    int NumCorners() const { return Cell().NumCorners(); }
    /// Edges of the whole element; a line has one, itself.
    int NumEdges() const { return Cell().NumEdges(); }
    /// Faces of a solid. A line, a plane element or a shell has one, itself: the sides of a plane element are
    /// the edges of its face 0. A point has none.
    int NumFaces() const { return Cell().NumFaces(); }
    int NumIntegrationPoints() const { return Rule().count; }

    /// Integration points on one surface facet as surfaces store it: a face of a solid, an edge of an element
    /// in the plane, a side of a shell (its own points). 0 for a facet that the element does not have.
    int NumIntegrationPointsOnFace(int facet) const;
    /// The largest of these over all facets.
    int MaxIntegrationPointsPerFace() const;
    /// The points themselves; null for a facet that the element does not have.
    const shc_Rule* FacetRule(int facet) const;

    /// Node positions: faces corners first, then the middle nodes of their sides, then the centre.
    const shc_Cell::Side& Face(int face) const { return Cell().Face(face); }
    const shc_Cell::Side& Edge(int edge) const { return Cell().Edge(edge); }

    /// Picks what lies on one face out of a list with one entry per node of the element.
    /// @param out  room for shc_Cell::MAX_FACE_NODES entries
    /// @return entries written; 0 when the face does not exist
    static int FaceConnectivity(const shc_Topology& shape, const int* nodes, int face, int* out);
    /// The same for one edge of a face (of face 0 for lines, plane elements and shells): its two ends in the
    /// direction of the face's node order, then the node between them, if any.
    static int EdgeConnectivity(const shc_Topology& shape, const int* nodes, int face, int edge, int* out);

    /// A surface in space: dimension 2 in 3.
    static bool Is3DShell(const shc_Topology& shape);
    bool Is3DShell() const { return Is3DShell(*this); }

    bool IsConnector() const { return IsConnector(m_label); }
    bool IsRigidNode() const { return IsRigidNode(m_label); }
    bool IsShellLike() const { return IsShellLike(m_label); }
    /// The same by label, also for labels that no topology has: "CONN" anywhere in it; "RNODE2D" or
    /// "RNODE3D"; "ARS" anywhere in it; a first letter S, s, M or m.
    static bool IsConnector(std::string_view label);
    static bool IsRigidNode(std::string_view label);
    static bool IsAnalytic(std::string_view label);
    static bool IsShellLike(std::string_view label);

    /// Whether values of the element may be moved between positions. Points, rigid nodes and connectors carry
    /// values that are no field over the element, so theirs may not.
    bool AllowsExtrapolation() const { return m_family != 0 && (m_attribute & CONNECTOR_BIT) == 0; }

    /// Moves values of elements to their nodes.
    /// @param values      element by element, inside it location by location, inside that `components`
    ///                    numbers
    /// @param position    where `values` lie: INTEGRATION_POINT is extrapolated by the polynomial through the
    ///                    points, ELEMENT_NODAL is copied, WHOLE_ELEMENT and CENTROID (one location) spread
    /// @param out         NumNodes() locations per element, same layout; may not overlap `values`
    /// @param elements    elements that follow each other in both arrays
    /// @return false, with `out` untouched, when the type allows no extrapolation or the position is another
    /// Sums run in double precision. Cost per element and component: nodes times points multiplications;
    /// nothing is allocated.
    template<class Real>
    bool StdExtrapToNodes(const Real* values, int position, Real* out, int components, int elements = 1) const;
    /// The same for types with the axisymmetric attribute. Their points and nodes lie in one half plane, so
    /// the polynomial is the same one.
    template<class Real>
    bool CaxaExtrapToNodes(const Real* values, int position, Real* out, int components, int elements = 1) const;
    /// The same to the centres of the faces: NumFaces() locations per element. From ELEMENT_NODAL by the
    /// shape functions.
    template<class Real>
    bool ExtrapolateToFaces(const Real* values, int position, Real* out, int components, int elements = 1) const;
    /// The same to the centroid: one location per element. From INTEGRATION_POINT it is the value there of
    /// the polynomial through the points, which differs from going to the nodes first when an element has
    /// more points than its shape functions can follow.
    template<class Real>
    bool ExtrapolateToCentroid(const Real* values, int position, Real* out, int components, int elements = 1) const;

    /// One component at a point of the element from the values of that component at the nodes, by the shape
    /// functions.
    /// @param point        three natural coordinates
    /// @param unavailable  returned when the type allows no interpolation
    template<class Real>
    Real InterpolateResultFromNodes(const Real* nodalValues, const float* point, Real unavailable) const;
    /// Natural coordinates of the centroid, three numbers.
    void IsoParCentroidLocation(float* out) const;

    /// Positions of the integration points.
    /// @param nodes       node by node `components` coordinates
    /// @param out         point by point `components` coordinates
    template<class Real> void IntPtCoord(const Real* nodes, Real* out, int components) const;
    /// Position of the centroid: `components` coordinates.
    template<class Real> void Centroid(const Real* nodes, Real* out, int components) const;

    const shc_Cell& Cell() const { return m_interpolant->Cell(); }
    const shc_Rule& Rule() const { return m_interpolant->Rule(); }
    const shc_Interpolant& Interpolant() const { return *m_interpolant; }

private:
    template<class Real>
    bool move(const double* fromPoints, const double* fromNodes, int rows, const Real* values, int position, Real* out,
              int components, int elements) const;

    friend class shc_ShapeDictionary;

    const char* m_label = nullptr;
    const shc_Interpolant* m_interpolant = nullptr;
    int m_family = 0;
    int m_spaceDimension = 3;
    int m_attribute = 0;
};

#endif
