#include "call_results.h"
#include "other_process.h"
#include "platform/rmt/rmt_RemoteConnectionsRep.h"
#include "platform/store/fio_Database.h"
#include "test_files.h"
#include "yld.h"
#include "yld/impl/life/yld_YldRepository.h"

#include <fstream>
#include <sys/stat.h>

// What stands at the end of a path, and what a path may look like: each works or gives one clear error.

namespace {

class yld_Paths : public testing::Test
{
protected:
    // Creates, writes, closes and reads a database by a path.
    void expectWorks(const std::string& path)
    {
        yld_Yld& made = Yld(path.c_str(), "title", "", path.c_str());
        made.Step("step", "", yld_Enum::TIME, 1.0);
        made.save();
        made.close();
        yld_Yld& open = openYld(path.c_str(), false);
        EXPECT_FALSE(open.isReadOnly());
        EXPECT_EQ(open.steps().size(), 1);
        open.close();
    }

    // Fails to open by a path in both ways, with one reason, and leaves no lock.
    void expectRefused(const std::string& path, const std::string& reason)
    {
        for (const bool readOnly : {true, false}) {
            EXPECT_EQ(failureOf([&] { openYld(path.c_str(), readOnly); }),
                      "Cannot open file " + path + ". " + path + ": " + reason);
        }
        EXPECT_EQ(yld_YldRepository::Instance().size(), 0);
        const std::string folder = std::filesystem::path(path).parent_path();
        if (folder.size() < 4000 && std::filesystem::exists(folder)) {
            EXPECT_FALSE(std::filesystem::exists(std::filesystem::path(path).replace_extension(".lck")));
        }
    }

    std::string createFailure(const std::string& path)
    {
        return failureOf([&] { Yld("job", "", "", path.c_str()); });
    }

    // A folder so deep that the path of a file in it has so many bytes. Made step by step: no call takes it whole.
    std::string deepPath(std::size_t length, bool makeFolders)
    {
        const std::string name = "/job.yld";
        std::string path = m_folder.path();
        while (path.size() + name.size() < length) {
            const std::size_t rest = length - name.size() - path.size();
            // The last component takes what is left, but never a slash alone.
            const std::size_t step = rest > 202 ? 200 : rest;
            path += "/" + std::string(step - 1, 'd');
            if (makeFolders) std::filesystem::create_directory(path);
        }
        return path + name;
    }

    const Library m_library;
    const ScratchFolder m_folder;
};

} // namespace

TEST_F(yld_Paths, blanksAndLettersOfAllLanguagesWork)
{
    for (const char* name :
         {"a job.yld", " job .yld", "Prüfstand é.yld", "解析 結果.yld", "quote'\".yld", "100%s%n.yld", "a:b.yld",
          "-job.yld", "job", ".yld", "tab\tline\nend.yld", "file?mode=ro.yld", "#1.yld"}) {
        SCOPED_TRACE(name);
        expectWorks(m_folder.file(name));
    }
}

TEST_F(yld_Paths, bytesThatAreNoTextWork) { expectWorks(m_folder.file("job\xff\xfe.yld")); }

TEST_F(yld_Paths, relativePathsStartInTheCurrentFolder)
{
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(m_folder.path());
    Yld("job.yld").close();
    yld_Yld& open = openYld("./x/../job.yld", true);
    EXPECT_STREQ(open.path().cStr(), std::filesystem::weakly_canonical("job.yld").c_str());
    EXPECT_STREQ(open.name().cStr(), "./x/../job.yld");
    std::filesystem::current_path(before);
    EXPECT_EQ(open.steps().size(), 0) << "the path was taken when it was opened";
    open.close();
}

TEST_F(yld_Paths, fileUrlsArePaths)
{
    const std::string path = m_folder.file("job.yld");
    makeDatabase(path);
    yld_Yld& open = openYld(("file://" + path).c_str(), false);
    EXPECT_STREQ(open.path().cStr(), path.c_str());
    EXPECT_TRUE(std::filesystem::exists(m_folder.file("job.lck")));
    open.close();
}

TEST_F(yld_Paths, longestPathThatWorks) { expectWorks(deepPath(504, true)); }

