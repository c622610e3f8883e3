#include "yld/impl/yld_FieldAddDataUtils.h"

#include "platform/math/eng_Quaternion.h"
#include "platform/sto/sto_Field.h"
#include "platform/sto/sto_FieldFrame.h"
#include "platform/sto/sto_FieldStep.h"
#include "platform/store/fio_File.h"
#include "yld/impl/yld_Raise.h"
#include "yld_EnumMap.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <unordered_map>

yld_RowArray::yld_RowArray(const yld_Sequence<yld_Sequence<float>>& rows) : m_count(rows.size())
{
    // One pass: what a row costs is finding it.
    int at = 0;
    for (const yld_Sequence<float>& row : rows) {
        const int width = row.size();
        if (at == 0) {
            m_width = width;
            m_held.reserve(static_cast<std::size_t>(m_count) * static_cast<std::size_t>(width));
        } else if (width != m_width && m_starts.empty()) {
            for (int i = 0; i < at; ++i) m_starts.push_back(static_cast<std::ptrdiff_t>(i) * m_width);
        }
        if (width != m_width || !m_starts.empty()) m_starts.push_back(static_cast<std::ptrdiff_t>(m_held.size()));
        for (int i = 0, length = 0; i < width; i += length) {
            const float* run = row.run(i, length);
            m_held.insert(m_held.end(), run, run + length);
        }
        ++at;
    }
    if (!m_starts.empty()) m_starts.push_back(static_cast<std::ptrdiff_t>(m_held.size()));
    m_values = m_held.data();
}

namespace {

// Results of many frames come for the same nodes and elements: the set that was made for the first of them serves the
// others, and with it one description serves all frames.
class SetCache
{
public:
    sto_Set find(const sto_Mesh& mesh, int type, const int* labels, int count)
    {
        const auto [begin, end] = m_entries.equal_range(hashOf(type, labels, count));
        for (auto entry = begin; entry != end; ++entry) {
            const Entry& known = entry->second;
            if (known.mesh != mesh.shortCut().id() || known.file.lock() != mesh.modelFile()) continue;
            const sto_Set set(lnk_ShortCut<setC_Set>(mesh.modelFile(), known.set));
            if (set.setType() == type && holds(set, mesh, labels, count)) return set;
        }
        return {};
    }

    void enter(const sto_Mesh& mesh, int type, const int* labels, int count, const sto_Set& set)
    {
        std::erase_if(m_entries, [](const auto& entry) { return entry.second.file.expired(); });
        m_entries.emplace(hashOf(type, labels, count),
                          Entry{mesh.modelFile(), mesh.shortCut().id(), set.shortCut().id()});
    }

private:
    struct Entry
    {
        std::weak_ptr<fio_FileBody> file;
        long long mesh;
        long long set;
    };

    static std::uint64_t hashOf(int type, const int* labels, int count)
    {
        std::uint64_t hash = static_cast<std::uint64_t>(count) * 4 + static_cast<std::uint64_t>(type);
        for (int i = 0; i < count; ++i) {
            hash = (hash ^ static_cast<std::uint32_t>(labels[i])) * 0x9e3779b97f4a7c15u;
            hash ^= hash >> 29;
        }
        return hash;
    }

