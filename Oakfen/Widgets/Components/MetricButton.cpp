#include "Oakfen/Widgets/Components/MetricButton.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

MetricButton::MetricButton(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void MetricButton::setMetric(const Metric& metric) {
    if (metric == metric_) {
        return;
    }
    metric_ = metric;
    setAccessibleName(qt(metric.accessibilityText));
    updateGeometry();
    update();
}

void MetricButton::setKey(TextTone tone) {
    key_ = tone;
    updateGeometry();
    update();
}

int MetricButton::keyRoom() const {
    return key_ ? Theme::grid * 7 / 4 : 0;
}

QSize MetricButton::sizeHint() const {
    const QFont figure = Theme::font(TextStyle::figure);
    const QFontMetrics caption(Theme::font(TextStyle::capitals));
    const int width =
        std::max(keyRoom() + caption.horizontalAdvance(qt(metric_.caption)),
                 static_cast<int>(std::ceil(figureWidth(figure, qt(metric_.figure)))));
    return {width + 1, caption.height() + QFontMetrics(figure).height()};
}

void MetricButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setFont(Theme::font(TextStyle::capitals));
    painter.setPen(Theme::color(ThemeColor::secondaryText));
    const int captionHeight = painter.fontMetrics().height();
    painter.drawText(QRect(keyRoom(), 0, width() - keyRoom(), captionHeight),
                     Qt::AlignLeft | Qt::AlignVCenter, qt(metric_.caption));
    if (key_) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(fillColor(*key_));
        painter.setPen(Qt::NoPen);
        painter.drawRoundedRect(
            QRect(0, (captionHeight - Theme::grid) / 2, Theme::grid, Theme::grid), 2, 2);
    }

    const QFont font =
        fittingFigureFont(Theme::font(TextStyle::figure), qt(metric_.figure), width());
    painter.setFont(font);
    painter.setPen(Theme::color(themeColor(metric_.tint)));
    drawFigures(painter, rect().adjusted(0, captionHeight, 0, 0), qt(metric_.figure),
                Qt::AlignLeft);
    if (isEnabled() && (hasFocus() || underMouse())) {
        const int thickness = hasFocus() ? 2 : 1;
        const int underlined = static_cast<int>(std::ceil(figureWidth(font, qt(metric_.figure))));
        painter.fillRect(0, height() - thickness, underlined, thickness,
                         Theme::color(ThemeColor::accent));
    }
}

} // namespace oakfen
