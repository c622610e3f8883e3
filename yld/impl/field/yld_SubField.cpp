#include "yld_SubField.h"

#include "platform/sto/sto_Assembly.h"
#include "platform/store/fio_File.h"
#include "yld/impl/base/yld_Convert.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld/impl/field/yld_FieldSubset.h"
#include "yld_EnumMap.h"
#include "yld_Set.h"

#include <algorithm>
#include <string>
#include <unordered_set>

yld_SubField::yld_SubField() = default;

yld_SubField::yld_SubField(int key, const sto_Field& field, const shr_ArrayCOW<sto_Assembly>& assembly,
                           yld_Enum::yld_DataTypeEnum type)
    : m_body(std::make_shared<yld_SubFieldBody>())
{
    yld_SubFieldBody& made = *m_body;
    made.key = key;
    made.field = field;
    made.description = field.fieldDescription();
    made.assembly = assembly;
    made.type = type;
    const std::shared_ptr<const fld_FieldDescription> description = made.description.data();
    made.label = description->m_label.c_str();
    made.storedLength = description->m_length;
    if (description->place().carrier == fld_OutputPosition::Carrier::MODEL) return;
    if (description->m_instance.isValid()) {
        made.meshIndex = made.description.partInstance().mesh().meshIndex();
    } else if (assembly.IsValid() && assembly.ConstGet().isValid() && assembly.ConstGet().hasMesh()) {
        made.meshIndex = assembly.ConstGet().mesh().meshIndex();
    }
    const int setType = made.description.setType();
    if (setType == setC_Set::elementSet || setType == setC_Set::surface) made.elementClass = description->m_classIndex;
}

yld_SubField::yld_SubField(const yld_SubField&) = default;
yld_SubField& yld_SubField::operator=(const yld_SubField&) = default;
yld_SubField::~yld_SubField() = default;

const yld_SubFieldBody& yld_SubField::body() const
{
    thread_local const yld_SubFieldBody nothing;
    return m_body ? *m_body : nothing;
}

yld_SubFieldBody& yld_SubField::ownBody()
{
    if (!m_body || m_body.use_count() > 1) m_body = std::make_shared<yld_SubFieldBody>(body());
    return *m_body;
}

int yld_SubField::key() const { return body().key; }
const yld_String& yld_SubField::label() const { return body().label; }
int yld_SubField::storedLength() const { return body().storedLength; }
yld_Enum::yld_DataTypeEnum yld_SubField::type() const { return body().type; }
int yld_SubField::elementClass() const { return body().elementClass; }
int yld_SubField::meshIndex() const { return body().meshIndex; }
const yld_Sequence<int>& yld_SubField::indices() const { return body().indices; }
const sto_Field& yld_SubField::field() const { return body().field; }
bool yld_SubField::hasDescription() const { return body().description.isValid(); }
const sto_FieldDescription& yld_SubField::description() const { return body().description; }
const shr_ArrayCOW<sto_Assembly>& yld_SubField::assembly() const { return body().assembly; }
const shr_COW<sto_Set>& yld_SubField::subsetSet() const { return body().subsetSet; }

int yld_SubField::length() const
{
    const yld_SubFieldBody& shown = body();
    return shown.indices.size() != 0 ? shown.indices.size() : shown.storedLength;
}

yld_Enum::yld_ResultPositionEnum yld_SubField::position() const
{
    return mapOutputPosition(body().description.position());
}

void yld_SubField::setIndices(const yld_Sequence<int>& indices) { ownBody().indices = indices; }

void yld_SubField::setSubsetSet(const sto_Set& set) { ownBody().subsetSet = shr_COW<sto_Set>(set); }

namespace {

sto_Set setOf(const yld_SubFieldBody& block)
{
    if (block.subsetSet.IsValid()) return block.subsetSet.ConstGet();
    return block.description.hasSet() ? block.description.set() : sto_Set();
}

} // namespace

yld_Enum::yld_SetTypeEnum yld_SubField::setType() const
{
    const sto_Set set = setOf(body());
    switch (set.isValid() ? set.setType() : -1) {
    case setC_Set::nodeSet:
        return yld_Enum::NODE_SET;
    case setC_Set::elementSet:
        return yld_Enum::ELEMENT_SET;
    case setC_Set::surface:
        return yld_Enum::SURFACE_SET;
    default:
        yld_raise("Unknown Set type.");
    }
}

