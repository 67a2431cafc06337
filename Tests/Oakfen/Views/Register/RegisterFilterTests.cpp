#include "Oakfen/Views/Register/RegisterFilter.h"

#include <gtest/gtest.h>

#include "Tests/Support/LocaleForTest.h"
#include "Tests/Support/TestLedger.h"

namespace oakfen {

using testing::amount;
using testing::day;
using testing::LocaleForTest;

namespace {

const Date now = day(2026, 3, 15, 12);

bool keeps(RegisterFilter filter, const RegisterRow& row) {
    return RegisterFilterTest(filter, now, Calendar::utc()).keeps(row);
}

bool keepsDate(RegisterFilter filter, Date date) {
    return keeps(filter, RegisterRow{.date = date});
}

bool finds(std::string_view searchText, const RegisterRow& row) {
    return RegisterSearch(searchText).finds(row);
}

} // namespace

TEST(RegisterFilter, HasATitleForEachCase) {
    std::vector<std::string> texts;
    for (const RegisterFilter filter : allCases<RegisterFilter>) {
        texts.push_back(std::string(title(filter)));
    }
    EXPECT_EQ(texts, (std::vector<std::string>{"All Transactions", "This Month", "Last 30 Days",
                                               "Last 90 Days", "This Year", "Uncleared",
                                               "Uncategorized"}));
}

TEST(RegisterFilter, KeepsEveryRowByDefault) {
    EXPECT_TRUE(keepsDate(RegisterFilter::all, day(1900, 1, 1)));
}

TEST(RegisterFilter, KeepsTheWholeOfThisMonthAndNothingAround) {
    EXPECT_TRUE(keepsDate(RegisterFilter::thisMonth, day(2026, 3, 1, 0)));
    EXPECT_TRUE(keepsDate(RegisterFilter::thisMonth, day(2026, 3, 31, 23)));
    EXPECT_FALSE(keepsDate(RegisterFilter::thisMonth, day(2026, 2, 28, 23)));
    EXPECT_FALSE(keepsDate(RegisterFilter::thisMonth, day(2026, 4, 1, 0)));
}

TEST(RegisterFilter, CutsThirtyDaysOffAtTheInstant) {
    const Date cutOff = day(2026, 2, 13, 12);
    EXPECT_TRUE(keepsDate(RegisterFilter::last30, cutOff));
    EXPECT_FALSE(keepsDate(RegisterFilter::last30, cutOff.adding(-1)));
    EXPECT_TRUE(keepsDate(RegisterFilter::last30, day(2027, 1, 1)));
}

TEST(RegisterFilter, CutsNinetyDaysOffAtTheInstant) {
    const Date cutOff = day(2025, 12, 15, 12);
    EXPECT_TRUE(keepsDate(RegisterFilter::last90, cutOff));
    EXPECT_FALSE(keepsDate(RegisterFilter::last90, cutOff.adding(-1)));
}

TEST(RegisterFilter, KeepsTheCalendarYear) {
    EXPECT_TRUE(keepsDate(RegisterFilter::thisYear, day(2026, 1, 1, 0)));
    EXPECT_TRUE(keepsDate(RegisterFilter::thisYear, day(2026, 12, 31, 23).adding(3599.5)));
    EXPECT_FALSE(keepsDate(RegisterFilter::thisYear, day(2025, 12, 31, 23)));
    EXPECT_FALSE(keepsDate(RegisterFilter::thisYear, day(2027, 1, 1, 0)));
}

TEST(RegisterFilter, KeepsUnclearedRows) {
    EXPECT_TRUE(keeps(RegisterFilter::uncleared, {.cleared = ClearedState::uncleared}));
    EXPECT_FALSE(keeps(RegisterFilter::uncleared, {.cleared = ClearedState::cleared}));
    EXPECT_FALSE(keeps(RegisterFilter::uncleared, {.cleared = ClearedState::reconciled}));
}

TEST(RegisterFilter, KeepsRowsThatReadUncategorized) {
    EXPECT_TRUE(keeps(RegisterFilter::uncategorized, {.categoryName = "Uncategorized"}));
    EXPECT_FALSE(keeps(RegisterFilter::uncategorized, {.categoryName = "uncategorized"}));
    EXPECT_FALSE(keeps(RegisterFilter::uncategorized, {.categoryName = "Food"}));
}

TEST(RegisterSearch, LooksIntoPayeeCategoryMemoAndTagsWithoutRegardToCase) {
    EXPECT_TRUE(finds("SHOP", {.payee = "Corner shop"}));
    EXPECT_TRUE(finds("groc", {.categoryName = "Food: Groceries"}));
    EXPECT_TRUE(finds("été", {.memo = "Vacances d’Été"}));
    EXPECT_TRUE(finds("tax", {.tags = {"Trip", "Tax 2026"}}));
    EXPECT_FALSE(finds("cafe", {.payee = "Café"}));
}

TEST(RegisterSearch, IgnoresHowAnAccentedLetterIsComposed) {
    EXPECT_TRUE(finds("cafe\u0301", {.payee = "Grand Caf\u00E9"}));
    EXPECT_TRUE(finds("caf\u00E9", {.memo = "GRAND CAFE\u0301"}));
    EXPECT_FALSE(finds("cafe", {.memo = "Grand Cafe\u0301"}));
}

TEST(RegisterSearch, LooksForCheckNumbersToTheLetter) {
    EXPECT_TRUE(finds("EFT", {.checkNumber = "EFT12"}));
    EXPECT_FALSE(finds("eft", {.checkNumber = "EFT12"}));
}

TEST(RegisterSearch, LooksForThePlainAmountWithoutItsSign) {
    EXPECT_TRUE(finds("12.5", {.amount = amount("-12.50")}));
    EXPECT_TRUE(finds("1234", {.amount = amount("1234.56")}));
    EXPECT_TRUE(finds(".5", {.amount = amount("1234.56")}));
    EXPECT_FALSE(finds("12.51", {.amount = amount("12.50")}));
}

TEST(RegisterSearch, FindsNoAmountByATermWithASign) {
    for (const char* term :
         {"-12.5", "-12.50", "\u221212.50", "12.50-", "(12.50)", "+12.50", "10+2.5", "12.5%"}) {
        EXPECT_FALSE(finds(term, {.amount = amount("-12.50")})) << term;
        EXPECT_FALSE(finds(term, {.amount = amount("12.50")})) << term;
    }
}

TEST(RegisterSearch, FindsAnAmountAsItIsShown) {
    const LocaleForTest locale("en_CA");
    const RegisterRow row{.amount = amount("-1471.2")};
    for (const char* term : {"1,471.20", "1,471.2", "1,471", "471.20", "1471.20", "$1,471.20",
                             ".20", "1,47", "1471.200"}) {
        EXPECT_TRUE(finds(term, row)) << term;
    }
    for (const char* term : {"1,472", "14712", "$", ",", "1.471", "a1471", "1,471.21"}) {
        EXPECT_FALSE(finds(term, row)) << term;
    }
    EXPECT_TRUE(finds("50.00", {.amount = amount("50")}));
    EXPECT_TRUE(finds("0.13", {.amount = amount("0.125")}));
}

TEST(RegisterSearch, FindsAnAmountAsTheUsersLocaleWritesIt) {
    const LocaleForTest locale("de_DE");
    const RegisterRow row{.amount = amount("-1128.53")};
    for (const char* term : {"1.128,53", "128,53", "1.128", "1128,53", "128.53", "8,5"}) {
        EXPECT_TRUE(finds(term, row)) << term;
    }
    EXPECT_FALSE(finds("128,54", row));
}

TEST(RegisterSearch, FindsAnAmountByTheDigitsOfEveryScript) {
    const LocaleForTest locale("en_CA");
    EXPECT_TRUE(finds("\u0661\u0662", {.amount = amount("12")}));
}

TEST(RegisterSearch, IgnoresBlanksAroundTheTerm) {
    EXPECT_TRUE(finds("  shop\t", {.payee = "Corner Shop"}));
    EXPECT_FALSE(RegisterSearch(" \t ").isActive());
    EXPECT_TRUE(RegisterSearch("a").isActive());
}

} // namespace oakfen
