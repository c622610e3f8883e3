#include "platform/store/lnk_ShortCut.h"

#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"

std::shared_ptr<const pcl_Persistent> lnk_fetch(const lnk_AnyShortCut& shortCut, const pcl_ClassMetadata& metadata,
                                                lnk_MakeObject make)
{
    if (shortCut.isNull() || !shortCut.file()) {
        fio_raise(metadata.name(), "a reference to no object was resolved");
    }
    return shortCut.file()->fetch(shortCut.id(), metadata, make);
}

void lnk_replace(const lnk_AnyShortCut& shortCut, const std::shared_ptr<pcl_Persistent>& object)
{
    if (shortCut.isNull() || !shortCut.file())
        fio_raise(object->Metadata().name(), "a reference to no object was changed");
    if (shortCut.isTemporary())
        fio_raise(object->Metadata().name(), "an object that no file has cannot be changed in one");
    shortCut.file()->replace(shortCut.id(), object);
}

long long lnk_apartId()
{
    thread_local long long last = 0;
    return --last;
}

long long lnk_create(const std::shared_ptr<fio_FileBody>& file, const std::shared_ptr<pcl_Persistent>& object)
{
    const long long id = file->newId();
    file->replace(id, object);
    return id;
}
