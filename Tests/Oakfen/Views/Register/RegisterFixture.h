#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "Oakfen/Views/Register/RegisterView.h"
#include "OakfenCore/LibraryOperations/Accounts.h"
#include "OakfenCore/LibraryOperations/Transactions.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen::testing {

/// An everyday account with four entries (the last one tomorrow), a card that one of them pays off,
/// and an empty savings account.
class RegisterFixture : public ::testing::Test {
protected:
    RegisterFixture() {
        test.store->replaceLibrary(document(), std::nullopt);
        const Library& library = test.library();
        cardPayment = *library.transactions.first(
            [this](const Transaction& each) { return each.id == cardPayment.id; });
    }

    [[nodiscard]] std::vector<const RegisterRow*> shownRows() const {
        return view.content()->table->rows();
    }

    [[nodiscard]] UUIDSet selection() const { return *view.content()->selection; }

    [[nodiscard]] std::string shownPayees() const {
        std::string payees;
        for (const RegisterRow* row : shownRows()) {
            payees += (payees.empty() ? "" : "|") + row->payee;
        }
        return payees;
    }

    [[nodiscard]] const Transaction& stored(const UUID& id) const {
        return *test.index().transaction(id);
    }

    [[nodiscard]] std::string undoName() const { return test.undoManager->undoActionName(); }

    Account everyday = bankAccount();
    Account card = cardAccount();
    Account savings = makeAccount("Savings", AccountType::savings);
    Category food = makeCategory("Food");
    Category salary = makeCategory("Salary", CategoryKind::income);
    Transaction cardPayment = makeTransaction(everyday.id, day(2026, 2, 1), "Card Company", "-500");
    Transaction shop = makeTransaction(everyday.id, day(2026, 2, 14), "Shop", "-40");
    Transaction pay = makeTransaction(everyday.id, day(2026, 3, 10), "Pay", "1000");
    Transaction rent = makeTransaction(everyday.id, day(2026, 3, 16), "Rent", "-1200");
    TestEnvironment test;
    RegisterView view{*test, everyday.id};

private:
    static Account bankAccount() {
        Account account = makeAccount("Everyday");
        account.institution = "Maple Bank";
        account.openingBalance = amount("1000");
        return account;
    }

    static Account cardAccount() {
        Account account = makeAccount("Card", AccountType::creditCard);
        account.openingBalance = amount("-475");
        account.creditLimit = amount("2000");
        return account;
    }

    Library document() {
        Library library{.currencyCode = "CAD"};
        for (const Account& account : {everyday, card, savings}) {
            library.accounts.push_back(account);
        }
        library.categories.push_back(food);
        library.categories.push_back(salary);
        cardPayment.transferAccountID = card.id;
        cardPayment.cleared = ClearedState::reconciled;
        shop.cleared = ClearedState::cleared;
        shop.categoryID = food.id;
        for (const Transaction& entry : {cardPayment, shop, pay, rent}) {
            upsert(library, entry);
        }
        return library;
    }
};

} // namespace oakfen::testing
