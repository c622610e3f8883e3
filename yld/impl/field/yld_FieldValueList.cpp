#include "yld/impl/field/yld_FieldValueList.h"

#include "platform/shape/shc_Topology.h"
#include "platform/sto/sto_Assembly.h"
#include "platform/sto/sto_Model.h"
#include "platform/sto/sto_ModelOf.h"
#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"
#include "platform/text/prg_WIP.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld/impl/field/yld_checkTensor.h"
#include "yld/impl/model/yld_Mesh.h"
#include "yld_EnumMap.h"
#include "yld_Instance.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr int fullTensorWidth = 6;

template<class T> T* valuesIn(fio_Buffer& buffer) { return reinterpret_cast<T*>(buffer.writable()); }

fio_Buffer bufferFor(long long count, std::size_t valueSize)
{
    return fio_Buffer(static_cast<std::size_t>(count) * valueSize);
}

// Rows of fewer components in rows of more, the rest zero.
template<class T> fio_Buffer widened(const T* rows, int count, int width, int wanted)
{
    fio_Buffer buffer = bufferFor(static_cast<long long>(count) * wanted, sizeof(T));
    T* to = valuesIn<T>(buffer);
    for (int i = 0; i < count; ++i, rows += width, to += wanted) {
        std::copy_n(rows, width, to);
        std::fill_n(to + width, wanted - width, T(0));
    }
    return buffer;
}

bool positionHasLabels(yld_Enum::yld_ResultPositionEnum position)
{
    return position >= yld_Enum::NODAL && position <= yld_Enum::WHOLE_ELEMENT;
}

} // namespace

shr_COW<yld_Instance> yld_FieldValueList::noInstance()
{
    thread_local const shr_COW<yld_Instance> empty{new yld_Instance()};
    return empty;
}

void yld_FieldValueList::refuse(const char* what) const
{
    fio_raise(m_field.shortCut().file()->path(), std::string("a field does not fit its set: ") + what);
}

void yld_FieldValueList::read(const yld_SubField& block)
{
    clear();
    try {
        m_field = block.field();
        const sto_FieldDescription& handle = block.description();
        const std::shared_ptr<const fld_FieldDescription> description = handle.data();
        m_dataType = block.type();
        m_indexCount = block.indices().size();
        m_position = mapOutputPosition(description->position());
        m_precision = m_field.storageType() == 1 ? yld_Enum::DOUBLE_PRECISION : yld_Enum::SINGLE_PRECISION;
        if (m_position != yld_Enum::WHOLE_MODEL) readInstance(handle);
        m_setType = handle.setType();
        const bool onElements = m_setType == setC_Set::elementSet || m_setType == setC_Set::surface;
        m_elementClass = onElements ? description->m_classIndex : -1;

        const int storedWidth = description->m_width;
        if (storedWidth != m_field.shortCut().fetch()->m_width) refuse("the widths differ");
        m_numValues = m_field.rows();
        if (m_numValues != description->m_length) refuse("the lengths differ");
        const yld_Enum::yld_DataTypeEnum storedType = mapDataType(description->dataType());
        const bool isWidened = fld_FieldDescription::isTensor(description->dataType()) && storedType != m_dataType;
        m_width = isWidened ? fullTensorWidth : storedWidth;
        m_isPair = description->m_isPair && m_field.hasConjugate();
        m_engineeringTensor = description->m_engineeringTensor;
        for (const std::string& label : description->m_componentLabels) m_componentLabels.append(label.c_str());
        const sto_ElementClass onClass = onElements ? handle.elementClass() : sto_ElementClass();
        if (onClass.isValid()) m_baseElementType = onClass.typeLabel().c_str();
        if (description->m_locationIndex >= 0) {
            m_sectionPoint = yld_SectionPoint(description->m_locationIndex + 1, handle.sectionPointLabel());
        }
        m_places.reserve(static_cast<std::size_t>(m_indexCount));
        for (const int place : block.indices()) {
            if (place < 0 || place >= m_numValues) refuse("a subset goes beyond its values");
            m_places.push_back(place);
        }

        switch (m_position) {
        case yld_Enum::WHOLE_REGION:
            prg_WIPBase::Warning("WHOLE_REGION data are not read.");
            return;
        case yld_Enum::WHOLE_PART_INSTANCE:
            prg_WIPBase::Warning("WHOLE_PART_INSTANCE data are not read.");
            return;
        case yld_Enum::GENERAL_PARTICLE:
            prg_WIPBase::Warning("GENERAL_PARTICLE data are not read.");
            return;
        default:
            break;
        }
        if (!positionHasLabels(m_position) && m_position != yld_Enum::WHOLE_MODEL) {
            prg_WIPBase::Warning("Results at unknown location not read.");
            return;
        }
        if (m_precision == yld_Enum::DOUBLE_PRECISION) readData<double>(*description);
        else readData<float>(*description);
        if (positionHasLabels(m_position)) readLabels(handle);
    } catch (...) {
        // Half a list would be taken for a read one.
        clear();
        throw;
    }
}

