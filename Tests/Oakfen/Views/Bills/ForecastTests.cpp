#include "Oakfen/Views/Bills/Forecast.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "OakfenCore/LibraryOperations/ScheduledTransactions.h"
#include "Tests/Generators/RandomLibrary.h"
#include "Tests/Support/TestLedger.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::makeAccount;
using testing::makeTransaction;
using testing::RandomLibrary;

class Forecasting : public ::testing::Test {
protected:
    Forecasting() {
        library.accounts = {everyday, savings};
        library.transactions = {makeTransaction(everyday.id, day(2026, 3, 1), "Pay", "1000")};
    }

    ScheduledTransaction& add(std::string payee, std::string_view money, Date due,
                              Frequency frequency = Frequency::once) {
        library.scheduled.push_back({.id = UUID::random(),
                                     .payee = std::move(payee),
                                     .accountID = everyday.id,
                                     .amount = amount(money),
                                     .frequency = frequency,
                                     .nextDate = due});
        return library.scheduled.edit(library.scheduled.size() - 1);
    }

    [[nodiscard]] std::vector<ForecastDay> days(int count, const UUID& accountID,
                                                std::vector<WhatIfEntry> tried = {}) const {
        const Date horizon = calendar.addingDays(now, count);
        const LibraryIndex index(library, now, calendar);
        return forecast(index, accountID, upcomingOccurrences(index.library(), horizon, calendar),
                        tried, {now, horizon, calendar});
    }
    [[nodiscard]] UpcomingSums sums(int count) const {
        return sumsOf(upcomingOccurrences(library, calendar.addingDays(now, count), calendar));
    }

    Library library{.currencyCode = "CAD"};
    Calendar calendar = Calendar::utc();
    Date now = day(2026, 3, 15);
    Account everyday = makeAccount("Everyday");
    Account savings = makeAccount("Savings", AccountType::savings);
};

TEST_F(Forecasting, HasOnePointForEachDayFromTodayToTheHorizon) {
    const auto points = days(14, everyday.id);
    ASSERT_EQ(points.size(), 15U);
    EXPECT_EQ(points.front().date, day(2026, 3, 15, 0));
    EXPECT_EQ(points.back().date, day(2026, 3, 29, 0));
    EXPECT_EQ(points.back().balance, amount("1000"));
}

TEST_F(Forecasting, AnOverdueBillLowersTheFirstPoint) {
    add("Late", "-10", day(2026, 2, 1));
    add("Today", "-20", day(2026, 3, 15, 23));
    const auto points = days(14, everyday.id);
    EXPECT_EQ(points.front().balance, amount("970"));
    EXPECT_EQ(points.front().moves.size(), 2U);
    EXPECT_EQ(points.front().moves.front().name, "Late");
}

TEST_F(Forecasting, TakesEachOverdueOccurrenceIntoToday) {
    add("Gym", "-5", day(2026, 3, 1), Frequency::weekly);
    const auto points = days(14, everyday.id);
    EXPECT_EQ(points[0].balance, amount("985")) << "March 1, 8 and 15";
    EXPECT_EQ(points[7].balance, amount("980"));
    EXPECT_EQ(points[14].balance, amount("975"));
}

TEST_F(Forecasting, StartsFromTheBalanceOfTodayWithoutLaterEntries) {
    library.transactions.push_back(makeTransaction(everyday.id, day(2026, 3, 20), "Later", "-400"));
    EXPECT_EQ(days(14, everyday.id).back().balance, amount("1000"));
}

TEST_F(Forecasting, ATransferRaisesTheOtherAccountByAsMuch) {
    add("Save", "-300", day(2026, 3, 20)).transferAccountID = savings.id;
    EXPECT_EQ(days(14, everyday.id)[4].balance, amount("1000"));
    EXPECT_EQ(days(14, everyday.id)[5].balance, amount("700"));
    EXPECT_EQ(days(14, savings.id)[5].balance, amount("300"));
}

TEST_F(Forecasting, ATransferIntoItsOwnAccountNetsToZero) {
    add("Loop", "-300", day(2026, 3, 20)).transferAccountID = everyday.id;
    EXPECT_EQ(days(14, everyday.id).back().balance, amount("1000"));
}

TEST_F(Forecasting, ShowsAMonthlyBillOncePerMonth) {
    add("Rent", "-100", day(2026, 3, 20), Frequency::monthly);
    const auto count = [this](int days) {
        return upcomingOccurrences(library, calendar.addingDays(now, days), calendar).size();
    };
    EXPECT_EQ(count(14), 1U);
    EXPECT_EQ(count(90), 3U);
    EXPECT_EQ(sums(90).bills, amount("-300"));
}

