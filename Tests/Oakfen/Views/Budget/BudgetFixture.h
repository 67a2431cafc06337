#pragma once

#include <gtest/gtest.h>

#include "Oakfen/Views/Budget/BudgetView.h"
#include "OakfenCore/LibraryOperations/Accounts.h"
#include "OakfenCore/LibraryOperations/Categories.h"
#include "OakfenCore/LibraryOperations/Transactions.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen::testing {

/// Food with Groceries in it, Travel and Pay, none with a budget or an entry. It is March 15th.
class BudgetFixture : public ::testing::Test {
protected:
    BudgetFixture() {
        test.store->mutate("Set Up", [this](Library& library) {
            upsert(library, everyday);
            for (const Category& each : {travel, pay, groceries, food}) {
                upsert(library, each);
            }
        });
        test.undoManager->removeAllActions();
    }

    /// An entry of Everyday; negative for what was spent.
    void enter(const Category& category, Date date, std::string_view amountText) {
        Transaction entry = makeTransaction(everyday.id, date, "Somebody", amountText);
        entry.categoryID = category.id;
        test.store->mutate("New Transaction", [&](Library& library) { upsert(library, entry); });
    }
    void plan(const Category& category, std::string_view amountText) {
        test.store->mutate(
            "Plan", [&](Library& library) { library.budget[category.id] = amount(amountText); });
    }
    [[nodiscard]] std::optional<Decimal> planned(const Category& category) const {
        const auto found = test.library().budget.find(category.id);
        return found == test.library().budget.end() ? std::nullopt : std::optional(found->second);
    }
    void undo() { test.undoManager->undo(); }

    TestEnvironment test;
    Account everyday = makeAccount("Everyday");
    Category food = makeCategory("Food");
    Category groceries = makeCategory("Groceries", CategoryKind::expense, food.id);
    Category travel = makeCategory("Travel");
    Category pay = makeCategory("Pay", CategoryKind::income);
};

} // namespace oakfen::testing
