#include "Oakfen/Widgets/MenuBuilder.h"

#include <QAction>
#include <QMenu>

#include "Oakfen/Views/Components.h"
#include "Oakfen/Widgets/Bridge.h"
#include "Oakfen/Widgets/Theme.h"

namespace oakfen {

namespace {

void addEntry(QMenu& menu, const MenuEntry& entry) {
    if (!entry.children.empty()) {
        fillMenu(*menu.addMenu(menuText(entry.title)), entry.children);
        return;
    }
    QAction* action = menu.addAction(menuText(entry.title));
    action->setEnabled(entry.isEnabled && entry.perform);
    if (!entry.symbolName.empty()) {
        action->setIcon(symbolIcon(entry.symbolName, entry.isDestructive
                                                         ? ThemeColor::negative
                                                         : ThemeColor::secondaryText));
        action->setIconVisibleInMenu(true);
    }
    if (entry.isChecked) {
        action->setCheckable(true);
        action->setChecked(*entry.isChecked);
    }
    if (entry.perform) {
        QObject::connect(action, &QAction::triggered, action, entry.perform);
    }
}

} // namespace

QString menuText(const std::string& title) {
    return qt(singleLine(title)).replace(QLatin1Char('&'), QStringLiteral("&&"));
}

void fillMenu(QMenu& menu, const std::vector<MenuEntry>& entries) {
    menu.clear();
    for (const MenuEntry& entry : entries) {
        if (entry.startsGroup) {
            menu.addSeparator();
        }
        addEntry(menu, entry);
    }
}

} // namespace oakfen
