#ifndef HEX8_H
#define HEX8_H

#include <Eigen/Dense>
#include <array>

/// An elastic brick of eight nodes with incompatible modes, integrated with 2 x 2 x 2 points.
///
/// The plain brick locks in bending: its sides stay straight, and what should bend shears instead. Three
/// quadratic modes inside the element, 1 - xi^2 and its like, give it the curvature; they are condensed out
/// of the stiffness. With their derivatives taken at the centre of the element they pass the patch test for
/// any shape (Taylor, Beresford, Wilson), and a rectangular element carries a bending moment exactly.
///
/// Nodes: 0 to 3 round the bottom, 4 to 7 round the top, both the same way. Strains and stresses in the order
/// 11 22 33 12 13 23, shear strains doubled. Points: xi fastest, then eta, then zeta, each from minus to
/// plus.
class Hex8
{
public:
    static constexpr int numNodes = 8;
    static constexpr int numPoints = 8;
    static constexpr int numModes = 3;

    using Corners = Eigen::Matrix<double, numNodes, 3>;
    using Stiffness = Eigen::Matrix<double, 3 * numNodes, 3 * numNodes>;
    using Displacements = Eigen::Matrix<double, 3 * numNodes, 1>;
    using Stress = Eigen::Matrix<double, 6, 1>;

    Hex8(const Corners& corners, double youngsModulus, double poissonsRatio);

    /// Force on node displacements, three a node.
    const Stiffness& stiffness() const { return m_stiffness; }
    /// The stress at every integration point.
    std::array<Stress, numPoints> stresses(const Displacements& displacements) const;

private:
    using Strain = Eigen::Matrix<double, 6, 3 * numNodes>;
    using ModeStrain = Eigen::Matrix<double, 6, 3 * numModes>;

    Eigen::Matrix<double, 6, 6> m_elasticity;
    std::array<Strain, numPoints> m_strain;
    std::array<ModeStrain, numPoints> m_modeStrain;
    Eigen::Matrix<double, 3 * numModes, 3 * numNodes> m_modes; // mode amplitudes behind node displacements
    Stiffness m_stiffness;
};

#endif
