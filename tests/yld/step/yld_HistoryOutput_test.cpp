#include "platform/result/fld_Series.h"
#include "platform/sto/sto_HistoryStep.h"
#include "platform/sto/sto_Step.h"
#include "result_model.h"

#include <type_traits>
#include <vector>

namespace {

constexpr const char* orphanMessage = "Cannot add data to an orphan history object. The object was likely created "
                                      "using the getSubset method, or by a C++ "
                                      "user who did not use the reference to the history objects.";
constexpr const char* lengthMessage = "Data sequences added to a history variable should be of equal length.";
constexpr const char* widthMessage = "Data added to a history variable should be of width 2";
constexpr const char* unequalWarning = "Warning: History time and data array of unequal length.\n";

/// "time:value time:value "
std::string listed(const yld_Sequence<yld_Sequence<float>>& pairs)
{
    std::string text;
    for (int i = 0; i < pairs.size(); ++i) {
        if (pairs[i].size() != 2) return "a pair of " + std::to_string(pairs[i].size());
        text += std::string(yld_String(static_cast<double>(pairs[i][0])).cStr()) + ":" +
                yld_String(static_cast<double>(pairs[i][1])).cStr() + " ";
    }
    return text;
}

class yld_HistoryOutputTest : public ResultModel
{
protected:
    yld_HistoryRegion& region()
    {
        if (!step().historyRegions().isMember("here")) {
            step().HistoryRegion("here", "", yld_HistoryPoint(m_yld->rootAssembly()));
        }
        return step().historyRegions().get("here");
    }
    yld_HistoryOutput& curve(const char* name = "u")
    {
        if (!region().historyOutputs().isMember(name)) region().HistoryOutput(name, "a curve", yld_Enum::SCALAR);
        return region().historyOutput(name);
    }
};

} // namespace

TEST_F(yld_HistoryOutputTest, emptyOneIsNotAttached)
{
    yld_HistoryOutput none;
    EXPECT_FALSE(none.isAttached());
    EXPECT_STREQ(none.name().cStr(), "");
    EXPECT_STREQ(none.description().cStr(), "");
    EXPECT_EQ(none.data().size(), 0);
    EXPECT_EQ(none.conjugateData().size(), 0);
    EXPECT_EQ(none.dataSize(), 0);
    EXPECT_FALSE(none.hasConjugate());
    EXPECT_EQ(none.getSubset(0.0).data().size(), 0);
}

TEST_F(yld_HistoryOutputTest, anOrphanHoldsItsPairs)
{
    const yld_HistoryOutput orphan("n", "d", yld_Enum::SCALAR, rows({{0, 1}, {1, 2}}));
    EXPECT_STREQ(orphan.name().cStr(), "n");
    EXPECT_STREQ(orphan.description().cStr(), "d");
    EXPECT_EQ(orphan.type(), yld_Enum::SCALAR);
    EXPECT_EQ(listed(orphan.data()), "0:1 1:2 ");
    EXPECT_EQ(listed(orphan.conjugateData()), "");
    EXPECT_FALSE(orphan.isAttached());
}

TEST_F(yld_HistoryOutputTest, allThreeFormsOfAddDataAppend)
{
    curve().addData(0.5, 1.5);
    curve().addData(floats({1, 2}), floats({10, 20}));
    curve().addData(rows({{3, 30}, {4, 40}}));
    EXPECT_EQ(listed(curve().data()), "0.5:1.5 1:10 2:20 3:30 4:40 ");
    reopen();
    EXPECT_EQ(listed(curve().data()), "0.5:1.5 1:10 2:20 3:30 4:40 ");
    EXPECT_STREQ(curve().description().cStr(), "a curve");
    EXPECT_EQ(curve().type(), yld_Enum::SCALAR);
    EXPECT_TRUE(curve().isAttached());
    curve().addData(5.0, 50.0);
    EXPECT_EQ(curve().dataSize(), 6);
}

