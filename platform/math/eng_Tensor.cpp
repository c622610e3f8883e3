#include "platform/math/eng_Tensor.h"

#include "platform/math/eng_DoubleDouble.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

int eng_DataType::numTensorComponents(int typeCode)
{
    switch (typeCode) {
    case TENSOR_3D_FULL:
        return 6;
    case TENSOR_3D_PLANAR:
    case TENSOR_2D_PLANAR:
        return 4;
    case TENSOR_3D_SURFACE:
    case TENSOR_2D_SURFACE:
        return 3;
    default:
        return 0;
    }
}

template<class Real> eng_TensorCore::eng_TensorCore(int typeCode, const Real* components, bool engineering)
{
    const double half = engineering ? 0.5 : 1;
    switch (eng_DataType::numTensorComponents(typeCode)) {
    case 6:
        m_component[4] = half * components[4];
        m_component[5] = half * components[5];
        [[fallthrough]];
    case 4:
        m_component[0] = components[0];
        m_component[1] = components[1];
        m_component[2] = components[2];
        m_component[3] = half * components[3];
        break;
    case 3:
        m_component[0] = components[0];
        m_component[1] = components[1];
        m_component[3] = half * components[2];
        break;
    default:
        break;
    }
}

template eng_TensorCore::eng_TensorCore(int, const float*, bool);
template eng_TensorCore::eng_TensorCore(int, const double*, bool);

namespace {

// Components brought near 1 by a power of two, which costs no digit and lets products neither overflow nor
// vanish.
struct Scaled
{
    double s[6];
    int exponent = 0;

    explicit Scaled(const double* component)
    {
        double largest = 0;
        for (int i = 0; i < 6; ++i) largest = std::max(largest, std::fabs(component[i]));
        if (largest > 0 && std::isfinite(largest)) std::frexp(largest, &exponent);
        for (int i = 0; i < 6; ++i) s[i] = std::ldexp(component[i], -exponent);
    }

