#include "containers/shr_BtreeIterator.h"
#include "containers/shr_Map.h"

#include "platform/text/msg_NaturalOrder.h"
#include "tst_Element.h"
#include "yld_String.h"

#include <gtest/gtest.h>

#include <pthread.h>

#include <algorithm>
#include <climits>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace {
struct DeepKey
{
};
} // namespace

// Chains of nodes far deeper than balancing lets any tree become. A tree may link nodes; so may this one.
template<> class shr_Btree<DeepKey, tst_Element>
{
public:
    using Node = shr_BtreeNode<DeepKey, tst_Element>;
    using Handle = Node::Handle;

    // Every `turn`-th node hangs on the right, the others on the left.
    static Handle* chain(int depth, int turn)
    {
        Handle* below = nullptr;
        for (int i = 0; i < depth; ++i) {
            Node* const node = new Node(DeepKey(), tst_Element(i));
            (i % turn == 0 ? node->m_right : node->m_left) = below;
            below = new Handle(node);
        }
        return below;
    }
};

namespace {

// The tree with its look-ups open.
template<class K, class V> class Probe : public shr_Btree<K, V>
{
public:
    using shr_Btree<K, V>::Find;
    using shr_Btree<K, V>::ConstFind;
};

using Tree = Probe<int, int>;
using Node = shr_BtreeNode<int, int>;
using Keys = std::vector<int>;

Tree treeOf(const Keys& keys)
{
    Tree tree;
    for (int key : keys) {
        tree.InsertUnlessMember(key, 10 * key);
    }
    return tree;
}

template<class V> Keys forward(const shr_Btree<int, V>& tree)
{
    Keys keys;
    shr_BtreeIterator<int, V> entry(tree);
    for (entry.First(); !entry.IsDone(); entry.Next()) {
        keys.push_back(entry.CurrentKey());
    }
    return keys;
}

template<class V> Keys backward(const shr_Btree<int, V>& tree)
{
    Keys keys;
    shr_BtreeIterator<int, V> entry(tree);
    for (entry.Last(); !entry.IsDone(); entry.Previous()) {
        keys.insert(keys.begin(), entry.CurrentKey());
    }
    return keys;
}

// The shape as text: key(left right), a dot for a missing child.
void writeShape(const Node::Handle* handle, std::string& shape)
{
    if (!handle) {
        shape += '.';
        return;
    }
    const Node& node = handle->ConstGet();
    shape += std::to_string(node.Key());
    if (node.Left() || node.Right()) {
        shape += '(';
        writeShape(node.Left(), shape);
        shape += ' ';
        writeShape(node.Right(), shape);
        shape += ')';
    }
}

std::string shapeOf(const Tree& tree)
{
    std::string shape;
    writeShape(tree.Root(), shape);
    return shape;
}

const Node& rootOf(const Tree& tree) { return tree.Root()->ConstGet(); }

Keys upTo(int n)
{
    Keys keys;
    for (int i = 0; i < n; ++i) {
        keys.push_back(i);
    }
    return keys;
}

// 0, n-1, 1, n-2 and so on: each key lies between the two before it.
Keys zigZag(int n)
{
    Keys keys;
    for (int i = 0; i < n / 2; ++i) {
        keys.push_back(i);
        keys.push_back(n - 1 - i);
    }
    return keys;
}

// Runs the work on a thread with a stack that a recursion through a deep tree would overflow.
template<class Work> void onSmallStack(Work work)
{
    pthread_attr_t attributes;
    ASSERT_EQ(pthread_attr_init(&attributes), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, 256 * 1024), 0);
    pthread_t thread;
    ASSERT_EQ(pthread_create(
                  &thread, &attributes,
                  [](void* given) -> void* {
                      (*static_cast<Work*>(given))();
                      return nullptr;
                  },
                  &work),
              0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

class NaturalOrder
{
public:
    explicit NaturalOrder(bool on) : m_before(msg_getNaturalOrder()) { msg_setNaturalOrder(on); }
    ~NaturalOrder() { msg_setNaturalOrder(m_before); }

private:
    bool m_before;
};

enum Colour
{
    RED = 1,
    GREEN = 5,
    BLUE = 3
};

} // namespace

TEST(BtreeCompare, integersBySubtraction)
{
    EXPECT_LT(BtreeCompare(5, 3), 0);
    EXPECT_EQ(BtreeCompare(5, 5), 0);
    EXPECT_GT(BtreeCompare(3, 5), 0);
    EXPECT_EQ(BtreeCompare(3, 5), 2);
}

TEST(BtreeCompare, integerSubtractionWrapsAround)
{
    EXPECT_EQ(BtreeCompare(INT_MIN, INT_MAX), -1);
    EXPECT_EQ(BtreeCompare(INT_MAX, INT_MIN), 1);
}

TEST(BtreeCompare, enumeratorsByNumber)
{
    EXPECT_GT(BtreeCompare(RED, GREEN), 0);
    EXPECT_LT(BtreeCompare(GREEN, BLUE), 0);
}

TEST(BtreeCompare, stringsByteByByte)
{
    const NaturalOrder order(false);
    EXPECT_LT(BtreeCompare(yld_String("b"), yld_String("a")), 0);
    EXPECT_EQ(BtreeCompare(yld_String("a"), yld_String("a")), 0);
    EXPECT_GT(BtreeCompare(yld_String("a"), yld_String("ab")), 0);
    EXPECT_LT(BtreeCompare(yld_String("Step-2"), yld_String("Step-10")), 0);
    EXPECT_GT(BtreeCompare(yld_String("a"), yld_String("\xe4")), 0);
    EXPECT_LT(BtreeCompare(yld_String("a"), yld_String()), 0);
}

TEST(BtreeCompare, stringsInNaturalOrder)
{
    const NaturalOrder order(true);
    EXPECT_GT(BtreeCompare(yld_String("Step-2"), yld_String("Step-10")), 0);
    EXPECT_LT(BtreeCompare(yld_String("Step-10"), yld_String("Step-2")), 0);
    EXPECT_EQ(BtreeCompare(yld_String("Step-2"), yld_String("Step-2")), 0);
}

TEST(shr_Btree, emptyTree)
{
    Tree tree;
    EXPECT_EQ(tree.Size(), 0);
    EXPECT_EQ(tree.Root(), nullptr);
    EXPECT_EQ(tree.DefaultValue(), 0);
    EXPECT_FALSE(tree.Remove(1));
    EXPECT_EQ(tree.Find(1), nullptr);
    EXPECT_EQ(tree.ConstFind(1), nullptr);
    EXPECT_TRUE(forward(tree).empty());
    EXPECT_TRUE(backward(tree).empty());
    EXPECT_EQ(tree.Depth(), 0);
    EXPECT_TRUE(tree.WellFormed(true));
}

TEST(shr_Btree, existingKeyKeepsItsValue)
{
    Tree tree = treeOf({5, 3, 8});
    EXPECT_FALSE(tree.InsertUnlessMember(3, -1));
    EXPECT_EQ(tree.Size(), 3);
    EXPECT_EQ(tree.ConstFind(3)->Value(), 30);
}

TEST(shr_Btree, leansUntilADepthOfTwo)
{
    // A child without children counts as none, so a chain of three is not turned yet.
    EXPECT_EQ(shapeOf(treeOf({1, 2, 3})), "1(. 2(. 3))");
    EXPECT_EQ(shapeOf(treeOf({3, 2, 1})), "3(2(1 .) .)");
    EXPECT_EQ(shapeOf(treeOf({1, 2, 3, 4})), "2(1 3(. 4))");
    EXPECT_EQ(shapeOf(treeOf({4, 3, 2, 1})), "3(2(1 .) 4)");
}

TEST(shr_Btree, singleRotationsOnly)
{
    // 1(. 9(4(. 6) .)) leans to the right by two. One turn to the left only moves the bend to the other side;
    // a double rotation would have put 4 on top.
    EXPECT_EQ(shapeOf(treeOf({1, 9, 4, 6})), "9(1(. 4(. 6)) .)");
}

TEST(shr_Btree, ascendingKeysStayShallow)
{
    const Tree tree = treeOf(upTo(4096));
    EXPECT_TRUE(tree.WellFormed(true));
    EXPECT_LE(tree.Depth(), 2 * 13);
    EXPECT_EQ(forward(tree), upTo(4096));
}

TEST(shr_Btree, descendingKeysStayShallow)
{
    Keys keys = upTo(4096);
    std::reverse(keys.begin(), keys.end());
    const Tree tree = treeOf(keys);
    EXPECT_TRUE(tree.WellFormed(true));
    EXPECT_LE(tree.Depth(), 2 * 13);
    EXPECT_EQ(forward(tree), upTo(4096));
}

TEST(shr_Btree, removalOfALeaf)
{
    Tree tree = treeOf({4, 2, 6});
    EXPECT_TRUE(tree.Remove(6));
    EXPECT_EQ(shapeOf(tree), "4(2 .)");
    EXPECT_TRUE(tree.Remove(2));
    EXPECT_EQ(shapeOf(tree), "4");
    EXPECT_EQ(rootOf(tree).MaxDepth(), 0);
    EXPECT_TRUE(tree.Remove(4));
    EXPECT_EQ(tree.Root(), nullptr);
    EXPECT_EQ(tree.Size(), 0);
}

TEST(shr_Btree, removalWithOneChild)
{
    Tree left = treeOf({4, 2, 6, 1});
    EXPECT_TRUE(left.Remove(2));
    EXPECT_EQ(shapeOf(left), "4(1 6)");
    Tree right = treeOf({4, 2, 6, 7});
    EXPECT_TRUE(right.Remove(6));
    EXPECT_EQ(shapeOf(right), "4(2 7)");
    Tree root = treeOf({4, 2});
    EXPECT_TRUE(root.Remove(4));
    EXPECT_EQ(shapeOf(root), "2");
}

TEST(shr_Btree, removalWithTwoChildrenTakesTheRightChild)
{
    Tree tree = treeOf({4, 2, 6, 7});
    EXPECT_TRUE(tree.Remove(4));
    EXPECT_EQ(shapeOf(tree), "6(2 7)");
    EXPECT_TRUE(tree.WellFormed(true));
}

TEST(shr_Btree, removalWithTwoChildrenTakesADeepSuccessor)
{
    Tree tree = treeOf({10, 5, 20, 2, 7, 15, 30, 12, 17});
    ASSERT_EQ(shapeOf(tree), "10(5(2 7) 20(15(12 17) 30))");
    EXPECT_TRUE(tree.Remove(10));
    EXPECT_EQ(shapeOf(tree), "12(5(2 7) 20(15(. 17) 30))");
    EXPECT_EQ(forward(tree), (Keys{2, 5, 7, 12, 15, 17, 20, 30}));
    EXPECT_EQ(backward(tree), forward(tree));
}

TEST(shr_Btree, removalRefreshesOnlyTheDepthAboveTheSuccessor)
{
    Tree tree = treeOf({10, 5, 20, 2, 7, 15, 30, 12});
    ASSERT_EQ(shapeOf(tree), "10(5(2 7) 20(15(12 .) 30))");
    EXPECT_TRUE(tree.WellFormed(true));
    EXPECT_TRUE(tree.Remove(10));
    EXPECT_EQ(shapeOf(tree), "12(5(2 7) 20(15 30))");
    const Node& twenty = rootOf(tree).Right()->ConstGet();
    EXPECT_EQ(twenty.Left()->ConstGet().MaxDepth(), 0);
    EXPECT_EQ(twenty.MaxDepth(), 2);
    EXPECT_EQ(rootOf(tree).MaxDepth(), 3);
    EXPECT_FALSE(tree.WellFormed(true));
    EXPECT_TRUE(tree.WellFormed());
}

TEST(shr_Btree, successorsRightChildTakesItsPlace)
{
    Tree tree = treeOf({10, 5, 20, 2, 15, 30, 17});
    ASSERT_EQ(shapeOf(tree), "10(5(2 .) 20(15(. 17) 30))");
    EXPECT_TRUE(tree.Remove(10));
    EXPECT_EQ(shapeOf(tree), "15(5(2 .) 20(17 30))");
}

TEST(shr_Btree, removalInsideTheTree)
{
    Tree tree = treeOf({10, 5, 20, 2, 7, 15, 30, 6, 8});
    EXPECT_TRUE(tree.Remove(5));
    EXPECT_EQ(forward(tree), (Keys{2, 6, 7, 8, 10, 15, 20, 30}));
    EXPECT_TRUE(tree.WellFormed());
    EXPECT_FALSE(tree.Remove(5));
    EXPECT_EQ(tree.Size(), 8);
}

TEST(shr_Btree, removingTheRootOfATwoChildTreeKeepsTheWalk)
{
    Tree tree = treeOf(upTo(100));
    Keys rest = upTo(100);
    while (tree.Size() > 1) {
        const int root = rootOf(tree).Key();
        ASSERT_TRUE(tree.Remove(root));
        rest.erase(std::find(rest.begin(), rest.end(), root));
        ASSERT_EQ(forward(tree), rest);
        ASSERT_EQ(backward(tree), rest);
        ASSERT_TRUE(tree.WellFormed());
    }
}

TEST(shr_Btree, copySharesTheRoot)
{
    const Tree a = treeOf({4, 2, 6});
    const Tree b = a;
    EXPECT_NE(a.Root(), b.Root());
    EXPECT_EQ(&rootOf(a), &rootOf(b));
    EXPECT_EQ(a.Root()->Count(), 2);
    EXPECT_EQ(b.Size(), 3);
    const std::unique_ptr<shr_Btree<int, int>> c(a.Copy());
    EXPECT_EQ(a.Root()->Count(), 3);
}

TEST(shr_Btree, insertIntoACopyClonesThePathOnly)
{
    const Tree a = treeOf({4, 2, 6});
    Tree b = a;
    EXPECT_TRUE(b.InsertUnlessMember(7, 70));
    EXPECT_EQ(forward(a), (Keys{2, 4, 6}));
    EXPECT_EQ(forward(b), (Keys{2, 4, 6, 7}));
    EXPECT_NE(&rootOf(a), &rootOf(b));
    EXPECT_NE(&rootOf(a).Right()->ConstGet(), &rootOf(b).Right()->ConstGet());
    EXPECT_EQ(&rootOf(a).Left()->ConstGet(), &rootOf(b).Left()->ConstGet());
    EXPECT_EQ(rootOf(a).Left()->Count(), 2);
    EXPECT_EQ(rootOf(a).Right()->Count(), 1);
}

TEST(shr_Btree, findUnsharesThePathEvenToAnAbsentKey)
{
    Tree a = treeOf({4, 2, 6});
    Tree b = a;
    EXPECT_EQ(b.Find(7), nullptr);
    EXPECT_EQ(a.Root()->Count(), 1);
    EXPECT_EQ(rootOf(a).Right()->Count(), 1);
    EXPECT_EQ(rootOf(a).Left()->Count(), 2);
    EXPECT_EQ(a.Find(2)->Value(), 20);
    EXPECT_EQ(rootOf(a).Left()->Count(), 1);
}

TEST(shr_Btree, constFindUnsharesNothing)
{
    const Tree a = treeOf({4, 2, 6});
    const Tree b = a;
    EXPECT_EQ(b.ConstFind(6)->Value(), 60);
    EXPECT_EQ(b.ConstFind(7), nullptr);
    EXPECT_EQ(a.Root()->Count(), 2);
    EXPECT_EQ(rootOf(a).Right()->Count(), 1);
    EXPECT_EQ(&rootOf(a), &rootOf(b));
}

TEST(shr_Btree, insertOfAnExistingKeyUnsharesThePath)
{
    const Tree a = treeOf({4, 2, 6});
    Tree b = a;
    EXPECT_FALSE(b.InsertUnlessMember(6, 0));
    EXPECT_EQ(a.Root()->Count(), 1);
    EXPECT_EQ(rootOf(a).Right()->Count(), 1);
    EXPECT_EQ(rootOf(a).Left()->Count(), 2);
}

TEST(shr_Btree, writingAFoundValueLeavesTheCopy)
{
    Tree a = treeOf({4, 2, 6});
    const Tree b = a;
    a.Find(6)->Value() = -1;
    EXPECT_EQ(b.ConstFind(6)->Value(), 60);
    EXPECT_EQ(a.ConstFind(6)->Value(), -1);
}

TEST(shr_Btree, assignmentOverANonEmptyTreeReusesTheHandle)
{
    const Tree a = treeOf({4, 2, 6});
    Tree b = treeOf({1});
    const auto* const handle = b.Root();
    b = a;
    EXPECT_EQ(b.Root(), handle);
    EXPECT_EQ(a.Root()->Count(), 2);
    EXPECT_EQ(b.Size(), 3);
    Tree c;
    c = a;
    EXPECT_EQ(a.Root()->Count(), 3);
    EXPECT_EQ(forward(c), (Keys{2, 4, 6}));
}

TEST(shr_Btree, assignmentReleasesTheOldNodes)
{
    const int before = tst_Element::alive;
    {
        Probe<int, tst_Element> a;
        a.InsertUnlessMember(1, tst_Element(1));
        Probe<int, tst_Element> b;
        for (int i = 0; i < 50; ++i) {
            b.InsertUnlessMember(i, tst_Element(i));
        }
        b = a;
        EXPECT_EQ(tst_Element::alive, before + 1 + 2); // one node, two default values
    }
    EXPECT_EQ(tst_Element::alive, before);
}

TEST(shr_Btree, selfAssignmentChangesNothing)
{
    Tree a = treeOf({4, 2, 6});
    const Tree& same = a;
    a = same;
    EXPECT_EQ(a.Root()->Count(), 1);
    EXPECT_EQ(forward(a), (Keys{2, 4, 6}));
}

TEST(shr_Btree, assignmentFromAnEmptyTreeDoesNotReleaseTheOldEntries)
{
    Tree a = treeOf({4, 2, 6});
    const Tree shared = a;
    Tree only = treeOf({1, 2, 3});
    const int& value = only.ConstFind(2)->Value();
    a = Tree();
    only = Tree();
    EXPECT_EQ(a.Root(), nullptr);
    EXPECT_EQ(a.Size(), 0);
    EXPECT_TRUE(forward(a).empty());
    EXPECT_EQ(shared.Root()->Count(), 2);
    EXPECT_EQ(value, 20);
}

TEST(shr_Btree, whatAssignmentLetGoOfGoesWithTheThread)
{
    const int before = tst_Element::alive;
    int within = 0;
    onSmallStack([&within] {
        shr_Map<int, tst_Element> map;
        map.Insert(1, tst_Element(1));
        map = shr_Map<int, tst_Element>();
        within = tst_Element::alive;
    });
    EXPECT_EQ(within, before + 2); // the entry and the default value
    EXPECT_EQ(tst_Element::alive, before);
}

TEST(shr_Btree, clearReleasesTheEntries)
{
    const int before = tst_Element::alive;
    shr_Map<int, tst_Element> map;
    map.Insert(1, tst_Element(1));
    map.Insert(2, tst_Element(2));
    map.Clear();
    EXPECT_EQ(tst_Element::alive, before + 1);
    EXPECT_TRUE(map.IsEmpty());
    EXPECT_EQ(map.Root(), nullptr);
}

TEST(shr_Btree, assignmentFromATreeInsideIsSafe)
{
    // The value of an entry holds, through a pointer, a tree of the same type as the one that is assigned to.
    struct Cell
    {
        std::shared_ptr<shr_Map<int, Cell>> inner;
        int value = 0;
    };
    shr_Map<int, Cell> map;
    Cell cell;
    cell.inner = std::make_shared<shr_Map<int, Cell>>();
    cell.inner->Insert(7, Cell());
    map.Insert(1, cell);
    cell.inner.reset();
    map = *map.Lookup(1)->inner;
    EXPECT_EQ(map.Size(), 1);
    EXPECT_TRUE(map.IsMember(7));
}

TEST(shr_Btree, failedCopiesLeaveAWellFormedTree)
{
    const int before = tst_Element::alive;
    {
        Probe<int, tst_Element> base;
        for (int i = 0; i < 200; i += 2) {
            base.InsertUnlessMember(i, tst_Element(i));
        }
        for (int good = 0; good < 12; ++good) {
            for (int key : {-1, 1, 77, 101, 199, 300}) {
                Probe<int, tst_Element> tree = base;
                const tst_Element value(key);
                bool added = false;
                tst_Element::reset();
                tst_Element::failAfter = good;
                try {
                    added = tree.InsertUnlessMember(key, value);
                } catch (const std::runtime_error&) {
                }
                tst_Element::reset();
                EXPECT_TRUE(tree.WellFormed(true));
                EXPECT_EQ(tree.Size(), added || tree.IsMember(key) ? 101 : 100);
            }
            for (int key = 0; key < 200; key += 2) {
                Probe<int, tst_Element> tree = base;
                bool removed = false;
                tst_Element::reset();
                tst_Element::failAfter = good;
                try {
                    removed = tree.Remove(key);
                } catch (const std::runtime_error&) {
                }
                tst_Element::reset();
                EXPECT_TRUE(tree.WellFormed());
                EXPECT_EQ(tree.Size(), removed || !tree.IsMember(key) ? 99 : 100);
            }
        }
        EXPECT_TRUE(base.WellFormed(true));
        EXPECT_EQ(base.Size(), 100);
    }
    EXPECT_EQ(tst_Element::alive, before);
}

TEST(shr_Btree, alternatingEndsStayShallow)
{
    const Tree tree = treeOf(zigZag(4096));
    EXPECT_TRUE(tree.WellFormed(true));
    EXPECT_LE(tree.Depth(), 2 * 13);
    EXPECT_EQ(forward(tree), upTo(4096));
}

TEST(shr_Btree, destroyingADeepTreeNeedsNoDeepStack)
{
    int before = tst_Element::alive;
    for (int turn : {1, 2, 3, 1000}) {
        int alive = 0;
        onSmallStack([&] {
            auto* const chain = shr_Btree<DeepKey, tst_Element>::chain(200000, turn);
            auto* const shared = new shr_Btree<DeepKey, tst_Element>::Handle(*chain);
            delete chain;
            alive = tst_Element::alive;
            delete shared;
        });
        EXPECT_EQ(alive, before + 200000);
        EXPECT_EQ(tst_Element::alive, before);
    }
}

TEST(shr_Btree, stringKeysInByteOrder)
{
    const NaturalOrder order(false);
    shr_Map<yld_String, int> map;
    for (const char* name : {"Step-2", "Step-10", "Step-1"}) {
        map.Insert(name, 0);
    }
    shr_BtreeIterator<yld_String, int> entry(map);
    entry.First();
    EXPECT_STREQ(entry.CurrentKey().cStr(), "Step-1");
    entry.Next();
    EXPECT_STREQ(entry.CurrentKey().cStr(), "Step-10");
    entry.Next();
    EXPECT_STREQ(entry.CurrentKey().cStr(), "Step-2");
}

TEST(shr_Btree, stringKeysInNaturalOrder)
{
    const NaturalOrder order(true);
    shr_Map<shr_String, int> map;
    for (const char* name : {"Step-10", "Step-2", "Step-1"}) {
        map.Insert(name, 0);
    }
    shr_BtreeIterator<shr_String, int> entry(map);
    entry.Last();
    EXPECT_STREQ(entry.CurrentKey().cStr(), "Step-10");
    entry.Previous();
    EXPECT_STREQ(entry.CurrentKey().cStr(), "Step-2");
}

TEST(shr_Btree, enumeratorKeys)
{
    shr_Map<Colour, int> map;
    map.Insert(GREEN, 5);
    map.Insert(RED, 1);
    map.Insert(BLUE, 3);
    shr_BtreeIterator<Colour, int> entry(map);
    entry.First();
    EXPECT_EQ(entry.CurrentKey(), RED);
    entry.Last();
    EXPECT_EQ(entry.CurrentKey(), GREEN);
}

TEST(shr_BtreeIterator, finishedBeforeFirstAndBeyondTheEnds)
{
    const Tree tree = treeOf({4, 2, 6});
    shr_BtreeIterator<int, int> entry(tree);
    EXPECT_TRUE(entry.IsDone());
    entry.Next();
    entry.Previous();
    EXPECT_TRUE(entry.IsDone());
    entry.Last();
    EXPECT_EQ(entry.CurrentKey(), 6);
    entry.Next();
    EXPECT_TRUE(entry.IsDone());
    entry.First();
    EXPECT_EQ(entry.CurrentKey(), 2);
    EXPECT_EQ(entry.CurrentValue(), 20);
    entry.Previous();
    EXPECT_TRUE(entry.IsDone());
}

TEST(shr_BtreeIterator, turnsRoundAnywhere)
{
    const Tree tree = treeOf(upTo(50));
    shr_BtreeIterator<int, int> entry(tree);
    entry.First();
    for (int i = 0; i < 49; ++i) {
        entry.Next();
        EXPECT_EQ(entry.CurrentKey(), i + 1);
        entry.Previous();
        EXPECT_EQ(entry.CurrentKey(), i);
        entry.Next();
    }
}

TEST(shr_BtreeIterator, firstAndLastStartAfresh)
{
    const Tree tree = treeOf(upTo(50));
    shr_BtreeIterator<int, int> entry(tree);
    entry.First();
    entry.First();
    EXPECT_EQ(entry.CurrentKey(), 0);
    entry.Last();
    EXPECT_EQ(entry.CurrentKey(), 49);
    int steps = 0;
    for (; !entry.IsDone(); entry.Previous()) {
        ++steps;
    }
    EXPECT_EQ(steps, 50);
}

TEST(shr_BtreeIterator, copiesGoTheirOwnWay)
{
    const Tree tree = treeOf(upTo(50));
    shr_BtreeIterator<int, int> a(tree);
    a.First();
    a.Next();
    shr_BtreeIterator<int, int> b(a);
    b.Next();
    EXPECT_EQ(a.CurrentKey(), 1);
    EXPECT_EQ(b.CurrentKey(), 2);
    a = b;
    a.Next();
    EXPECT_EQ(a.CurrentKey(), 3);
    EXPECT_EQ(b.CurrentKey(), 2);
}

TEST(shr_BtreeIterator, unsharesNothing)
{
    const Tree a = treeOf(upTo(50));
    const Tree b = a;
    EXPECT_EQ(forward(b), upTo(50));
    EXPECT_EQ(backward(b), upTo(50));
    EXPECT_EQ(a.Root()->Count(), 2);
}

TEST(shr_Map, looksUpAndFallsBackToTheDefault)
{
    shr_Map<shr_String, unsigned> map;
    EXPECT_TRUE(map.Insert("SOLID", 7));
    EXPECT_FALSE(map.Insert("SOLID", 8));
    EXPECT_EQ(*map.Lookup("SOLID"), 7u);
    EXPECT_EQ(map.Lookup("SHELL"), nullptr);
    EXPECT_EQ(map["SHELL"], 0u);
    EXPECT_EQ(map.Get("SHELL"), nullptr);
    *map.Get("SOLID") = 9;
    EXPECT_EQ(map.ConstGet("SOLID"), 9u);
    EXPECT_EQ(map.Size(), 1);
}

TEST(shr_Map, tellsTheOrderInWhichKeysWentIn)
{
    shr_Map<int, unsigned> map;
    for (const int key : {30, 10, 20, 10}) map.Insert(key, static_cast<unsigned>(key));
    ASSERT_EQ(map.Size(), 3);
    EXPECT_EQ(map.Key(0), 30);
    EXPECT_EQ(map.Key(1), 10);
    EXPECT_EQ(map.Key(2), 20);
    const shr_Map<int, unsigned> copy = map;
    EXPECT_TRUE(map.Remove(30));
    EXPECT_FALSE(map.Remove(30));
    EXPECT_EQ(map.Key(0), 10);
    EXPECT_EQ(copy.Key(0), 30);
    map.Clear();
    map.Insert(5, 5u);
    EXPECT_EQ(map.Key(0), 5);
}

// Trees that copy from one another beside ordinary maps. The number of handles on each node is counted anew.
TEST(shr_Btree, randomEditsAgreeWithMaps)
{
    using Values = shr_Map<int, tst_Element>;
    using ValueNode = shr_BtreeNode<int, tst_Element>;
    std::mt19937 random(3);
    const auto below = [&random](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    const int before = tst_Element::alive;
    tst_Element::reset();
    {
        std::vector<Values> trees(4);
        std::vector<std::map<int, int>> models(4);
        for (int step = 0; step < 20000; ++step) {
            const auto at = static_cast<std::size_t>(below(4));
            Values& tree = trees[at];
            std::map<int, int>& model = models[at];
            const int key = below(200);
            switch (below(16)) {
            case 0: {
                const auto from = static_cast<std::size_t>(below(4));
                if (trees[from].IsEmpty()) {
                    tree.Clear();
                } else {
                    tree = trees[from];
                }
                model = std::map<int, int>(models[from]);
                break;
            }
            case 1:
                if (below(30) == 0) {
                    tree.Clear();
                    model.clear();
                }
                break;
            case 2:
            case 3:
                if (tst_Element* const value = tree.Get(key)) {
                    value->value = step;
                    ASSERT_EQ(model.count(key), 1u);
                    model[key] = step;
                } else {
                    ASSERT_EQ(model.count(key), 0u);
                }
                break;
            case 4:
            case 5:
            case 6:
            case 7:
            case 8:
                ASSERT_EQ(tree.Remove(key), model.erase(key) == 1) << step;
                break;
            default:
                ASSERT_EQ(tree.Insert(key, tst_Element(step)), model.emplace(key, step).second) << step;
                break;
            }
            ASSERT_TRUE(tree.WellFormed()) << step;
            ASSERT_EQ(tree.Size(), static_cast<int>(model.size()));
            if (step % 20 == 0) {
                std::multiset<const ValueNode*> holders;
                std::set<const ValueNode::Handle*> handles;
                std::vector<const ValueNode::Handle*> open;
                for (std::size_t k = 0; k < 4; ++k) {
                    Keys keys;
                    for (const auto& entry : models[k]) {
                        keys.push_back(entry.first);
                        ASSERT_EQ(trees[k].ConstGet(entry.first).value, entry.second);
                    }
                    ASSERT_EQ(forward(trees[k]), keys);
                    ASSERT_EQ(backward(trees[k]), keys);
                    open.push_back(trees[k].Root());
                }
                while (!open.empty()) {
                    const ValueNode::Handle* const handle = open.back();
                    open.pop_back();
                    if (handle && handles.insert(handle).second) {
                        holders.insert(&handle->ConstGet());
                        open.push_back(handle->ConstGet().Left());
                        open.push_back(handle->ConstGet().Right());
                    }
                }
                for (const ValueNode::Handle* handle : handles) {
                    ASSERT_EQ(handle->Count(), static_cast<int>(holders.count(&handle->ConstGet()))) << step;
                }
            }
        }
    }
    EXPECT_EQ(tst_Element::alive, before);
}
