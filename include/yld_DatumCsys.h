#ifndef YLD_DATUM_CSYS_H
#define YLD_DATUM_CSYS_H

#include "containers/shr_COW.h"
#include "platform/base/bas_Export.h"
#include "yld_Enum.h"
#include "yld_Repository.h"
#include "yld_Sequence.h"
#include "yld_String.h"

class sto_DatumCsys;
class sto_Model;
class yld_Node;

/// A coordinate system of the model: fixed in space, or attached to nodes that it follows as the model deforms. A value
/// that refers to the stored system.
class YLD_API yld_DatumCsys
{
public:
    /// No system: all axes are 0.
    yld_DatumCsys();
    yld_DatumCsys(const yld_String& name, const sto_DatumCsys& csys);
    yld_DatumCsys(const yld_DatumCsys&);
    yld_DatumCsys& operator=(const yld_DatumCsys&);
    ~yld_DatumCsys();

    yld_String name() const { return m_name; }
    /// The stored system, by a handle of its own.
    sto_DatumCsys datumCsys() const;
    yld_Enum::yld_DatumCsysTypeEnum type() const;

    /// The directions of the axes (unit vectors) and the origin (model units) in the undeformed model: three floats in
    /// global coordinates. An axis that the points do not define, because they lie on a line, is 0, 0, 0. Each call
    /// looks at the store; the pointer is borrowed from this object until the same function is called again.
    const float* xAxis() const;
    const float* yAxis() const;
    const float* zAxis() const;
    const float* origin() const;

    /// How the system moves, as text: appends "Follows 3 nodes", "Follows 3 nodes on circle", "Follows single node" or
    /// "Fixed".
    void summaryValue1(yld_String& out) const;
    /// What its coordinates are, as text: appends "Cylindrical", "Spherical" or "Rectangular".
    void summaryValue2(yld_String& out) const;

private:
    const float* axis(int number) const;

    yld_String m_name;
    shr_CountedHld<sto_DatumCsys> m_csys;
    mutable float m_axes[4][3] = {}; // x, y, z, origin
};

/// The coordinate systems of the model, by name. A function that makes one under a name that is in use changes nothing
/// and gives the system of that name. References are good until a system is added or removed.
class YLD_API yld_DatumCsysRepository : public yld_Repository<yld_String, yld_DatumCsys>
{
public:
    yld_DatumCsysRepository();
    explicit yld_DatumCsysRepository(const sto_Model& model);
    yld_DatumCsysRepository(const yld_DatumCsysRepository&);
    yld_DatumCsysRepository& operator=(const yld_DatumCsysRepository&);
    ~yld_DatumCsysRepository();

    /// A fixed system. Its first axis points from the origin to point1, its second lies in the plane of the three
    /// points, on the side of point2, its third is normal to that plane.
    /// @param origin, point1, point2  three global coordinates each. Where a sequence does not have exactly 3 entries,
    ///                                (0,0,0), (1,0,0) or (0,1,0) is taken in its place.
    /// Points on a line define no second and third axis: these have length 0.
    yld_DatumCsys& DatumCsysByThreePoints(const yld_String& name, yld_Enum::yld_DatumCsysTypeEnum type,
                                          const yld_Sequence<float>& origin, const yld_Sequence<float>& point1,
                                          const yld_Sequence<float>& point2);
    /// The same with three nodes for the three points; the system follows them.
    /// This and the other functions that take nodes raise "Invalid node label %d" for a node that the model lacks.
    yld_DatumCsys& DatumCsysByThreeNodes(const yld_String& name, yld_Enum::yld_DatumCsysTypeEnum type,
                                         const yld_Node& node1, const yld_Node& node2, const yld_Node& node3);
    /// A system at one node, parallel to the global axes at first; it moves with the node and turns with its rotations.
    yld_DatumCsys& DatumCsysBy6dofNode(const yld_String& name, yld_Enum::yld_DatumCsysTypeEnum type,
                                       const yld_Node& node);
    /// A system at the centre of the circle through three nodes, which it follows. Its first axis points to node1, its
    /// third is normal to the circle.
    yld_DatumCsys& DatumCsysByThreeCircNodes(const yld_String& name, yld_Enum::yld_DatumCsysTypeEnum type,
                                             const yld_Node& node1, const yld_Node& node2, const yld_Node& node3);
    /// A copy of a system under another name.
    yld_DatumCsys& DatumCsys(const yld_String& name, const yld_DatumCsys& csys);
    /// Removes the name here; the stored system stays in the file and comes back when the list is read again.
    void DeleteDatumCsys(const yld_String& name);

    /// The three points as nine floats, with the defaults of DatumCsysByThreePoints.
    static void threePoints(const yld_Sequence<float>& origin, const yld_Sequence<float>& point1,
                            const yld_Sequence<float>& point2, float points[9]);

private:
    template<class Make> yld_DatumCsys& file(const yld_String& name, Make&& make);

    shr_CountedHld<sto_Model> m_model;
};

#endif
