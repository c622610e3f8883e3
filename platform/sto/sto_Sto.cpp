#include "platform/sto/sto_Sto.h"

#include "platform/model/mshK_Model.h"
#include "platform/result/fld_Result.h"
#include "platform/sto/sto_Model.h"
#include "platform/sto/sto_Result.h"
#include "platform/sto/sto_UserData.h"
#include "platform/store/fio_Error.h"

lnk_ShortCut<sto_StoData> sto_Sto::root() const
{
    if (!m_file) fio_raise("store", "no store is open here");
    return lnk_ShortCut<sto_StoData>(m_file, m_file->rootObject());
}

shr_String sto_Sto::FileName() const { return m_file ? shr_String(m_file->path().c_str()) : shr_String(); }

sto_Model sto_Sto::Model(const char* name)
{
    mrp_Container<mshK_Model> models = root().fetch()->m_models;
    const lnk_ShortCut<mshK_Model> present = models.get(name);
    if (present.isValid()) return sto_Model(present);
    const sto_Model made = sto_Model::create(m_file, name);
    models.append(name, made.shortCut());
    return made;
}

sto_Model sto_Sto::model(const char* name) const
{
    const lnk_ShortCut<mshK_Model> found = root().fetch()->m_models.get(name);
    if (found.isNull()) fio_raise(m_file->path(), "has no model named \"" + std::string(name) + "\"");
    return sto_Model(found);
}

sto_Result sto_Sto::Result()
{
    if (hasResult()) return result();
    const sto_Result made = sto_Result::create(m_file);
    const auto changed = root().fetchWritable();
    changed->m_result = made.shortCut();
    root().replace(changed);
    return made;
}

sto_Result sto_Sto::result() const { return sto_Result(root().fetch()->m_result); }

bool sto_Sto::hasResult() const { return root().fetch()->m_result.isValid(); }

sto_UserData sto_Sto::UserData()
{
    if (hasUserData()) return userData();
    const sto_UserData made = sto_UserData::create(m_file);
    const auto changed = root().fetchWritable();
    changed->m_userData = made.shortCut();
    root().replace(changed);
    return made;
}

sto_UserData sto_Sto::userData() const { return sto_UserData(root().fetch()->m_userData); }

bool sto_Sto::hasUserData() const { return root().fetch()->m_userData.isValid(); }

shr_String sto_Sto::description() const { return shr_String(root().fetch()->m_description.c_str()); }

void sto_Sto::setDescription(const shr_String& description)
{
    const auto changed = root().fetchWritable();
    changed->m_description = description.cStr();
    root().replace(changed);
}

shr_String sto_Sto::analysisVersion() const { return shr_String(root().fetch()->m_analysisVersion.c_str()); }

void sto_Sto::setAnalysisVersion(const shr_String& version)
{
    const auto changed = root().fetchWritable();
    changed->m_analysisVersion = version.cStr();
    root().replace(changed);
}

bool sto_Sto::onlyHasUserDefinedData() const { return root().fetch()->m_onlyHasUserDefinedData; }

void sto_Sto::setOnlyHasUserDefinedData(bool only)
{
    const auto changed = root().fetchWritable();
    changed->m_onlyHasUserDefinedData = only;
    root().replace(changed);
}

void sto_Sto::Save()
{
    if (!m_file) fio_raise("store", "no store is open here");
    m_file->save();
}
