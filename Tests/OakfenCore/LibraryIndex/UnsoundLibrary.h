#pragma once

#include <algorithm>
#include <array>
#include <random>
#include <utility>
#include <vector>

#include "OakfenCore/Models/Library.h"

namespace oakfen::testing {

/// Makes documents from a seed with all that an index must bear: entries out of order and in ties,
/// missing accounts, categories and securities, repeated ids, categories in circles, accounts of
/// every type, sales of more than is held, refunds.
class UnsoundLibrary {
public:
    explicit UnsoundLibrary(unsigned seed) : random_(seed) {}

    Library make(std::size_t count) {
        Library library{.currencyCode = "CAD"};
        addAccounts(library);
        addCategories(library);
        addSecurities(library);
        for (std::size_t index = 0; index < count; ++index) {
            library.transactions.push_back(entry());
        }
        for (std::size_t index = 0; index < count / 10; ++index) {
            library.investmentTransactions.push_back(row());
        }
        return library;
    }

    /// One random change to the entries: a new one, a changed one, or one less.
    void edit(Library& library) {
        const std::size_t size = library.transactions.size();
        switch (size == 0 ? 0 : below(3)) {
        case 0:
            library.transactions.push_back(entry());
            break;
        case 1: {
            Transaction changed = entry();
            Transaction& stored = library.transactions.edit(below(size));
            changed.id = stored.id;
            stored = std::move(changed);
            break;
        }
        default:
            const UUID doomed = library.transactions[below(size)].id;
            library.transactions.eraseIf([&](const Transaction& t) { return t.id == doomed; });
            break;
        }
    }

private:
    std::size_t below(std::size_t limit) { return random_() % limit; }
    bool chance(std::size_t oneIn) { return below(oneIn) == 0; }
    Date date() { return Date{static_cast<double>(790000000 + 30000 * below(400))}; }
    Decimal figure() { return Decimal::cents(static_cast<std::int64_t>(below(200)) * 25 - 2500); }
    UUID accountID() { return accountIDs_[below(accountIDs_.size())]; }
    UUID categoryID() { return categoryIDs_[below(categoryIDs_.size())]; }
    UUID newID() {
        ids_.push_back(chance(50) && !ids_.empty() ? ids_[below(ids_.size())] : UUID::random());
        return ids_.back();
    }

    void addAccounts(Library& library) {
        for (const AccountType type : allCases<AccountType>) {
            const UUID id = chance(8) && !accountIDs_.empty() ? accountID() : UUID::random();
            accountIDs_.push_back(id);
            library.accounts.push_back({.id = id,
                                        .name = "Account",
                                        .type = type,
                                        .openingBalance = figure(),
                                        .openingDate = date(),
                                        .isClosed = chance(4)});
        }
        accountIDs_.push_back(UUID::random()); // names no account
    }

    void addCategories(Library& library) {
        for (int count = 0; count < 20; ++count) {
            categoryIDs_.push_back(UUID::random());
        }
        for (const UUID& id : categoryIDs_) {
            Category category{.id = id, .name = "Category"};
            category.kind = chance(3) ? CategoryKind::income : CategoryKind::expense;
            if (chance(2)) {
                category.parentID = categoryID();
            }
            library.categories.push_back(category);
        }
        categoryIDs_.push_back(UUID::random()); // names no category
    }

    void addSecurities(Library& library) {
        for (int count = 0; count < 4; ++count) {
            securityIDs_.push_back(UUID::random());
            Security security{.id = securityIDs_.back(), .name = "Fund"};
            security.price = figure().magnitude();
            for (std::size_t points = below(5); points > 0; --points) {
                security.priceHistory.push_back({date(), figure().magnitude()});
            }
            std::sort(security.priceHistory.begin(), security.priceHistory.end(),
                      [](const PricePoint& a, const PricePoint& b) { return a.date < b.date; });
            library.securities.push_back(security);
        }
        securityIDs_.push_back(UUID::random()); // names no security
    }

    Transaction entry() {
        static constexpr std::array payees{"Acme", "acme ", "ACME", "Éclair", "éclair",
                                           "",     " ",     "Zoo",  "A&B",    "Mr. Ünal"};
        Transaction entry{.id = newID(), .accountID = accountID(), .date = date()};
        entry.payee = payees[below(payees.size())];
        entry.amount = figure();
        entry.cleared = allCases<ClearedState>[below(3)];
        if (chance(3)) {
            entry.categoryID = categoryID();
        }
        if (chance(10)) {
            entry.transferAccountID = accountID();
        }
        if (chance(10)) {
            for (std::size_t lines = 1 + below(4); lines > 0; --lines) {
                entry.splits.push_back({.id = newID(), .amount = figure()});
                if (chance(2)) {
                    entry.splits.back().categoryID = categoryID();
                }
            }
        }
        if (chance(5)) {
            entry.tags = {payees[below(4)], payees[below(4)]};
        }
        return entry;
    }

    InvestmentTransaction row() {
        return {.id = newID(),
                .accountID = accountID(),
                .securityID =
                    chance(5) ? std::optional<UUID>() : securityIDs_[below(securityIDs_.size())],
                .date = date(),
                .action = allCases<InvestmentAction>[below(7)],
                .shares = figure().magnitude(),
                .price = figure().magnitude(),
                .commission = Decimal::cents(static_cast<std::int64_t>(below(1000))),
                .amount = figure().magnitude()};
    }

    std::mt19937 random_;
    std::vector<UUID> accountIDs_;
    std::vector<UUID> categoryIDs_;
    std::vector<UUID> securityIDs_;
    std::vector<UUID> ids_;
};

} // namespace oakfen::testing
