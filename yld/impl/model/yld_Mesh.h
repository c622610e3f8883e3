#ifndef YLD_MESH_H
#define YLD_MESH_H

#include "platform/sto/sto_Mesh.h"
#include "yld_Element.h"
#include "yld_Node.h"
#include "yld_SectionCategory.h"
#include "yld_Sequence.h"
#include "yld_String.h"

/// The cursor over one stored mesh, shared by all sets, sequences and entities that belong to it. It stands on the
/// element class looked at last, so that a walk in order costs one look into the store a class. Labels, connectivity
/// and coordinates are read when first needed; the cursor holds on to what it has read, so a change or a save of the
/// database does not take it away, and `refresh` makes it look again.
///
/// The cursor is a cache: reading moves it, also through const holders.
class yld_Mesh
{
public:
    /// No mesh and no name.
    yld_Mesh() = default;
    /// The mesh of an entity that has no nodes yet.
    explicit yld_Mesh(const yld_String& name) : m_name(name) {}
    /// @param isScoped  elements may refer to nodes of part instances
    yld_Mesh(const sto_Mesh& store, const yld_String& name, bool isScoped);

    const yld_String& name() const { return m_name; }
    /// Whether there is a stored mesh.
    bool isBound() const { return m_store.IsValid(); }
    /// Raises "Entity has no mesh.".
    void requireStore() const;
    /// The stored mesh. Raises "Entity has no mesh.".
    const sto_Mesh& store() const;
    int meshIndex() const { return m_meshIndex; }
    int numNodes() const { return m_numNodes; }

    /// Raises "Node index out of range.".
    yld_Node nodeAt(int index);
    /// -1 for an unknown label. Raises "Entity has no mesh.".
    int nodeIndexFromLabel(int label) const;
    yld_Node nodeFromLabel(int label);

    /// The first call since the last refresh decides about internal elements.
    int elementCount(bool includeInternal);
    /// Raises "Element index out of range.".
    yld_Element elementAt(int index, bool includeInternal);
    int elementLabelAt(int index);
    /// Raises "Element index not found.".
    yld_Element elementFromLabel(int label);
    /// Raises "Element not found.".
    int elementIndexFromLabel(int label) const;
    /// Raises "ElementClass not found.".
    sto_ElementClass elementClassFromLabel(int label) const;
    /// Raises "Element index out of range.".
    yld_Element elementAtClass(int classIndex, int indexInClass);
    /// Mesh node indices. Raises "Element index out of range.".
    yld_Sequence<int> connectivityOf(int classIndex, int indexInClass) const;
    /// Finds the first element of another class that has all nodes of the given one, for example the solid under a
    /// skin element. Raises "Element index not found.".
    void locateElementByNodes(int classIndex, int indexInClass, int& classOut, int& indexOut,
                              int& meshElementIndex) const;

    bool hasSet(const yld_String& label) const;
    /// How often the cursor has gone to another class: once a class on a walk in order.
    long long classLoads() const { return m_classLoads; }

    /// Write to an assembly's mesh. Raise "Number of node labels and coordinates does not match.", "Node location
    /// specification does not correspond to part dimension. %1$s floats expected; %2$s floats received.",
    /// "Connectivity array must be provided for all elements.", "Element connectivity arrays should be of same
    /// length.".
    void addNodes(const yld_Sequence<int>& labels, const yld_Sequence<yld_Sequence<float>>& coordinates,
                  const yld_String& setName);
    void addElements(const yld_Sequence<int>& labels, const yld_Sequence<yld_Sequence<int>>& connectivity,
                     const yld_String& type, const yld_String& setName, const yld_SectionCategory& category);

    /// Looks at the store again: after a write, and whenever a caller asks for a whole sequence.
    void refresh();

private:
    struct Found
    {
        int classIndex;
        sto_ElementClass elementClass;
        int index;
    };

    void moveTo(int index, bool includeInternal);
    // To the first class from this one on, whose elements begin at `start`, that has the element.
    void moveForward(int classIndex, int start, int index, bool includeInternal);
    void enterClass(int classIndex, const sto_ElementClass& elementClass, int start, int index);
    void loadClass(int classIndex, const sto_ElementClass& elementClass);
    yld_Element elementHere();
    int labelHere();
    bool findLabel(int label, Found& found) const;
    void readCounts();
    const int* nodeLabels();

    shr_CountedHld<sto_Mesh> m_store;
    yld_String m_name;
    int m_currentClass = -1;
    int m_classStart = -1; // mesh index of the first element of m_startClass
    int m_startClass = -1; // a search by label moves the current class away from it
    int m_numElements = -1;
    int m_classSize = 0;
    int m_numNodes = 0;
    int m_indexInClass = -1;
    long long m_classLoads = 0;
    int m_meshIndex = -1;
    int m_nodesPerElement = 0;
    bool m_isScoped = false;

    // Of the current class. The arrays are held so that the pointers stay good.
    std::shared_ptr<const grd_ElementClass> m_class;
    pcl_Array<int> m_labelArray;
    pcl_Array<int> m_connectivityArray;
    const int* m_elementLabels = nullptr;
    const int* m_connectivity = nullptr;
    bool m_connectivityRead = false;
    yld_String m_elementType;
    yld_SectionCategory m_sectionCategory;
    yld_Enum::yld_ElementGeometryClass m_geometryClass = yld_Enum::UNKNOWN_GEOMETRY;
    int m_shapeAttribute = 0;

    // Of the nodes.
    sto_NodeData m_nodeData;
    pcl_Array<int> m_nodeLabelArray;
    const int* m_nodeLabels = nullptr;
    std::shared_ptr<const aux_CoordCont3D> m_coordinates;
    bool m_coordinatesAsked = false;
    sto_ScopedNodeData m_scopedNodes;
};

#endif
