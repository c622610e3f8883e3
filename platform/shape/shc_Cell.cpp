#include "platform/shape/shc_Cell.h"

#include <algorithm>

namespace {

// A face of the full quadratic cell: corners, middle nodes, centre. Cells of lower order take a part of it.
struct FullFace
{
    int corners;
    int node[shc_Cell::MAX_FACE_NODES];
};

struct Base
{
    shc_Cell::ShapeCodeEnm shapeCode;
    int dimension;
    int numCorners;
    double corner[8][3];
    double centroid[3];
    int numEdges;
    int edge[shc_Cell::MAX_EDGES][2];
    int numFaces;
    FullFace face[shc_Cell::MAX_FACES];
};

constexpr double third = 1.0 / 3.0;

constexpr Base pointBase = {shc_Cell::POINT, 0, 1, {{0, 0, 0}}, {0, 0, 0}, 0, {}, 0, {}};

constexpr Base lineBase = {shc_Cell::LINE, 1, 2, {{-1, 0, 0}, {1, 0, 0}}, {0, 0, 0}, 1, {{0, 1}}, 1, {{2, {0, 1, 2}}}};

constexpr Base triangleBase = {shc_Cell::TRIANGLE,
                               2,
                               3,
                               {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}},
                               {third, third, 0},
                               3,
                               {{0, 1}, {1, 2}, {2, 0}},
                               1,
                               {{3, {0, 1, 2, 3, 4, 5}}}};

constexpr Base quadBase = {shc_Cell::QUADRILATERAL,
                           2,
                           4,
                           {{-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0}},
                           {0, 0, 0},
                           4,
                           {{0, 1}, {1, 2}, {2, 3}, {3, 0}},
                           1,
                           {{4, {0, 1, 2, 3, 4, 5, 6, 7, 8}}}};

// Middle nodes 8 to 19 lie on edges 0 to 11; 20 to 25 on the faces -xi, +xi, -eta, +eta, -zeta, +zeta.
constexpr Base hexBase = {
    shc_Cell::HEXAHEDRON,
    3,
    8,
    {{-1, -1, -1}, {1, -1, -1}, {1, 1, -1}, {-1, 1, -1}, {-1, -1, 1}, {1, -1, 1}, {1, 1, 1}, {-1, 1, 1}},
    {0, 0, 0},
    12,
    {{0, 1}, {1, 2}, {2, 3}, {3, 0}, {4, 5}, {5, 6}, {6, 7}, {7, 4}, {0, 4}, {1, 5}, {2, 6}, {3, 7}},
    6,
    {{4, {0, 1, 5, 4, 8, 17, 12, 16, 22}},
     {4, {1, 2, 6, 5, 9, 18, 13, 17, 21}},
     {4, {2, 3, 7, 6, 10, 19, 14, 18, 23}},
     {4, {0, 4, 7, 3, 16, 15, 19, 11, 20}},
     {4, {0, 3, 2, 1, 11, 10, 9, 8, 24}},
     {4, {4, 5, 6, 7, 12, 13, 14, 15, 25}}}};

// Middle nodes 6 to 14 lie on edges 0 to 8; 15 to 17 on the faces of corners (0 1 4 3), (1 2 5 4), (2 0 3 5).
constexpr Base wedgeBase = {shc_Cell::IRREGULAR,
                            3,
                            6,
                            {{0, 0, -1}, {1, 0, -1}, {0, 1, -1}, {0, 0, 1}, {1, 0, 1}, {0, 1, 1}},
                            {third, third, 0},
                            9,
                            {{0, 1}, {1, 2}, {2, 0}, {3, 4}, {4, 5}, {5, 3}, {0, 3}, {1, 4}, {2, 5}},
                            5,
                            {{4, {0, 1, 4, 3, 6, 13, 9, 12, 15}},
                             {4, {1, 2, 5, 4, 7, 14, 10, 13, 16}},
                             {4, {0, 3, 5, 2, 12, 11, 14, 8, 17}},
                             {3, {0, 2, 1, 8, 7, 6}},
                             {3, {3, 4, 5, 9, 10, 11}}}};

constexpr Base tetBase = {
    shc_Cell::TETRAHEDRON,
    3,
    4,
    {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}},
    {0.25, 0.25, 0.25},
    6,
    {{0, 1}, {1, 2}, {2, 0}, {0, 3}, {1, 3}, {2, 3}},
    4,
    {{3, {0, 1, 3, 4, 8, 7}}, {3, {1, 2, 3, 5, 9, 8}}, {3, {0, 3, 2, 7, 9, 6}}, {3, {0, 2, 1, 6, 5, 4}}}};

// The centroid lies at a quarter of the height, zeta = -1/2.
constexpr Base pyramidBase = {shc_Cell::IRREGULAR,
                              3,
                              5,
                              {{-1, -1, -1}, {1, -1, -1}, {1, 1, -1}, {-1, 1, -1}, {0, 0, 1}},
                              {0, 0, -0.5},
                              8,
                              {{0, 1}, {1, 2}, {2, 3}, {3, 0}, {0, 4}, {1, 4}, {2, 4}, {3, 4}},
                              5,
                              {{3, {0, 1, 4}}, {3, {1, 2, 4}}, {3, {2, 3, 4}}, {3, {0, 4, 3}}, {4, {0, 3, 2, 1}}}};

struct Definition
{
    const Base* base;
    int order;
    int numNodes;
};

