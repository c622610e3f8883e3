#include "yld_Frame.h"

#include "platform/sto/sto_Assembly.h"
#include "platform/sto/sto_Field.h"
#include "platform/sto/sto_FieldFrame.h"
#include "platform/sto/sto_FieldStep.h"
#include "platform/sto/sto_Frame.h"
#include "platform/sto/sto_Model.h"
#include "platform/sto/sto_ModelOf.h"
#include "platform/sto/sto_Step.h"
#include "platform/store/fio_File.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld/impl/field/yld_FieldCopy.h"
#include "yld_Step.h"

#include <cstdlib>
#include <cstring>
#include <map>
#include <string>
#include <unordered_set>

namespace {

yld_Sequence<int> sequenceOf(const std::vector<int>& keys)
{
    return yld_Sequence<int>(keys.data(), static_cast<int>(keys.size()));
}

// A frame of a file of this kind is about another database, whose own assembly counts.
bool isBehindOtherDatabase(const shr_ArrayCOW<sto_Assembly>& assembly)
{
    if (assembly.IsNull() || !assembly.ConstGet().isValid()) return false;
    const std::string& path = assembly.ConstGet().reference().file()->path();
    return path.find(".yls", path.rfind('/') + 1) != std::string::npos;
}

bool isQuaternion(fld_DataTypeEnm type)
{
    return type == fld_DataTypeEnm::QUATERNION_2D || type == fld_DataTypeEnm::QUATERNION_3D;
}

} // namespace

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
    field.addFieldKeys(sequenceOf(keys));
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
        if (isQuaternion(data->dataType())) continue;
        const auto [entry, isFirst] = byName.try_emplace(data->fieldName());
        if (isFirst) entry->second.assembly = assemblyOf(description);
        entry->second.keys.push_back(key);
    }
    for (const auto& [text, found] : byName) {
        const yld_String name(text.c_str());
        if (m_fields->isMember(name)) {
            if (m_fields.Get().get(name).addFieldKeys(sequenceOf(found.keys))) isNew = true;
            continue;
        }
        yld_FieldOutput field(name, found.assembly, m_fieldFrame, m_fieldStep, m_frameNumber);
        field.addFieldKeys(sequenceOf(found.keys));
        m_fields.Get().insert(name, field);
        isNew = true;
    }
    m_fullyRead = true;
    return isNew;
}

yld_Frame::yld_Frame() = default;

yld_Frame::yld_Frame(int index, const shr_COW<sto_Frame>& frame, const shr_ArrayCOW<sto_Assembly>& assembly,
                     yld_Enum::yld_DomainEnum domain, const yld_Step& step, const yld_LoadCase& loadCase)
    : yld_Frame(index, frame, assembly, domain, shr_CountedHld<yld_Step>(step.withoutFrames()), loadCase)
{
}

yld_Frame::yld_Frame(int index, const shr_COW<sto_Frame>& frame, const shr_ArrayCOW<sto_Assembly>& assembly,
                     yld_Enum::yld_DomainEnum domain, const shr_CountedHld<yld_Step>& step,
                     const yld_LoadCase& loadCase)
    : m_frameIndex(index), m_domain(domain), m_frame(frame), m_assembly(assembly), m_step(step), m_loadCase(loadCase)
{
    bindFields();
}

yld_Frame::yld_Frame(const yld_Frame&) = default;
yld_Frame& yld_Frame::operator=(const yld_Frame&) = default;
yld_Frame::~yld_Frame() = default;

void yld_Frame::bindFields()
{
    if (m_frame.IsNull() || !m_frame.ConstGet().isValid() || !m_frame.ConstGet().hasField()) return;
    if (m_step.IsNull() || m_step->step().IsNull() || !m_step->step()->hasField()) return;
    m_fieldOutputs = yld_FieldOutputRepository(m_frame.ConstGet().fieldFrame(), m_assembly, m_step->step()->fieldStep(),
                                               m_frameIndex);
}

int yld_Frame::incrementNumber() const { return m_frame.IsValid() ? m_frame.ConstGet().incrementNumber() : 0; }

double yld_Frame::frameValue() const
{
    return m_frame.IsValid() ? static_cast<double>(m_frame.ConstGet().time()) : 0.0;
}

yld_String yld_Frame::description() const
{
    return m_frame.IsValid() ? yld_String(m_frame.ConstGet().frameLabel()) : yld_String();
}

bool yld_Frame::isImaginary() const { return m_frame.IsValid() && m_frame.ConstGet().isImaginary(); }

bool yld_Frame::hasAssociatedFrame() const { return m_frame.IsValid() && m_frame.ConstGet().hasAssociation(); }

int yld_Frame::cyclicModeNumber() const
{
    return m_frame.IsValid() && m_frame.ConstGet().hasModeNumber() ? m_frame.ConstGet().getModeNumber() : -1;
}

int yld_Frame::mode() const
{
    if (m_domain != yld_Enum::MODAL) return 0;
    constexpr const char* word = "Mode";
    const yld_String text = description();
    const int place = text.find(word);
    if (place >= 0) return std::atoi(text.cStr() + place + std::strlen(word));
    return hasAssociatedFrame() ? m_frame.ConstGet().getModeNumber() : incrementNumber();
}

