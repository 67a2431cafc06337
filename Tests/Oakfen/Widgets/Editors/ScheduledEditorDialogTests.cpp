#include "Oakfen/Widgets/Editors/ScheduledEditorDialog.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "Oakfen/Widgets/Components/AmountField.h"
#include "Oakfen/Widgets/Components/DateField.h"
#include "Oakfen/Widgets/Components/PickerBox.h"
#include "Oakfen/Widgets/Editors/EnterReminderDialog.h"
#include "Oakfen/Widgets/Shell/SheetRouter.h"
#include "Tests/Oakfen/Widgets/Settle.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::makeAccount;
using testing::settle;

class ReminderSheet : public ::testing::Test {
protected:
    ReminderSheet() {
        test.store->mutate("Add", [this](Library& library) {
            library.accounts = {everyday, savings};
            library.scheduled.push_back(hydro);
        });
        test.undoManager->removeAllActions();
    }

    void open(const ActiveSheet::Scheduled& sheet) {
        show(std::make_unique<ScheduledEditorDialog>(*test, sheet));
    }
    void show(std::unique_ptr<SheetScaffold> sheet) {
        dialog = std::move(sheet);
        dialog->show();
        dialog->activateWindow();
        settle();
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
    [[nodiscard]] QPushButton* word(const char* text) const {
        for (QPushButton* each : dialog->findChildren<QPushButton*>()) {
            if (each->text() == QString::fromUtf8(text)) {
                return each;
            }
        }
        return nullptr;
    }
    void save() const { QTest::mouseClick(dialog->primaryButton(), Qt::LeftButton); }

    testing::TestEnvironment test;
    Account everyday = makeAccount("Everyday");
    Account savings = makeAccount("Savings", AccountType::savings);
    ScheduledTransaction hydro{.id = UUID::random(),
                               .payee = "Bright Hydro",
                               .accountID = everyday.id,
                               .amount = amount("-96"),
                               .frequency = Frequency::monthly,
                               .nextDate = day(2026, 3, 4, 9)};
    std::unique_ptr<SheetScaffold> dialog;
};

TEST_F(ReminderSheet, CreatesABillFromWhatIsTyped) {
    open({});
    EXPECT_FALSE(dialog->primaryButton()->isEnabled());
    QTest::keyClicks(named<QLineEdit>("Payee"), QStringLiteral("Rent"));
    named<AmountField>("Amount")->selectAll();
    QTest::keyClicks(named<AmountField>("Amount"), QStringLiteral("1200"));
    EXPECT_TRUE(dialog->primaryButton()->isEnabled());
    save();
    ASSERT_EQ(test.library().scheduled.size(), 2U);
    EXPECT_EQ(test.library().scheduled[1].payee, "Rent");
    EXPECT_EQ(test.library().scheduled[1].amount, amount("-1200"));
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(ReminderSheet, HasTheFieldsOfTheKindThatIsChosen) {
    open({.id = hydro.id});
    EXPECT_TRUE(named<CategoryPicker>("Category")->isVisible());
    EXPECT_FALSE(named<AccountPicker>("Transfer To")->isVisible());
    EXPECT_NE(named<AccountPicker>("Pay From"), nullptr);
    word("Income")->click();
    EXPECT_NE(named<AccountPicker>("Deposit To"), nullptr);
    EXPECT_TRUE(named<CategoryPicker>("Category")->isVisible());
    word("Transfer")->click();
    EXPECT_NE(named<AccountPicker>("Pay From"), nullptr);
    EXPECT_TRUE(named<AccountPicker>("Transfer To")->isVisible());
    EXPECT_FALSE(named<CategoryPicker>("Category")->isVisible());
    EXPECT_FALSE(dialog->primaryButton()->isEnabled());
}

TEST_F(ReminderSheet, AsksForTheLastDayOnlyWhereThereIsOne) {
    open({.id = hydro.id});
    EXPECT_FALSE(named<DateField>("End Date")->isVisible());
    for (QCheckBox* box : dialog->findChildren<QCheckBox*>()) {
        if (box->text().contains(QStringLiteral("Ends"))) {
            box->click();
        }
    }
    EXPECT_TRUE(named<DateField>("End Date")->isVisible());
    save();
    EXPECT_EQ(test.library().scheduled.front().endDate, day(2027, 3, 15));
}

TEST_F(ReminderSheet, DeletesTheReminderOnceConfirmed) {
    open({.id = hydro.id});
    ASSERT_NE(dialog->destructiveButton(), nullptr);
    QTest::mouseClick(dialog->destructiveButton(), Qt::LeftButton);
    ASSERT_EQ(test.panels.confirmations.size(), 1U);
    EXPECT_TRUE(test.library().scheduled.empty());
    test.undoManager->undo();
    EXPECT_EQ(test.library().scheduled.front(), hydro);
}

TEST_F(ReminderSheet, IsWalkedThroughWithTabToItsButtons) {
    open({.id = hydro.id});
    QStringList places;
    for (int steps = 0; steps < 20 && QApplication::focusWidget() != dialog->primaryButton();
         ++steps) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        places.append(QApplication::focusWidget()->accessibleName());
    }
    EXPECT_EQ(QApplication::focusWidget(), dialog->primaryButton());
    EXPECT_LT(places.indexOf(QStringLiteral("Payee")), places.indexOf(QStringLiteral("Amount")));
    EXPECT_LT(places.indexOf(QStringLiteral("Amount")), places.indexOf(QStringLiteral("Next Due")));
    EXPECT_LT(places.indexOf(QStringLiteral("Next Due")), places.indexOf(QStringLiteral("Memo")));
}

TEST_F(ReminderSheet, EntersWithAnotherAmount) {
    show(std::make_unique<EnterReminderDialog>(*test, hydro));
    auto* field = named<AmountField>("Amount");
    EXPECT_TRUE(field->hasFocus());
    field->selectAll();
    QTest::keyClicks(field, QStringLiteral("101.5"));
    save();
    ASSERT_EQ(test.library().transactions.size(), 1U);
    EXPECT_EQ(test.library().transactions.front().amount, amount("-101.5"));
    EXPECT_EQ(test.library().scheduled.front().amount, amount("-96"));
}

TEST_F(ReminderSheet, OpensNothingForAReminderThatIsGone) {
    for (const ActiveSheet& sheet : {ActiveSheet{ActiveSheet::Scheduled{.id = UUID::random()}},
                                     ActiveSheet{ActiveSheet::EnterReminder{UUID::random()}}}) {
        EXPECT_EQ(std::unique_ptr<SheetScaffold>(makeSheet(*test, sheet, nullptr)), nullptr);
    }
    for (const ActiveSheet& sheet : {ActiveSheet{ActiveSheet::Scheduled{}},
                                     ActiveSheet{ActiveSheet::Scheduled{.id = hydro.id}}}) {
        EXPECT_NE(std::unique_ptr<SheetScaffold>(makeSheet(*test, sheet, nullptr)), nullptr);
    }
}

TEST_F(ReminderSheet, EntersOnAnotherDayAndTakesItBack) {
    const Library before = test.library();
    show(std::make_unique<EnterReminderDialog>(*test, hydro));
    named<DateField>("Date")->setValue(day(2026, 3, 9));
    named<DateField>("Date")->edited();
    save();
    ASSERT_EQ(test.library().transactions.size(), 1U);
    EXPECT_EQ(test.library().transactions.front().date, day(2026, 3, 9));
    EXPECT_EQ(test.library().scheduled.front().nextDate, day(2026, 4, 4, 9));
    test.undoManager->undo();
    EXPECT_EQ(test.library(), before);
}

} // namespace
} // namespace oakfen
