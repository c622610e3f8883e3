#include "yld_API.h"

#include "platform/base/bas_Library.h"
#include "platform/model/mshK_Model.h"
#include "platform/store/pcl_ClassMetadata.h"
#include "platform/store/pcl_MetadataRegistrar.h"
#include "platform/text/arc_ArchCompTable.h"
#include "platform/text/prg_WIP.h"
#include "schema/kcnC_CORMLabelMap.h"
#include "yld/impl/life/yld_Libraries.h"
#include "yld/impl/life/yld_LibraryState.h"
#include "yld/impl/life/yld_YldRepository.h"
#include "yld_Exception.h"
#include "yld_WipReporter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

namespace {

const std::vector<std::string> startOrder = {"mmo", "arc", "lok",  "prn",  "bas", "msg",  "shr",  "exc", "prg", "gfx",
                                             "osu", "aux", "val",  "shc",  "geo", "mrp",  "eng",  "fio", "hdr", "clv",
                                             "dgn", "lnk", "setC", "ldcC", "sto", "kcnC", "calC", "clvS"};

std::vector<std::string> started;
std::vector<std::string> stopped;

void note(const char* prefix, bool start) { (start ? started : stopped).push_back(prefix); }

void print(const char* prefix, bool start) { std::fprintf(stderr, "%s%c ", prefix, start ? '+' : '-'); }

bool registryAtFirstStop;
bool clientAtFirstStop;

void noteWhatIsLeft(const char* prefix, bool start)
{
    if (!start && std::string(prefix) == startOrder.back()) {
        registryAtFirstStop = yld_YldRepository::Exists();
        clientAtFirstStop = yld_libraryState().toolsetClient != nullptr;
    }
}

std::vector<std::string> reversed(std::vector<std::string> list)
{
    std::reverse(list.begin(), list.end());
    return list;
}

std::string joined(const std::vector<std::string>& list, const char* behindEach)
{
    std::string all;
    for (const auto& one : list) {
        all += one + behindEach;
    }
    return all;
}

// Each test begins and ends with the library down.
class yld_APITest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(yld_libraryState().apiCount, 0u);
        ASSERT_EQ(yld_libraryState().moduleToken, 0);
        ASSERT_EQ(yld_libraryState().libraryCount, 0u);
        started.clear();
        stopped.clear();
        m_before = bas_Library::SetTrace(note);
    }
    void TearDown() override
    {
        bas_Library::SetTrace(m_before);
        EXPECT_EQ(yld_libraryState().apiCount, 0u);
        EXPECT_EQ(yld_libraryState().moduleToken, 0);
        EXPECT_EQ(yld_libraryState().libraryCount, 0u);
    }

private:
    bas_Library::Trace m_before = nullptr;
};

using yld_APIDeathTest = yld_APITest;

} // namespace

TEST_F(yld_APITest, starts_in_order_and_stops_in_reverse)
{
    yld_initializeAPI();
    EXPECT_EQ(started, startOrder);
    EXPECT_EQ(started.size(), 28u);
    EXPECT_TRUE(stopped.empty());
    yld_finalizeAPI();
    EXPECT_EQ(stopped, reversed(startOrder));
    EXPECT_EQ(started.size(), 28u);
}

TEST_F(yld_APITest, families_of_persistent_classes_come_in_their_order)
{
    yld_initializeAPI();
    std::vector<std::string> families;
    for (const char* family : pcl_MetadataRegistrar::families()) families.push_back(family);
    // The connector classes declare themselves when their library starts, and enter no family.
    const std::vector<std::string> order = {"hvyC", "flwC", "outC", "prfC", "secC", "adpC", "lcsC"};
    EXPECT_EQ(families, order);
    yld_finalizeAPI();
    yld_initializeAPI();
    EXPECT_EQ(pcl_MetadataRegistrar::families().size(), order.size()) << "another start enters none twice";
    yld_finalizeAPI();
}

TEST_F(yld_APITest, connector_classes_have_a_layout_entry_and_drop_their_labels_at_the_end)
{
    yld_initializeAPI();
    ASSERT_NE(arc_ArchCompTable::Find(684), nullptr);
    EXPECT_STREQ(arc_ArchCompTable::Find(684)->name, "kcnC");
    EXPECT_STREQ(kcnC_CORMLabelMap::Instance().label(4), "UR1");
    EXPECT_TRUE(kcnC_CORMLabelMap::Exists());
    yld_finalizeAPI();
    EXPECT_FALSE(kcnC_CORMLabelMap::Exists());
}

