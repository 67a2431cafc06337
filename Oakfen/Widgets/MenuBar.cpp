#include "Oakfen/Widgets/MenuBar.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <map>
#include <utility>

#include "Oakfen/Widgets/Bridge.h"
#include "Oakfen/Widgets/MenuBuilder.h"

namespace oakfen {

namespace {

/// Types the shortcut into the field or table that has the focus, which knows what to do.
void sendToFocus(const QKeySequence& keys) {
    QWidget* focus = QApplication::focusWidget();
    if (focus == nullptr || keys.isEmpty()) {
        return;
    }
    const QKeyCombination combination = keys[0];
    QKeyEvent press(QEvent::KeyPress, combination.key(), combination.keyboardModifiers());
    QApplication::sendEvent(focus, &press);
}

} // namespace

MenuBar::MenuBar(AppEnvironment& environment, History& undoManager, WindowActions window,
                 QMenuBar& bar)
    : QObject(&bar), environment_(environment),
      commands_(makeAppCommands(environment, undoManager, window)) {
    build(bar);
    watch(undoManager);
    refresh();
}

void MenuBar::build(QMenuBar& bar) {
    std::map<std::string, QMenu*> menus;
    std::map<std::string, QMenu*> submenus;
    for (const AppCommand& command : commands_) {
        QMenu*& menu = menus[command.menu];
        if (menu == nullptr) {
            menu = bar.addMenu(QLatin1Char('&') + qt(command.menu));
            connect(menu, &QMenu::aboutToShow, this, &MenuBar::refresh);
        }
        if (command.startsGroup) {
            menu->addSeparator();
        }
        QMenu* parent = menu;
        if (!command.submenu.empty()) {
            QMenu*& submenu = submenus[command.menu + "/" + command.submenu];
            if (submenu == nullptr) {
                submenu = menu->addMenu(qt(command.submenu));
            }
            parent = submenu;
        }
        QAction* action = parent->addAction(menuText(command.title()));
        const QKeySequence keys(qt(command.shortcut), QKeySequence::PortableText);
        action->setShortcut(keys);
        if (command.perform) {
            connect(action, &QAction::triggered, this, command.perform);
        } else if (command.standard != AppCommand::Standard::none) {
            // Shown, but left to the field that has the focus.
            action->setShortcutContext(Qt::WidgetShortcut);
            connect(action, &QAction::triggered, this, [keys] { sendToFocus(keys); });
        }
        actions_.push_back(action);
    }
}

void MenuBar::watch(History& undoManager) {
    const auto refreshed = [this] { refresh(); };
    AppState& state = environment_.appState;
    for (Observers<>* observers :
         {&environment_.store.libraryChanged, &environment_.store.statusChanged,
          &state.selectionChanged, &state.sheetChanged, &state.lockChanged, &undoManager.changes}) {
        subscriptions_.push_back(observers->observe(refreshed));
    }
    subscriptions_.push_back(
        environment_.defaults.observe(settings::requireAuthentication, refreshed));
}

void MenuBar::refresh() {
    for (std::size_t index = 0; index < commands_.size(); ++index) {
        actions_[index]->setText(menuText(commands_[index].title()));
        actions_[index]->setEnabled(commands_[index].isEnabled());
    }
}

} // namespace oakfen
