#include "Oakfen/Views/Bills/Forecast.h"

#include <algorithm>
#include <map>
#include <utility>

#include "OakfenCore/LibraryOperations/ScheduledTransactions.h"

namespace oakfen {

std::vector<Occurrence> upcomingOccurrences(const Library& library, Date horizon,
                                            const Calendar& calendar) {
    std::vector<Occurrence> upcoming;
    for (const ScheduledTransaction& item : library.scheduled) {
        for (const Date date : occurrences(item, horizon, calendar)) {
            upcoming.push_back({&item, date});
        }
    }
    std::ranges::stable_sort(upcoming, {}, &Occurrence::date);
    return upcoming;
}

UpcomingSums sumsOf(std::span<const Occurrence> upcoming) {
    UpcomingSums sums;
    for (const Occurrence& each : upcoming) {
        if (isIncome(*each.item)) {
            sums.income += each.item->amount;
        } else if (!each.item->isTransfer()) {
            sums.bills += each.item->amount;
        }
    }
    return sums;
}

namespace {

/// What moves the balance, by the day.
class DayMoves {
public:
    explicit DayMoves(const ForecastSpan& span)
        : calendar_(span.calendar), today_(span.calendar.startOfDay(span.now)) {}

    void add(Date date, ForecastMove move) {
        moves_[std::max(calendar_.startOfDay(date), today_)].push_back(std::move(move));
    }

    /// Those of the day, each asked for once.
    [[nodiscard]] std::vector<ForecastMove> take(Date day) {
        const auto found = moves_.find(day);
        return found == moves_.end() ? std::vector<ForecastMove>() : std::move(found->second);
    }

private:
    const Calendar& calendar_;
    Date today_;
    std::map<Date, std::vector<ForecastMove>> moves_;
};

void addPlanned(DayMoves& moves, const UUID& accountID, std::span<const Occurrence> upcoming) {
    for (const auto& [item, date] : upcoming) {
        if (item->accountID == accountID) {
            moves.add(date, {item->payee, item->amount});
        }
        // Not "else": money that goes from the account into it changes nothing.
        if (item->transferAccountID == accountID) {
            moves.add(date, {item->payee, -item->amount});
        }
    }
}

void addTried(DayMoves& moves, std::span<const WhatIfEntry> tried, const ForecastSpan& span) {
    for (const WhatIfEntry& entry : tried) {
        const ScheduledTransaction asReminder{
            .amount = entry.amount, .frequency = entry.frequency, .nextDate = entry.date};
        for (const Date date : occurrences(asReminder, span.horizon, span.calendar)) {
            moves.add(date, {entry.name, entry.amount, true});
        }
    }
}

} // namespace

std::vector<ForecastDay> forecast(const LibraryIndex& index, const UUID& accountID,
                                  std::span<const Occurrence> upcoming,
                                  std::span<const WhatIfEntry> tried, const ForecastSpan& span) {
    DayMoves moves(span);
    addPlanned(moves, accountID, upcoming);
    addTried(moves, tried, span);
    std::vector<ForecastDay> days;
    Decimal balance = index.balance(accountID);
    Decimal whatIf = balance;
    const Calendar& calendar = span.calendar;
    // The start of each day anew: where a midnight doesn't exist, a day later is no midnight.
    for (Date day = calendar.startOfDay(span.now); day <= span.horizon;
         day = calendar.startOfDay(calendar.addingDays(day, 1))) {
        std::vector<ForecastMove> ofDay = moves.take(day);
        for (const ForecastMove& move : ofDay) {
            balance += move.isWhatIf ? Decimal() : move.amount;
            whatIf += move.amount;
        }
        days.push_back(
            {.date = day, .balance = balance, .whatIf = whatIf, .moves = std::move(ofDay)});
    }
    return days;
}

const ForecastDay* lowestDay(std::span<const ForecastDay> days, Decimal ForecastDay::*balance) {
    const auto lowest = std::ranges::min_element(days, {}, balance);
    return lowest == days.end() ? nullptr : &*lowest;
}

} // namespace oakfen
