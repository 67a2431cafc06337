#pragma once

#include "Oakfen/Views/Charts/PartsLayout.h"
#include "Oakfen/Widgets/Charts/ChartWidget.h"

namespace oakfen {

/// Draws parts of a whole as a ring with its legend. What is pointed at, in the ring or in the
/// legend, stands out, and its figure stands in the middle.
class RingChartWidget final : public ChartWidget {
    Q_OBJECT

public:
    /// The ring is that wide where there is room for it.
    explicit RingChartWidget(int diameter, QWidget* parent = nullptr);

    /// Draws that; the same content once more changes nothing.
    void setChart(RingChart chart);
    [[nodiscard]] const RingChart& chart() const { return chart_; }
    [[nodiscard]] const RingLayout& ringLayout() const { return layout_; }

    [[nodiscard]] QRectF placeOf(const ChartPoint& point) const override;
    [[nodiscard]] std::optional<ChartPoint> pointAt(const QPointF& spot) const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void layOutAgain() override;
    void paintEvent(QPaintEvent* event) override;

private:
    void paintRing(QPainter& painter) const;
    void paintMiddle(QPainter& painter) const;
    void paintLegend(QPainter& painter) const;

    int diameter_;
    RingChart chart_;
    RingLayout layout_;
};

} // namespace oakfen
