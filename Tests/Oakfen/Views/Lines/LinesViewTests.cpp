#include "Oakfen/Views/Lines/LinesView.h"

#include <gtest/gtest.h>

#include "OakfenCore/LibraryIndex/PeriodTotals.h"
#include "OakfenCore/LibraryOperations/Transactions.h"
#include "OakfenCore/Models/Money.h"
#include "Tests/Generators/RandomLibrary.h"
#include "Tests/Support/LocaleForTest.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::LocaleForTest;
using testing::makeAccount;
using testing::makeCategory;
using testing::makeTransaction;
using testing::RandomLibrary;
using testing::TestEnvironment;

const DateInterval march{day(2026, 3, 1, 0), day(2026, 3, 31, 23)};

class LinesOfAFigure : public ::testing::Test {
protected:
    LinesOfAFigure() {
        test.store->mutate("Edit", [&](Library& library) {
            library.accounts = {everyday, card};
            library.categories = {food, groceries, household};
        });
        enter(makeTransaction(everyday.id, day(2026, 3, 2), "Market", "-30"), groceries.id);
        enter(makeTransaction(card.id, day(2026, 3, 9), "Diner", "-12.50"), food.id);
        Transaction split = makeTransaction(everyday.id, day(2026, 3, 5), "Store", "-100");
        split.splits = {
            {.id = UUID::random(), .categoryID = groceries.id, .amount = amount("-60")},
            {.id = UUID::random(), .categoryID = household.id, .amount = amount("-40")}};
        enter(split, {});
    }

    UUID enter(Transaction entry, std::optional<UUID> categoryID) {
        entry.categoryID = categoryID;
        test.store->mutate("Enter", [&](Library& library) { upsert(library, entry); });
        return entry.id;
    }
    static std::string table(const LinesView& view) {
        const auto content = view.content();
        std::string text;
        for (std::size_t row = 0; row < content->table->rowCount(); ++row) {
            for (std::size_t column = 1; column < content->table->columnCount(); ++column) {
                const Cell cell = content->table->cell(row, column);
                text += (column == 1 ? "" : "|") + cell.text +
                        (cell.detail.empty() ? "" : " (" + cell.detail + ")");
            }
            text += "\n";
        }
        return text;
    }

    LocaleForTest locale{"en_CA"};
    Account everyday = makeAccount("Everyday");
    Account card = makeAccount("Card");
    Category food = makeCategory("Food");
    Category groceries = makeCategory("Groceries", CategoryKind::expense, food.id);
    Category household = makeCategory("Household");
    TestEnvironment test;
};

TEST_F(LinesOfAFigure, ListSharesOfSplitsNewestFirstWithTheFigureAsTheirSum) {
    const LinesView view(*test, actualLines(test.index(), food.id, march, true));
    EXPECT_EQ(table(view), "Diner|Food|$12.50\n"
                           "Store (split of $100.00)|Food: Groceries|$60.00\n"
                           "Market|Food: Groceries|$30.00\n");
    EXPECT_EQ(view.content()->count, "3 entries");
    EXPECT_EQ(view.content()->total.text, "$102.50");
}

TEST_F(LinesOfAFigure, NameTheAccountWhereAllAreOfOneCategory) {
    const LinesView view(*test, actualLines(test.index(), groceries.id, march, false));
    EXPECT_EQ(view.figure().title, "Food: Groceries");
    EXPECT_EQ(table(view), "Store (split of $100.00)|Everyday|$60.00\n"
                           "Market|Everyday|$30.00\n");
}

TEST_F(LinesOfAFigure, FollowEachEdit) {
    const LinesView view(*test, actualLines(test.index(), groceries.id, march, false));
    const std::string before = table(view);
    const UUID id = enter(makeTransaction(card.id, day(2026, 3, 20), "Corner", "5"), groceries.id);
    EXPECT_EQ(view.content()->total.text, "$85.00");
    test.undoManager->undo();
    EXPECT_EQ(table(view), before);
    EXPECT_EQ(test.index().transaction(id), nullptr);
}

TEST_F(LinesOfAFigure, AreSortedByAnyColumnInBothDirections) {
    LinesView view(*test, actualLines(test.index(), food.id, march, true));
    view.sortBy("amount");
    EXPECT_EQ(table(view).substr(0, 5), "Diner");
    view.sortBy("amount");
    EXPECT_EQ(table(view).substr(0, 5), "Store");
    view.sortBy("category");
    EXPECT_EQ(table(view).substr(0, 5), "Diner");
}

