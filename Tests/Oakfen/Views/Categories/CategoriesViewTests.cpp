#include "Oakfen/Views/Categories/CategoriesView.h"

#include <gtest/gtest.h>

#include <string>

#include "Oakfen/FigureLines.h"
#include "OakfenCore/LibraryOperations/Accounts.h"
#include "OakfenCore/LibraryOperations/Categories.h"
#include "OakfenCore/LibraryOperations/Transactions.h"
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

class CategoriesViewTest : public ::testing::Test {
protected:
    CategoriesViewTest() {
        fuel.isTaxRelated = true;
        test.store->mutate("Add", [this](Library& library) {
            upsert(library, everyday);
            for (const Category& each : {car, food, fuel, parking, groceries, pay}) {
                upsert(library, each);
            }
            library.budget = {{fuel.id, amount("130")}, {parking.id, Decimal()}};
        });
        spend(fuel, day(2026, 1, 1, 0), "-40");
        spend(fuel, day(2025, 12, 31, 23), "-1000");
        spend(car, day(2026, 3, 15, 23), "-10");
        spend(car, day(2026, 3, 16, 1), "-5000");
        spend(pay, day(2026, 2, 1), "3000");
        test.undoManager->removeAllActions();
    }

    void spend(const Category& category, Date date, std::string_view sum) {
        Transaction entry = makeTransaction(everyday.id, date, "Somebody", sum);
        entry.categoryID = category.id;
        test.store->mutate("Add", [&](Library& library) { upsert(library, entry); });
    }

    [[nodiscard]] const Table<CategoryRow>& table() const { return *view.content()->table; }
    [[nodiscard]] const CategoryRow& row(std::size_t place) const { return *table().rows()[place]; }
    /// A line for each row: how it is indented, the name, its mark, the budget and the total.
    [[nodiscard]] std::string shown() const {
        std::string text;
        for (std::size_t each = 0; each < table().rowCount(); ++each) {
            const Cell name = table().cell(each, 0);
            text += (row(each).isTopLevel ? "" : "  ") + name.text +
                    (name.detail.empty() ? "" : " [" + name.detail + "]") + "|" +
                    table().cell(each, 1).text + "|" + table().cell(each, 2).text + "\n";
        }
        return text;
    }

    LocaleForTest locale{"en_CA"};
    TestEnvironment test;
    Account everyday = makeAccount("Everyday");
    Category food = makeCategory("Food");
    Category car = makeCategory("Car");
    Category fuel = makeCategory("Fuel", CategoryKind::expense, car.id);
    Category parking = makeCategory("Parking", CategoryKind::expense, car.id);
    Category groceries = makeCategory("Groceries", CategoryKind::expense, food.id);
    Category pay = makeCategory("Pay", CategoryKind::income);
    CategoriesView view{*test};
};

TEST_F(CategoriesViewTest, ShowsTheTreeWithWhatItCameToSinceTheBeginningOfTheYear) {
    // A top counts what is filed beneath it; the others count themselves.
    EXPECT_EQ(shown(), "Car||$50.00\n"
                       "  Fuel [Tax]|Budget $130.00/mo|$40.00\n"
                       "  Parking||$0.00\n"
                       "Food||$0.00\n"
                       "  Groceries||$0.00\n");
}

TEST_F(CategoriesViewTest, ShowsTheKindThatWasChosen) {
    EXPECT_EQ(view.content()->kind, CategoryKind::expense);
    int notices = 0;
    const Subscription told = view.changed.observe([&] { ++notices; });
    view.setKind(CategoryKind::income);
    EXPECT_EQ(notices, 1);
    EXPECT_EQ(view.content()->kind, CategoryKind::income);
    EXPECT_EQ(shown(), "Pay||$3,000.00\n");
    view.newCategory();
    EXPECT_EQ(test.appState->sheet(),
              (ActiveSheet{ActiveSheet::Category{.kind = CategoryKind::income}}));
}

