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
    yld_Instance&
    Instance(const yld_String& name, const yld_Part& part,
             const yld_Sequence<yld_Sequence<float>>& localCoordSystem = yld_Sequence<yld_Sequence<float>>());
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
                        const yld_Sequence<yld_Sequence<int>>& labels, bool isInternal = false,
                        bool skipRefresh = false);
    yld_Set& Surface(const yld_String& name, const yld_Sequence<yld_String>& instanceNames,
                     const yld_Sequence<yld_Sequence<int>>& labels,
                     const yld_Sequence<yld_Sequence<yld_Enum::yld_ElementFaceEnum>>& faces, bool isInternal = false);

    /// Put other members in the place of a set's old ones; the set keeps its place and whether it is internal.
    /// Groups are tested as NodeSet does. Raises besides "Set "%s" does not exist.".
    yld_Set& ModifyNodeSet(const yld_String& name, const yld_Sequence<yld_String>& instanceNames,
                           const yld_Sequence<yld_Sequence<int>>& labels, bool isInternal = false,
                           bool isUnsorted = false);
    /// Every group needs an instance, a group of the assembly's own mesh is refused. A set that does not exist raises
    /// "Duplicate set or surface name %s", here and below: clients know the text.
    yld_Set& ModifyElementSet(const yld_String& name, const yld_Sequence<yld_String>& instanceNames,
                              const yld_Sequence<yld_Sequence<int>>& labels, bool isInternal = false);
    yld_Set& ModifySurface(const yld_String& name, const yld_Sequence<yld_String>& instanceNames,
                           const yld_Sequence<yld_Sequence<int>>& labels,
                           const yld_Sequence<yld_Sequence<yld_Enum::yld_ElementFaceEnum>>& faces,
                           bool isInternal = false);

    /// The coordinate systems of the model, read on first request; what makes one is told with the repository.
    yld_DatumCsysRepository& datumCsyses();
    const yld_DatumCsysRepository& datumCsyses() const;
    yld_DatumCsys& DatumCsysByThreePoints(const yld_String& name, yld_Enum::yld_DatumCsysTypeEnum type,
                                          const yld_Sequence<float>& origin, const yld_Sequence<float>& point1,
                                          const yld_Sequence<float>& point2);
    yld_DatumCsys& DatumCsysByThreeNodes(const yld_String& name, yld_Enum::yld_DatumCsysTypeEnum type,
                                         const yld_Node& node1, const yld_Node& node2, const yld_Node& node3);
    yld_DatumCsys& DatumCsysBy6dofNode(const yld_String& name, yld_Enum::yld_DatumCsysTypeEnum type,
                                       const yld_Node& node);
    yld_DatumCsys& DatumCsysByThreeCircNodes(const yld_String& name, yld_Enum::yld_DatumCsysTypeEnum type,
                                             const yld_Node& node1, const yld_Node& node2, const yld_Node& node3);
    yld_DatumCsys& DatumCsys(const yld_String& name, const yld_DatumCsys& csys);
    void DeleteDatumCsys(const yld_String& name);

    /// Gives connectors a section. Whether the set is one of the assembly is not looked at.
    /// Raises "Section assignment requires element sets.".
    void SectionAssignment(const yld_Set& set, const yld_Section& section, double offset = 0.0);
    /// Give connectors local directions at their first node and at their second one: a coordinate system, or the
    /// global one for a default yld_DatumCsys, turned about one of its axes by an angle in degrees.
    /// @param orient2sameAs1  the second node has the directions of the first; else those of the global system
    /// Raise "Connector orientation assignment requires an element set.".
    void ConnectorOrientation(const yld_Set& set, const yld_DatumCsys& csys, yld_Enum::yld_AxisEnum axis, double angle,
                              bool orient2sameAs1);
    void ConnectorOrientation(const yld_Set& set, const yld_DatumCsys& csys1, yld_Enum::yld_AxisEnum axis1,
                              double angle1, const yld_DatumCsys& csys2, yld_Enum::yld_AxisEnum axis2, double angle2);

    /// Text for the solver, kept as it is.
    void setSolverInput(const yld_String& text);
    yld_String solverInput() const;

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
    void ReadDatumCsyses() const;
    void ReadSets(bool includeInternal);

private:
    yld_Set setOf(const yld_String& name, const sto_Set& set) const;
    void joinSet(const yld_String& name, yld_Enum::yld_SetTypeEnum type);
    yld_Set& renewSet(yld_Set& set, const yld_Sequence<yld_String>& instanceNames) const;

    shr_CountedHld<sto_Assembly> m_assembly;
    shr_CountedHld<sto_Model> m_model;
    shr_CountedHld<yld_InstanceRepository> m_instances;
    shr_CountedHld<yld_DatumCsysRepository> m_datumCsyses;
};

#endif
