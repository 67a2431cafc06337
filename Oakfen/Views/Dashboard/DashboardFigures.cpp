// The cards that sum up months: net worth, cash flow, spending and budget.
#include <algorithm>

#include "Oakfen/Views/Components/Components.h"
#include "Oakfen/Views/Dashboard/DashboardContent.h"
#include "OakfenCore/LibraryIndex/NetWorthSeries.h"
#include "OakfenCore/LibraryIndex/PeriodTotals.h"
#include "OakfenCore/Models/Money.h"
#include "OakfenCore/Support/Text/Formatting.h"
#include "OakfenCore/Support/Text/MonthText.h"

namespace oakfen {

namespace {

constexpr int monthsOfNetWorth = 12;
constexpr std::size_t mostSectors = 6;
constexpr std::size_t mostBudgetRows = 5;

ChartPlace monthPlace(Date date, const DashboardSource& source) {
    return {.label = abbreviatedMonthText(date, source.calendar),
            .title = monthYearText(date, source.calendar)};
}

DateInterval thisMonth(const DashboardSource& source) {
    return interval(DateRangePreset::thisMonth, source.now, source.calendar);
}

/// An expense category with a budget, and what was spent in it this month.
struct BudgetedCategory {
    const Category* category;
    Decimal budget;
    Decimal actual;
    Decimal fraction;
    std::string path;
};

/// The most used up first, equals by their paths.
std::vector<BudgetedCategory> budgetedCategories(const DashboardSource& source) {
    std::vector<BudgetedCategory> rows;
    for (const auto& [id, budget] : source.library.budget) {
        const Category* category = source.index.category(id);
        if (category == nullptr || category->kind != CategoryKind::expense ||
            !budget.isPositive()) {
            continue;
        }
        const Decimal spent = actual(source.index, id, thisMonth(source), false);
        rows.push_back({category, budget, spent, spent / budget, source.index.categoryName(id)});
    }
    std::ranges::stable_sort(rows, [](const BudgetedCategory& a, const BudgetedCategory& b) {
        return a.fraction != b.fraction ? b.fraction < a.fraction : a.path < b.path;
    });
    return rows;
}

} // namespace

NetWorthCard netWorthCard(const DashboardSource& source) {
    const std::vector<NetWorthPoint> series =
        netWorthSeries(source.index, monthsOfNetWorth, source.calendar);
    const auto worth = [&](std::size_t back) {
        return series.size() >= back ? series[series.size() - back].netWorth() : Decimal();
    };
    const Decimal change = worth(1) - worth(2);
    NetWorthCard card{
        .today =
            metric("Today", source.index.netWorth(), source.currencyCode, TextTone::primary, true),
        .change = {.text = currencyText(change.magnitude(), source.currencyCode),
                   .tone = change.isNegative() ? TextTone::negative : TextTone::positive},
        .changeSymbolName = change.isNegative() ? "arrow.down.right" : "arrow.up.right"};
    card.spokenChange = std::string("Change since last month end: ") +
                        (change.isNegative() ? "down " : "up ") + card.change.text;
    PlotChart chart{.title = "Net Worth"};
    std::vector<Decimal> amounts;
    for (const NetWorthPoint& point : series) {
        chart.places.push_back(monthPlace(point.date, source));
        amounts.push_back(point.netWorth());
    }
    chart.lines.push_back(
        {.series = chartSeries("Net Worth", ChartColor::blue, amounts, source.currencyCode),
         .hasArea = true});
    card.chart = scaled(std::move(chart), source.currencyCode);
    return card;
}

CashFlowCard cashFlowCard(const DashboardSource& source) {
    const DateInterval period = interval(DateRangePreset::last3Months, source.now, source.calendar);
    std::vector<MonthlyCashFlow> series = cashFlow(source.index, period, source.calendar);
    if (series.empty()) {
        series.push_back({.month = source.now});
    }
    const MonthlyCashFlow& present = series.back();
    CashFlowCard card{
        .income = metric("Income", present.income, source.currencyCode, TextTone::positive),
        .spending = metric("Spending", present.expenses, source.currencyCode),
        .net = metric("Net", present.net(), source.currencyCode,
                      present.net().isNegative() ? TextTone::negative : TextTone::positive)};
    PlotChart chart{.title = "Cash Flow"};
    std::vector<Decimal> income;
    std::vector<Decimal> spending;
    for (const MonthlyCashFlow& month : series) {
        chart.places.push_back(monthPlace(month.month, source));
        chart.places.back().isPale = month.month != present.month;
        income.push_back(month.income);
        spending.push_back(month.expenses);
        const auto linesOf = [&](FigureLines::Side side) {
            FigureLines lines = cashFlowLines(side, month.month, period, source.calendar);
            lines.detail = "Cash flow · " + chart.places.back().title;
            return lines;
        };
        card.lines.push_back(
            {linesOf(FigureLines::Side::income), linesOf(FigureLines::Side::spending)});
    }
    chart.bars = {chartSeries("Income", ChartColor::green, income, source.currencyCode),
                  chartSeries("Spending", ChartColor::orange, spending, source.currencyCode)};
    chart.leadsOn = true;
    card.chart = scaled(std::move(chart), source.currencyCode);
    return card;
}

SpendingCard spendingCard(const DashboardSource& source) {
    std::vector<CategoryTotal> top = spendingByCategory(source.index, thisMonth(source), true);
    top.resize(std::min(top.size(), mostSectors));
    SpendingCard card{.chart = {.title = "Spending by Category", .leadsOn = true}};
    for (const CategoryTotal& each : top) {
        card.chart.sectors.push_back({.name = each.name,
                                      .value = chartValue(each.total, source.currencyCode),
                                      .color = seriesColor(card.chart.sectors.size())});
        card.lines.push_back(spendingLines(source.index, each.categoryID, thisMonth(source)));
        card.lines.back().detail = "Spending · " + monthYearText(source.now, source.calendar);
    }
    if (!top.empty()) {
        const Decimal total = sum(top, [](const CategoryTotal& each) { return each.total; });
        card.chart.figure = currencyText(total, source.currencyCode);
        card.chart.caption = "this month";
    }
    return card;
}

BudgetSummaryCard budgetSummaryCard(const DashboardSource& source) {
    const std::vector<BudgetedCategory> all = budgetedCategories(source);
    const Decimal spent = sum(all, [](const BudgetedCategory& each) { return each.actual; });
    const Decimal budgeted = sum(all, [](const BudgetedCategory& each) { return each.budget; });
    BudgetSummaryCard card{.spent = currencyText(spent, source.currencyCode),
                           .budgeted = currencyText(budgeted, source.currencyCode)};
    if (budgeted.isPositive()) {
        card.fraction = (spent / budgeted).doubleValue();
        card.percent = percentText(card.fraction);
    }
    const std::string detail = "Actual · " + monthYearText(source.now, source.calendar);
    card.lines = {.title = "Budget",
                  .detail = detail,
                  .interval = thisMonth(source),
                  .categories = std::vector<std::optional<UUID>>()};
    for (const BudgetedCategory& each : all) {
        card.lines.categories->push_back(each.category->id);
        if (card.rows.size() == mostBudgetRows) {
            continue;
        }
        card.rows.push_back(
            {.categoryID = each.category->id,
             .name = singleLine(each.category->name),
             .left = moneyText(each.budget - each.actual, source.currencyCode),
             .fraction = each.fraction.doubleValue(),
             .lines = actualLines(source.index, each.category->id, thisMonth(source), false)});
        card.rows.back().lines.detail = detail;
    }
    return card;
}

} // namespace oakfen
