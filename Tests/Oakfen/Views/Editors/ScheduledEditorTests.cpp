#include "Oakfen/Views/Editors/ScheduledEditor.h"

#include <gtest/gtest.h>

#include "OakfenCore/LibraryOperations/Transactions.h"
#include "Tests/Generators/RandomLibrary.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::makeAccount;
using testing::makeCategory;
using testing::makeTransaction;
using testing::RandomLibrary;
using Kind = ScheduledEditor::Kind;

class Scheduling : public ::testing::Test {
protected:
    Scheduling() {
        test.store->mutate("Add", [this](Library& library) {
            library.accounts = {visa, savings, chequing};
            library.categories = {internet};
            library.scheduled.push_back(bill);
        });
        test.undoManager->removeAllActions();
    }

    [[nodiscard]] ScheduledEditor edit(const UUID& id) {
        return ScheduledEditor(*test, ActiveSheet::Scheduled{.id = id});
    }
    [[nodiscard]] ScheduledEditor add() { return ScheduledEditor(*test, ActiveSheet::Scheduled{}); }
    [[nodiscard]] ScheduledEditor like(Transaction entry) {
        test.store->mutate("Add", [&](Library& library) { upsert(library, entry); });
        return ScheduledEditor(*test, ActiveSheet::Scheduled{.likeEntry = entry.id});
    }
    void store(const ScheduledTransaction& reminder) {
        test.store->mutate("Add", [&](Library& library) { library.scheduled.push_back(reminder); });
    }
    [[nodiscard]] const ScheduledTransaction& last() {
        const auto& all = test.library().scheduled;
        return all[all.size() - 1];
    }

    testing::TestEnvironment test;
    Account visa = makeAccount("Visa", AccountType::creditCard);
    Account savings = makeAccount("Savings", AccountType::savings);
    Account chequing = makeAccount("Everyday");
    Category internet = makeCategory("Internet");
    ScheduledTransaction bill{.id = UUID::random(),
                              .payee = "Cityline",
                              .accountID = visa.id,
                              .amount = amount("-79.95"),
                              .categoryID = internet.id,
                              .memo = "Fibre",
                              .frequency = Frequency::yearly,
                              .nextDate = day(2026, 4, 6),
                              .autoEnter = true};
};

TEST_F(Scheduling, BeginsAMonthlyBillOfTheFirstOpenBankingAccountDueToday) {
    const ScheduledEditor editor = add();
    EXPECT_EQ(editor.title(), "New Reminder");
    EXPECT_EQ(editor.kind, Kind::bill);
    EXPECT_EQ(editor.accountID, chequing.id);
    EXPECT_EQ(editor.draft.frequency, Frequency::monthly);
    EXPECT_EQ(editor.draft.nextDate, day(2026, 3, 15));
    EXPECT_EQ(editor.endDate, day(2027, 3, 15));
    EXPECT_FALSE(editor.hasEndDate);
    EXPECT_FALSE(editor.draft.autoEnter);
    EXPECT_FALSE(editor.deleteConfirmation());
}

TEST_F(Scheduling, NeverStoresAnAccountThatNobodyChose) {
    test.store->mutate("Remove", [](Library& library) { library.accounts = {}; });
    ScheduledEditor editor = add();
    editor.draft.payee = "Rent";
    editor.amount = amount("5");
    EXPECT_FALSE(editor.accountID);
    EXPECT_EQ(editor.obstacle(), "Choose an account.");
    editor.save();
    EXPECT_EQ(test.library().scheduled.size(), 1U);
}

