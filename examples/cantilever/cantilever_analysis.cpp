// A small but genuine finite-element analysis that writes its results the way a solver does: through the
// public interface alone, increment by increment.
//
//     cantilever_analysis FILE.yld [NX NY NZ]

#include "cantilever.h"
#include "hex8.h"

#include <yld.h>

#include <Eigen/Sparse>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <exception>
#include <numeric>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {

struct Divisions
{
    int x = 60;
    int y = 4;
    int z = 8;
};

// The mesh: nodes and elements are numbered from 1, along x fastest, then y, then z.
class Mesh
{
public:
    explicit Mesh(const Divisions& divisions) : m_n(divisions) {}

    int numNodes() const { return (m_n.x + 1) * (m_n.y + 1) * (m_n.z + 1); }
    int numElements() const { return m_n.x * m_n.y * m_n.z; }

    /// By place, from 0. The axis of the bar is at y = 0, z = 0.
    Eigen::Vector3d node(int index) const
    {
        const int i = index % (m_n.x + 1);
        const int j = index / (m_n.x + 1) % (m_n.y + 1);
        const int k = index / (m_n.x + 1) / (m_n.y + 1);
        return {Cantilever::length * i / m_n.x, Cantilever::width * (static_cast<double>(j) / m_n.y - 0.5),
                Cantilever::height * (static_cast<double>(k) / m_n.z - 0.5)};
    }

    std::array<int, Hex8::numNodes> element(int index) const
    {
        const int i = index % m_n.x;
        const int j = index / m_n.x % m_n.y;
        const int k = index / m_n.x / m_n.y;
        const auto at = [&](int di, int dj, int dk) {
            return i + di + (m_n.x + 1) * (j + dj + (m_n.y + 1) * (k + dk));
        };
        return {at(0, 0, 0), at(1, 0, 0), at(1, 1, 0), at(0, 1, 0), at(0, 0, 1), at(1, 0, 1), at(1, 1, 1), at(0, 1, 1)};
    }

    bool isRoot(int nodeIndex) const { return nodeIndex % (m_n.x + 1) == 0; }
    bool isTip(int nodeIndex) const { return nodeIndex % (m_n.x + 1) == m_n.x; }
    bool isRootElement(int index) const { return index % m_n.x == 0; }
    bool isTipElement(int index) const { return index % m_n.x == m_n.x - 1; }

private:
    Divisions m_n;
};

// The structure: stiffness assembled and factored once, solved for every load.
class Structure
{
public:
    explicit Structure(const Mesh& mesh) : m_mesh(mesh)
    {
        m_freedoms.assign(static_cast<std::size_t>(3 * mesh.numNodes()), -1);
        int count = 0;
        for (int node = 0; node < mesh.numNodes(); ++node)
            if (!mesh.isRoot(node))
                for (int axis = 0; axis < 3; ++axis) m_freedoms[static_cast<std::size_t>(3 * node + axis)] = count++;
        m_count = count;

        std::vector<Eigen::Triplet<double>> entries;
        for (int e = 0; e < mesh.numElements(); ++e) {
            const std::array<int, Hex8::numNodes> nodes = mesh.element(e);
            Hex8::Corners corners;
            for (int n = 0; n < Hex8::numNodes; ++n)
                corners.row(n) = mesh.node(nodes[static_cast<std::size_t>(n)]).transpose();
            const Hex8 element(corners, Cantilever::youngsModulus, Cantilever::poissonsRatio);
            for (int row = 0; row < 3 * Hex8::numNodes; ++row)
                for (int column = 0; column <= row; ++column) {
                    const int a = freedom(nodes, row);
                    const int b = freedom(nodes, column);
                    if (a < 0 || b < 0) continue;
                    entries.emplace_back(std::max(a, b), std::min(a, b), element.stiffness()(row, column));
                }
            m_elements.push_back(element);
        }
        Eigen::SparseMatrix<double> stiffness(count, count);
        stiffness.setFromTriplets(entries.begin(), entries.end());
        m_solver.compute(stiffness);
        if (m_solver.info() != Eigen::Success) throw std::runtime_error("the stiffness is singular");
    }

    /// Three displacements a node under a force spread evenly over the tip face.
    Eigen::VectorXd solve(double force) const
    {
        // Consistent loads: every element face gives a quarter of its share to each of its corners.
        Eigen::VectorXd loads = Eigen::VectorXd::Zero(m_count);
        int faces = 0;
        for (int e = 0; e < m_mesh.numElements(); ++e) faces += m_mesh.isTipElement(e);
        for (int e = 0; e < m_mesh.numElements(); ++e)
            if (m_mesh.isTipElement(e))
                for (const int node : m_mesh.element(e))
                    if (m_mesh.isTip(node))
                        loads[m_freedoms[static_cast<std::size_t>(3 * node + 2)]] -= force / faces / 4.0;
        const Eigen::VectorXd solution = m_solver.solve(loads);
        if (m_solver.info() != Eigen::Success) throw std::runtime_error("no solution");
        Eigen::VectorXd displacements = Eigen::VectorXd::Zero(3 * m_mesh.numNodes());
        for (std::size_t i = 0; i < m_freedoms.size(); ++i)
            if (m_freedoms[i] >= 0) displacements[static_cast<Eigen::Index>(i)] = solution[m_freedoms[i]];
        return displacements;
    }

