#include "platform/auxiliary/aux_CoordCont3D.h"

#include <cmath>

aux_Placement::aux_Placement(const double placement[6])
{
    const double x = placement[0];
    const double y = placement[1];
    const double z = placement[2];
    const double angle = std::sqrt(x * x + y * y + z * z);
    for (int i = 0; i < 3; ++i) m_translation[i] = placement[3 + i];
    m_identity = angle == 0.0 && m_translation[0] == 0.0 && m_translation[1] == 0.0 && m_translation[2] == 0.0;
    if (angle == 0.0) return;

    const double axis[3] = {x / angle, y / angle, z / angle};
    const double cosine = std::cos(angle);
    const double sine = std::sin(angle);
    const double cross[3][3] = {{0, -axis[2], axis[1]}, {axis[2], 0, -axis[0]}, {-axis[1], axis[0], 0}};
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) {
            m_rotation[i][j] = (i == j ? cosine : 0.0) + sine * cross[i][j] + (1.0 - cosine) * axis[i] * axis[j];
        }
    }
}

void aux_Placement::move(const float from[3], float to[3]) const
{
    const double point[3] = {from[0], from[1], from[2]};
    for (int i = 0; i < 3; ++i) {
        const double* row = m_rotation[i];
        to[i] = static_cast<float>(row[0] * point[0] + row[1] * point[1] + row[2] * point[2] + m_translation[i]);
    }
}

// The copy of the array shares the values that the call before has loaded, and keeps them whatever becomes of the
// object that it was taken from.
aux_CoordCont3D::aux_CoordCont3D(const pcl_Array<float>& coordinates, int dimension, const aux_Placement& placement)
    : m_coordinates((coordinates.data(), coordinates)), m_values(m_coordinates.data()), m_dimension(dimension),
      m_numNodes(static_cast<int>(coordinates.size() / dimension)), m_placement(placement)
{
}
