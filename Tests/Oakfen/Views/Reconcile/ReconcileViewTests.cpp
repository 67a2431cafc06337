#include "Oakfen/Views/Reconcile/ReconcileView.h"

#include <gtest/gtest.h>

#include <string>

#include "Oakfen/Views/TableChanges.h"
#include "Tests/Generators/RandomLibrary.h"
#include "Tests/Oakfen/Views/Register/RegisterFixture.h"
#include "Tests/Support/LocaleForTest.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::LocaleForTest;
using testing::makeTransaction;
using testing::RegisterFixture;

/// Everyday begins with 1000; the card's payment of 500 is reconciled, the shop's 40 cleared, the
/// pay of 1000 uncleared, and the rent is due tomorrow.
class Reconciling : public RegisterFixture {
protected:
    Reconciling() { test.undoManager->removeAllActions(); }

    [[nodiscard]] std::string shownRows() const {
        std::string payees;
        for (const ReconcileRow* row : sheet.content()->table->rows()) {
            payees += (payees.empty() ? "" : "|") + std::string(row->payee);
        }
        return payees;
    }

    [[nodiscard]] ClearedState stateOf(const Transaction& entry) const {
        return stored(entry.id).cleared;
    }

    ReconcileView sheet{*test, everyday.id};
};

TEST_F(Reconciling, BeginsWithWhatIsClearedAndItsBalance) {
    EXPECT_EQ(ReconcileView::heading(everyday), "Reconcile Everyday");
    EXPECT_EQ(sheet.statementDate(), test.clock.now());
    EXPECT_EQ(sheet.checked(), UUIDSet{shop.id});
    EXPECT_EQ(sheet.statementBalance(), amount("460"));
    EXPECT_EQ(sheet.content()->reconciled, amount("500"));
    EXPECT_EQ(sheet.content()->clearedTotal, amount("460"));
    EXPECT_TRUE(sheet.content()->isMatched());
}

TEST_F(Reconciling, ShowsWhatIsNotReconciledUpToTheEndOfTheStatementsDay) {
    EXPECT_EQ(shownRows(), "Shop|Pay");
    sheet.setStatementDate(day(2026, 3, 16, 0));
    EXPECT_EQ(shownRows(), "Shop|Pay|Rent");
    sheet.setStatementDate(day(2026, 3, 9, 23));
    EXPECT_EQ(shownRows(), "Shop");
}

TEST_F(Reconciling, FollowsAnEditOfTheLedger) {
    ASSERT_EQ(shownRows(), "Shop|Pay");
    test.store->mutate("Mark", [this](Library& library) {
        setCleared(library, ClearedState::reconciled, {shop.id});
    });
    EXPECT_EQ(shownRows(), "Pay");
    EXPECT_EQ(sheet.content()->reconciled, amount("460"));
}

TEST_F(Reconciling, TellsOnlyOfWhatLooksDifferent) {
    const auto before = sheet.content();
    int notices = 0;
    const Subscription changed = sheet.changed.observe([&] { ++notices; });
    const auto edit = [&](auto change) {
        test.store->mutate("Edit", [&](Library& library) {
            Transaction changedEntry = stored(pay.id);
            change(changedEntry);
            upsert(library, changedEntry);
        });
    };
    edit([&](Transaction& entry) { entry.categoryID = salary.id; });
    EXPECT_EQ(notices, 0);
    EXPECT_EQ(sheet.content(), before);
    edit([](Transaction& entry) { entry.memo = "March"; });
    EXPECT_EQ(notices, 1);
    EXPECT_EQ(changesBetween(*before->table, *sheet.content()->table),
              (TableChanges{.changed = TableChanges::Span{1, 1}}));
}

TEST_F(Reconciling, CountsWhatIsTicked) {
    sheet.setStatementBalance(amount("1460"));
    EXPECT_EQ(sheet.content()->difference, amount("1000"));
    sheet.setChecked({pay.id}, true);
    EXPECT_TRUE(sheet.checked().contains(pay.id));
    EXPECT_EQ(sheet.content()->clearedTotal, amount("1460"));
    EXPECT_TRUE(sheet.content()->isMatched());
    sheet.setChecked({shop.id}, false);
    EXPECT_EQ(sheet.content()->difference, amount("-40"));
}

