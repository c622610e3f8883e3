#ifndef ENG_QUATERNION_H
#define ENG_QUATERNION_H

#include "platform/math/eng_Tensor.h"

#include <cstddef>

/// The calculations of eng_Quaternion, in double precision.
class eng_QuaternionCore
{
public:
    double x = 0;
    double y = 0;
    double z = 0;
    double w = 1;

    eng_QuaternionCore unit() const;
    /// Rotation matrix, row by row: its columns are where the axes go.
    void matrix(double* rows) const;
    void rotationVector(double* vector) const;
    static eng_QuaternionCore fromMatrix(const double* rows, bool planar);
    static eng_QuaternionCore fromRotationVector(const double* vector);
    static eng_QuaternionCore product(const eng_QuaternionCore& a, const eng_QuaternionCore& b);
};

/// A rotation as stored: QUATERNION_3D (7) holds (x, y, z, w); QUATERNION_2D (6), a rotation about the third
/// axis, holds (s, c), which are the z and w of the same rotation. A rotation by the angle a about the unit
/// axis n is (n sin(a/2), cos(a/2)).
///
/// Fields of local systems hold the rotation that turns global components into local ones: rotate() of it on
/// global components gives local components, and cosines() of its inverse gives the axes of the local system.
///
/// Rotations are taken from the direction of the quaternion, so one that is not quite of length 1 serves; a
/// quaternion of zeros stands for no rotation. Nothing here yields NaN from finite numbers. The row is
/// copied.
template<class Real> class eng_Quaternion
{
public:
    /// No rotation.
    explicit eng_Quaternion(int typeCode = eng_DataType::QUATERNION_3D) : m_typeCode(typeCode) {}
    /// From stored components; a code that is no quaternion's gives no rotation.
    eng_Quaternion(int typeCode, const Real* components);

    /// From a rotation matrix of three rows of three, whose columns are the axes of the turned system. `mode`
    /// is the type code of the result; for QUATERNION_2D only the turn in the plane of the first two axes
    /// counts. The sign is chosen so that w is not negative. Columns need not be exactly orthogonal.
    static eng_Quaternion fromMatrix(const Real* rows, int mode);
    /// From direction cosines: three rows, each an axis of the turned system. What cosines() gives back.
    static eng_Quaternion fromCosines(const Real* rows, int mode);
    /// From axis times angle (radians), three components; for QUATERNION_2D the third alone counts.
    static eng_Quaternion fromRotationVector(const Real* vector, int mode);

    int typeCode() const { return m_typeCode; }
    /// Number of stored components: 4 or 2; 0 for another code.
    int size() const;
    /// Writes the stored components.
    void components(Real* out) const;

    /// The turn back: a quaternion of the same type and length with the axis reversed.
    eng_Quaternion inverse() const;
    /// Direction cosines: row i is where axis i goes.
    void cosines(Real* rows) const;
    /// The rotation matrix, the transpose of cosines().
    void matrix(Real* rows) const;
    /// Axis times angle in radians, three components; the angle runs from 0 to 2 pi, so that
    /// fromRotationVector gives this very quaternion back and not its negative. Zeros for no rotation.
    void rotationVector(Real* vector) const;
    /// First b, then this.
    eng_Quaternion operator*(const eng_Quaternion& b) const;

    /// Rotates rows of `width` components, 2 or 3 (of 2, the third is 0 and is not written). `out` may be
    /// `in`.
    void rotateVectors(const Real* in, Real* out, std::size_t rows, int width) const;
    /// Rotates rows of a tensor type, R s R^T. What the type does not hold is 0 on the way in and is dropped
    /// on the way out: planar and surface types keep their meaning under rotations about the third axis. With
    /// the engineering flag the shears are doubled in both. `out` may be `in`.
    void rotateTensors(int tensorCode, const Real* in, Real* out, std::size_t rows, bool engineering) const;

private:
    int m_typeCode;
    eng_QuaternionCore m_core;
};

using eng_QuaternionFloat = eng_Quaternion<float>;
using eng_QuaternionDouble = eng_Quaternion<double>;

extern template class eng_Quaternion<float>;
extern template class eng_Quaternion<double>;

/// Makes quaternions of one type from direction cosines, as writers of local systems need them.
class eng_QuaternionFloatAdapter
{
public:
    explicit eng_QuaternionFloatAdapter(int typeCode) : m_typeCode(typeCode) {}

    /// @param rows  nine numbers, each row an axis of the local system
    eng_QuaternionFloat quaternion(const float* rows) const
    {
        return eng_QuaternionFloat::fromCosines(rows, m_typeCode);
    }

private:
    int m_typeCode;
};

#endif
