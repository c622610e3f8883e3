#include "containers/shr_COW.h"

#include "tst_Element.h"

#include <gtest/gtest.h>

namespace {

class Shape
{
public:
    virtual ~Shape() = default;
    virtual Shape* Copy() const = 0;
    virtual int sides() const = 0;
    int colour = 0;
};

class Square : public Shape
{
public:
    Square* Copy() const override { return new Square(*this); }
    int sides() const override { return 4; }
};

// Only declared where its handle is a member, as in a public header.
class Hidden;
class Owner
{
public:
    Owner();
    Owner(const Owner&) = default;
    ~Owner();
    int value() const;
    void set(int value);
    shr_COW<Hidden> m_hidden;
};
class Hidden
{
public:
    int value = 5;
};
Owner::Owner() : m_hidden(new Hidden) {}
Owner::~Owner() = default;
int Owner::value() const { return m_hidden->value; }
void Owner::set(int value) { m_hidden.Get().value = value; }

// A chain, in which a handle can be assigned from one that its own object holds.
struct Link
{
    int value = 0;
    shr_CountedHld<Link> next;
};

} // namespace

TEST(shr_CountedHld, isTwoWords)
{
    EXPECT_EQ(sizeof(shr_CountedHld<int>), 2 * sizeof(void*));
    EXPECT_EQ(sizeof(shr_COW<int>), 2 * sizeof(void*));
    EXPECT_EQ(sizeof(shr_Counter), 4u);
}

TEST(shr_CountedHld, counterStartsAtOneAndFollowsTheHolders)
{
    shr_CountedHld<tst_Element> a(new tst_Element(1));
    EXPECT_EQ(a.Count(), 1);
    {
        shr_CountedHld<tst_Element> b(a);
        EXPECT_EQ(a.Count(), 2);
        EXPECT_EQ(a.Ptr(), b.Ptr());
        EXPECT_TRUE(a.SharesWith(b));
    }
    EXPECT_EQ(a.Count(), 1);
}

TEST(shr_CountedHld, lastHolderDeletes)
{
    const int before = tst_Element::alive;
    {
        shr_CountedHld<tst_Element> a(new tst_Element);
        shr_CountedHld<tst_Element> b(a);
        EXPECT_EQ(tst_Element::alive, before + 1);
    }
    EXPECT_EQ(tst_Element::alive, before);
}

TEST(shr_CountedHld, defaultHoldsNothingUnderACountOfOne)
{
    shr_CountedHld<tst_Element> a;
    EXPECT_TRUE(a.IsNull());
    EXPECT_FALSE(a.IsValid());
    EXPECT_FALSE(a);
    EXPECT_EQ(a.Count(), 1);
    shr_CountedHld<tst_Element> b(a);
    EXPECT_EQ(a.Count(), 2);
    EXPECT_TRUE(b.IsNull());
}

TEST(shr_CountedHld, selfAssignmentIsSafe)
{
    shr_CountedHld<tst_Element> a(new tst_Element(3));
    const shr_CountedHld<tst_Element>& same = a;
    a = same;
    EXPECT_EQ(a.Count(), 1);
    EXPECT_EQ(a->value, 3);
}

TEST(shr_CountedHld, assignmentSharesTheSourceAndDropsTheOwn)
{
    const int before = tst_Element::alive;
    shr_CountedHld<tst_Element> a(new tst_Element(1));
    shr_CountedHld<tst_Element> b(new tst_Element(2));
    a = b;
    EXPECT_EQ(tst_Element::alive, before + 1);
    EXPECT_EQ(a->value, 2);
    EXPECT_EQ(b.Count(), 2);
}

TEST(shr_CountedHld, mayBeAssignedFromAHandleThatItHolds)
{
    shr_CountedHld<Link> chain(new Link{1, shr_CountedHld<Link>(new Link{2, {}})});
    chain = chain->next;
    EXPECT_EQ(chain->value, 2);
    EXPECT_EQ(chain.Count(), 1);
}

TEST(shr_CountedHld, rawAssignmentOfASoleHolderDeletesTheOldAndKeepsTheCounter)
{
    const int before = tst_Element::alive;
    shr_CountedHld<tst_Element> a(new tst_Element(1));
    a = new tst_Element(2);
    EXPECT_EQ(tst_Element::alive, before + 1);
    EXPECT_EQ(a->value, 2);
    EXPECT_EQ(a.Count(), 1);
}

TEST(shr_CountedHld, rawAssignmentLeavesOtherHoldersTheirObject)
{
    shr_CountedHld<tst_Element> a(new tst_Element(1));
    shr_CountedHld<tst_Element> b(a);
    a = new tst_Element(2);
    EXPECT_EQ(a->value, 2);
    EXPECT_EQ(b->value, 1);
    EXPECT_EQ(a.Count(), 1);
    EXPECT_EQ(b.Count(), 1);
    EXPECT_FALSE(a.SharesWith(b));
}

