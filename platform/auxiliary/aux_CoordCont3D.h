#ifndef AUX_COORD_CONT_3D_H
#define AUX_COORD_CONT_3D_H

#include "platform/store/pcl_Array.h"

/// A turn followed by a shift. The turn is a rotation vector: its direction is the axis, its length the angle in
/// radians.
class aux_Placement
{
public:
    /// Leaves every point where it is.
    aux_Placement() = default;
    /// @param placement  three components of the rotation vector, then three of the translation
    explicit aux_Placement(const double placement[6]);

    bool isIdentity() const { return m_identity; }
    /// In double precision, rounded once at the end.
    void move(const float from[3], float to[3]) const;

private:
    bool m_identity = true;
    double m_rotation[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    double m_translation[3] = {0, 0, 0};
};

/// The coordinates of the nodes of one mesh in space, by index. Where the mesh is placed somewhere, points are moved
/// as they are asked for, so no second array exists.
class aux_CoordCont3D
{
public:
    /// Reads the array if that has not happened yet, and holds on to its values.
    /// @param dimension  2 or 3 numbers a node
    aux_CoordCont3D(const pcl_Array<float>& coordinates, int dimension, const aux_Placement& placement);

    int NumNodes() const { return m_numNodes; }
    /// Three floats of one node; the index is not checked. z is 0 in the plane.
    void GetCoord(int index, float coordinates[3]) const
    {
        const float* stored = m_values + static_cast<std::size_t>(index) * static_cast<std::size_t>(m_dimension);
        const float point[3] = {stored[0], stored[1], m_dimension == 3 ? stored[2] : 0.0f};
        if (m_placement.isIdentity()) std::memcpy(coordinates, point, sizeof point);
        else m_placement.move(point, coordinates);
    }
    /// The array itself, `dimension` floats a node, borrowed from this object; null where points are moved.
    const float* data() const { return m_placement.isIdentity() ? m_values : nullptr; }
    int dimension() const { return m_dimension; }

private:
    pcl_Array<float> m_coordinates;
    const float* m_values;
    int m_dimension;
    int m_numNodes;
    aux_Placement m_placement;
};

#endif
