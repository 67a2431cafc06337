#include "Oakfen/Widgets/Components/MenuBuilder.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMenu>

#include "Oakfen/Views/Components/Components.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/SymbolIcons.h"
#include "Oakfen/Widgets/Theme/Theme.h"

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

void addEntry(QMenu& menu, const MenuEntry& entry) {
    if (!entry.children.empty()) {
        QMenu* submenu = menu.addMenu(menuText(entry.title));
        submenu->menuAction()->setEnabled(entry.canBeChosen());
        fillMenu(*submenu, entry.children);
        return;
    }
    QAction* action = menu.addAction(menuText(entry.title));
    action->setEnabled(entry.canBeChosen());
    const QKeySequence keys(qt(entry.shortcut), QKeySequence::PortableText);
    action->setShortcut(keys);
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
    } else if (entry.standard != MenuEntry::Standard::none) {
        // Shown, but left to the field that has the focus.
        action->setShortcutContext(Qt::WidgetShortcut);
        QObject::connect(action, &QAction::triggered, action, [keys] { sendToFocus(keys); });
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

void refreshMenu(QMenu& menu, const std::vector<MenuEntry>& entries) {
    auto entry = entries.begin();
    for (QAction* action : menu.actions()) {
        if (action->isSeparator()) {
            continue;
        }
        action->setText(menuText(entry->title));
        action->setEnabled(entry->canBeChosen());
        if (entry->isChecked) {
            action->setChecked(*entry->isChecked);
        }
        if (action->menu() != nullptr) {
            refreshMenu(*action->menu(), entry->children);
        }
        ++entry;
    }
}

} // namespace oakfen
