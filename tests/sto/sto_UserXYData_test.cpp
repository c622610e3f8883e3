#include "platform/sto/sto_Sto.h"
#include "platform/sto/sto_StoContainer.h"
#include "platform/sto/sto_UserData.h"
#include "platform/store/fio_File.h"
#include "platform/store/lnk_Root.h"
#include "platform/text/exc_Exception.h"
#include "test_files.h"

#include <functional>

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

class sto_UserXYDataTest : public testing::Test
{
protected:
    void SetUp() override { sto_StoContainer().CreateSto(m_store, m_path.c_str(), ""); }
    void TearDown() override { lnk_Root::Instance().detachAll(); }

    const ScratchFolder m_folder;
    const std::string m_path = m_folder.file("store.yld");
    sto_Sto m_store;
};

} // namespace

TEST_F(sto_UserXYDataTest, aStoreWithoutUserDataHasAContainerThatTakesNothing)
{
    sto_UserXYDataContainer curves = m_store.userData().userXYData();
    EXPECT_TRUE(curves.isEmpty());
    auto entry = curves.createIterator();
    entry.first();
    EXPECT_TRUE(entry.isDone());
    EXPECT_EQ(failureOf([&] { curves[shr_String("curve")]; }), "user data: has no curve named \"curve\"");
    EXPECT_EQ(failureOf([&] { curves.CreateXYDataInContainer("curve", 0); }),
              "user data: the database has none, and none can be added");
}

TEST_F(sto_UserXYDataTest, curvesAreWalkedInTheOrderInWhichTheyWereMade)
{
    sto_UserXYDataContainer curves = m_store.UserData().userXYData();
    for (const char* name : {"b", "a", "c"}) curves.CreateXYDataInContainer(name, 0);
    EXPECT_FALSE(curves.isEmpty());
    EXPECT_EQ(curves.size(), 3);
    std::string names;
    auto entry = curves.createIterator();
    for (entry.first(); !entry.isDone(); entry.next()) {
        names += entry.currentKey();
        EXPECT_EQ(sto_UserXYData(entry.currentValue()).name().cStr(), entry.currentKey());
    }
    EXPECT_EQ(names, "bac");
}

TEST_F(sto_UserXYDataTest, aTakenNameGoesOnStandingForTheFirst)
{
    sto_UserXYDataContainer curves = m_store.UserData().userXYData();
    const sto_UserXYData first = curves.CreateXYDataInContainer("curve", 0);
    const sto_UserXYData second = curves.CreateXYDataInContainer("curve", 0);
    EXPECT_NE(first.shortCut().id(), second.shortCut().id());
    EXPECT_EQ(curves["curve"].shortCut().id(), first.shortCut().id());
}

TEST_F(sto_UserXYDataTest, aNewCurveHasNothingButItsName)
{
    const sto_UserXYData curve = m_store.UserData().userXYData().CreateXYDataInContainer("curve", 0);
    EXPECT_STREQ(curve.name().cStr(), "curve");
    EXPECT_EQ(curve.sourceType(), kvp_SourceTypeEnm::KEYBOARD);
    for (const shr_String& text :
         {curve.sourceFileName(), curve.sourceDescription(), curve.contentDescription(), curve.positionDescription(),
          curve.xAxisLabel(), curve.yAxisLabel(), curve.legendLabel(), curve.description()}) {
        EXPECT_STREQ(text.cStr(), "");
    }
    EXPECT_EQ(curve.size(), 0);
    EXPECT_EQ(curve.dataListList().Size(), 0);
}

TEST_F(sto_UserXYDataTest, everySetterChangesItsOwnText)
{
    sto_UserXYData curve = m_store.UserData().userXYData().CreateXYDataInContainer("curve", 0);
    curve.setSourceType(kvp_SourceTypeEnm::OPERATION);
    curve.setSourceFileName("1");
    curve.setSourceDescription("2");
    curve.setContentDescription("3");
    curve.setPositionDescription("4");
    curve.setXAxisLabel("5");
    curve.setYAxisLabel("6");
    curve.setLegendLabel("7");
    EXPECT_EQ(curve.sourceType(), kvp_SourceTypeEnm::OPERATION);
    EXPECT_STREQ(curve.sourceFileName().cStr(), "1");
    EXPECT_STREQ(curve.sourceDescription().cStr(), "2");
    EXPECT_STREQ(curve.contentDescription().cStr(), "3");
    EXPECT_STREQ(curve.positionDescription().cStr(), "4");
    EXPECT_STREQ(curve.xAxisLabel().cStr(), "5");
    EXPECT_STREQ(curve.yAxisLabel().cStr(), "6");
    EXPECT_STREQ(curve.legendLabel().cStr(), "7");
    EXPECT_STREQ(curve.description().cStr(), "3, 4, 2");
}

TEST_F(sto_UserXYDataTest, rowsTakeTheFormThatFitsThem)
{
    const sto_UserXYData stored = m_store.UserData().userXYData().CreateXYDataInContainer("curve", 0);
    const auto put = [&](const std::vector<std::vector<float>>& rows) {
        sto_UserXYData::DataList list;
        for (const auto& row : rows) list.Append(shr_1DArrayList<float>(row.data(), static_cast<int>(row.size())));
        sto_UserXYData(stored).setDataListList(list);
        const auto content = stored.shortCut().fetch();
        EXPECT_EQ(stored.size(), static_cast<int>(rows.size()));
        const sto_UserXYData::DataList back = stored.dataListList();
        EXPECT_EQ(back.Size(), static_cast<int>(rows.size()));
        for (int i = 0; i < back.Size(); ++i) EXPECT_EQ(back[i].Size(), list[i].Size());
        return std::to_string(content->m_columns) + " " + std::to_string(content->m_lengths.size()) + " " +
               std::to_string(content->m_values.size());
    };
    EXPECT_EQ(put({{1, 2}, {3, 4}, {5, 6}}), "2 0 6");
    EXPECT_EQ(put({{1, 2, 3}}), "3 0 3");
    EXPECT_EQ(put({{1, 2}, {3}}), "3 2 3") << "the columns stay what they were";
    EXPECT_EQ(put({{}, {}}), "3 2 0");
    EXPECT_EQ(put({}), "3 0 0");
    EXPECT_EQ(put({{1}}), "1 0 1");
}
