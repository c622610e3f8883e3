#include "yld/impl/field/yld_FieldSubset.h"

#include "platform/sto/sto_Assembly.h"
#include "platform/store/fio_File.h"
#include "platform/text/prg_WIP.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld/impl/field/yld_checkTensor.h"
#include "yld_EnumMap.h"
#include "yld_SectionCategory.h"

#include <algorithm>

namespace {

constexpr const char* temporarySet = "api_tmp_set";
constexpr int orphanKey = -999;
constexpr int orphanOrientationKey = -9999;
constexpr int fullTensorWidth = 6;

bool isTensor(yld_Enum::yld_DataTypeEnum type)
{
    return type >= yld_Enum::TENSOR_3D_FULL && type <= yld_Enum::TENSOR_2D_SURFACE;
}

bool isQuaternion(yld_Enum::yld_DataTypeEnum type)
{
    return type == yld_Enum::QUATERNION_2D || type == yld_Enum::QUATERNION_3D;
}

bool hasNoOrientation(yld_Enum::yld_DataTypeEnum type)
{
    return type == yld_Enum::SCALAR || type == yld_Enum::VECTOR || type == yld_Enum::MATRIX;
}

// Tells whether values at a position can be taken; warns if they cannot.
bool canBeTaken(yld_Enum::yld_ResultPositionEnum position)
{
    switch (position) {
    case yld_Enum::NODAL:
    case yld_Enum::ELEMENT_NODAL:
    case yld_Enum::INTEGRATION_POINT:
    case yld_Enum::CENTROID:
    case yld_Enum::ELEMENT_FACE:
    case yld_Enum::WHOLE_ELEMENT:
        return true;
    case yld_Enum::WHOLE_REGION:
        prg_WIPBase::Warning("WHOLE_REGION data are not read.");
        return false;
    case yld_Enum::WHOLE_PART_INSTANCE:
        prg_WIPBase::Warning("WHOLE_PART_INSTANCE data are not read.");
        return false;
    case yld_Enum::WHOLE_MODEL:
        prg_WIPBase::Warning("WHOLE_MODEL data are not read.");
        return false;
    case yld_Enum::GENERAL_PARTICLE:
        prg_WIPBase::Warning("GENERAL_PARTICLE data are not read.");
        return false;
    default:
        prg_WIPBase::Warning("Results at unknown location not read.");
        return false;
    }
}

// Where each stored component of a row goes in a row of six; the third of a surface tensor is a shear.
constexpr int inOrder[fullTensorWidth] = {0, 1, 2, 3, 4, 5};
constexpr int ofSurface[3] = {0, 1, 3};

bool isSurface(fld_DataTypeEnm type)
{
    return type == fld_DataTypeEnm::TENSOR_3D_SURFACE || type == fld_DataTypeEnm::TENSOR_2D_SURFACE;
}

// Rows in single precision, of another width if need be.
template<class T> fio_Buffer floatRows(const fio_Buffer& from, int count, int storedWidth, int width, const int* places)
{
    if constexpr (sizeof(T) == sizeof(float)) {
        if (storedWidth == width) return from;
    }
    const T* row = reinterpret_cast<const T*>(from.data());
    fio_Buffer buffer(static_cast<std::size_t>(count) * static_cast<std::size_t>(width) * sizeof(float));
    float* to = reinterpret_cast<float*>(buffer.writable());
    const int taken = std::min(storedWidth, width);
    for (int i = 0; i < count; ++i, row += storedWidth, to += width) {
        if (taken < width) std::fill_n(to, width, 0.0F);
        for (int k = 0; k < taken; ++k) to[places ? places[k] : k] = static_cast<float>(row[k]);
    }
    return buffer;
}

} // namespace

yld_FieldSubset::yld_FieldSubset(const yld_SubFieldBody& block)
    : m_block(block), m_description(block.description.data())
{
}

