#include "platform/os/osu_FilePath.h"

#include "platform/text/exc_Exception.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace {

namespace fs = std::filesystem;

shr_String absolute(const msg_StringBase& path) { return osu_FilePath(path, "").Portable().AbsolutePathName(); }

// A fresh directory that is the current one as long as the object lives.
class Inside
{
public:
    explicit Inside(const char* name) : m_before(fs::current_path())
    {
        m_directory = fs::canonical(fs::temp_directory_path()) / name;
        fs::remove_all(m_directory);
        fs::create_directories(m_directory);
        fs::current_path(m_directory);
    }
    ~Inside()
    {
        fs::current_path(m_before);
        fs::remove_all(m_directory);
    }
    std::string path(const char* below = "") const { return (m_directory / below).string(); }

private:
    fs::path m_before;
    fs::path m_directory;
};

} // namespace

TEST(osu_FilePath, absolute_paths_lose_dots_and_doubled_slashes)
{
    EXPECT_EQ(absolute("/a/b.yld"), "/a/b.yld");
    EXPECT_EQ(absolute("/a/./b"), "/a/b");
    EXPECT_EQ(absolute("/a/x/../b"), "/a/b");
    EXPECT_EQ(absolute("/a//b///c"), "/a/b/c");
    EXPECT_EQ(absolute("//a"), "/a");
    EXPECT_EQ(absolute("/a/b/"), "/a/b");
    EXPECT_EQ(absolute("/a/b/."), "/a/b");
    EXPECT_EQ(absolute("/a/b/.."), "/a");
    EXPECT_EQ(absolute("/"), "/");
    EXPECT_EQ(absolute("/.."), "/");
    EXPECT_EQ(absolute("/../../a"), "/a");
    EXPECT_EQ(absolute("/a/..."), "/a/...");
    EXPECT_EQ(absolute("/a/..b/.c"), "/a/..b/.c");
}

TEST(osu_FilePath, case_and_odd_characters_stay) { EXPECT_EQ(absolute("/A/b C/\xc3\xa4\\d"), "/A/b C/\xc3\xa4\\d"); }

TEST(osu_FilePath, relative_paths_begin_at_the_current_directory)
{
    const Inside here("osu_FilePath_relative");
    EXPECT_EQ(absolute("job.yld"), here.path("job.yld").c_str());
    EXPECT_EQ(absolute("./sub/../job.yld"), here.path("job.yld").c_str());
    EXPECT_EQ(absolute(".").cStr() + std::string("/"), here.path());
    EXPECT_EQ(absolute("../x"), fs::path(here.path()).parent_path().parent_path().append("x").c_str());
}

TEST(osu_FilePath, relative_paths_begin_at_the_directory_if_one_is_given)
{
    EXPECT_EQ(osu_FilePath("job.yld", "/data/run").AbsolutePathName(), "/data/run/job.yld");
    EXPECT_EQ(osu_FilePath("job.yld", "/data/run").PathName(), "/data/run/job.yld");
    EXPECT_EQ(osu_FilePath("/job.yld", "/data/run").AbsolutePathName(), "/job.yld");
    EXPECT_EQ(osu_FilePath("", "/data").AbsolutePathName(), "");
}

TEST(osu_FilePath, an_empty_path_stays_empty)
{
    EXPECT_EQ(absolute(""), "");
    EXPECT_FALSE(osu_FilePath("", "").Exists());
}

TEST(osu_FilePath, symbolic_links_stay)
{
    const Inside here("osu_FilePath_links");
    fs::create_directory("real");
    fs::create_symlink("real", "link");
    EXPECT_EQ(absolute("link/job.yld"), here.path("link/job.yld").c_str());
    EXPECT_EQ(absolute("link/../job.yld"), here.path("job.yld").c_str());
}

TEST(osu_FilePath, long_paths_come_through_whole)
{
    std::string path;
    for (int i = 0; i < 3000; ++i) {
        path += "/component" + std::to_string(i);
    }
    EXPECT_EQ(absolute(path.c_str()), path.c_str());
    EXPECT_EQ(absolute((path + "/x/..").c_str()), path.c_str());
}

TEST(osu_FilePath, a_current_directory_deeper_than_any_buffer)
{
    const Inside here("osu_FilePath_deep");
    std::string expected = here.path();
    expected.pop_back();
    const std::string name(200, 'd');
    for (int i = 0; i < 30; ++i) {
        fs::create_directory(name);
        fs::current_path(name);
        expected += "/" + name;
    }
    EXPECT_GT(expected.size(), 5000u);
    EXPECT_EQ(absolute("job.yld"), (expected + "/job.yld").c_str());
}

TEST(osu_FilePath, a_current_directory_that_is_gone_is_told)
{
    const Inside here("osu_FilePath_gone");
    fs::create_directory("sub");
    fs::current_path("sub");
    fs::remove(here.path("sub"));
    try {
        absolute("job.yld");
        FAIL() << "nothing thrown";
    } catch (const exc_TextException& caught) {
        EXPECT_EQ(caught.AsString(), "Cannot determine the current directory.");
    }
}

TEST(osu_FilePath, urls_stay_as_they_are)
{
    EXPECT_EQ(absolute("http://host:80/a/../b.yld"), "http://host:80/a/../b.yld");
    EXPECT_EQ(absolute("file:///a/../b.yld"), "/b.yld") << "but a file URL is a path";
}

TEST(osu_FilePath, knows_files_and_directories)
{
    const Inside here("osu_FilePath_exists");
    std::ofstream("file.yld") << "x";
    EXPECT_TRUE(osu_FilePath("file.yld", "").Exists());
    EXPECT_FALSE(osu_FilePath("none.yld", "").Exists());
    EXPECT_TRUE(osu_FilePath("file.yld", here.path().c_str()).Exists());
}

TEST(osu_FilePathParser, takes_a_path_apart)
{
    const struct
    {
        const char* path;
        const char* directory;
        const char* base;
        const char* extension;
    } cases[] = {
        {"/a/b/job.yld", "/a/b", "job", ".yld"},
        {"job.yld", "", "job", ".yld"},
        {"/job", "/", "job", ""},
        {"a/", "a", "", ""},
        {"a.b/job", "a.b", "job", ""},
        {"a/job.tar.gz", "a", "job.tar", ".gz"},
        {"a/.hidden", "a", ".hidden", ""},
        {"a/job.", "a", "job", "."},
        {"..", "", "..", ""},
        {"", "", "", ""},
    };
    for (const auto& one : cases) {
        const osu_FilePathParser parser(one.path);
        EXPECT_EQ(parser.DirName(), one.directory) << one.path;
        EXPECT_EQ(parser.HasDirName(), one.directory[0] != '\0') << one.path;
        EXPECT_EQ(parser.BaseName(), one.base) << one.path;
        EXPECT_EQ(parser.Extension(), one.extension) << one.path;
        const osu_FilePath path(one.path, "");
        EXPECT_EQ(path.DirName(), one.directory);
        EXPECT_EQ(path.BaseName(), one.base);
        EXPECT_EQ(path.Extension(), one.extension);
    }
}
