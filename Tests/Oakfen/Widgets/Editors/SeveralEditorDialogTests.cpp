#include "Oakfen/Widgets/Editors/SeveralEditorDialog.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QTest>

#include "Oakfen/Widgets/Components/DateField.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Tests/Oakfen/Widgets/Settle.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::day;
using testing::makeAccount;
using testing::makeTransaction;
using testing::settle;

class SeveralSheet : public ::testing::Test {
protected:
    SeveralSheet() {
        test.store->mutate("Add", [this](Library& library) {
            library.accounts = {everyday};
            library.transactions = {shop, fuel};
        });
        test.undoManager->removeAllActions();
        dialog = std::make_unique<SeveralEditorDialog>(
            *test,
            ActiveSheet::EditSeveral{std::make_shared<const UUIDSet>(UUIDSet{shop.id, fuel.id})});
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
    void save() const { QTest::mouseClick(dialog->primaryButton(), Qt::LeftButton); }
    [[nodiscard]] const Transaction& stored(const UUID& id) {
        return *test.index().transaction(id);
    }

    testing::TestEnvironment test;
    Account everyday = makeAccount("Everyday");
    Transaction shop = makeTransaction(everyday.id, day(2026, 3, 1, 9), "Metro", "-5");
    Transaction fuel = makeTransaction(everyday.id, day(2026, 3, 2, 17), "Fuel", "-9");
    std::unique_ptr<SeveralEditorDialog> dialog;
};

TEST_F(SeveralSheet, IsWalkedThroughWithTabToItsButtons) {
    QStringList places;
    for (int steps = 0; steps < 12 && QApplication::focusWidget() != dialog->primaryButton();
         ++steps) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        places.append(QApplication::focusWidget()->accessibleName());
    }
    EXPECT_EQ(QApplication::focusWidget(), dialog->primaryButton()) << utf8(places.join(u'|'));
    EXPECT_TRUE(places.contains(QStringLiteral("Leave Day as it is")));
}

TEST_F(SeveralSheet, LeavesEveryFieldAsItIsAtFirst) {
    for (const char* name : {"Leave Payee as it is", "Leave Memo as it is", "Leave Tags as it is",
                             "Leave Day as it is"}) {
        ASSERT_NE(named<QCheckBox>(name), nullptr) << name;
        EXPECT_TRUE(named<QCheckBox>(name)->isChecked()) << name;
    }
    EXPECT_EQ(named<QLineEdit>("Payee")->placeholderText(), QStringLiteral("Different payees"));
    EXPECT_EQ(named<QLineEdit>("Memo")->placeholderText(), QString());
    EXPECT_TRUE(named<QLineEdit>("Payee")->hasFocus());
    EXPECT_FALSE(named<DateField>("Day")->isVisible());
    save();
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_FALSE(test.undoManager->canUndo());
}

TEST_F(SeveralSheet, ChangesAFieldThatIsTypedInto) {
    QTest::keyClicks(named<QLineEdit>("Payee"), QStringLiteral("Corner Shop"));
    EXPECT_FALSE(named<QCheckBox>("Leave Payee as it is")->isChecked());
    EXPECT_TRUE(named<QCheckBox>("Leave Memo as it is")->isChecked());
    save();
    EXPECT_EQ(stored(shop.id).payee, "Corner Shop");
    EXPECT_EQ(stored(fuel.id).payee, "Corner Shop");
    EXPECT_EQ(stored(fuel.id).date, fuel.date);
}

TEST_F(SeveralSheet, ForgetsWhatWasTypedWhenTheFieldIsLeftAfterAll) {
    QTest::keyClicks(named<QLineEdit>("Payee"), QStringLiteral("Corner Shop"));
    named<QCheckBox>("Leave Payee as it is")->click();
    EXPECT_EQ(named<QLineEdit>("Payee")->text(), QString());
    save();
    EXPECT_FALSE(test.undoManager->canUndo());
}

TEST_F(SeveralSheet, OffersADayOnceTheDaysAreNotLeft) {
    named<QCheckBox>("Leave Day as it is")->click();
    auto* field = named<DateField>("Day");
    EXPECT_TRUE(field->isVisible());
    EXPECT_TRUE(field->hasFocus());
    field->selectAll();
    QTest::keyClicks(field, QStringLiteral("2026-03-20"));
    save();
    EXPECT_EQ(stored(shop.id).date, day(2026, 3, 20, 9));
    EXPECT_EQ(stored(fuel.id).date, day(2026, 3, 20, 17));
}

TEST_F(SeveralSheet, EmptiesAFieldThatIsNotLeftAsItIs) {
    test.store->mutate("Memo",
                       [this](Library& library) { library.transactions.edit(0).memo = "x"; });
    dialog = std::make_unique<SeveralEditorDialog>(
        *test,
        ActiveSheet::EditSeveral{std::make_shared<const UUIDSet>(UUIDSet{shop.id, fuel.id})});
    dialog->show();
    settle();
    EXPECT_EQ(named<QLineEdit>("Memo")->placeholderText(), QStringLiteral("Different memos"));
    named<QCheckBox>("Leave Memo as it is")->click();
    EXPECT_EQ(named<QLineEdit>("Memo")->placeholderText(), QString());
    save();
    EXPECT_EQ(stored(shop.id).memo, "");
}

} // namespace
} // namespace oakfen
