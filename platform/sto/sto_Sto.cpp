#include "platform/sto/sto_Sto.h"

#include "platform/diagnostic/dgn_DiagnosticData.h"
#include "platform/model/mshK_Model.h"
#include "platform/result/fld_Result.h"
#include "platform/sto/sto_Model.h"
#include "platform/sto/sto_ModelOf.h"
#include "platform/sto/sto_Result.h"
#include "platform/sto/sto_UserData.h"
#include "platform/store/fio_Error.h"

namespace {

constexpr const char* noStore = "no store is open here";
constexpr long long microseconds = 1000000;

} // namespace

lnk_ShortCut<sto_StoData> sto_Sto::root() const
{
    if (!m_file) fio_raise("store", noStore);
    return lnk_ShortCut<sto_StoData>(m_file, m_file->rootObject());
}

shr_String sto_Sto::FileName() const { return m_file ? shr_String(m_file->path().c_str()) : shr_String(); }

int sto_Sto::version() const
{
    if (!m_file) fio_raise("store", noStore);
    return m_file->version();
}

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

sto_Model sto_Sto::model() const { return model(sto_defaultModel); }

sto_Result sto_Sto::Result()
{
    if (hasResult()) return result();
    const sto_Result made = sto_Result::create(m_file);
    change(&sto_StoData::m_result, made.shortCut());
    return made;
}

sto_Result sto_Sto::result() const { return sto_Result(root().fetch()->m_result); }

bool sto_Sto::hasResult() const { return root().fetch()->m_result.isValid(); }

sto_UserData sto_Sto::UserData()
{
    if (hasUserData()) return userData();
    const sto_UserData made = sto_UserData::create(m_file);
    change(&sto_StoData::m_userData, made.shortCut());
    return made;
}

sto_UserData sto_Sto::userData() const { return sto_UserData(root().fetch()->m_userData); }

bool sto_Sto::hasUserData() const { return root().fetch()->m_userData.isValid(); }

shr_String sto_Sto::description() const { return shr_String(root().fetch()->m_description.c_str()); }

void sto_Sto::setDescription(const shr_String& description)
{
    change(&sto_StoData::m_description, std::string(description.cStr()));
}

shr_String sto_Sto::analysisVersion() const { return shr_String(root().fetch()->m_analysisVersion.c_str()); }

void sto_Sto::setAnalysisVersion(const shr_String& version)
{
    change(&sto_StoData::m_analysisVersion, std::string(version.cStr()));
}

bool sto_Sto::onlyHasUserDefinedData() const { return root().fetch()->m_onlyHasUserDefinedData; }

void sto_Sto::setOnlyHasUserDefinedData(bool only) { change(&sto_StoData::m_onlyHasUserDefinedData, only); }

std::vector<int> sto_Sto::productAddOns() const { return root().fetch()->m_productAddOns; }

void sto_Sto::setProductAddOns(const std::vector<int>& addOns) { change(&sto_StoData::m_productAddOns, addOns); }

long long sto_Sto::creationTime() const
{
    if (!m_file) fio_raise("store", noStore);
    return m_file->creationDate() / microseconds;
}

long long sto_Sto::modificationTime() const
{
    if (!m_file) fio_raise("store", noStore);
    return m_file->modificationDate() / microseconds;
}

std::shared_ptr<const dgn_DiagnosticData> sto_Sto::ConstGetDiagnosticData() const
{
    const lnk_ShortCut<dgn_DiagnosticData> diagnostics = root().fetch()->m_diagnostics;
    if (diagnostics.isNull()) fio_raise(m_file->path(), "has no diagnostics");
    return diagnostics.fetch();
}

void sto_Sto::setDiagnosticData(const dgn_DiagnosticData& diagnostics)
{
    const lnk_ShortCut<dgn_DiagnosticData> present = root().fetch()->m_diagnostics;
    if (present.isValid()) {
        present.replace(std::make_shared<dgn_DiagnosticData>(diagnostics));
    } else {
        change(&sto_StoData::m_diagnostics, lnk_ShortCut<dgn_DiagnosticData>::create(m_file, diagnostics));
    }
}

void sto_Sto::ExtendApi(const sto_ApiExtension& extension)
{
    const std::string key = std::to_string(extension.m_type);
    mrp_Container<sto_ApiExtension> extensions = root().fetch()->m_apiExtensions;
    if (extensions.isNull()) {
        extensions = mrp_Container<sto_ApiExtension>::create(m_file);
        change(&sto_StoData::m_apiExtensions, extensions);
    }
    if (extensions.find(key) < 0) extensions.append(key, lnk_ShortCut<sto_ApiExtension>::create(m_file, extension));
}

lnk_ShortCut<sto_ApiExtension> sto_Sto::apiExtension(int type) const
{
    return root().fetch()->m_apiExtensions.get(std::to_string(type));
}

void sto_Sto::Save()
{
    if (!m_file) fio_raise("store", noStore);
    m_file->save();
}