void yld_FieldSubset::extract(const std::vector<int>& indices, yld_Enum::yld_ResultPositionEnum target)
{
    const yld_Enum::yld_DataTypeEnum storedType = mapDataType(m_description->dataType());
    if (isQuaternion(m_block.type)) {
        prg_WIPBase::Warning("Quaternions result not read.");
        return;
    }
    if (!canBeTaken(mapOutputPosition(m_description->position()))) return;
    m_numRows = static_cast<int>(indices.size());
    if (isQuaternion(storedType)) prg_WIPBase::Warning("Quaternion results not processed.");
    else if (!hasNoOrientation(storedType) && !isTensor(storedType))
        prg_WIPBase::Warning("Unknown datatype not processed.");
    else if (m_block.field.storageType() == 1) extractRows<double>(indices);
    else extractRows<float>(indices);
    extractLabels(indices, target);
}

template<class T> void yld_FieldSubset::extractRows(const std::vector<int>& indices)
{
    const sto_Field& field = m_block.field;
    const fld_DataTypeEnm storedType = m_description->dataType();
    if (fld_FieldDescription::isTensor(storedType)) yld_checkTensor<T>(field);
    const int storedWidth = field.shortCut().fetch()->m_width;
    if (storedWidth != m_description->m_width) m_block.refuse("the widths differ");
    const bool isFilledUp = fld_FieldDescription::isTensor(storedType) && mapDataType(storedType) != m_block.type;
    m_width = isFilledUp ? fullTensorWidth : storedWidth;
    const int* places = !isFilledUp ? nullptr : isSurface(storedType) ? ofSurface : inOrder;
    m_values = floatRows<T>(field.rowsAt<T>(indices), m_numRows, storedWidth, m_width, places);
    if (m_description->m_isPair && field.hasConjugate()) {
        m_conjugate = floatRows<T>(field.rowsAt<T>(indices, true), m_numRows, storedWidth, m_width, places);
    }

    if (!field.hasOrientation() || storedType == fld_DataTypeEnm::SCALAR || storedType == fld_DataTypeEnm::MATRIX)
        return;
    const sto_Field& orientation = field.orientation();
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
    if (orientation.storageType() != field.storageType()) m_block.refuse("its local systems have another precision");
    if (orientation.shortCut().fetch()->m_width != m_orientationWidth) {
        m_block.refuse("its local systems have another number of values");
    }
    m_orientation =
        floatRows<T>(orientation.rowsAt<T>(indices), m_numRows, m_orientationWidth, m_orientationWidth, nullptr);
}

void yld_FieldSubset::extractLabels(const std::vector<int>& indices, yld_Enum::yld_ResultPositionEnum target)
{
    const bool isNodal = m_block.description.setType() == setC_Set::nodeSet;
    const std::vector<int> members = m_block.members();
    const auto memberOf = [&](std::size_t entity) {
        if (entity >= members.size())
            m_block.refuse(isNodal ? "fewer nodes than values" : "fewer elements than values");
        return members[entity];
    };
    std::vector<int> taken;
    if (isNodal) {
        for (const int index : indices) taken.push_back(memberOf(static_cast<std::size_t>(index)));
        m_labels = m_block.nodeLabels(taken);
        return;
    }
    const int perEntity = m_block.valuesPerEntity();
    if (target == yld_Enum::NODAL) {
        const sto_ElementClass onClass = m_block.description.elementClass();
        for (const int index : indices) {
            const int element = memberOf(static_cast<std::size_t>(index / perEntity));
            if (element < 0 || element >= onClass.numElements()) m_block.refuse("an element that the class has not");
            taken.push_back(onClass.getSingleElementConnectivity(element)[index % perEntity]);
        }
        m_labels = m_block.nodeLabels(taken);
        return;
    }
    // Whole elements are expected: what is not is noticed by the number of values.
    for (std::size_t i = 0; i < indices.size(); i += static_cast<std::size_t>(perEntity)) {
        taken.push_back(memberOf(static_cast<std::size_t>(indices[i] / perEntity)));
    }
    m_labels = m_block.elementLabels(taken);
}

