#pragma once

#include "Oakfen/Views/Dashboard/DashboardView.h"

class QPushButton;

namespace oakfen {

class Card;
class CardRows;

/// Each of these fills a card and keeps what it shows up to date; the card belongs to the window.

/// Draws the reminders of the next two weeks.
class UpcomingBillsPart final {
public:
    UpcomingBillsPart(DashboardView& view, Card& card);
    void show(const UpcomingBillsCard& content);

private:
    [[nodiscard]] QWidget* makeRow();

    DashboardView& view_;
    CardRows* rows_;
    UpcomingBillsCard shown_;
};

/// Draws what wants attention.
class AlertsPart final {
public:
    AlertsPart(DashboardView& view, Card& card);
    void show(const AlertsCard& content);

private:
    [[nodiscard]] QWidget* makeRow();

    DashboardView& view_;
    Card& card_;
    CardRows* rows_;
    QWidget* allWell_;
    AlertsCard shown_;
};

/// Draws the latest entries.
class RecentTransactionsPart final {
public:
    RecentTransactionsPart(DashboardView& view, Card& card);
    void show(const RecentTransactionsCard& content);
    /// As many columns as the cards above.
    void setColumnCount(int count);

private:
    [[nodiscard]] QWidget* makeRow();

    DashboardView& view_;
    CardRows* rows_;
    RecentTransactionsCard shown_;
};

} // namespace oakfen
