#ifndef ENG_VECTOR_H
#define ENG_VECTOR_H

/// Euclidean norm of `length` numbers without overflow or loss on the way: components are scaled by a power
/// of two first. 0 for no components.
double eng_norm(const float* components, int length);
double eng_norm(const double* components, int length);

/// One stored row of a vector field. Refers to the row, which must outlive it.
template<class Real> class eng_Vector
{
public:
    eng_Vector(const Real* components, int length) : m_components(components), m_length(length) {}

    int length() const { return m_length; }
    Real operator[](int i) const { return m_components[i]; }
    /// Euclidean norm; right to the last digit for every finite row whose norm Real can hold.
    Real magnitude() const { return static_cast<Real>(eng_norm(m_components, m_length)); }

private:
    const Real* m_components;
    int m_length;
};

using eng_VectorFloat = eng_Vector<float>;
using eng_VectorDouble = eng_Vector<double>;

#endif