TEST_F(yld_APITest, a_second_start_only_raises_the_count)
{
    yld_initializeAPI();
    const yld_WipReporter* const reporter = yld_libraryState().reporter;
    yld_initializeAPI();
    EXPECT_EQ(yld_libraryState().apiCount, 2u);
    EXPECT_EQ(yld_libraryState().libraryCount, 1u);
    EXPECT_EQ(yld_libraryState().reporter, reporter);
    EXPECT_EQ(started.size(), 28u);
    yld_finalizeAPI();
    EXPECT_EQ(yld_libraryState().apiCount, 1u);
    EXPECT_TRUE(stopped.empty());
    yld_finalizeAPI();
    EXPECT_EQ(stopped.size(), 28u);
}

TEST_F(yld_APITest, the_token_counts_what_is_up)
{
    yld_initializeAPI();
    EXPECT_EQ(yld_libraryState().moduleToken, 30) << "the interface, the library and the 28";
    yld_finalizeAPI();
    EXPECT_EQ(yld_libraryState().moduleToken, 0);
}

TEST_F(yld_APITest, direct_starts_have_a_count_of_their_own)
{
    int token = 100;
    yld_initialize(token);
    EXPECT_EQ(token, 129);
    yld_initialize(token);
    EXPECT_EQ(token, 129);
    EXPECT_EQ(yld_libraryState().libraryCount, 2u);
    EXPECT_EQ(yld_libraryState().apiCount, 0u);

    yld_initializeAPI();
    EXPECT_EQ(yld_libraryState().libraryCount, 3u);
    EXPECT_EQ(yld_libraryState().moduleToken, 1) << "the libraries are up already, under the other token";
    EXPECT_EQ(started.size(), 28u);
    yld_finalizeAPI();
    EXPECT_TRUE(stopped.empty());

    yld_finalize(token);
    EXPECT_EQ(token, 129);
    EXPECT_TRUE(stopped.empty());
    yld_finalize(token);
    EXPECT_EQ(token, 100);
    EXPECT_EQ(stopped, reversed(startOrder));
}

TEST_F(yld_APITest, a_library_that_is_already_up_stays_up)
{
    int token = 0;
    osu_initialize(token);
    EXPECT_EQ(token, 1);
    started.clear();
    yld_initializeAPI();
    EXPECT_EQ(yld_libraryState().moduleToken, 29);
    EXPECT_EQ(started.size(), 27u);
    EXPECT_EQ(std::count(started.begin(), started.end(), "osu"), 0);
    yld_finalizeAPI();
    EXPECT_EQ(stopped.size(), 27u);
    EXPECT_EQ(yld_libraryState().moduleToken, 0);
    osu_finalize(token);
    EXPECT_EQ(token, 0);
    EXPECT_EQ(stopped.back(), "osu");
}

TEST_F(yld_APITest, stops_too_many_have_no_effect)
{
    yld_finalizeAPI();
    int token = 0;
    yld_finalize(token);
    EXPECT_EQ(token, 0);
    yld_initializeAPI();
    EXPECT_EQ(yld_libraryState().apiCount, 1u);
    EXPECT_EQ(started.size(), 28u);
    yld_finalizeAPI();
}

TEST_F(yld_APITest, enters_its_layout)
{
    yld_initializeAPI();
    const arc_LayoutEntry* const entry = arc_ArchCompTable::Find(41);
    ASSERT_NE(entry, nullptr);
    EXPECT_STREQ(entry->name, "yld");
    yld_finalizeAPI();
}

TEST_F(yld_APITest, declares_the_exception_for_schema_2)
{
    yld_initializeAPI();
    const pcl_ClassMetadata* const metadata = pcl_MetadataRegistrar::find(0x290001u);
    ASSERT_NE(metadata, nullptr);
    EXPECT_EQ(metadata->name(), "yld_Exception");
    pcl_MetadataRegistrar::dropSchema(2);
    EXPECT_EQ(pcl_MetadataRegistrar::find("yld_Exception"), nullptr) << "it belonged to schema 2";
    yld_finalizeAPI();
    yld_initializeAPI();
    EXPECT_NE(pcl_MetadataRegistrar::find("yld_Exception"), nullptr) << "a restart declares it again";
    yld_finalizeAPI();
}

TEST_F(yld_APITest, makes_the_calculators_vectors_spatial)
{
    yld_initializeAPI();
    EXPECT_TRUE(calC_vectorsAreSpatial());
    yld_finalizeAPI();
    EXPECT_TRUE(calC_vectorsAreSpatial()) << "the stop leaves it alone";
}

TEST_F(yld_APITest, installs_a_reporter_on_the_standard_error_stream)
{
    yld_initializeAPI();
    EXPECT_EQ(lok_ThreadSingleton<prg_WIP>::Instance().Reporter(), yld_libraryState().reporter);
    testing::internal::CaptureStderr();
    prg_WIP::Warning(shr_String("be careful"));
    prg_WIP::Landmark("unseen");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Warning: be careful\n");
    testing::internal::CaptureStderr();
    try {
        prg_WIP::Error("it broke");
        ADD_FAILURE() << "not raised";
    } catch (const yld_Exception& caught) {
        EXPECT_EQ(caught.errorNo(), 6);
        EXPECT_STREQ(caught.what(), "it broke");
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "ERROR: it broke\n");
    yld_finalizeAPI();
}

