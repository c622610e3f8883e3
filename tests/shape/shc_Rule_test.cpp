#include "platform/shape/shc_Rule.h"

#include "platform/shape/shc_ShapeDictionary.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace {

double factorial(int n) { return n < 2 ? 1 : n * factorial(n - 1); }

// Integral of x^a over -1 to +1.
double line(int a) { return a % 2 ? 0 : 2.0 / (a + 1); }

// Integral of r^a s^b over the triangle, of r^a s^b t^c over the tetrahedron.
double triangle(int a, int b) { return factorial(a) * factorial(b) / factorial(a + b + 2); }

double tetrahedron(int a, int b, int c)
{
    return factorial(a) * factorial(b) * factorial(c) / factorial(a + b + c + 3);
}

// Integral of x^a y^b z^c over the pyramid of height 1 on the square from -1 to +1: the square shrinks with
// 1 - z, so it is line(a) line(b) times the integral of z^c (1 - z)^(a + b + 2).
double pyramid(int a, int b, int c)
{
    return line(a) * line(b) * factorial(c) * factorial(a + b + 2) / factorial(a + b + c + 3);
}

double sum(const shc_Rule& rule, int a, int b, int c)
{
    double result = 0;
    for (int p = 0; p < rule.count; ++p)
        result += rule.weight[p] * std::pow(rule.point[p][0], a) * std::pow(rule.point[p][1], b) *
                  std::pow(rule.point[p][2], c);
    return result;
}

const shc_Rule& ruleOf(const char* label) { return shc_ShapeDictionary::GetShape(label)->Rule(); }

void expectPoint(const char* label, int p, double x, double y, double z)
{
    const shc_Rule& rule = ruleOf(label);
    ASSERT_LT(p, rule.count);
    EXPECT_NEAR(rule.point[p][0], x, 1e-15) << label << " " << p;
    EXPECT_NEAR(rule.point[p][1], y, 1e-15) << label << " " << p;
    EXPECT_NEAR(rule.point[p][2], z, 1e-15) << label << " " << p;
}

} // namespace

TEST(shc_Rule, gaussProductsAreExactUpToTwiceTheirPointsLessOne)
{
    for (int dimension = 1; dimension <= 3; ++dimension)
        for (int n = 1; n <= 3; ++n) {
            const shc_Rule rule = shc_Rule::Gauss(dimension, n);
            EXPECT_EQ(rule.count, std::lround(std::pow(n, dimension)));
            const int order = 2 * n - 1;
            for (int a = 0; a <= order; ++a)
                for (int b = 0; b <= (dimension > 1 ? order : 0); ++b)
                    for (int c = 0; c <= (dimension > 2 ? order : 0); ++c) {
                        const double exact = line(a) * (dimension > 1 ? line(b) : 1) * (dimension > 2 ? line(c) : 1);
                        EXPECT_NEAR(sum(rule, a, b, c), exact, 1e-14) << dimension << n << a << b << c;
                    }
            EXPECT_GT(std::abs(sum(rule, 2 * n, 0, 0) - line(2 * n) * std::pow(2, dimension - 1)), 1e-3);
        }
}

TEST(shc_Rule, trianglesAreExactForOrderOneAndTwo)
{
    for (int n : {1, 3})
        for (int a = 0; a <= (n == 1 ? 1 : 2); ++a)
            for (int b = 0; a + b <= (n == 1 ? 1 : 2); ++b)
                EXPECT_NEAR(sum(shc_Rule::Triangle(n), a, b, 0), triangle(a, b), 1e-15) << n << a << b;
    EXPECT_GT(std::abs(sum(shc_Rule::Triangle(1), 2, 0, 0) - triangle(2, 0)), 1e-3);
    EXPECT_GT(std::abs(sum(shc_Rule::Triangle(3), 3, 0, 0) - triangle(3, 0)), 1e-4);
}

TEST(shc_Rule, tetrahedraAreExactForOrderOneAndTwo)
{
    for (int n : {1, 4})
        for (int a = 0; a <= (n == 1 ? 1 : 2); ++a)
            for (int b = 0; a + b <= (n == 1 ? 1 : 2); ++b)
                for (int c = 0; a + b + c <= (n == 1 ? 1 : 2); ++c)
                    EXPECT_NEAR(sum(shc_Rule::Tetrahedron(n), a, b, c), tetrahedron(a, b, c), 1e-15);
    EXPECT_GT(std::abs(sum(shc_Rule::Tetrahedron(4), 3, 0, 0) - tetrahedron(3, 0, 0)), 1e-4);
}

TEST(shc_Rule, wedgesAreExactForTheTrianglesOrderTimesTheGaussOrder)
{
    const shc_Rule two = shc_Rule::Wedge(1, 2);
    const shc_Rule nine = shc_Rule::Wedge(3, 3);
    EXPECT_EQ(two.count, 2);
    EXPECT_EQ(nine.count, 9);
    for (int c = 0; c <= 5; ++c)
        for (int a = 0; a <= 2; ++a)
            for (int b = 0; a + b <= 2; ++b) {
                EXPECT_NEAR(sum(nine, a, b, c), triangle(a, b) * line(c), 1e-15);
                if (a + b <= 1 && c <= 3) {
                    EXPECT_NEAR(sum(two, a, b, c), triangle(a, b) * line(c), 1e-15);
                }
            }
}

