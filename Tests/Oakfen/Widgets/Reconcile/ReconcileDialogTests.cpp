#include "Oakfen/Widgets/Reconcile/ReconcileDialog.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDate>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <algorithm>
#include <string>

#include "Oakfen/Widgets/Components/AmountField.h"
#include "Oakfen/Widgets/Components/DateField.h"
#include "Oakfen/Widgets/Components/HintRow.h"
#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "OakfenCore/Support/Text/Formatting.h"
#include "Tests/Oakfen/Views/Register/RegisterFixture.h"

namespace oakfen {

using testing::amount;
using testing::RegisterFixture;

class ReconcileSheet : public RegisterFixture {
protected:
    enum Column { Ticked, Day, Payee, Amount };

    ReconcileSheet() {
        test.undoManager->removeAllActions();
        dialog.show();
        dialog.activateWindow();
        QApplication::processEvents();
    }

    [[nodiscard]] QModelIndex index(int row, int column) const {
        return dialog.table()->model()->index(row, column);
    }
    [[nodiscard]] bool isTicked(int row) const {
        return index(row, Ticked).data(Qt::CheckStateRole).toInt() == Qt::Checked;
    }
    void click(int row, int column) const {
        QTest::mouseClick(dialog.table()->viewport(), Qt::LeftButton, {},
                          dialog.table()->visualRect(index(row, column)).center());
    }
    [[nodiscard]] std::string finishTitle() const { return utf8(dialog.primaryButton()->text()); }
    void type(const char* endingBalance) {
        dialog.endingBalance()->setFocus();
        dialog.endingBalance()->selectAll();
        QTest::keyClicks(dialog.endingBalance(), QString::fromLatin1(endingBalance));
    }
    [[nodiscard]] bool reads(const char* sentence) const {
        for (const QLabel* label : dialog.findChildren<QLabel*>()) {
            if (label->accessibleName() == QString::fromLatin1(sentence)) {
                return true;
            }
        }
        return false;
    }

    [[nodiscard]] bool shows(const char* text) const {
        const auto labels = dialog.findChildren<QLabel*>();
        return std::ranges::any_of(labels, [&](const QLabel* label) {
            return label->isVisible() && label->text() == QString::fromLatin1(text);
        });
    }

