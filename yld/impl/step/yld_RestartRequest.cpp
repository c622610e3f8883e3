#include "yld_RestartRequest.h"

#include "platform/sto/sto_StoStep.h"
#include "yld/impl/base/yld_Raise.h"

yld_RestartRequest::yld_RestartRequest() : m_restart(new sto_Restart) {}

yld_RestartRequest::yld_RestartRequest(const sto_Restart& restart) : m_restart(new sto_Restart(restart)) {}

yld_RestartRequest::yld_RestartRequest(const yld_RestartRequest&) = default;
yld_RestartRequest& yld_RestartRequest::operator=(const yld_RestartRequest&) = default;
yld_RestartRequest::~yld_RestartRequest() = default;

// The store has the four in another order: first, fourth, third, second.

int yld_RestartRequest::argument1() const
{
    return yld_guard([this] { return m_restart->isValid() ? m_restart->first() : 0; });
}

int yld_RestartRequest::argument2() const
{
    return yld_guard([this] { return m_restart->isValid() ? m_restart->fourth() : 0; });
}

bool yld_RestartRequest::argument3() const
{
    return yld_guard([this] { return m_restart->isValid() && m_restart->third(); });
}

bool yld_RestartRequest::argument4() const
{
    return yld_guard([this] { return m_restart->isValid() && m_restart->second(); });
}
