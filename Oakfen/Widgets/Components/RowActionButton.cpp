#include "Oakfen/Widgets/Components/RowActionButton.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleHints>
#include <limits>
#include <optional>

#include "Oakfen/Widgets/Components/Mnemonics.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

/// Where on the screen and when a button of any row was clicked.
struct Click {
    QPoint place;
    quint64 time = 0;
};

std::optional<Click>& lastClick() {
    static std::optional<Click> last;
    return last;
}

/// Whether that press follows the last click as closely as in a double click. The toolkit doesn't
/// call the third of three quick presses so.
bool followsAClick(const QMouseEvent& press) {
    const std::optional<Click>& last = lastClick();
    if (!last || press.timestamp() < last->time) {
        return false;
    }
    const QPoint moved = press.globalPosition().toPoint() - last->place;
    return press.timestamp() - last->time <
               static_cast<quint64>(QApplication::doubleClickInterval()) &&
           moved.manhattanLength() <= QGuiApplication::styleHints()->mouseDoubleClickDistance();
}

} // namespace

RowActionButton::RowActionButton(const QString& title, const QString& help, QWidget* parent)
    : QPushButton(title, parent) {
    setFont(Theme::font(TextStyle::caption));
    Theme::setTrait(*this, "small");
    setAutoDefault(false);
    setAccessibleName(title);
    setToolTip(help);
    leaveWithoutLetter(*this);
}

void RowActionButton::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && followsAClick(*event)) {
        event->accept();
    } else {
        QPushButton::mousePressEvent(event);
    }
}

void RowActionButton::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && isDown()) {
        lastClick() = {event->globalPosition().toPoint(), event->timestamp()};
    }
    QPushButton::mouseReleaseEvent(event);
}

void RowActionButton::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        event->accept();
    } else {
        QPushButton::mouseDoubleClickEvent(event);
    }
}

void RowActionButton::keyPressEvent(QKeyEvent* event) {
    const bool isDown = event->key() == Qt::Key_Down;
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (!isPlain || (!isDown && event->key() != Qt::Key_Up)) {
        QPushButton::keyPressEvent(event);
        return;
    }
    if (RowActionButton* next = neighbour(isDown)) {
        next->setFocus(isDown ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    }
}

RowActionButton* RowActionButton::neighbour(bool below) const {
    const auto heightOf = [](const RowActionButton& each) {
        return each.mapTo(each.window(), QPoint()).y();
    };
    const int here = heightOf(*this);
    RowActionButton* nearest = nullptr;
    int least = std::numeric_limits<int>::max();
    for (RowActionButton* each : window()->findChildren<RowActionButton*>()) {
        if (each->isVisible() && each->text() == text()) {
            const int distance = (heightOf(*each) - here) * (below ? 1 : -1);
            if (distance > 0 && distance < least) {
                nearest = each;
                least = distance;
            }
        }
    }
    return nearest;
}

} // namespace oakfen
