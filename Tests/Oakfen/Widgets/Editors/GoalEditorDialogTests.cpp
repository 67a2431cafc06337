#include "Oakfen/Widgets/Editors/GoalEditorDialog.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "Oakfen/Widgets/Components/AmountField.h"
#include "Oakfen/Widgets/Components/DateField.h"
#include "Oakfen/Widgets/Editors/ContributionDialog.h"
#include "Oakfen/Widgets/Shell/SheetRouter.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "OakfenCore/LibraryOperations/SavingsGoals.h"
#include "Tests/Oakfen/Widgets/AccessibleTree.h"
#include "Tests/Oakfen/Widgets/Settle.h"
#include "Tests/Support/LocaleForTest.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::settle;

class GoalSheets : public ::testing::Test {
protected:
    GoalSheets() {
        test.store->mutate("Add", [this](Library& library) { upsert(library, goal); });
        test.undoManager->removeAllActions();
    }

    void open(const ActiveSheet& sheet) {
        dialog.reset(makeSheet(*test, sheet, nullptr));
        if (dialog != nullptr) {
            dialog->show();
            dialog->activateWindow();
            settle();
        }
    }
    template <typename Widget>
    [[nodiscard]] Widget* named(const char* name) const {
        for (Widget* each : dialog->findChildren<Widget*>()) {
            if (each->accessibleName() == QString::fromUtf8(name)) {
                return each;
            }
        }
        return nullptr;
    }
    void type(const char* field, const char* text) const {
        auto* line = named<QLineEdit>(field);
        line->setFocus();
        line->selectAll();
        QTest::keyClicks(line, QString::fromUtf8(text));
    }
    void press(QPushButton* button) const {
        QTest::mouseClick(button, Qt::LeftButton);
        settle();
    }
    [[nodiscard]] bool reads(const char* text) const {
        for (const QLabel* each : dialog->findChildren<QLabel*>()) {
            if (each->isVisible() && each->text() == QString::fromUtf8(text)) {
                return true;
            }
        }
        return false;
    }
    [[nodiscard]] Decimal saved() const { return goalOf(test.library(), goal.id)->saved; }

    testing::LocaleForTest locale{"en_CA"};
    testing::TestEnvironment test;
    SavingsGoal goal{.id = UUID::random(),
                     .name = "Trip",
                     .symbolName = "airplane",
                     .target = amount("3500"),
                     .saved = amount("1900"),
                     .targetDate = day(2026, 11, 20)};
    std::unique_ptr<SheetScaffold> dialog;
};

TEST_F(GoalSheets, MakeAGoal) {
    open({ActiveSheet::Goal{}});
    EXPECT_FALSE(dialog->primaryButton()->isEnabled());
    EXPECT_EQ(dialog->destructiveButton(), nullptr);
    EXPECT_EQ(named<QLineEdit>("Name")->placeholderText(), QStringLiteral("e.g. Emergency Fund"));
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Fund"));
    type("Target Amount", "20000");
    type("Saved So Far", "12400");
    press(dialog->primaryButton());
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    const SavingsGoal& added = test.library().goals.back();
    EXPECT_EQ(added.name, "Fund");
    EXPECT_EQ(added.symbolName, "star");
    EXPECT_EQ(added.target, amount("20000"));
    EXPECT_EQ(added.saved, amount("12400"));
    EXPECT_FALSE(added.targetDate);
}

TEST_F(GoalSheets, ShowTheDayOnlyWhereThereIsToBeOne) {
    open({ActiveSheet::Goal{goal.id}});
    auto* hasDate = dialog->findChild<QCheckBox*>();
    EXPECT_EQ(hasDate->text(), QStringLiteral("Target Date"));
    EXPECT_TRUE(hasDate->isChecked());
    EXPECT_TRUE(named<DateField>("Date")->isVisible());
    EXPECT_TRUE(reads("Save $200.00 a month to stay on track."));
    hasDate->click();
    settle();
    EXPECT_FALSE(named<DateField>("Date")->isVisible());
    EXPECT_FALSE(reads("Save $200.00 a month to stay on track."));
    press(dialog->primaryButton());
    EXPECT_FALSE(test.library().goals[0].targetDate);
}

TEST_F(GoalSheets, ChooseAnIcon) {
    open({ActiveSheet::Goal{goal.id}});
    auto* icons = dialog->findChild<QComboBox*>();
    EXPECT_EQ(icons->currentText(), QStringLiteral("Airplane"));
    icons->setCurrentIndex(icons->findText(QStringLiteral("House")));
    Q_EMIT icons->activated(icons->currentIndex());
    press(dialog->primaryButton());
    EXPECT_EQ(test.library().goals[0].symbolName, "house");
}

TEST_F(GoalSheets, DeleteAGoalAfterAQuestion) {
    open({ActiveSheet::Goal{goal.id}});
    EXPECT_EQ(dialog->destructiveButton()->text(), QStringLiteral("Delete Goal"));
    press(dialog->destructiveButton());
    ASSERT_EQ(test.panels.confirmations.size(), 1U);
    EXPECT_TRUE(test.library().goals.empty());
}

TEST_F(GoalSheets, PutMoneyAsideWithReturn) {
    open({ActiveSheet::Contribute{goal.id}});
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Contribute to Trip"));
    EXPECT_TRUE(reads("$1,900.00 of $3,500.00"));
    EXPECT_EQ(QApplication::focusWidget(), named<AmountField>("Amount"));
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("100"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    settle();
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(saved(), amount("2000"));
}

TEST_F(GoalSheets, TakeMoneyBack) {
    open({ActiveSheet::Contribute{goal.id}});
    EXPECT_EQ(dialog->secondButton()->text(), QStringLiteral("Withdraw"));
    type("Amount", "2000");
    press(dialog->secondButton());
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(saved(), Decimal());
    EXPECT_EQ(test.undoManager->undoActionName(), "Withdraw from Goal");
}

TEST_F(GoalSheets, CancelChangesNothing) {
    open({ActiveSheet::Contribute{goal.id}});
    type("Amount", "5");
    press(dialog->cancelButton());
    EXPECT_EQ(saved(), amount("1900"));
    EXPECT_FALSE(test.undoManager->canUndo());
}

TEST_F(GoalSheets, OpenNothingForAGoalThatIsGone) {
    open({ActiveSheet::Contribute{UUID::random()}});
    EXPECT_EQ(dialog, nullptr);
}

TEST_F(GoalSheets, NameWhatIsInThem) {
    for (const ActiveSheet& sheet :
         {ActiveSheet{ActiveSheet::Goal{goal.id}}, ActiveSheet{ActiveSheet::Contribute{goal.id}}}) {
        open(sheet);
        EXPECT_EQ(testing::namelessNodes(*dialog), std::vector<std::string>());
        EXPECT_EQ(testing::stepsAgainstReadingOrder(*dialog), std::vector<std::string>());
    }
}

} // namespace
} // namespace oakfen
