#include "platform/shape/shc_Topology.h"

#include <algorithm>
#include <cstddef>

const shc_Rule* shc_Topology::FacetRule(int facet) const
{
    if (facet < 0) return nullptr;
    const bool onEdges = Dimension() == 2 && SpaceDimension() == 2;
    if (onEdges) return facet < NumEdges() ? &m_interpolant->EdgeRule(facet) : nullptr;
    if (Dimension() == 3) return facet < NumFaces() ? &m_interpolant->FaceRule(facet) : nullptr;
    // Shells and lines: the upper, the lower or both sides; beams by their ends. All have the element's
    // points.
    return Dimension() > 0 ? &Rule() : nullptr;
}

int shc_Topology::NumIntegrationPointsOnFace(int facet) const
{
    const shc_Rule* rule = FacetRule(facet);
    return rule ? rule->count : 0;
}

int shc_Topology::MaxIntegrationPointsPerFace() const
{
    int most = 0;
    for (int facet = 0; facet < shc_Cell::MAX_FACES; ++facet) most = std::max(most, NumIntegrationPointsOnFace(facet));
    return most;
}

static int pick(const shc_Cell::Side& side, const int* nodes, int* out)
{
    for (int i = 0; i < side.nodes; ++i) out[i] = nodes[side.node[i]];
    return side.nodes;
}

int shc_Topology::FaceConnectivity(const shc_Topology& shape, const int* nodes, int face, int* out)
{
    if (face < 0 || face >= shape.NumFaces()) return 0;
    return pick(shape.Face(face), nodes, out);
}

int shc_Topology::EdgeConnectivity(const shc_Topology& shape, const int* nodes, int face, int edge, int* out)
{
    if (face < 0 || face >= shape.NumFaces()) return 0;
    if (edge < 0 || edge >= shape.Cell().NumEdgesOfFace(face)) return 0;
    return pick(shape.Cell().EdgeOfFace(face, edge), nodes, out);
}

bool shc_Topology::Is3DShell(const shc_Topology& shape)
{
    return shape.Dimension() == 2 && shape.SpaceDimension() == 3;
}

bool shc_Topology::IsConnector(std::string_view label) { return label.find("CONN") != std::string_view::npos; }

bool shc_Topology::IsRigidNode(std::string_view label) { return label == "RNODE2D" || label == "RNODE3D"; }

bool shc_Topology::IsAnalytic(std::string_view label) { return label.find("ARS") != std::string_view::npos; }

bool shc_Topology::IsShellLike(std::string_view label)
{
    return !label.empty() && std::string_view("SsMm").find(label.front()) != std::string_view::npos;
}

// out[e][row][c] = sum over p of matrix[row][p] * in[e][p][c], the same sum, in the same order, on both ways.
template<class Real>
static void applyMatrix(const double* matrix, int rows, int columns, const Real* in, Real* out, int components,
                        int elements)
{
    // Elements and components alike are lanes: several go side by side, so that the inner loop has a fixed
    // length and adds nothing across lanes.
    constexpr int lanes = 8;
    constexpr int most = std::max(shc_Cell::MAX_NODES, shc_Rule::MAX_POINTS);
    const std::size_t total = std::size_t(elements) * components;
    std::size_t first = 0;
    if (total >= lanes / 2) {
        double gathered[most][lanes] = {};
        for (; first < total; first += lanes) {
            const int width = static_cast<int>(std::min<std::size_t>(lanes, total - first));
            std::size_t target[lanes];
            std::size_t element = first / components;
            std::size_t component = first % components;
            for (int lane = 0; lane < width; ++lane) {
                target[lane] = element * rows * components + component;
                const Real* source = in + element * columns * components + component;
                for (int p = 0; p < columns; ++p) gathered[p][lane] = source[std::size_t(p) * components];
                if (++component == std::size_t(components)) {
                    component = 0;
                    ++element;
                }
            }
            for (int row = 0; row < rows; ++row) {
                double sum[lanes] = {};
                for (int p = 0; p < columns; ++p) {
                    const double factor = matrix[row * columns + p];
                    for (int lane = 0; lane < lanes; ++lane) sum[lane] += factor * gathered[p][lane];
                }
                for (int lane = 0; lane < width; ++lane)
                    out[target[lane] + std::size_t(row) * components] = static_cast<Real>(sum[lane]);
            }
        }
        return;
    }
    for (; first < total; ++first) {
        const std::size_t element = first / components;
        const std::size_t component = first % components;
        for (int row = 0; row < rows; ++row) {
            double sum = 0;
            const Real* source = in + element * columns * components + component;
            for (int p = 0; p < columns; ++p) sum += matrix[row * columns + p] * source[std::size_t(p) * components];
            out[(element * rows + row) * components + component] = static_cast<Real>(sum);
        }
    }
}

