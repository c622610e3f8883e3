#ifndef STO_MODELOF_H
#define STO_MODELOF_H

#include "platform/store/lnk_ShortCut.h"

class fio_FileBody;
class mshK_Model;

/// The name that the one model of a database has in all of them.
inline constexpr const char* sto_defaultModel = "Default Model";

/// The one model of a database; null where there is none.
lnk_ShortCut<mshK_Model> sto_modelOf(const std::shared_ptr<fio_FileBody>& file);

#endif
