#include "platform/math/eng_Quaternion.h"

#include "platform/math/eng_Vector.h"

#include <algorithm>
#include <cmath>

eng_QuaternionCore eng_QuaternionCore::unit() const
{
    const double all[4] = {x, y, z, w};
    double largest = 0;
    for (double part : all) largest = std::max(largest, std::fabs(part));
    if (largest == 0 || !std::isfinite(largest)) return {};
    int exponent = 0;
    std::frexp(largest, &exponent);
    const eng_QuaternionCore scaled{std::ldexp(x, -exponent), std::ldexp(y, -exponent), std::ldexp(z, -exponent),
                                    std::ldexp(w, -exponent)};
    const double length =
        std::sqrt(scaled.x * scaled.x + scaled.y * scaled.y + scaled.z * scaled.z + scaled.w * scaled.w);
    return {scaled.x / length, scaled.y / length, scaled.z / length, scaled.w / length};
}

void eng_QuaternionCore::matrix(double* rows) const
{
    const eng_QuaternionCore q = unit();
    rows[0] = 1 - 2 * (q.y * q.y + q.z * q.z);
    rows[1] = 2 * (q.x * q.y - q.z * q.w);
    rows[2] = 2 * (q.x * q.z + q.y * q.w);
    rows[3] = 2 * (q.x * q.y + q.z * q.w);
    rows[4] = 1 - 2 * (q.x * q.x + q.z * q.z);
    rows[5] = 2 * (q.y * q.z - q.x * q.w);
    rows[6] = 2 * (q.x * q.z - q.y * q.w);
    rows[7] = 2 * (q.y * q.z + q.x * q.w);
    rows[8] = 1 - 2 * (q.x * q.x + q.y * q.y);
}

void eng_QuaternionCore::rotationVector(double* vector) const
{
    const eng_QuaternionCore q = unit();
    const double axis[3] = {q.x, q.y, q.z};
    const double sine = eng_norm(axis, 3);
    // angle / sin(angle / 2) tends to 2 / w.
    const double factor = sine > 0 ? 2 * std::atan2(sine, q.w) / sine : 0;
    for (int k = 0; k < 3; ++k) vector[k] = factor * axis[k];
}

eng_QuaternionCore eng_QuaternionCore::fromRotationVector(const double* vector)
{
    const double angle = eng_norm(vector, 3);
    if (angle == 0 || !std::isfinite(angle)) return {};
    const double s = std::sin(0.5 * angle);
    return {s * (vector[0] / angle), s * (vector[1] / angle), s * (vector[2] / angle), std::cos(0.5 * angle)};
}

eng_QuaternionCore eng_QuaternionCore::fromMatrix(const double* rows, bool planar)
{
    // Far from a rotation, but no reason to overflow.
    double m[9];
    double largest = 0;
    for (int i = 0; i < 9; ++i) largest = std::max(largest, std::fabs(rows[i]));
    int exponent = 0;
    if (largest > 4 && std::isfinite(largest)) std::frexp(largest, &exponent);
    for (int i = 0; i < 9; ++i) m[i] = std::ldexp(rows[i], -exponent);
    eng_QuaternionCore q;
    if (planar) {
        const double half = 0.5 * std::atan2(m[3] - m[1], m[0] + m[4]);
        q.z = std::sin(half);
        q.w = std::cos(half);
        return q;
    }
    // Four times the square of each part comes from the diagonal; dividing by the largest keeps all digits.
    const double four[4] = {1 + m[0] + m[4] + m[8], 1 + m[0] - m[4] - m[8], 1 - m[0] + m[4] - m[8],
                            1 - m[0] - m[4] + m[8]};
    switch (std::max_element(four, four + 4) - four) {
    case 0:
        q = {m[7] - m[5], m[2] - m[6], m[3] - m[1], four[0]};
        break;
    case 1:
        q = {four[1], m[1] + m[3], m[2] + m[6], m[7] - m[5]};
        break;
    case 2:
        q = {m[1] + m[3], four[2], m[5] + m[7], m[2] - m[6]};
        break;
    default:
        q = {m[2] + m[6], m[5] + m[7], four[3], m[3] - m[1]};
        break;
    }
    q = q.unit();
    if (q.w < 0) q = {-q.x, -q.y, -q.z, -q.w};
    return q;
}

eng_QuaternionCore eng_QuaternionCore::product(const eng_QuaternionCore& a, const eng_QuaternionCore& b)
{
    return {a.w * b.x + a.x * b.w + a.y * b.z - a.z * b.y, a.w * b.y - a.x * b.z + a.y * b.w + a.z * b.x,
            a.w * b.z + a.x * b.y - a.y * b.x + a.z * b.w, a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z};
}

template<class Real> eng_Quaternion<Real>::eng_Quaternion(int code, const Real* stored) : m_typeCode(code)
{
    if (code == eng_DataType::QUATERNION_3D) m_core = {stored[0], stored[1], stored[2], stored[3]};
    else if (code == eng_DataType::QUATERNION_2D) m_core = {0, 0, stored[0], stored[1]};
}

template<class Real> int eng_Quaternion<Real>::size() const
{
    return m_typeCode == eng_DataType::QUATERNION_3D ? 4 : m_typeCode == eng_DataType::QUATERNION_2D ? 2 : 0;
}