    // Whether the set has these labels: each subset a part of them, in their order.
    static bool holds(const sto_Set& set, const sto_Mesh& mesh, const int* labels, int count)
    {
        if (set.numMembers() != count) return false;
        struct Part
        {
            const int* labels = nullptr;
            const int* list = nullptr;
            int first = 0;
            int size = 0;
            int limit = 0;
            int at = 0;
            bool isNext(int label) const
            {
                if (at >= size || !labels) return false;
                const int member = list ? list[at] : first + at;
                return member >= 0 && member < limit && labels[member] == label;
            }
        };
        std::vector<sto_Subset> subsets;
        std::vector<sto_ElementClass> classes; // hold what the parts point into
        std::vector<Part> parts;
        const sto_NodeData nodes = mesh.nodeData();
        for (int i = 0; i < set.numSubsets(); ++i) {
            subsets.push_back(set.subSet(i));
            const sto_Subset& members = subsets.back();
            Part part;
            part.size = members.numMembers();
            part.first = members.firstMember();
            part.list = members.isRun() ? nullptr : members.memberList();
            if (set.setType() == setC_Set::nodeSet) {
                part.labels = nodes.GetUserNodeLabels();
                part.limit = nodes.NumNodes();
            } else {
                classes.push_back(mesh.elementData().elementClass(members.classIndex()));
                part.labels = classes.back().userElementLabels();
                part.limit = classes.back().numElements();
            }
            parts.push_back(part);
        }
        if (parts.empty()) return count == 0;
        std::size_t current = 0;
        for (int i = 0; i < count; ++i) {
            std::size_t tried = 0;
            while (tried < parts.size() && !parts[current].isNext(labels[i])) {
                current = (current + 1) % parts.size();
                ++tried;
            }
            if (tried == parts.size()) return false;
            ++parts[current].at;
        }
        return true;
    }

    std::unordered_multimap<std::uint64_t, Entry> m_entries;
};

SetCache& setCache()
{
    thread_local SetCache cache;
    return cache;
}

// "api_set " and the key, or, if another step or a call that failed has taken that name, the next number that is free.
std::string freeNumberedName(const sto_Mesh& mesh, int type, int key)
{
    const sto_SetList sets = mesh.set();
    int number = key;
    std::string name = "api_set " + std::to_string(number);
    while (sets.has(type, name)) {
        number = std::max(number + 1, sets.length() - 1);
        name = "api_set " + std::to_string(number);
    }
    return name;
}

bool isTensor(yld_Enum::yld_DataTypeEnum type)
{
    return type >= yld_Enum::TENSOR_3D_FULL && type <= yld_Enum::TENSOR_2D_SURFACE;
}

int fittingInt(long long number)
{
    if (number < 0 || number > std::numeric_limits<int>::max()) yld_raise("Invalid results type for field.");
    return static_cast<int>(number);
}

constexpr const char* systemsMessage =
    "Coordinate system definition should be of length 0, 1, or the same length as the data array.";

// Nine direction cosines, the axes row by row; in the plane two rows of two will do.
void cosinesOf(const yld_Sequence<yld_Sequence<float>>& system, bool isPlanar, float* cosines)
{
    const int wanted = isPlanar && system.size() == 2 ? 2 : 3;
    if (system.size() != wanted) yld_raise("A coordinate system should have three rows of three direction cosines.");
    for (int i = 0; i < 9; ++i) cosines[i] = i % 4 == 0 ? 1.0F : 0.0F;
    for (int i = 0; i < wanted; ++i) {
        if (system[i].size() < wanted) yld_raise("A coordinate system should have three rows of three direction cosines.");
        for (int k = 0; k < wanted; ++k) cosines[3 * i + k] = system[i][k];
    }
}

} // namespace

yld_FieldAddDataUtils::yld_FieldAddDataUtils(yld_FieldOutput& field, yld_Enum::yld_ResultPositionEnum position,
                                             const sto_PartInstance& instance, const int* labels, int numLabels,
                                             const yld_RowArray& data, const yld_SectionPoint& sectionPoint,
                                             const Systems& systems, const yld_RowArray& conjugate)
    : m_field(field), m_position(position), m_instance(instance), m_labels(labels), m_numLabels(numLabels), m_data(data),
      m_sectionPoint(sectionPoint), m_systems(systems), m_conjugate(conjugate), m_isPair(conjugate.size() > 0)
{
}

std::string yld_FieldAddDataUtils::freeSetName(const sto_Mesh& mesh, int type, const std::string& name)
{
    const sto_SetList sets = mesh.set();
    std::string free = name;
    for (int number = 1; sets.has(type, free); ++number) free = name + " " + std::to_string(number);
    return free;
}

