#include "other_process.h"
#include "patient_reporter.h"
#include "platform/sto/sto_Model.h"
#include "platform/sto/sto_Result.h"
#include "platform/sto/sto_StoContainer.h"
#include "platform/sto/sto_UserData.h"
#include "result_model.h"
#include "sql_log.h"

#include <fstream>
#include <iterator>
#include <limits>
#include <utility>

namespace {

using Rows = std::vector<std::vector<float>>;

Rows listed(const yld_Sequence<yld_Sequence<float>>& data)
{
    Rows all;
    for (int i = 0; i < data.size(); ++i) {
        all.emplace_back();
        for (int c = 0; c < data[i].size(); ++c) all.back().push_back(data[i][c]);
    }
    return all;
}

yld_UserXYData& addCurve(yld_UserData& userData, const char* name, const char* legend = "legend")
{
    return userData.XYData(name, yld_Enum::XY_FROM_FILE, "points.txt", "a file", "stress", "node 7", "time", "MPa",
                           legend);
}

void expectTexts(const yld_UserXYData& curve, const char* name)
{
    EXPECT_STREQ(curve.name().cStr(), name);
    EXPECT_EQ(curve.sourceType(), yld_Enum::XY_FROM_FILE);
    EXPECT_STREQ(curve.sourceFileName().cStr(), "points.txt");
    EXPECT_STREQ(curve.sourceDescription().cStr(), "a file");
    EXPECT_STREQ(curve.contentDescription().cStr(), "stress");
    EXPECT_STREQ(curve.positionDescription().cStr(), "node 7");
    EXPECT_STREQ(curve.xAxisLabel().cStr(), "time");
    EXPECT_STREQ(curve.yAxisLabel().cStr(), "MPa");
    EXPECT_STREQ(curve.legendLabel().cStr(), "legend");
}

std::string bytesOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

class yld_UserDataTest : public testing::Test
{
protected:
    yld_Yld& create() { return Yld("job", "title", "description", m_path.c_str()); }
    yld_Yld& open(bool readOnly = true) { return openYld("job", m_path.c_str(), readOnly, false); }
    yld_Yld& reopen(yld_Yld& yld, bool readOnly = true)
    {
        yld.save();
        yld.close();
        return open(readOnly);
    }
    // Another object on the store of an open database.
    static yld_Yld another(const yld_Yld& yld) { return yld_Yld("another", "", "", "", yld.sto(), false, false); }
    void damage(const char* statement)
    {
        sqlite3* raw = nullptr;
        ASSERT_EQ(sqlite3_open(m_path.c_str(), &raw), SQLITE_OK);
        ASSERT_EQ(sqlite3_exec(raw, statement, nullptr, nullptr, nullptr), SQLITE_OK);
        ASSERT_GT(sqlite3_changes(raw), 0);
        sqlite3_close(raw);
    }

    const Library m_library;
    const ScratchFolder m_folder;
    const std::string m_path = m_folder.file("job.yld");
};

} // namespace

TEST_F(yld_UserDataTest, aNewCurveHasWhatItWasToldAndNoPoints)
{
    yld_Yld& made = create();
    const yld_UserXYData& curve = addCurve(made.userData(), "curve");
    expectTexts(curve, "curve");
    EXPECT_TRUE(curve.getData().isEmpty());
    EXPECT_EQ(made.userData().xyDataObjects().size(), 1);
    made.close();
}

TEST_F(yld_UserDataTest, bothNamesOfEachOperationDoTheSame)
{
    yld_Yld& made = create();
    yld_UserData& userData = made.userData();
    yld_UserXYData& curve = userData.UserXYData("curve", yld_Enum::XY_FROM_FILE, "points.txt", "a file", "stress",
                                                "node 7", "time", "MPa", "legend");
    expectTexts(curve, "curve");
    EXPECT_EQ(&userData.xyDataObjects("curve"), &curve);
    EXPECT_EQ(&userData.userXYData("curve"), &curve);
    EXPECT_EQ(&userData.userXYData(), &userData.xyDataObjects());
    const yld_UserData& reading = std::as_const(made).userData();
    EXPECT_EQ(&reading, &userData);
    EXPECT_EQ(&reading.xyDataObjects("curve"), &curve);
    EXPECT_EQ(&reading.userXYData("curve"), &curve);
    EXPECT_EQ(&reading.xyDataObjects(), &reading.userXYData());
    made.close();
}

