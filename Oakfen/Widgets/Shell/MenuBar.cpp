#include "Oakfen/Widgets/Shell/MenuBar.h"

#include <QMenu>
#include <QMenuBar>
#include <utility>

#include "Oakfen/ScreenCommands.h"
#include "Oakfen/Widgets/Components/CommandMenu.h"
#include "Oakfen/Widgets/Components/MenuBuilder.h"
#include "Oakfen/Widgets/Components/Mnemonics.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/ThemeStyle.h"

namespace oakfen {

MenuBar::MenuBar(AppEnvironment& environment, WindowActions window, QMenuBar& bar)
    : QObject(&bar), bar_(bar), environment_(environment), window_(std::move(window)) {
    build();
    watch();
}

void MenuBar::build() {
    for (const MenuEntry& entry : makeMenuBar(environment_, window_)) {
        auto* menu = new CommandMenu(qt(entry.title), &bar_);
        bar_.addMenu(menu);
        fillMenu(*menu, entry.children);
        connect(menu, &QMenu::aboutToShow, this, &MenuBar::refresh);
        menus_.push_back(menu);
    }
    refresh();
}

void MenuBar::watch() {
    const auto refreshed = [this] { refresh(); };
    AppState& state = environment_.appState;
    for (Observers<>* observers :
         {&environment_.store.libraryChanged, &environment_.store.statusChanged,
          &state.selectionChanged, &state.sheetChanged, &state.lockChanged,
          &environment_.undoManager.changes, &environment_.screenCommands.changed}) {
        subscriptions_.push_back(observers->observe(refreshed));
    }
    subscriptions_.push_back(
        environment_.defaults.observe(settings::requireAuthentication, refreshed));
}

void MenuBar::refresh() {
    const std::vector<MenuEntry> entries = makeMenuBar(environment_, window_);
    for (std::size_t position = 0; position < entries.size(); ++position) {
        QMenu& menu = *menus_[position];
        refreshMenu(menu, entries[position].children);
        // Beneath a sheet, one that has nothing to offer doesn't open.
        menu.menuAction()->setEnabled(!environment_.appState.sheet() ||
                                      entries[position].canBeChosen());
    }
    showLetters();
}

void MenuBar::showLetters() {
    QList<QAction*> lines;
    QStringList titles;
    for (const QMenu* menu : menus_) {
        lines.append(menu->menuAction());
        titles.append(withoutMnemonic(menu->title()));
    }
    const bool isSheetOpen = environment_.appState.sheet().has_value();
    bar_.setProperty(ThemeStyle::leavesAlt, isSheetOpen);
    if (!isSheetOpen) {
        markLetters(lines, titles);
        return;
    }
    // All letters lead into the sheet.
    for (QAction* line : lines) {
        line->setText(withoutMnemonic(line->text()));
    }
}

} // namespace oakfen
