#include "platform/attribute/ntsC_AnnotationClient.h"

#include "platform/base/lok_ThreadSingleton.h"

ntsC_AnnotationClient& ntsC_AnnotationClient::Instance()
{
    return lok_ThreadSingleton<ntsC_AnnotationClient>::Instance();
}

void ntsC_AnnotationClient::Hold(const std::string& container, const std::shared_ptr<const void>& annotation)
{
    m_held[container].push_back(annotation);
}

int ntsC_AnnotationClient::NumHeld(const std::string& container) const
{
    const auto held = m_held.find(container);
    return held == m_held.end() ? 0 : static_cast<int>(held->second.size());
}

void ntsC_AnnotationClient::ContainerClosing(const std::string& container, int) { m_held.erase(container); }
