#include "containers/shr_List.h"

#include "tst_Element.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <vector>

namespace {

shr_1DArrayList<int> numbers(int n)
{
    shr_1DArrayList<int> list;
    for (int i = 0; i < n; ++i) {
        list.Append(10 * i);
    }
    return list;
}

template<class T> std::vector<int> valuesOf(const shr_1DArrayList<T>& list)
{
    std::vector<int> values;
    for (const T& element : list) {
        if constexpr (std::is_same_v<T, int>) {
            values.push_back(element);
        } else {
            values.push_back(element.value);
        }
    }
    return values;
}

using Values = std::vector<int>;

} // namespace

TEST(shr_1DArrayList, isACountAndAnArray)
{
    struct Fields
    {
        int count;
        shr_1DArray<int> array;
    };
    EXPECT_EQ(sizeof(shr_1DArrayList<int>), sizeof(Fields));
}

TEST(shr_1DArrayList, appendAddsAtTheEnd)
{
    const shr_1DArrayList<int> list = numbers(40);
    EXPECT_EQ(list.Size(), 40);
    for (int i = 0; i < 40; ++i) {
        EXPECT_EQ(list[i], 10 * i);
        EXPECT_EQ(list.ConstGet(i), 10 * i);
    }
}

TEST(shr_1DArrayList, elementsDoNotMoveWhileAppending)
{
    shr_1DArrayList<int> list = numbers(1);
    const int* const first = &list[0];
    for (int i = 0; i < 10000; ++i) {
        list.Append(i);
    }
    EXPECT_EQ(&list[0], first);
}

TEST(shr_1DArrayList, appendingALongerListGrowsToItsCountFirst)
{
    shr_1DArrayList<int> list = numbers(2);
    list.Append(numbers(30));
    EXPECT_EQ(list.Size(), 32);
    EXPECT_EQ(list[1], 10);
    EXPECT_EQ(list[2], 0);
    EXPECT_EQ(list[31], 290);
    EXPECT_EQ(list.Array().Size(), 32);
}

TEST(shr_1DArrayList, aListMayBeAppendedToItself)
{
    shr_1DArrayList<int> list = numbers(20);
    list.Append(list);
    ASSERT_EQ(list.Size(), 40);
    EXPECT_EQ(list[19], 190);
    EXPECT_EQ(list[20], 0);
    EXPECT_EQ(list[39], 190);
}

TEST(shr_1DArrayList, itsOwnElementsMayBeGiven)
{
    shr_1DArrayList<int> list = numbers(3);
    list.Append(list[2]);
    list.Insert(0, list[1]);
    EXPECT_EQ(valuesOf(list), (Values{10, 0, 10, 20, 20}));
    shr_1DArrayList<int> copy = list;
    copy.Append(copy[0]);
    copy.RemoveMember(copy[1]);
    EXPECT_EQ(valuesOf(copy), (Values{10, 10, 20, 20, 10}));
    EXPECT_EQ(list.Size(), 5);
}

TEST(shr_1DArrayList, appendUnlessMember)
{
    shr_1DArrayList<int> list = numbers(3);
    EXPECT_FALSE(list.AppendUnlessMember(20));
    EXPECT_TRUE(list.AppendUnlessMember(25));
    EXPECT_EQ(valuesOf(list), (Values{0, 10, 20, 25}));
}

TEST(shr_1DArrayList, insertMovesUpAndAtTheCountAppends)
{
    shr_1DArrayList<int> list = numbers(3);
    EXPECT_TRUE(list.Insert(0, 1));
    EXPECT_TRUE(list.Insert(4, 2));
    EXPECT_TRUE(list.Insert(2, 3));
    EXPECT_EQ(valuesOf(list), (Values{1, 0, 3, 10, 20, 2}));
}

TEST(shr_1DArrayList, removeMovesDown)
{
    shr_1DArrayList<int> list = numbers(5);
    EXPECT_TRUE(list.Remove(1));
    EXPECT_EQ(valuesOf(list), (Values{0, 20, 30, 40}));
}

TEST(shr_1DArrayList, removeLeavesADefaultElementInTheVacatedSlot)
{
    shr_1DArrayList<std::shared_ptr<int>> list;
    const auto held = std::make_shared<int>(1);
    list.Append(held);
    list.Append(held);
    EXPECT_EQ(held.use_count(), 3);
    list.Remove(1);
    EXPECT_EQ(held.use_count(), 2);
    EXPECT_EQ(list.ConstGet(1), nullptr);
    list.Remove(0);
    EXPECT_EQ(held.use_count(), 1);
}

