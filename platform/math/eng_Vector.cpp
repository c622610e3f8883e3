#include "platform/math/eng_Vector.h"

#include <algorithm>
#include <cmath>

double eng_norm(const float* components, int length)
{
    // Squares of floats fit a double with room to spare.
    double sum = 0;
    for (int i = 0; i < length; ++i) sum += double(components[i]) * components[i];
    return std::sqrt(sum);
}

double eng_norm(const double* components, int length)
{
    double largest = 0;
    for (int i = 0; i < length; ++i) largest = std::max(largest, std::fabs(components[i]));
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
