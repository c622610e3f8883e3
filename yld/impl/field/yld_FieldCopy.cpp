#include "yld/impl/field/yld_FieldCopy.h"

#include "platform/sto/sto_FieldFrame.h"
#include "platform/sto/sto_FieldStep.h"
#include "platform/store/fio_File.h"
#include "platform/text/prg_WIP.h"
#include "yld/impl/base/yld_Convert.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld/impl/field/yld_FieldAddDataUtils.h"
#include "yld/impl/field/yld_SetCache.h"
#include "yld_EnumMap.h"

#include <string>

namespace {

[[noreturn]] void raiseIncompatible()
{
    yld_raise("Fields are not compatible. They are either associated with different structural models or have "
              "incompatible attributes.");
}

// Local systems of a field that has been transformed twice say nothing of the stored values any more.
bool isTransformedTwice(const std::string& label)
{
    constexpr const char* word = "Transformed";
    return label.find(word) != label.rfind(word);
}

std::vector<int> rowsOf(const yld_SubField& block)
{
    std::vector<int> rows(static_cast<std::size_t>(block.length()));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const int at = static_cast<int>(i);
        rows[i] = block.indices().isEmpty() ? at : block.indices()[at];
        if (rows[i] < 0 || rows[i] >= block.storedLength()) yld_raise("FieldValue index out of range.");
    }
    return rows;
}

struct Halves
{
    fio_Buffer values;
    fio_Buffer conjugate;
};

template<class T> Halves gather(const sto_Field& field, const std::vector<int>& rows)
{
    Halves halves;
    halves.values = field.rowsAt<T>(rows);
    if (field.hasConjugate()) halves.conjugate = field.rowsAt<T>(rows, true);
    return halves;
}

Halves gather(const sto_Field& field, const std::vector<int>& rows)
{
    return field.storageType() == 1 ? gather<double>(field, rows) : gather<float>(field, rows);
}

} // namespace

sto_Set yld_FieldCopy::setOf(const yld_SubField& block)
{
    const shr_COW<sto_Set>& chosen = block.subsetSet();
    if (chosen.IsValid() && chosen.ConstGet().isValid()) return chosen.ConstGet();
    return block.description().set();
}

sto_Mesh yld_FieldCopy::targetMesh(const fld_FieldDescription& description) const
{
    if (!hasAssembly()) return {};
    if (description.m_instance.isValid()) {
        const std::string name = sto_PartInstance(description.m_instance).name();
        return assembly().hasInstance(name) ? assembly().instance(name).mesh() : sto_Mesh();
    }
    return assembly().hasMesh() ? assembly().mesh() : sto_Mesh();
}

int yld_FieldCopy::findClass(const sto_Mesh& mesh, const sto_ElementClass& like, int preferred)
{
    if (!mesh.isValid()) return -1;
    const sto_ElementData elements = mesh.elementData();
    int found = -1;
    for (int i = 0; i < elements.numClasses(); ++i) {
        const sto_ElementClass each = elements.elementClass(i);
        if (each.typeLabel() != like.typeLabel() || each.categoryLabel() != like.categoryLabel()) continue;
        found = i;
        if (i == preferred) break;
    }
    return found;
}

