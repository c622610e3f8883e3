#include "yld/impl/field/yld_FieldValueList.h"

#include "platform/shape/shc_Topology.h"
#include "platform/text/prg_WIP.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld/impl/field/yld_checkTensor.h"
#include "yld/impl/model/yld_Mesh.h"
#include "yld_EnumMap.h"
#include "yld_Instance.h"

#include <algorithm>
#include <cstring>

namespace {

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

} // namespace

shr_COW<yld_Instance> yld_FieldValueList::noInstance()
{
    thread_local const shr_COW<yld_Instance> empty{new yld_Instance()};
    return empty;
}

void yld_FieldValueList::read(const yld_SubField& block)
{
    clear();
    try {
        m_field = block.field();
        const sto_FieldDescription& handle = block.description();
        const sto_FieldBlock on(handle);
        const fld_FieldDescription& description = on.description();
        m_dataType = block.type();
        m_indexCount = block.indices().size();
        m_position = mapOutputPosition(description.position());
        m_precision = m_field.storageType() == 1 ? yld_Enum::DOUBLE_PRECISION : yld_Enum::SINGLE_PRECISION;
        m_place = &on.place();
        if (m_place->carrier != fld_OutputPosition::Carrier::MODEL) readInstance(on);
        m_setType = on.setType();
        const bool onElements = on.isOnElements() || on.isOnFaces();

        const int storedWidth = description.m_width;
        if (storedWidth != m_field.shortCut().fetch()->m_width) on.refuse("the widths differ");
        m_numValues = m_field.rows();
        if (m_numValues != description.m_length) on.refuse("the lengths differ");
        const bool isWidened = on.type().isTensor() && mapDataType(description.dataType()) != m_dataType;
        m_width = isWidened ? fld_DataType::fullTensorWidth : storedWidth;
        m_isPair = description.m_isPair && m_field.hasConjugate();
        m_engineeringTensor = description.m_engineeringTensor;
        for (const std::string& label : description.m_componentLabels) m_componentLabels.append(label.c_str());
        if (onElements && on.elementClass().isValid()) m_baseElementType = on.elementClass().typeLabel().c_str();
        if (description.m_locationIndex >= 0) {
            m_sectionPoint = yld_SectionPoint(description.m_locationIndex + 1, on.sectionPointLabel());
        }
        m_places.reserve(static_cast<std::size_t>(m_indexCount));
        for (const int place : block.indices()) {
            if (place < 0 || place >= m_numValues) on.refuse("a subset goes beyond its values");
            m_places.push_back(place);
        }

        if (m_place->notRead) {
            prg_WIPBase::Warning(m_place->notRead);
            return;
        }
        if (m_precision == yld_Enum::DOUBLE_PRECISION) readData<double>(on);
        else readData<float>(on);
        if (m_place->hasLabels) readLabels(on);
    } catch (...) {
        // Half a list would be taken for a read one.
        clear();
        throw;
    }
}