TEST_F(yld_HistoryOutputTest, theDoubleFormKeepsTheTimeInDoublePrecision)
{
    curve().addData(0.1, 0.1);
    curve().addData(floats({0.2F}), floats({0.2F}));
    reopen();
    double times[2];
    float values[2];
    curve().readData(0, 2, times, values);
    EXPECT_EQ(times[0], 0.1);
    EXPECT_EQ(times[1], static_cast<double>(0.2F));
    EXPECT_EQ(values[0], 0.1F);
    EXPECT_EQ(values[1], 0.2F);
    EXPECT_EQ(curve().data()[0][0], 0.1F);
}

TEST_F(yld_HistoryOutputTest, sequencesOfUnequalLengthAreRefusedWhole)
{
    EXPECT_EQ(failureOf([&] { curve().addData(floats({1, 2}), floats({1})); }), lengthMessage);
    EXPECT_EQ(curve().dataSize(), 0);
}

TEST_F(yld_HistoryOutputTest, anOrphanTakesNoData)
{
    curve().addData(1.0, 2.0);
    yld_HistoryOutput orphan = curve().getSubset(0.0);
    EXPECT_EQ(failureOf([&] { orphan.addData(2.0, 3.0); }), orphanMessage);
    EXPECT_EQ(failureOf([&] { orphan.addData(floats({2}), floats({3})); }), orphanMessage);
    EXPECT_EQ(failureOf([&] { orphan.addData(rows({{2, 3}})); }), orphanMessage);
    EXPECT_EQ(failureOf([&] { orphan.addData(rows({{2, 3, 4}})); }), orphanMessage);
    EXPECT_EQ(listed(orphan.data()), "1:2 ");
    yld_HistoryOutput none;
    EXPECT_EQ(failureOf([&] { none.addData(2.0, 3.0); }), orphanMessage);
}

TEST_F(yld_HistoryOutputTest, unequalLengthsComeBeforeTheOrphan)
{
    yld_HistoryOutput orphan;
    EXPECT_EQ(failureOf([&] { orphan.addData(floats({1, 2}), floats({1})); }), lengthMessage);
}

TEST_F(yld_HistoryOutputTest, aPairOfAnotherWidthEndsTheCallAndKeepsTheEarlierOnes)
{
    EXPECT_EQ(failureOf([&] { curve().addData(rows({{1, 10}, {2, 20}, {3, 30, 300}, {4, 40}})); }), widthMessage);
    EXPECT_EQ(listed(curve().data()), "1:10 2:20 ");
    EXPECT_EQ(failureOf([&] { curve().addData(rows({{5}})); }), widthMessage);
    EXPECT_EQ(listed(curve().data()), "1:10 2:20 ");
}

TEST_F(yld_HistoryOutputTest, copiesStandForTheSameCurve)
{
    curve().addData(1.0, 10.0);
    yld_HistoryOutput copy(curve());
    copy.addData(2.0, 20.0);
    curve().addData(3.0, 30.0);
    EXPECT_EQ(listed(copy.data()), "1:10 2:20 3:30 ");
    EXPECT_EQ(listed(curve().data()), "1:10 2:20 3:30 ");
    yld_HistoryOutput assigned;
    assigned = copy;
    assigned.addData(4.0, 40.0);
    EXPECT_EQ(curve().dataSize(), 4);
}

TEST_F(yld_HistoryOutputTest, curvesOfAStepTakeTheirPairsInAnyTurn)
{
    for (int i = 0; i < 3; ++i) {
        curve("u").addData(0.5 * i, i);
        curve("v").addData(0.5 * i, 10 + i);
    }
    for (int i = 0; i < 4; ++i) curve("w").addData(0.25 * i, 20 + i);
    reopen();
    EXPECT_EQ(listed(curve("u").data()), "0:0 0.5:1 1:2 ");
    EXPECT_EQ(listed(curve("v").data()), "0:10 0.5:11 1:12 ");
    EXPECT_EQ(listed(curve("w").data()), "0:20 0.25:21 0.5:22 0.75:23 ");
}

