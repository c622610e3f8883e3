#ifndef STO_DATUMCSYS_H
#define STO_DATUMCSYS_H

#include "platform/model/axs_DatumCsys.h"

/// A handle on a stored datum coordinate system. What it tells is up to date with every call.
class sto_DatumCsys
{
public:
    /// No system.
    sto_DatumCsys() = default;
    explicit sto_DatumCsys(const lnk_ShortCut<axs_DatumCsys>& reference) : m_reference(reference) {}

    bool isValid() const { return m_reference.isValid(); }
    std::string name() const { return datum()->m_name; }
    int GetDatumId() const { return datum()->m_id; }
    axs_CsysTypeEnm GetCsysType() const { return static_cast<axs_CsysTypeEnm>(datum()->m_systemType); }
    /// Whether it follows three nodes, on a circle or not.
    bool IsDynamicSystem() const { return Is3nodedSystem() || Is3nodedCircSystem(); }
    bool Is3nodedSystem() const { return datum()->m_follows == axs_DatumCsys::threeNodes; }
    bool Is3nodedCircSystem() const { return datum()->m_follows == axs_DatumCsys::threeNodesOnCircle; }
    bool Is6dofNodeSystem() const { return datum()->m_follows == axs_DatumCsys::sixDofNode; }
    /// The mesh and the label of the one node that is followed; raises for a system that follows none.
    int ConstInstanceID() const;
    int ConstNodeLabel() const;
    axs_NodesPackage nodes() const { return datum()->m_nodes; }
    /// Three numbers, of the undeformed model. @param axis  0 to 2
    void axis(int axis, float components[3]) const;
    void origin(float coordinates[3]) const;

    /// The row, checked.
    std::shared_ptr<const axs_DatumCsys> datum() const;
    const lnk_ShortCut<axs_DatumCsys>& shortCut() const { return m_reference; }

private:
    lnk_ShortCut<axs_DatumCsys> m_reference;
};

#endif
