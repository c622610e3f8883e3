#include "json_text.h"

#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>

TEST(json_text, floatsReadBackAsTheSameFloat)
{
    unsigned state = 12345;
    for (int i = 0; i < 100000; ++i) {
        state = state * 1664525u + 1013904223u;
        float number;
        std::memcpy(&number, &state, sizeof number);
        const std::string text = tool_numberText(number);
        if (text == "nan" || text == "inf" || text == "-inf") continue;
        const float back = std::strtof(text.c_str(), nullptr);
        ASSERT_EQ(0, std::memcmp(&number, &back, sizeof number)) << text;
    }
}

TEST(json_text, floatsAreShortest)
{
    EXPECT_EQ("0.1", tool_numberText(0.1f));
    EXPECT_EQ("0.1", tool_numberText(0.1));
    EXPECT_EQ("1", tool_numberText(1.0f));
    EXPECT_EQ("-0", tool_numberText(-0.0f));
    EXPECT_EQ("3.4028235e+38", tool_numberText(std::numeric_limits<float>::max()));
    EXPECT_EQ("1e-45", tool_numberText(std::numeric_limits<float>::denorm_min()));
}

TEST(json_text, whatIsNoNumberHasAName)
{
    EXPECT_EQ("nan", tool_numberText(std::numeric_limits<float>::quiet_NaN()));
    EXPECT_EQ("inf", tool_numberText(std::numeric_limits<float>::infinity()));
    EXPECT_EQ("-inf", tool_numberText(-std::numeric_limits<double>::infinity()));
}

TEST(json_text, documentIsWellFormed)
{
    testing::internal::CaptureStdout();
    tool_Output output;
    tool_JsonWriter json(output);
    json.beginObject().member("a", 1).key("b").beginArray().value(0.5f).value("x").endArray();
    json.key("c").beginObject().endObject().key("d").beginArray().endArray();
    json.member("e", std::numeric_limits<float>::infinity()).endObject();
    output.finish();
    std::fflush(stdout);
    EXPECT_EQ("{\"a\":1,\"b\":[0.5,\"x\"],\"c\":{},\"d\":[],\"e\":null}", testing::internal::GetCapturedStdout());
}

TEST(json_text, textIsEscapedAndAlwaysUtf8)
{
    testing::internal::CaptureStdout();
    tool_Output output;
    tool_JsonWriter json(output);
    json.beginArray()
        .value("\"\\\n\x7f")
        .value("gr\xc3\xbc\xc3\x9f")
        .value("\xff\xc3(\xe2\x82")
        .value("\xed\xa0\x80")
        .endArray();
    output.finish();
    std::fflush(stdout);
    EXPECT_EQ("[\"\\\"\\\\\\u000a\\u007f\",\"gr\xc3\xbc\xc3\x9f\",\"\\ufffd\\ufffd(\\ufffd\\ufffd\","
              "\"\\ufffd\\ufffd\\ufffd\"]",
              testing::internal::GetCapturedStdout());
}
