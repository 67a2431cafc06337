#include "Oakfen/Widgets/Register/RegisterWidget.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLineEdit>
#include <QPointer>
#include <QScrollBar>
#include <QTest>

#include "Oakfen/Widgets/Components/EmptyStateWidget.h"
#include "Oakfen/Widgets/Components/LedgerDelegate.h"
#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Tests/Oakfen/Widgets/Register/RegisterWindowFixture.h"

namespace oakfen {

using testing::LongRegisterWindow;
using testing::RegisterWindow;

TEST_F(RegisterWindow, HasRowsOfOneHeight) {
    EXPECT_EQ(widget->table()->rowHeight(0), 28);
    EXPECT_EQ(widget->table()->rowHeight(3), 28);
}

TEST_F(RegisterWindow, ShowsABanksMarkupInATooltipAsText) {
    test.store->mutate("Edit", [this](Library& library) {
        Transaction changed = shop;
        changed.memo = "<img src=x>\nMilk & bread";
        upsert(library, changed);
    });
    EXPECT_EQ(utf8(index(2, "payee").data(LedgerDelegate::DetailRole).toString()),
              "<img src=x> Milk & bread");
    EXPECT_EQ(utf8(index(2, "payee").data(Qt::ToolTipRole).toString()),
              "<qt>&lt;img src=x&gt;<br>Milk &amp; bread</qt>");
    EXPECT_EQ(utf8(index(2, "cleared").data(Qt::ToolTipRole).toString()), "Cleared");
}

TEST_F(RegisterWindow, DrawsNothingAgainThatStaysAsItIs) {
    open(savings.id);
    const QPointer<EmptyStateWidget> shown = widget->findChild<EmptyStateWidget*>();
    ASSERT_TRUE(shown);
    view.toggleCleared(pay.id);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(shown);
}

TEST_F(RegisterWindow, WalksWithTheArrowKeys) {
    click(0, "payee");
    EXPECT_EQ(selection(), UUIDSet{rent.id});
    press(Qt::Key_Down);
    EXPECT_EQ(selection(), UUIDSet{pay.id});
    press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(selection(), (UUIDSet{pay.id, shop.id}));
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(selection().size(), 4U);
}

TEST_F(RegisterWindow, SelectsSeveralRowsWithTheMouse) {
    click(0, "payee");
    click(2, "payee", Qt::ControlModifier);
    EXPECT_EQ(selection(), (UUIDSet{rent.id, shop.id}));
}

TEST_F(RegisterWindow, TogglesTheStateWithAClickOnTheMark) {
    click(1, "cleared");
    EXPECT_EQ(stored(pay.id).cleared, ClearedState::cleared);
    click(1, "cleared");
    EXPECT_EQ(stored(pay.id).cleared, ClearedState::uncleared);
}

TEST_F(RegisterWindow, DoesNotToggleWhileSelectingMore) {
    click(1, "cleared", Qt::ControlModifier);
    EXPECT_EQ(stored(pay.id).cleared, ClearedState::uncleared);
}

TEST_F(RegisterWindow, TogglesTheStateOfTheCurrentRowWithTheSpaceBar) {
    click(0, "payee");
    press(Qt::Key_Space);
    EXPECT_EQ(stored(rent.id).cleared, ClearedState::cleared);
    press(Qt::Key_Space);
    EXPECT_EQ(stored(rent.id).cleared, ClearedState::uncleared);
}

TEST_F(RegisterWindow, KeepsTheSelectionAndTheCurrentRowThroughAnEdit) {
    click(1, "payee");
    press(Qt::Key_Down, Qt::ShiftModifier);
    test.store->mutate("Edit", [this](Library& library) {
        upsert(library,
               testing::makeTransaction(everyday.id, testing::day(2026, 4, 1), "New", "1"));
    });
    EXPECT_EQ(payees(), "New|Rent|Pay|Shop|Card Company");
    EXPECT_EQ(selection(), (UUIDSet{pay.id, shop.id}));
    EXPECT_TRUE(widget->table()->selectionModel()->isRowSelected(2));
    EXPECT_TRUE(widget->table()->selectionModel()->isRowSelected(3));
    EXPECT_EQ(widget->table()->currentIndex().row(), 3);
}

TEST_F(RegisterWindow, GoesOnFromThePlaceOfARowThatLeavesTheList) {
    widget->view().setFilter(RegisterFilter::uncleared);
    widget->view().markAs(ClearedState::uncleared, {shop.id, cardPayment.id});
    ASSERT_EQ(widget->table()->model()->rowCount(), 4);
    click(1, "balance");
    const std::string next = cell(2, "payee");
    press(Qt::Key_Space);
    EXPECT_EQ(widget->table()->model()->rowCount(), 3);
    EXPECT_EQ(widget->table()->currentIndex(), index(1, "balance"));
    EXPECT_EQ(cell(1, "payee"), next);
    EXPECT_EQ(selection().size(), 1U);
    EXPECT_EQ(widget->table()->targetRow(), 1);
}

TEST_F(RegisterWindow, KeepsTheCurrentColumnThroughAnEdit) {
    click(1, "balance");
    press(Qt::Key_Space);
    EXPECT_EQ(widget->table()->currentIndex(), index(1, "balance"));
}

TEST_F(LongRegisterWindow, StaysWhereItIsScrolledThroughAnEdit) {
    scrollBar()->setValue(1400);
    ASSERT_EQ(scrollBar()->value(), 1400);
    view.toggleCleared(pay.id);
    EXPECT_EQ(scrollBar()->value(), 1400);
}

TEST_F(LongRegisterWindow, ScrollsToAnEntryThatWasSavedJustNow) {
    ASSERT_EQ(scrollBar()->value(), 0);
    const Transaction old =
        testing::makeTransaction(everyday.id, testing::day(2025, 7, 1), "Old", "-1");
    test.store->mutate("New Transaction", [&](Library& library) { upsert(library, old); });
    test.appState->transactionSaved.notify(old.id);
    EXPECT_EQ(selection(), UUIDSet{old.id});
    const QRect row = widget->table()->visualRect(widget->table()->currentIndex());
    EXPECT_TRUE(widget->table()->viewport()->rect().contains(row.center()));
    EXPECT_EQ(cell(widget->table()->currentIndex().row(), "payee"), "Old");
}

TEST_F(LongRegisterWindow, KeepsSelectedWhatIsStillShownOfAWholeTable) {
    const auto drawnAsSelected = [this] {
        UUIDSet ids;
        for (const QModelIndex& each : widget->table()->selectionModel()->selectedRows()) {
            ids.insert(widget->view().content()->table->id(static_cast<std::size_t>(each.row())));
        }
        return ids;
    };
    press(Qt::Key_A, Qt::ControlModifier);
    ASSERT_EQ(selection().size(), 204U);
    widget->view().sortBy("payee");
    EXPECT_EQ(selection().size(), 204U);
    EXPECT_EQ(drawnAsSelected(), selection());
    QTest::keyClicks(widget->searchField(), QStringLiteral("entry"));
    EXPECT_EQ(selection().size(), 200U);
    EXPECT_EQ(drawnAsSelected(), selection());
    widget->searchField()->clear();
    EXPECT_EQ(selection().size(), 200U);
    EXPECT_EQ(drawnAsSelected(), selection());
    widget->view().sortBy("date");
    EXPECT_EQ(drawnAsSelected(), selection());
}

TEST_F(RegisterWindow, AsksWithTheDeleteKeyAndDeletes) {
    click(2, "payee");
    press(Qt::Key_Delete);
    ASSERT_EQ(test.panels.confirmations.size(), 1U);
    EXPECT_EQ(test.panels.confirmations[0].title, "Delete 1 transaction?");
    EXPECT_EQ(payees(), "Rent|Pay|Card Company");
    EXPECT_TRUE(selection().empty());
    test.undoManager->undo();
    EXPECT_EQ(payees(), "Rent|Pay|Shop|Card Company");
}

TEST_F(RegisterWindow, AsksNothingWithTheDeleteKeyWhenNothingIsSelected) {
    press(Qt::Key_Delete);
    EXPECT_TRUE(test.panels.confirmations.empty());
}

TEST_F(RegisterWindow, OpensTheEditorWithReturn) {
    click(2, "payee");
    press(Qt::Key_Return);
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::EditTransaction{shop.id}});
}