bool yld_FieldAddDataUtils::isOnElements() const
{
    return m_position == yld_Enum::INTEGRATION_POINT || m_position == yld_Enum::ELEMENT_NODAL ||
           m_position == yld_Enum::WHOLE_ELEMENT || m_position == yld_Enum::CENTROID;
}

void yld_FieldAddDataUtils::run()
{
    if (m_data.size() != m_conjugate.size() && m_isPair) {
        yld_raise("Data and ConjugateData must have the same length.");
    }
    const yld_Enum::yld_DataTypeEnum type = m_field.m_type;
    if (!m_systems.isEmpty() &&
        (type == yld_Enum::SCALAR || type == yld_Enum::VECTOR || type == yld_Enum::MATRIX)) {
        yld_raise("Transformation not allowed for scalar data.");
    }
    if (m_field.m_fieldFrame.IsNull() || m_field.m_fieldStep.IsNull()) {
        yld_raise("The frame of field \"%s\" is not in a database.", m_field.m_name);
    }
    m_key = m_field.m_fieldStep.ConstGet().numberField();
    makeSet();
    checkSectionPoint();

    m_common.m_label = m_field.m_name.cStr();
    m_common.m_description = m_field.m_description.cStr();
    m_common.m_dataType = static_cast<int>(unMapDataType(type));
    m_common.m_position = static_cast<int>(unMapOutputPosition(m_position));
    m_common.m_locationIndex = m_sectionIndex;
    if (m_instance.isValid()) {
        m_common.m_instance = m_instance.shortCut();
        m_common.m_instanceName = m_instance.name();
        m_common.m_meshIndex = m_mesh.meshIndex();
    }
    m_common.m_set = m_set.shortCut();
    for (const yld_String& label : m_field.m_componentLabels) m_common.m_componentLabels.emplace_back(label.cStr());
    for (const yld_Enum::yld_InvariantEnum invariant : m_field.m_validInvariants) {
        m_common.m_invariants.push_back(static_cast<int>(unMapInvarEnum(invariant)));
    }
    m_common.m_isPair = m_isPair;
    const long long rows = m_field.m_rows;
    long long width = rows * m_field.m_cols;
    if (type == yld_Enum::MATRIX) {
        if (m_field.m_subtype == yld_Enum::SYMMETRIC_MATRIX) {
            width = rows * (rows + 1) / 2;
            m_common.m_matrixKind = 1;
        }
        m_common.m_rows = m_field.m_rows;
        m_common.m_cols = m_field.m_cols;
    } else if (type == yld_Enum::VECTOR && width == 0 && m_field.m_componentLabels.isEmpty() &&
               !m_field.SubField().isEmpty()) {
        // A vector without labels that was found in the store knows its width from what it has.
        width = m_field.SubField()[0].description().width();
    }
    m_common.m_width = fittingInt(width);
    if (m_common.m_width == 0) {
        m_common.m_width = type == yld_Enum::VECTOR ? m_field.m_componentLabels.size()
                                                    : fld_FieldDescription::typeWidth(m_common.dataType());
    }

    if (m_numBlocks > 1) mapRows();
    for (int b = 0; b < m_numBlocks; ++b) {
        Block block;
        if (isOnElements()) {
            const sto_Subset members = m_set.subSet(b);
            if (m_numBlocks > 1) block = cut(members);
            block.classIndex = members.classIndex();
            block.elementClass = m_mesh.elementData().elementClass(block.classIndex);
            if (m_numBlocks > 1) {
                for (const Stretch& stretch : block.stretches) block.numRows += stretch.count;
            }
        }
        if (block.isWhole) block.numRows = m_data.size();
        writeOneBlock(std::move(block));
    }

    const int expected = m_isPair ? 2 * m_data.size() : m_data.size();
    if (m_total != expected) {
        yld_raise("field.addData() request not processed correctly. %1$s data sequences written from the %2$s supplied. "
                  "Write data for each element position, element type, and section definition separately for more "
                  "detailed error messages.",
                  m_total, m_data.size());
    }
}

