#include "platform/sto/sto_HistoryStep.h"

#include "platform/result/fld_Series.h"
#include "platform/sto/sto_Model.h"
#include "platform/sto/sto_ModelOf.h"
#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"

sto_HistoryClock sto_HistoryStep::Clock() const
{
    const auto& file = m_step.file();
    mrp_Container<fld_Series> times = m_step.fetch()->m_times;
    if (times.isNull()) fio_raise(file->path(), "the step has no list of times; the file is damaged");
    if (times.isEmpty()) {
        fld_Series series;
        series.m_storageType = 1;
        times.append("0", lnk_ShortCut<fld_Series>::create(file, std::move(series)));
    }
    fld_HistoryClock clock;
    clock.m_step = m_step;
    clock.m_times = times.at(0);
    return sto_HistoryClock(lnk_ShortCut<fld_HistoryClock>::create(file, std::move(clock)));
}

sto_History sto_HistoryStep::History(fld_History curve, const sto_HistoryClock& clock, int columns) const
{
    const auto& file = m_step.file();
    mrp_Container<fld_History> histories = m_step.fetch()->m_histories;
    if (histories.isNull()) fio_raise(file->path(), "the step has no list of curves; the file is damaged");
    fld_Series values;
    values.m_storageType = curve.m_storageType;
    values.m_columns = columns;
    curve.m_clock = clock.shortCut();
    curve.m_values = lnk_ShortCut<fld_Series>::create(file, std::move(values));
    const std::string label = curve.m_label;
    const auto made = lnk_ShortCut<fld_History>::create(file, std::move(curve));
    histories.append(label, made);
    return sto_History(made);
}

sto_Assembly sto_HistoryStep::assembly() const
{
    const lnk_ShortCut<mshK_Model> model = sto_modelOf(m_step.file());
    return model.isValid() ? sto_Model(model).rootAssembly() : sto_Assembly();
}

fld_History sto_HistoryStep::describe(fld_OutputPositionEnm position, const sto_PartInstance& instance,
                                      const shr_String& label, const shr_String& description) const
{
    fld_History curve;
    curve.m_type = static_cast<int>(position);
    curve.m_label = label.cStr();
    curve.m_description = description.cStr();
    curve.m_instance = instance.shortCut();
    curve.m_assembly = assembly().shortCut();
    return curve;
}

void sto_HistoryStep::setElement(fld_History& curve, const sto_ElementClass& elementClass, int elementLabel) const
{
    curve.m_classIndex = elementClass.classIndex();
    curve.m_elementNumber = elementClass.GetElementIndexFromLabel(elementLabel);
    if (curve.m_elementNumber < 0) {
        fio_raise(m_step.file()->path(),
                  "there is no element " + std::to_string(elementLabel) + " to make a curve for");
    }
}

sto_HistoryFloat sto_HistoryStep::FloatHistory(const sto_HistoryClock& clock, fld_OutputPositionEnm position,
                                               const shr_String& label, const shr_String& description) const
{
    return sto_HistoryFloat(History(describe(position, sto_PartInstance(), label, description), clock));
}

sto_HistoryFloat sto_HistoryStep::FloatHistory(const sto_HistoryClock& clock, fld_OutputPositionEnm position,
                                               const sto_PartInstance& instance, const shr_String& label,
                                               const shr_String& description, int nodeLabel, const sto_Set& set) const
{
    fld_History curve = describe(position, instance, label, description);
    const sto_Mesh mesh = instance.isValid() ? instance.mesh() : assembly().mesh();
    curve.m_nodeNumber = mesh.nodeData().GetNodeIndexFromLabel(nodeLabel);
    if (curve.m_nodeNumber < 0) {
        fio_raise(m_step.file()->path(), "there is no node " + std::to_string(nodeLabel) + " to make a curve for");
    }
    curve.m_set = set.shortCut();
    return sto_HistoryFloat(History(std::move(curve), clock));
}

sto_HistoryFloat sto_HistoryStep::FloatHistory(const sto_HistoryClock& clock, fld_OutputPositionEnm position,
                                               int integrationPoint, const sto_PartInstance& instance,
                                               const sto_ElementClass& elementClass, const shr_String& label,
                                               const shr_String& description, int sectionPoint, const sto_Set& set,
                                               int elementLabel) const
{
    fld_History curve = describe(position, instance, label, description);
    setElement(curve, elementClass, elementLabel);
    curve.m_integrationPoint = integrationPoint;
    curve.m_locationIndex = sectionPoint < elementClass.numLocation() ? sectionPoint : -1;
    curve.m_set = set.shortCut();
    return sto_HistoryFloat(History(std::move(curve), clock));
}

sto_HistoryFloat sto_HistoryStep::FloatHistory(const sto_HistoryClock& clock, fld_OutputPositionEnm position,
                                               const sto_PartInstance& instance, const sto_ElementClass& elementClass,
                                               const shr_String& label, const shr_String& description, int elementLabel,
                                               const sto_Set& set) const
{
    fld_History curve = describe(position, instance, label, description);
    setElement(curve, elementClass, elementLabel);
    curve.m_set = set.shortCut();
    return sto_HistoryFloat(History(std::move(curve), clock));
}

sto_HistoryFloat sto_HistoryStep::FloatHistory(const sto_HistoryClock& clock, fld_OutputPositionEnm position,
                                               const sto_PartInstance& instance, const shr_String& label,
                                               const shr_String& description, const sto_Set& region) const
{
    fld_History curve = describe(position, instance, label, description);
    curve.m_set = region.shortCut();
    return sto_HistoryFloat(History(std::move(curve), clock));
}
