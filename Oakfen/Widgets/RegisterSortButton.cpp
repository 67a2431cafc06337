#include "Oakfen/Widgets/RegisterSortButton.h"

#include <QMenu>
#include <utility>

#include "Oakfen/Widgets/Bridge.h"
#include "Oakfen/Widgets/MenuBuilder.h"
#include "Oakfen/Widgets/Theme.h"

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
    refresh();
}

void RegisterSortButton::refresh() {
    setText(tr("Sort: %1").arg(qt(view_.columnName(view_.sort.column))));
    setAccessibleName(text());
}

void RegisterSortButton::fillMenu() {
    std::vector<MenuEntry> entries;
    const auto add = [&](std::string_view title, const RegisterSort& sort, bool startsGroup) {
        entries.push_back({.title = std::string(title),
                           .perform =
                               [this, sort] {
                                   view_.sort = sort;
                                   chosen();
                               },
                           .isChecked = view_.sort == sort,
                           .startsGroup = startsGroup});
    };
    for (const RegisterColumn column : allCases<RegisterColumn>) {
        if (RegisterView::isSortable(column)) {
            add(view_.columnName(column), {column, view_.sort.ascending}, false);
        }
    }
    add("Ascending", {view_.sort.column, true}, true);
    add("Descending", {view_.sort.column, false}, false);
    oakfen::fillMenu(*menu(), entries);
}

} // namespace oakfen
