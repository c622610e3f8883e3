#include "platform/text/exc_Exception.h"

#include "platform/value/val_ValueErrorException.h"

#include <gtest/gtest.h>

#include <memory>
#include <typeinfo>

namespace {

// Calls the action and gives the text and the dynamic type of what it throws as a Caught.
template<class Caught, class Action>
void expectThrow(const Action& action, const char* text, const std::type_info& type)
{
    bool thrown = false;
    try {
        action();
    } catch (const Caught& caught) {
        thrown = true;
        EXPECT_STREQ(caught.what(), text);
        EXPECT_EQ(typeid(caught), type);
    }
    EXPECT_TRUE(thrown);
}

} // namespace

TEST(exc_Exception, every_report_of_the_base_gives_the_text)
{
    const exc_Exception plain("the text");
    EXPECT_EQ(plain.AsString(), "the text");
    EXPECT_EQ(plain.UserReport(), "the text");
    EXPECT_EQ(plain.JournalMessage(), "the text");
    EXPECT_EQ(plain.DeveloperReport(), "the text");
    EXPECT_STREQ(plain.what(), "the text");
    EXPECT_STREQ(plain.PythonType(), "RuntimeError");
    EXPECT_STREQ(exc_Exception().what(), "");
}

TEST(exc_Exception, what_lives_as_long_as_the_object)
{
    const exc_Exception plain("the text");
    const char* const first = plain.what();
    EXPECT_EQ(plain.what(), first);
    const exc_Exception copy(plain);
    EXPECT_STREQ(copy.what(), "the text");
}

TEST(exc_Exception, throw_remembers_the_position)
{
    try {
        exc_Exception("the text").Throw("file.cpp", 42);
    } catch (const exc_Exception& caught) {
        EXPECT_STREQ(caught.throwFile(), "file.cpp");
        EXPECT_EQ(caught.throwLine(), 42);
        EXPECT_EQ(caught.DeveloperReport(), "file.cpp:42: the text");
        EXPECT_EQ(caught.UserReport(), "the text");
    }
}

TEST(exc_Exception, throw_and_propagate_keep_the_dynamic_type)
{
    const exc_Exception plain("plain");
    const exc_CommandException command("command");
    const exc_TextException text("text");
    const exc_AssertException assertion("condition");
    const val_ValueErrorException value("value");
    const exc_Exception* const all[] = {&plain, &command, &text, &assertion, &value};
    for (const exc_Exception* one : all) {
        expectThrow<exc_Exception>([&] { one->Propagate(); }, one->what(), typeid(*one));
        const std::unique_ptr<exc_Exception> copy(one->Copy());
        const exc_Exception& same = *copy;
        EXPECT_EQ(typeid(same), typeid(*one));
        EXPECT_STREQ(copy->what(), one->what());
        EXPECT_EQ(copy->DynTypeId(), one->DynTypeId());
        expectThrow<exc_Exception>([&] { copy->Throw("f", 1); }, one->what(), typeid(*one));
    }
}

TEST(exc_Exception, type_ids_differ)
{
    const unsigned ids[] = {exc_Exception::TypeId(), exc_CommandException::TypeId(), exc_TextException::TypeId(),
                            exc_AssertException::TypeId(), val_ValueErrorException::TypeId()};
    for (const unsigned& a : ids) {
        for (const unsigned& b : ids) {
            EXPECT_EQ(a == b, &a == &b);
        }
    }
}

TEST(val_ValueErrorException, is_caught_as_each_of_its_bases)
{
    const auto raise = [] { val_ValueErrorException("bad value").Throw(__FILE__, __LINE__); };
    expectThrow<std::exception>(raise, "bad value", typeid(val_ValueErrorException));
    expectThrow<exc_Exception>(raise, "bad value", typeid(val_ValueErrorException));
    expectThrow<exc_CommandException>(raise, "bad value", typeid(val_ValueErrorException));
    EXPECT_STREQ(val_ValueErrorException("bad value").PythonType(), "ValueError");
    EXPECT_EQ(val_ValueErrorException("bad value").AsString(), "bad value");
}

TEST(exc_AssertException, raises_the_condition_unless_bypassed)
{
    expectThrow<exc_Exception>([] { exc_AssertException::Raise("1 == 2", "f", 1); }, "1 == 2",
                               typeid(exc_AssertException));
    EXPECT_FALSE(exc_AssertException::SetBypassed(true));
    EXPECT_NO_THROW(exc_AssertException::Raise("1 == 2", "f", 1));
    EXPECT_TRUE(exc_AssertException::SetBypassed(false));
    EXPECT_THROW(exc_AssertException::Raise("1 == 2", "f", 1), exc_AssertException);
    EXPECT_STREQ(exc_AssertException("1 == 2").PythonType(), "AssertionError");
}
