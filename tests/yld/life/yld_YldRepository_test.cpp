#include "call_results.h"
#include "platform/store/lnk_Root.h"
#include "test_files.h"
#include "yld.h"
#include "yld/impl/life/yld_YldRepository.h"

#include <string>
#include <vector>

TEST(yld_YldRepository, oneNamesakeOnThePathGoesOutTooButThreeStay)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    makeDatabase(path);
    yld_YldRepository& registry = yld_YldRepository::Instance();
    openYld("one", path.c_str(), true, false);
    openYld("two", path.c_str(), true, false);
    EXPECT_EQ(registry.size(), 2);
    registry.remove("one");
    EXPECT_EQ(registry.size(), 0);

    openYld("one", path.c_str(), true, false);
    openYld("two", path.c_str(), true, false);
    openYld("three", path.c_str(), true, false);
    registry.remove("two");
    EXPECT_EQ(registry.size(), 2);
    EXPECT_EQ(registry.get("one").steps().size(), 0);
    registry.remove("one");
    EXPECT_EQ(registry.size(), 0);
}

TEST(yld_YldRepository, insertUnderAPresentNameChangesNothing)
{
    const Library library;
    const ScratchFolder folder;
    makeDatabase(folder.file("job.yld"));
    yld_Yld& open = openYld("job", folder.file("job.yld").c_str(), true, false);
    yld_YldRepository::Instance().insert("job", yld_Yld());
    EXPECT_STREQ(yld_YldRepository::Instance().get("job").path().cStr(), folder.file("job.yld").c_str());
    open.close();
    EXPECT_STREQ(yld_YldRepository::Instance().constGet("job").path().cStr(), "");
}

TEST(yld_YldRepository, everyOpenDatabaseIsClosedWhenTheLibraryStops)
{
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    {
        const Library library;
        makeDatabase(path);
        openYld(path.c_str(), false);
        EXPECT_TRUE(std::filesystem::exists(folder.file("job.lck")));
    }
    EXPECT_FALSE(std::filesystem::exists(folder.file("job.lck")));
}

namespace {

yld_YldRepository& registry() { return yld_YldRepository::Instance(); }

const std::string severalOpen = "The getActiveYld method can only be called if a single yld file is open.";

// Opens a file past the registry, as another client of the store does.
sto_Sto openInStore(const std::string& path)
{
    return sto_StoToolset::Instance().OpenYld(fio_File::Open(path.c_str(), false, true), true);
}

} // namespace

TEST(yld_YldRepository, unknownNamesGiveOneEmptyDatabaseAndNoError)
{
    const Library library;
    EXPECT_STREQ(registry().get("nobody").name().cStr(), "");
    EXPECT_STREQ(registry().constGet("nobody").path().cStr(), "");
    EXPECT_EQ(&registry().get("nobody"), &registry().get("somebody"));
    EXPECT_EQ(registry().size(), 0);
    EXPECT_FALSE(registry().isMember("nobody"));
}

TEST(yld_YldRepository, walksNamesInAscendingOrder)
{
    const Library library;
    const ScratchFolder folder;
    makeDatabase(folder.file("job.yld"));
    for (const char* name : {"b", "C", "a"}) openYld(name, folder.file("job.yld").c_str(), true, false);
    std::string names;
    yld_YldRepositoryIT walk(registry());
    for (walk.first(); !walk.isDone(); walk.next()) {
        EXPECT_STREQ(walk.currentValue().name().cStr(), walk.currentKey().cStr());
        names += walk.currentKey().cStr();
    }
    EXPECT_EQ(names, "Cab");
    closeYld(registry().get("a"));
}

TEST(yld_YldRepository, keysAreTheNamesAsTheyWereSpelled)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    makeDatabase(path);
    openYld("./job", path.c_str(), true, false);
    EXPECT_TRUE(registry().isMember("./job"));
    EXPECT_FALSE(registry().isMember("job"));
    EXPECT_FALSE(registry().isMember("./JOB"));
    closeYld(registry().get("./job"));
}

