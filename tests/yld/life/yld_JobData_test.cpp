#include "yld_JobData.h"

#include "platform/sto/sto_Sto.h"
#include "result_model.h"
#include "sql_log.h"

#include <chrono>

namespace {

long long secondsNow()
{
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::seconds>(now).count();
}

class yld_JobDataTest : public testing::Test
{
protected:
    yld_Yld& create() { return Yld("job", "title", "description", m_path.c_str()); }
    void setHeader(const char* name, long long value)
    {
        sqlite3* raw = nullptr;
        ASSERT_EQ(sqlite3_open(m_path.c_str(), &raw), SQLITE_OK);
        const std::string statement =
            "UPDATE header SET value = " + std::to_string(value) + " WHERE name = '" + name + "'";
        ASSERT_EQ(sqlite3_exec(raw, statement.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
        ASSERT_EQ(sqlite3_changes(raw), 1);
        sqlite3_close(raw);
    }

    const Library m_library;
    const ScratchFolder m_folder;
    const std::string m_path = m_folder.file("job.yld");
};

} // namespace

TEST_F(yld_JobDataTest, ofANewDatabase)
{
    const long long before = secondsNow();
    yld_Yld& made = create();
    const yld_JobData job = made.jobData();
    EXPECT_STREQ(job.name().cStr(), "job");
    EXPECT_EQ(job.analysisCode(), yld_Enum::UNKNOWN_ANALYSIS_CODE);
    EXPECT_TRUE(std::string(job.version().cStr()).starts_with("ZANTRA/Scripting Interface ")) << job.version().cStr();
    EXPECT_LE(before, job.creationTime());
    EXPECT_LE(job.creationTime(), job.modificationTime());
    EXPECT_LE(job.modificationTime(), secondsNow());
    EXPECT_STREQ(job.machineName().cStr(), "");
    EXPECT_EQ(job.precision(), yld_Enum::SINGLE_PRECISION);
    EXPECT_TRUE(job.productAddOns().isEmpty());
    made.close();
}

TEST_F(yld_JobDataTest, theCodeIsReadFromTheVersionWhateverItsCase)
{
    yld_Yld& made = create();
    const auto codeOf = [&](const char* version) {
        made.sto().setAnalysisVersion(version);
        EXPECT_STREQ(made.jobData().version().cStr(), version) << "as it stands";
        return static_cast<int>(made.jobData().analysisCode());
    };
    EXPECT_EQ(codeOf("ZANTRA/Standard 6.1"), 1);
    EXPECT_EQ(codeOf("zantra/standard"), 1);
    EXPECT_EQ(codeOf("ZANTRA/STANDARD"), 1);
    EXPECT_EQ(codeOf("ZANTRA/Explicit 6.1"), 2);
    EXPECT_EQ(codeOf("xEXPLICITx"), 2);
    EXPECT_EQ(codeOf("Explicit, and standard after it"), 1);
    EXPECT_EQ(codeOf("Scripting Interface 6.1"), 0);
    EXPECT_EQ(codeOf("STAN DARD"), 0);
    EXPECT_EQ(codeOf(""), 0);
    made.close();
}

TEST_F(yld_JobDataTest, productAddOnsComeBackFromAClosedFile)
{
    yld_Yld& made = create();
    made.sto().setProductAddOns({1, 0, 1});
    made.sto().setAnalysisVersion("ZANTRA/Explicit 6.1");
    made.save();
    made.close();
    yld_Yld& again = openYld("again", m_path.c_str(), true, false);
    const yld_JobData job = again.jobData();
    EXPECT_STREQ(job.name().cStr(), "again") << "the name that it is open by";
    EXPECT_EQ(job.analysisCode(), yld_Enum::ZANTRA_EXPLICIT);
    ASSERT_EQ(job.productAddOns().size(), 3);
    EXPECT_EQ(job.productAddOns()[0], yld_Enum::ZANTRA_DESIGN);
    EXPECT_EQ(job.productAddOns()[1], yld_Enum::WELD_MARINE);
    EXPECT_EQ(job.productAddOns()[2], yld_Enum::ZANTRA_DESIGN);
    again.close();
}

TEST_F(yld_JobDataTest, timesAreWholeSecondsOfWhatTheFileKeeps)
{
    create().close();
    setHeader("creation date", 1999999);
    setHeader("modification date", 7000000);
    yld_Yld& again = openYld(m_path.c_str(), true);
    EXPECT_EQ(again.jobData().creationTime(), 1);
    EXPECT_EQ(again.jobData().modificationTime(), 7);
    again.close();
}

TEST_F(yld_JobDataTest, aSaveMovesTheTimeOfModificationAlone)
{
    create().close();
    setHeader("creation date", 1000000);
    setHeader("modification date", 1000000);
    const long long before = secondsNow();
    yld_Yld& writer = openYld(m_path.c_str(), false);
    EXPECT_EQ(writer.jobData().modificationTime(), 1);
    writer.setDescription("changed");
    EXPECT_EQ(writer.jobData().modificationTime(), 1) << "nothing is saved yet";
    writer.save();
    EXPECT_GE(writer.jobData().modificationTime(), before);
    EXPECT_EQ(writer.jobData().creationTime(), 1);
    const long long saved = writer.jobData().modificationTime();
    writer.close();
    yld_Yld& reader = openYld(m_path.c_str(), true);
    EXPECT_EQ(reader.jobData().modificationTime(), saved);
    EXPECT_EQ(reader.jobData().creationTime(), 1);
    reader.close();
}

TEST_F(yld_JobDataTest, aFileThatHasNotKeptItsModificationWasModifiedWhenItWasMade)
{
    create().close();
    setHeader("creation date", 5000000);
    setHeader("modification date", 0);
    yld_Yld& reader = openYld(m_path.c_str(), true);
    EXPECT_EQ(reader.jobData().modificationTime(), 5);
    reader.close();
}

TEST_F(yld_JobDataTest, isAskedOfTheHeaderAlone)
{
    yld_Yld& made = create();
    made.Step("step", "", yld_Enum::TIME, 1.0);
    made.save();
    made.close();
    SqlLog log;
    yld_Yld& reader = openYld(m_path.c_str(), true);
    reader.jobData();
    EXPECT_EQ(log.naming("fld_Step"), 0);
    EXPECT_EQ(log.naming("mshK_Part"), 0);
    reader.close();
}

TEST_F(yld_JobDataTest, ofNoDatabaseIsAnError)
{
    EXPECT_EQ(failureOf([] { yld_Yld().jobData(); }), "store: no store is open here");
    const yld_JobData none;
    EXPECT_STREQ(none.name().cStr(), "");
    EXPECT_EQ(none.analysisCode(), yld_Enum::UNKNOWN_ANALYSIS_CODE);
    EXPECT_EQ(none.creationTime(), 0);
    EXPECT_EQ(none.modificationTime(), 0);
    EXPECT_EQ(none.precision(), yld_Enum::SINGLE_PRECISION);
    EXPECT_EQ(none.productAddOns().size(), 0);
}
