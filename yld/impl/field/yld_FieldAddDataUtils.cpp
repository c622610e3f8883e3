#include "yld/impl/field/yld_FieldAddDataUtils.h"

#include "platform/math/eng_Quaternion.h"
#include "platform/sto/sto_FieldFrame.h"
#include "platform/sto/sto_FieldStep.h"
#include "platform/store/fio_Extents.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld/impl/field/yld_SetCache.h"
#include "yld_EnumMap.h"

#include <algorithm>
#include <limits>
#include <string>
#include <type_traits>
#include <unordered_map>

namespace {

bool isTensor(yld_Enum::yld_DataTypeEnum type)
{
    return type >= yld_Enum::TENSOR_3D_FULL && type <= yld_Enum::TENSOR_2D_SURFACE;
}

bool isWithoutSystems(yld_Enum::yld_DataTypeEnum type)
{
    return type == yld_Enum::SCALAR || type == yld_Enum::VECTOR || type == yld_Enum::MATRIX;
}

int fittingInt(long long number)
{
    if (number < 0 || number > std::numeric_limits<int>::max()) yld_raise("Invalid results type for field.");
    return static_cast<int>(number);
}

} // namespace

yld_FieldAddDataUtils::yld_FieldAddDataUtils(yld_FieldOutput& field, yld_Enum::yld_ResultPositionEnum position,
                                             const sto_PartInstance& instance, const int* labels, int numLabels,
                                             const yld_RowArray& data, const yld_SectionPoint& sectionPoint,
                                             const yld_SystemArray& systems, const yld_RowArray& conjugate)
    : m_field(field), m_position(position), m_instance(instance), m_labels(labels), m_numLabels(numLabels),
      m_data(data), m_sectionPoint(sectionPoint), m_systems(systems), m_conjugate(conjugate),
      m_isPair(conjugate.size() > 0)
{
}

bool yld_FieldAddDataUtils::isOnElements() const
{
    return m_position == yld_Enum::INTEGRATION_POINT || m_position == yld_Enum::ELEMENT_NODAL ||
           m_position == yld_Enum::WHOLE_ELEMENT || m_position == yld_Enum::CENTROID;
}

fld_FieldDescription yld_FieldAddDataUtils::describe(const yld_FieldOutput& field)
{
    fld_FieldDescription common;
    const yld_Enum::yld_DataTypeEnum type = field.m_type;
    common.m_label = field.m_name.cStr();
    common.m_description = field.m_description.cStr();
    common.m_dataType = static_cast<int>(unMapDataType(type));
    for (const yld_String& label : field.m_componentLabels) common.m_componentLabels.emplace_back(label.cStr());
    for (const yld_Enum::yld_InvariantEnum invariant : field.m_validInvariants) {
        common.m_invariants.push_back(static_cast<int>(unMapInvarEnum(invariant)));
    }
    const long long rows = field.m_rows;
    long long width = rows * field.m_cols;
    if (type == yld_Enum::MATRIX) {
        if (field.m_subtype == yld_Enum::SYMMETRIC_MATRIX) {
            width = rows * (rows + 1) / 2;
            common.m_matrixKind = 1;
        }
        common.m_rows = field.m_rows;
        common.m_cols = field.m_cols;
    } else if (type == yld_Enum::VECTOR && width == 0 && field.m_componentLabels.isEmpty() &&
               !field.SubField().isEmpty()) {
        // A vector without labels that was found in the store knows its width from what it has.
        width = field.SubField()[0].description().width();
    }
    common.m_width = fittingInt(width);
    if (common.m_width == 0) {
        common.m_width = type == yld_Enum::VECTOR ? field.m_componentLabels.size()
                                                  : fld_FieldDescription::typeWidth(common.dataType());
    }
    return common;
}

