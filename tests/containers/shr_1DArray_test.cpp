#include "containers/shr_1DArray.h"

#include "containers/shr_1DArrayIter.h"
#include "tst_Element.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <vector>

namespace {

template<class T> shr_1DArray<T> filled(int n)
{
    shr_1DArray<T> array;
    for (int i = 0; i < n; ++i) {
        array.Get(i) = T(i);
    }
    return array;
}

// Whether every count inside some arrays is the number of arrays on the table, or of tables on the block.
template<class T>::testing::AssertionResult countsAreRight(const std::vector<shr_1DArray<T>>& arrays)
{
    std::vector<const shr_1DArray<T>*> tables;
    for (const auto& array : arrays) {
        int sharers = 0;
        for (const auto& other : arrays) {
            sharers += array.SharesTableWith(other);
        }
        if (sharers != array.TableCount()) {
            return ::testing::AssertionFailure() << "table count " << array.TableCount() << " of " << sharers;
        }
        bool known = false;
        for (const auto* table : tables) {
            known = known || table->SharesTableWith(array);
        }
        if (!known) {
            tables.push_back(&array);
        }
    }
    std::multiset<const shr_1DArrayBlock<T>*> blocks;
    for (const auto* table : tables) {
        for (int i = 0; i < table->TableLength(); ++i) {
            if (table->BlockAt(i)) {
                blocks.insert(table->BlockAt(i));
            }
        }
    }
    for (const auto* block : blocks) {
        if (block->count != static_cast<int>(blocks.count(block))) {
            return ::testing::AssertionFailure() << "block count " << block->count << " of " << blocks.count(block);
        }
    }
    return ::testing::AssertionSuccess();
}

} // namespace

TEST(shr_1DArray, isFourIntegersAndTwoPointers)
{
    EXPECT_EQ(sizeof(shr_1DArray<int>), 4 * sizeof(int) + 2 * sizeof(void*));
}

TEST(shr_1DArray, emptyArrayHasNullTable)
{
    const shr_1DArray<int> array;
    EXPECT_FALSE(array.HasTable());
    EXPECT_EQ(array.TableLength(), 0);
    EXPECT_EQ(array.BlockPower(), 0);
    EXPECT_EQ(array.End(), 0);
    EXPECT_EQ(array.Head(), 0);
    EXPECT_EQ(array.TableCount(), 1);
}

TEST(shr_1DArray, sizeZeroGivesTableOfSixteenAndPowerFour)
{
    const shr_1DArray<int> array(0);
    EXPECT_TRUE(array.HasTable());
    EXPECT_EQ(array.TableLength(), 16);
    EXPECT_EQ(array.BlockPower(), 4);
    EXPECT_EQ(array.Size(), 0);
}

TEST(shr_1DArray, sizeDecidesPowerAndTable)
{
    const struct
    {
        int size, power, table;
    } cases[] = {
        {1, 4, 16},
        {255, 4, 16},
        {256, 5, 24},
        {257, 5, 25},
        {288, 5, 25},
        {289, 5, 26},
        {511, 5, 32},
        {512, 6, 24},
        {1000, 6, 32},
        {1 << 20, 17, 24},
        {(1 << 20) + 1, 17, 25},
        {2097151, 17, 32},
    };
    for (const auto& c : cases) {
        const shr_1DArray<int> array(c.size);
        EXPECT_EQ(array.BlockPower(), c.power) << c.size;
        EXPECT_EQ(array.TableLength(), c.table) << c.size;
        EXPECT_EQ(array.Size(), c.size);
        EXPECT_LE(array.UsedBlocks(), array.TableLength());
    }
}

TEST(shr_1DArray, sizedArrayHasNoBlockBeforeTheFirstAccess)
{
    const shr_1DArray<int> array(300);
    for (int i = 0; i < array.TableLength(); ++i) {
        EXPECT_EQ(array.BlockAt(i), nullptr);
    }
    EXPECT_EQ(array.PartialArrayConstGet(64), 0); // 32 to a block
    EXPECT_EQ(array.BlockAt(0), nullptr);
    EXPECT_NE(array.BlockAt(2), nullptr);
}

