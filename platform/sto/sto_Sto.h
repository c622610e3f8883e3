#ifndef STO_STO_H
#define STO_STO_H

#include "containers/shr_String.h"
#include "platform/sto/sto_ApiExtension.h"
#include "platform/store/fio_File.h"
#include "platform/store/mrp_Container.h"
#include "platform/store/pcl_Persistent.h"

class dgn_DiagnosticData;
class fld_Result;
class mshK_Model;
class sto_Model;
class sto_Result;
class sto_UserData;
class sto_UserDataContent;

/// The root object of a database, to which everything else hangs.
class sto_StoData : public pcl_Class<sto_StoData>
{
public:
    static constexpr const char* className = "sto_Sto";
    static constexpr unsigned classId = 0x00400001;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("description", self.m_description);
        visit("analysis version", self.m_analysisVersion);
        visit("models", self.m_models);
        visit("result", self.m_result);
        visit("user data", self.m_userData);
        visit("only user defined data", self.m_onlyHasUserDefinedData);
        visit("api extensions", self.m_apiExtensions);
        visit("product add-ons", self.m_productAddOns);
        visit("diagnostics", self.m_diagnostics);
    }

    std::string m_description;
    std::string m_analysisVersion;
    mrp_Container<mshK_Model> m_models;
    lnk_ShortCut<fld_Result> m_result;
    lnk_ShortCut<sto_UserDataContent> m_userData;
    bool m_onlyHasUserDefinedData = false;
    mrp_Container<sto_ApiExtension> m_apiExtensions; ///< by type; made with the first
    std::vector<int> m_productAddOns;
    lnk_ShortCut<dgn_DiagnosticData> m_diagnostics; ///< null for a job that has left none
};

/// A handle on an open store. Copies stand for the same store.
class sto_Sto
{
public:
    /// No store.
    sto_Sto() = default;
    explicit sto_Sto(const std::shared_ptr<fio_FileBody>& file) : m_file(file) {}

    bool isValid() const { return m_file != nullptr && m_file->isOpen(); }
    const std::shared_ptr<fio_FileBody>& file() const { return m_file; }
    shr_String FileName() const;
    /// The version of the file's layout.
    int version() const;

    /// Makes a model with its empty root assembly, or gives the one of that name.
    sto_Model Model(const char* name);
    /// Raises when there is no model of that name.
    sto_Model model(const char* name) const;
    /// The one model of a database.
    sto_Model model() const;
    /// Makes the results, or gives them.
    sto_Result Result();
    sto_Result result() const;
    bool hasResult() const;
    /// Makes the user data, or gives them.
    sto_UserData UserData();
    /// Invalid where there are none.
    sto_UserData userData() const;
    bool hasUserData() const;

    shr_String description() const;
    void setDescription(const shr_String& description);
    shr_String analysisVersion() const;
    void setAnalysisVersion(const shr_String& version);
    /// The products that the job ran with besides the solver, as numbers.
    std::vector<int> productAddOns() const;
    /// For tests: the library writes none.
    void setProductAddOns(const std::vector<int>& addOns);
    /// When the database was made, and when the state was saved that is seen here: seconds since 1970.
    long long creationTime() const;
    long long modificationTime() const;
    void setOnlyHasUserDefinedData(bool only);
    /// For tests.
    bool onlyHasUserDefinedData() const;

    /// What the job has told of its course. Raises when there is nothing.
    std::shared_ptr<const dgn_DiagnosticData> ConstGetDiagnosticData() const;
    /// Takes the place of what was told before. For tests: the library writes none.
    void setDiagnosticData(const dgn_DiagnosticData& diagnostics);

    /// The root object itself.
    lnk_ShortCut<sto_StoData> shortCut() const { return root(); }
    /// Keeps what a program adds to the interface under its type; one that the type has already stays.
    void ExtendApi(const sto_ApiExtension& extension);
    /// A null reference where the type has none.
    lnk_ShortCut<sto_ApiExtension> apiExtension(int type) const;

    /// Writes everything that changed.
    void Save();
    /// What Save has written is on disk when it returns; nothing is left to flush.
    void FlushDatabase() {}

private:
    friend class sto_StoContainer;
    lnk_ShortCut<sto_StoData> root() const;
    // Changes one value of the root object.
    template<class Value> void change(Value sto_StoData::*member, Value value)
    {
        root().edit([&](sto_StoData& changed) { changed.*member = std::move(value); });
    }

    std::shared_ptr<fio_FileBody> m_file;
};

#endif