TEST_F(yld_UserDataTest, curvesComeBackFromAClosedFile)
{
    yld_Yld& made = create();
    addCurve(made.userData(), "curve").addData(rows({{0.0F, 1.5F}, {1.0F, -2.5F}, {2.0F, 1e30F}}));
    addCurve(made.userData(), "another").addData(rows({{7.0F, 8.0F}}));
    yld_Yld& again = reopen(made);
    const yld_UserData& userData = again.userData();
    EXPECT_EQ(joined(userData.xyDataObjects().keys()), "another,curve");
    expectTexts(userData.xyDataObjects("curve"), "curve");
    EXPECT_EQ(listed(userData.xyDataObjects("curve").getData()), (Rows{{0.0F, 1.5F}, {1.0F, -2.5F}, {2.0F, 1e30F}}));
    EXPECT_EQ(listed(userData.xyDataObjects("another").getData()), (Rows{{7.0F, 8.0F}}));
    again.close();
}

TEST_F(yld_UserDataTest, everySourceTypeComesBack)
{
    yld_Yld& made = create();
    const std::pair<const char*, yld_Enum::yld_XYSourceTypeEnm> sources[] = {{"a", yld_Enum::XY_FROM_KEYBOARD},
                                                                             {"b", yld_Enum::XY_FROM_FILE},
                                                                             {"c", yld_Enum::XY_FROM_FIELD_OUTPUT},
                                                                             {"d", yld_Enum::XY_FROM_HISTORY_OUTPUT},
                                                                             {"e", yld_Enum::XY_FROM_OPERATION}};
    for (const auto& [name, source] : sources) made.userData().XYData(name, source, "", "", "", "", "", "", "");
    yld_Yld& again = reopen(made);
    EXPECT_EQ(again.userData().xyDataObjects().size(), 5);
    for (const auto& [name, source] : sources) EXPECT_EQ(again.userData().xyDataObjects(name).sourceType(), source);
    again.close();
}

TEST_F(yld_UserDataTest, whatIsNotSavedIsForgotten)
{
    yld_Yld& made = create();
    addCurve(made.userData(), "kept").addData(rows({{1.0F, 2.0F}}));
    yld_Yld& again = reopen(made, false);
    addCurve(again.userData(), "lost");
    again.userData().xyDataObjects("kept").addData(rows({{3.0F, 4.0F}}));
    again.close();
    yld_Yld& last = open();
    EXPECT_EQ(joined(last.userData().xyDataObjects().keys()), "kept");
    EXPECT_EQ(listed(last.userData().xyDataObjects("kept").getData()), (Rows{{1.0F, 2.0F}}));
    last.close();
}

TEST(yld_UserDataProcesses, curvesOfAnotherProcessAreRead)
{
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    EXPECT_EQ(inOtherProcess([&] {
                  const Library library;
                  yld_Yld& made = Yld("job", "", "", path.c_str());
                  addCurve(made.userData(), "curve").addData(rows({{1.0F, 2.0F}, {3.0F, 4.0F}}));
                  made.save();
                  made.close();
              }),
              0);
    const Library library;
    yld_Yld& read = openYld(path.c_str(), true);
    expectTexts(read.userData().xyDataObjects("curve"), "curve");
    EXPECT_EQ(listed(read.userData().xyDataObjects("curve").getData()), (Rows{{1.0F, 2.0F}, {3.0F, 4.0F}}));
    read.close();
}

TEST_F(yld_UserDataTest, addDataReplacesWhatIsThere)
{
    yld_Yld& made = create();
    yld_UserXYData& curve = addCurve(made.userData(), "curve");
    curve.addData(rows({{1.0F, 2.0F}, {3.0F, 4.0F}}));
    curve.addData(rows({{5.0F, 6.0F}}));
    EXPECT_EQ(listed(curve.getData()), (Rows{{5.0F, 6.0F}}));
    yld_Yld& again = reopen(made, false);
    EXPECT_EQ(listed(again.userData().xyDataObjects("curve").getData()), (Rows{{5.0F, 6.0F}}));
    again.userData().xyDataObjects("curve").addData(rows({{7.0F, 8.0F}, {9.0F, 10.0F}}));
    yld_Yld& last = reopen(again);
    EXPECT_EQ(listed(last.userData().xyDataObjects("curve").getData()), (Rows{{7.0F, 8.0F}, {9.0F, 10.0F}}));
    last.close();
}

