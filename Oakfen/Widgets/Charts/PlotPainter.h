#pragma once

#include <QPointF>
#include <optional>

#include "Oakfen/Views/Charts/PlotLayout.h"

class QPainter;

namespace oakfen {

/// Paints a laid out chart: what lies behind first, then bars, lines, marks and labels.
class PlotPainter {
public:
    PlotPainter(QPainter& painter, const PlotChart& chart, const PlotLayout& layout)
        : painter_(painter), chart_(chart), layout_(layout) {}

    /// With the values of a place set off, if any.
    void paint(const std::optional<ChartPoint>& shown);

private:
    void paintBand(const ChartPoint& shown);
    void paintGrid();
    void paintBars();
    void paintAreas();
    void paintLines();
    void paintRule();
    void paintShown(const ChartPoint& shown);
    void paintMarks();
    void paintLabels();
    void paintLegend();
    void paintDot(const QPointF& center, double radius, ChartColor color);
    [[nodiscard]] double baseOfArea() const;

    QPainter& painter_;
    const PlotChart& chart_;
    const PlotLayout& layout_;
};

} // namespace oakfen
