#include "platform/result/fld_Series.h"
#include "platform/sto/sto_HistoryStep.h"
#include "platform/sto/sto_Step.h"
#include "platform/store/fio_File.h"
#include "platform/text/exc_Exception.h"
#include "test_files.h"

#include <cmath>
#include <csignal>
#include <cstring>
#include <functional>
#include <limits>
#include <sqlite3.h>
#include <sys/prctl.h>
#include <vector>

namespace {

std::string failureOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const exc_TextException& failure) {
        return failure.what();
    }
    return "no exception";
}

template<class T> std::vector<T> listed(const sto_HistoryArray<T>& array)
{
    return std::vector<T>(array.data(), array.data() + array.size());
}

// A file with nothing in it but one step with history.
class StoredHistory : public testing::Test
{
protected:
    void SetUp() override
    {
        m_path = m_folder.file("history.yld");
        m_file = fio_File::Create(m_path.c_str());
        fld_Step step;
        step.m_name = "Step-1";
        m_step = lnk_ShortCut<fld_Step>::create(m_file.body(), std::move(step));
        sto_Step(m_step).HistoryStep();
    }

    const std::shared_ptr<fio_FileBody>& body() const { return m_file.body(); }
    sto_HistoryStep history() const { return sto_Step(m_step).historyStep(); }
    sto_History curve(int index) const { return history().history(index); }
    sto_HistoryFloat floats(int index) const { return sto_HistoryFloat(curve(index)); }

    sto_HistoryFloat make(const char* label) const { return make(label, history().Clock()); }
    sto_HistoryFloat make(const char* label, const sto_HistoryClock& clock) const
    {
        return history().FloatHistory(clock, fld_OutputPositionEnm::UNDEFINED, label, "");
    }
    static void add(const sto_HistoryFloat& curve, double time, double value)
    {
        curve.clock().appendTimeValueNoBufferSeq(time);
        curve.appendDataNoBufferSeq(value);
    }
    int numSeries() const { return history().shortCut().fetch()->m_times.size(); }

