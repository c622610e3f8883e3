#include "yld_FieldOutput.h"

#include "platform/sto/sto_Assembly.h"
#include "platform/sto/sto_Field.h"
#include "platform/sto/sto_FieldContainer.h"
#include "platform/sto/sto_FieldFrame.h"
#include "platform/sto/sto_FieldStep.h"
#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld_EnumMap.h"

#include <algorithm>
#include <initializer_list>
#include <span>

yld_FieldOutput::yld_FieldOutput() = default;

yld_FieldOutput::yld_FieldOutput(const yld_String& name, const yld_String& description, yld_Enum::yld_DataTypeEnum type,
                                 const yld_Sequence<yld_String>& componentLabels,
                                 const yld_Sequence<yld_Enum::yld_InvariantEnum>& validInvariants,
                                 const shr_ArrayCOW<sto_Assembly>& assembly, int frameNumber)
    : m_name(name), m_description(description), m_type(type), m_validInvariants(validInvariants),
      m_componentLabels(componentLabels), m_assembly(assembly), m_frameNumber(frameNumber)
{
}

yld_FieldOutput::yld_FieldOutput(const yld_String& name, const shr_ArrayCOW<sto_Assembly>& assembly,
                                 const shr_COW<sto_FieldFrame>& fieldFrame, const shr_COW<sto_FieldStep>& fieldStep,
                                 int frameNumber)
    : m_name(name), m_type(yld_Enum::SCALAR), m_isOrphan(false), m_assembly(assembly), m_fieldFrame(fieldFrame),
      m_fieldStep(fieldStep), m_frameNumber(frameNumber)
{
}

yld_FieldOutput::yld_FieldOutput(const yld_String& name, const yld_String& description, yld_Enum::yld_DataTypeEnum type,
                                 const yld_Sequence<yld_String>& componentLabels,
                                 const yld_Sequence<yld_Enum::yld_InvariantEnum>& validInvariants,
                                 const shr_ArrayCOW<sto_Assembly>& assembly, const shr_COW<sto_FieldFrame>& fieldFrame,
                                 const shr_COW<sto_FieldStep>& fieldStep, int frameNumber, int rows, int cols,
                                 yld_Enum::yld_DataSubtypeEnum subtype)
    : m_name(name), m_description(description), m_type(type), m_subtype(subtype), m_rows(rows), m_cols(cols),
      m_validInvariants(validInvariants), m_componentLabels(componentLabels), m_isOrphan(false), m_assembly(assembly),
      m_fieldFrame(fieldFrame), m_fieldStep(fieldStep), m_frameNumber(frameNumber)
{
}

yld_FieldOutput::yld_FieldOutput(const yld_FieldOutput& other, const shr_COW<sto_FieldFrame>& fieldFrame,
                                 const shr_COW<sto_FieldStep>& fieldStep, int frameNumber)
    : m_name(other.m_name), m_description(other.m_description), m_type(other.m_type), m_subtype(other.m_subtype),
      m_isComplex(other.m_isComplex), m_hasLocalCoordSystem(other.m_hasLocalCoordSystem), m_rows(other.m_rows),
      m_cols(other.m_cols), m_validInvariants(other.m_validInvariants), m_componentLabels(other.m_componentLabels),
      m_isOrphan(other.m_isOrphan), m_assembly(other.m_assembly), m_fieldFrame(fieldFrame), m_fieldStep(fieldStep),
      m_frameNumber(frameNumber)
{
}

yld_FieldOutput::yld_FieldOutput(const yld_FieldOutput&) = default;
yld_FieldOutput& yld_FieldOutput::operator=(const yld_FieldOutput&) = default;
yld_FieldOutput::~yld_FieldOutput() = default;

yld_Sequence<yld_String> yld_FieldOutput::baseElementTypes() const
{
    yld_Sequence<yld_String> types;
    for (const yld_SubField& block : SubField()) {
        if (block.elementClass() < 0) continue;
        const sto_ElementClass onClass = block.description().elementClass();
        if (!onClass.isValid()) continue;
        const yld_String type(onClass.typeLabel().c_str());
        if (!types.isMember(type)) types.append(type);
    }
    return types;
}

namespace {

yld_SequenceFieldLocation locationsOf(const yld_Sequence<yld_SubField>& blocks)
{
    yld_SequenceFieldLocation locations;
    for (const yld_SubField& block : blocks) {
        if (block.hasDescription()) locations.append(yld_FieldLocation(*block.description().data()));
    }
    return locations;
}

} // namespace

yld_FieldLocation yld_FieldOutput::location(int index) const { return locationsOf(SubField())[index]; }

const yld_SequenceFieldBulkData& yld_FieldOutput::bulkDataBlocks() const
{
    m_bulkData = yld_SequenceFieldBulkData(m_values);
    return m_bulkData;
}

bool yld_FieldOutput::addFieldKeys(const yld_Sequence<int>& keys)
{
    return yld_guard([&] { return appendFieldKeys(keys); });
}

bool yld_FieldOutput::appendFieldKeys(const yld_Sequence<int>& keys)
{
    std::vector<int> known;
    for (const int key : m_fieldKeys) known.push_back(key);
    std::sort(known.begin(), known.end());
    yld_Sequence<int> newKeys;
    for (const int key : keys) {
        if (!std::binary_search(known.begin(), known.end(), key)) newKeys.append(key);
    }
    if (newKeys.isEmpty()) return false;

    const sto_FieldContainer fields = m_fieldFrame.ConstGet().field();
    const sto_Field first = fields.get(newKeys[0]);
    if (m_fieldKeys.isEmpty()) adoptDescription(first);
    m_fieldKeys.append(newKeys);
    widenTensorType(first.fieldDescription());
    m_values.appendSubField(newKeys, fields, m_assembly);
    refreshLocations();
    return true;
}

