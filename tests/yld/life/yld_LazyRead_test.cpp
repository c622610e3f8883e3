#include "call_results.h"
#include "patient_reporter.h"
#include "platform/store/lnk_Root.h"
#include "result_model.h"
#include "sql_log.h"
#include "yld/impl/life/yld_YldRepository.h"

#include <utility>

// What opening and the first accesses ask of the file, counted in statements.

namespace {

// A database of so many parts with sets, instances with sets, and steps with frames, at rest.
void makeModel(const std::string& path, int parts, int steps)
{
    yld_Yld& made = Yld(path.c_str(), "title", "description", path.c_str());
    for (int p = 0; p < parts; ++p) {
        yld_Part& part = made.Part(("part " + std::to_string(p)).c_str(), yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
        part.addNodes(ints({1, 2, 3, 4}), rows({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}}), "all");
        part.addElements(ints({1}), connectivity({{1, 2, 3, 4}}), "TET4", "solid");
        made.rootAssembly().Instance(("instance " + std::to_string(p)).c_str(), part);
    }
    for (int s = 0; s < steps; ++s) {
        made.Step(("step " + std::to_string(s)).c_str(), "", yld_Enum::TIME, 1.0).Frame(1, 0.5);
    }
    made.save();
    made.close();
}

// The classes that parts, steps and sets consist of in the file.
constexpr const char* contents[] = {"mshK_Part", "mshK_Mesh",    "mshK_PartInstance", "mshK_Step",
                                    "setC_Set",  "grd_NodeData", "grd_ElementClass",  "fld_Step",
                                    "fld_Frame", "fld_FieldStep"};

void expectNoContents(const SqlLog& log)
{
    for (const char* name : contents) EXPECT_EQ(log.naming(name), 0) << name;
}

long long statementsOfOpening(const std::string& path, bool readOnly, long long& rows)
{
    SqlLog log;
    openYld(path.c_str(), readOnly);
    expectNoContents(log);
    rows = log.rows;
    const auto asked = static_cast<long long>(log.statements.size());
    yld_YldRepository::Instance().get(path.c_str()).close();
    return asked;
}

class yld_LazyRead : public testing::Test
{
protected:
    const Library m_library;
    const ScratchFolder m_folder;
    const std::string m_path = m_folder.file("job.yld");
};

} // namespace

TEST_F(yld_LazyRead, openingReadsNoPartStepOrSet)
{
    const std::string small = m_folder.file("small.yld");
    makeModel(small, 1, 1); // the same tables, fewer rows
    makeModel(m_path, 20, 20);
    for (const bool readOnly : {true, false}) {
        long long rowsOfSmall = 0;
        long long rowsOfLarge = 0;
        const long long ofSmall = statementsOfOpening(small, readOnly, rowsOfSmall);
        const long long ofLarge = statementsOfOpening(m_path, readOnly, rowsOfLarge);
        EXPECT_GT(ofSmall, 0);
        EXPECT_EQ(ofLarge, ofSmall);
        EXPECT_EQ(rowsOfLarge, rowsOfSmall);
    }
}

TEST_F(yld_LazyRead, headerStringsReadNothing)
{
    makeModel(m_path, 2, 2);
    yld_Yld& open = openYld(m_path.c_str(), true);
    const auto asked = [&] { return lnk_Root::Instance().find(m_path)->database().statementCount(); };
    const long long before = asked();
    open.name();
    open.path();
    open.analysisTitle();
    open.description();
    open.globalJob();
    open.shellGlobalModelToSolid();
    open.isReadOnly();
    open.isClosed();
    EXPECT_EQ(asked(), before);
    open.close();
}

TEST_F(yld_LazyRead, updateOfAnUnreadDatabaseIsFalseAndReadsNothing)
{
    makeModel(m_path, 2, 2);
    SqlLog log;
    yld_Yld& open = openYld(m_path.c_str(), true);
    log.clear();
    EXPECT_FALSE(open.update());
    EXPECT_TRUE(log.statements.empty());
    open.close();
}

