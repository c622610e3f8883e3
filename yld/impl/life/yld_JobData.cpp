#include "yld_JobData.h"

yld_JobData::yld_JobData() = default;

yld_JobData::yld_JobData(const yld_String& name, yld_Enum::yld_AnalysisCodeEnum analysisCode, const yld_String& version,
                         long long creationTime, long long modificationTime, const yld_String& machineName,
                         yld_Enum::yld_PrecisionEnum precision,
                         const yld_Sequence<yld_Enum::yld_ProductAddOnEnum>& productAddOns)
    : m_name(name), m_analysisCode(analysisCode), m_version(version), m_creationTime(creationTime),
      m_modificationTime(modificationTime), m_machineName(machineName), m_precision(precision),
      m_productAddOns(productAddOns)
{
}

yld_JobData::yld_JobData(const yld_JobData&) = default;
yld_JobData& yld_JobData::operator=(const yld_JobData&) = default;
yld_JobData::~yld_JobData() = default;
