#include "test_files.h"
#include "yld.h"
#include "yld/impl/yld_YldRepository.h"

#include <fstream>
#include <functional>
#include <sstream>

namespace {

class Library
{
public:
    Library() { yld_initializeAPI(); }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library() { yld_finalizeAPI(); }
};

std::string failureOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const yld_Exception& failure) {
        EXPECT_EQ(failure.errorNo(), yld_GENERAL);
        return failure.what();
    }
    return "no exception";
}

// What goes to the standard error stream during an action.
std::string warningsOf(const std::function<void()>& action)
{
    testing::internal::CaptureStderr();
    action();
    return testing::internal::GetCapturedStderr();
}

void makeDatabase(const std::string& path)
{
    yld_Yld& made = Yld(path.c_str(), "title", "description", path.c_str());
    made.close();
}

} // namespace

TEST(yld_OpenClose, createdDatabaseReopensWithItsHeader)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    yld_Yld& made = Yld("job", "the title", "the description", path.c_str());
    EXPECT_STREQ(made.path().cStr(), path.c_str());
    EXPECT_FALSE(made.isReadOnly());
    made.close();
    yld_Yld& again = openYld(path.c_str(), true);
    EXPECT_STREQ(again.name().cStr(), path.c_str());
    EXPECT_STREQ(again.analysisTitle().cStr(), "the title");
    EXPECT_STREQ(again.description().cStr(), "the description");
    EXPECT_TRUE(again.isReadOnly());
    EXPECT_EQ(again.steps().size(), 0);
    EXPECT_EQ(again.parts().size(), 0);
    again.close();
}

TEST(yld_OpenClose, emptyPathMeansTheName)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    yld_Yld& made = Yld(path.c_str(), "", "", "");
    EXPECT_STREQ(made.path().cStr(), path.c_str());
    made.close();
    yld_Yld& again = openYld(path.c_str(), "", true, false);
    EXPECT_STREQ(again.path().cStr(), path.c_str());
    again.close();
}

TEST(yld_OpenClose, openingTwiceGivesTheSameObject)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    makeDatabase(path);
    yld_Yld& first = openYld("a", path.c_str(), true, false);
    yld_Yld* second = nullptr;
    EXPECT_EQ(warningsOf([&] { second = &openYld("a", path.c_str(), true, false); }), "");
    EXPECT_EQ(second, &first);
    EXPECT_EQ(warningsOf([&] { second = &openYld("a", path.c_str(), false, false); }),
              "Warning: The database has been opened with readOnly flag on. It will remain readOnly.\n");
    EXPECT_EQ(second, &first);
    EXPECT_TRUE(second->isReadOnly());
    EXPECT_EQ(yld_YldRepository::Instance().size(), 1);
    first.close();
}

TEST(yld_OpenClose, nameTakenByAnotherPathIsRefused)
{
    const Library library;
    const ScratchFolder folder;
    makeDatabase(folder.file("a.yld"));
    const std::string link = folder.file("b.yld");
    std::filesystem::create_symlink(folder.file("a.yld"), link);
    yld_Yld& open = openYld("name", folder.file("a.yld").c_str(), true, false);
    EXPECT_EQ(failureOf([&] { openYld("name", link.c_str(), true, false); }),
              "A database named ('name') already exists.");
    open.close();
}

TEST(yld_OpenClose, createRefusesANameOrAPathInUseAndTouchesNoDisk)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    yld_Yld& made = Yld("job", "", "", path.c_str());
    EXPECT_EQ(failureOf([&] { Yld("job", "", "", folder.file("other.yld").c_str()); }),
              "A database named ('job') already exists.");
    EXPECT_FALSE(std::filesystem::exists(folder.file("other.yld")));
    EXPECT_EQ(failureOf([&] { Yld("second", "", "", path.c_str()); }),
              "The path '" + path + "' has an existing sto associated with it.");
    made.close();
}