void yld_FieldValueList::readInstance(const sto_FieldBlock& on)
{
    if (on.description().m_instance.isValid()) {
        const sto_PartInstance instance(on.description().m_instance);
        const sto_Mesh& mesh = on.mesh();
        const yld_String name(instance.name().c_str());
        const yld_Enum::yld_DimensionEnum space =
            mesh.nodeData().Dim() == 2 ? yld_Enum::TWO_D_PLANAR : yld_Enum::THREE_D;
        m_instance = shr_COW<yld_Instance>(
            new yld_Instance(name, space, instance, yld_MeshHandle(new yld_Mesh(mesh, name, false))));
    } else if (!on.mesh().isValid()) {
        yld_raise("Unable to determine mesh index for field %s", on.description().m_label.c_str());
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

template<class T> void yld_FieldValueList::readData(const sto_FieldBlock& on)
{
    const fld_DataType& type = on.type();
    if (!type.isOfFields() && !type.isQuaternion()) {
        prg_WIPBase::Warning("Unknown datatype not processed.");
        return;
    }
    if (type.isTensor()) yld_checkTensor<T>(m_field);
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
    if (type.hasSystems && m_field.hasOrientation()) readOrientation<T>(on);
}

template<class T> void yld_FieldValueList::readOrientation(const sto_FieldBlock& on)
{
    const sto_Field& orientation = m_field.orientation();
    const fld_DataType& systemType = orientation.fieldDescription().data()->type();
    if (!systemType.isQuaternion()) return;
    m_orientationWidth = systemType.width;
    if (orientation.storageType() != m_field.storageType()) on.refuse("its local systems have another precision");
    const std::shared_ptr<const fld_Field> systems = orientation.shortCut().fetch();
    if (systems->m_width != m_orientationWidth || systems->m_rows != m_numValues) {
        on.refuse("its local systems have another number of values");
    }
    const T* rows = rowsOf<T>(orientation, false, m_orientationWidth, m_ownOrientation);
    if constexpr (sizeof(T) == sizeof(float)) m_floatOrientation = rows;
    else m_doubleOrientation = rows;
}

void yld_FieldValueList::readLabels(const sto_FieldBlock& on)
{
    if (!on.mesh().isValid()) {
        prg_WIPBase::Warning(
            msg_Format("Unable to determine part or assembly instance for field %s", on.description().m_label.c_str()));
        return;
    }
    if (!on.isOnNodes() && !on.isOnElements() && !on.isOnFaces()) return;
    on.checkFits(m_numValues);
    if (on.isOnNodes()) {
        m_valuesPerEntity = 0;
        m_numNodes = m_numValues;
        m_nodeLabels = on.memberLabels();
        return;
    }
    m_elementLabels = on.memberLabels();
    m_valuesPerEntity = on.rowsPerMember();
    if (on.isOnFaces()) {
        readFaces(on);
    } else if (m_place->perCarrier == fld_OutputPosition::PerCarrier::NODES) {
        m_numNodes = m_numValues;
        m_nodeLabels = on.connectivityLabels();
    }
}

void yld_FieldValueList::readFaces(const sto_FieldBlock& on)
{
    const std::vector<int> facets = on.facets();
    const bool isShell = shc_Topology::IsShellLike(on.elementClass().typeLabel());
    m_ownFaces = bufferFor(static_cast<long long>(facets.size()), sizeof(yld_Enum::yld_ElementFaceEnum));
    auto* faces = valuesIn<yld_Enum::yld_ElementFaceEnum>(m_ownFaces);
    for (std::size_t k = 0; k < facets.size(); ++k) faces[k] = mapFaceIndex(facets[k], isShell, false);
    m_faces = faces;
    for (const sto_FieldBlock::FacePoint& each : on.facePoints()) {
        m_elementIndices.append(each.member);
        m_integrationPointIndices.append(each.point);
    }
}

yld_FieldValue yld_FieldValueList::value(int index) const
{
    yld_FieldValue value(m_position, m_dataType, m_instance, m_engineeringTensor, m_baseElementType, m_sectionPoint,
                         m_precision);
    const int r = m_indexCount != 0 ? m_places[static_cast<std::size_t>(index)] : index;

    if (m_nodeLabels.data()) value.m_nodeLabel = m_nodeLabels[r];
    if (m_setType == setC_Set::elementSet || m_setType == setC_Set::surface) {
        const bool isIrregular = !m_elementIndices.isEmpty();
        const int entity = isIrregular ? m_elementIndices[r] : r / m_valuesPerEntity;
        const int point = isIrregular ? m_integrationPointIndices[r] : r % m_valuesPerEntity;
        if (m_elementLabels.data()) value.m_elementLabel = m_elementLabels[entity];
        if (m_faces) value.m_face = m_faces[entity];
        using enum fld_OutputPosition::PerCarrier;
        if (m_place->perCarrier == (m_setType == setC_Set::surface ? FACE_POINTS : POINTS)) {
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
