#include "yld_AttributeRepository.h"

#include "platform/sto/sto_Attribute.h"
#include "platform/sto/sto_Model.h"
#include "platform/sto/sto_Sto.h"
#include "result_model.h"
#include "sql_log.h"

namespace {

template<class T> T typeOf(mrp_Container<T> mshK_Model::*); // for its type alone

// One kind of attribute: its repository, the place in the model, and the way through the database object.
template<class Repository, auto Place, auto Access> struct Kind
{
    using Attributes = Repository;
    using Value = typename Repository::Value;
    using Object = decltype(typeOf(Place));

    static Repository& of(yld_Yld& yld) { return (yld.*Access)(); }

    // Files a name in the model. The object that it names is one of the file's, and stays unread.
    static long long file(const sto_Model& model, const char* name)
    {
        const std::shared_ptr<fio_FileBody> file = model.shortCut().file();
        if (((*model.model()).*Place).isNull()) {
            const auto changed = model.shortCut().fetchWritable();
            (*changed).*Place = mrp_Container<Object>::create(file);
            model.shortCut().replace(changed);
        }
        const lnk_ShortCut<Object> object(file, file->newId());
        mrp_Container<Object> container = (*model.model()).*Place;
        container.append(name, object);
        return object.id();
    }
};

template<class K> class yld_AttributeRepositoryTest : public testing::Test
{
protected:
    yld_Yld& create() { return Yld("job", "title", "description", m_path.c_str()); }
    static sto_Model modelOf(const yld_Yld& yld) { return yld.sto().model("Default Model"); }

    const Library m_library;
    const ScratchFolder m_folder;
    const std::string m_path = m_folder.file("job.yld");
};

using Kinds = testing::Types<
    Kind<yld_BCRepository, &mshK_Model::m_boundaryConditions, &yld_Yld::boundaryConditions>,
    Kind<yld_IPRepository, &mshK_Model::m_interactionProperties, &yld_Yld::interactionProperties>,
    Kind<yld_ContactControlsRepository, &mshK_Model::m_contactControls, &yld_Yld::contactControls>,
    Kind<yld_InteractionRepository, &mshK_Model::m_interactions, &yld_Yld::interactions>,
    Kind<yld_PredefinedFieldRepository, &mshK_Model::m_predefinedFields, &yld_Yld::predefinedFields>,
    Kind<yld_LoadRepository, &mshK_Model::m_loads, &yld_Yld::loads>,
    Kind<yld_ConstraintRepository, &mshK_Model::m_constraints, &yld_Yld::constraints>,
    Kind<yld_FieldOutputRequestRepository, &mshK_Model::m_fieldOutputRequests, &yld_Yld::fieldOutputRequests>,
    Kind<yld_HistoryOutputRequestRepository, &mshK_Model::m_historyOutputRequests, &yld_Yld::historyOutputRequests>>;

} // namespace

TYPED_TEST_SUITE(yld_AttributeRepositoryTest, Kinds);

TYPED_TEST(yld_AttributeRepositoryTest, aDefaultValueIsEmpty)
{
    const typename TypeParam::Value none;
    EXPECT_TRUE(none.isEmpty());
    const typename TypeParam::Value copy = none;
    EXPECT_TRUE(copy.isEmpty());
    const typename TypeParam::Value nothingStored{typename TypeParam::Value::Stored()};
    EXPECT_FALSE(nothingStored.isEmpty()) << "it has a handle, if on no object";
    EXPECT_FALSE(nothingStored.stored().isValid());
}

TYPED_TEST(yld_AttributeRepositoryTest, aDefaultRepositoryHasNoModelAndReadsNothing)
{
    typename TypeParam::Attributes none;
    EXPECT_FALSE(none.hasModel());
    none.Read();
    EXPECT_EQ(none.size(), 0);
    EXPECT_EQ(failureOf([&] { none.get("x"); }), "Key \"x\" not found in repository");
}

TYPED_TEST(yld_AttributeRepositoryTest, aRepositoryIsEmptyUntilItIsReadAndHasTheModelThen)
{
    yld_Yld& made = this->create();
    const long long id = TypeParam::file(this->modelOf(made), "first");
    typename TypeParam::Attributes repository(this->modelOf(made));
    EXPECT_TRUE(repository.hasModel());
    EXPECT_TRUE(repository.model().shortCut() == this->modelOf(made).shortCut());
    EXPECT_EQ(repository.size(), 0);
    repository.Read();
    ASSERT_EQ(joined(repository.keys()), "first");
    EXPECT_EQ(repository.get("first").stored().shortCut().id(), id);
    made.close();
}

TYPED_TEST(yld_AttributeRepositoryTest, aModelWithoutAttributesGivesNone)
{
    yld_Yld& made = this->create();
    EXPECT_EQ(TypeParam::of(made).size(), 0);
    EXPECT_TRUE(TypeParam::of(made).hasModel());
    made.close();
}