TEST_F(yld_LazyRead, firstAccessReadsModelThenStepsAndIsTheOnlyOne)
{
    makeModel(m_path, 2, 2);
    SqlLog log;
    yld_Yld& open = openYld(m_path.c_str(), true);
    log.clear();
    EXPECT_EQ(open.sectionCategories().size(), 1);
    EXPECT_GT(log.naming("mshK_Part\""), 0);
    EXPECT_GT(log.naming("fld_Step\""), 0);
    const auto first = [&](const char* name) {
        std::size_t place = 0;
        while (place < log.statements.size() && log.statements[place].find(name) == std::string::npos) ++place;
        return place;
    };
    EXPECT_LT(first("mshK_Part\""), first("mshK_PartInstance\""));
    EXPECT_LT(first("mshK_PartInstance\""), first("fld_Step\""));
    log.clear();
    EXPECT_EQ(open.parts().size(), 2);
    EXPECT_EQ(open.steps().size(), 2);
    EXPECT_EQ(open.rootAssembly().instances().size(), 2);
    EXPECT_EQ(open.constRootAssembly().instances().size(), 2);
    EXPECT_EQ(log.naming("mshK_Part"), 0);
    EXPECT_EQ(log.naming("fld_Step"), 0);
    open.close();
}

TEST_F(yld_LazyRead, everyAccessorStartsIt)
{
    makeModel(m_path, 1, 1);
    const std::function<int(yld_Yld&)> accesses[] = {
        [](yld_Yld& y) { return y.steps().size(); },
        [](yld_Yld& y) { return y.step().size(); },
        [](yld_Yld& y) { return std::as_const(y).steps().size(); },
        [](yld_Yld& y) { return std::as_const(y).step().size(); },
        [](yld_Yld& y) { return y.parts().size(); },
        [](yld_Yld& y) { return y.part().size(); },
        [](yld_Yld& y) { return y.rootAssembly().instances().size(); },
        [](yld_Yld& y) { return y.sectionCategories().size(); },
        [](yld_Yld& y) { return y.sectionCategory().size(); },
        [](yld_Yld& y) { return std::as_const(y).sectionCategories().size(); },
        [](yld_Yld& y) { return std::as_const(y).sectionCategory().size(); },
        [](yld_Yld& y) { return y.getFrame(0.0).incrementNumber(); },
    };
    for (const auto& access : accesses) {
        SqlLog log;
        yld_Yld& open = openYld(m_path.c_str(), true);
        log.clear();
        EXPECT_EQ(access(open), 1);
        EXPECT_GT(log.naming("mshK_Part\""), 0);
        EXPECT_GT(log.naming("fld_Step\""), 0);
        open.close();
    }
}

TEST_F(yld_LazyRead, constRootAssemblyReadsTheModelEachTimeAndNoStep)
{
    makeModel(m_path, 2, 2);
    SqlLog log;
    yld_Yld& open = openYld(m_path.c_str(), true);
    log.clear();
    EXPECT_EQ(open.constRootAssembly().instances().size(), 2);
    EXPECT_GT(log.naming("mshK_Part\""), 0);
    EXPECT_EQ(log.naming("fld_Step"), 0);
    EXPECT_EQ(log.naming("mshK_Step"), 0);
    EXPECT_FALSE(open.update()) << "the flag is clear";
    EXPECT_EQ(open.constRootAssembly().instances().size(), 2) << "a second time adds nothing twice";
    EXPECT_EQ(open.steps().size(), 2);
    EXPECT_EQ(open.parts().size(), 2);
    EXPECT_EQ(open.rootAssembly().instances().size(), 2);
    open.close();
}

