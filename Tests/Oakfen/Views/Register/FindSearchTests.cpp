#include "Oakfen/Views/Register/FindSearch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "Oakfen/Views/Register/FindView.h"
#include "Oakfen/Views/Register/RegisterView.h"
#include "OakfenCore/Exporters/Exporter.h"
#include "Tests/Generators/RandomLibrary.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::RandomLibrary;
using testing::TestEnvironment;

/// What the registers of all accounts find by themselves.
UUIDSet foundInRegisters(TestEnvironment& test, const std::string& term) {
    UUIDSet found;
    for (const Account& account : test.library().accounts) {
        RegisterView view(*test, account.id);
        view.setSearchText(term);
        for (const RegisterRow* row : view.content()->table->rows()) {
            found.insert(row->id);
        }
    }
    return found;
}

UUIDSet foundInAll(TestEnvironment& test, std::string term) {
    const FindView view(*test, term);
    UUIDSet found;
    for (const FoundEntry* entry : view.content()->table->rows()) {
        found.insert(entry->id);
    }
    return found;
}

/// Terms that some entries of the document hold, and some that few do.
std::vector<std::string> termsFor(RandomLibrary& source, const Library& library) {
    std::vector<std::string> terms{"",      " ", "a", "5", "0", "00", ".", "uncategorized",
                                   "split", "["};
    for (int count = 0; count < 8; ++count) {
        const Transaction& entry = library.transactions[source.below(library.transactions.size())];
        terms.push_back(entry.payee);
        terms.push_back(entry.memo);
        terms.push_back(entry.checkNumber);
        terms.push_back(Exporter::plain(entry.amount.magnitude()));
        for (const std::string& tag : entry.tags) {
            terms.push_back(tag);
        }
        const Category& category = library.categories[source.below(library.categories.size())];
        terms.push_back(category.name);
    }
    return terms;
}

Library withoutSplits(Library library) {
    for (std::size_t place = 0; place < library.transactions.size(); ++place) {
        if (library.transactions[place].isSplit()) {
            library.transactions.edit(place).splits.clear();
        }
    }
    return library;
}

TEST(FindSearch, FindsInAnyLedgerWithoutSplitsJustWhatTheRegistersDo) {
    for (std::uint64_t seed = 1; seed <= 12; ++seed) {
        RandomLibrary source(seed);
        TestEnvironment test(withoutSplits(source.make(120)));
        for (const std::string& term : termsFor(source, test.library())) {
            SCOPED_TRACE("seed " + std::to_string(seed) + ", term “" + term + "”");
            ASSERT_EQ(foundInAll(test, term), foundInRegisters(test, term));
        }
    }
}

/// Whether the register would find one of the entry's lines, were it an entry of its own.
bool hasLine(const Transaction& entry, const std::string& term, const LibraryIndex& index) {
    return std::ranges::any_of(entry.splits, [&](const Split& line) {
        const RegisterRow row{.categoryName = index.categoryName(line.categoryID),
                              .memo = line.memo,
                              .amount = line.amount};
        return RegisterSearch(term).finds(row);
    });
}

TEST(FindSearch, FindsInAnyLedgerWhatTheRegistersDoAndTheSplitsThatHoldTheTermInALine) {
    std::size_t more = 0;
    for (std::uint64_t seed = 101; seed <= 112; ++seed) {
        RandomLibrary source(seed);
        TestEnvironment test(source.make(120));
        for (const std::string& term : termsFor(source, test.library())) {
            SCOPED_TRACE("seed " + std::to_string(seed) + ", term “" + term + "”");
            UUIDSet expected = foundInRegisters(test, term);
            const std::size_t inRegisters = expected.size();
            for (const Transaction& entry : test.library().transactions) {
                if (hasLine(entry, term, test.index())) {
                    expected.insert(entry.id);
                }
            }
            ASSERT_EQ(foundInAll(test, term), expected);
            more += expected.size() - inRegisters;
        }
    }
    EXPECT_GT(more, 0U);
}

} // namespace
} // namespace oakfen