TEST(shr_1DArray, growZeroGivesEverythingBack)
{
    const int before = tst_Element::alive;
    shr_1DArray<tst_Element> array = filled<tst_Element>(100);
    EXPECT_TRUE(array.Grow(0));
    EXPECT_EQ(array.TableLength(), 0);
    EXPECT_FALSE(array.HasTable());
    EXPECT_EQ(array.BlockPower(), 0);
    EXPECT_EQ(array.Size(), 0);
    EXPECT_EQ(tst_Element::alive, before);
    array.Get(0) = tst_Element(1);
    EXPECT_EQ(array.BlockPower(), 4);
}

TEST(shr_1DArray, growLengthensTheTableBySixteenSpareEntries)
{
    shr_1DArray<int> array;
    EXPECT_TRUE(array.Grow(1));
    EXPECT_EQ(array.TableLength(), 17);
    EXPECT_EQ(array.BlockPower(), 4);
    array.Grow(17 * 16);
    EXPECT_EQ(array.TableLength(), 17);
    array.Grow(17 * 16 + 1);
    EXPECT_EQ(array.TableLength(), 18 + 16);
}

TEST(shr_1DArray, growDownKeepsTheTableAndFindsTheElementsAgain)
{
    shr_1DArray<int> array = filled<int>(100);
    const int length = array.TableLength();
    const auto* const block = array.BlockAt(5);
    array.Grow(10);
    EXPECT_EQ(array.Size(), 10);
    EXPECT_EQ(array.TableLength(), length);
    EXPECT_EQ(array.BlockAt(5), block);
    array.Grow(100);
    EXPECT_EQ(array.FullArrayConstGet(90), 90);
}

TEST(shr_1DArray, storageBehindTheEndGoesWithTheTable)
{
    const int before = tst_Element::alive;
    {
        shr_1DArray<tst_Element> array = filled<tst_Element>(100);
        array.Grow(10);
        EXPECT_EQ(tst_Element::alive, before + 7 * 16);
    }
    EXPECT_EQ(tst_Element::alive, before);
}

TEST(shr_1DArray, storageBehindTheEndIsNotSharedUnseenWithACopy)
{
    shr_1DArray<int> a = filled<int>(100);
    a.Grow(10);
    shr_1DArray<int> b = a;
    b.Get(0) = -1; // unshares the table
    a.Grow(100);
    b.Grow(100);
    b.Get(90) = -2;
    EXPECT_EQ(a.FullArrayConstGet(90), 90);
    EXPECT_EQ(b.FullArrayConstGet(90), -2);
}

TEST(shr_1DArray, getBeyondTheEndExtends)
{
    shr_1DArray<int> array;
    array.Get(40) = 7;
    EXPECT_EQ(array.Size(), 41);
    EXPECT_EQ(array.BlockAt(0), nullptr);
    EXPECT_EQ(array.FullArrayConstGet(40), 7);
    EXPECT_EQ(array.PartialArrayConstGet(0), 0);
}

TEST(shr_1DArray, copySharesTheTable)
{
    shr_1DArray<int> a = filled<int>(100);
    shr_1DArray<int> b = a;
    EXPECT_TRUE(a.SharesTableWith(b));
    EXPECT_EQ(a.TableCount(), 2);
    EXPECT_EQ(a.BlockAt(0)->count, 1);
}

TEST(shr_1DArray, writeToACopyClonesOneBlockAndSharesTheOthers)
{
    shr_1DArray<int> a = filled<int>(100);
    shr_1DArray<int> b = a;
    b.Get(20) = -20;
    EXPECT_EQ(a.FullArrayConstGet(20), 20);
    EXPECT_EQ(b.FullArrayConstGet(20), -20);
    EXPECT_EQ(a.TableCount(), 1);
    EXPECT_EQ(b.TableCount(), 1);
    for (int i = 0; i < 7; ++i) {
        if (i == 1) {
            EXPECT_NE(a.BlockAt(i), b.BlockAt(i));
            EXPECT_EQ(a.BlockAt(i)->count, 1);
            EXPECT_EQ(b.BlockAt(i)->count, 1);
        } else {
            EXPECT_EQ(a.BlockAt(i), b.BlockAt(i));
            EXPECT_EQ(a.BlockAt(i)->count, 2);
        }
    }
    EXPECT_EQ(b.FullArrayConstGet(21), 21);
}

