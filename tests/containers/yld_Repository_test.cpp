#include "yld_Repository.h"

#include "platform/text/msg_NaturalOrder.h"
#include "yld_Exception.h"
#include "yld_String.h"

#include <gtest/gtest.h>

#include <string>

namespace {

enum Kind
{
    FIRST = 1,
    SECOND = 2
};

yld_Repository<yld_String, int> parts()
{
    yld_Repository<yld_String, int> repository;
    repository.insert("WHEEL", 2);
    repository.insert("AXLE", 1);
    repository.insert("BOLT", 3);
    return repository;
}

// The error number and message of what a call raises.
template<class Call> std::string raised(Call call)
{
    try {
        call();
    } catch (const yld_Exception& error) {
        return std::to_string(static_cast<int>(error.errorNo())) + ' ' + error.errMsg().cStr();
    }
    return "nothing";
}

} // namespace

TEST(yld_Repository, hasNoFieldsOfItsOwn)
{
    EXPECT_EQ(sizeof(yld_Repository<yld_String, int>), sizeof(shr_Btree<yld_String, int>));
}

TEST(yld_Repository, checkKeyOfAPresentKeyIsTrue) { EXPECT_TRUE(parts().CheckKey("AXLE")); }

TEST(yld_Repository, checkKeyOfAnAbsentKeyRaisesWithTheKey)
{
    EXPECT_EQ(raised([] { parts().CheckKey("Axle"); }), "6 Key \"Axle\" not found in repository");
    EXPECT_EQ(raised([] { parts().CheckKey(""); }), "6 Key \"\" not found in repository");
    EXPECT_EQ(raised([] { parts().CheckKey("100%s"); }), "6 Key \"100%s\" not found in repository");
}

TEST(yld_Repository, everyLookUpChecksTheKey)
{
    yld_Repository<yld_String, int> repository = parts();
    const yld_Repository<yld_String, int>& reading = repository;
    const std::string message = "6 Key \"X\" not found in repository";
    EXPECT_EQ(raised([&] { repository.get("X"); }), message);
    EXPECT_EQ(raised([&] { reading.constGet("X"); }), message);
    EXPECT_EQ(raised([&] { repository["X"]; }), message);
    EXPECT_EQ(raised([&] { reading["X"]; }), message);
    EXPECT_EQ(reading["BOLT"], 3);
    EXPECT_EQ(reading.constGet("WHEEL"), 2);
}

TEST(yld_Repository, numbersAndEnumeratorsAsKeys)
{
    yld_Repository<int, double> byNumber;
    byNumber.insert(-7, 0.5);
    EXPECT_EQ(byNumber[-7], 0.5);
    EXPECT_EQ(raised([&] { byNumber.CheckKey(42); }), "6 Key \"42\" not found in repository");
    yld_Repository<Kind, int> byKind;
    byKind.insert(SECOND, 9);
    EXPECT_EQ(byKind[SECOND], 9);
    EXPECT_EQ(raised([&] { byKind.CheckKey(FIRST); }), "6 Key \"1\" not found in repository");
}

TEST(yld_Repository, insertKeepsAnExistingEntry)
{
    yld_Repository<yld_String, int> repository = parts();
    EXPECT_FALSE(repository.insert("AXLE", 99));
    EXPECT_EQ(repository["AXLE"], 1);
    EXPECT_EQ(repository.size(), 3);
}

TEST(yld_Repository, removeTakesTheEntryOut)
{
    yld_Repository<yld_String, int> repository = parts();
    EXPECT_TRUE(repository.remove("AXLE"));
    EXPECT_FALSE(repository.remove("AXLE"));
    EXPECT_FALSE(repository.isMember("AXLE"));
    EXPECT_TRUE(repository.isMember("BOLT"));
    EXPECT_EQ(repository.size(), 2);
}

TEST(yld_Repository, getWritesWithoutTouchingTheCopy)
{
    yld_Repository<yld_String, int> a = parts();
    const yld_Repository<yld_String, int> b = a;
    a.get("AXLE") = 100;
    a["BOLT"] = 300;
    EXPECT_EQ(a.constGet("AXLE"), 100);
    EXPECT_EQ(b["AXLE"], 1);
    EXPECT_EQ(b["BOLT"], 3);
}

TEST(yld_Repository, constGetUnsharesNothing)
{
    const yld_Repository<yld_String, int> a = parts();
    const yld_Repository<yld_String, int> b = a;
    EXPECT_EQ(&a.constGet("AXLE"), &b.constGet("AXLE"));
    EXPECT_EQ(a.Root()->Count(), 2);
}

TEST(yld_Repository, getOfAnAbsentKeyUnsharesNothing)
{
    yld_Repository<yld_String, int> a = parts();
    const yld_Repository<yld_String, int> b = a;
    EXPECT_THROW(a.get("X"), yld_Exception);
    EXPECT_EQ(b.Root()->Count(), 2);
}

TEST(yld_Repository, keysInTheirOrder)
{
    const yld_Sequence<yld_String> keys = parts().keys();
    ASSERT_EQ(keys.size(), 3);
    EXPECT_STREQ(keys[0].cStr(), "AXLE");
    EXPECT_STREQ(keys[1].cStr(), "BOLT");
    EXPECT_STREQ(keys[2].cStr(), "WHEEL");
    EXPECT_TRUE((yld_Repository<yld_String, int>().keys().isEmpty()));
}

TEST(yld_RepositoryIT, walksKeysAndValues)
{
    const yld_Repository<yld_String, int> repository = parts();
    yld_RepositoryIT<yld_String, int> entry(repository);
    std::string text;
    for (entry.first(); !entry.isDone(); entry.next()) {
        text += std::string(entry.currentKey().cStr()) + '=' + std::to_string(entry.currentValue()) + ' ';
    }
    EXPECT_EQ(text, "AXLE=1 BOLT=3 WHEEL=2 ");
}

TEST(yld_RepositoryIT, followsTheNaturalOrder)
{
    msg_setNaturalOrder(true);
    {
        yld_Repository<yld_String, int> repository;
        repository.insert("Step-10", 10);
        repository.insert("Step-2", 2);
        const yld_Sequence<yld_String> keys = repository.keys();
        EXPECT_STREQ(keys[0].cStr(), "Step-2");
        EXPECT_STREQ(keys[1].cStr(), "Step-10");
    }
    msg_setNaturalOrder(false);
}