TEST(shr_CountedHld, rawAssignmentOfTheHeldObjectChangesNothing)
{
    shr_CountedHld<tst_Element> a(new tst_Element(1));
    a = a.Ptr();
    EXPECT_EQ(a->value, 1);
    shr_CountedHld<tst_Element> b(a);
    a = a.Ptr();
    EXPECT_EQ(a.Count(), 2);
}

TEST(shr_CountedHld, rawAssignmentOfNullEmptiesIt)
{
    const int before = tst_Element::alive;
    shr_CountedHld<tst_Element> a(new tst_Element(1));
    a = static_cast<tst_Element*>(nullptr);
    EXPECT_TRUE(a.IsNull());
    EXPECT_EQ(tst_Element::alive, before);
}

TEST(shr_CountedHld, comparesByIdentity)
{
    shr_CountedHld<tst_Element> a(new tst_Element(1));
    shr_CountedHld<tst_Element> b(new tst_Element(1));
    EXPECT_FALSE(a == b);
    b = a;
    EXPECT_TRUE(a == b);
}

TEST(shr_COW, constructionFromAValueCopiesIt)
{
    const tst_Element original(4);
    shr_COW<tst_Element> a(original);
    EXPECT_NE(&a.ConstGet(), &original);
    EXPECT_EQ(a->value, 4);
}

TEST(shr_COW, constructionFromAPointerTakesOwnership)
{
    tst_Element* const held = new tst_Element(4);
    tst_Element::reset();
    shr_COW<tst_Element> a(held);
    EXPECT_EQ(&a.ConstGet(), held);
    EXPECT_EQ(tst_Element::copies, 0);
}

TEST(shr_COW, readingCopiesNothing)
{
    shr_COW<tst_Element> a(new tst_Element(4));
    shr_COW<tst_Element> b(a);
    tst_Element::reset();
    EXPECT_EQ(b.ConstGet().value + (*b).value + b->value, 12);
    EXPECT_EQ(tst_Element::copies, 0);
    EXPECT_EQ(a.Count(), 2);
}

TEST(shr_COW, writingASharedObjectCopiesItOnce)
{
    shr_COW<tst_Element> a(new tst_Element(4));
    shr_COW<tst_Element> b(a);
    tst_Element::reset();
    b.Get().value = 5;
    b.Get().value = 6;
    EXPECT_EQ(tst_Element::copies, 1);
    EXPECT_EQ(a->value, 4);
    EXPECT_EQ(b->value, 6);
    EXPECT_EQ(a.Count(), 1);
    EXPECT_EQ(b.Count(), 1);
}

TEST(shr_COW, writingAnUnsharedObjectCopiesNothing)
{
    shr_COW<tst_Element> a(new tst_Element(4));
    tst_Element::reset();
    a.Get().value = 5;
    EXPECT_EQ(tst_Element::copies, 0);
}

TEST(shr_COW, virtualPolicyKeepsTheClass)
{
    shr_COW<Shape, shr_Virtual> a(new Square);
    shr_COW<Shape, shr_Virtual> b(a);
    b.Get().colour = 7;
    EXPECT_EQ(b->sides(), 4);
    EXPECT_EQ(b->colour, 7);
    EXPECT_EQ(a->colour, 0);
    shr_COW<Shape, shr_Virtual> c(b.ConstGet());
    EXPECT_EQ(c->sides(), 4);
    EXPECT_NE(&c.ConstGet(), &b.ConstGet());
}

TEST(shr_COW, failedCopyLeavesTheSharing)
{
    shr_COW<tst_Element> a(new tst_Element(4));
    shr_COW<tst_Element> b(a);
    tst_Element::reset();
    tst_Element::failAfter = 0;
    EXPECT_THROW(b.Get(), std::runtime_error);
    tst_Element::reset();
    EXPECT_EQ(a.Count(), 2);
    EXPECT_EQ(&a.ConstGet(), &b.ConstGet());
}

TEST(shr_COW, memberOfAClassWhoseObjectIsHidden)
{
    Owner a;
    Owner b(a);
    b.set(6);
    EXPECT_EQ(a.value(), 5);
    EXPECT_EQ(b.value(), 6);
}

TEST(shr_ArrayCOW, isTheSameHandle)
{
    shr_ArrayCOW<tst_Element> a(new tst_Element(4));
    shr_COW<tst_Element> b(a);
    EXPECT_EQ(b.Count(), 2);
    b.Get().value = 5;
    EXPECT_EQ(a->value, 4);
}
