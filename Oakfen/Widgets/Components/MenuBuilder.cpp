#include "Oakfen/Widgets/Components/MenuBuilder.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMenu>
#include <algorithm>

#include "Oakfen/Views/Components/Components.h"
#include "Oakfen/Widgets/Components/CommandMenu.h"
#include "Oakfen/Widgets/Components/Mnemonics.h"
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

QKeySequence keysOf(const MenuEntry& entry) {
    return {qt(entry.shortcut), QKeySequence::PortableText};
}

/// Lets the line do what the entry does, and nothing that it did before.
void setAction(QAction& action, const MenuEntry& entry) {
    QObject::disconnect(&action, &QAction::triggered, &action, nullptr);
    if (entry.perform) {
        QObject::connect(&action, &QAction::triggered, &action, entry.perform);
    } else if (entry.standard != MenuEntry::Standard::none) {
        QObject::connect(&action, &QAction::triggered, &action,
                         [keys = keysOf(entry)] { sendToFocus(keys); });
    }
}

void showEntry(QAction& action, const MenuEntry& entry) {
    action.setEnabled(entry.canBeChosen());
    if (action.menu() != nullptr) {
        refreshMenu(*action.menu(), entry.children);
        return;
    }
    if (entry.isChecked) {
        action.setChecked(*entry.isChecked);
    }
    setAction(action, entry);
}

void addEntry(QMenu& menu, const MenuEntry& entry) {
    if (!entry.children.empty()) {
        showEntry(*menu.addMenu(QString())->menuAction(), entry);
        return;
    }
    QAction* action = menu.addAction(QString());
    action->setShortcut(keysOf(entry));
    if (entry.standard != MenuEntry::Standard::none || entry.leavesKeyToFocus) {
        // Shown, but left to what has the focus.
        action->setShortcutContext(Qt::WidgetShortcut);
    }
    action->setData(qt(entry.symbolName));
    CommandMenu::setDestructive(*action, entry.isDestructive);
    if (!entry.symbolName.empty()) {
        action->setIcon(symbolIcon(entry.symbolName, entry.isDestructive
                                                         ? ThemeColor::negative
                                                         : ThemeColor::secondaryText));
        action->setIconVisibleInMenu(true);
    }
    action->setCheckable(entry.isChecked.has_value());
    showEntry(*action, entry);
}

/// Whether the line was made for such an entry, whatever that is called and does now.
bool fits(const QAction& action, const MenuEntry& entry) {
    if (action.menu() != nullptr || !entry.children.empty()) {
        return action.menu() != nullptr && !entry.children.empty();
    }
    return action.shortcut() == keysOf(entry) && action.data().toString() == qt(entry.symbolName) &&
           action.isCheckable() == entry.isChecked.has_value();
}

/// Whether the menu's lines and dividers were made for such entries.
bool fits(const QMenu& menu, const std::vector<MenuEntry>& entries) {
    auto entry = entries.begin();
    bool startsGroup = false;
    for (const QAction* action : menu.actions()) {
        if (action->isSeparator()) {
            startsGroup = true;
        } else if (entry == entries.end() || entry->startsGroup != startsGroup ||
                   !fits(*action, *entry)) {
            return false;
        } else {
            startsGroup = false;
            ++entry;
        }
    }
    return entry == entries.end();
}

QStringList titlesOf(const std::vector<MenuEntry>& entries) {
    QStringList titles;
    for (const MenuEntry& entry : entries) {
        titles.append(qt(singleLine(entry.title)));
    }
    return titles;
}

/// The lines of the menu, without its dividers.
QList<QAction*> linesOf(const QMenu& menu) {
    QList<QAction*> lines = menu.actions();
    lines.removeIf([](const QAction* line) { return line->isSeparator(); });
    return lines;
}

void showTitles(const QMenu& menu, const std::vector<MenuEntry>& entries) {
    const QList<QAction*> lines = linesOf(menu);
    const QStringList titles = titlesOf(entries);
    const auto shows = [](const QAction* line, const QString& title) {
        return withoutMnemonic(line->text()) == title;
    };
    // A list of categories is long, and looked at again with every selection.
    if (!std::ranges::equal(lines, titles, shows)) {
        markLetters(lines, titles);
    }
}

void clearMenu(QMenu& menu) {
    for (QAction* action : menu.actions()) {
        menu.removeAction(action);
        // Later: the line may be what was just chosen.
        action->menu() != nullptr ? action->menu()->deleteLater() : action->deleteLater();
    }
}

} // namespace

void markLetters(const QList<QAction*>& lines, const QStringList& titles) {
    const QList<qsizetype> letters = mnemonicPlaces(titles);
    for (qsizetype line = 0; line < lines.size(); ++line) {
        lines[line]->setText(withMnemonic(titles[line], letters[line]));
    }
}

void fillMenu(QMenu& menu, const std::vector<MenuEntry>& entries) {
    clearMenu(menu);
    for (const MenuEntry& entry : entries) {
        if (entry.startsGroup) {
            menu.addSeparator();
        }
        addEntry(menu, entry);
    }
    showTitles(menu, entries);
}

void refreshMenu(QMenu& menu, const std::vector<MenuEntry>& entries) {
    if (!fits(menu, entries)) {
        fillMenu(menu, entries);
        return;
    }
    auto entry = entries.begin();
    for (QAction* line : linesOf(menu)) {
        showEntry(*line, *entry);
        ++entry;
    }
    showTitles(menu, entries);
}

} // namespace oakfen