TEST_F(yld_HistoryOutputTest, aSharedClockIsSeenByAllThatShareIt)
{
    const sto_HistoryStep store = step().step()->historyStep();
    const sto_HistoryClock clock = store.Clock();
    const auto make = [&](const char* name) {
        return yld_HistoryOutput(name, "", yld_Enum::SCALAR, clock,
                                 store.FloatHistory(clock, fld_OutputPositionEnm::WHOLE_MODEL, name, ""));
    };
    yld_HistoryOutput a = make("a"), b = make("b");
    a.addData(1.0, 10.0);
    // b has the time now, but no value.
    EXPECT_EQ(warningsOf([&] { EXPECT_EQ(b.data().size(), 0); }), unequalWarning);
    EXPECT_EQ(warningsOf([&] { EXPECT_EQ(b.conjugateData().size(), 0); }), unequalWarning);
    EXPECT_EQ(warningsOf([&] { EXPECT_EQ(b.dataSize(), 0); }), unequalWarning);
    EXPECT_EQ(warningsOf([&] { EXPECT_EQ(b.getSubset(0.0).data().size(), 0); }), unequalWarning);
    EXPECT_EQ(warningsOf([&] { EXPECT_EQ(listed(a.data()), "1:10 "); }), "");
    // One time for each value on each curve: then all is well again.
    sto_HistoryFloat(store.history(1)).appendDataNoBufferSeq(20.0);
    EXPECT_EQ(warningsOf([&] { EXPECT_EQ(listed(b.data()), "1:20 "); }), "");
}

TEST_F(yld_HistoryOutputTest, aValueThatCannotBeKeptLeavesNoTimeBehind)
{
    curve().addData(1.0, 10.0);
    const lnk_ShortCut<fld_Series> values = step().step()->historyStep().history(0).shortCut().fetch()->m_values;
    fld_Series broken;
    broken.m_columns = 3;
    const auto whole = values.fetchWritable();
    values.replace(std::make_shared<fld_Series>(broken));
    const std::string message = m_path + ": the runs of a history curve make no sense; the file is damaged";
    EXPECT_EQ(failureOf([&] { curve().addData(2.0, 20.0); }), message);
    EXPECT_EQ(failureOf([&] { curve().addData(floats({2}), floats({20})); }), message);
    EXPECT_EQ(failureOf([&] { curve().addData(rows({{2, 20}})); }), message);
    values.replace(whole);
    EXPECT_EQ(listed(curve().data()), "1:10 ");
    // The same time again, and another one.
    curve().addData(2.0, 20.0);
    curve().addData(3.5, 30.0);
    EXPECT_EQ(listed(curve().data()), "1:10 2:20 3.5:30 ");
}

TEST_F(yld_HistoryOutputTest, subsetsLeaveOutTheBounds)
{
    curve().addData(rows({{0, 1}, {1, 2}, {2, 3}, {3, 4}}));
    EXPECT_EQ(listed(curve().getSubset(1.0).data()), "2:3 3:4 ");
    EXPECT_EQ(listed(curve().getSubset(0.5).data()), "1:2 2:3 3:4 ");
    EXPECT_EQ(listed(curve().getSubset(3.0).data()), "");
    EXPECT_EQ(listed(curve().getSubset(-1.0).data()), "0:1 1:2 2:3 3:4 ");
    EXPECT_EQ(listed(curve().getSubset(0.0, 3.0).data()), "1:2 2:3 ");
    EXPECT_EQ(listed(curve().getSubset(-0.5, 3.5).data()), "0:1 1:2 2:3 3:4 ");
    EXPECT_EQ(listed(curve().getSubset(2.0, 2.0).data()), "");
    EXPECT_EQ(listed(curve().getSubset(3.0, 0.0).data()), "");
}

