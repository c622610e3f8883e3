#include "platform/sto/sto_Set.h"

#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"

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