TEST_F(yld_Paths, pathOf505BytesIsRefused)
{
    const std::string path = deepPath(505, true);
    ASSERT_EQ(path.size(), 505u);
    EXPECT_EQ(createFailure(path), "Cannot create file " + path + ". " + path + ": the path is longer than 504 bytes");
    EXPECT_FALSE(std::filesystem::exists(path));
    makeDatabase(m_folder.file("job.yld"));
    std::filesystem::copy_file(m_folder.file("job.yld"), path);
    expectRefused(path, "the path is longer than 504 bytes");
}

TEST_F(yld_Paths, pathOf4000BytesIsRefused)
{
    const std::string path = deepPath(4000, true);
    ASSERT_EQ(path.size(), 4000u);
    EXPECT_EQ(createFailure(path), "Cannot create file " + path + ". " + path + ": the path is longer than 504 bytes");
    EXPECT_FALSE(std::filesystem::exists(path));
    expectRefused(path, "No such file or directory");
    makeDatabase(m_folder.file("job.yld"));
    std::filesystem::copy_file(m_folder.file("job.yld"), path);
    expectRefused(path, "the path is longer than 504 bytes");
}

TEST_F(yld_Paths, aShortLinkToALongPathIsRefusedToo)
{
    const std::string path = deepPath(600, true);
    makeDatabase(m_folder.file("job.yld"));
    std::filesystem::copy_file(m_folder.file("job.yld"), path);
    std::filesystem::create_symlink(path, m_folder.file("link.yld"));
    expectRefused(m_folder.file("link.yld"), "the path is longer than 504 bytes");
    std::filesystem::create_directory_symlink(std::filesystem::path(path).parent_path(), m_folder.file("folder"));
    expectRefused(m_folder.file("folder/job.yld"), "the path is longer than 504 bytes");
    const std::string inFolder = m_folder.file("folder/new.yld");
    EXPECT_EQ(createFailure(inFolder),
              "Cannot create file " + inFolder + ". " + inFolder + ": the path is longer than 504 bytes");
}

TEST_F(yld_Paths, pathThatTheSystemCannotTakeIsRefused)
{
    const std::string path = deepPath(5000, false);
    expectRefused(path, "File name too long");
    EXPECT_EQ(createFailure(path), "Cannot create file " + path + ". " + path + ": File name too long");
    const std::string name = m_folder.file(std::string(300, 'n') + ".yld");
    EXPECT_EQ(createFailure(name), "Cannot create file " + name + ". " + name + ": File name too long");
}

TEST_F(yld_Paths, symbolicLinkWorksUnderItsOwnNameAndLocksBesideItself)
{
    const std::string path = m_folder.file("job.yld");
    const std::string link = m_folder.file("link.yld");
    makeDatabase(path);
    std::filesystem::create_symlink(path, link);
    yld_Yld& open = openYld(link.c_str(), false);
    EXPECT_STREQ(open.path().cStr(), link.c_str());
    EXPECT_TRUE(std::filesystem::exists(m_folder.file("link.lck")));
    EXPECT_FALSE(std::filesystem::exists(m_folder.file("job.lck")));
    open.Step("step", "", yld_Enum::TIME, 1.0);
    open.save();
    open.close();
    EXPECT_TRUE(std::filesystem::is_symlink(link)) << "a save writes through it";
    yld_Yld& target = openYld(path.c_str(), true);
    EXPECT_EQ(target.steps().size(), 1);
    target.close();
}

TEST_F(yld_Paths, danglingLinkIsNoFile)
{
    const std::string link = m_folder.file("link.yld");
    std::filesystem::create_symlink(m_folder.file("nowhere.yld"), link);
    expectRefused(link, "No such file or directory");
    EXPECT_EQ(createFailure(link), "Cannot create file " + link + ". " + link + ": No such file or directory");
    EXPECT_TRUE(std::filesystem::is_symlink(link));
}

TEST_F(yld_Paths, linksInACircleAreRefused)
{
    const std::string link = m_folder.file("a.yld");
    std::filesystem::create_symlink(m_folder.file("b.yld"), link);
    std::filesystem::create_symlink(link, m_folder.file("b.yld"));
    expectRefused(link, "Too many levels of symbolic links");
    EXPECT_EQ(createFailure(link), "Cannot create file " + link + ". " + link + ": Too many levels of symbolic links");
}