    void reopen(bool forWriting = true, const std::function<void(sqlite3*)>& damage = nullptr)
    {
        body()->save();
        const long long id = m_step.id();
        body()->close();
        if (damage) {
            sqlite3* handle = nullptr;
            ASSERT_EQ(sqlite3_open(m_path.c_str(), &handle), SQLITE_OK);
            damage(handle);
            sqlite3_close(handle);
        }
        m_file = fio_File::Open(m_path.c_str(), forWriting, true);
        m_step = lnk_ShortCut<fld_Step>(body(), id);
    }
    static std::function<void(sqlite3*)> sql(const std::string& text)
    {
        return [text](sqlite3* handle) {
            ASSERT_EQ(sqlite3_exec(handle, text.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
                << sqlite3_errmsg(handle);
        };
    }
    std::string damaged(const std::string& what) const { return m_path + ": " + what + "; the file is damaged"; }

    ScratchFolder m_folder;
    std::string m_path;
    fio_File m_file;
    lnk_ShortCut<fld_Step> m_step;
};

using sto_HistoryTest = StoredHistory;

constexpr const char* badRuns = "the runs of a history curve make no sense";

// One run of 20000 values, and in the row what a test makes of it.
std::string setRuns(const std::vector<double>& runs, const char* other = "")
{
    std::string hex;
    for (const double number : runs) {
        unsigned char bytes[sizeof number];
        std::memcpy(bytes, &number, sizeof number);
        for (const unsigned char byte : bytes) {
            char digits[3];
            std::snprintf(digits, sizeof digits, "%02x", byte);
            hex += digits;
        }
    }
    return "UPDATE fld_Series SET runs = X'" + hex + "' " + other + " WHERE \"storage type\" = 0";
}

} // namespace

TEST_F(sto_HistoryTest, aStepHasHistoryFromItsCallOn)
{
    fld_Step step;
    const auto other = lnk_ShortCut<fld_Step>::create(body(), std::move(step));
    EXPECT_FALSE(sto_Step(other).hasHistory());
    sto_Step(other).HistoryStep();
    EXPECT_TRUE(sto_Step(other).hasHistory());
    const long long id = sto_Step(other).historyStep().shortCut().id();
    sto_Step(other).HistoryStep();
    EXPECT_EQ(sto_Step(other).historyStep().shortCut().id(), id);
    EXPECT_EQ(sto_Step(other).historyStep().numHistories(), 0);
}

TEST_F(sto_HistoryTest, pairsComeBack)
{
    const sto_HistoryFloat u = make("U");
    add(u, 0.1, 0.25);
    add(u, 0.2, -7.5);
    EXPECT_EQ(u.numValues(), 2);
    EXPECT_EQ(listed(u.dataArray()), (std::vector<float>{0.25F, -7.5F}));
    reopen();
    EXPECT_EQ(history().numHistories(), 1);
    EXPECT_EQ(floats(0).numColumns(), 1);
    EXPECT_EQ(listed(floats(0).dataArray()), (std::vector<float>{0.25F, -7.5F}));
    // Times keep double precision.
    EXPECT_EQ(listed(curve(0).clock().timeArray()), (std::vector<double>{0.1, 0.2}));
    EXPECT_STREQ(curve(0).variableLabel().cStr(), "U");
}

TEST_F(sto_HistoryTest, theFloatFormOfATimeKeepsTheFloat)
{
    const sto_HistoryFloat u = make("U");
    u.clock().appendTimeValueNoBufferSeq(0.1F);
    u.appendDataNoBufferSeq(0.1F);
    reopen();
    EXPECT_EQ(listed(curve(0).clock().timeArray()), (std::vector<double>{static_cast<double>(0.1F)}));
    EXPECT_EQ(listed(floats(0).dataArray()), (std::vector<float>{0.1F}));
}

TEST_F(sto_HistoryTest, namesAndLoadCasesCanBeSetAfterwards)
{
    sto_History u = make("U");
    EXPECT_STREQ(u.name().cStr(), "");
    EXPECT_STREQ(u.loadCaseName().cStr(), "");
    u.setName("here");
    u.setLoadCaseName("pull");
    reopen();
    EXPECT_STREQ(curve(0).name().cStr(), "here");
    EXPECT_STREQ(curve(0).loadCaseName().cStr(), "pull");
}

TEST_F(sto_HistoryTest, doublesAreKeptAsDoublesAndPresentedAsFloats)
{
    fld_History like;
    like.m_label = "E";
    like.m_storageType = 1;
    const sto_HistoryDouble energy(history().History(like, history().Clock()));
    energy.clock().appendTimeValueNoBufferSeq(1.0);
    energy.appendDataNoBufferSeq(0.1);
    reopen();
    EXPECT_EQ(curve(0).storageType(), 1);
    EXPECT_EQ(listed(sto_HistoryDouble(curve(0)).dataArray()), (std::vector<double>{0.1}));
    EXPECT_EQ(listed(sto_HistoryFloat(sto_HistoryDouble(curve(0))).dataArray()), (std::vector<float>{0.1F}));
    // What is appended through the float form goes in at the curve's own width.
    sto_HistoryFloat(sto_HistoryDouble(curve(0))).appendDataNoBufferSeq(0.2);
    EXPECT_EQ(listed(sto_HistoryDouble(curve(0)).dataArray()), (std::vector<double>{0.1, 0.2}));
}

TEST_F(sto_HistoryTest, aSingleCurveIsNoDoubleOne)
{
    const sto_HistoryFloat u = make("U");
    EXPECT_EQ(failureOf([&] { sto_HistoryDouble{u}; }),
              m_path + ": a history curve is asked for in a precision that it does not have");
}

TEST_F(sto_HistoryTest, twoColumnsHoldValueAndConjugate)
{
    const sto_HistoryFloat z(history().History(fld_History(), history().Clock(), 2));
    z.appendDataNoBufferSeq(1.0, 2.0);
    z.appendDataNoBufferSeq(3.0F);
    reopen();
    EXPECT_EQ(floats(0).numColumns(), 2);
    EXPECT_EQ(floats(0).numValues(), 2);
    EXPECT_EQ(listed(floats(0).dataArray()), (std::vector<float>{1.0F, 2.0F, 3.0F, 0.0F}));
}

TEST_F(sto_HistoryTest, curvesWrittenInTurnShareTheirTimes)
{
    std::vector<sto_HistoryFloat> curves;
    for (const char* label : {"a", "b", "c"}) curves.push_back(make(label));
    for (int i = 0; i < 5; ++i) {
        for (const sto_HistoryFloat& curve : curves) add(curve, 0.5 * i, i);
    }
    EXPECT_EQ(numSeries(), 1);
    reopen();
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(listed(curve(i).clock().timeArray()), (std::vector<double>{0.0, 0.5, 1.0, 1.5, 2.0})) << i;
        EXPECT_EQ(listed(floats(i).dataArray()), (std::vector<float>{0, 1, 2, 3, 4})) << i;
    }
}

