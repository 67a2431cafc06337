#include "Oakfen/Widgets/Components/ProgressBar.h"

#include <QPainter>
#include <QPainterPath>

#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

void drawProgress(QPainter& painter, const QRectF& bar, double fill, const QColor& color) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal radius = bar.height() / 2;
    QPainterPath track;
    track.addRoundedRect(bar, radius, radius);
    painter.fillPath(track, Theme::color(ThemeColor::surfaceRaised));
    // The fill keeps to the rounded ends, however short it is.
    painter.setClipPath(track, Qt::IntersectClip);
    QRectF filled = bar;
    filled.setWidth(bar.width() * fill);
    QPainterPath end;
    end.addRoundedRect(filled.adjusted(-radius, 0, 0, 0), radius, radius);
    painter.fillPath(end, color);
    painter.restore();
}

} // namespace oakfen
