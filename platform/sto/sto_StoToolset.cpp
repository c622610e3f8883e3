#include "platform/sto/sto_StoToolset.h"

#include "platform/base/lok_ThreadSingleton.h"
#include "platform/store/fio_Error.h"
#include "platform/store/lnk_Root.h"

#include <algorithm>

void sto_StoToolsetClient::NotifyOpenYld(const char*) {}
void sto_StoToolsetClient::NotifyCloseYld(const char*) {}
void sto_StoToolsetClient::NotifyUpdateYld(const char*) {}
void sto_StoToolsetClient::UpdateScene() {}
void sto_StoToolsetClient::UpdateSceneForDatum() {}
void sto_StoToolsetClient::UpdateSceneForDeleteDatum() {}

sto_StoToolset& sto_StoToolset::Instance() { return lok_ThreadSingleton<sto_StoToolset>::Instance(); }

void sto_StoToolset::AddClient(sto_StoToolsetClient* client)
{
    if (std::find(m_clients.begin(), m_clients.end(), client) == m_clients.end()) m_clients.push_back(client);
}

void sto_StoToolset::RemoveClient(sto_StoToolsetClient* client) { std::erase(m_clients, client); }

sto_Sto sto_StoToolset::OpenYld(const fio_File& file, bool)
{
    if (file.body()->rootObject() == 0) fio_raise(file.body()->path(), "holds no store; the file is damaged");
    lnk_Root::Instance().attach(file);
    // A copy: a client may add or remove clients while it is told.
    for (sto_StoToolsetClient* client : std::vector(m_clients)) client->NotifyOpenYld(file.body()->path().c_str());
    return sto_Sto(file.body());
}

void sto_StoToolset::CloseYld(const shr_String& path)
{
    lnk_Root::Instance().detach(path.cStr());
    for (sto_StoToolsetClient* client : std::vector(m_clients)) client->NotifyCloseYld(path.cStr());
}

void sto_StoToolset::UpdateSceneForDatum(bool, const char*)
{
    for (sto_StoToolsetClient* client : std::vector(m_clients)) client->UpdateSceneForDatum();
}

void sto_StoToolset::UpdateYld(const shr_String& path)
{
    for (sto_StoToolsetClient* client : std::vector(m_clients)) client->NotifyUpdateYld(path.cStr());
}