sto_FieldDescription yld_FieldAddDataUtils::enter(sto_FieldStep& step, fld_FieldDescription wanted,
                                                  fld_DataTypeEnm systems, int systemsKey, int key)
{
    const bool hasSystems = systems != fld_DataTypeEnm::UNDEFINED;
    const sto_FieldDescription present = step.find(wanted, hasSystems);
    if (present.isValid()) return present;
    if (hasSystems) {
        fld_FieldDescription orientation;
        orientation.m_key = systemsKey;
        orientation.m_dataType = static_cast<int>(systems);
        orientation.m_position = wanted.m_position;
        orientation.m_locationIndex = wanted.m_locationIndex;
        orientation.m_classIndex = wanted.m_classIndex;
        orientation.m_instance = wanted.m_instance;
        orientation.m_instanceName = wanted.m_instanceName;
        orientation.m_rootAssembly = wanted.m_rootAssembly;
        orientation.m_meshIndex = wanted.m_meshIndex;
        orientation.m_set = wanted.m_set;
        orientation.m_label = "orientation";
        orientation.m_description = "orientation for result";
        orientation.m_length = wanted.m_length;
        wanted.m_orientation = step.Field(std::move(orientation)).shortCut();
    }
    wanted.m_key = key;
    return step.Field(std::move(wanted));
}

void yld_FieldAddDataUtils::appendBlock(yld_FieldOutput& field, int key, const sto_Field& stored)
{
    field.m_values.append(yld_SubField(key, stored, field.m_assembly, field.m_type));
    field.m_locations.append(yld_FieldLocation(stored.fieldDescription()));
    field.m_fieldKeys.append(key);
}

int yld_FieldAddDataUtils::rowsPerElement(fld_OutputPositionEnm position, const sto_ElementClass& elementClass)
{
    if (position == fld_OutputPositionEnm::ELEMENT_NODAL) return elementClass.numNodesPerElement();
    if (position == fld_OutputPositionEnm::INTEGRATION_POINT) return elementClass.numIntegrationPointsPerElement();
    return 1;
}

void yld_FieldAddDataUtils::run()
{
    if (m_data.size() != m_conjugate.size() && m_isPair) {
        yld_raise("Data and ConjugateData must have the same length.");
    }
    if (!m_systems.isEmpty() && isWithoutSystems(m_field.m_type)) {
        yld_raise("Transformation not allowed for scalar data.");
    }
    if (m_field.m_fieldFrame.IsNull() || m_field.m_fieldStep.IsNull()) {
        yld_raise("The frame of field \"%s\" is not in a database.", m_field.m_name);
    }
    m_key = m_field.m_fieldStep.ConstGet().numberField();
    makeSet();
    checkSectionPoint();

    m_common = describe(m_field);
    m_common.m_position = static_cast<int>(unMapOutputPosition(m_position));
    m_common.m_locationIndex = m_sectionIndex;
    if (m_instance.isValid()) {
        m_common.m_instance = m_instance.shortCut();
        m_common.m_instanceName = m_instance.name();
        m_common.m_meshIndex = m_instance.mesh().meshIndex();
    }
    m_common.m_set = m_set.shortCut();
    m_common.m_isPair = m_isPair;

    if (m_numBlocks > 1) mapRows();
    for (int b = 0; b < m_numBlocks; ++b) writeOneBlock(blockOf(b));

    const long long expected = m_isPair ? 2LL * m_data.size() : m_data.size();
    if (m_total != expected) {
        yld_raise(
            "field.addData() request not processed correctly. %1$s data sequences written from the %2$s supplied. "
            "Write data for each element position, element type, and section definition separately for more "
            "detailed error messages.",
            fittingInt(m_total), m_data.size());
    }
}

void yld_FieldAddDataUtils::makeSet()
{
    if (m_position == yld_Enum::WHOLE_MODEL) return;
    if (m_position != yld_Enum::NODAL && !isOnElements()) yld_raise("Invalid results position for field.");
    m_mesh = m_instance.mesh();
    const int type = isOnElements() ? setC_Set::elementSet : setC_Set::nodeSet;
    m_set = yld_SetCache::instance().get(m_mesh, type, m_labels, m_numLabels, "api_set " + std::to_string(m_key),
                                         "api_set ", m_key + 1);
    m_numBlocks = isOnElements() ? m_set.numSubsets() : 1;
}

