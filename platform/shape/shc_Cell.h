#ifndef SHC_CELL_H
#define SHC_CELL_H

/// The geometry of an element type: nodes, edges, faces and shape functions of one reference cell.
///
/// Natural coordinates: lines, quadrilaterals and hexahedra run from -1 to +1 in each direction; triangles
/// use (r, s) with corners (0,0), (1,0), (0,1); tetrahedra (r, s, t) likewise; wedges a triangle's (r, s) and
/// zeta from -1 to +1. A pyramid is a hexahedron whose top is shrunk to a point: xi, eta, zeta from -1 to +1,
/// the apex at zeta = 1, where xi and eta do not matter.
///
/// Cells are made once per process, never change and are never destroyed before the process ends, so
/// references to them and to anything inside stay good and may be used by any thread.
class shc_Cell
{
public:
    enum KindEnm
    {
        POINT1,
        LINE2,
        LINE3,
        TRIANGLE3,
        TRIANGLE6,
        QUAD4,
        QUAD8,
        QUAD9,
        HEX8,
        HEX20,
        HEX27,
        WEDGE6,
        WEDGE15,
        WEDGE18,
        TET4,
        TET10,
        PYRAMID5,
        NUM_KINDS
    };

    /// What the corners alone form. IRREGULAR stands for wedges and pyramids: their faces differ.
    enum ShapeCodeEnm
    {
        POINT = 0,
        LINE = 1,
        TRIANGLE = 2,
        QUADRILATERAL = 3,
        TETRAHEDRON = 4,
        HEXAHEDRON = 5,
        IRREGULAR = 7
    };

    static constexpr int MAX_NODES = 27;
    static constexpr int MAX_FACES = 6;
    static constexpr int MAX_EDGES = 12;
    static constexpr int MAX_FACE_NODES = 9;

    /// Node positions of one face or edge: corners in order, then the middle nodes of the sides in the same
    /// order (the first between corners 0 and 1), then the node at the centre.
    struct Side
    {
        int corners = 0;
        int nodes = 0;
        int node[MAX_FACE_NODES] = {};
    };

    static const shc_Cell& Get(KindEnm kind);

    KindEnm Kind() const { return m_kind; }
    ShapeCodeEnm ShapeCode() const { return m_shapeCode; }
    int Dimension() const { return m_dimension; }
    int NumNodes() const { return m_numNodes; }
    int NumCorners() const { return m_numCorners; }
    int NumEdges() const { return m_numEdges; }
    int NumFaces() const { return m_numFaces; }
    bool IsQuadratic() const { return m_order > 1; }

    /// Face of the cell, 0 based. Solids: in Exodus II side order, outward by the right hand. A line or a
    /// plane cell has the one face 0, which is the cell itself; a point has none.
    const Side& Face(int face) const { return m_face[face]; }
    /// Edge of the cell, 0 based, in the order of the middle nodes of the quadratic cell.
    const Side& Edge(int edge) const { return m_edge[edge]; }
    /// Edge of a face: between its corners `edge` and `edge` + 1, followed by the node between them if any.
    Side EdgeOfFace(int face, int edge) const;
    int NumEdgesOfFace(int face) const;

    /// Natural coordinates of a node: three numbers, unused ones 0.
    const double* NodeCoordinates(int node) const { return m_coordinates[node]; }
    /// Natural coordinates of the centroid of the cell with straight sides.
    const double* Centroid() const { return m_centroid; }
    /// Natural coordinates of the middle of a face: the mean of its corners.
    void FaceCentre(int face, double* point) const;
    /// Natural coordinates of a point of a face, given in the face's own natural coordinates (which follow
    /// the node order of the face).
    void PointOnFace(int face, const double* facePoint, double* point) const;
    void PointOnEdge(int edge, double edgePoint, double* point) const;

    /// Shape functions at a point: NumNodes() values.
    void ShapeFunctions(const double* point, double* values) const;
    /// Their derivatives by the natural coordinates: node * 3 + direction, unused directions 0.
    void Derivatives(const double* point, double* derivatives) const;

    shc_Cell(const shc_Cell&) = delete;
    shc_Cell& operator=(const shc_Cell&) = delete;

private:
    struct Store;

    shc_Cell() = default;
    void build(KindEnm kind);
    void pointOnSide(const Side& side, const double* sidePoint, double* point) const;

    KindEnm m_kind = POINT1;
    ShapeCodeEnm m_shapeCode = POINT;
    int m_order = 1; // 1 corners alone, 2 with middle nodes of edges, 3 with centres of quadrilaterals too
    int m_dimension = 0;
    int m_numNodes = 0;
    int m_numCorners = 0;
    int m_numEdges = 0;
    int m_numFaces = 0;
    Side m_face[MAX_FACES];
    Side m_edge[MAX_EDGES];
    double m_coordinates[MAX_NODES][3] = {};
    double m_centroid[3] = {};
};

#endif
