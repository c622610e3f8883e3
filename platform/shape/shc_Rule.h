#ifndef SHC_RULE_H
#define SHC_RULE_H

#include "platform/shape/shc_Cell.h"

/// Integration points in natural coordinates, with weights. A sum of weight * f * |J| over the points, J
/// being the Jacobian of the map from natural coordinates, is the integral of f over the element.
struct shc_Rule
{
    static constexpr int MAX_POINTS = 27;

    int count = 0;
    double point[MAX_POINTS][3] = {};
    double weight[MAX_POINTS] = {};

    /// Abscissa i of the Gauss rule of n points (1 to 3) on -1 to +1, ascending.
    static double GaussPoint(int n, int i);
    static double GaussWeight(int n, int i);

    /// Product of Gauss rules of n points, xi fastest, then eta, then zeta.
    static shc_Rule Gauss(int dimension, int n);
    /// Triangle: 1 point at the centroid or 3 points.
    static shc_Rule Triangle(int n);
    /// Tetrahedron: 1 point at the centroid or 4 points.
    static shc_Rule Tetrahedron(int n);
    /// A triangle's rule times a Gauss rule along zeta, the triangle fastest.
    static shc_Rule Wedge(int triangle, int along);
    /// Five points: four near the base in the order of its corners, one on the axis. Exact in the straight
    /// pyramid for polynomials of the second order, and for the products of the squares across with the
    /// height.
    static shc_Rule Pyramid();
    static shc_Rule Point();
};

#endif