TEST_F(sto_HistoryTest, curvesWrittenOneAfterTheOtherShareTheirTimes)
{
    for (const char* label : {"a", "b"}) {
        const sto_HistoryFloat curve = make(label);
        for (int i = 0; i < 1000; ++i) add(curve, i, -i);
        // What is on disk by now is shared as well.
        body()->save();
    }
    EXPECT_EQ(numSeries(), 1);
    reopen();
    EXPECT_EQ(curve(1).clock().timeArray().rows(), 1000);
    EXPECT_EQ(curve(1).clock().timeArray()[999], 999.0);
}

TEST_F(sto_HistoryTest, curvesWithOtherTimesGetThemAndShareThose)
{
    // Every increment for a and b, every second one for c and d, and e leaves late.
    const sto_HistoryFloat a = make("a"), b = make("b"), c = make("c"), d = make("d"), e = make("e");
    for (int i = 0; i < 6; ++i) {
        add(a, i, 0);
        if (i % 2 == 0) add(c, i, 0);
        add(b, i, 0);
        if (i % 2 == 0) add(d, i, 0);
        add(e, i < 5 ? i : 7.5, 0);
    }
    EXPECT_EQ(numSeries(), 3);
    reopen();
    const std::vector<double> all{0, 1, 2, 3, 4, 5}, even{0, 2, 4}, late{0, 1, 2, 3, 4, 7.5};
    EXPECT_EQ(listed(curve(0).clock().timeArray()), all);
    EXPECT_EQ(listed(curve(1).clock().timeArray()), all);
    EXPECT_EQ(listed(curve(2).clock().timeArray()), even);
    EXPECT_EQ(listed(curve(3).clock().timeArray()), even);
    EXPECT_EQ(listed(curve(4).clock().timeArray()), late);
}

TEST_F(sto_HistoryTest, aClockThatGoesOnLaterKeepsItsOwnTimes)
{
    // b stops at the second time, a goes on; then b goes on with times of its own.
    const sto_HistoryFloat a = make("a"), b = make("b");
    for (int i = 0; i < 4; ++i) {
        add(a, i, 0);
        if (i < 2) add(b, i, 0);
    }
    EXPECT_EQ(b.clock().numTimes(), 2);
    EXPECT_EQ(listed(b.clock().timeArray()), (std::vector<double>{0, 1}));
    add(b, 9, 0);
    EXPECT_EQ(listed(b.clock().timeArray()), (std::vector<double>{0, 1, 9}));
    EXPECT_EQ(listed(a.clock().timeArray()), (std::vector<double>{0, 1, 2, 3}));
}

TEST_F(sto_HistoryTest, curvesOfOneClockSeeEachOthersTimes)
{
    const sto_HistoryClock clock = history().Clock();
    const sto_HistoryFloat a = make("a", clock), b = make("b", clock);
    a.clock().appendTimeValueNoBufferSeq(1.0);
    EXPECT_EQ(b.clock().numTimes(), 1);
    a.appendDataNoBufferSeq(10.0);
    b.appendDataNoBufferSeq(20.0);
    reopen();
    EXPECT_EQ(listed(curve(1).clock().timeArray()), (std::vector<double>{1.0}));
    EXPECT_EQ(listed(floats(1).dataArray()), (std::vector<float>{20.0F}));
}

TEST_F(sto_HistoryTest, timesAreComparedByTheirBits)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const sto_HistoryFloat a = make("a"), b = make("b"), c = make("c");
    for (const double time : {0.0, nan, 1.0}) add(a, time, 0);
    for (const double time : {0.0, nan, 1.0}) add(b, time, 0);
    EXPECT_EQ(numSeries(), 1);
    add(c, -0.0, 0);
    EXPECT_EQ(numSeries(), 2);
    EXPECT_TRUE(std::signbit(c.clock().timeArray()[0]));
}

TEST_F(sto_HistoryTest, appendingGoesOnInAnotherSession)
{
    add(make("U"), 1, 10);
    reopen();
    add(floats(0), 2, 20);
    add(make("V"), 1, 30);
    reopen();
    EXPECT_EQ(listed(floats(0).dataArray()), (std::vector<float>{10, 20}));
    EXPECT_EQ(listed(curve(0).clock().timeArray()), (std::vector<double>{1, 2}));
    EXPECT_EQ(listed(floats(1).dataArray()), (std::vector<float>{30}));
    EXPECT_EQ(numSeries(), 1);
}

