#include "Oakfen/Views/Register/FindView.h"

#include <gtest/gtest.h>

#include "Tests/Oakfen/Views/Register/FindFixture.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;

using Find = testing::FindFixture;

TEST_F(Find, ListsTheEntriesOfAllAccountsNewestFirst) {
    EXPECT_EQ(found(), "Rent in Everyday|Pay in Everyday|Market in Card|Shop in Everyday|"
                       "Card Company in Everyday|Card Company in Card|Hydro in Old Chequing");
}

TEST_F(Find, LooksAtPayeeCategoryMemoTagsAndAmount) {
    test.store->mutate("Edit", [this](Library& library) {
        Transaction entry = pay;
        entry.memo = "March, with bonus";
        upsert(library, entry);
    });
    EXPECT_EQ(found("hydro"), "Hydro in Old Chequing");
    EXPECT_EQ(found("FOOD"), "Market in Card|Shop in Everyday");
    EXPECT_EQ(found("bonus"), "Pay in Everyday");
    EXPECT_EQ(found("cottage"), "Hydro in Old Chequing");
    EXPECT_EQ(found("88.2"), "Hydro in Old Chequing");
    EXPECT_EQ(found("nowhere"), "");
}

TEST_F(Find, ShowsATransferInEachOfItsAccounts) {
    EXPECT_EQ(found("card company"), "Card Company in Everyday|Card Company in Card");
}

TEST_F(Find, LooksIntoTheLinesOfASplit) {
    EXPECT_EQ(found("dining"), "Market in Card");
    EXPECT_EQ(found("Food: Dining"), "Market in Card");
    EXPECT_EQ(found("birthday"), "Market in Card");
    EXPECT_EQ(found("12.75"), "Market in Card");
    EXPECT_EQ(found("7.25"), "Market in Card");
    // The line without a category.
    EXPECT_EQ(found("uncategorized"),
              "Rent in Everyday|Pay in Everyday|Market in Card|Hydro in Old Chequing");
}

TEST_F(Find, LooksForNothingAmongBlanks) {
    EXPECT_EQ(found("  "), found(""));
}

TEST_F(Find, GoesOnWithTheTermOfTheLastTime) {
    find.setSearchText("hydro");
    const FindView next(*test, term);
    EXPECT_EQ(next.content()->searchText, "hydro");
    EXPECT_EQ(next.content()->table->rowCount(), 1U);
}

TEST_F(Find, SortsByTheAccountAndByTheOtherColumns) {
    find.sortBy("account");
    EXPECT_EQ(find.content()->sort, (TableOrder{"account", true}));
    EXPECT_TRUE(found().starts_with("Card Company in Card|Market in Card|"));
    find.sortBy("account");
    EXPECT_TRUE(found().starts_with("Hydro in Old Chequing|"));
    find.sortBy("payee");
    EXPECT_TRUE(found().starts_with("Card Company in Everyday|Card Company in Card|Hydro"));
    find.sortBy("tags");
    EXPECT_EQ(find.content()->sort, (TableOrder{"payee", true}));
}

TEST_F(Find, ShowsTheColumnsOfARegisterWithTheAccountAndWithoutABalance) {
    const auto& table = *find.content()->table;
    std::string titles;
    for (std::size_t column = 0; column < table.columnCount(); ++column) {
        titles += std::string(table.head(column).name()) + "|";
    }
    EXPECT_EQ(titles, "Cleared|Date|Account|Num|Payee|Category|Tags|Money Out|Money In|");
    EXPECT_EQ(table.cell(2, 2).text, "Card");
    EXPECT_EQ(table.plainText(2, 7), "20");
}

TEST_F(Find, CountsAndSumsWhatItFindsAndWhatIsSelected) {
    find.setSearchText("food");
    const RegisterFooter::Figure all{"2 transactions", amount("-60")};
    EXPECT_EQ(find.content()->footer.figures, std::vector{all});
    EXPECT_FALSE(find.content()->footer.selection);
    find.select({shop.id});
    EXPECT_EQ(find.content()->footer.selection,
              (RegisterFooter::Figure{"1 selected", amount("-40")}));
    find.setSearchText("hydro");
    EXPECT_EQ(find.content()->footer.figures.front().label, "1 transaction");
}

TEST_F(Find, SelectsOnlyWhatItShows) {
    find.select({shop.id, oldBill.id});
    find.setSearchText("hydro");
    EXPECT_EQ(*find.content()->selection, UUIDSet{oldBill.id});
}