yld_String yld_SubField::setName() const
{
    const sto_Set set = setOf(body());
    return set.isValid() ? yld_String(set.setLabel().c_str()) : yld_String();
}

int yld_SubFieldBody::valuesPerEntity() const
{
    const sto_FieldBlock on = place();
    return on.isOnElements() ? std::max(1, on.rowsPerMember()) : 1;
}

std::vector<int> yld_SubField::entityLabels() const
{
    const sto_FieldBlock on = body().place();
    if (on.isOnFaces() && !on.areFaces()) return {};
    const sto_Labels labels = on.memberLabels();
    if (labels.size() != on.numMembers()) on.refuse("an element that the class lacks");
    return {labels.begin(), labels.end()};
}

namespace {

// Whether its values have nodes, though they belong to elements.
bool isElementNodal(const sto_FieldBlock& block)
{
    return block.isOnElements() && block.place().perCarrier == fld_OutputPosition::PerCarrier::NODES;
}

// Calls visit with the place of each of the first list that the second has too. Both are taken for ascending; the walk
// never goes back in the second, so what stands there out of order is passed by.
template<class Visit> void merge(const std::vector<int>& walked, const std::vector<int>& looked, Visit visit)
{
    std::size_t at = 0;
    for (std::size_t i = 0; i < walked.size() && at < looked.size(); ++i) {
        while (looked[at] < walked[i] && at + 1 < looked.size()) ++at;
        if (looked[at] == walked[i]) visit(i);
        if (looked[at] < walked[i]) ++at;
    }
}

std::vector<int> intersection(const std::vector<int>& fresh, const std::vector<int>& old)
{
    const bool walkFresh = fresh.size() <= old.size();
    const std::vector<int>& walked = walkFresh ? fresh : old;
    std::vector<int> both;
    merge(walked, walkFresh ? old : fresh, [&](std::size_t i) { both.push_back(walked[i]); });
    return both;
}

// The labels that a set has for a block; nothing where the set is of a kind that the block does not go with.
class SetLabels
{
public:
    SetLabels(const sto_FieldBlock& block, const sto_Set& set) : m_block(block)
    {
        const int type = set.setType();
        const bool isNodalSearch = isElementNodal(block) && type == setC_Set::nodeSet;
        if (block.setType() != type && !isNodalSearch) return;
        for (int i = 0; i < set.numSubsets(); ++i) {
            const sto_Subset subset = set.subSet(i);
            if (subset.meshIndex() != block.meshIndex()) continue;
            if (type == setC_Set::nodeSet) {
                // As many subsets of the set as the block's own set has, from the first on; of a search in element data
                // all.
                const int last =
                    isNodalSearch ? set.numSubsets() : std::min(set.numSubsets(), block.set().numSubsets());
                for (int k = 0; k < last; ++k) addNodes(set.subSet(k));
            } else if (subset.classIndex() == block.description().m_classIndex) {
                add(block.elementLabels(subset.members()));
            }
        }
    }

    const std::vector<int>& labels() const { return m_labels; }

private:
    // A subset of another mesh may have members that this mesh lacks.
    void addNodes(const sto_Subset& subset)
    {
        const int count = m_block.mesh().nodeData().NumNodes();
        std::vector<int> members = subset.members();
        std::erase_if(members, [count](int member) { return member < 0 || member >= count; });
        add(m_block.nodeLabels(members));
    }

    void add(const std::vector<int>& more) { m_labels.insert(m_labels.end(), more.begin(), more.end()); }

    const sto_FieldBlock& m_block;
    std::vector<int> m_labels;
};

} // namespace

