#include "OakfenCore/SampleData/SampleData.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

namespace oakfen {
namespace {

Calendar toronto() {
    return *Calendar::inZone("America/Toronto");
}

Date at(int year, int month, int day) {
    return toronto().date({year, month, day, 9, 30, 0});
}

/// The document without its ids, as text: what must be equal between two calls.
std::string figures(const Library& library) {
    std::string text;
    for (const Account& account : library.accounts) {
        text += account.name + account.openingBalance.toString() + "\n";
    }
    for (const Transaction& entry : library.transactions) {
        text += std::to_string(entry.date.secondsSinceReference) + entry.payee +
                entry.amount.toString() + std::string(rawValue(entry.cleared)) + "\n";
    }
    for (const Security& security : library.securities) {
        for (const PricePoint& point : security.priceHistory) {
            text += security.symbol + point.price.toString() + "\n";
        }
    }
    for (const ScheduledTransaction& reminder : library.scheduled) {
        text += reminder.payee + std::to_string(reminder.nextDate.secondsSinceReference) + "\n";
    }
    return text;
}

std::vector<Date> manyDays() {
    std::vector<Date> days;
    for (int day = 0; day < 400; day += 7) {
        days.push_back(toronto().addingDays(at(2026, 1, 1), day));
    }
    days.push_back(at(2024, 2, 29));
    days.push_back(at(2026, 12, 31));
    return days;
}

TEST(SampleData, GivesTheSameFiguresAndOtherIDsForTheSameMoment) {
    const Library first = SampleData::make(at(2026, 10, 10), "CAD", toronto());
    const Library second = SampleData::make(at(2026, 10, 10), "CAD", toronto());
    EXPECT_EQ(figures(first), figures(second));
    EXPECT_NE(first.transactions.front().id, second.transactions.front().id);
    EXPECT_EQ(first.currencyCode, "CAD");
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
    const Library library = SampleData::make(at(2026, 10, 10), "CAD", toronto());
    EXPECT_EQ(library.securities.size(), 6U);
    for (const Security& security : library.securities) {
        EXPECT_EQ(security.price, security.priceHistory.back().price);
        for (const PricePoint& point : security.priceHistory) {
            EXPECT_GE(point.price, Decimal(1)) << security.symbol;
            EXPECT_EQ(point.price, point.price.rounded(2, RoundingMode::plain));
        }
    }
}

TEST(SampleData, PairsEveryTransfer) {
    const Library library = SampleData::make(at(2026, 10, 10), "CAD", toronto());
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
    const Library sample = SampleData::make(at(2026, 10, 10), "CAD", toronto());
    for (const Transaction& entry : sample.transactions) {
        EXPECT_NE(entry.amount, Decimal()) << entry.payee;
    }
}

TEST(SampleData, LeavesExactlyTwoEntriesUncategorised) {
    const Library library = SampleData::make(at(2026, 10, 10), "CAD", toronto());
    const auto unfiled = std::count_if(
        library.transactions.begin(), library.transactions.end(), [](const Transaction& entry) {
            return !entry.isTransfer() && !entry.isSplit() && !entry.categoryID;
        });
    EXPECT_EQ(unfiled, 2);
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
