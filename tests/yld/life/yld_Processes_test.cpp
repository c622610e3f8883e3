#include "call_results.h"
#include "other_process.h"
#include "platform/sto/sto_Sto.h"
#include "test_files.h"
#include "yld.h"

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>

// Several processes on one database: writers that meet, writers that die, readers that follow, media that refuse.

namespace {

std::string lockWarning(const std::string& path, const std::string& lock)
{
    return "Warning: An output database lock file " + lock +
           " has been detected. This may indicate that the output database is opened for writing by another "
           "application.\n" +
           path + " will be opened read-only. \n";
}

std::string refusedWarning(const std::string& path)
{
    return "Warning: Output database " + path +
           " cannot be opened with write access due to file permission settings or a database version "
           "incompatibility.\nThe YLD will be opened read-only.\n";
}

class yld_Processes : public testing::Test
{
protected:
    yld_Processes()
    {
        const Library library;
        yld_Yld& made = Yld(m_path.c_str(), "title", "description", m_path.c_str());
        made.Step("first", "", yld_Enum::TIME, 1.0).Frame(1, 0.5);
        made.save();
        made.close();
    }

    bool hasLock() const { return std::filesystem::exists(m_lock); }

    const ScratchFolder m_folder;
    const std::string m_path = m_folder.file("job.yld");
    const std::string m_lock = m_folder.file("job.lck");
};

} // namespace

TEST_F(yld_Processes, aSecondWriterGetsAWarningAndAReadOnlyDatabase)
{
    OtherProcess writer([&](OtherProcess& test) {
        const Library library;
        test.await();
        yld_Yld& open = openYld(m_path.c_str(), false);
        EXPECT_FALSE(open.isReadOnly());
        test.done();
        test.await();
        open.Step("second", "", yld_Enum::TIME, 1.0);
        saveYld(open);
        open.close();
        test.done();
    });
    const Library library;
    ASSERT_TRUE(writer.go());
    yld_Yld* second = nullptr;
    EXPECT_EQ(warningsOf([&] { second = &openYld(m_path.c_str(), false); }), lockWarning(m_path, m_lock));
    EXPECT_TRUE(second->isReadOnly());
    EXPECT_EQ(second->steps().size(), 1);
    EXPECT_EQ(warningsOf([&] { saveYld(*second); }), "Warning: Database was opened read-only and cannot be saved.\n");
    second->close();
    EXPECT_TRUE(hasLock()) << "it is the writer's";
    ASSERT_TRUE(writer.go());
    EXPECT_EQ(writer.finish(), 0);
    EXPECT_FALSE(hasLock());
    yld_Yld& third = openYld(m_path.c_str(), false);
    EXPECT_FALSE(third.isReadOnly());
    EXPECT_EQ(third.steps().size(), 2);
    third.close();
}

TEST_F(yld_Processes, aReaderBesideAWriterIsNotWarned)
{
    OtherProcess writer([&](OtherProcess& test) {
        const Library library;
        test.await();
        yld_Yld& open = openYld(m_path.c_str(), false);
        test.done();
        test.await();
        open.close();
        test.done();
    });
    const Library library;
    ASSERT_TRUE(writer.go());
    yld_Yld* reader = nullptr;
    EXPECT_EQ(warningsOf([&] { reader = &openYld(m_path.c_str(), true); }), "");
    EXPECT_EQ(reader->steps().size(), 1);
    reader->close();
    EXPECT_TRUE(hasLock());
    ASSERT_TRUE(writer.go());
    EXPECT_EQ(writer.finish(), 0);
}

