#ifndef DGN_DIAGNOSTIC_DATA_H
#define DGN_DIAGNOSTIC_DATA_H

#include "platform/store/pcl_Persistent.h"

#include <vector>

/// What a job has told of its course as a whole.
class dgn_DiagnosticData : public pcl_Class<dgn_DiagnosticData>
{
public:
    static constexpr const char* className = "dgn_DiagnosticData";
    static constexpr unsigned classId = 0x00500001;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("job status", self.m_jobStatus);
        visit("user time", self.m_userTime);
        visit("system time", self.m_systemTime);
        visit("wallclock time", self.m_wallclockTime);
        visit("job history", self.m_jobHistory);
    }

    int GetJobStatus() const { return m_jobStatus; }
    /// Seconds.
    void GetJobCpuTimes(double& user, double& system, double& wallclock) const
    {
        user = m_userTime;
        system = m_systemTime;
        wallclock = m_wallclockTime;
    }
    const std::vector<int>& GetJobHistoryDescription() const { return m_jobHistory; }

    int m_jobStatus = 0;
    double m_userTime = 0.0;
    double m_systemTime = 0.0;
    double m_wallclockTime = 0.0;
    /// Entries 1 to 3 count negative eigenvalues, numerical singularities and zero pivots, and 4 to 6 tell of each
    /// whether it came up in what converged.
    std::vector<int> m_jobHistory;
};

#endif
