#include "call_results.h"
#include "platform/sto/sto_Model.h"
#include "platform/store/lnk_Root.h"
#include "platform/text/msg_translate.h"
#include "store/test_disk.h"
#include "test_files.h"
#include "yld.h"
#include "yld/impl/life/yld_YldRepository.h"

#include <fstream>
#include <string>
#include <vector>

namespace {

yld_YldRepository& registry() { return yld_YldRepository::Instance(); }

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
    EXPECT_EQ(registry().size(), 1);
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

TEST(yld_OpenClose, nameTakenByACopyOfTheFileIsRefused)
{
    const Library library;
    const ScratchFolder folder;
    makeDatabase(folder.file("a.yld"));
    std::filesystem::copy_file(folder.file("a.yld"), folder.file("b.yld"));
    yld_Yld& open = openYld("name", folder.file("a.yld").c_str(), true, false);
    EXPECT_EQ(failureOf([&] { openYld("name", folder.file("b.yld").c_str(), false, false); }),
              "A database named ('name') already exists.");
    EXPECT_FALSE(std::filesystem::exists(folder.file("b.lck")));
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
    const auto before = std::filesystem::last_write_time(path);
    EXPECT_EQ(failureOf([&] { Yld("second", "", "", path.c_str()); }),
              "The path '" + path + "' has an existing sto associated with it.");
    EXPECT_EQ(std::filesystem::last_write_time(path), before);
    EXPECT_FALSE(std::filesystem::exists(folder.file("other.lck")));
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
                  path +
                      " is from a more recent version of ZANTRA.\n\n The current ZANTRA installation must be upgraded "
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

TEST(yld_OpenClose, createMakesNoLockFile)
{
    const Library library;
    const ScratchFolder folder;
    yld_Yld& made = Yld("job", "", "", folder.file("job.yld").c_str());
    EXPECT_FALSE(made.isReadOnly());
    EXPECT_FALSE(std::filesystem::exists(folder.file("job.lck")));
    made.close();
}

TEST(yld_OpenClose, createNotesTheLibraryThatMadeTheDatabase)
{
    const Library library;
    const ScratchFolder folder;
    yld_Yld& made = Yld("job", "", "", folder.file("job.yld").c_str());
    EXPECT_STREQ(made.sto().analysisVersion().cStr(), "ZANTRA/Scripting Interface 0.1.0");
    made.close();
}

TEST(yld_OpenClose, createIsOnDiskAtOnce)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    Yld("job", "the title", "the description", path.c_str());
    EXPECT_EQ(inOtherProcess([&] {
                  // The registry came along into the process; another name for the same file reads it anew.
                  std::filesystem::copy_file(path, folder.file("copy.yld"));
                  yld_Yld& copy = openYld(folder.file("copy.yld").c_str(), true);
                  EXPECT_STREQ(copy.analysisTitle().cStr(), "the title");
                  EXPECT_STREQ(copy.description().cStr(), "the description");
                  EXPECT_EQ(copy.databaseVersion(), 891);
              }),
              0);
}

TEST(yld_OpenClose, failedCreateLeavesNothingOpen)
{
    const Library library;
    const ScratchFolder folder;
    std::filesystem::create_directory(folder.file("job.yld"));
    const std::string path = folder.file("job.yld");
    EXPECT_EQ(failureOf([&] { Yld("job", "", "", path.c_str()); }),
              "Cannot create file " + path + ". " + path + ": is not a regular file");
    EXPECT_EQ(registry().size(), 0);
    EXPECT_EQ(failureOf([] { getActiveYld(); }), "No yld files are open.");
}

TEST(yld_OpenClose, oneFileUnderTwoNamesIsWarnedOfByNobody)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    Yld("first", "", "", path.c_str());
    yld_Yld* second = nullptr;
    EXPECT_EQ(warningsOf([&] { second = &openYld("second", path.c_str(), false, false); }), "");
    EXPECT_FALSE(second->isReadOnly()) << "the flag stays that of the caller";
    EXPECT_FALSE(second->sto().file()->isWritable()) << "the handle only reads";
    EXPECT_EQ(failureOf([&] { second->save(); }),
              "Database save failed. " + path + ": the database is open for reading only");
    EXPECT_EQ(failureOf([&] { saveYld(*second); }), path + ": the database is open for reading only");
    second->close();
}

namespace {

// Takes down which messages were asked for.
class Listener : public msg_Catalogue
{
public:
    Listener() : m_before(msg_installCatalogue(this)) {}
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;
    ~Listener() override { msg_installCatalogue(m_before); }

    const char* Find(const char* format) const override
    {
        asked.emplace_back(format);
        return nullptr;
    }