TEST_F(Scheduling, SaysWhatIsMissingOneAfterTheOther) {
    ScheduledEditor editor = add();
    EXPECT_EQ(editor.obstacle(), "Enter a payee.");
    editor.draft.payee = " \t";
    EXPECT_EQ(editor.obstacle(), "Enter a payee.");
    editor.draft.payee = "Rent";
    EXPECT_EQ(editor.obstacle(), "Enter an amount.");
    editor.amount = Decimal::nan();
    EXPECT_EQ(editor.obstacle(), "The amount is too large to keep. Enter another.");
    editor.amount = amount("1200");
    EXPECT_TRUE(editor.canSave());
    editor.kind = Kind::transfer;
    EXPECT_EQ(editor.obstacle(), "Choose the account that the money goes to.");
    editor.transferID = editor.accountID;
    EXPECT_EQ(editor.obstacle(), "Choose the account that the money goes to.");
    editor.transferID = savings.id;
    EXPECT_TRUE(editor.canSave());
}

TEST_F(Scheduling, StoresABillAsMoneyThatGoesOutInOneStep) {
    const Library before = test.library();
    ScheduledEditor editor = add();
    editor.draft.payee = "Rent";
    editor.amount = amount("1200");
    editor.save();
    EXPECT_EQ(test.undoManager->undoActionName(), "New Reminder");
    EXPECT_EQ(last().amount, amount("-1200"));
    EXPECT_EQ(last().accountID, chequing.id);
    EXPECT_FALSE(last().endDate);
    test.undoManager->undo();
    EXPECT_EQ(test.library(), before);
    EXPECT_FALSE(test.undoManager->canUndo());
}

TEST_F(Scheduling, StoresIncomeAsMoneyThatComesIn) {
    ScheduledEditor editor = add();
    editor.draft.payee = "Aurora";
    editor.kind = Kind::income;
    editor.amount = amount("-2979.25");
    EXPECT_EQ(editor.accountTitle(), "Deposit To");
    editor.save();
    EXPECT_EQ(last().amount, amount("2979.25"));
}

TEST_F(Scheduling, StoresATransferWithoutACategory) {
    ScheduledEditor editor = edit(bill.id);
    editor.kind = Kind::transfer;
    editor.transferID = savings.id;
    EXPECT_EQ(editor.accountTitle(), "Pay From");
    editor.save();
    EXPECT_EQ(test.undoManager->undoActionName(), "Edit Reminder");
    EXPECT_EQ(last().transferAccountID, savings.id);
    EXPECT_FALSE(last().categoryID);
    EXPECT_EQ(last().amount, amount("-79.95"));
}

TEST_F(Scheduling, TurnsAStoredTransferOfPositiveAmountRoundWhenItIsSaved) {
    ScheduledTransaction transfer = bill;
    transfer.id = UUID::random();
    transfer.amount = amount("50");
    transfer.transferAccountID = savings.id;
    store(transfer);
    ScheduledEditor editor = edit(transfer.id);
    EXPECT_EQ(editor.kind, Kind::transfer);
    EXPECT_EQ(editor.amount, amount("50"));
    editor.save();
    EXPECT_EQ(last().amount, amount("-50"));
}

TEST_F(Scheduling, ABillThatWasATransferHasNoOtherAccount) {
    ScheduledTransaction transfer = bill;
    transfer.id = UUID::random();
    transfer.transferAccountID = savings.id;
    store(transfer);
    ScheduledEditor editor = edit(transfer.id);
    editor.kind = Kind::bill;
    editor.save();
    EXPECT_FALSE(last().transferAccountID);
}

TEST_F(Scheduling, ShowsAReminderAndLeavesItAsItIs) {
    const ScheduledEditor shown = edit(bill.id);
    EXPECT_EQ(shown.title(), "Edit Reminder");
    EXPECT_EQ(shown.kind, Kind::bill);
    EXPECT_EQ(shown.amount, amount("79.95"));
    EXPECT_EQ(shown.accountID, visa.id);
    ScheduledEditor editor = edit(bill.id);
    editor.save();
    EXPECT_FALSE(test.undoManager->canUndo());
}