TEST_F(yld_HistoryOutputTest, aSubsetIsAnOrphanOfTheSameNames)
{
    curve().addData(1.0, 2.0);
    const yld_HistoryOutput part = curve().getSubset(0.0);
    EXPECT_STREQ(part.name().cStr(), "u");
    EXPECT_STREQ(part.description().cStr(), "a curve");
    EXPECT_EQ(part.type(), yld_Enum::SCALAR);
    EXPECT_FALSE(part.isAttached());
    // It is no view: what comes later does not show.
    curve().addData(2.0, 3.0);
    EXPECT_EQ(listed(part.data()), "1:2 ");
    // And it can be cut again.
    EXPECT_EQ(listed(part.getSubset(1.0).data()), "");
}

TEST_F(yld_HistoryOutputTest, subsetsOfOrphansKeepTheType)
{
    const yld_HistoryOutput orphan("n", "d", yld_Enum::VECTOR, rows({{0, 1}, {1, 2}}));
    EXPECT_EQ(orphan.getSubset(0.0).type(), yld_Enum::VECTOR);
    EXPECT_EQ(listed(orphan.getSubset(0.0).data()), "1:2 ");
}

TEST_F(yld_HistoryOutputTest, aRealCurveHasNoConjugateData)
{
    curve().addData(1.0, 2.0);
    EXPECT_EQ(curve().conjugateData().size(), 0);
    EXPECT_FALSE(curve().hasConjugate());
    float conjugate = 7.0F;
    curve().readData(0, 1, nullptr, nullptr, &conjugate);
    EXPECT_EQ(conjugate, 0.0F);
}

TEST_F(yld_HistoryOutputTest, aComplexCurveHasBothHalves)
{
    const sto_HistoryStep store = step().step()->historyStep();
    fld_History like;
    like.m_type = static_cast<int>(fld_OutputPositionEnm::WHOLE_MODEL);
    like.m_label = "z";
    like.m_name = "complex";
    const sto_HistoryFloat z(store.History(like, store.Clock(), 2));
    for (int i = 0; i < 3; ++i) {
        z.clock().appendTimeValueNoBufferSeq(static_cast<double>(i));
        z.appendDataNoBufferSeq(10.0 + i, -10.0 - i);
    }
    reopen();
    yld_HistoryOutput& output = step().historyRegions().get("complex").historyOutput("z");
    EXPECT_EQ(listed(output.data()), "0:10 1:11 2:12 ");
    EXPECT_EQ(listed(output.conjugateData()), "0:-10 1:-11 2:-12 ");
    EXPECT_TRUE(output.hasConjugate());
    float values[2], conjugates[2];
    output.readData(1, 2, nullptr, values, conjugates);
    EXPECT_EQ(values[1], 12.0F);
    EXPECT_EQ(conjugates[0], -11.0F);
    // Subsets carry the values alone.
    EXPECT_EQ(listed(output.getSubset(0.0).data()), "1:11 2:12 ");
    EXPECT_EQ(output.getSubset(0.0).conjugateData().size(), 0);
    // A value without an imaginary half gets 0 for it.
    output.addData(3.0, 13.0);
    EXPECT_EQ(listed(output.conjugateData()), "0:-10 1:-11 2:-12 3:0 ");
}

TEST_F(yld_HistoryOutputTest, doubleCurvesArePresentedAsFloats)
{
    const sto_HistoryStep store = step().step()->historyStep();
    fld_History like;
    like.m_type = static_cast<int>(fld_OutputPositionEnm::WHOLE_MODEL);
    like.m_label = "E";
    like.m_name = "energies";
    like.m_storageType = 1;
    const sto_HistoryDouble energy(store.History(like, store.Clock()));
    energy.clock().appendTimeValueNoBufferSeq(1.0);
    energy.appendDataNoBufferSeq(0.1);
    reopen();
    const yld_HistoryOutput& output = step().historyRegions().get("energies").historyOutput("E");
    ASSERT_EQ(output.data().size(), 1);
    EXPECT_EQ(output.data()[0][1], 0.1F);
    EXPECT_EQ(output.type(), yld_Enum::SCALAR);
}

