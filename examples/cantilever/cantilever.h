#ifndef CANTILEVER_H
#define CANTILEVER_H

#include <cmath>

/// The problem that the analysis solves and the report checks: a steel bar, clamped at one end, with a load
/// across the other end that grows in equal increments. Metres, newtons, pascals.
///
///        z                        | load
///        |_____________________   v
///      //|_____________________|  height
///      //            length        --> x      width along y
struct Cantilever
{
    static constexpr double length = 1.0;
    static constexpr double width = 0.06;
    static constexpr double height = 0.1;
    static constexpr double youngsModulus = 210.0e9;
    static constexpr double poissonsRatio = 0.3;
    static constexpr double load = 5000.0; ///< at the last increment, towards -z
    static constexpr int increments = 10;

    static constexpr double area() { return width * height; }
    static constexpr double secondMoment() { return width * height * height * height / 12.0; }
    static constexpr double shearModulus() { return youngsModulus / (2.0 * (1.0 + poissonsRatio)); }

    /// How far the end goes down under a load: bending alone (Euler and Bernoulli).
    static constexpr double bendingDeflection(double force)
    {
        return force * length * length * length / (3.0 * youngsModulus * secondMoment());
    }
    /// Bending and shear (Timoshenko), with Cowper's shear coefficient of a rectangle.
    static constexpr double deflection(double force)
    {
        constexpr double coefficient = 10.0 * (1.0 + poissonsRatio) / (12.0 + 11.0 * poissonsRatio);
        return bendingDeflection(force) + force * length / (coefficient * shearModulus() * area());
    }
    /// The stress along the bar at a place, z counted from the axis, upwards.
    static constexpr double bendingStress(double force, double x, double z)
    {
        return force * (length - x) * z / secondMoment();
    }
    /// The shear stress across the bar, parabolic over the height.
    static constexpr double shearStress(double force, double z)
    {
        return -1.5 * force / area() * (1.0 - 4.0 * z * z / (height * height));
    }
    static double mises(double force, double x, double z)
    {
        const double normal = bendingStress(force, x, z);
        const double shear = shearStress(force, z);
        return std::sqrt(normal * normal + 3.0 * shear * shear);
    }
};

#endif