void yld_FieldValueList::readInstance(const sto_FieldDescription& description)
{
    if (description.hasPartInstance()) {
        const sto_PartInstance instance = description.partInstance();
        const sto_Mesh mesh = instance.mesh();
        const yld_String name(instance.name().c_str());
        const yld_Enum::yld_DimensionEnum space =
            mesh.nodeData().Dim() == 2 ? yld_Enum::TWO_D_PLANAR : yld_Enum::THREE_D;
        m_instance = shr_COW<yld_Instance>(
            new yld_Instance(name, space, instance, yld_MeshHandle(new yld_Mesh(mesh, name, false))));
        m_meshIndex = mesh.meshIndex();
    } else if (description.hasRootAssembly() && description.rootAssembly().hasMesh()) {
        m_meshIndex = description.rootAssembly().mesh().meshIndex();
    } else {
        yld_raise("Unable to determine mesh index for field %s", description.label());
    }
}

// Rows of a field, borrowed where they stand as they are wanted, else made in a buffer of this list.
template<class T>
const T* yld_FieldValueList::rowsOf(const sto_Field& field, bool ofConjugate, int width, fio_Buffer& own)
{
    const int storedWidth = field.shortCut().fetch()->m_width;
    const T* rows = nullptr;
    int count = m_numValues;
    if (m_isPicked) {
        own = field.rowsAt<T>(m_places, ofConjugate);
        rows = valuesIn<T>(own);
        count = m_indexCount;
    } else {
        const sto_FieldView<T> view = field.view<T>();
        rows = ofConjugate ? view.conjugate() : view.data();
    }
    if (width > storedWidth) {
        own = widened(rows, count, storedWidth, width);
        rows = valuesIn<T>(own);
    }
    return rows;
}

template<class T> void yld_FieldValueList::readData(const fld_FieldDescription& description)
{
    const bool isVector = description.dataType() == fld_DataTypeEnm::VECTOR;
    const bool isTensor = fld_FieldDescription::isTensor(description.dataType());
    switch (description.dataType()) {
    case fld_DataTypeEnm::SCALAR:
    case fld_DataTypeEnm::VECTOR:
    case fld_DataTypeEnm::MATRIX:
    case fld_DataTypeEnm::QUATERNION_2D:
    case fld_DataTypeEnm::QUATERNION_3D:
        break;
    default:
        if (!isTensor) {
            prg_WIPBase::Warning("Unknown datatype not processed.");
            return;
        }
    }
    if (isTensor) yld_checkTensor<T>(m_field);
    if (m_indexCount != 0) m_isPicked = m_field.isSparse(m_places);
    const T* data = rowsOf<T>(m_field, false, m_width, m_ownData);
    const T* conjugate = m_isPair ? rowsOf<T>(m_field, true, m_width, m_ownConjugate) : nullptr;
    if constexpr (sizeof(T) == sizeof(float)) {
        m_floatData = data;
        m_floatConjugate = conjugate;
    } else {
        m_doubleData = data;
        m_doubleConjugate = conjugate;
    }
    if ((isVector || isTensor) && m_field.hasOrientation()) readOrientation<T>();
}

