#ifndef GRD_ELEMENT_CLASS_H
#define GRD_ELEMENT_CLASS_H

#include "platform/model/grd_LabelList.h"
#include "platform/store/pcl_Persistent.h"

/// All elements of one type and one section category in a mesh.
class grd_ElementClass : public pcl_Class<grd_ElementClass>
{
public:
    static constexpr const char* className = "grd_ElementClass";
    static constexpr unsigned classId = 0x00100003;
    static constexpr int classVersion = 1;
    /// The most nodes an element can have.
    static constexpr int maxNodes = 30;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("type", self.m_type);
        visit("category", self.m_category);
        visit("section points", self.m_sectionPoints);
        visit("nodes per element", self.m_nodesPerElement);
        visit("elements", self.m_numElements);
        grd_LabelList::attributes(self.m_labels, visit);
        visit("connectivity", self.m_connectivity);
        visit("control texts", self.m_controlTexts);
        visit("control values", self.m_controlValues);
    }

    int NumElements() const { return m_numElements; }
    int NumNodesPerElem() const { return m_nodesPerElement; }
    int NumSectionPoints() const { return static_cast<int>(m_sectionPoints.size()); }
    const std::string& SectionPointLabel(int index) const { return m_sectionPoints[static_cast<std::size_t>(index)]; }
    /// User labels by index; null for a class whose elements have none.
    const int* UserElementLabels() const { return m_labels.isEmpty() ? nullptr : m_labels.data(); }
    /// The index of a label in this class, or -1. @param hint  where to look first
    int GetElementIndexFromLabel(int label, int hint = 0) const { return m_labels.find(label, hint); }
    /// Whether these are generated elements, which users do not see: the first label is below 1.
    bool isInternal() const;
    /// Mesh node indices, m_nodesPerElement an element. Borrowed until the class is changed or saved.
    /// The first call reads the array and raises unless every index is a node of the mesh.
    /// @param numNodes, numForeign  how many nodes the mesh has and refers to
    const int* connectivity(int numNodes, int numForeign) const;
    /// Element controls: texts and numbers, in the order in which they were given.
    void SetElemControlParams(const std::vector<std::string>& texts, const std::vector<double>& values)
    {
        m_controlTexts = texts;
        m_controlValues = values;
    }
    /// Raises when the parts of the row do not fit each other.
    void verify(const std::string& path) const;

    std::string m_type;
    std::string m_category; ///< the description of the section category
    std::vector<std::string> m_sectionPoints;
    int m_nodesPerElement = 0;
    int m_numElements = 0;
    grd_LabelList m_labels;
    pcl_Array<int> m_connectivity;
    std::vector<std::string> m_controlTexts;
    std::vector<double> m_controlValues;

private:
    mutable long long m_checked = 0; // how many entries of the connectivity are known to be good
};

#endif
