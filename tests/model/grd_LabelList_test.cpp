#include "platform/model/grd_LabelList.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <unordered_map>

namespace {

grd_LabelList listOf(const std::vector<int>& labels)
{
    grd_LabelList list;
    list.append(labels.data(), static_cast<int>(labels.size()));
    return list;
}

} // namespace

TEST(grd_LabelList, emptyListHasNoLabel)
{
    const grd_LabelList list;
    EXPECT_EQ(list.size(), 0);
    EXPECT_EQ(list.find(1), -1);
    EXPECT_EQ(list.findAll(nullptr, 0, nullptr), 0);
}

TEST(grd_LabelList, labelsWithoutGapsAreFoundByArithmetic)
{
    const grd_LabelList list = listOf({5, 6, 7, 8});
    for (int i = 0; i < 4; ++i) EXPECT_EQ(list.find(5 + i), i);
    EXPECT_EQ(list.find(4), -1);
    EXPECT_EQ(list.find(9), -1);
}

TEST(grd_LabelList, ascendingLabelsWithGaps)
{
    const grd_LabelList list = listOf({2, 10, 11, 40, 2147483647});
    EXPECT_EQ(list.find(2), 0);
    EXPECT_EQ(list.find(11), 2);
    EXPECT_EQ(list.find(2147483647), 4);
    EXPECT_EQ(list.find(12), -1);
}

TEST(grd_LabelList, unorderedLabelsThroughTheIndex)
{
    const grd_LabelList list = listOf({40, 2, 2147483647, 1, 11});
    EXPECT_EQ(list.find(40), 0);
    EXPECT_EQ(list.find(2), 1);
    EXPECT_EQ(list.find(2147483647), 2);
    EXPECT_EQ(list.find(1), 3);
    EXPECT_EQ(list.find(11), 4);
    EXPECT_EQ(list.find(12), -1);
}

TEST(grd_LabelList, hintIsTriedButNeverTrusted)
{
    const grd_LabelList list = listOf({40, 2, 17, 1, 11});
    EXPECT_EQ(list.find(17, 2), 2);
    EXPECT_EQ(list.find(17, 1), 2);
    EXPECT_EQ(list.find(17, 4), 2);
    EXPECT_EQ(list.find(17, 100), 2);
    EXPECT_EQ(list.find(17, -5), 2);
}

TEST(grd_LabelList, randomAppendsAgreeWithAMap)
{
    std::mt19937 random(7);
    std::vector<int> pool(20000);
    for (std::size_t i = 0; i < pool.size(); ++i) pool[i] = static_cast<int>(i * 7 + 1);
    std::shuffle(pool.begin(), pool.end(), random);
    grd_LabelList list;
    std::unordered_map<int, int> expected;
    std::size_t used = 0;
    while (used < pool.size()) {
        const std::size_t count = std::min<std::size_t>(1 + random() % 50, pool.size() - used);
        const grd_LabelList before = list;
        list.append(pool.data() + used, static_cast<int>(count));
        for (std::size_t i = 0; i < count; ++i) expected[pool[used + i]] = static_cast<int>(used + i);
        used += count;
        const int label = pool[random() % used];
        EXPECT_EQ(list.find(label), expected[label]);
        // An older copy knows what it knew, also where it shares the index.
        EXPECT_EQ(before.find(pool[used - 1]), -1);
        EXPECT_EQ(list.find(static_cast<int>(random() % 20000) * 7 + 2), -1);
    }
    for (const auto& [label, place] : expected) ASSERT_EQ(list.find(label), place);
}

TEST(grd_LabelList, findAllStopsAtTheFirstUnknownLabel)
{
    const grd_LabelList list = listOf({3, 1, 2});
    const int labels[] = {2, 3, 9, 1};
    int places[4] = {-7, -7, -7, -7};
    EXPECT_EQ(list.findAll(labels, 4, places), 2);
    EXPECT_EQ(places[0], 2);
    EXPECT_EQ(places[1], 0);
    EXPECT_EQ(places[2], -7);
    EXPECT_EQ(list.findAll(labels, 2, nullptr), 2);
}

TEST(grd_LabelList, repeatedLabelsAreFound)
{
    const int ascending[] = {1, 2, 3};
    const int repeated[] = {5, 3, 5, 3};
    EXPECT_EQ(grd_LabelList::firstRepeated(ascending, 3), -1);
    EXPECT_EQ(grd_LabelList::firstRepeated(repeated, 4), 2);
    EXPECT_EQ(grd_LabelList::firstRepeated(nullptr, 0), -1);
}

TEST(grd_LabelList, presentLabelsAreFound)
{
    const grd_LabelList list = listOf({10, 20, 30});
    const int fresh[] = {5, 15, 31};
    const int mixed[] = {5, 20};
    EXPECT_EQ(list.firstPresent(fresh, 3), 3);
    EXPECT_EQ(list.firstPresent(mixed, 2), 1);
}

TEST(grd_LabelList, runsInTheListsOrderNeedNoIndex)
{
    grd_LabelList list;
    const std::vector<int> labels = {50, 10, 40, 20, 30, 5};
    list.append(labels.data(), 6);
    EXPECT_EQ(list.findRun(labels.data(), 6), 0);
    EXPECT_EQ(list.findRun(labels.data() + 2, 3), 2);
    EXPECT_EQ(list.findRun(labels.data() + 5, 1), 5);
    int places[6] = {};
    EXPECT_EQ(list.findAll(labels.data() + 1, 5, places), 5);
    EXPECT_EQ(places[0], 1);
    EXPECT_EQ(places[4], 5);
    EXPECT_EQ(list.numIndexed(), 0);
    // Another order, a label that is missing, and nothing at all are no run.
    const int mixed[] = {50, 30};
    const int beyond[] = {5, 50};
    const int missing[] = {50, 10, 41};
    EXPECT_EQ(list.findRun(mixed, 2), -1);
    EXPECT_EQ(list.findRun(beyond, 2), -1);
    EXPECT_EQ(list.findRun(missing, 3), -1);
    EXPECT_EQ(list.findRun(mixed, 0), -1);
    EXPECT_EQ(list.findAll(mixed, 2, places), 2);
    EXPECT_EQ(places[1], 4);
    EXPECT_EQ(list.numIndexed(), 6);
    EXPECT_EQ(list.findAll(missing, 3, nullptr), 2);
}