void yld_FieldAddDataUtils::makeSet()
{
    if (m_position == yld_Enum::WHOLE_MODEL) return;
    if (m_position != yld_Enum::NODAL && !isOnElements()) yld_raise("Invalid results position for field.");
    m_mesh = m_instance.mesh();
    const int type = isOnElements() ? setC_Set::elementSet : setC_Set::nodeSet;
    m_set = setCache().find(m_mesh, type, m_labels, m_numLabels);
    if (!m_set.isValid()) {
        const std::string name = freeNumberedName(m_mesh, type, m_key);
        if (isOnElements()) {
            const int bad = m_mesh.elementData().CheckUserElementLabels(m_labels, m_numLabels);
            if (bad < m_numLabels) yld_raise("Invalid element label %d", m_labels[bad]);
            m_set = m_instance.Elset(name, m_labels, m_numLabels, true);
        } else {
            const int bad = m_mesh.nodeData().CheckUserNodeLabels(m_labels, m_numLabels);
            if (bad < m_numLabels) yld_raise("Invalid node label %d", m_labels[bad]);
            m_set = m_instance.Nset(name, m_labels, m_numLabels, true, false);
        }
        setCache().enter(m_mesh, type, m_labels, m_numLabels, m_set);
    }
    m_numBlocks = isOnElements() ? m_set.numSubsets() : 1;
}

void yld_FieldAddDataUtils::checkSectionPoint()
{
    if (m_sectionPoint.number() < 0) return;
    m_sectionIndex = m_sectionPoint.number() - 1;
    if (!m_set.isValid()) return;
    for (int i = 0; i < m_set.numSubsets(); ++i) {
        const int classIndex = m_set.subSet(i).classIndex();
        if (classIndex < 0) {
            yld_raise("The element labels passed into field.addData() method contain some undefined labels.");
        }
        const sto_ElementClass onClass = m_mesh.elementData().elementClass(classIndex);
        if (m_sectionIndex >= onClass.numLocation()) yld_raise("Section Point number %s.", m_sectionPoint.number());
        const std::string label = m_sectionIndex < 0 ? std::string() : std::string(onClass.sectionPointLabel(m_sectionIndex));
        if (label != m_sectionPoint.description().cStr()) yld_raise("Section point not valid for all elements.");
    }
}

int yld_FieldAddDataUtils::rowsPerElement(const sto_ElementClass& elementClass) const
{
    if (m_position == yld_Enum::ELEMENT_NODAL) return elementClass.numNodesPerElement();
    if (m_position == yld_Enum::INTEGRATION_POINT) return elementClass.numIntegrationPointsPerElement();
    return 1;
}

void yld_FieldAddDataUtils::mapRows()
{
    const sto_ElementData elements = m_mesh.elementData();
    std::vector<int> counts(static_cast<std::size_t>(elements.numClasses()), 0);
    for (int i = 0; i < m_numBlocks; ++i) {
        const int classIndex = m_set.subSet(i).classIndex();
        if (classIndex < 0) {
            yld_raise("The element labels passed into field.addData() method contain some undefined labels.");
        }
        counts[static_cast<std::size_t>(classIndex)] = rowsPerElement(elements.elementClass(classIndex));
    }
    const auto count = static_cast<std::size_t>(m_numLabels);
    std::vector<int> classes(count);
    std::vector<int> places(count);
    elements.GetElementIndices(m_labels, m_numLabels, classes.data(), places.data());
    m_placed.resize(counts.size());
    long long offset = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const auto classIndex = static_cast<std::size_t>(classes[i]);
        m_placed[classIndex].push_back({places[i], offset});
        offset += counts[classIndex];
    }
}

