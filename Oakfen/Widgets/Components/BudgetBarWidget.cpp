#include "Oakfen/Widgets/Components/BudgetBarWidget.h"

#include <QPainter>
#include <QPainterPath>

#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

constexpr int barWidth = 120;
constexpr int barHeight = 6;

} // namespace

void drawBudgetBar(QPainter& painter, const QRectF& place, const BudgetBar& bar) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal radius = place.height() / 2;
    QPainterPath track;
    track.addRoundedRect(place, radius, radius);
    // The fill keeps to the rounded ends, however short it is.
    painter.setClipPath(track, Qt::IntersectClip);
    painter.fillRect(place, Theme::color(ThemeColor::surfaceRaised));
    painter.setPen(Qt::NoPen);
    painter.setBrush(fillColor(bar.tone));
    painter.drawRoundedRect(
        QRectF(place.left(), place.top(), place.width() * bar.fill, place.height()), radius,
        radius);
    painter.restore();
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
