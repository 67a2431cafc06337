#include "Oakfen/Widgets/Charts/PlotChartWidget.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

#include "Oakfen/Widgets/Charts/ChartPainting.h"
#include "Oakfen/Widgets/Charts/ChartTooltipFrame.h"
#include "Oakfen/Widgets/Charts/PlotPainter.h"

namespace oakfen {

namespace {

constexpr int leastWidth = 120;
constexpr int usualWidth = 320;

} // namespace

PlotChartWidget::PlotChartWidget(int plotHeight, QWidget* parent)
    : ChartWidget(parent), plotHeight_(plotHeight) {
    layOutAgain();
}

PlotChartWidget::~PlotChartWidget() {
    delete tooltip_;
}

void PlotChartWidget::setChart(PlotChart chart) {
    if (chart == chart_) {
        return;
    }
    chart_ = std::move(chart);
    setTable(chartTable(chart_));
    updateGeometry();
}

void PlotChartWidget::layOutAgain() {
    layout_ = layOut(chart_, chartRoom(size(), TextStyle::axis));
}

QSize PlotChartWidget::minimumSizeHint() const {
    // What stands above and below the plot doesn't depend on its height.
    constexpr double height = 1000;
    const PlotLayout layout =
        layOut(chart_, chartRoom(QSizeF(usualWidth, height), TextStyle::axis));
    return {leastWidth, plotHeight_ + static_cast<int>(std::ceil(height - layout.plot.height))};
}

QSize PlotChartWidget::sizeHint() const {
    return {usualWidth, minimumSizeHint().height()};
}

QRectF PlotChartWidget::placeOf(const ChartPoint& point) const {
    if (point.series < layout_.bars.size() && point.place < layout_.centers.size()) {
        const auto& bar = layout_.bars[point.series][point.place];
        return bar ? qt(bar->rect) : QRectF();
    }
    constexpr double reach = 6;
    const auto spot = layout_.spotOf(point);
    return spot ? QRectF(spot->x - reach, spot->y - reach, 2 * reach, 2 * reach) : QRectF();
}

std::optional<ChartPoint> PlotChartWidget::pointAt(const QPointF& spot) const {
    return layout_.pointAt({spot.x(), spot.y()});
}

void PlotChartWidget::shownPointChanged() {
    const std::optional<ChartPoint> point = shownPoint();
    if (point && isVisible()) {
        placeTooltip(*point);
    } else if (tooltip_ != nullptr) {
        tooltip_->hide();
    }
}

void PlotChartWidget::placeTooltip(const ChartPoint& point) {
    QWidget* ground = parentWidget() != nullptr ? parentWidget() : this;
    if (tooltip_ == nullptr || tooltip_->parentWidget() != ground) {
        delete tooltip_;
        tooltip_ = new ChartTooltipFrame(ground);
    }
    const ChartTooltip content = chartTooltip(chart_, point.place);
    tooltip_->setTooltip(content, layout_.plot.height);
    const QSize box = tooltip_->boxSize();
    const QPoint corner = mapTo(ground, QPoint());
    const bool fits = box.width() <= layout_.plot.width && box.height() <= layout_.plot.height;
    constexpr int rim = 8;
    const QRect all = ground->rect().adjusted(rim, rim, -rim, -rim).translated(-corner);
    const bool staysInside = fits && !content.isSingleLine();
    const ChartRect bounds =
        staysInside
            ? layout_.plot
            : ChartRect{static_cast<double>(all.x()), static_cast<double>(all.y()),
                        static_cast<double>(all.width()), static_cast<double>(all.height())};
    const ChartRect place =
        layout_.tooltipPlace(point, content.isSingleLine(), box.width(), box.height(), bounds);
    tooltip_->moveBox(corner + QPointF(place.x, place.y).toPoint());
    tooltip_->raise();
    tooltip_->show();
}

void PlotChartWidget::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    PlotPainter(painter, chart_, layout_).paint(shownPoint());
    if (showsKeyboard()) {
        constexpr double distance = 3;
        QRectF ring = qt(layout_.plot).adjusted(-distance, -distance, distance, distance);
        drawFocusRing(painter, ring.intersected(rect()));
    }
}

} // namespace oakfen