TEST_F(Reconciling, CountsAfreshAfterEachChange) {
    EXPECT_EQ(sheet.content()->clearedTotal, amount("460"));
    sheet.markAll();
    EXPECT_EQ(sheet.content()->clearedTotal, amount("1460"));
    sheet.setChecked({shop.id}, false);
    EXPECT_EQ(sheet.content()->clearedTotal, amount("1500"));
    sheet.setStatementDate(day(2026, 3, 9));
    EXPECT_EQ(sheet.content()->clearedTotal, amount("500"));
    sheet.setStatementDate(day(2026, 3, 15));
    EXPECT_EQ(sheet.content()->clearedTotal, amount("1500"));
    test.store->mutate("Edit", [this](Library& library) {
        Transaction changed = pay;
        changed.amount = amount("1100");
        upsert(library, changed);
    });
    EXPECT_EQ(sheet.content()->clearedTotal, amount("1600"));
}

TEST_F(Reconciling, MarksExactlyTheRowsThatAreShown) {
    sheet.setStatementDate(day(2026, 3, 16));
    sheet.setChecked({rent.id}, true);
    sheet.setStatementDate(day(2026, 3, 15));
    sheet.markAll();
    EXPECT_EQ(sheet.checked(), (UUIDSet{shop.id, pay.id}));
}

TEST_F(Reconciling, TakesAllTicksAwayWhereThereAreAny) {
    EXPECT_TRUE(sheet.content()->canUnmark);
    sheet.setStatementDate(day(2026, 3, 16));
    sheet.markAll();
    sheet.setStatementDate(day(2026, 3, 15));
    sheet.unmarkAll();
    EXPECT_TRUE(sheet.checked().empty());
    EXPECT_FALSE(sheet.content()->canUnmark);
    EXPECT_EQ(sheet.content()->clearedTotal, amount("500"));
}

TEST_F(Reconciling, SaysWhatFinishingAdds) {
    const LocaleForTest locale("en_CA");
    EXPECT_EQ(sheet.content()->verdict, "Your register matches the statement");
    sheet.setStatementBalance(amount("455.5"));
    EXPECT_EQ(sheet.content()->verdict, "Your register doesn’t match the statement yet: finishing "
                                        "adds an adjustment of -$4.50");
}

TEST_F(Reconciling, PointsOutAnEntryThatIsTheWholeDifference) {
    const LocaleForTest locale("en_CA");
    EXPECT_FALSE(sheet.content()->hint);
    sheet.setStatementBalance(amount("1460"));
    ASSERT_TRUE(sheet.content()->hint);
    EXPECT_EQ(sheet.content()->hint->sentence, "“Pay”, Mar 10, 2026, is the whole difference");
    EXPECT_EQ(sheet.content()->hint->buttonTitle, "Tick It");
    sheet.followHint();
    EXPECT_EQ(sheet.checked(), (UUIDSet{shop.id, pay.id}));
    EXPECT_TRUE(sheet.content()->isMatched());
    EXPECT_FALSE(sheet.content()->hint);
}

TEST_F(Reconciling, PointsOutATickedEntryThatIsTheWholeDifference) {
    const LocaleForTest locale("en_CA");
    sheet.setStatementBalance(amount("500"));
    ASSERT_TRUE(sheet.content()->hint);
    EXPECT_EQ(sheet.content()->hint->sentence,
              "“Shop”, Feb 14, 2026, is ticked and is the whole difference");
    EXPECT_EQ(sheet.content()->hint->buttonTitle, "Untick It");
    sheet.followHint();
    EXPECT_TRUE(sheet.checked().empty());
    EXPECT_TRUE(sheet.content()->isMatched());
}

TEST_F(Reconciling, SaysHowManyOtherEntriesAreTheWholeDifferenceToo) {
    const LocaleForTest locale("en_CA");
    test.store->mutate("Add", [this](Library& library) {
        upsert(library, makeTransaction(everyday.id, day(2026, 3, 2), "", "7"));
        upsert(library, makeTransaction(everyday.id, day(2026, 3, 3), "B", "7"));
    });
    sheet.setStatementBalance(amount("467"));
    ASSERT_TRUE(sheet.content()->hint);
    EXPECT_EQ(sheet.content()->hint->sentence,
              "An entry without a payee, Mar 2, 2026, is the whole difference, as is 1 more");
    sheet.followHint();
    EXPECT_TRUE(sheet.content()->isMatched());
}

TEST_F(Reconciling, PointsNothingOutWhereNoEntryIsTheDifference) {
    sheet.setStatementBalance(amount("461"));
    EXPECT_FALSE(sheet.content()->hint);
    const UUIDSet before = sheet.checked();
    sheet.followHint();
    EXPECT_EQ(sheet.checked(), before);
}