bool yld_FieldCopy::isCompatible(const yld_SubField& block) const
{
    const sto_FieldBlock on(block.description());
    const fld_FieldDescription& description = on.description();
    if (description.m_instance.isValid()) {
        const std::string name = sto_PartInstance(description.m_instance).name();
        if (!hasAssembly() || !assembly().hasInstance(name)) {
            prg_WIPBase::Warning(msg_Format("No Instance named \"%s\" found in the target database.", name.c_str()));
            return false;
        }
    }
    const sto_Set set = setOf(block);
    const std::string label = set.isValid() ? set.setLabel() : std::string();
    const sto_Mesh mesh = targetMesh(description);
    if (set.isValid()) {
        const bool isThere = (hasAssembly() && assembly().set().has(set.setType(), label)) ||
                             (mesh.isValid() && mesh.set().has(set.setType(), label));
        if (!isThere) {
            prg_WIPBase::Warning(msg_Format("No set named \"%s\" found in the target database.", label.c_str()));
            return false;
        }
    }
    const sto_ElementClass& onClass = on.elementClass();
    if (!onClass.isValid()) return true;
    const int found = findClass(mesh, onClass, -1);
    if (found < 0) {
        prg_WIPBase::Warning(msg_Format("No elements with type \"%1$s\" and sectionCategory \"%2$s\" in set \"%3$s\" "
                                        "found in the target database.",
                                        onClass.typeLabel().c_str(), onClass.categoryLabel().c_str(), label.c_str()));
        return false;
    }
    const int location = description.m_locationIndex;
    if (location >= 0 && location >= mesh.elementData().elementClass(found).numLocation()) {
        prg_WIPBase::Warning(msg_Format("No sectionPoint numbered \"%1$s\" for element type \"%2$s\" and "
                                        "sectionCategory \"%3$s\" in set \"%4$s\" found in the target database.",
                                        location + 1, onClass.typeLabel().c_str(), onClass.categoryLabel().c_str(),
                                        label.c_str()));
        return false;
    }
    return true;
}

bool yld_FieldCopy::isCompatible() const
{
    for (const yld_SubField& block : m_source.SubField()) {
        if (!isCompatible(block)) return false;
    }
    return m_source.type() == m_target.type();
}

yld_FieldCopy::Members yld_FieldCopy::membersOf(const sto_FieldBlock& block)
{
    const sto_Labels labels = block.memberLabels();
    Members all;
    all.labels.assign(labels.begin(), labels.end());
    if (labels.size() != block.numMembers()) raiseIncompatible();
    all.facets = block.facets();
    return all;
}

yld_FieldCopy::Members yld_FieldCopy::shown(const Members& all, const std::vector<int>& rows, int perMember)
{
    Members chosen;
    if (perMember < 1 || rows.size() % static_cast<std::size_t>(perMember) != 0) raiseIncompatible();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto member = static_cast<std::size_t>(rows[i] / perMember);
        // A stored block has all rows of a member or none.
        const int first = rows[i - i % static_cast<std::size_t>(perMember)];
        if (member >= all.labels.size() || first % perMember != 0 ||
            rows[i] - first != static_cast<int>(i % static_cast<std::size_t>(perMember))) {
            raiseIncompatible();
        }
        if (rows[i] != first) continue;
        chosen.labels.push_back(all.labels[member]);
        if (member < all.facets.size()) chosen.facets.push_back(all.facets[member]);
    }
    return chosen;
}

sto_Set yld_FieldCopy::setFor(const yld_SubField& block, const Place& place, const std::vector<int>& rows) const
{
    const sto_FieldBlock on(block.description());
    const sto_Set& stored = on.set();
    if (!stored.isValid() || !on.mesh().isValid() || !place.mesh.isValid()) return {};
    const sto_Set named = setOf(block);
    const int type = named.setType();
    const bool isWhole = block.indices().isEmpty();
    const sto_Set candidates[] = {assembly().set().find(type, named.setLabel()),
                                  place.mesh.set().find(type, named.setLabel())};
    for (const sto_Set& candidate : candidates) {
        if (candidate.isValid() && isWhole && candidate.shortCut() == stored.shortCut()) return candidate;
    }
    Members wanted = membersOf(on);
    // Where faces differ in their number of points a row does not tell its face.
    if (!isWhole && !on.facePoints().empty()) raiseIncompatible();
    if (!isWhole) wanted = shown(wanted, rows, on.rowsPerMember());
    for (const sto_Set& candidate : candidates) {
        if (candidate.isValid() && membersOf(sto_FieldBlock(place.mesh, candidate, place.classIndex)) == wanted)
            return candidate;
    }

    const int count = static_cast<int>(wanted.labels.size());
    if (type != setC_Set::surface) {
        return yld_SetCache::instance().get(place.mesh, type, wanted.labels.data(), count, "api set", "api set ", 1);
    }
    const sto_SetList present = place.mesh.set();
    std::string name = "api set";
    for (int number = 1; present.has(type, name); ++number) name = "api set " + std::to_string(number);
    sto_Mesh target = place.mesh;
    return target.Surface(
        name, {{on.areFaces() ? setC_SubSet::faces : setC_SubSet::edges, wanted.labels, wanted.facets}}, true);
}

