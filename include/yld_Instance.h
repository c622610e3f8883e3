#ifndef YLD_INSTANCE_H
#define YLD_INSTANCE_H

#include "yld_Part.h"
#include "yld_PartOrInstance.h"

class sto_Model;
class sto_PartInstance;
class yld_Mesh;

extern template class yld_PartOrInstance<yld_Instance>;

/// A part placed in the assembly: it shows the nodes and elements of the part at their place there, and has sets of its
/// own. yld_Assembly::Instance() makes one.
class YLD_API yld_Instance : public yld_PartOrInstance<yld_Instance>
{
public:
    yld_Instance();
    yld_Instance(const yld_String& name, yld_Enum::yld_DimensionEnum space, const sto_PartInstance& instance,
                 const yld_MeshHandle& mesh);
    yld_Instance(const yld_String& name, yld_Enum::yld_DimensionEnum space, yld_Enum::yld_PartTypeEnum type,
                 const sto_PartInstance& instance, const yld_MeshHandle& mesh);
    yld_Instance(const yld_Instance&);
    yld_Instance& operator=(const yld_Instance&);
    ~yld_Instance() override;

    /// Always raises "Nodes cannot be added to the instance.".
    void addNodes(const yld_Sequence<int>& labels, const yld_Sequence<yld_Sequence<float>>& coordinates,
                  const yld_String& setName = yld_String()) override;
    /// Always raises "Elements cannot be added to the instance.".
    void addElements(const yld_Sequence<int>& labels, const yld_Sequence<yld_Sequence<int>>& connectivity,
                     const yld_String& type, const yld_String& setName = yld_String(),
                     const yld_SectionCategory& category = yld_SectionCategory(),
                     const yld_ElemCtrlParams& params = yld_ElemCtrlParams()) override;

    using yld_PartOrInstance::ElementSet;
    using yld_PartOrInstance::NodeSet;
    /// A node set by labels. They are sorted, and each is taken once, unless isUnsorted is set. The reference is good
    /// until the sets of the instance are next changed. Raises "Duplicate set or surface name %s", "Invalid node label
    /// %d".
    yld_Set& NodeSet(const yld_String& name, const yld_Sequence<int>& labels, bool isInternal = false,
                     bool isUnsorted = false, bool skipRefresh = false);
    /// An element set by labels. Raises "Duplicate set or surface name %s", "Invalid element label %d".
    yld_Set& ElementSet(const yld_String& name, const yld_Sequence<int>& labels, bool isInternal = false,
                        bool skipRefresh = false);

    /// The name of the part that is placed here.
    yld_String partName() const;
    /// For the layers underneath: a handle on the stored instance.
    sto_PartInstance instance() const;
};

/// The part instances of the assembly, by name, with all meshes of the model.
class YLD_API yld_InstanceRepository : public yld_Repository<yld_String, yld_Instance>
{
public:
    yld_InstanceRepository();
    explicit yld_InstanceRepository(const sto_Model& model);
    yld_InstanceRepository(const yld_InstanceRepository&);
    yld_InstanceRepository& operator=(const yld_InstanceRepository&);
    ~yld_InstanceRepository();

    /// Places a part. The instance gets its nodes at origin + x e1 + y e2 + z e3, e1 to e3 being the base vectors,
    /// which are at right angles, made length 1.
    /// @param localCoordSystem  empty to leave the part where it is, or four rows: three base vectors of 3 entries, of
    ///                          any length but zero, and the origin of 2 or 3 entries
    /// Raises "localCoordSystem should contain 4 sequences.", "The coordinate system of part instance "%s" has entries
    /// that are not numbers.", "Coord system base vectors should be of length 3.".
    yld_Instance& Instance(const yld_String& name, const yld_Part& part,
                           const yld_Sequence<yld_Sequence<float>>& localCoordSystem);

    /// For the layers underneath: the mesh of each instance.
    yld_MeshList& meshes() { return m_meshes; }
    const yld_MeshList& meshes() const { return m_meshes; }

private:
    shr_CountedHld<sto_Model> m_model;
    yld_MeshList m_meshes;
};

#endif