    ReconcileDialog dialog{*test, everyday};
};

TEST_F(ReconcileSheet, ShowsTheRowsWithTheirTicksAndFigures) {
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Reconcile Everyday"));
    ASSERT_EQ(dialog.table()->model()->rowCount(), 2);
    EXPECT_EQ(index(0, Payee).data().toString(), QStringLiteral("Shop"));
    EXPECT_EQ(index(0, Amount).data().toString(), QStringLiteral("-$40.00"));
    EXPECT_TRUE(isTicked(0));
    EXPECT_FALSE(isTicked(1));
    EXPECT_TRUE(reads("Last Reconciled, $500.00"));
    EXPECT_TRUE(reads("Cleared, $460.00"));
    EXPECT_TRUE(reads("Difference, $0.00"));
    EXPECT_EQ(finishTitle(), "Finish");
}

TEST_F(ReconcileSheet, IsTickedWithAClickOnATick) {
    click(1, Ticked);
    EXPECT_TRUE(isTicked(1));
    EXPECT_TRUE(reads("Difference, -$1,000.00"));
    EXPECT_EQ(finishTitle(), "Finish with Adjustment");
    click(1, Payee);
    EXPECT_TRUE(isTicked(1));
    click(1, Ticked);
    EXPECT_FALSE(isTicked(1));
}

TEST_F(ReconcileSheet, IsTickedWithTheSpaceBar) {
    dialog.table()->setFocus();
    QTest::keyClick(dialog.table(), Qt::Key_Space);
    EXPECT_FALSE(isTicked(0));
    QTest::keyClick(dialog.table(), Qt::Key_Down);
    QTest::keyClick(dialog.table(), Qt::Key_Space);
    EXPECT_TRUE(isTicked(1));
    QTest::keyClick(dialog.table(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(dialog.table(), Qt::Key_Space);
    EXPECT_FALSE(isTicked(0));
    EXPECT_FALSE(isTicked(1));
}

TEST_F(ReconcileSheet, TicksTheSelectedRowWhereverTheRingIs) {
    dialog.table()->setFocus();
    QTest::keyClick(dialog.table(), Qt::Key_Home);
    ASSERT_TRUE(isTicked(0));
    QTest::keyClick(dialog.table(), Qt::Key_Down, Qt::ControlModifier);
    QTest::keyClick(dialog.table(), Qt::Key_Space);
    EXPECT_FALSE(isTicked(0));
    EXPECT_FALSE(isTicked(1));
    QTest::keyClick(dialog.table(), Qt::Key_End);
    QTest::keyClick(dialog.table(), Qt::Key_Space);
    EXPECT_TRUE(isTicked(1));
    EXPECT_FALSE(isTicked(0));
}

TEST_F(ReconcileSheet, MatchesAStatementWhoseBalanceIsCalculated) {
    type("460/3*3");
    EXPECT_TRUE(reads("Difference, $0.00"));
    EXPECT_EQ(finishTitle(), "Finish");
}

TEST_F(ReconcileSheet, CannotFinishWithADifferenceThatNoAmountHolds) {
    const std::string largest = std::string(38, '9') + std::string(127, '0');
    test.store->mutate("Edit", [&](Library& library) {
        shop.amount = -amount(largest);
        upsert(library, shop);
    });
    EXPECT_TRUE(dialog.primaryButton()->isEnabled());
    type(largest.c_str());
    EXPECT_FALSE(dialog.primaryButton()->isEnabled());
    EXPECT_TRUE(shows("The difference is too large to enter as an adjustment."));
    type("460");
    EXPECT_TRUE(dialog.primaryButton()->isEnabled());
}

TEST_F(ReconcileSheet, MarksAll) {
    QTest::mouseClick(dialog.markAllButton(), Qt::LeftButton);
    EXPECT_TRUE(isTicked(0));
    EXPECT_TRUE(isTicked(1));
    EXPECT_TRUE(reads("Cleared, $1,460.00"));
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(ReconcileSheet, SaysInWordsWhetherTheStatementIsMatchedAndWhatFinishingAdds) {
    EXPECT_EQ(dialog.verdict()->text(), QStringLiteral("Your register matches the statement"));
    type("100");
    EXPECT_EQ(dialog.verdict()->text(),
              qt("Your register doesn’t match the statement yet: finishing adds an adjustment of " +
                 currencyText(amount("-360"), "CAD")));
}

TEST_F(ReconcileSheet, UnmarksAllWhereAnythingIsMarked) {
    QTest::mouseClick(dialog.unmarkAllButton(), Qt::LeftButton);
    EXPECT_FALSE(isTicked(0));
    EXPECT_FALSE(dialog.unmarkAllButton()->isEnabled());
    EXPECT_TRUE(dialog.markAllButton()->hasFocus());
    QTest::mouseClick(dialog.markAllButton(), Qt::LeftButton);
    EXPECT_TRUE(dialog.unmarkAllButton()->isEnabled());
}

TEST_F(ReconcileSheet, PointsOutTheEntryThatIsTheDifferenceAndTicksIt) {
    EXPECT_FALSE(dialog.hint()->isVisible());
    type("1460");
    ASSERT_TRUE(dialog.hint()->isVisible());
    EXPECT_TRUE(dialog.hint()->sentence()->text().contains(QString::fromUtf8("“Pay”")));
    QTest::mouseClick(dialog.hint()->button(), Qt::LeftButton);
    EXPECT_TRUE(isTicked(1));
    EXPECT_EQ(dialog.table()->currentIndex().row(), 1);
    EXPECT_FALSE(dialog.hint()->isVisible());
    EXPECT_EQ(finishTitle(), "Finish");
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(ReconcileSheet, FollowsTheHintWithTheKeyboardAndGoesOnInTheTable) {
    type("1460");
    dialog.hint()->button()->setFocus();
    QTest::keyClick(dialog.hint()->button(), Qt::Key_Return);
    EXPECT_TRUE(isTicked(1));
    EXPECT_TRUE(dialog.table()->hasFocus());
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(ReconcileSheet, KeepsItsButtonsInPlaceWhateverIsTicked) {
    QApplication::processEvents();
    const QRect matched = dialog.primaryButton()->geometry();
    type("1");
    QApplication::processEvents();
    EXPECT_EQ(finishTitle(), "Finish with Adjustment");
    EXPECT_EQ(dialog.primaryButton()->geometry(), matched);
}

TEST_F(ReconcileSheet, GivesBothFieldsTheSameWidthWhateverTheyHold) {
    EXPECT_EQ(dialog.statementDate()->width(), dialog.endingBalance()->width());
    type("1");
    QTest::keyClick(dialog.endingBalance(), Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(dialog.statementDate()->width(), dialog.endingBalance()->width());
}

TEST_F(ReconcileSheet, TellsNothingOfABalanceThatCannotBeRead) {
    type("1460");
    EXPECT_TRUE(dialog.hint()->isVisibleTo(&dialog));
    type("14x");
    EXPECT_FALSE(dialog.hint()->isVisibleTo(&dialog));
    const auto labels = dialog.findChildren<QLabel*>();
    EXPECT_TRUE(std::ranges::any_of(labels, [](const QLabel* label) {
        return label->text() == QStringLiteral("The statement’s figures can’t be read yet");
    }));
}

TEST_F(ReconcileSheet, IsWalkedThroughWithTabInReadingOrder) {
    type("1460");
    dialog.statementDate()->setFocus();
    for (const QWidget* widget : std::initializer_list<QWidget*>{
             dialog.endingBalance(), dialog.table(), dialog.hint()->button(),
             dialog.markAllButton(), dialog.unmarkAllButton(), dialog.cancelButton(),
             dialog.secondButton(), dialog.primaryButton(), dialog.statementDate()}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_TRUE(widget->hasFocus()) << utf8(QApplication::focusWidget()->accessibleName());
    }
}

TEST_F(ReconcileSheet, KeepsTheTicksForLater) {
    click(1, Ticked);
    QTest::mouseClick(dialog.secondButton(), Qt::LeftButton);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(undoName(), "Save for Later");
    EXPECT_EQ(stored(shop.id).cleared, ClearedState::cleared);
    EXPECT_EQ(stored(pay.id).cleared, ClearedState::cleared);
    const ReconcileDialog next(*test, everyday);
    EXPECT_EQ(next.table()->model()->index(1, Ticked).data(Qt::CheckStateRole).toInt(),
              Qt::Checked);
}

TEST_F(ReconcileSheet, FinishesWithTheTypedBalance) {
    QTest::mouseClick(dialog.markAllButton(), Qt::LeftButton);
    type("1460");
    EXPECT_EQ(finishTitle(), "Finish");
    EXPECT_EQ(dialog.primaryButton()->toolTip(),
              QStringLiteral("Mark ticked transactions as reconciled"));
    QTest::mouseClick(dialog.primaryButton(), Qt::LeftButton);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(stored(pay.id).cleared, ClearedState::reconciled);
    EXPECT_EQ(undoName(), "Reconcile");
    EXPECT_EQ(test.index().reconciledBalance(everyday.id), amount("1460"));
}

TEST_F(ReconcileSheet, FinishesWithAnAdjustment) {
    type("455.50");
    EXPECT_EQ(finishTitle(), "Finish with Adjustment");
    EXPECT_EQ(dialog.primaryButton()->toolTip(),
              QStringLiteral("Adds a balance adjustment for the difference"));
    QTest::mouseClick(dialog.primaryButton(), Qt::LeftButton);
    EXPECT_EQ(test.library().transactions.back().amount, amount("-4.5"));
}

TEST_F(ReconcileSheet, TakesATypedBalanceWithReturnAndGoesOnToTheTable) {
    type("1460");
    QTest::keyClick(dialog.endingBalance(), Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(test.undoManager->canUndo());
    EXPECT_TRUE(dialog.table()->hasFocus());
    EXPECT_EQ(dialog.endingBalance()->text(), QStringLiteral("1,460.00"));
}

TEST_F(ReconcileSheet, GoesOnWithReturnFromAFieldWhereNothingWasTyped) {
    dialog.endingBalance()->setFocus();
    QTest::keyClick(dialog.endingBalance(), Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(dialog.table()->hasFocus());
}

TEST_F(ReconcileSheet, IsTickedWithReturnWhichFinishesNothing) {
    dialog.table()->setFocus();
    for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
        const bool before = isTicked(0);
        QTest::keyClick(dialog.table(), static_cast<Qt::Key>(key));
        EXPECT_NE(isTicked(0), before);
    }
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(test.undoManager->canUndo());
}

TEST_F(ReconcileSheet, IsNotTickedByAKeyThatIsHeldDown) {
    dialog.table()->setFocus();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space}) {
        QKeyEvent held(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
        QApplication::sendEvent(dialog.table(), &held);
        EXPECT_TRUE(isTicked(0));
    }
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(ReconcileSheet, IsDoneByKeyboardAlone) {
    const auto press = [](int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    };
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("1460"));
    press(Qt::Key_Return);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(finishTitle(), "Finish");
    for (int tabs = 0; tabs < 10 && !dialog.primaryButton()->hasFocus(); ++tabs) {
        press(Qt::Key_Tab);
    }
    ASSERT_TRUE(dialog.primaryButton()->hasFocus());
    press(Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(test.index().reconciledBalance(everyday.id), amount("1460"));
    EXPECT_EQ(test.library().transactions.size(), 5U);
}

TEST_F(ReconcileSheet, IsDoneByMouseAlone) {
    click(0, Ticked);
    EXPECT_FALSE(isTicked(0));
    QTest::mouseClick(dialog.hint()->button(), Qt::LeftButton);
    EXPECT_TRUE(isTicked(0));
    QTest::mouseClick(dialog.primaryButton(), Qt::LeftButton);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(stored(shop.id).cleared, ClearedState::reconciled);
    EXPECT_EQ(test.library().transactions.size(), 5U);
}

TEST_F(ReconcileSheet, TakesAChangedDateWithReturnAndGoesOnToTheBalance) {
    dialog.statementDate()->setFocus();
    QTest::keyClick(dialog.statementDate(), Qt::Key_Up);
    QTest::keyClick(dialog.statementDate(), Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(test.undoManager->canUndo());
    EXPECT_TRUE(dialog.endingBalance()->hasFocus());
}

TEST_F(ReconcileSheet, SaysNoMoreOfADateThatWasMended) {
    const auto tells = [this](const char* part) {
        for (const QLabel* label : dialog.findChildren<QLabel*>()) {
            if (label->isVisible() && label->text().contains(QString::fromUtf8(part))) {
                return true;
            }
        }
        return false;
    };
    dialog.statementDate()->setFocus();
    dialog.statementDate()->setText(QStringLiteral("31.31"));
    QTest::keyClick(dialog.statementDate(), Qt::Key_Return);
    EXPECT_TRUE(tells("isn’t a date"));
    dialog.statementDate()->setText(QStringLiteral("2026-03-15"));
    EXPECT_FALSE(tells("isn’t a date"));
}

TEST_F(ReconcileSheet, StaysAtABalanceThatCannotBeReadWithReturn) {
    type("12+");
    QTest::keyClick(dialog.endingBalance(), Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(dialog.endingBalance()->hasFocus());
}

TEST_F(ReconcileSheet, KeepsABalanceThatCannotBeReadFromBeingFinished) {
    type("12+");
    QTest::mouseClick(dialog.primaryButton(), Qt::LeftButton);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(test.undoManager->canUndo());
}

TEST_F(ReconcileSheet, ChangesNothingWhenItIsCancelled) {
    QTest::mouseClick(dialog.markAllButton(), Qt::LeftButton);
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_FALSE(test.undoManager->canUndo());
}

TEST_F(ReconcileSheet, ShowsTheRowsUpToTheStatementsDate) {
    dialog.statementDate()->setText(QStringLiteral("2026-03-16"));
    EXPECT_EQ(dialog.table()->model()->rowCount(), 3);
    dialog.statementDate()->setText(QStringLiteral("2026-02-01"));
    EXPECT_EQ(dialog.table()->model()->rowCount(), 0);
    EXPECT_TRUE(reads("Difference, -$40.00"));
}

TEST_F(ReconcileSheet, FollowsAnEditOfTheLedger) {
    test.store->mutate("Delete",
                       [this](Library& library) { deleteTransactions(library, {shop.id}); });
    EXPECT_EQ(dialog.table()->model()->rowCount(), 1);
}

} // namespace oakfen