TEST_F(yld_UserDataTest, addedPointsAreNotReadFromTheStore)
{
    yld_Yld& made = create();
    addCurve(made.userData(), "curve").addData(rows({{1.0F, 2.0F}}));
    yld_Yld& again = reopen(made, false);
    yld_Yld other = another(again);
    yld_UserXYData& curve = again.userData().xyDataObjects("curve");
    curve.addData(rows({{3.0F, 4.0F}}));
    other.userData().xyDataObjects("curve").addData(rows({{5.0F, 6.0F}}));
    EXPECT_EQ(listed(curve.getData()), (Rows{{3.0F, 4.0F}}));
    EXPECT_EQ(listed(another(again).userData().xyDataObjects("curve").getData()), (Rows{{5.0F, 6.0F}}))
        << "what the store has";
    again.close();
}

TEST_F(yld_UserDataTest, pointsAreReadWithTheFirstQuestionAndNotAgain)
{
    yld_Yld& made = create();
    addCurve(made.userData(), "curve");
    yld_Yld other = another(made);
    const yld_UserXYData& curve = other.userData().xyDataObjects("curve");
    made.userData().xyDataObjects("curve").addData(rows({{1.0F, 2.0F}}));
    EXPECT_EQ(listed(curve.getData()), (Rows{{1.0F, 2.0F}})) << "the list was read before there were points";
    made.userData().xyDataObjects("curve").addData(rows({{3.0F, 4.0F}}));
    EXPECT_EQ(listed(curve.getData()), (Rows{{1.0F, 2.0F}}));
    made.close();
}

TEST_F(yld_UserDataTest, aCurveOfStoredSizeZeroIsEmptyAndCountsAsRead)
{
    yld_Yld& made = create();
    addCurve(made.userData(), "curve");
    yld_Yld other = another(made);
    const yld_UserXYData& curve = other.userData().xyDataObjects("curve");
    EXPECT_TRUE(curve.getData().isEmpty());
    made.userData().xyDataObjects("curve").addData(rows({{1.0F, 2.0F}}));
    EXPECT_TRUE(curve.getData().isEmpty()) << "it is not read again";
    made.close();
}

TEST_F(yld_UserDataTest, aStoredContainerWithoutCurvesLeavesTheListEmptyAndRead)
{
    yld_Yld& made = create();
    yld_Yld other = another(made);
    EXPECT_TRUE(other.userData().xyDataObjects().isEmpty());
    addCurve(made.userData(), "curve");
    EXPECT_TRUE(other.userData().xyDataObjects().isEmpty()) << "the list is not read again";
    made.close();
}

TEST_F(yld_UserDataTest, aSecondCurveOfANameLeavesTheFirst)
{
    yld_Yld& made = create();
    yld_UserXYData& first = addCurve(made.userData(), "curve");
    first.addData(rows({{1.0F, 2.0F}}));
    yld_UserXYData& second =
        made.userData().XYData("curve", yld_Enum::XY_FROM_KEYBOARD, "x", "x", "x", "x", "x", "x", "x");
    EXPECT_EQ(&second, &first);
    expectTexts(second, "curve");
    EXPECT_EQ(made.userData().xyDataObjects().size(), 1);
    yld_Yld& again = reopen(made);
    EXPECT_EQ(again.userData().xyDataObjects().size(), 1);
    expectTexts(again.userData().xyDataObjects("curve"), "curve");
    EXPECT_EQ(listed(again.userData().xyDataObjects("curve").getData()), (Rows{{1.0F, 2.0F}}));
    again.close();
}

TEST_F(yld_UserDataTest, aUsedNameIsKnownAlsoBeforeTheListWasRead)
{
    yld_Yld& made = create();
    addCurve(made.userData(), "curve");
    yld_UserData fresh(made.sto().userData());
    expectTexts(fresh.XYData("curve", yld_Enum::XY_FROM_KEYBOARD, "x", "x", "x", "x", "x", "x", "x"), "curve");
    made.close();
}

TEST_F(yld_UserDataTest, anUnknownNameIsReportedAsAnError)
{
    yld_Yld& made = create();
    for (const auto& ask : std::initializer_list<std::function<void()>>{
             [&] { made.userData().xyDataObjects("none"); }, [&] { made.userData().userXYData("none"); },
             [&] { std::as_const(made).userData().xyDataObjects("none"); }}) {
        std::string failure;
        EXPECT_EQ(warningsOf([&] { failure = failureOf(ask); }),
                  "ERROR: XYData 'none' is not a member of  the yld.'\n");
        EXPECT_EQ(failure, "XYData 'none' is not a member of  the yld.'");
    }
    made.close();
}

