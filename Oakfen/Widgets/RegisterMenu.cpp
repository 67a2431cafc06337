#include "Oakfen/Widgets/RegisterMenu.h"

#include <QMenu>

#include "Oakfen/Widgets/Bridge.h"
#include "Oakfen/Widgets/Theme.h"

namespace oakfen {

namespace {

/// The entries that a menu is about. All of its items share them, since they may be a hundred
/// thousand.
using SharedIDs = std::shared_ptr<const UUIDSet>;

/// A person's text as a menu's item, where a single "&" would be taken for the mark of a shortcut.
QString itemText(std::string_view text) {
    return qt(singleLine(text)).replace(QLatin1Char('&'), QLatin1String("&&"));
}

void addActionsForOne(QMenu& menu, RegisterView& view, const RegisterContextMenu& content) {
    const UUID id = *content.single;
    menu.addAction(symbolIcon("pencil"), QObject::tr("Edit"),
                   [&view, id] { view.editTransaction(id); })
        ->setEnabled(RegisterView::canEditTransaction());
    menu.addAction(symbolIcon("plus.rectangle.on.rectangle"), QObject::tr("Duplicate"),
                   [&view, id] { view.duplicate(id); });
    if (content.goToTitle) {
        menu.addAction(symbolIcon("arrow.right"), itemText(*content.goToTitle),
                       [&view, id] { view.goToTransfer(id); });
    }
    menu.addSeparator();
}

void addMarks(QMenu& menu, RegisterView& view, const SharedIDs& ids) {
    for (const ClearedState state : allCases<ClearedState>) {
        menu.addAction(symbolIcon(clearedBadge(state).symbolName), qt(title(state)),
                       [&view, state, ids] { view.markAs(state, *ids); });
    }
}

void addCategories(QMenu& menu, RegisterView& view, const SharedIDs& ids) {
    for (const CategoryKind kind : {CategoryKind::expense, CategoryKind::income}) {
        if (kind == CategoryKind::income) {
            menu.addSeparator();
        }
        for (const PickerRow& row : view.categoryChoices(kind)) {
            menu.addAction(itemText(row.title),
                           [&view, ids, id = *row.id] { view.setCategory(id, *ids); });
        }
    }
}

} // namespace

std::unique_ptr<QMenu> makeRegisterMenu(RegisterView& view, const UUIDSet& ids, QWidget* parent) {
    auto menu = std::make_unique<QMenu>(parent);
    const RegisterContextMenu content = view.contextMenu(ids);
    if (content.isEmpty) {
        return menu;
    }
    if (content.single) {
        addActionsForOne(*menu, view, content);
    }
    const auto shared = std::make_shared<const UUIDSet>(ids);
    addMarks(*menu->addMenu(QObject::tr("Mark As")), view, shared);
    addCategories(*menu->addMenu(QObject::tr("Set Category")), view, shared);
    menu->addSeparator();
    menu->addAction(symbolIcon("trash", ThemeColor::negative), QObject::tr("Delete"),
                    [&view, shared] { view.requestDelete(*shared); });
    return menu;
}

} // namespace oakfen
