#include "Oakfen/Views/Components/Components.h"

#include <gtest/gtest.h>

#include <limits>

#include "Tests/Support/LocaleForTest.h"
#include "Tests/Support/TestLedger.h"

namespace oakfen {

using testing::amount;
using testing::day;
using testing::LocaleForTest;
using testing::makeAccount;
using testing::makeCategory;

namespace {

LibraryIndex indexOf(const Library& library) {
    return LibraryIndex(library, day(2026, 3, 15), Calendar::utc());
}

std::vector<std::string> titles(const std::vector<PickerRow>& rows) {
    std::vector<std::string> result;
    for (const PickerRow& row : rows) {
        result.push_back((row.isHeader ? "# " : "") + row.title);
    }
    return result;
}

std::string relative(Date date) {
    return relativeDayDescription(date, day(2026, 3, 15), Calendar::utc());
}

} // namespace

TEST(MoneyText, ShowsTheCurrencyWithItsDigits) {
    const LocaleForTest locale("en_CA");
    EXPECT_EQ(moneyText(amount("1234.5"), "CAD").text, "$1,234.50");
}

TEST(MoneyText, DrawsANegativeAmountInTheNegativeTone) {
    EXPECT_EQ(moneyText(amount("-0.01"), "CAD").tone, TextTone::negative);
    EXPECT_EQ(moneyText(amount("0.01"), "CAD").tone, TextTone::primary);
}

TEST(MoneyText, LeavesTheSurroundingToneWhenNegativesAreNotColoured) {
    EXPECT_EQ(moneyText(amount("-5"), "CAD", {.colorsNegative = false}).tone, TextTone::primary);
}

TEST(MoneyText, PutsAPlusBeforeAPositiveAmountOnRequest) {
    const LocaleForTest locale("en_CA");
    EXPECT_EQ(moneyText(amount("5"), "CAD", {.showsPositiveSign = true}).text, "+$5.00");
    EXPECT_EQ(moneyText(amount("-5"), "CAD", {.showsPositiveSign = true}).text,
              moneyText(amount("-5"), "CAD").text);
}

TEST(MoneyText, HasNoPlusForZero) {
    const LocaleForTest locale("en_CA");
    EXPECT_EQ(moneyText(Decimal(), "CAD", {.showsPositiveSign = true}).text, "$0.00");
}

TEST(WholePercent, IsCutTowardsZeroAndNothingBeyondTheIntegers) {
    EXPECT_EQ(wholePercent(0.999), 99);
    EXPECT_EQ(wholePercent(-0.999), -99);
    EXPECT_EQ(wholePercent(0.0), 0);
    EXPECT_EQ(wholePercent(-92233720368547758.08), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(wholePercent(92233720368547758.08), std::nullopt);
    EXPECT_EQ(wholePercent(std::numeric_limits<double>::infinity()), std::nullopt);
    EXPECT_EQ(wholePercent(std::numeric_limits<double>::quiet_NaN()), std::nullopt);
}

TEST(Metric, PutsTheTitleInCapitalsAboveTheAmountInItsCurrency) {
    const LocaleForTest locale("en_CA");
    EXPECT_EQ(metric("Net Worth", amount("-1234.5"), "CAD", TextTone::negative, true),
              (Metric{.caption = "NET WORTH",
                      .figure = "-$1,234.50",
                      .tint = TextTone::negative,
                      .isLarge = true,
                      .accessibilityText = "Net Worth, -$1,234.50"}));
}

TEST(Metric, IsOfUsualSizeAndInTheTextsColourUnlessToldOtherwise) {
    const Metric figure = metric("Cleared", amount("5"), "CAD");
    EXPECT_EQ(figure.tint, TextTone::primary);
    EXPECT_FALSE(figure.isLarge);
}

TEST(ClearedBadge, HasAnIconAToneAndATooltipForEachState) {
    EXPECT_EQ(clearedBadge(ClearedState::uncleared),
              (ClearedBadge{"circle", TextTone::secondary, "Uncleared"}));
    EXPECT_EQ(clearedBadge(ClearedState::cleared),
              (ClearedBadge{"checkmark.circle", TextTone::information, "Cleared"}));
    EXPECT_EQ(clearedBadge(ClearedState::reconciled),
              (ClearedBadge{"checkmark.circle.fill", TextTone::positive, "Reconciled"}));
}

TEST(BudgetBar, IsGreenBelowEightyFivePercent) {
    EXPECT_EQ(budgetBar(0.84), (BudgetBar{0.84, TextTone::positive, "84 percent used"}));
}

TEST(BudgetBar, IsOrangeFromExactlyEightyFivePercent) {
    EXPECT_EQ(budgetBar(0.85), (BudgetBar{0.85, TextTone::warning, "85 percent used"}));
    EXPECT_EQ(budgetBar(0.999).tone, TextTone::warning);
}

TEST(BudgetBar, IsRedAndFullAtOneAndOver) {
    EXPECT_EQ(budgetBar(1), (BudgetBar{1, TextTone::negative, "100 percent used"}));
    EXPECT_EQ(budgetBar(2.5), (BudgetBar{1, TextTone::negative, "250 percent used"}));
}

TEST(BudgetBar, NeverFillsBelowNothing) {
    EXPECT_EQ(budgetBar(-0.5), (BudgetBar{0, TextTone::positive, "-50 percent used"}));
}

TEST(BudgetBar, LeavesOutAShareThatIsTooLargeToTell) {
    EXPECT_EQ(budgetBar(1e30), (BudgetBar{1, TextTone::negative, ""}));
    EXPECT_EQ(budgetBar(std::numeric_limits<double>::infinity()).accessibilityText, "");
    EXPECT_EQ(budgetBar(std::numeric_limits<double>::quiet_NaN()), BudgetBar());
}

TEST(BudgetBar, TellsTheWholePartOfItsPercentage) {
    EXPECT_EQ(budgetBar(0.999).accessibilityText, "99 percent used");
    EXPECT_EQ(budgetBar(0).accessibilityText, "0 percent used");
}

TEST(RelativeDay, NamesTheDaysAroundToday) {
    EXPECT_EQ(relative(day(2026, 3, 15, 0)), "Today");
    EXPECT_EQ(relative(day(2026, 3, 15, 23)), "Today");
    EXPECT_EQ(relative(day(2026, 3, 16, 0)), "Tomorrow");
    EXPECT_EQ(relative(day(2026, 3, 14, 23)), "Yesterday");
}

TEST(RelativeDay, CountsTheDaysOfTheComingWeek) {
    EXPECT_EQ(relative(day(2026, 3, 17)), "In 2 days");
    EXPECT_EQ(relative(day(2026, 3, 21)), "In 6 days");
}

TEST(RelativeDay, SpeaksOfOverdueDaysFromTheSecondOn) {
    EXPECT_EQ(relative(day(2026, 3, 13)), "2 days overdue");
    EXPECT_EQ(relative(day(2026, 2, 15)), "28 days overdue");
    const LocaleForTest locale("en_CA");
    EXPECT_EQ(relative(day(2023, 3, 15)), "1,096 days overdue");
}

TEST(RelativeDay, CountsAsManyDaysAsItCanSinceTheBeginningOfTime) {
    const LocaleForTest locale("en_CA");
    EXPECT_EQ(relative(Calendar::utc().date({.year = -6'000'000})), "2,147,483,648 days overdue");
}

TEST(RelativeDay, CountsADayWhoseClockChangesAsOne) {
    const Calendar toronto = *Calendar::inZone("America/Toronto");
    const auto noon = [&](int dayOfMonth) {
        return toronto.date({.year = 2026, .month = 3, .day = dayOfMonth, .hour = 12});
    };
    // The 8th has 23 hours.
    EXPECT_EQ(relativeDayDescription(noon(8), noon(7), toronto), "Tomorrow");
    EXPECT_EQ(relativeDayDescription(noon(9), noon(7), toronto), "In 2 days");
    EXPECT_EQ(relativeDayDescription(noon(7), noon(9), toronto), "2 days overdue");
}

TEST(RelativeDay, GivesTheDateFromAWeekOn) {
    const LocaleForTest locale("en_CA");
    EXPECT_EQ(relative(day(2026, 3, 22)), "Mar 22");
    EXPECT_EQ(relative(day(2026, 5, 1)), "May 1");
}

TEST(CategoryPicker, ListsUncategorizedThenExpensesThenIncomeByPath) {
    Library library{.currencyCode = "CAD"};
    const Category food = makeCategory("Food");
    library.categories.push_back(makeCategory("Salary", CategoryKind::income));
    library.categories.push_back(makeCategory("Groceries", CategoryKind::expense, food.id));
    library.categories.push_back(food);
    const LibraryIndex index = indexOf(library);
    const auto rows = categoryPickerRows(index);
    EXPECT_EQ(titles(rows), (std::vector<std::string>{"Uncategorized", "# Expenses", "Food",
                                                      "Food: Groceries", "# Income", "Salary"}));
    EXPECT_FALSE(rows[0].id);
    EXPECT_EQ(rows[2].id, food.id);
}

TEST(CategoryPicker, HasNoSectionForAKindWithoutCategories) {
    EXPECT_EQ(titles(categoryPickerRows(indexOf(Library{.currencyCode = "CAD"}))),
              (std::vector<std::string>{"Uncategorized"}));
}

TEST(KeepingChoice, AddsAChoiceThatTheRowsLeaveOut) {
    const UUID closed = UUID::random();
    const PickerRow row{.title = "Old", .id = closed};
    const std::vector<PickerRow> rows = keepingChoice({{.title = "None"}}, row);
    EXPECT_EQ(rows, (std::vector<PickerRow>{{.title = "None"}, row}));
    EXPECT_EQ(keepingChoice(rows, row), rows);
}

class AccountPicker : public ::testing::Test {
protected:
    AccountPicker() {
        for (const Account& account : {savings_, everyday_, card_, shares_, closed_}) {
            library_.accounts.push_back(account);
        }
    }

    static Account closedAccount() {
        Account account = makeAccount("Old", AccountType::cash);
        account.isClosed = true;
        return account;
    }

    Account savings_ = makeAccount("savings", AccountType::savings);
    Account everyday_ = makeAccount("Everyday");
    Account card_ = makeAccount("Card", AccountType::creditCard);
    Account shares_ = makeAccount("Shares", AccountType::brokerage);
    Account closed_ = closedAccount();
    Library library_{.currencyCode = "CAD"};
};

TEST_F(AccountPicker, ListsOpenAccountsByGroupAndName) {
    EXPECT_EQ(titles(accountPickerRows(indexOf(library_))),
              (std::vector<std::string>{"# Banking", "Everyday", "savings", "# Credit", "Card",
                                        "# Investments", "Shares"}));
}

TEST_F(AccountPicker, BeginsWithNoneOnRequest) {
    const auto rows = accountPickerRows(indexOf(library_), {.includeNone = true});
    EXPECT_EQ(rows.front(), PickerRow{.title = "None"});
}

TEST_F(AccountPicker, HidesAGroupWhoseOnlyAccountIsLeftOut) {
    EXPECT_EQ(
        titles(accountPickerRows(indexOf(library_), {.excluding = card_.id})),
        (std::vector<std::string>{"# Banking", "Everyday", "savings", "# Investments", "Shares"}));
}

TEST_F(AccountPicker, ListsInvestmentAccountsAloneOnRequest) {
    EXPECT_EQ(titles(accountPickerRows(indexOf(library_), {.investmentOnly = true})),
              (std::vector<std::string>{"# Investments", "Shares"}));
}

TEST(AccountGroupTitles, ReadAsInAPicker) {
    EXPECT_EQ(pickerTitle(AccountGroup::banking), "Banking");
    EXPECT_EQ(pickerTitle(AccountGroup::credit), "Credit");
    EXPECT_EQ(pickerTitle(AccountGroup::investing), "Investments");
    EXPECT_EQ(pickerTitle(AccountGroup::propertyDebt), "Property & Debt");
}

TEST(DestructiveConfirmation, AsksWithTheButtonsTitle) {
    const ConfirmationRequest request = destructiveConfirmation("Delete Goal");
    EXPECT_EQ(request.title, "Delete Goal?");
    EXPECT_EQ(request.message, "You can undo this with Edit ▸ Undo.");
    EXPECT_EQ(request.confirmTitle, "Delete Goal");
    EXPECT_TRUE(request.isDestructive);
}

TEST(DestructiveConfirmation, PutsAWarningFirst) {
    EXPECT_EQ(destructiveConfirmation("Delete Goal", "It’s gone.").message,
              "It’s gone. You can undo this with Edit ▸ Undo.");
}

TEST(SingleLine, PutsABlankForEachLineEnd) {
    EXPECT_EQ(singleLine("Corner\r\nShop\nToronto\rON"), "Corner Shop Toronto ON");
    EXPECT_EQ(singleLine(""), "");
}

} // namespace oakfen
