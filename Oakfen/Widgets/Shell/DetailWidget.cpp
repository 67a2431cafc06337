#include "Oakfen/Widgets/Shell/DetailWidget.h"

#include <QApplication>

#include "Oakfen/Widgets/Bills/BillsWidget.h"
#include "Oakfen/Widgets/Budget/BudgetWidget.h"
#include "Oakfen/Widgets/Categories/CategoriesWidget.h"
#include "Oakfen/Widgets/Components/EmptyStateWidget.h"
#include "Oakfen/Widgets/Components/Panes.h"
#include "Oakfen/Widgets/Dashboard/DashboardWidget.h"
#include "Oakfen/Widgets/Goals/GoalsWidget.h"
#include "Oakfen/Widgets/Register/RegisterWidget.h"

namespace oakfen {

DetailWidget::DetailWidget(AppEnvironment& environment, QWidget* parent)
    : QWidget(parent), environment_(environment) {
    makePane(*this);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    refresh();
    const auto refreshed = [this] { refresh(); };
    subscriptions_.push_back(environment_.appState.selectionChanged.observe(refreshed));
    subscriptions_.push_back(environment_.store.libraryChanged.observe(refreshed));
}

void DetailWidget::refresh() {
    const DetailScreen wanted =
        detailScreen(environment_.appState.selection(), environment_.store.index());
    if (shown_ == wanted) {
        return;
    }
    shown_ = wanted;
    const bool hadFocus = screen_ != nullptr && screen_->isAncestorOf(QApplication::focusWidget());
    if (screen_ != nullptr) {
        // Later: what led away may still be running inside the old screen.
        screen_->hide();
        screen_->deleteLater();
    }
    screen_ = makeScreen(wanted);
    layout()->addWidget(screen_);
    screen_->show();
    if (hadFocus) {
        screen_->setFocus();
    }
}

void DetailWidget::focusScreen() {
    screen_->setFocus(Qt::OtherFocusReason);
}

QWidget* DetailWidget::makeScreen(const DetailScreen& screen) {
    if (!screen.item) {
        return new EmptyStateWidget(placeholder(screen), this);
    }
    using Kind = SidebarItem::Kind;
    switch (screen.item->kind) {
    case Kind::account:
        // An investment account's own screen comes later; its cash entries are shown till then.
        return new RegisterWidget(environment_, screen.item->accountID, this);
    case Kind::dashboard:
        return new DashboardWidget(environment_, this);
    case Kind::bills:
        return new BillsWidget(environment_, this);
    case Kind::budget:
        return new BudgetWidget(environment_, this);
    case Kind::goals:
        return new GoalsWidget(environment_, this);
    case Kind::categories:
        return new CategoriesWidget(environment_, this);
    default:
        return new EmptyStateWidget(placeholder(screen), this);
    }
}

} // namespace oakfen
