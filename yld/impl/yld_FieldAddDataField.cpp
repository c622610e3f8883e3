#include "yld/impl/yld_FieldAddDataField.h"

#include "platform/sto/sto_Field.h"
#include "platform/sto/sto_FieldFrame.h"
#include "platform/sto/sto_FieldStep.h"
#include "platform/text/prg_WIP.h"
#include "yld/impl/yld_FieldAddDataUtils.h"
#include "yld/impl/yld_Raise.h"
#include "yld/impl/yld_SetCache.h"
#include "yld_EnumMap.h"

#include <algorithm>
#include <string>
#include <unordered_map>

namespace {

template<class... Values> void warn(const char* format, const Values&... values)
{
    prg_WIPBase::Warning(msg_Format(format, values...));
}

bool isOfAssembly(const fld_FieldDescription& description) { return !description.m_instance.isValid(); }

bool isCopied(fld_DataTypeEnm type)
{
    return type == fld_DataTypeEnm::SCALAR || type == fld_DataTypeEnm::VECTOR || type == fld_DataTypeEnm::MATRIX ||
           fld_FieldDescription::isTensor(type);
}

// A name that says twice that its values were turned keeps no systems to turn them back with.
bool isTransformedTwice(const std::string& label)
{
    constexpr const char* word = "Transformed";
    return label.find(word) != label.rfind(word);
}

} // namespace

void yld_FieldAddDataField::run()
{
    if (m_field.m_fieldFrame.IsNull() || m_field.m_fieldStep.IsNull()) {
        yld_raise("The frame of field \"%s\" is not in a database.", m_field.m_name);
    }
    if (!isCompatible()) {
        yld_raise("Fields are not compatible. They are either associated with different structural models or have "
                  "incompatible attributes.");
    }
    // A field may be copied onto itself: then what it had is what is copied.
    const yld_Sequence<yld_SubField> blocks = m_source.SubField();
    for (const yld_SubField& block : blocks) copy(block);
}

bool yld_FieldAddDataField::isCompatible() const
{
    for (const yld_SubField& block : m_source.SubField()) {
        if (!isCompatible(block)) return false;
    }
    return true;
}

sto_Mesh yld_FieldAddDataField::targetMesh(const std::string& instance) const
{
    const sto_Assembly& assembly = m_field.m_assembly.ConstGet();
    if (!instance.empty()) return assembly.instance(instance).mesh();
    return assembly.hasMesh() ? assembly.mesh() : sto_Mesh();
}

sto_Set yld_FieldAddDataField::setOf(const yld_SubField& block) const
{
    if (block.subsetSet().IsValid() && block.subsetSet().ConstGet().isValid()) return block.subsetSet().ConstGet();
    return block.description().hasSet() ? block.description().set() : sto_Set();
}

sto_Set yld_FieldAddDataField::findSet(const sto_Set& like, const std::string& instance) const
{
    const sto_Assembly& assembly = m_field.m_assembly.ConstGet();
    const sto_Set found = assembly.set().find(like.setType(), like.setLabel());
    if (found.isValid() || instance.empty()) return found;
    return assembly.instance(instance).mesh().set().find(like.setType(), like.setLabel());
}

