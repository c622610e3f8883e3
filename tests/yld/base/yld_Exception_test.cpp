#include "yld_Exception.h"

#include "platform/os/osu_Version.h"
#include "platform/store/pcl_ClassMetadata.h"
#include "platform/store/pcl_MetadataRegistrar.h"
#include "platform/store/pcl_WriteVisitor.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <typeinfo>

struct yld_ExceptionTestAccess
{
    static yld_String label(int version, int major, int minor)
    {
        return yld_Exception::versionLabel(version, {major, minor});
    }
};

namespace {

// Writes down everything that it is given, in the order in which it comes.
class Record : public pcl_WriteVisitor
{
public:
    explicit Record(bool accept) : m_accept(accept) {}

    bool StartWrite(unsigned typeId) override
    {
        text += "class " + std::to_string(typeId) + ";";
        return m_accept;
    }
    void Write(const char* name, int value) override { note(name, "int " + std::to_string(value)); }
    void Write(const char* name, long long value) override { note(name, "long " + std::to_string(value)); }
    void Write(const char* name, float value) override { note(name, "float " + std::to_string(value)); }
    void Write(const char* name, double value) override { note(name, "double " + std::to_string(value)); }
    void Write(const char* name, bool value) override { note(name, value ? "true" : "false"); }
    void Write(const char* name, const char* value) override { note(name, "text " + std::string(value)); }
    void Write(const char* name, const std::string& value) override { note(name, "text " + value); }
    void Write(const char* name, const std::vector<int>&) override { note(name, "list"); }
    void Write(const char* name, const std::vector<double>&) override { note(name, "list"); }
    void Write(const char* name, const std::vector<std::string>&) override { note(name, "list"); }
    void Write(const char* name, const lnk_AnyShortCut&) override { note(name, "reference"); }
    void Write(const char* name, const pcl_Array<int>&) override { note(name, "bulk"); }
    void Write(const char* name, const pcl_Array<float>&) override { note(name, "bulk"); }
    void Write(const char* name, const pcl_Array<double>&) override { note(name, "bulk"); }

    std::string text;

private:
    void note(const char* name, const std::string& value) { text += std::string(name) + " " + value + ";"; }

    bool m_accept;
};

void expectFields(const yld_Exception& e, const char* file, int number, const char* message, int version, int expected,
                  bool readOnly)
{
    EXPECT_EQ(e.fileName(), file);
    EXPECT_EQ(e.errorNo(), number);
    EXPECT_EQ(e.errMsg(), message);
    EXPECT_EQ(e.versionNumber(), version);
    EXPECT_EQ(e.zantraVersion(), expected);
    EXPECT_EQ(e.readOnly(), readOnly);
}

template<class Caught> void expectCaughtAs()
{
    try {
        yld_Exception(6, "the text").Throw("file.cpp", 12);
        ADD_FAILURE() << "nothing thrown";
    } catch (const Caught& caught) {
        EXPECT_STREQ(caught.what(), "the text");
        EXPECT_EQ(typeid(caught), typeid(yld_Exception));
    }
}

} // namespace

TEST(yld_Exception, constructor_of_number_and_message)
{
    expectFields(yld_Exception(6, "m"), "", 6, "m", 0, 0, true);
    expectFields(yld_Exception(yld_GENERAL, yld_String("m")), "", 6, "m", 0, 0, true);
}

TEST(yld_Exception, constructor_of_file_number_and_message)
{
    expectFields(yld_Exception("f", 2, "m"), "f", 2, "m", 0, 0, true);
}

TEST(yld_Exception, constructor_of_file_and_number) { expectFields(yld_Exception("f", 5), "f", 5, "", 0, 0, true); }

TEST(yld_Exception, constructor_of_file_number_and_version)
{
    expectFields(yld_Exception("f", 7, 77), "f", 7, "", 77, 0, true);
}

TEST(yld_Exception, constructor_of_file_number_and_both_versions)
{
    expectFields(yld_Exception("f", 1, 77, 891), "f", 1, "", 77, 891, true);
}

TEST(yld_Exception, constructor_of_everything)
{
    expectFields(yld_Exception("f", 0, 77, 891, false), "f", 0, "", 77, 891, false);
    expectFields(yld_Exception("f", 0, 77, 891, true), "f", 0, "", 77, 891, true);
}

