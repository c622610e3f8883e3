#include "platform/diagnostic/dgn_DiagnosticData.h"
#include "platform/sto/sto_Model.h"
#include "platform/sto/sto_Result.h"
#include "platform/sto/sto_StoContainer.h"
#include "platform/sto/sto_StoToolset.h"
#include "platform/sto/sto_UserData.h"
#include "platform/store/lnk_Root.h"
#include "platform/text/exc_Exception.h"
#include "test_files.h"

#include <fstream>

namespace {

// Writes down what it is told.
class Listener : public sto_StoToolsetClient
{
public:
    Listener() { sto_StoToolset::Instance().AddClient(this); }
    ~Listener() override { sto_StoToolset::Instance().RemoveClient(this); }
    void NotifyOpenYld(const char* file) override { heard.push_back(std::string("open ") + file); }
    void NotifyCloseYld(const char* file) override { heard.push_back(std::string("close ") + file); }
    void NotifyUpdateYld(const char* file) override { heard.push_back(std::string("update ") + file); }

    std::vector<std::string> heard;
};

class sto_StoTest : public testing::Test
{
protected:
    void SetUp() override { path = folder.file("store.yld"); }
    void TearDown() override { lnk_Root::Instance().detachAll(); }

    sto_Sto made()
    {
        sto_Sto store;
        container.CreateSto(store, path.c_str(), "what it is");
        return store;
    }
    sto_Sto opened(bool forWriting = false)
    {
        return sto_StoToolset::Instance().OpenYld(fio_File::Open(path.c_str(), forWriting, true), true);
    }

    ScratchFolder folder;
    std::string path;
    sto_StoContainer container;
};

} // namespace

TEST_F(sto_StoTest, partsOfAStoreAreMadeOnceAndKept)
{
    {
        sto_Sto store = made();
        EXPECT_FALSE(store.hasResult());
        EXPECT_FALSE(store.hasUserData());
        EXPECT_FALSE(store.userData().isValid());
        store.Model("Default Model");
        store.Result();
        const sto_UserData user = store.UserData();
        EXPECT_EQ(store.UserData().shortCut().id(), user.shortCut().id()) << "asked again, the same";
        store.setAnalysisVersion("version 1");
        container.SaveSto(store);
        container.CloseSto(store);
        EXPECT_FALSE(store.isValid());
    }
    const sto_Sto store = opened();
    EXPECT_STREQ(store.description().cStr(), "what it is");
    EXPECT_STREQ(store.analysisVersion().cStr(), "version 1");
    EXPECT_TRUE(store.hasResult());
    EXPECT_TRUE(store.hasUserData());
    EXPECT_EQ(store.userData().curveCount(), 0);
    EXPECT_EQ(store.userData().annotationCount(), 0);
    EXPECT_NO_THROW(store.model("Default Model"));
}

TEST_F(sto_StoTest, aModelThatIsNotThereIsNamed)
{
    const sto_Sto store = made();
    try {
        store.model("Model-2");
        FAIL() << "no exception";
    } catch (const exc_Exception& failure) {
        EXPECT_EQ(std::string(failure.what()), path + ": has no model named \"Model-2\"");
    }
}

TEST_F(sto_StoTest, diagnosticsAreKeptOnceThereAreSome)
{
    {
        sto_Sto store = made();
        try {
            store.ConstGetDiagnosticData();
            FAIL() << "no exception";
        } catch (const exc_Exception& failure) {
            EXPECT_EQ(std::string(failure.what()), path + ": has no diagnostics");
        }
        dgn_DiagnosticData diagnostics;
        diagnostics.m_jobStatus = 3;
        store.setDiagnosticData(diagnostics);
        diagnostics.m_wallclockTime = 2.5;
        store.setDiagnosticData(diagnostics);
        container.SaveSto(store);
        container.CloseSto(store);
    }
    const auto kept = opened().ConstGetDiagnosticData();
    EXPECT_EQ(kept->GetJobStatus(), 3);
    EXPECT_EQ(kept->m_wallclockTime, 2.5);
    EXPECT_TRUE(kept->GetJobHistoryDescription().empty());
}

