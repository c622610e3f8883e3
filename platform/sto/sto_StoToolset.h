#ifndef STO_STO_TOOLSET_H
#define STO_STO_TOOLSET_H

#include "platform/sto/sto_Sto.h"

#include <string>
#include <vector>

/// Who wants to know what happens to the stores of a thread. The slots stand in a fixed order.
class sto_StoToolsetClient
{
public:
    virtual ~sto_StoToolsetClient() = default;
    virtual void NotifyOpenYld(const char* fileName);
    virtual void NotifyCloseYld(const char* fileName);
    virtual void NotifyUpdateYld(const char* fileName);
    virtual void UpdateScene();
    virtual void UpdateSceneForDatum();
    virtual void UpdateSceneForDeleteDatum();
};

/// Opens and closes the stores of the calling thread, and tells its clients.
class sto_StoToolset
{
public:
    static sto_StoToolset& Instance();

    /// The client is borrowed until it is removed.
    void AddClient(sto_StoToolsetClient* client);
    void RemoveClient(sto_StoToolsetClient* client);

    /// Takes an open file in. @param flag  always true
    sto_Sto OpenYld(const fio_File& file, bool flag);
    /// Closes every store of that path without saving, then tells the clients.
    void CloseYld(const shr_String& path);
    /// Tells the clients that the file has changed.
    void UpdateYld(const shr_String& path);
    /// Tells the clients that a datum of the model was made.
    /// @param existed  whether there was one of that name before
    void UpdateSceneForDatum(bool existed, const char* name);

private:
    std::vector<sto_StoToolsetClient*> m_clients;
};

#endif
