#include "Oakfen/Widgets/Charts/RingChartWidget.h"

#include <QFontMetricsF>
#include <QHelpEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "Oakfen/Widgets/Charts/ChartPainting.h"
#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

constexpr int leastWidth = 150;
constexpr int legendWidth = 200;
/// Between two sectors.
constexpr double gap = 2;
constexpr double sectorRadius = 3;
/// How much is left of the other sectors while one is set off.
constexpr double asideShare = 0.45;

/// A point at an angle in turns from the top.
QPointF around(const QPointF& center, double radius, double turn) {
    const double angle = turn * 2 * std::numbers::pi;
    return center + QPointF(std::sin(angle) * radius, -std::cos(angle) * radius);
}

/// What the toolkit's arcs count in: degrees, against the clock, from the right.
double degrees(double turn) {
    return 90 - turn * 360;
}

QRectF circle(const QPointF& center, double radius) {
    return {center.x() - radius, center.y() - radius, 2 * radius, 2 * radius};
}

/// A sector of the ring, smaller by `inset` on all sides and by half of the gap beside it.
QPainterPath sectorPath(const QRectF& ring, const RingLayout::Sector& sector, double inset) {
    const QPointF center = ring.center();
    const double outer = ring.width() / 2 - inset;
    const double inner = ring.width() / 2 * RingLayout::hole + inset;
    QPainterPath path;
    if (sector.sweep >= 1) {
        path.addEllipse(center, outer, outer);
        path.addEllipse(center, inner, inner);
        return path;
    }
    // What is left out at a side, as an angle; a sector that is too thin keeps its middle.
    const auto aside = [&sector, inset](double radius) {
        return std::min((gap / 2 + inset) / radius / (2 * std::numbers::pi), sector.sweep * 0.45);
    };
    const double end = sector.start + sector.sweep;
    const double outerStart = sector.start + aside(outer);
    const double outerEnd = end - aside(outer);
    const double innerStart = sector.start + aside(inner);
    const double innerEnd = end - aside(inner);
    path.moveTo(around(center, inner, innerStart));
    path.lineTo(around(center, outer, outerStart));
    path.arcTo(circle(center, outer), degrees(outerStart), (outerStart - outerEnd) * 360);
    path.lineTo(around(center, inner, innerEnd));
    path.arcTo(circle(center, inner), degrees(innerEnd), (innerEnd - innerStart) * 360);
    path.closeSubpath();
    return path;
}

/// Fills a sector with its corners rounded: a smaller one, and a round seam around it.
void fillSector(QPainter& painter, const QRectF& ring, const RingLayout::Sector& sector,
                const QColor& color) {
    const double length = sector.sweep * std::numbers::pi * ring.width() * RingLayout::hole;
    const double radius = std::min(sectorRadius, (length - gap) / 3);
    if (radius < 0.5 || sector.sweep >= 1) {
        painter.fillPath(sectorPath(ring, sector, 0), color);
        return;
    }
    const QPainterPath core = sectorPath(ring, sector, radius);
    const QPainterPathStroker stroker(
        QPen(color, 2 * radius, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    // As one shape, so that a faded colour isn't laid over itself.
    painter.fillPath(core.united(stroker.createStroke(core)), color);
}

} // namespace

RingChartWidget::RingChartWidget(int diameter, QWidget* parent)
    : ChartWidget(parent), diameter_(diameter) {
    setPlacesGoDown();
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    layOutAgain();
}

void RingChartWidget::setChart(RingChart chart) {
    if (chart == chart_) {
        return;
    }
    chart_ = std::move(chart);
    setTable(chartTable(chart_));
    updateGeometry();
}

void RingChartWidget::layOutAgain() {
    layout_ = layOut(chart_, chartRoom(size(), TextStyle::body), diameter_);
}

int RingChartWidget::heightForWidth(int width) const {
    const ChartRoom room = chartRoom(QSizeF(width, diameter_), TextStyle::body);
    return static_cast<int>(std::ceil(layOut(chart_, room, diameter_).neededHeight));
}

QSize RingChartWidget::sizeHint() const {
    const int width = diameter_ + legendWidth;
    return {width, heightForWidth(width)};
}

QSize RingChartWidget::minimumSizeHint() const {
    return {leastWidth, diameter_};
}

QRectF RingChartWidget::placeOf(const ChartPoint& point) const {
    if (point.place >= layout_.sectors.size()) {
        return {};
    }
    const QRectF sector =
        sectorPath(qt(layout_.ring), layout_.sectors[point.place], 0).boundingRect();
    return layout_.sectors[point.place].sweep > 0 ? sector : qt(layout_.rows[point.place].whole);
}

std::optional<ChartPoint> RingChartWidget::pointAt(const QPointF& spot) const {
    const auto sector = layout_.sectorAt({spot.x(), spot.y()});
    return sector ? std::optional(ChartPoint{.place = *sector}) : std::nullopt;
}

bool RingChartWidget::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const auto point = pointAt(help->pos());
        showWholeName(help->globalPos(), point ? chart_.sectors[point->place].name : std::string(),
                      point ? layout_.rows[point->place].name.width : 0,
                      Theme::font(TextStyle::body));
        return true;
    }
    return ChartWidget::event(event);
}

