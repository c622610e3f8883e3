#ifndef YLD_ELEMENT_H
#define YLD_ELEMENT_H

#include "containers/shr_COW.h"
#include "platform/base/bas_Export.h"
#include "yld_Enum.h"
#include "yld_SectionCategory.h"
#include "yld_Sequence.h"
#include "yld_String.h"

class sto_Mesh;
class sto_ScopedNodeData;

/// One element of a mesh: a value, made when an element is asked for.
class YLD_API yld_Element
{
public:
    /// The most nodes an element can have.
    static constexpr int maxNodes = 30;

    /// An element of no mesh: labels and indices -1, no nodes.
    yld_Element();
    yld_Element(int index, int label, const int* connectivityIndices, int meshIndex, int numNodes,
                const yld_String& type, const yld_SectionCategory& category,
                yld_Enum::yld_ElementGeometryClass geometryClass, int shapeAttribute, int classIndex,
                const shr_1DArrayList<int>& nodeLabels, const sto_Mesh& mesh);
    /// The same for an element of the assembly's own mesh, whose nodes may live in part instances.
    yld_Element(int index, int label, const int* connectivityIndices, int meshIndex, int numNodes,
                const yld_String& type, const yld_SectionCategory& category,
                yld_Enum::yld_ElementGeometryClass geometryClass, int shapeAttribute, int classIndex,
                const shr_1DArrayList<int>& nodeLabels, const sto_ScopedNodeData& scopedNodes, const sto_Mesh& mesh);
    yld_Element(const yld_Element&);
    yld_Element& operator=(const yld_Element&);
    ~yld_Element();

    /// The number that the user gave the element.
    int label() const { return m_label; }
    /// The element type label, for example "HEX8".
    const yld_String& type() const { return m_type; }
    /// The user labels of the nodes in the order of the element type; numNodes entries, borrowed from this value.
    /// @param[out] numNodes  how many
    const int* connectivity(int& numNodes) const;
    /// The same as a sequence, copied.
    yld_Sequence<int> connectivity() const;
    int numNodes() const { return m_numNodes; }
    /// The instance that each node belongs to, one name a node; the names are empty for an element of a part.
    /// Raises "Element is not associated with a mesh." for an element of no mesh.
    yld_Sequence<yld_String> instanceNames() const;
    const yld_SectionCategory& sectionCategory() const { return m_sectionCategory; }
    /// What the element looks like, linear hexahedron for example; UNKNOWN_GEOMETRY for types without a class of their
    /// own, pyramids among them.
    yld_Enum::yld_ElementGeometryClass geometryClass() const { return m_geometryClass; }
    /// A sum: 1 axisymmetric, 2 reduced integration, 4 shell-like, 8 connector, 16 rigid node.
    int shapeAttribute() const { return m_shapeAttribute; }
    /// The place inside the element's class, counted from 0.
    int index() const { return m_index; }
    /// The number of the mesh within the model.
    int meshIndex() const { return m_meshIndex; }
    /// The number of the class within the mesh.
    int classIndex() const { return m_classIndex; }

    /// Elements of no mesh are equal to each other alone; others are equal when index, mesh index and class
    /// index agree. Labels and connectivity play no part.
    bool operator==(const yld_Element& other) const;
    bool operator!=(const yld_Element& other) const { return !(*this == other); }

private:
    friend class yld_Mesh;

    /// What the public constructors come to. The mesh is shared instead of copied, and the labels are borrowed.
    yld_Element(int index, int label, const int* connectivityIndices, int meshIndex, int numNodes,
                const yld_String& type, const yld_SectionCategory& category,
                yld_Enum::yld_ElementGeometryClass geometryClass, int shapeAttribute, int classIndex,
                const int* nodeLabels, const sto_ScopedNodeData* scopedNodes, const shr_CountedHld<sto_Mesh>& mesh);

    int m_index = -1;
    int m_label = -1;
    int m_connectivity[maxNodes] = {};
    yld_Sequence<yld_String> m_instanceNames;
    int m_meshIndex = -1;
    int m_numNodes = 0;
    yld_String m_type;
    yld_SectionCategory m_sectionCategory;
    yld_Enum::yld_ElementGeometryClass m_geometryClass{};
    int m_shapeAttribute = 0;
    int m_classIndex = -1;
    shr_CountedHld<sto_Mesh> m_mesh;
};

#endif
