#include "Oakfen/Widgets/Charts/PlotPainter.h"

#include <QLinearGradient>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "Oakfen/Widgets/Charts/ChartPainting.h"
#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

constexpr double lineWidth = 2;
constexpr double seamWidth = 1.5;
constexpr double pointRadius = 3;
constexpr double shownRadius = 4.5;
constexpr double markRadius = 3;
constexpr double barRadius = 3;
constexpr double paleShare = 0.55;
constexpr double gridShare = 0.6;
constexpr double areaHead = 0.18;
constexpr double areaFoot = 0.04;
/// How much lighter a bar is at its head.
constexpr int barLight = 108;

/// A hairline that falls on whole pixels.
QRectF hairline(double left, double y, double width) {
    return {left, std::round(y), width, 1};
}

} // namespace

void PlotPainter::paint(const std::optional<ChartPoint>& shown) {
    if (shown) {
        paintBand(*shown);
    }
    paintGrid();
    paintBars();
    paintAreas();
    paintLines();
    paintRule();
    if (shown) {
        paintShown(*shown);
    }
    paintMarks();
    paintLabels();
    paintLegend();
}

void PlotPainter::paintBand(const ChartPoint& shown) {
    if (layout_.bars.empty()) {
        return;
    }
    const double width = layout_.placeWidth * 0.92;
    painter_.fillRect(QRectF(layout_.centers[shown.place] - width / 2, layout_.plot.y, width,
                             layout_.plot.height),
                      bandColor());
}

void PlotPainter::paintGrid() {
    const QColor border = Theme::color(ThemeColor::border);
    for (const double y : layout_.gridLines) {
        painter_.fillRect(hairline(layout_.plot.x, y, layout_.plot.width),
                          y == layout_.zeroLine ? border : faded(border, gridShare));
    }
}

void PlotPainter::paintBars() {
    painter_.setPen(Qt::NoPen);
    for (std::size_t index = 0; index < layout_.bars.size(); ++index) {
        const QColor color = seriesFill(chart_.bars[index].color);
        for (std::size_t place = 0; place < layout_.bars[index].size(); ++place) {
            const auto& bar = layout_.bars[index][place];
            if (!bar || bar->rect.height <= 0) {
                continue;
            }
            const double share = chart_.places[place].isPale ? paleShare : 1;
            const QRectF rect = qt(bar->rect);
            QLinearGradient fill(rect.topLeft(), rect.bottomLeft());
            fill.setColorAt(0, paled(color.lighter(barLight), share));
            fill.setColorAt(1, paled(color, share));
            painter_.fillPath(
                barPath(rect, bar->isNegative ? Qt::BottomEdge : Qt::TopEdge, barRadius), fill);
        }
    }
}

double PlotPainter::baseOfArea() const {
    return layout_.bars.empty() ? layout_.plot.bottom() : layout_.y(chart_.scale, 0);
}

void PlotPainter::paintAreas() {
    for (std::size_t index = 0; index < layout_.lines.size(); ++index) {
        if (!chart_.lines[index].hasArea) {
            continue;
        }
        const QColor color = seriesFill(chart_.lines[index].series.color);
        const double base = baseOfArea();
        for (const auto& run : runsOf(layout_.lines[index])) {
            QPainterPath area = linePath(run);
            area.lineTo(run.back().x, base);
            area.lineTo(run.front().x, base);
            area.closeSubpath();
            QLinearGradient fill(0, area.boundingRect().top(), 0, base);
            fill.setColorAt(0, faded(color, areaHead));
            fill.setColorAt(1, faded(color, areaFoot));
            painter_.fillPath(area, fill);
        }
    }
}

void PlotPainter::paintLines() {
    painter_.setBrush(Qt::NoBrush);
    for (std::size_t index = 0; index < layout_.lines.size(); ++index) {
        const ChartLine& line = chart_.lines[index];
        const QColor color = seriesFill(line.series.color);
        QPen pen(color, lineWidth, Qt::SolidLine, line.isDashed ? Qt::FlatCap : Qt::RoundCap,
                 Qt::RoundJoin);
        if (line.isDashed) {
            // 6 and 3 pixels, in widths of the line.
            pen.setDashPattern({6 / lineWidth, 3 / lineWidth});
        }
        for (const auto& run : runsOf(layout_.lines[index])) {
            if (run.size() == 1) {
                paintDot(qt(run.front()), pointRadius, line.series.color);
                continue;
            }
            const QPainterPath path = linePath(run);
            if (!layout_.bars.empty()) {
                painter_.strokePath(path, QPen(Theme::color(ThemeColor::surface),
                                               lineWidth + 2 * seamWidth, Qt::SolidLine,
                                               Qt::RoundCap, Qt::RoundJoin));
            }
            painter_.strokePath(path, pen);
            const bool hasRoom = layout_.placeWidth >= 4 * pointRadius;
            for (std::size_t point = 0; line.hasPoints && hasRoom && point < run.size(); ++point) {
                paintDot(qt(run[point]), pointRadius, line.series.color);
            }
        }
    }
}

