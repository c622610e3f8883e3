#ifndef YLD_ASSEMBLY_H
#define YLD_ASSEMBLY_H

#include "yld_DiscreteEntity.h"
#include "yld_Instance.h"

class sto_Assembly;
class sto_Model;

/// The root assembly: the part instances, sets that span several of them, and where needed a small mesh of its own, of
/// point masses, rigid nodes and connectors. A database has one; yld_Yld::rootAssembly() gives it.
class YLD_API yld_Assembly : public yld_DiscreteEntity
{
public:
    yld_Assembly();
    yld_Assembly(const yld_String& name, const sto_Assembly& assembly, const sto_Model& model);
    yld_Assembly(const yld_Assembly&);
    yld_Assembly& operator=(const yld_Assembly&);
    ~yld_Assembly() override;

    /// Places a part. Raises "A part instance named "%s" already exists." and what
    /// yld_InstanceRepository::Instance raises, which also tells of the coordinate system. The reference is good until
    /// an instance is added or the database is closed.
    yld_Instance&
    Instance(const yld_String& name, const yld_Part& part,
             const yld_Sequence<yld_Sequence<float>>& localCoordSystem = yld_Sequence<yld_Sequence<float>>());
    /// The instances that have been read so far; reads none.
    yld_InstanceRepository& instance();
    yld_InstanceRepository& instances();
    const yld_InstanceRepository& instances() const;

    /// New sets over several instances. labels[i] are user labels on the instance named instanceNames[i]; an empty name
    /// means the assembly's own mesh (not for a surface). faces has one face for each label.
    /// @param isInternal   the set is left out where sets are listed without internal ones
    /// @param isUnsorted   kept as the set's own mark, yld_Set::isUnsorted(); the members stand in the order of the
    ///                     labels with it and without, repeated ones too
    /// @param skipRefresh  see yld_DiscreteEntity::nodeSets()
    /// Raise "Duplicate set or surface name %s", "Number of instance names and groups of labels does not match.";
    /// NodeSet and ElementSet also "The nodes associated with entity named '%s' cannot be used to construct a set." (or
    /// "The elements ...") for an unknown instance, "No part instance name was specified for a group of nodes, but the
    /// assembly does not have a mesh." (or "of elements"), "Invalid node label %d for instance %s", "Invalid node label
    /// %d for the assembly." (or "element label"); Surface what yld_PartOrInstance::Surface raises of a part, and
    /// "Key \"%s\" not found in repository" for an unknown one. The references hold until a set of that kind is added.
    yld_Set& NodeSet(const yld_String& name, const yld_Sequence<yld_String>& instanceNames,
                     const yld_Sequence<yld_Sequence<int>>& labels, bool isInternal = false, bool isUnsorted = false,
                     bool skipRefresh = false);
    yld_Set& ElementSet(const yld_String& name, const yld_Sequence<yld_String>& instanceNames,
                        const yld_Sequence<yld_Sequence<int>>& labels, bool isInternal = false,
                        bool skipRefresh = false);
    yld_Set& Surface(const yld_String& name, const yld_Sequence<yld_String>& instanceNames,
                     const yld_Sequence<yld_Sequence<int>>& labels,
                     const yld_Sequence<yld_Sequence<yld_Enum::yld_ElementFaceEnum>>& faces, bool isInternal = false);

    /// Replace all members of a set; the set keeps its place in the lists and stays internal or not, whatever
    /// isInternal says. Raise what the functions above raise of their groups, and for a set that does not exist:
    /// ModifyNodeSet "Set "%s" does not exist.", the other two "Duplicate set or surface name %s", a text that clients
    /// know.
    yld_Set& ModifyNodeSet(const yld_String& name, const yld_Sequence<yld_String>& instanceNames,
                           const yld_Sequence<yld_Sequence<int>>& labels, bool isInternal = false,
                           bool isUnsorted = false);
    /// Every group needs an instance: the assembly's own mesh is refused as an unknown one.
    yld_Set& ModifyElementSet(const yld_String& name, const yld_Sequence<yld_String>& instanceNames,
                              const yld_Sequence<yld_Sequence<int>>& labels, bool isInternal = false);
    yld_Set& ModifySurface(const yld_String& name, const yld_Sequence<yld_String>& instanceNames,
                           const yld_Sequence<yld_Sequence<int>>& labels,
                           const yld_Sequence<yld_Sequence<yld_Enum::yld_ElementFaceEnum>>& faces,
                           bool isInternal = false);