TEST_F(LinesOfAFigure, OpenTheWholeEntryOfAShareInItsEditor) {
    LinesView view(*test, actualLines(test.index(), household.id, march, false));
    view.editEntry(0);
    const Transaction& split = test.library().transactions[2];
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::EditTransaction{split.id}});
    view.editEntry(7);
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::EditTransaction{split.id}});
}

TEST_F(LinesOfAFigure, LeadToTheRegisterOfTheEntrysAccount) {
    LinesView view(*test, actualLines(test.index(), food.id, march, false));
    std::optional<UUID> wanted;
    const Subscription follow =
        test.appState->entryWanted.observe([&](const UUID& id) { wanted = id; });
    view.rowMenu(0).back().perform();
    EXPECT_EQ(test.appState->selectedAccountID(), card.id);
    EXPECT_EQ(wanted, test.library().transactions[1].id);
}

TEST_F(LinesOfAFigure, CountEachShareThatTheyShow) {
    FigureLines both = actualLines(test.index(), groceries.id, march, false);
    both.categories->push_back(household.id);
    EXPECT_EQ(LinesView(*test, both).content()->table->rowCount(), 3U);
    EXPECT_EQ(LinesView(*test, both).content()->count, "3 entries");
}

TEST_F(LinesOfAFigure, AreSortedByDateOnceTheirColumnHasGone) {
    LinesView view(*test, actualLines(test.index(), food.id, march, true));
    view.sortBy("category");
    EXPECT_EQ(view.content()->sort, (TableOrder{"category", true}));
    test.store->mutate("Edit", [&](Library& library) {
        Transaction entry = library.transactions[1];
        entry.categoryID = groceries.id;
        upsert(library, entry);
    });
    EXPECT_EQ(view.content()->sort, TableOrder());
    EXPECT_EQ(table(view).substr(0, 5), "Diner");
}

TEST_F(LinesOfAFigure, OfACashFlowHoldWhatIsEnteredLaterThatDay) {
    const Calendar utc = Calendar::utc();
    const DateInterval quarter = interval(DateRangePreset::last3Months, test.clock.now(), utc);
    const LinesView view(
        *test, cashFlowLines(FigureLines::Side::spending, day(2026, 3, 1, 0), quarter, utc));
    EXPECT_EQ(view.content()->total.text, "$142.50");
    test.clock.set(day(2026, 3, 15, 18));
    enter(makeTransaction(everyday.id, day(2026, 3, 15, 18), "Late", "-7"), food.id);
    EXPECT_EQ(view.content()->total.text, "$149.50");
}

TEST_F(LinesOfAFigure, SayWhereThereAreNone) {
    const DateInterval january{day(2026, 1, 1, 0), day(2026, 1, 31, 23)};
    const LinesView view(*test, actualLines(test.index(), food.id, january, true));
    ASSERT_TRUE(view.content()->emptyState());
    EXPECT_EQ(view.content()->count, "0 entries");
    EXPECT_EQ(view.content()->total.text, "$0.00");
}

TEST(FigureLines, AddUpToTheFigureThatTheyStandBehind) {
    for (std::uint64_t seed = 1; seed <= 40; ++seed) {
        SCOPED_TRACE(seed);
        RandomLibrary source(seed);
        const Date now = day(2026, 3, 15);
        const Calendar utc = Calendar::utc();
        const LibraryIndex index(source.make(20 + source.below(80)), now, utc);
        const std::vector<DateInterval> intervals{
            march, {Date::distantPast(), Date::distantFuture()}, {day(2025, 1, 1), now}};
        for (const DateInterval& interval : intervals) {
            for (const Category& category : index.library().categories) {
                for (const bool includesChildren : {false, true}) {
                    EXPECT_EQ(
                        sumOf(actualLines(index, category.id, interval, includesChildren), index),
                        actual(index, category.id, interval, includesChildren));
                }
            }
            const auto rounded = [](const Decimal& sum) {
                return sum.rounded(2, RoundingMode::plain);
            };
            for (const CategoryTotal& total : spendingByCategory(index, interval, true)) {
                EXPECT_EQ(rounded(sumOf(spendingLines(index, total.categoryID, interval), index)),
                          total.total);
            }
            for (const MonthlyCashFlow& month : cashFlow(index, interval, utc)) {
                using Side = FigureLines::Side;
                const auto of = [&](Side side) {
                    return rounded(sumOf(cashFlowLines(side, month.month, interval, utc), index));
                };
                EXPECT_EQ(of(Side::income), month.income);
                EXPECT_EQ(of(Side::spending), month.expenses);
            }
        }
    }
}

} // namespace
} // namespace oakfen