TEST(shc_Rule, pyramidIsExactForSecondOrderInTheStraightPyramid)
{
    const shc_Rule rule = shc_Rule::Pyramid();
    ASSERT_EQ(rule.count, 5);
    const auto integral = [&rule](int a, int b, int c) {
        double result = 0;
        for (int p = 0; p < 5; ++p) {
            const double z = 0.5 * (1 + rule.point[p][2]);
            const double width = 1 - z;
            // The Jacobian of x = xi (1 - z), y = eta (1 - z), z = (1 + zeta) / 2.
            result += rule.weight[p] * 0.5 * width * width * std::pow(rule.point[p][0] * width, a) *
                      std::pow(rule.point[p][1] * width, b) * std::pow(z, c);
        }
        return result;
    };
    for (int a = 0; a <= 2; ++a)
        for (int b = 0; a + b <= 2; ++b)
            for (int c = 0; a + b + c <= 2; ++c) EXPECT_NEAR(integral(a, b, c), pyramid(a, b, c), 1e-15) << a << b << c;
    EXPECT_NEAR(integral(2, 0, 1), pyramid(2, 0, 1), 1e-15);
    EXPECT_NEAR(integral(0, 2, 1), pyramid(0, 2, 1), 1e-15);
    EXPECT_GT(std::abs(integral(0, 0, 3) - pyramid(0, 0, 3)), 1e-3);
}

// Sum of the weights times the Jacobian of the shape functions, with all nodes where they are in natural
// coordinates except that a pyramid's are the straight one's.
TEST(shc_Rule, weightsTimesTheJacobianGiveTheVolumeOfADistortedElement)
{
    struct Case
    {
        const char* label;
        double volume;
    };
    // Volumes of the reference cells under x -> A x with det A = 6.
    for (const Case& one : {Case{"HEX8", 8}, Case{"HEX8R", 8}, Case{"HEX20", 8}, Case{"HEX20R", 8}, Case{"HEX27", 8},
                            Case{"HEX27R", 8}, Case{"WEDGE6", 1}, Case{"WEDGE15", 1}, Case{"WEDGE18", 1},
                            Case{"TET4", 1.0 / 6}, Case{"TET10", 1.0 / 6}, Case{"PYRAMID5", 8.0 / 3}}) {
        SCOPED_TRACE(one.label);
        const shc_Topology& shape = *shc_ShapeDictionary::GetShape(one.label);
        const double a[3][3] = {{2, 1, 0}, {0, 1, 0.5}, {0, 0, 3}};
        double volume = 0;
        for (int p = 0; p < shape.NumIntegrationPoints(); ++p) {
            double slopes[3 * shc_Cell::MAX_NODES];
            shape.Cell().Derivatives(shape.Rule().point[p], slopes);
            double j[3][3] = {};
            for (int node = 0; node < shape.NumNodes(); ++node) {
                const double* n = shape.Cell().NodeCoordinates(node);
                for (int i = 0; i < 3; ++i) {
                    const double x = a[i][0] * n[0] + a[i][1] * n[1] + a[i][2] * n[2];
                    for (int k = 0; k < 3; ++k) j[i][k] += x * slopes[3 * node + k];
                }
            }
            volume += shape.Rule().weight[p] * (j[0][0] * (j[1][1] * j[2][2] - j[1][2] * j[2][1]) -
                                                j[0][1] * (j[1][0] * j[2][2] - j[1][2] * j[2][0]) +
                                                j[0][2] * (j[1][0] * j[2][1] - j[1][1] * j[2][0]));
        }
        EXPECT_NEAR(volume, 6 * one.volume, 1e-13);
    }
}