TEST_F(yld_Processes, aKilledWriterLeavesItsLockAndWhatItSaved)
{
    OtherProcess writer([&](OtherProcess& test) {
        const Library library;
        test.await();
        yld_Yld& open = openYld(m_path.c_str(), false);
        open.Step("saved", "", yld_Enum::TIME, 1.0);
        open.save();
        open.Step("lost", "", yld_Enum::TIME, 1.0);
        test.done();
        test.await();
    });
    ASSERT_TRUE(writer.go());
    EXPECT_EQ(writer.kill(), -SIGKILL);
    ASSERT_TRUE(hasLock());
    EXPECT_EQ(std::filesystem::file_size(m_lock), 0u);

    const Library library;
    yld_Yld* open = nullptr;
    EXPECT_EQ(warningsOf([&] { open = &openYld(m_path.c_str(), false); }), lockWarning(m_path, m_lock));
    EXPECT_TRUE(open->isReadOnly());
    EXPECT_EQ(open->steps().size(), 2);
    EXPECT_TRUE(open->steps().isMember("saved"));
    open->close();
    EXPECT_TRUE(hasLock()) << "until someone removes it";

    std::filesystem::remove(m_lock);
    EXPECT_EQ(warningsOf([&] { open = &openYld(m_path.c_str(), false); }), "");
    EXPECT_FALSE(open->isReadOnly());
    open->Step("again", "", yld_Enum::TIME, 1.0);
    open->save();
    EXPECT_EQ(open->steps().size(), 3);
    open->close();
    EXPECT_FALSE(hasLock());
}

TEST_F(yld_Processes, aWriterThatLeavesWithoutClosingTakesItsLockAlong)
{
    OtherProcess writer([&](OtherProcess& test) {
        yld_initializeAPI();
        test.await();
        openYld(m_path.c_str(), false);
        test.done();
        test.await();
        // The end of the program stops the library, and that removes every name.
        std::exit(0);
    });
    ASSERT_TRUE(writer.go());
    EXPECT_TRUE(hasLock());
    EXPECT_FALSE(writer.go());
    EXPECT_EQ(writer.finish(), 0);
    EXPECT_FALSE(hasLock());
}

TEST_F(yld_Processes, aReaderFollowsARunningWriter)
{
    OtherProcess writer([&](OtherProcess& test) {
        const Library library;
        test.await();
        yld_Yld& open = openYld(m_path.c_str(), false);
        open.steps().get("first").Frame(2, 1.0);
        test.done(); // a frame that is not saved
        test.await();
        saveYld(open);
        test.done();
        test.await();
        open.Step("second", "the second", yld_Enum::TIME, 2.0).Frame(1, 0.25);
        saveYld(open);
        test.done();
        test.await();
        open.steps().get("first").Frame(3, 1.5);
        saveYld(open);
        open.close();
        test.done();
    });
    const Library library;
    yld_Yld& reader = openYld(m_path.c_str(), true);
    EXPECT_FALSE(reader.update()) << "nothing is read yet";
    EXPECT_EQ(reader.steps().get("first").frames().size(), 1);

    ASSERT_TRUE(writer.go());
    EXPECT_FALSE(reader.update());
    EXPECT_EQ(reader.steps().get("first").frames().size(), 1);

    ASSERT_TRUE(writer.go());
    EXPECT_TRUE(reader.update());
    EXPECT_EQ(reader.steps().get("first").frames().size(), 2);
    EXPECT_EQ(reader.steps().get("first").frames(1).frameValue(), 1.0);
    EXPECT_FALSE(reader.update());

    ASSERT_TRUE(writer.go());
    EXPECT_TRUE(reader.update());
    ASSERT_EQ(reader.steps().size(), 2);
    EXPECT_STREQ(reader.steps().get("second").description().cStr(), "the second");
    EXPECT_STREQ(reader.steps().get("second").previousStepName().cStr(), "first");
    EXPECT_EQ(reader.steps().get("second").frames(0).frameValue(), 0.25);

    ASSERT_TRUE(writer.go());
    EXPECT_FALSE(reader.update()) << "the last step has nothing new, and it answers for all";
    EXPECT_EQ(reader.steps().get("first").frames().size(), 3);
    reader.close();
    EXPECT_EQ(writer.finish(), 0);
}