TEST_F(Forecasting, SumsBillsAndIncomeWithoutTransfers) {
    add("Rent", "-1200", day(2026, 3, 20));
    add("Late", "-50", day(2026, 1, 20));
    add("Pay", "2000", day(2026, 3, 21));
    add("Out", "-300", day(2026, 3, 20)).transferAccountID = savings.id;
    add("In", "300", day(2026, 3, 20)).transferAccountID = savings.id;
    EXPECT_EQ(sums(30).bills, amount("-1250"));
    EXPECT_EQ(sums(30).income, amount("2000"));
    EXPECT_EQ(sums(30).net(), amount("750"));
}

TEST_F(Forecasting, OrdersDatesAndKeepsTheOrderOfTheDocumentWithinOne) {
    add("B", "-1", day(2026, 3, 20));
    add("A", "-1", day(2026, 3, 20));
    add("First", "-1", day(2026, 3, 19));
    std::string order;
    for (const Occurrence& each : upcomingOccurrences(library, day(2026, 4, 1), calendar)) {
        order += each.item->payee + " ";
    }
    EXPECT_EQ(order, "First B A ");
}

TEST_F(Forecasting, MovesTheSecondLineOnlyByWhatIsTriedOut) {
    add("Rent", "-100", day(2026, 3, 20));
    const auto points = days(14, everyday.id,
                             {{.id = UUID::random(),
                               .name = "Sofa",
                               .amount = amount("-700"),
                               .date = day(2026, 3, 17),
                               .frequency = Frequency::once},
                              {.id = UUID::random(),
                               .name = "Work",
                               .amount = amount("50"),
                               .date = day(2026, 3, 16),
                               .frequency = Frequency::weekly}});
    EXPECT_EQ(points[1].balance, amount("1000"));
    EXPECT_EQ(points[1].whatIf, amount("1050"));
    EXPECT_EQ(points[2].whatIf, amount("350"));
    EXPECT_EQ(points[14].balance, amount("900"));
    EXPECT_EQ(points[14].whatIf, amount("300"));
    ASSERT_EQ(points[2].moves.size(), 1U);
    EXPECT_TRUE(points[2].moves.front().isWhatIf);
    EXPECT_EQ(lowestDay(points, &ForecastDay::balance), &points[5]);
    EXPECT_EQ(lowestDay(points, &ForecastDay::whatIf), &points[5]);
    EXPECT_EQ(lowestDay(std::vector<ForecastDay>(), &ForecastDay::balance), nullptr);
}

TEST_F(Forecasting, GoesOnAfterADayWithoutAMidnight) {
    const auto zone = Calendar::inZone("America/Havana");
    ASSERT_TRUE(zone);
    // The clock skips from midnight to one o'clock on March 8th.
    calendar = *zone;
    now = calendar.date({.year = 2026, .month = 3, .day = 7, .hour = 12});
    add("Rent", "-100", calendar.date({.year = 2026, .month = 3, .day = 10, .hour = 0}));
    const auto points = days(14, everyday.id);
    ASSERT_EQ(points.size(), 15U);
    EXPECT_EQ(points[2].balance, amount("1000"));
    EXPECT_EQ(points[3].balance, amount("900"));
}

/// By its definition, day for day and without any table.
Decimal naiveBalance(const LibraryIndex& index, const UUID& accountID, Date now, Date endOfDay,
                     Date horizon, const Calendar& calendar) {
    Decimal balance = index.balance(accountID);
    for (const ScheduledTransaction& item : index.library().scheduled) {
        for (const Date date : occurrences(item, horizon, calendar)) {
            const Date counted = std::max(date, now);
            if (counted <= endOfDay) {
                balance += item.accountID == accountID ? item.amount : Decimal();
                balance -= item.transferAccountID == accountID ? item.amount : Decimal();
            }
        }
    }
    return balance;
}

TEST_F(Forecasting, EqualsANaiveSumOnAnyDocument) {
    for (std::uint64_t seed = 1; seed <= 60; ++seed) {
        RandomLibrary random(seed, RandomLibrary::Amounts::wholeCents);
        library = random.make(30);
        for (std::size_t each = 0; each < library.scheduled.size(); ++each) {
            // Around now, where it matters.
            library.scheduled.edit(each).nextDate =
                calendar.addingDays(now, static_cast<int>(random.below(100)) - 40);
        }
        const int count = static_cast<int>(random.below(90));
        const Date horizon = calendar.addingDays(now, count);
        const LibraryIndex index(library, now, calendar);
        for (const Account& account : library.accounts) {
            const auto points = days(count, account.id);
            ASSERT_EQ(points.size(), static_cast<std::size_t>(count) + 1);
            for (const ForecastDay& point : points) {
                ASSERT_EQ(point.balance,
                          naiveBalance(index, account.id, now, calendar.endOfDay(point.date),
                                       horizon, calendar))
                    << seed;
                ASSERT_EQ(point.whatIf, point.balance);
            }
        }
    }
}

} // namespace
} // namespace oakfen
