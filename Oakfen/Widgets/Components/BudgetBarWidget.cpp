#include "Oakfen/Widgets/Components/BudgetBarWidget.h"

#include <QPainter>

#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Components/ProgressBar.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

namespace {

constexpr int barWidth = 120;
constexpr int barHeight = 6;

} // namespace

void drawBudgetBar(QPainter& painter, const QRectF& place, const BudgetBar& bar) {
    drawProgress(painter, place, bar.fill, fillColor(bar.tone));
}

BudgetBarWidget::BudgetBarWidget(double fraction, QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFraction(fraction);
}

void BudgetBarWidget::setFraction(double fraction) {
    bar_ = budgetBar(fraction);
    setAccessibleName(qt(bar_.accessibilityText));
    setToolTip(accessibleName());
    update();
}

QSize BudgetBarWidget::sizeHint() const {
    return {barWidth, barHeight};
}

void BudgetBarWidget::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    drawBudgetBar(painter, rect(), bar_);
}

} // namespace oakfen