TEST_F(yld_Processes, aReaderKeepsUpWithAWriterThatNeverPauses)
{
    constexpr int frames = 60;
    OtherProcess writer([&](OtherProcess& test) {
        const Library library;
        test.await();
        yld_Yld& open = openYld(m_path.c_str(), false);
        test.done();
        yld_Step& step = open.Step("second", "", yld_Enum::TIME, 1.0);
        for (int i = 1; i <= frames; ++i) {
            step.Frame(i, i / 64.0);
            open.save();
        }
        open.close();
    });
    const Library library;
    yld_Yld& reader = openYld(m_path.c_str(), true);
    EXPECT_EQ(reader.steps().size(), 1);
    ASSERT_TRUE(writer.go());
    int seen = 0;
    while (seen < frames) {
        reader.update();
        if (!reader.steps().isMember("second")) continue;
        yld_Step& step = reader.steps().get("second");
        const int count = step.frames().size();
        ASSERT_GE(count, seen) << "what was there stays";
        for (int i = seen; i < count; ++i) ASSERT_EQ(step.frames(i).frameValue(), (i + 1) / 64.0);
        seen = count;
        if (seen == 0) usleep(500);
    }
    reader.close();
    EXPECT_EQ(writer.finish(), 0);
}

TEST_F(yld_Processes, twoWritersWithoutALockAreToldApartAtTheSave)
{
    // A new database has no lock file, so its maker and a second writer do not see each other.
    const std::string path = m_folder.file("new.yld");
    OtherProcess maker([&](OtherProcess& test) {
        const Library library;
        test.await();
        yld_Yld& made = Yld("new", "", "", path.c_str());
        test.done();
        test.await();
        made.Step("of the maker", "", yld_Enum::TIME, 1.0);
        EXPECT_EQ(failureOf([&] { made.save(); }),
                  "Database save failed. " + path +
                      ": another program has saved the database since it was opened here; nothing was saved here");
        test.done();
    });
    const Library library;
    ASSERT_TRUE(maker.go());
    yld_Yld* second = nullptr;
    EXPECT_EQ(warningsOf([&] { second = &openYld(path.c_str(), false); }), "");
    EXPECT_FALSE(second->isReadOnly());
    second->Step("of the second", "", yld_Enum::TIME, 1.0);
    second->save();
    ASSERT_TRUE(maker.go());
    EXPECT_EQ(maker.finish(), 0);
    second->close();
    yld_Yld& again = openYld(path.c_str(), true);
    EXPECT_EQ(again.steps().size(), 1);
    EXPECT_TRUE(again.steps().isMember("of the second"));
    again.close();
}

namespace {

// Makes a folder or a file read-only for the calling process alone, which gets a mount table of its own.
bool mountReadOnly(const std::string& path)
{
    return unshare(CLONE_NEWNS) == 0 && mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           mount(path.c_str(), path.c_str(), nullptr, MS_BIND, nullptr) == 0 &&
           mount(nullptr, path.c_str(), nullptr, MS_BIND | MS_REMOUNT | MS_RDONLY, nullptr) == 0;
}

// Runs a function in a process for which a path is read-only; false where no mount is allowed.
template<class Function> bool onReadOnlyMedium(const std::string& path, Function&& function)
{
    const int status = inOtherProcess([&] {
        if (!mountReadOnly(path)) _exit(notPossible);
        const int refused = ::open((path + (std::filesystem::is_directory(path) ? "/probe" : "")).c_str(),
                                   O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        ASSERT_LT(refused, 0) << "the medium can be written";
        ASSERT_EQ(errno, EROFS);
        const Library library;
        function();
    });
    if (status == notPossible) return false;
    EXPECT_EQ(status, 0);
    return true;
}

void expectFallBack(const std::string& path)
{
    yld_Yld* open = nullptr;
    EXPECT_EQ(warningsOf([&] { open = &openYld(path.c_str(), false); }), refusedWarning(path));
    EXPECT_TRUE(open->isReadOnly());
    EXPECT_EQ(open->steps().size(), 1);
    EXPECT_EQ(warningsOf([&] { saveYld(*open); }), "Warning: Database was opened read-only and cannot be saved.\n");
    open->close();
}

} // namespace

TEST_F(yld_Processes, aReadOnlyFolderFallsBackWithAWarningAndLeavesNoLock)
{
    if (!onReadOnlyMedium(m_folder.path(), [&] { expectFallBack(m_path); })) GTEST_SKIP() << "mounting is not allowed";
    EXPECT_FALSE(hasLock());
}

TEST_F(yld_Processes, aReadOnlyFileInAFolderThatCanBeWrittenLosesTheLockThatWasJustMade)
{
    const bool could = onReadOnlyMedium(m_path, [&] {
        expectFallBack(m_path);
        EXPECT_FALSE(hasLock());
    });
    if (!could) GTEST_SKIP() << "mounting is not allowed";
    EXPECT_FALSE(hasLock());
}

TEST_F(yld_Processes, permissionsFallBackAsMediaDo)
{
    const auto bits = [](unsigned mode) { return static_cast<std::filesystem::perms>(mode); };
    std::filesystem::permissions(m_path, bits(0444));
    // With the folder open to all, the lock is made and removed again; closed, it is never made.
    for (const unsigned folder : {0777U, 0555U}) {
        std::filesystem::permissions(m_folder.path(), bits(folder));
        const int status = inOtherProcess([&] {
            becomeNobody(m_path);
            const Library library;
            expectFallBack(m_path);
            EXPECT_FALSE(hasLock());
        });
        if (status == notPossible) GTEST_SKIP() << "the folder is out of the reach of other users";
        EXPECT_EQ(status, 0);
    }
    std::filesystem::permissions(m_folder.path(), bits(0700));
    EXPECT_FALSE(hasLock());
}

TEST_F(yld_Processes, aDatabaseAtRestOpensOnAReadOnlyMedium)
{
    const bool could = onReadOnlyMedium(m_folder.path(), [&] {
        yld_Yld* open = nullptr;
        EXPECT_EQ(warningsOf([&] { open = &openYld(m_path.c_str(), true); }), "");
        EXPECT_EQ(open->steps().get("first").frames(0).frameValue(), 0.5);
        EXPECT_FALSE(open->update());
        open->close();
    });
    if (!could) GTEST_SKIP() << "mounting is not allowed";
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(m_folder.path()), {}), 1) << "one plain file";
}