TEST(shr_1DArray, cloneCopiesEveryElementOfTheBlock)
{
    shr_1DArray<tst_Element> a = filled<tst_Element>(3);
    shr_1DArray<tst_Element> b = a;
    tst_Element::reset();
    b.Get(0);
    EXPECT_EQ(tst_Element::copies, 16);
}

TEST(shr_1DArray, readingUnsharesNothing)
{
    shr_1DArray<int> a = filled<int>(100);
    shr_1DArray<int> b = a;
    EXPECT_EQ(b.PartialArrayConstGet(50) + b.FullArrayConstGet(51), 101);
    EXPECT_EQ(a.TableCount(), 2);
}

TEST(shr_1DArray, missingBlockBuiltByReadingShowsInAllSharers)
{
    shr_1DArray<int> a(300);
    shr_1DArray<int> b = a;
    b.PartialArrayConstGet(299);
    EXPECT_TRUE(a.SharesTableWith(b));
    ASSERT_NE(a.BlockAt(9), nullptr);
    EXPECT_EQ(a.BlockAt(9), b.BlockAt(9));
}

TEST(shr_1DArray, readingMayGoAnywhereInTheTable)
{
    shr_1DArray<int> array;
    array.Get(0) = 1; // a table of 17 entries
    EXPECT_EQ(array.PartialArrayConstGet(17 * 16 - 1), 0);
    EXPECT_EQ(array.Size(), 1);
}

TEST(shr_1DArray, selfAssignmentChangesNothing)
{
    shr_1DArray<int> a = filled<int>(20);
    const shr_1DArray<int>& same = a;
    a = same;
    EXPECT_EQ(a.TableCount(), 1);
    EXPECT_EQ(a.FullArrayConstGet(19), 19);
}

TEST(shr_1DArray, assignmentReleasesTheOldElements)
{
    const int before = tst_Element::alive;
    shr_1DArray<tst_Element> a = filled<tst_Element>(20);
    const shr_1DArray<tst_Element> b;
    a = b;
    EXPECT_EQ(tst_Element::alive, before);
    EXPECT_EQ(a.Size(), 0);
    EXPECT_FALSE(a.HasTable());
}

TEST(shr_1DArray, emptyArraysHaveNothingToShare)
{
    shr_1DArray<int> a;
    shr_1DArray<int> b(a);
    EXPECT_FALSE(a.HasTable());
    EXPECT_FALSE(a.SharesTableWith(b));
    EXPECT_EQ(a.TableCount(), 1);
    b.Get(0) = 7;
    EXPECT_EQ(a.Size(), 0);
    a = b;
    EXPECT_EQ(a.TableCount(), 2);
    b.Grow(0);
    EXPECT_FALSE(b.HasTable());
    EXPECT_EQ(a.TableCount(), 1);
    EXPECT_EQ(a.FullArrayConstGet(0), 7);
}

TEST(shr_1DArray, assignmentFromAnArrayInsideIsSafe)
{
    struct Tree
    {
        int value = 0;
        shr_1DArray<Tree> below;
    };
    Tree top;
    top.below.Get(0).value = 1;
    top.below.Get(0).below.Get(0).value = 2;
    top.below = top.below.FullArrayConstGet(0).below;
    EXPECT_EQ(top.below.FullArrayConstGet(0).value, 2);
}

