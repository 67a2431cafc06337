#include "Oakfen/Reminders.h"

#include <gtest/gtest.h>

#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::makeAccount;
using testing::TestEnvironment;

class Reminders : public ::testing::Test {
protected:
    Reminders() {
        test.store->mutate("Add", [this](Library& library) {
            library.accounts.push_back(everyday);
            library.accounts.push_back(savings);
        });
    }

    ScheduledTransaction add(std::string payee, Date due, Frequency frequency) {
        const ScheduledTransaction reminder{.id = UUID::random(),
                                            .payee = std::move(payee),
                                            .accountID = everyday.id,
                                            .amount = amount("-10"),
                                            .frequency = frequency,
                                            .nextDate = due};
        test.store->mutate("Add", [&](Library& library) { library.scheduled.push_back(reminder); });
        test.undoManager->removeAllActions();
        return reminder;
    }

    [[nodiscard]] std::string entered() const {
        std::string result;
        for (const Transaction& entry : test.library().transactions) {
            const CivilTime civil = Calendar::utc().civil(entry.date);
            result += entry.payee + " " + std::to_string(civil.month) + "/" +
                      std::to_string(civil.day) + " " + entry.amount.toString() + "; ";
        }
        return result;
    }

    Account everyday = makeAccount("Everyday");
    Account savings = makeAccount("Savings", AccountType::savings);
    TestEnvironment test;
};

TEST_F(Reminders, AreDueUntilTheLastMinuteOfToday) {
    const Date lastMinute =
        Calendar::utc().date({.year = 2026, .month = 3, .day = 15, .hour = 23, .minute = 59});
    add("Tonight", lastMinute, Frequency::monthly);
    add("Tomorrow", day(2026, 3, 16, 0), Frequency::monthly);
    EXPECT_EQ(dueReminderCount(*test), 1);
    enterDueReminders(*test);
    EXPECT_EQ(entered(), "Tonight 3/15 -10; ");
    EXPECT_EQ(dueReminderCount(*test), 0);
}

TEST_F(Reminders, AreEnteredInTheDocumentsOrderAndAsOneStep) {
    add("Rent", day(2026, 3, 10), Frequency::monthly);
    add("Phone", day(2026, 3, 1), Frequency::once);
    enterDueReminders(*test);
    EXPECT_EQ(entered(), "Rent 3/10 -10; Phone 3/1 -10; ");
    EXPECT_EQ(test.library().scheduled.size(), 1U);
    EXPECT_EQ(test.undoManager->undoActionName(), "Enter Reminders");
    test.undoManager->undo();
    EXPECT_EQ(entered(), "");
    EXPECT_EQ(test.library().scheduled.size(), 2U);
    EXPECT_FALSE(test.undoManager->canUndo());
}

TEST_F(Reminders, AreEnteredOnceEachTimeHoweverOverdue) {
    add("Gym", day(2026, 3, 1), Frequency::weekly);
    enterDueReminders(*test);
    EXPECT_EQ(entered(), "Gym 3/1 -10; ");
    EXPECT_EQ(dueReminderCount(*test), 1);
    enterDueReminders(*test);
    EXPECT_EQ(entered(), "Gym 3/1 -10; Gym 3/8 -10; ");
}

TEST_F(Reminders, OfATransferEnterBothLegs) {
    const UUID id = add("Save", day(2026, 3, 15), Frequency::monthly).id;
    test.store->mutate("Edit", [&](Library& library) {
        library.scheduled.edit(0).transferAccountID = savings.id;
    });
    enterDueReminders(*test);
    EXPECT_EQ(test.index().balance(savings.id), amount("10"));
    EXPECT_EQ(test.library().scheduled.front().id, id);
}

TEST_F(Reminders, OfOneIDAreEnteredEachForItself) {
    const UUID id = add("Rent", day(2026, 3, 10), Frequency::once).id;
    add("Gym", day(2026, 3, 1), Frequency::weekly);
    add("Phone", day(2026, 3, 12), Frequency::monthly);
    add("Later", day(2026, 4, 1), Frequency::monthly);
    test.store->mutate("Edit", [&](Library& library) {
        for (std::size_t place = 0; place < library.scheduled.size(); ++place) {
            library.scheduled.edit(place).id = id;
        }
    });
    enterDueReminders(*test);
    EXPECT_EQ(entered(), "Rent 3/10 -10; Gym 3/1 -10; Phone 3/12 -10; ");
    ASSERT_EQ(test.library().scheduled.size(), 3U);
    EXPECT_EQ(test.library().scheduled[0].nextDate, day(2026, 3, 8));
    EXPECT_EQ(test.library().scheduled[1].nextDate, day(2026, 4, 12));
    EXPECT_EQ(test.library().scheduled[2].nextDate, day(2026, 4, 1));
}

TEST_F(Reminders, ThatAreDueAreEnteredBesideOneOfTheSameIDThatIsNot) {
    const UUID id = add("Later", day(2026, 4, 1), Frequency::monthly).id;
    add("Now", day(2026, 3, 15), Frequency::monthly);
    test.store->mutate("Edit", [&](Library& library) { library.scheduled.edit(1).id = id; });
    enterDueReminders(*test);
    EXPECT_EQ(entered(), "Now 3/15 -10; ");
    EXPECT_EQ(dueReminderCount(*test), 0);
}

TEST_F(Reminders, LeaveNoStepWhenNoneIsDue) {
    add("Later", day(2026, 4, 1), Frequency::monthly);
    enterDueReminders(*test);
    EXPECT_FALSE(test.undoManager->canUndo());
}

} // namespace
} // namespace oakfen
