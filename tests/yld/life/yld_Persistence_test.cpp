#include "platform/store/fio_File.h"
#include "platform/store/pcl_MetadataRegistrar.h"
#include "platform/value/val_ValueErrorException.h"
#include "test_files.h"
#include "yld/impl/base/yld_PrimEnum.h"
#include "yld_API.h"
#include "yld_Exception.h"

#include <sqlite3.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

// Exceptions and enumerators on the whole way: written through a visitor into a file, the file closed, opened
// again and read by attribute name.

namespace {

class yld_PersistenceTest : public testing::Test
{
protected:
    yld_PersistenceTest() { yld_initializeAPI(); }
    ~yld_PersistenceTest() override { yld_finalizeAPI(); }

    const ScratchFolder folder;
    const std::string path = folder.file("a.yld");
};

// What the two kinds of value have in common as objects of a file.
template<class Self> class StoredValue : public pcl_Persistent
{
public:
    static const pcl_ClassMetadata& ClassMetadata()
    {
        const pcl_ClassMetadata* const known = pcl_MetadataRegistrar::find(Self::className);
        if (!known) {
            throw exc_TextException("the start of the library has not declared the class");
        }
        return *known;
    }
    const pcl_ClassMetadata& Metadata() const override { return ClassMetadata(); }
    std::shared_ptr<pcl_Persistent> Clone() const override
    {
        return std::make_shared<Self>(static_cast<const Self&>(*this));
    }
    void StoreArrays(const std::shared_ptr<fio_FileBody>&) override {}
};

class StoredException : public StoredValue<StoredException>
{
public:
    static constexpr const char* className = "yld_Exception";

    StoredException() = default;
    explicit StoredException(const yld_Exception& exception) : m_exception(exception) {}

    void DBWrite(pcl_WriteVisitor& visitor) const override { m_exception.DBWrite(visitor); }
    void DBRead(pcl_ReadVisitor& visitor) override
    {
        std::string file;
        std::string message;
        int number = -1;
        int version = -1;
        int expected = -1;
        bool readOnly = false;
        found = visitor.Read("m_FileName", file) && visitor.Read("m_ErrorNo", number) &&
                visitor.Read("m_ErrMsg", message) && visitor.Read("m_VersionNumber", version) &&
                visitor.Read("m_ZantraVersion", expected) && visitor.Read("m_ReadOnly", readOnly);
        read = file + '|' + std::to_string(number) + '|' + message + '|' + std::to_string(version) + '|' +
               std::to_string(expected) + '|' + (readOnly ? "read-only" : "writable");
    }

    bool found = false;
    std::string read;

private:
    yld_Exception m_exception{-1, ""};
};

class StoredText : public StoredValue<StoredText>
{
public:
    static constexpr const char* className = "val_PrimEnum";

    StoredText() = default;
    explicit StoredText(const val_PrimEnumBase& value) { m_value.reset(value.Copy()); }

    void DBWrite(pcl_WriteVisitor& visitor) const override { m_value->DBWrite(visitor); }
    void DBRead(pcl_ReadVisitor& visitor) override { found = visitor.Read("type", text); }

