#include "platform/shape/shc_Topology.h"

#include <algorithm>

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
    for (int facet = 0; facet < shc_Cell::MAX_FACES; ++facet)
        most = std::max(most, NumIntegrationPointsOnFace(facet));
    return most;
}

static int pick(const shc_Cell::Side& side, const int* nodes, int* out)
{
    for (int i = 0; i < side.nodes; ++i)
        out[i] = nodes[side.node[i]];
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

bool shc_Topology::IsConnector(std::string_view label)
{
    return label.find("CONN") != std::string_view::npos;
}

bool shc_Topology::IsRigidNode(std::string_view label)
{
    return label == "RNODE2D" || label == "RNODE3D";
}

bool shc_Topology::IsAnalytic(std::string_view label)
{
    return label.find("ARS") != std::string_view::npos;
}

bool shc_Topology::IsShellLike(std::string_view label)
{
    return !label.empty() && std::string_view("SsMm").find(label.front()) != std::string_view::npos;
}