bool yld_FieldAddDataField::isCompatible(const yld_SubField& block) const
{
    const std::shared_ptr<const fld_FieldDescription> description = block.description().data();
    const std::string instance = isOfAssembly(*description) ? std::string() : block.description().partInstance().name();
    if (!instance.empty() && !m_field.m_assembly.ConstGet().hasInstance(instance)) {
        warn("No Instance named \"%s\" found in the target database.", instance.c_str());
        return false;
    }
    const sto_Set set = setOf(block);
    const std::string setName = set.isValid() ? set.setLabel() : std::string();
    if (set.isValid() && !findSet(set, instance).isValid()) {
        warn("No set named \"%s\" found in the target database.", setName.c_str());
        return false;
    }
    if (block.elementClass() >= 0) {
        const sto_ElementClass onClass = block.description().elementClass();
        const std::string& type = onClass.typeLabel();
        const std::string& category = onClass.categoryLabel();
        const sto_Mesh mesh = targetMesh(instance);
        const sto_ElementData elements = mesh.isValid() ? mesh.elementData() : sto_ElementData();
        sto_ElementClass found;
        for (int i = 0; i < elements.numClasses(); ++i) {
            const sto_ElementClass each = elements.elementClass(i, 0);
            if (each.typeLabel() == type && each.categoryLabel() == category) found = each;
        }
        if (!found.isValid()) {
            warn("No elements with type \"%1$s\" and sectionCategory \"%2$s\" in set \"%3$s\" found in the target database.",
                 type.c_str(), category.c_str(), setName.c_str());
            return false;
        }
        const int index = description->m_locationIndex;
        if (index >= 0 && index >= found.numLocation()) {
            warn("No sectionPoint numbered \"%1$s\" for element type \"%2$s\" and sectionCategory \"%3$s\" in set \"%4$s\" "
                 "found in the target database.",
                 index + 1, type.c_str(), category.c_str(), setName.c_str());
            return false;
        }
    }
    return m_source.m_type == m_field.m_type;
}

yld_FieldAddDataField::Members yld_FieldAddDataField::membersOf(const sto_Set& set, const sto_Mesh& mesh, int classIndex)
{
    Members all;
    all.hasLabels = set.setType() != setC_Set::surface;
    const sto_NodeData nodes = mesh.nodeData();
    const bool isNodeSet = set.setType() == setC_Set::nodeSet;
    const sto_ElementClass onClass =
        isNodeSet || classIndex < 0 ? sto_ElementClass() : mesh.elementData().elementClass(classIndex, 0);
    const int* labels = isNodeSet ? nodes.GetUserNodeLabels() : onClass.userElementLabels();
    const int limit = isNodeSet ? nodes.NumNodes() : onClass.numElements();
    for (int i = 0; i < set.numSubsets(); ++i) {
        const sto_Subset members = set.subSet(i);
        if (members.meshIndex() != mesh.meshIndex()) continue;
        if (!isNodeSet && members.classIndex() != classIndex) continue;
        for (const int member : members.members()) {
            if (member < 0 || member >= limit) yld_raise("A set has a member that no mesh can have; the file is damaged.");
            all.labels.push_back(labels ? labels[member] : member);
        }
        // An element block is one subset of its set.
        if (!isNodeSet) break;
    }
    return all;
}

sto_ElementClass yld_FieldAddDataField::classLike(const sto_ElementClass& onClass, int index, const sto_Mesh& mesh,
                                                  int& found) const
{
    const sto_ElementData elements = mesh.elementData();
    sto_ElementClass like;
    found = -1;
    for (int i = 0; i < elements.numClasses(); ++i) {
        const sto_ElementClass each = elements.elementClass(i, 0);
        if (each.typeLabel() != onClass.typeLabel() || each.categoryLabel() != onClass.categoryLabel() ||
            each.shape() != onClass.shape() || each.numNodesPerElement() != onClass.numNodesPerElement()) {
            continue;
        }
        // The same place counts most; without it the last one serves.
        if (found == index) break;
        like = each;
        found = i;
    }
    return like;
}

template<class T>
fio_Buffer yld_FieldAddDataField::rows(const T* values, int width, const std::vector<int>& places, int perEntity) const
{
    const std::ptrdiff_t size = static_cast<std::ptrdiff_t>(width) * perEntity;
    fio_Buffer buffer(places.size() * static_cast<std::size_t>(size) * sizeof(T));
    T* to = reinterpret_cast<T*>(buffer.writable());
    for (const int place : places) {
        if (place < 0) std::fill_n(to, size, T(0));
        else std::copy_n(values + place * size, size, to);
        to += size;
    }
    return buffer;
}