TEST_F(sto_HistoryTest, aSaveAfterEachPairLeavesFewRuns)
{
    const sto_HistoryFloat u = make("U");
    constexpr int count = 70;
    for (int i = 0; i < count; ++i) {
        add(u, i, 3 * i);
        body()->save();
    }
    const auto values = curve(0).shortCut().fetch()->m_values.fetch();
    EXPECT_EQ(values->m_rows, count);
    EXPECT_LE(values->m_runs.size() / 2, 7u); // each at least twice as long as the next
    reopen();
    const sto_HistoryArray<float> read = floats(0).dataArray();
    ASSERT_EQ(read.rows(), count);
    for (int i = 0; i < count; ++i) ASSERT_EQ(read[i], static_cast<float>(3 * i));
}

TEST_F(sto_HistoryTest, longCurvesGoToDiskInLargePieces)
{
    // Eight bytes a time: the longest tail holds 131072 of them, and twice as many values.
    const sto_HistoryFloat u = make("U");
    constexpr int count = 600000;
    for (int i = 0; i < count; ++i) add(u, i, i % 1000);
    EXPECT_LE(body()->extents().gatheredBytes(), 17u << 20);
    const auto values = curve(0).shortCut().fetch()->m_values.fetch();
    EXPECT_EQ(values->m_runs, (std::vector<double>{values->m_runs[0], 262144.0, values->m_runs[2], 262144.0}));
    reopen();
    const sto_HistoryArray<float> read = floats(0).dataArray();
    const sto_HistoryArray<double> times = curve(0).clock().timeArray();
    ASSERT_EQ(read.rows(), count);
    ASSERT_EQ(times.rows(), count);
    for (int i = 0; i < count; ++i) {
        ASSERT_EQ(read[i], static_cast<float>(i % 1000));
        ASSERT_EQ(times[i], i);
    }
    // A piece over the joint of two runs.
    double piece[4];
    floats(0).readData(262142, 4, piece);
    EXPECT_EQ(std::vector<double>(piece, piece + 4), (std::vector<double>{142, 143, 144, 145}));
}

TEST_F(sto_HistoryTest, manyCurvesShareTheMemoryForTheirTails)
{
    const std::size_t alone = fld_Tail::limit();
    EXPECT_EQ(alone, fld_Tail::longest);
    std::vector<sto_HistoryFloat> curves;
    for (int i = 0; i < 4095; ++i) curves.push_back(make("U"));
    for (const sto_HistoryFloat& curve : curves) add(curve, 0, 0);
    // 4095 of values and one of times.
    EXPECT_EQ(fld_Tail::limit(), fld_Tail::budget / 4096);
    body()->save();
    EXPECT_EQ(fld_Tail::limit(), fld_Tail::longest);
    for (int step = 1; step < 3000; ++step) {
        for (int i = 0; i < 4095; i += 512) add(curves[static_cast<std::size_t>(i)], step, step);
    }
    EXPECT_EQ(curves[512].numValues(), 3000);
    EXPECT_EQ(curves[1].numValues(), 1);
    body()->close();
    EXPECT_EQ(fld_Tail::limit(), fld_Tail::longest);
}

TEST_F(sto_HistoryTest, whatIsNotSavedIsGone)
{
    const sto_HistoryFloat u = make("U");
    add(u, 1, 10);
    reopen();
    for (int i = 0; i < 300000; ++i) add(floats(0), 2 + i, 20);
    body()->close();
    m_file = fio_File::Open(m_path.c_str(), true, true);
    m_step = lnk_ShortCut<fld_Step>(body(), m_step.id());
    EXPECT_EQ(listed(floats(0).dataArray()), (std::vector<float>{10}));
    EXPECT_EQ(listed(curve(0).clock().timeArray()), (std::vector<double>{1}));
    // The space of what was lost is used again, and nothing of it shows.
    add(floats(0), 5, 50);
    reopen();
    EXPECT_EQ(listed(floats(0).dataArray()), (std::vector<float>{10, 50}));
}