TEST(shr_1DArray, setFromArrayCrossesBlocks)
{
    std::vector<int> values(1000);
    for (int i = 0; i < 1000; ++i) {
        values[static_cast<std::size_t>(i)] = 3 * i;
    }
    shr_1DArray<int> sized(1000);
    sized.SetFromArray(values.data(), 1000);
    shr_1DArray<int> grown;
    grown.SetFromArray(values.data(), 1000);
    EXPECT_EQ(sized.Size(), 1000);
    EXPECT_EQ(grown.Size(), 1000);
    for (int i = 0; i < 1000; ++i) {
        ASSERT_EQ(sized.FullArrayConstGet(i), 3 * i);
        ASSERT_EQ(grown.FullArrayConstGet(i), 3 * i);
    }
}

TEST(shr_1DArray, getHeadOfAnEmptyArray)
{
    shr_1DArray<int> array;
    array.GetHead() = 5;
    EXPECT_EQ(array.Size(), 1);
    EXPECT_EQ(array.FullArrayConstGet(0), 5);
    EXPECT_EQ(array.TableLength(), 17);
    EXPECT_EQ(array.Head(), 17 * 16 - 1);
}

TEST(shr_1DArray, getHeadMovesTheBlocksToTheTopOfTheTable)
{
    shr_1DArray<int> array = filled<int>(20); // 2 blocks in a table of 17
    const auto* const first = array.BlockAt(0);
    array.GetHead() = -1;
    EXPECT_EQ(array.TableLength(), 17);
    EXPECT_EQ(array.Head(), 15 * 16 - 1);
    EXPECT_EQ(array.End(), 15 * 16 + 20);
    EXPECT_EQ(array.BlockAt(0), nullptr);
    EXPECT_EQ(array.BlockAt(15), first);
    EXPECT_EQ(array.Size(), 21);
    EXPECT_EQ(array.FullArrayConstGet(0), -1);
    EXPECT_EQ(array.FullArrayConstGet(1), 0);
    EXPECT_EQ(array.FullArrayConstGet(20), 19);
}

TEST(shr_1DArray, getHeadOnAFullTableGrowsIt)
{
    shr_1DArray<int> array = filled<int>(17 * 16);
    ASSERT_EQ(array.TableLength(), 17);
    array.GetHead() = -1;
    EXPECT_EQ(array.TableLength(), 18 + 16);
    EXPECT_EQ(array.Get(0), -1);
    EXPECT_EQ(array.Size(), 17 * 16 + 1);
    for (int i = 0; i < 17 * 16; ++i) {
        ASSERT_EQ(array.FullArrayConstGet(i + 1), i);
    }
}

TEST(shr_1DArray, getHeadOnAFullTableTakesInTheRestOfTheLastBlock)
{
    shr_1DArray<int> array = filled<int>(17 * 16 - 5);
    array.GetHead() = -1;
    EXPECT_EQ(array.Size(), 17 * 16 + 1);
    EXPECT_EQ(array.FullArrayConstGet(17 * 16 - 5), 17 * 16 - 6);
    EXPECT_EQ(array.FullArrayConstGet(17 * 16), 0);
}

TEST(shr_1DArray, getHeadUsesTheRoomInFrontFirst)
{
    shr_1DArray<int> array;
    for (int i = 0; i < 17 * 16; ++i) {
        array.GetHead() = i;
        EXPECT_EQ(array.Head(), 17 * 16 - 1 - i);
    }
    EXPECT_EQ(array.TableLength(), 17);
    for (int i = 0; i < 17 * 16; ++i) {
        ASSERT_EQ(array.FullArrayConstGet(i), 17 * 16 - 1 - i);
    }
    array.GetHead() = 1000;
    EXPECT_EQ(array.FullArrayConstGet(0), 1000);
    EXPECT_EQ(array.FullArrayConstGet(17 * 16), 0);
}

TEST(shr_1DArray, getHeadOfACopyLeavesTheOriginal)
{
    shr_1DArray<int> a = filled<int>(40);
    shr_1DArray<int> b = a;
    b.GetHead() = -1;
    EXPECT_EQ(a.Size(), 40);
    EXPECT_EQ(a.FullArrayConstGet(0), 0);
    EXPECT_EQ(b.FullArrayConstGet(0), -1);
    EXPECT_EQ(a.BlockAt(1), b.BlockAt(15)); // 3 blocks at the top of 17 entries
    EXPECT_EQ(a.BlockAt(1)->count, 2);
}

