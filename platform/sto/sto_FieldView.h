#ifndef STO_FIELDVIEW_H
#define STO_FIELDVIEW_H

/// The values of a stored field as a plain array, row by row; borrowed from the sto_Field that gave the view, and good
/// as long as any handle copied from that one lives.
template<class T>
class sto_FieldView
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

using sto_ScalarFloat = sto_FieldView<float>;
using sto_VectorFloat = sto_FieldView<float>;
using sto_MatrixFloat = sto_FieldView<float>;
using sto_TensorFloat = sto_FieldView<float>;
using sto_QuaternionFloat = sto_FieldView<float>;
using sto_ScalarDouble = sto_FieldView<double>;
using sto_VectorDouble = sto_FieldView<double>;
using sto_MatrixDouble = sto_FieldView<double>;
using sto_TensorDouble = sto_FieldView<double>;
using sto_QuaternionDouble = sto_FieldView<double>;

#endif
