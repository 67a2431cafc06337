#pragma once

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "OakfenCore/Models/InvestmentAmounts.h"
#include "OakfenCore/Models/Library.h"
#include "OakfenCore/Support/Text/Text.h"
#include "OakfenCore/Support/Time/Calendar.h"
#include "Tests/OakfenCore/LibraryIndex/NaiveHoldings.h"

namespace oakfen::testing {

/// The figures of a document worked out step by step with maps and copies and no thought of speed:
/// what the real index is compared with.
struct NaiveIndex {
    NaiveIndex(const Library& library, Date now, const Calendar& calendar) {
        const Date cutOff = calendar.endOfDay(now);
        for (const Transaction& entry : library.transactions) {
            entries[entry.accountID].push_back(entry);
            byID[entry.id] = entry;
        }
        for (const Account& account : library.accounts) {
            std::vector<Transaction>& own = entries[account.id];
            std::stable_sort(own.begin(), own.end(), inLedgerOrder);
            Decimal total = account.openingBalance;
            Decimal current = total;
            Decimal cleared = total;
            Decimal reconciled = total;
            for (const Transaction& entry : own) {
                total += entry.amount;
                running[entry.id] = total;
                cleared += entry.cleared == ClearedState::uncleared ? Decimal() : entry.amount;
                reconciled += entry.cleared == ClearedState::reconciled ? entry.amount : Decimal();
                current += entry.date <= cutOff ? entry.amount : Decimal();
            }
            for (const InvestmentTransaction& row : library.investmentTransactions) {
                if (row.accountID == account.id) {
                    total += cashEffect(row);
                    cleared += cashEffect(row);
                    current += row.date <= cutOff ? cashEffect(row) : Decimal();
                }
            }
            endingCash[account.id] = total;
            currentCash[account.id] = current;
            clearedBalance[account.id] = cleared;
            reconciledBalance[account.id] = reconciled;
        }
        rememberPayees(library);
    }

    static bool inLedgerOrder(const Transaction& a, const Transaction& b) {
        if (a.date == b.date && a.amount == b.amount) {
            return a.payee < b.payee;
        }
        return a.date == b.date ? a.amount > b.amount : a.date < b.date;
    }

    void rememberPayees(const Library& library) {
        std::vector<Transaction> byDate(library.transactions.begin(), library.transactions.end());
        std::stable_sort(byDate.begin(), byDate.end(),
                         [](const auto& a, const auto& b) { return a.date < b.date; });
        for (const Transaction& entry : byDate) {
            const std::string key = lowercased(trimmingWhitespaces(entry.payee));
            if (!key.empty()) {
                memory[key] = entry;
            }
            tags.insert(entry.tags.begin(), entry.tags.end());
        }
    }

    [[nodiscard]] Decimal balance(const Library& library, const Account& account, Date asOf) const {
        if (account.openingDate > asOf) {
            return Decimal();
        }
        Decimal total = account.openingBalance;
        for (const Transaction& entry : library.transactions) {
            if (entry.accountID == account.id && entry.date <= asOf) {
                total += entry.amount;
            }
        }
        for (const InvestmentTransaction& row : library.investmentTransactions) {
            if (isInvestment(account.type) && row.accountID == account.id && row.date <= asOf) {
                total += cashEffect(row);
            }
        }
        if (isInvestment(account.type)) {
            for (const auto& [id, holding] : naiveHoldings(library, account.id, asOf)) {
                total += holding.shares * holding.price;
            }
        }
        return total;
    }

    std::map<UUID, std::vector<Transaction>> entries;
    std::map<UUID, Transaction> byID;
    std::map<UUID, Decimal> running;
    std::map<UUID, Decimal> endingCash;
    std::map<UUID, Decimal> currentCash;
    std::map<UUID, Decimal> clearedBalance;
    std::map<UUID, Decimal> reconciledBalance;
    std::map<std::string, Transaction> memory;
    std::set<std::string> tags;
};

} // namespace oakfen::testing
