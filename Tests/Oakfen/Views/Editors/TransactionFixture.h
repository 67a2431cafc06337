#pragma once

#include <gtest/gtest.h>

#include <string>

#include "Oakfen/Views/Editors/TransactionEditor.h"
#include "OakfenCore/LibraryOperations/Transactions.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen::testing {

/// Three accounts, a few categories and one entry to edit.
class TransactionFixture : public ::testing::Test {
protected:
    TransactionFixture() {
        test.store->mutate("Add", [this](Library& library) {
            for (const Account& account : {savings, everyday, card}) {
                library.accounts.push_back(account);
            }
            for (const Category& category : {food, home, salary}) {
                library.categories.push_back(category);
            }
            upsert(library, shop);
        });
        test.undoManager->removeAllActions();
    }

    void enter(const Transaction& entry) {
        test.store->mutate("Enter", [&](Library& library) { upsert(library, entry); });
        test.undoManager->removeAllActions();
    }

    [[nodiscard]] TransactionEditor newEntry() {
        return {*test, ActiveSheet::NewTransaction{everyday.id}};
    }
    [[nodiscard]] TransactionEditor newEntry(std::string payee) {
        TransactionEditor editor = newEntry();
        editor.draft.payee = std::move(payee);
        return editor;
    }
    [[nodiscard]] TransactionEditor edit(const UUID& id) {
        return {*test, ActiveSheet::EditTransaction{id}};
    }

    [[nodiscard]] const Transaction& stored(const UUID& id) const {
        return *test.index().transaction(id);
    }
    [[nodiscard]] std::size_t entryCount() const { return test.library().transactions.size(); }

    [[nodiscard]] Transaction splitEntry(std::string payee, std::string_view first,
                                         std::string_view second) const {
        Transaction entry = makeTransaction(everyday.id, day(2026, 3, 2), std::move(payee), "0");
        entry.splits = {
            {.id = UUID::random(), .categoryID = food.id, .memo = "a", .amount = amount(first)},
            {.id = UUID::random(), .categoryID = home.id, .memo = "b", .amount = amount(second)}};
        return entry;
    }
    [[nodiscard]] Transaction transfer(std::string_view value) const {
        Transaction entry = makeTransaction(everyday.id, day(2026, 3, 3), "Moved", value);
        entry.transferAccountID = savings.id;
        return entry;
    }

    /// A transfer from the everyday account's side only, so that it is the one remembered.
    void rememberLoneLeg(std::string_view value) {
        test.store->mutate("Remember", [&](Library& library) {
            Transaction leg = transfer(value);
            leg.date = day(2026, 3, 4 + static_cast<int>(entryCount()));
            library.transactions.push_back(leg);
        });
    }

    Account everyday = makeAccount("Everyday");
    Account savings = makeAccount("Savings", AccountType::savings);
    Account card = makeAccount("Card", AccountType::creditCard);
    Category food = makeCategory("Food");
    Category home = makeCategory("Home");
    Category salary = makeCategory("Salary", CategoryKind::income);
    Transaction shop = shopEntry();
    TestEnvironment test;

private:
    [[nodiscard]] Transaction shopEntry() const {
        Transaction entry = makeTransaction(everyday.id, day(2026, 3, 1, 9), "Shop", "-40.25");
        entry.categoryID = food.id;
        entry.memo = "weekly";
        entry.checkNumber = "12";
        entry.tags = {"Tax", "Home"};
        entry.importID = "bank-1";
        return entry;
    }
};

} // namespace oakfen::testing
