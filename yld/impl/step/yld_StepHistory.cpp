#include "yld/impl/step/yld_StepHistory.h"

#include "platform/sto/sto_HistoryStep.h"
#include "platform/sto/sto_Step.h"
#include "platform/text/prg_WIP.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld_Step.h"

#include <string>

yld_HistoryPlaces& yld_StepHistory::places(const sto_Assembly& assembly)
{
    if (!m_places) m_places.emplace(assembly);
    return *m_places;
}

bool yld_StepHistory::enter(const sto_History& history, const sto_HistoryStep& step, const sto_Assembly& assembly)
{
    const yld_String loadCase(history.loadCaseName());
    const yld_HistoryPoint point = places(assembly).pointOf(history);
    yld_String key(history.name());
    if (key.empty()) {
        key = point.shortText();
        if (!loadCase.empty()) {
            key += ", ";
            key += loadCase;
        }
    }
    if (!m_regions.isMember(key)) {
        yld_HistoryRegionPers region(key, point.longText(), point, step);
        if (!loadCase.empty()) region.setLoadCase(yld_LoadCase(loadCase));
        m_regions.insert(key, region);
    }
    return m_regions.get(key).addStored(history);
}

bool yld_StepHistory::read(const sto_Step& step, const sto_Assembly& assembly)
{
    bool isNew = false;
    if (step.hasHistory()) {
        const sto_HistoryStep history = step.historyStep();
        const int count = history.numHistories();
        // Where it fails a later try goes on, and fails with the same text.
        for (; m_numRead < count; ++m_numRead) {
            if (enter(history.history(m_numRead), history, assembly)) isNew = true;
        }
        history.release();
    }
    m_isRead = true;
    return isNew;
}

yld_HistoryRegionPers& yld_StepHistory::add(const yld_String& name, const yld_String& description,
                                            const yld_HistoryPoint& point, sto_Step& step, const sto_Assembly& assembly)
{
    yld_HistoryPoint placed(point);
    const int meshIndex = point.element().label() > 0 ? point.element().meshIndex()
                          : point.node().label() >= 1 ? point.node().meshIndex()
                                                      : -1;
    if (meshIndex >= 0) {
        if (const yld_Instance* instance = places(assembly).instanceOf(meshIndex)) placed.setInstance(*instance);
    }
    // A step of an older database may come without history.
    if (!step.hasHistory()) step.HistoryStep();
    m_regions.insert(name, yld_HistoryRegionPers(name, description, placed, step.historyStep()));
    return m_regions.get(name);
}

yld_StepHistory& yld_Step::history() const
{
    if (m_history.IsNull()) m_history = new yld_StepHistory;
    return *m_history;
}

yld_StepHistory& yld_Step::readHistory() const
{
    yld_StepHistory& history = this->history();
    if (!history.isRead() && m_step.IsValid()) yld_guard([&] { history.read(*m_step, m_assembly.ConstGet()); });
    return history;
}

bool yld_Step::updateHistory()
{
    if (m_history.IsNull() || !m_history->isRead() || m_step.IsNull()) return false;
    return yld_guard([this] { return m_history->read(*m_step, m_assembly.ConstGet()); });
}

yld_HistoryRegion& yld_Step::HistoryRegion(const yld_String& name, const yld_String& description,
                                           const yld_HistoryPoint& point)
{
    yld_StepHistory& history = readHistory();
    if (history.regions().isMember(name)) {
        yld_raise("A historyRegion named '%1$s' already exists in step '%2$s'.", name, m_name);
    }
    if (m_step.IsNull()) yld_raise("Step \"%s\" has no results.", m_name);
    return yld_guard(
        [&]() -> yld_HistoryRegion& { return history.add(name, description, point, *m_step, m_assembly.ConstGet()); });
}

yld_HistoryRegion& yld_Step::HistoryRegion(const yld_String& name, const yld_String& description,
                                           const yld_HistoryPoint& point, const yld_LoadCase& loadCase)
{
    if (!m_loadCases.isMember(loadCase.name())) yld_raise("Invalid LoadCase");
    yld_HistoryRegion& region = HistoryRegion(name, description, point);
    region.setLoadCase(loadCase);
    return region;
}

yld_HistoryRegion& yld_Step::HistoryRegion(const yld_String& name, const yld_String& description, const yld_Node& node)
{
    return HistoryRegion(name, description, yld_HistoryPoint(node));
}

yld_HistoryRegion& yld_Step::HistoryRegion(const yld_String& name, const yld_String& description, const yld_Node& node,
                                           const yld_LoadCase& loadCase)
{
    return HistoryRegion(name, description, yld_HistoryPoint(node), loadCase);
}

yld_Repository<yld_String, yld_HistoryRegionPers>& yld_Step::historyRegion() { return history().regions(); }

yld_Repository<yld_String, yld_HistoryRegionPers>& yld_Step::historyRegions() { return readHistory().regions(); }

const yld_Repository<yld_String, yld_HistoryRegionPers>& yld_Step::historyRegions() const
{
    return readHistory().regions();
}

namespace {

/// The key of the first region that fits; further ones are told of by a warning each.
template<class Fits>
yld_String findRegion(const yld_Repository<yld_String, yld_HistoryRegionPers>& regions, const Fits& fits,
                      const shr_String& warning)
{
    const yld_String* found = nullptr;
    yld_RepositoryIT<yld_String, yld_HistoryRegionPers> entry(regions);
    for (entry.first(); !entry.isDone(); entry.next()) {
        if (!fits(entry.currentValue())) continue;
        if (found) prg_WIPBase::Warning(warning);
        else found = &entry.currentKey();
    }
    if (!found) yld_raise("HistoryRegion not found.");
    return *found;
}

} // namespace

yld_HistoryRegion& yld_Step::getHistoryRegion(const yld_HistoryPoint& point)
{
    yld_Repository<yld_String, yld_HistoryRegionPers>& regions = historyRegions();
    return regions.get(findRegion(
        regions, [&](const yld_HistoryRegion& region) { return region.historyPoint() == point; },
        msg_Format("Multiple HistoryRegions found for point \"%s\".The first HistoryRegion found will be retrieved.",
                   point.longText())));
}

yld_HistoryRegion& yld_Step::getHistoryRegion(const yld_HistoryPoint& point, const yld_LoadCase& loadCase)
{
    yld_Repository<yld_String, yld_HistoryRegionPers>& regions = historyRegions();
    return regions.get(findRegion(
        regions,
        [&](const yld_HistoryRegion& region) {
            return region.historyPoint() == point && region.loadCase() == loadCase;
        },
        msg_Format("Multiple HistoryRegions found for point \"%1$s\" and loadCase \"%2$s\". The first HistoryRegion "
                   "found will be retrieved.",
                   point.longText(), loadCase.name())));
}
