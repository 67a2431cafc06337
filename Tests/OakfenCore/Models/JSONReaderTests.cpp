#include "OakfenCore/Models/JSONReader.h"

#include <gtest/gtest.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

#include <array>
#include <random>
#include <string>
#include <string_view>

#include "OakfenCore/Models/JSONText.h"

namespace oakfen {
namespace {

using namespace std::string_view_literals;

/// Whether the whole text is one sound value.
bool isJSON(std::string_view text) {
    try {
        JSONReader reader(text);
        reader.skipValue();
        reader.finish();
        return true;
    } catch (const JSONError&) {
        return false;
    }
}

std::string reasonOf(std::string_view text) {
    try {
        JSONReader reader(text);
        reader.skipValue();
        reader.finish();
        return "";
    } catch (const JSONError& error) {
        return error.reason;
    }
}

std::string stringIn(std::string_view json) {
    JSONReader reader(json);
    std::string text(reader.readString());
    reader.finish();
    return text;
}

TEST(JSONReader, AcceptsWhatTheGrammarHas) {
    for (const std::string_view text : {"null",
                                        "true",
                                        "false",
                                        "0",
                                        "-0",
                                        "0.0",
                                        "-12.50",
                                        "1e5",
                                        "1E+5",
                                        "1.5e-3",
                                        "\"\"",
                                        "\"a\"",
                                        "[]",
                                        "{}",
                                        " [ 1 , [ ] , { } ] ",
                                        "\r\n\t {\"a\" : [true, null], \"\" : {}} \n",
                                        "[\"\\\"\\\\\\/\\b\\f\\n\\r\\t\\u00e9\"]",
                                        "[1e400]",
                                        "[\"\x7F\"]",
                                        "\xEF\xBB\xBF{\"after\": \"a mark\"}"}) {
        EXPECT_TRUE(isJSON(text)) << text << ": " << reasonOf(text);
    }
}

TEST(JSONReader, RefusesWhatTheGrammarHasNot) {
    for (const std::string_view text : {"",         " ",         "nul",
                                        "nulll",    "True",      "01",
                                        "-01",      "1.",        ".5",
                                        "+1",       "1.e5",      "1e",
                                        "1e+",      "-",         "0x10",
                                        "NaN",      "Infinity",  "-Infinity",
                                        "1_000",    "[1,]",      "[,1]",
                                        "[1 2]",    "[",         "]",
                                        "[1",       "{",         "}",
                                        "{\"a\"}",  "{\"a\":}",  "{\"a\":1,}",
                                        "{,}",      "{a:1}",     "{'a':1}",
                                        "{1:2}",    "{\"a\" 1}", "{\"a\":1 \"b\":2}",
                                        "[1}",      "{\"a\":1]", "'a'",
                                        "\"",       "\"a",       "\"\\\"",
                                        "\"\\x\"",  "\"\\u12\"", "\"\\u12g4\"",
                                        "\"a\nb\"", "\"a\tb\"",  "1 2",
                                        "[] []",    "{} x",      "/* note */ 1",
                                        "1 // note"}) {
        EXPECT_FALSE(isJSON(text)) << text;
    }
}

TEST(JSONReader, RefusesTextsThatAreNotUTF8) {
    for (const std::string_view text :
         {"\"\xFF\"", "\"\xC3\"", "\"\xC3(\"", "\"\xE2\x82\"", "\"\xC0\xAF\"", "\"\xE0\x80\xAF\"",
          "\"\xED\xA0\x80\"", "\"\xF5\x80\x80\x80\"", "\"\\n\xFF\"", "\xFF"}) {
        EXPECT_FALSE(isJSON(text)) << text;
    }
}

TEST(JSONReader, RefusesHalfOfASurrogatePair) {
    EXPECT_FALSE(isJSON("\"\\ud83d\""));
    EXPECT_FALSE(isJSON("\"\\ud83dx\""));
    EXPECT_FALSE(isJSON("\"\\ud83d\\n\""));
    EXPECT_FALSE(isJSON("\"\\ud83d\\ud83d\""));
    EXPECT_FALSE(isJSON("\"\\udc00\""));
}

TEST(JSONReader, RefusesANulByteAnywhere) {
    EXPECT_FALSE(isJSON("[1]\0"sv));
    EXPECT_FALSE(isJSON("[\0"sv));
    EXPECT_FALSE(isJSON("\"a\0b\""sv));
}

TEST(JSONReader, ResolvesEscapes) {
    EXPECT_EQ(stringIn(R"("\"\\\/\b\f\n\r\t")"), "\"\\/\b\f\n\r\t");
    EXPECT_EQ(stringIn(R"("caf\u00e9 \u00E9 \u6f22")"), "café é 漢");
    EXPECT_EQ(stringIn(R"("\ud83d\ude00!")"), "😀!");
    EXPECT_EQ(stringIn(R"("a\u0000b")"), "a\0b"sv);
    EXPECT_EQ(stringIn("\"é\\té\""), "é\té");
}

TEST(JSONReader, LeavesNumbersAsTheyAreWritten) {
    JSONReader reader("[-12.50, 1E+2]");
    reader.enterArray();
    ASSERT_TRUE(reader.nextElement());
    EXPECT_EQ(reader.readNumber(), "-12.50");
    ASSERT_TRUE(reader.nextElement());
    EXPECT_EQ(reader.readNumber(), "1E+2");
    EXPECT_FALSE(reader.nextElement());
}

TEST(JSONReader, WalksThroughNestedValues) {
    JSONReader reader(R"({"a":[1],"b":{"c":null},"d":false})");
    reader.enterObject();
    EXPECT_EQ(reader.nextKey(), "a");
    reader.enterArray();
    EXPECT_TRUE(reader.nextElement());
    EXPECT_EQ(reader.readNumber(), "1");
    EXPECT_FALSE(reader.nextElement());
    EXPECT_EQ(reader.nextKey(), "b");
    reader.skipValue();
    EXPECT_EQ(reader.nextKey(), "d");
    EXPECT_FALSE(reader.readNull());
    EXPECT_FALSE(reader.readBoolean());
    EXPECT_EQ(reader.nextKey(), std::nullopt);
    EXPECT_NO_THROW(reader.finish());
}

TEST(JSONReader, SkipsAValueOfAHundredThousandLevels) {
    constexpr std::size_t levels = 100'000;
    std::string text;
    for (std::size_t level = 0; level < levels; ++level) {
        text += level % 2 == 0 ? "[" : "{\"a\":";
    }
    text += "1";
    for (std::size_t level = levels; level > 0; --level) {
        text += level % 2 == 0 ? "}" : "]";
    }
    EXPECT_TRUE(isJSON(text));
    text.pop_back();
    EXPECT_FALSE(isJSON(text));
}

TEST(JSONReader, SaysAtWhichByteItStopped) {
    EXPECT_EQ(reasonOf("[1 2]"), "expected a comma or a closing bracket (byte 3)");
    EXPECT_EQ(reasonOf("[1,"), "the text ends too early (byte 3)");
    EXPECT_EQ(reasonOf("[01]"), "a number with a leading zero (byte 2)");
}

/// Whether another reader of the same grammar accepts the text.
bool isJSONElsewhere(std::string_view text) {
    constexpr unsigned flags = rapidjson::kParseNumbersAsStringsFlag |
                               rapidjson::kParseValidateEncodingFlag |
                               rapidjson::kParseIterativeFlag;
    rapidjson::MemoryStream stream(text.data(), text.size());
    rapidjson::Reader reader;
    rapidjson::BaseReaderHandler<> handler;
    return !reader.Parse<flags>(stream, handler).IsError();
}

TEST(JSONReader, AgreesWithAnotherReaderOnDamagedTexts) {
    constexpr std::string_view sound =
        "{\"a\" : [1, -2.5e+3, true, false, null, \"caf\xC3\xA9 \\u00e9\\n\"],\n"
        "\"b\":{\"c\":[],\"d\":{}, \"e\":[[0.25],{\"f\":\"\\\\\"}]}}";
    constexpr std::string_view bytes = "{}[]\",:\\ 0123456789.-+eEtrufalsn\n\t\x01\xC3\xA9\xFF/";
    std::mt19937 engine(20240301);
    const auto below = [&](std::size_t bound) { return engine() % bound; };
    std::size_t accepted = 0;
    for (int round = 0; round < 20'000; ++round) {
        std::string text(sound);
        for (std::size_t edits = 1 + below(3); edits > 0; --edits) {
            const std::size_t position = below(text.size());
            switch (below(3)) {
            case 0:
                text[position] = bytes[below(bytes.size())];
                break;
            case 1:
                text.erase(position, 1 + below(4));
                break;
            default:
                text.insert(position, 1, bytes[below(bytes.size())]);
            }
        }
        ASSERT_EQ(isJSON(text), isJSONElsewhere(text)) << text;
        accepted += isJSON(text) ? 1U : 0U;
    }
    EXPECT_GT(accepted, 1'000U);
}

std::string written(std::string_view text) {
    std::string json;
    appendJSONString(json, text);
    return json;
}

TEST(JSONString, EscapesQuotesSlashesAndControlCharacters) {
    EXPECT_EQ(written("\"\\/"), R"("\"\\\/")");
    EXPECT_EQ(written("\b\f\n\r\t"), R"("\b\f\n\r\t")");
    EXPECT_EQ(written("\0\x01\x0B\x1F"sv), R"("\u0000\u0001\u000b\u001f")");
}

TEST(JSONString, LeavesEverythingElseAsItIs) {
    EXPECT_EQ(written("Café 漢字 😀 \x7F \u2028"), "\"Café 漢字 😀 \x7F \u2028\"");
    EXPECT_EQ(written(""), "\"\"");
}

TEST(JSONString, ReplacesWhatIsNotUTF8) {
    EXPECT_EQ(written("a\xFF/b"), "\"a\uFFFD\\/b\"");
    EXPECT_EQ(written("caf\xE9"), "\"caf\uFFFD\"");
    EXPECT_EQ(written("\xED\xA0\x80"), "\"\uFFFD\uFFFD\uFFFD\"");
}

TEST(JSONString, IsReadBackAsItWas) {
    std::string all;
    for (int character = 0; character < 0x80; ++character) {
        all += static_cast<char>(character);
    }
    all += "éß漢😀\u2029";
    EXPECT_EQ(stringIn(written(all)), all);
}

} // namespace
} // namespace oakfen