    double restore(double value) const { return std::ldexp(value, exponent); }
};

// Diagonalises by plane rotations: the diagonal of `a` becomes the principal values, the rows of `axes` (if
// given) their directions. A rotation is left out only when it is below the digits of both its diagonal
// entries.
template<class Number> void rotateToDiagonal(Number (&a)[3][3], double digit, Number (*axes)[3])
{
    constexpr int most = 40;
    for (int sweep = 0; sweep < most; ++sweep) {
        bool done = true;
        for (int p = 0; p < 2; ++p) {
            for (int q = p + 1; q < 3; ++q) {
                const Number off = a[p][q];
                if (off == Number(0)) continue;
                const Number negligible = eng_abs(off) / Number(digit);
                if (negligible < eng_abs(a[p][p]) && negligible < eng_abs(a[q][q])) {
                    a[p][q] = a[q][p] = Number(0);
                    continue;
                }
                done = false;
                const Number difference = a[q][q] - a[p][p];
                Number t; // tangent of the angle
                if (eng_abs(off) < eng_abs(difference) * Number(1e-40)) {
                    t = off / difference;
                } else {
                    const Number theta = difference / (Number(2) * off);
                    t = Number(1) / (eng_abs(theta) + eng_sqrt(theta * theta + Number(1)));
                    if (theta < Number(0)) t = -t;
                }
                const Number c = Number(1) / eng_sqrt(t * t + Number(1));
                const Number s = t * c;
                const int r = 3 - p - q;
                a[p][p] = a[p][p] - t * off;
                a[q][q] = a[q][q] + t * off;
                a[p][q] = a[q][p] = Number(0);
                const Number rp = a[r][p];
                const Number rq = a[r][q];
                a[r][p] = a[p][r] = c * rp - s * rq;
                a[r][q] = a[q][r] = s * rp + c * rq;
                if (!axes) continue;
                for (int k = 0; k < 3; ++k) {
                    const Number xp = axes[p][k];
                    const Number xq = axes[q][k];
                    axes[p][k] = c * xp - s * xq;
                    axes[q][k] = s * xp + c * xq;
                }
            }
        }
        if (done) return;
    }
}

template<class Number> void fill(const double* s, Number (&a)[3][3])
{
    a[0][0] = s[0];
    a[1][1] = s[1];
    a[2][2] = s[2];
    a[0][1] = a[1][0] = s[3];
    a[0][2] = a[2][0] = s[4];
    a[1][2] = a[2][1] = s[5];
}

void sortDescending(double* values) { std::sort(values, values + 3, std::greater<double>()); }

double largestSize(const double* values)
{
    return std::max({std::fabs(values[0]), std::fabs(values[1]), std::fabs(values[2])});
}

double smallestSize(const double* values)
{
    return std::min({std::fabs(values[0]), std::fabs(values[1]), std::fabs(values[2])});
}

// a b - c d with one rounding of the result.
double differenceOfProducts(double a, double b, double c, double d)
{
    return (eng_DoubleDouble::product(a, b) - eng_DoubleDouble::product(c, d)).value();
}

// Principal values of a 2 x 2 part. The one farther from zero is a plain sum; the other is the determinant by
// it, so that it keeps its digits however small it is.
void planeValues(double a, double b, double shear, double* values)
{
    if (shear == 0) {
        values[0] = std::max(a, b);
        values[1] = std::min(a, b);
        return;
    }
    const double middle = 0.5 * (a + b);
    const double radius = std::hypot(0.5 * (a - b), shear);
    if (middle == 0) {
        values[0] = radius;
        values[1] = -radius;
        return;
    }
    const double far = middle > 0 ? middle + radius : middle - radius;
    const double near = differenceOfProducts(a, b, shear, shear) / far;
    values[0] = std::max(far, near);
    values[1] = std::min(far, near);
}

// When one axis is principal already, the rest is a plane problem. True if it was one.
bool planeCase(const double* s, double* values)
{
    if (s[4] == 0 && s[5] == 0) {
        planeValues(s[0], s[1], s[3], values);
        values[2] = s[2];
    } else if (s[3] == 0 && s[5] == 0) {
        planeValues(s[0], s[2], s[4], values);
        values[2] = s[1];
    } else if (s[3] == 0 && s[4] == 0) {
        planeValues(s[1], s[2], s[5], values);
        values[2] = s[0];
    } else {
        return false;
    }
    sortDescending(values);
    return true;
}

// The angle form. Its error grows as two values draw together and is absolute, so it is refused (false) when
// they do or when one value is much smaller than the others.
bool closedForm(const double* s, double digits, double* values)
{
    const double mean = (s[0] + s[1] + s[2]) / 3;
    const double d0 = s[0] - mean;
    const double d1 = s[1] - mean;
    const double d2 = s[2] - mean;
    const double shear = s[3] * s[3] + s[4] * s[4] + s[5] * s[5];
    const double size = std::sqrt((d0 * d0 + d1 * d1 + d2 * d2 + 2 * shear) / 6);
    const double determinant =
        d0 * (d1 * d2 - s[5] * s[5]) - s[3] * (s[3] * d2 - s[5] * s[4]) + s[4] * (s[3] * s[5] - d1 * s[4]);
    const double cosine = determinant / (2 * size * size * size);
    if (!(std::fabs(cosine) < 0.99)) return false;
    constexpr double thirdOfTurn = 2.0943951023931954923;
    const double angle = std::acos(cosine) / 3;
    values[0] = mean + 2 * size * std::cos(angle);
    values[2] = mean + 2 * size * std::cos(angle + thirdOfTurn);
    values[1] = 3 * mean - values[0] - values[2];
    constexpr double absoluteError = 2e-14;
    return smallestSize(values) * digits > absoluteError * largestSize(values);
}

eng_DoubleDouble minor(double a, double b, double off)
{
    return eng_DoubleDouble::product(a, b) - eng_DoubleDouble::product(off, off);
}

void valuesOf(const double* s, double digits, double* values)
{
    if (planeCase(s, values) || closedForm(s, digits, values)) return;
    double a[3][3];
    fill(s, a);
    rotateToDiagonal<double>(a, 1e-18, nullptr);
    for (int i = 0; i < 3; ++i) values[i] = a[i][i];
    constexpr double absoluteError = 2e-15;
    if (!(smallestSize(values) * digits > absoluteError * largestSize(values))) {
        eng_DoubleDouble fine[3][3];
        fill(s, fine);
        rotateToDiagonal<eng_DoubleDouble>(fine, 1e-34, nullptr);
        for (int i = 0; i < 3; ++i) values[i] = fine[i][i].value();
        std::sort(values, values + 3, [](double x, double y) { return std::fabs(x) < std::fabs(y); });
        // Rotations leave noise of some 32 digits below the largest value where there should be nothing; the
        // determinant and the principal minors know.
        const eng_DoubleDouble minors = minor(s[0], s[1], s[3]) + minor(s[0], s[2], s[4]) + minor(s[1], s[2], s[5]);
        const eng_DoubleDouble determinant =
            minor(s[1], s[2], s[5]) * s[0] -
            (eng_DoubleDouble::product(s[3], s[2]) - eng_DoubleDouble::product(s[5], s[4])) * s[3] +
            (eng_DoubleDouble::product(s[3], s[5]) - eng_DoubleDouble::product(s[1], s[4])) * s[4];
        // What is smaller still came from components of its own size and is no noise.
        const double largest = std::fabs(values[2]);
        const auto isNoise = [largest](double x) {
            return std::fabs(x) < 1e-29 * largest && std::fabs(x) > 1e-36 * largest;
        };
        if (determinant == eng_DoubleDouble(0) && isNoise(values[0])) values[0] = 0;
        if (values[0] == 0 && minors == eng_DoubleDouble(0) && isNoise(values[1])) values[1] = 0;
    }
    sortDescending(values);
}

// Half the sum of squared differences of the normal components plus three times the squared shears: s:s times
// 3/2 without taking a mean off large numbers.
double misesSquare(double s11, double s22, double s33, double shearSquare)
{
    const double a = s11 - s22;
    const double b = s22 - s33;
    const double c = s33 - s11;
    return 0.5 * (a * a + b * b + c * c) + 3 * shearSquare;
}

} // namespace