TEST_F(Find, SaysThatItFoundNothing) {
    EXPECT_FALSE(find.content()->emptyState());
    find.setSearchText(" nowhere ");
    EXPECT_EQ(find.content()->emptyState()->title, "No Results for “nowhere”");
    test.store->replaceLibrary({.currencyCode = "CAD"}, std::nullopt);
    find.setSearchText("");
    EXPECT_EQ(find.content()->emptyState()->title, "No Transactions");
}

TEST_F(Find, CopiesTheSelectedRowsWithTheirAccounts) {
    find.select({oldBill.id});
    EXPECT_EQ(find.copiedText(),
              "Uncleared\t2024-05-05\tOld Chequing\t\tHydro\tUncategorized\tCottage\t88.2\t");
}

TEST_F(Find, MarksEntriesOfSeveralAccountsInOneStep) {
    find.markAs(ClearedState::reconciled, {shop.id, oldBill.id, receipt.id});
    EXPECT_EQ(stored(oldBill.id).cleared, ClearedState::reconciled);
    EXPECT_EQ(stored(receipt.id).cleared, ClearedState::reconciled);
    EXPECT_EQ(undoName(), "Mark Reconciled");
    test.undoManager->undo();
    EXPECT_EQ(stored(oldBill.id).cleared, ClearedState::uncleared);
    EXPECT_EQ(stored(shop.id).cleared, ClearedState::cleared);
}

TEST_F(Find, DeletesEntriesOfSeveralAccountsInOneStep) {
    find.select({shop.id, oldBill.id, pay.id});
    find.requestDelete({shop.id, oldBill.id});
    EXPECT_EQ(test.panels.confirmations.back().title, "Delete 2 transactions?");
    EXPECT_EQ(found(), "Rent in Everyday|Pay in Everyday|Market in Card|"
                       "Card Company in Everyday|Card Company in Card");
    EXPECT_EQ(*find.content()->selection, UUIDSet{pay.id});
    test.undoManager->undo();
    EXPECT_EQ(find.content()->table->rowCount(), 7U);
    EXPECT_EQ(*find.content()->selection, UUIDSet{pay.id});
}

TEST_F(Find, FollowsTheLedgerAndKeepsItsSelection) {
    find.select({shop.id});
    test.store->mutate("Edit", [this](Library& library) {
        library.accounts.edit(0).name = "Daily";
        Transaction entry = oldBill;
        entry.payee = "Power";
        upsert(library, entry);
    });
    EXPECT_TRUE(found().starts_with("Rent in Daily|"));
    EXPECT_TRUE(found().ends_with("|Power in Old Chequing"));
    EXPECT_EQ(*find.content()->selection, UUIDSet{shop.id});
}

TEST_F(Find, OffersWhatTheRegisterDoesAndTheWayThere) {
    const auto titles = [](const std::vector<MenuEntry>& menu) {
        std::string list;
        for (const MenuEntry& entry : menu) {
            list += entry.title + "|";
        }
        return list;
    };
    EXPECT_EQ(titles(find.contextMenu({shop.id})),
              "Edit|Show in Register|Duplicate|Make Reminder…|Mark As|Set Category|Delete|");
    EXPECT_EQ(titles(find.contextMenu({shop.id, oldBill.id})),
              titles(view.contextMenu({shop.id, pay.id})));
    EXPECT_TRUE(find.contextMenu({}).empty());
}

TEST_F(Find, ShowsAnEntryInTheRegisterOfItsAccount) {
    RegisterView register_(*test, card.id);
    EXPECT_TRUE(register_.content()->selection->empty());
    find.showInRegister(receipt.id);
    EXPECT_EQ(test.appState->selectedAccountID(), card.id);
    EXPECT_EQ(*register_.content()->selection, UUIDSet{receipt.id});
    EXPECT_EQ(register_.content()->revealed->id, receipt.id);
}

TEST_F(Find, EndsWhatHidesTheEntryInTheRegister) {
    view.setFilter(RegisterFilter::thisMonth);
    view.setSearchText("pay");
    find.showInRegister(shop.id);
    EXPECT_EQ(view.content()->filter, RegisterFilter::all);
    EXPECT_EQ(view.content()->searchText, "");
    EXPECT_EQ(selection(), UUIDSet{shop.id});
}

TEST_F(Find, LeavesFilterAndSearchOfTheRegisterThatShowTheEntry) {
    view.setFilter(RegisterFilter::thisMonth);
    find.showInRegister(pay.id);
    EXPECT_EQ(view.content()->filter, RegisterFilter::thisMonth);
    EXPECT_EQ(selection(), UUIDSet{pay.id});
}

TEST_F(Find, GoesNowhereForAnEntryThatIsGone) {
    const auto before = test.appState->selection();
    find.showInRegister(UUID::random());
    EXPECT_EQ(test.appState->selection(), before);
}

} // namespace
} // namespace oakfen
