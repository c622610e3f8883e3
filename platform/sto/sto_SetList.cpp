#include "platform/sto/sto_SetList.h"

#include "platform/text/exc_Exception.h"
#include "platform/text/msg_Format.h"

#include <utility>

sto_SetList::sto_SetList(const mrp_Container<setC_Set>& sets, const mrp_Container<setC_Set>& internalSets,
                         std::vector<lnk_AnyShortCut> temporarySets)
    : sto_SetList(sets, internalSets)
{
    for (const lnk_AnyShortCut& each : temporarySets) {
        const lnk_ShortCut<setC_Set> set(each);
        const std::shared_ptr<const setC_Set> body = set.fetch();
        m_temporary.push_back({setC_Set::key(body->m_type, body->m_label), set});
    }
}

const sto_SetList::Temporary* sto_SetList::temporary(int index) const
{
    const int first = m_numPublic + m_internalSets.size();
    return index < first ? nullptr : &m_temporary[static_cast<std::size_t>(index - first)];
}

const std::string& sto_SetList::key(int index) const
{
    if (const Temporary* found = temporary(index)) return found->key;
    return index < m_numPublic ? m_sets.key(index) : m_internalSets.key(index - m_numPublic);
}

sto_Set sto_SetList::get(int index) const
{
    if (const Temporary* found = temporary(index)) return sto_Set(found->set);
    return sto_Set(index < m_numPublic ? m_sets.at(index) : m_internalSets.at(index - m_numPublic));
}

lnk_ShortCut<setC_Set> sto_SetList::findStored(const std::string& key) const
{
    const lnk_ShortCut<setC_Set> found = m_sets.get(key);
    return found.isNull() ? m_internalSets.get(key) : found;
}

sto_Set sto_SetList::find(int type, const std::string& label) const
{
    const std::string wanted = setC_Set::key(type, label);
    lnk_ShortCut<setC_Set> found = findStored(wanted);
    for (const Temporary& each : m_temporary) {
        if (found.isNull() && each.key == wanted) found = each.set;
    }
    return sto_Set(found);
}

setC_Set sto_SetList::begin(int type, const std::string& name, bool isInternal, bool isUnsorted) const
{
    if (has(type, name)) throw exc_TextException(msg_Format("Duplicate set or surface name %s", name.c_str()));
    setC_Set set;
    set.m_label = name;
    set.m_type = type;
    set.m_internal = isInternal;
    set.m_unsorted = isUnsorted;
    return set;
}

lnk_ShortCut<setC_Set> sto_SetList::require(int type, const std::string& label) const
{
    const sto_Set found = find(type, label);
    if (!found.isValid()) throw exc_TextException(msg_Format("Set \"%s\" does not exist.", label.c_str()));
    return found.shortCut();
}

sto_Set sto_SetList::add(const std::shared_ptr<fio_FileBody>& file, setC_Set set)
{
    const std::string label = setC_Set::key(set.m_type, set.m_label);
    mrp_Container<setC_Set>& sets = set.m_internal ? m_internalSets : m_sets;
    const lnk_ShortCut<setC_Set> made = lnk_ShortCut<setC_Set>::create(file, std::move(set));
    sets.append(label, made);
    m_numPublic = m_sets.size();
    return sto_Set(made);
}
