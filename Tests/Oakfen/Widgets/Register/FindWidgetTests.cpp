#include "Oakfen/Widgets/Register/FindWidget.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <algorithm>

#include "Oakfen/Widgets/Components/EmptyStateWidget.h"
#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Components/Mnemonics.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Tests/Oakfen/Views/Register/FindFixture.h"

namespace oakfen {
namespace {

using testing::day;

/// The search through all accounts in a window of its own.
class FindPanel : public testing::FindFixture {
protected:
    FindPanel() {
        panel.resize(1000, 600);
        panel.show();
        panel.activateWindow();
        QApplication::processEvents();
        panel.setFocus();
        QApplication::processEvents();
    }

    [[nodiscard]] LedgerTable* table() const { return panel.table(); }
    [[nodiscard]] std::string payees() const {
        const auto* model = table()->model();
        std::string result;
        for (int row = 0; row < model->rowCount(); ++row) {
            result += (row == 0 ? "" : "|") + utf8(index(row, "payee").data().toString());
        }
        return result;
    }
    [[nodiscard]] QModelIndex index(int row, std::string_view name) const {
        const auto column = columnNamed(foundColumns(), name);
        return table()->model()->index(row, static_cast<int>(column - foundColumns().data()));
    }
    [[nodiscard]] QPoint placeOf(int row, std::string_view column) const {
        return table()->visualRect(index(row, column)).center();
    }
    void type(const char* text) const { QTest::keyClicks(panel.searchField(), text); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    [[nodiscard]] UUIDSet selected() { return *panel.view().content()->selection; }

    std::string lastTerm;
    FindWidget panel{*test, lastTerm};
};

TEST_F(FindPanel, BeginsInTheSearchWithTheTermOfTheLastTimeSelected) {
    EXPECT_EQ(QApplication::focusWidget(), panel.searchField());
    type("hydro");
    EXPECT_EQ(payees(), "Hydro");
    FindWidget next(*test, lastTerm);
    next.startSearch();
    EXPECT_EQ(next.searchField()->selectedText(), QStringLiteral("hydro"));
    EXPECT_EQ(next.table()->model()->rowCount(), 1);
}

TEST_F(FindPanel, ListsWhileThePersonTypesAndSaysWhenNothingIsFound) {
    EXPECT_EQ(table()->model()->rowCount(), 7);
    type("foo");
    EXPECT_EQ(payees(), "Market|Shop");
    type("tball");
    EXPECT_FALSE(table()->isVisible());
    const auto empty = panel.findChildren<EmptyStateWidget*>();
    const auto said = std::ranges::find_if(empty, &QWidget::isVisible);
    ASSERT_NE(said, empty.end());
    EXPECT_EQ((*said)->accessibleName(), QStringLiteral("No Results for “football”"));
    panel.searchField()->clear();
    EXPECT_TRUE(table()->isVisible());
}

TEST_F(FindPanel, GoesFromTheSearchIntoTheTableAndOpensAnEntryByReturn) {
    type("food");
    press(Qt::Key_Down);
    EXPECT_EQ(QApplication::focusWidget(), table());
    EXPECT_EQ(selected(), UUIDSet{receipt.id});
    press(Qt::Key_Down);
    EXPECT_EQ(selected(), UUIDSet{shop.id});
    press(Qt::Key_Return);
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::EditTransaction{shop.id}});
}

TEST_F(FindPanel, OpensAnEntryByADoubleClick) {
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, placeOf(6, "payee"));
    QTest::mouseDClick(table()->viewport(), Qt::LeftButton, {}, placeOf(6, "payee"));
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::EditTransaction{oldBill.id}});
}

TEST_F(FindPanel, TurnsAMarkByAClick) {
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, placeOf(6, "cleared"));
    EXPECT_EQ(stored(oldBill.id).cleared, ClearedState::cleared);
    EXPECT_EQ(selected(), UUIDSet{oldBill.id});
}

TEST_F(FindPanel, SortsByAClickOnTheHeaderOfTheAccounts) {
    QHeaderView* header = table()->horizontalHeader();
    const int account = index(0, "account").column();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      {header->sectionViewportPosition(account) + 12, 10});
    EXPECT_TRUE(payees().starts_with("Card Company|Market|"));
    EXPECT_EQ(header->sortIndicatorSection(), account);
}

