#pragma once

#include <QApplication>

#include "OakfenCore/LibraryStore/History.h"

namespace oakfen {

/// The toolkit's application, in which user events begin: whatever one key, click, drop or request
/// of a screen reader brings, through a menu, a button or a sheet, is taken back in one step.
class EventApplication final : public QApplication {
public:
    using QApplication::QApplication;

    /// Whose steps the events make, from the next event on; none for nobody's. It must stay until
    /// another is set. Does nothing in a program with another application object.
    static void setHistory(History* history);
    [[nodiscard]] static History* history();

    bool notify(QObject* receiver, QEvent* event) override;

private:
    History* history_ = nullptr;
};

} // namespace oakfen
