#pragma once

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <memory>
#include <string>

#include "Oakfen/Widgets/Components/AmountField.h"
#include "Oakfen/Widgets/Components/DateField.h"
#include "Oakfen/Widgets/Components/PickerBox.h"
#include "Oakfen/Widgets/Editors/PayeeField.h"
#include "Oakfen/Widgets/Editors/TransactionEditorDialog.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "OakfenCore/LibraryOperations/Transactions.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen::testing {

/// The sheet over an everyday account, worked by the keyboard alone.
class TransactionSheetFixture : public ::testing::Test {
protected:
    TransactionSheetFixture() {
        shop.categoryID = food.id;
        test.store->mutate("Add", [this](Library& library) {
            for (const Account& account : {everyday, savings}) {
                library.accounts.push_back(account);
            }
            for (const Category& category : {food, home}) {
                library.categories.push_back(category);
            }
            upsert(library, shop);
        });
        test.undoManager->removeAllActions();
    }

    template <typename Sheet>
    void open(const Sheet& sheet) {
        dialog = std::make_unique<TransactionEditorDialog>(*test, TransactionEditor(*test, sheet));
        dialog->show();
        dialog->activateWindow();
        QApplication::processEvents();
    }
    void openNew() { open(ActiveSheet::NewTransaction{everyday.id}); }
    void openEdit(const UUID& id) { open(ActiveSheet::EditTransaction{id}); }

    /// The headless platform activates a list as it opens, but nothing once it has closed.
    void settle() {
        QApplication::processEvents();
        if (dialog->isVisible() && QApplication::activePopupWidget() == nullptr &&
            !dialog->isActiveWindow()) {
            dialog->activateWindow();
            QApplication::processEvents();
        }
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QWidget* focus = QApplication::activePopupWidget() != nullptr
                             ? QApplication::activePopupWidget()
                             : QApplication::focusWidget();
        ASSERT_NE(focus, nullptr);
        QTest::keyClick(focus, key, modifiers);
        settle();
    }
    void type(const char* text) {
        QTest::keyClicks(QApplication::focusWidget(), QString::fromUtf8(text));
        settle();
    }
    /// Tabs to the field of that name.
    void tabTo(const char* name) {
        for (int step = 0; step < 40 && focusName() != name; ++step) {
            press(Qt::Key_Tab);
        }
        ASSERT_EQ(focusName(), name);
    }
    static std::string focusName() {
        const QWidget* focus = QApplication::focusWidget();
        if (focus == nullptr) {
            return {};
        }
        const auto* button = qobject_cast<const QAbstractButton*>(focus);
        return utf8(focus->accessibleName().isEmpty() && button != nullptr
                        ? button->text()
                        : focus->accessibleName());
    }

    template <typename Widget>
    Widget* named(const char* name) {
        for (Widget* each : dialog->findChildren<Widget*>()) {
            if (each->accessibleName() == QString::fromUtf8(name) && each->isVisible()) {
                return each;
            }
        }
        return nullptr;
    }
    [[nodiscard]] bool tells(const char* text) const {
        for (const QLabel* label : dialog->findChildren<QLabel*>()) {
            if (label->isVisible() && label->text().contains(QString::fromUtf8(text))) {
                return true;
            }
        }
        return false;
    }
    QAbstractItemView* payeeList() { return named<PayeeField>("Payee")->completer()->popup(); }

    [[nodiscard]] const Transaction& last() const { return test.library().transactions.back(); }
    [[nodiscard]] const Transaction& stored(const UUID& id) const {
        return *test.index().transaction(id);
    }
    [[nodiscard]] std::size_t entryCount() const { return test.library().transactions.size(); }

    Account everyday = makeAccount("Everyday");
    Account savings = makeAccount("Savings", AccountType::savings);
    Category food = makeCategory("Food");
    Category home = makeCategory("Home");
    Transaction shop = makeTransaction(everyday.id, day(2026, 3, 1, 9), "Corner Shop", "-40.25");
    TestEnvironment test;
    std::unique_ptr<TransactionEditorDialog> dialog;
};

} // namespace oakfen::testing
