#include "yld_FieldOutputRepository.h"

#include "platform/sto/sto_Assembly.h"
#include "platform/sto/sto_Field.h"
#include "platform/sto/sto_FieldFrame.h"
#include "platform/sto/sto_FieldStep.h"
#include "platform/sto/sto_Model.h"
#include "platform/sto/sto_ModelOf.h"
#include "platform/store/fio_File.h"
#include "yld/impl/base/yld_Convert.h"
#include "yld/impl/base/yld_Raise.h"

#include <map>
#include <string>
#include <unordered_set>
#include <vector>

yld_FieldOutputRepository::yld_FieldOutputRepository() = default;

yld_FieldOutputRepository::yld_FieldOutputRepository(const sto_FieldFrame& fieldFrame,
                                                     const shr_ArrayCOW<sto_Assembly>& assembly,
                                                     const sto_FieldStep& fieldStep, int frameNumber)
    : m_fieldFrame(fieldFrame), m_assembly(assembly), m_fieldStep(fieldStep), m_frameNumber(frameNumber)
{
}

yld_FieldOutputRepository::yld_FieldOutputRepository(const yld_FieldOutputRepository&) = default;
yld_FieldOutputRepository& yld_FieldOutputRepository::operator=(const yld_FieldOutputRepository&) = default;
yld_FieldOutputRepository::~yld_FieldOutputRepository() = default;

bool yld_FieldOutputRepository::hasStore() const { return m_fieldFrame.IsValid() && m_fieldFrame.ConstGet().isValid(); }

int yld_FieldOutputRepository::size() const
{
    if (!m_fullyRead) yld_guard([this] { return readAll(); });
    return m_fields->size();
}

bool yld_FieldOutputRepository::isBehindOtherDatabase(const shr_ArrayCOW<sto_Assembly>& assembly)
{
    if (assembly.IsNull() || !assembly.ConstGet().isValid()) return false;
    const std::string& path = assembly.ConstGet().reference().file()->path();
    return path.find(".yls", path.rfind('/') + 1) != std::string::npos;
}

shr_ArrayCOW<sto_Assembly> yld_FieldOutputRepository::assemblyOf(const sto_FieldDescription& description) const
{
    if (!isBehindOtherDatabase(m_assembly)) return m_assembly;
    const std::shared_ptr<const fld_FieldDescription> data = description.data();
    if (data->m_instance.isValid()) {
        const lnk_ShortCut<mshK_Model> model = sto_modelOf(data->m_instance.file());
        if (model.isValid()) return shr_ArrayCOW<sto_Assembly>(sto_Model(model).rootAssembly());
    }
    return shr_ArrayCOW<sto_Assembly>(description.rootAssembly());
}

bool yld_FieldOutputRepository::isMember(const yld_String& name) const
{
    return m_fields->isMember(name) || yld_guard([&] { return readOne(name); });
}

bool yld_FieldOutputRepository::readOne(const yld_String& name) const
{
    if (!hasStore()) return false;
    const std::vector<int> keys = m_fieldFrame.ConstGet().fieldKeys(std::string_view(name.cStr()));
    if (keys.empty()) return false;
    const sto_Field first = m_fieldFrame.ConstGet().field().get(keys.front());
    yld_FieldOutput field(name, assemblyOf(first.fieldDescription()), m_fieldFrame, m_fieldStep, m_frameNumber);
    field.addFieldKeys(yld_Convert::sequence(keys));
    m_fields.Get().insert(name, field);
    return true;
}

yld_FieldOutput& yld_FieldOutputRepository::get(const yld_String& name)
{
    if (!isMember(name)) return m_emptyField;
    return m_fields.Get().get(name);
}

const yld_FieldOutput& yld_FieldOutputRepository::constGet(const yld_String& name) const
{
    if (!isMember(name)) return m_emptyField;
    return m_fields->constGet(name);
}

yld_Sequence<yld_String> yld_FieldOutputRepository::getFieldOutputNames() const
{
    return yld_guard([this] { return readNames(); });
}

yld_Sequence<yld_String> yld_FieldOutputRepository::readNames() const
{
    yld_Sequence<yld_String> names;
    if (!hasStore()) return names;
    std::unordered_set<std::string> known;
    const auto enter = [&](const std::string& name) {
        if (known.insert(name).second) names.append(yld_String(name.c_str()));
    };
    const sto_FieldFrame& frame = m_fieldFrame.ConstGet();
    const std::vector<std::string> stored = frame.fieldNames();
    std::vector<int> keys;
    for (std::size_t i = 0; i < stored.size(); ++i) {
        // Contact variables have a name for each pair of surfaces, which only the description knows.
        if (stored[i] != "CPRESS" && stored[i] != "CSHEAR1" && stored[i] != "CSHEAR2") {
            enter(stored[i]);
            continue;
        }
        if (keys.empty()) keys = frame.fieldKeys();
        enter(frame.field().get(keys[i]).fieldDescription().data()->fieldName());
    }
    return names;
}

void yld_FieldOutputRepository::insert(const yld_FieldOutput& field) { m_fields.Get().insert(field.name(), field); }

bool yld_FieldOutputRepository::update()
{
    return yld_guard([this] { return readAll(); });
}

bool yld_FieldOutputRepository::readAll() const
{
    if (!hasStore()) {
        m_fullyRead = true;
        return false;
    }
    struct Found
    {
        std::vector<int> keys;
        shr_ArrayCOW<sto_Assembly> assembly;
    };
    std::map<std::string, Found> byName;
    const sto_FieldContainer fields = m_fieldFrame.ConstGet().field();
    bool isNew = false;
    for (const int key : m_fieldFrame.ConstGet().fieldKeys()) {
        const sto_FieldDescription description = fields.get(key).fieldDescription();
        const std::shared_ptr<const fld_FieldDescription> data = description.data();
        if (data->type().isQuaternion()) continue;
        const auto [entry, isFirst] = byName.try_emplace(data->fieldName());
        if (isFirst) entry->second.assembly = assemblyOf(description);
        entry->second.keys.push_back(key);
    }
    for (const auto& [text, found] : byName) {
        const yld_String name(text.c_str());
        if (m_fields->isMember(name)) {
            if (m_fields.Get().get(name).addFieldKeys(yld_Convert::sequence(found.keys))) isNew = true;
            continue;
        }
        yld_FieldOutput field(name, found.assembly, m_fieldFrame, m_fieldStep, m_frameNumber);
        field.addFieldKeys(yld_Convert::sequence(found.keys));
        m_fields.Get().insert(name, field);
        isNew = true;
    }
    m_fullyRead = true;
    return isNew;
}
