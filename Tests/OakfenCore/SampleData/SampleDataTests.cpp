#include "OakfenCore/SampleData/SampleData.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "OakfenCore/SampleData/SampleBuilder.h"
#include "Tests/OakfenCore/SampleData/Renumbering.h"
#include "Tests/OakfenCore/SampleData/SampleFixture.h"

namespace oakfen {
namespace {

using testing::at;
using testing::autumnSample;
using testing::Renumbering;
using testing::toronto;

std::vector<Date> manyDays() {
    std::vector<Date> days;
    for (int day = 0; day < 400; day += 7) {
        days.push_back(toronto().addingDays(at(2026, 1, 1), day));
    }
    days.push_back(at(2024, 2, 29));
    days.push_back(at(2026, 12, 31));
    return days;
}

TEST(SampleData, IsTheSameButForAllOfItsIDsForTheSameMoment) {
    const Library first = autumnSample();
    const Library second = autumnSample();
    EXPECT_EQ(first.currencyCode, "CAD");
    Renumbering ofFirst;
    Renumbering ofSecond;
    EXPECT_TRUE(ofFirst.renumbered(first) == ofSecond.renumbered(second));
    std::set<UUID> all = ofFirst.ids();
    const std::size_t count = all.size();
    ASSERT_GT(count, first.transactions.size());
    all.merge(ofSecond.ids());
    EXPECT_EQ(all.size(), 2 * count);
}

TEST(SampleData, DrawsTheFiguresOfItsSeed) {
    // Worked out apart, by the published generator: a draw decides each of these amounts.
    const Library library = autumnSample();
    const auto firstOf = [&](std::string_view payee) {
        const Transaction* entry = library.transactions.first(
            [&](const Transaction& candidate) { return candidate.payee == payee; });
        return entry == nullptr ? Decimal() : entry->amount;
    };
    EXPECT_EQ(firstOf("Prairie Gas Co."), Decimal::cents(-12475));
    EXPECT_EQ(firstOf("Bright Hydro"), Decimal::cents(-8812));
}

TEST(SampleData, MarksEntriesByTheirAge) {
    const Date now = at(2026, 10, 10);
    const Library library = SampleData::make(now, "CAD", toronto());
    std::set<ClearedState> seen;
    for (const Transaction& entry : library.transactions) {
        const int age = toronto().wholeDays(entry.date, now);
        const ClearedState expected = age > 35   ? ClearedState::reconciled
                                      : age >= 4 ? ClearedState::cleared
                                                 : ClearedState::uncleared;
        EXPECT_EQ(entry.cleared, expected) << entry.payee;
        seen.insert(entry.cleared);
    }
    EXPECT_EQ(seen.size(), 3U);
}

TEST(SampleData, HasNoReminderInThePastAndNoEntryInTheFuture) {
    for (const Date now : manyDays()) {
        const Library library = SampleData::make(now, "CAD", toronto());
        for (const ScheduledTransaction& reminder : library.scheduled) {
            EXPECT_GT(reminder.nextDate, now) << reminder.payee;
        }
        for (const Transaction& entry : library.transactions) {
            EXPECT_LE(entry.date, now) << entry.payee;
        }
    }
}

TEST(SampleData, NeverPricesASecurityBelowOne) {
    SampleBuilder builder(Library{.currencyCode = "CAD"}, at(2026, 10, 10), toronto());
    builder.security("X", "Falling", SecurityKind::stock, 1.2, -0.5, 0);
    const std::vector<PricePoint>& history = builder.library().securities.front().priceHistory;
    ASSERT_GT(history.size(), 100U);
    EXPECT_EQ(history.front().price, Decimal::cents(120));
    for (std::size_t week = 1; week < history.size(); ++week) {
        EXPECT_EQ(history[week].price, Decimal(1)) << week;
    }
}

TEST(SampleData, PricesSecuritiesByTheWeekToTheCent) {
    const Date now = at(2026, 10, 10);
    const Library library = SampleData::make(now, "CAD", toronto());
    for (const Security& security : library.securities) {
        EXPECT_EQ(security.price, security.priceHistory.back().price);
        for (const PricePoint& point : security.priceHistory) {
            EXPECT_EQ(point.price, point.price.rounded(2, RoundingMode::plain));
            EXPECT_LE(point.date, now);
        }
    }
    const std::vector<PricePoint>& history = library.securities.front().priceHistory;
    for (std::size_t week = 1; week < history.size(); ++week) {
        EXPECT_EQ(history[week].date, toronto().addingDays(history[week - 1].date, 7));
    }
    EXPECT_GT(toronto().addingDays(history.back().date, 7), now);
}

TEST(SampleData, PairsEveryTransfer) {
    const Library library = autumnSample();
    std::map<UUID, const Transaction*> byID;
    for (const Transaction& entry : library.transactions) {
        byID[entry.id] = &entry;
    }
    int transfers = 0;
    for (const Transaction& entry : library.transactions) {
        if (!entry.isTransfer()) {
            continue;
        }
        ++transfers;
        const Transaction* twin = byID.at(entry.transferID.value());
        EXPECT_EQ(twin->transferID, entry.id);
        EXPECT_EQ(twin->accountID, entry.transferAccountID);
        EXPECT_EQ(twin->amount, -entry.amount);
        EXPECT_EQ(twin->date, entry.date);
    }
    EXPECT_GT(transfers, 100);
}

TEST(SampleData, HasNoEntryOfNothing) {
    const Library sample = autumnSample();
    for (const Transaction& entry : sample.transactions) {
        EXPECT_NE(entry.amount, Decimal()) << entry.payee;
    }
}

TEST(SampleData, KeepsEveryBalanceBelievable) {
    for (const Date now : manyDays()) {
        const Library library = SampleData::make(now, "CAD", toronto());
        std::map<UUID, std::string> names;
        std::map<std::string, Decimal> balance;
        for (const Account& account : library.accounts) {
            names[account.id] = account.name;
            balance[account.name] = account.openingBalance;
        }
        std::vector<const Transaction*> ordered;
        for (const Transaction& entry : library.transactions) {
            ordered.push_back(&entry);
        }
        std::stable_sort(ordered.begin(), ordered.end(), [](const auto* a, const auto* b) {
            return a->date != b->date ? a->date < b->date : a->amount > b->amount;
        });
        for (const Transaction* entry : ordered) {
            const std::string& name = names[entry->accountID];
            balance[name] += entry->amount;
            if (name == "Everyday Chequing") {
                EXPECT_GT(balance[name], Decimal(0));
                EXPECT_LT(balance[name], Decimal(20000));
            }
            if (name == "Rewards Visa") {
                EXPECT_GT(balance[name], Decimal(-8000));
                EXPECT_LE(balance[name], Decimal(100));
            }
        }
        EXPECT_GT(balance["High-Interest Savings"], Decimal(6500));
        EXPECT_GT(balance["Mortgage"], Decimal(-298500));
        EXPECT_LT(balance["Mortgage"], Decimal(-250000));
        EXPECT_GT(balance["Car Loan"], Decimal(-19800));
        EXPECT_LT(balance["Car Loan"], Decimal(0));
    }
}

} // namespace
} // namespace oakfen
