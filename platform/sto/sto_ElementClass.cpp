#include "platform/sto/sto_ElementClass.h"

#include "platform/model/grd_NodeData.h"
#include "platform/shape/shc_ShapeDictionary.h"
#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"
#include "platform/text/exc_Exception.h"

#include <algorithm>
#include <limits>
#include <numeric>

void sto_ElemCtrlParams::SetElemCtrlParams(const char* text1, double value2, double value3, double value4,
                                           const char* text5, const char* text6, double value7, bool flag8,
                                           const char* text9, double value10, double value11, double value12,
                                           double value13, double value14, double value15)
{
    m_texts = {text1, text5, text6, text9};
    m_values = {value2,  value3,  value4,  value7, flag8 ? 1.0 : 0.0, value10, value11,
                value12, value13, value14, value15};
}

sto_ElementClass::sto_ElementClass(const lnk_ShortCut<grd_ElementClass>& reference,
                                   const lnk_ShortCut<grd_NodeData>& nodes, int firstIndex, int classIndex)
    : m_reference(reference), m_nodes(nodes), m_data(reference.fetch()), m_firstIndex(firstIndex),
      m_classIndex(classIndex)
{
    m_data->verify(reference.file()->path());
}

const std::string& sto_ElementClass::typeLabel() const
{
    static const std::string none;
    return m_data ? m_data->m_type : none;
}

const std::string& sto_ElementClass::categoryLabel() const
{
    static const std::string none;
    return m_data ? m_data->m_category : none;
}

const shc_Topology* sto_ElementClass::shape() const
{
    return m_data ? shc_ShapeDictionary::GetShape(std::string_view(m_data->m_type)) : nullptr;
}

int sto_ElementClass::numIntegrationPointsPerElement() const
{
    const shc_Topology* topology = shape();
    return topology ? topology->NumIntegrationPoints() : 0;
}

int sto_ElementClass::numFacesPerElement() const
{
    const shc_Topology* topology = shape();
    return topology ? topology->NumFaces() : 0;
}

int sto_ElementClass::maxIntegrationPointsPerFace() const
{
    const shc_Topology* topology = shape();
    return topology ? topology->MaxIntegrationPointsPerFace() : 0;
}

const int* sto_ElementClass::elementConnectivity() const
{
    if (!m_data) return nullptr;
    const std::shared_ptr<const grd_NodeData> nodes = m_nodes.fetch();
    return m_data->connectivity(nodes->NumNodes(), nodes->numForeignNodes());
}

sto_ElementClass sto_ElementData::elementClass(int index) const
{
    return elementClass(index, firstElementIndex(index));
}

sto_ElementClass sto_ElementData::elementClass(int index, int firstIndex) const
{
    if (index < 0 || index >= numClasses()) {
        fio_raise(m_classes.file() ? m_classes.file()->path() : std::string("mesh"),
                  "there is no element class " + std::to_string(index));
    }
    return sto_ElementClass(m_classes.at(index), m_nodes, firstIndex, index);
}

int sto_ElementData::numElements() const { return firstElementIndex(numClasses()); }

int sto_ElementData::firstElementIndex(int classIndex) const
{
    long long total = 0;
    for (int i = 0; i < classIndex && i < numClasses(); ++i) total += m_classes.at(i).fetch()->NumElements();
    if (total < 0 || total > std::numeric_limits<int>::max()) {
        fio_raise(m_classes.file()->path(), "a mesh has more elements than can be; the file is damaged");
    }
    return static_cast<int>(total);
}

int sto_ElementData::findRun(const int* labels, int count, int& classIndex) const
{
    for (int i = 0; i < numClasses(); ++i) {
        const int first = elementClass(i, 0).data()->m_labels.findRun(labels, count);
        if (first < 0) continue;
        classIndex = i;
        return first;
    }
    return -1;
}

int sto_ElementData::CheckUserElementLabels(const int* labels, int count) const
{
    return GetElementIndices(labels, count, nullptr, nullptr);
}

int sto_ElementData::GetElementIndices(const int* labels, int count, int* classes, int* indices) const
{
    int only = -1;
    if (const int first = findRun(labels, count, only); first >= 0) {
        if (classes) std::fill_n(classes, count, only);
        if (indices) std::iota(indices, indices + count, first);
        return count;
    }
    std::vector<sto_ElementClass> all;
    for (int i = 0; i < numClasses(); ++i) all.push_back(elementClass(i, 0));
    std::size_t current = 0;
    int last = -1;
    for (int i = 0; i < count; ++i) {
        int found = all.empty() ? -1 : all[current].GetElementIndexFromLabel(labels[i], last + 1);
        for (std::size_t other = 0; found < 0 && other < all.size(); ++other) {
            if (other == current) continue;
            found = all[other].GetElementIndexFromLabel(labels[i]);
            if (found >= 0) current = other;
        }
        if (found < 0) return i;
        last = found;
        if (classes) classes[i] = static_cast<int>(current);
        if (indices) indices[i] = found;
    }
    return count;
}

int sto_ElementData::GetMeshElemIndexFromLabel(int label) const
{
    int classIndex = 0;
    int index = 0;
    if (GetElementIndices(&label, 1, &classIndex, &index) < 1) return -1;
    return firstElementIndex(classIndex) + index;
}

sto_ElementClass sto_ElementData::GetElemClass(int meshElementIndex, int& indexInClass) const
{
    int first = 0;
    for (int i = 0; i < numClasses() && meshElementIndex >= 0; ++i) {
        sto_ElementClass candidate = elementClass(i, first);
        if (meshElementIndex - first < candidate.numElements()) {
            indexInClass = meshElementIndex - first;
            return candidate;
        }
        first += candidate.numElements();
    }
    throw exc_TextException("Element index out of range.");
}
