#pragma once

#include <QObject>
#include <vector>

#include "Oakfen/AppCommands.h"
#include "OakfenCore/Support/Values/Observers.h"

class QMenu;
class QMenuBar;

namespace oakfen {

/// Draws the application's menus as a menu bar and keeps titles and enablement in step.
class MenuBar final : public QObject {
    Q_OBJECT

public:
    MenuBar(AppEnvironment& environment, WindowActions window, QMenuBar& bar);

    void refresh();

private:
    void build();
    void watch();
    /// The letters that open the menus, while they do.
    void showLetters();

    QMenuBar& bar_;
    AppEnvironment& environment_;
    WindowActions window_;
    std::vector<QMenu*> menus_;
    std::vector<Subscription> subscriptions_;
};

} // namespace oakfen
