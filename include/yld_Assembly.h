#ifndef YLD_ASSEMBLY_H
#define YLD_ASSEMBLY_H

#include "yld_DiscreteEntity.h"
#include "yld_Instance.h"

class sto_Assembly;
class sto_Model;

/// The root assembly: the part instances, sets that span them, and a small mesh of its own if there is one.
class YLD_API yld_Assembly : public yld_DiscreteEntity
{
public:
    yld_Assembly();
    yld_Assembly(const yld_String& name, const sto_Assembly& assembly, const sto_Model& model);
    yld_Assembly(const yld_Assembly&);
    yld_Assembly& operator=(const yld_Assembly&);
    ~yld_Assembly() override;

    /// Places a part. Raises "A part instance named "%s" already exists." and what
    /// yld_InstanceRepository::Instance raises.
    yld_Instance& Instance(const yld_String& name, const yld_Part& part,
                           const yld_Sequence<yld_Sequence<float>>& localCoordSystem =
                               yld_Sequence<yld_Sequence<float>>());
    /// The repository as it stands, nothing is read.
    yld_InstanceRepository& instance();
    yld_InstanceRepository& instances();
    const yld_InstanceRepository& instances() const;

    /// A set over several instances: one list of labels for each instance name; the empty name means the
    /// assembly's own mesh.
    yld_Set& NodeSet(const yld_String& name, const yld_Sequence<yld_String>& instanceNames,
                     const yld_Sequence<yld_Sequence<int>>& labels, bool isInternal = false, bool isUnsorted = false,
                     bool skipRefresh = false);
    yld_Set& ElementSet(const yld_String& name, const yld_Sequence<yld_String>& instanceNames,
                        const yld_Sequence<yld_Sequence<int>>& labels, bool isInternal = false, bool skipRefresh = false);
    yld_Set& Surface(const yld_String& name, const yld_Sequence<yld_String>& instanceNames,
                     const yld_Sequence<yld_Sequence<int>>& labels,
                     const yld_Sequence<yld_Sequence<yld_Enum::yld_ElementFaceEnum>>& faces, bool isInternal = false);

    /// Nodes of the assembly's own mesh. Raises as yld_Part::addNodes.
    void addNodes(const yld_Sequence<int>& labels, const yld_Sequence<yld_Sequence<float>>& coordinates,
                  const yld_String& setName = yld_String()) override;
    /// Elements between nodes of the assembly's own mesh: point masses, rigid nodes and connectors.
    /// Raises "Addition of elements of type "%s" is not permitted at the assembly level.", "Node number "%d" does
    /// not exist in the rootAssembly.\n", as exc_TextException "Element nodes do not exist at the assembly level.",
    /// and besides as yld_Part::addElements. The category is taken and not kept.
    void addElements(const yld_Sequence<int>& labels, const yld_Sequence<yld_Sequence<int>>& connectivity,
                     const yld_String& type, const yld_String& setName = yld_String(),
                     const yld_SectionCategory& category = yld_SectionCategory(),
                     const yld_ElemCtrlParams& params = yld_ElemCtrlParams()) override;
    /// The same for elements whose nodes may live in part instances. The assembly's own mesh is made if need be.
    /// @param instanceNames  one name a node, row by row (two for a connector of one node); the empty name means the
    ///                       assembly's own mesh
    /// Raises besides "Instance names must be specified for all nodes in the connectivity array.", "Invalid part name
    /// provided to addNodes().\n Part Instance "%s" does not exist.", "Node number "%d" does not exist in the part
    /// instance "%s".\n".
    void addElements(const yld_Sequence<int>& labels, const yld_Sequence<yld_Sequence<int>>& connectivity,
                     const yld_Sequence<yld_String>& instanceNames, const yld_String& type,
                     const yld_String& setName = yld_String(),
                     const yld_SectionCategory& category = yld_SectionCategory(),
                     const yld_ElemCtrlParams& params = yld_ElemCtrlParams());

    void setName(const shr_String& name);
    /// The stored assembly, by a handle of its own.
    sto_Assembly assembly() const;

    void ReadMesh();
    void ReadInstances() const;
    void ReadSets(bool includeInternal);

private:
    yld_Set setOf(const yld_String& name, const sto_Set& set) const;
    void joinSet(const yld_String& name, yld_Enum::yld_SetTypeEnum type);

    shr_CountedHld<sto_Assembly> m_assembly;
    shr_CountedHld<sto_Model> m_model;
    shr_CountedHld<yld_InstanceRepository> m_instances;
};

#endif
