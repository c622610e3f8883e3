#include "yld/impl/field/yld_FieldSubset.h"

#include "platform/sto/sto_Assembly.h"
#include "platform/store/fio_File.h"
#include "platform/text/prg_WIP.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld/impl/field/yld_checkTensor.h"
#include "yld_EnumMap.h"

#include <algorithm>

namespace {

constexpr const char* temporarySet = "api_tmp_set";
constexpr int orphanKey = -999;
constexpr int orphanOrientationKey = -9999;

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
    : m_block(block), m_place(block.place()), m_description(block.description.data())
{
}

void yld_FieldSubset::extract(const std::vector<int>& indices, yld_Enum::yld_ResultPositionEnum target)
{
    const fld_DataType& stored = m_place.type();
    if (presented().isQuaternion()) {
        prg_WIPBase::Warning("Quaternions result not read.");
        return;
    }
    if (const char* reason = m_place.place().notTaken) {
        prg_WIPBase::Warning(reason);
        return;
    }
    m_numRows = static_cast<int>(indices.size());
    if (stored.isQuaternion()) prg_WIPBase::Warning("Quaternion results not processed.");
    else if (!stored.isOfFields()) prg_WIPBase::Warning("Unknown datatype not processed.");
    else if (m_block.field.storageType() == 1) extractRows<double>(indices);
    else extractRows<float>(indices);
    extractLabels(indices, target);
}

const fld_DataType& yld_FieldSubset::presented() const { return fld_DataType::shownBy(m_block.type); }

template<class T> void yld_FieldSubset::extractRows(const std::vector<int>& indices)
{
    const sto_Field& field = m_block.field;
    const fld_DataType& stored = m_place.type();
    if (stored.isTensor()) yld_checkTensor<T>(field);
    const int storedWidth = field.shortCut().fetch()->m_width;
    if (storedWidth != m_description->m_width) m_place.refuse("the widths differ");
    const bool isFilledUp = stored.isTensor() && stored.shownAs != m_block.type;
    m_width = isFilledUp ? fld_DataType::fullTensorWidth : storedWidth;
    const int* places = isFilledUp ? stored.placesInFullTensor : nullptr;
    m_values = floatRows<T>(field.rowsAt<T>(indices), m_numRows, storedWidth, m_width, places);
    if (m_description->m_isPair && field.hasConjugate()) {
        m_conjugate = floatRows<T>(field.rowsAt<T>(indices, true), m_numRows, storedWidth, m_width, places);
    }

    if (!field.hasOrientation() || !stored.hasSystems) return;
    const sto_Field& orientation = field.orientation();
    const fld_DataType& systems = orientation.fieldDescription().data()->type();
    if (!systems.isQuaternion()) return;
    m_orientationWidth = systems.width;
    if (orientation.storageType() != field.storageType()) m_place.refuse("its local systems have another precision");
    if (orientation.shortCut().fetch()->m_width != m_orientationWidth) {
        m_place.refuse("its local systems have another number of values");
    }
    m_orientation =
        floatRows<T>(orientation.rowsAt<T>(indices), m_numRows, m_orientationWidth, m_orientationWidth, nullptr);
}

void yld_FieldSubset::extractLabels(const std::vector<int>& indices, yld_Enum::yld_ResultPositionEnum target)
{
    const bool isNodal = m_place.isOnNodes();
    const bool isRead = !m_place.isOnFaces() || m_place.areFaces();
    const std::vector<int> members = isRead ? m_place.members() : std::vector<int>();
    const auto memberOf = [&](std::size_t entity) {
        if (entity >= members.size())
            m_place.refuse(isNodal ? "fewer nodes than values" : "fewer elements than values");
        return members[entity];
    };
    std::vector<int> taken;
    if (isNodal) {
        for (const int index : indices) taken.push_back(memberOf(static_cast<std::size_t>(index)));
        m_labels = m_place.nodeLabels(taken);
        return;
    }
    const int perEntity = m_block.valuesPerEntity();
    if (target == yld_Enum::NODAL) {
        const sto_ElementClass& onClass = m_place.elementClass();
        for (const int index : indices) {
            const int element = memberOf(static_cast<std::size_t>(index / perEntity));
            taken.push_back(onClass.getSingleElementConnectivity(element)[index % perEntity]);
        }
        m_labels = m_place.nodeLabels(taken);
        return;
    }
    // Whole elements are expected: what is not is noticed by the number of values.
    for (std::size_t i = 0; i < indices.size(); i += static_cast<std::size_t>(perEntity)) {
        taken.push_back(memberOf(static_cast<std::size_t>(indices[i] / perEntity)));
    }
    m_labels = m_place.elementLabels(taken);
}

void yld_FieldSubset::checkOrientation() const
{
    if (m_orientationWidth > 0 && presented().isOfFields() && !presented().isTensor()) {
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
    if (m_place.sectionPointLabel() != onClass.sectionPointLabel(index).c_str()) {
        yld_raise("Section point not valid for elements.");
    }
}

sto_FieldDescriptionBuilder yld_FieldSubset::describe(yld_Enum::yld_ResultPositionEnum position, const sto_Set& set,
                                                      int subset) const
{
    checkOrientation();
    if (subset >= set.numSubsets()) yld_raise("Subfield spanning subsets is invalid.");
    const sto_Subset members = set.subSet(subset);

    sto_FieldDescriptionBuilder builder(m_block.label.cStr(), "orphaned field", unMapDataType(m_block.type));
    builder.shapeOf(*m_description);
    builder.width(m_width);
    builder.components(m_description->m_componentLabels, m_description->m_labelComponents);
    builder.invariants(m_description->m_invariants);
    builder.pair(!m_conjugate.isEmpty());
    builder.at(unMapOutputPosition(position), m_description->m_locationIndex);
    builder.onMeshOf(*m_description);
    if (position == yld_Enum::NODAL) {
        builder.of(set, -1, members.numMembers());
        return builder;
    }
    const sto_ElementClass onClass = sto_FieldBlock(m_place.mesh(), set, members.classIndex()).elementClass();
    if (m_description->m_locationIndex >= 0) checkSectionPoint(onClass);
    // At least one: see valuesPerEntity().
    const int perMember = sto_FieldBlock::rowsPerMember(builder.made().place(), set.setType(), onClass);
    builder.of(set, members.classIndex(), members.numMembers() * std::max(1, perMember));
    return builder;
}

void yld_FieldSubset::writeOrphanField(yld_SubFieldBody& into, yld_Enum::yld_ResultPositionEnum position,
                                       const sto_Set& set, int subset)
{
    const sto_FieldDescriptionBuilder builder = describe(position, set, subset);
    const std::shared_ptr<fio_FileBody>& file = m_block.field.shortCut().file();
    const sto_FieldBlock made(builder.made(), file);
    yld_guard([&] { made.checkLength(m_numRows); });
    if (!presented().isOfFields()) yld_raise("Invalid results type for field.");

    fld_FieldDescription description(builder.made());
    description.m_key = orphanKey;
    fld_Field field;
    field.m_key = orphanKey;
    field.m_rows = m_numRows;
    field.m_width = m_width;
    field.m_values.adopt(m_values);
    if (!m_conjugate.isEmpty()) field.m_conjugate.adopt(m_conjugate);
    if (m_orientationWidth > 0) {
        // The numbers decide where they and the type of the tensor differ.
        const fld_DataTypeEnm systems = presented().systems;
        fld_FieldDescription system = builder.ofSystems(fld_DataType::of(systems).width == m_orientationWidth
                                                            ? systems
                                                            : fld_DataType::quaternionOf(m_orientationWidth),
                                                        orphanOrientationKey);
        fld_Field quaternions;
        quaternions.m_key = orphanOrientationKey;
        quaternions.m_rows = m_numRows;
        quaternions.m_width = m_orientationWidth;
        quaternions.m_values.adopt(m_orientation);
        description.m_orientation = lnk_ShortCut<fld_FieldDescription>::temporary(file, std::move(system));
        quaternions.m_description = description.m_orientation;
        field.m_orientation = lnk_ShortCut<fld_Field>::temporary(file, std::move(quaternions));
    }

    const int length = description.m_length;
    const int classIndex = description.m_classIndex;
    const auto described = lnk_ShortCut<fld_FieldDescription>::temporary(file, std::move(description));
    field.m_description = described;
    into.field = sto_Field(lnk_ShortCut<fld_Field>::temporary(file, std::move(field)));
    into.description = sto_FieldDescription(described);
    into.storedLength = length;
    into.elementClass = classIndex;
    into.meshIndex = made.meshIndex();
}