double yld_Frame::frequency() const
{
    if (m_domain == yld_Enum::FREQUENCY) return frameValue();
    if (m_domain != yld_Enum::MODAL) return 0.0;
    constexpr const char* word = "Freq =";
    const yld_String text = description();
    const int place = text.find(word);
    return place >= 0 ? std::atof(text.cStr() + place + std::strlen(word)) : frameValue();
}

yld_Frame yld_Frame::associatedFrame() const
{
    if (!hasAssociatedFrame() || m_step.IsNull()) return {};
    // A pair stands side by side, the real half first.
    if (isImaginary()) {
        if (m_step->m_frames.size() == 0) m_step->m_frames = yld_SequenceFrame(*m_step);
        return m_step->frames(m_frameIndex - 1);
    }
    m_step->m_frames = yld_SequenceFrame(*m_step);
    return m_step->frames(m_frameIndex + 1);
}

bool yld_Frame::update() { return m_fieldOutputs.update(); }

yld_FieldOutput& yld_Frame::addField(const yld_String& name, const yld_String& description,
                                     yld_Enum::yld_DataTypeEnum type, const yld_Sequence<yld_String>& componentLabels,
                                     const yld_Sequence<yld_Enum::yld_InvariantEnum>& validInvariants, int rows,
                                     int cols, yld_Enum::yld_DataSubtypeEnum subtype)
{
    const yld_FieldOutput field(name, description, type, componentLabels, validInvariants, m_assembly,
                                m_fieldOutputs.fieldFrame(), m_fieldOutputs.fieldStep(), m_frameIndex, rows, cols,
                                subtype);
    m_fieldOutputs.insert(field);
    return m_fieldOutputs.get(name);
}

yld_FieldOutput& yld_Frame::FieldOutput(const yld_String& name, const yld_String& description,
                                        const yld_Enum::yld_DataTypeEnum& type,
                                        const yld_Sequence<yld_String>& componentLabels,
                                        const yld_Sequence<yld_Enum::yld_InvariantEnum>& validInvariants)
{
    if (m_fieldOutputs.isMember(name)) yld_raise("A field named '%s' already exists.", name);
    yld_FieldOutput::checkValidInvariants(type, validInvariants);
    yld_Sequence<yld_Enum::yld_InvariantEnum> invariants(validInvariants);
    if (invariants.isMember(yld_Enum::MISES) && !invariants.isMember(yld_Enum::PRESS)) {
        invariants.append(yld_Enum::PRESS);
    }
    yld_FieldOutput field(name, description, type, componentLabels, invariants, m_assembly, m_fieldOutputs.fieldFrame(),
                          m_fieldOutputs.fieldStep(), m_frameIndex, 0, 1, yld_Enum::UNDEFINED_DATASUBTYPE);
    field.setDefaultComponents(componentLabels);
    m_fieldOutputs.insert(field);
    return m_fieldOutputs.get(name);
}

yld_FieldOutput& yld_Frame::FieldOutput(yld_FieldOutput& source, const yld_String& name, const yld_String& description)
{
    const bool isRenamed = !name.empty();
    const yld_String ownName = isRenamed ? name : source.name();
    if (m_fieldOutputs.isMember(ownName)) yld_raise("A field named '%s' already exists.", ownName);
    yld_FieldOutput field(source, m_fieldOutputs.fieldFrame(), m_fieldOutputs.fieldStep(), m_frameIndex);
    field.setName(ownName);
    field.setDescription(isRenamed ? description : source.description());
    if (!isBehindOtherDatabase(m_assembly)) field.m_assembly = m_assembly;
    yld_guard([&] { yld_FieldCopy(field, source).run(); });
    m_fieldOutputs.insert(field);
    return m_fieldOutputs.get(ownName);
}

yld_FieldOutput& yld_Frame::VectorOutput(const yld_String& name, const yld_String& description, int size)
{
    if (m_fieldOutputs.isMember(name)) yld_raise("A field named '%s' already exists.", name);
    return addField(name, description, yld_Enum::VECTOR, {}, {}, size, 1, yld_Enum::UNDEFINED_DATASUBTYPE);
}

yld_FieldOutput& yld_Frame::MatrixOutput(const yld_String& name, const yld_String& description, int rows, int cols)
{
    if (m_fieldOutputs.isMember(name)) yld_raise("A field named '%s' already exists.", name);
    return addField(name, description, yld_Enum::MATRIX, {}, {}, rows, cols, yld_Enum::UNDEFINED_DATASUBTYPE);
}

yld_FieldOutput& yld_Frame::SymmetricMatrixOutput(const yld_String& name, const yld_String& description, int size)
{
    if (m_fieldOutputs.isMember(name)) yld_raise("A field named '%s' already exists.", name);
    return addField(name, description, yld_Enum::MATRIX, {}, {}, size, size, yld_Enum::SYMMETRIC_MATRIX);
}
