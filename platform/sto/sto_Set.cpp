#include "platform/sto/sto_Set.h"

#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"
#include "platform/text/exc_Exception.h"
#include "platform/text/msg_Format.h"

const int* sto_Subset::memberList() const
{
    return m_row.isRun() ? nullptr : m_set->m_members.data() + m_row.membersAt;
}

std::vector<int> sto_Subset::members() const
{
    std::vector<int> values(static_cast<std::size_t>(m_row.numMembers));
    m_set->members(m_row, values.data());
    return values;
}

std::vector<int> sto_Subset::facets() const
{
    if (!m_row.hasFacets) return {};
    std::vector<int> values(static_cast<std::size_t>(m_row.numMembers));
    m_set->facets(m_row, values.data());
    return values;
}

std::shared_ptr<const setC_Set> sto_Set::set() const
{
    std::shared_ptr<const setC_Set> body = m_reference.fetch();
    body->verify(m_reference.file()->path());
    return body;
}

sto_Subset sto_Set::subSet(int index) const
{
    std::shared_ptr<const setC_Set> body = set();
    if (index < 0 || index >= body->numSubsets()) {
        fio_raise(m_reference.file()->path(), "set \"" + body->m_label + "\" has no subset " + std::to_string(index));
    }
    return sto_Subset(body, body->SubSet(index));
}

const std::string& sto_SetList::key(int index) const
{
    return index < m_numPublic ? m_sets.key(index) : m_internalSets.key(index - m_numPublic);
}

sto_Set sto_SetList::get(int index) const
{
    return sto_Set(index < m_numPublic ? m_sets.at(index) : m_internalSets.at(index - m_numPublic));
}

sto_Set sto_SetList::find(int type, const std::string& label) const
{
    const std::string wanted = setC_Set::key(type, label);
    lnk_ShortCut<setC_Set> found = m_sets.get(wanted);
    if (found.isNull()) found = m_internalSets.get(wanted);
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
