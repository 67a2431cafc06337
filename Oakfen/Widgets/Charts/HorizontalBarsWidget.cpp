#include "Oakfen/Widgets/Charts/HorizontalBarsWidget.h"

#include <QFontMetrics>
#include <QHelpEvent>
#include <QPainter>
#include <utility>

#include "Oakfen/Widgets/Charts/ChartPainting.h"
#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

constexpr int leastWidth = 160;
constexpr int usualWidth = 480;
constexpr int usualRow = 24;
constexpr double barRadius = 3;

} // namespace

HorizontalBarsWidget::HorizontalBarsWidget(QWidget* parent) : ChartWidget(parent) {
    setPlacesGoDown();
}

void HorizontalBarsWidget::setChart(HorizontalBarChart chart) {
    if (chart == chart_) {
        return;
    }
    chart_ = std::move(chart);
    setTable(chartTable(chart_));
    updateGeometry();
}

void HorizontalBarsWidget::layOutAgain() {
    layout_ = layOut(chart_, chartRoom(size(), TextStyle::caption));
}

QSize HorizontalBarsWidget::sizeHint() const {
    return {usualWidth, static_cast<int>(chart_.bars.size()) * usualRow};
}

QSize HorizontalBarsWidget::minimumSizeHint() const {
    const int row = QFontMetrics(Theme::font(TextStyle::caption)).height();
    return {leastWidth, static_cast<int>(chart_.bars.size()) * row};
}

QRectF HorizontalBarsWidget::placeOf(const ChartPoint& point) const {
    return point.place < layout_.rows.size() ? qt(layout_.rows[point.place].whole) : QRectF();
}

std::optional<ChartPoint> HorizontalBarsWidget::pointAt(const QPointF& spot) const {
    const auto bar = layout_.barAt({spot.x(), spot.y()});
    return bar ? std::optional(ChartPoint{.place = *bar}) : std::nullopt;
}

bool HorizontalBarsWidget::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const auto point = pointAt(help->pos());
        showWholeName(help->globalPos(), point ? chart_.bars[point->place].name : std::string(),
                      point ? layout_.rows[point->place].name.width : 0,
                      Theme::font(TextStyle::caption));
        return true;
    }
    return ChartWidget::event(event);
}

void HorizontalBarsWidget::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(Theme::font(TextStyle::caption));
    for (std::size_t index = 0; index < layout_.rows.size(); ++index) {
        paintBar(painter, index);
    }
}

void HorizontalBarsWidget::paintBar(QPainter& painter, std::size_t index) const {
    const HorizontalBarChart::Bar& bar = chart_.bars[index];
    const HorizontalBarsLayout::Row& row = layout_.rows[index];
    const auto shown = shownPoint();
    if (shown && shown->place == index) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(bandColor());
        painter.drawRoundedRect(qt(row.whole), 4, 4);
        if (showsKeyboard()) {
            drawFocusRing(painter, qt(row.whole));
        }
    }
    painter.setPen(Theme::color(ThemeColor::text));
    drawChartText(painter, qt(row.name), qt(bar.name));
    if (row.bar.width > 0) {
        const Qt::Edge end = bar.value.value.value_or(0) < 0 ? Qt::LeftEdge : Qt::RightEdge;
        painter.fillPath(barPath(qt(row.bar), end, barRadius), seriesFill(chart_.color));
    }
    painter.setPen(Theme::color(ThemeColor::secondaryText));
    drawFigures(painter, qt(row.figure), qt(bar.value.text), Qt::AlignLeft);
}

} // namespace oakfen
