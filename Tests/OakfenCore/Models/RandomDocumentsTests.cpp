#include <gtest/gtest.h>

#include <string>

#include "OakfenCore/Models/LibraryCoding.h"
#include "Tests/Generators/RandomLibrary.h"

namespace oakfen {
namespace {

using testing::RandomLibrary;

template <typename Check>
void forRandomDocuments(Check check) {
    for (std::uint64_t seed = 1; seed <= 60; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        RandomLibrary source(seed);
        check(source.make(seed * 10), source);
    }
}

/// The same elements in chunks of other lengths: put in one by one among others that go again.
template <typename T>
SharedArray<T> rebuilt(const SharedArray<T>& elements, RandomLibrary& source) {
    SharedArray<T> result;
    std::vector<bool> isExtra;
    for (const T& element : elements) {
        for (std::size_t extras = source.below(3); extras > 0; --extras) {
            result.push_back(element);
            isExtra.push_back(true);
        }
        result.push_back(element);
        isExtra.push_back(false);
    }
    std::size_t index = 0;
    result.eraseIf([&](const T&) { return isExtra[index++]; });
    return result;
}

TEST(RandomDocuments, AreReadBackAsTheyWere) {
    forRandomDocuments([](const Library& library, RandomLibrary&) {
        ASSERT_EQ(decodeLibrary(encodeLibrary(library)), library);
    });
}

TEST(RandomDocuments, GiveTheSameBytesWhenEqual) {
    forRandomDocuments([](const Library& library, RandomLibrary& source) {
        Library equal = library;
        equal.accounts = rebuilt(library.accounts, source);
        equal.categories = rebuilt(library.categories, source);
        equal.transactions = rebuilt(library.transactions, source);
        equal.securities = rebuilt(library.securities, source);
        equal.investmentTransactions = rebuilt(library.investmentTransactions, source);
        equal.scheduled = rebuilt(library.scheduled, source);
        equal.goals = rebuilt(library.goals, source);
        equal.budget.clear();
        for (auto item = library.budget.rbegin(); item != library.budget.rend(); ++item) {
            equal.budget.insert(*item);
        }
        ASSERT_EQ(equal, library);
        ASSERT_EQ(encodeLibrary(equal), encodeLibrary(library));
    });
}

TEST(RandomDocuments, GiveOtherBytesWhenOneRecordDiffers) {
    forRandomDocuments([](const Library& library, RandomLibrary& source) {
        Library other = library;
        Transaction& entry = other.transactions.edit(source.below(other.transactions.size()));
        switch (source.below(4)) {
        case 0:
            entry.memo += "x";
            break;
        case 1:
            entry.date = entry.date.adding(1);
            break;
        case 2:
            entry.tags.emplace_back();
            break;
        default:
            entry.importID = entry.importID ? std::nullopt : std::optional<std::string>("");
        }
        ASSERT_NE(other, library);
        ASSERT_NE(encodeLibrary(other), encodeLibrary(library));
    });
}

} // namespace
} // namespace oakfen
