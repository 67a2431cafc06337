#include "OakfenCore/Models/NumberCheck.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "OakfenCore/Models/LibraryCoding.h"
#include "Tests/Generators/RandomLibrary.h"

namespace oakfen {
namespace {

using testing::RandomLibrary;

/// A document with one record of each kind, and every optional amount present.
Library oneOfEach() {
    Library library{.currencyCode = "CAD"};
    library.accounts.push_back(
        {.creditLimit = Decimal(1), .lowBalanceAlert = Decimal(1), .interestRate = Decimal(1)});
    library.transactions.push_back({.splits = {Split{}, Split{}}});
    library.securities.push_back({.priceHistory = {PricePoint{}, PricePoint{}}});
    library.investmentTransactions.push_back({});
    library.scheduled.push_back({});
    library.goals.push_back({});
    library.budget[UUID::random()] = Decimal(1);
    return library;
}

/// Every place of an amount in that document.
std::vector<std::pair<const char*, Decimal*>> amounts(Library& library) {
    Account& account = library.accounts.edit(0);
    Transaction& entry = library.transactions.edit(0);
    Security& security = library.securities.edit(0);
    InvestmentTransaction& row = library.investmentTransactions.edit(0);
    SavingsGoal& goal = library.goals.edit(0);
    return {{"opening balance", &account.openingBalance},
            {"credit limit", &*account.creditLimit},
            {"low balance alert", &*account.lowBalanceAlert},
            {"interest rate", &*account.interestRate},
            {"amount", &entry.amount},
            {"first split", &entry.splits[0].amount},
            {"last split", &entry.splits[1].amount},
            {"price", &security.price},
            {"first price of the history", &security.priceHistory[0].price},
            {"last price of the history", &security.priceHistory[1].price},
            {"shares", &row.shares},
            {"price of a row", &row.price},
            {"commission", &row.commission},
            {"amount of a row", &row.amount},
            {"amount of a reminder", &library.scheduled.edit(0).amount},
            {"target", &goal.target},
            {"saved", &goal.saved},
            {"budget", &library.budget.begin()->second}};
}

TEST(NumberCheck, FindsAnAmountThatIsNotANumberInEveryField) {
    const Library before = oneOfEach();
    Library sound = before;
    const std::size_t count = amounts(sound).size();
    EXPECT_FALSE(addsNaN(Library{.currencyCode = "CAD"}, sound));
    for (std::size_t place = 0; place < count; ++place) {
        Library after = before;
        const auto [name, amount] = amounts(after)[place];
        *amount = Decimal::nan();
        EXPECT_TRUE(addsNaN(before, after)) << name;
        EXPECT_TRUE(addsNaN(Library{.currencyCode = "CAD"}, after)) << name;
        EXPECT_THROW((void)encodeLibrary(after), LocalizedError) << name;
    }
}

TEST(NumberCheck, LooksOnlyIntoWhatTheEditHasTouched) {
    Library before = oneOfEach();
    before.transactions.edit(0).amount = Decimal::nan();
    Library after = before;
    after.accounts.edit(0).name = "Renamed";
    EXPECT_FALSE(addsNaN(before, after));
    after.transactions.edit(0).memo = "touched";
    EXPECT_TRUE(addsNaN(before, after));
}

/// Some edit of the entries: it changes, adds or removes a few of them, or whole chunks.
void editEntries(Library& library, RandomLibrary& source) {
    auto& entries = library.transactions;
    for (std::size_t edits = 1 + source.below(3); edits > 0 && !entries.empty(); --edits) {
        const std::size_t index = source.below(entries.size());
        switch (source.below(4)) {
        case 0:
            entries.edit(index).memo = source.text();
            break;
        case 1:
            entries.erase(index);
            break;
        case 2:
            entries.push_back(entries[index]);
            break;
        default:
            entries.eraseIf([&, place = std::size_t{0}](const Transaction&) mutable {
                return place++ / 300 == index / 300;
            });
        }
    }
}

TEST(NumberCheck, AgreesWithTheEncoderAfterAnyEdit) {
    for (std::uint64_t seed = 1; seed <= 60; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        RandomLibrary source(seed);
        const Library before = source.make(1 + source.below(1'500));
        Library after = before;
        editEntries(after, source);
        EXPECT_FALSE(addsNaN(before, after));
        if (after.transactions.empty()) {
            continue;
        }
        after.transactions.edit(source.below(after.transactions.size())).amount = Decimal::nan();
        editEntries(after, source);
        bool isRefused = false;
        try {
            (void)encodeLibrary(after);
        } catch (const LocalizedError&) {
            isRefused = true;
        }
        EXPECT_EQ(addsNaN(before, after), isRefused);
    }
}

} // namespace
} // namespace oakfen