TEST_F(yld_Processes, whatAKilledWriterLeftOpensOnAReadOnlyMedium)
{
    OtherProcess writer([&](OtherProcess& test) {
        const Library library;
        test.await();
        yld_Yld& open = openYld(m_path.c_str(), false);
        open.Step("saved", "", yld_Enum::TIME, 1.0);
        open.save();
        test.done();
        test.await();
    });
    ASSERT_TRUE(writer.go());
    EXPECT_EQ(writer.kill(), -SIGKILL);
    const bool could = onReadOnlyMedium(m_folder.path(), [&] {
        yld_Yld* open = nullptr;
        EXPECT_EQ(warningsOf([&] { open = &openYld(m_path.c_str(), true); }), "");
        EXPECT_TRUE(open->steps().isMember("saved"));
        open->close();
        // The lock is seen before the medium.
        EXPECT_EQ(warningsOf([&] { open = &openYld(m_path.c_str(), false); }), lockWarning(m_path, m_lock));
        open->close();
    });
    if (!could) GTEST_SKIP() << "mounting is not allowed";
    EXPECT_TRUE(hasLock());
}

TEST_F(yld_Processes, aDatabaseAtRestCanBeCopiedAndMoved)
{
    const std::string copy = m_folder.file("copy.yld");
    const std::string moved = m_folder.file("moved.yld");
    std::filesystem::copy_file(m_path, copy);
    std::filesystem::rename(m_path, moved);
    const Library library;
    for (const std::string& path : {copy, moved}) {
        yld_Yld& open = openYld(path.c_str(), false);
        EXPECT_FALSE(open.isReadOnly());
        EXPECT_STREQ(open.path().cStr(), path.c_str());
        EXPECT_STREQ(open.analysisTitle().cStr(), "title");
        EXPECT_EQ(open.steps().get("first").frames(0).frameValue(), 0.5);
        open.Step("second", "", yld_Enum::TIME, 1.0);
        open.save();
        open.close();
    }
    EXPECT_FALSE(std::filesystem::exists(m_path));
    EXPECT_EQ(failureOf([&] { openYld(m_path.c_str(), true); }),
              "Cannot open file " + m_path + ". " + m_path + ": No such file or directory");
}

TEST_F(yld_Processes, aDatabaseCanBeMovedWhileAReaderHasIt)
{
    const Library library;
    yld_Yld& open = openYld(m_path.c_str(), true);
    std::filesystem::rename(m_path, m_folder.file("moved.yld"));
    EXPECT_EQ(open.steps().get("first").frames(0).frameValue(), 0.5);
    open.close();
}
