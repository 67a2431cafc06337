#include "Oakfen/Widgets/Shell/MenuBar.h"

#include <QMenu>
#include <QMenuBar>
#include <utility>

#include "Oakfen/Widgets/Components/MenuBuilder.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

MenuBar::MenuBar(AppEnvironment& environment, WindowActions window, QMenuBar& bar)
    : QObject(&bar), environment_(environment), window_(std::move(window)) {
    build(bar);
    watch();
}

void MenuBar::build(QMenuBar& bar) {
    for (const MenuEntry& entry : makeMenuBar(environment_, window_)) {
        QMenu* menu = bar.addMenu(QLatin1Char('&') + qt(entry.title));
        fillMenu(*menu, entry.children);
        connect(menu, &QMenu::aboutToShow, this, &MenuBar::refresh);
        menus_.push_back(menu);
    }
}

void MenuBar::watch() {
    const auto refreshed = [this] { refresh(); };
    AppState& state = environment_.appState;
    for (Observers<>* observers :
         {&environment_.store.libraryChanged, &environment_.store.statusChanged,
          &state.selectionChanged, &state.sheetChanged, &state.lockChanged,
          &environment_.undoManager.changes}) {
        subscriptions_.push_back(observers->observe(refreshed));
    }
    subscriptions_.push_back(
        environment_.defaults.observe(settings::requireAuthentication, refreshed));
}

void MenuBar::refresh() {
    const std::vector<MenuEntry> entries = makeMenuBar(environment_, window_);
    for (std::size_t position = 0; position < entries.size(); ++position) {
        refreshMenu(*menus_[position], entries[position].children);
    }
}

} // namespace oakfen