TEST(yld_YldRepository, pathsAreComparedByteForByte)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    makeDatabase(path);
    openYld("job", (folder.file("x/../") + "./job.yld").c_str(), true, false);
    EXPECT_STREQ(registry().get("job").path().cStr(), path.c_str());
    EXPECT_TRUE(registry().IsFileOpen(path.c_str()));
    EXPECT_FALSE(registry().IsFileOpen(folder.file("JOB.yld").c_str()));
    EXPECT_FALSE(registry().IsFileOpen(folder.file("./job.yld").c_str()));
    closeYld(registry().get("job"));
    EXPECT_FALSE(registry().IsFileOpen(path.c_str()));
}

TEST(yld_YldRepository, removingAnUnknownNameDoesNothing)
{
    const Library library;
    const ScratchFolder folder;
    makeDatabase(folder.file("job.yld"));
    yld_Yld& open = openYld("job", folder.file("job.yld").c_str(), true, false);
    registry().remove("other");
    EXPECT_FALSE(open.isClosed());
    open.close();
}

TEST(yld_YldRepository, oneNameOfThreeGoesAloneAndTheStoreStaysOpen)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    makeDatabase(path);
    for (const char* name : {"one", "two", "three", "four"}) openYld(name, path.c_str(), true, false);
    registry().remove("four");
    EXPECT_EQ(registry().size(), 3);
    EXPECT_TRUE(lnk_Root::IsMember(path.c_str()));
    registry().remove("two");
    EXPECT_EQ(registry().size(), 2);
    EXPECT_TRUE(registry().isMember("one"));
    EXPECT_TRUE(registry().isMember("three"));
    EXPECT_TRUE(lnk_Root::IsMember(path.c_str()));
    EXPECT_EQ(registry().get("three").steps().size(), 0);
    registry().remove("three");
    EXPECT_EQ(registry().size(), 0);
    EXPECT_FALSE(lnk_Root::IsMember(path.c_str()));
}

TEST(yld_YldRepository, namesOnOtherPathsAreNotCounted)
{
    const Library library;
    const ScratchFolder folder;
    makeDatabase(folder.file("a.yld"));
    makeDatabase(folder.file("b.yld"));
    openYld("one", folder.file("a.yld").c_str(), true, false);
    openYld("two", folder.file("b.yld").c_str(), true, false);
    openYld("three", folder.file("b.yld").c_str(), true, false);
    registry().remove("one");
    EXPECT_EQ(registry().size(), 2);
    registry().remove("two");
    EXPECT_EQ(registry().size(), 0);
}

TEST(yld_YldRepository, removingAWriterTakesTheLockOfAnotherWriterOnTheFile)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    const std::string lock = folder.file("job.lck");
    Yld("maker", "", "", path.c_str());
    openYld("writer", path.c_str(), false, false);
    openYld("reader", path.c_str(), true, false);
    ASSERT_TRUE(std::filesystem::exists(lock));
    registry().remove("maker");
    EXPECT_TRUE(registry().isMember("writer"));
    EXPECT_FALSE(std::filesystem::exists(lock));
    registry().remove("reader");
}

TEST(yld_YldRepository, removingAReaderLeavesTheLock)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    makeDatabase(path);
    openYld("writer", path.c_str(), false, false);
    openYld("r1", path.c_str(), true, false);
    openYld("r2", path.c_str(), true, false);
    registry().remove("r1");
    EXPECT_TRUE(std::filesystem::exists(folder.file("job.lck")));
    registry().remove("writer");
    EXPECT_FALSE(std::filesystem::exists(folder.file("job.lck")));
    EXPECT_EQ(registry().size(), 0);
}

TEST(yld_YldRepository, theStoreTellsOfAClosedFile)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    makeDatabase(path);
    makeDatabase(folder.file("other.yld"));
    openYld("one", path.c_str(), true, false);
    openYld("two", path.c_str(), true, false);
    openYld("three", path.c_str(), true, false);
    openYld("stays", folder.file("other.yld").c_str(), true, false);
    sto_StoToolset::Instance().CloseYld(path.c_str());
    EXPECT_EQ(registry().size(), 1);
    EXPECT_TRUE(registry().isMember("stays"));
    closeYld(registry().get("stays"));
}

TEST(yld_YldRepository, openingIsNothingToTheRegistry)
{
    const Library library;
    const ScratchFolder folder;
    makeDatabase(folder.file("job.yld"));
    sto_Sto store = openInStore(folder.file("job.yld"));
    EXPECT_EQ(registry().size(), 0);
    sto_StoContainer().CloseSto(store);
}

