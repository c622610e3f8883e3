#ifndef STO_PART_INSTANCE_H
#define STO_PART_INSTANCE_H

#include "platform/model/mshK_PartInstance.h"
#include "platform/sto/sto_Mesh.h"

/// A handle on a stored part instance.
class sto_PartInstance
{
public:
    /// No instance.
    sto_PartInstance() = default;
    explicit sto_PartInstance(const lnk_ShortCut<mshK_PartInstance>& reference) : m_reference(reference) {}

    bool isValid() const { return m_reference.isValid(); }
    bool IsPartInstance() const { return true; }
    /// Whether the mesh refers to nodes of other instances. Those of parts never do.
    bool isAssemblyInstance() const { return false; }
    std::string name() const { return m_reference.fetch()->m_name; }
    std::string partName() const { return m_reference.fetch()->m_partName; }
    /// The type code of the part.
    int partType() const;
    sto_Mesh mesh() const { return sto_Mesh(m_reference.fetch()->m_mesh); }
    /// Rotation vector and translation, six numbers.
    std::vector<double> placement() const;

    /// Make a set of this instance, see sto_Mesh.
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

    /// The file that the model is in.
    const std::shared_ptr<fio_FileBody>& modelFile() const { return m_reference.file(); }
    const lnk_ShortCut<mshK_PartInstance>& shortCut() const { return m_reference; }

private:
    lnk_ShortCut<mshK_PartInstance> m_reference;
};

#endif