/// The line of that title; null where the menu has none.
QAction* line(const QMenu& menu, const char* title) {
    const QList<QAction*> lines = menu.actions();
    const auto found = std::ranges::find_if(lines, [&](const QAction* each) {
        return withoutMnemonic(each->text()) == QString::fromUtf8(title);
    });
    return found == lines.end() ? nullptr : *found;
}

TEST_F(FindPanel, DeletesAndMarksWhatIsSelectedInSeveralAccounts) {
    press(Qt::Key_Down);
    table()->selectAll();
    EXPECT_EQ(selected().size(), 7U);
    const auto menu = panel.makeContextMenu({shop.id, oldBill.id});
    line(*line(*menu, "Mark As")->menu(), "Reconciled")->trigger();
    EXPECT_EQ(stored(shop.id).cleared, ClearedState::reconciled);
    EXPECT_EQ(stored(oldBill.id).cleared, ClearedState::reconciled);
    press(Qt::Key_Delete);
    EXPECT_EQ(table()->model()->rowCount(), 0);
    test.undoManager->undo();
    EXPECT_EQ(table()->model()->rowCount(), 7);
}

TEST_F(FindPanel, ShowsTheEntryInItsRegisterByCtrlReturn) {
    type("market");
    press(Qt::Key_Return);
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(test.appState->selectedAccountID(), card.id);
    EXPECT_FALSE(test.appState->sheet());
}

TEST_F(FindPanel, ShowsTheSelectedEntryThatTheKeyboardIsOn) {
    press(Qt::Key_Down);
    press(Qt::Key_Down, Qt::ShiftModifier);
    press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(selected(), (UUIDSet{rent.id, pay.id, receipt.id}));
    press(Qt::Key_Enter, Qt::ControlModifier);
    EXPECT_EQ(test.appState->selectedAccountID(), card.id);
}

TEST_F(FindPanel, GoesByTabFromTheSearchToTheTableAndToTheMarkThatCloses) {
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), table());
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), table()->horizontalHeader());
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), panel.closeButton());
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), panel.searchField());
    press(Qt::Key_Backtab);
    EXPECT_EQ(QApplication::focusWidget(), panel.closeButton());
}

TEST_F(FindPanel, OffersTheMenuBarToReturnToTheSearch) {
    type("food");
    press(Qt::Key_Down);
    const AppEnvironment& environment = *test;
    environment.screenCommands.present()->find();
    EXPECT_EQ(QApplication::focusWidget(), panel.searchField());
    EXPECT_EQ(panel.searchField()->selectedText(), QStringLiteral("food"));
}

TEST_F(FindPanel, ClosesByEscapeFromSearchAndTableAndByItsMark) {
    const QSignalSpy wished(&panel, &EntriesPanel::closed);
    press(Qt::Key_Escape);
    EXPECT_EQ(wished.size(), 1);
    press(Qt::Key_Down);
    press(Qt::Key_Escape);
    EXPECT_EQ(wished.size(), 2);
    QTest::mouseClick(panel.closeButton(), Qt::LeftButton);
    EXPECT_EQ(wished.size(), 3);
}

TEST_F(FindPanel, KeepsSelectionAndPlaceWhenTheLedgerChanges) {
    test.store->mutate("Add", [this](Library& library) {
        for (int number = 0; number < 200; ++number) {
            upsert(library, testing::makeTransaction(savings.id, day(2025, 1, 1), "Interest", "1"));
        }
    });
    table()->selectRow(100);
    const UUIDSet before = selected();
    table()->scrollTo(table()->model()->index(100, 0), QAbstractItemView::PositionAtCenter);
    const int scrolled = table()->verticalScrollBar()->value();
    test.store->mutate("Edit", [this](Library& library) {
        setCleared(library, ClearedState::cleared, {rent.id});
    });
    EXPECT_EQ(selected(), before);
    EXPECT_EQ(table()->currentIndex().row(), 100);
    EXPECT_EQ(table()->verticalScrollBar()->value(), scrolled);
}

} // namespace
} // namespace oakfen
