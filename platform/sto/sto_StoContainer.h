#ifndef STO_STO_CONTAINER_H
#define STO_STO_CONTAINER_H

#include "containers/shr_String.h"
#include "platform/sto/sto_Sto.h"

/// The way to the stores of this thread: makes, saves and closes them.
class sto_StoContainer
{
public:
    /// Makes a database file with an empty store. A database that stands at the path is replaced; any other file is
    /// refused.
    /// @param[out] result  the open store
    void CreateSto(sto_Sto& result, const shr_String& path, const shr_String& description);
    void SaveSto(sto_Sto& sto);
    /// Closes without saving, and tells the toolset's clients.
    void CloseSto(sto_Sto& sto);
    /// The open store of that identity. Raises when there is none.
    sto_Sto getByPersName(const shr_String& persistentName) const;
};

#endif
