#include <gtest/gtest.h>

#include "OakfenCore/Support/Text/Formatting.h"
#include "Tests/Oakfen/Views/Register/RegisterFixture.h"
#include "Tests/Support/LocaleForTest.h"

namespace oakfen {

using testing::amount;
using testing::day;
using testing::RegisterFixture;

using RegisterActions = RegisterFixture;

TEST_F(RegisterActions, TogglingMarksAnUnclearedEntryAndBack) {
    view.toggleCleared(pay.id);
    EXPECT_EQ(stored(pay.id).cleared, ClearedState::cleared);
    EXPECT_EQ(undoName(), "Mark Cleared");
    view.toggleCleared(pay.id);
    EXPECT_EQ(stored(pay.id).cleared, ClearedState::uncleared);
    EXPECT_EQ(undoName(), "Mark Uncleared");
}

TEST_F(RegisterActions, TogglingLeavesAReconciledEntryAlone) {
    view.toggleCleared(cardPayment.id);
    EXPECT_EQ(stored(cardPayment.id).cleared, ClearedState::reconciled);
    EXPECT_FALSE(test.undoManager->canUndo());
}

TEST_F(RegisterActions, TogglingAnUnknownEntryDoesNothing) {
    view.toggleCleared(UUID::random());
    EXPECT_FALSE(test.undoManager->canUndo());
}

TEST_F(RegisterActions, TogglingSeveralClearsThoseThatAreNotInOneStep) {
    view.toggleCleared({pay.id, rent.id, shop.id, cardPayment.id});
    EXPECT_EQ(stored(pay.id).cleared, ClearedState::cleared);
    EXPECT_EQ(stored(rent.id).cleared, ClearedState::cleared);
    EXPECT_EQ(stored(shop.id).cleared, ClearedState::cleared);
    EXPECT_EQ(stored(cardPayment.id).cleared, ClearedState::reconciled);
    EXPECT_EQ(undoName(), "Mark Cleared");
    view.toggleCleared({pay.id, rent.id, cardPayment.id});
    EXPECT_EQ(stored(pay.id).cleared, ClearedState::uncleared);
    EXPECT_EQ(stored(rent.id).cleared, ClearedState::uncleared);
    EXPECT_EQ(stored(cardPayment.id).cleared, ClearedState::reconciled);
    EXPECT_EQ(undoName(), "Mark Uncleared");
    test.undoManager->undo();
    test.undoManager->undo();
    EXPECT_EQ(stored(pay.id).cleared, ClearedState::uncleared);
    EXPECT_EQ(stored(shop.id).cleared, ClearedState::cleared);
    EXPECT_FALSE(test.undoManager->canUndo());
}

TEST_F(RegisterActions, MarkingChangesAReconciledEntryToo) {
    view.markAs(ClearedState::uncleared, {cardPayment.id, shop.id});
    EXPECT_EQ(stored(cardPayment.id).cleared, ClearedState::uncleared);
    EXPECT_EQ(stored(shop.id).cleared, ClearedState::uncleared);
    EXPECT_EQ(undoName(), "Mark Uncleared");
    test.undoManager->undo();
    EXPECT_EQ(stored(cardPayment.id).cleared, ClearedState::reconciled);
    EXPECT_EQ(stored(shop.id).cleared, ClearedState::cleared);
}

TEST_F(RegisterActions, MarkingCanReconcile) {
    view.markAs(ClearedState::reconciled, {pay.id});
    EXPECT_EQ(stored(pay.id).cleared, ClearedState::reconciled);
    EXPECT_EQ(undoName(), "Mark Reconciled");
}

TEST_F(RegisterActions, SettingACategoryOpensItsPanelForThoseEntries) {
    view.chooseCategory({rent.id, pay.id});
    ASSERT_TRUE(test.appState->sheet());
    const auto* sheet = std::get_if<ActiveSheet::SetCategory>(&test.appState->sheet()->content);
    ASSERT_NE(sheet, nullptr);
    EXPECT_EQ(*sheet->ids, (UUIDSet{rent.id, pay.id}));
}

TEST_F(RegisterActions, DuplicatingMakesAFreshEntryOfToday) {
    test.store->mutate("Edit", [this](Library& library) {
        Transaction split = shop;
        split.importID = "FIT1";
        split.splits = {
            {.id = UUID::random(), .categoryID = food.id, .memo = "m", .amount = amount("-40")}};
        upsert(library, split);
    });
    view.duplicate(shop.id);
    EXPECT_EQ(undoName(), "Duplicate Transaction");
    const Transaction& copy = test.library().transactions.back();
    EXPECT_NE(copy.id, shop.id);
    EXPECT_EQ(copy.date, test.clock.now());
    EXPECT_EQ(copy.cleared, ClearedState::uncleared);
    EXPECT_FALSE(copy.importID);
    ASSERT_EQ(copy.splits.size(), 1U);
    EXPECT_NE(copy.splits[0].id, stored(shop.id).splits[0].id);
    EXPECT_EQ(copy.splits[0].categoryID, food.id);
    EXPECT_EQ(copy.splits[0].memo, "m");
    EXPECT_EQ(copy.amount, amount("-40"));
    EXPECT_TRUE(selection().empty());
    EXPECT_FALSE(test.appState->sheet());
}

TEST_F(RegisterActions, DuplicatingATransferMakesANewTransfer) {
    const std::size_t before = test.library().transactions.size();
    view.duplicate(cardPayment.id);
    EXPECT_EQ(test.library().transactions.size(), before + 2);
    EXPECT_EQ(test.index().balance(card.id), amount("525"));
    EXPECT_EQ(test.index().transactions(card.id).size(), 2U);
    EXPECT_EQ(stored(cardPayment.id).transferID, cardPayment.transferID);
}

TEST_F(RegisterActions, DuplicatingAnUnknownEntryDoesNothing) {
    view.duplicate(UUID::random());
    EXPECT_FALSE(test.undoManager->canUndo());
}

/// "Edit|Mark As>", with "-" before a line that begins a group.
std::string lines(const std::vector<MenuEntry>& menu) {
    std::string text;
    for (const MenuEntry& entry : menu) {
        text += (text.empty() ? "" : "|") + std::string(entry.startsGroup ? "-" : "") +
                entry.title + (entry.children.empty() ? "" : ">");
    }
    return text;
}

TEST_F(RegisterActions, TheMenuOfOneEntryKnowsWhereItsTransferGoes) {
    const std::vector<MenuEntry> menu = view.contextMenu({cardPayment.id});
    ASSERT_EQ(lines(menu),
              "Edit|Duplicate|Make Reminder…|Go to Card|-Mark As>|Set Category|-Delete");
    EXPECT_EQ(lines(menu[4].children), "Uncleared|Cleared|Reconciled");
    EXPECT_FALSE(menu[5].canBeChosen()) << "a transfer has no category";
    EXPECT_TRUE(menu[6].isDestructive);
    menu[3].perform();
    EXPECT_EQ(test.appState->selectedAccountID(), card.id);
}

TEST_F(RegisterActions, GoingToATransferSelectsItsOtherLegThere) {
    RegisterView other(*test, card.id);
    EXPECT_TRUE(other.content()->selection->empty());
    view.goToTransfer(cardPayment.id);
    EXPECT_EQ(*other.content()->selection, UUIDSet{*cardPayment.transferID});
    EXPECT_TRUE(selection().empty());
}

TEST_F(RegisterActions, LetsAnEntryComeAgain) {
    view.contextMenu({shop.id}).at(2).perform();
    EXPECT_EQ(test.appState->sheet(), ActiveSheet(ActiveSheet::Scheduled{.likeEntry = shop.id}));
}

TEST_F(RegisterActions, TheMenuSaysTransferWhenTheOtherAccountIsNotFound) {
    test.store->mutate("Edit", [this](Library& library) {
        library.accounts.eraseIf([this](const Account& each) { return each.id == card.id; });
    });
    EXPECT_EQ(view.contextMenu({cardPayment.id}).at(3).title, "Go to Transfer");
}

TEST_F(RegisterActions, TheMenuOfAnOrdinaryEntryLeadsNowhere) {
    EXPECT_EQ(lines(view.contextMenu({shop.id})),
              "Edit|Duplicate|Make Reminder…|-Mark As>|Set Category|-Delete");
    view.goToTransfer(shop.id);
    EXPECT_FALSE(test.appState->selectedAccountID());
}

TEST_F(RegisterActions, TheMenuOfSeveralEntriesIsAboutAllOfThem) {
    const std::vector<MenuEntry> menu = view.contextMenu({shop.id, pay.id});
    ASSERT_EQ(lines(menu), "Edit Several…|-Mark As>|Set Category|-Delete");
    const auto both = std::make_shared<const UUIDSet>(UUIDSet{shop.id, pay.id});
    menu[0].perform();
    EXPECT_EQ(test.appState->sheet(), ActiveSheet(ActiveSheet::EditSeveral{both}));
    menu[1].children.at(2).perform();
    EXPECT_EQ(stored(shop.id).cleared, ClearedState::reconciled);
    EXPECT_EQ(stored(pay.id).cleared, ClearedState::reconciled);
    ASSERT_TRUE(menu[2].canBeChosen());
    test.appState->setSheet(std::nullopt);
    menu[2].perform();
    EXPECT_EQ(test.appState->sheet(), ActiveSheet(ActiveSheet::SetCategory{both}));
    EXPECT_TRUE(view.contextMenu({}).empty());
}

/// The titles of the lines that can be chosen.
std::string live(const std::vector<MenuEntry>& menu) {
    std::string text;
    for (const MenuEntry& entry : menu) {
        if (entry.canBeChosen()) {
            text += (text.empty() ? "" : "|") + entry.title;
        }
    }
    return text;
}

TEST_F(RegisterActions, TheMenuOfTheSelectionAlwaysHasTheSameLines) {
    EXPECT_EQ(lines(view.selectionMenu()),
              "Edit|Duplicate|Make Reminder…|Go to Transfer|Edit Several…|-Mark As>|Set Category|"
              "-Delete");
    EXPECT_EQ(live(view.selectionMenu()), "");
    view.select({shop.id});
    EXPECT_EQ(live(view.selectionMenu()),
              "Edit|Duplicate|Make Reminder…|Mark As|Set Category|Delete");
    view.select({cardPayment.id});
    EXPECT_EQ(live(view.selectionMenu()),
              "Edit|Duplicate|Make Reminder…|Go to Card|Mark As|Delete");
    view.select({shop.id, pay.id});
    EXPECT_EQ(live(view.selectionMenu()), "Edit Several…|Mark As|Set Category|Delete");
    view.selectionMenu()[5].children.at(1).perform();
    EXPECT_EQ(stored(pay.id).cleared, ClearedState::cleared);
}

TEST_F(RegisterActions, TheMenuOfTheOrderTicksTheColumnAndTheDirection) {
    const auto ticked = [this] {
        std::string text;
        for (const MenuEntry& entry : view.sortMenu()) {
            text += entry.isChecked.value_or(false) ? entry.title + "|" : "";
        }
        return text;
    };
    EXPECT_EQ(lines(view.sortMenu()), "Cleared|Date|Num|Payee|Category|Payment|Deposit|Balance|"
                                      "-Ascending|Descending");
    EXPECT_EQ(ticked(), "Date|Descending|");
    view.sortMenu()[3].perform();
    EXPECT_EQ(ticked(), "Payee|Descending|");
    view.sortMenu()[8].perform();
    EXPECT_EQ(ticked(), "Payee|Ascending|");
}

TEST_F(RegisterActions, TheMenusTellTheirKeys) {
    std::string keys;
    for (const MenuEntry& entry : view.contextMenu({cardPayment.id})) {
        keys += entry.shortcut + (entry.leavesKeyToFocus ? "*|" : "|");
    }
    EXPECT_EQ(keys, "Return*|Ctrl+D||Ctrl+J|||Del*|");
}

TEST_F(RegisterActions, DeletingAsksInTheSingularForOne) {
    view.requestDelete({shop.id});
    ASSERT_EQ(test.panels.confirmations.size(), 1U);
    const ConfirmationRequest& request = test.panels.confirmations[0];
    EXPECT_EQ(request.title, "Delete 1 transaction?");
    EXPECT_EQ(request.message, "Transfers are removed from both accounts. You can undo this.");
    EXPECT_EQ(request.confirmTitle, "Delete");
    EXPECT_TRUE(request.isDestructive);
}

TEST_F(RegisterActions, DeletingNamesTheOneEntryThatItIsAbout) {
    const testing::LocaleForTest locale("en_CA");
    const std::string shopping = "“Shop”, -$40.00, " + numericDateText(shop.date, Calendar::utc());
    view.requestDelete({shop.id});
    EXPECT_EQ(test.panels.confirmations.at(0).subject, shopping);
    test.undoManager->undo();
    test.store->mutate("Edit", [this](Library& library) {
        Transaction nameless = stored(pay.id);
        nameless.payee.clear();
        upsert(library, nameless);
    });
    view.requestDelete({pay.id});
    EXPECT_EQ(test.panels.confirmations.at(1).subject,
              "No payee, $1,000.00, " + numericDateText(pay.date, Calendar::utc()));
    view.requestDelete({shop.id, rent.id});
    EXPECT_EQ(test.panels.confirmations.at(2).subject, "");
}

TEST_F(RegisterActions, DeletingAsksInThePluralForTwo) {
    view.requestDelete({shop.id, pay.id});
    EXPECT_EQ(test.panels.confirmations.at(0).title, "Delete 2 transactions?");
}

TEST_F(RegisterActions, DeletingRemovesTransfersFromBothAccounts) {
    view.select({cardPayment.id, shop.id});
    view.requestDelete({cardPayment.id});
    EXPECT_EQ(shownPayees(), "Rent|Pay|Shop");
    EXPECT_TRUE(test.index().transactions(card.id).empty());
    EXPECT_EQ(undoName(), "Delete Transactions");
    EXPECT_EQ(selection(), UUIDSet{shop.id});
    EXPECT_TRUE(view.pendingDelete().empty());
    test.undoManager->undo();
    EXPECT_EQ(shownRows().size(), 4U);
}

TEST_F(RegisterActions, DismissingTheQuestionDeletesNothing) {
    test.panels.confirms = false;
    view.requestDelete({shop.id});
    EXPECT_EQ(shownRows().size(), 4U);
    EXPECT_TRUE(view.pendingDelete().empty());
}

TEST_F(RegisterActions, WaitsForTheAnswerWithTheEntriesPending) {
    test.panels.holdsAnswers = true;
    view.requestDelete({shop.id});
    EXPECT_EQ(view.pendingDelete(), UUIDSet{shop.id});
    EXPECT_EQ(shownRows().size(), 4U);
    test.panels.pending.at(0)();
    EXPECT_EQ(shownRows().size(), 3U);
}

TEST_F(RegisterActions, AnAnswerAfterTheScreenIsGoneDoesNothing) {
    test.panels.holdsAnswers = true;
    {
        RegisterView brief(*test, everyday.id);
        brief.requestDelete({shop.id});
    }
    test.panels.pending.at(0)();
    EXPECT_EQ(shownRows().size(), 4U);
}

TEST_F(RegisterActions, DeletingNothingAsksNothing) {
    view.requestDelete({});
    EXPECT_TRUE(test.panels.confirmations.empty());
}

TEST_F(RegisterActions, OpensTheAccountsSheet) {
    view.editAccount();
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::EditAccount{everyday.id}});
}

TEST_F(RegisterActions, ImportingAsksForAFile) {
    view.importTransactions();
    ASSERT_EQ(test.panels.openRequests.size(), 1U);
    EXPECT_EQ(test.panels.openRequests[0].title, "Import Transactions");
}

TEST_F(RegisterActions, OpensTheSheetsOfItsEntriesAndItsStatement) {
    view.newTransaction();
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::NewTransaction{everyday.id}});
    view.editTransaction(shop.id);
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::EditTransaction{shop.id}});
    view.reconcile();
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::Reconcile{everyday.id}});
}

} // namespace oakfen