template<class T> void yld_FieldValueList::readOrientation()
{
    const sto_Field& orientation = m_field.orientation();
    switch (orientation.fieldDescription().dataType()) {
    case fld_DataTypeEnm::QUATERNION_2D:
        m_orientationWidth = 2;
        break;
    case fld_DataTypeEnm::QUATERNION_3D:
        m_orientationWidth = 4;
        break;
    default:
        return;
    }
    if (orientation.storageType() != m_field.storageType()) refuse("its local systems have another precision");
    const std::shared_ptr<const fld_Field> systems = orientation.shortCut().fetch();
    if (systems->m_width != m_orientationWidth || systems->m_rows != m_numValues) {
        refuse("its local systems have another number of values");
    }
    const T* rows = rowsOf<T>(orientation, false, m_orientationWidth, m_ownOrientation);
    if constexpr (sizeof(T) == sizeof(float)) m_floatOrientation = rows;
    else m_doubleOrientation = rows;
}

void yld_FieldValueList::readLabels(const sto_FieldDescription& description)
{
    const sto_Mesh mesh = description.mesh();
    if (!mesh.isValid()) {
        prg_WIPBase::Warning(
            msg_Format("Unable to determine part or assembly instance for field %s", description.label()));
        return;
    }
    m_numNodes = 0;
    m_numEntities = 0;
    if (!description.hasSet()) return;
    const sto_Set set = description.set();
    switch (m_setType) {
    case setC_Set::nodeSet:
        readNodeLabels(mesh, set);
        break;
    case setC_Set::elementSet:
        readElementLabels(mesh, set, description.elementClass());
        break;
    case setC_Set::surface:
        readFaceLabels(mesh, set, description.elementClass());
        break;
    default:
        break;
    }
}

void yld_FieldValueList::readNodeLabels(const sto_Mesh& mesh, const sto_Set& set)
{
    m_valuesPerEntity = 0;
    m_numNodes = m_numValues;
    const sto_NodeData nodes = mesh.nodeData();
    const int* labels = nodes.GetUserNodeLabels();
    const int subsets = set.numSubsets();
    if (subsets == 1) {
        const sto_Subset members = set.subSet(0);
        // A stretch of the mesh: its labels stand side by side in the store already.
        if (members.isRun() && members.meshIndex() == m_meshIndex) {
            if (members.numMembers() != m_numValues) refuse("another number of nodes than values");
            if (members.firstMember() > nodes.NumNodes() - m_numValues) refuse("a node that the mesh has not");
            m_heldNodeLabels = nodes.labels();
            m_nodeLabels = m_heldNodeLabels.data() + members.firstMember();
            return;
        }
    }
    m_ownNodeLabels = bufferFor(m_numValues, sizeof(int));
    int* to = valuesIn<int>(m_ownNodeLabels);
    int filled = 0;
    for (int i = 0; i < subsets; ++i) {
        const sto_Subset members = set.subSet(i);
        if (members.meshIndex() != m_meshIndex) continue;
        if (members.numMembers() > m_numValues - filled) refuse("more nodes than values");
        const std::vector<int> run = members.isRun() ? members.members() : std::vector<int>();
        const int* list = members.isRun() ? run.data() : members.memberList();
        for (int k = 0; k < members.numMembers(); ++k) {
            if (list[k] >= 0 && list[k] < nodes.NumNodes()) to[filled++] = labels[list[k]];
            else refuse("a node that the mesh has not");
        }
    }
    if (filled != m_numValues) refuse("fewer nodes than values");
    m_nodeLabels = to;
}

namespace {

// The members of one class on one mesh; of a surface, those that are faces.
const sto_Subset* subsetOf(const sto_Set& set, int meshIndex, int classIndex, int subsetType,
                           std::vector<sto_Subset>& room)
{
    for (int i = 0; i < set.numSubsets(); ++i) {
        const sto_Subset members = set.subSet(i);
        if (members.meshIndex() != meshIndex || members.classIndex() != classIndex) continue;
        if (subsetType >= 0 && members.subsetType() != subsetType) continue;
        room.push_back(members);
        return &room.back();
    }
    return nullptr;
}

} // namespace

int yld_FieldValueList::takeElementLabels(const sto_Subset& members, const sto_ElementClass& onClass)
{
    m_numEntities = members.numMembers();
    const int* labels = onClass.userElementLabels();
    if (members.isRun()) {
        if (members.firstMember() > onClass.numElements() - m_numEntities) refuse("an element that the class has not");
        if (!labels) return m_numEntities;
        m_heldElementLabels = onClass.data()->m_labels.array();
        m_elementLabels = m_heldElementLabels.data() + members.firstMember();
        return m_numEntities;
    }
    const int* list = members.memberList();
    for (int k = 0; k < m_numEntities; ++k) {
        if (list[k] < 0 || list[k] >= onClass.numElements()) refuse("an element that the class has not");
    }
    if (!labels) return m_numEntities;
    m_ownElementLabels = bufferFor(m_numEntities, sizeof(int));
    int* to = valuesIn<int>(m_ownElementLabels);
    for (int k = 0; k < m_numEntities; ++k) to[k] = labels[list[k]];
    m_elementLabels = to;
    return m_numEntities;
}

