#pragma once

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "OakfenCore/LibraryIndex/NetWorthSeries.h"
#include "OakfenCore/LibraryIndex/PeriodTotals.h"
#include "Tests/OakfenCore/LibraryIndex/NaiveIndex.h"

namespace oakfen::testing {

/// The figures over an interval, worked out from the document's records alone.
class NaiveTotals {
public:
    NaiveTotals(const Library& library, const DateInterval& interval) : library_(library) {
        for (const Category& category : library.categories) {
            categories_[category.id] = category;
        }
        for (const Transaction& entry : library.transactions) {
            if (entry.date < interval.start || entry.date > interval.end || entry.isTransfer()) {
                continue;
            }
            CategoryLine line{entry.id,    entry.accountID,  entry.date,
                              entry.payee, entry.categoryID, entry.amount};
            if (entry.splits.empty()) {
                lines_.push_back(line);
            }
            for (const Split& split : entry.splits) {
                line.categoryID = split.categoryID;
                line.amount = split.amount;
                lines_.push_back(line);
            }
        }
    }

    [[nodiscard]] const std::vector<CategoryLine>& lines() const { return lines_; }

    [[nodiscard]] bool isIncome(const CategoryLine& line) const {
        const auto found = line.categoryID ? categories_.find(*line.categoryID) : categories_.end();
        return found == categories_.end() ? line.amount.isPositive()
                                          : found->second.kind == CategoryKind::income;
    }

    [[nodiscard]] UUID root(UUID id) const {
        for (int step = 0; step < 8; ++step) {
            const auto found = categories_.find(id);
            if (found == categories_.end() || !found->second.parentID) {
                break;
            }
            id = *found->second.parentID;
        }
        return id;
    }

    using ByCategory = std::map<std::optional<UUID>, Decimal>;

    [[nodiscard]] ByCategory byCategory(bool income, bool rollUp) const {
        ByCategory totals;
        for (const CategoryLine& line : lines_) {
            if (isIncome(line) == income) {
                auto key = line.categoryID;
                if (key && rollUp) {
                    key = root(*key);
                }
                totals[key] += income ? line.amount : -line.amount;
            }
        }
        std::erase_if(totals, [](const auto& item) { return item.second.isZero(); });
        for (auto& [key, total] : totals) {
            total = total.rounded(2, RoundingMode::plain);
        }
        return totals;
    }

    [[nodiscard]] std::map<std::string, Decimal> byPayee() const {
        std::map<std::string, Decimal> totals;
        for (const CategoryLine& line : lines_) {
            if (!isIncome(line)) {
                totals[line.payee.empty() ? "(No Payee)" : line.payee] -= line.amount;
            }
        }
        for (auto& [payee, total] : totals) {
            total = total.rounded(2, RoundingMode::plain);
        }
        std::erase_if(totals, [](const auto& item) { return !item.second.isPositive(); });
        return totals;
    }

    [[nodiscard]] Decimal sum(bool income) const {
        Decimal total;
        for (const CategoryLine& line : lines_) {
            if (isIncome(line) == income) {
                total += income ? line.amount : -line.amount;
            }
        }
        return total.rounded(2, RoundingMode::plain);
    }

    [[nodiscard]] Decimal actual(const UUID& id, bool includeChildren) const {
        std::set<UUID> ids{id};
        for (const Category& category : library_.categories) {
            if (includeChildren && root(category.id) == id) {
                ids.insert(category.id);
            }
        }
        Decimal total;
        for (const CategoryLine& line : lines_) {
            if (line.categoryID && ids.contains(*line.categoryID)) {
                total += line.amount;
            }
        }
        const auto found = categories_.find(id);
        const bool isExpense =
            found != categories_.end() && found->second.kind == CategoryKind::expense;
        return isExpense ? -total : total;
    }

private:
    const Library& library_;
    std::map<UUID, Category> categories_;
    std::vector<CategoryLine> lines_;
};

/// The interval cut down to what the ledger covers.
inline DateInterval naiveClamp(const Library& library, const DateInterval& interval, Date now) {
    std::set<Date> dates;
    for (const Transaction& entry : library.transactions) {
        dates.insert(entry.date);
    }
    for (const Account& account : library.accounts) {
        dates.insert(account.openingDate);
    }
    const Date first = dates.empty() ? now : *dates.begin();
    const Date last = dates.empty() ? now : *dates.rbegin();
    const Date lower = std::max(first, interval.start);
    const Date upper = std::min(std::max(last, now), interval.end);
    return {lower, std::max(lower, upper)};
}

/// What all accounts come to at the end of each month, revalued account by account.
inline std::vector<NetWorthPoint> naiveNetWorth(const Library& library, int months, Date now,
                                                const Calendar& calendar) {
    const NaiveIndex naive(library, now, calendar);
    Date opened = now;
    if (!library.accounts.empty()) {
        opened = library.accounts.front().openingDate;
        for (const Account& account : library.accounts) {
            opened = std::min(opened, account.openingDate);
        }
    }
    std::vector<NetWorthPoint> points;
    for (int back = months - 1; back >= 0; --back) {
        const Date start = calendar.addingMonths(calendar.startOfMonth(now), -back);
        if (start < calendar.startOfMonth(opened)) {
            continue;
        }
        NetWorthPoint point{.date = back == 0 ? now : calendar.endOfMonth(start)};
        for (const Account& account : library.accounts) {
            const Decimal balance = naive.balance(library, account, point.date);
            (balance.isNegative() ? point.liabilities : point.assets) += balance;
        }
        point.assets = point.assets.rounded(2, RoundingMode::plain);
        point.liabilities = point.liabilities.rounded(2, RoundingMode::plain);
        points.push_back(point);
    }
    return points;
}

} // namespace oakfen::testing