TEST_F(yld_Paths, folderIsRefused)
{
    const std::string folder = m_folder.file("folder.yld");
    std::filesystem::create_directory(folder);
    expectRefused(folder, "is a directory");
    EXPECT_EQ(createFailure(folder), "Cannot create file " + folder + ". " + folder + ": is not a regular file");
    EXPECT_TRUE(std::filesystem::is_directory(folder));
}

TEST_F(yld_Paths, devicesAndPipesAreRefusedWithoutWaiting)
{
    expectRefused("/dev/null", "is not a regular file");
    expectRefused("/dev/zero", "is not a regular file");
    EXPECT_EQ(createFailure("/dev/null"), "Cannot create file /dev/null. /dev/null: is not a regular file");
    const std::string pipe = m_folder.file("pipe.yld");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    expectRefused(pipe, "is not a regular file");
    EXPECT_EQ(createFailure(pipe), "Cannot create file " + pipe + ". " + pipe + ": is not a regular file");
    EXPECT_TRUE(std::filesystem::is_fifo(pipe));
}

TEST_F(yld_Paths, aPipeForALockFileDoesNotMakeAnybodyWait)
{
    const std::string path = m_folder.file("job.yld");
    makeDatabase(path);
    ASSERT_EQ(mkfifo(m_folder.file("job.lck").c_str(), 0600), 0);
    yld_Yld* open = nullptr;
    const std::string warnings = warningsOf([&] { open = &openYld(path.c_str(), false); });
    EXPECT_TRUE(open->isReadOnly());
    EXPECT_TRUE(warnings.starts_with("Warning: An output database lock file ")) << warnings;
    open->close();
}

TEST_F(yld_Paths, filesOfOtherKindsAreRefused)
{
    const std::string path = m_folder.file("job.yld");
    std::ofstream(path).close();
    expectRefused(path, "the file is empty");
    std::ofstream(path) << std::string(10000, 'x');
    expectRefused(path, "is not a results database of this library");
}

TEST_F(yld_Paths, aFileInAFolderThatIsAFileIsRefused)
{
    std::ofstream(m_folder.file("file")).close();
    expectRefused(m_folder.file("file/job.yld"), "Not a directory");
    const std::string path = m_folder.file("file/job.yld");
    EXPECT_EQ(createFailure(path), "Cannot create file " + path + ". " + path + ": Not a directory");
}

TEST_F(yld_Paths, theFolderItselfMayBeGone)
{
    const auto before = std::filesystem::current_path();
    const std::string gone = m_folder.file("gone");
    std::filesystem::create_directory(gone);
    std::filesystem::current_path(gone);
    std::filesystem::remove(gone);
    EXPECT_EQ(failureOf([] { openYld("job.yld", true); }),
              "Cannot open file job.yld. Cannot determine the current directory.");
    EXPECT_EQ(failureOf([] { Yld("job.yld"); }), "Cannot create file job.yld. Cannot determine the current directory.");
    std::filesystem::current_path(before);
}

TEST_F(yld_Paths, anEmptyNameAndPathAreRefused)
{
    EXPECT_EQ(failureOf([] { openYld("", true); }), "Cannot open file . : No such file or directory");
    EXPECT_EQ(failureOf([] { Yld(""); }), "Cannot create file . : No such file or directory");
}

