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
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF whole = rect();
    const qreal radius = whole.height() / 2;
    QPainterPath track;
    track.addRoundedRect(whole, radius, radius);
    // The fill keeps to the rounded ends, however short it is.
    painter.setClipPath(track);
    painter.fillRect(whole, Theme::color(ThemeColor::surfaceRaised));
    painter.fillRect(QRectF(0, 0, whole.width() * bar_.fill, whole.height()),
                     fillColor(bar_.tone));
}

} // namespace oakfen
