// Names and ids of persistent classes, of which each has its own.

#include "platform/store/pcl_Persistent.h"
#include "platform/text/exc_Exception.h"

#include <gtest/gtest.h>

namespace {

// A class "sample_<letter>" without attributes; copies are other classes.
template<char letter, unsigned id, int version = 1, int copy = 0>
class Sample : public pcl_Class<Sample<letter, id, version, copy>>
{
public:
    static constexpr char name[] = {'s', 'a', 'm', 'p', 'l', 'e', '_', letter, '\0'};
    static constexpr const char* className = name;
    static constexpr unsigned classId = id;
    static constexpr int classVersion = version;
    template<class This, class V> static void attributes(This&, V&&) {}
};

using First = Sample<'A', 0x7f000070>;
using SameId = Sample<'B', 0x7f000070>;
using Named = Sample<'C', 0x7f000071>;
using SameName = Sample<'C', 0x7f000072, 2>;
using Copied = Sample<'D', 0x7f000073>;
using Copy = Sample<'D', 0x7f000073, 1, 1>;
using Older = Sample<'E', 0x7f000074, 1>;
using Newer = Sample<'E', 0x7f000074, 2>;

template<class Call> std::string refusalOf(Call&& call)
{
    try {
        call();
    } catch (const exc_TextException& failure) {
        return failure.what();
    }
    return "nothing was raised";
}

} // namespace

TEST(pcl_MetadataRegistrar, twoClassesWithOneIdAreRefused)
{
    EXPECT_EQ(refusalOf([] { First::ClassMetadata(); }),
              "Persistent classes sample_B and sample_A have the same id 0x7f000070.");
    EXPECT_EQ(refusalOf([] { SameId().Metadata(); }),
              "Persistent classes sample_A and sample_B have the same id 0x7f000070.");
}

TEST(pcl_MetadataRegistrar, twoClassesWithOneNameAreRefused)
{
    EXPECT_EQ(refusalOf([] { Named::ClassMetadata(); }),
              "Persistent class sample_C has two ids, 0x7f000072 and 0x7f000071.");
    EXPECT_EQ(refusalOf([] { SameName().Metadata(); }),
              "Persistent class sample_C has two ids, 0x7f000071 and 0x7f000072.");
}

TEST(pcl_MetadataRegistrar, aClassDeclaredTwiceIsRefused)
{
    const char* const refusal = "Persistent class sample_D of version 1 is declared twice.";
    EXPECT_EQ(refusalOf([] { Copied().Metadata(); }), refusal);
    EXPECT_EQ(refusalOf([] { Copy().Metadata(); }), refusal);
    EXPECT_EQ(refusalOf([] { Copy().Metadata(); }), refusal) << "once is not enough";
}

TEST(pcl_MetadataRegistrar, versionsOfOneClassShareNameAndId)
{
    EXPECT_EQ(Older().Metadata().version(), 1);
    EXPECT_EQ(Newer().Metadata().version(), 2);
}

TEST(pcl_MetadataRegistrar, metadataAloneAreLookedAtToo)
{
    constexpr int schema = -99;
    constexpr int otherSchema = -98;
    const auto refusal = [] { return refusalOf([] { pcl_MetadataRegistrar::find("sample_Declared"); }); };
    const auto refusalOfAnother = [&refusal](pcl_MetadataFunction declare) {
        pcl_MetadataRegistrar::initClassMetadata(declare, otherSchema);
        const std::string first = refusal();
        EXPECT_EQ(refusal(), first) << "once is not enough";
        pcl_MetadataRegistrar::dropSchema(otherSchema);
        return first;
    };
    pcl_MetadataRegistrar::initClassMetadata(
        [](pcl_MetadataRegistrar& r) { r.add(pcl_ClassMetadata("sample_Declared", 0x7f000075, 1)); }, schema);
    EXPECT_EQ(refusal(), "nothing was raised");
    EXPECT_EQ(
        refusalOfAnother([](pcl_MetadataRegistrar& r) { r.add(pcl_ClassMetadata("sample_Declared", 0x7f000075, 2)); }),
        "nothing was raised");
    EXPECT_EQ(pcl_MetadataRegistrar::find("sample_Declared")->version(), 1) << "a name that is present stays";
    EXPECT_EQ(
        refusalOfAnother([](pcl_MetadataRegistrar& r) { r.add(pcl_ClassMetadata("sample_Declared", 0x7f000076, 1)); }),
        "Persistent class sample_Declared has two ids, 0x7f000075 and 0x7f000076.");
    EXPECT_EQ(
        refusalOfAnother([](pcl_MetadataRegistrar& r) { r.add(pcl_ClassMetadata("sample_Other", 0x7f000075, 1)); }),
        "Persistent classes sample_Declared and sample_Other have the same id 0x7f000075.");
    EXPECT_EQ(
        refusalOfAnother([](pcl_MetadataRegistrar& r) { r.add(pcl_ClassMetadata("sample_Another", 0x7f000074, 1)); }),
        "Persistent classes sample_E and sample_Another have the same id 0x7f000074.");
    pcl_MetadataRegistrar::dropSchema(schema);
    EXPECT_EQ(pcl_MetadataRegistrar::find("sample_Declared"), nullptr);
}

TEST(pcl_MetadataRegistrar, aClassThatLeavesIsForgotten)
{
    const pcl_KnownClass* const before = pcl_KnownClass::first();
    {
        const pcl_KnownClass one("sample_Passing", 0x7f000077, 1, typeid(int));
        const pcl_KnownClass* const kept = new pcl_KnownClass("sample_Staying", 0x7f000077, 1, typeid(float));
        EXPECT_EQ(refusalOf([&] { pcl_MetadataRegistrar::checkUnique(one); }),
                  "Persistent classes sample_Staying and sample_Passing have the same id 0x7f000077.");
        const pcl_KnownClass last("sample_Last", 0x7f000078, 1, typeid(double));
        EXPECT_EQ(last.next(), kept);
        delete kept;
        EXPECT_EQ(last.next(), &one);
        EXPECT_EQ(refusalOf([&] { pcl_MetadataRegistrar::checkUnique(one); }), "nothing was raised");
    }
    EXPECT_EQ(pcl_KnownClass::first(), before);
}
