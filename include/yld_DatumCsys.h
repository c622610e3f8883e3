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

/// A coordinate system of the model: fixed, or following nodes of the deformed model.
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

    /// Three floats each, of length 1 where the system has the axis, in the undeformed model. Borrowed from this value
    /// until the same one is asked for again.
    const float* xAxis() const;
    const float* yAxis() const;
    const float* zAxis() const;
    const float* origin() const;

    /// Appends "Follows 3 nodes", "Follows 3 nodes on circle", "Follows single node" or "Fixed".
    void summaryValue1(yld_String& out) const;
    /// Appends "Cylindrical", "Spherical" or "Rectangular".
    void summaryValue2(yld_String& out) const;

private:
    const float* axis(int number) const;

    yld_String m_name;
    shr_CountedHld<sto_DatumCsys> m_csys;
    mutable float m_axes[4][3] = {}; // x, y, z, origin
};

/// The coordinate systems of the model, by name. What makes one keeps the system that a name has.
class YLD_API yld_DatumCsysRepository : public yld_Repository<yld_String, yld_DatumCsys>
{
public:
    yld_DatumCsysRepository();
    explicit yld_DatumCsysRepository(const sto_Model& model);
    yld_DatumCsysRepository(const yld_DatumCsysRepository&);
    yld_DatumCsysRepository& operator=(const yld_DatumCsysRepository&);
    ~yld_DatumCsysRepository();

    /// A fixed system. Its first axis points from the origin to point1; point2 lies in the plane of the first two. A
    /// point that has not 3 entries is left at (0,0,0), (1,0,0) and (0,1,0) respectively. Points on a line give axes
    /// of length 0.
    yld_DatumCsys& DatumCsysByThreePoints(const yld_String& name, yld_Enum::yld_DatumCsysTypeEnum type,
                                          const yld_Sequence<float>& origin, const yld_Sequence<float>& point1,
                                          const yld_Sequence<float>& point2);
    /// The same through three nodes, which the system follows.
    /// Raises "Invalid node label %d" for a node that the model has not, here and below.
    yld_DatumCsys& DatumCsysByThreeNodes(const yld_String& name, yld_Enum::yld_DatumCsysTypeEnum type,
                                         const yld_Node& node1, const yld_Node& node2, const yld_Node& node3);
    /// A system at one node, along the global axes, which follows the node and turns with it.
    yld_DatumCsys& DatumCsysBy6dofNode(const yld_String& name, yld_Enum::yld_DatumCsysTypeEnum type,
                                       const yld_Node& node);
    /// A system at the centre of the circle through three nodes, which it follows. Its first axis points to node1, its
    /// third is normal to the circle.
    yld_DatumCsys& DatumCsysByThreeCircNodes(const yld_String& name, yld_Enum::yld_DatumCsysTypeEnum type,
                                             const yld_Node& node1, const yld_Node& node2, const yld_Node& node3);
    /// A copy of a system under another name.
    yld_DatumCsys& DatumCsys(const yld_String& name, const yld_DatumCsys& csys);
    /// Takes the name out of the repository; the stored system stays.
    void DeleteDatumCsys(const yld_String& name);

    /// The three points as nine floats, with the defaults of DatumCsysByThreePoints.
    static void threePoints(const yld_Sequence<float>& origin, const yld_Sequence<float>& point1,
                            const yld_Sequence<float>& point2, float points[9]);

private:
    template<class Make> yld_DatumCsys& file(const yld_String& name, Make&& make);

    shr_CountedHld<sto_Model> m_model;
};

#endif
