#include "platform/value/val_PrimEnum.h"

#include "containers/shr_Map.h"
#include "platform/store/pcl_ClassMetadata.h"
#include "platform/store/pcl_MetadataRegistrar.h"
#include "platform/store/pcl_ReadVisitor.h"
#include "platform/store/pcl_WriteVisitor.h"
#include "platform/value/val_ValueErrorException.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

enum Colour : int
{
    RED = 4,
    GREEN = 1,
    CYAN = 1,
    BLUE = -2,
    UNLISTED = 9
};

enum Signal : int
{
    STOP_RED = 0
};

/// Keeps the texts that an object writes and gives them back.
class Memory : public pcl_WriteVisitor, public pcl_ReadVisitor
{
public:
    bool wanted = true;
    std::vector<unsigned> started;
    std::map<std::string, std::string> texts;

    bool StartWrite(unsigned typeId) override
    {
        started.push_back(typeId);
        return wanted;
    }
    void Write(const char* attribute, const char* text) override { texts[attribute] = text; }
    void Write(const char* attribute, const std::string& text) override { texts[attribute] = text; }
    bool Read(const char* attribute, std::string& text) override
    {
        const auto found = texts.find(attribute);
        if (found == texts.end()) return false;
        text = found->second;
        return true;
    }

    void Write(const char*, int) override { unexpected(); }
    void Write(const char*, long long) override { unexpected(); }
    void Write(const char*, float) override { unexpected(); }
    void Write(const char*, double) override { unexpected(); }
    void Write(const char*, bool) override { unexpected(); }
    void Write(const char*, const std::vector<int>&) override { unexpected(); }
    void Write(const char*, const std::vector<double>&) override { unexpected(); }
    void Write(const char*, const std::vector<std::string>&) override { unexpected(); }
    void Write(const char*, const lnk_AnyShortCut&) override { unexpected(); }
    void Write(const char*, const pcl_Array<int>&) override { unexpected(); }
    void Write(const char*, const pcl_Array<float>&) override { unexpected(); }
    void Write(const char*, const pcl_Array<double>&) override { unexpected(); }
    bool Read(const char*, int&) override { return unexpected(); }
    bool Read(const char*, long long&) override { return unexpected(); }
    bool Read(const char*, float&) override { return unexpected(); }
    bool Read(const char*, double&) override { return unexpected(); }
    bool Read(const char*, bool&) override { return unexpected(); }
    bool Read(const char*, std::vector<int>&) override { return unexpected(); }
    bool Read(const char*, std::vector<double>&) override { return unexpected(); }
    bool Read(const char*, std::vector<std::string>&) override { return unexpected(); }
    bool Read(const char*, lnk_AnyShortCut&) override { return unexpected(); }
    bool Read(const char*, pcl_Array<int>&) override { return unexpected(); }
    bool Read(const char*, pcl_Array<float>&) override { return unexpected(); }
    bool Read(const char*, pcl_Array<double>&) override { return unexpected(); }

private:
    static bool unexpected()
    {
        ADD_FAILURE() << "an attribute of another kind";
        return false;
    }
};

template<class Call> std::string refusalOf(Call call)
{
    try {
        call();
    } catch (const val_ValueErrorException& error) {
        return error.AsString().cStr();
    }
    return "(allowed)";
}

} // namespace

template<> const val_PrimEnumRow* val_PrimEnum<Colour>::Table()
{
    static constexpr val_PrimEnumRow rows[] = {
        {"RED", RED}, {"GREEN", GREEN}, {"CYAN", CYAN}, {"BLUE", BLUE}, {nullptr, 0}};
    return rows;
}

/// The second table of the enumeration: a part of the first.
template<> const val_PrimEnumRow* val_PrimEnum<Colour, true>::Table()
{
    static constexpr val_PrimEnumRow rows[] = {{"RED", RED}, {nullptr, 0}};
    return rows;
}

template<> const val_PrimEnumRow* val_PrimEnum<Signal>::Table()
{
    static constexpr val_PrimEnumRow rows[] = {{"RED", STOP_RED}, {nullptr, 0}};
    return rows;
}

