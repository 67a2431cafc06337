#include "Oakfen/Widgets/Bills/LineKey.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "Oakfen/Widgets/Components/Figures.h"

namespace oakfen {

namespace {

constexpr int sampleWidth = 20;
/// The figures end where the amounts beneath them do, before the buttons there.
constexpr int endGap = 26;

} // namespace

LineKey::LineKey(const QString& title, std::size_t color, bool isDashed, QWidget* parent)
    : QWidget(parent), title_(title), color_(color), isDashed_(isDashed) {
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void LineKey::showLowest(const QString& figure) {
    lowest_ = figure;
    setAccessibleName(figure.isEmpty() ? title_ : tr("%1, lowest %2").arg(title_, figure));
    update();
}

QSize LineKey::sizeHint() const {
    constexpr int leastHeight = 24;
    return {200, std::max(leastHeight, QFontMetrics(Theme::font(TextStyle::caption)).height() + 4)};
}

void LineKey::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPen pen(Theme::chartColor(color_), 2);
    pen.setCapStyle(Qt::FlatCap);
    if (isDashed_) {
        pen.setDashPattern({3, 1.5});
    }
    painter.setPen(pen);
    painter.drawLine(QPointF(0, height() / 2.0), QPointF(sampleWidth, height() / 2.0));

    painter.setFont(Theme::font(TextStyle::caption));
    painter.setPen(Theme::color(ThemeColor::text));
    const int left = sampleWidth + Theme::grid;
    painter.drawText(QRect(left, 0, width() - left, height()), Qt::AlignLeft | Qt::AlignVCenter,
                     title_);
    if (lowest_.isEmpty()) {
        return;
    }
    drawFigures(painter, rect().adjusted(0, 0, -endGap, 0), lowest_);
    const int figure = static_cast<int>(std::ceil(figureWidth(painter.font(), lowest_)));
    painter.setPen(Theme::color(ThemeColor::secondaryText));
    painter.drawText(QRect(0, 0, width() - endGap - figure - (2 * Theme::grid), height()),
                     Qt::AlignRight | Qt::AlignVCenter, tr("Lowest"));
}

} // namespace oakfen