TEST_F(Reconciling, TellsOfTicksThatTheDateHides) {
    sheet.setStatementDate(day(2026, 3, 16));
    sheet.setChecked({rent.id}, true);
    sheet.setStatementDate(day(2026, 3, 15));
    ASSERT_TRUE(sheet.content()->hint);
    EXPECT_EQ(sheet.content()->hint->sentence,
              "A ticked entry after the statement’s date will be reconciled too");
    EXPECT_EQ(sheet.content()->hint->buttonTitle, "Untick It");
    sheet.followHint();
    EXPECT_EQ(sheet.checked(), UUIDSet{shop.id});
    EXPECT_FALSE(sheet.content()->hint);
}

TEST_F(Reconciling, KeepsTheTicksForLaterInOneStep) {
    sheet.setChecked({pay.id}, true);
    sheet.setChecked({shop.id}, false);
    sheet.saveForLater();
    EXPECT_EQ(undoName(), "Save for Later");
    EXPECT_EQ(stateOf(pay), ClearedState::cleared);
    EXPECT_EQ(stateOf(shop), ClearedState::uncleared);
    EXPECT_EQ(stateOf(cardPayment), ClearedState::reconciled);
    EXPECT_EQ(ReconcileView(*test, everyday.id).checked(), UUIDSet{pay.id});
    test.undoManager->undo();
    EXPECT_EQ(stateOf(pay), ClearedState::uncleared);
    EXPECT_EQ(stateOf(shop), ClearedState::cleared);
    EXPECT_FALSE(test.undoManager->canUndo());
}

TEST_F(Reconciling, KeepsForLaterThatATickOfALaterDayWasTakenAway) {
    test.store->mutate("Mark Cleared", [this](Library& library) {
        setCleared(library, ClearedState::cleared, {rent.id});
    });
    ReconcileView ticking(*test, everyday.id);
    ASSERT_TRUE(ticking.checked().contains(rent.id));
    ticking.unmarkAll();
    ticking.saveForLater();
    EXPECT_TRUE(ReconcileView(*test, everyday.id).checked().empty());
}

TEST_F(Reconciling, LeavesNoStepWhenTheTicksAreAsTheyWere) {
    sheet.saveForLater();
    EXPECT_FALSE(test.undoManager->canUndo());
}

TEST_F(Reconciling, ComesBackToTheTicksThatWereKeptInAnyLedger) {
    for (std::uint64_t seed = 1; seed <= 20; ++seed) {
        SCOPED_TRACE(seed);
        testing::RandomLibrary random(seed);
        test.store->replaceLibrary(random.make(60), std::nullopt);
        test.undoManager->removeAllActions();
        const Library before = test.library();
        const UUID account = before.accounts[random.below(before.accounts.size())].id;
        const Decimal balance = test.index().endingCash(account);
        const Decimal reconciled = test.index().reconciledBalance(account);

        ReconcileView ticking(*test, account);
        if (random.chance(4)) {
            ticking.unmarkAll();
        }
        // Those that the date hides keep their ticks.
        ticking.setStatementDate(random.date());
        const auto shown = ticking.content();
        for (const ReconcileRow* row : shown->table->rows()) {
            ticking.setChecked({row->id}, random.chance(2));
        }
        const UUIDSet ticked = ticking.checked();
        ticking.saveForLater();
        EXPECT_EQ(ReconcileView(*test, account).checked(), ticked);
        EXPECT_EQ(test.index().endingCash(account), balance);
        EXPECT_EQ(test.index().reconciledBalance(account), reconciled);
        if (test.undoManager->canUndo()) {
            test.undoManager->undo();
        }
        EXPECT_EQ(test.library(), before);
    }
}

TEST_F(Reconciling, NamesTheButtonByWhatItDoes) {
    EXPECT_EQ(sheet.content()->finishTitle(), "Finish");
    EXPECT_EQ(sheet.content()->finishHelp(), "Mark ticked transactions as reconciled");
    sheet.setStatementBalance(sheet.statementBalance() + amount("0.001"));
    EXPECT_EQ(sheet.content()->finishTitle(), "Finish with Adjustment");
    EXPECT_EQ(sheet.content()->finishHelp(), "Adds a balance adjustment for the difference");
}

