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

/// What a job has reported of its course as a whole: status, times, numerical problems. A small value; the data are
/// shared with the store and stay good after the database is closed.
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

    /// As of a database without diagnostics: status unknown, all times and counts zero.
    yld_DiagnosticData();
    explicit yld_DiagnosticData(const std::shared_ptr<const dgn_DiagnosticData>& data);
    yld_DiagnosticData(const yld_DiagnosticData&);
    yld_DiagnosticData& operator=(const yld_DiagnosticData&);
    ~yld_DiagnosticData();

    /// Whether the database has diagnostics.
    bool isFilled() const { return m_data != nullptr; }

    JobStatus jobStatus() const;
    yld_JobTime jobTime() const;
    /// Numbers from the solver. Entries 1 to 3 (from 0) count negative eigenvalues, numerical singularities and zero
    /// pivots, entries 4 to 6 are 1 where the problem occurred in a converged iteration; what the others mean is the
    /// solver's affair.
    yld_Sequence<int> jobHistoryDescription() const;
    /// Entries 1 to 6 of the above by name; one that is missing counts as 0.
    yld_NumericalProblemSummary numericalProblemSummary() const;

private:
    std::shared_ptr<const dgn_DiagnosticData> m_data;
};

#endif