namespace {

class Connection
{
public:
    Connection(const char* name, const char* host, int port) : m_name(name)
    {
        rmt_RemoteConnection connection;
        connection.host = host;
        connection.port = port;
        rmt_RemoteConnectionsRep::Instance().Put(name, connection);
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection() { rmt_RemoteConnectionsRep::Instance().Remove(m_name.c_str()); }

private:
    std::string m_name;
};

} // namespace

TEST_F(yld_Paths, urlsAreRefusedInOneWay)
{
    for (const std::string url : {"http://host/job.yld", "yld://host:5501/scratch/job.yld", "file://host/job.yld"}) {
        for (const bool readOnly : {true, false}) {
            EXPECT_EQ(failureOf([&] { openYld(url.c_str(), readOnly); }),
                      "Cannot open file " + url + ". " + url + ": is a URL; only files of this machine can be opened");
        }
        EXPECT_EQ(createFailure(url),
                  "Cannot create file " + url + ". " + url + ": is a URL; only files of this machine can be opened");
    }
}

TEST_F(yld_Paths, aPathThroughAConnectionIsTheUrlOfItsHost)
{
    const Connection cluster("cluster", "node7", 5501);
    const std::string url = "yld://node7:5501/scratch/job.yld";
    EXPECT_EQ(failureOf([&] { openYld("cluster:/scratch/job.yld", true); }),
              "Cannot open file " + url + ". " + url + ": is a URL; only files of this machine can be opened");
    EXPECT_EQ(failureOf([&] { openYld("job", "cluster:/scratch/job.yld", false, false); }),
              "Cannot open file " + url + ". " + url + ": is a URL; only files of this machine can be opened");
}

TEST_F(yld_Paths, aConnectionThatIsNotInTheTableIsPartOfAFilesName)
{
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(m_folder.path());
    const std::string path = std::filesystem::current_path() / "cluster:job.yld";
    EXPECT_EQ(failureOf([&] { openYld("cluster:job.yld", true); }),
              "Cannot open file " + path + ". " + path + ": No such file or directory");
    std::filesystem::current_path(before);
}

TEST_F(yld_Paths, aConnectionWithoutAFileIsRefused)
{
    const Connection cluster("cluster", "node7", 5501);
    EXPECT_EQ(failureOf([&] { openYld("cluster:", true); }), "Cannot open file cluster:. \"cluster:\" names no file.");
}

TEST_F(yld_Paths, aConnectionToThisMachineOpensItsFiles)
{
    const Connection here("here", "", 0);
    const std::string path = m_folder.file("job.yld");
    makeDatabase(path);
    yld_Yld& open = openYld(("here:" + path).c_str(), false);
    EXPECT_STREQ(open.path().cStr(), path.c_str());
    EXPECT_FALSE(open.isReadOnly());
    open.close();
}

TEST_F(yld_Paths, errorsAboutVersionsNameARemoteFileAsTheUserDid)
{
    const Connection here("here", "", 0);
    const std::string path = m_folder.file("job.yld");
    const std::string given = "here:" + path;
    makeDatabase(path);
    const auto setVersion = [&](int version) {
        fio_Database(path, fio_Database::Access::WRITE).setDatabaseVersion(version);
    };
    setVersion(892);
    try {
        openYld(given.c_str(), true);
        FAIL() << "a newer database was opened";
    } catch (const yld_Exception& failure) {
        EXPECT_EQ(failure.errorNo(), yld_DATABASE_TOO_NEW);
        EXPECT_EQ(std::string(failure.what()),
                  given + " is from a more recent version of ZANTRA.\n\n The current ZANTRA installation must be "
                          "upgraded before this output database can be opened.");
    }
    setVersion(700);
    try {
        openYld(given.c_str(), false);
        FAIL() << "an older database was opened";
    } catch (const yld_Exception& failure) {
        EXPECT_EQ(failure.errorNo(), yld_UPGRADE_NEEDED);
        EXPECT_EQ(failure.fileName().cStr(), given);
        EXPECT_EQ(failure.versionNumber(), 700);
        EXPECT_FALSE(failure.readOnly());
    }
}

TEST_F(yld_Paths, theConnectorIsNamedWhereItCannotWrite)
{
    const std::string path = m_folder.file("job.yld");
    makeDatabase(path);
    std::filesystem::permissions(path, static_cast<std::filesystem::perms>(0444));
    std::filesystem::permissions(m_folder.path(), static_cast<std::filesystem::perms>(0777));
    const int status = inOtherProcess([&] {
        becomeNobody(path);
        const Connection here("here", "", 0);
        yld_Yld* open = nullptr;
        EXPECT_EQ(warningsOf([&] { open = &openYld(("here:" + path).c_str(), false); }),
                  "Warning: Output database " + path +
                      " cannot be opened with write access because write access is not supported by the Network YLD "
                      "Connector.\nThe YLD will be opened read-only.\n");
        EXPECT_TRUE(open->isReadOnly());
    });
    if (status == notPossible) GTEST_SKIP() << "the folder is out of the reach of other users";
    EXPECT_EQ(status, 0);
    EXPECT_FALSE(std::filesystem::exists(m_folder.file("job.lck")));
}
