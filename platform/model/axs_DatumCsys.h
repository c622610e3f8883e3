#ifndef AXS_DATUM_CSYS_H
#define AXS_DATUM_CSYS_H

#include "platform/math/geo_Vector.h"
#include "platform/model/axs_Enum.h"
#include "platform/store/pcl_Persistent.h"

/// The nodes that a datum system follows: of each, the number of its mesh in the model and its label.
class axs_NodesPackage
{
public:
    int size() const { return static_cast<int>(m_labels.size()); }
    int ConstGetInstanceID(int i) const { return m_meshIndices[static_cast<std::size_t>(i)]; }
    int ConstGetNodeLabel(int i) const { return m_labels[static_cast<std::size_t>(i)]; }
    void append(int meshIndex, int label)
    {
        m_meshIndices.push_back(meshIndex);
        m_labels.push_back(label);
    }

    std::vector<int> m_meshIndices;
    std::vector<int> m_labels;
};

/// A datum coordinate system of the model: fixed, or following three nodes, three nodes on a circle, or one node with
/// six degrees of freedom. Axes and origin are those of the undeformed model.
class axs_DatumCsys : public pcl_Class<axs_DatumCsys>
{
public:
    static constexpr const char* className = "axs_DatumCsys";
    static constexpr unsigned classId = 0x00100040;
    static constexpr int classVersion = 1;
    // Stored: never renumber.
    static constexpr int coordinateSystem = 4; ///< the kind of datum; a file may hold others
    static constexpr int fixed = 0;
    static constexpr int threeNodes = 1;
    static constexpr int threeNodesOnCircle = 2;
    static constexpr int sixDofNode = 3;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("name", self.m_name);
        visit("id", self.m_id);
        visit("datum type", self.m_datumType);
        visit("system type", self.m_systemType);
        visit("follows", self.m_follows);
        visit("origin", self.m_origin);
        visit("axes", self.m_axes);
        visit("mesh indices", self.m_nodes.m_meshIndices);
        visit("node labels", self.m_nodes.m_labels);
    }

    /// How many nodes a system of that kind follows.
    static int numNodes(int follows) { return follows == fixed ? 0 : follows == sixDofNode ? 1 : 3; }

    /// The axes get length 1, where they have one.
    void setAxes(const geo_Vector& origin, const geo_Vector& x, const geo_Vector& y, const geo_Vector& z);
    /// x points from the origin to the first point, and the second lies in the plane of x and y.
    void setAxesThrough(const geo_Vector& origin, const geo_Vector& point1, const geo_Vector& point2);
    /// The origin is the centre of the circle through the three points, x points to the first, z is normal to the
    /// circle. Points on a line leave the origin at the first and the axes without length.
    void setAxesOnCircle(const geo_Vector& point1, const geo_Vector& point2, const geo_Vector& point3);
    /// Raises when the parts of the row do not fit each other.
    void verify(const std::string& path) const;

    std::string m_name;
    int m_id = 0; ///< from 1 on, unique in the model
    int m_datumType = coordinateSystem;
    int m_systemType = static_cast<int>(axs_CsysTypeEnm::CARTESIAN);
    int m_follows = fixed;
    std::vector<double> m_origin = {0, 0, 0};
    std::vector<double> m_axes = {1, 0, 0, 0, 1, 0, 0, 0, 1}; ///< x, y, z
    axs_NodesPackage m_nodes;
};

#endif
