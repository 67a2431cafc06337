#pragma once

#include <vector>

#include "Oakfen/Views/Bills/BillsView.h"
#include "Oakfen/Widgets/Components/Page.h"

class QPushButton;
class QToolButton;

namespace oakfen {

class Card;
class FigureCard;
class EmptyStateWidget;
class ProjectionCard;
class ReminderGrid;
class SegmentedChoice;
class UpcomingList;

/// Draws the screen of bills and income.
class BillsWidget final : public Page {
    Q_OBJECT

public:
    explicit BillsWidget(AppEnvironment& environment, QWidget* parent = nullptr);

    [[nodiscard]] BillsView& view() { return view_; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void addFigures();
    void addUpcoming();
    void addReminders();
    void refresh();
    void showReminders();
    /// Says how many rows more the list would show, if there are any; the keyboard goes to the
    /// last of the rows' buttons where there are none any more.
    void showRest(QWidget& lastOfRows);
    void listMore();
    void fitFigures();
    /// Brings what the keyboard came to into sight.
    void follow(QWidget* widget);

    BillsView view_;
    std::shared_ptr<const BillsContent> shown_;
    QToolButton* newReminder_;
    std::vector<FigureCard*> figures_;
    ProjectionCard* projection_;
    SegmentedChoice* horizon_ = nullptr;
    EmptyStateWidget* empty_ = nullptr;
    /// What Tab comes to before the rows, if it is there.
    QWidget* beforeRows_ = nullptr;
    UpcomingList* upcoming_ = nullptr;
    QPushButton* more_ = nullptr;
    Card* reminderCard_ = nullptr;
    ReminderGrid* reminders_ = nullptr;
    QWidget* noReminders_ = nullptr;
    Subscription changed_;
};

} // namespace oakfen