    mutable std::vector<std::string> asked;

private:
    const msg_Catalogue* m_before;
};

const std::string dropped =
    "YLD is already in use by someone else. database cannot be opened for writing and will be opened readOnly";

} // namespace

TEST(yld_OpenClose, theWarningOfAFileInUseIsBuiltAndDropped)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    yld_Yld& first = Yld("first", "", "", path.c_str());
    {
        const Listener reader;
        openYld("reader", path.c_str(), true, false);
        EXPECT_EQ(reader.asked, std::vector<std::string>());
    }
    {
        const Listener writer;
        EXPECT_EQ(warningsOf([&] { openYld("writer", path.c_str(), false, false); }), "");
        EXPECT_EQ(writer.asked, std::vector<std::string>{dropped});
    }
    closeYld(first);
}

TEST(yld_OpenClose, fileThatWasReplacedIsOpenedButItsNameKeepsTheOldEntry)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    makeDatabase(path);
    yld_Yld& old = openYld("job", path.c_str(), true, false);
    Yld("new", "the new title", "", folder.file("new.yld").c_str()).close();
    std::filesystem::rename(folder.file("new.yld"), path);
    yld_Yld* again = nullptr;
    EXPECT_EQ(warningsOf([&] { again = &openYld("job", path.c_str(), false, false); }), "");
    EXPECT_EQ(again, &old);
    EXPECT_STREQ(again->analysisTitle().cStr(), "title");
    EXPECT_FALSE(std::filesystem::exists(folder.file("job.lck"))) << "nobody would remove it";
    old.close();
    EXPECT_STREQ(openYld("job", path.c_str(), true, false).analysisTitle().cStr(), "the new title");
    closeYld(registry().get("job"));
}

TEST(yld_OpenClose, anotherFileUnderATakenNameGivesTheOldEntryAndStaysClosed)
{
    const Library library;
    const ScratchFolder folder;
    const std::string first = folder.file("first.yld");
    const std::string second = folder.file("second.yld");
    makeDatabase(first);
    makeDatabase(second);
    yld_Yld& open = openYld("job", first.c_str(), true, false);
    EXPECT_EQ(&openYld("job", second.c_str(), false, false), &open);
    EXPECT_STREQ(open.path().cStr(), first.c_str());
    EXPECT_FALSE(lnk_Root::IsMember(second.c_str()));
    EXPECT_FALSE(std::filesystem::exists(folder.file("second.lck")));
    open.close();
}

TEST(yld_OpenClose, aTakenNameOnAMissingFileFailsLikeAnyMissingFile)
{
    const Library library;
    const ScratchFolder folder;
    makeDatabase(folder.file("job.yld"));
    yld_Yld& open = openYld("job", folder.file("job.yld").c_str(), true, false);
    const std::string missing = folder.file("missing.yld");
    EXPECT_EQ(failureOf([&] { openYld("job", missing.c_str(), true, false); }),
              "Cannot open file " + missing + ". " + missing + ": No such file or directory");
    open.close();
}

TEST(yld_OpenClose, failedOpenLeavesNoLockAndNoStore)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    // A database of the store's own, whose header is sound and which has no root object.
    fio_File::Create(path.c_str()).body()->save();
    EXPECT_EQ(failureOf([&] { openYld(path.c_str(), false); }),
              "Cannot open file " + path + ". " + path + ": holds no store; the file is damaged");
    EXPECT_FALSE(std::filesystem::exists(folder.file("job.lck")));
    EXPECT_FALSE(lnk_Root::IsMember(path.c_str()));
    EXPECT_EQ(registry().size(), 0);
}

TEST(yld_OpenClose, openWithoutTheDefaultModelFailsAndLeavesNoLockAndNoStore)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    sto_Sto store;
    sto_StoContainer().CreateSto(store, path.c_str(), "");
    store.Model("Other Model");
    store.Save();
    sto_StoContainer().CloseSto(store);
    EXPECT_EQ(failureOf([&] { openYld(path.c_str(), false); }),
              "Cannot open file " + path + ". " + path + ": has no model named \"Default Model\"");
    EXPECT_FALSE(std::filesystem::exists(folder.file("job.lck")));
    EXPECT_FALSE(lnk_Root::IsMember(path.c_str()));
}

TEST(yld_OpenClose, whateverCallOfTheDiskFailsACreateLeavesNothing)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    int failures = 0;
    for (int call = 1;; ++call) {
        FaultyDisk disk;
        disk.failCall(call, SQLITE_FULL);
        const std::string failure = failureOf([&] { Yld("job", "title", "", path.c_str()); });
        const bool hasFailed = disk.hasFailed();
        disk.failCall(0, SQLITE_OK);
        if (failure == "no exception") {
            registry().get("job").close();
            if (!hasFailed) break;
            continue;
        }
        ++failures;
        EXPECT_TRUE(failure.starts_with("Cannot create file " + path + ". " + path + ": ")) << failure;
        EXPECT_EQ(registry().size(), 0);
        EXPECT_TRUE(lnk_Root::Instance().stores().empty());
        EXPECT_TRUE(std::filesystem::is_empty(folder.path())) << "call " << call;
    }
    EXPECT_GT(failures, 20);
}

