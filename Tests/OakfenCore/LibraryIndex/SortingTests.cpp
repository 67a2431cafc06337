#include <random>

#include <gtest/gtest.h>

#include "OakfenCore/LibraryIndex/Sorting.h"

namespace oakfen {
namespace {

using Pairs = std::vector<std::pair<int, int>>;

bool byFirst(const std::pair<int, int>& a, const std::pair<int, int>& b) {
    return a.first < b.first;
}

TEST(SortNoticingOrder, AgreesWithAStableSortOnAnyInput) {
    std::mt19937 random(1);
    for (int round = 0; round < 500; ++round) {
        Pairs elements(random() % 60);
        const std::size_t span = 1 + random() % 40;
        for (std::size_t index = 0; index < elements.size(); ++index) {
            elements[index] = {static_cast<int>(random() % span), static_cast<int>(index)};
        }
        Pairs expected = elements;
        std::stable_sort(expected.begin(), expected.end(), byFirst);
        sortNoticingOrder(elements, byFirst);
        ASSERT_EQ(elements, expected);
    }
}

TEST(SortNoticingOrder, ComparesASortedInputOnlyOnce) {
    Pairs elements;
    for (int value = 0; value < 1000; ++value) {
        elements.emplace_back(value, 0);
    }
    int comparisons = 0;
    sortNoticingOrder(elements, [&comparisons](const auto& a, const auto& b) {
        ++comparisons;
        return byFirst(a, b);
    });
    EXPECT_EQ(comparisons, 999);
}

TEST(SortForPeople, PutsTextsThatDifferOnlyInCaseInPlainOrder) {
    std::vector<std::string> texts{"b", "a", "B", "A"};
    sortForPeople(texts, std::identity());
    EXPECT_EQ(texts, (std::vector<std::string>{"A", "a", "B", "b"}));
}

TEST(SortForPeople, KeepsTheOrderOfElementsWithOneText) {
    Pairs elements{{2, 0}, {1, 1}, {2, 2}, {1, 3}};
    sortForPeople(elements, [](const auto& pair) { return std::to_string(pair.first); });
    EXPECT_EQ(elements, (Pairs{{1, 1}, {1, 3}, {2, 0}, {2, 2}}));
}

} // namespace
} // namespace oakfen
