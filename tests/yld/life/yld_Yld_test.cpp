#include "platform/attribute/ntsC_AnnotationClient.h"
#include "platform/model/mshK_Model.h"
#include "platform/sto/sto_Model.h"
#include "platform/sto/sto_Result.h"
#include "platform/sto/sto_Step.h"
#include "platform/sto/sto_StoContainer.h"
#include "platform/store/lnk_Root.h"
#include "result_model.h"

// The inner lookups of what extends a database's interface.
struct yld_YldTestAccess
{
    static yld_ApiExtension extension(const yld_Yld& yld, yld_Enum::yld_ApiType type) { return yld.apiExtension(type); }
    static yld_ApiExtension* find(yld_Yld& yld, yld_Enum::yld_ApiType type) { return yld.findApiExtension(type); }
};

namespace {

class yld_YldTest : public testing::Test
{
protected:
    yld_Yld& create() { return Yld("job", "title", "description", m_path.c_str()); }
    yld_Yld& reopen(yld_Yld& yld, bool readOnly = true)
    {
        yld.save();
        yld.close();
        return openYld("job", m_path.c_str(), readOnly, false);
    }

    const Library m_library;
    const ScratchFolder m_folder;
    const std::string m_path = m_folder.file("job.yld");
};

} // namespace

TEST_F(yld_YldTest, defaultObjectIsOfNoDatabase)
{
    yld_Yld none;
    EXPECT_STREQ(none.name().cStr(), "");
    EXPECT_STREQ(none.path().cStr(), "");
    EXPECT_STREQ(none.analysisTitle().cStr(), "");
    EXPECT_STREQ(none.description().cStr(), "");
    EXPECT_STREQ(none.globalJob().cStr(), "");
    EXPECT_FALSE(none.isReadOnly());
    EXPECT_TRUE(none.isClosed());
    EXPECT_FALSE(none.update());
    EXPECT_EQ(failureOf([&] { none.parts(); }), "store: no store is open here");
    EXPECT_EQ(failureOf([&] { none.databaseVersion(); }), "store: no store is open here");
    EXPECT_EQ(failureOf([&] { none.model(); }), "store: no store is open here");
    EXPECT_EQ(failureOf([&] { none.setAnalysisTitle("x"); }), "store: no store is open here");
    EXPECT_STREQ(none.analysisTitle().cStr(), "");
    EXPECT_EQ(failureOf([&] { none.save(); }), "Database save failed. store: no store is open here");
    none.close();
}

TEST_F(yld_YldTest, headerStringsComeBackFromAClosedFile)
{
    yld_Yld& made = create();
    made.setAnalysisTitle("another title");
    made.setDescription("another description");
    made.setGlobalJob("global job");
    made.setSolverInput("*SOLVER\n1, 2\n");
    made.setTopLevelSolverInput("*HEADING\n");
    EXPECT_STREQ(made.analysisTitle().cStr(), "another title");
    EXPECT_STREQ(made.description().cStr(), "another description");
    EXPECT_STREQ(made.globalJob().cStr(), "global job");
    EXPECT_STREQ(made.solverInput().cStr(), "*SOLVER\n1, 2\n");
    EXPECT_STREQ(made.topLevelSolverInput().cStr(), "*HEADING\n");
    yld_Yld& again = reopen(made);
    EXPECT_STREQ(again.analysisTitle().cStr(), "another title");
    EXPECT_STREQ(again.description().cStr(), "another description");
    EXPECT_STREQ(again.globalJob().cStr(), "global job");
    EXPECT_STREQ(again.solverInput().cStr(), "*SOLVER\n1, 2\n");
    EXPECT_STREQ(again.topLevelSolverInput().cStr(), "*HEADING\n");
    again.close();
}

TEST_F(yld_YldTest, settersWithoutASaveAreForgotten)
{
    yld_Yld& made = create();
    made.setAnalysisTitle("another title");
    made.setGlobalJob("global job");
    made.close();
    yld_Yld& again = openYld(m_path.c_str(), true);
    EXPECT_STREQ(again.analysisTitle().cStr(), "title");
    EXPECT_STREQ(again.globalJob().cStr(), "");
    again.close();
}

TEST_F(yld_YldTest, settersWriteToModelAndStore)
{
    yld_Yld& made = create();
    made.setAnalysisTitle("T");
    made.setDescription("D");
    made.setGlobalJob("G");
    made.setShellGlobalModelToSolid(true);
    const mshK_Model model = made.model();
    EXPECT_EQ(model.m_name, "Default Model");
    EXPECT_EQ(model.m_title, "T");
    EXPECT_EQ(model.m_globalJob, "G");
    EXPECT_TRUE(model.m_shellToSolid);
    EXPECT_STREQ(made.sto().description().cStr(), "D");
    made.close();
}