TEST(yld_OpenClose, createReplacesADatabaseButNoFileOfAnotherKind)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    makeDatabase(path);
    Yld("job", "fresh", "", path.c_str()).close();
    yld_Yld& again = openYld(path.c_str(), true);
    EXPECT_STREQ(again.analysisTitle().cStr(), "fresh");
    again.close();

    const std::string letter = folder.file("letter.txt");
    std::ofstream(letter) << "Dear reader, this is a letter and no database at all, whatever you may think of it.";
    EXPECT_EQ(failureOf([&] { Yld("letter", "", "", letter.c_str()); }),
              "Cannot create file " + letter + ". " + letter + ": is not a results database of this library");
    EXPECT_TRUE(std::filesystem::exists(letter));
}

TEST(yld_OpenClose, failuresNameThePathAndTheReason)
{
    const Library library;
    const ScratchFolder folder;
    const std::string missing = folder.file("missing.yld");
    EXPECT_EQ(failureOf([&] { openYld(missing.c_str(), true); }),
              "Cannot open file " + missing + ". " + missing + ": No such file or directory");
    EXPECT_EQ(failureOf([&] { openYld(missing.c_str(), false); }),
              "Cannot open file " + missing + ". " + missing + ": No such file or directory");
    EXPECT_FALSE(std::filesystem::exists(folder.file("missing.lck")));
    const std::string nowhere = folder.file("no/such/folder/job.yld");
    EXPECT_EQ(failureOf([&] { Yld("job", "", "", nowhere.c_str()); }),
              "Cannot create file " + nowhere + ". " + nowhere + ": No such file or directory");
}

TEST(yld_OpenClose, writerMakesALockFileAndRemovesItOnClose)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    makeDatabase(path);
    yld_Yld& open = openYld(path.c_str(), false);
    EXPECT_FALSE(open.isReadOnly());
    ASSERT_TRUE(std::filesystem::exists(folder.file("job.lck")));
    EXPECT_EQ(std::filesystem::file_size(folder.file("job.lck")), 0u);
    open.close();
    EXPECT_FALSE(std::filesystem::exists(folder.file("job.lck")));
}

TEST(yld_OpenClose, readerMakesNoLockFileAndRemovesNone)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    makeDatabase(path);
    std::ofstream(folder.file("job.lck")).close();
    openYld(path.c_str(), true).close();
    EXPECT_TRUE(std::filesystem::exists(folder.file("job.lck")));
    std::filesystem::remove(folder.file("job.lck"));
    openYld(path.c_str(), true).close();
    EXPECT_FALSE(std::filesystem::exists(folder.file("job.lck")));
}

TEST(yld_OpenClose, lockFileOfAnotherTurnsTheOpenIntoAReadOnlyOneWithAWarning)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    const std::string lock = folder.file("job.lck");
    makeDatabase(path);
    std::ofstream(lock).close();
    yld_Yld* open = nullptr;
    EXPECT_EQ(warningsOf([&] { open = &openYld(path.c_str(), false); }),
              "Warning: An output database lock file " + lock +
                  " has been detected. This may indicate that the output database is opened for writing by another "
                  "application.\n" +
                  path + " will be opened read-only. \n");
    EXPECT_TRUE(open->isReadOnly());
    EXPECT_EQ(warningsOf([&] { saveYld(*open); }),
              "Warning: Database was opened read-only and cannot be saved.\n");
    open->close();
    EXPECT_TRUE(std::filesystem::exists(lock));
}

TEST(yld_OpenClose, phaseOfTheInputProcessorRefusesAReaderThatAsks)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    makeDatabase(path);
    std::ofstream(folder.file("job.lck")) << "something\nAnalysis Input File Processor\n";
    EXPECT_EQ(failureOf([&] { openYld("job", path.c_str(), true, true); }),
              "The .lck file for the output database " + path +
                  " indicates that the Analysis Input File Processor is currently modifying the database.  The "
                  "database cannot be opened at this time.");
    openYld("job", path.c_str(), true, false).close();
}