TEST(yld_Exception, text_0_is_fixed_and_the_flag_remembered)
{
    const yld_Exception e("path.yld", 0, 500, 891, false);
    EXPECT_EQ(e.JournalMessage(),
              "The database is from a previous version of ZANTRA. \nRun zantra -upgrade -job <newFileName> -yld "
              "<oldYldFileName> to upgrade it.");
    EXPECT_FALSE(e.readOnly());
}

TEST(yld_Exception, text_1_has_the_file)
{
    EXPECT_EQ(yld_Exception("path.yld", 1, 900, 891).JournalMessage(),
              "path.yld is from a more recent version of ZANTRA.\n\n The current ZANTRA installation must be "
              "upgraded before this output database can be opened.");
}

TEST(yld_Exception, text_2_has_the_file_and_the_message)
{
    EXPECT_EQ(yld_Exception("path.yld", 2, "disk is gone").JournalMessage(),
              "cannot convert database path.yld, disk is gone");
}

TEST(yld_Exception, text_3_has_the_message)
{
    EXPECT_EQ(yld_Exception("path.yld", 3, "no such file").JournalMessage(),
              "isUpgradeRequiredForYld failed, no such file");
}

TEST(yld_Exception, text_4_has_the_file)
{
    EXPECT_EQ(yld_Exception("path.yld", 4).JournalMessage(),
              "Not enough disk space to create the converted file path.yld. \nPlease free some disk space and "
              "rerun the upgrade or run \nzantra -upgrade  -job <newFileName> -yld <oldYldFileName> \nto upgrade "
              "the file to a different disk drive. \nTrying to upgrade the file without enough disk space may "
              "\ncause the application to abort.\n");
}

TEST(yld_Exception, text_5_has_the_file)
{
    EXPECT_EQ(yld_Exception("path.yld", 5).JournalMessage(),
              "path.yld is an old format YLD file.\nYLD files generated with an ZANTRA analysis \nversion prior to "
              "6.1-1 cannot be opened with \nthe current version of ZANTRA/Viewer. \nPlease rerun the analysis "
              "using the current \nZANTRA analysis version.");
}

TEST(yld_Exception, text_6_is_the_message_unchanged)
{
    EXPECT_EQ(yld_Exception(6, "100% of %1$s, %s\n").JournalMessage(), "100% of %1$s, %s\n");
    EXPECT_EQ(yld_Exception("path.yld", 6, "m").JournalMessage(), "m");
}

TEST(yld_Exception, text_7_has_the_file_and_its_version)
{
    EXPECT_EQ(yld_Exception("path.yld", 7, 123).JournalMessage(),
              "The database file path.yld has version 123. \nThis version number is marked as an invalid database "
              "version. \nYld upgrade is not supported for this database");
}

TEST(yld_Exception, other_numbers_give_an_empty_text)
{
    for (const int number : {-1, 8, 1000000}) {
        const yld_Exception e(number, "m");
        EXPECT_EQ(e.JournalMessage(), "");
        EXPECT_STREQ(e.what(), "");
        EXPECT_EQ(e.errMsg(), "m");
    }
}

TEST(yld_Exception, a_placeholder_in_a_file_name_stays_text)
{
    EXPECT_EQ(yld_Exception("%2$s.yld", 2, "m").JournalMessage(), "cannot convert database %2$s.yld, m");
}

TEST(yld_Exception, every_report_gives_the_users_text)
{
    const yld_Exception e("path.yld", 2, "m");
    EXPECT_EQ(e.AsString(), "cannot convert database path.yld, m");
    EXPECT_EQ(e.UserReport(), "cannot convert database path.yld, m");
    EXPECT_EQ(e.DeveloperReport(), "cannot convert database path.yld, m");
    EXPECT_STREQ(e.what(), "cannot convert database path.yld, m");
    EXPECT_EQ(e.what(), e.what()) << "one text for the life of the object";
}

TEST(yld_Exception, is_caught_as_itself_and_as_each_base)
{
    expectCaughtAs<yld_Exception>();
    expectCaughtAs<exc_CommandException>();
    expectCaughtAs<exc_Exception>();
    expectCaughtAs<std::exception>();
}

TEST(yld_Exception, throw_notes_the_position_for_the_developer)
{
    try {
        yld_Exception("path.yld", 3, "m").Throw("file.cpp", 12);
    } catch (const exc_Exception& caught) {
        EXPECT_EQ(caught.DeveloperReport(), "file.cpp:12: isUpgradeRequiredForYld failed, m");
    }
}

