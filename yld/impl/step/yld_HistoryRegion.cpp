#include "yld_HistoryRegion.h"

#include "platform/sto/sto_Set.h"
#include "yld/impl/base/yld_Raise.h"

yld_HistoryRegion::yld_HistoryRegion() : m_set(new sto_Set) {}

yld_HistoryRegion::yld_HistoryRegion(const yld_String& name, const yld_String& description,
                                     const yld_HistoryPoint& point,
                                     const yld_Repository<yld_String, yld_HistoryOutput>& outputs,
                                     const yld_LoadCase& loadCase)
    : m_name(name), m_description(description), m_point(point), m_historyOutputs(outputs), m_loadCase(loadCase),
      m_set(new sto_Set)
{
}

yld_HistoryRegion::yld_HistoryRegion(const yld_HistoryRegion&) = default;
yld_HistoryRegion& yld_HistoryRegion::operator=(const yld_HistoryRegion&) = default;
yld_HistoryRegion::~yld_HistoryRegion() = default;

yld_HistoryOutput& yld_HistoryRegion::HistoryOutput(const yld_String&, const yld_String&, yld_Enum::yld_DataTypeEnum)
{
    yld_raise("Adding a history output object to an orphan History object is not allowed.");
}

yld_HistoryRegion yld_HistoryRegion::withOutputs(const yld_Repository<yld_String, yld_HistoryOutput>& outputs) const
{
    return yld_HistoryRegion(m_name, m_description, m_point, outputs, yld_LoadCase());
}

namespace {

template<class Cut>
yld_Repository<yld_String, yld_HistoryOutput> cutAll(const yld_Repository<yld_String, yld_HistoryOutput>& outputs,
                                                     const Cut& cut)
{
    yld_Repository<yld_String, yld_HistoryOutput> result;
    yld_RepositoryIT<yld_String, yld_HistoryOutput> entry(outputs);
    for (entry.first(); !entry.isDone(); entry.next()) result.insert(entry.currentKey(), cut(entry.currentValue()));
    return result;
}

} // namespace

yld_HistoryRegion yld_HistoryRegion::getSubset(double start, double end) const
{
    return withOutputs(
        cutAll(m_historyOutputs, [=](const yld_HistoryOutput& output) { return output.getSubset(start, end); }));
}

yld_HistoryRegion yld_HistoryRegion::getSubset(double start) const
{
    return withOutputs(
        cutAll(m_historyOutputs, [=](const yld_HistoryOutput& output) { return output.getSubset(start); }));
}

yld_HistoryRegion yld_HistoryRegion::getSubset(const yld_String& variableName) const
{
    yld_Repository<yld_String, yld_HistoryOutput> outputs;
    if (m_historyOutputs.isMember(variableName)) outputs.insert(variableName, m_historyOutputs.constGet(variableName));
    return withOutputs(outputs);
}

void yld_HistoryRegion::checkOutput(const yld_String& name) const
{
    if (m_historyOutputs.isMember(name)) return;
    yld_raise("HistoryOutput '%1$s' is not a member of HistoryRegion '%2$s", name, m_name);
}

yld_HistoryOutput& yld_HistoryRegion::historyOutputs(const yld_String& name)
{
    checkOutput(name);
    return m_historyOutputs.get(name);
}

const yld_HistoryOutput& yld_HistoryRegion::historyOutputs(const yld_String& name) const
{
    checkOutput(name);
    return m_historyOutputs.constGet(name);
}
