#ifndef YLD_JOB_DATA_H
#define YLD_JOB_DATA_H

#include "platform/base/bas_Export.h"
#include "yld_Enum.h"
#include "yld_Sequence.h"
#include "yld_String.h"

/// The job that a database comes from, as it stood when the database was asked. A value.
class YLD_API yld_JobData
{
public:
    yld_JobData();
    yld_JobData(const yld_String& name, yld_Enum::yld_AnalysisCodeEnum analysisCode, const yld_String& version,
                long long creationTime, long long modificationTime, const yld_String& machineName,
                yld_Enum::yld_PrecisionEnum precision,
                const yld_Sequence<yld_Enum::yld_ProductAddOnEnum>& productAddOns);
    yld_JobData(const yld_JobData&);
    yld_JobData& operator=(const yld_JobData&);
    ~yld_JobData();

    /// The name by which the database is open in this process.
    const yld_String& name() const { return m_name; }
    /// The code that solved the analysis, guessed from version().
    yld_Enum::yld_AnalysisCodeEnum analysisCode() const { return m_analysisCode; }
    /// Product and version of what wrote the database.
    const yld_String& version() const { return m_version; }
    /// When the database was made, and when the state was saved that is read here: seconds since 1970.
    long long creationTime() const { return m_creationTime; }
    long long modificationTime() const { return m_modificationTime; }
    /// Always empty where yld_Yld::jobData() gives this: databases do not keep it.
    const yld_String& machineName() const { return m_machineName; }
    /// Always SINGLE_PRECISION where yld_Yld::jobData() gives this.
    yld_Enum::yld_PrecisionEnum precision() const { return m_precision; }
    /// The products that the job ran with besides the solver.
    const yld_Sequence<yld_Enum::yld_ProductAddOnEnum>& productAddOns() const { return m_productAddOns; }

private:
    yld_String m_name;
    yld_Enum::yld_AnalysisCodeEnum m_analysisCode = yld_Enum::UNKNOWN_ANALYSIS_CODE;
    yld_String m_version;
    long long m_creationTime = 0;
    long long m_modificationTime = 0;
    yld_String m_machineName;
    yld_Enum::yld_PrecisionEnum m_precision = yld_Enum::SINGLE_PRECISION;
    yld_Sequence<yld_Enum::yld_ProductAddOnEnum> m_productAddOns;
};

#endif
