#ifndef STO_MESH_OWNER_H
#define STO_MESH_OWNER_H

#include "platform/model/mshK_Model.h"
#include "platform/model/prtC_AssignmentLists.h"
#include "platform/sto/sto_DatumCsys.h"
#include "platform/sto/sto_Mesh.h"

/// What the handles on a stored part and on a stored part instance have in common: a mesh, and what is assigned to its
/// regions. What they tell is up to date with every call.
/// @tparam Body  mshK_Part or mshK_PartInstance
template<class Body> class sto_MeshOwner
{
public:
    /// No part or instance.
    sto_MeshOwner() = default;
    sto_MeshOwner(const lnk_ShortCut<Body>& reference, const lnk_ShortCut<mshK_Model>& model)
        : m_reference(reference), m_model(model)
    {
    }

    bool isValid() const { return m_reference.isValid(); }
    std::string name() const { return m_reference.fetch()->m_name; }
    sto_Mesh mesh() const { return sto_Mesh(m_reference.fetch()->m_mesh); }
    /// The model that it belongs to; null where the handle was made without one.
    const lnk_ShortCut<mshK_Model>& model() const { return m_model; }

    /// Make a set of the mesh, see sto_Mesh.
    sto_Set Nset(const std::string& name, const int* labels, int count, bool isInternal, bool isUnsorted)
    {
        return mesh().Nset(name, labels, count, isInternal, isUnsorted);
    }
    sto_Set Elset(const std::string& name, const int* labels, int count, bool isInternal)
    {
        return mesh().Elset(name, labels, count, isInternal);
    }
    sto_Set Surface(const std::string& name, const std::vector<sto_SurfaceSubset>& subsets, bool isInternal)
    {
        return mesh().Surface(name, subsets, isInternal);
    }

    /// Append to the lists of what is assigned. The region is a set of the same file, else they raise.
    void AssignSection(const setC_Region& region, const std::string& sectionName, double offset) const;
    void assignMaterialOrientation(const setC_Region& region, const std::string& datumName, const sto_DatumCsys& datum,
                                   prtC_AxisEnm axis, float angle, prtC_StackDirectionEnm stackDirection) const;
    void assignRebarOrientation(const setC_Region& region, const std::string& datumName, const sto_DatumCsys& datum,
                                prtC_AxisEnm axis, float angle) const;
    void assignBeamOrientation(const setC_Region& region, prtC_OrientationMethodEnm method,
                               const geo_Vector& vector) const;
    /// The lists as they stand.
    prtC_AssignmentLists assigned() const { return m_reference.fetch()->m_assigned; }

    /// A system of the model through three points, nine numbers: the origin, a point on the first axis, a point in the
    /// plane of the first two. A name that the model has keeps its system, which is given.
    sto_DatumCsys DatumCsys(const std::string& name, const float points[9], axs_CsysTypeEnm type) const;

    std::string solverInput() const { return m_reference.fetch()->m_assigned.m_solverInput; }
    void setSolverInput(const std::string& text) const;

    /// The file that the model is in.
    const std::shared_ptr<fio_FileBody>& modelFile() const { return m_reference.file(); }
    const lnk_ShortCut<Body>& shortCut() const { return m_reference; }

protected:
    lnk_ShortCut<Body> m_reference;
    lnk_ShortCut<mshK_Model> m_model;
};

/// Raises unless the set of the region lies in that file.
void sto_requireRegion(const setC_Region& region, const std::shared_ptr<fio_FileBody>& file);
/// A reference to a system by its id, or to none. Raises unless it lies in that file.
dfrC_DatumRef sto_datumRef(const sto_DatumCsys& datum, const std::shared_ptr<fio_FileBody>& file);

#endif
