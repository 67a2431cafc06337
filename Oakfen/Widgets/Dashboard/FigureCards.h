#pragma once

#include "Oakfen/Views/Dashboard/DashboardView.h"

class QLabel;

namespace oakfen {

class Card;
class MetricButton;
class MetricWidget;
class MoneyLabel;
class PlotChartWidget;
class RingChartWidget;
class SymbolLabel;

// Each of these fills a card and keeps what it shows up to date; the card belongs to the window.

/// Draws today's net worth and its course.
class NetWorthPart final {
public:
    explicit NetWorthPart(Card& card);
    void show(const NetWorthCard& content);

private:
    MetricWidget* today_;
    /// Up and down, one of which is shown.
    SymbolLabel* up_;
    SymbolLabel* down_;
    MoneyLabel* change_;
    QWidget* changeLine_;
    PlotChartWidget* chart_;
    NetWorthCard shown_;
};

/// Draws what came in and went out.
class CashFlowPart final {
public:
    CashFlowPart(DashboardView& view, Card& card);
    void show(const CashFlowCard& content);

private:
    MetricButton* income_;
    MetricButton* spending_;
    MetricWidget* net_;
    PlotChartWidget* chart_;
    CashFlowCard shown_;
};

/// Draws the largest categories of the month's spending.
class SpendingPart final {
public:
    SpendingPart(DashboardView& view, Card& card);
    void show(const SpendingCard& content);

private:
    QLabel* nothing_;
    RingChartWidget* chart_;
    SpendingCard shown_;
};

} // namespace oakfen