TEST(shc_Rule, pointsComeInTheirDocumentedOrder)
{
    const double g2 = 1 / std::sqrt(3.0);
    const double g3 = std::sqrt(0.6);
    const double a = 0.5854101966249685;
    const double b = 0.1381966011250105;
    expectPoint("TRUSS2", 0, 0, 0, 0);
    expectPoint("BEAM3", 0, -g2, 0, 0);
    expectPoint("BEAM3", 1, g2, 0, 0);
    expectPoint("TRI3", 0, 1.0 / 3, 1.0 / 3, 0);
    expectPoint("SHELL6", 0, 1.0 / 6, 1.0 / 6, 0);
    expectPoint("SHELL6", 1, 2.0 / 3, 1.0 / 6, 0);
    expectPoint("SHELL6", 2, 1.0 / 6, 2.0 / 3, 0);
    expectPoint("QUAD4", 0, -g2, -g2, 0);
    expectPoint("QUAD4", 1, g2, -g2, 0);
    expectPoint("QUAD4", 2, -g2, g2, 0);
    expectPoint("QUAD4", 3, g2, g2, 0);
    expectPoint("QUAD4R", 0, 0, 0, 0);
    expectPoint("QUAD8", 0, -g3, -g3, 0);
    expectPoint("QUAD8", 5, g3, 0, 0);
    expectPoint("QUAD8R", 1, g2, -g2, 0);
    expectPoint("HEX8", 1, g2, -g2, -g2);
    expectPoint("HEX8", 2, -g2, g2, -g2);
    expectPoint("HEX8", 4, -g2, -g2, g2);
    expectPoint("HEX8R", 0, 0, 0, 0);
    expectPoint("HEX20", 26, g3, g3, g3);
    expectPoint("HEX20", 9, -g3, -g3, 0);
    expectPoint("HEX20R", 7, g2, g2, g2);
    expectPoint("HEX27", 13, 0, 0, 0);
    expectPoint("WEDGE6", 0, 1.0 / 3, 1.0 / 3, -g2);
    expectPoint("WEDGE6", 1, 1.0 / 3, 1.0 / 3, g2);
    expectPoint("WEDGE15", 1, 2.0 / 3, 1.0 / 6, -g3);
    expectPoint("WEDGE15", 3, 1.0 / 6, 1.0 / 6, 0);
    expectPoint("WEDGE18", 8, 1.0 / 6, 2.0 / 3, g3);
    expectPoint("TET4", 0, 0.25, 0.25, 0.25);
    expectPoint("TET10", 0, b, b, b);
    expectPoint("TET10", 1, a, b, b);
    expectPoint("TET10", 2, b, a, b);
    expectPoint("TET10", 3, b, b, a);
    const double across = 8 * std::sqrt(2.0 / 15) / 5;
    expectPoint("PYRAMID5", 0, -across, -across, -2.0 / 3);
    expectPoint("PYRAMID5", 1, across, -across, -2.0 / 3);
    expectPoint("PYRAMID5", 2, across, across, -2.0 / 3);
    expectPoint("PYRAMID5", 3, -across, across, -2.0 / 3);
    expectPoint("PYRAMID5", 4, 0, 0, 0.4);
}

TEST(shc_Rule, pointsOfFacetsLieOnThem)
{
    const shc_Topology& hex = *shc_ShapeDictionary::GetShape("HEX20");
    const int across[6] = {1, 0, 1, 0, 2, 2};
    const double at[6] = {-1, 1, 1, -1, -1, 1};
    for (int facet = 0; facet < 6; ++facet) {
        const shc_Rule& rule = *hex.FacetRule(facet);
        ASSERT_EQ(rule.count, 9);
        double area = 0;
        for (int p = 0; p < 9; ++p) {
            EXPECT_NEAR(rule.point[p][across[facet]], at[facet], 1e-15) << facet;
            area += rule.weight[p];
        }
        EXPECT_NEAR(area, 4, 1e-14);
    }
    // Face 0 has corners 0 1 5 4: xi runs first, then zeta.
    const double g = 1 / std::sqrt(3.0);
    const shc_Rule& front = *shc_ShapeDictionary::GetShape("HEX8")->FacetRule(0);
    EXPECT_NEAR(front.point[1][0], g, 1e-15);
    EXPECT_NEAR(front.point[1][1], -1, 1e-15);
    EXPECT_NEAR(front.point[1][2], -g, 1e-15);
    // The second edge of a plane quadrilateral goes up along xi = 1.
    const shc_Rule& edge = *shc_ShapeDictionary::GetShape("QUAD4")->FacetRule(1);
    ASSERT_EQ(edge.count, 2);
    EXPECT_NEAR(edge.point[0][0], 1, 1e-15);
    EXPECT_NEAR(edge.point[0][1], -g, 1e-15);
    EXPECT_NEAR(edge.point[1][1], g, 1e-15);
}

TEST(shc_Rule, facetsOfWedgesAndPyramidsDifferInTheirPoints)
{
    const auto counts = [](const char* label) {
        std::string text;
        for (int facet = 0; facet < 6; ++facet)
            text += std::to_string(shc_ShapeDictionary::GetShape(label)->NumIntegrationPointsOnFace(facet));
        return text;
    };
    EXPECT_EQ(counts("WEDGE6"), "444110");
    EXPECT_EQ(counts("WEDGE15"), "999330");
    EXPECT_EQ(counts("WEDGE18"), "999330");
    EXPECT_EQ(counts("PYRAMID5"), "111140");
    EXPECT_EQ(counts("HEX8"), "444444");
    EXPECT_EQ(counts("HEX8R"), "111111");
    EXPECT_EQ(counts("TET10"), "333300");
    EXPECT_EQ(counts("QUAD4"), "222200");
    EXPECT_EQ(counts("AXQUAD8R"), "222200");
    EXPECT_EQ(counts("TRI6"), "222000");
    EXPECT_EQ(counts("SHELL4"), "444444");
    EXPECT_EQ(counts("SHELLAX3"), "222222");
    EXPECT_EQ(counts("POINTMASS"), "000000");
    EXPECT_EQ(shc_ShapeDictionary::GetShape("HEX8")->FacetRule(-1), nullptr);
}
