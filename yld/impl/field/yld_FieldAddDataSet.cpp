#include "yld/impl/field/yld_FieldAddDataSet.h"

#include "platform/sto/sto_Field.h"
#include "platform/sto/sto_FieldFrame.h"
#include "platform/sto/sto_FieldStep.h"
#include "platform/store/fio_File.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld/impl/field/yld_FieldAddDataUtils.h"
#include "yld_EnumMap.h"
#include "yld_Set.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <string>

namespace {

// What a load coordinate system is to the store.
constexpr int componentsTurn = 1;
constexpr int valuesStay = 3;

int rowCount(long long count)
{
    if (count > std::numeric_limits<int>::max()) yld_raise("A set has more values than can be counted.");
    return static_cast<int>(count);
}

} // namespace

yld_FieldAddDataSet::yld_FieldAddDataSet(const yld_FieldOutput& field, yld_Enum::yld_ResultPositionEnum position,
                                         const yld_Set& set, const yld_RowArray& data,
                                         const yld_SectionPoint& sectionPoint, const yld_RowArray& conjugate)
    : m_field(field), m_position(position), m_set(set), m_data(data), m_sectionPoint(sectionPoint),
      m_conjugate(conjugate)
{
}

void yld_FieldAddDataSet::run()
{
    m_meshIndex = validate();
    if (m_field.m_fieldFrame.IsNull() || m_field.m_fieldStep.IsNull()) {
        yld_raise("The frame of field \"%s\" is not in a database.", m_field.m_name);
    }
    m_typeCode = static_cast<int>(unMapDataType(m_field.m_type));
    m_place = &fld_OutputPosition::of(unMapOutputPosition(m_position));
    checkPosition(static_cast<int>(m_place->store));
    if (m_place->carrier == fld_OutputPosition::Carrier::NODE) {
        componentMap(m_typeCode, m_field.m_componentLabels);
        checkNodeType(m_typeCode);
        writeNodes(instanceOf(m_meshIndex));
    } else {
        checkElementType(m_typeCode);
        writeElements(instanceOf(m_meshIndex));
    }
}

void yld_FieldAddDataSet::checkSet(int type) const
{
    const yld_String name = m_set.name();
    const fld_OutputPosition* place = fld_OutputPosition::askedBy(m_position);
    switch (type) {
    case setC_Set::nodeSet:
        if (m_position == yld_Enum::NODAL) return;
        yld_raise("Mismatch in setType & position for addData.\nNodeset %s is provided while position is not set to be "
                  "NODAL",
                  name);
    case setC_Set::elementSet:
        switch (place ? place->ofElementSet : fld_OutputPosition::OfElementSet::UNDEFINED) {
        case fld_OutputPosition::OfElementSet::FITTING:
            return;
        case fld_OutputPosition::OfElementSet::MISMATCH:
            yld_raise(
                "Mismatch in setType & position for addData.\nElementSet %s is provided while position is not set "
                "to be one of ELEMENT_NODAL, INTEGRATION_POINT, CENTROID or WHOLE_ELEMENT",
                name);
        case fld_OutputPosition::OfElementSet::UNDEFINED:
            yld_raise("undefined position specified for addData.\nElementSet %s is provided.", name);
        }
        return;
    case 2:
    case 3:
    case 4:
    case 5:
    case 6:
    case 7:
        yld_raise(
            "Error. Invalid setType provided. addData can be called only for nodesets or elementSets. check set %s",
            name);
    default:
        yld_raise(
            "Error. undefined setType provided. addData can be called only for nodesets or elementSets. check set "
            "%s",
            name);
    }
}

void yld_FieldAddDataSet::checkMesh(const sto_Set& set, int& meshIndex) const
{
    const sto_Assembly& assembly = m_field.m_assembly.ConstGet();
    const int ofAssembly = assembly.isValid() && assembly.hasMesh() ? assembly.mesh().meshIndex() : -1;
    meshIndex = set.subSet(0).meshIndex();
    for (int i = 0; i < set.numSubsets(); ++i) {
        const int each = set.subSet(i).meshIndex();
        if (each == ofAssembly) {
            yld_raise("Assembly mesh entities(nodes/elements) in set %s. This is not permitted.", m_set.name());
        }
        if (each != meshIndex) {
            yld_raise("Entities from multiple instances present in set %s. This is not permitted.", m_set.name());
        }
    }
}

int yld_FieldAddDataSet::validate() const
{
    constexpr int unknownType = 7;
    const sto_Set& set = m_set.set();
    // Of a database that is closed a set tells nothing but that.
    const bool isOpen = set.isValid() && set.shortCut().file()->isOpen();
    int meshIndex = -1;
    if (!set.isValid() || isOpen) {
        checkSet(set.isValid() ? set.setType() : unknownType);
        if (set.numSubsets() == 0) yld_raise("No valid subsets in set %s", m_set.name());
        checkMesh(set, meshIndex);
    }
    if (!isOpen) yld_raise("Specified yldSet %s is not associated with a valid output database", m_set.name());
    const auto& ofAssembly = m_field.m_assembly.ConstGet().modelFile();
    if (set.shortCut().file() != ofAssembly) {
        yld_raise(
            "Specified yldSet %s belongs to YLD : %s, while AddData is attempted on YLD : %s. This is not permitted.",
            m_set.name(), set.shortCut().file()->path().c_str(), ofAssembly->path().c_str());
    }
    return meshIndex;
}

