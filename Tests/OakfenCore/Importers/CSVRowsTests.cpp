#include <random>

#include "OakfenCore/Support/Text/Text.h"
#include "Tests/OakfenCore/Importers/StatementFixtures.h"

namespace oakfen {

using Rows = std::vector<std::vector<std::string>>;
using StatementImporter::csvRows;

TEST(CSVRows, SplitsAtCommasAndEveryKindOfLineEnd) {
    EXPECT_EQ(csvRows("a,b\nc,d\r\ne,f\rg,h"),
              (Rows{{"a", "b"}, {"c", "d"}, {"e", "f"}, {"g", "h"}}));
}

TEST(CSVRows, ReadsTheLastLineWithAndWithoutALineEnd) {
    EXPECT_EQ(csvRows("a,b\n"), (Rows{{"a", "b"}}));
    EXPECT_EQ(csvRows("a,b"), (Rows{{"a", "b"}}));
    EXPECT_EQ(csvRows("a,"), (Rows{{"a", ""}}));
    EXPECT_EQ(csvRows("a\nb,\n"), (Rows{{"a"}, {"b", ""}}));
}

TEST(CSVRows, DropsEmptyLines) {
    EXPECT_EQ(csvRows(""), Rows{});
    EXPECT_EQ(csvRows("\n\r\n\r"), Rows{});
    EXPECT_EQ(csvRows("a\n\n\nb\n\n"), (Rows{{"a"}, {"b"}}));
    EXPECT_EQ(csvRows("\"\"\nb"), (Rows{{"b"}}));
    EXPECT_EQ(csvRows("\"\""), Rows{});
}

TEST(CSVRows, KeepsALineOfSpacesAsARow) {
    EXPECT_EQ(csvRows("  \na"), (Rows{{""}, {"a"}}));
    EXPECT_EQ(csvRows("  "), (Rows{{""}}));
}

TEST(CSVRows, KeepsALineOfCommas) {
    EXPECT_EQ(csvRows(",\n,,"), (Rows{{"", ""}, {"", "", ""}}));
}

TEST(CSVRows, ReadsACommaAndADoubledQuoteInsideQuotes) {
    EXPECT_EQ(csvRows("\"a,\"\"b\",c"), (Rows{{"a,\"b", "c"}}));
    EXPECT_EQ(csvRows("\"\"\"\",x"), (Rows{{"\"", "x"}}));
}

TEST(CSVRows, KeepsAQuotedLineEndInsideItsCell) {
    EXPECT_EQ(csvRows("\"a\r\nb\",c\n\"d\ne\""), (Rows{{"a\r\nb", "c"}, {"d\ne"}}));
}

TEST(CSVRows, OpensQuotesInTheMiddleOfAField) {
    EXPECT_EQ(csvRows("ab\"c,d\"e"), (Rows{{"abc,de"}}));
    EXPECT_EQ(csvRows("\"a\"b\"c\""), (Rows{{"abc"}}));
}

TEST(CSVRows, TakesAnUnclosedQuoteToTheEndOfTheText) {
    EXPECT_EQ(csvRows("a,\"b,c\nd"), (Rows{{"a", "b,c\nd"}}));
    EXPECT_EQ(csvRows("\""), Rows{});
    EXPECT_EQ(csvRows("a,\""), (Rows{{"a", ""}}));
}

TEST(CSVRows, TrimsBlanksAndTabsButNoLineEnds) {
    EXPECT_EQ(csvRows(" a\t,\" b \",\"\nc \""), (Rows{{"a", "b", "\nc"}}));
    EXPECT_EQ(csvRows("\u00A0a\u3000"), (Rows{{"a"}}));
}

TEST(CSVRows, SplitsAtNothingButCommas) {
    EXPECT_EQ(csvRows("a;b\tc\vd\u2028e"), (Rows{{"a;b\tc\vd\u2028e"}}));
}

TEST(CSVRows, TakesACommaOrQuoteWithACombiningMarkForAnOrdinaryCharacter) {
    EXPECT_EQ(csvRows("a,\u0301b,c"), (Rows{{"a,\u0301b", "c"}}));
    EXPECT_EQ(csvRows("\"\u0301a,b"), (Rows{{"\"\u0301a", "b"}}));
    EXPECT_EQ(csvRows("\"a\"\u0301,b\",c"), (Rows{{"a\"\u0301,b", "c"}}));
}

namespace {

/// The rules of the format on whole user-perceived characters, one step each.
Rows rowsCharacterByCharacter(const std::string& text) {
    std::vector<std::string> characters;
    forEachCharacter(text, [&](std::string_view each) { characters.emplace_back(each); });
    Rows rows;
    std::vector<std::string> row;
    std::string field;
    bool inQuotes = false;
    for (std::size_t index = 0; index < characters.size(); ++index) {
        const std::string& character = characters[index];
        if (inQuotes) {
            if (character != "\"") {
                field += character;
            } else if (index + 1 < characters.size() && characters[index + 1] == "\"") {
                field += character;
                ++index;
            } else {
                inQuotes = false;
            }
        } else if (character == "\"") {
            inQuotes = true;
        } else if (character == ",") {
            row.push_back(std::exchange(field, {}));
        } else if (character == "\n" || character == "\r\n" || character == "\r") {
            row.push_back(std::exchange(field, {}));
            if (row != std::vector<std::string>{""}) {
                rows.push_back(row);
            }
            row.clear();
        } else {
            field += character;
        }
    }
    if (!field.empty() || !row.empty()) {
        row.push_back(field);
        rows.push_back(row);
    }
    for (auto& each : rows) {
        for (std::string& cell : each) {
            cell = std::string(trimmingWhitespaces(cell));
        }
    }
    return rows;
}

} // namespace

TEST(CSVRows, AgreeWithAWalkCharacterByCharacter) {
    const std::vector<std::string> pieces = {",", ",",  "\"", "\"",   "\n",     "\r",
                                             " ", "ab", "é",  "\r\n", "\u0301", "\u0600"};
    std::mt19937 random(11);
    for (int round = 0; round < 5000; ++round) {
        std::string text;
        for (std::size_t count = random() % 16; count > 0; --count) {
            text += pieces[random() % pieces.size()];
        }
        EXPECT_EQ(csvRows(text), rowsCharacterByCharacter(text)) << text;
    }
}

} // namespace oakfen