    bool found = false;
    std::string text;

private:
    std::shared_ptr<const val_Primitive> m_value;
};

// An enumerator that the reading constructor has made from the file.
template<class E> class StoredEnum : public StoredValue<StoredEnum<E>>
{
public:
    static constexpr const char* className = "val_PrimEnum";

    void DBWrite(pcl_WriteVisitor& visitor) const override { value->DBWrite(visitor); }
    void DBRead(pcl_ReadVisitor& visitor) override { value = std::make_shared<val_PrimEnum<E>>(visitor); }

    std::shared_ptr<val_PrimEnum<E>> value;
};

// Puts objects into a new file and closes it; gives their ids.
template<class Stored> std::vector<long long> writeAll(const std::string& path, const std::vector<Stored>& objects)
{
    const fio_File file = fio_File::Create(path.c_str());
    std::vector<long long> ids;
    for (const Stored& object : objects) {
        ids.push_back(lnk_ShortCut<Stored>::create(file.body(), object).id());
    }
    file.body()->setRootObject(ids.front());
    file.body()->save();
    return ids;
}

// All rows of a query, columns parted by bars.
std::vector<std::string> rowsOf(const std::string& path, const char* query)
{
    std::vector<std::string> rows;
    sqlite3* db = nullptr;
    sqlite3_stmt* statement = nullptr;
    EXPECT_EQ(sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK);
    EXPECT_EQ(sqlite3_prepare_v2(db, query, -1, &statement, nullptr), SQLITE_OK) << sqlite3_errmsg(db);
    while (sqlite3_step(statement) == SQLITE_ROW) {
        std::string row;
        for (int i = 0; i < sqlite3_column_count(statement); ++i) {
            row += i ? "|" : "";
            row += reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
        }
        rows.push_back(row);
    }
    sqlite3_finalize(statement);
    sqlite3_close(db);
    return rows;
}

template<class E> void expectEveryRowComesBack(const std::string& path)
{
    std::vector<StoredText> written;
    for (const val_PrimEnumRow* row = val_PrimEnum<E>::Table(); row->text; ++row) {
        written.emplace_back(val_PrimEnum<E>(shr_String(row->text)));
    }
    ASSERT_FALSE(written.empty());
    const std::vector<long long> ids = writeAll(path, written);
    const fio_File file = fio_File::Open(path.c_str(), false, true);
    std::size_t i = 0;
    for (const val_PrimEnumRow* row = val_PrimEnum<E>::Table(); row->text; ++row, ++i) {
        const auto read = lnk_ShortCut<StoredEnum<E>>(file.body(), ids[i]).fetch();
        EXPECT_STREQ(read->value->GetText(), row->text);
        EXPECT_EQ(read->value->GetNumber(), row->value) << row->text;
    }
}

} // namespace

TEST_F(yld_PersistenceTest, exceptions_come_back_from_a_closed_file)
{
    const std::vector<long long> ids = writeAll<StoredException>(
        path, {StoredException(yld_Exception("/a/b.yld", 0, 77, 891, false)),
               StoredException(yld_Exception(6, "100% 'of' \xc3\xa4")), StoredException(yld_Exception("f", 7, -3)),
               StoredException(yld_Exception("", 99, ""))});
    const fio_File file = fio_File::Open(path.c_str(), false, true);
    const char* const expected[] = {"/a/b.yld|0||77|891|writable", "|6|100% 'of' \xc3\xa4|0|0|read-only",
                                    "f|7||-3|0|read-only", "|99||0|0|read-only"};
    for (std::size_t i = 0; i < ids.size(); ++i) {
        const auto read = lnk_ShortCut<StoredException>(file.body(), ids[i]).fetch();
        EXPECT_TRUE(read->found);
        EXPECT_EQ(read->read, expected[i]);
    }
}

TEST_F(yld_PersistenceTest, the_file_knows_the_class_of_the_exception)
{
    writeAll<StoredException>(path, {StoredException(yld_Exception(6, "m"))});
    const std::vector<std::string> one = {"yld_Exception|2686977|800|yld_Exception"};
    EXPECT_EQ(rowsOf(path, "SELECT * FROM catalogue"), one);
    const std::vector<std::string> attributes = {"m_FileName",      "m_ErrorNo",       "m_ErrMsg",
                                                 "m_VersionNumber", "m_ZantraVersion", "m_ReadOnly"};
    EXPECT_EQ(rowsOf(path, "SELECT name FROM pragma_table_info('yld_Exception') WHERE name LIKE 'm\\_%' ESCAPE '\\' "
                           "ORDER BY cid"),
              attributes);
}

TEST_F(yld_PersistenceTest, the_file_keeps_the_text_of_an_enumerator)
{
    writeAll<StoredText>(path, {StoredText(val_PrimEnum<yld_Enum::yld_DataTypeEnum>(yld_Enum::QUATERNION_2D))});
    EXPECT_EQ(rowsOf(path, "SELECT type FROM val_PrimEnum"), std::vector<std::string>{"QUATERNION_2D"});
    EXPECT_EQ(rowsOf(path, "SELECT \"Class Name\", \"Class Id\" FROM catalogue"),
              std::vector<std::string>{"val_PrimEnum|1245211"})
        << "component 19, serial 27";
}

