#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "OakfenCore/LibraryIndex/LibraryIndex.h"

/// What the reminders will do in the coming days.
namespace oakfen {

/// One due date of a reminder, which its document keeps.
struct Occurrence {
    const ScheduledTransaction* item = nullptr;
    Date date;

    friend bool operator==(const Occurrence&, const Occurrence&) = default;
};

/// All due dates up to the horizon, overdue ones included, by date; those of one instant in the
/// document's order.
[[nodiscard]] std::vector<Occurrence> upcomingOccurrences(const Library& library, Date horizon,
                                                          const Calendar& calendar);

/// What they bring in and take out; transfers do neither.
struct UpcomingSums {
    /// Zero or negative.
    Decimal bills;
    Decimal income;

    [[nodiscard]] Decimal net() const { return income + bills; }

    friend bool operator==(const UpcomingSums&, const UpcomingSums&) = default;
};

[[nodiscard]] UpcomingSums sumsOf(std::span<const Occurrence> upcoming);

/// An entry that exists only for seeing what it would do.
struct WhatIfEntry {
    UUID id;
    std::string name;
    /// Negative for what goes out.
    Decimal amount;
    Date date;
    Frequency frequency = Frequency::once;

    friend bool operator==(const WhatIfEntry&, const WhatIfEntry&) = default;
};

/// What changes the balance on a day.
struct ForecastMove {
    std::string name;
    Decimal amount;
    bool isWhatIf = false;

    friend bool operator==(const ForecastMove&, const ForecastMove&) = default;
};

/// One day of a forecast.
struct ForecastDay {
    Date date;
    /// By the reminders alone, at the end of the day.
    Decimal balance;
    /// With the entries that are tried out.
    Decimal whatIf;
    std::vector<ForecastMove> moves;

    friend bool operator==(const ForecastDay&, const ForecastDay&) = default;
};

/// From when to when a forecast goes.
struct ForecastSpan {
    Date now;
    Date horizon;
    Calendar calendar;
};

/// The account's balance on each day from today to the horizon, as the reminders and the tried
/// entries move it. What is overdue moves today. Entries of the ledger that are dated later don't
/// count.
[[nodiscard]] std::vector<ForecastDay> forecast(const LibraryIndex& index, const UUID& accountID,
                                                std::span<const Occurrence> upcoming,
                                                std::span<const WhatIfEntry> tried,
                                                const ForecastSpan& span);

/// The first day on which that balance is lowest; null where there is no day.
[[nodiscard]] const ForecastDay* lowestDay(std::span<const ForecastDay> days,
                                           Decimal ForecastDay::*balance);

} // namespace oakfen
