#include "OakfenCore/Exporters/Exporter.h"

#include <gtest/gtest.h>

#include "Tests/Support/TestLedger.h"

namespace oakfen {

using testing::amount;
using testing::day;

TEST(PlainAmount, HasNeitherGroupingNorFill) {
    EXPECT_EQ(Exporter::plain(amount("1234.50")), "1234.5");
    EXPECT_EQ(Exporter::plain(amount("12.00")), "12");
    EXPECT_EQ(Exporter::plain(Decimal()), "0");
    EXPECT_EQ(Exporter::plain(amount("-1000000")), "-1000000");
}

TEST(PlainAmount, IsRoundedToCentsHalvesAwayFromZero) {
    EXPECT_EQ(Exporter::plain(amount("0.125")), "0.13");
    EXPECT_EQ(Exporter::plain(amount("-0.125")), "-0.13");
    EXPECT_EQ(Exporter::plain(amount("0.0049")), "0");
    EXPECT_EQ(Exporter::plain(amount("99.999")), "100");
}

TEST(PlainAmount, HoldsAllDigitsOfALargeOne) {
    EXPECT_EQ(Exporter::plain(amount("123456789012345678901234567890.12")),
              "123456789012345678901234567890.12");
}

TEST(ExportedDate, HasItsTwoForms) {
    EXPECT_EQ(Exporter::isoDate(day(2026, 3, 5), Calendar::utc()), "2026-03-05");
    EXPECT_EQ(Exporter::qifDate(day(2026, 3, 5), Calendar::utc()), "03/05/2026");
    EXPECT_EQ(Exporter::isoDate(Date::distantPast(), Calendar::utc()), "0001-01-01");
}

TEST(ExportedDate, IsTheDayOnTheCalendarsClock) {
    const Calendar toronto = Calendar::inZone("America/Toronto").value();
    const Date night = day(2026, 3, 5, 2);
    EXPECT_EQ(Exporter::isoDate(night, toronto), "2026-03-04");
    EXPECT_EQ(Exporter::qifDate(night, toronto), "03/04/2026");
}

TEST(CSVField, StaysAsItIsWhenNothingIsSpecialInIt) {
    EXPECT_EQ(Exporter::csvField("Corner Shop's; \t5 - 3", true), "Corner Shop's; \t5 - 3");
    EXPECT_EQ(Exporter::csvField("", true), "");
}

TEST(CSVField, IsQuotedForACommaAQuoteOrALineEnd) {
    EXPECT_EQ(Exporter::csvField("a,b", true), "\"a,b\"");
    EXPECT_EQ(Exporter::csvField("say \"hi\"", true), "\"say \"\"hi\"\"\"");
    EXPECT_EQ(Exporter::csvField("a\nb", true), "\"a\nb\"");
    EXPECT_EQ(Exporter::csvField("a\rb", false), "\"a\rb\"");
}

TEST(CSVField, GuardsEachFirstCharacterOfAFormulaAndQuotesTheResult) {
    for (const char first : std::string("=+-@\t\r")) {
        const std::string text = std::string(1, first) + "SUM(A1)";
        EXPECT_EQ(Exporter::csvField(text, true), "\"'" + text + "\"");
    }
    EXPECT_EQ(Exporter::csvField("=\"x\"", true), "\"'=\"\"x\"\"\"");
}

TEST(CSVField, LeavesTheMinusOfANumber) {
    EXPECT_EQ(Exporter::csvField("-12.5", false), "-12.5");
    EXPECT_EQ(Exporter::csvField("-12.5", true), "\"'-12.5\"");
}

TEST(CSVTable, GuardsHeaderCellsAndTextCellsButNotNumericColumns) {
    EXPECT_EQ(Exporter::csv({"-Label", "-Amount"}, {{"-x", "-1"}, {"y", "2"}}, {1}),
              "\"'-Label\",\"'-Amount\"\n\"'-x\",-1\ny,2\n");
}

TEST(CSVTable, EndsWithALineEndAndHasNoByteOrderMark) {
    EXPECT_EQ(Exporter::csv({"é"}, {}, {}), "é\n");
}

} // namespace oakfen