void yld_FieldAddDataSet::checkPosition(int positionCode)
{
    const fld_OutputPosition& place = fld_OutputPosition::of(positionCode);
    switch (place.bySet) {
    case fld_OutputPosition::BySet::WRITTEN:
        return;
    case fld_OutputPosition::BySet::NOT_YET:
        yld_raise("AddData is not yet implemented for position : %s", place.wordBySet);
    case fld_OutputPosition::BySet::INVALID:
        yld_raise("Invalid output position type specified for AddData");
    case fld_OutputPosition::BySet::UNDEFINED:
        yld_raise("Undefined output position type specified for AddData");
    }
}

void yld_FieldAddDataSet::checkNodeType(int typeCode)
{
    const fld_DataType& type = fld_DataType::of(typeCode);
    if (type.isWrittenByNodeSet) return;
    if (type.isOfStore) {
        yld_raise("Invalid dataType for writing data at Nodes. Permitted datatypes are SCALAR and VECTOR.");
    }
    yld_raise("Undefined dataType for writing data at Nodes. Permitted datatypes are SCALAR and VECTOR.");
}

void yld_FieldAddDataSet::checkElementType(int typeCode)
{
    const fld_DataType& type = fld_DataType::of(typeCode);
    if (type.isWrittenByElementSet) return;
    if (type.isOfStore) {
        yld_raise("Invalid dataType for writing element data. Permitted datatypes are SCALAR and VECTOR and TENSOR.");
    }
    yld_raise("Undefined dataType for writing element data. Permitted datatypes are SCALAR and VECTOR and TENSOR.");
}

std::vector<int> yld_FieldAddDataSet::componentMap(int typeCode, const yld_Sequence<yld_String>& labels)
{
    const fld_DataType& type = fld_DataType::of(typeCode);
    if (!type.isOfStore) {
        yld_raise("Undefined dataType specified in AddData. Permitted datatypes are SCALAR,VECTOR and TENSOR Types.");
    }
    if (type.labelsBySet == fld_DataType::refused) {
        yld_raise("Invalid dataType specified in AddData. Permitted datatypes are SCALAR,VECTOR and TENSOR Types.");
    }
    // A vector may have two labels, or none.
    const int count = std::min(type.labelsBySet, labels.size());
    std::vector<int> components;
    for (int i = 0; i < count; ++i) {
        for (int before = 0; before < i; ++before) {
            if (labels[before] == labels[i]) {
                yld_raise("**Error in setting components of the field in addData. Report to Zantra,Inc.");
            }
        }
        components.push_back(i);
    }
    return components;
}

std::vector<int> yld_FieldAddDataSet::invariantCodes(const yld_Sequence<yld_Enum::yld_InvariantEnum>& invariants)
{
    std::vector<int> codes;
    for (const yld_Enum::yld_InvariantEnum invariant : invariants) {
        if (static_cast<int>(invariant) == 0) break;
        if (invariant != yld_Enum::MIN_PRINCIPAL) codes.push_back(static_cast<int>(unMapInvarEnum(invariant)));
    }
    return codes;
}

sto_PartInstance yld_FieldAddDataSet::instanceOf(int meshIndex) const
{
    const sto_Assembly& assembly = m_field.m_assembly.ConstGet();
    for (int i = 0; i < assembly.numInstances(); ++i) {
        const sto_PartInstance instance = assembly.instance(i);
        if (instance.mesh().meshIndex() == meshIndex) return instance;
    }
    yld_raise("Internal Error during AddData. Cannot find instance object for meshindex = %d. Report to Zantra,Inc.",
              meshIndex);
}

sto_FieldDescriptionBuilder yld_FieldAddDataSet::describe(const sto_PartInstance& instance, int sectionIndex) const
{
    sto_FieldDescriptionBuilder wanted = yld_FieldAddDataUtils::describe(m_field);
    wanted.components(wanted.made().m_componentLabels, componentMap(m_typeCode, m_field.m_componentLabels));
    wanted.invariants(invariantCodes(m_field.m_validInvariants));
    wanted.at(m_place->store, sectionIndex);
    wanted.on(instance);
    wanted.pair(m_conjugate.size() > 0);
    return wanted;
}

void yld_FieldAddDataSet::writeNodes(const sto_PartInstance& instance)
{
    sto_FieldDescriptionBuilder wanted = describe(instance, -1);
    const bool isVector = wanted.made().type().kind == fld_DataType::Kind::VECTOR;
    wanted.loadCoordSystem(isVector ? componentsTurn : valuesStay);
    const int length = m_set.set().numMembers();
    wanted.of(m_set.set(), -1, length);
    write(wanted, 0, length);
}

