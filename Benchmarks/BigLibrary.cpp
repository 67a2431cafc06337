#include "Benchmarks/BigLibrary.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace oakfen::benchmarks {

namespace {

constexpr double secondsPerDay = 86400;
constexpr double years = 20;
/// Noon of the day after the last entries.
constexpr Date end{788961600.0 + secondsPerDay / 2};

/// Makes the document; entries come in date order, as a person enters them.
class Household {
public:
    Library make(std::size_t count) {
        addAccounts();
        addCategories();
        addPayees();
        const double days = years * 365.25;
        while (library_.transactions.size() < count) {
            const std::size_t size = library_.transactions.size();
            // Banks date by the day, so the entries of a day share an instant.
            const double age =
                std::ceil(days * static_cast<double>(count - size) / static_cast<double>(count));
            addEntry(end.adding(-age * secondsPerDay), count - size);
        }
        return std::move(library_);
    }

private:
    std::size_t below(std::size_t limit) { return random_() % limit; }
    bool chance(std::size_t percent) { return below(100) < percent; }

    UUID newID() {
        UUID id;
        for (std::size_t half = 0; half < id.bytes.size(); half += sizeof(std::uint64_t)) {
            const std::uint64_t bits = random_();
            std::memcpy(id.bytes.data() + half, &bits, sizeof bits);
        }
        return id;
    }

    void addAccounts() {
        static constexpr std::array<AccountType, 12> types{
            AccountType::chequing,   AccountType::creditCard, AccountType::chequing,
            AccountType::creditCard, AccountType::savings,    AccountType::cash,
            AccountType::savings,    AccountType::loan,       AccountType::lineOfCredit,
            AccountType::brokerage,  AccountType::retirement, AccountType::asset};
        for (const AccountType type : types) {
            library_.accounts.push_back(
                {.id = newID(),
                 .name = "Account " + std::to_string(library_.accounts.size() + 1),
                 .type = type,
                 .institution = "Lakeside Credit Union",
                 .openingBalance = Decimal::cents(static_cast<std::int64_t>(below(500000))),
                 .openingDate = end.adding(-years * 366 * secondsPerDay)});
        }
    }

    void addCategories() {
        for (int group = 1; group <= 16; ++group) {
            const auto kind = group == 1 ? CategoryKind::income : CategoryKind::expense;
            const Category root{newID(), "Group " + std::to_string(group), kind};
            library_.categories.push_back(root);
            for (int leaf = 1; leaf <= 4; ++leaf) {
                library_.categories.push_back(
                    {newID(), "Category " + std::to_string(leaf), kind, root.id});
            }
        }
    }

    void addPayees() {
        static constexpr std::array kinds{"Market", "Hardware", "Café", "Pharmacy", "Books",
                                          "Garage", "Bakery",   "Shop", "Dental",   "Hydro"};
        for (int number = 1; number <= 400; ++number) {
            payees_.push_back("Maple " + std::string(kinds[below(kinds.size())]) + " No. " +
                              std::to_string(number));
        }
    }

    UUID accountID() {
        // Half of a household's entries are on its first card and its first chequing account.
        return library_.accounts[chance(50) ? below(2) : below(library_.accounts.size())].id;
    }

    UUID categoryID() { return library_.categories[below(library_.categories.size())].id; }

    void addEntry(Date date, std::size_t room) {
        Transaction entry{.id = newID(), .accountID = accountID(), .date = date};
        // Few payees make most of the entries.
        entry.payee = payees_[std::min(below(payees_.size()), below(payees_.size()))];
        entry.amount = Decimal::cents(-static_cast<std::int64_t>(below(20000)) - 1);
        entry.cleared = end.secondsSinceReference - date.secondsSinceReference < 60 * secondsPerDay
                            ? ClearedState::uncleared
                            : ClearedState::reconciled;
        if (chance(30)) {
            entry.memo = "Paid at the counter, receipt " + std::to_string(below(100000));
        }
        if (chance(5)) {
            entry.checkNumber = std::to_string(below(1000));
        }
        if (chance(10)) {
            entry.tags = {"household"};
        }
        if (chance(60)) {
            entry.importID = "2026" + std::to_string(random_());
        }
        const std::size_t kind = below(1000);
        if (kind < 26 && room >= 2) { // with both legs, five percent of the entries
            addTransfer(std::move(entry));
            return;
        }
        if (kind < 56) {
            addSplits(entry);
        } else if (kind < 960) {
            entry.categoryID = categoryID();
        }
        if (chance(8)) {
            entry.amount = -entry.amount * Decimal(12);
        }
        library_.transactions.push_back(std::move(entry));
    }

    void addTransfer(Transaction entry) {
        Transaction other = entry;
        other.id = newID();
        while (other.accountID == entry.accountID) {
            other.accountID = accountID();
        }
        other.amount = -entry.amount;
        other.importID.reset();
        entry.transferAccountID = other.accountID;
        other.transferAccountID = entry.accountID;
        entry.transferID = other.id;
        other.transferID = entry.id;
        library_.transactions.push_back(std::move(entry));
        library_.transactions.push_back(std::move(other));
    }

    void addSplits(Transaction& entry) {
        const Decimal part = Decimal::cents(-250);
        entry.splits = {{newID(), categoryID(), "Part", part},
                        {newID(), categoryID(), "", entry.amount}};
        entry.amount += part;
    }

    std::mt19937_64 random_{20260315};
    Library library_{.currencyCode = "CAD"};
    std::vector<std::string> payees_;
};

} // namespace

Library makeBigLibrary(std::size_t count) {
    return Household().make(count);
}

const Library& bigLibrary(std::size_t count) {
    static std::map<std::size_t, Library> made;
    const auto found = made.find(count);
    return found != made.end() ? found->second
                               : made.emplace(count, makeBigLibrary(count)).first->second;
}

Date bigLibraryNow() {
    return end;
}

} // namespace oakfen::benchmarks
