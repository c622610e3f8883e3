#include "yld/impl/field/yld_FieldAddDataUtils.h"

#include "platform/math/eng_Quaternion.h"
#include "platform/sto/sto_FieldFrame.h"
#include "platform/sto/sto_FieldStep.h"
#include "platform/store/fio_Extents.h"
#include "yld/impl/base/yld_Convert.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld/impl/field/yld_SetCache.h"
#include "yld_EnumMap.h"

#include <algorithm>
#include <limits>
#include <string>
#include <type_traits>
#include <unordered_map>

namespace {

int fittingInt(long long number)
{
    if (number < 0 || number > std::numeric_limits<int>::max()) yld_raise("Invalid results type for field.");
    return static_cast<int>(number);
}

// What a writer means by a position; a position that means nothing is refused when it writes.
const fld_OutputPosition& placeOf(yld_Enum::yld_ResultPositionEnum position)
{
    const fld_OutputPosition* place = fld_OutputPosition::askedBy(position);
    return place ? *place : fld_OutputPosition::of(fld_OutputPositionEnm::UNDEFINED);
}

} // namespace

yld_FieldAddDataUtils::yld_FieldAddDataUtils(yld_FieldOutput& field, yld_Enum::yld_ResultPositionEnum position,
                                             const sto_PartInstance& instance, const int* labels, int numLabels,
                                             const yld_RowArray& data, const yld_SectionPoint& sectionPoint,
                                             const yld_SystemArray& systems, const yld_RowArray& conjugate)
    : m_field(field), m_instance(instance), m_labels(labels), m_numLabels(numLabels), m_data(data),
      m_sectionPoint(sectionPoint), m_systems(systems), m_conjugate(conjugate), m_isPair(conjugate.size() > 0),
      m_place(placeOf(position)), m_type(fld_DataType::shownBy(field.m_type))
{
}

std::vector<int> yld_FieldAddDataUtils::invariantCodes(const yld_FieldOutput& field)
{
    std::vector<int> codes;
    for (const yld_Enum::yld_InvariantEnum invariant : field.m_validInvariants) {
        codes.push_back(static_cast<int>(unMapInvarEnum(invariant)));
    }
    return codes;
}

sto_FieldDescriptionBuilder yld_FieldAddDataUtils::describe(const yld_FieldOutput& field)
{
    const fld_DataType& type = fld_DataType::of(unMapDataType(field.m_type));
    sto_FieldDescriptionBuilder builder(field.m_name.cStr(), field.m_description.cStr(), type.store);
    builder.components(yld_Convert::texts(field.m_componentLabels));
    builder.invariants(invariantCodes(field));

    const long long rows = field.m_rows;
    long long width = rows * field.m_cols;
    const bool isSymmetric = field.m_subtype == yld_Enum::SYMMETRIC_MATRIX;
    const bool isMatrix = type.kind == fld_DataType::Kind::MATRIX;
    const bool isVector = type.kind == fld_DataType::Kind::VECTOR;
    if (isMatrix && isSymmetric) width = rows * (rows + 1) / 2;
    // A vector without labels that was found in the store knows its width from what it has.
    if (isVector && width == 0 && field.m_componentLabels.isEmpty() && !field.SubField().isEmpty()) {
        width = field.SubField()[0].description().width();
    }
    if (width == 0) width = isVector ? field.m_componentLabels.size() : type.width;
    if (isMatrix) builder.shape(fittingInt(width), field.m_rows, field.m_cols, isSymmetric);
    else builder.shape(fittingInt(width));
    return builder;
}

void yld_FieldAddDataUtils::appendBlock(yld_FieldOutput& field, int key, const sto_Field& stored)
{
    field.m_values.append(yld_SubField(key, stored, field.m_assembly, field.m_type));
    field.m_locations.append(yld_FieldLocation(stored.fieldDescription()));
    field.m_fieldKeys.append(key);
}

void yld_FieldAddDataUtils::run()
{
    if (m_data.size() != m_conjugate.size() && m_isPair) {
        yld_raise("Data and ConjugateData must have the same length.");
    }
    if (!m_systems.isEmpty() && m_type.isOfFields() && !m_type.isTensor()) {
        yld_raise("Transformation not allowed for scalar data.");
    }
    if (m_field.m_fieldFrame.IsNull() || m_field.m_fieldStep.IsNull()) {
        yld_raise("The frame of field \"%s\" is not in a database.", m_field.m_name);
    }
    m_key = m_field.m_fieldStep.ConstGet().numberField();
    makeSet();
    checkSectionPoint();

    m_common = describe(m_field);
    m_common.at(m_place.store, m_sectionIndex);
    if (m_instance.isValid()) m_common.on(m_instance);
    m_common.pair(m_isPair);

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
    if (m_place.carrier == fld_OutputPosition::Carrier::MODEL) return;
    if (!m_place.isWritable) yld_raise("Invalid results position for field.");
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
        counts[classIndex] = rowsPerElement(elements.elementClass(members.classIndex()));
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
    const int count = rowsPerElement(block.elementClass);
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
        if (!block.runs.empty() && block.runs.back().first + block.runs.back().count == first) {
            block.runs.back().count += count;
        } else {
            block.runs.push_back({first, count});
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
        block.length = fittingInt(static_cast<long long>(members.numMembers()) * rowsPerElement(block.elementClass));
        if (m_numBlocks > 1) {
            cut(members, block);
            return block;
        }
    } else {
        block.length = m_set.isValid() ? m_set.numMembers() : 1;
    }
    block.runs.push_back({0, m_data.size()});
    block.numRows = m_data.size();
    return block;
}

