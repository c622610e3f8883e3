#include "call_results.h"
#include "other_process.h"
#include "test_files.h"
#include "yld.h"
#include "yld/impl/life/yld_YldRepository.h"

#include <fcntl.h>
#include <fstream>
#include <string>
#include <sys/file.h>
#include <thread>
#include <unistd.h>

TEST(yld_LockFile, writerMakesALockFileAndRemovesItOnClose)
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

TEST(yld_LockFile, readerMakesNoLockFileAndRemovesNone)
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

TEST(yld_LockFile, lockFileOfAnotherTurnsTheOpenIntoAReadOnlyOneWithAWarning)
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
    EXPECT_EQ(warningsOf([&] { saveYld(*open); }), "Warning: Database was opened read-only and cannot be saved.\n");
    open->close();
    EXPECT_TRUE(std::filesystem::exists(lock));
}

TEST(yld_LockFile, phaseOfTheInputProcessorRefusesAReaderThatAsks)
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

TEST(yld_LockFile, urlsHaveNoLocks)
{
    const Library library;
    const yld_YldRepository& registry = yld_YldRepository::Instance();
    EXPECT_FALSE(registry.IsYldLocked("http://host/job.yld"));
    EXPECT_TRUE(registry.LockYld("http://host/job.yld"));
    EXPECT_TRUE(registry.RemoveLock("http://host/job.yld"));
    EXPECT_STREQ(registry.GetLockPhase("http://host/job.yld").cStr(), "");
}

namespace {

// The phase that a lock file with these contents tells.
std::string phaseOf(const std::string& contents)
{
    const ScratchFolder folder;
    std::ofstream(folder.file("job.lck")) << contents;
    return yld_YldRepository::Instance().GetLockPhase(folder.file("job.yld").c_str()).cStr();
}

} // namespace

TEST(yld_LockFile, phaseOfAMissingOrEmptyFileIsEmpty)
{
    const Library library;
    const ScratchFolder folder;
    EXPECT_STREQ(yld_YldRepository::Instance().GetLockPhase(folder.file("job.yld").c_str()).cStr(), "");
    EXPECT_EQ(phaseOf(""), "");
}

TEST(yld_LockFile, phaseIsTheLastLine)
{
    const Library library;
    EXPECT_EQ(phaseOf("only\n"), "only");
    EXPECT_EQ(phaseOf("first\nsecond\nthird\n"), "third");
    EXPECT_EQ(phaseOf(" blanks stay \n"), " blanks stay ");
}

TEST(yld_LockFile, aLineWithoutItsEndIsNotKept)
{
    const Library library;
    EXPECT_EQ(phaseOf("first\nsecond"), "first");
    EXPECT_EQ(phaseOf("only"), "");
}

TEST(yld_LockFile, anEmptyLineIsALine)
{
    const Library library;
    EXPECT_EQ(phaseOf("first\n\n"), "");
    EXPECT_EQ(phaseOf("\n\nlast\n"), "last");
}

TEST(yld_LockFile, aLineOfAHundredCharactersIsKeptAndALongerOneIsCut)
{
    const Library library;
    EXPECT_EQ(phaseOf(std::string(100, 'x') + "\n"), std::string(100, 'x'));
    EXPECT_EQ(phaseOf("first\n" + std::string(100, 'x') + "y\n"), "y");
    EXPECT_EQ(phaseOf(std::string(100, 'x') + std::string(30, 'y') + "\n"), std::string(30, 'y'));
    EXPECT_EQ(phaseOf(std::string(200, 'x') + "yz\n"), "yz");
    EXPECT_EQ(phaseOf(std::string(100, 'x') + std::string(100, 'y') + "\n"), std::string(100, 'y'));
    EXPECT_EQ(phaseOf("first\n" + std::string(130, 'x')), "first") << "neither piece ends";
}

TEST(yld_LockFile, theTailOfACutLineCanBeAPhase)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    makeDatabase(path);
    std::ofstream(folder.file("job.lck")) << std::string(100, 'x') + "ZANTRA/Explicit Packager\n";
    EXPECT_EQ(failureOf([&] { openYld("job", path.c_str(), true, true); }),
              "The .lck file for the output database " + path +
                  " indicates that the ZANTRA/Explicit Packager is currently modifying the database.  The database "
                  "cannot be opened at this time.");
}

TEST(yld_LockFile, onlyTheTwoPhasesToTheLetterRefuseAReader)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    makeDatabase(path);
    for (const char* phase : {"analysis input file processor\n", "Analysis Input File Processor \n", "Solver\n",
                              "ZANTRA/Explicit Packager\nSolver\n", ""}) {
        std::ofstream(folder.file("job.lck")) << phase;
        openYld("job", path.c_str(), true, true).close();
    }
    EXPECT_TRUE(std::filesystem::exists(folder.file("job.lck")));
}

TEST(yld_LockFile, bearsTheNameOfTheDatabaseWithItsOwnExtension)
{
    const Library library;
    const ScratchFolder folder;
    const yld_YldRepository& registry = yld_YldRepository::Instance();
    for (const auto& [database, lock] : {std::pair("a.yld", "a.lck"), std::pair("b", "b.lck"),
                                         std::pair("c.old.yld", "c.old.lck"), std::pair(".d", ".d.lck")}) {
        EXPECT_TRUE(registry.LockYld(folder.file(database).c_str()));
        EXPECT_TRUE(std::filesystem::exists(folder.file(lock))) << lock;
        EXPECT_EQ(std::filesystem::file_size(folder.file(lock)), 0u);
        EXPECT_TRUE(registry.RemoveLock(folder.file(database).c_str()));
        EXPECT_FALSE(std::filesystem::exists(folder.file(lock))) << lock;
    }
}