void yld_FieldSubset::checkOrientation() const
{
    if (m_orientationWidth > 0 && hasNoOrientation(m_block.type)) {
        yld_raise("Transformation not allowed for scalar, vector or matrix data.");
    }
}

void yld_FieldSubset::writeWithTempSet(yld_SubFieldBody& into, yld_Enum::yld_ResultPositionEnum position,
                                       const sto_Mesh& mesh)
{
    checkOrientation();
    const int type = position == yld_Enum::NODAL ? setC_Set::nodeSet : setC_Set::elementSet;
    const sto_Set set = mesh.isValid()
                            ? mesh.temporarySet(type, temporarySet, m_labels.data(), static_cast<int>(m_labels.size()))
                            : sto_Set();
    if (!set.isValid() || set.numSubsets() != 1) yld_raise("Subfield spanning subsets is invalid.");
    writeOrphanField(into, position, set, 0);
}

void yld_FieldSubset::checkSectionPoint(const sto_ElementClass& onClass) const
{
    const int index = m_description->m_locationIndex;
    if (index >= onClass.numLocation()) yld_raise("Section Point number %s.", index + 1);
    if (m_block.description.sectionPointLabel() != onClass.sectionPointLabel(index).c_str()) {
        yld_raise("Section point not valid for elements.");
    }
}

fld_FieldDescription yld_FieldSubset::makeOrphanDescription(yld_Enum::yld_ResultPositionEnum position,
                                                            const sto_Set& set, int subset) const
{
    checkOrientation();
    if (subset >= set.numSubsets()) yld_raise("Subfield spanning subsets is invalid.");
    const sto_Subset members = set.subSet(subset);

    fld_FieldDescription description;
    description.m_key = orphanKey;
    description.m_label = m_block.label.cStr();
    description.m_description = "orphaned field";
    description.m_dataType = static_cast<int>(unMapDataType(m_block.type));
    description.m_position = static_cast<int>(unMapOutputPosition(position));
    description.m_locationIndex = m_description->m_locationIndex;
    description.m_instance = m_description->m_instance;
    description.m_instanceName = m_description->m_instanceName;
    description.m_rootAssembly = m_description->m_rootAssembly;
    description.m_meshIndex = m_description->m_meshIndex;
    description.m_set = set.shortCut();
    description.m_componentLabels = m_description->m_componentLabels;
    description.m_labelComponents = m_description->m_labelComponents;
    description.m_invariants = m_description->m_invariants;
    description.m_width = m_width;
    description.m_rows = m_description->m_rows;
    description.m_cols = m_description->m_cols;
    description.m_matrixKind = m_description->m_matrixKind;
    description.m_engineeringTensor = m_description->m_engineeringTensor;
    description.m_isPair = !m_conjugate.isEmpty();
    description.m_length = members.numMembers();
    if (position == yld_Enum::NODAL) return description;

    description.m_classIndex = members.classIndex();
    const sto_ElementClass onClass = sto_FieldDescription::elementClass(description);
    if (description.m_locationIndex >= 0) checkSectionPoint(onClass);
    if (position == yld_Enum::ELEMENT_NODAL) description.m_length *= onClass.numNodesPerElement();
    else if (position == yld_Enum::INTEGRATION_POINT) {
        description.m_length *= std::max(1, onClass.numIntegrationPointsPerElement());
    }
    return description;
}

