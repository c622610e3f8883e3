#include "platform/math/geo_Vector.h"

#include "platform/math/eng_Vector.h"

#include <algorithm>
#include <cmath>

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
