#include "netcdf_size.h"

#include "failure.h"

#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

namespace {

// A file of one dimension of four and one variable of doubles over it, by hand.
std::string smallFile()
{
    const auto word = [](unsigned number) {
        return std::string{static_cast<char>(number >> 24), static_cast<char>(number >> 16),
                           static_cast<char>(number >> 8), static_cast<char>(number)};
    };
    std::string data = std::string("CDF\x01", 4) + word(0);
    data += word(0x0a) + word(1) + word(1) + std::string("n\0\0\0", 4) + word(4);
    data += word(0) + word(0);
    data += word(0x0b) + word(1) + word(1) + std::string("v\0\0\0", 4) + word(1) + word(0) + word(0) + word(0) +
            word(6) + word(32) + word(80);
    EXPECT_EQ(80u, data.size());
    return data + std::string(32, '\1');
}

class netcdf_size : public testing::Test
{
protected:
    void SetUp() override
    {
        char name[] = "/tmp/netcdf_size_XXXXXX";
        const int file = mkstemp(name);
        ASSERT_GE(file, 0);
        close(file);
        m_path = name;
    }
    void TearDown() override { std::remove(m_path.c_str()); }

    std::string verdict(const std::string& content)
    {
        std::ofstream(m_path, std::ios::binary) << content;
        try {
            tool_requireWholeNetcdf(m_path);
            return "whole";
        } catch (const tool_Failure& failure) {
            const std::string text = failure.what();
            const std::size_t at = text.find(": " + m_path);
            EXPECT_NE(std::string::npos, at);
            return text.substr(0, at);
        }
    }

    std::string m_path;
};

} // namespace

TEST_F(netcdf_size, wholeFile)
{
    EXPECT_EQ("whole", verdict(smallFile()));
    EXPECT_EQ("whole", verdict(smallFile() + "more"));
}

TEST_F(netcdf_size, everyShorterFileIsTold)
{
    const std::string whole = smallFile();
    EXPECT_EQ("file is empty", verdict(""));
    for (std::size_t size = 4; size < whole.size(); ++size)
        ASSERT_EQ("file is truncated", verdict(whole.substr(0, size))) << size;
}

TEST_F(netcdf_size, foreignFile)
{
    EXPECT_EQ("not an Exodus II file", verdict("CD"));
    EXPECT_EQ("not an Exodus II file", verdict("CDF\x03 and so on"));
    EXPECT_EQ("not an Exodus II file", verdict("Dear friend, how are you?"));
}

TEST_F(netcdf_size, hdf5IsLeftToItsLibrary) { EXPECT_EQ("whole", verdict("\211HDF\r\n\032\n")); }

TEST_F(netcdf_size, hugeCountsTakeNoMemory)
{
    const std::string whole = smallFile();
    for (const std::size_t at : {std::size_t(12), std::size_t(16), std::size_t(24), std::size_t(40), std::size_t(52)}) {
        std::string lie = whole;
        lie.replace(at, 4, "\x7f\xff\xff\xff");
        EXPECT_NE("whole", verdict(lie)) << at;
    }
}

TEST_F(netcdf_size, recordsCount)
{
    std::string data = smallFile();
    // The dimension becomes the unlimited one: 8 bytes a record, and the file has room for four of them.
    data.replace(24, 4, std::string("\0\0\0\0", 4));
    const auto records = [&](char count) {
        std::string changed = data;
        changed[7] = count;
        return verdict(changed);
    };
    EXPECT_EQ("whole", records(0));
    EXPECT_EQ("whole", records(4));
    EXPECT_EQ("file is truncated", records(5));
}