void yld_FieldSubset::checkLength(const fld_FieldDescription& description, const sto_ElementClass& onClass) const
{
    if (description.m_length == m_numRows) return;
    yld_String text(msg_Format("Length of data sequence incorrect. Data at %1$s locations expected. Data at %2$s "
                               "locations provided.",
                               description.m_length, m_numRows));
    if (description.position() == fld_OutputPositionEnm::NODAL) {
        text.append(msg_Format(" Nodal data request failed. "));
        throw yld_Exception(yld_GENERAL, text);
    }
    text.append(msg_Format(" Element data request failed. Element type is %s", onClass.typeLabel().c_str()));
    switch (description.position()) {
    case fld_OutputPositionEnm::INTEGRATION_POINT:
        text.append(msg_Format(". Data at %s integration points per element expected.",
                               onClass.numIntegrationPointsPerElement()));
        break;
    case fld_OutputPositionEnm::ELEMENT_NODAL:
        text.append(msg_Format(". Data at %s nodes per element expected.", onClass.numNodesPerElement()));
        break;
    default:
        text.append(msg_Format(". Data at 1 location per element expected."));
        break;
    }
    throw yld_Exception(yld_GENERAL, text);
}

void yld_FieldSubset::writeOrphanField(yld_SubFieldBody& into, yld_Enum::yld_ResultPositionEnum position,
                                       const sto_Set& set, int subset)
{
    fld_FieldDescription description = makeOrphanDescription(position, set, subset);
    checkLength(description, sto_FieldDescription::elementClass(description));
    if (!hasNoOrientation(m_block.type) && !isTensor(m_block.type)) yld_raise("Invalid results type for field.");

    const std::shared_ptr<fio_FileBody>& file = m_block.field.shortCut().file();
    fld_Field field;
    field.m_key = orphanKey;
    field.m_rows = m_numRows;
    field.m_width = m_width;
    field.m_values.adopt(m_values);
    if (!m_conjugate.isEmpty()) field.m_conjugate.adopt(m_conjugate);
    if (m_orientationWidth > 0) {
        fld_FieldDescription system(description);
        system.m_key = orphanOrientationKey;
        const bool isPlanar = m_block.type == yld_Enum::TENSOR_2D_PLANAR || m_block.type == yld_Enum::TENSOR_2D_SURFACE;
        system.m_dataType =
            static_cast<int>(isPlanar ? fld_DataTypeEnm::QUATERNION_2D : fld_DataTypeEnm::QUATERNION_3D);
        // The numbers decide where they and the type of the tensor differ.
        if (m_orientationWidth != fld_FieldDescription::typeWidth(system.dataType())) {
            system.m_dataType = static_cast<int>(m_orientationWidth == 2 ? fld_DataTypeEnm::QUATERNION_2D
                                                                         : fld_DataTypeEnm::QUATERNION_3D);
        }
        system.m_label = "orientation";
        system.m_description = "orientation for result";
        system.m_width = m_orientationWidth;
        system.m_componentLabels.clear();
        system.m_labelComponents.clear();
        system.m_invariants.clear();
        system.m_isPair = false;
        system.m_engineeringTensor = false;
        fld_Field quaternions;
        quaternions.m_key = orphanOrientationKey;
        quaternions.m_rows = m_numRows;
        quaternions.m_width = m_orientationWidth;
        quaternions.m_values.adopt(m_orientation);
        description.m_orientation = lnk_ShortCut<fld_FieldDescription>::apart(file, std::move(system));
        quaternions.m_description = description.m_orientation;
        field.m_orientation = lnk_ShortCut<fld_Field>::apart(file, std::move(quaternions));
    }

    const int length = description.m_length;
    const int classIndex = description.m_classIndex;
    const int meshIndex = sto_FieldDescription::mesh(description).meshIndex();
    const auto described = lnk_ShortCut<fld_FieldDescription>::apart(file, std::move(description));
    field.m_description = described;
    const sto_Field made(lnk_ShortCut<fld_Field>::apart(file, std::move(field)));
    into.field = made;
    into.description = sto_FieldDescription(described);
    into.storedLength = length;
    into.elementClass = classIndex;
    into.meshIndex = meshIndex;
}
