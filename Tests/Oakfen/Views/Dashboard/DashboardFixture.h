#pragma once

#include <gtest/gtest.h>

#include <string>

#include "Oakfen/Views/Dashboard/DashboardView.h"
#include "OakfenCore/LibraryOperations/Accounts.h"
#include "OakfenCore/LibraryOperations/Transactions.h"
#include "Tests/Support/LocaleForTest.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen::testing {

/// The start screen on a household of one account that was opened in January of 2026; it is noon of
/// March 15th.
class DashboardFixture : public ::testing::Test {
protected:
    DashboardFixture() {
        everyday.openingDate = day(2026, 1, 10);
        edit([&](Library& library) { library.accounts.push_back(everyday); });
    }

    template <typename Change>
    void edit(Change change) {
        test.store->mutate("Edit", change);
    }
    UUID addCategory(const std::string& name, CategoryKind kind = CategoryKind::expense,
                     std::optional<UUID> parentID = {}) {
        const Category category = makeCategory(name, kind, parentID);
        edit([&](Library& library) { library.categories.push_back(category); });
        return category.id;
    }
    UUID enter(Date date, std::string_view amountText, std::optional<UUID> categoryID = {},
               const std::string& payee = "Shop") {
        Transaction entry = makeTransaction(everyday.id, date, payee, amountText);
        entry.categoryID = categoryID;
        edit([&](Library& library) { library.transactions.push_back(entry); });
        return entry.id;
    }
    UUID remind(Date date, std::string_view amountText, const std::string& payee = "Rent") {
        const ScheduledTransaction reminder{.id = UUID::random(),
                                            .payee = payee,
                                            .accountID = everyday.id,
                                            .amount = amount(amountText),
                                            .nextDate = date};
        edit([&](Library& library) { library.scheduled.push_back(reminder); });
        return reminder.id;
    }
    void setBudget(const UUID& categoryID, std::string_view amountText) {
        edit([&](Library& library) { library.budget[categoryID] = amount(amountText); });
    }
    [[nodiscard]] const DashboardContent& shown() {
        kept_ = view.content();
        return *kept_;
    }

    LocaleForTest locale{"en_CA"};
    TestEnvironment test;
    Account everyday = makeAccount("Everyday");
    DashboardView view{*test};

private:
    std::shared_ptr<const DashboardContent> kept_;
};

} // namespace oakfen::testing
