#include "platform/rmt/rmt_RemoteConnectionsRep.h"

#include "platform/os/osu_UrlParser.h"
#include "platform/text/exc_Exception.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace {

rmt_RemoteConnection connectionTo(const char* host, int port)
{
    rmt_RemoteConnection connection;
    connection.host = host;
    connection.port = port;
    return connection;
}

std::string textOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const exc_TextException& failure) {
        return failure.what();
    }
    return "no exception";
}

} // namespace

TEST(rmt_RemoteConnectionsRep, anEmptyTableKnowsNoRemotePath)
{
    const rmt_RemoteConnectionsRep table;
    EXPECT_EQ(table.Size(), 0);
    EXPECT_FALSE(table.isPrefixMyRemoteConnections("cluster:/scratch/job.yld"));
    EXPECT_STREQ(table.ExtractRemoteConnectionName("cluster:/scratch/job.yld").cStr(), "");
    EXPECT_STREQ(table.MapUrlToRemoteConnectionName("yld://node7:5501/job.yld").cStr(), "");
}

TEST(rmt_RemoteConnectionsRep, keepsWhatIsPutAndForgetsWhatIsRemoved)
{
    rmt_RemoteConnectionsRep table;
    rmt_RemoteConnection connection = connectionTo("node7", 5501);
    connection.driverPath = "/opt/bin/driver";
    connection.hasShell = true;
    connection.shell = "plink";
    table.Put("cluster", connection);
    EXPECT_TRUE(table.IsMember("cluster"));
    EXPECT_STREQ(table.Get("cluster").host.cStr(), "node7");
    EXPECT_EQ(table.Get("cluster").port, 5501);
    EXPECT_STREQ(table.Get("cluster").driverPath.cStr(), "/opt/bin/driver");
    EXPECT_TRUE(table.Get("cluster").hasShell);
    EXPECT_STREQ(table.Get("cluster").shell.cStr(), "plink");
    table.Put("cluster", connectionTo("node8", 0));
    EXPECT_EQ(table.Size(), 1);
    EXPECT_STREQ(table.Get("cluster").host.cStr(), "node8");
    EXPECT_FALSE(table.Get("cluster").hasShell);
    EXPECT_TRUE(table.Remove("cluster"));
    EXPECT_FALSE(table.Remove("cluster"));
    EXPECT_FALSE(table.IsMember("cluster"));
    EXPECT_STREQ(table.Get("cluster").host.cStr(), "");
}

TEST(rmt_RemoteConnectionsRep, aPathGoesThroughAConnectionByItsNameAndAColon)
{
    rmt_RemoteConnectionsRep table;
    table.Put("cluster", connectionTo("node7", 5501));
    EXPECT_TRUE(table.isPrefixMyRemoteConnections("cluster:/scratch/job.yld"));
    EXPECT_STREQ(table.ExtractRemoteConnectionName("cluster:/scratch/job.yld").cStr(), "cluster");
    for (const char* local : {"", "cluster", ":/job.yld", "/scratch/cluster:job.yld", "clusters:/job.yld",
                              "Cluster:/job.yld", "other:/job.yld", "cluster://node7/job.yld"}) {
        EXPECT_FALSE(table.isPrefixMyRemoteConnections(local)) << local;
    }
}

TEST(rmt_RemoteConnectionsRep, mapsPathsToUrls)
{
    rmt_RemoteConnectionsRep table;
    table.Put("cluster", connectionTo("node7", 5501));
    table.Put("own", connectionTo("node8", 0));
    table.Put("six", connectionTo("fe80::1", 80));
    table.Put("here", connectionTo("", 0));
    EXPECT_STREQ(table.MapRemotePathToUrl("cluster:/scratch/a b.yld").cStr(), "yld://node7:5501/scratch/a b.yld");
    EXPECT_STREQ(table.MapRemotePathToUrl("cluster:job.yld").cStr(), "yld://node7:5501/job.yld");
    EXPECT_STREQ(table.MapRemotePathToUrl("cluster:/a:b").cStr(), "yld://node7:5501/a:b");
    EXPECT_STREQ(table.MapRemotePathToUrl("own:/job.yld").cStr(), "yld://node8/job.yld");
    EXPECT_STREQ(table.MapRemotePathToUrl("here:/job.yld").cStr(), "file:///job.yld");
    const shr_String url = table.MapRemotePathToUrl("six:/job.yld");
    EXPECT_STREQ(url.cStr(), "yld://[fe80::1]:80/job.yld");
    EXPECT_TRUE(osu_UrlParser::IsUrl(url));
    EXPECT_STREQ(osu_UrlParser::GetHost(url).cStr(), "[fe80::1]");
    EXPECT_EQ(osu_UrlParser::GetPort(url), 80);
}

TEST(rmt_RemoteConnectionsRep, refusesToMapWhatIsNotRemoteOrNamesNoFile)
{
    rmt_RemoteConnectionsRep table;
    table.Put("cluster", connectionTo("node7", 5501));
    EXPECT_EQ(textOf([&] { table.MapRemotePathToUrl("/scratch/job.yld"); }),
              "\"/scratch/job.yld\" does not go through a remote connection.");
    EXPECT_EQ(textOf([&] { table.MapRemotePathToUrl("cluster:"); }), "\"cluster:\" names no file.");
}

TEST(rmt_RemoteConnectionsRep, findsTheConnectionOfAUrlByHostAndPort)
{
    rmt_RemoteConnectionsRep table;
    table.Put("b", connectionTo("node7", 5501));
    table.Put("c", connectionTo("node7", 5501));
    table.Put("a", connectionTo("node7", 5502));
    table.Put("six", connectionTo("fe80::1", 0));
    EXPECT_STREQ(table.MapUrlToRemoteConnectionName("yld://node7:5501/x.yld").cStr(), "b");
    EXPECT_STREQ(table.MapUrlToRemoteConnectionName("yld://node7:5502/x.yld").cStr(), "a");
    EXPECT_STREQ(table.MapUrlToRemoteConnectionName("yld://[fe80::1]/x.yld").cStr(), "six");
    EXPECT_STREQ(table.MapUrlToRemoteConnectionName("yld://node7/x.yld").cStr(), "");
    EXPECT_STREQ(table.MapUrlToRemoteConnectionName("yld://node9:5501/x.yld").cStr(), "");
    EXPECT_STREQ(table.MapUrlToRemoteConnectionName("/x.yld").cStr(), "");
}

TEST(rmt_RemoteConnectionsRep, theProcessHasOneTable)
{
    rmt_RemoteConnectionsRep::Instance().Put("cluster", connectionTo("node7", 5501));
    EXPECT_TRUE(rmt_RemoteConnectionsRep::Instance().IsMember("cluster"));
    rmt_RemoteConnectionsRep::Instance().Remove("cluster");
    EXPECT_EQ(rmt_RemoteConnectionsRep::Instance().Size(), 0);
}
