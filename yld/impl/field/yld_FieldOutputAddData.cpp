#include "yld_FieldOutput.h"

#include "platform/sto/sto_Assembly.h"
#include "platform/sto/sto_Field.h"
#include "platform/sto/sto_FieldFrame.h"
#include "platform/sto/sto_FieldStep.h"
#include "yld/impl/base/yld_Convert.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld/impl/field/yld_FieldAddDataSet.h"
#include "yld/impl/field/yld_FieldAddDataUtils.h"
#include "yld/impl/field/yld_FieldCopy.h"
#include "yld_Instance.h"
#include "yld_Set.h"

#include <algorithm>
#include <string>

namespace {

// The stored instance of that name; none for values that belong to the whole model.
sto_PartInstance storedInstance(const shr_ArrayCOW<sto_Assembly>& assembly, yld_Enum::yld_ResultPositionEnum position,
                                const yld_Instance& instance)
{
    const fld_OutputPosition* place = fld_OutputPosition::askedBy(position);
    if (place && place->carrier == fld_OutputPosition::Carrier::MODEL) return {};
    const std::string name = instance.name().cStr();
    return yld_guard([&] {
        if (assembly.IsNull() || !assembly.ConstGet().isValid() || !assembly.ConstGet().hasInstance(name)) {
            yld_raise("Instance \"%s\" does not exists in this yld.", instance.name());
        }
        return assembly.ConstGet().instance(name);
    });
}

} // namespace

void yld_FieldOutput::checkAttached() const
{
    if (m_isOrphan) yld_raise("addData() not valid for an orphaned object.");
}

void yld_FieldOutput::addData(yld_Enum::yld_ResultPositionEnum position, const yld_Instance& instance,
                              const yld_Sequence<int>& labels, const yld_Sequence<yld_Sequence<float>>& data,
                              const yld_SectionPoint& sectionPoint,
                              const yld_Sequence<yld_Sequence<float>>& localCoordSystem,
                              const yld_Sequence<yld_Sequence<float>>& conjugateData)
{
    yld_Sequence<yld_Sequence<yld_Sequence<float>>> systems;
    if (!localCoordSystem.isEmpty()) systems.append(localCoordSystem);
    addData(position, instance, labels, data, sectionPoint, systems, conjugateData);
}

void yld_FieldOutput::addData(yld_Enum::yld_ResultPositionEnum position, const yld_Instance& instance,
                              const yld_Sequence<int>& labels, const yld_Sequence<yld_Sequence<float>>& data,
                              const yld_SectionPoint& sectionPoint,
                              const yld_Sequence<yld_Sequence<yld_Sequence<float>>>& localCoordSystems,
                              const yld_Sequence<yld_Sequence<float>>& conjugateData)
{
    checkAttached();
    addData(position, storedInstance(m_assembly, position, instance), labels, data, sectionPoint, localCoordSystems,
            conjugateData);
}

void yld_FieldOutput::addData(yld_Enum::yld_ResultPositionEnum position, const sto_PartInstance& instance,
                              const yld_Sequence<int>& labels, const yld_Sequence<yld_Sequence<float>>& data,
                              const yld_SectionPoint& sectionPoint,
                              const yld_Sequence<yld_Sequence<yld_Sequence<float>>>& localCoordSystems,
                              const yld_Sequence<yld_Sequence<float>>& conjugateData)
{
    checkAttached();
    const int count = labels.size();
    int length = 0;
    const int* first = count > 0 ? labels.run(0, length) : nullptr;
    std::vector<int> gathered;
    if (length < count) {
        gathered = yld_Convert::values(labels);
        first = gathered.data();
    }
    const yld_RowArray rows(data);
    const yld_RowArray conjugateRows(conjugateData);
    const yld_SystemArray systems(localCoordSystems);
    yld_guard([&] {
        yld_FieldAddDataUtils(*this, position, instance, first, count, rows, sectionPoint, systems, conjugateRows)
            .run();
    });
}

void yld_FieldOutput::addData(yld_Enum::yld_ResultPositionEnum position, const yld_Set& set,
                              const yld_Sequence<yld_Sequence<float>>& data, const yld_SectionPoint& sectionPoint,
                              const yld_Sequence<yld_Sequence<float>>& conjugateData)
{
    checkAttached();
    const yld_RowArray rows(data);
    const yld_RowArray conjugateRows(conjugateData);
    yld_guard([&] { yld_FieldAddDataSet(*this, position, set, rows, sectionPoint, conjugateRows).run(); });
}

void yld_FieldOutput::addData(yld_FieldOutput& field)
{
    checkAttached();
    yld_guard([&] { yld_FieldCopy(*this, field).run(); });
}

void yld_FieldOutput::addRows(yld_Enum::yld_ResultPositionEnum position, const yld_Instance& instance,
                              const int* labels, int numLabels, const yld_RowArray& rows,
                              const yld_RowArray& conjugateRows, int numRows, int width,
                              const yld_SectionPoint& sectionPoint, const float* localCoordSystems, int numSystems)
{
    checkAttached();
    const sto_PartInstance stored = storedInstance(m_assembly, position, instance);
    if (numLabels < 0 || numRows < 0 || width < 0 || numSystems < 0)
        yld_raise("addBulkData() takes no negative count.");
    const yld_SystemArray systems =
        localCoordSystems ? yld_SystemArray(localCoordSystems, numSystems) : yld_SystemArray();
    yld_guard([&] {
        yld_FieldAddDataUtils(*this, position, stored, labels, numLabels, rows, sectionPoint, systems, conjugateRows)
            .run();
    });
}

void yld_FieldOutput::addBulkData(yld_Enum::yld_ResultPositionEnum position, const yld_Instance& instance,
                                  const int* labels, int numLabels, const float* data, int numRows, int width,
                                  const yld_SectionPoint& sectionPoint, const float* conjugateData,
                                  const float* localCoordSystems, int numSystems)
{
    addRows(position, instance, labels, numLabels, yld_RowArray(data, numRows, width),
            conjugateData ? yld_RowArray(conjugateData, numRows, width) : yld_RowArray(), numRows, width, sectionPoint,
            localCoordSystems, numSystems);
}

void yld_FieldOutput::addBulkData(yld_Enum::yld_ResultPositionEnum position, const yld_Instance& instance,
                                  const int* labels, int numLabels, const double* data, int numRows, int width,
                                  const yld_SectionPoint& sectionPoint, const double* conjugateData,
                                  const float* localCoordSystems, int numSystems)
{
    addRows(position, instance, labels, numLabels, yld_RowArray(data, numRows, width),
            conjugateData ? yld_RowArray(conjugateData, numRows, width) : yld_RowArray(), numRows, width, sectionPoint,
            localCoordSystems, numSystems);
}