TEST(yld_OpenClose, lockPhaseIsTheLastLineAndLongLinesAreCut)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    const yld_YldRepository& registry = yld_YldRepository::Instance();
    EXPECT_STREQ(registry.GetLockPhase(path.c_str()).cStr(), "");
    std::ofstream(folder.file("job.lck")).close();
    EXPECT_STREQ(registry.GetLockPhase(path.c_str()).cStr(), "");
    std::ofstream(folder.file("job.lck")) << "first\nsecond\n";
    EXPECT_STREQ(registry.GetLockPhase(path.c_str()).cStr(), "second");
    std::ofstream(folder.file("job.lck")) << std::string(130, 'x') + "\n";
    EXPECT_STREQ(registry.GetLockPhase(path.c_str()).cStr(), std::string(30, 'x').c_str());
}

TEST(yld_OpenClose, urlsHaveNoLocks)
{
    const Library library;
    const yld_YldRepository& registry = yld_YldRepository::Instance();
    EXPECT_FALSE(registry.IsYldLocked("http://host/job.yld"));
    EXPECT_TRUE(registry.LockYld("http://host/job.yld"));
    EXPECT_TRUE(registry.RemoveLock("http://host/job.yld"));
}

TEST(yld_OpenClose, oneNamesakeOnThePathGoesOutTooButThreeStay)
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

TEST(yld_OpenClose, insertUnderAPresentNameChangesNothing)
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

TEST(yld_OpenClose, saveToAnotherPathIsRefused)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    yld_Yld& made = Yld("job", "", "", path.c_str());
    EXPECT_EQ(failureOf([&] { made.save(folder.file("other.yld").c_str()); }),
              "YLD not saved. Changing the path is not allowed.");
    EXPECT_FALSE(std::filesystem::exists(folder.file("other.yld")));
    made.save("");
    made.save(path.c_str());
    made.close();
}

TEST(yld_OpenClose, closeWithoutSaveLosesTheStep)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    yld_Yld& made = Yld("job", "", "", path.c_str());
    made.Step("kept", "", yld_Enum::TIME, 1.0);
    saveYld(made);
    made.Step("lost", "", yld_Enum::TIME, 1.0);
    made.close();
    yld_Yld& again = openYld(path.c_str(), true);
    EXPECT_EQ(again.steps().size(), 1);
    EXPECT_TRUE(again.steps().isMember("kept"));
    again.close();
}

TEST(yld_OpenClose, newerAndOlderDatabasesAreToldApart)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    makeDatabase(path);
    const auto setVersion = [&path](int version) {
        fio_Database database(path, fio_Database::Access::WRITE);
        database.setDatabaseVersion(version);
    };
    setVersion(892);
    try {
        openYld(path.c_str(), true);
        FAIL() << "a newer database was opened";
    } catch (const yld_Exception& failure) {
        EXPECT_EQ(failure.errorNo(), yld_DATABASE_TOO_NEW);
        EXPECT_EQ(failure.versionNumber(), 892);
        EXPECT_EQ(failure.zantraVersion(), 891);
        EXPECT_EQ(std::string(failure.what()),
                  path + " is from a more recent version of ZANTRA.\n\n The current ZANTRA installation must be upgraded "
                         "before this output database can be opened.");
    }
    setVersion(890);
    try {
        openYld(path.c_str(), false);
        FAIL() << "an older database was opened";
    } catch (const yld_Exception& failure) {
        EXPECT_EQ(failure.errorNo(), yld_UPGRADE_NEEDED);
        EXPECT_FALSE(failure.readOnly());
        EXPECT_STREQ(failure.what(), "The database is from a previous version of ZANTRA. \nRun zantra -upgrade -job "
                                     "<newFileName> -yld <oldYldFileName> to upgrade it.");
    }
}

TEST(yld_OpenClose, everyOpenDatabaseIsClosedWhenTheLibraryStops)
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

TEST(yld_OpenClose, pathWithBlanksAndOtherLettersWorks)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("Prüf stand é.yld");
    makeDatabase(path);
    yld_Yld& open = openYld(path.c_str(), false);
    EXPECT_STREQ(open.path().cStr(), path.c_str());
    open.close();
}