TEST_F(RegisterWindow, OpensOneOfTheSelectedEntriesWithReturn) {
    press(Qt::Key_Return);
    EXPECT_FALSE(test.appState->sheet().has_value());
    click(1, "payee");
    click(2, "payee", Qt::ControlModifier);
    press(Qt::Key_Return);
    EXPECT_TRUE(test.appState->sheet() == ActiveSheet{ActiveSheet::EditTransaction{pay.id}} ||
                test.appState->sheet() == ActiveSheet{ActiveSheet::EditTransaction{shop.id}});
    EXPECT_EQ(selection(), (UUIDSet{pay.id, shop.id}));
}

TEST_F(RegisterWindow, CopiesTheSelectedRowsForASpreadsheet) {
    QGuiApplication::clipboard()->setText(QStringLiteral("before"));
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("before"));
    click(0, "payee");
    click(2, "payee", Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(utf8(QGuiApplication::clipboard()->text()),
              "Uncleared\t2026-03-16\t\tRent\tUncategorized\t\t1200\t\t260\n"
              "Cleared\t2026-02-14\t\tShop\tFood\t\t40\t\t460");
}

/// Typing that never counts as a pause, however slow the machine is.
class PatientKeyboard {
public:
    PatientKeyboard() { QApplication::setKeyboardInputInterval(600'000); }
    ~PatientKeyboard() { QApplication::setKeyboardInputInterval(usual_); }
    PatientKeyboard(const PatientKeyboard&) = delete;
    PatientKeyboard& operator=(const PatientKeyboard&) = delete;

private:
    int usual_ = QApplication::keyboardInputInterval();
};

TEST_F(RegisterWindow, FindsAPayeeAsOneTypesIntoTheTable) {
    const PatientKeyboard patient;
    QTest::keyClicks(widget->table(), QStringLiteral("sh"));
    EXPECT_EQ(selection(), UUIDSet{shop.id});
    EXPECT_EQ(widget->table()->currentIndex().row(), 2);
}

TEST_F(RegisterWindow, FindsTheFirstRowFirst) {
    const PatientKeyboard patient;
    QTest::keyClicks(widget->table(), QStringLiteral("r"));
    EXPECT_EQ(selection(), UUIDSet{rent.id});
}

TEST_F(RegisterWindow, TakesABlankWhileOneTypesForAPartOfThePayee) {
    const PatientKeyboard patient;
    test.store->mutate("Mark", [this](Library& library) {
        oakfen::setCleared(library, ClearedState::uncleared, {cardPayment.id});
    });
    QTest::keyClicks(widget->table(), QStringLiteral("card c"));
    EXPECT_EQ(selection(), UUIDSet{cardPayment.id});
    EXPECT_EQ(stored(cardPayment.id).cleared, ClearedState::uncleared);
    EXPECT_EQ(stored(rent.id).cleared, ClearedState::uncleared);
}

TEST_F(RegisterWindow, SearchesAsOneTypes) {
    QTest::keyClicks(widget->searchField(), QStringLiteral("shop"));
    EXPECT_EQ(payees(), "Shop");
    QTest::keyClicks(widget->searchField(), QStringLiteral("x"));
    EXPECT_FALSE(widget->table()->isVisible());
    EXPECT_NE(widget->findChild<EmptyStateWidget*>(), nullptr);
    widget->searchField()->clear();
    EXPECT_TRUE(widget->table()->isVisible());
    EXPECT_EQ(payees(), "Rent|Pay|Shop|Card Company");
}

TEST_F(RegisterWindow, ClearsTheSearchWithEscapeAndThenGoesBackToTheTable) {
    widget->searchField()->setFocus();
    QTest::keyClicks(widget->searchField(), QStringLiteral("shop"));
    QTest::keyClick(widget->searchField(), Qt::Key_Escape);
    EXPECT_EQ(widget->searchField()->text(), QString());
    EXPECT_TRUE(widget->searchField()->hasFocus());
    EXPECT_EQ(payees(), "Rent|Pay|Shop|Card Company");
    QTest::keyClick(widget->searchField(), Qt::Key_Escape);
    EXPECT_TRUE(widget->table()->hasFocus());
}

TEST_F(RegisterWindow, OffersToImportIntoAnEmptyAccount) {
    open(savings.id);
    EXPECT_FALSE(widget->table()->isVisible());
    QAbstractButton* import = button("Import…");
    ASSERT_NE(import, nullptr);
    QTest::mouseClick(import, Qt::LeftButton);
    EXPECT_EQ(test.panels.openRequests.size(), 1U);
}

TEST_F(RegisterWindow, EmptiesItselfWhenItsAccountIsDeleted) {
    test.store->mutate("Delete Account",
                       [this](Library& library) { deleteAccount(library, everyday.id); });
    EXPECT_EQ(widget->table()->model()->rowCount(), 0);
}

TEST_F(RegisterWindow, RemembersItsColumnWidths) {
    widget->table()->horizontalHeader()->resizeSection(column("category"), 222);
    widget.reset();
    open(card.id);
    EXPECT_EQ(widget->table()->columnWidth(column("category")), 222);
}

TEST_F(RegisterWindow, NamesEveryControlForAScreenReader) {
    for (const QWidget* each : widget->findChildren<QWidget*>()) {
        if (each->focusPolicy() != Qt::NoFocus && each->isVisible() &&
            each->parentWidget() != widget->table() && each->parentWidget() != nullptr &&
            qobject_cast<const QAbstractButton*>(each) == nullptr) {
            EXPECT_FALSE(each->accessibleName().isEmpty()) << each->metaObject()->className();
        }
    }
}

} // namespace oakfen
