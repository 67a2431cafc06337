#include "Oakfen/Views/Bills/BillsView.h"

#include <algorithm>
#include <string>
#include <utility>

#include "Oakfen/Reminders.h"
#include "Oakfen/Views/Bills/ForecastChart.h"
#include "Oakfen/Views/Components/ReminderText.h"
#include "OakfenCore/LibraryOperations/ScheduledTransactions.h"
#include "OakfenCore/Support/Text/Formatting.h"
#include "OakfenCore/Support/Text/MonthText.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

BillsView::BillsView(AppEnvironment& environment)
    : Screen(environment), forecastAccountID_(firstBankingAccount()),
      dayChanged_(environment.dayChange.dayChanged.observe([this] { stateChanged(); })) {}

void BillsView::setHorizonDays(int days) {
    horizonDays_ = days;
    mostRows_ = rowsAtOnce;
    stateChanged();
}

void BillsView::showMore() {
    mostRows_ += rowsAtOnce;
    stateChanged();
}

void BillsView::setForecastAccountID(const std::optional<UUID>& id) {
    forecastAccountID_ = id;
    stateChanged();
}

EmptyState BillsView::emptyState() {
    return {"No Upcoming Bills", "calendar.badge.checkmark",
            "Add reminders for recurring bills, paycheques and transfers."};
}

void BillsView::enter(const UUID& reminderID) {
    enterReminder(environment_, reminderID);
}

void BillsView::skip(const UUID& reminderID) {
    skipReminder(environment_, reminderID);
}

void BillsView::enterOtherwise(const UUID& reminderID) {
    environment_.appState.setSheet(ActiveSheet{ActiveSheet::EnterReminder{reminderID}});
}

void BillsView::editReminder(const UUID& reminderID) {
    environment_.appState.setSheet(ActiveSheet{ActiveSheet::Scheduled{.id = reminderID}});
}

void BillsView::newReminder() {
    environment_.appState.setSheet(ActiveSheet{ActiveSheet::Scheduled{}});
}

std::vector<MenuEntry> BillsView::contextMenu(const UUID& reminderID, bool isNext) {
    std::vector<MenuEntry> menu{{.title = "Edit Reminder…",
                                 .symbolName = "pencil",
                                 .perform = [this, reminderID] { editReminder(reminderID); }}};
    if (isNext) {
        menu.push_back({.title = "Enter…",
                        .symbolName = "checkmark.circle",
                        .perform = [this, reminderID] { enterOtherwise(reminderID); }});
    }
    return menu;
}

void BillsView::setTriesOut(bool triesOut) {
    triesOut_ = triesOut;
    stateChanged();
}

UUID BillsView::addTriedEntry() {
    tried_.push_back({.id = UUID::random(), .date = environment_.clock.now()});
    const UUID id = tried_.back().id;
    stateChanged();
    return id;
}

void BillsView::changeTriedEntry(const WhatIfEntry& entry) {
    const auto place = std::ranges::find(tried_, entry.id, &WhatIfEntry::id);
    if (place != tried_.end()) {
        *place = entry;
        stateChanged();
    }
}

void BillsView::removeTriedEntry(const UUID& id) {
    std::erase_if(tried_, [&](const WhatIfEntry& each) { return each.id == id; });
    stateChanged();
}

Date BillsView::horizon() const {
    return environment_.clock.calendar().addingDays(environment_.clock.now(), horizonDays_);
}

std::optional<UUID> BillsView::firstBankingAccount() const {
    const auto banking = environment_.store.index().accounts(AccountGroup::banking, false);
    return banking.empty() ? std::nullopt : std::optional(banking.front()->id);
}

std::optional<UUID> BillsView::accountToProject() const {
    const bool isThere =
        forecastAccountID_ && environment_.store.index().account(*forecastAccountID_) != nullptr;
    return isThere ? forecastAccountID_ : firstBankingAccount();
}

BillsContent BillsView::derive(const BillsContent* /*earlier*/) const {
    const std::vector<Occurrence> upcoming =
        upcomingOccurrences(environment_.store.library(), horizon(), environment_.clock.calendar());
    const std::span<const Occurrence> listed =
        std::span(upcoming).first(std::min(mostRows_, upcoming.size()));
    return {.figures = figures(upcoming),
            .horizonDays = horizonDays_,
            .days = days(listed),
            .hiddenCount = upcoming.size() - listed.size(),
            .reminders = reminders(),
            .reminderCount = countText(environment_.store.library().scheduled.size()),
            .projection = projection(upcoming)};
}

std::string BillsView::money(const Decimal& amount) const {
    return currencyText(amount, environment_.currencyCode());
}