yld_FieldAddDataUtils::Block yld_FieldAddDataUtils::cut(const sto_Subset& members) const
{
    const std::vector<Placed>& placed = m_placed[static_cast<std::size_t>(members.classIndex())];
    const int count = rowsPerElement(m_mesh.elementData().elementClass(members.classIndex()));
    const std::vector<int> run = members.members();
    // A set keeps its labels in the order given, so the two lists go side by side; if not, by look-up.
    bool isInOrder = run.size() == placed.size();
    for (std::size_t k = 0; isInOrder && k < run.size(); ++k) isInOrder = run[k] == placed[k].place;
    std::unordered_map<int, long long> offsets;
    if (!isInOrder) {
        for (const Placed& entry : placed) offsets[entry.place] = entry.offset;
    }

    Block block;
    block.isWhole = false;
    block.stretches.reserve(run.size());
    for (std::size_t k = 0; k < run.size(); ++k) {
        const long long offset = isInOrder ? placed[k].offset : offsets.at(run[k]);
        if (offset + count > m_data.size()) yld_raise("Insufficient data sequences provided.");
        if (m_systems.size() > 1 && offset + count > m_systems.size()) {
            yld_raise("Insufficient coordSystem sequences provided.");
        }
        block.stretches.push_back({static_cast<int>(offset), count});
    }
    return block;
}

template<class Visit> void yld_FieldAddDataUtils::eachRow(const Block& block, Visit visit) const
{
    int to = 0;
    if (block.isWhole) {
        for (; to < block.numRows; ++to) visit(to, to);
        return;
    }
    for (const Stretch& stretch : block.stretches) {
        for (int i = 0; i < stretch.count; ++i) visit(stretch.first + i, to++);
    }
}

int yld_FieldAddDataUtils::lengthOf(const Block& block) const
{
    if (m_position == yld_Enum::WHOLE_MODEL) return 1;
    if (!isOnElements()) return m_set.numMembers();
    for (int i = 0; i < m_set.numSubsets(); ++i) {
        const sto_Subset members = m_set.subSet(i);
        if (members.classIndex() != block.classIndex) continue;
        return fittingInt(static_cast<long long>(members.numMembers()) * rowsPerElement(block.elementClass));
    }
    return 0;
}

fld_FieldDescription yld_FieldAddDataUtils::describe(const Block& block) const
{
    fld_FieldDescription description(m_common);
    description.m_classIndex = block.classIndex;
    description.m_length = lengthOf(block);
    return description;
}

void yld_FieldAddDataUtils::checkLength(const fld_FieldDescription& description, const Block& block) const
{
    const long long halves = m_isPair ? 2 : 1;
    const long long rows = block.numRows * halves;
    if (rows == description.m_length * halves) return;
    yld_String text(msg_Format("Length of data sequence incorrect. Data at %1$s locations expected. Data at %2$s "
                               "locations provided.",
                               description.m_length, fittingInt(rows)));
    if (description.position() == fld_OutputPositionEnm::NODAL) {
        text.append(msg_Format(" Nodal data request failed. "));
    } else {
        const char* type = block.elementClass.isValid() ? block.elementClass.typeLabel().c_str() : "";
        text.append(msg_Format(" Element data request failed. Element type is %s", type));
        switch (description.position()) {
        case fld_OutputPositionEnm::INTEGRATION_POINT:
            text.append(msg_Format(". Data at %s integration points per element expected.",
                                   rowsPerElement(block.elementClass)));
            break;
        case fld_OutputPositionEnm::ELEMENT_NODAL:
            text.append(msg_Format(". Data at %s nodes per element expected.", rowsPerElement(block.elementClass)));
            break;
        default:
            text.append(msg_Format(". Data at 1 location per element expected."));
            break;
        }
    }
    throw yld_Exception(yld_GENERAL, text);
}

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

    fio_Buffer buffer(static_cast<std::size_t>(block.numRows) * static_cast<std::size_t>(width) * sizeof(float));
    auto* values = reinterpret_cast<float*>(buffer.writable());
    if (rows.isUniform() && wanted == width) {
        // Whole stretches as they stand.
        if (block.isWhole) {
            std::copy_n(rows.row(0), static_cast<std::ptrdiff_t>(block.numRows) * width, values);
            return buffer;
        }
        for (const Stretch& stretch : block.stretches) {
            const std::ptrdiff_t size = static_cast<std::ptrdiff_t>(stretch.count) * width;
            values = std::copy_n(rows.row(stretch.first), size, values);
        }
        return buffer;
    }
    eachRow(block, [&](int from, int to) {
        float* row = values + static_cast<std::ptrdiff_t>(to) * width;
        std::copy_n(rows.row(from), wanted, row);
        std::fill_n(row + wanted, width - wanted, 0.0F);
    });
    return buffer;
}

