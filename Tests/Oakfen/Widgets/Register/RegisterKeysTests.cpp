#include <QLineEdit>
#include <QPointer>

#include "Tests/Oakfen/Widgets/Register/RegisterWindowFixture.h"

namespace oakfen {
namespace {

using testing::RegisterWindow;

/// Rent, Pay, Shop, the card company's, which is reconciled, and 200 entries.
class RegisterKeys : public testing::LongRegisterWindow {
protected:
    [[nodiscard]] int rowCount() const { return widget->table()->model()->rowCount(); }
    [[nodiscard]] UUID id(int row) const {
        return widget->view().content()->table->id(static_cast<std::size_t>(row));
    }
    [[nodiscard]] int ring() const { return widget->table()->currentIndex().row(); }
    void scrollToEnd() const { scrollBar()->setValue(scrollBar()->maximum()); }
};

TEST_F(RegisterKeys, HomeAndEndGoToTheFirstAndLastRowAndSelectIt) {
    click(3, "payee");
    for (const Qt::KeyboardModifiers modifiers :
         {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(Qt::ControlModifier)}) {
        press(Qt::Key_End, modifiers);
        EXPECT_EQ(ring(), rowCount() - 1);
        EXPECT_EQ(selection(), UUIDSet{id(rowCount() - 1)});
        EXPECT_TRUE(isInSight(rowCount() - 1));
        press(Qt::Key_Home, modifiers);
        EXPECT_EQ(ring(), 0);
        EXPECT_EQ(selection(), UUIDSet{id(0)});
        EXPECT_TRUE(isInSight(0));
    }
}

TEST_F(RegisterKeys, WithShiftHomeAndEndExtendTheSelection) {
    click(3, "payee");
    press(Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(selection().size(), static_cast<std::size_t>(rowCount() - 3));
    press(Qt::Key_Home, Qt::ShiftModifier | Qt::ControlModifier);
    EXPECT_EQ(selection().size(), 4U);
    press(Qt::Key_Home);
    EXPECT_EQ(selection(), UUIDSet{id(0)});
}

TEST_F(RegisterKeys, PageKeysGoByAPageAndSelect) {
    click(0, "payee");
    for (const Qt::KeyboardModifiers modifiers :
         {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(Qt::ControlModifier)}) {
        press(Qt::Key_PageDown, modifiers);
        EXPECT_GT(ring(), 5);
        EXPECT_EQ(selection(), UUIDSet{id(ring())});
        EXPECT_TRUE(isInSight(ring()));
        press(Qt::Key_PageUp, modifiers);
        EXPECT_EQ(ring(), 0);
        EXPECT_EQ(selection(), UUIDSet{id(0)});
    }
    press(Qt::Key_PageDown, Qt::ShiftModifier);
    EXPECT_EQ(selection().size(), static_cast<std::size_t>(ring() + 1));
}

TEST_F(RegisterKeys, TheFirstArrowSelectsTheRowWithTheRing) {
    ASSERT_EQ(ring(), 0);
    ASSERT_TRUE(selection().empty());
    press(Qt::Key_Down);
    EXPECT_EQ(selection(), UUIDSet{id(0)});
    press(Qt::Key_Down);
    EXPECT_EQ(selection(), UUIDSet{id(1)});
}

TEST_F(RegisterKeys, CommandsAreAboutTheSelectionWhereverTheRingIs) {
    click(1, "payee");
    press(Qt::Key_Down, Qt::ControlModifier);
    press(Qt::Key_Down, Qt::ControlModifier);
    press(Qt::Key_Down, Qt::ControlModifier);
    ASSERT_EQ(ring(), 4);
    ASSERT_EQ(selection(), UUIDSet{pay.id});
    press(Qt::Key_Space);
    EXPECT_EQ(stored(pay.id).cleared, ClearedState::cleared);
    EXPECT_EQ(stored(id(4)).cleared, ClearedState::uncleared);
    press(Qt::Key_Return);
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::EditTransaction{pay.id}});
    test.appState->setSheet(std::nullopt);
    press(Qt::Key_Delete);
    ASSERT_EQ(test.panels.confirmations.size(), 1U);
    EXPECT_NE(test.panels.confirmations[0].subject.find("Pay"), std::string::npos);
    EXPECT_EQ(test.index().transaction(pay.id), nullptr);
}

TEST_F(RegisterKeys, ReturnOpensTheRowWithTheRingWhereItIsSelected) {
    click(1, "payee");
    click(3, "payee", Qt::ControlModifier);
    press(Qt::Key_Return);
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::EditTransaction{id(3)}});
}

