#ifndef ENG_TENSOR_H
#define ENG_TENSOR_H

#include <cstddef>

/// Store codes of the data types that value mathematics deals with.
struct eng_DataType
{
    enum Enm
    {
        VECTOR = 4,
        QUATERNION_2D = 6,
        QUATERNION_3D = 7,
        TENSOR_3D_FULL = 9,
        TENSOR_3D_PLANAR = 10,
        TENSOR_3D_SURFACE = 11,
        TENSOR_2D_PLANAR = 12,
        TENSOR_2D_SURFACE = 13
    };

    /// Stored components of one tensor: 6, 4 or 3; 0 for a code that is no tensor's.
    static int numTensorComponents(int typeCode);
};

/// The calculations of eng_Tensor, on six double components 11, 22, 33, 12, 13, 23.
class eng_TensorCore
{
public:
    eng_TensorCore() = default;
    template<class Real> eng_TensorCore(int typeCode, const Real* components, bool engineering);

    double component(int i) const { return m_component[i]; }
    double mises() const;
    double tresca() const;
    double pressure() const;
    double inv3() const;
    double outOfPlanePrincipal() const { return m_component[2]; }
    void inplanePrincipals(double* values) const;
    /// @param digits  relative accuracy asked for in each value, as in 1e-9; decides how much work is done
    void principals(double* values, double digits) const;
    void principalAxes(double* values, double* directions) const;

private:
    double m_component[6] = {0, 0, 0, 0, 0, 0};
};

/// A symmetric tensor of the second order, such as stress or strain: invariants and principal values.
///
/// Built from one stored row: TENSOR_3D_FULL (9) holds 11, 22, 33, 12, 13, 23; TENSOR_3D_PLANAR (10) and
/// TENSOR_2D_PLANAR (12) hold 11, 22, 33, 12; TENSOR_3D_SURFACE (11) and TENSOR_2D_SURFACE (13) hold 11,
/// 22, 12. What a type does not hold is 0. With the engineering flag, shear components count half.
///
/// All work is done in double precision with what it takes on top (see eng_DoubleDouble), so results are good
/// to the last digits of Real for every finite input, however large, small, or close to each other the
/// principal values. The row is copied; nothing is allocated. A type code that is no tensor's gives a tensor
/// of zeros.
template<class Real> class eng_Tensor
{
public:
    eng_Tensor() = default;
    eng_Tensor(int typeCode, const Real* components, bool engineering) : m_core(typeCode, components, engineering) {}

    /// Component in the order 11, 22, 33, 12, 13, 23, shears already halved if they were engineering shears.
    Real component(int i) const { return static_cast<Real>(m_core.component(i)); }

    /// Root of 3/2 s:s, s being the deviator.
    Real mises() const { return static_cast<Real>(m_core.mises()); }
    /// Largest less smallest principal value.
    Real tresca() const { return static_cast<Real>(m_core.tresca()); }
    /// Minus a third of the trace.
    Real pressure() const { return static_cast<Real>(m_core.pressure()); }
    /// Third invariant in units of the tensor: cube root of 27/2 det s.
    Real inv3() const { return static_cast<Real>(m_core.inv3()); }

    Real maxPrincipal() const { return principal(0); }
    Real midPrincipal() const { return principal(1); }
    Real minPrincipal() const { return principal(2); }
    /// All three, descending, for the price of one.
    void principals(Real* values) const
    {
        double all[3];
        m_core.principals(all, digits());
        for (int i = 0; i < 3; ++i) values[i] = static_cast<Real>(all[i]);
    }
    /// Principal values of the part 11, 22, 12.
    Real maxInplanePrincipal() const { return inplane(0); }
    Real minInplanePrincipal() const { return inplane(1); }
    /// Component 33.
    Real outOfPlanePrincipal() const { return static_cast<Real>(m_core.outOfPlanePrincipal()); }

    /// Principal values, descending, and their directions: three rows of three, unit vectors, right-handed.
    /// Where principal values coincide any directions across them are right, and one choice is returned.
    void principalAxes(Real* values, Real* directions) const
    {
        double lengths[3];
        double axes[9];
        m_core.principalAxes(lengths, axes);
        for (int i = 0; i < 3; ++i) values[i] = static_cast<Real>(lengths[i]);
        for (int i = 0; i < 9; ++i) directions[i] = static_cast<Real>(axes[i]);
    }

private:
    static constexpr double digits() { return sizeof(Real) == sizeof(float) ? 1e-8 : 1e-13; }

    Real principal(int rank) const
    {
        double all[3];
        m_core.principals(all, digits());
        return static_cast<Real>(all[rank]);
    }
    Real inplane(int rank) const
    {
        double both[2];
        m_core.inplanePrincipals(both);
        return static_cast<Real>(both[rank]);
    }

    eng_TensorCore m_core;
};

using eng_TensorFloat = eng_Tensor<float>;
using eng_TensorDouble = eng_Tensor<double>;

/// Mises values of many rows that follow each other: `rows` times the components of the type in, one float
/// each out. Sums of floats run in single precision where their squares fit its range, and are then good to 3e-7;
/// all others in double. A type code that is no tensor's writes zeros. Nothing is allocated.
void eng_mises(int typeCode, const float* data, std::size_t rows, bool engineering, float* out);
void eng_mises(int typeCode, const double* data, std::size_t rows, bool engineering, float* out);

#endif
