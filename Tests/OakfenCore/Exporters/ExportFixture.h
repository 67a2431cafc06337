#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "OakfenCore/Exporters/Exporter.h"
#include "Tests/Support/TestLedger.h"

namespace oakfen::testing {

/// A document with two accounts and some categories, whose entries a test adds.
class ExportFixture : public ::testing::Test {
protected:
    ExportFixture() {
        library.accounts.push_back(everyday);
        library.accounts.push_back(card);
        library.categories.push_back(food);
        library.categories.push_back(groceries);
    }

    Transaction& add(Date date, std::string payee, std::string_view amountText) {
        return entries.emplace_back(
            makeTransaction(everyday.id, date, std::move(payee), amountText));
    }

    [[nodiscard]] std::vector<const Transaction*> pointers() const {
        std::vector<const Transaction*> result;
        for (const Transaction& entry : entries) {
            result.push_back(&entry);
        }
        return result;
    }

    [[nodiscard]] LibraryIndex index() const {
        return {library, day(2026, 3, 15), Calendar::utc()};
    }

    [[nodiscard]] std::string csv() const {
        return Exporter::transactionsCSV(pointers(), index(), Calendar::utc());
    }

    [[nodiscard]] std::string qif() const { return qif(everyday); }
    [[nodiscard]] std::string qif(const Account& account) const {
        return Exporter::qif(account, pointers(), index(), Calendar::utc());
    }

    Account everyday = makeAccount("Everyday");
    Account card = makeAccount("Card", AccountType::creditCard);
    Category food = makeCategory("Food");
    Category groceries = makeCategory("Groceries", CategoryKind::expense, food.id);
    Library library{.currencyCode = "CAD"};
    std::vector<Transaction> entries;
};

} // namespace oakfen::testing