TEST_F(RegisterKeys, TheSpaceBarMarksAllSelectedRowsInOneStep) {
    click(4, "payee");
    press(Qt::Key_Down, Qt::ShiftModifier);
    press(Qt::Key_Down, Qt::ShiftModifier);
    press(Qt::Key_Space);
    for (int row = 4; row < 7; ++row) {
        EXPECT_EQ(stored(id(row)).cleared, ClearedState::cleared);
    }
    EXPECT_EQ(undoName(), "Mark Cleared");
    test.undoManager->undo();
    for (int row = 4; row < 7; ++row) {
        EXPECT_EQ(stored(id(row)).cleared, ClearedState::uncleared);
    }
}

TEST_F(RegisterKeys, TheSpaceBarSelectsTheRowWithTheRingWhereNoneIsSelected) {
    ASSERT_TRUE(selection().empty());
    press(Qt::Key_Space);
    EXPECT_EQ(selection(), UUIDSet{rent.id});
    EXPECT_EQ(stored(rent.id).cleared, ClearedState::uncleared);
}

TEST_F(RegisterKeys, ACommandBringsWhatItIsAboutIntoSight) {
    click(1, "payee");
    scrollToEnd();
    ASSERT_FALSE(isInSight(1));
    press(Qt::Key_Space);
    EXPECT_TRUE(isInSight(1));
    scrollToEnd();
    test.panels.confirms = false;
    press(Qt::Key_Delete);
    EXPECT_TRUE(isInSight(1));
}

TEST_F(RegisterKeys, TheMenuOpensAtWhatItIsAbout) {
    click(1, "payee");
    scrollToEnd();
    Q_EMIT widget->table()->customContextMenuRequested(
        widget->table()->visualRect(index(rowCount() - 1, "payee")).center());
    const QPointer<QMenu> menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    EXPECT_TRUE(isInSight(1));
    menu->close();
}

TEST_F(RegisterKeys, WhatIsSelectedStaysInSightWhenTheOrderChanges) {
    click(1, "payee");
    widget->view().sortBy("payee");
    const int row = widget->table()->targetRow();
    ASSERT_GT(row, 100);
    EXPECT_TRUE(isInSight(row));
    widget->view().sortBy("payee");
    EXPECT_TRUE(isInSight(widget->table()->targetRow()));
}

TEST_F(RegisterKeys, ASearchBeginsAtTheTopOfWhatItFinds) {
    scrollToEnd();
    QTest::keyClicks(widget->searchField(), QStringLiteral("entry"));
    EXPECT_EQ(scrollBar()->value(), 0);
    EXPECT_EQ(ring(), 0);
    scrollToEnd();
    widget->searchField()->clear();
    EXPECT_EQ(scrollBar()->value(), 0);
}

TEST_F(RegisterKeys, ASearchShowsTheSelectionThatItLeaves) {
    const UUIDSet chosen{id(100)};
    widget->view().select(chosen);
    QTest::keyClicks(widget->searchField(), QStringLiteral("entry"));
    EXPECT_EQ(selection(), chosen);
    EXPECT_TRUE(isInSight(widget->table()->targetRow()));
    QTest::keyClicks(widget->searchField(), QStringLiteral("x"));
    widget->searchField()->clear();
    EXPECT_TRUE(selection().empty());
    EXPECT_EQ(widget->table()->targetRow(), -1);
    EXPECT_FALSE(widget->view().content()->footer.selection);
}

TEST_F(RegisterKeys, UndoShowsWhatItBringsBack) {
    widget->view().requestDelete({shop.id});
    scrollToEnd();
    test.undoManager->undo();
    EXPECT_EQ(selection(), UUIDSet{shop.id});
    EXPECT_EQ(id(widget->table()->targetRow()), shop.id);
    EXPECT_TRUE(isInSight(widget->table()->targetRow()));
}

TEST_F(RegisterKeys, ExtendsTheSelectionFromTheRowThatWasShown) {
    press(Qt::Key_End);
    test.appState->transactionSaved.notify(pay.id);
    ASSERT_EQ(ring(), 1);
    press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(selection(), (UUIDSet{id(1), id(2)}));
}

} // namespace
} // namespace oakfen