namespace {

using ColourValue = val_PrimEnum<Colour>;

TEST(val_PrimEnum, fromAnEnumerator)
{
    const ColourValue value(BLUE);
    EXPECT_STREQ("BLUE", value.GetText());
    EXPECT_EQ(-2, value.GetNumber());
    EXPECT_EQ(BLUE, value.GetValue());
}

TEST(val_PrimEnum, fromAnEnumeratorOutsideTheTable)
{
    const std::pair<int, const char*> rows[] = {
        {UNLISTED, "val_PrimEnum(Enum) - Enum value not allowed: 9  Permissible: RED, GREEN, CYAN, BLUE"},
        {-1, "val_PrimEnum(Enum) - Enum value not allowed: -1  Permissible: RED, GREEN, CYAN, BLUE"},
        // the number at the end of the table
        {0, "val_PrimEnum(Enum) - Enum value not allowed: 0  Permissible: RED, GREEN, CYAN, BLUE"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.second, refusalOf([&] { ColourValue value(static_cast<Colour>(row.first)); }));
    }
}

TEST(val_PrimEnum, fromAText)
{
    const ColourValue value(shr_String("GREEN"));
    EXPECT_STREQ("GREEN", value.GetText());
    EXPECT_EQ(GREEN, value.GetValue());
}

TEST(val_PrimEnum, fromATextOutsideTheTable)
{
    const std::pair<const char*, const char*> rows[] = {
        {"green", "val_PrimEnum(const shr_String&) - str not allowed: green  Permissible: RED, GREEN, CYAN, BLUE"},
        {"", "val_PrimEnum(const shr_String&) - str not allowed:   Permissible: RED, GREEN, CYAN, BLUE"},
        // no placeholder of the message
        {"%s%d", "val_PrimEnum(const shr_String&) - str not allowed: %s%d  Permissible: RED, GREEN, CYAN, BLUE"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.second, refusalOf([&] { ColourValue value{shr_String(row.first)}; }));
    }
}

TEST(val_PrimEnum, fromTheValueOfAnotherEnumerationByItsText)
{
    const val_PrimEnum<Signal> stop(STOP_RED);
    const ColourValue value(static_cast<const val_PrimEnumBase&>(stop));
    EXPECT_STREQ("RED", value.GetText());
    EXPECT_EQ(RED, value.GetValue());
}

TEST(val_PrimEnum, fromTheValueOfAnotherEnumerationWithoutItsText)
{
    const ColourValue blue(BLUE);
    EXPECT_EQ("val_PrimEnum(const val_PrimEnumBase&) - str not allowed: BLUE",
              refusalOf([&] { val_PrimEnum<Signal> value(static_cast<const val_PrimEnumBase&>(blue)); }));
}

TEST(val_PrimEnum, theFlagPartsTwoTablesOfOneEnumeration)
{
    EXPECT_EQ(RED, (val_PrimEnum<Colour, true>(RED).GetValue()));
    EXPECT_EQ("val_PrimEnum(Enum) - Enum value not allowed: 1  Permissible: RED",
              refusalOf([] { val_PrimEnum<Colour, true> value(GREEN); }));
}

TEST(val_PrimEnum, writtenAndReadBack)
{
    for (const char* text : {"RED", "GREEN", "CYAN", "BLUE"}) {
        Memory memory;
        const ColourValue written{shr_String(text)};
        written.DBWrite(memory);
        const ColourValue read(static_cast<pcl_ReadVisitor&>(memory));
        EXPECT_STREQ(text, read.GetText());
        EXPECT_EQ(written.GetNumber(), read.GetNumber());
    }
}

TEST(val_PrimEnum, aVisitorThatDeclinesGetsNothing)
{
    Memory memory;
    memory.wanted = false;
    ColourValue(RED).DBWrite(memory);
    EXPECT_EQ(std::vector<unsigned>{0x13001bu}, memory.started);
    EXPECT_TRUE(memory.texts.empty());
}

TEST(val_PrimEnum, readATextOutsideTheTable)
{
    const std::pair<std::map<std::string, std::string>, const char*> rows[] = {
        {{{"type", "PINK"}},
         "val_PrimEnum(const pcl_ReadVisitor&) - str not allowed: PINK  Permissible: RED, GREEN, CYAN, BLUE"},
        // an object without the text
        {{}, "val_PrimEnum(const pcl_ReadVisitor&) - str not allowed:   Permissible: RED, GREEN, CYAN, BLUE"},
    };
    for (const auto& row : rows) {
        Memory memory;
        memory.texts = row.first;
        EXPECT_EQ(row.second, refusalOf([&] { ColourValue value(static_cast<pcl_ReadVisitor&>(memory)); }));
    }
}

TEST(val_PrimEnum, theRefusalIsACommandsException) { EXPECT_THROW(ColourValue{UNLISTED}, exc_CommandException); }

TEST(val_PrimEnum, setByText)
{
    struct Row
    {
        const char* text;
        bool isTaken;
    };
    // A text that differs in case or is not the whole text is none of the table's.
    for (const Row& row :
         {Row{"BLUE", true}, {"Blue", false}, {"BLU", false}, {"BLUE ", false}, {"", false}, {nullptr, false}}) {
        SCOPED_TRACE(row.text ? row.text : "(null)");
        ColourValue value(RED);
        EXPECT_EQ(row.isTaken, value.SetValue(row.text));
        EXPECT_STREQ(row.isTaken ? "BLUE" : "RED", value.GetText());
        EXPECT_EQ(row.isTaken ? BLUE : RED, value.GetValue());
    }
}

TEST(val_PrimEnum, setByEnumerator)
{
    ColourValue value(RED);
    EXPECT_TRUE(value.SetValue(BLUE));
    EXPECT_STREQ("BLUE", value.GetText());
    EXPECT_FALSE(value.SetValue(UNLISTED));
    EXPECT_STREQ("BLUE", value.GetText());
    EXPECT_EQ(BLUE, value.GetValue());
}

TEST(val_PrimEnum, setThroughTheBase)
{
    ColourValue value(RED);
    val_PrimEnumBase& base = value;
    EXPECT_TRUE(base.SetValue("GREEN"));
    EXPECT_EQ(GREEN, value.GetValue());
}

TEST(val_PrimEnum, aNumberOfTwoRowsIsTheFirst)
{
    EXPECT_STREQ("GREEN", ColourValue(CYAN).GetText());
    ColourValue value(RED);
    EXPECT_TRUE(value.SetValue(CYAN));
    EXPECT_STREQ("GREEN", value.GetText());
}

TEST(val_PrimEnum, theTextOfASecondRowKeepsItsOwnText)
{
    const ColourValue value(shr_String("CYAN"));
    EXPECT_STREQ("CYAN", value.GetText());
    EXPECT_EQ(1, value.GetNumber());
    EXPECT_TRUE(value == ColourValue(GREEN));
}

TEST(val_PrimEnum, equality)
{
    EXPECT_TRUE(ColourValue(RED) == ColourValue(shr_String("RED")));
    EXPECT_FALSE(ColourValue(RED) == ColourValue(BLUE));
    EXPECT_TRUE(ColourValue(RED) != ColourValue(BLUE));
}

TEST(val_PrimEnum, copyThroughTheBase)
{
    const ColourValue value(BLUE);
    const val_Primitive& primitive = value;
    const std::unique_ptr<val_Primitive> copy(primitive.Copy());
    const auto* copied = dynamic_cast<const ColourValue*>(copy.get());
    ASSERT_NE(nullptr, copied);
    EXPECT_NE(&value, copied);
    EXPECT_TRUE(*copied == value);
    EXPECT_STREQ("BLUE", copied->GetText());
}

TEST(val_PrimEnum, aCopyIsChangedAlone)
{
    const ColourValue value(BLUE);
    ColourValue copy(value);
    EXPECT_TRUE(copy.SetValue(RED));
    EXPECT_EQ(BLUE, value.GetValue());
    copy = value;
    EXPECT_EQ(BLUE, copy.GetValue());
}

TEST(val_PrimEnum, permissibleValuesAsStringInTheOrderOfTheTable)
{
    EXPECT_STREQ("RED, GREEN, CYAN, BLUE", ColourValue(RED).PermissibleValuesAsString().cStr());
    EXPECT_STREQ("RED", val_PrimEnum<Signal>(STOP_RED).PermissibleValuesAsString().cStr());
}

TEST(val_PrimEnum, permissibleValuesFromTextToNumber)
{
    const shr_Map<shr_String, unsigned> values = ColourValue(RED).PermissibleValues();
    EXPECT_EQ(4, values.Size());
    const std::map<std::string, unsigned> expected = {{"RED", 4u}, {"GREEN", 1u}, {"CYAN", 1u}, {"BLUE", 4294967294u}};
    for (const auto& [text, number] : expected) {
        const unsigned* found = values.Lookup(shr_String(text.c_str()));
        ASSERT_NE(nullptr, found) << text;
        EXPECT_EQ(number, *found) << text;
    }
    EXPECT_EQ(nullptr, values.Lookup(shr_String("UNLISTED")));
}

TEST(val_PrimEnum, theClassIsDeclaredToTheStore)
{
    constexpr int schema = 1 << 20;
    pcl_MetadataRegistrar::initClassMetadata(&val_PrimEnumBase::DeclareMetadata, schema);
    const pcl_ClassMetadata* byId = pcl_MetadataRegistrar::find(0x13001bu);
    ASSERT_NE(nullptr, byId);
    EXPECT_EQ(byId, pcl_MetadataRegistrar::find("val_PrimEnum"));
    ASSERT_EQ(1u, byId->attributes().size());
    EXPECT_EQ("type", byId->attributes()[0].name);
    EXPECT_EQ(pcl_Kind::STRING, byId->attributes()[0].kind);
    pcl_MetadataRegistrar::dropSchema(schema);
}

} // namespace
