#pragma once

#include <QCoreApplication>

namespace oakfen::testing {

/// Lets what was put off happen.
inline void settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

} // namespace oakfen::testing