    std::array<Hex8::Stress, Hex8::numPoints> stresses(int element, const Eigen::VectorXd& displacements) const
    {
        return m_elements[static_cast<std::size_t>(element)].stresses(
            localDisplacements(m_mesh.element(element), displacements));
    }

    /// The force with which the clamp holds the bar, upwards: what the elements at the root put on its nodes.
    double reaction(const Eigen::VectorXd& displacements) const
    {
        double force = 0.0;
        for (int e = 0; e < m_mesh.numElements(); ++e) {
            if (!m_mesh.isRootElement(e)) continue;
            const std::array<int, Hex8::numNodes> nodes = m_mesh.element(e);
            const Eigen::VectorXd forces =
                m_elements[static_cast<std::size_t>(e)].stiffness() * localDisplacements(nodes, displacements);
            for (int n = 0; n < Hex8::numNodes; ++n)
                if (m_mesh.isRoot(nodes[static_cast<std::size_t>(n)])) force += forces[3 * n + 2];
        }
        return force;
    }

    /// How far the tip has gone down, on average over its nodes.
    double tipDeflection(const Eigen::VectorXd& displacements) const
    {
        double sum = 0.0;
        int count = 0;
        for (int node = 0; node < m_mesh.numNodes(); ++node) {
            if (!m_mesh.isTip(node)) continue;
            sum -= displacements[3 * node + 2];
            ++count;
        }
        return sum / count;
    }

private:
    static Hex8::Displacements localDisplacements(const std::array<int, Hex8::numNodes>& nodes,
                                                  const Eigen::VectorXd& displacements)
    {
        Hex8::Displacements local;
        for (int n = 0; n < Hex8::numNodes; ++n)
            local.segment<3>(3 * n) = displacements.segment<3>(3 * nodes[static_cast<std::size_t>(n)]);
        return local;
    }
    int freedom(const std::array<int, Hex8::numNodes>& nodes, int local) const
    {
        return m_freedoms[static_cast<std::size_t>(3 * nodes[static_cast<std::size_t>(local / 3)] + local % 3)];
    }

    const Mesh& m_mesh;
    std::vector<int> m_freedoms;
    int m_count = 0;
    std::vector<Hex8> m_elements;
    Eigen::SimplicialLDLT<Eigen::SparseMatrix<double>> m_solver;
};

