#include "yld_Sequence.h"

#include "tst_Element.h"
#include "yld_Enum.h"
#include "yld_String.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <vector>

namespace {

// A class with a sequence of a class that is only declared so far, as the public headers have it.
class Block;
class Field
{
public:
    Field();
    ~Field();
    int sum() const;
    yld_Sequence<Block> m_blocks;
};
class Block
{
public:
    int value = 4;
};
Field::Field()
{
    m_blocks.append(Block());
    m_blocks.append(Block());
}
Field::~Field() = default;
int Field::sum() const { return m_blocks[0].value + m_blocks[1].value; }

yld_Sequence<int> upTo(int n)
{
    yld_Sequence<int> sequence;
    for (int i = 0; i < n; ++i) {
        sequence.append(i);
    }
    return sequence;
}

std::vector<int> valuesOf(const yld_Sequence<int>& sequence)
{
    std::vector<int> values;
    for (int i = 0; i < sequence.size(); ++i) {
        values.push_back(sequence[i]);
    }
    return values;
}

using Values = std::vector<int>;

} // namespace

TEST(yld_Sequence, storesTextsAndSequencesAsTheirPlainClass)
{
    static_assert(std::is_base_of_v<shr_1DArrayList<int>, yld_Sequence<int>>);
    static_assert(std::is_base_of_v<shr_1DArrayList<shr_String>, yld_Sequence<yld_String>>);
    static_assert(std::is_base_of_v<shr_1DArrayList<shr_1DArrayList<float>>, yld_Sequence<yld_Sequence<float>>>);
    static_assert(std::is_base_of_v<shr_1DArrayList<shr_1DArrayList<shr_1DArrayList<double>>>,
                                    yld_Sequence<yld_Sequence<yld_Sequence<double>>>>);
    static_assert(
        std::is_base_of_v<shr_1DArrayList<shr_1DArrayList<shr_String>>, yld_Sequence<yld_Sequence<yld_String>>>);
    EXPECT_EQ(sizeof(yld_Sequence<yld_String>), sizeof(shr_1DArrayList<int>));
}

TEST(yld_Sequence, defaultIsEmptyWithoutStorage)
{
    const yld_Sequence<int> sequence;
    EXPECT_EQ(sequence.size(), 0);
    EXPECT_TRUE(sequence.isEmpty());
    EXPECT_EQ(sequence.allocatedSize(), 0);
    EXPECT_FALSE(sequence.Array().HasTable());
}

TEST(yld_Sequence, numberReservesStorage)
{
    const yld_Sequence<int> sequence(300);
    EXPECT_EQ(sequence.size(), 0);
    EXPECT_TRUE(sequence.isEmpty());
    EXPECT_EQ(sequence.allocatedSize(), 300);
}

TEST(yld_Sequence, valuesAreCopied)
{
    float values[] = {1.5f, 2.5f, 3.5f};
    const yld_Sequence<float> sequence(values, 3);
    values[1] = 0;
    EXPECT_EQ(sequence.size(), 3);
    EXPECT_EQ(sequence.allocatedSize(), 3);
    EXPECT_EQ(sequence[1], 2.5f);
    const yld_Sequence<float> none(nullptr, 0);
    EXPECT_EQ(none.size(), 0);
}

TEST(yld_Sequence, valuesOfAClassOfItsOwnAreCopied)
{
    const yld_String texts[] = {"U", "S"};
    const yld_Sequence<yld_String> sequence(texts, 2);
    EXPECT_EQ(sequence.size(), 2);
    EXPECT_STREQ(sequence[1].cStr(), "S");
    EXPECT_TRUE(sequence[1].sharesWith(texts[1]));
}

TEST(yld_Sequence, listIsShared)
{
    shr_1DArrayList<shr_String> list;
    list.Append("U");
    yld_Sequence<yld_String> sequence(list);
    EXPECT_TRUE(sequence.Array().SharesTableWith(list.Array()));
    sequence.get(0).append("R");
    EXPECT_STREQ(sequence[0].cStr(), "UR");
    EXPECT_STREQ(list[0].cStr(), "U");
}

