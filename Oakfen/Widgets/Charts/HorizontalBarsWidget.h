#pragma once

#include "Oakfen/Views/Charts/PartsLayout.h"
#include "Oakfen/Widgets/Charts/ChartWidget.h"

namespace oakfen {

/// Draws bars below each other, each with its name and its figure.
class HorizontalBarsWidget final : public ChartWidget {
    Q_OBJECT

public:
    explicit HorizontalBarsWidget(QWidget* parent = nullptr);

    /// Draws that; the same content once more changes nothing.
    void setChart(HorizontalBarChart chart);
    [[nodiscard]] const HorizontalBarChart& chart() const { return chart_; }
    [[nodiscard]] const HorizontalBarsLayout& barsLayout() const { return layout_; }

    [[nodiscard]] QRectF placeOf(const ChartPoint& point) const override;
    [[nodiscard]] std::optional<ChartPoint> pointAt(const QPointF& spot) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void layOutAgain() override;
    void paintEvent(QPaintEvent* event) override;

private:
    void paintBar(QPainter& painter, std::size_t index) const;

    HorizontalBarChart chart_;
    HorizontalBarsLayout layout_;
};

} // namespace oakfen