TEST(shr_1DArrayList, removeMemberTakesTheFirstOnly)
{
    shr_1DArrayList<int> list = numbers(3);
    list.Append(10);
    EXPECT_TRUE(list.RemoveMember(10));
    EXPECT_FALSE(list.RemoveMember(11));
    EXPECT_EQ(valuesOf(list), (Values{0, 20, 10}));
}

TEST(shr_1DArrayList, popTakesTheLast)
{
    shr_1DArrayList<int> list = numbers(3);
    EXPECT_EQ(list.Pop(), 20);
    EXPECT_EQ(valuesOf(list), (Values{0, 10}));
    EXPECT_EQ(list.ConstGet(2), 0);
}

TEST(shr_1DArrayList, sliceStopsAtTheCount)
{
    const shr_1DArrayList<int> list = numbers(5);
    EXPECT_EQ(valuesOf(list.Slice(2, 100)), (Values{20, 30, 40}));
    EXPECT_EQ(valuesOf(list.Slice(1, 3)), (Values{10, 20}));
    EXPECT_TRUE(list.Slice(3, 3).IsEmpty());
    EXPECT_TRUE(list.Slice(7, 9).IsEmpty());
}

TEST(shr_1DArrayList, sliceWithADestinationDoesNothing)
{
    const shr_1DArrayList<int> list = numbers(5);
    shr_1DArrayList<int> destination = numbers(2);
    list.Slice(1, 3, destination);
    EXPECT_EQ(valuesOf(destination), (Values{0, 10}));
}

TEST(shr_1DArrayList, findFirstGivesTheFirstOrTheCount)
{
    shr_1DArrayList<int> list = numbers(40);
    list.Append(100);
    EXPECT_EQ(list.FindFirst(100), 10);
    EXPECT_EQ(list.FindFirst(390), 39);
    EXPECT_EQ(list.FindFirst(5), 41);
    EXPECT_EQ(shr_1DArrayList<int>().FindFirst(0), 0);
    EXPECT_TRUE(list.IsMember(390));
    EXPECT_FALSE(list.IsMember(391));
}

TEST(shr_1DArrayList, findFirstDoesNotSeeWhatLiesBehindTheCount)
{
    shr_1DArrayList<int> list = numbers(3);
    list.Get(5) = 77;
    EXPECT_EQ(list.Size(), 3);
    EXPECT_FALSE(list.IsMember(77));
}

TEST(shr_1DArrayList, findLastGivesTheCount)
{
    const shr_1DArrayList<int> list = numbers(5);
    EXPECT_EQ(list.FindLast(20), 5);
    EXPECT_EQ(list.FindLast(-1), 5);
    EXPECT_EQ(shr_1DArrayList<int>().FindLast(0), 0);
}

TEST(shr_1DArrayList, isEqualComparesCountsThenElements)
{
    EXPECT_TRUE(numbers(40).IsEqual(numbers(40)));
    EXPECT_FALSE(numbers(40).IsEqual(numbers(39)));
    shr_1DArrayList<int> other = numbers(40);
    other.Get(39) = 0;
    EXPECT_FALSE(numbers(40).IsEqual(other));
    EXPECT_TRUE(numbers(3) == numbers(3));
    EXPECT_TRUE(shr_1DArrayList<int>().IsEqual(shr_1DArrayList<int>(7)));
}

TEST(shr_1DArrayList, sharedElementsAreEqualWithoutComparing)
{
    shr_1DArrayList<tst_Element> a;
    for (int i = 0; i < 20; ++i) {
        a.Append(tst_Element(i));
    }
    const shr_1DArrayList<tst_Element> shared = a;
    tst_Element::reset();
    EXPECT_TRUE(a.IsEqual(shared));
    EXPECT_EQ(tst_Element::compared, 0);
    a.Get(0); // a block of its own
    EXPECT_TRUE(a.IsEqual(shared));
    EXPECT_EQ(tst_Element::compared, 16);

    shr_1DArrayList<double> b;
    b.Append(std::numeric_limits<double>::quiet_NaN());
    const shr_1DArrayList<double> c = b;
    EXPECT_TRUE(b.IsEqual(c));
    b.Get(0);
    EXPECT_FALSE(b.IsEqual(c));
}

TEST(shr_1DArrayList, clearAllGivesTheStorageUp)
{
    const int before = tst_Element::alive;
    shr_1DArrayList<tst_Element> list;
    list.Append(tst_Element(1));
    list.ClearAll();
    EXPECT_EQ(list.Size(), 0);
    EXPECT_FALSE(list.Array().HasTable());
    EXPECT_EQ(tst_Element::alive, before);
}