constexpr Definition definitions[shc_Cell::NUM_KINDS] = {
    {&pointBase, 1, 1}, {&lineBase, 1, 2},   {&lineBase, 2, 3},   {&triangleBase, 1, 3}, {&triangleBase, 2, 6},
    {&quadBase, 1, 4},  {&quadBase, 2, 8},   {&quadBase, 3, 9},   {&hexBase, 1, 8},      {&hexBase, 2, 20},
    {&hexBase, 3, 27},  {&wedgeBase, 1, 6},  {&wedgeBase, 2, 15}, {&wedgeBase, 3, 18},   {&tetBase, 1, 4},
    {&tetBase, 2, 10},  {&pyramidBase, 1, 5}};

} // namespace

struct shc_Cell::Store
{
    shc_Cell cell[NUM_KINDS];

    Store()
    {
        for (int kind = 0; kind < NUM_KINDS; ++kind) cell[kind].build(static_cast<KindEnm>(kind));
    }
};

const shc_Cell& shc_Cell::Get(KindEnm kind)
{
    static const Store store;
    return store.cell[kind];
}

void shc_Cell::build(KindEnm kind)
{
    const Definition& definition = definitions[kind];
    const Base& base = *definition.base;
    m_kind = kind;
    m_shapeCode = base.shapeCode;
    m_order = definition.order;
    m_dimension = base.dimension;
    m_numNodes = definition.numNodes;
    m_numCorners = base.numCorners;
    m_numEdges = base.numEdges;
    m_numFaces = base.numFaces;
    for (int k = 0; k < 3; ++k) {
        m_centroid[k] = base.centroid[k];
        for (int node = 0; node < m_numCorners; ++node) m_coordinates[node][k] = base.corner[node][k];
        // The node at the very centre, where a cell has one, is the last; it keeps its zeros otherwise.
        if (m_numNodes > m_numCorners && m_order == 3 && m_shapeCode != IRREGULAR)
            m_coordinates[m_numNodes - 1][k] = base.centroid[k];
    }
    for (int i = 0; i < m_numEdges; ++i) {
        Side& edge = m_edge[i];
        edge.corners = 2;
        edge.nodes = m_order > 1 ? 3 : 2;
        edge.node[0] = base.edge[i][0];
        edge.node[1] = base.edge[i][1];
        if (m_order > 1) {
            edge.node[2] = m_numCorners + i;
            for (int k = 0; k < 3; ++k)
                m_coordinates[edge.node[2]][k] =
                    0.5 * (m_coordinates[edge.node[0]][k] + m_coordinates[edge.node[1]][k]);
        }
    }
    for (int i = 0; i < m_numFaces; ++i) {
        Side& face = m_face[i];
        const FullFace& full = base.face[i];
        const int sides = full.corners == 2 ? 1 : full.corners;
        const bool centre = m_order == 3 && full.corners == 4;
        face.corners = full.corners;
        face.nodes = full.corners + (m_order > 1 ? sides : 0) + (centre ? 1 : 0);
        std::copy_n(full.node, face.nodes, face.node);
        if (centre && m_dimension == 3) {
            for (int k = 0; k < 3; ++k) {
                double sum = 0;
                for (int c = 0; c < face.corners; ++c) sum += m_coordinates[face.node[c]][k];
                m_coordinates[face.node[face.nodes - 1]][k] = sum / face.corners;
            }
        }
    }
}

int shc_Cell::NumEdgesOfFace(int face) const { return m_face[face].corners == 2 ? 1 : m_face[face].corners; }

shc_Cell::Side shc_Cell::EdgeOfFace(int face, int edge) const
{
    const Side& whole = m_face[face];
    Side side;
    side.corners = 2;
    side.nodes = m_order > 1 ? 3 : 2;
    side.node[0] = whole.node[edge];
    side.node[1] = whole.node[(edge + 1) % whole.corners];
    if (m_order > 1) side.node[2] = whole.node[whole.corners + edge];
    return side;
}

void shc_Cell::FaceCentre(int face, double* point) const
{
    static constexpr double middle[2] = {0, 0};
    static constexpr double triangleMiddle[2] = {third, third};
    PointOnFace(face, m_face[face].corners == 3 ? triangleMiddle : middle, point);
}

void shc_Cell::PointOnFace(int face, const double* facePoint, double* point) const
{
    pointOnSide(m_face[face], facePoint, point);
}

void shc_Cell::PointOnEdge(int edge, double edgePoint, double* point) const
{
    pointOnSide(m_edge[edge], &edgePoint, point);
}

void shc_Cell::pointOnSide(const Side& side, const double* sidePoint, double* point) const
{
    const KindEnm sideKind = side.corners == 2 ? LINE2 : side.corners == 3 ? TRIANGLE3 : QUAD4;
    double weight[4];
    Get(sideKind).ShapeFunctions(sidePoint, weight);
    // Natural coordinates of a pyramid are straight only after the shrinking is undone, so the sum is taken
    // in the straight cell: x = xi (1 - zeta) / 2.
    const bool shrunk = m_kind == PYRAMID5;
    double sum[3] = {0, 0, 0};
    for (int c = 0; c < side.corners; ++c) {
        const double* corner = m_coordinates[side.node[c]];
        const double shrink = shrunk ? 0.5 * (1 - corner[2]) : 1;
        sum[0] += weight[c] * corner[0] * shrink;
        sum[1] += weight[c] * corner[1] * shrink;
        sum[2] += weight[c] * corner[2];
    }
    const double width = shrunk ? 0.5 * (1 - sum[2]) : 1;
    point[0] = width > 0 ? sum[0] / width : 0;
    point[1] = width > 0 ? sum[1] / width : 0;
    point[2] = sum[2];
}
