#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Oakfen/Views/Bills/Forecast.h"
#include "Oakfen/Views/Charts/Chart.h"
#include "Oakfen/Views/Components/Components.h"
#include "Oakfen/Views/Components/ReminderMark.h"

namespace oakfen {

/// What the screen of bills and income shows.
struct BillsContent {
    /// One of the sums over the coming days.
    struct Figure {
        std::string_view title;
        std::string_view symbolName;
        std::string note;
        MoneyText money;

        friend bool operator==(const Figure&, const Figure&) = default;
    };
    /// One due date of a reminder.
    struct Row {
        UUID reminderID;
        Date date;
        std::string payee;
        std::string subtitle;
        ReminderMark mark;
        MoneyText amount;
        /// It is what the reminder waits for, and so can be entered or skipped.
        bool isNext = false;

        friend bool operator==(const Row&, const Row&) = default;
    };
    struct Day {
        std::string title;
        /// How far off it is, where that is near or past: "Tomorrow", "3 days overdue".
        std::string relative;
        bool isOverdue = false;
        std::vector<Row> rows;

        friend bool operator==(const Day&, const Day&) = default;
    };
    /// One of all reminders.
    struct Reminder {
        UUID id;
        std::string payee;
        std::string account;
        std::string_view frequency;
        std::string nextDue;
        MoneyText amount;

        friend bool operator==(const Reminder&, const Reminder&) = default;
    };
    /// An entry that is tried out, as a list shows it.
    struct TriedRow {
        WhatIfEntry entry;
        std::string name;
        std::string day;
        std::string_view frequency;
        MoneyText amount;

        friend bool operator==(const TriedRow&, const TriedRow&) = default;
    };
    struct Projection {
        std::vector<PickerRow> accounts;
        /// Absent while there is none to project; then the chart has no place.
        std::optional<UUID> accountID = {};
        PlotChart chart = {};
        bool triesOut = false;
        /// "$9,598.13", the lowest of each line; empty where there is no chart.
        std::string lowestPlanned = {};
        std::string lowestTried = {};
        std::vector<TriedRow> tried = {};

        friend bool operator==(const Projection&, const Projection&) = default;
    };

    std::vector<Figure> figures;
    int horizonDays = 0;
    /// The first of what is due, as many rows as are shown.
    std::vector<Day> days;
    /// How many rows more there are, which the days leave out.
    std::size_t hiddenCount = 0;
    std::vector<Reminder> reminders;
    /// "18".
    std::string reminderCount;
    Projection projection;

    friend bool operator==(const BillsContent&, const BillsContent&) = default;
};

} // namespace oakfen
