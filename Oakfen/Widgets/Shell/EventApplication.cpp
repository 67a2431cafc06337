#include "Oakfen/Widgets/Shell/EventApplication.h"

#include <QThread>
#include <optional>

namespace oakfen {

namespace {

EventApplication* shared() {
    return dynamic_cast<EventApplication*>(QCoreApplication::instance());
}

} // namespace

void EventApplication::setHistory(History* history) {
    if (EventApplication* application = shared()) {
        application->history_ = history;
    }
}

History* EventApplication::history() {
    const EventApplication* application = shared();
    return application != nullptr ? application->history_ : nullptr;
}

bool EventApplication::notify(QObject* receiver, QEvent* event) {
    // Events that come of this one are delivered within it, and so belong to it. The toolkit has
    // threads of its own, whose events are nobody's.
    std::optional<UserEvent> userEvent;
    if (QThread::currentThread() == thread() && history_ != nullptr) {
        userEvent.emplace(*history_);
    }
    return QApplication::notify(receiver, event);
}

} // namespace oakfen
