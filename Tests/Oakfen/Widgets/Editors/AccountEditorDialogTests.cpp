#include "Oakfen/Widgets/Editors/AccountEditorDialog.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include "Oakfen/Widgets/Components/AmountField.h"
#include "Oakfen/Widgets/Components/DateField.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Tests/Oakfen/Widgets/Settle.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::makeAccount;

class AccountSheet : public ::testing::Test {
protected:
    AccountSheet() {
        everyday.openingDate = day(2026, 1, 5, 17);
        everyday.institution = "Maple Bank";
        everyday.notes = "Joint";
        test.store->mutate("Add",
                           [this](Library& library) { library.accounts.push_back(everyday); });
        test.undoManager->removeAllActions();
    }

    /// Opens the sheet on that account; without one, for a new account.
    void open(std::optional<UUID> accountID) {
        dialog = std::make_unique<AccountEditorDialog>(*test, accountID);
        dialog->show();
        dialog->activateWindow();
        QApplication::processEvents();
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

    [[nodiscard]] QCheckBox* box(const char* text) const {
        for (QCheckBox* each : dialog->findChildren<QCheckBox*>()) {
            if (each->text() == QString::fromUtf8(text)) {
                return each;
            }
        }
        return nullptr;
    }

    /// The label with that text that can be seen.
    [[nodiscard]] const QLabel* label(const char* text) const {
        for (const QLabel* each : dialog->findChildren<QLabel*>()) {
            if (each->isVisible() && each->text() == QString::fromUtf8(text)) {
                return each;
            }
        }
        return nullptr;
    }

    /// Whether a label with that text can be seen.
    [[nodiscard]] bool reads(const char* text) const { return label(text) != nullptr; }

    void choose(AccountType type) const {
        auto* types = named<QComboBox>("Type");
        types->setCurrentIndex(types->findData(static_cast<int>(type)));
        Q_EMIT types->activated(types->currentIndex());
    }

    void type(const char* field, const char* text) const {
        auto* amountField = named<AmountField>(field);
        amountField->setFocus();
        amountField->selectAll();
        QTest::keyClicks(amountField, QString::fromUtf8(text));
    }

    void save() const { QTest::mouseClick(dialog->primaryButton(), Qt::LeftButton); }

    [[nodiscard]] const Account& stored() const { return *test.index().account(everyday.id); }

    Account everyday = makeAccount("Everyday");
    testing::TestEnvironment test;
    std::unique_ptr<AccountEditorDialog> dialog;
};

TEST_F(AccountSheet, NamesItsFieldsAndHintsAtWhatGoesIn) {
    open(std::nullopt);
    for (const char* label :
         {"Name", "Type", "Institution", "Opening Balance", "As Of", "Minimum Balance", "Notes"}) {
        const bool isShown = reads(label);
        EXPECT_EQ(isShown, std::string_view(label) != "Minimum Balance") << label;
    }
    EXPECT_EQ(named<QLineEdit>("Name")->placeholderText(),
              QStringLiteral("e.g. Everyday Chequing"));
    EXPECT_EQ(named<QLineEdit>("Institution")->placeholderText(), QStringLiteral("Optional"));
    EXPECT_TRUE(named<QLineEdit>("Name")->hasFocus());
}

TEST_F(AccountSheet, ListsTheTypesUnderTheirGroups) {
    open(std::nullopt);
    const auto* types = named<QComboBox>("Type");
    std::vector<std::string> groups;
    for (int row = 0; row < types->count(); ++row) {
        const bool isType = types->itemData(row).isValid();
        const Qt::ItemFlags flags = types->model()->index(row, 0).flags();
        EXPECT_EQ(flags.testFlag(Qt::ItemIsEnabled), isType);
        if (!isType) {
            groups.push_back(utf8(types->itemText(row)));
        }
    }
    EXPECT_EQ(groups,
              (std::vector<std::string>{"Banking", "Credit", "Investments", "Property & Debt"}));
    EXPECT_EQ(types->count(), static_cast<int>(groups.size() + allCases<AccountType>.size()));
    EXPECT_EQ(types->currentData().toInt(), static_cast<int>(AccountType::chequing));
}

TEST_F(AccountSheet, HintsAtTheSignUnderTheOpeningBalanceOfWhatIsOwed) {
    constexpr const char* hint = "Enter amounts owed as a negative number, e.g. -1,250.00.";
    open(std::nullopt);
    EXPECT_FALSE(reads(hint));
    for (const AccountType type : allCases<AccountType>) {
        choose(type);
        EXPECT_EQ(reads(hint), isLiability(type)) << rawValue(type);
    }
}

TEST_F(AccountSheet, ShowsTheHintWholeWhenTheTypeIsChosenInTheSheet) {
    open(std::nullopt);
    choose(AccountType::creditCard);
    testing::settle();
    const auto* hint = label("Enter amounts owed as a negative number, e.g. -1,250.00.");
    ASSERT_NE(hint, nullptr);
    EXPECT_GE(hint->height(), hint->heightForWidth(hint->width()));
    const auto right = [&](const QWidget* widget) {
        return widget->mapTo(dialog.get(), widget->rect().topRight()).x();
    };
    EXPECT_LE(right(hint), right(named<QLineEdit>("Name")));
}

TEST_F(AccountSheet, SaysWhatTheOpeningBalanceOfADebtMeansAsItIsTyped) {
    open(std::nullopt);
    choose(AccountType::loan);
    EXPECT_TRUE(reads("You owe nothing."));
    type("Opening Balance", "1250");
    EXPECT_TRUE(reads("In your favour: $1,250.00."));
    type("Opening Balance", "-1250");
    EXPECT_TRUE(reads("You owe $1,250.00."));
    QTest::keyClicks(named<AmountField>("Opening Balance"), QStringLiteral("x"));
    EXPECT_FALSE(reads("You owe $1,250.00."));
    choose(AccountType::savings);
    EXPECT_FALSE(reads("You owe $1,250.00."));
}

TEST_F(AccountSheet, TurnsTheSignOfADebtByAClick) {
    open(std::nullopt);
    choose(AccountType::loan);
    auto* turn = named<QPushButton>("Change Sign");
    ASSERT_NE(turn, nullptr);
    EXPECT_FALSE(turn->isEnabled());
    type("Opening Balance", "1250");
    turn->click();
    EXPECT_EQ(named<AmountField>("Opening Balance")->text(), QStringLiteral("-1,250.00"));
    EXPECT_TRUE(reads("You owe $1,250.00."));
    EXPECT_EQ(dialog->editor().draft.openingBalance, amount("-1250"));
    turn->click();
    EXPECT_TRUE(reads("In your favour: $1,250.00."));
}

TEST_F(AccountSheet, KeepsTheTimeOfDayOfTheOpeningDateThatIsTypedAnew) {
    open(everyday.id);
    auto* asOf = named<DateField>("As Of");
    asOf->setFocus();
    QTest::keyClick(asOf, Qt::Key_Up);
    save();
    EXPECT_EQ(stored().openingDate, day(2026, 1, 6, 17));
}

TEST_F(AccountSheet, LeavesNoStepWhenNothingWasTyped) {
    open(everyday.id);
    save();
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_FALSE(test.undoManager->canUndo());
}

TEST_F(AccountSheet, ClosesOnlyAnAccountThatExists) {
    open(std::nullopt);
    EXPECT_FALSE(box("Closed")->isVisible());
    open(everyday.id);
    ASSERT_TRUE(box("Closed")->isVisible());
    box("Closed")->click();
    save();
    EXPECT_TRUE(stored().isClosed);
    EXPECT_EQ(test.undoManager->undoActionName(), "Edit Account");
}

TEST_F(AccountSheet, SavesTheTextsThatWereTyped) {
    open(everyday.id);
    named<QLineEdit>("Name")->setText(QStringLiteral(" Daily "));
    named<QLineEdit>("Institution")->setText(QStringLiteral("Lakeside"));
    named<QPlainTextEdit>("Notes")->setPlainText(QStringLiteral("Ours\nsince 2020"));
    save();
    EXPECT_EQ(stored().name, "Daily");
    EXPECT_EQ(stored().institution, "Lakeside");
    EXPECT_EQ(stored().notes, "Ours\nsince 2020");
}

TEST_F(AccountSheet, RoundsItsMoneyToTheCentButNotTheRate) {
    open(everyday.id);
    choose(AccountType::lineOfCredit);
    type("Opening Balance", "-1000/3");
    type("Credit Limit", "2500.005");
    type("Interest Rate (%)", "6.125");
    save();
    EXPECT_EQ(stored().openingBalance, amount("-333.33"));
    EXPECT_EQ(stored().creditLimit, amount("2500.01"));
    EXPECT_EQ(stored().interestRate, amount("6.125"));
}

TEST_F(AccountSheet, KeepsDigitsThatItDoesNotShowWhenNothingIsTyped) {
    test.store->mutate("Spoil", [](Library& library) {
        library.accounts.edit(0).openingBalance = amount("33.3333");
    });
    open(everyday.id);
    named<QLineEdit>("Name")->setText(QStringLiteral("Daily"));
    save();
    EXPECT_EQ(stored().name, "Daily");
    EXPECT_EQ(stored().openingBalance, amount("33.3333"));
}

TEST_F(AccountSheet, KeepsALimitThatATypeWithoutOneHides) {
    open(everyday.id);
    choose(AccountType::creditCard);
    type("Credit Limit", "2500");
    choose(AccountType::chequing);
    EXPECT_FALSE(named<AmountField>("Credit Limit")->isVisible());
    save();
    EXPECT_EQ(stored().creditLimit, amount("2500"));
    EXPECT_EQ(stored().type, AccountType::chequing);
}

} // namespace
} // namespace oakfen