TYPED_TEST(yld_AttributeRepositoryTest, namesComeBackFromAClosedFile)
{
    yld_Yld& made = this->create();
    const long long second = TypeParam::file(this->modelOf(made), "second");
    const long long first = TypeParam::file(this->modelOf(made), "first");
    made.save();
    made.close();
    yld_Yld& reader = openYld("job", this->m_path.c_str(), true, false);
    auto& repository = TypeParam::of(reader);
    ASSERT_EQ(joined(repository.keys()), "first,second");
    EXPECT_EQ(repository.get("first").stored().shortCut().id(), first);
    EXPECT_EQ(repository.get("second").stored().shortCut().id(), second);
    EXPECT_EQ(&TypeParam::of(reader), &repository);
    reader.close();
}

TYPED_TEST(yld_AttributeRepositoryTest, aNameThatIsThereKeepsItsValue)
{
    yld_Yld& made = this->create();
    const long long first = TypeParam::file(this->modelOf(made), "name");
    TypeParam::file(this->modelOf(made), "name");
    auto& repository = TypeParam::of(made);
    EXPECT_EQ(repository.size(), 1);
    EXPECT_EQ(repository.get("name").stored().shortCut().id(), first);
    EXPECT_EQ(TypeParam::of(made).get("name").stored().shortCut().id(), first);
    made.close();
}

TYPED_TEST(yld_AttributeRepositoryTest, onlyContactControlsAreReadOnce)
{
    yld_Yld& made = this->create();
    TypeParam::file(this->modelOf(made), "first");
    EXPECT_EQ(joined(TypeParam::of(made).keys()), "first");
    TypeParam::file(this->modelOf(made), "second");
    constexpr bool once = std::is_same_v<typename TypeParam::Attributes, yld_ContactControlsRepository>;
    EXPECT_EQ(joined(TypeParam::of(made).keys()), once ? "first" : "first,second");
    made.close();
}

TYPED_TEST(yld_AttributeRepositoryTest, theAccessRunsTheOneRead)
{
    yld_Yld& made = this->create();
    made.Step("step", "", yld_Enum::TIME, 1.0);
    TypeParam::file(this->modelOf(made), "first");
    made.save();
    made.close();
    SqlLog log;
    yld_Yld& reader = openYld("job", this->m_path.c_str(), true, false);
    log.clear();
    EXPECT_EQ(TypeParam::of(reader).size(), 1);
    EXPECT_GT(log.naming("fld_Step\""), 0);
    log.clear();
    TypeParam::of(reader);
    EXPECT_TRUE(log.statements.empty());
    reader.close();
}

TYPED_TEST(yld_AttributeRepositoryTest, copiesShareTheEntriesUntilOneIsWrittenAndTheModel)
{
    yld_Yld& made = this->create();
    TypeParam::file(this->modelOf(made), "first");
    auto& repository = TypeParam::of(made);
    typename TypeParam::Attributes copy = repository;
    EXPECT_EQ(&copy.constGet("first"), &repository.constGet("first")) << "one entry";
    EXPECT_EQ(&copy.model(), &repository.model()) << "one model handle";
    EXPECT_EQ(&copy.constGet("first").stored(), &repository.constGet("first").stored());
    copy.insert("second", typename TypeParam::Value());
    EXPECT_EQ(joined(copy.keys()), "first,second");
    EXPECT_EQ(joined(repository.keys()), "first");
    EXPECT_EQ(&copy.constGet("first").stored(), &repository.constGet("first").stored()) << "one stored object for both";
    made.close();
}

TYPED_TEST(yld_AttributeRepositoryTest, copiesOfADatabaseShareThemUntilOneWrites)
{
    yld_Yld& made = this->create();
    TypeParam::file(this->modelOf(made), "first");
    TypeParam::of(made);
    yld_Yld copy = made;
    TypeParam::of(made).insert("own", typename TypeParam::Value());
    EXPECT_EQ(joined(TypeParam::of(made).keys()), "first,own");
    EXPECT_EQ(joined(TypeParam::of(copy).keys()), "first");
    EXPECT_EQ(&TypeParam::of(copy).constGet("first").stored(), &TypeParam::of(made).constGet("first").stored());
    made.close();
}

TYPED_TEST(yld_AttributeRepositoryTest, ofNoDatabaseTheyCannotBeReached)
{
    yld_Yld none;
    EXPECT_EQ(failureOf([&] { TypeParam::of(none); }), "store: no store is open here");
}

TYPED_TEST(yld_AttributeRepositoryTest, aFailedReadLeavesALaterTryToFailTheSameWay)
{
    yld_Yld& made = this->create();
    typename TypeParam::Attributes repository(this->modelOf(made));
    made.close();
    const std::string first = failureOf([&] { repository.Read(); });
    EXPECT_NE(first, "no exception");
    EXPECT_EQ(failureOf([&] { repository.Read(); }), first);
}