void yld_FieldValueList::readElementLabels(const sto_Mesh& mesh, const sto_Set& set, const sto_ElementClass& onClass)
{
    std::vector<sto_Subset> room;
    const sto_Subset* members = subsetOf(set, m_meshIndex, m_elementClass, -1, room);
    if (!members || !onClass.isValid()) refuse("no elements of its class");
    takeElementLabels(*members, onClass);
    if (m_position == yld_Enum::ELEMENT_NODAL) m_valuesPerEntity = onClass.numNodesPerElement();
    else if (m_position == yld_Enum::INTEGRATION_POINT) m_valuesPerEntity = onClass.numIntegrationPointsPerElement();
    if (static_cast<long long>(m_numEntities) * m_valuesPerEntity != m_numValues) {
        refuse("another number of elements than values");
    }
    if (m_position != yld_Enum::ELEMENT_NODAL) return;

    m_numNodes = m_numValues;
    m_ownNodeLabels = bufferFor(m_numValues, sizeof(int));
    int* to = valuesIn<int>(m_ownNodeLabels);
    const sto_NodeData nodes = mesh.nodeData();
    const auto foreignLabel = [this](const sto_NodeData& own, int node) {
        const sto_ScopedNodeData scoped(own);
        const lnk_ShortCut<mshK_Model> model = sto_modelOf(m_field.shortCut().file());
        if (model.isNull()) refuse("a node of an instance that the model has not");
        const sto_PartInstance instance = sto_Model(model).rootAssembly().instance(scoped.getPartInstance(node));
        const sto_NodeData there = instance.mesh().nodeData();
        const int index = scoped.getInstanceNode(node);
        if (index < 0 || index >= there.NumNodes()) refuse("a node that its instance has not");
        return there.GetUserNodeLabels()[index];
    };
    const int* labels = nodes.GetUserNodeLabels();
    const int* connectivity = onClass.elementConnectivity();
    const int* list = members->isRun() ? nullptr : members->memberList();
    for (int k = 0; k < m_numEntities; ++k) {
        const int element = list ? list[k] : members->firstMember() + k;
        const int* row = connectivity + static_cast<std::ptrdiff_t>(element) * m_valuesPerEntity;
        for (int n = 0; n < m_valuesPerEntity; ++n) {
            // An element of the assembly may stand on a node of an instance, which has its label there.
            *to++ = row[n] < grd_NodeData::firstForeignNode ? labels[row[n]] : foreignLabel(nodes, row[n]);
        }
    }
    m_nodeLabels = valuesIn<int>(m_ownNodeLabels);
}

void yld_FieldValueList::readFaceLabels(const sto_Mesh&, const sto_Set& set, const sto_ElementClass& onClass)
{
    std::vector<sto_Subset> room;
    const sto_Subset* members = subsetOf(set, m_meshIndex, m_elementClass, setC_SubSet::faces, room);
    if (!members || !onClass.isValid()) refuse("no faces of its class");
    takeElementLabels(*members, onClass);

    const std::vector<int> facets = members->facets();
    if (static_cast<int>(facets.size()) != m_numEntities) refuse("elements without a face");
    const bool isShell = shc_Topology::IsShellLike(onClass.typeLabel());
    m_ownFaces = bufferFor(m_numEntities, sizeof(yld_Enum::yld_ElementFaceEnum));
    auto* faces = valuesIn<yld_Enum::yld_ElementFaceEnum>(m_ownFaces);
    for (int k = 0; k < m_numEntities; ++k) {
        faces[k] = mapFaceIndex(facets[static_cast<std::size_t>(k)], isShell, false);
    }
    m_faces = faces;

    const shc_Topology* shape = onClass.shape();
    if (m_position == yld_Enum::ELEMENT_FACE_INTEGRATION_POINT || m_position == yld_Enum::SURFACE_INTEGRATION_POINT) {
        m_valuesPerEntity = onClass.maxIntegrationPointsPerFace();
        constexpr int facesDiffer = 7;
        if (shape && shape->ShapeCode() == facesDiffer) {
            for (int k = 0; k < m_numEntities; ++k) {
                const int points = shape->NumIntegrationPointsOnFace(facets[static_cast<std::size_t>(k)]);
                for (int point = 0; point < points; ++point) {
                    m_elementIndices.append(k);
                    m_integrationPointIndices.append(point);
                }
            }
            if (m_elementIndices.size() == static_cast<long long>(m_numEntities) * m_valuesPerEntity) {
                m_elementIndices.clearAll();
                m_integrationPointIndices.clearAll();
            } else if (m_elementIndices.size() != m_numValues) {
                refuse("another number of points on faces than values");
            }
        }
    }
    if (m_elementIndices.isEmpty() && static_cast<long long>(m_numEntities) * m_valuesPerEntity != m_numValues) {
        refuse("another number of faces than values");
    }
}

