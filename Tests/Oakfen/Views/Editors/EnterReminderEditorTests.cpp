#include "Oakfen/Views/Editors/EnterReminderEditor.h"

#include <gtest/gtest.h>

#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::makeAccount;

class EnteringAReminder : public ::testing::Test {
protected:
    EnteringAReminder() {
        test.store->mutate("Add", [this](Library& library) {
            library.accounts = {everyday, savings};
            library.scheduled.push_back(hydro);
        });
        test.undoManager->removeAllActions();
    }

    testing::TestEnvironment test;
    Account everyday = makeAccount("Everyday");
    Account savings = makeAccount("Savings", AccountType::savings);
    ScheduledTransaction hydro{.id = UUID::random(),
                               .payee = "Bright Hydro",
                               .accountID = everyday.id,
                               .amount = amount("-96"),
                               .frequency = Frequency::monthly,
                               .nextDate = day(2026, 3, 4, 9)};
};

TEST_F(EnteringAReminder, BeginsWithItsAmountAndDay) {
    const EnterReminderEditor editor(*test, hydro);
    EXPECT_EQ(editor.amount, amount("96"));
    EXPECT_EQ(editor.date, day(2026, 3, 4, 9));
    EXPECT_EQ(editor.subtitle(), "Bright Hydro · Everyday · Uncategorized · Monthly");
    EXPECT_TRUE(editor.canSave());
}

TEST_F(EnteringAReminder, TakesAnotherAmountAndDayForThisTimeOnly) {
    const Library before = test.library();
    EnterReminderEditor editor(*test, hydro);
    editor.amount = amount("101.20");
    editor.date = day(2026, 3, 9);
    editor.save();
    ASSERT_EQ(test.library().transactions.size(), 1U);
    EXPECT_EQ(test.library().transactions.front().amount, amount("-101.20"));
    EXPECT_EQ(test.library().transactions.front().date, day(2026, 3, 9));
    EXPECT_EQ(test.library().scheduled.front().amount, amount("-96"));
    EXPECT_EQ(test.library().scheduled.front().nextDate, day(2026, 4, 4, 9));
    EXPECT_EQ(test.undoManager->undoActionName(), "Enter Bright Hydro");
    test.undoManager->undo();
    EXPECT_EQ(test.library(), before);
}

TEST_F(EnteringAReminder, KeepsTheDirectionOfTheMoney) {
    test.store->mutate(
        "Edit", [this](Library& library) { library.scheduled.edit(0).amount = amount("500"); });
    EnterReminderEditor editor(*test, test.library().scheduled.front());
    editor.amount = amount("-480");
    editor.save();
    EXPECT_EQ(test.library().transactions.front().amount, amount("480"));
}

TEST_F(EnteringAReminder, EntersBothLegsOfATransfer) {
    test.store->mutate("Edit", [this](Library& library) {
        library.scheduled.edit(0).transferAccountID = savings.id;
    });
    EnterReminderEditor editor(*test, test.library().scheduled.front());
    editor.amount = amount("50");
    editor.save();
    EXPECT_EQ(test.index().balance(savings.id), amount("50"));
    EXPECT_EQ(test.index().balance(everyday.id), amount("-50"));
}

TEST_F(EnteringAReminder, WantsAnAmountThatCanBeKept) {
    EnterReminderEditor editor(*test, hydro);
    editor.amount = Decimal();
    EXPECT_EQ(editor.obstacle(), "Enter an amount.");
    editor.amount = Decimal::nan();
    EXPECT_EQ(editor.obstacle(), "The amount is too large to keep. Enter another.");
}

} // namespace
} // namespace oakfen
