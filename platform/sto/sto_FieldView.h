#ifndef STO_FIELDVIEW_H
#define STO_FIELDVIEW_H

#include "platform/result/fld_DataType.h"

/// The values of a stored field as a plain array, row by row; borrowed from the sto_Field that gave the view, and good
/// as long as any handle copied from that one lives.
template<class T> class sto_FieldView
{
public:
    sto_FieldView() = default;
    sto_FieldView(const T* data, const T* conjugate, int length, int width)
        : m_data(data), m_conjugate(conjugate), m_length(length), m_width(width)
    {
    }

    const T* data() const { return m_data; }
    /// Null without an imaginary half.
    const T* conjugate() const { return m_conjugate; }
    int length() const { return m_length; }
    int width() const { return m_width; }

private:
    const T* m_data = nullptr;
    const T* m_conjugate = nullptr;
    int m_length = 0;
    int m_width = 0;
};

class sto_Field;

/// What a typed view is of: the types of stored values, the five tensors and the two quaternions each as one.
using sto_ValueKind = fld_DataType::Kind;

/// A view on values of one kind and precision, so that they are not taken for others.
template<class T, sto_ValueKind kind> class sto_TypedView : public sto_FieldView<T>
{
public:
    sto_TypedView() = default;
    /// Reads the values on the first call. Raises for a field of another kind or precision.
    explicit sto_TypedView(const sto_Field& field);
};

using sto_ScalarFloat = sto_TypedView<float, sto_ValueKind::SCALAR>;
using sto_VectorFloat = sto_TypedView<float, sto_ValueKind::VECTOR>;
using sto_MatrixFloat = sto_TypedView<float, sto_ValueKind::MATRIX>;
using sto_TensorFloat = sto_TypedView<float, sto_ValueKind::TENSOR>;
using sto_QuaternionFloat = sto_TypedView<float, sto_ValueKind::QUATERNION>;
using sto_ScalarDouble = sto_TypedView<double, sto_ValueKind::SCALAR>;
using sto_VectorDouble = sto_TypedView<double, sto_ValueKind::VECTOR>;
using sto_MatrixDouble = sto_TypedView<double, sto_ValueKind::MATRIX>;
using sto_TensorDouble = sto_TypedView<double, sto_ValueKind::TENSOR>;
using sto_QuaternionDouble = sto_TypedView<double, sto_ValueKind::QUATERNION>;

#endif