TEST_F(yld_LazyRead, constRootAssemblySeesWhatCameInSinceAsLongAsNothingElseWasRead)
{
    yld_Yld& made = Yld("job", "", "", m_path.c_str());
    EXPECT_EQ(made.constRootAssembly().instances().size(), 0);
    // Another hand on the same store.
    yld_Yld other("other", "", "", m_path.c_str(), made.sto(), false, true);
    yld_Part& part = other.Part("part", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
    part.addNodes(ints({1}), rows({{0, 0, 0}}));
    other.rootAssembly().Instance("one", part);
    EXPECT_EQ(made.constRootAssembly().instances().size(), 1);
    EXPECT_EQ(made.rootAssembly().instances().size(), 1);
    other.rootAssembly().Instance("two", part);
    EXPECT_EQ(made.constRootAssembly().instances().size(), 1) << "now it was read for good";
    made.close();
}

TEST_F(yld_LazyRead, onlyUserDefinedDataHoldsTheStepsBack)
{
    makeModel(m_path, 1, 2);
    for (const bool readOnly : {true, false}) {
        SqlLog log;
        yld_Yld& open = openYld(m_path.c_str(), readOnly);
        log.clear();
        open.setOnlyHasUserDefinedData(true);
        EXPECT_EQ(open.steps().size(), 0);
        EXPECT_EQ(open.parts().size(), 1);
        EXPECT_EQ(log.naming("fld_Step"), 0);
        open.setOnlyHasUserDefinedData(false);
        EXPECT_EQ(open.steps().size(), 0) << "the first access was the only one";
        EXPECT_TRUE(open.update()) << "the steps are new to it";
        EXPECT_EQ(open.steps().size(), 2);
        open.close();
    }
}

TEST_F(yld_LazyRead, onlyUserDefinedDataIsKeptInTheFileAndAsksNothingOfTheNextReader)
{
    makeModel(m_path, 0, 2);
    yld_Yld& open = openYld(m_path.c_str(), false);
    open.setOnlyHasUserDefinedData(true);
    open.save();
    open.close();
    yld_Yld& again = openYld(m_path.c_str(), true);
    EXPECT_TRUE(again.sto().onlyHasUserDefinedData());
    EXPECT_EQ(again.steps().size(), 2);
    again.close();
}

TEST_F(yld_LazyRead, aFailedReadLeavesALaterTryToFailTheSameWay)
{
    makeModel(m_path, 1, 1);
    sqlite3* raw = nullptr;
    ASSERT_EQ(sqlite3_open(m_path.c_str(), &raw), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(raw, "DELETE FROM fld_Step", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(raw);
    yld_Yld& open = openYld(m_path.c_str(), true);
    const std::string first = failureOf([&] { open.steps(); });
    EXPECT_TRUE(first.starts_with(m_path + ": object ")) << first;
    EXPECT_TRUE(first.ends_with(" of class fld_Step is missing; the file is damaged")) << first;
    EXPECT_EQ(failureOf([&] { open.steps(); }), first);
    EXPECT_EQ(open.constRootAssembly().instances().size(), 1) << "the model is whole";
    open.close();
}

namespace {

// Takes the mesh of the first instance away.
void loseAMesh(const std::string& path)
{
    sqlite3* raw = nullptr;
    ASSERT_EQ(sqlite3_open(path.c_str(), &raw), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(raw,
                           "DELETE FROM mshK_Mesh WHERE oid = "
                           "(SELECT mesh FROM mshK_PartInstance ORDER BY oid LIMIT 1)",
                           nullptr, nullptr, nullptr),
              SQLITE_OK);
    ASSERT_EQ(sqlite3_changes(raw), 1);
    sqlite3_close(raw);
}

} // namespace

TEST_F(yld_LazyRead, anUnreadableSectionCategoryIsReportedAsAnError)
{
    makeModel(m_path, 2, 1);
    loseAMesh(m_path);
    yld_Yld& open = openYld(m_path.c_str(), true);
    std::string failure;
    EXPECT_EQ(warningsOf([&] { failure = failureOf([&] { open.sectionCategories(); }); }),
              "ERROR: Error reading SectionCategories.\n");
    EXPECT_EQ(failure, "Error reading SectionCategories.");
    open.close();
}

TEST_F(yld_LazyRead, aReporterThatTakesTheErrorLetsTheReadingGoOn)
{
    makeModel(m_path, 3, 1);
    loseAMesh(m_path);
    yld_Yld& open = openYld(m_path.c_str(), true);
    {
        PatientReporter reporter;
        // The assembly needs the same mesh, and fails by itself.
        const std::string failure = failureOf([&] { open.steps(); });
        EXPECT_TRUE(failure.ends_with(" of class mshK_Mesh is missing; the file is damaged")) << failure;
        EXPECT_EQ(reporter.told, std::vector<std::string>{"Error reading SectionCategories."})
            << "once for the one instance";
    }
    open.close();
}
