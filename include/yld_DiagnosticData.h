#ifndef YLD_DIAGNOSTIC_DATA_H
#define YLD_DIAGNOSTIC_DATA_H

#include "platform/base/bas_Export.h"
#include "yld_Sequence.h"

#include <memory>

class dgn_DiagnosticData;

/// The times that a job took, in seconds.
class YLD_API yld_JobTime
{
public:
    yld_JobTime(double userTime, double systemTime, double wallclockTime)
        : m_userTime(userTime), m_systemTime(systemTime), m_wallclockTime(wallclockTime)
    {
    }

    double userTime() const { return m_userTime; }
    double systemTime() const { return m_systemTime; }
    double wallclockTime() const { return m_wallclockTime; }

private:
    double m_userTime;
    double m_systemTime;
    double m_wallclockTime;
};

/// How often the solver met a problem with the numbers, and whether it did in what converged.
class YLD_API yld_NumericalProblemSummary
{
public:
    yld_NumericalProblemSummary(int numberOfNegativeEigenvalues, int numberOfNumericalSingularities,
                                int numberOfZeroPivots, bool convergedNegativeEigenvalues,
                                bool convergedNumericalSingularities, bool convergedZeroPivots)
        : m_numberOfNegativeEigenvalues(numberOfNegativeEigenvalues),
          m_numberOfNumericalSingularities(numberOfNumericalSingularities), m_numberOfZeroPivots(numberOfZeroPivots),
          m_convergedNegativeEigenvalues(convergedNegativeEigenvalues),
          m_convergedNumericalSingularities(convergedNumericalSingularities), m_convergedZeroPivots(convergedZeroPivots)
    {
    }

    int numberOfNegativeEigenvalues() const { return m_numberOfNegativeEigenvalues; }
    int numberOfNumericalSingularities() const { return m_numberOfNumericalSingularities; }
    int numberOfZeroPivots() const { return m_numberOfZeroPivots; }
    bool convergedNegativeEigenvalues() const { return m_convergedNegativeEigenvalues; }
    bool convergedNumericalSingularities() const { return m_convergedNumericalSingularities; }
    bool convergedZeroPivots() const { return m_convergedZeroPivots; }

private:
    int m_numberOfNegativeEigenvalues;
    int m_numberOfNumericalSingularities;
    int m_numberOfZeroPivots;
    bool m_convergedNegativeEigenvalues;
    bool m_convergedNumericalSingularities;
    bool m_convergedZeroPivots;
};

/// A view on what a job has told of its course: two words, the data themselves are shared with the store. It stays good
/// when the database closes.
class YLD_API yld_DiagnosticData
{
public:
    enum JobStatus : int
    {
        JOB_STATUS_UNKNOWN = 0,
        JOB_STATUS_COMPLETED_SUCCESSFULLY = 1,
        JOB_STATUS_EXITED_WITH_ERROR = 2,
        JOB_STATUS_TERMINATED_BY_EXTERNAL_REQUEST = 3
    };

    /// On nothing, as of a database without diagnostics: status unknown, all times and counts zero.
    yld_DiagnosticData();
    explicit yld_DiagnosticData(const std::shared_ptr<const dgn_DiagnosticData>& data);
    yld_DiagnosticData(const yld_DiagnosticData&);
    yld_DiagnosticData& operator=(const yld_DiagnosticData&);
    ~yld_DiagnosticData();

    /// Whether there is anything to view.
    bool isFilled() const { return m_data != nullptr; }

    JobStatus jobStatus() const;
    yld_JobTime jobTime() const;
    /// The counts and flags of the numerical problem summary from entry 1 on; what else stands here is the solver's.
    yld_Sequence<int> jobHistoryDescription() const;
    /// What the job history description tells; an entry that it lacks counts as 0.
    yld_NumericalProblemSummary numericalProblemSummary() const;

private:
    std::shared_ptr<const dgn_DiagnosticData> m_data;
};

#endif
