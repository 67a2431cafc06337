#include "Oakfen/Widgets/Components/PickerBox.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QCompleter>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace oakfen {

namespace {

/// Both kinds of picker with the focus on the accounts.
class Pickers : public ::testing::Test {
protected:
    Pickers() {
        auto* column = new QVBoxLayout(&window);
        column->addWidget(accounts);
        column->addWidget(categories);
        accounts->setRows({{.title = "Banking", .isHeader = true},
                           {.title = "My Visa", .id = myVisa},
                           {.title = "Savings", .id = savings},
                           {.title = "Visa", .id = visa},
                           {.title = "Savings", .id = closedSavings}});
        categories->setRows({{.title = "Uncategorized"},
                             {.title = "Income", .isHeader = true},
                             {.title = "Income", .id = income},
                             {.title = "Food: Groceries", .id = groceries}});
        accounts->chosen = [this] { ++changes; };
        categories->chosen = [this] { ++changes; };
        window.show();
        window.activateWindow();
        QApplication::processEvents();
        accounts->setFocus(Qt::TabFocusReason);
    }

    /// Types into the picker and leaves it.
    void enter(PickerBox& picker, const char* text) {
        picker.setFocus();
        picker.lineEdit()->selectAll();
        if (*text == '\0') {
            QTest::keyClick(&picker, Qt::Key_Delete);
        }
        QTest::keyClicks(&picker, QString::fromUtf8(text));
        picker.completer()->popup()->hide();
        picker.clearFocus();
    }

    UUID myVisa = UUID::random();
    UUID savings = UUID::random();
    UUID visa = UUID::random();
    UUID closedSavings = UUID::random();
    UUID income = UUID::random();
    UUID groceries = UUID::random();
    int changes = 0;
    QWidget window;
    AccountPicker* accounts = new AccountPicker(QStringLiteral("Account"));
    CategoryPicker* categories = new CategoryPicker(QStringLiteral("Category"));
};

} // namespace

TEST_F(Pickers, AsksForAnAccountWhileNoneIsChosen) {
    EXPECT_EQ(accounts->currentText(), QString());
    EXPECT_FALSE(accounts->chosenID());
    EXPECT_EQ(accounts->lineEdit()->placeholderText(), QStringLiteral("Choose an account"));
}

TEST_F(Pickers, TakeAnyPartOfATitle) {
    enter(*accounts, "aving");
    EXPECT_EQ(accounts->chosenID(), savings);
    EXPECT_EQ(accounts->currentText(), QStringLiteral("Savings"));
    enter(*categories, "groc");
    EXPECT_EQ(categories->chosenID(), groceries);
    EXPECT_EQ(changes, 2);
}

TEST_F(Pickers, TakeTheWholeTitleBeforeAPartOfAnother) {
    enter(*accounts, "visa");
    EXPECT_EQ(accounts->chosenID(), visa);
    enter(*accounts, "vis");
    EXPECT_EQ(accounts->chosenID(), myVisa);
}

TEST_F(Pickers, NeverTakeAHeader) {
    enter(*categories, "income");
    EXPECT_EQ(categories->chosenID(), income);
    accounts->choose(savings);
    enter(*accounts, "Banking");
    EXPECT_EQ(accounts->chosenID(), savings);
    EXPECT_EQ(accounts->currentText(), QStringLiteral("Savings"));
}

TEST_F(Pickers, NeverTakeAHeaderWithReturn) {
    accounts->choose(savings);
    accounts->lineEdit()->selectAll();
    QTest::keyClicks(accounts, QStringLiteral("Banking"));
    accounts->completer()->popup()->hide();
    QTest::keyClick(accounts, Qt::Key_Return);
    EXPECT_EQ(accounts->chosenID(), savings);
    EXPECT_EQ(accounts->currentText(), QStringLiteral("Savings"));
    EXPECT_EQ(changes, 0);
}

TEST_F(Pickers, LeaveHalfATextBeneathAnotherWindow) {
    accounts->choose(savings);
    accounts->lineEdit()->selectAll();
    QTest::keyClicks(accounts, QStringLiteral("vi"));
    accounts->completer()->popup()->hide();
    QFocusEvent toAnotherWindow(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(accounts, &toAnotherWindow);
    EXPECT_EQ(accounts->currentText(), QStringLiteral("vi"));
    EXPECT_EQ(accounts->chosenID(), savings);
}

TEST_F(Pickers, GoBackToTheChoiceWhenTheTextMeansNone) {
    categories->choose(groceries);
    enter(*categories, "nothing of the kind");
    EXPECT_EQ(categories->chosenID(), groceries);
    EXPECT_EQ(categories->currentText(), QStringLiteral("Food: Groceries"));
    EXPECT_EQ(changes, 0);
}

TEST_F(Pickers, TakeAnEmptiedFieldAsNoCategoryButNotAsNoAccount) {
    categories->choose(groceries);
    enter(*categories, "");
    EXPECT_FALSE(categories->chosenID());
    EXPECT_EQ(categories->currentText(), QStringLiteral("Uncategorized"));
    accounts->choose(visa);
    enter(*accounts, "");
    EXPECT_EQ(accounts->chosenID(), visa);
}

TEST_F(Pickers, StayWithTheChosenOneOfTwoOfTheSameName) {
    accounts->choose(closedSavings);
    accounts->setFocus();
    accounts->clearFocus();
    EXPECT_EQ(accounts->chosenID(), closedSavings);
    EXPECT_EQ(changes, 0);
}

TEST_F(Pickers, KeepTheChoiceWhenTheRowsChange) {
    accounts->choose(visa);
    accounts->setRows({{.title = "Visa", .id = visa}});
    EXPECT_EQ(accounts->chosenID(), visa);
    accounts->setRows({{.title = "Savings", .id = savings}});
    EXPECT_FALSE(accounts->chosenID());
    EXPECT_EQ(accounts->currentText(), QString());
}

TEST_F(Pickers, AreWalkedThroughWithTheArrowKeysPastHeaders) {
    categories->setFocus();
    categories->choose(std::nullopt);
    QTest::keyClick(categories, Qt::Key_Down);
    EXPECT_EQ(categories->chosenID(), income);
    QTest::keyClick(categories, Qt::Key_Up);
    EXPECT_FALSE(categories->chosenID());
    EXPECT_EQ(changes, 2);
}

TEST_F(Pickers, LeaveTheWheelToWhatScrolls) {
    accounts->choose(savings);
    QWheelEvent turn(QPointF(5, 5), accounts->mapToGlobal(QPointF(5, 5)), {}, QPoint(0, -120),
                     Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(accounts, &turn);
    EXPECT_EQ(accounts->chosenID(), savings);
    EXPECT_FALSE(turn.isAccepted());
}

} // namespace oakfen