TEST_F(CategoriesViewTest, ListsTopsAndTheirSubcategoriesAlone) {
    const Category diesel = makeCategory("Diesel", CategoryKind::expense, fuel.id);
    const Category orphan = makeCategory("Orphan", CategoryKind::expense, UUID::random());
    test.store->mutate("Add", [&](Library& library) {
        upsert(library, diesel);
        upsert(library, orphan);
    });
    spend(diesel, day(2026, 2, 1), "-7");
    spend(orphan, day(2026, 2, 1), "-9");
    // The third level counts for its top.
    EXPECT_EQ(shown(), "Car||$57.00\n"
                       "  Fuel [Tax]|Budget $130.00/mo|$40.00\n"
                       "  Parking||$0.00\n"
                       "Food||$0.00\n"
                       "  Groceries||$0.00\n");
}

TEST_F(CategoriesViewTest, ListsTenThousandCategoriesWithTheirTotals) {
    constexpr int tops = 5'000;
    test.store->mutate("Many", [&](Library& library) {
        for (int each = 0; each < tops; ++each) {
            const Category top = makeCategory("Top " + std::to_string(each));
            const Category below = makeCategory("Below", CategoryKind::expense, top.id);
            for (const Category& category : {top, below}) {
                library.categories.push_back(category);
                Transaction entry = makeTransaction(everyday.id, day(2026, 2, 1), "Somebody", "-1");
                entry.categoryID = category.id;
                library.transactions.push_back(entry);
            }
        }
    });
    ASSERT_EQ(table().rowCount(), 5U + (2U * tops));
    Decimal total;
    for (const CategoryRow* each : table().rows()) {
        total += each->isTopLevel ? each->total : Decimal();
    }
    EXPECT_EQ(total, amount("10050"));
}

TEST_F(CategoriesViewTest, ATotalOfNothingIsQuiet) {
    EXPECT_EQ(table().cell(2, 2).tone, TextTone::secondary);
    EXPECT_EQ(table().cell(1, 2).tone, TextTone::primary);
}

TEST_F(CategoriesViewTest, SaysToListenersWhatIsSeen) {
    EXPECT_EQ(table().cell(0, 0).description, "");
    EXPECT_EQ(table().cell(1, 0).description, "Subcategory of Car, tax related");
    EXPECT_EQ(table().cell(2, 0).description, "Subcategory of Car");
    car.isTaxRelated = true;
    test.store->mutate("Edit", [this](Library& library) { upsert(library, car); });
    EXPECT_EQ(table().cell(0, 0).description, "Tax related");
}

TEST_F(CategoriesViewTest, BeginsAnewWithTheYear) {
    EXPECT_EQ(row(0).total, amount("50"));
    int notices = 0;
    const Subscription told = view.changed.observe([&] { ++notices; });
    test.clock.set(day(2027, 1, 1));
    test->dayChange.check();
    EXPECT_EQ(notices, 1);
    EXPECT_EQ(row(0).total, Decimal());
}

TEST_F(CategoriesViewTest, TellsNobodyOfAnEditThatChangesNoRow) {
    EXPECT_EQ(table().rowCount(), 5U);
    int notices = 0;
    const Subscription told = view.changed.observe([&] { ++notices; });
    spend(pay, day(2026, 2, 2), "1");
    EXPECT_EQ(notices, 0);
}

TEST_F(CategoriesViewTest, ShowsWhatMakesUpTheTotalOfARow) {
    std::vector<FigureLines> wanted;
    const Subscription told = test.appState->linesWanted.observe(
        [&](const FigureLines& lines) { wanted.push_back(lines); });
    view.showEntries(car.id);
    view.showEntries(fuel.id);
    view.showEntries(UUID::random());
    ASSERT_EQ(wanted.size(), 2U);
    EXPECT_EQ(wanted[0].title, "Car");
    EXPECT_EQ(wanted[0].detail, "Actual · Year to Date");
    EXPECT_EQ(sumOf(wanted[0], test.index()), amount("50"));
    EXPECT_EQ(wanted[1].title, "Car: Fuel");
    EXPECT_EQ(sumOf(wanted[1], test.index()), amount("40"));
}

