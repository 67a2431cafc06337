#pragma once

#include <string>

#include "Oakfen/Views/Register/FindView.h"
#include "Tests/Oakfen/Views/Register/RegisterFixture.h"

namespace oakfen::testing {

/// The register's accounts with a closed one that has an entry, and a receipt on the card that is
/// split; and the search through them all.
class FindFixture : public RegisterFixture {
protected:
    FindFixture() {
        test.store->mutate("Add", [this](Library& library) {
            closed.isClosed = true;
            library.accounts.push_back(closed);
            dining.parentID = food.id;
            library.categories.push_back(dining);
            receipt.splits = {{.id = UUID::random(),
                               .categoryID = dining.id,
                               .memo = "birthday",
                               .amount = amount("-12.75")},
                              {.id = UUID::random(), .amount = amount("-7.25")}};
            oldBill.tags = {"Cottage"};
            for (const Transaction& entry : {receipt, oldBill}) {
                upsert(library, entry);
            }
        });
    }

    /// "Shop in Everyday|…", from the top down.
    [[nodiscard]] std::string found() const {
        std::string list;
        for (const FoundEntry* entry : find.content()->table->rows()) {
            list += (list.empty() ? "" : "|") + entry->row->payee + " in " +
                    std::string(entry->accountName);
        }
        return list;
    }
    [[nodiscard]] std::string found(const std::string& searchText) {
        find.setSearchText(searchText);
        return found();
    }

    Account closed = makeAccount("Old Chequing");
    Category dining = makeCategory("Dining Out");
    Transaction receipt = makeTransaction(card.id, day(2026, 3, 1), "Market", "-20");
    Transaction oldBill = makeTransaction(closed.id, day(2024, 5, 5), "Hydro", "-88.20");
    std::string term;
    FindView find{*test, term};
};

} // namespace oakfen::testing
