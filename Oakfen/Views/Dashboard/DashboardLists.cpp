// The cards that list what is to come, what wants attention and what was.
#include <algorithm>

#include "Oakfen/Views/Dashboard/DashboardContent.h"
#include "OakfenCore/LibraryIndex/PeriodTotals.h"
#include "OakfenCore/LibraryOperations/ScheduledTransactions.h"
#include "OakfenCore/Models/Money.h"
#include "OakfenCore/Support/Text/Formatting.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

namespace {

constexpr int daysToCome = 14;
constexpr std::size_t mostUpcoming = 6;
constexpr std::size_t mostRecent = 7;

/// An amount in a list: what comes in stands out, what goes out has its sign.
MoneyText listedAmount(const Decimal& amount, bool comesIn, std::string_view currencyCode) {
    MoneyText money = moneyText(amount, currencyCode, {.colorsNegative = false});
    if (comesIn) {
        money.tone = TextTone::positive;
    }
    return money;
}

void addAccountAlerts(std::vector<AlertsCard::AlertItem>& items, const DashboardSource& source) {
    // Less than this share of a limit is nothing to speak of.
    static const Decimal quietShare = Decimal::cents(30);
    for (const Account* account : source.index.openAccounts()) {
        const Decimal balance = source.index.balance(account->id);
        const SidebarItem target = SidebarItem::account(account->id);
        if (account->lowBalanceAlert && balance < *account->lowBalanceAlert) {
            items.push_back({.symbolName = "exclamationmark.triangle.fill",
                             .text = singleLine(account->name) + " is below " +
                                     currencyText(*account->lowBalanceAlert, source.currencyCode) +
                                     ".",
                             .target = target});
        }
        if (!account->creditLimit || !account->creditLimit->isPositive()) {
            continue;
        }
        const Decimal share = -balance / *account->creditLimit;
        if (quietShare < share) {
            items.push_back({.symbolName = "creditcard.trianglebadge.exclamationmark",
                             .text = singleLine(account->name) + " is using " +
                                     percentText(share.doubleValue()) + " of its limit.",
                             .target = target});
        }
    }
}

/// The plain names of the categories in which more was spent this month than planned.
std::vector<std::string> overBudget(const DashboardSource& source) {
    const DateInterval month = interval(DateRangePreset::thisMonth, source.now, source.calendar);
    std::vector<std::string> names;
    for (const auto& [id, budget] : source.library.budget) {
        const Category* category = source.index.category(id);
        if (category != nullptr && category->kind == CategoryKind::expense && budget.isPositive() &&
            budget < actual(source.index, id, month, false)) {
            names.push_back(singleLine(category->name));
        }
    }
    // Bytes of UTF-8 sort as their code points do.
    std::ranges::sort(names);
    return names;
}

} // namespace

UpcomingBillsCard upcomingBillsCard(const DashboardSource& source) {
    const Date horizon = source.calendar.addingDays(source.now, daysToCome);
    const Date startOfToday = source.calendar.startOfDay(source.now);
    std::vector<const ScheduledTransaction*> due;
    for (const ScheduledTransaction& reminder : source.library.scheduled) {
        if (reminder.nextDate <= horizon) {
            due.push_back(&reminder);
        }
    }
    std::ranges::stable_sort(due, {}, &ScheduledTransaction::nextDate);
    due.resize(std::min(due.size(), mostUpcoming));
    UpcomingBillsCard card;
    for (const ScheduledTransaction* reminder : due) {
        const Account* account = source.index.account(reminder->accountID);
        const std::string day =
            relativeDayDescription(reminder->nextDate, source.now, source.calendar);
        card.rows.push_back(
            {.id = reminder->id,
             .mark = reminderMark(*reminder),
             .payee = singleLine(reminder->payee),
             .detail = account != nullptr ? day + " · " + singleLine(account->name) : day,
             .detailTone =
                 reminder->nextDate < startOfToday ? TextTone::negative : TextTone::secondary,
             .amount = listedAmount(reminder->amount, isIncome(*reminder), source.currencyCode)});
    }
    return card;
}

AlertsCard alertsCard(const DashboardSource& source) {
    AlertsCard card;
    addAccountAlerts(card.items, source);
    if (const std::vector<std::string> names = overBudget(source); !names.empty()) {
        card.items.push_back({.symbolName = "chart.bar.xaxis",
                              .color = TextTone::negative,
                              .text = "Over budget: " + joined(names, ", ") + ".",
                              .target = SidebarItem{SidebarItem::Kind::budget}});
    }
    const Date startOfToday = source.calendar.startOfDay(source.now);
    const auto overdue = static_cast<std::size_t>(
        std::ranges::count_if(source.library.scheduled, [&](const ScheduledTransaction& each) {
            return each.nextDate < startOfToday;
        }));
    if (overdue > 0) {
        card.items.push_back(
            {.symbolName = "calendar.badge.exclamationmark",
             .color = TextTone::negative,
             .text = countText(overdue) +
                     (overdue == 1 ? " reminder is overdue." : " reminders are overdue."),
             .target = SidebarItem{SidebarItem::Kind::bills}});
    }
    const auto uncategorized = static_cast<std::size_t>(source.index.uncategorizedCount());
    if (uncategorized > 0) {
        card.items.push_back({.symbolName = "questionmark.folder",
                              .color = TextTone::information,
                              .text = countText(uncategorized) +
                                      (uncategorized == 1 ? " transaction needs a category."
                                                          : " transactions need a category.")});
    }
    return card;
}

RecentTransactionsCard recentTransactionsCard(const DashboardSource& source) {
    // The latest so far, of equal days the one that stands first in the document.
    std::vector<const Transaction*> recent;
    for (const Transaction& entry : source.library.transactions) {
        const auto place =
            std::ranges::upper_bound(recent, entry.date, std::greater<>(), &Transaction::date);
        if (place != recent.end() || recent.size() < mostRecent) {
            recent.insert(place, &entry);
            recent.resize(std::min(recent.size(), mostRecent));
        }
    }
    RecentTransactionsCard card;
    for (const Transaction* entry : recent) {
        card.rows.push_back({.id = entry->id,
                             .payee = singleLine(entry->payee),
                             .detail = abbreviatedMonthDayText(entry->date, source.calendar) +
                                       " · " + singleLine(source.index.categoryDescription(*entry)),
                             .amount = listedAmount(
                                 entry->amount, entry->amount.isPositive() && !entry->isTransfer(),
                                 source.currencyCode)});
    }
    return card;
}

} // namespace oakfen
