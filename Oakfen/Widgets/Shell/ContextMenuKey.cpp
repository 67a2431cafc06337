#include "Oakfen/Widgets/Shell/ContextMenuKey.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QWidget>

namespace oakfen {

namespace {

bool isShiftF10(const QEvent& event) {
    if (event.type() != QEvent::KeyPress) {
        return false;
    }
    const auto& press = static_cast<const QKeyEvent&>(event);
    return press.key() == Qt::Key_F10 && press.modifiers() == Qt::ShiftModifier;
}

} // namespace

ContextMenuKey::ContextMenuKey(QObject* parent) : QObject(parent) {
    qApp->installEventFilter(this);
}

bool ContextMenuKey::eventFilter(QObject* watched, QEvent* event) {
    auto* widget = qobject_cast<QWidget*>(watched);
    if (widget == nullptr || !isShiftF10(*event)) {
        return QObject::eventFilter(watched, event);
    }
    // At the text cursor, or at the current line of a list.
    const QPoint place = widget->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
    QContextMenuEvent request(QContextMenuEvent::Keyboard, place, widget->mapToGlobal(place));
    QApplication::sendEvent(widget, &request);
    return true;
}

} // namespace oakfen
