#include "platform/shape/shc_Rule.h"

#include <cmath>

double shc_Rule::GaussPoint(int n, int i)
{
    static const double two = std::sqrt(1.0 / 3.0);
    static const double three = std::sqrt(0.6);
    if (n == 2) return i == 0 ? -two : two;
    if (n == 3) return (i - 1) * three;
    return 0;
}

double shc_Rule::GaussWeight(int n, int i)
{
    if (n == 2) return 1;
    if (n == 3) return i == 1 ? 8.0 / 9.0 : 5.0 / 9.0;
    return 2;
}

shc_Rule shc_Rule::Point()
{
    shc_Rule rule;
    rule.count = 1;
    rule.weight[0] = 1;
    return rule;
}

shc_Rule shc_Rule::Gauss(int dimension, int n)
{
    shc_Rule rule;
    rule.count = 1;
    for (int k = 0; k < dimension; ++k) rule.count *= n;
    for (int p = 0; p < rule.count; ++p) {
        rule.weight[p] = 1;
        int rest = p;
        for (int k = 0; k < dimension; ++k) {
            rule.point[p][k] = GaussPoint(n, rest % n);
            rule.weight[p] *= GaussWeight(n, rest % n);
            rest /= n;
        }
    }
    return rule;
}

shc_Rule shc_Rule::Triangle(int n)
{
    shc_Rule rule;
    rule.count = n;
    if (n == 1) {
        rule.point[0][0] = rule.point[0][1] = 1.0 / 3.0;
        rule.weight[0] = 0.5;
        return rule;
    }
    for (int p = 0; p < 3; ++p) {
        rule.point[p][0] = p == 1 ? 2.0 / 3.0 : 1.0 / 6.0;
        rule.point[p][1] = p == 2 ? 2.0 / 3.0 : 1.0 / 6.0;
        rule.weight[p] = 1.0 / 6.0;
    }
    return rule;
}

shc_Rule shc_Rule::Tetrahedron(int n)
{
    shc_Rule rule;
    rule.count = n;
    if (n == 1) {
        for (int k = 0; k < 3; ++k) rule.point[0][k] = 0.25;
        rule.weight[0] = 1.0 / 6.0;
        return rule;
    }
    const double far = (5 + 3 * std::sqrt(5.0)) / 20;
    const double near = (5 - std::sqrt(5.0)) / 20;
    for (int p = 0; p < 4; ++p) {
        for (int k = 0; k < 3; ++k) rule.point[p][k] = p == k + 1 ? far : near;
        rule.weight[p] = 1.0 / 24.0;
    }
    return rule;
}

shc_Rule shc_Rule::Wedge(int triangle, int along)
{
    const shc_Rule base = Triangle(triangle);
    shc_Rule rule;
    for (int layer = 0; layer < along; ++layer) {
        for (int p = 0; p < triangle; ++p) {
            rule.point[rule.count][0] = base.point[p][0];
            rule.point[rule.count][1] = base.point[p][1];
            rule.point[rule.count][2] = GaussPoint(along, layer);
            rule.weight[rule.count] = base.weight[p] * GaussWeight(along, layer);
            ++rule.count;
        }
    }
    return rule;
}

// In the straight pyramid of height 1 over the square from -1 to +1: the moments of 1, z, z^2, x^2 and x^2 z
// (4/3 times 1, 1/4, 1/10, 1/5, 1/30) fix the five unknowns. The four points come at z = 1/6 with
// x^2 = y^2 = 32/135 and 27/128 of the volume each, the fifth at z = 7/10 with 5/32. Undoing the shrinking,
// xi = x / (1 - z) and zeta = 2 z - 1, and dividing by its Jacobian (1 - z)^2 / 2 gives the numbers below.
shc_Rule shc_Rule::Pyramid()
{
    static constexpr int sign[4][2] = {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}};
    const double across = std::sqrt(32.0 / 135.0) * 6.0 / 5.0;
    shc_Rule rule;
    rule.count = 5;
    for (int p = 0; p < 4; ++p) {
        rule.point[p][0] = sign[p][0] * across;
        rule.point[p][1] = sign[p][1] * across;
        rule.point[p][2] = -2.0 / 3.0;
        rule.weight[p] = 81.0 / 100.0;
    }
    rule.point[4][2] = 2.0 / 5.0;
    rule.weight[4] = 125.0 / 27.0;
    return rule;
}
