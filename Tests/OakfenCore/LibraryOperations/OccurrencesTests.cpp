#include <gtest/gtest.h>

#include "OakfenCore/LibraryOperations/ScheduledTransactions.h"
#include "Tests/Support/TestLedger.h"

namespace oakfen {
namespace {

using testing::day;

const Calendar calendar = Calendar::utc();

ScheduledTransaction weekly(Date nextDate, std::optional<Date> endDate) {
    return {.id = UUID::random(),
            .payee = "Lesson",
            .accountID = UUID::random(),
            .amount = Decimal(-30),
            .frequency = Frequency::weekly,
            .nextDate = nextDate,
            .endDate = endDate};
}

TEST(Occurrences, TakeInTheOneOnTheEndDateAndStopThere) {
    const std::vector<Date> expected{day(2026, 1, 1), day(2026, 1, 8), day(2026, 1, 15)};
    EXPECT_EQ(occurrences(weekly(day(2026, 1, 1), day(2026, 1, 15)), day(2026, 3, 1), calendar),
              expected);
}

TEST(Occurrences, StopBeforeAnEndDateBetweenTwoOfThem) {
    const std::vector<Date> expected{day(2026, 1, 1), day(2026, 1, 8)};
    EXPECT_EQ(occurrences(weekly(day(2026, 1, 1), day(2026, 1, 15).adding(-1)), day(2026, 3, 1),
                          calendar),
              expected);
}

TEST(Occurrences, GoNoFurtherThanAskedWhereTheEndDateIsLater) {
    const std::vector<Date> expected{day(2026, 1, 1), day(2026, 1, 8)};
    EXPECT_EQ(occurrences(weekly(day(2026, 1, 1), day(2026, 1, 15)), day(2026, 1, 8), calendar),
              expected);
}

TEST(Occurrences, OfATransferAreReturnedAsTheyWereBuiltWithoutTheOtherLeg) {
    ScheduledTransaction saving = weekly(day(2026, 1, 1), std::nullopt);
    saving.transferAccountID = UUID::random();
    Library library;
    upsert(library, saving);
    const auto entry = enterScheduled(library, saving.id, std::nullopt, std::nullopt, calendar);
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->transferAccountID, saving.transferAccountID);
    EXPECT_EQ(entry->transferID, std::nullopt);
    const Transaction* leg = library.transactions.first(
        [&](const Transaction& candidate) { return candidate.id == entry->id; });
    ASSERT_NE(leg, nullptr);
    EXPECT_TRUE(leg->transferID);
}

} // namespace
} // namespace oakfen
