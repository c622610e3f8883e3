#include "platform/store/lnk_Root.h"

#include "platform/base/lok_ThreadSingleton.h"

#include <algorithm>

lnk_Root& lnk_Root::Instance() { return lok_ThreadSingleton<lnk_Root>::Instance(); }

lnk_Root::~lnk_Root() { detachAll(); }

void lnk_Root::attach(const fio_File& file) { m_stores.push_back(file); }

int lnk_Root::detach(const std::string& path)
{
    int count = 0;
    std::erase_if(m_stores, [&path, &count](const fio_File& store) {
        if (store.body()->path() != path) return false;
        store.body()->close();
        ++count;
        return true;
    });
    return count;
}

void lnk_Root::detachAll()
{
    for (const fio_File& store : m_stores) store.body()->close();
    m_stores.clear();
}

std::shared_ptr<fio_FileBody> lnk_Root::find(const std::string& path) const
{
    const auto found = std::find_if(m_stores.begin(), m_stores.end(),
                                    [&path](const fio_File& store) { return store.body()->path() == path; });
    return found == m_stores.end() ? nullptr : found->body();
}

bool lnk_Root::IsMember(const char* path) { return Instance().find(path) != nullptr; }

bool lnk_Root::VerifyCreationDate(const fio_File& file)
{
    const auto& stores = Instance().m_stores;
    return std::any_of(stores.begin(), stores.end(), [&file](const fio_File& store) {
        return store.body()->creationDate() == file.body()->creationDate() && store.body()->uid() == file.body()->uid();
    });
}

std::string lnk_Root::GetPersistentName(const char* fileName)
{
    const auto store = Instance().find(fileName);
    return store ? store->uid() : std::string();
}

std::string lnk_Root::GetFileName(const char* persistentName)
{
    for (const fio_File& store : Instance().m_stores) {
        if (store.body()->uid() == persistentName) return store.body()->path();
    }
    return {};
}