TEST(shr_1DArray, removeHeadDropsTheFirstAndAtABoundaryItsBlock)
{
    const int before = tst_Element::alive;
    shr_1DArray<tst_Element> array = filled<tst_Element>(40);
    for (int i = 0; i < 15; ++i) {
        array.RemoveHead();
    }
    EXPECT_EQ(tst_Element::alive, before + 48);
    EXPECT_EQ(array.FullArrayConstGet(0).value, 15);
    array.RemoveHead();
    EXPECT_EQ(tst_Element::alive, before + 32);
    EXPECT_EQ(array.BlockAt(0), nullptr);
    EXPECT_EQ(array.Size(), 24);
    EXPECT_EQ(array.FullArrayConstGet(0).value, 16);
}

TEST(shr_1DArray, removeHeadOfACopyLeavesTheOriginalItsElements)
{
    shr_1DArray<int> a = filled<int>(40);
    shr_1DArray<int> b = a;
    for (int i = 0; i < 16; ++i) {
        b.RemoveHead();
    }
    EXPECT_EQ(b.FullArrayConstGet(0), 16);
    EXPECT_EQ(a.FullArrayConstGet(3), 3);
    EXPECT_EQ(a.BlockAt(0)->count, 1);
    EXPECT_EQ(a.BlockAt(1)->count, 2);
    b.GetHead() = -1; // the room in front is there again, its block is a new one
    EXPECT_EQ(a.FullArrayConstGet(15), 15);
}

TEST(shr_1DArray, failedCopyOfABlockChangesNothing)
{
    shr_1DArray<tst_Element> a = filled<tst_Element>(40);
    shr_1DArray<tst_Element> b = a;
    const int before = tst_Element::alive;
    for (int good = 0; good < 16; ++good) {
        tst_Element::reset();
        tst_Element::failAfter = good;
        EXPECT_THROW(b.Get(20), std::runtime_error);
        EXPECT_EQ(tst_Element::alive, before);
    }
    tst_Element::reset();
    EXPECT_EQ(a.BlockAt(1), b.BlockAt(1));
    EXPECT_EQ(a.BlockAt(1)->count, 2);
    b.Get(20).value = -1;
    EXPECT_EQ(a.FullArrayConstGet(20).value, 20);
}

TEST(shr_1DArray, runsCoverTheElementsBlockByBlock)
{
    shr_1DArray<int> array = filled<int>(40);
    array.RemoveHead();
    int length = 0;
    EXPECT_EQ(*array.ConstRun(0, 39, length), 1);
    EXPECT_EQ(length, 15);
    EXPECT_EQ(*array.ConstRun(15, 24, length), 16);
    EXPECT_EQ(length, 16);
    EXPECT_EQ(*array.ConstRun(31, 8, length), 32);
    EXPECT_EQ(length, 8);
}

TEST(shr_1DArrayIter, walksAllElementsAcrossBlocks)
{
    shr_1DArray<int> array = filled<int>(40);
    array.RemoveHead();
    std::vector<int> seen;
    shr_1DArrayIter<int> iter(array);
    for (iter.First(); !iter.IsDone(); iter.Next()) {
        EXPECT_TRUE(iter.HasCurrent());
        EXPECT_EQ(iter.Index(), static_cast<int>(seen.size()));
        seen.push_back(iter.Current());
    }
    ASSERT_EQ(seen.size(), 39u);
    EXPECT_EQ(seen.front(), 1);
    EXPECT_EQ(seen.back(), 39);
}

