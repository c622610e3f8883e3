#ifndef STO_MODELOF_H
#define STO_MODELOF_H

#include "platform/store/lnk_ShortCut.h"

class fio_FileBody;
class mshK_Model;

/// The one model of a database, by the name that it has in all of them; null where there is none.
lnk_ShortCut<mshK_Model> sto_modelOf(const std::shared_ptr<fio_FileBody>& file);

#endif