TEST_F(yld_UserDataTest, aReporterThatTakesTheErrorLeavesTheKeyCheckToRaise)
{
    yld_Yld& made = create();
    const PatientReporter reporter;
    EXPECT_EQ(failureOf([&] { made.userData().xyDataObjects("none"); }), "Key \"none\" not found in repository");
    EXPECT_EQ(reporter.told, std::vector<std::string>{"XYData 'none' is not a member of  the yld.'"});
    EXPECT_TRUE(made.userData().xyDataObjects().isEmpty());
    made.close();
}

TEST_F(yld_UserDataTest, anUnknownSourceTypeIsRefusedBeforeAnythingIsMade)
{
    yld_Yld& made = create();
    EXPECT_EQ(failureOf([&] {
                  made.userData().XYData("curve", static_cast<yld_Enum::yld_XYSourceTypeEnm>(5), "", "", "", "", "", "",
                                         "");
              }),
              "Could not map SourceType Enumeration");
    EXPECT_TRUE(made.userData().xyDataObjects().isEmpty());
    EXPECT_EQ(made.sto().userData().curveCount(), 0);
    made.close();
}

TEST_F(yld_UserDataTest, descriptionIsAskedOfTheStoreEachTime)
{
    yld_Yld& made = create();
    const yld_UserXYData& curve = addCurve(made.userData(), "curve");
    EXPECT_STREQ(curve.description().cStr(), "stress, node 7, a file");
    sto_UserXYData stored = made.sto().userData().userXYData()["curve"];
    stored.setPositionDescription("");
    EXPECT_STREQ(curve.description().cStr(), "stress, a file");
    EXPECT_STREQ(curve.positionDescription().cStr(), "node 7") << "what was read stays";
    stored.setContentDescription("");
    stored.setSourceDescription("");
    EXPECT_STREQ(curve.description().cStr(), "");
    made.close();
}

TEST_F(yld_UserDataTest, rowsOfAnyLengthComeBack)
{
    const Rows ragged = {{1.0F, 2.0F, 3.0F}, {}, {4.0F}, {5.0F, 6.0F}};
    yld_Yld& made = create();
    addCurve(made.userData(), "ragged").addData(rows({{1.0F, 2.0F, 3.0F}, {}, {4.0F}, {5.0F, 6.0F}}));
    addCurve(made.userData(), "wide").addData(rows({{1.0F, 2.0F, 3.0F}, {4.0F, 5.0F, 6.0F}}));
    addCurve(made.userData(), "narrow").addData(rows({{1.0F}, {2.0F}, {3.0F}}));
    addCurve(made.userData(), "hollow").addData(rows({{}, {}}));
    addCurve(made.userData(), "emptied").addData(rows({{1.0F, 2.0F}}));
    made.userData().xyDataObjects("emptied").addData(rows({}));
    yld_Yld& again = reopen(made, false);
    yld_UserData& userData = again.userData();
    EXPECT_EQ(listed(userData.xyDataObjects("ragged").getData()), ragged);
    EXPECT_EQ(listed(userData.xyDataObjects("wide").getData()), (Rows{{1.0F, 2.0F, 3.0F}, {4.0F, 5.0F, 6.0F}}));
    EXPECT_EQ(listed(userData.xyDataObjects("narrow").getData()), (Rows{{1.0F}, {2.0F}, {3.0F}}));
    EXPECT_EQ(listed(userData.xyDataObjects("hollow").getData()), (Rows{{}, {}}));
    EXPECT_EQ(listed(userData.xyDataObjects("emptied").getData()), Rows{});

    userData.xyDataObjects("ragged").addData(rows({{1.0F, 2.0F}, {3.0F, 4.0F}}));
    userData.xyDataObjects("wide").addData(rows({}));
    userData.xyDataObjects("narrow").addData(rows({{1.0F}, {2.0F, 3.0F}}));
    yld_Yld& last = reopen(again);
    EXPECT_EQ(listed(last.userData().xyDataObjects("ragged").getData()), (Rows{{1.0F, 2.0F}, {3.0F, 4.0F}}));
    EXPECT_EQ(listed(last.userData().xyDataObjects("wide").getData()), Rows{});
    EXPECT_EQ(listed(last.userData().xyDataObjects("narrow").getData()), (Rows{{1.0F}, {2.0F, 3.0F}}));
    last.close();
}