void yld_FieldOutput::adoptDescription(const sto_Field& field)
{
    const sto_FieldDescription handle = field.fieldDescription();
    const std::shared_ptr<const fld_FieldDescription> description = handle.data();
    m_type = mapDataType(description->dataType());
    m_isComplex = description->m_isPair;
    m_hasLocalCoordSystem = description->m_orientation.isValid();

    m_validInvariants.clearAll();
    for (const int code : description->m_invariants) {
        m_validInvariants.append(mapInvarEnum(static_cast<fld_InvariantEnm>(code)));
    }
    m_componentLabels.clearAll();
    const std::vector<std::string>& labels = description->m_componentLabels;
    for (const std::string& label : labels) m_componentLabels.append(label.c_str());
    for (std::size_t i = 0; i < description->m_labelComponents.size(); ++i) {
        const int component = description->m_labelComponents[i];
        if (i >= labels.size() || component < 0 || component >= m_componentLabels.size()) {
            fio_raise(field.shortCut().file()->path(), "a component label names no component; the file is damaged");
        }
        m_componentLabels.get(component) = labels[i].c_str();
    }
    m_description = description->m_description.c_str();
    if (description->place().isNamedBySurface) {
        const int colon = m_description.find(":");
        if (colon >= 0) m_description.erase(colon);
    }
    if (m_type == yld_Enum::MATRIX) {
        m_rows = description->m_rows;
        m_cols = description->m_cols;
        if (description->m_matrixKind == 1) m_subtype = yld_Enum::SYMMETRIC_MATRIX;
    }
}

namespace {

yld_Sequence<yld_String> labelled(const yld_String& name, std::span<const char* const> endings)
{
    yld_Sequence<yld_String> labels;
    for (const char* ending : endings) {
        yld_String label(name);
        label.append(ending);
        labels.append(label);
    }
    return labels;
}

} // namespace

void yld_FieldOutput::widenTensorType(const sto_FieldDescription& description)
{
    const std::shared_ptr<const fld_FieldDescription> data = description.data();
    if (m_type == mapDataType(data->dataType())) return;
    if (!fld_DataType::shownBy(m_type).isWidened) return;
    m_type = yld_Enum::TENSOR_3D_FULL;
    m_componentLabels = labelled(m_name, fld_DataType::of(fld_DataTypeEnm::TENSOR_3D_FULL).components);

    yld_Sequence<yld_Enum::yld_InvariantEnum> kept;
    for (const yld_Enum::yld_InvariantEnum invariant :
         {yld_Enum::MISES, yld_Enum::TRESCA, yld_Enum::PRESS, yld_Enum::INV3, yld_Enum::MAX_PRINCIPAL,
          yld_Enum::MID_PRINCIPAL, yld_Enum::MIN_PRINCIPAL}) {
        const int code = static_cast<int>(unMapInvarEnum(invariant));
        const std::vector<int>& stored = data->m_invariants;
        if (m_validInvariants.isMember(invariant) && std::find(stored.begin(), stored.end(), code) != stored.end()) {
            kept.append(invariant);
        }
    }
    m_validInvariants = kept;
}

void yld_FieldOutput::narrowTensorType()
{
    const yld_Sequence<yld_SubField>& blocks = SubField();
    if (m_type != yld_Enum::TENSOR_3D_FULL || blocks.isEmpty()) return;
    const yld_Enum::yld_DataTypeEnum first = blocks[0].type();
    for (const yld_SubField& block : blocks) {
        if (block.type() != first) return;
    }
    m_type = first;
}

void yld_FieldOutput::refreshLocations() { m_locations = locationsOf(SubField()); }

void yld_FieldOutput::setDefaultComponents(const yld_Sequence<yld_String>& given)
{
    const fld_DataType& type = fld_DataType::shownBy(m_type);
    std::span<const char* const> endings = type.components;
    if (!type.planarComponents.empty()) {
        constexpr int inSpace = 3;
        const bool isAttached = m_fieldStep.IsValid() && m_fieldStep.ConstGet().isValid();
        if (isAttached && m_fieldStep.ConstGet().modelDimension() != inSpace) endings = type.planarComponents;
    }
    if (endings.empty()) return;
    if (given.isEmpty()) {
        m_componentLabels = labelled(m_name, endings);
        return;
    }
    const int wanted = static_cast<int>(endings.size());
    if (given.size() != wanted) yld_raise("The number of component labels should be %s", wanted);
    m_componentLabels = given;
}

void yld_FieldOutput::checkValidInvariants(yld_Enum::yld_DataTypeEnum type,
                                           const yld_Sequence<yld_Enum::yld_InvariantEnum>& invariants)
{
    const std::span<const fld_InvariantEnm> permitted = fld_DataType::shownBy(type).invariants;
    const auto isPermitted = [permitted](yld_Enum::yld_InvariantEnum invariant) {
        return std::any_of(permitted.begin(), permitted.end(),
                           [invariant](fld_InvariantEnm each) { return mapInvarEnum(each) == invariant; });
    };
    for (const yld_Enum::yld_InvariantEnum invariant : invariants) {
        if (!isPermitted(invariant)) yld_raise("Invalid invariant");
    }
}
