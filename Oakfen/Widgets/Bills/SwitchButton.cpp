#include "Oakfen/Widgets/Bills/SwitchButton.h"

#include <QPainter>
#include <algorithm>

#include "Oakfen/Widgets/Components/Mnemonics.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

constexpr QSize trackSize(32, 18);
constexpr int knobInset = 2;
/// Around all, for the ring that shows where the keyboard is.
constexpr int ring = 3;

} // namespace

SwitchButton::SwitchButton(const QString& title, QWidget* parent) : QAbstractButton(parent) {
    setCheckable(true);
    setText(withMnemonic(title, -1));
    setAccessibleName(title);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize SwitchButton::sizeHint() const {
    const QFontMetrics metrics(Theme::font(TextStyle::body));
    return {metrics.horizontalAdvance(text()) + Theme::grid + trackSize.width() + (2 * ring),
            std::max(metrics.height(), trackSize.height()) + (2 * ring)};
}

void SwitchButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QRectF track(QPointF(width() - ring - trackSize.width(), 0), trackSize);
    track.moveTop((height() - track.height()) / 2.0);
    painter.setFont(Theme::font(TextStyle::body));
    painter.setPen(Theme::color(ThemeColor::text));
    painter.drawText(QRectF(ring, 0, track.left() - Theme::grid - ring, height()),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, text());

    const qreal radius = track.height() / 2;
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::color(isChecked() ? ThemeColor::accent : ThemeColor::border));
    painter.drawRoundedRect(track, radius, radius);
    const qreal knob = track.height() - (2 * knobInset);
    const qreal left = isChecked() ? track.right() - knobInset - knob : track.left() + knobInset;
    painter.setBrush(Theme::color(isChecked() ? ThemeColor::onAccent : ThemeColor::surface));
    painter.drawEllipse(QRectF(left, track.top() + knobInset, knob, knob));
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(Theme::color(ThemeColor::accent), 1));
        painter.drawRoundedRect(track.adjusted(-2, -2, 2, 2), radius + 2, radius + 2);
    }
}

} // namespace oakfen