TEST_F(yld_YldTest, solverInputIsTheModelsAloneSoACopySeesItAtOnce)
{
    yld_Yld& made = create();
    const yld_Yld copy = made;
    made.setSolverInput("new");
    made.setTopLevelSolverInput("newer");
    made.setAnalysisTitle("changed");
    EXPECT_STREQ(copy.solverInput().cStr(), "new");
    EXPECT_STREQ(copy.topLevelSolverInput().cStr(), "newer");
    EXPECT_STREQ(copy.analysisTitle().cStr(), "title") << "a copy has header strings of its own";
    made.close();
}

TEST_F(yld_YldTest, shellToSolidIsTheTextOfANumberAndClearInEachNewObject)
{
    yld_Yld& made = create();
    EXPECT_STREQ(made.shellGlobalModelToSolid().cStr(), "0");
    made.setShellGlobalModelToSolid(true);
    EXPECT_STREQ(made.shellGlobalModelToSolid().cStr(), "1");
    yld_Yld& again = reopen(made);
    EXPECT_TRUE(again.model().m_shellToSolid) << "the model has kept it";
    EXPECT_STREQ(again.shellGlobalModelToSolid().cStr(), "0");
    again.close();
}

TEST_F(yld_YldTest, settersOfAReadOnlyDatabaseRaiseAndChangeNothing)
{
    yld_Yld& open = reopen(create());
    const std::string refused = m_path + ": the database is open for reading only";
    EXPECT_EQ(failureOf([&] { open.setAnalysisTitle("x"); }), refused);
    EXPECT_EQ(failureOf([&] { open.setDescription("x"); }), refused);
    EXPECT_EQ(failureOf([&] { open.setGlobalJob("x"); }), refused);
    EXPECT_EQ(failureOf([&] { open.setShellGlobalModelToSolid(true); }), refused);
    EXPECT_EQ(failureOf([&] { open.setSolverInput("x"); }), refused);
    EXPECT_EQ(failureOf([&] { open.setTopLevelSolverInput("x"); }), refused);
    EXPECT_EQ(failureOf([&] { open.setCyclicSymmetry(floats({0, 0, 0}), floats({0, 0, 1}), 4); }), refused);
    EXPECT_STREQ(open.analysisTitle().cStr(), "title");
    EXPECT_STREQ(open.description().cStr(), "description");
    EXPECT_STREQ(open.globalJob().cStr(), "");
    EXPECT_STREQ(open.shellGlobalModelToSolid().cStr(), "0");
    EXPECT_STREQ(open.solverInput().cStr(), "");
    EXPECT_FALSE(open.hasSectorDefinition());
    open.close();
}

TEST_F(yld_YldTest, versionIsThatOfTheFile)
{
    yld_Yld& made = create();
    EXPECT_EQ(made.databaseVersion(), 891);
    made.close();
}

TEST_F(yld_YldTest, userDataAreMadeInAWritableStoreThatHasNone)
{
    sto_Sto store;
    sto_StoContainer().CreateSto(store, m_path.c_str(), "");
    store.Model("Default Model");
    store.Result();
    ASSERT_FALSE(store.hasUserData());
    store.Save();
    sto_StoContainer().CloseSto(store);

    yld_Yld& reader = openYld(m_path.c_str(), true);
    EXPECT_FALSE(reader.sto().hasUserData());
    reader.close();
    yld_Yld& writer = openYld(m_path.c_str(), false);
    EXPECT_TRUE(writer.sto().hasUserData());
    yld_Yld without("without", "", "", "", writer.sto(), false, false);
    EXPECT_TRUE(without.sto().hasUserData());
    writer.close();
}

