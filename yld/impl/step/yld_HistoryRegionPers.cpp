#include "yld_HistoryRegionPers.h"

#include "platform/result/fld_OutputPosition.h"
#include "platform/sto/sto_HistoryStep.h"
#include "yld/impl/base/yld_Convert.h"
#include "yld/impl/base/yld_Raise.h"
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

const sto_Set& yld_HistoryRegionPers::results(const sto_PartInstance& instance, bool isNode) const
{
    sto_Set& set = resultsSet();
    if (set.isValid()) return set;
    const std::string name =
        yld_Convert::text(historyPoint().shortText()) + (isNode ? " results_nset" : " results_elset");
    const int label = isNode ? historyPoint().node().label() : historyPoint().element().label();
    const int type = isNode ? setC_Set::nodeSet : setC_Set::elementSet;
    // Another region at the place, or an earlier session, may have made it.
    if (instance.isValid()) {
        sto_PartInstance owner(instance);
        set = owner.mesh().set().find(type, name);
        if (set.isValid()) return set;
        set = isNode ? owner.Nset(name, &label, 1, true, false) : owner.Elset(name, &label, 1, true);
    } else {
        sto_Assembly owner = m_historyStep->assembly();
        set = owner.set().find(type, name);
        if (set.isValid()) return set;
        const std::vector<sto_SetStruct> group = {{std::string(), {label}}};
        set = isNode ? owner.Nset(name, group, true, false) : owner.Elset(name, group, true);
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
        const yld_Enum::yld_ResultPositionEnum place = point.storedPosition();
        const fld_OutputPositionEnm position = unMapOutputPosition(place);
        const fld_OutputPosition& meaning = fld_OutputPosition::of(position);
        if (meaning.curvePoint == fld_OutputPosition::CurvePoint::ELEMENT_NODE)
            yld_raise("yld_Enum::ELEMENT_NODAL history not allowed.");
        if (!meaning.takesCurves) yld_raise("HistoryOutput cannot be created for this output location");
        const sto_PartInstance instance = point.instance().instance();
        const auto classOf = [&](const sto_Set& set) {
            const sto_Mesh mesh = instance.isValid() ? instance.mesh() : step.assembly().mesh();
            return mesh.elementData().elementClass(set.subSet(0).classIndex());
        };
        sto_HistoryFloat curve;
        using enum fld_OutputPosition::CurvePoint;
        switch (meaning.curvePoint) {
        case NODE: {
            const sto_Set& set = results(instance, true);
            curve = step.FloatHistory(clock, position, instance, name, description, point.node().label(), set);
            break;
        }
        case INTEGRATION_POINT: {
            const sto_Set& set = results(instance, false);
            curve =
                step.FloatHistory(clock, position, fromZero(point.ipNumber()), instance, classOf(set), name,
                                  description, fromZero(point.sectionPoint().number()), set, point.element().label());
            break;
        }
        case ELEMENT: {
            const sto_Set& set = results(instance, false);
            curve = step.FloatHistory(clock, position, instance, classOf(set), name, description,
                                      point.element().label(), set);
            break;
        }
        case REGION:
            curve = step.FloatHistory(clock, position, instance, name, description, point.region().set());
            break;
        default:
            curve = step.FloatHistory(clock, position, name, description);
            break;
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
    const sto_HistoryFloat values =
        history.storageType() == inDouble ? sto_HistoryFloat(sto_HistoryDouble(history)) : sto_HistoryFloat(history);
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
