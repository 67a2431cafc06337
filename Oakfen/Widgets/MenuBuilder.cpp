#include "Oakfen/Widgets/MenuBuilder.h"

#include <QAction>
#include <QMenu>

#include "Oakfen/Widgets/Bridge.h"
#include "Oakfen/Widgets/Theme.h"

namespace oakfen {

void fillMenu(QMenu& menu, const std::vector<MenuEntry>& entries) {
    menu.clear();
    for (const MenuEntry& entry : entries) {
        if (entry.startsGroup) {
            menu.addSeparator();
        }
        QAction* action = menu.addAction(qt(entry.title));
        action->setEnabled(entry.isEnabled);
        if (!entry.symbolName.empty()) {
            action->setIcon(symbolIcon(entry.symbolName, ThemeColor::secondaryText));
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
}

} // namespace oakfen