TEST(yld_OpenClose, whateverCallOfTheDiskFailsAnOpenLeavesTheFileAlone)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    makeDatabase(path);
    int failures = 0;
    for (int call = 1;; ++call) {
        FaultyDisk disk;
        disk.failCall(call, SQLITE_IOERR_READ);
        std::string failure;
        warningsOf([&] { failure = failureOf([&] { openYld("job", path.c_str(), false, false); }); });
        const bool hasFailed = disk.hasFailed();
        disk.failCall(0, SQLITE_OK);
        if (failure == "no exception") {
            EXPECT_EQ(registry().get("job").steps().size(), 0);
            registry().get("job").close();
        } else {
            ++failures;
            EXPECT_TRUE(failure.starts_with("Cannot open file " + path + ". " + path + ": ")) << failure;
            EXPECT_EQ(registry().size(), 0);
            EXPECT_TRUE(lnk_Root::Instance().stores().empty());
        }
        EXPECT_FALSE(std::filesystem::exists(folder.file("job.lck"))) << "call " << call;
        if (!hasFailed) break;
    }
    EXPECT_GT(failures, 5);
}

TEST(yld_OpenClose, aFailedOpenClosesNoStoreThatWasOpenBefore)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    sto_Sto store;
    sto_StoContainer().CreateSto(store, path.c_str(), "");
    store.Model("Other Model");
    store.Save();
    EXPECT_EQ(failureOf([&] { openYld(path.c_str(), true); }),
              "Cannot open file " + path + ". " + path + ": has no model named \"Default Model\"");
    EXPECT_TRUE(store.isValid());
    sto_StoContainer().CloseSto(store);
}

TEST(yld_OpenClose, saveOfAReadOnlyDatabaseWarnsAndReturns)
{
    const Library library;
    const ScratchFolder folder;
    makeDatabase(folder.file("job.yld"));
    yld_Yld& open = openYld(folder.file("job.yld").c_str(), true);
    EXPECT_EQ(warningsOf([&] { saveYld(open); }), "Warning: Database was opened read-only and cannot be saved.\n");
    open.close();
}

TEST(yld_OpenClose, closeYldTakesOutEveryNameOnThePathAndLeavesTheLockFile)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    const std::string other = folder.file("other.yld");
    makeDatabase(path);
    makeDatabase(other);
    yld_Yld& writer = openYld("writer", path.c_str(), false, false);
    openYld("second", path.c_str(), true, false);
    openYld("third", path.c_str(), true, false);
    yld_Yld& stays = openYld("stays", other.c_str(), true, false);
    closeYld(writer);
    EXPECT_EQ(registry().size(), 1);
    EXPECT_FALSE(stays.isClosed());
    EXPECT_TRUE(std::filesystem::exists(folder.file("job.lck")));
    EXPECT_FALSE(lnk_Root::IsMember(path.c_str()));
    closeYld(stays);
}

TEST(yld_OpenClose, checkPhaseIsClearedForAWriter)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    const std::string lock = folder.file("job.lck");
    makeDatabase(path);
    std::ofstream(lock) << "Analysis Input File Processor\n";
    yld_Yld* open = nullptr;
    EXPECT_EQ(warningsOf([&] { open = &openYld("job", path.c_str(), false, true); }),
              "Warning: An output database lock file " + lock +
                  " has been detected. This may indicate that the output database is opened for writing by another "
                  "application.\n" +
                  path + " will be opened read-only. \n");
    EXPECT_TRUE(open->isReadOnly());
    open->close();
}

TEST(yld_OpenClose, aFileWithoutAVersionNumberIsTakenForAnOldOne)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    makeDatabase(path);
    fio_Database(path, fio_Database::Access::WRITE).setDatabaseVersion(0);
    try {
        openYld(path.c_str(), true);
        FAIL() << "an older database was opened";
    } catch (const yld_Exception& failure) {
        EXPECT_EQ(failure.errorNo(), yld_UPGRADE_NEEDED);
        EXPECT_EQ(failure.versionNumber(), 203);
        EXPECT_EQ(failure.zantraVersion(), 891);
        EXPECT_TRUE(failure.readOnly());
        EXPECT_STREQ(failure.fileName().cStr(), path.c_str());
    }
    EXPECT_FALSE(std::filesystem::exists(folder.file("job.lck")));
}
