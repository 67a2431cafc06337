#pragma once

#include <QPointer>

#include "Oakfen/Views/Charts/PlotLayout.h"
#include "Oakfen/Widgets/Charts/ChartWidget.h"

namespace oakfen {

class ChartTooltipFrame;

/// Draws lines and bars over days or months.
class PlotChartWidget final : public ChartWidget {
    Q_OBJECT

public:
    /// The plot itself is at least that high, without its labels.
    explicit PlotChartWidget(int plotHeight, QWidget* parent = nullptr);
    ~PlotChartWidget() override;

    /// Draws that; the same content once more changes nothing.
    void setChart(PlotChart chart);
    [[nodiscard]] const PlotChart& chart() const { return chart_; }
    [[nodiscard]] const PlotLayout& plotLayout() const { return layout_; }

    [[nodiscard]] QRectF placeOf(const ChartPoint& point) const override;
    [[nodiscard]] std::optional<ChartPoint> pointAt(const QPointF& spot) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void shownPointChanged() override;
    void layOutAgain() override;
    void paintEvent(QPaintEvent* event) override;

private:
    void placeTooltip(const ChartPoint& point);

    int plotHeight_;
    PlotChart chart_;
    PlotLayout layout_;
    /// Beside the chart, and not in it: over a low chart it reaches out of it.
    QPointer<ChartTooltipFrame> tooltip_;
};

} // namespace oakfen
