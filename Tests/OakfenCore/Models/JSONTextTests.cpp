#include "OakfenCore/Models/JSONText.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "Tests/OakfenCore/Models/JSONEvents.h"

namespace oakfen {
namespace {

using namespace std::string_view_literals;
using testing::textIn;

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
    EXPECT_EQ(textIn(written(all)), all);
}

} // namespace
} // namespace oakfen