    /// The coordinate systems of the model, read by the first call. The functions below do what those of
    /// yld_DatumCsysRepository do.
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

    /// Gives the connectors of an element set a section. Whether the set belongs to the assembly is not tested.
    /// Raises "Section assignment requires element sets.".
    void SectionAssignment(const yld_Set& set, const yld_Section& section, double offset = 0.0);
    /// Give the connectors of an element set local directions at their two nodes. The directions of a node are those of
    /// a coordinate system (a default yld_DatumCsys means the global one), turned about one of its axes by an angle in
    /// degrees. The first form tells those of the first node.
    /// @param orient2sameAs1  the second node has the same directions; else those of the global system
    /// Raise "Connector orientation assignment requires an element set.".
    void ConnectorOrientation(const yld_Set& set, const yld_DatumCsys& csys, yld_Enum::yld_AxisEnum axis, double angle,
                              bool orient2sameAs1);
    void ConnectorOrientation(const yld_Set& set, const yld_DatumCsys& csys1, yld_Enum::yld_AxisEnum axis1,
                              double angle1, const yld_DatumCsys& csys2, yld_Enum::yld_AxisEnum axis2, double angle2);

    /// Lines of solver input that belong to the assembly, kept as they are.
    void setSolverInput(const yld_String& text);
    yld_String solverInput() const;

    /// Nodes of the assembly's own mesh. Raises as yld_Part::addNodes.
    void addNodes(const yld_Sequence<int>& labels, const yld_Sequence<yld_Sequence<float>>& coordinates,
                  const yld_String& setName = yld_String()) override;
    /// Elements between nodes of the assembly's own mesh: point masses, rigid nodes and connectors.
    /// Raises "Addition of elements of type "%s" is not permitted at the assembly level.", "Node number "%d" does
    /// not exist in the rootAssembly.\n", as exc_TextException "Element nodes do not exist at the assembly level.",
    /// and what yld_Part::addElements raises. The category is accepted but not kept.
    void addElements(const yld_Sequence<int>& labels, const yld_Sequence<yld_Sequence<int>>& connectivity,
                     const yld_String& type, const yld_String& setName = yld_String(),
                     const yld_SectionCategory& category = yld_SectionCategory(),
                     const yld_ElemCtrlParams& params = yld_ElemCtrlParams()) override;
    /// The same for elements whose nodes may belong to part instances. The assembly's own mesh is made if there is
    /// none.
    /// @param instanceNames  one name for each node of each row (two for a connector of one node); the empty name means
    ///                       the assembly's own mesh
    /// Raises also "Instance names must be specified for all nodes in the connectivity array.", "Invalid part name
    /// provided to addNodes().\n Part Instance "%s" does not exist.", "Node number "%d" does not exist in the part
    /// instance "%s".\n".
    void addElements(const yld_Sequence<int>& labels, const yld_Sequence<yld_Sequence<int>>& connectivity,
                     const yld_Sequence<yld_String>& instanceNames, const yld_String& type,
                     const yld_String& setName = yld_String(),
                     const yld_SectionCategory& category = yld_SectionCategory(),
                     const yld_ElemCtrlParams& params = yld_ElemCtrlParams());

    void setName(const shr_String& name);
    /// For the layers underneath: a handle on the stored assembly.
    sto_Assembly assembly() const;

    /// Read mesh, instances, coordinate systems and sets from the file; whoever opens a database through openYld() need
    /// not call these.
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
