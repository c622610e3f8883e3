#include "platform/math/eng_Vector.h"

#include "platform/math/geo_Vector.h"

#include <algorithm>
#include <cmath>

double eng_norm(const float* components, int length)
{
    // Squares of floats fit a double with room to spare.
    double sum = 0;
    for (int i = 0; i < length; ++i)
        sum += double(components[i]) * components[i];
    return std::sqrt(sum);
}

double eng_norm(const double* components, int length)
{
    double largest = 0;
    for (int i = 0; i < length; ++i)
        largest = std::max(largest, std::fabs(components[i]));
    if (largest == 0 || !std::isfinite(largest)) return largest;
    int exponent = 0;
    std::frexp(largest, &exponent);
    double sum = 0;
    for (int i = 0; i < length; ++i) {
        const double scaled = std::ldexp(components[i], -exponent);
        sum += scaled * scaled;
    }
    return std::ldexp(std::sqrt(sum), exponent);
}

double geo_Vector::length() const
{
    const double components[3] = {x, y, z};
    return eng_norm(components, 3);
}

geo_Vector geo_Vector::unit() const
{
    const double size = std::max({std::fabs(x), std::fabs(y), std::fabs(z)});
    if (size == 0 || !std::isfinite(size)) return {};
    int exponent = 0;
    std::frexp(size, &exponent);
    const geo_Vector scaled(std::ldexp(x, -exponent), std::ldexp(y, -exponent), std::ldexp(z, -exponent));
    const double root = std::sqrt(scaled.dot(scaled));
    return {scaled.x / root, scaled.y / root, scaled.z / root};
}
