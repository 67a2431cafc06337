#include "Oakfen/Widgets/Shell/HistoryButtons.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

#include "Oakfen/Cover.h"
#include "Oakfen/ScreenHistory.h"

namespace oakfen {

namespace {

/// The button of a press, that of a quick second one included.
Qt::MouseButton pressedButton(const QEvent& event) {
    const bool isPress =
        event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick;
    return isPress ? static_cast<const QMouseEvent&>(event).button() : Qt::NoButton;
}

} // namespace

HistoryButtons::HistoryButtons(AppEnvironment& environment, QWidget& window)
    : QObject(&window), environment_(environment), window_(window) {
    // Wherever the pointer is: tables and fields take every button for themselves.
    qApp->installEventFilter(this);
}

bool HistoryButtons::eventFilter(QObject* watched, QEvent* event) {
    const Qt::MouseButton button = pressedButton(*event);
    if (button != Qt::BackButton && button != Qt::ForwardButton) {
        return QObject::eventFilter(watched, event);
    }
    const auto* widget = qobject_cast<QWidget*>(watched);
    if (widget == nullptr || widget->window() != &window_ || !isMainScreenFree(environment_)) {
        return QObject::eventFilter(watched, event);
    }
    ScreenHistory& history = environment_.screenHistory;
    button == Qt::BackButton ? history.goBack() : history.goForward();
    return true;
}

} // namespace oakfen