TEST_F(Scheduling, SaysSoWhereItEndsBeforeItIsDue) {
    ScheduledEditor editor = edit(bill.id);
    editor.endDate = editor.draft.nextDate.adding(-1);
    EXPECT_EQ(editor.endDateHint(), "");
    editor.hasEndDate = true;
    EXPECT_NE(editor.endDateHint(), "");
    EXPECT_TRUE(editor.canSave());
    editor.endDate = editor.draft.nextDate;
    EXPECT_EQ(editor.endDateHint(), "");
}

TEST_F(Scheduling, EndsOnTheLastDayWhileThatIsAsked) {
    ScheduledEditor editor = edit(bill.id);
    editor.hasEndDate = true;
    editor.endDate = day(2028, 4, 6);
    editor.save();
    EXPECT_EQ(last().endDate, day(2028, 4, 6));
    ScheduledEditor again = edit(bill.id);
    EXPECT_TRUE(again.hasEndDate);
    EXPECT_EQ(again.endDate, day(2028, 4, 6));
    again.hasEndDate = false;
    again.save();
    EXPECT_FALSE(last().endDate);
}

TEST_F(Scheduling, DeletesEveryRecordOfTheIDInOneStep) {
    store(bill);
    const Library before = test.library();
    ScheduledEditor editor = edit(bill.id);
    ASSERT_TRUE(editor.deleteConfirmation());
    EXPECT_EQ(editor.deleteConfirmation()->title, "Delete Reminder?");
    editor.performDelete();
    EXPECT_TRUE(test.library().scheduled.empty());
    EXPECT_EQ(test.undoManager->undoActionName(), "Delete Reminder");
    test.undoManager->undo();
    EXPECT_EQ(test.library(), before);
}

TEST_F(Scheduling, KeepsAClosedAccountAndAnUnknownCategoryAmongTheChoices) {
    ScheduledTransaction old = bill;
    old.id = UUID::random();
    old.categoryID = UUID::random();
    store(old);
    test.store->mutate("Close", [](Library& library) { library.accounts.edit(0).isClosed = true; });
    const ScheduledEditor editor = edit(old.id);
    EXPECT_EQ(editor.accountChoices().back().title, "Visa");
    EXPECT_EQ(editor.categoryChoices().back().title, "Unknown Category");
}

TEST_F(Scheduling, OffersNoTransferIntoTheAccountThatPays) {
    const ScheduledEditor editor = add();
    for (const PickerRow& row : editor.transferChoices()) {
        EXPECT_NE(row.id, chequing.id);
    }
}

TEST_F(Scheduling, MakesACategoryThatWasTypedWhenItIsSaved) {
    ScheduledEditor editor = add();
    editor.draft.payee = "Aurora";
    editor.kind = Kind::income;
    editor.amount = amount("10");
    EXPECT_EQ(editor.categoryOffer("Bonus").path, "Bonus");
    editor.draft.categoryID = editor.planCategory("Bonus").id;
    EXPECT_EQ(test.library().categories.size(), 1U);
    editor.save();
    ASSERT_EQ(test.library().categories.size(), 2U);
    EXPECT_EQ(test.library().categories[1].kind, CategoryKind::income);
    EXPECT_EQ(last().categoryID, test.library().categories[1].id);
    test.undoManager->undo();
    EXPECT_EQ(test.library().categories.size(), 1U);
}

TEST_F(Scheduling, BeginsLikeAnEntryAMonthAfterIt) {
    Transaction entry = makeTransaction(visa.id, day(2026, 3, 10, 9), "Gym", "-45.50");
    entry.categoryID = internet.id;
    entry.memo = "Monthly";
    const ScheduledEditor editor = like(entry);
    EXPECT_EQ(editor.title(), "New Reminder");
    EXPECT_NE(editor.draft.id, entry.id);
    EXPECT_EQ(editor.draft.payee, "Gym");
    EXPECT_EQ(editor.draft.memo, "Monthly");
    EXPECT_EQ(editor.draft.categoryID, internet.id);
    EXPECT_EQ(editor.accountID, visa.id);
    EXPECT_EQ(editor.kind, Kind::bill);
    EXPECT_EQ(editor.amount, amount("45.50"));
    EXPECT_EQ(editor.draft.nextDate, day(2026, 4, 10, 9));
    EXPECT_TRUE(editor.canSave());
}