TEST_F(yld_UserDataTest, aLongCurveComesBackWhole)
{
    constexpr int count = 100000;
    yld_Sequence<yld_Sequence<float>> points(count);
    for (int i = 0; i < count; ++i) points.append(floats({static_cast<float>(i), 0.5F * static_cast<float>(i)}));
    yld_Yld& made = create();
    addCurve(made.userData(), "curve").addData(points);
    yld_Yld& again = reopen(made);
    const yld_Sequence<yld_Sequence<float>>& data = again.userData().xyDataObjects("curve").getData();
    ASSERT_EQ(data.size(), count);
    int wrong = 0;
    for (int i = 0; i < count; ++i) {
        const bool same =
            data[i].size() == 2 && data[i][0] == static_cast<float>(i) && data[i][1] == 0.5F * static_cast<float>(i);
        if (!same) ++wrong;
    }
    EXPECT_EQ(wrong, 0);
    again.close();
}

TEST_F(yld_UserDataTest, aReaderTakesNoCurvesAndNoPoints)
{
    yld_Yld& made = create();
    addCurve(made.userData(), "curve").addData(rows({{1.0F, 2.0F}}));
    yld_Yld& reader = reopen(made);
    const std::string refused = m_path + ": the database is open for reading only";
    EXPECT_EQ(failureOf([&] { addCurve(reader.userData(), "new"); }), refused);
    EXPECT_EQ(reader.userData().xyDataObjects().size(), 1);
    yld_UserXYData& curve = reader.userData().xyDataObjects("curve");
    EXPECT_EQ(failureOf([&] { curve.addData(rows({{3.0F, 4.0F}})); }), refused);
    EXPECT_EQ(listed(curve.getData()), (Rows{{1.0F, 2.0F}})) << "a refused call changes nothing";
    reader.close();
}

TEST_F(yld_UserDataTest, userDataOfNoDatabaseAreEmpty)
{
    yld_UserData none;
    EXPECT_TRUE(none.xyDataObjects().isEmpty());
    EXPECT_EQ(failureOf([&] { addCurve(none, "curve"); }), "user data: the database has none, and none can be added");
    EXPECT_TRUE(none.xyDataObjects().isEmpty());
    yld_UserXYData curve;
    EXPECT_STREQ(curve.name().cStr(), "");
    EXPECT_EQ(curve.sourceType(), yld_Enum::XY_FROM_KEYBOARD);
    EXPECT_STREQ(curve.description().cStr(), "");
    EXPECT_TRUE(curve.getData().isEmpty());
    EXPECT_EQ(failureOf([&] {
                  curve.addData(rows({{1.0F, 2.0F}}));
              }),
              "sto_UserXYData: a reference to no object was resolved");
    EXPECT_TRUE(curve.getData().isEmpty());
}

TEST_F(yld_UserDataTest, aCurveOfAClosedDatabaseKeepsWhatItHasReadAndNoMore)
{
    yld_Yld& made = create();
    addCurve(made.userData(), "read").addData(rows({{1.0F, 2.0F}}));
    addCurve(made.userData(), "unread").addData(rows({{1.0F, 2.0F}}));
    yld_Yld& again = reopen(made);
    const yld_UserXYData unread = again.userData().xyDataObjects("unread");
    again.userData().xyDataObjects("read").getData();
    const yld_UserXYData read = again.userData().xyDataObjects("read");
    again.close();
    EXPECT_EQ(listed(read.getData()), (Rows{{1.0F, 2.0F}}));
    const std::string first = failureOf([&] { unread.getData(); });
    EXPECT_NE(first, "no exception");
    EXPECT_EQ(failureOf([&] { unread.getData(); }), first) << "it does not count as read";
}

TEST_F(yld_UserDataTest, readUserXYDataBringsInOneCurve)
{
    yld_Yld& made = create();
    yld_Yld other = another(made);
    EXPECT_TRUE(other.userData().xyDataObjects().isEmpty());
    addCurve(made.userData(), "one");
    addCurve(made.userData(), "two");
    other.userData().ReadUserXYData("two");
    EXPECT_EQ(joined(other.userData().xyDataObjects().keys()), "two");
    expectTexts(other.userData().xyDataObjects("two"), "two");
    EXPECT_EQ(failureOf([&] { other.userData().ReadUserXYData("three"); }), "user data: has no curve named \"three\"");
    other.userData().ReadUserXYDataCon();
    EXPECT_EQ(joined(other.userData().xyDataObjects().keys()), "one,two");
    made.close();
}