double eng_TensorCore::mises() const
{
    const Scaled scaled(m_component);
    const double* s = scaled.s;
    return scaled.restore(std::sqrt(misesSquare(s[0], s[1], s[2], s[3] * s[3] + s[4] * s[4] + s[5] * s[5])));
}

double eng_TensorCore::pressure() const
{
    const Scaled scaled(m_component);
    const double* s = scaled.s;
    const eng_DoubleDouble trace = eng_DoubleDouble::sum(s[0], s[1]) + s[2];
    return scaled.restore(-trace.value() / 3);
}

double eng_TensorCore::inv3() const
{
    const Scaled scaled(m_component);
    const double* s = scaled.s;
    const eng_DoubleDouble trace = eng_DoubleDouble::sum(s[0], s[1]) + s[2];
    // Three times the deviator; 27/2 det s is half of its determinant.
    const eng_DoubleDouble a = eng_DoubleDouble::product(3, s[0]) - trace;
    const eng_DoubleDouble b = eng_DoubleDouble::product(3, s[1]) - trace;
    const eng_DoubleDouble c = eng_DoubleDouble::product(3, s[2]) - trace;
    const eng_DoubleDouble d = eng_DoubleDouble::product(3, s[3]);
    const eng_DoubleDouble e = eng_DoubleDouble::product(3, s[4]);
    const eng_DoubleDouble f = eng_DoubleDouble::product(3, s[5]);
    const eng_DoubleDouble determinant = a * (b * c - f * f) - d * (d * c - f * e) + e * (d * f - b * e);
    return scaled.restore(std::cbrt(0.5 * determinant.value()));
}

double eng_TensorCore::tresca() const
{
    // A pressure common to all three moves the principal values alike, so one of the components is taken off
    // first: their spread then keeps its digits below any pressure.
    const Scaled whole(m_component);
    const double shift = whole.s[0];
    const double shifted[6] = {0, whole.s[1] - shift, whole.s[2] - shift, whole.s[3], whole.s[4], whole.s[5]};
    const Scaled scaled(shifted);
    double values[3];
    valuesOf(scaled.s, 1e-3, values);
    return whole.restore(scaled.restore(values[0] - values[2]));
}

void eng_TensorCore::inplanePrincipals(double* values) const
{
    const double plane[6] = {m_component[0], m_component[1], 0, m_component[3], 0, 0};
    const Scaled scaled(plane);
    planeValues(scaled.s[0], scaled.s[1], scaled.s[3], values);
    values[0] = scaled.restore(values[0]);
    values[1] = scaled.restore(values[1]);
}

void eng_TensorCore::principals(double* values, double digits) const
{
    const Scaled scaled(m_component);
    valuesOf(scaled.s, digits, values);
    for (int i = 0; i < 3; ++i) values[i] = scaled.restore(values[i]);
}

