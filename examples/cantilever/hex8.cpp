#include "hex8.h"

#include <cmath>
#include <stdexcept>

namespace {

using Gradients = Eigen::Matrix<double, Hex8::numNodes, 3>;

constexpr int signs[Hex8::numNodes][3] = {{-1, -1, -1}, {1, -1, -1}, {1, 1, -1}, {-1, 1, -1},
                                          {-1, -1, 1},  {1, -1, 1},  {1, 1, 1},  {-1, 1, 1}};

// Derivatives of the shape functions by xi, eta, zeta.
Gradients naturalGradients(const Eigen::Vector3d& at)
{
    Gradients gradients;
    for (int node = 0; node < Hex8::numNodes; ++node) {
        const double x = 1.0 + signs[node][0] * at[0];
        const double y = 1.0 + signs[node][1] * at[1];
        const double z = 1.0 + signs[node][2] * at[2];
        gradients.row(node) << signs[node][0] * y * z, x * signs[node][1] * z, x * y * signs[node][2];
    }
    return gradients / 8.0;
}

// Puts the strain of one function with this gradient, times a displacement, into three columns.
template<class Matrix> void placeStrain(Matrix& strain, int column, const Eigen::Vector3d& gradient)
{
    strain(0, column) = gradient[0];
    strain(1, column + 1) = gradient[1];
    strain(2, column + 2) = gradient[2];
    strain(3, column) = gradient[1];
    strain(3, column + 1) = gradient[0];
    strain(4, column) = gradient[2];
    strain(4, column + 2) = gradient[0];
    strain(5, column + 1) = gradient[2];
    strain(5, column + 2) = gradient[1];
}

Eigen::Matrix<double, 6, 6> isotropic(double youngsModulus, double poissonsRatio)
{
    const double shear = youngsModulus / (2.0 * (1.0 + poissonsRatio));
    const double lame = 2.0 * shear * poissonsRatio / (1.0 - 2.0 * poissonsRatio);
    Eigen::Matrix<double, 6, 6> elasticity = Eigen::Matrix<double, 6, 6>::Zero();
    elasticity.topLeftCorner<3, 3>().setConstant(lame);
    elasticity.topLeftCorner<3, 3>().diagonal().array() += 2.0 * shear;
    elasticity.bottomRightCorner<3, 3>().diagonal().setConstant(shear);
    return elasticity;
}

} // namespace

Hex8::Hex8(const Corners& corners, double youngsModulus, double poissonsRatio)
    : m_elasticity(isotropic(youngsModulus, poissonsRatio))
{
    const Eigen::Matrix3d centre = corners.transpose() * naturalGradients(Eigen::Vector3d::Zero());
    const double centreVolume = centre.determinant();
    const Eigen::Matrix3d centreInverse = centre.inverse();

    Eigen::Matrix<double, 3 * numModes, 3 * numModes> modeStiffness;
    Eigen::Matrix<double, 3 * numModes, 3 * numNodes> coupling;
    modeStiffness.setZero();
    coupling.setZero();
    m_stiffness.setZero();
    const double place = 1.0 / std::sqrt(3.0);
    for (int point = 0; point < numPoints; ++point) {
        const Eigen::Vector3d at(point & 1 ? place : -place, point & 2 ? place : -place, point & 4 ? place : -place);
        const Gradients natural = naturalGradients(at);
        const Eigen::Matrix3d jacobian = corners.transpose() * natural;
        const double volume = jacobian.determinant();
        if (volume <= 0.0) throw std::runtime_error("an element is turned inside out");
        const Gradients gradients = natural * jacobian.inverse();

        Strain& strain = m_strain[static_cast<std::size_t>(point)];
        strain.setZero();
        for (int node = 0; node < numNodes; ++node) placeStrain(strain, 3 * node, gradients.row(node).transpose());
        ModeStrain& modeStrain = m_modeStrain[static_cast<std::size_t>(point)];
        modeStrain.setZero();
        for (int mode = 0; mode < numModes; ++mode) {
            // 1 - xi^2 has the derivative -2 xi; the metric of the centre keeps constant stress states pure.
            const Eigen::Vector3d gradient =
                -2.0 * at[mode] * centreInverse.row(mode).transpose() * (centreVolume / volume);
            placeStrain(modeStrain, 3 * mode, gradient);
        }
        m_stiffness += volume * strain.transpose() * m_elasticity * strain;
        coupling += volume * modeStrain.transpose() * m_elasticity * strain;
        modeStiffness += volume * modeStrain.transpose() * m_elasticity * modeStrain;
    }
    m_modes = -modeStiffness.ldlt().solve(coupling);
    m_stiffness += coupling.transpose() * m_modes;
}

std::array<Hex8::Stress, Hex8::numPoints> Hex8::stresses(const Displacements& displacements) const
{
    const Eigen::Matrix<double, 3 * numModes, 1> amplitudes = m_modes * displacements;
    std::array<Stress, numPoints> result;
    for (std::size_t point = 0; point < result.size(); ++point)
        result[point] = m_elasticity * (m_strain[point] * displacements + m_modeStrain[point] * amplitudes);
    return result;
}