TEST(yld_Sequence, getBeyondTheEndExtendsTheStorageNotTheSize)
{
    yld_Sequence<int> sequence = upTo(3);
    sequence.get(9) = 90;
    EXPECT_EQ(sequence.size(), 3);
    EXPECT_EQ(sequence.allocatedSize(), 10);
    EXPECT_EQ(sequence.constGet(9), 90);
    EXPECT_EQ(sequence.constGet(5), 0);
}

TEST(yld_Sequence, constGetReachesStorageThatWasNeverTouched)
{
    const yld_Sequence<int> sequence(300);
    const yld_Sequence<int> copy = sequence;
    EXPECT_EQ(sequence.constGet(299), 0);
    EXPECT_EQ(&copy.constGet(299), &sequence.constGet(299));
}

TEST(yld_Sequence, growDownLowersTheSizeGrowUpLeavesIt)
{
    yld_Sequence<int> sequence = upTo(10);
    EXPECT_TRUE(sequence.grow(4));
    EXPECT_EQ(sequence.size(), 4);
    EXPECT_EQ(sequence.allocatedSize(), 4);
    EXPECT_TRUE(sequence.grow(100));
    EXPECT_EQ(sequence.size(), 4);
    EXPECT_EQ(sequence.allocatedSize(), 100);
    EXPECT_EQ(sequence.constGet(7), 7);
    EXPECT_TRUE(sequence.grow(0));
    EXPECT_EQ(sequence.size(), 0);
    EXPECT_FALSE(sequence.Array().HasTable());
}

TEST(yld_Sequence, appendsIntoReservedStorage)
{
    yld_Sequence<int> sequence(1000);
    for (int i = 0; i < 1000; ++i) {
        sequence.append(i);
    }
    EXPECT_EQ(sequence.allocatedSize(), 1000);
    EXPECT_EQ(sequence.Array().BlockPower(), 6);
    EXPECT_EQ(sequence[999], 999);
}

TEST(yld_Sequence, appendOfASequence)
{
    yld_Sequence<int> sequence = upTo(2);
    sequence.append(upTo(3));
    EXPECT_EQ(valuesOf(sequence), (Values{0, 1, 0, 1, 2}));
    sequence.append(sequence);
    EXPECT_EQ(valuesOf(sequence), (Values{0, 1, 0, 1, 2, 0, 1, 0, 1, 2}));
}

TEST(yld_Sequence, insertAndRemove)
{
    yld_Sequence<int> sequence = upTo(3);
    EXPECT_TRUE(sequence.insert(1, 9));
    EXPECT_TRUE(sequence.insert(4, 8));
    EXPECT_EQ(valuesOf(sequence), (Values{0, 9, 1, 2, 8}));
    EXPECT_TRUE(sequence.remove(0));
    EXPECT_TRUE(sequence.remove(3));
    EXPECT_EQ(valuesOf(sequence), (Values{9, 1, 2}));
    EXPECT_EQ(sequence.constGet(3), 0);
}

TEST(yld_Sequence, findFirstOfAnAbsentElementGivesTheSize)
{
    const yld_Sequence<int> sequence = upTo(5);
    EXPECT_EQ(sequence.findFirst(3), 3);
    EXPECT_EQ(sequence.findFirst(7), 5);
    EXPECT_TRUE(sequence.isMember(4));
    EXPECT_FALSE(sequence.isMember(5));
}

TEST(yld_Sequence, sliceStopsAtTheSize)
{
    const yld_Sequence<int> part = upTo(5).slice(2, 100);
    EXPECT_EQ(part.size(), 3);
    EXPECT_EQ(valuesOf(part), (Values{2, 3, 4}));
    EXPECT_EQ(valuesOf(upTo(5).slice(1, 3)), (Values{1, 2}));
}

TEST(yld_Sequence, isEqualElementByElement)
{
    EXPECT_TRUE(upTo(40).isEqual(upTo(40)));
    EXPECT_FALSE(upTo(40).isEqual(upTo(41)));
    EXPECT_TRUE(upTo(4) == upTo(4));
    yld_Sequence<yld_Sequence<int>> a;
    yld_Sequence<yld_Sequence<int>> b;
    a.append(upTo(3));
    b.append(upTo(3));
    EXPECT_TRUE(a.isEqual(b));
    EXPECT_EQ(a.findFirst(upTo(3)), 0);
    b.get(0).append(7);
    EXPECT_FALSE(a.isEqual(b));
}