void yld_FieldAddDataUtils::checkSectionPoint()
{
    const bool isGiven = m_sectionPoint.number() >= 0;
    if (isGiven) m_sectionIndex = m_sectionPoint.number() - 1;
    if (!m_set.isValid() || (!isGiven && !isOnElements())) return;
    for (int i = 0; i < m_set.numSubsets(); ++i) {
        const int classIndex = m_set.subSet(i).classIndex();
        if (classIndex < 0) {
            yld_raise("The element labels passed into field.addData() method contain some undefined labels.");
        }
        if (!isGiven) continue;
        const sto_ElementClass onClass = m_mesh.elementData().elementClass(classIndex);
        if (m_sectionIndex >= onClass.numLocation()) yld_raise("Section Point number %s.", m_sectionPoint.number());
        const std::string label =
            m_sectionIndex < 0 ? std::string() : std::string(onClass.sectionPointLabel(m_sectionIndex));
        if (label != m_sectionPoint.description().cStr()) yld_raise("Section point not valid for all elements.");
    }
}

void yld_FieldAddDataUtils::mapRows()
{
    const sto_ElementData elements = m_mesh.elementData();
    std::vector<int> counts(static_cast<std::size_t>(elements.numClasses()), 0);
    m_placed.resize(counts.size());
    for (int i = 0; i < m_numBlocks; ++i) {
        const sto_Subset members = m_set.subSet(i);
        const auto classIndex = static_cast<std::size_t>(members.classIndex());
        counts[classIndex] = rowsPerElement(m_common.position(), elements.elementClass(members.classIndex()));
        m_placed[classIndex].reserve(static_cast<std::size_t>(members.numMembers()));
    }
    const auto count = static_cast<std::size_t>(m_numLabels);
    std::vector<int> classes(count);
    std::vector<int> places(count);
    elements.GetElementIndices(m_labels, m_numLabels, classes.data(), places.data());
    long long offset = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const auto classIndex = static_cast<std::size_t>(classes[i]);
        m_placed[classIndex].push_back({places[i], offset});
        offset += counts[classIndex];
    }
}

void yld_FieldAddDataUtils::cut(const sto_Subset& members, Block& block) const
{
    const std::vector<Placed>& placed = m_placed[static_cast<std::size_t>(members.classIndex())];
    const int count = rowsPerElement(m_common.position(), block.elementClass);
    const std::vector<int> run = members.members();
    // A set keeps its labels in the order given, so the two lists go side by side; if not, by look-up.
    bool isInOrder = run.size() == placed.size();
    for (std::size_t k = 0; isInOrder && k < run.size(); ++k) isInOrder = run[k] == placed[k].place;
    std::unordered_map<int, long long> offsets;
    if (!isInOrder) {
        for (const Placed& entry : placed) offsets[entry.place] = entry.offset;
    }
    for (std::size_t k = 0; k < run.size(); ++k) {
        const long long offset = isInOrder ? placed[k].offset : offsets.at(run[k]);
        if (offset + count > m_data.size()) yld_raise("Insufficient data sequences provided.");
        if (m_systems.size() > 1 && offset + count > m_systems.size()) {
            yld_raise("Insufficient coordSystem sequences provided.");
        }
        const int first = static_cast<int>(offset);
        if (!block.stretches.empty() && block.stretches.back().first + block.stretches.back().count == first) {
            block.stretches.back().count += count;
        } else {
            block.stretches.push_back({first, count});
        }
        block.numRows += count;
    }
}

yld_FieldAddDataUtils::Block yld_FieldAddDataUtils::blockOf(int index) const
{
    Block block;
    if (isOnElements()) {
        const sto_Subset members = m_set.subSet(index);
        block.classIndex = members.classIndex();
        block.elementClass = m_mesh.elementData().elementClass(block.classIndex);
        block.length = fittingInt(static_cast<long long>(members.numMembers()) *
                                  rowsPerElement(m_common.position(), block.elementClass));
        if (m_numBlocks > 1) {
            cut(members, block);
            return block;
        }
    } else {
        block.length = m_set.isValid() ? m_set.numMembers() : 1;
    }
    block.stretches.push_back({0, m_data.size()});
    block.numRows = m_data.size();
    return block;
}

