#include "platform/base/lok_ThreadSingleton.h"
#include "platform/sto/sto_StoToolset.h"
#include "platform/store/fio_File.h"
#include "platform/store/lnk_Root.h"
#include "platform/text/prg_WIP.h"
#include "test_files.h"
#include "yld/impl/life/yld_LibraryState.h"
#include "yld_API.h"
#include "yld_Exception.h"
#include "yld_WipReporter.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>
#include <thread>
#include <vector>

// The store's toolset, its root and the progress object belong to the thread that asks for them.

namespace {

class Notes : public sto_StoToolsetClient
{
public:
    void NotifyUpdateYld(const char* fileName) override { told.push_back(fileName); }

    std::vector<std::string> told;
};

void showWhatIsUp()
{
    std::fprintf(stderr, "api %u, token %d", yld_libraryState().apiCount, yld_libraryState().moduleToken);
}

} // namespace

TEST(yld_Threads, each_has_a_toolset_a_root_and_a_progress_object)
{
    const sto_StoToolset* const toolset = &sto_StoToolset::Instance();
    const lnk_Root* const root = &lnk_Root::Instance();
    const prg_WIP* const progress = &lok_ThreadSingleton<prg_WIP>::Instance();
    EXPECT_EQ(&lok_ThreadSingleton<sto_StoToolset>::Instance(), toolset);
    EXPECT_EQ(&lok_ThreadSingleton<lnk_Root>::Instance(), root);
    std::thread([&] {
        EXPECT_NE(&sto_StoToolset::Instance(), toolset);
        EXPECT_NE(&lnk_Root::Instance(), root);
        EXPECT_NE(&lok_ThreadSingleton<prg_WIP>::Instance(), progress);
        EXPECT_EQ(&sto_StoToolset::Instance(), &sto_StoToolset::Instance());
    }).join();
    EXPECT_EQ(&sto_StoToolset::Instance(), toolset);
    EXPECT_EQ(&lnk_Root::Instance(), root);
    EXPECT_EQ(&lok_ThreadSingleton<prg_WIP>::Instance(), progress);
}

TEST(yld_Threads, clients_are_told_of_their_own_thread_alone)
{
    Notes notes;
    sto_StoToolset::Instance().AddClient(&notes);
    std::thread([] { sto_StoToolset::Instance().UpdateYld("elsewhere.yld"); }).join();
    EXPECT_TRUE(notes.told.empty());
    sto_StoToolset::Instance().UpdateYld("here.yld");
    EXPECT_EQ(notes.told, std::vector<std::string>{"here.yld"});
    sto_StoToolset::Instance().RemoveClient(&notes);
    sto_StoToolset::Instance().UpdateYld("here.yld");
    EXPECT_EQ(notes.told.size(), 1u);
}

TEST(yld_Threads, a_root_goes_with_its_thread_and_closes_what_it_holds)
{
    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
    fio_File kept;
    std::thread([&] {
        kept = fio_File::Create(path.c_str());
        lnk_Root::Instance().attach(kept);
        EXPECT_TRUE(lnk_Root::IsMember(path.c_str()));
        EXPECT_TRUE(kept.body()->isOpen());
    }).join();
    EXPECT_FALSE(kept.body()->isOpen());
    EXPECT_FALSE(lnk_Root::IsMember(path.c_str()));
}

TEST(yld_Threads, a_thread_may_start_and_stop_the_library)
{
    std::thread([] {
        yld_initializeAPI();
        EXPECT_EQ(lok_ThreadSingleton<prg_WIP>::Instance().Reporter(), yld_libraryState().reporter);
        std::thread([] { EXPECT_EQ(lok_ThreadSingleton<prg_WIP>::Instance().Reporter(), nullptr); }).join();
        yld_finalizeAPI();
    }).join();
    EXPECT_EQ(yld_libraryState().moduleToken, 0);
    yld_initializeAPI();
    EXPECT_EQ(lok_ThreadSingleton<prg_WIP>::Instance().Reporter(), yld_libraryState().reporter);
    yld_finalizeAPI();
}

TEST(yld_Threads, an_exception_can_be_carried_to_another_thread)
{
    std::exception_ptr carried;
    std::thread([&] {
        try {
            yld_Exception("path.yld", 2, "m").Throw("file.cpp", 5);
        } catch (...) {
            carried = std::current_exception();
        }
    }).join();
    try {
        std::rethrow_exception(carried);
    } catch (const yld_Exception& caught) {
        EXPECT_STREQ(caught.what(), "cannot convert database path.yld, m");
        EXPECT_EQ(caught.throwLine(), 5);
    }
    carried = nullptr;
}

TEST(yld_ThreadsDeathTest, the_exit_handler_lowers_a_nested_count_by_one)
{
    EXPECT_EXIT(
        {
            std::atexit(showWhatIsUp); // runs after the library's own handler
            yld_initializeAPI();
            yld_initializeAPI();
            yld_initializeAPI();
            std::exit(0);
        },
        testing::ExitedWithCode(0), testing::Eq(std::string("api 2, token 30")));
}

TEST(yld_ThreadsDeathTest, the_exit_handler_leaves_nothing_up)
{
    EXPECT_EXIT(
        {
            std::atexit(showWhatIsUp);
            yld_initializeAPI();
            std::exit(0);
        },
        testing::ExitedWithCode(0), testing::Eq(std::string("api 0, token 0")));
}

TEST(yld_ThreadsDeathTest, the_exit_handler_sees_the_token_of_the_interface_alone)
{
    EXPECT_EXIT(
        {
            std::atexit(showWhatIsUp);
            int token = 0;
            yld_initialize(token);
            std::exit(0);
        },
        testing::ExitedWithCode(0), testing::Eq(std::string("api 0, token 0")))
        << "a direct start registers no handler";
}

TEST(yld_ThreadsDeathTest, the_exit_handler_may_run_in_another_thread_than_the_start)
{
    EXPECT_EXIT(
        {
            std::atexit(showWhatIsUp);
            std::thread([] { yld_initializeAPI(); }).join();
            std::exit(0);
        },
        testing::ExitedWithCode(0), testing::Eq(std::string("api 0, token 0")));
}

TEST(yld_ThreadsDeathTest, any_thread_may_end_the_process)
{
    EXPECT_EXIT(
        {
            std::atexit(showWhatIsUp);
            std::thread([] {
                yld_initializeAPI();
                std::exit(0);
            }).join();
        },
        testing::ExitedWithCode(0), testing::Eq(std::string("api 0, token 0")));
}
