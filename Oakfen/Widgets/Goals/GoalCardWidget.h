#pragma once

#include <QFrame>
#include <functional>

#include "Oakfen/Views/Goals/GoalsView.h"

class QLabel;
class QPushButton;

namespace oakfen {

class ElidedLabel;
class GoalBar;
class GoalIcon;
class MoneyLabel;

/// Draws the card of a savings goal.
class GoalCardWidget final : public QFrame {
    Q_OBJECT

public:
    explicit GoalCardWidget(QWidget* parent = nullptr);

    void showCard(const GoalCard& card);
    [[nodiscard]] const GoalCard& card() const { return card_; }

    // As they are read.
    [[nodiscard]] QPushButton* editButton() const { return edit_; }
    [[nodiscard]] QPushButton* contributeButton() const { return contribute_; }

private:
    void layOut();
    [[nodiscard]] QLayout* makeHead();
    [[nodiscard]] QLayout* makeFigures();
    /// Tells those who listen what is seen at a glance.
    void tell();

    GoalCard card_;
    GoalIcon* icon_;
    ElidedLabel* name_;
    ElidedLabel* targetDate_;
    QPushButton* edit_;
    MoneyLabel* saved_;
    MoneyLabel* target_;
    MoneyLabel* percent_;
    GoalBar* bar_;
    QWidget* party_;
    QLabel* note_;
    QPushButton* contribute_;
};

} // namespace oakfen