TEST_F(yld_HistoryOutputTest, piecesAreReadWherever)
{
    constexpr int count = 20000; // longer than the pieces in which subsets read
    for (int i = 0; i < count; ++i) curve().addData(static_cast<double>(i), 2.0 * i);
    reopen();
    double times[3];
    float values[3];
    for (const int from : {0, 8191, count - 3}) {
        curve().readData(from, 3, times, values);
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(times[i], from + i);
            EXPECT_EQ(values[i], static_cast<float>(2 * (from + i)));
        }
    }
    EXPECT_EQ(curve().getSubset(count - 3.0).data().size(), 2);
    EXPECT_EQ(curve().getSubset(-1.0, 9000.0).data().size(), 9000);
    for (const auto& [from, size] :
         std::vector<std::pair<long long, long long>>{{count, 1}, {-1, 1}, {0, -1}, {1, count}}) {
        EXPECT_EQ(failureOf([&, f = from, s = size] { curve().readData(f, s, times, values); }), "Index out of range.");
    }
    curve().readData(count, 0, times, values);
}

TEST_F(yld_HistoryOutputTest, piecesOfAnOrphanAreReadTheSame)
{
    const yld_HistoryOutput orphan("n", "d", yld_Enum::SCALAR, rows({{0, 1}, {1, 2}, {2, 3}}));
    double times[2];
    float values[2], conjugates[2] = {7, 7};
    orphan.readData(1, 2, times, values, conjugates);
    EXPECT_EQ(times[0], 1.0);
    EXPECT_EQ(values[1], 3.0F);
    EXPECT_EQ(conjugates[0], 0.0F);
    EXPECT_EQ(failureOf([&] { orphan.readData(2, 2, times, values); }), "Index out of range.");
}

TEST_F(yld_HistoryOutputTest, virtualOperationsServeDerivedClasses)
{
    class Doubled : public yld_HistoryOutput
    {
    public:
        using yld_HistoryOutput::yld_HistoryOutput;
        yld_Sequence<yld_Sequence<float>> data() const override { return rows({{1, 2}}); }
    };
    const Doubled doubled("n", "d", yld_Enum::SCALAR, rows({{0, 1}}));
    const yld_HistoryOutput& base = doubled;
    EXPECT_EQ(listed(base.data()), "1:2 ");
    static_assert(std::is_polymorphic_v<yld_HistoryOutput>);
    static_assert(std::has_virtual_destructor_v<yld_HistoryOutput>);
}

TEST_F(yld_HistoryOutputTest, aReadOnlyDatabaseTakesNoData)
{
    curve().addData(1.0, 10.0);
    m_yld->save();
    m_yld->close();
    m_yld = &openYld(m_path.c_str(), true);
    EXPECT_EQ(failureOf([&] { curve().addData(2.0, 20.0); }), m_path + ": the database is open for reading only");
    EXPECT_EQ(listed(curve().data()), "1:10 ");
}

TEST_F(yld_HistoryOutputTest, anotherProcessReadsWhatWasSaved)
{
    for (int i = 0; i < 1000; ++i) curve().addData(static_cast<double>(i), 1.0 * i);
    m_yld->save();
    EXPECT_EQ(inOtherProcess([&] {
                  yld_Yld& seen = openYld("seen", m_path.c_str(), true, false);
                  const yld_HistoryOutput& output =
                      seen.steps().get("Step-1").historyRegions().get("here").historyOutput("u");
                  EXPECT_EQ(output.dataSize(), 1000);
                  EXPECT_EQ(output.data()[999][1], 999.0F);
              }),
              0);
}
