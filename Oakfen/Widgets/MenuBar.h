#pragma once

#include <QObject>
#include <vector>

#include "Oakfen/AppCommands.h"
#include "OakfenCore/Support/Observers.h"

class QAction;
class QMenuBar;

namespace oakfen {

/// Draws the table of commands as a menu bar and keeps titles and enablement in step.
class MenuBar final : public QObject {
    Q_OBJECT

public:
    MenuBar(AppEnvironment& environment, History& undoManager, WindowActions window, QMenuBar& bar);

    void refresh();

private:
    void build(QMenuBar& bar);
    void watch(History& undoManager);

    AppEnvironment& environment_;
    std::vector<AppCommand> commands_;
    /// Beside each command.
    std::vector<QAction*> actions_;
    std::vector<Subscription> subscriptions_;
};

} // namespace oakfen
