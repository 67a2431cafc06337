#include "Oakfen/Widgets/Charts/ChartPainting.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

QColor seriesFill(ChartColor color) {
    return Theme::chartColor(static_cast<std::size_t>(color));
}

QColor faded(QColor color, double share) {
    color.setAlphaF(static_cast<float>(color.alphaF() * share));
    return color;
}

QColor paled(const QColor& color, double share) {
    const QColor ground = Theme::color(ThemeColor::surface);
    const auto mixed = [share](int over, int under) {
        return static_cast<int>(std::lround(over * share + under * (1 - share)));
    };
    return {mixed(color.red(), ground.red()), mixed(color.green(), ground.green()),
            mixed(color.blue(), ground.blue())};
}

QColor bandColor() {
    constexpr double share = 0.06;
    return faded(Theme::color(ThemeColor::text), share);
}

ChartRoom chartRoom(const QSizeF& size, TextStyle style) {
    const QFont font = Theme::font(style);
    return {.width = size.width(),
            .height = size.height(),
            .textHeight = QFontMetricsF(font).height(),
            .textWidth = [font](const std::string& text) { return figureWidth(font, qt(text)); }};
}

void drawChartText(QPainter& painter, const QRectF& rect, const QString& text) {
    if (figureWidth(painter.font(), text) <= rect.width() + 0.5) {
        drawFigures(painter, rect, text, Qt::AlignLeft);
        return;
    }
    const QFontMetricsF metrics(painter.font());
    painter.drawText(rect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     metrics.elidedText(text, Qt::ElideRight, rect.width()));
}

void drawChartTextOverLines(QPainter& painter, const QRectF& rect, const QString& text) {
    constexpr double seam = 3;
    painter.save();
    const QFontMetricsF metrics(painter.font());
    QPainterPath outline;
    outline.addText(rect.left(), rect.center().y() + (metrics.ascent() - metrics.descent()) / 2,
                    painter.font(), text);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.strokePath(outline, QPen(Theme::color(ThemeColor::surface), 2 * seam, Qt::SolidLine,
                                     Qt::RoundCap, Qt::RoundJoin));
    painter.restore();
    drawChartText(painter, rect, text);
}

QPainterPath linePath(const std::vector<ChartSpot>& run) {
    QPainterPath path(qt(run.front()));
    for (const ChartSpot& spot : run) {
        path.lineTo(qt(spot));
    }
    return path;
}

QPainterPath barPath(const QRectF& rect, Qt::Edge end, double radius) {
    const bool isUpright = end == Qt::TopEdge || end == Qt::BottomEdge;
    const double length = isUpright ? rect.height() : rect.width();
    const double across = isUpright ? rect.width() : rect.height();
    const double held = std::min({radius, length, across / 2});
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.addRoundedRect(rect, held, held);
    // The other end stands square on its line.
    QRectF foot = rect;
    switch (end) {
    case Qt::TopEdge:
        foot.setTop(rect.bottom() - (length - held));
        break;
    case Qt::BottomEdge:
        foot.setBottom(rect.top() + (length - held));
        break;
    case Qt::LeftEdge:
        foot.setLeft(rect.right() - (length - held));
        break;
    case Qt::RightEdge:
        foot.setRight(rect.left() + (length - held));
        break;
    }
    path.addRect(foot);
    return path;
}

void drawFocusRing(QPainter& painter, const QRectF& around) {
    constexpr double width = 1.5;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Theme::color(ThemeColor::accent), width));
    const QRectF ring = around.adjusted(width / 2, width / 2, -width / 2, -width / 2);
    painter.drawRoundedRect(ring, Theme::cornerRadius - 2, Theme::cornerRadius - 2);
    painter.restore();
}

void showWholeName(const QPoint& globalSpot, const std::string& name, double width,
                   const QFont& font) {
    if (figureWidth(font, qt(name)) > width + 0.5) {
        QToolTip::showText(globalSpot, plainToolTip(qt(name)));
    } else {
        QToolTip::hideText();
    }
}

} // namespace oakfen
