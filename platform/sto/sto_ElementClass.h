#ifndef STO_ELEMENT_CLASS_H
#define STO_ELEMENT_CLASS_H

#include "containers/shr_String.h"
#include "platform/model/grd_ElementClass.h"
#include "platform/store/mrp_Container.h"

class grd_NodeData;
class shc_Topology;

/// Element controls given with new elements: kept with their class, in the order of the call.
class sto_ElemCtrlParams
{
public:
    sto_ElemCtrlParams() = default;
    void SetElemCtrlParams(const char* text1, double value2, double value3, double value4, const char* text5,
                           const char* text6, double value7, bool flag8, const char* text9, double value10,
                           double value11, double value12, double value13, double value14, double value15);

    bool isEmpty() const { return m_texts.empty(); }
    const std::vector<std::string>& texts() const { return m_texts; }
    /// The numbers; the flag is 0 or 1 among them.
    const std::vector<double>& values() const { return m_values; }

private:
    std::vector<std::string> m_texts;
    std::vector<double> m_values;
};

/// All elements of one type and one section category in a stored mesh, as they stood when the handle was taken.
class sto_ElementClass
{
public:
    /// No class.
    sto_ElementClass() = default;
    /// @param firstIndex  the index in the mesh of the class's first element
    /// @param classIndex  the class's place in the mesh
    sto_ElementClass(const lnk_ShortCut<grd_ElementClass>& reference, const lnk_ShortCut<grd_NodeData>& nodes,
                     int firstIndex, int classIndex = -1);

    bool isValid() const { return m_data != nullptr; }
    int numElements() const { return m_data ? m_data->NumElements() : 0; }
    int numNodesPerElement() const { return m_data ? m_data->NumNodesPerElem() : 0; }
    const std::string& typeLabel() const;
    const std::string& elementTypeLabel() const { return typeLabel(); }
    /// The description of the section category that the elements were given with.
    const std::string& categoryLabel() const;
    /// How many section points the category has.
    int numLocation() const { return m_data ? m_data->NumSectionPoints() : 0; }
    /// @param index  counted from 0, below numLocation()
    const std::string& sectionPointLabel(int index) const { return m_data->SectionPointLabel(index); }
    /// 0 for these three when the element type is not known.
    int numIntegrationPointsPerElement() const;
    int numFacesPerElement() const;
    int maxIntegrationPointsPerFace() const;
    /// Null when the element type is not known.
    const shc_Topology* shape() const;

    /// The class's place among those of its mesh.
    int classIndex() const { return m_classIndex; }
    /// The index in the mesh of the first element.
    int FirstElementIndex() const { return m_firstIndex; }
    /// User labels by index; null for a class whose elements have none. Borrowed until the mesh is changed or saved.
    const int* userElementLabels() const { return m_data ? m_data->UserElementLabels() : nullptr; }
    /// Mesh node indices, numNodesPerElement() an element; borrowed as the labels are.
    const int* elementConnectivity() const;
    const int* getSingleElementConnectivity(int index) const
    {
        return elementConnectivity() + static_cast<std::ptrdiff_t>(index) * numNodesPerElement();
    }
    /// The index in this class of a label, or -1. @param hint  where to look first
    int GetElementIndexFromLabel(int label, int hint = 0) const
    {
        return m_data ? m_data->GetElementIndexFromLabel(label, hint) : -1;
    }
    /// Whether these are generated elements, which users do not see.
    bool isInternal() const { return m_data && m_data->isInternal(); }

    const lnk_ShortCut<grd_ElementClass>& shortCut() const { return m_reference; }
    const std::shared_ptr<const grd_ElementClass>& data() const { return m_data; }

private:
    lnk_ShortCut<grd_ElementClass> m_reference;
    lnk_ShortCut<grd_NodeData> m_nodes;
    std::shared_ptr<const grd_ElementClass> m_data;
    int m_firstIndex = 0;
    int m_classIndex = -1;
};

/// The elements of a stored mesh: its classes in the order in which they were made.
class sto_ElementData
{
public:
    /// No elements.
    sto_ElementData() = default;
    sto_ElementData(const mrp_Container<grd_ElementClass>& classes, const lnk_ShortCut<grd_NodeData>& nodes)
        : m_classes(classes), m_nodes(nodes)
    {
    }

    int numClasses() const { return m_classes.size(); }
    /// Looks at the row of each class before it for FirstElementIndex(). Raises for a class that is not there.
    sto_ElementClass elementClass(int index) const;
    /// The class alone, with FirstElementIndex() as given.
    sto_ElementClass elementClass(int index, int firstIndex) const;
    int numElements() const;
    /// How many elements the classes before this one have.
    int firstElementIndex(int classIndex) const;

    /// The position of the first label of a list that does not exist, or the list's length when all exist.
    int CheckUserElementLabels(const int* labels, int count) const;
    /// Finds the class and the place in it for each label; a list in the order of a class costs one pass.
    /// @param classes, indices  room for `count` numbers each
    /// @return as CheckUserElementLabels
    int GetElementIndices(const int* labels, int count, int* classes, int* indices) const;
    /// The place of the first label in its class if the labels are a run of that class, in its own order; else -1.
    int findRun(const int* labels, int count, int& classIndex) const;
    /// The index in the mesh of a label, or -1.
    int GetMeshElemIndexFromLabel(int label) const;
    /// The class that an element of the mesh is in; raises "Element index out of range.".
    /// @param[out] indexInClass  its place there
    sto_ElementClass GetElemClass(int meshElementIndex, int& indexInClass) const;

private:
    mrp_Container<grd_ElementClass> m_classes;
    lnk_ShortCut<grd_NodeData> m_nodes;
};

#endif