TEST_F(sto_HistoryTest, aKilledWriterLosesOnlyWhatWasNotSaved)
{
    make("U");
    reopen();
    body()->close();
    for (const int saved : {1, 1000, 300000}) {
        const int status = inOtherProcess([&] {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            const fio_File file = fio_File::Open(m_path.c_str(), true, true);
            const sto_HistoryFloat u(
                sto_Step(lnk_ShortCut<fld_Step>(file.body(), m_step.id())).historyStep().history(0));
            const long long present = u.numValues();
            for (long long i = present; i < saved; ++i) add(u, static_cast<double>(i), static_cast<double>(i % 997));
            file.body()->save();
            // More than a tail holds, so that some of it is on disk when the end comes.
            for (int i = 0; i < 700000; ++i) add(u, -1, -1);
            raise(SIGKILL);
        });
        EXPECT_EQ(status, -SIGKILL);
        const fio_File file = fio_File::Open(m_path.c_str(), false, true);
        const sto_HistoryFloat u(sto_Step(lnk_ShortCut<fld_Step>(file.body(), m_step.id())).historyStep().history(0));
        const sto_HistoryArray<float> values = u.dataArray();
        const sto_HistoryArray<double> times = u.clock().timeArray();
        ASSERT_EQ(values.rows(), saved);
        ASSERT_EQ(times.rows(), saved);
        for (int i = 0; i < saved; ++i) {
            ASSERT_EQ(times[i], i);
            ASSERT_EQ(values[i], static_cast<float>(i % 997));
        }
        file.body()->close();
    }
}

TEST_F(sto_HistoryTest, aReaderKeepsTheStateThatItOpened)
{
    add(make("U"), 1, 10);
    body()->save();
    const fio_File reader = fio_File::Open(m_path.c_str(), false, true);
    const sto_HistoryFloat seen(sto_Step(lnk_ShortCut<fld_Step>(reader.body(), m_step.id())).historyStep().history(0));
    EXPECT_EQ(seen.numValues(), 1);
    add(floats(0), 2, 20);
    body()->save();
    EXPECT_EQ(listed(seen.dataArray()), (std::vector<float>{10}));
    EXPECT_TRUE(reader.body()->refresh());
    EXPECT_EQ(listed(seen.dataArray()), (std::vector<float>{10, 20}));
    EXPECT_EQ(listed(seen.clock().timeArray()), (std::vector<double>{1, 2}));
    reader.body()->close();
}

TEST_F(sto_HistoryTest, aReaderOfAStateThatIsGoneIsToldSo)
{
    body()->keepSuperseded(-1);
    add(make("U"), 1, 10);
    body()->save();
    const fio_File reader = fio_File::Open(m_path.c_str(), false, true);
    const sto_HistoryFloat seen(sto_Step(lnk_ShortCut<fld_Step>(reader.body(), m_step.id())).historyStep().history(0));
    EXPECT_EQ(seen.numValues(), 1);
    for (int i = 0; i < 3; ++i) {
        add(floats(0), 2, 20);
        body()->save();
    }
    EXPECT_EQ(failureOf([&] { seen.dataArray(); }),
              m_path + ": another program has changed the database since it was read here; read it anew");
    reader.body()->close();
}

TEST_F(sto_HistoryTest, aReaderCannotAppend)
{
    add(make("U"), 1, 10);
    reopen(false);
    EXPECT_EQ(failureOf([&] { floats(0).appendDataNoBufferSeq(1.0); }),
              m_path + ": the database is open for reading only");
    EXPECT_EQ(failureOf([&] { curve(0).clock().appendTimeValueNoBufferSeq(1.0); }),
              m_path + ": the database is open for reading only");
}

TEST_F(sto_HistoryTest, aClosedFileTakesNothing)
{
    const sto_HistoryFloat u = make("U");
    add(u, 1, 10);
    body()->close();
    EXPECT_EQ(failureOf([&] { u.appendDataNoBufferSeq(1.0); }), m_path + ": the database is closed");
}

TEST_F(sto_HistoryTest, piecesOutsideTheCurveAreRefused)
{
    add(make("U"), 1, 10);
    float value = 0.0F;
    const std::string message = m_path + ": a history curve is shorter than what is asked of it";
    EXPECT_EQ(failureOf([&] { floats(0).readData(1, 1, &value); }), message);
    EXPECT_EQ(failureOf([&] { floats(0).readData(-1, 1, &value); }), message);
    EXPECT_EQ(failureOf([&] { floats(0).readData(0, -1, &value); }), message);
    floats(0).readData(1, 0, &value);
    EXPECT_EQ(value, 0.0F);
}