yld_Sequence<int> yld_SubField::indicesInSet(const yld_Set& chosen) const
{
    return yld_guard([&]() -> yld_Sequence<int> {
        const yld_SubFieldBody& block = body();
        const sto_Set& set = chosen.set();
        const sto_FieldBlock on = block.place();
        std::vector<int> found;
        if (on.set().isValid()) {
            if (on.setType() == set.setType() && chosen.name() == on.set().setLabel().c_str()) {
                found.resize(static_cast<std::size_t>(block.storedLength));
                for (std::size_t i = 0; i < found.size(); ++i) found[i] = static_cast<int>(i);
                return yld_Convert::sequence(found);
            }
        }

        const std::vector<int> wanted = SetLabels(on, set).labels();
        if (wanted.empty()) return {};
        if (isElementNodal(on) && set.setType() == setC_Set::nodeSet) {
            const std::unordered_set<int> labels(wanted.begin(), wanted.end());
            const sto_Labels own = on.connectivityLabels();
            for (int i = 0; i < own.size(); ++i) {
                if (labels.contains(own[i])) found.push_back(i);
            }
        } else {
            const int perEntity = block.valuesPerEntity();
            merge(entityLabels(), wanted, [&](std::size_t entity) {
                const int first = static_cast<int>(entity) * perEntity;
                for (int k = 0; k < perEntity; ++k) found.push_back(first + k);
            });
        }
        if (!block.indices.isEmpty()) found = intersection(found, yld_Convert::values(block.indices));
        return yld_Convert::sequence(found);
    });
}

yld_Sequence<int> yld_SubField::indicesOfElements(const yld_Sequence<int>& labels) const
{
    return yld_guard([&]() -> yld_Sequence<int> {
        materialize();
        const yld_SubFieldBody& block = body();
        std::vector<int> found;
        if (block.place().isOnNodes()) return {};
        const int perEntity = block.valuesPerEntity();
        const std::vector<int> wanted = yld_Convert::values(labels);
        const std::vector<int> own = entityLabels();
        for (std::size_t entity = 0; entity < own.size(); ++entity) {
            if (std::find(wanted.begin(), wanted.end(), own[entity]) == wanted.end()) continue;
            const int first = static_cast<int>(entity) * perEntity;
            for (int k = 0; k < perEntity; ++k) found.push_back(first + k);
        }
        return yld_Convert::sequence(found);
    });
}

yld_Sequence<int> yld_SubField::indicesOfNodes(const yld_Sequence<int>& labels) const
{
    return yld_guard([&]() -> yld_Sequence<int> {
        materialize();
        const yld_SubFieldBody& block = body();
        const sto_FieldBlock on = block.place();
        sto_Labels own;
        if (on.isOnNodes()) own = on.memberLabels();
        else if (isElementNodal(on)) own = on.connectivityLabels();
        yld_Sequence<int> found;
        for (const int label : labels) {
            const auto first = std::find(own.begin(), own.end(), label);
            if (first != own.end()) found.append(static_cast<int>(first - own.begin()));
        }
        return found;
    });
}

yld_SubField yld_SubField::subsetAt(const yld_Sequence<int>& indices, yld_Enum::yld_ResultPositionEnum position) const
{
    return yld_guard([&]() -> yld_SubField {
        const yld_SubFieldBody& block = body();
        yld_SubField subset;
        if (position == this->position()) {
            if (indices.isEmpty()) return subset;
            subset = *this;
            subset.setIndices(indices);
            return subset;
        }
        yld_SubFieldBody& made = subset.ownBody();
        made.label = block.label;
        made.assembly = block.assembly;
        made.type = block.type;
        if (indices.isEmpty()) return subset;
        yld_FieldSubset taken(block);
        taken.extract(yld_Convert::values(indices), position);
        taken.writeWithTempSet(made, position, block.description.mesh());
        return subset;
    });
}

namespace {

// Which subset of the set that a block was chosen by has as many members as were taken; -1 for none.
int servingSubset(const yld_SubFieldBody& block, std::size_t count)
{
    if (block.subsetSet.IsNull()) return -1;
    const sto_Set& set = block.subsetSet.ConstGet();
    for (int i = 0; i < set.numSubsets(); ++i) {
        const sto_Subset subset = set.subSet(i);
        if (subset.meshIndex() != block.meshIndex || subset.classIndex() != block.elementClass) continue;
        return static_cast<std::size_t>(subset.numMembers()) == count ? i : -1;
    }
    return -1;
}

} // namespace

void yld_SubField::materialize() const
{
    yld_guard([&] {
        if (!m_body || m_body->indices.isEmpty()) return;
        yld_SubFieldBody& block = *m_body;
        const yld_Enum::yld_ResultPositionEnum at = position();
        yld_FieldSubset taken(block);
        taken.extract(yld_Convert::values(block.indices), at);
        const int subset = servingSubset(block, taken.labels().size());
        if (subset >= 0) taken.writeOrphanField(block, at, block.subsetSet.ConstGet(), subset);
        else taken.writeWithTempSet(block, at, block.description.mesh());
        block.indices.clearAll();
    });
}
