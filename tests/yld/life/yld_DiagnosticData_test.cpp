#include "yld_DiagnosticData.h"

#include "platform/diagnostic/dgn_DiagnosticData.h"
#include "platform/sto/sto_Sto.h"
#include "result_model.h"
#include "sql_log.h"

namespace {

dgn_DiagnosticData sample()
{
    dgn_DiagnosticData data;
    data.m_jobStatus = 2;
    data.m_userTime = 12.5;
    data.m_systemTime = 0.25;
    data.m_wallclockTime = 60.0;
    data.m_jobHistory = {99, 3, 2, 1, 7, 0, -1};
    return data;
}

void expectNothing(const yld_DiagnosticData& view)
{
    EXPECT_FALSE(view.isFilled());
    EXPECT_EQ(view.jobStatus(), yld_DiagnosticData::JOB_STATUS_UNKNOWN);
    EXPECT_EQ(view.jobTime().userTime(), 0.0);
    EXPECT_EQ(view.jobTime().systemTime(), 0.0);
    EXPECT_EQ(view.jobTime().wallclockTime(), 0.0);
    EXPECT_TRUE(view.jobHistoryDescription().isEmpty());
    const yld_NumericalProblemSummary summary = view.numericalProblemSummary();
    EXPECT_EQ(summary.numberOfNegativeEigenvalues(), 0);
    EXPECT_EQ(summary.numberOfNumericalSingularities(), 0);
    EXPECT_EQ(summary.numberOfZeroPivots(), 0);
    EXPECT_FALSE(summary.convergedNegativeEigenvalues());
    EXPECT_FALSE(summary.convergedNumericalSingularities());
    EXPECT_FALSE(summary.convergedZeroPivots());
}

void expectSample(const yld_DiagnosticData& view)
{
    EXPECT_TRUE(view.isFilled());
    EXPECT_EQ(view.jobStatus(), yld_DiagnosticData::JOB_STATUS_EXITED_WITH_ERROR);
    EXPECT_EQ(view.jobTime().userTime(), 12.5);
    EXPECT_EQ(view.jobTime().systemTime(), 0.25);
    EXPECT_EQ(view.jobTime().wallclockTime(), 60.0);
    ASSERT_EQ(view.jobHistoryDescription().size(), 7);
    EXPECT_EQ(view.jobHistoryDescription()[0], 99);
    EXPECT_EQ(view.jobHistoryDescription()[6], -1);
    const yld_NumericalProblemSummary summary = view.numericalProblemSummary();
    EXPECT_EQ(summary.numberOfNegativeEigenvalues(), 3);
    EXPECT_EQ(summary.numberOfNumericalSingularities(), 2);
    EXPECT_EQ(summary.numberOfZeroPivots(), 1);
    EXPECT_TRUE(summary.convergedNegativeEigenvalues());
    EXPECT_FALSE(summary.convergedNumericalSingularities());
    EXPECT_TRUE(summary.convergedZeroPivots()) << "whatever is not zero";
}

class yld_DiagnosticDataTest : public testing::Test
{
protected:
    yld_Yld& create() { return Yld("job", "title", "description", m_path.c_str()); }

    const Library m_library;
    const ScratchFolder m_folder;
    const std::string m_path = m_folder.file("job.yld");
};

} // namespace

TEST_F(yld_DiagnosticDataTest, ofADatabaseWithoutDiagnosticsIsAViewOnNothing)
{
    yld_Yld& made = create();
    expectNothing(made.diagnosticData());
    made.close();
    expectNothing(yld_Yld().diagnosticData());
    expectNothing(yld_DiagnosticData());
}

TEST_F(yld_DiagnosticDataTest, ofAClosedDatabaseIsAViewOnNothing)
{
    yld_Yld& made = create();
    made.sto().setDiagnosticData(sample());
    const yld_Yld copy = made;
    expectSample(copy.diagnosticData());
    made.close();
    expectNothing(copy.diagnosticData());
}

TEST_F(yld_DiagnosticDataTest, comesBackFromAClosedFile)
{
    yld_Yld& made = create();
    made.sto().setDiagnosticData(dgn_DiagnosticData());
    made.sto().setDiagnosticData(sample());
    expectSample(made.diagnosticData());
    made.save();
    made.close();
    yld_Yld& reader = openYld(m_path.c_str(), true);
    const yld_DiagnosticData view = reader.diagnosticData();
    expectSample(view);
    reader.close();
    expectSample(view);
}

TEST_F(yld_DiagnosticDataTest, readsNoPartAndNoStep)
{
    yld_Yld& made = create();
    made.Step("step", "", yld_Enum::TIME, 1.0);
    made.sto().setDiagnosticData(sample());
    made.save();
    made.close();
    SqlLog log;
    yld_Yld& reader = openYld(m_path.c_str(), true);
    EXPECT_EQ(log.naming("dgn_DiagnosticData"), 0) << "opening does not look at it";
    expectSample(reader.diagnosticData());
    EXPECT_GT(log.naming("dgn_DiagnosticData"), 0);
    EXPECT_EQ(log.naming("fld_Step"), 0);
    EXPECT_EQ(log.naming("mshK_Part"), 0);
    reader.close();
}

TEST_F(yld_DiagnosticDataTest, everyStatusIsTold)
{
    for (const auto status :
         {yld_DiagnosticData::JOB_STATUS_UNKNOWN, yld_DiagnosticData::JOB_STATUS_COMPLETED_SUCCESSFULLY,
          yld_DiagnosticData::JOB_STATUS_EXITED_WITH_ERROR,
          yld_DiagnosticData::JOB_STATUS_TERMINATED_BY_EXTERNAL_REQUEST}) {
        const auto data = std::make_shared<dgn_DiagnosticData>();
        data->m_jobStatus = status;
        EXPECT_EQ(yld_DiagnosticData(data).jobStatus(), status);
    }
}

TEST_F(yld_DiagnosticDataTest, entriesThatAShortHistoryHasNotCountAsZero)
{
    const auto data = std::make_shared<dgn_DiagnosticData>();
    data->m_jobHistory = {0, 5, 6};
    const yld_NumericalProblemSummary summary = yld_DiagnosticData(data).numericalProblemSummary();
    EXPECT_EQ(summary.numberOfNegativeEigenvalues(), 5);
    EXPECT_EQ(summary.numberOfNumericalSingularities(), 6);
    EXPECT_EQ(summary.numberOfZeroPivots(), 0);
    EXPECT_FALSE(summary.convergedNegativeEigenvalues());
}

TEST_F(yld_DiagnosticDataTest, aViewIsTwoWordsAndItsCopiesShareTheData)
{
    EXPECT_EQ(sizeof(yld_DiagnosticData), 2 * sizeof(void*));
    const auto data = std::make_shared<const dgn_DiagnosticData>(sample());
    const yld_DiagnosticData view(data);
    const yld_DiagnosticData copy = view;
    expectSample(copy);
    EXPECT_EQ(data.use_count(), 3);
}