void eng_TensorCore::principalAxes(double* values, double* directions) const
{
    const Scaled scaled(m_component);
    double a[3][3];
    fill(scaled.s, a);
    double axes[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    rotateToDiagonal<double>(a, 1e-18, axes);
    int order[3] = {0, 1, 2};
    std::stable_sort(order, order + 3, [&a](int i, int j) { return a[i][i] > a[j][j]; });
    for (int k = 0; k < 3; ++k) {
        directions[k] = axes[order[0]][k];
        directions[3 + k] = axes[order[1]][k];
    }
    for (int k = 0; k < 3; ++k) {
        const int i = (k + 1) % 3;
        const int j = (k + 2) % 3;
        directions[6 + k] = directions[i] * directions[3 + j] - directions[j] * directions[3 + i];
    }
    principals(values, 1e-13);
}

namespace {

// One row in double precision.
template<int components, class Real> float misesOf(const Real* row, double half)
{
    const double s12 = row[components == 3 ? 2 : 3];
    double shearSquare = s12 * s12;
    if constexpr (components == 6) {
        const double s13 = row[4];
        const double s23 = row[5];
        shearSquare += s13 * s13 + s23 * s23;
    }
    const double s33 = components == 3 ? 0.0 : static_cast<double>(row[2]);
    return static_cast<float>(std::sqrt(misesSquare(row[0], row[1], s33, half * shearSquare)));
}

#ifdef __SSE2__

// A component of four rows.
template<int components> __m128 componentOf(const float* row, int component)
{
    row += component;
    return _mm_set_ps(row[3 * components], row[2 * components], row[components], row[0]);
}

// The squares of four rows in single precision.
template<int components> __m128 misesSquares(const float* row, __m128 half)
{
    const __m128 s11 = componentOf<components>(row, 0);
    const __m128 s22 = componentOf<components>(row, 1);
    const __m128 s33 = components == 3 ? _mm_setzero_ps() : componentOf<components>(row, 2);
    const __m128 s12 = componentOf<components>(row, components == 3 ? 2 : 3);
    __m128 shear = _mm_mul_ps(s12, s12);
    if constexpr (components == 6) {
        const __m128 s13 = componentOf<components>(row, 4);
        const __m128 s23 = componentOf<components>(row, 5);
        shear = _mm_add_ps(shear, _mm_add_ps(_mm_mul_ps(s13, s13), _mm_mul_ps(s23, s23)));
    }
    const __m128 a = _mm_sub_ps(s11, s22);
    const __m128 b = _mm_sub_ps(s22, s33);
    const __m128 c = _mm_sub_ps(s33, s11);
    const __m128 normal = _mm_add_ps(_mm_add_ps(_mm_mul_ps(a, a), _mm_mul_ps(b, b)), _mm_mul_ps(c, c));
    return _mm_add_ps(_mm_mul_ps(_mm_set1_ps(0.5f), normal), _mm_mul_ps(_mm_mul_ps(_mm_set1_ps(3.0f), half), shear));
}

#endif

template<int components, class Real> void misesRows(const Real* data, std::size_t rows, double half, float* out)
{
    std::size_t i = 0;
#ifdef __SSE2__
    if constexpr (sizeof(Real) == sizeof(float)) {
        // Four rows at a time in single precision, as long as no square comes near the ends of its range.
        const __m128 halves = _mm_set1_ps(static_cast<float>(half));
        const __m128 least = _mm_set1_ps(1e-24f);
        const __m128 most = _mm_set1_ps(1e36f);
        for (; i + 4 <= rows; i += 4) {
            const float* row = data + i * components;
            const __m128 squares = misesSquares<components>(row, halves);
            const __m128 fits = _mm_and_ps(_mm_cmpgt_ps(squares, least), _mm_cmplt_ps(squares, most));
            if (_mm_movemask_ps(fits) == 15) {
                _mm_storeu_ps(out + i, _mm_sqrt_ps(squares));
                continue;
            }
            for (std::size_t k = 0; k < 4; ++k) out[i + k] = misesOf<components>(row + k * components, half);
        }
    }
#endif
    for (; i < rows; ++i) out[i] = misesOf<components>(data + i * components, half);
}

template<class Real> void misesOfType(int typeCode, const Real* data, std::size_t rows, bool engineering, float* out)
{
    const double half = engineering ? 0.25 : 1; // of the squares
    switch (eng_DataType::numTensorComponents(typeCode)) {
    case 6:
        misesRows<6>(data, rows, half, out);
        return;
    case 4:
        misesRows<4>(data, rows, half, out);
        return;
    case 3:
        misesRows<3>(data, rows, half, out);
        return;
    default:
        std::fill_n(out, rows, 0.0f);
        return;
    }
}

} // namespace

void eng_mises(int typeCode, const float* data, std::size_t rows, bool engineering, float* out)
{
    misesOfType(typeCode, data, rows, engineering, out);
}

void eng_mises(int typeCode, const double* data, std::size_t rows, bool engineering, float* out)
{
    misesOfType(typeCode, data, rows, engineering, out);
}
