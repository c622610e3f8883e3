#include "platform/sto/sto_StoContainer.h"

#include "platform/sto/sto_StoToolset.h"
#include "platform/store/fio_Error.h"
#include "platform/store/lnk_Root.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <sys/stat.h>

namespace {

// A database gives way to a new one of its name; what is not ours is not for us to delete.
void clearPlace(const std::string& path)
{
    struct stat status = {};
    if (lstat(path.c_str(), &status) != 0) {
        if (errno == ENOENT) return;
        fio_raise(path, std::strerror(errno));
    }
    if (stat(path.c_str(), &status) != 0) fio_raise(path, std::strerror(errno));
    if (S_ISREG(status.st_mode) && status.st_size > 0) fio_Database(path, fio_Database::Access::READ);
    else if (!S_ISREG(status.st_mode)) fio_raise(path, "is not a regular file");
    if (std::remove(path.c_str()) != 0) fio_raise(path, std::strerror(errno));
    // The journal of the old file would be taken for that of the new one.
    std::remove((path + "-journal").c_str());
}

} // namespace

void sto_StoContainer::CreateSto(sto_Sto& result, const shr_String& path, const shr_String& description)
{
    clearPlace(path.cStr());
    const fio_File file = fio_File::Create(path.cStr());
    sto_StoData data;
    data.m_description = description.cStr();
    data.m_models = mrp_Container<mshK_Model>::create(file.body());
    file.body()->setRootObject(lnk_ShortCut<sto_StoData>::create(file.body(), data).id());
    lnk_Root::Instance().attach(file);
    result = sto_Sto(file.body());
}

void sto_StoContainer::SaveSto(sto_Sto& sto) { sto.Save(); }

void sto_StoContainer::CloseSto(sto_Sto& sto)
{
    sto_StoToolset::Instance().CloseYld(sto.FileName());
    sto = sto_Sto();
}

sto_Sto sto_StoContainer::getByPersName(const shr_String& persistentName) const
{
    for (const fio_File& store : lnk_Root::Instance().stores()) {
        if (store.body()->uid() == persistentName.cStr()) return sto_Sto(store.body());
    }
    fio_raise(persistentName.cStr(), "no open store has this identity");
}
