#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace oakfen {

/// Draws a bar with round ends that is filled so far, from 0 to 1.
void drawProgress(QPainter& painter, const QRectF& bar, double fill, const QColor& color);

} // namespace oakfen