template<class Visit> void yld_FieldAddDataUtils::eachRow(const Block& block, Visit visit)
{
    int to = 0;
    for (const Stretch& stretch : block.stretches) {
        for (int i = 0; i < stretch.count; ++i) visit(stretch.first + i, to++);
    }
}

void yld_FieldAddDataUtils::checkLength(const fld_FieldDescription& description, long long rows,
                                        const sto_ElementClass& elementClass)
{
    const long long halves = description.m_isPair ? 2 : 1;
    if (rows == description.m_length * halves) return;
    yld_String text(msg_Format("Length of data sequence incorrect. Data at %1$s locations expected. Data at %2$s "
                               "locations provided.",
                               description.m_length, fittingInt(rows)));
    if (description.position() == fld_OutputPositionEnm::NODAL) {
        text.append(msg_Format(" Nodal data request failed. "));
    } else {
        const char* type = elementClass.isValid() ? elementClass.typeLabel().c_str() : "";
        text.append(msg_Format(" Element data request failed. Element type is %s", type));
        switch (description.position()) {
        case fld_OutputPositionEnm::INTEGRATION_POINT:
            text.append(msg_Format(". Data at %s integration points per element expected.",
                                   rowsPerElement(description.position(), elementClass)));
            break;
        case fld_OutputPositionEnm::ELEMENT_NODAL:
            text.append(msg_Format(". Data at %s nodes per element expected.",
                                   rowsPerElement(description.position(), elementClass)));
            break;
        default:
            text.append(msg_Format(". Data at 1 location per element expected."));
            break;
        }
    }
    throw yld_Exception(yld_GENERAL, text);
}

template<class T>
fio_Buffer yld_FieldAddDataUtils::fill(const fld_FieldDescription& description, const yld_RowArray& rows,
                                       const Block& block, int firstWidth) const
{
    const int width = description.m_width;
    const yld_Enum::yld_DataTypeEnum type = m_field.m_type;
    const auto refuse = [type, width] {
        if (type == yld_Enum::SCALAR) yld_raise("SCALAR data should be of length 1.");
        if (isTensor(type)) yld_raise("Incorrect tensor data length");
        yld_raise("Data items should be of length %s", width);
    };
    const int wanted = isTensor(type) ? firstWidth : width;
    if (block.numRows > 0 && wanted > width) refuse();
    if (rows.isUniform()) {
        if (block.numRows > 0 && rows.width(0) != wanted) refuse();
    } else {
        eachRow(block, [&](int from, int) {
            if (rows.width(from) != wanted) refuse();
        });
    }

    if (rows.isUniform() && wanted == width) {
        // Whole stretches as they stand.
        const std::size_t rowBytes = static_cast<std::size_t>(width) * sizeof(T);
        const std::size_t bytes = static_cast<std::size_t>(block.numRows) * rowBytes;
        if (block.stretches.size() == 1 && rows.held().size() == bytes) return rows.held();
        std::vector<fio_Extents::Piece> pieces;
        pieces.reserve(block.stretches.size());
        for (const Stretch& stretch : block.stretches) {
            pieces.push_back({rows.row<T>(stretch.first), static_cast<std::size_t>(stretch.count) * rowBytes});
        }
        return sto_FieldFrame::takeField(pieces);
    }
    fio_Buffer buffer = sto_FieldFrame::allocateField(description, std::is_same_v<T, double> ? 1 : 0);
    T* values = reinterpret_cast<T*>(buffer.writable());
    eachRow(block, [&](int from, int to) {
        T* row = values + static_cast<std::ptrdiff_t>(to) * width;
        std::copy_n(rows.row<T>(from), wanted, row);
        std::fill_n(row + wanted, width - wanted, T(0));
    });
    return buffer;
}

