#include "platform/store/lnk_Root.h"

#include "platform/base/lok_ThreadSingleton.h"

#include <algorithm>

lnk_Root& lnk_Root::Instance() { return lok_ThreadSingleton<lnk_Root>::Instance(); }

lnk_Root::~lnk_Root() { detachAll(); }

void lnk_Root::attach(const fio_File& file) { m_stores.push_back(file.body()); }

int lnk_Root::detach(const std::string& path)
{
    int count = 0;
    std::erase_if(m_stores, [&path, &count](const std::shared_ptr<fio_FileBody>& store) {
        if (store->path() != path) return false;
        store->close();
        ++count;
        return true;
    });
    return count;
}

void lnk_Root::detachAll()
{
    // Objects hold their file and the file holds its objects: only closing lets go of both.
    for (const auto& store : m_stores) store->close();
    m_stores.clear();
}

std::shared_ptr<fio_FileBody> lnk_Root::find(const std::string& path) const
{
    const auto found = std::find_if(m_stores.begin(), m_stores.end(),
                                    [&path](const auto& store) { return store->path() == path; });
    return found == m_stores.end() ? nullptr : *found;
}

bool lnk_Root::IsMember(const char* path) { return Instance().find(path) != nullptr; }

bool lnk_Root::VerifyCreationDate(const fio_File& file)
{
    const auto& stores = Instance().m_stores;
    return std::any_of(stores.begin(), stores.end(), [&file](const auto& store) {
        return store->creationDate() == file.body()->creationDate() && store->uid() == file.body()->uid();
    });
}

std::string lnk_Root::GetPersistentName(const char* fileName)
{
    const auto store = Instance().find(fileName);
    return store ? store->uid() : std::string();
}

std::string lnk_Root::GetFileName(const char* persistentName)
{
    for (const auto& store : Instance().m_stores) {
        if (store->uid() == persistentName) return store->path();
    }
    return {};
}