void yld_FieldAddDataSet::writeElements(const sto_PartInstance& instance)
{
    const int sectionIndex = m_sectionPoint.number() >= 0 ? m_sectionPoint.number() - 1 : -1;
    const sto_Set& set = m_set.set();
    const sto_Mesh mesh = instance.mesh();
    int offset = 0;
    for (int i = 0; i < set.numSubsets(); ++i) {
        sto_FieldDescriptionBuilder wanted = describe(instance, sectionIndex);
        const sto_Subset members = set.subSet(i);
        if (members.meshIndex() != m_meshIndex) {
            yld_raise("Mismatch in mesh Indices. Expected index %d, subset mesh index = %d", m_meshIndex,
                      members.meshIndex());
        }
        const sto_ElementClass onClass = mesh.elementData().elementClass(members.classIndex());
        const fld_DataType& type = wanted.made().type();
        wanted.loadCoordSystem(type.kind == fld_DataType::Kind::SCALAR ? valuesStay : componentsTurn);
        wanted.engineeringTensor(type.isTensor());
        const int rows = rowCount(static_cast<long long>(members.numMembers()) *
                                  sto_FieldBlock::rowsPerMember(*m_place, set.setType(), onClass));
        wanted.of(set, members.classIndex(), rows);
        const int end = rowCount(static_cast<long long>(offset) + rows);
        write(wanted, offset, end);
        offset = end;
    }
}

void yld_FieldAddDataSet::copyRows(const fld_FieldDescription& description, int first, int end,
                                   const yld_RowArray& data, const yld_RowArray& conjugate, float* holder,
                                   float* conjugateHolder)
{
    const int width = description.m_width;
    if (end - first != description.m_length) {
        yld_raise(
            "Error while computing offsets for data.\n Expecting to fill %d rows of data. Computed indices = %d rows. "
            "Report to ZANTRA,Inc.",
            description.m_length, end - first);
    }
    if (end > data.size()) {
        yld_raise("Expecting at least %d rows of data. Input data has %d rows.Please check input data", end,
                  data.size());
    }
    if (conjugate.size() > 0 && end > conjugate.size()) {
        yld_raise("Expecting at least %d rows of conjugate data. Input data has %d rows.Please check input data", end,
                  conjugate.size());
    }
    for (int row = first; row < end; ++row) {
        if (data.width(row) > width) {
            yld_raise("**ERROR in input data array.\nInvalid width of data in row %d. Expected max width = %d, current "
                      "data Width = %d",
                      row, width, data.width(row));
        }
        std::copy_n(data.row(row), data.width(row), holder + static_cast<std::ptrdiff_t>(row - first) * width);
    }
    for (int row = first; row < end && conjugate.size() > 0; ++row) {
        if (conjugate.width(row) > width) {
            yld_raise(
                "**ERROR in input data array.\nInvalid width of conjugate data in row %d.Expected max width = %d, "
                "current data Width = %d",
                row, width, conjugate.width(row));
        }
        std::copy_n(conjugate.row(row), conjugate.width(row),
                    conjugateHolder + static_cast<std::ptrdiff_t>(row - first) * width);
    }
}

void yld_FieldAddDataSet::write(const sto_FieldDescriptionBuilder& wanted, int first, int end)
{
    sto_FieldStep step = m_field.m_fieldStep.ConstGet();
    sto_FieldFrame frame = m_field.m_fieldFrame.ConstGet();
    sto_FieldDescription description = step.find(wanted.made(), false);
    // The frame may have data of this description already: these are written over.
    sto_Field present = description.isValid() ? frame.find(description) : sto_Field();
    if (present.isValid() && present.storageType() != 0) present = sto_Field();
    const fld_FieldDescription shape = description.isValid() ? *description.data() : wanted.made();
    const std::size_t bytes =
        static_cast<std::size_t>(shape.m_length) * static_cast<std::size_t>(shape.m_width) * sizeof(float);
    const auto holderFor = [&](bool isConjugate) {
        fio_Buffer holder(bytes);
        if (bytes == 0) return holder;
        const sto_FieldView<float> old = present.isValid() ? present.view<float>() : sto_FieldView<float>();
        const float* from = isConjugate ? old.conjugate() : old.data();
        if (from) std::memcpy(holder.writable(), from, bytes);
        else std::memset(holder.writable(), 0, bytes);
        return holder;
    };
    fio_Buffer values = holderFor(false);
    fio_Buffer conjugate = m_conjugate.size() > 0 ? holderFor(true) : fio_Buffer();
    copyRows(shape, first, end, m_data, m_conjugate, reinterpret_cast<float*>(values.writable()),
             reinterpret_cast<float*>(conjugate.writable()));
    if (present.isValid()) {
        frame.Replace(present, values, conjugate);
        return;
    }
    const int key = step.numberField();
    if (!description.isValid()) description = wanted.enter(step, key);
    frame.Field(description, key, values, conjugate, sto_Field());
    step.setNumberField(key + 1);
}
