#ifndef GEO_VECTOR_H
#define GEO_VECTOR_H

/// A point or direction in space, in double precision.
struct geo_Vector
{
    double x = 0;
    double y = 0;
    double z = 0;

    constexpr geo_Vector() = default;
    constexpr geo_Vector(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}

    friend constexpr geo_Vector operator+(const geo_Vector& a, const geo_Vector& b)
    {
        return {a.x + b.x, a.y + b.y, a.z + b.z};
    }
    friend constexpr geo_Vector operator-(const geo_Vector& a, const geo_Vector& b)
    {
        return {a.x - b.x, a.y - b.y, a.z - b.z};
    }
    friend constexpr geo_Vector operator-(const geo_Vector& a) { return {-a.x, -a.y, -a.z}; }
    friend constexpr geo_Vector operator*(double s, const geo_Vector& a) { return {s * a.x, s * a.y, s * a.z}; }
    friend constexpr bool operator==(const geo_Vector& a, const geo_Vector& b)
    {
        return a.x == b.x && a.y == b.y && a.z == b.z;
    }

    constexpr double dot(const geo_Vector& b) const { return x * b.x + y * b.y + z * b.z; }
    constexpr geo_Vector cross(const geo_Vector& b) const
    {
        return {y * b.z - z * b.y, z * b.x - x * b.z, x * b.y - y * b.x};
    }
    /// Length, whatever the size of the components.
    double length() const;
    /// The same direction with length 1; a vector without length stays zero.
    geo_Vector unit() const;
};

#endif
