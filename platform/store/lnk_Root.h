#ifndef LNK_ROOT_H
#define LNK_ROOT_H

#include "platform/store/fio_File.h"

#include <memory>
#include <string>
#include <vector>

/// The stores that this thread has open. An object of a store is reached through its file; the root knows the files.
class lnk_Root
{
public:
    /// The root of the calling thread.
    static lnk_Root& Instance();
    static lnk_Root& Fetch() { return Instance(); }

    lnk_Root() = default;
    lnk_Root(const lnk_Root&) = delete;
    lnk_Root& operator=(const lnk_Root&) = delete;
    ~lnk_Root();

    /// Takes an open file in; the same path may be in more than once.
    void attach(const fio_File& file);
    /// Closes every store of that path. @return how many there were
    int detach(const std::string& path);
    void detachAll();

    const std::vector<fio_File>& stores() const { return m_stores; }
    /// The first store of that path, or null.
    std::shared_ptr<fio_FileBody> find(const std::string& path) const;

    /// Whether a store of this path is open here.
    static bool IsMember(const char* path);
    /// Whether the file is one that is open here, by the moment of its creation and its identity.
    static bool VerifyCreationDate(const fio_File& file);
    /// The name under which other objects can keep a store: its identity. Empty for a path that is not open.
    static std::string GetPersistentName(const char* fileName);
    /// The path of the open store with that identity, or empty.
    static std::string GetFileName(const char* persistentName);

private:
    std::vector<fio_File> m_stores;
};

#endif
