#include "OakfenCore/LibraryIndex/PeriodTotals.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <tuple>

#include "OakfenCore/LibraryIndex/PeriodSums.h"

namespace oakfen {

namespace {

/// The net of the lines of one kind by category: income as it stands, spending turned positive.
std::vector<CategoryTotal> totalsByCategory(const LibraryIndex& index, const DateInterval& interval,
                                            bool rollUp, bool income) {
    std::map<std::optional<UUID>, Decimal> totals;
    const auto sums = index.periodSums(interval);
    for (const PeriodSums::CategoryPart& part : sums->categories()) {
        std::optional<UUID> key = part.categoryID;
        if (rollUp && key) {
            key = index.topLevelID(*key);
        }
        totals[key] += income ? part.income : -part.spending;
    }
    std::vector<CategoryTotal> result;
    for (const auto& [categoryID, total] : totals) {
        if (!total.isZero()) {
            result.push_back({categoryID, index.categoryName(categoryID), total.toCents()});
        }
    }
    std::sort(result.begin(), result.end(), [](const CategoryTotal& a, const CategoryTotal& b) {
        return std::tie(b.total, a.name, a.categoryID) < std::tie(a.total, b.name, b.categoryID);
    });
    return result;
}

} // namespace

std::string CategoryTotal::id() const {
    return categoryID ? categoryID->toString() : "uncategorized";
}

std::vector<CategoryTotal> spendingByCategory(const LibraryIndex& index,
                                              const DateInterval& interval, bool rollUp) {
    return totalsByCategory(index, interval, rollUp, false);
}

std::vector<CategoryTotal> incomeByCategory(const LibraryIndex& index, const DateInterval& interval,
                                            bool rollUp) {
    return totalsByCategory(index, interval, rollUp, true);
}

std::vector<PayeeTotal> spendingByPayee(const LibraryIndex& index, const DateInterval& interval) {
    std::map<std::string, Decimal> totals;
    const auto sums = index.periodSums(interval);
    for (const PeriodSums::PayeePart& part : sums->payees()) {
        totals[part.payee.empty() ? "(No Payee)" : std::string(part.payee)] -= part.spending;
    }
    std::vector<PayeeTotal> result;
    for (const auto& [payee, total] : totals) {
        if (const Decimal rounded = total.toCents(); rounded.isPositive()) {
            result.push_back({payee, rounded});
        }
    }
    std::stable_sort(result.begin(), result.end(),
                     [](const PayeeTotal& a, const PayeeTotal& b) { return a.total > b.total; });
    return result;
}

DateInterval clamp(const LibraryIndex& index, const DateInterval& interval) {
    std::optional<DateInterval> covered = index.datesOfEntries();
    for (const Account& account : index.library().accounts) {
        const Date opened = account.openingDate;
        covered =
            covered ? DateInterval{std::min(covered->start, opened), std::max(covered->end, opened)}
                    : DateInterval{opened, opened};
    }
    const auto [first, last] = covered.value_or(DateInterval{index.now(), index.now()});
    const Date lower = std::max(first, interval.start);
    const Date upper = std::min(std::max(last, index.now()), interval.end);
    return {lower, std::max(lower, upper)};
}

std::vector<MonthlyCashFlow> cashFlow(const LibraryIndex& index, const DateInterval& interval,
                                      const Calendar& calendar) {
    const DateInterval range = clamp(index, interval);
    std::vector<DateInterval> months;
    std::vector<MonthlyCashFlow> flows;
    for (const Date month : calendar.months(range)) {
        months.push_back({month, calendar.endOfMonth(month)});
        flows.push_back({.month = month});
    }
    index.forEachLine(range, [&](const LedgerLine& line) {
        // The last month that begins on or before the line; the last second of a month that isn't
        // whole belongs to none.
        const auto after = std::upper_bound(
            months.begin(), months.end(), line.entry.date,
            [](Date date, const DateInterval& month) { return date < month.start; });
        if (after == months.begin() || !std::prev(after)->contains(line.entry.date)) {
            return;
        }
        MonthlyCashFlow& flow = flows[static_cast<std::size_t>(after - months.begin()) - 1];
        if (line.isIncome) {
            flow.income += line.amount;
        } else {
            flow.expenses -= line.amount;
        }
    });
    for (MonthlyCashFlow& flow : flows) {
        flow.income = flow.income.toCents();
        flow.expenses = flow.expenses.toCents();
    }
    return flows;
}

Decimal actual(const LibraryIndex& index, const UUID& categoryID, const DateInterval& interval,
               bool includeChildren) {
    const auto sums = index.periodSums(interval);
    Decimal total;
    if (includeChildren) {
        for (const PeriodSums::CategoryPart& part : sums->categories()) {
            const auto& id = part.categoryID;
            if (id && (*id == categoryID || index.topLevelID(*id) == categoryID)) {
                total += part.income + part.spending;
            }
        }
    } else {
        total = sums->amount(categoryID);
    }
    const Category* category = index.category(categoryID);
    return category != nullptr && category->kind == CategoryKind::expense ? -total : total;
}

std::vector<UUID> budgetedCategoryIDs(const Library& library) {
    std::vector<UUID> ids;
    for (const auto& [id, amount] : library.budget) {
        if (amount.isPositive()) {
            ids.push_back(id);
        }
    }
    std::map<UUID, std::string_view> names;
    for (const Category& category : library.categories) {
        names.try_emplace(category.id, category.name);
    }
    std::stable_sort(ids.begin(), ids.end(), // the budget is in order of the ids
                     [&](const UUID& a, const UUID& b) { return names[a] < names[b]; });
    return ids;
}

} // namespace oakfen
