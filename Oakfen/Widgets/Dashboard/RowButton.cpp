#include "Oakfen/Widgets/Dashboard/RowButton.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>

#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

RowButton::RowButton(int height, QWidget* parent)
    : QAbstractButton(parent), line_(new QHBoxLayout(this)) {
    line_->setContentsMargins(0, 0, 0, 0);
    line_->setSpacing(Theme::grid * 3 / 2);
    setMinimumHeight(height);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    setAttribute(Qt::WA_Hover);
    setLeadsOn(true);
}

void RowButton::setLeadsOn(bool leadsOn) {
    setFocusPolicy(leadsOn ? Qt::StrongFocus : Qt::NoFocus);
    if (leadsOn) {
        setCursor(Qt::PointingHandCursor);
    } else {
        unsetCursor();
    }
    update();
}

QSize RowButton::sizeHint() const {
    return line_->sizeHint().expandedTo({0, minimumHeight()});
}

void RowButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    // A little beyond the row's texts, which stand in line with those of the card.
    const QRectF box = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const bool leadsOn = focusPolicy() != Qt::NoFocus;
    if (leadsOn && (underMouse() || isDown())) {
        QColor raised = Theme::color(ThemeColor::surfaceRaised);
        raised.setAlphaF(0.8F);
        painter.fillRect(box, raised);
    }
    if (hasFocus()) {
        painter.setPen(Theme::color(ThemeColor::accent));
        painter.drawRoundedRect(box, 4, 4);
    }
}

bool RowButton::event(QEvent* event) {
    if (event->type() == QEvent::ChildPolished) {
        if (auto* part = qobject_cast<QWidget*>(static_cast<QChildEvent*>(event)->child())) {
            part->setAttribute(Qt::WA_TransparentForMouseEvents);
        }
    }
    return QAbstractButton::event(event);
}

} // namespace oakfen