TEST_F(Scheduling, BeginsLikeAnOldEntryOnItsDayFromTodayOn) {
    const auto nextDueLike = [this](Date entered) {
        return like(makeTransaction(visa.id, entered, "Gym", "-1")).draft.nextDate;
    };
    EXPECT_EQ(nextDueLike(day(2025, 1, 15, 0)), day(2026, 3, 15, 0));
    EXPECT_EQ(nextDueLike(day(2025, 1, 14, 23)), day(2026, 4, 14, 23));
    EXPECT_EQ(nextDueLike(day(2025, 12, 31)), day(2026, 3, 31));
    EXPECT_EQ(nextDueLike(day(2026, 3, 20)), day(2026, 4, 20));
}

TEST_F(Scheduling, BeginsTodayLikeAnEntryFromBeforeAllHistory) {
    const Date today = Calendar::utc().startOfDay(test.clock.now());
    for (const int year : {-178'956'000, -179'000'000, -2'000'000'000}) {
        const ScheduledEditor editor =
            like(makeTransaction(chequing.id, Calendar::utc().date({.year = year}), "Old", "-5"));
        EXPECT_EQ(Calendar::utc().startOfDay(editor.draft.nextDate), today) << year;
    }
}

TEST_F(Scheduling, BeginsLikeAnEntryFarAheadNoEarlierThanToday) {
    const Date far = Calendar::utc().date({.year = 179'000'000});
    const ScheduledEditor editor = like(makeTransaction(chequing.id, far, "Far", "-5"));
    EXPECT_GE(editor.draft.nextDate, far);
}

TEST_F(Scheduling, BeginsLikeASplitEntryWithoutACategory) {
    Transaction entry = makeTransaction(chequing.id, day(2026, 3, 1), "Aurora", "30");
    entry.splits = {{.id = UUID::random(), .categoryID = internet.id, .amount = amount("30")}};
    const ScheduledEditor editor = like(entry);
    EXPECT_EQ(editor.kind, Kind::income);
    EXPECT_FALSE(editor.draft.categoryID);
}

TEST_F(Scheduling, BeginsLikeEitherLegOfATransferFromWhereTheMoneyLeaves) {
    Transaction leg = makeTransaction(chequing.id, day(2026, 3, 1), "Save", "-20");
    leg.transferAccountID = savings.id;
    const ScheduledEditor out = like(leg);
    EXPECT_EQ(out.kind, Kind::transfer);
    EXPECT_EQ(out.accountID, chequing.id);
    EXPECT_EQ(out.transferID, savings.id);
    const UUID twin = *test.index().transaction(leg.id)->transferID;
    const ScheduledEditor in(*test, ActiveSheet::Scheduled{.likeEntry = twin});
    EXPECT_EQ(in.accountID, chequing.id);
    EXPECT_EQ(in.transferID, savings.id);
}

TEST_F(Scheduling, StoresAnyReminderAsItWasButForItsTransfersDirection) {
    for (std::uint64_t seed = 1; seed <= 40; ++seed) {
        const Library document = RandomLibrary(seed).make(5);
        test.store->mutate("Open", [&](Library& library) { library = document; });
        for (const ScheduledTransaction& each : document.scheduled) {
            ScheduledEditor editor = edit(each.id);
            if (!editor.canSave()) {
                continue;
            }
            editor.save();
            ScheduledTransaction expected = each;
            if (each.isTransfer()) {
                expected.amount = -each.amount.magnitude();
                expected.categoryID.reset();
            }
            const ScheduledTransaction* stored = test.library().scheduled.first(
                [&](const ScheduledTransaction& other) { return other.id == each.id; });
            ASSERT_NE(stored, nullptr);
            EXPECT_EQ(*stored, expected) << seed;
        }
    }
}

} // namespace
} // namespace oakfen
