#include "Oakfen/Widgets/Register/RegisterSortButton.h"

#include <QMenu>

#include "Oakfen/Widgets/Components/MenuBuilder.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/SymbolIcons.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

RegisterSortButton::RegisterSortButton(RegisterView& view, QWidget* parent)
    : QToolButton(parent), view_(view) {
    setToolTip(tr("Choose what the transactions are sorted by"));
    setIcon(symbolIcon("chevron.down", ThemeColor::secondaryText));
    setIconSize(QSize(20, 12));
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setPopupMode(InstantPopup);
    setFocusPolicy(Qt::StrongFocus);
    setMenu(new QMenu(this));
    connect(menu(), &QMenu::aboutToShow, this, [this] { fillMenu(); });
}

void RegisterSortButton::showOrder(const RegisterContent& content) {
    const auto column = columnNamed(*content.table, content.sort.column).value_or(0);
    setText(tr("Sort: %1").arg(qt(content.table->head(column).name())));
    setAccessibleName(text());
}

void RegisterSortButton::fillMenu() {
    const auto content = view_.content();
    const TableContent& table = *content->table;
    const RegisterSort& present = content->sort;
    std::vector<MenuEntry> entries;
    const auto add = [&](std::string_view title, const RegisterSort& sort, bool startsGroup) {
        entries.push_back({.title = std::string(title),
                           .perform = [this, sort] { view_.setSort(sort); },
                           .isChecked = present == sort,
                           .startsGroup = startsGroup});
    };
    for (std::size_t column = 0; column < table.columnCount(); ++column) {
        const ColumnHead& head = table.head(column);
        if (head.isSortable) {
            add(head.name(), {head.id, present.ascending}, false);
        }
    }
    add("Ascending", {present.column, true}, true);
    add("Descending", {present.column, false}, false);
    oakfen::fillMenu(*menu(), entries);
}

} // namespace oakfen