std::vector<BillsContent::Figure>
BillsView::figures(const std::vector<Occurrence>& upcoming) const {
    const UpcomingSums sums = sumsOf(upcoming);
    const std::string period = "Next " + std::to_string(horizonDays_) + " days";
    return {{.title = "Bills Due",
             .symbolName = "arrow.up.circle",
             .note = period,
             .money = {money(-sums.bills), TextTone::warning}},
            {.title = "Expected Income",
             .symbolName = "arrow.down.circle",
             .note = period,
             .money = {money(sums.income), TextTone::positive}},
            {.title = "Net",
             .note = "Income less bills",
             .money = moneyText(sums.net(), environment_.currencyCode())}};
}

MoneyText BillsView::listed(const ScheduledTransaction& reminder) const {
    return {money(reminder.amount), isIncome(reminder) ? TextTone::positive : TextTone::primary};
}

BillsContent::Row BillsView::row(const Occurrence& occurrence) const {
    const ScheduledTransaction& item = *occurrence.item;
    const Calendar& calendar = environment_.clock.calendar();
    return {.reminderID = item.id,
            .date = occurrence.date,
            .payee = singleLine(item.payee),
            .subtitle = singleLine(reminderSubtitle(item, environment_.store.index())),
            .mark = reminderMark(item),
            .amount = listed(item),
            .isNext = calendar.startOfDay(occurrence.date) == calendar.startOfDay(item.nextDate)};
}

std::vector<BillsContent::Day> BillsView::days(std::span<const Occurrence> upcoming) const {
    const Calendar& calendar = environment_.clock.calendar();
    const Date now = environment_.clock.now();
    const Date today = calendar.startOfDay(now);
    std::vector<BillsContent::Day> days;
    std::optional<Date> last;
    for (const Occurrence& each : upcoming) {
        const Date day = calendar.startOfDay(each.date);
        if (last != day) {
            const bool isNear = calendar.wholeDays(today, day) <= 1;
            days.push_back(
                {.title = weekdayMonthDayText(day, calendar),
                 .relative = isNear ? relativeDayDescription(day, now, calendar) : std::string(),
                 .isOverdue = day < today});
            last = day;
        }
        days.back().rows.push_back(row(each));
    }
    return days;
}

std::vector<BillsContent::Reminder> BillsView::reminders() const {
    const LibraryIndex& index = environment_.store.index();
    std::vector<std::pair<std::string, const ScheduledTransaction*>> sorted;
    for (const ScheduledTransaction& each : environment_.store.library().scheduled) {
        sorted.emplace_back(localizedSortKey(each.payee), &each);
    }
    std::ranges::stable_sort(sorted, {}, [](const auto& each) { return each.first; });
    std::vector<BillsContent::Reminder> result;
    result.reserve(sorted.size());
    for (const auto& [key, each] : sorted) {
        const Account* account = index.account(each->accountID);
        result.push_back({.id = each->id,
                          .payee = singleLine(each->payee),
                          .account = account != nullptr ? singleLine(account->name) : std::string(),
                          .frequency = title(each->frequency),
                          .nextDue = numericDateText(each->nextDate, environment_.clock.calendar()),
                          .amount = listed(*each)});
    }
    return result;
}

BillsContent::Projection BillsView::projection(const std::vector<Occurrence>& upcoming) const {
    const LibraryIndex& index = environment_.store.index();
    BillsContent::Projection result{.accounts = accountPickerRows(index),
                                    .accountID = accountToProject(),
                                    .triesOut = triesOut_,
                                    .tried = triesOut_ ? triedRows()
                                                       : std::vector<BillsContent::TriedRow>()};
    const Account* account = result.accountID ? index.account(*result.accountID) : nullptr;
    if (account == nullptr) {
        return result;
    }
    result.accounts =
        keepingChoice(std::move(result.accounts), {.title = account->name, .id = account->id});
    const Calendar& calendar = environment_.clock.calendar();
    const std::vector<ForecastDay> days =
        forecast(index, account->id, upcoming, triesOut_ ? tried_ : std::vector<WhatIfEntry>(),
                 {environment_.clock.now(), horizon(), calendar});
    result.chart = forecastChart(days, calendar,
                                 {.currencyCode = environment_.currencyCode(),
                                  .lowBalanceAlert = account->lowBalanceAlert,
                                  .triesOut = triesOut_});
    if (const ForecastDay* lowest = lowestDay(days, &ForecastDay::balance)) {
        result.lowestPlanned = money(lowest->balance);
        result.lowestTried = money(lowestDay(days, &ForecastDay::whatIf)->whatIf);
    }
    return result;
}

std::vector<BillsContent::TriedRow> BillsView::triedRows() const {
    std::vector<BillsContent::TriedRow> rows;
    for (const WhatIfEntry& entry : tried_) {
        const std::string name = singleLine(trimmingWhitespaces(entry.name));
        rows.push_back({.entry = entry,
                        .name = name.empty() ? std::string("New entry") : name,
                        .day = abbreviatedMonthDayText(entry.date, environment_.clock.calendar()),
                        .frequency = title(entry.frequency),
                        .amount = moneyText(entry.amount, environment_.currencyCode(),
                                            {.colorsNegative = false, .showsPositiveSign = true})});
    }
    return rows;
}

} // namespace oakfen