yld_FieldValue yld_FieldValueList::value(int index) const
{
    yld_FieldValue value(m_position, m_dataType, m_instance, m_engineeringTensor, m_baseElementType, m_sectionPoint,
                         m_precision);
    const int r = m_indexCount != 0 ? m_places[static_cast<std::size_t>(index)] : index;

    if (m_nodeLabels) value.m_nodeLabel = m_nodeLabels[r];
    if (m_setType == setC_Set::elementSet || m_setType == setC_Set::surface) {
        const bool isIrregular = !m_elementIndices.isEmpty();
        const int entity = isIrregular ? m_elementIndices[r] : r / m_valuesPerEntity;
        const int point = isIrregular ? m_integrationPointIndices[r] : r % m_valuesPerEntity;
        if (m_elementLabels) value.m_elementLabel = m_elementLabels[entity];
        if (m_setType == setC_Set::surface) {
            if (m_faces) value.m_face = m_faces[entity];
            if (m_position == yld_Enum::ELEMENT_FACE_INTEGRATION_POINT ||
                m_position == yld_Enum::SURFACE_INTEGRATION_POINT) {
                value.m_integrationPoint = point + 1;
            }
        } else if (m_position == yld_Enum::INTEGRATION_POINT) {
            value.m_integrationPoint = point + 1;
        }
    }

    const auto place = static_cast<std::ptrdiff_t>(m_isPicked ? index : r);
    if (m_floatData) {
        value.m_data.reserve(m_width, yld_Enum::SINGLE_PRECISION);
        value.m_data.copyIn(m_floatData + place * m_width);
        if (m_floatConjugate) value.m_data.setConjugate(m_floatConjugate + place * m_width);
    } else if (m_doubleData) {
        value.m_data.reserve(m_width, yld_Enum::DOUBLE_PRECISION);
        value.m_data.copyIn(m_doubleData + place * m_width);
        if (m_doubleConjugate) value.m_data.setConjugate(m_doubleConjugate + place * m_width);
    }
    if (m_floatOrientation) {
        value.m_localCoordSystemData.reserve(m_orientationWidth, yld_Enum::SINGLE_PRECISION);
        value.m_localCoordSystemData.copyIn(m_floatOrientation + place * m_orientationWidth);
    } else if (m_doubleOrientation) {
        value.m_localCoordSystemData.reserve(m_orientationWidth, yld_Enum::DOUBLE_PRECISION);
        value.m_localCoordSystemData.copyIn(m_doubleOrientation + place * m_orientationWidth);
    }
    return value;
}

yld_Sequence<int> yld_FieldValueList::placesOfSystem(const yld_Sequence<yld_Sequence<float>>& system) const
{
    yld_Sequence<int> places;
    yld_FieldValueData last;
    bool isLastEqual = false;
    for (int i = 0; i < length(); ++i) {
        const yld_FieldValue shown = value(i);
        // Neighbours mostly have one system, and equal numbers give equal cosines.
        if (i == 0 || shown.localCoordSystemData() != last) {
            isLastEqual = shown.localCoordSystem().isEqual(system);
            last.copyFrom(shown.localCoordSystemData());
        }
        if (isLastEqual) places.append(m_indexCount != 0 ? m_places[static_cast<std::size_t>(i)] : i);
    }
    return places;
}
