#include "OakfenCore/Models/JSONParsing.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "Tests/OakfenCore/Models/JSONEvents.h"

namespace oakfen {
namespace {

using namespace std::string_view_literals;
using testing::eventsIn;
using testing::JSONEvents;
using testing::textIn;

using Lines = std::vector<std::string>;

/// Why the text is refused, or nothing when it is one sound value.
std::string reasonOf(std::string_view text) {
    JSONEvents events;
    try {
        parseJSON(text, events);
        return "";
    } catch (const JSONError& error) {
        return error.localizedDescription();
    }
}

bool isJSON(std::string_view text) {
    return reasonOf(text).empty();
}

TEST(JSONParsing, AcceptsWhatTheGrammarHas) {
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
                                        "[1e-400]",
                                        "[\"\x7F\"]",
                                        "\xEF\xBB\xBF{\"after\": \"a mark\"}"}) {
        EXPECT_TRUE(isJSON(text)) << text << ": " << reasonOf(text);
    }
}

TEST(JSONParsing, RefusesWhatTheGrammarHasNot) {
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

TEST(JSONParsing, RefusesTextsThatAreNotUTF8) {
    for (const std::string_view text :
         {"\"\xFF\"", "\"\xC3\"", "\"\xC3(\"", "\"\xE2\x82\"", "\"\xC0\xAF\"", "\"\xE0\x80\xAF\"",
          "\"\xED\xA0\x80\"", "\"\xF5\x80\x80\x80\"", "\"\\n\xFF\"", "\xFF"}) {
        EXPECT_FALSE(isJSON(text)) << text;
    }
}

TEST(JSONParsing, RefusesHalfOfASurrogatePair) {
    EXPECT_FALSE(isJSON("\"\\ud83d\""));
    EXPECT_FALSE(isJSON("\"\\ud83dx\""));
    EXPECT_FALSE(isJSON("\"\\ud83d\\n\""));
    EXPECT_FALSE(isJSON("\"\\ud83d\\ud83d\""));
    EXPECT_FALSE(isJSON("\"\\udc00\""));
}

TEST(JSONParsing, RefusesANulByteAnywhere) {
    EXPECT_FALSE(isJSON("[1]\0"sv));
    EXPECT_FALSE(isJSON("[\0"sv));
    EXPECT_FALSE(isJSON("\"a\0b\""sv));
}

TEST(JSONParsing, ResolvesEscapes) {
    EXPECT_EQ(textIn(R"("\"\\\/\b\f\n\r\t")"), "\"\\/\b\f\n\r\t");
    EXPECT_EQ(textIn(R"("caf\u00e9 \u00E9 \u6f22")"), "café é 漢");
    EXPECT_EQ(textIn(R"("\ud83d\ude00!")"), "😀!");
    EXPECT_EQ(textIn(R"("a\u0000b")"), "a\0b"sv);
    EXPECT_EQ(textIn("\"é\\té\""), "é\té");
}

TEST(JSONParsing, LeavesNumbersAsTheyAreWritten) {
    for (const std::string_view number :
         {"0", "-0", "-12.50", "1E+2", "1.5e-3", "12345678901234567890.12345678901234567890",
          "-123456789012345678901234567890", "1e-99999999999"}) {
        EXPECT_EQ(eventsIn(number), Lines{"number " + std::string(number)});
    }
}

TEST(JSONParsing, RefusesNumbersTooLargeForADouble) {
    EXPECT_EQ(reasonOf("[1e400]"), "a number out of range");
    EXPECT_EQ(reasonOf("-1" + std::string(400, '0')), "a number out of range");
}

TEST(JSONParsing, TellsOfValuesInTheirOrder) {
    EXPECT_EQ(
        eventsIn(R"({"a":[1,"x"],"b":{"":null},"d":false,"e":[],"f":true})"),
        (Lines{"object", "key a", "list", "number 1", "text x", "end", "key b", "object", "key ",
               "null", "end", "key d", "false", "key e", "list", "end", "key f", "true", "end"}));
}

TEST(JSONParsing, TellsOfSoundValuesOnly) {
    JSONEvents events;
    EXPECT_THROW(parseJSON("[1, \"a\", \"\xFF\", 2]", events), JSONError);
    EXPECT_EQ(events.lines, (Lines{"list", "number 1", "text a"}));
}

TEST(JSONParsing, EndsWithWhatTheListenerThrows) {
    class Refusal {};
    class Refusing : public JSONEvents {
    public:
        void end() override { throw Refusal(); }
    };
    Refusing listener;
    EXPECT_THROW(parseJSON("[[1],2]", listener), Refusal);
    EXPECT_EQ(listener.lines, (Lines{"list", "list", "number 1"}));
}

TEST(JSONParsing, FollowsAHundredThousandLevels) {
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

TEST(JSONParsing, SaysWhatIsWrongAndAtWhichByte) {
    EXPECT_EQ(reasonOf(""), "the text ends too early (byte 0)");
    EXPECT_EQ(reasonOf("[1,"), "the text ends too early (byte 3)");
    EXPECT_EQ(reasonOf("\"abc"), "the text ends too early (byte 4)");
    EXPECT_EQ(reasonOf("[1 2]"), "expected a comma or a closing bracket (byte 3)");
    EXPECT_EQ(reasonOf("[01]"), "expected a comma or a closing bracket (byte 2)");
    EXPECT_EQ(reasonOf("{\"a\":1;"), "expected a comma or a closing brace (byte 6)");
    EXPECT_EQ(reasonOf("{\"a\" 1}"), "expected a colon (byte 5)");
    EXPECT_EQ(reasonOf("{1:2}"), "expected a key (byte 1)");
    EXPECT_EQ(reasonOf("[1,]"), "expected a value (byte 3)");
    EXPECT_EQ(reasonOf("]"), "expected a value (byte 0)");
    EXPECT_EQ(reasonOf("[1.]"), "a number without a digit where one belongs (byte 3)");
    EXPECT_EQ(reasonOf("[1ex]"), "a number without a digit where one belongs (byte 3)");
    EXPECT_EQ(reasonOf("[\"\\x\"]"), "an unknown escape or a control character (byte 2)");
    EXPECT_EQ(reasonOf("[\"\\u00g0\"]"), "an unknown escape or a control character (byte 2)");
    EXPECT_EQ(reasonOf("[\"\n\"]"), "an unknown escape or a control character (byte 2)");
    EXPECT_EQ(reasonOf("[\"\0\"]"sv), "an unknown escape or a control character (byte 2)");
    EXPECT_EQ(reasonOf("[\"\\ud83d\"]"), "half of a character (byte 2)");
    EXPECT_EQ(reasonOf("[] 1"), "something follows the end (byte 3)");
    EXPECT_EQ(reasonOf("[]\0"sv), "something follows the end (byte 2)");
}

TEST(JSONParsing, IsRefusedWithAnErrorForThePerson) {
    JSONEvents events;
    EXPECT_THROW(parseJSON("[", events), LocalizedError);
}

TEST(JSONParsing, SaysAfterWhichTextItFoundNoUTF8) {
    EXPECT_EQ(reasonOf("[\"ab\xFF\"]"), "not UTF-8 (byte 6)");
    EXPECT_EQ(reasonOf("[\"\\udc00\"]"), "not UTF-8 (byte 9)");
    EXPECT_EQ(reasonOf("{\"\\udc00\":1}"), "not UTF-8 (byte 9)");
}

TEST(JSONParsing, CountsAByteOrderMark) {
    EXPECT_EQ(reasonOf("\xEF\xBB\xBF[1,]"), "expected a value (byte 6)");
    EXPECT_EQ(reasonOf("\xEF\xBB\xBF"), "the text ends too early (byte 3)");
    EXPECT_EQ(reasonOf("\xEF\xBB[]"), "expected a value (byte 0)");
}

} // namespace
} // namespace oakfen
