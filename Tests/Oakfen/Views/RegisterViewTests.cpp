#include "Oakfen/Views/RegisterView.h"

#include <gtest/gtest.h>

#include "Tests/Oakfen/Views/RegisterFixture.h"

namespace oakfen {

using testing::amount;
using testing::day;
using testing::RegisterFixture;

using RegisterScreen = RegisterFixture;

TEST_F(RegisterScreen, IsTitledByTheAccountAndItsInstitution) {
    EXPECT_EQ(view.title(), "Everyday");
    EXPECT_EQ(view.subtitle(), "Maple Bank");
    EXPECT_EQ(RegisterView(*test, card.id).subtitle(), title(AccountType::creditCard));
}

TEST_F(RegisterScreen, NamesTheAmountColumnsByTheKindOfAccount) {
    EXPECT_EQ(view.columnTitle(RegisterColumn::payment), "Payment");
    EXPECT_EQ(view.columnTitle(RegisterColumn::deposit), "Deposit");
    const RegisterView owed(*test, card.id);
    EXPECT_EQ(owed.columnTitle(RegisterColumn::payment), "Charge");
    EXPECT_EQ(owed.columnTitle(RegisterColumn::deposit), "Payment");
    std::vector<std::string_view> titles;
    for (const RegisterColumn column : allCases<RegisterColumn>) {
        titles.push_back(view.columnTitle(column));
    }
    EXPECT_EQ(titles, (std::vector<std::string_view>{"", "Date", "Num", "Payee", "Category", "Tags",
                                                     "Payment", "Deposit", "Balance"}));
}

TEST_F(RegisterScreen, ShowsTheLatestEntryFirst) {
    EXPECT_EQ(shownPayees(), "Rent|Pay|Shop|Card Company");
}

TEST_F(RegisterScreen, TurnsTheDirectionWithASecondClickOnTheHeader) {
    view.sortBy(RegisterColumn::payee);
    EXPECT_EQ(view.sort, (RegisterSort{RegisterColumn::payee, true}));
    EXPECT_EQ(shownPayees(), "Card Company|Pay|Rent|Shop");
    view.sortBy(RegisterColumn::payee);
    EXPECT_EQ(shownPayees(), "Shop|Rent|Pay|Card Company");
}

TEST_F(RegisterScreen, DoesNotSortByTags) {
    view.sortBy(RegisterColumn::tags);
    EXPECT_EQ(view.sort, RegisterSort());
    EXPECT_FALSE(RegisterView::isSortable(RegisterColumn::tags));
}

TEST_F(RegisterScreen, KeepsTheBalancesAlongLedgerOrderHoweverItIsSorted) {
    const auto balances = [this] {
        std::map<UUID, Decimal> byID;
        for (const RegisterRow* row : view.filteredRows()) {
            byID[row->id] = row->balance;
        }
        return byID;
    };
    const auto before = balances();
    view.sortBy(RegisterColumn::payment);
    EXPECT_EQ(balances(), before);
    EXPECT_EQ(before.at(rent.id), amount("260"));
}

TEST_F(RegisterScreen, FindsUncategorizedRowsByThatWord) {
    view.searchText = "uncategorized";
    EXPECT_EQ(shownPayees(), "Rent|Pay");
}

TEST_F(RegisterScreen, FiltersWithTheClocksMoment) {
    view.filter = RegisterFilter::thisMonth;
    EXPECT_EQ(shownPayees(), "Rent|Pay");
    test.clock.set(day(2026, 2, 20));
    EXPECT_EQ(shownPayees(), "Shop|Card Company");
}

TEST_F(RegisterScreen, CatchesARealCategoryNamedUncategorizedInThatFilter) {
    test.store->mutate("Edit", [this](Library& library) {
        Category category = testing::makeCategory("Uncategorized");
        setCategory(library, category.id, {shop.id});
        library.categories.push_back(category);
    });
    view.filter = RegisterFilter::uncategorized;
    EXPECT_EQ(shownPayees(), "Rent|Pay|Shop");
}

TEST_F(RegisterScreen, DoesNotFilterByBlanks) {
    view.searchText = "  ";
    EXPECT_EQ(view.filteredRows().size(), 4U);
}

TEST_F(RegisterScreen, ShowsTheNewRowsAfterAnEdit) {
    EXPECT_EQ(view.filteredRows().size(), 4U);
    test.store->mutate("Edit", [this](Library& library) {
        upsert(library, testing::makeTransaction(everyday.id, day(2026, 3, 20), "Later", "1"));
    });
    EXPECT_EQ(shownPayees(), "Later|Rent|Pay|Shop|Card Company");
}

TEST_F(RegisterScreen, SumsUpTheAccountInItsFooter) {
    const RegisterFooter footer = view.footer();
    EXPECT_EQ(footer.figures, (std::vector<RegisterFooter::Figure>{{"Cleared", amount("460")},
                                                                   {"Today", amount("1460")},
                                                                   {"Ending", amount("260")}}));
    EXPECT_FALSE(footer.selection);
}

TEST_F(RegisterScreen, ShowsTheCreditThatIsLeft) {
    const auto figures = RegisterView(*test, card.id).footer().figures;
    ASSERT_EQ(figures.size(), 4U);
    EXPECT_EQ(figures[3], (RegisterFooter::Figure{"Available Credit", amount("2025")}));
}

TEST_F(RegisterScreen, ShowsNoAvailableCreditForALimitOfZero) {
    test.store->mutate("Edit", [this](Library& library) {
        Account changed = card;
        changed.creditLimit = Decimal();
        upsert(library, changed);
    });
    EXPECT_EQ(RegisterView(*test, card.id).footer().figures.size(), 3U);
}

TEST_F(RegisterScreen, CountsAndSumsTheSelection) {
    view.selection = {rent.id, pay.id};
    EXPECT_EQ(view.footer().selection, (RegisterFooter::Figure{"2 selected", amount("-200")}));
}

TEST_F(RegisterScreen, DropsFromTheSelectionWhatIsNotShown) {
    view.selection = {rent.id, shop.id};
    view.filter = RegisterFilter::thisMonth;
    view.keepSelectionVisible(view.filteredRows());
    EXPECT_EQ(view.selection, UUIDSet{rent.id});
}

TEST_F(RegisterScreen, OffersToAddOrImportWhenTheAccountIsEmpty) {
    const RegisterView empty(*test, savings.id);
    EXPECT_TRUE(empty.filteredRows().empty());
    EXPECT_FALSE(empty.isNarrowed());
    EXPECT_EQ(empty.emptyState(),
              (EmptyState{"No Transactions", "list.bullet.rectangle",
                          "Add a transaction or import a statement from your bank."}));
}

TEST_F(RegisterScreen, SpeaksOfASearchWithoutResults) {
    view.searchText = "nobody ";
    EXPECT_TRUE(view.filteredRows().empty());
    EXPECT_EQ(view.emptyState().title, "No Results for “nobody”");
    EXPECT_TRUE(view.isNarrowed());
}

TEST_F(RegisterScreen, TakesBlanksForASearchOnlyInTheEmptyState) {
    RegisterView empty(*test, savings.id);
    empty.searchText = " ";
    EXPECT_EQ(empty.emptyState().title, "No Results");
}

TEST_F(RegisterScreen, SpeaksOfAFilterWithoutResults) {
    RegisterView empty(*test, savings.id);
    empty.filter = RegisterFilter::uncleared;
    EXPECT_EQ(empty.emptyState().title, "No Results");
}

TEST_F(RegisterScreen, KnowsTheSpanOfItsAmountsAfterAnEditToo) {
    view.searchText = "nobody"; // which rows are shown makes no difference
    EXPECT_EQ(view.amounts(),
              (RegisterAmounts{{amount("-1200"), amount("1000")}, {Decimal(), amount("1460")}}));
    test.store->mutate("Delete",
                       [this](Library& library) { deleteTransactions(library, {pay.id}); });
    EXPECT_EQ(view.amounts(),
              (RegisterAmounts{{amount("-1200"), Decimal()}, {amount("-740"), amount("500")}}));
}

TEST_F(RegisterScreen, StandsADeletedAccount) {
    test.store->mutate("Delete Account",
                       [this](Library& library) { deleteAccount(library, everyday.id); });
    EXPECT_EQ(view.account(), nullptr);
    EXPECT_EQ(view.title(), "");
    EXPECT_TRUE(view.filteredRows().empty());
    EXPECT_EQ(view.footer().figures[1].amount, Decimal());
}

} // namespace oakfen
