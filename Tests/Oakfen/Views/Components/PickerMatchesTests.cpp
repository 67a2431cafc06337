#include "Oakfen/Views/Components/PickerMatches.h"

#include <gtest/gtest.h>

namespace oakfen {
namespace {

const UUID coffee = UUID::random();
const UUID groceries = UUID::random();
const UUID homeGas = UUID::random();
const UUID gas = UUID::random();
const UUID salary = UUID::random();

std::vector<PickerRow> rows() {
    return {{.title = "Uncategorized"},
            {.title = "Expenses", .isHeader = true},
            {.title = "Food: Cafés", .id = coffee},
            {.title = "Food: Groceries", .id = groceries},
            {.title = "Home: Natural Gas", .id = homeGas},
            {.title = "Travel: Gas", .id = gas},
            {.title = "Income", .isHeader = true},
            {.title = "Salary", .id = salary}};
}

/// The lines between "|"; headers in brackets, what can be made after "+", remarks after "!".
std::string listed(std::string_view typed, const CategoryOffer& offer = {}) {
    std::string text;
    for (const PickerLine& line : pickerLines(rows(), typed, offer)) {
        text += text.empty() ? "" : "|";
        switch (line.kind) {
        case PickerLine::Kind::header:
            text += "[" + line.title + "]";
            break;
        case PickerLine::Kind::choice:
            text += line.title;
            break;
        case PickerLine::Kind::creation:
            text += "+" + line.title;
            break;
        case PickerLine::Kind::remark:
            text += "!" + line.title;
            break;
        }
    }
    return text;
}

std::string meant(std::string_view typed) {
    const auto row = meantRow(rows(), typed);
    return row ? rows()[*row].title : "";
}

} // namespace

TEST(PickerLines, AreAllRowsWhileNothingIsTyped) {
    EXPECT_EQ(listed(""), "Uncategorized|[Expenses]|Food: Cafés|Food: Groceries|"
                          "Home: Natural Gas|Travel: Gas|[Income]|Salary");
    EXPECT_EQ(listed("  "), listed(""));
}

TEST(PickerLines, AreThoseWithTheTextInAnyPartOfTheirPathBeneathTheirHeaders) {
    EXPECT_EQ(listed("food"), "[Expenses]|Food: Cafés|Food: Groceries");
    EXPECT_EQ(listed("AL"), "[Expenses]|Home: Natural Gas|[Income]|Salary");
    EXPECT_EQ(listed("od:gro"), "[Expenses]|Food: Groceries");
    EXPECT_EQ(listed("Food :  Gro"), "[Expenses]|Food: Groceries");
    EXPECT_EQ(listed("cat"), "Uncategorized");
}

TEST(PickerLines, RegardNoAccents) {
    EXPECT_EQ(listed("cafe"), "[Expenses]|Food: Cafés");
    EXPECT_EQ(listed("GROCÉRIES"), "[Expenses]|Food: Groceries");
}

TEST(PickerLines, SayThatNothingFits) {
    EXPECT_EQ(listed("expenses"), "!No matches");
    EXPECT_FALSE(pickerLines(rows(), "xyz").front().canBeChosen());
}

TEST(PickerLines, EndWithWhatCanBeMade) {
    EXPECT_EQ(listed("al", {.path = "al"}),
              "[Expenses]|Home: Natural Gas|[Income]|Salary|+Create “al”");
    EXPECT_EQ(listed("Pets: Vet", {.path = "Pets: Vet"}), "+Create “Pets: Vet”");
    EXPECT_EQ(listed("salary", {.path = "salary"}), "[Income]|Salary");
    EXPECT_EQ(listed("a: b: c", {.remark = "Too deep."}), "!Too deep.");
}

TEST(PickerLines, ListWhatTheLookupFindsUnderAnotherParent) {
    EXPECT_EQ(listed("Pets: Groceries", {.path = "Pets: Groceries", .known = groceries}),
              "[Expenses]|Food: Groceries|+Create “Pets: Groceries”");
}

TEST(PickerLines, AreLinesEvenWhereATitleHasSeveral) {
    const std::vector<PickerRow> odd{{.title = "Two\nLines", .id = gas}};
    EXPECT_EQ(pickerLines(odd, "two l").front().title, "Two Lines");
}

TEST(MeantRow, IsTheWholePathThenTheNameThenAnyPart) {
    EXPECT_EQ(meant("food:groceries"), "Food: Groceries");
    EXPECT_EQ(meant("gas"), "Travel: Gas");
    EXPECT_EQ(meant("cafes"), "Food: Cafés");
    EXPECT_EQ(meant("ga"), "Home: Natural Gas");
    EXPECT_EQ(meant("SAL"), "Salary");
}

TEST(MeantRow, IsTheCurrencyOfThatCodeOrName) {
    const std::vector<PickerRow> currencies{{.title = "CHE – WIR Euro", .id = gas},
                                            {.title = "EUR – Euro", .id = salary}};
    EXPECT_EQ(meantRow(currencies, "eur"), 1U);
    EXPECT_EQ(meantRow(currencies, "Euro"), 1U);
    EXPECT_EQ(meantRow(currencies, "wir"), 0U);
}

TEST(MeantRow, IsNoneForAHeaderOrAWordThatMeansNothing) {
    EXPECT_EQ(meantRow(rows(), "Expenses"), std::nullopt);
    EXPECT_EQ(meantRow(rows(), "foobar"), std::nullopt);
}

TEST(MeantRow, IsTheAbsentChoiceForNoTextWhereThatIsOne) {
    EXPECT_EQ(meant(""), "Uncategorized");
    EXPECT_EQ(meantRow({{.title = "Visa", .id = gas}}, " "), std::nullopt);
}

TEST(PickerExplanation, SaysWhatTheTextIsNotAndWhatCanBeDone) {
    EXPECT_EQ(pickerExplanation(PickerSubject::account, " xyz "), "“xyz” isn’t an account.");
    EXPECT_EQ(pickerExplanation(PickerSubject::account, ""), "Choose an account.");
    EXPECT_EQ(pickerExplanation(PickerSubject::record, "EUX"), "“EUX” isn’t in the list.");
    EXPECT_EQ(pickerExplanation(PickerSubject::category, "Vet", {.path = "Vet"}),
              "“Vet” isn’t a category. Choose “Create” in its list to make it one.");
    EXPECT_EQ(pickerExplanation(PickerSubject::category, "a: b: c", {.remark = "Too deep."}),
              "“a: b: c” isn’t a category. Too deep.");
}

} // namespace oakfen