TEST(shr_1DArrayIter, keepsTheStorageAlive)
{
    shr_1DArray<int> array = filled<int>(40);
    shr_1DArrayIter<int> iter(array);
    EXPECT_EQ(array.TableCount(), 2);
    array.Get(0) = -1;
    array = shr_1DArray<int>();
    int sum = 0;
    for (; !iter.IsDone(); iter.Next()) {
        sum += iter.Current();
    }
    EXPECT_EQ(sum, 39 * 40 / 2);
}

TEST(shr_1DArrayIter, emptyArrayAndAbsentFirstBlockEndAtOnce)
{
    EXPECT_TRUE(shr_1DArrayIter<int>(shr_1DArray<int>()).IsDone());
    shr_1DArray<int> array(300);
    array.Get(100) = 1;
    shr_1DArrayIter<int> iter(array);
    EXPECT_TRUE(iter.IsDone());
    iter.First();
    EXPECT_TRUE(iter.IsDone());
}

TEST(shr_1DArrayIter, passesAnAbsentBlockWithoutElements)
{
    shr_1DArray<int> array;
    array.Get(0) = 1;
    array.Get(35) = 2; // block 1 is absent
    int present = 0;
    int steps = 0;
    for (shr_1DArrayIter<int> iter(array); !iter.IsDone(); iter.Next(), ++steps) {
        present += iter.HasCurrent();
    }
    EXPECT_EQ(steps, 36);
    EXPECT_EQ(present, 20);
}

// Arrays that copy from one another are kept beside plain vectors that do what each call promises. What lies
// after the end is part of the model, since growing back finds it again.
TEST(shr_1DArray, randomEditsAgreeWithVectors)
{
    struct Model
    {
        std::vector<int> values; // also after the end
        int size = 0;
    };
    std::mt19937 random(20);
    const auto below = [&random](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    std::vector<shr_1DArray<tst_Element>> arrays(5);
    std::vector<Model> models(5);
    const int before = tst_Element::alive;
    tst_Element::reset();
    for (int step = 0; step < 20000; ++step) {
        const auto at = static_cast<std::size_t>(below(5));
        shr_1DArray<tst_Element>& array = arrays[at];
        Model& model = models[at];
        const auto fit = [&model](int n) {
            if (static_cast<int>(model.values.size()) < n) {
                model.values.resize(static_cast<std::size_t>(n));
            }
        };
        switch (below(12)) {
        case 0: {
            const auto from = static_cast<std::size_t>(below(5));
            array = arrays[from];
            model = Model(models[from]);
            break;
        }
        case 1:
            if (below(10) == 0) {
                array.Grow(0);
                model = Model();
            }
            break;
        case 2: {
            const int n = 1 + below(400);
            array.Grow(n);
            fit(n);
            model.size = n;
            break;
        }
        case 3:
        case 4:
        case 5: {
            if (model.size > 600) {
                break;
            }
            if (array.Head() == 0) {
                const int used = array.UsedBlocks();
                model.values.resize(static_cast<std::size_t>(used) * 16);
                model.size = used == array.TableLength() ? used * 16 : model.size;
            }
            array.GetHead().value = step;
            model.values.insert(model.values.begin(), step);
            ++model.size;
            break;
        }
        case 6:
        case 7:
            if (model.size > 1) {
                array.RemoveHead();
                model.values.erase(model.values.begin());
                --model.size;
            }
            break;
        default: {
            const int i = below(model.size + 20);
            array.Get(i).value = step;
            fit(i + 1);
            model.size = std::max(model.size, i + 1);
            model.values[static_cast<std::size_t>(i)] = step;
            break;
        }
        }
        ASSERT_EQ(array.Size(), model.size) << step;
        if (step % 50 == 0) {
            ASSERT_TRUE(countsAreRight(arrays)) << step;
            for (std::size_t k = 0; k < 5; ++k) {
                for (int i = 0; i < models[k].size; ++i) {
                    ASSERT_EQ(arrays[k].PartialArrayConstGet(i).value, models[k].values[static_cast<std::size_t>(i)])
                        << step << ' ' << k << ' ' << i;
                }
            }
        }
    }
    arrays.clear();
    EXPECT_EQ(tst_Element::alive, before);
}
