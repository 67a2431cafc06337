#pragma once

#include <QColor>
#include <QPainterPath>
#include <QPointF>
#include <QRectF>
#include <string>
#include <vector>

#include "Oakfen/Views/Charts/Chart.h"
#include "Oakfen/Views/Charts/ChartGeometry.h"
#include "Oakfen/Widgets/Theme/Theme.h"

class QPainter;
class QSizeF;

namespace oakfen {

[[nodiscard]] inline QRectF qt(const ChartRect& rect) {
    return {rect.x, rect.y, rect.width, rect.height};
}
[[nodiscard]] inline QPointF qt(const ChartSpot& spot) {
    return {spot.x, spot.y};
}

/// What a series is drawn in.
[[nodiscard]] QColor seriesFill(ChartColor color);

/// The colour, let through as far as the share says.
[[nodiscard]] QColor faded(QColor color, double share);

/// The colour as it looks when so much of it lies over the ground of cards, which shows nothing
/// of what lies behind.
[[nodiscard]] QColor paled(const QColor& color, double share);

/// What lies behind the value that is pointed at.
[[nodiscard]] QColor bandColor();

/// The room of a chart whose texts have that style.
[[nodiscard]] ChartRoom chartRoom(const QSizeF& size, TextStyle style);

/// One line of text in the painter's font and pen, at the left of its place and centred in its
/// height, ending in dots where it has no room.
void drawChartText(QPainter& painter, const QRectF& rect, const QString& text);

/// The same over lines, with a seam in the colour of the ground.
void drawChartTextOverLines(QPainter& painter, const QRectF& rect, const QString& text);

/// A path through the spots.
[[nodiscard]] QPainterPath linePath(const std::vector<ChartSpot>& run);

/// A rectangle with rounded corners at the end of a bar.
[[nodiscard]] QPainterPath barPath(const QRectF& rect, Qt::Edge end, double radius);

/// The frame around what has the keyboard.
void drawFocusRing(QPainter& painter, const QRectF& around);

/// Tells a name whole in a tooltip where its place was too narrow for it.
void showWholeName(const QPoint& globalSpot, const std::string& name, double width,
                   const QFont& font);

} // namespace oakfen