TEST(yld_YldRepository, aClosedEntryIsToldByACopyOfIt)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    makeDatabase(path);
    yld_Yld& open = openYld("job", path.c_str(), true, false);
    yld_Yld copy = open;
    EXPECT_FALSE(copy.isClosed());
    open.close();
    EXPECT_TRUE(copy.isClosed());
    EXPECT_EQ(failureOf([&] { copy.steps(); }), path + ": the database is closed");
    EXPECT_FALSE(copy.update());
}

TEST(yld_YldRepository, updateNotificationTakesTheFileForAName)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    yld_Yld& byPath = Yld(path.c_str(), "", "", path.c_str());
    yld_Yld& byName = openYld("job", path.c_str(), true, false);
    EXPECT_EQ(byPath.steps().size(), 0);
    EXPECT_EQ(byName.steps().size(), 0);
    // Another hand on the same store adds a step that neither has seen.
    yld_Yld other("other", "", "", path.c_str(), byPath.sto(), false, true);
    other.Step("one", "", yld_Enum::TIME, 1.0);
    saveYld(byPath);
    sto_StoToolset::Instance().UpdateYld(path.c_str());
    EXPECT_EQ(byPath.steps().size(), 1);
    EXPECT_EQ(byName.steps().size(), 0) << "its name is not its path";
    sto_StoToolset::Instance().UpdateYld("job");
    EXPECT_EQ(byName.steps().size(), 1);
    sto_StoToolset::Instance().UpdateYld("nobody");
    byPath.close();
}

TEST(getActiveYld, withNothingOpenItRaises)
{
    const Library library;
    EXPECT_EQ(failureOf([] { getActiveYld(); }), "No yld files are open.");
}

TEST(getActiveYld, withOneEntryItGivesTheObjectOfTheEmptyName)
{
    const Library library;
    const ScratchFolder folder;
    makeDatabase(folder.file("job.yld"));
    yld_Yld& open = openYld("job", folder.file("job.yld").c_str(), true, false);
    yld_Yld& active = getActiveYld();
    EXPECT_NE(&active, &open);
    EXPECT_EQ(&active, &registry().get(""));
    EXPECT_STREQ(active.name().cStr(), "");
    EXPECT_STREQ(active.path().cStr(), "");
    EXPECT_EQ(failureOf([&] { active.steps(); }), "store: no store is open here");
    EXPECT_EQ(registry().size(), 1);
    open.close();
}

TEST(getActiveYld, withSeveralEntriesItRaises)
{
    const Library library;
    const ScratchFolder folder;
    makeDatabase(folder.file("job.yld"));
    yld_Yld& open = openYld("one", folder.file("job.yld").c_str(), true, false);
    openYld("two", folder.file("job.yld").c_str(), true, false);
    EXPECT_EQ(failureOf([] { getActiveYld(); }), severalOpen);
    open.close();
}

TEST(getActiveYld, entersTheOneStoreThatIsOpenReadOnlyUnderItsFile)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    makeDatabase(path);
    openInStore(path);
    yld_Yld& active = getActiveYld();
    EXPECT_STREQ(active.name().cStr(), path.c_str());
    EXPECT_STREQ(active.path().cStr(), path.c_str());
    EXPECT_STREQ(active.analysisTitle().cStr(), "title");
    EXPECT_STREQ(active.description().cStr(), "description");
    EXPECT_TRUE(active.isReadOnly());
    EXPECT_EQ(active.steps().size(), 0);
    EXPECT_EQ(registry().size(), 1);
    EXPECT_NE(&getActiveYld(), &active) << "from now on there is an entry";
    closeYld(active);
    EXPECT_EQ(registry().size(), 0);
    EXPECT_EQ(failureOf([] { getActiveYld(); }), "No yld files are open.");
}

TEST(getActiveYld, withSeveralStoresOpenItRaises)
{
    const Library library;
    const ScratchFolder folder;
    makeDatabase(folder.file("a.yld"));
    makeDatabase(folder.file("b.yld"));
    sto_Sto a = openInStore(folder.file("a.yld"));
    sto_Sto b = openInStore(folder.file("b.yld"));
    EXPECT_EQ(failureOf([] { getActiveYld(); }), severalOpen);
    EXPECT_EQ(registry().size(), 0);
    sto_StoContainer().CloseSto(a);
    sto_StoContainer().CloseSto(b);
}