TEST_F(yld_UserDataTest, copiesOfADatabaseShareTheListUntilOneGetsACurve)
{
    yld_Yld& made = create();
    addCurve(made.userData(), "first");
    yld_Yld copy = made;
    EXPECT_EQ(&std::as_const(copy).userData().xyDataObjects("first"),
              &std::as_const(made).userData().xyDataObjects("first"))
        << "one entry";
    addCurve(copy.userData(), "second");
    EXPECT_EQ(joined(copy.userData().xyDataObjects().keys()), "first,second");
    EXPECT_EQ(joined(made.userData().xyDataObjects().keys()), "first");
    EXPECT_EQ(made.sto().userData().curveCount(), 2) << "the store has it all the same";
    made.close();
}

TEST_F(yld_UserDataTest, copiesOfACurveHavePointsOfTheirOwnInOneStoredCurve)
{
    yld_Yld& made = create();
    yld_UserXYData& curve = addCurve(made.userData(), "curve");
    curve.addData(rows({{1.0F, 2.0F}}));
    yld_UserXYData copy = curve;
    copy.addData(rows({{3.0F, 4.0F}}));
    EXPECT_EQ(listed(curve.getData()), (Rows{{1.0F, 2.0F}}));
    EXPECT_EQ(listed(copy.getData()), (Rows{{3.0F, 4.0F}}));
    EXPECT_EQ(listed(another(made).userData().xyDataObjects("curve").getData()), (Rows{{3.0F, 4.0F}}));
    made.close();
}

TEST_F(yld_UserDataTest, anObjectReadsTheUserDataThatTheStoreHas)
{
    yld_Yld& made = create();
    addCurve(made.userData(), "curve");
    for (const bool makeUserData : {true, false}) {
        yld_Yld other("other", "", "", "", made.sto(), false, makeUserData);
        EXPECT_EQ(joined(other.userData().xyDataObjects().keys()), "curve");
    }
    made.close();
}

TEST_F(yld_UserDataTest, anObjectMakesUserDataWhereItIsToldTo)
{
    sto_Sto store;
    sto_StoContainer().CreateSto(store, m_path.c_str(), "");
    store.Model("Default Model");
    store.Result();
    yld_Yld without("without", "", "", "", store, false, false);
    EXPECT_FALSE(store.hasUserData());
    EXPECT_TRUE(without.userData().xyDataObjects().isEmpty());
    EXPECT_EQ(failureOf([&] { addCurve(without.userData(), "curve"); }),
              "user data: the database has none, and none can be added");
    yld_Yld with("with", "", "", "", store, false, true);
    EXPECT_TRUE(store.hasUserData());
    addCurve(with.userData(), "curve");
    EXPECT_EQ(store.userData().curveCount(), 1);
    sto_StoContainer().CloseSto(store);
}

TEST_F(yld_UserDataTest, aReaderOfADatabaseWithoutUserDataHasNoneAndWritesNothing)
{
    sto_Sto store;
    sto_StoContainer().CreateSto(store, m_path.c_str(), "");
    store.Model("Default Model");
    store.Result();
    store.Save();
    sto_StoContainer().CloseSto(store);
    const std::string before = bytesOf(m_path);
    yld_Yld& reader = open();
    EXPECT_TRUE(reader.userData().xyDataObjects().isEmpty());
    EXPECT_EQ(failureOf([&] { addCurve(reader.userData(), "curve"); }),
              "user data: the database has none, and none can be added");
    reader.close();
    EXPECT_EQ(bytesOf(m_path), before);
}

