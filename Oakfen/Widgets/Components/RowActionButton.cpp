#include "Oakfen/Widgets/Components/RowActionButton.h"

#include <QApplication>
#include <QMouseEvent>
#include <QStyleHints>
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

} // namespace oakfen
