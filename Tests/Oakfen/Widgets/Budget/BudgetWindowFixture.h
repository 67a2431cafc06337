#pragma once

#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>

#include "Oakfen/Widgets/Budget/BudgetField.h"
#include "Oakfen/Widgets/Budget/BudgetTableWidget.h"
#include "Oakfen/Widgets/Budget/BudgetWidget.h"
#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "OakfenCore/LibraryOperations/Categories.h"
#include "OakfenCore/LibraryOperations/Transactions.h"
#include "Tests/Oakfen/Widgets/WindowFixture.h"

namespace oakfen::testing {

/// The window on the budget. It is March 15th; Food is planned at 100 with 40 spent of it, Rent at
/// 900 with nothing spent, Travel has 25 spent and no plan, and Pay is planned at 2000.
class BudgetWindow : public WindowTest {
protected:
    BudgetWindow() {
        QApplication::setActiveWindow(window.get());
        everyday = addAccount("Everyday");
        test->store->mutate("Set Up", [this](Library& library) {
            for (const Category& each : {food, rent, travel, pay}) {
                upsert(library, each);
            }
            library.budget = {
                {food.id, amount("100")}, {rent.id, amount("900")}, {pay.id, amount("2000")}};
        });
        enter(food, day(2026, 3, 2), "-40");
        enter(travel, day(2026, 3, 3), "-25");
        test->undoManager->removeAllActions();
        select(SidebarItem{SidebarItem::Kind::budget});
        screen = shown<BudgetWidget>();
    }

    void enter(const Category& category, Date date, std::string_view amountText) {
        Transaction entry = makeTransaction(everyday.id, date, "Somebody", amountText);
        entry.categoryID = category.id;
        test->store->mutate("New Transaction", [&](Library& library) { upsert(library, entry); });
        settle();
    }
    [[nodiscard]] std::optional<Decimal> planned(const Category& category) const {
        const auto found = test->library().budget.find(category.id);
        return found == test->library().budget.end() ? std::nullopt : std::optional(found->second);
    }

    [[nodiscard]] LedgerTable* table() const { return screen->spending()->table(); }
    [[nodiscard]] BudgetField* field() const { return screen->spending()->field(); }
    /// The name of the category whose amount is edited; empty while none is.
    [[nodiscard]] std::string edited() const {
        for (const BudgetTableWidget* each : {screen->spending(), screen->income()}) {
            if (each->editedID() && each->field()->isVisible()) {
                return test->index().category(*each->editedID())->name;
            }
        }
        return {};
    }
    [[nodiscard]] static int column(std::string_view id) {
        int place = 0;
        while (budgetColumns()[static_cast<std::size_t>(place)].head.id != id) {
            ++place;
        }
        return place;
    }
    void clickCell(int row, std::string_view id) const {
        const QRect place = table()->visualRect(table()->model()->index(row, column(id)));
        QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, place.center());
        settle();
    }
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        settle();
    }
    static void type(const QString& text) {
        QTest::keyClicks(QApplication::focusWidget(), text);
        settle();
    }

    Account everyday;
    Category food = makeCategory("Food");
    Category rent = makeCategory("Rent");
    Category travel = makeCategory("Travel");
    Category pay = makeCategory("Pay", CategoryKind::income);
    BudgetWidget* screen = nullptr;
};

} // namespace oakfen::testing
