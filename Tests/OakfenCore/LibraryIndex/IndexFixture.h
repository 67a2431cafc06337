#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "OakfenCore/LibraryIndex/LibraryIndex.h"
#include "Tests/Support/TestLedger.h"

/// Short ways to make documents and their indexes.
namespace oakfen::testing {

/// The instant for which the tests build indexes: noon of March 15th, 2026, in UTC.
inline Date today() {
    return day(2026, 3, 15);
}

inline std::unique_ptr<LibraryIndex> indexOf(Library library) {
    return std::make_unique<LibraryIndex>(std::move(library), today(), Calendar::utc());
}

inline Account accountWith(std::string_view openingBalance, std::string name = "Chequing",
                           AccountType type = AccountType::chequing) {
    Account account = makeAccount(std::move(name), type);
    account.openingBalance = amount(openingBalance);
    return account;
}

/// A document with one chequing account.
struct OneAccount {
    explicit OneAccount(std::string_view openingBalance = "0") {
        library.accounts.push_back(accountWith(openingBalance));
    }

    [[nodiscard]] const UUID& id() const { return library.accounts.front().id; }

    /// Appends an entry and gives its id.
    UUID add(Date date, std::string payee, std::string_view amountText,
             ClearedState cleared = ClearedState::uncleared) {
        Transaction entry = makeTransaction(id(), date, std::move(payee), amountText);
        entry.cleared = cleared;
        library.transactions.push_back(entry);
        return entry.id;
    }

    Library library;
};

template <typename Pointers>
std::vector<std::string> namesOf(const Pointers& records) {
    std::vector<std::string> names;
    for (const auto* record : records) {
        names.push_back(record->name);
    }
    return names;
}

template <typename Pointers>
std::vector<UUID> idsOf(const Pointers& records) {
    std::vector<UUID> ids;
    for (const auto* record : records) {
        ids.push_back(record->id);
    }
    return ids;
}

template <typename Pointers>
std::vector<std::string> payeesOf(const Pointers& entries) {
    std::vector<std::string> names;
    for (const Transaction* entry : entries) {
        names.push_back(entry->payee);
    }
    return names;
}

using Texts = std::vector<std::string>;

} // namespace oakfen::testing