TEST(yld_LockFile, isForItsOwnerAlone)
{
    const Library library;
    const ScratchFolder folder;
    yld_YldRepository::Instance().LockYld(folder.file("job.yld").c_str());
    EXPECT_EQ(std::filesystem::status(folder.file("job.lck")).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST(yld_LockFile, lockingKeepsAFileThatIsThere)
{
    const Library library;
    const ScratchFolder folder;
    std::ofstream(folder.file("job.lck")) << "Solver\n";
    EXPECT_TRUE(yld_YldRepository::Instance().LockYld(folder.file("job.yld").c_str()));
    EXPECT_STREQ(yld_YldRepository::Instance().GetLockPhase(folder.file("job.yld").c_str()).cStr(), "Solver");
}

TEST(yld_LockFile, whatCannotBeMadeOrRemovedGivesFalse)
{
    const Library library;
    const ScratchFolder folder;
    const yld_YldRepository& registry = yld_YldRepository::Instance();
    EXPECT_FALSE(registry.LockYld(folder.file("no/such/folder/job.yld").c_str()));
    EXPECT_FALSE(registry.RemoveLock(folder.file("job.yld").c_str()));
    std::filesystem::create_directory(folder.file("job.lck"));
    EXPECT_FALSE(registry.LockYld(folder.file("job.yld").c_str()));
    EXPECT_STREQ(registry.GetLockPhase(folder.file("job.yld").c_str()).cStr(), "");
}

TEST(yld_LockFile, missingFileIsNoLockAndNoWarning)
{
    const Library library;
    const ScratchFolder folder;
    EXPECT_EQ(
        warningsOf([&] { EXPECT_FALSE(yld_YldRepository::Instance().IsYldLocked(folder.file("job.yld").c_str())); }),
        "");
}

TEST(yld_LockFile, aFileThatAWriterKeepsOpenCountsAsNone)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    makeDatabase(path);
    {
        std::ofstream writer(folder.file("job.lck"));
        writer << "Solver\n" << std::flush;
        EXPECT_EQ(warningsOf([&] { EXPECT_FALSE(yld_YldRepository::Instance().IsYldLocked(path.c_str())); }), "");
    }
    warningsOf([&] { EXPECT_TRUE(yld_YldRepository::Instance().IsYldLocked(path.c_str())) << "nobody holds it now"; });
}

TEST(yld_LockFile, testingAFileWhileOthersOpenItHarmsNobody)
{
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    std::ofstream(folder.file("job.lck")).close();
    constexpr int rounds = 3000;
    OtherProcess other([&](OtherProcess& test) {
        test.await();
        const yld_YldRepository& registry = yld_YldRepository::Instance();
        for (int i = 0; i < rounds; ++i) EXPECT_TRUE(registry.LockYld(path.c_str()));
        test.done();
    });
    const Library library;
    warningsOf([&] {
        std::thread tester([&] {
            for (int i = 0; i < rounds; ++i) yld_YldRepository::Instance().IsYldLocked(path.c_str());
        });
        EXPECT_TRUE(other.go());
        tester.join();
        EXPECT_TRUE(yld_YldRepository::Instance().IsYldLocked(path.c_str()));
    });
    EXPECT_EQ(other.finish(), 0);
}

TEST(yld_LockFile, aFileThatAReaderKeepsOpenStillCounts)
{
    const Library library;
    const ScratchFolder folder;
    std::ofstream(folder.file("job.lck")).close();
    const std::ifstream reader(folder.file("job.lck"));
    warningsOf([&] { EXPECT_TRUE(yld_YldRepository::Instance().IsYldLocked(folder.file("job.yld").c_str())); });
}

TEST(yld_LockFile, aFileThatIsLockedAsAWholeCountsAsNone)
{
    const Library library;
    const ScratchFolder folder;
    std::ofstream(folder.file("job.lck")).close();
    const int held = ::open(folder.file("job.lck").c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(::flock(held, LOCK_EX), 0);
    EXPECT_EQ(
        warningsOf([&] { EXPECT_FALSE(yld_YldRepository::Instance().IsYldLocked(folder.file("job.yld").c_str())); }),
        "");
    ::close(held);
}

TEST(yld_LockFile, theLockOfThisProcessCountsAsThatOfAnother)
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    makeDatabase(path);
    yld_Yld& writer = openYld("writer", path.c_str(), false, false);
    yld_Yld* second = nullptr;
    EXPECT_EQ(warningsOf([&] { second = &openYld("second", path.c_str(), false, false); }),
              "Warning: An output database lock file " + folder.file("job.lck") +
                  " has been detected. This may indicate that the output database is opened for writing by another "
                  "application.\n" +
                  path + " will be opened read-only. \n");
    EXPECT_TRUE(second->isReadOnly());
    writer.close();
    EXPECT_FALSE(std::filesystem::exists(folder.file("job.lck")));
}
