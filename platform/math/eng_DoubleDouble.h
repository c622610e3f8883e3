#ifndef ENG_DOUBLEDOUBLE_H
#define ENG_DOUBLEDOUBLE_H

#include <cmath>

/// A number as the unevaluated sum of two doubles: some 31 decimal digits, the range of a double. For the few
/// places where differences of products cancel; components are expected to be scaled to around 1 first, and
/// infinities are not carried.
class eng_DoubleDouble
{
public:
    constexpr eng_DoubleDouble() = default;
    constexpr eng_DoubleDouble(double value) : m_high(value) {}

    double value() const { return m_high + m_low; }
    double high() const { return m_high; }

    /// Exact sum and product of two doubles.
    static eng_DoubleDouble sum(double a, double b)
    {
        const double s = a + b;
        const double part = s - a;
        return {s, (a - (s - part)) + (b - part)};
    }
    static eng_DoubleDouble product(double a, double b)
    {
        const double p = a * b;
        return {p, std::fma(a, b, -p)};
    }

    friend eng_DoubleDouble operator-(eng_DoubleDouble a) { return {-a.m_high, -a.m_low}; }
    friend eng_DoubleDouble operator+(eng_DoubleDouble a, eng_DoubleDouble b)
    {
        const eng_DoubleDouble high = sum(a.m_high, b.m_high);
        const eng_DoubleDouble low = sum(a.m_low, b.m_low);
        const eng_DoubleDouble first = quickSum(high.m_high, high.m_low + low.m_high);
        return quickSum(first.m_high, first.m_low + low.m_low);
    }
    friend eng_DoubleDouble operator-(eng_DoubleDouble a, eng_DoubleDouble b) { return a + -b; }
    friend eng_DoubleDouble operator*(eng_DoubleDouble a, eng_DoubleDouble b)
    {
        const eng_DoubleDouble p = product(a.m_high, b.m_high);
        return quickSum(p.m_high, p.m_low + (a.m_high * b.m_low + a.m_low * b.m_high));
    }
    friend eng_DoubleDouble operator/(eng_DoubleDouble a, eng_DoubleDouble b)
    {
        const double first = a.m_high / b.m_high;
        eng_DoubleDouble rest = a - b * first;
        const double second = rest.m_high / b.m_high;
        rest = rest - b * second;
        return quickSum(first, second) + rest.m_high / b.m_high;
    }
    friend bool operator<(eng_DoubleDouble a, eng_DoubleDouble b)
    {
        return a.m_high < b.m_high || (a.m_high == b.m_high && a.m_low < b.m_low);
    }
    friend bool operator==(eng_DoubleDouble a, eng_DoubleDouble b)
    {
        return a.m_high == b.m_high && a.m_low == b.m_low;
    }

private:
    constexpr eng_DoubleDouble(double high, double low) : m_high(high), m_low(low) {}

    // |a| is at least |b|, or a is 0.
    static eng_DoubleDouble quickSum(double a, double b)
    {
        const double s = a + b;
        return {s, b - (s - a)};
    }

    double m_high = 0;
    double m_low = 0;
};

inline eng_DoubleDouble eng_abs(eng_DoubleDouble a) { return a < eng_DoubleDouble(0) ? -a : a; }
inline double eng_abs(double a) { return std::fabs(a); }

inline eng_DoubleDouble eng_sqrt(eng_DoubleDouble a)
{
    if (!(eng_DoubleDouble(0) < a)) return 0;
    const double root = std::sqrt(a.high());
    // One step of Newton's iteration doubles the digits.
    return eng_DoubleDouble(root) + (a - eng_DoubleDouble::product(root, root)).value() / (2 * root);
}
inline double eng_sqrt(double a) { return std::sqrt(a); }

#endif