void PlotPainter::paintDot(const QPointF& center, double radius, ChartColor color) {
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(Theme::color(ThemeColor::surface));
    painter_.drawEllipse(center, radius + seamWidth, radius + seamWidth);
    painter_.setBrush(seriesFill(color));
    painter_.drawEllipse(center, radius, radius);
    painter_.setBrush(Qt::NoBrush);
}

void PlotPainter::paintRule() {
    if (!layout_.ruleLine) {
        return;
    }
    QPen pen(fillColor(TextTone::negative), 1, Qt::SolidLine, Qt::FlatCap);
    pen.setDashPattern({4, 3});
    painter_.setPen(pen);
    const double y = std::round(*layout_.ruleLine) + 0.5;
    painter_.drawLine(QPointF(layout_.plot.x, y), QPointF(layout_.plot.right(), y));
    if (!layout_.ruleLabel.text.empty()) {
        painter_.setFont(Theme::font(TextStyle::axis));
        painter_.setPen(Theme::color(ThemeColor::negative));
        drawChartTextOverLines(painter_, qt(layout_.ruleLabel.rect), qt(layout_.ruleLabel.text));
    }
}

void PlotPainter::paintShown(const ChartPoint& shown) {
    if (layout_.bars.empty()) {
        const double x = std::round(layout_.centers[shown.place]);
        painter_.fillRect(QRectF(x, layout_.plot.y, 1, layout_.plot.height),
                          faded(Theme::color(ThemeColor::secondaryText), 0.8));
    }
    if (shown.series < layout_.bars.size()) {
        if (const auto& bar = layout_.bars[shown.series][shown.place]) {
            painter_.setBrush(Qt::NoBrush);
            painter_.setPen(QPen(Theme::color(ThemeColor::text), 1));
            painter_.drawPath(barPath(qt(bar->rect).adjusted(-0.5, -0.5, 0.5, 0.5),
                                      bar->isNegative ? Qt::BottomEdge : Qt::TopEdge, barRadius)
                                  .simplified());
        }
    }
    const auto paintDotOf = [&](std::size_t line, double radius) {
        if (const auto& spot = layout_.lines[line][shown.place]) {
            paintDot(qt(*spot), radius, chart_.lines[line].series.color);
        }
    };
    for (std::size_t line = 0; line < layout_.lines.size(); ++line) {
        paintDotOf(line, layout_.bars.empty() ? shownRadius : pointRadius);
    }
    // The one that is meant lies on top.
    if (shown.series >= layout_.bars.size()) {
        const bool isOneOfSeveral = chart_.seriesCount() > 1;
        paintDotOf(shown.series - layout_.bars.size(), shownRadius + (isOneOfSeveral ? 1 : 0));
    }
}

void PlotPainter::paintMarks() {
    for (std::size_t index = 0; index < layout_.marks.size(); ++index) {
        const auto& mark = layout_.marks[index];
        if (!mark) {
            continue;
        }
        painter_.setPen(QPen(seriesFill(chart_.lines[index].series.color), lineWidth));
        painter_.setBrush(Theme::color(ThemeColor::surface));
        painter_.drawEllipse(qt(mark->spot), markRadius, markRadius);
        if (!mark->label.text.empty()) {
            painter_.setFont(Theme::font(TextStyle::axis));
            painter_.setPen(Theme::color(ThemeColor::text));
            drawChartTextOverLines(painter_, qt(mark->label.rect), qt(mark->label.text));
        }
    }
}

void PlotPainter::paintLabels() {
    painter_.setFont(Theme::font(TextStyle::axis));
    painter_.setPen(Theme::color(ThemeColor::secondaryText));
    for (const PlacedText& label : layout_.valueLabels) {
        drawFigures(painter_, qt(label.rect), qt(label.text), Qt::AlignRight);
    }
    for (const PlacedText& label : layout_.placeLabels) {
        drawChartText(painter_, qt(label.rect), qt(label.text));
    }
}

void PlotPainter::paintLegend() {
    painter_.setFont(Theme::font(TextStyle::axis));
    for (const PlotLayout::LegendEntry& entry : layout_.legend) {
        const QRectF swatch = qt(entry.swatch);
        const QColor color = seriesFill(chart_.series(entry.series).color);
        painter_.setPen(Qt::NoPen);
        if (entry.series < chart_.bars.size()) {
            painter_.setBrush(color);
            painter_.drawRoundedRect(swatch, 2, 2);
        } else {
            painter_.fillRect(QRectF(swatch.left(), swatch.center().y() - lineWidth / 2,
                                     swatch.width(), lineWidth),
                              color);
        }
        painter_.setPen(Theme::color(ThemeColor::secondaryText));
        drawChartText(painter_, qt(entry.name.rect), qt(entry.name.text));
    }
}

} // namespace oakfen