TEST_F(sto_StoTest, aReaderSeesTheTimeOfTheStateThatItReads)
{
    sto_Sto writer = made();
    container.SaveSto(writer);
    const sto_Sto reader = opened();
    const long long before = reader.file()->modificationDate();
    EXPECT_EQ(before, writer.file()->modificationDate());
    EXPECT_GE(before, reader.file()->creationDate());
    writer.setDescription("changed");
    container.SaveSto(writer);
    EXPECT_GT(writer.file()->modificationDate(), before);
    EXPECT_EQ(reader.file()->modificationDate(), before);
    EXPECT_TRUE(reader.file()->refresh());
    EXPECT_EQ(reader.file()->modificationDate(), writer.file()->modificationDate());
    EXPECT_EQ(reader.creationTime(), writer.creationTime());
}

TEST_F(sto_StoTest, whatIsNotSavedIsGoneWithTheClose)
{
    {
        sto_Sto store = made();
        container.SaveSto(store);
        store.setDescription("changed");
        store.UserData();
        container.CloseSto(store);
    }
    const sto_Sto store = opened();
    EXPECT_STREQ(store.description().cStr(), "what it is");
    EXPECT_FALSE(store.hasUserData());
}

TEST_F(sto_StoTest, clientsHearOfOpeningClosingAndUpdating)
{
    {
        sto_Sto store = made();
        container.SaveSto(store);
        container.CloseSto(store);
    }
    const Listener first;
    const Listener second;
    sto_Sto store = opened();
    sto_StoToolset::Instance().UpdateYld(path.c_str());
    container.CloseSto(store);
    const std::vector<std::string> expected = {"open " + path, "update " + path, "close " + path};
    EXPECT_EQ(first.heard, expected);
    EXPECT_EQ(second.heard, expected);
}

TEST_F(sto_StoTest, aClientAddedTwiceHearsOnceAndOneRemovedNoMore)
{
    Listener listener;
    sto_StoToolset::Instance().AddClient(&listener);
    sto_StoToolset::Instance().UpdateYld("a");
    EXPECT_EQ(listener.heard.size(), 1u);
    sto_StoToolset::Instance().RemoveClient(&listener);
    sto_StoToolset::Instance().UpdateYld("a");
    EXPECT_EQ(listener.heard.size(), 1u);
}

TEST_F(sto_StoTest, closingByPathClosesEveryStoreOfIt)
{
    {
        sto_Sto store = made();
        container.SaveSto(store);
        container.CloseSto(store);
    }
    const sto_Sto one = opened();
    const sto_Sto two = opened();
    EXPECT_TRUE(lnk_Root::IsMember(path.c_str()));
    sto_StoToolset::Instance().CloseYld(path.c_str());
    EXPECT_FALSE(lnk_Root::IsMember(path.c_str()));
    EXPECT_FALSE(one.isValid());
    EXPECT_FALSE(two.isValid());
    EXPECT_THROW(two.description(), exc_Exception);
}

TEST_F(sto_StoTest, anOpenStoreIsFoundByItsIdentity)
{
    const sto_Sto store = made();
    const std::string name = lnk_Root::GetPersistentName(path.c_str());
    EXPECT_EQ(name.size(), 32u);
    EXPECT_STREQ(container.getByPersName(name.c_str()).FileName().cStr(), path.c_str());
    EXPECT_EQ(lnk_Root::GetFileName(name.c_str()), path);
    try {
        container.getByPersName("nobody");
        FAIL() << "no exception";
    } catch (const exc_Exception& failure) {
        EXPECT_STREQ(failure.what(), "nobody: no open store has this identity");
    }
}

TEST_F(sto_StoTest, aNewStoreReplacesADatabaseAndRefusesAnythingElse)
{
    {
        sto_Sto store = made();
        store.setAnalysisVersion("old");
        container.SaveSto(store);
        container.CloseSto(store);
    }
    {
        sto_Sto store = made();
        EXPECT_STREQ(store.analysisVersion().cStr(), "");
        container.CloseSto(store);
    }
    path = folder.file("letter.txt");
    std::ofstream(path) << "dear reader, this is no database, but it is long enough to be looked at as one";
    EXPECT_THROW(made(), exc_Exception);
    EXPECT_TRUE(std::filesystem::exists(path));
    path = folder.path().string();
    EXPECT_THROW(made(), exc_Exception);
}

TEST_F(sto_StoTest, aFileWithoutAStoreIsRefused)
{
    fio_File::Create(path.c_str()).body()->save();
    try {
        opened();
        FAIL() << "no exception";
    } catch (const exc_Exception& failure) {
        EXPECT_EQ(std::string(failure.what()), path + ": holds no store; the file is damaged");
    }
}