TEST_F(yld_YldTest, partNameInUseIsRefused)
{
    yld_Yld& made = create();
    made.Part("block", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
    EXPECT_EQ(failureOf([&] { made.Part("block", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY); }),
              "A part named \"block\" already exists.");
    EXPECT_EQ(made.parts().size(), 1);
    made.close();
}

TEST_F(yld_YldTest, copiesShareUntilOneWrites)
{
    yld_Yld& made = create();
    made.Step("one", "", yld_Enum::TIME, 1.0);
    yld_Yld copy = made;
    const yld_Yld& readCopy = copy;
    const yld_Yld& readMade = made;
    EXPECT_EQ(&readCopy.steps(), &readMade.steps());
    made.Step("two", "", yld_Enum::TIME, 1.0);
    EXPECT_NE(&readCopy.steps(), &readMade.steps());
    EXPECT_EQ(readMade.steps().size(), 2);
    EXPECT_EQ(readCopy.steps().size(), 1);
    made.close();
}

TEST_F(yld_YldTest, saveGoesToTheOwnPathAlone)
{
    yld_Yld& made = create();
    const std::string refused = "YLD not saved. Changing the path is not allowed.";
    made.setDescription("first");
    for (const std::string& other :
         {m_folder.file("other.yld"), m_path + " ", "job.yld" + std::string(), m_folder.file("./job.yld")}) {
        EXPECT_EQ(failureOf([&] { made.save(other.c_str()); }), refused) << other;
        EXPECT_FALSE(std::filesystem::exists(m_folder.file("other.yld")));
    }
    const auto onDisk = [&] { return fio_File::Open(m_path.c_str(), false, true).body()->saveCount(); };
    EXPECT_EQ(onDisk(), 1) << "the one save of the creation";
    made.save("");
    EXPECT_EQ(onDisk(), 2);
    made.save(m_path.c_str());
    EXPECT_EQ(onDisk(), 3);
    made.save();
    EXPECT_EQ(onDisk(), 4);
    made.close();
}

TEST_F(yld_YldTest, saveOfAReaderFailsWithTheStoresReason)
{
    yld_Yld& open = reopen(create());
    EXPECT_EQ(failureOf([&] { open.save(); }),
              "Database save failed. " + m_path + ": the database is open for reading only");
    open.close();
}

TEST_F(yld_YldTest, closeDropsTheAnnotationsOfItsContainer)
{
    yld_Yld& made = create();
    const std::string container =
        "stoCont['" + lnk_Root::GetPersistentName(m_path.c_str()) + "'].userData['default userData'].annotations";
    ntsC_AnnotationClient& client = ntsC_AnnotationClient::Instance();
    client.Hold(container, std::make_shared<int>(1));
    client.Hold("stoCont['other'].userData['default userData'].annotations", std::make_shared<int>(2));
    made.close();
    EXPECT_EQ(client.NumHeld(container), 0);
    EXPECT_EQ(client.NumHeld("stoCont['other'].userData['default userData'].annotations"), 1);
    client.ContainerClosing("stoCont['other'].userData['default userData'].annotations", 0);
}

TEST_F(yld_YldTest, extensionsAreFoundByTheirType)
{
    yld_Yld& made = create();
    EXPECT_STREQ(yld_YldTestAccess::extension(made, yld_Enum::MODEL_API).name().cStr(), "");
    EXPECT_EQ(yld_YldTestAccess::find(made, yld_Enum::MODEL_API), nullptr);
    made.extendApi(yld_Enum::RESULT_API, yld_ApiExtension("fatigue", "cycles"));
    EXPECT_STREQ(yld_YldTestAccess::extension(made, yld_Enum::RESULT_API).name().cStr(), "fatigue");
    EXPECT_STREQ(yld_YldTestAccess::extension(made, yld_Enum::RESULT_API).content().cStr(), "cycles");
    EXPECT_STREQ(yld_YldTestAccess::extension(made, yld_Enum::MODEL_API).name().cStr(), "");
    ASSERT_NE(yld_YldTestAccess::find(made, yld_Enum::RESULT_API), nullptr);
    made.close();
}

TEST_F(yld_YldTest, anExtensionThatIsThereStays)
{
    yld_Yld& made = create();
    made.extendApi(yld_Enum::MODEL_API, yld_ApiExtension("first"));
    made.extendApi(yld_Enum::MODEL_API, yld_ApiExtension("second"));
    EXPECT_STREQ(yld_YldTestAccess::extension(made, yld_Enum::MODEL_API).name().cStr(), "first");
    EXPECT_EQ(made.sto().apiExtension(yld_Enum::MODEL_API).fetch()->m_name, "first");
    made.close();
}

TEST_F(yld_YldTest, findingAnExtensionForWritingUnsharesIt)
{
    yld_Yld& made = create();
    made.extendApi(yld_Enum::MODEL_API, yld_ApiExtension("first"));
    const yld_Yld copy = made;
    *yld_YldTestAccess::find(made, yld_Enum::MODEL_API) = yld_ApiExtension("changed");
    EXPECT_STREQ(yld_YldTestAccess::extension(made, yld_Enum::MODEL_API).name().cStr(), "changed");
    EXPECT_STREQ(yld_YldTestAccess::extension(copy, yld_Enum::MODEL_API).name().cStr(), "first");
    made.close();
}

TEST_F(yld_YldTest, theStoreKeepsExtensionsWithWhatTheyWorkOn)
{
    yld_Yld& made = create();
    made.extendApi(yld_Enum::DIAGNOSTIC_API, yld_ApiExtension("watch", "residuals"));
    yld_Yld& again = reopen(made);
    const auto stored = again.sto().apiExtension(yld_Enum::DIAGNOSTIC_API);
    ASSERT_TRUE(stored.isValid());
    EXPECT_EQ(stored.fetch()->m_type, 2);
    EXPECT_EQ(stored.fetch()->m_name, "watch");
    EXPECT_EQ(stored.fetch()->m_content, "residuals");
    EXPECT_TRUE(stored.fetch()->m_sto == again.sto().shortCut());
    EXPECT_TRUE(stored.fetch()->m_model == again.sto().model("Default Model").shortCut());
    EXPECT_FALSE(again.sto().apiExtension(yld_Enum::MODEL_API).isValid());
    EXPECT_STREQ(yld_YldTestAccess::extension(again, yld_Enum::DIAGNOSTIC_API).name().cStr(), "")
        << "a new object begins without";
    again.extendApi(yld_Enum::MODEL_API, yld_ApiExtension("reader's own"));
    EXPECT_STREQ(yld_YldTestAccess::extension(again, yld_Enum::MODEL_API).name().cStr(), "reader's own");
    EXPECT_FALSE(again.sto().apiExtension(yld_Enum::MODEL_API).isValid()) << "a reader's stays with the reader";
    again.close();
}

namespace {

// Frames at 1, 2 and 3 in a step that begins at 0, and at 0.5 and 1 in one that begins at 3.
void addFrames(yld_Yld& yld)
{
    yld_Step& first = yld.Step("first", "", yld_Enum::TIME, 3.0);
    for (int i = 1; i <= 3; ++i) first.Frame(i, i);
    yld_Step& second = yld.Step("second", "", yld_Enum::TIME, 1.0);
    second.Frame(11, 0.5);
    second.Frame(12, 1.0);
}

} // namespace

TEST_F(yld_YldTest, getFrameFindsTheClosestOverAllSteps)
{
    yld_Yld& made = create();
    addFrames(made);
    EXPECT_EQ(made.getFrame(2.2).incrementNumber(), 2);
    EXPECT_EQ(made.getFrame(3.4).incrementNumber(), 11);
    EXPECT_EQ(made.getFrame(-7.0).incrementNumber(), 1);
    EXPECT_EQ(made.getFrame(1e30).incrementNumber(), 12);
    made.close();
}

TEST_F(yld_YldTest, getFrameBeforeAndAfter)
{
    yld_Yld& made = create();
    addFrames(made);
    EXPECT_EQ(made.getFrame(2.9, yld_Enum::MATCH_BEFORE).incrementNumber(), 2);
    EXPECT_EQ(made.getFrame(3.0, yld_Enum::MATCH_BEFORE).incrementNumber(), 3);
    EXPECT_EQ(made.getFrame(2.1, yld_Enum::MATCH_AFTER).incrementNumber(), 3);
    EXPECT_EQ(made.getFrame(3.1, yld_Enum::MATCH_AFTER).incrementNumber(), 11);
    EXPECT_EQ(failureOf([&] { made.getFrame(0.9, yld_Enum::MATCH_BEFORE); }), "Frame not found.");
    EXPECT_EQ(failureOf([&] { made.getFrame(4.1, yld_Enum::MATCH_AFTER); }), "Frame not found.");
    made.close();
}

TEST_F(yld_YldTest, getFrameExactNeedsAnEqualFrame)
{
    yld_Yld& made = create();
    addFrames(made);
    EXPECT_EQ(made.getFrame(3.5, yld_Enum::MATCH_EXACT).incrementNumber(), 11);
    EXPECT_EQ(made.getFrame(4.0, yld_Enum::MATCH_EXACT).incrementNumber(), 12);
    EXPECT_EQ(failureOf([&] { made.getFrame(2.5, yld_Enum::MATCH_EXACT); }), "Frame not found.");
    made.close();
}

TEST_F(yld_YldTest, getFrameTakesTheLaterOfTwoAlikeButTheEarlierBefore)
{
    yld_Yld& made = create();
    yld_Step& step = made.Step("step", "", yld_Enum::TIME, 4.0);
    step.Frame(1, 1.0);
    step.Frame(2, 2.0);
    step.Frame(3, 2.0);
    step.Frame(4, 3.0);
    EXPECT_EQ(made.getFrame(1.5).incrementNumber(), 3);
    EXPECT_EQ(made.getFrame(2.5).incrementNumber(), 4);
    EXPECT_EQ(made.getFrame(2.0).incrementNumber(), 3);
    EXPECT_EQ(made.getFrame(2.5, yld_Enum::MATCH_BEFORE).incrementNumber(), 2);
    EXPECT_EQ(made.getFrame(2.0, yld_Enum::MATCH_BEFORE).incrementNumber(), 2);
    EXPECT_EQ(made.getFrame(1.5, yld_Enum::MATCH_AFTER).incrementNumber(), 3);
    EXPECT_EQ(made.getFrame(2.0, yld_Enum::MATCH_EXACT).incrementNumber(), 3);
    made.close();
}

TEST_F(yld_YldTest, getFrameComparesInSinglePrecision)
{
    yld_Yld& made = create();
    made.Step("first", "", yld_Enum::TIME, 1.0).Frame(1, 0.1);
    made.Step("second", "", yld_Enum::TIME, 1.0).Frame(2, 0.1);
    EXPECT_EQ(failureOf([&] { made.getFrame(0.1, yld_Enum::MATCH_EXACT); }), "Frame not found.");
    EXPECT_EQ(made.getFrame(static_cast<double>(0.1F), yld_Enum::MATCH_EXACT).incrementNumber(), 1);
    EXPECT_EQ(failureOf([&] { made.getFrame(1.1, yld_Enum::MATCH_EXACT); }), "Frame not found.");
    EXPECT_EQ(made.getFrame(static_cast<double>(1.1F), yld_Enum::MATCH_EXACT).incrementNumber(), 2);
    made.close();
}

TEST_F(yld_YldTest, getFrameAddsNoNegativeBeginning)
{
    yld_Yld& made = create();
    made.Step("step", "", yld_Enum::TIME, 1.0, "", "", 0.0).Frame(1, 0.5);
    EXPECT_EQ(made.getFrame(0.5, yld_Enum::MATCH_EXACT).incrementNumber(), 1);
    made.sto().result().step("step").setTotalTime(-2.0);
    EXPECT_EQ(made.getFrame(0.5, yld_Enum::MATCH_EXACT).incrementNumber(), 1);
    made.close();
}

TEST_F(yld_YldTest, getFrameWithoutFramesRaises)
{
    yld_Yld& made = create();
    EXPECT_EQ(failureOf([&] { made.getFrame(0.0); }), "Frame not found.");
    made.Step("empty", "", yld_Enum::TIME, 1.0);
    EXPECT_EQ(failureOf([&] { made.getFrame(0.0); }), "Frame not found.");
    EXPECT_EQ(failureOf([&] { made.getFrame(0.0, yld_Enum::MATCH_EXACT); }), "Frame not found.");
    made.close();
}

TEST_F(yld_YldTest, updateOfAWriterSeesWhatAnotherObjectOfItsStoreAdded)
{
    yld_Yld& made = create();
    EXPECT_EQ(made.steps().size(), 0);
    yld_Yld other("other", "", "", m_path.c_str(), made.sto(), false, true);
    other.Step("one", "", yld_Enum::TIME, 1.0);
    EXPECT_TRUE(made.update());
    EXPECT_TRUE(made.steps().isMember("one"));
    EXPECT_FALSE(made.update());
    made.close();
}

TEST_F(yld_YldTest, updateAnswersForTheLastStepAlone)
{
    yld_Yld& made = create();
    made.Step("one", "", yld_Enum::TIME, 1.0);
    made.Step("two", "", yld_Enum::TIME, 1.0);
    yld_Yld other("other", "", "", m_path.c_str(), made.sto(), false, true);
    other.steps().get("one").Frame(1, 0.5);
    EXPECT_FALSE(made.update()) << "what came to the first step is seen and not told";
    EXPECT_EQ(made.steps().get("one").frames().size(), 1);
    other.steps().get("two").Frame(1, 0.5);
    EXPECT_TRUE(made.update());
    other.Step("three", "", yld_Enum::TIME, 1.0);
    EXPECT_TRUE(made.update());
    EXPECT_FALSE(made.update());
    made.close();
}