TEST_F(Reconciling, CannotFinishWithADifferenceThatNoAmountHolds) {
    const Decimal largest = amount(std::string(38, '9') + std::string(127, '0'));
    EXPECT_TRUE(sheet.content()->canFinish());
    sheet.setStatementBalance(largest);
    EXPECT_TRUE(sheet.content()->canFinish());
    test.store->mutate("Edit", [&](Library& library) {
        Transaction changed = shop;
        changed.amount = -largest;
        upsert(library, changed);
    });
    EXPECT_EQ(sheet.content()->obstacle(),
              "The difference is too large to enter as an adjustment.");
    const Library before = test.library();
    sheet.finish();
    EXPECT_EQ(test.library(), before);
    EXPECT_TRUE(test.store->lastError());
    sheet.setChecked({shop.id}, false);
    EXPECT_TRUE(sheet.content()->canFinish());
}

TEST_F(Reconciling, ReconcilesTheTickedEntriesInOneStep) {
    sheet.markAll();
    sheet.setStatementBalance(amount("1460"));
    sheet.finish();
    EXPECT_EQ(stateOf(shop), ClearedState::reconciled);
    EXPECT_EQ(stateOf(pay), ClearedState::reconciled);
    EXPECT_EQ(stateOf(rent), ClearedState::uncleared);
    EXPECT_EQ(test.index().reconciledBalance(everyday.id), amount("1460"));
    EXPECT_EQ(undoName(), "Reconcile");
    test.undoManager->undo();
    EXPECT_EQ(stateOf(shop), ClearedState::cleared);
    EXPECT_FALSE(test.undoManager->canUndo());
}

TEST_F(Reconciling, EntersWhatIsLeftAsAnAdjustment) {
    sheet.setStatementBalance(amount("455.5"));
    sheet.finish();
    const Transaction& adjustment = test.library().transactions.back();
    EXPECT_EQ(adjustment.payee, "Balance Adjustment");
    EXPECT_EQ(adjustment.amount, amount("-4.5"));
    EXPECT_EQ(adjustment.date, sheet.statementDate());
    EXPECT_EQ(adjustment.accountID, everyday.id);
    EXPECT_EQ(adjustment.cleared, ClearedState::reconciled);
    EXPECT_EQ(test.index().reconciledBalance(everyday.id), amount("455.5"));
    EXPECT_EQ(test.index().categoryDescription(adjustment), "Uncategorized");
}

TEST_F(Reconciling, LeavesNoStepWhenNothingIsTickedAndNothingIsLeft) {
    sheet.setChecked({shop.id}, false);
    EXPECT_TRUE(sheet.checked().empty());
    sheet.setStatementBalance(sheet.content()->reconciled);
    sheet.finish();
    EXPECT_FALSE(test.undoManager->canUndo());
}

TEST_F(Reconciling, KeepsATickThatTheDateHidesAndReconcilesItUncounted) {
    sheet.setStatementBalance(amount("460"));
    sheet.setChecked({pay.id}, true);
    sheet.setStatementDate(day(2026, 2, 28));
    EXPECT_EQ(shownRows(), "Shop");
    EXPECT_EQ(sheet.content()->clearedTotal, amount("460"));
    EXPECT_TRUE(sheet.content()->isMatched());
    sheet.finish();
    EXPECT_EQ(stateOf(pay), ClearedState::reconciled);
    EXPECT_EQ(test.library().transactions.size(), 5U);
}

TEST_F(Reconciling, LeavesTheOtherLegOfATransferAsItWas) {
    ReconcileView ofCard(*test, card.id);
    const Transaction& otherLeg = *test.index().transactions(card.id).front();
    EXPECT_EQ(otherLeg.cleared, ClearedState::uncleared);
    test.store->mutate("Mark", [this](Library& library) {
        setCleared(library, ClearedState::uncleared, {cardPayment.id});
    });
    ofCard.markAll();
    ofCard.setStatementBalance(amount("25"));
    ofCard.finish();
    EXPECT_EQ(test.index().transactions(card.id).front()->cleared, ClearedState::reconciled);
    EXPECT_EQ(stateOf(cardPayment), ClearedState::uncleared);
}

TEST_F(Reconciling, TicksAClearedEntryOfALaterDayToo) {
    test.store->mutate("Mark", [this](Library& library) {
        setCleared(library, ClearedState::cleared, {rent.id});
    });
    const ReconcileView later(*test, everyday.id);
    EXPECT_EQ(later.checked(), (UUIDSet{shop.id, rent.id}));
    EXPECT_EQ(later.statementBalance(), amount("-740"));
    EXPECT_EQ(later.content()->clearedTotal, amount("460"));
}

} // namespace
} // namespace oakfen