template<class Real> void eng_Quaternion<Real>::components(Real* out) const
{
    if (m_typeCode == eng_DataType::QUATERNION_3D) {
        *out++ = static_cast<Real>(m_core.x);
        *out++ = static_cast<Real>(m_core.y);
    }
    if (size() > 0) {
        *out++ = static_cast<Real>(m_core.z);
        *out++ = static_cast<Real>(m_core.w);
    }
}

template<class Real> eng_Quaternion<Real> eng_Quaternion<Real>::fromMatrix(const Real* rows, int mode)
{
    double m[9];
    std::copy_n(rows, 9, m);
    eng_Quaternion q(mode);
    if (q.size() > 0) q.m_core = eng_QuaternionCore::fromMatrix(m, mode == eng_DataType::QUATERNION_2D);
    return q;
}

template<class Real> eng_Quaternion<Real> eng_Quaternion<Real>::fromCosines(const Real* rows, int mode)
{
    Real m[9];
    for (int i = 0; i < 3; ++i)
        for (int k = 0; k < 3; ++k) m[3 * k + i] = rows[3 * i + k];
    return fromMatrix(m, mode);
}

template<class Real> eng_Quaternion<Real> eng_Quaternion<Real>::fromRotationVector(const Real* vector, int mode)
{
    double v[3] = {0, 0, vector[2]};
    if (mode == eng_DataType::QUATERNION_3D) {
        v[0] = vector[0];
        v[1] = vector[1];
    }
    eng_Quaternion q(mode);
    if (q.size() > 0) q.m_core = eng_QuaternionCore::fromRotationVector(v);
    return q;
}

template<class Real> eng_Quaternion<Real> eng_Quaternion<Real>::inverse() const
{
    eng_Quaternion back(m_typeCode);
    back.m_core = {-m_core.x, -m_core.y, -m_core.z, m_core.w};
    return back;
}

template<class Real> void eng_Quaternion<Real>::matrix(Real* rows) const
{
    double m[9];
    m_core.matrix(m);
    for (int i = 0; i < 9; ++i) rows[i] = static_cast<Real>(m[i]);
}

template<class Real> void eng_Quaternion<Real>::cosines(Real* rows) const
{
    double m[9];
    m_core.matrix(m);
    for (int i = 0; i < 3; ++i)
        for (int k = 0; k < 3; ++k) rows[3 * i + k] = static_cast<Real>(m[3 * k + i]);
}

template<class Real> void eng_Quaternion<Real>::rotationVector(Real* vector) const
{
    double v[3];
    m_core.rotationVector(v);
    for (int k = 0; k < 3; ++k) vector[k] = static_cast<Real>(v[k]);
}

template<class Real> eng_Quaternion<Real> eng_Quaternion<Real>::operator*(const eng_Quaternion& b) const
{
    eng_Quaternion both(m_typeCode);
    both.m_core = eng_QuaternionCore::product(m_core, b.m_core);
    return both;
}

template<class Real>
void eng_Quaternion<Real>::rotateVectors(const Real* in, Real* out, std::size_t rows, int width) const
{
    double m[9];
    m_core.matrix(m);
    for (std::size_t row = 0; row < rows; ++row, in += width, out += width) {
        const double v[3] = {in[0], in[1], width > 2 ? in[2] : Real(0)};
        for (int k = 0; k < std::min(width, 3); ++k)
            out[k] = static_cast<Real>(m[3 * k] * v[0] + m[3 * k + 1] * v[1] + m[3 * k + 2] * v[2]);
    }
}

template<class Real>
void eng_Quaternion<Real>::rotateTensors(int tensorCode, const Real* in, Real* out, std::size_t rows,
                                         bool engineering) const
{
    static constexpr int place[6][2] = {{0, 0}, {1, 1}, {2, 2}, {0, 1}, {0, 2}, {1, 2}};
    static constexpr int full[6] = {0, 1, 2, 3, 4, 5};
    static constexpr int surface[3] = {0, 1, 3};
    const int width = eng_DataType::numTensorComponents(tensorCode);
    const int* held = width == 3 ? surface : full;
    const double shear = engineering ? 2 : 1;
    double m[9];
    m_core.matrix(m);
    for (std::size_t row = 0; row < rows; ++row, in += width, out += width) {
        const eng_TensorCore tensor(tensorCode, in, engineering);
        double s[3][3];
        for (int i = 0; i < 6; ++i) s[place[i][0]][place[i][1]] = s[place[i][1]][place[i][0]] = tensor.component(i);
        double half[3][3]; // R s
        for (int i = 0; i < 3; ++i)
            for (int k = 0; k < 3; ++k)
                half[i][k] = m[3 * i] * s[0][k] + m[3 * i + 1] * s[1][k] + m[3 * i + 2] * s[2][k];
        for (int c = 0; c < width; ++c) {
            const int i = place[held[c]][0];
            const int k = place[held[c]][1];
            const double turned = half[i][0] * m[3 * k] + half[i][1] * m[3 * k + 1] + half[i][2] * m[3 * k + 2];
            out[c] = static_cast<Real>(i == k ? turned : shear * turned);
        }
    }
}

template class eng_Quaternion<float>;
template class eng_Quaternion<double>;
