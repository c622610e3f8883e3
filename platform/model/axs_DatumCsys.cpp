#include "platform/model/axs_DatumCsys.h"

#include "platform/store/fio_Error.h"

void axs_DatumCsys::setAxes(const geo_Vector& origin, const geo_Vector& x, const geo_Vector& y, const geo_Vector& z)
{
    m_origin = {origin.x, origin.y, origin.z};
    m_axes.clear();
    for (const geo_Vector& axis : {x.unit(), y.unit(), z.unit()}) m_axes.insert(m_axes.end(), {axis.x, axis.y, axis.z});
}

void axs_DatumCsys::setAxesThrough(const geo_Vector& origin, const geo_Vector& point1, const geo_Vector& point2)
{
    const geo_Vector x = point1 - origin;
    const geo_Vector z = x.cross(point2 - origin);
    setAxes(origin, x, z.cross(x), z);
}

void axs_DatumCsys::setAxesOnCircle(const geo_Vector& point1, const geo_Vector& point2, const geo_Vector& point3)
{
    const geo_Vector a = point2 - point1;
    const geo_Vector b = point3 - point1;
    const geo_Vector normal = a.cross(b);
    const double square = normal.dot(normal);
    if (square == 0.0) {
        setAxes(point1, {}, {}, {});
        return;
    }
    const geo_Vector toCentre = (0.5 / square) * (b.dot(b) * normal.cross(a) + a.dot(a) * b.cross(normal));
    setAxes(point1 + toCentre, -toCentre, normal.cross(-toCentre), normal);
}

void axs_DatumCsys::verify(const std::string& path) const
{
    if (m_origin.size() != 3 || m_axes.size() != 9 || m_follows < fixed || m_follows > sixDofNode ||
        m_nodes.size() != numNodes(m_follows) || m_nodes.m_meshIndices.size() != m_nodes.m_labels.size()) {
        fio_raise(path, "a datum coordinate system makes no sense; the file is damaged");
    }
}