template<class T> fio_Buffer yld_FieldAddDataUtils::fillSystems(const Block& block, bool isPlanar) const
{
    const int type = static_cast<int>(isPlanar ? fld_DataTypeEnm::QUATERNION_2D : fld_DataTypeEnm::QUATERNION_3D);
    const int width = isPlanar ? 2 : 4;
    fio_Buffer buffer =
        fio_Extents::roomFor(static_cast<std::size_t>(block.numRows) * static_cast<std::size_t>(width) * sizeof(T));
    T* values = reinterpret_cast<T*>(buffer.writable());
    const auto convert = [&](int system, T* to) {
        float given[9];
        m_systems.cosines(system, isPlanar, given);
        T cosines[9];
        std::copy_n(given, 9, cosines);
        eng_Quaternion<T>::fromCosines(cosines, type).inverse().components(to);
    };
    if (m_systems.size() == 1) {
        T components[4];
        convert(0, components);
        eachRow(block,
                [&](int, int to) { std::copy_n(components, width, values + static_cast<std::ptrdiff_t>(to) * width); });
    } else {
        eachRow(block, [&](int from, int to) { convert(from, values + static_cast<std::ptrdiff_t>(to) * width); });
    }
    return buffer;
}

void yld_FieldAddDataUtils::writeOneBlock(const Block& block)
{
    // Everything is looked at before anything of the block is kept.
    fld_FieldDescription wanted(m_common);
    wanted.m_classIndex = block.classIndex;
    wanted.m_length = block.length;
    checkLength(wanted, (m_isPair ? 2LL : 1LL) * block.numRows, block.elementClass);
    if (!isWithoutSystems(m_field.m_type) && !isTensor(m_field.m_type)) yld_raise("Invalid results type for field.");
    if (m_numBlocks == 1 && m_systems.size() > 1 && m_systems.size() != block.numRows) {
        yld_raise("Coordinate system definition should be of length 0, 1, or the same length as the data array.");
    }
    if (m_data.isDouble()) writeValues<double>(block, std::move(wanted));
    else writeValues<float>(block, std::move(wanted));
}

template<class T> void yld_FieldAddDataUtils::writeValues(const Block& block, fld_FieldDescription wanted)
{
    sto_FieldStep step = m_field.m_fieldStep.ConstGet();
    sto_FieldFrame frame = m_field.m_fieldFrame.ConstGet();
    const bool hasOrientation = !m_systems.isEmpty();
    const bool isPlanar = m_field.m_type == yld_Enum::TENSOR_2D_PLANAR || m_field.m_type == yld_Enum::TENSOR_2D_SURFACE;
    constexpr int storageType = sizeof(T) == sizeof(double) ? 1 : 0;
    const int firstWidth = block.numRows > 0 ? m_data.width(block.stretches.front().first) : 0;
    const fio_Buffer values = fill<T>(wanted, m_data, block, firstWidth);
    const fio_Buffer conjugate = m_isPair ? fill<T>(wanted, m_conjugate, block, firstWidth) : fio_Buffer();
    const fio_Buffer systems = hasOrientation ? fillSystems<T>(block, isPlanar) : fio_Buffer();

    int orientationKey = -1;
    fld_DataTypeEnm systemsType = fld_DataTypeEnm::UNDEFINED;
    if (hasOrientation) {
        orientationKey = m_key++;
        systemsType = isPlanar ? fld_DataTypeEnm::QUATERNION_2D : fld_DataTypeEnm::QUATERNION_3D;
    }
    const sto_FieldDescription description = enter(step, std::move(wanted), systemsType, orientationKey, m_key);
    const sto_Field orientation =
        hasOrientation ? frame.Orientation(description.orientation(), orientationKey, systems, storageType)
                       : sto_Field();
    const sto_Field stored = frame.Field(description, m_key, values, conjugate, orientation, storageType);
    m_total += (m_isPair ? 2LL : 1LL) * block.numRows;
    appendBlock(m_field, m_key, stored);
    ++m_key;
    step.setNumberField(m_key);
}