yld_FieldCopy::Place yld_FieldCopy::placeOf(const yld_SubField& block, const std::vector<int>& rows) const
{
    const sto_FieldBlock on(block.description());
    const fld_FieldDescription& description = on.description();
    Place place;
    if (description.m_instance.isValid()) {
        place.instance = assembly().instance(sto_PartInstance(description.m_instance).name());
    }
    place.mesh = targetMesh(description);
    if (on.elementClass().isValid()) {
        place.classIndex = findClass(place.mesh, on.elementClass(), description.m_classIndex);
        if (place.classIndex < 0) raiseIncompatible();
    }
    place.set = setFor(block, place, rows);
    return place;
}

void yld_FieldCopy::copy(const yld_SubField& block)
{
    const std::shared_ptr<const fld_FieldDescription> source = block.description().data();
    const fld_DataType& type = source->type();
    if (!type.isOfFields()) return;
    const std::vector<int> rows = rowsOf(block);
    const Place place = placeOf(block, rows);

    sto_FieldDescriptionBuilder wanted(m_target.m_name.cStr(), m_target.m_description.cStr(), type.store);
    wanted.shapeOf(*source);
    wanted.completenessOf(*source);
    std::vector<std::string> labels = yld_Convert::texts(m_target.m_componentLabels);
    if (type.isTensor() && labels.size() > static_cast<std::size_t>(source->m_width))
        labels.resize(static_cast<std::size_t>(source->m_width));
    wanted.components(std::move(labels));
    wanted.invariants(yld_FieldAddDataUtils::invariantCodes(m_target));
    wanted.pair(source->m_isPair);
    // As a writer would give it.
    wanted.at(unMapOutputPosition(mapOutputPosition(source->position())), source->m_locationIndex);
    if (place.instance.isValid()) wanted.on(place.instance);
    else if (source->m_rootAssembly.isValid() && hasAssembly()) wanted.on(assembly());
    wanted.of(place.set, place.classIndex, static_cast<int>(rows.size()));

    const bool hasOrientation =
        type.hasSystems && block.field().hasOrientation() && !isTransformedTwice(source->m_label);
    sto_FieldStep step = m_target.m_fieldStep.ConstGet();
    sto_FieldFrame frame = m_target.m_fieldFrame.ConstGet();
    int key = step.numberField();
    sto_Field systems;
    const int systemsKey = hasOrientation ? key++ : -1;
    fld_DataTypeEnm systemsType = fld_DataTypeEnm::UNDEFINED;
    if (hasOrientation) systemsType = block.field().orientation().fieldDescription().dataType();
    const sto_FieldDescription description = wanted.enter(step, key, systemsType, systemsKey);
    if (hasOrientation) {
        const sto_Field& turned = block.field().orientation();
        systems =
            frame.Orientation(description.orientation(), systemsKey, gather(turned, rows).values, turned.storageType());
    }
    const Halves halves = gather(block.field(), rows);
    const sto_Field stored =
        frame.Field(description, key, halves.values, halves.conjugate, systems, block.field().storageType());
    yld_FieldAddDataUtils::appendBlock(m_target, key, stored);
    step.setNumberField(key + 1);
}

void yld_FieldCopy::run()
{
    if (m_target.m_fieldFrame.IsNull() || m_target.m_fieldStep.IsNull()) {
        yld_raise("The frame of field \"%s\" is not in a database.", m_target.m_name);
    }
    if (!isCompatible()) raiseIncompatible();
    // A copy: a field may be its own source.
    const yld_Sequence<yld_SubField> blocks = m_source.SubField();
    for (const yld_SubField& block : blocks) copy(block);
}
