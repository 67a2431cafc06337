#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QTest>

#include "Oakfen/Widgets/Components/AmountField.h"
#include "Oakfen/Widgets/Components/PickerBox.h"
#include "Oakfen/Widgets/Editors/AccountEditorDialog.h"
#include "OakfenCore/LibraryOperations/Transactions.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {

using testing::amount;
using testing::day;
using testing::makeAccount;
using testing::TestEnvironment;

class Sheets : public ::testing::Test {
protected:
    Sheets() {
        test_.store->mutate("Add", [this](Library& library) {
            library.accounts.push_back(everyday_);
            upsert(library, testing::makeTransaction(everyday_.id, day(2026, 3, 4), "Shop", "-40"));
        });
        test_.undoManager->removeAllActions();
    }

    static void show(QWidget& window) {
        window.show();
        window.activateWindow();
        QApplication::processEvents();
    }

    template <typename Widget>
    static Widget* named(const QWidget& parent, const char* accessibleName) {
        for (Widget* each : parent.findChildren<Widget*>()) {
            if (each->accessibleName() == QString::fromUtf8(accessibleName)) {
                return each;
            }
        }
        return nullptr;
    }

    Account everyday_ = makeAccount("Everyday");
    TestEnvironment test_;
};

TEST_F(Sheets, ANewAccountIsTypedAndSavedWithReturn) {
    AccountEditorDialog dialog(*test_, std::nullopt);
    show(dialog);
    EXPECT_FALSE(dialog.primaryButton()->isEnabled());
    EXPECT_EQ(dialog.destructiveButton(), nullptr);
    auto* name = named<QLineEdit>(dialog, "Name");
    QTest::keyClicks(name, QStringLiteral("Holidays"));
    EXPECT_TRUE(dialog.primaryButton()->isEnabled());
    auto* balance = named<AmountField>(dialog, "Opening Balance");
    balance->selectAll();
    QTest::keyClicks(balance, QStringLiteral("1,250.50"));
    QTest::keyClick(name, Qt::Key_Return);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    const UUID id = dialog.editor().draft.id;
    ASSERT_NE(test_.index().account(id), nullptr);
    EXPECT_EQ(test_.index().balance(id), amount("1250.5"));
    EXPECT_EQ(test_.appState->selectedAccountID(), id);
}

TEST_F(Sheets, EscapeClosesAnEditorWithoutSaving) {
    AccountEditorDialog dialog(*test_, everyday_.id);
    show(dialog);
    QTest::keyClicks(named<QLineEdit>(dialog, "Name"), QStringLiteral("x"));
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
    EXPECT_EQ(test_.index().account(everyday_.id)->name, "Everyday");
}

TEST_F(Sheets, AnAmountThatCannotBeReadHoldsTheSave) {
    AccountEditorDialog dialog(*test_, everyday_.id);
    show(dialog);
    auto* balance = named<AmountField>(dialog, "Opening Balance");
    balance->selectAll();
    QTest::keyClicks(balance, QStringLiteral("12+"));
    QTest::mouseClick(dialog.primaryButton(), Qt::LeftButton);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(test_.undoManager->canUndo());
    QTest::keyClicks(balance, QStringLiteral("12+3"));
    QTest::mouseClick(dialog.primaryButton(), Qt::LeftButton);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(test_.index().account(everyday_.id)->openingBalance, amount("15"));
}

TEST_F(Sheets, TheEditorShowsTheFieldsOfTheChosenType) {
    AccountEditorDialog dialog(*test_, std::nullopt);
    show(dialog);
    auto* type = named<QComboBox>(dialog, "Type");
    const auto choose = [&](AccountType chosen) {
        const int index = type->findData(static_cast<int>(chosen));
        type->setCurrentIndex(index);
        Q_EMIT type->activated(index);
    };
    EXPECT_FALSE(named<AmountField>(dialog, "Credit Limit")->isVisible());
    choose(AccountType::lineOfCredit);
    EXPECT_TRUE(named<AmountField>(dialog, "Credit Limit")->isVisible());
    EXPECT_TRUE(named<AmountField>(dialog, "Interest Rate (%)")->isVisible());
    choose(AccountType::brokerage);
    EXPECT_FALSE(named<AmountField>(dialog, "Credit Limit")->isVisible());
    EXPECT_NE(named<AmountField>(dialog, "Opening Cash"), nullptr);
}

TEST_F(Sheets, TheMinimumBalanceAppearsWithItsAlert) {
    AccountEditorDialog dialog(*test_, everyday_.id);
    show(dialog);
    auto* minimum = named<AmountField>(dialog, "Minimum Balance");
    EXPECT_FALSE(minimum->isVisible());
    dialog.findChildren<QCheckBox*>().first()->click();
    EXPECT_TRUE(minimum->isVisible());
    QTest::mouseClick(dialog.primaryButton(), Qt::LeftButton);
    EXPECT_EQ(test_.index().account(everyday_.id)->lowBalanceAlert, Decimal());
}

TEST_F(Sheets, DeletingAnAccountAsksFirst) {
    AccountEditorDialog dialog(*test_, everyday_.id);
    show(dialog);
    ASSERT_NE(dialog.destructiveButton(), nullptr);
    test_.panels.confirms = false;
    QTest::mouseClick(dialog.destructiveButton(), Qt::LeftButton);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_NE(test_.index().account(everyday_.id), nullptr);
    test_.panels.confirms = true;
    QTest::mouseClick(dialog.destructiveButton(), Qt::LeftButton);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(test_.index().account(everyday_.id), nullptr);
    EXPECT_EQ(test_.panels.confirmations.size(), 2U);
}

TEST_F(Sheets, HaveOneDefaultButton) {
    AccountEditorDialog dialog(*test_, everyday_.id);
    EXPECT_TRUE(dialog.primaryButton()->isDefault());
    EXPECT_FALSE(dialog.cancelButton()->isDefault());
    EXPECT_FALSE(dialog.destructiveButton()->isDefault());
}

TEST_F(Sheets, ACategoryIsFoundByAnyPartOfItsPath) {
    CategoryPicker picker(QStringLiteral("Category"));
    const UUID groceries = UUID::random();
    picker.setRows({{.title = "Uncategorized"},
                    {.title = "Expenses", .isHeader = true},
                    {.title = "Food: Groceries", .id = groceries}});
    picker.choose(std::nullopt);
    int changes = 0;
    picker.chosen = [&changes] { ++changes; };
    show(picker);
    picker.lineEdit()->selectAll();
    QTest::keyClicks(picker.lineEdit(), QStringLiteral("groc"));
    picker.clearFocus();
    Q_EMIT picker.lineEdit()->editingFinished();
    EXPECT_EQ(picker.chosenID(), groceries);
    EXPECT_EQ(changes, 1);
    picker.setEditText(QStringLiteral("nothing of the kind"));
    Q_EMIT picker.lineEdit()->editingFinished();
    EXPECT_EQ(picker.currentText(), QStringLiteral("nothing of the kind"));
    EXPECT_FALSE(picker.isReadable());
    EXPECT_EQ(picker.chosenID(), groceries);
    EXPECT_EQ(changes, 1);
}

} // namespace oakfen