TEST(yld_Sequence, clearAllGivesTheStorageUp)
{
    yld_Sequence<int> sequence = upTo(5);
    sequence.clearAll();
    EXPECT_TRUE(sequence.isEmpty());
    EXPECT_EQ(sequence.allocatedSize(), 0);
}

TEST(yld_Sequence, writingACopyClonesOneBlock)
{
    const yld_Sequence<int> a = upTo(100);
    yld_Sequence<int> b = a;
    EXPECT_EQ(a.Array().TableCount(), 2);
    b.get(20) = -1;
    EXPECT_EQ(a[20], 20);
    EXPECT_EQ(b[20], -1);
    EXPECT_EQ(&a[0], &b[0]);
    EXPECT_NE(&a[21], &b[21]);
    EXPECT_EQ(&a[40], &b[40]);
    EXPECT_EQ(a.Array().TableCount(), 1);
    EXPECT_EQ(b.Array().TableCount(), 1);
}

TEST(yld_Sequence, writingAnInnerSequenceLeavesTheCopy)
{
    yld_Sequence<yld_Sequence<float>> rows;
    for (int i = 0; i < 3; ++i) {
        yld_Sequence<float> row;
        row.append(static_cast<float>(i));
        rows.append(row);
    }
    const yld_Sequence<yld_Sequence<float>> copy = rows;
    rows.get(1).get(0) = 9;
    EXPECT_EQ(rows[1][0], 9);
    EXPECT_EQ(copy[1][0], 1);
    EXPECT_TRUE(rows[2].Array().SharesTableWith(copy[2].Array()));
}

TEST(yld_Sequence, rangeForGoesThroughAllBlocks)
{
    int expected = 0;
    for (int value : upTo(100).slice(0, 100)) {
        EXPECT_EQ(value, expected++);
    }
    EXPECT_EQ(expected, 100);
    for (int value : yld_Sequence<int>()) {
        ADD_FAILURE() << value;
    }
    yld_Sequence<yld_String> names;
    names.append("U");
    for (const yld_String& name : names) {
        EXPECT_STREQ(name.cStr(), "U");
    }
}

TEST(yld_Sequence, runsCoverTheSize)
{
    const yld_Sequence<int> sequence = upTo(100);
    int length = 0;
    int next = 0;
    for (int i = 0; i < sequence.size(); i += length) {
        const int* const run = sequence.run(i, length);
        for (int k = 0; k < length; ++k) {
            EXPECT_EQ(run[k], next++);
        }
    }
    EXPECT_EQ(next, 100);
}

TEST(yld_Sequence, elementsMayBeIncompleteWhereTheMemberIs)
{
    const Field field;
    EXPECT_EQ(field.sum(), 8);
}

TEST(yld_Sequence, otherElementTypes)
{
    yld_Sequence<bool> flags;
    flags.append(true);
    flags.get(0) = false;
    EXPECT_FALSE(flags[0]);
    yld_Sequence<yld_Sequence<yld_Enum::yld_ElementFaceEnum>> faces;
    faces.append(yld_Sequence<yld_Enum::yld_ElementFaceEnum>());
    faces.get(0).append(yld_Enum::FACE2);
    EXPECT_EQ(faces[0][0], yld_Enum::FACE2);
    yld_Sequence<tst_Element> elements;
    elements.append(tst_Element(3));
    EXPECT_EQ(elements[0].value, 3);
}

TEST(yld_Sequence, millionAppendsMoveNothing)
{
    yld_Sequence<int> sequence;
    sequence.append(0);
    const int* const first = &sequence[0];
    for (int i = 1; i < 1000000; ++i) {
        sequence.append(i);
    }
    EXPECT_EQ(&sequence[0], first);
    EXPECT_EQ(sequence[999999], 999999);
    EXPECT_EQ(sequence.size(), 1000000);
}
