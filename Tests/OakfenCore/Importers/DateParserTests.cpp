#include "OakfenCore/Importers/DateParser.h"

#include "Tests/OakfenCore/Importers/StatementFixtures.h"

namespace oakfen {

using testing::day;
using testing::toronto;

namespace {

std::optional<Date> parsed(std::string_view text,
                           std::optional<std::string_view> preferred = std::nullopt) {
    return DateParser::parse(text, preferred, toronto());
}

std::optional<std::string_view> best(std::vector<std::string> cells) {
    return DateParser::bestFormat(cells);
}

std::optional<Date> parsedQIF(std::string_view text) {
    return DateParser::parseQIF(text, toronto());
}

std::optional<Date> parsedOFX(std::string_view text) {
    return DateParser::parseOFX(text, toronto());
}

} // namespace

TEST(DateParser, ReadsEveryPattern) {
    const Date lastOfJanuary = day(2024, 1, 31);
    for (const std::string_view text :
         {"2024-01-31", "01/31/2024", "1/31/2024", "31/01/2024", "31/1/2024", "2024/01/31",
          "01/31/24", "1/31/24", "31-01-2024", "20240131", "31 Jan 2024", "Jan 31, 2024",
          "31-Jan-2024", "2024-01-31T00:00:00"}) {
        EXPECT_EQ(parsed(text), lastOfJanuary) << text;
    }
}

TEST(DateParser, KeepsTheTimeOfDayOfTheLastPattern) {
    EXPECT_EQ(parsed("2024-01-31T13:05:09"), toronto().date({2024, 1, 31, 13, 5, 9}));
    EXPECT_EQ(parsed("2024-01-31T24:00:00"), std::nullopt);
    EXPECT_EQ(parsed("2024-01-31 13:05:09"), std::nullopt);
    EXPECT_EQ(parsed("2024-01-31T13:05:09Z"), std::nullopt);
}

TEST(DateParser, ReadsMonthNamesAbbreviatedOrInFullInAnyCase) {
    EXPECT_EQ(parsed("5 march 2024"), day(2024, 3, 5));
    EXPECT_EQ(parsed("5 MAR 2024"), day(2024, 3, 5));
    EXPECT_EQ(parsed("September 15, 2024"), day(2024, 9, 15));
    EXPECT_EQ(parsed("15-december-2024"), day(2024, 12, 15));
    EXPECT_EQ(parsed("1 May 2024"), day(2024, 5, 1));
    EXPECT_EQ(parsed("15 Marz 2024"), std::nullopt);
    EXPECT_EQ(parsed("15 Sept 2024"), std::nullopt);
}

TEST(DateParser, TakesAnAmbiguousDateMonthFirst) {
    EXPECT_EQ(parsed("03/04/2024"), day(2024, 3, 4));
    EXPECT_EQ(parsed("3/4/24"), day(2024, 3, 4));
    EXPECT_EQ(parsed("25/04/2024"), day(2024, 4, 25));
}

TEST(DateParser, TriesThePreferredPatternFirst) {
    EXPECT_EQ(parsed("03/04/2024", "dd/MM/yyyy"), day(2024, 4, 3));
    EXPECT_EQ(parsed("2024-04-03", "dd/MM/yyyy"), day(2024, 4, 3));
}

TEST(DateParser, PlacesYearsOfTwoDigitsWithinFiftyYears) {
    EXPECT_EQ(parsed("01/31/00"), day(2000, 1, 31));
    EXPECT_EQ(parsed("01/31/49"), day(2049, 1, 31));
    EXPECT_EQ(parsed("01/31/50"), day(1950, 1, 31));
    EXPECT_EQ(parsed("1/31/99"), day(1999, 1, 31));
}

TEST(DateParser, IgnoresBlanksAroundTheDateOnly) {
    EXPECT_EQ(parsed(" \t2024-01-31\u00A0"), day(2024, 1, 31));
    EXPECT_EQ(parsed("2024-01-31\n"), std::nullopt);
    EXPECT_EQ(parsed("2024 -01-31"), std::nullopt);
}

TEST(DateParser, GivesNothingForTextsThatAreNoDates) {
    for (const std::string_view text :
         {"", "   ", "Date", "2024", "2024-1-31", "24-01-31", "1/31/024", "31.01.2024",
          "2024-01-31 ok", "x2024-01-31", "120240131", "2024013", "٢٠٢٤-٠١-٣١", "0000-01-31"}) {
        EXPECT_EQ(parsed(text), std::nullopt) << text;
    }
}

TEST(DateParser, GivesNothingForADayThatIsNotInTheCalendar) {
    EXPECT_EQ(parsed("2024-02-30"), std::nullopt);
    EXPECT_EQ(parsed("2023-02-29"), std::nullopt);
    EXPECT_EQ(parsed("2024-02-29"), day(2024, 2, 29));
    EXPECT_EQ(parsed("13/13/2024"), std::nullopt);
    EXPECT_EQ(parsed("2024-00-10"), std::nullopt);
    EXPECT_EQ(parsed("20240100"), std::nullopt);
}

TEST(DateParser, GivesMidnightInTheCalendarGiven) {
    const Calendar tokyo = Calendar::inZone("Asia/Tokyo").value();
    EXPECT_EQ(DateParser::parse("2024-01-31", std::nullopt, tokyo),
              tokyo.date({.year = 2024, .month = 1, .day = 31}));
    EXPECT_NE(parsed("2024-01-31"), DateParser::parse("2024-01-31", std::nullopt, tokyo));
}

TEST(BestDateFormat, SettlesDayFirstByOneCellThatCannotBeMonthFirst) {
    EXPECT_EQ(best({"01/02/2024", "13/02/2024"}), "dd/MM/yyyy");
    EXPECT_EQ(best({"1/2/2024", "13/2/2024"}), "d/M/yyyy");
}

TEST(BestDateFormat, TakesAColumnOfAmbiguousDatesMonthFirst) {
    EXPECT_EQ(best({"01/02/2024", "03/04/2024"}), "MM/dd/yyyy");
}

TEST(BestDateFormat, TakesTheFirstPatternThatReadsAllCells) {
    EXPECT_EQ(best({"01/02/2024", "3/4/2024"}), "M/d/yyyy");
    EXPECT_EQ(best({"2024-01-31"}), "yyyy-MM-dd");
    EXPECT_EQ(best({"31-01-2024"}), "dd-MM-yyyy");
    EXPECT_EQ(best({"01/02/24"}), "MM/dd/yy");
}

TEST(BestDateFormat, PassesOverEmptyCells) {
    EXPECT_EQ(best({"", "13/02/2024", ""}), "dd/MM/yyyy");
}

TEST(BestDateFormat, IsNoneWithoutCells) {
    EXPECT_EQ(best({}), std::nullopt);
    EXPECT_EQ(best({"", ""}), std::nullopt);
}

TEST(BestDateFormat, IsNoneWhenOneCellFitsNoPatternOfTheOthers) {
    EXPECT_EQ(best({"01/02/2024", "pending"}), std::nullopt);
    EXPECT_EQ(best({"01/13/2024", "13/01/2024"}), std::nullopt);
    EXPECT_EQ(best({" 01/02/2024"}), std::nullopt);
}

TEST(QIFDate, ReadsTheYearBehindAnApostropheOrASlash) {
    EXPECT_EQ(parsedQIF("12/31'2024"), day(2024, 12, 31));
    EXPECT_EQ(parsedQIF("12/31/24"), day(2024, 12, 31));
    EXPECT_EQ(parsedQIF("12/31/2024"), day(2024, 12, 31));
}

TEST(QIFDate, IgnoresSpacesAndTakesHyphens) {
    EXPECT_EQ(parsedQIF("1/ 5'24"), day(2024, 1, 5));
    EXPECT_EQ(parsedQIF("1-5-24"), day(2024, 1, 5));
    EXPECT_EQ(parsedQIF("1//5//24"), day(2024, 1, 5));
    EXPECT_EQ(parsedQIF("1/ 1' 0"), day(2000, 1, 1));
}

TEST(QIFDate, PlacesShortYearsFrom1970To2069) {
    EXPECT_EQ(parsedQIF("1/5/70"), day(1970, 1, 5));
    EXPECT_EQ(parsedQIF("1/5/69"), day(2069, 1, 5));
    EXPECT_EQ(parsedQIF("1/5/99"), day(1999, 1, 5));
    EXPECT_EQ(parsedQIF("1/5/100"), day(100, 1, 5));
}

TEST(QIFDate, DropsPiecesThatAreNotIntegers) {
    EXPECT_EQ(parsedQIF("1/5/24/x"), day(2024, 1, 5));
    EXPECT_EQ(parsedQIF("Mon/1/5/24"), day(2024, 1, 5));
}

TEST(QIFDate, ReadsOtherShapesAsStatementsHaveThem) {
    EXPECT_EQ(parsedQIF("31 Jan 2024"), day(2024, 1, 31));
    EXPECT_EQ(parsedQIF("20240131"), day(2024, 1, 31));
    EXPECT_EQ(parsedQIF("soon"), std::nullopt);
    EXPECT_EQ(parsedQIF(""), std::nullopt);
}

TEST(QIFDate, GivesNothingForMonthsAndDaysOutOfRange) {
    EXPECT_EQ(parsedQIF("2024-01-31"), std::nullopt);
    EXPECT_EQ(parsedQIF("13/1/24"), std::nullopt);
    EXPECT_EQ(parsedQIF("0/1/24"), std::nullopt);
    EXPECT_EQ(parsedQIF("1/32/24"), std::nullopt);
    EXPECT_EQ(parsedQIF("1/0/24"), std::nullopt);
}

TEST(QIFDate, LetsADayPastTheEndOfItsMonthRollOver) {
    EXPECT_EQ(parsedQIF("2/31/2024"), day(2024, 3, 2));
    EXPECT_EQ(parsedQIF("4/31/2024"), day(2024, 5, 1));
}

TEST(QIFDate, GivesNothingForAYearThatTheDocumentCannotHold) {
    EXPECT_EQ(parsedQIF("1/5/9999"), day(9999, 1, 5));
    EXPECT_EQ(parsedQIF("1/5/20245"), day(20245, 1, 5));
    EXPECT_EQ(parsedQIF("1/5/1000000"), std::nullopt);
    EXPECT_EQ(parsedQIF("1/5/9999999999999999999999"), std::nullopt);
}

TEST(OFXDate, ReadsTheFirstEightDigitsOnly) {
    EXPECT_EQ(parsedOFX("20240131"), day(2024, 1, 31));
    EXPECT_EQ(parsedOFX("20240131120000"), day(2024, 1, 31));
    EXPECT_EQ(parsedOFX("20240131120000.000[-5:EST]"), day(2024, 1, 31));
    EXPECT_EQ(parsedOFX("20240131 or so"), day(2024, 1, 31));
}

TEST(OFXDate, GivesNothingForFewerOrOtherCharacters) {
    EXPECT_EQ(parsedOFX(""), std::nullopt);
    EXPECT_EQ(parsedOFX("2024013"), std::nullopt);
    EXPECT_EQ(parsedOFX("2024-01-31"), std::nullopt);
    EXPECT_EQ(parsedOFX("٢٠٢٤٠١٣١"), std::nullopt);
    EXPECT_EQ(parsedOFX("20240131\u0301"), std::nullopt);
    EXPECT_EQ(parsedOFX("20240230"), std::nullopt);
}

} // namespace oakfen
