#ifndef YLD_DISCRETE_ENTITY_H
#define YLD_DISCRETE_ENTITY_H

#include "platform/base/bas_Export.h"
#include "yld_Element.h"
#include "yld_ElementClass.h"
#include "yld_Enum.h"
#include "yld_MeshList.h"
#include "yld_Node.h"
#include "yld_Repository.h"
#include "yld_Sequence.h"
#include "yld_SequenceElement.h"
#include "yld_SequenceNode.h"
#include "yld_Set.h"
#include "yld_String.h"

class yld_ElemCtrlParams;

using yld_SetRepository = yld_Repository<yld_String, yld_Set>;

/// What a part, a part instance and the assembly have in common: a name, a space, a mesh and sets.
/// A copy shares mesh and sets with the original until one of the two is changed.
class YLD_API yld_DiscreteEntity
{
public:
    virtual ~yld_DiscreteEntity();

    /// Adds nodes to the mesh. What is raised is told with yld_Part, yld_Instance and yld_Assembly.
    /// @param labels       user labels, positive, in any order
    /// @param coordinates  one row a node: 3 floats in space, 2 in the plane, model units
    /// @param setName      a node set of these nodes is made under this name; none for an empty name
    virtual void addNodes(const yld_Sequence<int>& labels, const yld_Sequence<yld_Sequence<float>>& coordinates,
                          const yld_String& setName) = 0;
    /// Adds elements to the mesh.
    /// @param connectivity  one row of node labels an element, in the node order of the type
    /// @param type          an element type label, for example "HEX8"
    virtual void addElements(const yld_Sequence<int>& labels, const yld_Sequence<yld_Sequence<int>>& connectivity,
                             const yld_String& type, const yld_String& setName, const yld_SectionCategory& category,
                             const yld_ElemCtrlParams& params) = 0;

    yld_String name() const { return m_name; }
    yld_Enum::yld_DimensionEnum embeddedSpace() const { return m_embeddedSpace; }
    yld_Enum::yld_PartTypeEnum type() const { return m_type; }

    /// One element or node by its place in the mesh, counted from 0, in the order of definition (elements class by
    /// class). Raise "Element index out of range." and "Node index out of range.".
    yld_Element elements(int index) const;
    /// All elements. Looks at the store again first, so that what was added since shows. The reference is good as long
    /// as this object.
    yld_SequenceElement& elements();
    const yld_SequenceElement& elements() const;
    yld_Node nodes(int index) const;
    /// All nodes, likewise.
    yld_SequenceNode& nodes();
    const yld_SequenceNode& nodes() const;
    /// By user label. Raise "Node index out of range." and "Element index not found." for a label that the mesh lacks.
    /// Cost: none of the other nodes or elements is built; see the page on the model.
    yld_Node getNodeFromLabel(int label) const;
    yld_Element getElementFromLabel(int label) const;
    /// The elements of the mesh by type and section category, one entry for each class.
    const yld_Sequence<yld_ElementClass>& elementClasses() const;

    /// The sets of each kind, by name, without their members. They are read by the first call that finds any, and
    /// includeInternal of that call decides for all later ones whether internal sets are among them. References are
    /// good until a set is added.
    /// @param skipRefresh  true: the meshes of the sets are not looked at again for what was added since
    yld_SetRepository& nodeSets(bool includeInternal = false, bool skipRefresh = false);
    yld_SetRepository& elementSets(bool includeInternal = false, bool skipRefresh = false);
    yld_SetRepository& surfaces(bool includeInternal = false);
    const yld_SetRepository& nodeSets(bool includeInternal = false, bool skipRefresh = false) const;
    const yld_SetRepository& elementSets(bool includeInternal = false, bool skipRefresh = false) const;
    const yld_SetRepository& surfaces(bool includeInternal = false) const;

    /// The node labels on one face, edge or end of an element.
    /// @param labels  the labels of all nodes of the element, in the node order of its type
    /// @param type    the element type label, for example "HEX8"
    /// Raises "Face SPOS and SNEG not valid for element type %s." and "Invalid face".
    static yld_Sequence<int> nodesLabelsFromNodeTypeFace(const yld_Sequence<int>& labels, const yld_String& type,
                                                         yld_Enum::yld_ElementFaceEnum face);

    /// For the layers underneath.
    const yld_MeshHandle& mesh() const { return m_mesh; }

protected:
    yld_DiscreteEntity();
    yld_DiscreteEntity(const yld_String& name, yld_Enum::yld_DimensionEnum space, yld_Enum::yld_PartTypeEnum type,
                       const yld_MeshHandle& mesh);
    yld_DiscreteEntity(const yld_DiscreteEntity&);
    yld_DiscreteEntity& operator=(const yld_DiscreteEntity&);

    void readSets(int setType, bool includeInternal, yld_SetRepository& into) const;

    yld_String m_name;
    yld_Enum::yld_DimensionEnum m_embeddedSpace{};
    yld_Enum::yld_PartTypeEnum m_type{};
    yld_MeshHandle m_mesh;
    yld_SequenceElement m_elements;
    yld_SequenceNode m_nodes;
    mutable yld_Sequence<yld_ElementClass> m_elementClasses;
    mutable yld_SetRepository m_nodeSets;
    mutable yld_SetRepository m_elementSets;
    mutable yld_SetRepository m_surfaces;
};

#endif
