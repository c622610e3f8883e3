#include "yld_HistoryRegionPers.h"

#include "platform/sto/sto_HistoryStep.h"
#include "yld/impl/yld_MeshInput.h"
#include "yld/impl/yld_Raise.h"
#include "yld_EnumMap.h"
#include "yld_Instance.h"
#include "yld_Set.h"

namespace {

// Numbers of clients count from 1, those of the store from 0; none is 0 to both.
int fromZero(int number) { return number > 0 ? number - 1 : 0; }

} // namespace

yld_HistoryRegionPers::yld_HistoryRegionPers() = default;

yld_HistoryRegionPers::yld_HistoryRegionPers(const yld_String& name, const yld_String& description,
                                             const yld_HistoryPoint& point, const sto_HistoryStep& historyStep)
    : yld_HistoryRegion(name, description, point, yld_Repository<yld_String, yld_HistoryOutput>(), yld_LoadCase()),
      m_historyStep(new sto_HistoryStep(historyStep))
{
}

yld_HistoryRegionPers::yld_HistoryRegionPers(const yld_HistoryRegionPers&) = default;
yld_HistoryRegionPers& yld_HistoryRegionPers::operator=(const yld_HistoryRegionPers&) = default;
yld_HistoryRegionPers::~yld_HistoryRegionPers() = default;

const sto_Set& yld_HistoryRegionPers::nodeResults(const sto_PartInstance& instance) const
{
    sto_Set& set = resultsSet();
    if (set.isValid()) return set;
    const std::string name = yld_MeshInput::text(historyPoint().shortText()) + " results_nset";
    const int label = historyPoint().node().label();
    if (instance.isValid()) {
        // Another region at the node, or an earlier run, may have made it.
        set = instance.mesh().nset(name);
        if (!set.isValid()) set = sto_PartInstance(instance).Nset(name, &label, 1, true, false);
    } else {
        sto_Assembly assembly = m_historyStep->assembly();
        set = assembly.set().find(setC_Set::nodeSet, name);
        if (!set.isValid()) set = assembly.Nset(name, {{std::string(), {label}}}, true, false);
    }
    return set;
}

const sto_Set& yld_HistoryRegionPers::elementResults(const sto_PartInstance& instance) const
{
    sto_Set& set = resultsSet();
    if (set.isValid()) return set;
    const std::string name = yld_MeshInput::text(historyPoint().shortText()) + " results_elset";
    const int label = historyPoint().element().label();
    if (instance.isValid()) {
        set = instance.mesh().elset(name);
        if (!set.isValid()) set = sto_PartInstance(instance).Elset(name, &label, 1, true);
    } else {
        sto_Assembly assembly = m_historyStep->assembly();
        set = assembly.set().find(setC_Set::elementSet, name);
        if (!set.isValid()) set = assembly.Elset(name, {{std::string(), {label}}}, true);
    }
    return set;
}

yld_HistoryOutput& yld_HistoryRegionPers::HistoryOutput(const yld_String& name, const yld_String& description,
                                                        yld_Enum::yld_DataTypeEnum type)
{
    if (type != yld_Enum::SCALAR) yld_raise("Only SCALAR data allowed for a historyVariable object.");
    if (m_historyStep.IsNull() || !m_historyStep->isValid()) {
        return yld_HistoryRegion::HistoryOutput(name, description, type);
    }
    yld_guard([&] {
        const yld_HistoryPoint& point = historyPoint();
        const sto_HistoryStep& step = *m_historyStep;
        const sto_HistoryClock clock = step.Clock();
        const yld_Enum::yld_ResultPositionEnum place = point.plainPosition();
        const fld_OutputPositionEnm position = unMapOutputPosition(place);
        const sto_PartInstance instance = point.instance().instance();
        const auto classOf = [&](const sto_Set& set) {
            const sto_Mesh mesh = instance.isValid() ? instance.mesh() : step.assembly().mesh();
            return mesh.elementData().elementClass(set.subSet(0).classIndex());
        };
        sto_HistoryFloat curve;
        switch (place) {
        case yld_Enum::UNDEFINED_POSITION:
        case yld_Enum::WHOLE_MODEL: curve = step.FloatHistory(clock, position, name, description); break;
        case yld_Enum::NODAL: {
            const sto_Set& set = nodeResults(instance);
            curve = step.FloatHistory(clock, position, instance, name, description, point.node().label(), set);
            break;
        }
        case yld_Enum::ELEMENT_NODAL: yld_raise("yld_Enum::ELEMENT_NODAL history not allowed.");
        case yld_Enum::INTEGRATION_POINT: {
            const sto_Set& set = elementResults(instance);
            curve = step.FloatHistory(clock, position, fromZero(point.ipNumber()), instance, classOf(set), name,
                                      description, fromZero(point.sectionPoint().number()), set,
                                      point.element().label());
            break;
        }
        case yld_Enum::WHOLE_ELEMENT: {
            const sto_Set& set = elementResults(instance);
            curve = step.FloatHistory(clock, position, instance, classOf(set), name, description,
                                      point.element().label(), set);
            break;
        }
        case yld_Enum::WHOLE_REGION:
            curve = step.FloatHistory(clock, position, instance, name, description, point.region().set());
            break;
        default: yld_raise("HistoryOutput cannot be created for this output location");
        }
        curve.setName(this->name());
        if (!loadCase().name().empty()) curve.setLoadCaseName(loadCase().name());
        historyOutputs().insert(name, yld_HistoryOutput(name, description, type, clock, curve));
    });
    return historyOutputs().get(name);
}

bool yld_HistoryRegionPers::addStored(const sto_History& history)
{
    const yld_String label(history.variableLabel());
    constexpr int inDouble = 1;
    const sto_HistoryFloat values = history.storageType() == inDouble ? sto_HistoryFloat(sto_HistoryDouble(history))
                                                                      : sto_HistoryFloat(history);
    return historyOutputs().insert(label, yld_HistoryOutput(label, yld_String(history.variableDescription()),
                                                            yld_Enum::SCALAR, history.clock(), values));
}

yld_HistoryRegion yld_HistoryRegionPers::getSubset(double start, double end) const
{
    return yld_HistoryRegion::getSubset(start, end);
}

yld_HistoryRegion yld_HistoryRegionPers::getSubset(double start) const { return yld_HistoryRegion::getSubset(start); }

yld_HistoryRegion yld_HistoryRegionPers::getSubset(const yld_String& variableName) const
{
    return yld_HistoryRegion::getSubset(variableName);
}