TEST(shr_1DArrayList, getCArrayCopiesTheElements)
{
    int n = -1;
    const std::unique_ptr<int[]> values(numbers(40).GetCArray(n));
    ASSERT_EQ(n, 40);
    EXPECT_EQ(values[39], 390);
    const std::unique_ptr<int[]> none(shr_1DArrayList<int>().GetCArray(n));
    EXPECT_EQ(n, 0);
    EXPECT_NE(none, nullptr);
}

TEST(shr_1DArrayList, failedCopiesLeaveAUsableList)
{
    const int before = tst_Element::alive;
    {
        shr_1DArrayList<tst_Element> list;
        for (int i = 0; i < 20; ++i) {
            list.Append(tst_Element(i));
        }
        const tst_Element more(99);
        int n = -1;
        tst_Element::reset();
        tst_Element::failAfter = 0;
        EXPECT_THROW(list.Append(more), std::runtime_error);
        EXPECT_EQ(list.Size(), 20);
        tst_Element::failAfter = 3;
        EXPECT_THROW(list.Insert(10, more), std::runtime_error);
        EXPECT_EQ(list.Size(), 20);
        tst_Element::failAfter = 3;
        EXPECT_THROW(list.GetCArray(n), std::runtime_error);
        EXPECT_EQ(n, -1);
        tst_Element::reset();
        EXPECT_EQ(list[0].value, 0);
        EXPECT_EQ(list[9].value, 9);
    }
    EXPECT_EQ(tst_Element::alive, before);
}

TEST(shr_1DArrayList, walkOfAnEmptyListEndsAtOnce)
{
    EXPECT_TRUE(valuesOf(shr_1DArrayList<int>()).empty());
    EXPECT_TRUE(valuesOf(shr_1DArrayList<int>(100)).empty());
}

TEST(shr_List, isAListOfItsOwn)
{
    shr_List<int> list;
    list.Append(3);
    list.Append(4);
    shr_List<int> copy = list;
    copy.Remove(0);
    EXPECT_EQ(list.Size(), 2);
    EXPECT_EQ(copy.Size(), 1);
    EXPECT_EQ(copy[0], 4);
}

TEST(shr_1DArrayList, randomEditsAgreeWithVectors)
{
    std::mt19937 random(7);
    const auto below = [&random](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    const int before = tst_Element::alive;
    {
        std::vector<shr_1DArrayList<tst_Element>> lists(4);
        std::vector<Values> models(4);
        tst_Element::reset();
        for (int step = 0; step < 20000; ++step) {
            const auto at = static_cast<std::size_t>(below(4));
            shr_1DArrayList<tst_Element>& list = lists[at];
            Values& model = models[at];
            const int size = static_cast<int>(model.size());
            const int i = size ? below(size) : 0;
            switch (below(size > 300 ? 8 : 14)) {
            case 0: {
                const auto from = static_cast<std::size_t>(below(4));
                list = lists[from];
                model = Values(models[from]);
                break;
            }
            case 1:
                if (size) {
                    list.Remove(i);
                    model.erase(model.begin() + i);
                }
                break;
            case 2:
                if (size) {
                    ASSERT_EQ(list.Pop().value, model.back());
                    model.pop_back();
                }
                break;
            case 3: {
                const int from = below(size + 5);
                const int to = from + below(100);
                list = list.Slice(from, to);
                const int first = std::min(from, size);
                model = Values(model.begin() + first, model.begin() + std::clamp(to, first, size));
                break;
            }
            case 4: {
                const bool there = std::find(model.begin(), model.end(), step % 50) != model.end();
                ASSERT_EQ(list.RemoveMember(tst_Element(step % 50)), there);
                if (there) {
                    model.erase(std::find(model.begin(), model.end(), step % 50));
                }
                break;
            }
            case 5:
                if (below(20) == 0) {
                    list.ClearAll();
                    model.clear();
                }
                break;
            case 6:
                if (size) {
                    list.Get(i).value = step;
                    model[static_cast<std::size_t>(i)] = step;
                }
                break;
            case 7:
                ASSERT_EQ(list.FindFirst(tst_Element(step % 50)),
                          std::find(model.begin(), model.end(), step % 50) - model.begin());
                break;
            case 8: {
                const auto from = static_cast<std::size_t>(below(4));
                list.Append(lists[from]);
                const Values added = models[from];
                model.insert(model.end(), added.begin(), added.end());
                break;
            }
            case 9:
            case 10:
                list.Insert(i, tst_Element(step % 50));
                model.insert(model.begin() + i, step % 50);
                break;
            default:
                list.Append(tst_Element(step % 50));
                model.push_back(step % 50);
                break;
            }
            for (std::size_t k = 0; k < 4; ++k) {
                ASSERT_EQ(valuesOf(lists[k]), models[k]) << step;
            }
        }
    }
    EXPECT_EQ(tst_Element::alive, before);
}
