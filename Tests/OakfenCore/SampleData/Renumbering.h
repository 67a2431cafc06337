#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>

#include "OakfenCore/Models/Library.h"

namespace oakfen::testing {

/// Gives every id of a document its number in the order of the records, so that two documents are
/// equal if they differ in nothing else.
class Renumbering {
public:
    [[nodiscard]] Library renumbered(Library library) {
        each(library.accounts, [](Account&) {});
        each(library.categories, [this](Category& category) { change(category.parentID); });
        each(library.transactions, [this](Transaction& entry) {
            change(entry.accountID);
            change(entry.categoryID);
            change(entry.transferAccountID);
            change(entry.transferID);
            for (Split& split : entry.splits) {
                change(split.id);
                change(split.categoryID);
            }
        });
        each(library.securities, [](Security&) {});
        each(library.investmentTransactions, [this](InvestmentTransaction& row) {
            change(row.accountID);
            change(row.securityID);
        });
        each(library.scheduled, [this](ScheduledTransaction& reminder) {
            change(reminder.accountID);
            change(reminder.categoryID);
            change(reminder.transferAccountID);
        });
        each(library.goals, [](SavingsGoal&) {});
        std::map<UUID, Decimal> budget;
        for (const auto& [id, amount] : library.budget) {
            budget[numbered(id)] = amount;
        }
        library.budget = budget;
        return library;
    }

    /// All ids of the document.
    [[nodiscard]] std::set<UUID> ids() const {
        std::set<UUID> result;
        for (const auto& [id, number] : numbers_) {
            result.insert(id);
        }
        return result;
    }

private:
    template <typename Record, typename Change>
    void each(SharedArray<Record>& records, Change&& changeReferences) {
        for (std::size_t index = 0; index < records.size(); ++index) {
            change(records.edit(index).id);
            changeReferences(records.edit(index));
        }
    }
    void change(std::optional<UUID>& id) {
        if (id) {
            change(*id);
        }
    }
    void change(UUID& id) { id = numbered(id); }

    UUID numbered(const UUID& id) {
        UUID number;
        const std::size_t next = numbers_.size() + 1;
        number.bytes[0] = static_cast<std::uint8_t>(next / 256);
        number.bytes[1] = static_cast<std::uint8_t>(next % 256);
        return numbers_.try_emplace(id, number).first->second;
    }

    std::map<UUID, UUID> numbers_;
};

} // namespace oakfen::testing