TEST_F(CategoriesViewTest, OffersWhatCanBeDoneWithARow) {
    const auto titles = [&](const UUID& id) {
        std::string text;
        for (const MenuEntry& each : view.contextMenu(id)) {
            text += (each.startsGroup ? "-|" : "") + each.title + "|";
        }
        return text;
    };
    EXPECT_EQ(titles(car.id), "Edit|New Subcategory…|Delete|-|Show Entries|");
    EXPECT_EQ(titles(fuel.id), "Edit|Delete|-|Show Entries|");
    EXPECT_EQ(titles(UUID::random()), "");
}

TEST_F(CategoriesViewTest, EditsAndAddsThroughTheSheet) {
    const auto menu = view.contextMenu(car.id);
    menu[0].perform();
    EXPECT_EQ(test.appState->sheet(),
              (ActiveSheet{ActiveSheet::Category{car.id, CategoryKind::expense}}));
    // The person chooses in the sheet what the new one belongs to.
    menu[1].perform();
    EXPECT_EQ(test.appState->sheet(),
              (ActiveSheet{ActiveSheet::Category{{}, CategoryKind::expense}}));
}

TEST_F(CategoriesViewTest, AsksBeforeItDeletes) {
    test.panels.confirms = false;
    view.contextMenu(fuel.id)[1].perform();
    ASSERT_EQ(test.panels.confirmations.size(), 1U);
    const ConfirmationRequest& asked = test.panels.confirmations.front();
    EXPECT_EQ(asked.title, "Delete Category");
    EXPECT_EQ(asked.message,
              "Transactions using it become uncategorized; subcategories move up a level.");
    EXPECT_EQ(asked.confirmTitle, "Delete Category");
    EXPECT_TRUE(asked.isDestructive);
    EXPECT_EQ(asked.subject, "“Car: Fuel”");
    EXPECT_EQ(table().rowCount(), 5U);
    EXPECT_FALSE(test.undoManager->canUndo());
}

TEST_F(CategoriesViewTest, DeletesInOneStepThatIsTakenBackAtOnce) {
    const Library before = test.library();
    view.requestDeletion(car.id);
    EXPECT_EQ(shown(), "Food||$0.00\n"
                       "  Groceries||$0.00\n"
                       "Fuel [Tax]|Budget $130.00/mo|$40.00\n"
                       "Parking||$0.00\n");
    EXPECT_EQ(test.undoManager->undoActionName(), "Delete Category");
    ASSERT_TRUE(test.appState->notice());
    EXPECT_EQ(test.appState->notice()->text, "“Car” deleted");
    test.appState->notice()->action();
    EXPECT_EQ(test.library(), before);
}

TEST_F(CategoriesViewTest, AsksNothingOfWhatIsGone) {
    view.requestDeletion(UUID::random());
    EXPECT_TRUE(test.panels.confirmations.empty());
}

TEST_F(CategoriesViewTest, AnAnswerAfterTheScreenHasGoneIsDropped) {
    test.panels.holdsAnswers = true;
    {
        CategoriesView gone(*test);
        gone.requestDeletion(car.id);
    }
    ASSERT_EQ(test.panels.pending.size(), 1U);
    test.panels.pending.front()();
    EXPECT_NE(test.index().category(car.id), nullptr);
}

/// What a row counts is what its lines add up to, and the tops count all that has them as root.
TEST(CategoryTotals, AreTheSumsOfTheirLines) {
    for (std::uint64_t seed = 1; seed <= 20; ++seed) {
        TestEnvironment test(RandomLibrary(seed).make(200));
        test.clock.set(day(2026, 6, 30));
        std::vector<FigureLines> wanted;
        const Subscription told = test.appState->linesWanted.observe(
            [&](const FigureLines& lines) { wanted.push_back(lines); });
        CategoriesView view(*test);
        for (const CategoryKind kind : allCases<CategoryKind>) {
            view.setKind(kind);
            for (const CategoryRow* row : view.content()->table->rows()) {
                wanted.clear();
                view.showEntries(row->id);
                ASSERT_EQ(wanted.size(), 1U);
                EXPECT_EQ(sumOf(wanted.front(), test.index()).toCents(), row->total.toCents())
                    << "seed " << seed;
            }
        }
    }
}

} // namespace
} // namespace oakfen
