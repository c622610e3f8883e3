#include "yld_DiagnosticData.h"

#include "platform/diagnostic/dgn_DiagnosticData.h"
#include "yld/impl/base/yld_Convert.h"

yld_DiagnosticData::yld_DiagnosticData() = default;
yld_DiagnosticData::yld_DiagnosticData(const std::shared_ptr<const dgn_DiagnosticData>& data) : m_data(data) {}
yld_DiagnosticData::yld_DiagnosticData(const yld_DiagnosticData&) = default;
yld_DiagnosticData& yld_DiagnosticData::operator=(const yld_DiagnosticData&) = default;
yld_DiagnosticData::~yld_DiagnosticData() = default;

yld_DiagnosticData::JobStatus yld_DiagnosticData::jobStatus() const
{
    return m_data ? static_cast<JobStatus>(m_data->GetJobStatus()) : JOB_STATUS_UNKNOWN;
}

yld_JobTime yld_DiagnosticData::jobTime() const
{
    double user = 0.0;
    double system = 0.0;
    double wallclock = 0.0;
    if (m_data) m_data->GetJobCpuTimes(user, system, wallclock);
    return yld_JobTime(user, system, wallclock);
}

yld_Sequence<int> yld_DiagnosticData::jobHistoryDescription() const
{
    return m_data ? yld_Convert::sequence(m_data->GetJobHistoryDescription()) : yld_Sequence<int>();
}

yld_NumericalProblemSummary yld_DiagnosticData::numericalProblemSummary() const
{
    const yld_Sequence<int> history = jobHistoryDescription();
    const auto entry = [&history](int index) { return index < history.size() ? history[index] : 0; };
    return yld_NumericalProblemSummary(entry(1), entry(2), entry(3), entry(4) != 0, entry(5) != 0, entry(6) != 0);
}