TEST_F(yld_UserDataTest, openingReadsNoCurveAndTheFirstAccessReadsThemBetweenAssemblyAndSteps)
{
    yld_Yld& made = create();
    yld_Part& part = made.Part("part", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
    part.addNodes(ints({1}), rows({{0, 0, 0}}));
    made.rootAssembly().Instance("instance", part);
    made.Step("step", "", yld_Enum::TIME, 1.0);
    addCurve(made.userData(), "curve");
    made.save();
    made.close();
    SqlLog log;
    yld_Yld& reader = open();
    EXPECT_EQ(log.naming("sto_UserData"), 0);
    EXPECT_EQ(log.naming("sto_UserXYData"), 0);
    log.clear();
    EXPECT_EQ(reader.constRootAssembly().instances().size(), 1);
    EXPECT_EQ(log.naming("sto_UserXYData"), 0) << "the assembly alone needs none";
    EXPECT_EQ(reader.steps().size(), 1);
    const auto first = [&](const char* name) {
        std::size_t place = 0;
        while (place < log.statements.size() && log.statements[place].find(name) == std::string::npos) ++place;
        return place;
    };
    EXPECT_LT(first("mshK_PartInstance\""), first("sto_UserXYData\""));
    EXPECT_LT(first("sto_UserXYData\""), first("fld_Step\""));
    log.clear();
    EXPECT_EQ(reader.userData().xyDataObjects().size(), 1);
    EXPECT_TRUE(log.statements.empty()) << "all of the list was read";
    reader.close();
}

TEST_F(yld_UserDataTest, askingForUserDataIsAnAccessLikeAnyOther)
{
    yld_Yld& made = create();
    made.Step("step", "", yld_Enum::TIME, 1.0);
    made.save();
    made.close();
    for (const bool constant : {false, true}) {
        SqlLog log;
        yld_Yld& reader = open();
        log.clear();
        if (constant) std::as_const(reader).userData();
        else reader.userData();
        EXPECT_GT(log.naming("fld_Step\""), 0);
        reader.close();
    }
}

TEST_F(yld_UserDataTest, theUsersOwnDataAreReadWithoutTheSteps)
{
    yld_Yld& made = create();
    made.Step("step", "", yld_Enum::TIME, 1.0);
    addCurve(made.userData(), "curve").addData(rows({{1.0F, 2.0F}}));
    yld_Yld& reader = reopen(made);
    reader.setOnlyHasUserDefinedData(true);
    EXPECT_EQ(listed(reader.userData().xyDataObjects("curve").getData()), (Rows{{1.0F, 2.0F}}));
    EXPECT_EQ(reader.steps().size(), 0);
    reader.close();
}

TEST_F(yld_UserDataTest, rowsThatDoNotFitTheirValuesAreRefused)
{
    const auto attack = [&](const char* statement) {
        yld_Yld& made = create();
        addCurve(made.userData(), "even").addData(rows({{1.0F, 2.0F}, {3.0F, 4.0F}}));
        addCurve(made.userData(), "ragged").addData(rows({{1.0F, 2.0F}, {3.0F}}));
        made.save();
        made.close();
        damage(statement);
        yld_Yld& reader = open();
        std::string failures;
        for (const char* name : {"even", "ragged"}) {
            const yld_UserXYData& curve = reader.userData().xyDataObjects(name);
            const long long id = reader.sto().userData().userXYData()[name].shortCut().id();
            const std::string expected =
                m_path + ": the rows of curve " + std::to_string(id) + " do not fit its values; the file is damaged";
            const std::string failure = failureOf([&] { curve.getData(); });
            if (failure == expected) failures += std::string(name) + " ";
            else EXPECT_EQ(failure, "no exception");
        }
        reader.close();
        return failures;
    };
    EXPECT_EQ(attack("UPDATE sto_UserXYData SET columns = 3"), "even ");
    EXPECT_EQ(attack("UPDATE sto_UserXYData SET columns = 0"), "even ");
    EXPECT_EQ(attack("UPDATE sto_UserXYData SET columns = -2"), "even ");
    EXPECT_EQ(attack("UPDATE extent SET bytes = x'0200000002000000' WHERE bytes = x'0200000001000000'"), "ragged ");
    EXPECT_EQ(attack("UPDATE extent SET bytes = x'04000000ffffffff' WHERE bytes = x'0200000001000000'"), "ragged ");
}

TEST_F(yld_UserDataTest, aStoredSourceTypeThatNobodyKnowsFailsTheReadingEachTime)
{
    yld_Yld& made = create();
    addCurve(made.userData(), "curve");
    made.save();
    made.close();
    damage("UPDATE sto_UserXYData SET \"source type\" = 7");
    yld_Yld& reader = open();
    EXPECT_EQ(failureOf([&] { reader.userData(); }), "Could not map SourceType Enumeration");
    EXPECT_EQ(failureOf([&] { reader.userData(); }), "Could not map SourceType Enumeration");
    EXPECT_EQ(reader.constRootAssembly().instances().size(), 0) << "the model is whole";
    reader.close();
}