template<class Real>
bool shc_Topology::move(const double* fromPoints, const double* fromNodes, int rows, const Real* values, int position,
                        Real* out, int components, int elements) const
{
    if (!AllowsExtrapolation()) return false;
    switch (position) {
    case INTEGRATION_POINT:
        applyMatrix(fromPoints, rows, NumIntegrationPoints(), values, out, components, elements);
        return true;
    case ELEMENT_NODAL:
        if (fromNodes) applyMatrix(fromNodes, rows, NumNodes(), values, out, components, elements);
        else std::copy_n(values, std::size_t(elements) * rows * components, out);
        return true;
    case WHOLE_ELEMENT:
    case CENTROID:
        for (int e = 0; e < elements; ++e)
            for (int row = 0; row < rows; ++row)
                out = std::copy_n(values + std::size_t(e) * components, components, out);
        return true;
    default:
        return false;
    }
}

template<class Real>
bool shc_Topology::StdExtrapToNodes(const Real* values, int position, Real* out, int components, int elements) const
{
    return move(m_interpolant->PointsToNodes(), nullptr, NumNodes(), values, position, out, components, elements);
}

template<class Real>
bool shc_Topology::CaxaExtrapToNodes(const Real* values, int position, Real* out, int components, int elements) const
{
    return StdExtrapToNodes(values, position, out, components, elements);
}

template<class Real>
bool shc_Topology::ExtrapolateToFaces(const Real* values, int position, Real* out, int components, int elements) const
{
    return move(m_interpolant->PointsToFaces(), m_interpolant->NodesToFaces(), NumFaces(), values, position, out,
                components, elements);
}

template<class Real>
bool shc_Topology::ExtrapolateToCentroid(const Real* values, int position, Real* out, int components,
                                         int elements) const
{
    return move(m_interpolant->PointsToCentroid(), m_interpolant->NodesToCentroid(), 1, values, position, out,
                components, elements);
}

template<class Real>
Real shc_Topology::InterpolateResultFromNodes(const Real* nodalValues, const float* point, Real unavailable) const
{
    if (!AllowsExtrapolation()) return unavailable;
    const double place[3] = {point[0], point[1], point[2]};
    double shape[shc_Cell::MAX_NODES];
    Cell().ShapeFunctions(place, shape);
    double sum = 0;
    for (int node = 0; node < NumNodes(); ++node) sum += shape[node] * nodalValues[node];
    return static_cast<Real>(sum);
}

void shc_Topology::IsoParCentroidLocation(float* out) const
{
    for (int k = 0; k < 3; ++k) out[k] = static_cast<float>(Cell().Centroid()[k]);
}

template<class Real> void shc_Topology::IntPtCoord(const Real* nodes, Real* out, int components) const
{
    applyMatrix(m_interpolant->NodesToPoints(), NumIntegrationPoints(), NumNodes(), nodes, out, components, 1);
}

template<class Real> void shc_Topology::Centroid(const Real* nodes, Real* out, int components) const
{
    applyMatrix(m_interpolant->NodesToCentroid(), 1, NumNodes(), nodes, out, components, 1);
}

#define SHC_INSTANTIATE(Real)                                                                                          \
    template bool shc_Topology::StdExtrapToNodes(const Real*, int, Real*, int, int) const;                             \
    template bool shc_Topology::CaxaExtrapToNodes(const Real*, int, Real*, int, int) const;                            \
    template bool shc_Topology::ExtrapolateToFaces(const Real*, int, Real*, int, int) const;                           \
    template bool shc_Topology::ExtrapolateToCentroid(const Real*, int, Real*, int, int) const;                        \
    template Real shc_Topology::InterpolateResultFromNodes(const Real*, const float*, Real) const;                     \
    template void shc_Topology::IntPtCoord(const Real*, Real*, int) const;                                             \
    template void shc_Topology::Centroid(const Real*, Real*, int) const

SHC_INSTANTIATE(float);
SHC_INSTANTIATE(double);

#undef SHC_INSTANTIATE
