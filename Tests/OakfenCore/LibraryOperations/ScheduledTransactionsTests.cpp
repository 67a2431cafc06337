#include "OakfenCore/LibraryOperations/ScheduledTransactions.h"

#include <gtest/gtest.h>

namespace oakfen {
namespace {

const Calendar calendar = *Calendar::inZone("America/Toronto");

Date on(int year, int month, int day, int hour = 0) {
    return calendar.date({year, month, day, hour, 0, 0});
}

ScheduledTransaction reminder(Frequency frequency, Date nextDate) {
    return {.id = UUID::random(),
            .payee = "Rent",
            .accountID = UUID::random(),
            .amount = Decimal(-900),
            .memo = "flat 3",
            .frequency = frequency,
            .nextDate = nextDate};
}

Library with(std::vector<ScheduledTransaction> reminders) {
    Library library;
    for (ScheduledTransaction& each : reminders) {
        upsert(library, std::move(each));
    }
    return library;
}

TEST(ScheduledTransactions, EntersAnOccurrenceWithTheRemindersFields) {
    ScheduledTransaction rent = reminder(Frequency::monthly, on(2026, 3, 31));
    rent.categoryID = UUID::random();
    Library library = with({rent});
    const auto entry = enterScheduled(library, rent.id, std::nullopt, std::nullopt, calendar);
    ASSERT_TRUE(entry);
    EXPECT_EQ(library.transactions.size(), 1U);
    EXPECT_EQ(library.transactions.front(), *entry);
    EXPECT_EQ(entry->payee, "Rent");
    EXPECT_EQ(entry->memo, "flat 3");
    EXPECT_EQ(entry->date, on(2026, 3, 31));
    EXPECT_EQ(entry->categoryID, rent.categoryID);
    EXPECT_EQ(entry->cleared, ClearedState::uncleared);
    EXPECT_EQ(library.scheduled.front().nextDate, on(2026, 4, 30));
}

TEST(ScheduledTransactions, EntersBothLegsOfATransfer) {
    ScheduledTransaction saving = reminder(Frequency::monthly, on(2026, 3, 1));
    saving.transferAccountID = UUID::random();
    Library library = with({saving});
    enterScheduled(library, saving.id, std::nullopt, std::nullopt, calendar);
    ASSERT_EQ(library.transactions.size(), 2U);
    EXPECT_EQ(sum(library.transactions, &Transaction::amount), Decimal(0));
}

TEST(ScheduledTransactions, ChangesNothingForAnUnknownID) {
    Library library = with({reminder(Frequency::monthly, on(2026, 3, 1))});
    const Library before = library;
    EXPECT_FALSE(enterScheduled(library, UUID::random(), std::nullopt, std::nullopt, calendar));
    skipScheduled(library, UUID::random(), calendar);
    EXPECT_EQ(library, before);
}

TEST(ScheduledTransactions, DropsAReminderThatComesOnceWhenEnteredOrSkipped) {
    const ScheduledTransaction first = reminder(Frequency::once, on(2026, 3, 1));
    const ScheduledTransaction second = reminder(Frequency::once, on(2026, 3, 2));
    Library library = with({first, second});
    enterScheduled(library, first.id, std::nullopt, std::nullopt, calendar);
    ASSERT_EQ(library.scheduled.size(), 1U);
    EXPECT_EQ(library.scheduled.front().id, second.id);
    skipScheduled(library, second.id, calendar);
    EXPECT_TRUE(library.scheduled.empty());
    EXPECT_EQ(library.transactions.size(), 1U);
}

TEST(ScheduledTransactions, KeepsAnOccurrenceOnTheEndDateAndEndsAfterIt) {
    ScheduledTransaction rent = reminder(Frequency::monthly, on(2026, 3, 1));
    rent.endDate = on(2026, 4, 1);
    Library library = with({rent});
    skipScheduled(library, rent.id, calendar);
    ASSERT_EQ(library.scheduled.size(), 1U);
    EXPECT_EQ(library.scheduled.front().nextDate, on(2026, 4, 1));
    skipScheduled(library, rent.id, calendar);
    EXPECT_TRUE(library.scheduled.empty());
}

TEST(ScheduledTransactions, KeepsItsOwnAmountAndScheduleWhenAnotherIsEntered) {
    const ScheduledTransaction rent = reminder(Frequency::weekly, on(2026, 3, 1));
    Library library = with({rent});
    const auto entry = enterScheduled(library, rent.id, Decimal(-950), on(2026, 3, 5), calendar);
    EXPECT_EQ(entry->amount, Decimal(-950));
    EXPECT_EQ(entry->date, on(2026, 3, 5));
    EXPECT_EQ(library.scheduled.front().amount, Decimal(-900));
    EXPECT_EQ(library.scheduled.front().nextDate, on(2026, 3, 8));
}

TEST(ScheduledTransactions, EntersByItselfWhatIsDueTodayAndNotTomorrow) {
    ScheduledTransaction today = reminder(Frequency::monthly, on(2026, 3, 10, 22));
    ScheduledTransaction tomorrow = reminder(Frequency::monthly, on(2026, 3, 11));
    ScheduledTransaction byHand = reminder(Frequency::monthly, on(2020, 1, 1));
    today.autoEnter = true;
    tomorrow.autoEnter = true;
    Library library = with({byHand, today, tomorrow});
    EXPECT_EQ(processAutoEnter(library, on(2026, 3, 10, 9), calendar), 1U);
    ASSERT_EQ(library.transactions.size(), 1U);
    EXPECT_EQ(library.transactions.front().date, on(2026, 3, 10, 22));
}

TEST(ScheduledTransactions, EntersEachOverdueOccurrenceOnItsOwnDateOldestFirst) {
    ScheduledTransaction rent = reminder(Frequency::monthly, on(2026, 1, 15));
    rent.autoEnter = true;
    Library library = with({rent});
    EXPECT_EQ(processAutoEnter(library, on(2026, 3, 20), calendar), 3U);
    ASSERT_EQ(library.transactions.size(), 3U);
    EXPECT_EQ(library.transactions[0].date, on(2026, 1, 15));
    EXPECT_EQ(library.transactions[2].date, on(2026, 3, 15));
    EXPECT_EQ(library.scheduled.front().nextDate, on(2026, 4, 15));
}

TEST(ScheduledTransactions, CatchesUpOneReminderBeforeTheNext) {
    ScheduledTransaction first = reminder(Frequency::weekly, on(2026, 3, 2));
    ScheduledTransaction second = reminder(Frequency::weekly, on(2026, 3, 1));
    first.autoEnter = true;
    second.autoEnter = true;
    second.payee = "Later in the list";
    Library library = with({first, second});
    processAutoEnter(library, on(2026, 3, 10), calendar);
    ASSERT_EQ(library.transactions.size(), 4U);
    EXPECT_EQ(library.transactions[1].payee, "Rent");
    EXPECT_EQ(library.transactions[2].payee, "Later in the list");
}

TEST(ScheduledTransactions, StopsAtAThousandAndLeavesTheRestForTheNextTime) {
    ScheduledTransaction rent = reminder(Frequency::weekly, on(1996, 3, 1));
    rent.autoEnter = true;
    Library library = with({rent});
    EXPECT_EQ(processAutoEnter(library, on(2026, 3, 1), calendar), 1000U);
    EXPECT_EQ(library.transactions.size(), 1000U);
    EXPECT_GT(processAutoEnter(library, on(2026, 3, 1), calendar), 500U);
}

TEST(ScheduledTransactions, ListsOccurrencesUpToTheEndWithTheMonthsLastDaySliding) {
    const ScheduledTransaction rent = reminder(Frequency::monthly, on(2026, 1, 31));
    const std::vector<Date> expected{on(2026, 1, 31), on(2026, 2, 28), on(2026, 3, 28)};
    EXPECT_EQ(occurrences(rent, on(2026, 3, 28), calendar), expected);
}

TEST(ScheduledTransactions, ListsNothingAfterTheEndAndNoMoreThanFiveHundred) {
    ScheduledTransaction rent = reminder(Frequency::weekly, on(2026, 1, 1));
    EXPECT_TRUE(occurrences(rent, on(2025, 12, 31), calendar).empty());
    EXPECT_EQ(occurrences(rent, on(2126, 1, 1), calendar).size(), 500U);
    rent.endDate = on(2025, 12, 1);
    EXPECT_TRUE(occurrences(rent, on(2026, 12, 31), calendar).empty());
    EXPECT_EQ(
        occurrences(reminder(Frequency::once, on(2026, 1, 1)), on(2030, 1, 1), calendar).size(),
        1U);
}

TEST(ScheduledTransactions, TakesADepositAndNotATransferForIncome) {
    ScheduledTransaction pay = reminder(Frequency::monthly, on(2026, 1, 1));
    EXPECT_FALSE(isIncome(pay));
    pay.amount = Decimal(900);
    EXPECT_TRUE(isIncome(pay));
    pay.transferAccountID = UUID::random();
    EXPECT_FALSE(isIncome(pay));
}

} // namespace
} // namespace oakfen