void RingChartWidget::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintRing(painter);
    paintMiddle(painter);
    paintLegend(painter);
}

void RingChartWidget::paintRing(QPainter& painter) const {
    const QRectF ring = qt(layout_.ring);
    const auto shown = shownPoint();
    bool isEmpty = true;
    for (std::size_t index = 0; index < layout_.sectors.size(); ++index) {
        const RingLayout::Sector& sector = layout_.sectors[index];
        if (sector.sweep > 0) {
            isEmpty = false;
            const bool isAside = shown && shown->place != index;
            fillSector(painter, ring, sector,
                       faded(seriesFill(chart_.sectors[index].color), isAside ? asideShare : 1));
        }
    }
    if (isEmpty) {
        painter.fillPath(sectorPath(ring, {.start = 0, .sweep = 1}, 0),
                         Theme::color(ThemeColor::surfaceRaised));
    }
    if (shown && showsKeyboard() && layout_.sectors[shown->place].sweep > 0) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(Theme::color(ThemeColor::text), 1.5));
        painter.drawPath(sectorPath(ring, layout_.sectors[shown->place], 1));
    }
}

void RingChartWidget::paintMiddle(QPainter& painter) const {
    const auto shown = shownPoint();
    const RingSector* sector = shown ? &chart_.sectors[shown->place] : nullptr;
    const QString figure = qt(sector != nullptr ? sector->value.text : chart_.figure);
    const QString caption = qt(sector != nullptr ? sector->name : chart_.caption);
    const QRectF ring = qt(layout_.ring);
    const double hole = ring.width() * RingLayout::hole;
    // Two lines stand a little above the middle, where the hole is still wide.
    QFont font = Theme::font(TextStyle::bodyStrong);
    const double room = hole * 0.92;
    const double width = figureWidth(font, figure);
    if (width > room) {
        // The figure is told whole, if smaller.
        font.setPointSizeF(font.pointSizeF() * room / width);
    }
    const QFont small = Theme::font(TextStyle::caption);
    const double above = QFontMetricsF(font).height();
    const double below = QFontMetricsF(small).height();
    const double top = ring.center().y() - (above + below) / 2;
    const auto centered = [&ring](double y, double textWidth, double height) {
        return QRectF(ring.center().x() - textWidth / 2, y, textWidth, height);
    };
    painter.setFont(font);
    painter.setPen(Theme::color(ThemeColor::text));
    drawFigures(painter, centered(top, std::min(width, room), above), figure, Qt::AlignLeft);
    painter.setFont(small);
    painter.setPen(Theme::color(ThemeColor::secondaryText));
    const double captionRoom = hole * 0.8;
    const QString fitting = QFontMetricsF(small).elidedText(caption, Qt::ElideRight, captionRoom);
    painter.drawText(centered(top + above, captionRoom, below),
                     Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextSingleLine, fitting);
}

void RingChartWidget::paintLegend(QPainter& painter) const {
    const auto shown = shownPoint();
    painter.setFont(Theme::font(TextStyle::body));
    for (std::size_t index = 0; index < layout_.rows.size(); ++index) {
        const RingSector& sector = chart_.sectors[index];
        const RingLayout::Row& row = layout_.rows[index];
        if (shown && shown->place == index) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(bandColor());
            const QRectF ground = qt(row.whole).adjusted(-6, 0, 0, 0).intersected(QRectF(rect()));
            painter.drawRoundedRect(ground, 4, 4);
            if (showsKeyboard() && layout_.sectors[index].sweep <= 0) {
                drawFocusRing(painter, ground);
            }
        }
        painter.setPen(Qt::NoPen);
        painter.setBrush(seriesFill(sector.color));
        painter.drawEllipse(qt(row.dot));
        painter.setPen(Theme::color(ThemeColor::text));
        drawChartText(painter, qt(row.name), qt(sector.name));
        drawFigures(painter, qt(row.figure), qt(sector.value.text));
        painter.setPen(Theme::color(ThemeColor::secondaryText));
        drawFigures(painter, qt(row.share), qt(sector.share));
    }
}

} // namespace oakfen
