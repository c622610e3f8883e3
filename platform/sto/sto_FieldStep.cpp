#include "platform/sto/sto_FieldStep.h"

#include "platform/sto/sto_Model.h"
#include "platform/sto/sto_ModelOf.h"
#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"

#include <functional>

namespace {

std::size_t hashOf(const fld_FieldDescription& description)
{
    std::size_t hash = std::hash<std::string>()(description.m_label);
    for (const long long part :
         {static_cast<long long>(description.m_dataType), static_cast<long long>(description.m_position),
          static_cast<long long>(description.m_locationIndex), static_cast<long long>(description.m_classIndex),
          description.m_instance.id(), description.m_set.id()}) {
        hash = hash * 0x9e3779b97f4a7c15u + std::hash<long long>()(part);
    }
    return hash;
}

void fillWidth(fld_FieldDescription& description)
{
    if (description.m_width != 0) return;
    const fld_DataType& type = description.type();
    description.m_width =
        type.kind == fld_DataType::Kind::VECTOR ? static_cast<int>(description.m_componentLabels.size()) : type.width;
}

} // namespace

int sto_FieldStep::numberField() const { return m_step.fetch()->m_nextFieldKey; }

void sto_FieldStep::setNumberField(int next)
{
    m_step.edit([&](fld_FieldStep& step) { step.m_nextFieldKey = next; });
}

sto_FieldDescription sto_FieldStep::Field(fld_FieldDescription description)
{
    fillWidth(description);
    mrp_Container<fld_FieldDescription> descriptions = m_step.fetch()->m_descriptions;
    if (descriptions.isNull()) fio_raise(m_step.file()->path(), "the step has no list of fields; the file is damaged");
    const std::string name = description.keyName();
    const auto created = lnk_ShortCut<fld_FieldDescription>::create(m_step.file(), std::move(description));
    descriptions.append(name, created);
    return sto_FieldDescription(created);
}

sto_FieldDescription sto_FieldStep::find(const fld_FieldDescription& like, bool hasOrientation) const
{
    const mrp_Container<fld_FieldDescription> descriptions = m_step.fetch()->m_descriptions;
    for (const int count = descriptions.size(); m_index->m_indexed < count; ++m_index->m_indexed) {
        const lnk_ShortCut<fld_FieldDescription> entry = descriptions.at(m_index->m_indexed);
        m_index->m_entries.emplace(hashOf(*entry.fetch()), entry);
    }
    fld_FieldDescription probe = like;
    fillWidth(probe);
    const auto [begin, end] = m_index->m_entries.equal_range(hashOf(probe));
    for (auto entry = begin; entry != end; ++entry) {
        if (entry->second.fetch()->isSame(probe, hasOrientation)) return sto_FieldDescription(entry->second);
    }
    return {};
}

sto_FieldDescription sto_FieldStep::field(const fld_FieldDescription& like, bool hasOrientation) const
{
    const sto_FieldDescription found = find(like, hasOrientation);
    if (!found.isValid())
        fio_raise(m_step.file()->path(), "has no description of field \"" + like.m_label + "\" there");
    return found;
}

int sto_FieldStep::numDescriptions() const { return m_step.fetch()->m_descriptions.size(); }

int sto_FieldStep::modelDimension() const
{
    constexpr int inSpace = 3;
    const lnk_ShortCut<mshK_Model> model = sto_modelOf(m_step.file());
    return model.isNull() ? inSpace : sto_Model(model).dimension();
}