template<class Visit> void yld_FieldAddDataUtils::eachRow(const Block& block, Visit visit)
{
    int to = 0;
    for (const Run& run : block.runs) {
        for (int i = 0; i < run.count; ++i) visit(run.first + i, to++);
    }
}

template<class T>
fio_Buffer yld_FieldAddDataUtils::fill(const fld_FieldDescription& description, const yld_RowArray& rows,
                                       const Block& block, int firstWidth) const
{
    const int width = description.m_width;
    const auto refuse = [this, width] {
        if (m_type.kind == fld_DataType::Kind::SCALAR) yld_raise("SCALAR data should be of length 1.");
        if (m_type.isTensor()) yld_raise("Incorrect tensor data length");
        yld_raise("Data items should be of length %s", width);
    };
    const int wanted = m_type.isTensor() ? firstWidth : width;
    if (block.numRows > 0 && wanted > width) refuse();
    if (rows.isUniform()) {
        if (block.numRows > 0 && rows.width(0) != wanted) refuse();
    } else {
        eachRow(block, [&](int from, int) {
            if (rows.width(from) != wanted) refuse();
        });
    }

    if (rows.isUniform() && wanted == width) {
        // Whole runs as they stand.
        const std::size_t rowBytes = static_cast<std::size_t>(width) * sizeof(T);
        const std::size_t bytes = static_cast<std::size_t>(block.numRows) * rowBytes;
        if (block.runs.size() == 1 && rows.held().size() == bytes) return rows.held();
        std::vector<fio_Extents::Piece> pieces;
        pieces.reserve(block.runs.size());
        for (const Run& run : block.runs) {
            pieces.push_back({rows.row<T>(run.first), static_cast<std::size_t>(run.count) * rowBytes});
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

template<class T>
fio_Buffer yld_FieldAddDataUtils::fillSystems(const sto_FieldDescriptionBuilder& wanted, const Block& block) const
{
    const bool isPlanar = m_type.systems == fld_DataTypeEnm::QUATERNION_2D;
    const int width = fld_DataType::of(m_type.systems).width;
    fio_Buffer buffer =
        sto_FieldFrame::allocateField(wanted.ofSystems(m_type.systems, -1), std::is_same_v<T, double> ? 1 : 0);
    T* values = reinterpret_cast<T*>(buffer.writable());
    const auto convert = [&](int system, T* to) {
        float given[9];
        m_systems.cosines(system, isPlanar, given);
        T cosines[9];
        std::copy_n(given, 9, cosines);
        eng_Quaternion<T>::fromCosines(cosines, static_cast<int>(m_type.systems)).inverse().components(to);
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
    sto_FieldDescriptionBuilder wanted(m_common);
    wanted.of(m_set, block.classIndex, block.length);
    const int halves = m_isPair ? 2 : 1;
    sto_FieldBlock(wanted.made(), m_field.m_fieldStep.ConstGet().shortCut().file())
        .checkLength(static_cast<long long>(halves) * block.numRows, halves);
    if (!m_type.isOfFields()) yld_raise("Invalid results type for field.");
    if (m_numBlocks == 1 && m_systems.size() > 1 && m_systems.size() != block.numRows) {
        yld_raise("Coordinate system definition should be of length 0, 1, or the same length as the data array.");
    }
    if (m_data.isDouble()) writeValues<double>(block, wanted);
    else writeValues<float>(block, wanted);
}

template<class T> void yld_FieldAddDataUtils::writeValues(const Block& block, const sto_FieldDescriptionBuilder& wanted)
{
    sto_FieldStep step = m_field.m_fieldStep.ConstGet();
    sto_FieldFrame frame = m_field.m_fieldFrame.ConstGet();
    const bool hasOrientation = !m_systems.isEmpty();
    constexpr int storageType = sizeof(T) == sizeof(double) ? 1 : 0;
    const int firstWidth = block.numRows > 0 ? m_data.width(block.runs.front().first) : 0;
    const fio_Buffer values = fill<T>(wanted.made(), m_data, block, firstWidth);
    const fio_Buffer conjugate = m_isPair ? fill<T>(wanted.made(), m_conjugate, block, firstWidth) : fio_Buffer();
    const fio_Buffer systems = hasOrientation ? fillSystems<T>(wanted, block) : fio_Buffer();

    const int orientationKey = hasOrientation ? m_key++ : -1;
    const sto_FieldDescription description =
        wanted.enter(step, m_key, hasOrientation ? m_type.systems : fld_DataTypeEnm::UNDEFINED, orientationKey);
    const sto_Field orientation =
        hasOrientation ? frame.Orientation(description.orientation(), orientationKey, systems, storageType)
                       : sto_Field();
    const sto_Field stored = frame.Field(description, m_key, values, conjugate, orientation, storageType);
    m_total += (m_isPair ? 2LL : 1LL) * block.numRows;
    appendBlock(m_field, m_key, stored);
    ++m_key;
    step.setNumberField(m_key);
}