TEST_F(sto_HistoryTest, damagedRunsAreRefused)
{
    const double inf = std::numeric_limits<double>::infinity();
    struct Case
    {
        std::vector<double> runs;
        const char* other;
    };
    for (const Case& damage :
         {Case{{}, ""}, Case{{1.0}, ""}, Case{{0.0, 8.0}, ""}, Case{{-1.0, 8.0}, ""}, Case{{inf, 8.0}, ""},
          Case{{std::nan(""), 8.0}, ""}, Case{{1.0, -8.0}, ""}, Case{{1.0, 8.0}, ", columns = 0"},
          Case{{1.0, 8.0}, ", columns = 3"}, Case{{1.0, 8.0}, ", \"storage type\" = 2"},
          Case{{1.0, 8.0}, ", rows = -1"}, Case{{1.0, 8.0}, ", rows = 9"}, Case{{1.0, 4.0, 1.0, 4.0}, ""}}) {
        std::filesystem::remove(m_path);
        SetUp();
        const sto_HistoryFloat u = make("U");
        for (int i = 0; i < 8; ++i) u.appendDataNoBufferSeq(1.0F);
        reopen(true, sql(setRuns(damage.runs, damage.other)));
        const std::string failure = failureOf([&] { floats(0).dataArray(); });
        if (damage.runs.size() == 4) {
            // The first run is told from an array of its size before the second is looked at.
            EXPECT_EQ(failure, damaged("extent 1 should have 16 bytes but has 32"));
        } else {
            EXPECT_EQ(failure, damaged(badRuns)) << damage.other;
        }
        EXPECT_NE(failureOf([&] { floats(0).appendDataNoBufferSeq(1.0); }), "no exception");
        body()->close();
    }
}

TEST_F(sto_HistoryTest, aRunNamedTwiceIsRefusedBeforeMemoryIsTaken)
{
    const sto_HistoryFloat u = make("U");
    for (int i = 0; i < 8; ++i) u.appendDataNoBufferSeq(1.0F);
    reopen(true, sql(setRuns({1.0, 8.0, 1.0, 8.0}, ", rows = 16")));
    EXPECT_EQ(failureOf([&] { floats(0).dataArray(); }), damaged(badRuns));
}

TEST_F(sto_HistoryTest, missingExtentsAreRefused)
{
    const sto_HistoryFloat u = make("U");
    for (int i = 0; i < 8; ++i) u.appendDataNoBufferSeq(1.0F);
    reopen(true, sql("DELETE FROM extent"));
    EXPECT_EQ(failureOf([&] { floats(0).dataArray(); }), damaged("extent 1 should have 32 bytes but has none"));
}

TEST_F(sto_HistoryTest, aClockThatCountsTooFarIsRefused)
{
    add(make("U"), 1, 10);
    reopen(true, sql("UPDATE fld_HistoryClock SET count = 2"));
    EXPECT_EQ(failureOf([&] { curve(0).clock().timeArray(); }),
              damaged("a history clock counts 2 times, but there are 1"));
    EXPECT_EQ(failureOf([&] { curve(0).clock().appendTimeValueNoBufferSeq(2.0); }),
              m_path + ": a history curve is shorter than what is asked of it");
    body()->close();
}

TEST_F(sto_HistoryTest, copiesOfASeriesStandApart)
{
    const sto_HistoryFloat u = make("U");
    add(u, 1, 10);
    const lnk_ShortCut<fld_Series> values = curve(0).shortCut().fetch()->m_values;
    fld_Series copy(*values.fetch());
    EXPECT_FALSE(copy.m_mark.isSet());
    copy.append(body(), 11.0);
    add(u, 2, 20);
    EXPECT_EQ(copy.m_rows, 2);
    float read[2];
    copy.read(body(), 0, 2, read);
    EXPECT_EQ(read[1], 11.0F);
    EXPECT_EQ(listed(u.dataArray()), (std::vector<float>{10, 20}));
}

TEST_F(sto_HistoryTest, aStepOfAnOlderFileHasNoHistory)
{
    // The column is not there in files of before.
    reopen(true, sql("ALTER TABLE fld_Step DROP COLUMN \"history step\""));
    EXPECT_FALSE(sto_Step(m_step).hasHistory());
    sto_Step(m_step).HistoryStep();
    add(make("U"), 1, 10);
    reopen();
    EXPECT_EQ(listed(floats(0).dataArray()), (std::vector<float>{10}));
}