TEST_F(yld_PersistenceTest, every_analysis_code_comes_back)
{
    expectEveryRowComesBack<yld_Enum::yld_AnalysisCodeEnum>(path);
}
TEST_F(yld_PersistenceTest, every_precision_comes_back) { expectEveryRowComesBack<yld_Enum::yld_PrecisionEnum>(path); }
TEST_F(yld_PersistenceTest, every_product_comes_back) { expectEveryRowComesBack<yld_Enum::yld_ProductAddOnEnum>(path); }
TEST_F(yld_PersistenceTest, every_dimension_comes_back) { expectEveryRowComesBack<yld_Enum::yld_DimensionEnum>(path); }
TEST_F(yld_PersistenceTest, every_part_type_comes_back) { expectEveryRowComesBack<yld_Enum::yld_PartTypeEnum>(path); }
TEST_F(yld_PersistenceTest, every_domain_comes_back) { expectEveryRowComesBack<yld_Enum::yld_DomainEnum>(path); }
TEST_F(yld_PersistenceTest, every_data_type_comes_back) { expectEveryRowComesBack<yld_Enum::yld_DataTypeEnum>(path); }
TEST_F(yld_PersistenceTest, every_data_subtype_comes_back)
{
    expectEveryRowComesBack<yld_Enum::yld_DataSubtypeEnum>(path);
}
TEST_F(yld_PersistenceTest, every_position_comes_back)
{
    expectEveryRowComesBack<yld_Enum::yld_ResultPositionEnum>(path);
}
TEST_F(yld_PersistenceTest, every_invariant_comes_back) { expectEveryRowComesBack<yld_Enum::yld_InvariantEnum>(path); }
TEST_F(yld_PersistenceTest, every_face_comes_back) { expectEveryRowComesBack<yld_Enum::yld_ElementFaceEnum>(path); }
TEST_F(yld_PersistenceTest, every_category_comes_back)
{
    expectEveryRowComesBack<yld_AnalysisWarningError::Category>(path);
}

TEST_F(yld_PersistenceTest, a_text_of_another_enumeration_is_refused_with_its_message)
{
    const std::vector<long long> ids =
        writeAll<StoredText>(path, {StoredText(val_PrimEnum<yld_Enum::yld_DomainEnum>(yld_Enum::MODAL))});
    const fio_File file = fio_File::Open(path.c_str(), false, true);
    try {
        lnk_ShortCut<StoredEnum<yld_Enum::yld_PrecisionEnum>>(file.body(), ids[0]).fetch();
        ADD_FAILURE() << "not refused";
    } catch (const val_ValueErrorException& refusal) {
        EXPECT_STREQ(refusal.what(), "val_PrimEnum(const pcl_ReadVisitor&) - str not allowed: MODAL  Permissible: "
                                     "SINGLE_PRECISION, DOUBLE_PRECISION");
    }
}

// Every class of the library that has rows of its own: no two may meet in a file.
TEST_F(yld_PersistenceTest, every_persistent_class_has_a_name_and_an_id_of_its_own)
{
    std::set<std::string> names;
    std::set<unsigned> ids;
    int count = 0;
    for (const pcl_KnownClass* known = pcl_KnownClass::first(); known; known = known->next()) {
        EXPECT_NO_THROW(pcl_MetadataRegistrar::checkUnique(*known)) << known->name();
        EXPECT_TRUE(names.insert(known->name()).second) << known->name();
        EXPECT_TRUE(ids.insert(known->id()).second) << known->name();
        ++count;
    }
    // At least one of each floor, also of those that this program never uses.
    for (const char* name :
         {"sto_Sto", "sto_UserData", "mshK_Model", "grd_NodeData", "setC_Set", "fld_Field", "fld_Series",
          "stpC_Restart", "stpC_ExplicitDynamicsStep", "prtC_BeamOrientation", "secC_Section"}) {
        EXPECT_EQ(names.count(name), 1u) << name;
    }
    EXPECT_GT(count, 35);
}