void yld_FieldAddDataField::copy(const yld_SubField& block)
{
    const sto_FieldDescription sourceDescription = block.description();
    const std::shared_ptr<const fld_FieldDescription> from = sourceDescription.data();
    if (!isCopied(from->dataType())) return;
    const std::string instanceName = isOfAssembly(*from) ? std::string() : sourceDescription.partInstance().name();
    const sto_Assembly& assembly = m_field.m_assembly.ConstGet();
    const bool isWholeModel = from->position() == fld_OutputPositionEnm::WHOLE_MODEL;

    fld_FieldDescription wanted = yld_FieldAddDataUtils::describe(m_field);
    wanted.m_dataType = from->m_dataType;
    wanted.m_width = from->m_width;
    wanted.m_rows = from->m_rows;
    wanted.m_cols = from->m_cols;
    wanted.m_matrixKind = from->m_matrixKind;
    const bool isByElement = from->position() == fld_OutputPositionEnm::NODAL_BY_ELEMENT;
    wanted.m_position = isByElement ? static_cast<int>(fld_OutputPositionEnm::NODAL) : from->m_position;
    wanted.m_locationIndex = from->m_locationIndex;
    wanted.m_isPair = from->m_isPair;
    wanted.m_engineeringTensor = from->m_engineeringTensor;
    wanted.m_loadCoordSystem = from->m_loadCoordSystem;
    wanted.m_labelComponents = from->m_labelComponents;
    if (from->m_completeness == 1) wanted.m_completeness = 1;
    wanted.m_clampType = from->m_clampType;
    if (from->m_clampType == 1 || from->m_clampType == 3) wanted.m_minClamp = from->m_minClamp;
    if (from->m_clampType == 2 || from->m_clampType == 3) wanted.m_maxClamp = from->m_maxClamp;
    if (!instanceName.empty()) {
        const sto_PartInstance instance = assembly.instance(instanceName);
        wanted.m_instance = instance.shortCut();
        wanted.m_instanceName = instanceName;
    } else if (!isWholeModel) {
        wanted.m_rootAssembly = assembly.shortCut();
    }

    // Which stored entities the block shows; an entity is a node, an element, a face.
    const int perEntity =
        block.elementClass() < 0 ? 1
                                 : yld_FieldAddDataUtils::rowsPerElement(from->position(), sourceDescription.elementClass());
    std::vector<int> shown;
    const yld_Sequence<int>& indices = block.indices();
    if (indices.isEmpty()) {
        for (int i = 0; i < block.storedLength() / std::max(perEntity, 1); ++i) shown.push_back(i);
    } else {
        for (int i = 0; i < indices.size(); i += perEntity) shown.push_back(indices[i] / perEntity);
        // Points that are not all points of their elements are no rows that a set could have.
        bool isWhole = indices.size() % perEntity == 0;
        for (int i = 0; isWhole && i < indices.size(); ++i) {
            isWhole = indices[i] == shown[static_cast<std::size_t>(i / perEntity)] * perEntity + i % perEntity;
        }
        if (!isWhole) {
            wanted.m_length = static_cast<int>(shown.size()) * perEntity;
            wanted.m_isPair = false;
            const long long rowsShown = indices.size() == wanted.m_length ? wanted.m_length - 1 : indices.size();
            yld_FieldAddDataUtils::checkLength(wanted, rowsShown, sourceDescription.elementClass());
        }
    }

    std::vector<int> places = shown; // the stored entity behind each of the target's; -1 for none
    const sto_Set subset = setOf(block);
    if (subset.isValid() && !isWholeModel) {
        const sto_Mesh sourceMesh = sourceDescription.mesh();
        const sto_Mesh mesh = targetMesh(instanceName);
        const Members stored =
            membersOf(sourceDescription.hasSet() ? sourceDescription.set() : subset, sourceMesh, from->m_classIndex);
        const Members asked = membersOf(subset, sourceMesh, from->m_classIndex);
        if (stored.hasLabels && stored.size() * perEntity != block.storedLength()) {
            yld_raise("Field \"%s\" has another number of values than its set.", block.label());
        }
        wanted.m_meshIndex = mesh.meshIndex();
        if (block.elementClass() >= 0) classLike(sourceDescription.elementClass(), from->m_classIndex, mesh, wanted.m_classIndex);
        std::vector<int> labels;
        for (const int entity : shown) labels.push_back(stored.labels[static_cast<std::size_t>(entity)]);
        const bool isPartly = !indices.isEmpty() && indices.size() != asked.size() * perEntity;
        sto_Set found = isPartly && stored.hasLabels ? sto_Set() : findSet(subset, instanceName);
        Members members;
        if (found.isValid()) members = membersOf(found, mesh, wanted.m_classIndex);
        std::unordered_map<int, int> placeOf;
        for (std::size_t i = labels.size(); i-- > 0;) placeOf[labels[i]] = shown[i];
        const bool isAny = std::any_of(members.labels.begin(), members.labels.end(),
                                       [&placeOf](int label) { return placeOf.contains(label); });
        if (stored.hasLabels && !isAny && !labels.empty()) {
            // There is no set with these there.
            const int type = subset.setType() == setC_Set::elementSet ? setC_Set::elementSet : setC_Set::nodeSet;
            found = yld_SetCache::instance().get(mesh, type, labels.data(), static_cast<int>(labels.size()), "api set",
                                                 "api set ", 1);
            members = membersOf(found, mesh, wanted.m_classIndex);
        }
        if (stored.hasLabels && members.labels != labels) {
            places.clear();
            for (const int label : members.labels) {
                const auto entry = placeOf.find(label);
                places.push_back(entry == placeOf.end() ? -1 : entry->second);
            }
        }
        if (!stored.hasLabels && members.size() != asked.size()) {
            wanted.m_length = members.size();
            wanted.m_isPair = false;
            yld_FieldAddDataUtils::checkLength(wanted, asked.size(), sourceDescription.elementClass());
        }
        wanted.m_set = found.shortCut();
    }
    wanted.m_length = static_cast<int>(places.size()) * perEntity;

    // What is read here for the first time is given back with this handle.
    const sto_Field source = block.field().isLoaded() ? block.field() : sto_Field(block.field().shortCut());
    const int storageType = source.storageType();
    const auto take = [&](const sto_Field& values, bool isConjugate) {
        const int width = values.fieldDescription().width();
        if (storageType == 1) {
            const sto_FieldView<double> view = values.view<double>();
            return rows(isConjugate ? view.conjugate() : view.data(), width, places, perEntity);
        }
        const sto_FieldView<float> view = values.view<float>();
        return rows(isConjugate ? view.conjugate() : view.data(), width, places, perEntity);
    };
    const bool hasOrientation = (from->dataType() == fld_DataTypeEnm::VECTOR ||
                                 fld_FieldDescription::isTensor(from->dataType())) &&
                                source.hasOrientation() && !isTransformedTwice(from->m_label);
    wanted.m_isPair = from->m_isPair && source.hasConjugate();
    const fio_Buffer values = take(source, false);
    const fio_Buffer conjugate = wanted.m_isPair ? take(source, true) : fio_Buffer();

    sto_FieldStep step = m_field.m_fieldStep.ConstGet();
    sto_FieldFrame frame = m_field.m_fieldFrame.ConstGet();
    int key = step.numberField();
    const int orientationKey = hasOrientation ? key++ : -1;
    sto_FieldDescription description = step.find(wanted, hasOrientation);
    if (!description.isValid()) {
        if (hasOrientation) {
            const fld_DataTypeEnm type = source.orientation().fieldDescription().dataType();
            wanted.m_orientation =
                step.Field(yld_FieldAddDataUtils::describeOrientation(wanted, orientationKey, type)).shortCut();
        }
        wanted.m_key = key;
        description = step.Field(std::move(wanted));
    }
    sto_Field orientation;
    if (hasOrientation) {
        orientation = frame.Orientation(description.orientation(), orientationKey, take(source.orientation(), false),
                                        storageType);
    }
    const sto_Field made = frame.Field(description, key, values, conjugate, orientation, storageType);
    step.setNumberField(key + 1);
    yld_FieldAddDataUtils::appendBlock(m_field, key, made);
}
