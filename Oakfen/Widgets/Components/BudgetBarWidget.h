#pragma once

#include <QRectF>
#include <QWidget>

#include "Oakfen/Views/Components/Components.h"

class QPainter;

namespace oakfen {

/// Draws the bar from end to end of the place, with round ends.
void drawBudgetBar(QPainter& painter, const QRectF& place, const BudgetBar& bar);

/// A bar that fills as a budget is used up.
class BudgetBarWidget final : public QWidget {
public:
    explicit BudgetBarWidget(double fraction = 0, QWidget* parent = nullptr);

    /// Fills the bar so far; 1 is all of it.
    void setFraction(double fraction);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    BudgetBar bar_;
};

} // namespace oakfen