TEST(yld_Exception, propagate_throws_a_copy_of_the_same_type)
{
    const yld_Exception original("f", 1, 77, 891, false);
    const exc_Exception& base = original;
    try {
        base.Propagate();
    } catch (const yld_Exception& caught) {
        EXPECT_NE(&caught, &original);
        expectFields(caught, "f", 1, "", 77, 891, false);
    }
}

TEST(yld_Exception, copy_is_a_whole_object_of_its_own)
{
    std::unique_ptr<exc_Exception> copy;
    {
        const yld_Exception original("f", 2, "m");
        copy.reset(static_cast<const exc_Exception&>(original).Copy());
    }
    const auto* const same = dynamic_cast<const yld_Exception*>(copy.get());
    ASSERT_NE(same, nullptr);
    expectFields(*same, "f", 2, "m", 0, 0, true);
    EXPECT_STREQ(copy->what(), "cannot convert database f, m");
}

TEST(yld_Exception, names_itself)
{
    const yld_Exception e(6, "m");
    EXPECT_EQ(yld_Exception::TypeId(), 0x290001u);
    EXPECT_EQ(static_cast<const exc_Exception&>(e).DynTypeId(), 0x290001u);
    EXPECT_STREQ(static_cast<const exc_Exception&>(e).PythonType(), "YldError");
}

TEST(yld_Exception, writes_its_fields_in_order)
{
    Record record(true);
    yld_Exception("f", 1, 77, 891, false).DBWrite(record);
    EXPECT_EQ(record.text, "class 2686977;m_FileName text f;m_ErrorNo int 1;m_ErrMsg text ;m_VersionNumber int "
                           "77;m_ZantraVersion int 891;m_ReadOnly false;");
}

TEST(yld_Exception, writes_nothing_to_a_visitor_that_declines)
{
    Record record(false);
    yld_Exception(6, "m").DBWrite(record);
    EXPECT_EQ(record.text, "class 2686977;");
}

TEST(yld_Exception, declares_its_class)
{
    pcl_MetadataRegistrar::initClassMetadata(yld_Exception::initClassMetadata, -17);
    const pcl_ClassMetadata* const metadata = pcl_MetadataRegistrar::find("yld_Exception");
    ASSERT_NE(metadata, nullptr);
    EXPECT_EQ(metadata->name(), "yld_Exception");
    EXPECT_EQ(metadata->baseName(), "exc_CommandException");
    EXPECT_EQ(metadata->id(), 0x290001u);
    EXPECT_EQ(metadata->version(), 800);
    const struct
    {
        const char* name;
        pcl_Kind kind;
    } expected[] = {{"m_FileName", pcl_Kind::STRING},     {"m_ErrorNo", pcl_Kind::INT32},
                    {"m_ErrMsg", pcl_Kind::STRING},       {"m_VersionNumber", pcl_Kind::INT32},
                    {"m_ZantraVersion", pcl_Kind::INT32}, {"m_ReadOnly", pcl_Kind::BOOL}};
    ASSERT_EQ(metadata->attributes().size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        EXPECT_EQ(metadata->attributes()[i].name, expected[i].name);
        EXPECT_EQ(metadata->attributes()[i].kind, expected[i].kind);
    }
    pcl_MetadataRegistrar::dropSchema(-17);
}

TEST(yld_Exception, version_labels_of_the_first_releases_are_one_number)
{
    using Access = yld_ExceptionTestAccess;
    EXPECT_EQ(Access::label(-1, 6, 3), "1");
    EXPECT_EQ(Access::label(14, 6, 3), "1");
    EXPECT_EQ(Access::label(15, 6, 3), "2");
    EXPECT_EQ(Access::label(41, 6, 3), "2");
}

TEST(yld_Exception, later_version_labels_are_those_of_the_current_release)
{
    using Access = yld_ExceptionTestAccess;
    EXPECT_EQ(Access::label(42, 6, 3), "6.3");
    EXPECT_EQ(Access::label(891, 6, 0), "6.0.891");
    EXPECT_EQ(Access::label(891, 0, 0), "0.0.891");
    EXPECT_EQ(Access::label(891, 1, 3), "1") << "major 1 or 2 stands alone, whatever the minor";
    EXPECT_EQ(Access::label(891, 2, 0), "2");
    EXPECT_EQ(yld_Exception::versionLabel(891), Access::label(891, osu_Version::Major(), osu_Version::Minor()));
}
