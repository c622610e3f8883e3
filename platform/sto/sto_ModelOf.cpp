#include "platform/sto/sto_ModelOf.h"

#include "platform/sto/sto_Sto.h"

lnk_ShortCut<mshK_Model> sto_modelOf(const std::shared_ptr<fio_FileBody>& file)
{
    const long long root = file->rootObject();
    if (root == 0) return {};
    return lnk_ShortCut<sto_StoData>(file, root).fetch()->m_models.get(sto_defaultModel);
}
