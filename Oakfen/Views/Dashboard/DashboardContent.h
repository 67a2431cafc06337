#pragma once

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Oakfen/AppState.h"
#include "Oakfen/FigureLines.h"
#include "Oakfen/Views/Charts/Chart.h"
#include "Oakfen/Views/Components/ReminderMark.h"

/// What the cards of the start screen show. Each is a plain value, so that a card whose value has
/// stayed the same isn't drawn again.
namespace oakfen {

/// Today's net worth, and how it came about.
struct NetWorthCard {
    Metric today;
    /// How far the last point of the chart is from the one before, without its sign.
    MoneyText change;
    std::string changeSymbolName;
    /// What the change is, and the way that it went, for screen readers.
    std::string spokenChange;
    PlotChart chart;

    friend bool operator==(const NetWorthCard&, const NetWorthCard&) = default;
};

/// What came in and went out this month, and in the months before it.
struct CashFlowCard {
    Metric income;
    Metric spending;
    Metric net;
    /// Two series of bars: income and spending.
    PlotChart chart;
    /// For each place of the chart: what its income and its spending are made of.
    std::vector<std::array<FigureLines, 2>> lines;

    friend bool operator==(const CashFlowCard&, const CashFlowCard&) = default;
};

/// The largest categories of this month's spending.
struct SpendingCard {
    /// None where nothing was spent.
    RingChart chart;
    /// What each sector is made of.
    std::vector<FigureLines> lines;

    friend bool operator==(const SpendingCard&, const SpendingCard&) = default;
};

/// Reminders of the next two weeks.
struct UpcomingBillsCard {
    struct UpcomingRow {
        UUID id;
        ReminderMark mark;
        std::string payee;
        /// When it is due and in which account.
        std::string detail;
        TextTone detailTone = TextTone::secondary;
        MoneyText amount;

        friend bool operator==(const UpcomingRow&, const UpcomingRow&) = default;
    };

    std::vector<UpcomingRow> rows;

    friend bool operator==(const UpcomingBillsCard&, const UpcomingBillsCard&) = default;
};

/// How much of this month's budget is used up.
struct BudgetSummaryCard {
    struct Row {
        UUID categoryID;
        std::string name;
        /// What is left of its budget.
        MoneyText left;
        double fraction = 0;
        FigureLines lines;

        friend bool operator==(const Row&, const Row&) = default;
    };

    std::string spent;
    std::string budgeted;
    /// "88%"; empty where there is nothing to divide by.
    std::string percent;
    double fraction = 0;
    /// Those that are used up most; none without a budget.
    std::vector<Row> rows;
    /// What was spent in all categories that have a budget.
    FigureLines lines;

    friend bool operator==(const BudgetSummaryCard&, const BudgetSummaryCard&) = default;
};

/// What wants attention.
struct AlertsCard {
    struct AlertItem {
        std::string symbolName;
        TextTone color = TextTone::warning;
        std::string text;
        /// Where a click goes; nowhere where absent.
        std::optional<SidebarItem> target = {};

        friend bool operator==(const AlertItem&, const AlertItem&) = default;
    };

    std::vector<AlertItem> items;

    friend bool operator==(const AlertsCard&, const AlertsCard&) = default;
};

/// The latest entries of all accounts.
struct RecentTransactionsCard {
    struct Row {
        UUID id;
        std::string payee;
        /// Its day and its category.
        std::string detail;
        MoneyText amount;

        friend bool operator==(const Row&, const Row&) = default;
    };

    std::vector<Row> rows;

    friend bool operator==(const RecentTransactionsCard&, const RecentTransactionsCard&) = default;
};

/// What the start screen shows.
struct DashboardContent {
    std::string greeting;
    std::string date;
    /// There is no account at all, not even a closed one; then there are no cards.
    bool isEmpty = false;
    NetWorthCard netWorth = {};
    CashFlowCard cashFlow = {};
    SpendingCard spending = {};
    UpcomingBillsCard upcoming = {};
    BudgetSummaryCard budget = {};
    AlertsCard alerts = {};
    RecentTransactionsCard recent = {};

    friend bool operator==(const DashboardContent&, const DashboardContent&) = default;
};

/// What the cards are made from.
struct DashboardSource {
    const Library& library;
    const LibraryIndex& index;
    Date now;
    const Calendar& calendar;
    const std::string& currencyCode;
};

[[nodiscard]] NetWorthCard netWorthCard(const DashboardSource& source);
[[nodiscard]] CashFlowCard cashFlowCard(const DashboardSource& source);
[[nodiscard]] SpendingCard spendingCard(const DashboardSource& source);
[[nodiscard]] UpcomingBillsCard upcomingBillsCard(const DashboardSource& source);
[[nodiscard]] BudgetSummaryCard budgetSummaryCard(const DashboardSource& source);
[[nodiscard]] AlertsCard alertsCard(const DashboardSource& source);
[[nodiscard]] RecentTransactionsCard recentTransactionsCard(const DashboardSource& source);

} // namespace oakfen
