#ifndef STO_MESH_H
#define STO_MESH_H

#include "platform/auxiliary/aux_CoordCont3D.h"
#include "platform/model/mshK_Mesh.h"
#include "platform/sto/sto_ElementClass.h"
#include "platform/sto/sto_NodeData.h"
#include "platform/sto/sto_SetList.h"

class sto_Mesh;

/// New elements for a mesh.
struct sto_ElementArg
{
    std::string type;
    const int* labels = nullptr;
    int numElements = 0;
    const int* connectivity = nullptr; ///< nodesPerElement node labels an element
    int nodesPerElement = 0;
    std::string categoryDescription;
    std::vector<std::string> sectionPoints; ///< by number less one
};

/// A node of an element in the assembly's own mesh.
struct sto_ScopedNode
{
    int instance = -1; ///< which of the given names; -1 for a node of the mesh itself
    int index = 0;     ///< in the mesh that it lives in
    int label = 0;
};

/// Tells the nodes of an assembly's own mesh from those that it refers to in part instances.
class sto_ScopedNodeData
{
public:
    sto_ScopedNodeData() = default;
    explicit sto_ScopedNodeData(const sto_NodeData& nodes) : m_nodes(nodes) {}

    bool isNativeNode(int index) const { return index < grd_NodeData::firstForeignNode; }
    /// The instance that a foreign node lives in, and its index there.
    const std::string& getPartInstance(int index) const;
    int getInstanceNode(int index) const;
    /// Its label there.
    int GetUserNodeLabel(int index) const;
    const sto_NodeData& nodes() const { return m_nodes; }

private:
    sto_NodeData m_nodes;
};

/// A handle on a stored mesh. What it tells is up to date with every call.
class sto_Mesh
{
public:
    /// No mesh.
    sto_Mesh() = default;
    explicit sto_Mesh(const lnk_ShortCut<mshK_Mesh>& reference) : m_reference(reference) {}
    /// A new mesh without nodes.
    /// @param meshIndex  a number that no other mesh of the model has
    /// @param dimension  2 or 3
    static sto_Mesh create(const std::shared_ptr<fio_FileBody>& file, int meshIndex, int dimension);
    /// A new mesh with the nodes and elements of another, now and later, and sets of its own.
    static sto_Mesh createFrom(const sto_Mesh& source, int meshIndex);

    bool isValid() const { return m_reference.isValid(); }
    /// The mesh body.
    std::shared_ptr<const mshK_Mesh> mesh() const { return m_reference.fetch(); }
    /// The mesh's number in the model.
    int meshIndex() const { return mesh()->m_meshIndex; }
    sto_NodeData nodeData() const { return sto_NodeData(mesh()->m_nodeData); }
    sto_ElementData elementData() const;
    /// Whether there are nodes or elements.
    bool hasContents() const;
    /// The name of the instance that this is the mesh of; empty for a part's or the assembly's.
    std::string instanceName() const;
    /// The file that the mesh is in.
    const std::shared_ptr<fio_FileBody>& modelFile() const { return m_reference.file(); }
    /// The coordinates of the nodes in space, moved to where an instance stands. Reads the array on first use.
    std::shared_ptr<const aux_CoordCont3D> coordinates() const;

    /// Appends nodes. Refuses labels below 1, labels given twice or present, and coordinates that are not finite;
    /// the mesh is then as it was.
    /// @param coordinates  as many numbers a node as the mesh has dimensions
    /// @param setName      a node set that the nodes join; none for an empty name
    void addNodes(const int* labels, const float* coordinates, int count, const std::string& setName);
    /// Appends elements, to the class of the same type and category if there is one. Refuses labels below 1, labels
    /// given twice or present, more nodes than an element can have, and nodes that are not there; the mesh is then as
    /// it was.
    /// @param params   element controls for the class; null for none
    void addElements(const sto_ElementArg& arg, const std::string& setName, const sto_ElemCtrlParams* params);
    /// The same for elements between nodes that may live in instances; these become foreign nodes of this mesh.
    /// @param nodes  in the place of the connectivity
    /// @param names  of the instances
    void addElements(const sto_ElementArg& arg, const std::vector<sto_ScopedNode>& nodes,
                     const std::vector<std::string>& names, const sto_ElemCtrlParams* params);

    /// Puts other element controls in the place of those of the class that was made last.
    void setControlsOfLastClass(const sto_ElemCtrlParams& params);
    /// What can be told about new nodes and elements without a mesh: labels, coordinates, number of nodes. Raise as
    /// addNodes and addElements do.
    static void checkNewNodes(const int* labels, const float* coordinates, int count, int dimension);
    static void checkElementArg(const sto_ElementArg& arg);

    /// Make a set of this mesh. Members keep the order given and may repeat; labels must exist, a surface leaves out
    /// those that do not. A name that a set of the same type has is refused.
    sto_Set Nset(const std::string& name, const int* labels, int count, bool isInternal, bool isUnsorted);
    sto_Set Elset(const std::string& name, const int* labels, int count, bool isInternal);
    sto_Set Surface(const std::string& name, const std::vector<sto_SurfaceSubset>& subsets, bool isInternal);
    /// Makes an internal set in memory alone, in the place of one made so before under that name: no save writes it,
    /// and it works for files that are open for reading only. Whoever holds the set before keeps it as it is. Without
    /// labels the set has no subset. Raises for an unknown label.
    /// @param type  nodes or elements
    sto_Set temporarySet(int type, const std::string& name, const int* labels, int count) const;
    /// No set where there is none of that name.
    sto_Set nset(const std::string& name) const { return set().find(setC_Set::nodeSet, name); }
    sto_Set elset(const std::string& name) const { return set().find(setC_Set::elementSet, name); }
    sto_Set surface(const std::string& name) const { return set().find(setC_Set::surface, name); }
    sto_SetList set() const;

    /// Put new members in the place of a set's old ones. Raise when there is no such set. Whether a set is internal
    /// is settled when it is made; the flag is taken and changes nothing.
    void modifyNodeSetLabels(const std::string& name, const int* labels, int count, bool isInternal, bool isUnsorted);
    void modifyElementSetLabels(const std::string& name, const int* labels, int count, bool isInternal);
    void modifySurfaceSetLabels(const std::string& name, const std::vector<sto_SurfaceSubset>& subsets,
                                bool isInternal);

    /// Append members of this mesh to a set in the making. Raise for an unknown label, except for surfaces.
    void appendNodes(setC_Set& set, const int* labels, int count) const;
    void appendElements(setC_Set& set, const int* labels, int count) const;
    void appendFacets(setC_Set& set, const std::vector<sto_SurfaceSubset>& subsets) const;

    const lnk_ShortCut<mshK_Mesh>& shortCut() const { return m_reference; }

private:
    void checkNewElements(const sto_ElementArg& arg) const;
    void appendChecked(const sto_ElementArg& arg, const sto_ElemCtrlParams* params, bool areIndices);

    lnk_ShortCut<mshK_Mesh> m_reference;
};

#endif