sto_Field yld_FieldAddDataUtils::writeOrientation(const sto_FieldDescription& orientation, int key, const Block& block)
{
    const std::shared_ptr<const fld_FieldDescription> description = orientation.data();
    const bool isPlanar = description->dataType() == fld_DataTypeEnm::QUATERNION_2D;
    const int width = description->m_width;
    fio_Buffer buffer = sto_FieldFrame::allocateField(orientation);
    auto* values = reinterpret_cast<float*>(buffer.writable());
    const eng_QuaternionFloatAdapter adapter(description->m_dataType);
    const auto convert = [&](int system, float* to) {
        float cosines[9];
        cosinesOf(m_systems[system], isPlanar, cosines);
        adapter.quaternion(cosines).inverse().components(to);
    };
    if (m_systems.size() == 1) {
        float components[4];
        convert(0, components);
        eachRow(block, [&](int, int to) { std::copy_n(components, width, values + static_cast<std::ptrdiff_t>(to) * width); });
    } else {
        eachRow(block, [&](int from, int to) { convert(from, values + static_cast<std::ptrdiff_t>(to) * width); });
    }
    sto_FieldFrame frame = m_field.m_fieldFrame.ConstGet();
    return frame.Orientation(orientation, key, buffer);
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

void yld_FieldAddDataUtils::writeOneBlock(Block block)
{
    sto_FieldStep step = m_field.m_fieldStep.ConstGet();
    sto_FieldFrame frame = m_field.m_fieldFrame.ConstGet();
    const yld_Enum::yld_DataTypeEnum type = m_field.m_type;
    const bool hasOrientation = !m_systems.isEmpty();

    // Everything is looked at before anything of the block is kept.
    fld_FieldDescription wanted = describe(block);
    checkLength(wanted, block);
    if (type != yld_Enum::SCALAR && type != yld_Enum::VECTOR && type != yld_Enum::MATRIX && !isTensor(type)) {
        yld_raise("Invalid results type for field.");
    }
    if (hasOrientation && m_systems.size() != 1 && m_systems.size() != m_data.size()) yld_raise(systemsMessage);
    int firstRow = 0;
    if (!block.isWhole && !block.stretches.empty()) firstRow = block.stretches.front().first;
    const int firstWidth = block.numRows > 0 ? m_data.width(firstRow) : 0;
    const fio_Buffer values = fill(wanted, m_data, block, firstWidth);
    const fio_Buffer conjugate = m_isPair ? fill(wanted, m_conjugate, block, firstWidth) : fio_Buffer();

    int orientationKey = -1;
    fld_DataTypeEnm systems = fld_DataTypeEnm::UNDEFINED;
    if (hasOrientation) {
        orientationKey = m_key++;
        const bool isPlanar = type == yld_Enum::TENSOR_2D_PLANAR || type == yld_Enum::TENSOR_2D_SURFACE;
        systems = isPlanar ? fld_DataTypeEnm::QUATERNION_2D : fld_DataTypeEnm::QUATERNION_3D;
    }
    const sto_FieldDescription description = enter(step, std::move(wanted), systems, orientationKey, m_key);
    const sto_Field orientation =
        hasOrientation ? writeOrientation(description.orientation(), orientationKey, block) : sto_Field();
    const sto_Field stored = frame.Field(description, m_key, values, conjugate, orientation);
    m_total += m_isPair ? 2 * block.numRows : block.numRows;

    m_field.m_values.append(yld_SubField(m_key, stored, m_field.m_assembly, type));
    m_field.m_locations.append(yld_FieldLocation(description));
    m_field.m_fieldKeys.append(m_key);
    ++m_key;
    step.setNumberField(m_key);
}