TEST_F(yld_APITest, the_reporter_is_that_of_the_starting_thread)
{
    yld_initializeAPI();
    std::thread([] { EXPECT_EQ(lok_ThreadSingleton<prg_WIP>::Instance().Reporter(), nullptr); }).join();
    yld_finalizeAPI();
}

TEST_F(yld_APITest, the_stop_leaves_the_reporter_and_a_restart_makes_another)
{
    yld_initializeAPI();
    yld_WipReporter* const first = yld_libraryState().reporter;
    yld_finalizeAPI();
    EXPECT_EQ(yld_libraryState().reporter, first);
    EXPECT_EQ(lok_ThreadSingleton<prg_WIP>::Instance().Reporter(), first);
    yld_initializeAPI();
    yld_WipReporter* const second = yld_libraryState().reporter;
    EXPECT_NE(second, first);
    EXPECT_EQ(lok_ThreadSingleton<prg_WIP>::Instance().Reporter(), second);
    testing::internal::CaptureStderr();
    first->Warning(shr_String("still here"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Warning: still here\n");
    yld_finalizeAPI();
}

TEST_F(yld_APITest, the_toolset_client_lives_between_first_start_and_last_stop)
{
    EXPECT_EQ(yld_libraryState().toolsetClient, nullptr);
    yld_initializeAPI();
    const yld_StoToolsetClient* const client = yld_libraryState().toolsetClient;
    EXPECT_NE(client, nullptr);
    yld_initializeAPI();
    EXPECT_EQ(yld_libraryState().toolsetClient, client);
    yld_finalizeAPI();
    EXPECT_EQ(yld_libraryState().toolsetClient, client);
    yld_finalizeAPI();
    EXPECT_EQ(yld_libraryState().toolsetClient, nullptr);
}

TEST_F(yld_APITest, the_registry_and_the_client_go_before_the_libraries_stop)
{
    yld_initializeAPI();
    EXPECT_FALSE(yld_YldRepository::Exists()) << "the start alone does not make the registry";
    yld_YldRepository::Instance();
    bas_Library::SetTrace(noteWhatIsLeft);
    registryAtFirstStop = clientAtFirstStop = true;
    yld_finalizeAPI();
    EXPECT_FALSE(registryAtFirstStop);
    EXPECT_FALSE(clientAtFirstStop);
    EXPECT_FALSE(yld_YldRepository::Exists());
}

TEST_F(yld_APITest, the_start_silences_the_models_progress_messages)
{
    mshK_Model::GenerateWipMessages(true);
    yld_initializeAPI();
    EXPECT_FALSE(mshK_Model::generatesWipMessages());
    yld_finalizeAPI();
}

TEST_F(yld_APITest, a_restart_starts_everything_again)
{
    for (int i = 0; i < 3; ++i) {
        started.clear();
        stopped.clear();
        yld_initializeAPI();
        yld_finalizeAPI();
        EXPECT_EQ(started, startOrder);
        EXPECT_EQ(stopped, reversed(startOrder));
    }
}

TEST_F(yld_APIDeathTest, the_exit_handler_stops_what_is_up)
{
    EXPECT_EXIT(
        {
            yld_initializeAPI();
            bas_Library::SetTrace(print);
            std::exit(0);
        },
        testing::ExitedWithCode(0), testing::Eq(joined(reversed(startOrder), "- ")));
}

TEST_F(yld_APIDeathTest, the_exit_handler_stops_nothing_twice)
{
    EXPECT_EXIT(
        {
            bas_Library::SetTrace(print);
            yld_initializeAPI();
            yld_finalizeAPI();
            std::fprintf(stderr, "| ");
            std::exit(0);
        },
        testing::ExitedWithCode(0), testing::Eq(joined(startOrder, "+ ") + joined(reversed(startOrder), "- ") + "| "));
}

TEST_F(yld_APIDeathTest, the_exit_handler_lowers_a_nested_count_once)
{
    EXPECT_EXIT(
        {
            yld_initializeAPI();
            yld_initializeAPI();
            bas_Library::SetTrace(print);
            std::exit(0);
        },
        testing::ExitedWithCode(0), testing::Eq(std::string()));
}

TEST_F(yld_APIDeathTest, each_start_from_zero_registers_an_exit_handler)
{
    EXPECT_EXIT(
        {
            yld_initializeAPI();
            yld_finalizeAPI();
            yld_initializeAPI();
            yld_initializeAPI();
            bas_Library::SetTrace(print);
            std::exit(0);
        },
        testing::ExitedWithCode(0), testing::Eq(joined(reversed(startOrder), "- ")));
}