// Writes the model: part, instance, sets.
yld_Instance& writeModel(yld_Yld& db, const Mesh& mesh)
{
    yld_Sequence<int> nodes, elements;
    yld_Part& part = db.Part("bar", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
    yld_Sequence<yld_Sequence<float>> points;
    yld_Sequence<int> root, tip;
    for (int i = 0; i < mesh.numNodes(); ++i) {
        const Eigen::Vector3f at = mesh.node(i).cast<float>();
        nodes.append(i + 1);
        points.append(yld_Sequence<float>(at.data(), 3));
        if (mesh.isRoot(i)) root.append(i + 1);
        if (mesh.isTip(i)) tip.append(i + 1);
    }
    part.addNodes(nodes, points, "all nodes");

    yld_SectionCategory& solid = db.SectionCategory("solid", "homogeneous solid");
    yld_Sequence<yld_Sequence<int>> connectivity;
    yld_Sequence<int> rootElements, tipElements;
    yld_Sequence<yld_Enum::yld_ElementFaceEnum> tipFaces;
    for (int e = 0; e < mesh.numElements(); ++e) {
        elements.append(e + 1);
        yld_Sequence<int> row;
        for (const int node : mesh.element(e)) row.append(node + 1);
        connectivity.append(row);
        if (mesh.isRootElement(e)) rootElements.append(e + 1);
        if (mesh.isTipElement(e)) {
            tipElements.append(e + 1);
            tipFaces.append(yld_Enum::FACE2); // corners 1 2 6 5, the side towards +x
        }
    }
    part.addElements(elements, connectivity, "HEX8", "all elements", solid);

    yld_Instance& instance = db.rootAssembly().Instance("bar-1", part);
    instance.NodeSet("root", root);
    instance.NodeSet("tip", tip);
    instance.ElementSet("root elements", rootElements);
    instance.ElementSet("tip elements", tipElements);
    instance.Surface("tip face", tipElements, tipFaces);
    return instance;
}

void writeFrame(yld_Step& step, int increment, double fraction, const Eigen::VectorXd& displacements, const Mesh& mesh,
                const Structure& structure, const yld_Instance& instance, const std::vector<int>& nodes,
                const std::vector<int>& elements)
{
    yld_Frame frame = step.Frame(increment, fraction, ("increment " + std::to_string(increment)).c_str());

    yld_Sequence<yld_Enum::yld_InvariantEnum> length;
    length.append(yld_Enum::MAGNITUDE);
    yld_FieldOutput& u = frame.FieldOutput("U", "displacement", yld_Enum::VECTOR, yld_Sequence<yld_String>(), length);
    // What a solver has is an array already: it goes out as it is.
    const Eigen::VectorXf rows = displacements.cast<float>();
    u.addBulkData(yld_Enum::NODAL, instance, nodes.data(), mesh.numNodes(), rows.data(), mesh.numNodes(), 3);

    yld_Sequence<yld_Enum::yld_InvariantEnum> invariants;
    for (const auto invariant : {yld_Enum::MISES, yld_Enum::TRESCA, yld_Enum::PRESS, yld_Enum::INV3,
                                 yld_Enum::MAX_PRINCIPAL, yld_Enum::MID_PRINCIPAL, yld_Enum::MIN_PRINCIPAL})
        invariants.append(invariant);
    yld_FieldOutput& s =
        frame.FieldOutput("S", "stress", yld_Enum::TENSOR_3D_FULL, yld_Sequence<yld_String>(), invariants);
    std::vector<float> stresses;
    for (int e = 0; e < mesh.numElements(); ++e)
        for (const Hex8::Stress& stress : structure.stresses(e, displacements))
            for (int i = 0; i < 6; ++i) stresses.push_back(static_cast<float>(stress[i]));
    s.addBulkData(yld_Enum::INTEGRATION_POINT, instance, elements.data(), mesh.numElements(), stresses.data(),
                  static_cast<int>(stresses.size() / 6), 6);
}

int division(const char* text)
{
    int number = 0;
    const char* const end = text + std::strlen(text);
    const std::from_chars_result result = std::from_chars(text, end, number);
    if (result.ec != std::errc() || result.ptr != end || number < 1 || number > 1000)
        throw std::invalid_argument(std::string("divisions are whole numbers from 1 to 1000, not \"") + text + "\"");
    return number;
}

void analyse(const std::string& path, const Divisions& divisions)
{
    // Results of an earlier run give way.
    std::remove(path.c_str());
    const Mesh mesh(divisions);
    const Structure structure(mesh);
    yld_Yld& db = Yld("cantilever", "Cantilever of hexahedra", "clamped bar, end load in ten increments", path.c_str());
    const yld_Instance& instance = writeModel(db, mesh);
    std::vector<int> nodes(static_cast<std::size_t>(mesh.numNodes()));
    std::vector<int> elements(static_cast<std::size_t>(mesh.numElements()));
    std::iota(nodes.begin(), nodes.end(), 1);
    std::iota(elements.begin(), elements.end(), 1);
    yld_Step& step = db.Step("load", "the end load grows to its full size", yld_Enum::TIME, 1.0);
    // Curves over the step: each increment adds a pair to both.
    yld_HistoryOutput& deflection =
        step.HistoryRegion("tip", "the free end", yld_HistoryPoint(instance.nodeSets().constGet("tip")))
            .HistoryOutput("deflection", "mean deflection of the end, downwards [m]", yld_Enum::SCALAR);
    yld_HistoryOutput& reaction =
        step.HistoryRegion("root", "the clamped end", yld_HistoryPoint(instance.nodeSets().constGet("root")))
            .HistoryOutput("reaction", "force of the clamp, upwards [N]", yld_Enum::SCALAR);
    for (int increment = 1; increment <= Cantilever::increments; ++increment) {
        const double fraction = static_cast<double>(increment) / Cantilever::increments;
        const Eigen::VectorXd displacements = structure.solve(fraction * Cantilever::load);
        writeFrame(step, increment, fraction, displacements, mesh, structure, instance, nodes, elements);
        deflection.addData(fraction, structure.tipDeflection(displacements));
        reaction.addData(fraction, structure.reaction(displacements));
    }
    saveYld(db);
    db.close();
    std::printf("%s: %d nodes, %d elements, %d increments\n", path.c_str(), mesh.numNodes(), mesh.numElements(),
                Cantilever::increments);
}

} // namespace

int main(int argc, char** argv)
{
    try {
        if (argc == 2 && std::string_view(argv[1]) == "--help") {
            std::puts(
                "usage: cantilever_analysis FILE.yld [NX NY NZ]\n\n"
                "Analyses a clamped bar under an end load that grows over ten increments, and writes its results to\n"
                "FILE.yld. NX, NY, NZ: how many elements along the bar, across it and over its height.\n"
                "Exit status: 0 done, 1 the analysis failed, 2 the arguments are wrong.");
            return 0;
        }
        if (argc != 2 && argc != 5) throw std::invalid_argument("usage: cantilever_analysis FILE.yld [NX NY NZ]");
        const std::string path = argv[1];
        if (!std::string_view(path).ends_with(".yld"))
            throw std::invalid_argument("the name of the results file ends in .yld, not as in " + path);
        Divisions divisions;
        if (argc == 5) divisions = {division(argv[2]), division(argv[3]), division(argv[4])};
        yld_initializeAPI();
        analyse(path, divisions);
        yld_finalizeAPI();
        return 0;
    } catch (const std::invalid_argument& error) {
        std::fprintf(stderr, "cantilever_analysis: %s\n", error.what());
        return 2;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "cantilever_analysis: %s\n", error.what());
        return 1;
    }
}
