#include "OakfenCore/Support/Values/SharedArray.h"

#include <gtest/gtest.h>
#include <random>

namespace oakfen {
namespace {

using Numbers = SharedArray<int>;
constexpr std::size_t capacity = Numbers::chunkCapacity;

Numbers counting(std::size_t count) {
    Numbers numbers;
    for (std::size_t index = 0; index < count; ++index) {
        numbers.push_back(static_cast<int>(index));
    }
    return numbers;
}

std::size_t sharedChunks(const Numbers& a, const Numbers& b) {
    std::size_t count = 0;
    for (const auto& chunk : a.chunks()) {
        count += static_cast<std::size_t>(std::count(b.chunks().begin(), b.chunks().end(), chunk));
    }
    return count;
}

/// What holds for every array, whatever was done to it.
void expectSound(const Numbers& array, const std::vector<int>& model) {
    ASSERT_EQ(array.size(), model.size());
    ASSERT_EQ(array.empty(), model.empty());
    ASSERT_TRUE(std::equal(array.begin(), array.end(), model.begin(), model.end()));
    for (std::size_t index = 0; index < model.size(); index += 37) {
        ASSERT_EQ(array[index], model[index]);
    }
    if (!model.empty()) {
        ASSERT_EQ(array.front(), model.front());
        ASSERT_EQ(array.back(), model.back());
        ASSERT_EQ(array[model.size() - 1], model.back());
    }
    for (const auto& chunk : array.chunks()) {
        ASSERT_FALSE(chunk->empty());
        ASSERT_LE(chunk->size(), capacity);
    }
}

TEST(SharedArray, IsEmptyWhenMade) {
    const Numbers empty;
    EXPECT_TRUE(empty.empty());
    EXPECT_EQ(empty.size(), 0U);
    EXPECT_TRUE(empty.begin() == empty.end());
    EXPECT_EQ(empty, Numbers());
}

TEST(SharedArray, KeepsWhatItIsMadeOf) {
    const Numbers numbers{3, 1, 2};
    expectSound(numbers, {3, 1, 2});
    expectSound(Numbers(std::vector<int>(1000, 5)), std::vector<int>(1000, 5));
}

TEST(SharedArray, FillsChunksToTheBrim) {
    EXPECT_EQ(counting(capacity).chunks().size(), 1U);
    EXPECT_EQ(counting(capacity + 1).chunks().size(), 2U);
    EXPECT_EQ(counting(capacity * 10).chunks().size(), 10U);
}

TEST(SharedArray, ACopySharesAllChunks) {
    const Numbers numbers = counting(capacity * 8);
    const Numbers copy = numbers;
    EXPECT_EQ(sharedChunks(numbers, copy), 8U);
}

TEST(SharedArray, EditingACopyCopiesOneChunk) {
    const Numbers numbers = counting(capacity * 8);
    Numbers copy = numbers;
    copy.edit(capacity * 3 + 5) = -1;
    EXPECT_EQ(sharedChunks(numbers, copy), 7U);
    EXPECT_EQ(numbers[capacity * 3 + 5], static_cast<int>(capacity * 3 + 5));
    EXPECT_EQ(copy[capacity * 3 + 5], -1);
}

TEST(SharedArray, EditingInPlaceCopiesNothingThatIsNotShared) {
    Numbers numbers = counting(capacity * 2);
    const auto* address = numbers.chunks()[0].get();
    numbers.edit(0) = 9;
    EXPECT_EQ(numbers.chunks()[0].get(), address);
}

TEST(SharedArray, AppendingToACopyCopiesOnlyTheLastChunk) {
    const Numbers numbers = counting(capacity * 4 + 1);
    Numbers copy = numbers;
    copy.push_back(7);
    EXPECT_EQ(sharedChunks(numbers, copy), 4U);
    EXPECT_EQ(numbers.size() + 1, copy.size());
    EXPECT_EQ(copy.back(), 7);
}

TEST(SharedArray, AppendingBehindAFullChunkCopiesNothing) {
    const Numbers numbers = counting(capacity * 4);
    Numbers copy = numbers;
    copy.push_back(7);
    EXPECT_EQ(sharedChunks(numbers, copy), 4U);
}

TEST(SharedArray, ErasingKeepsTheChunksWithoutAPick) {
    const Numbers numbers = counting(capacity * 8);
    Numbers copy = numbers;
    EXPECT_EQ(copy.eraseIf([](int value) { return value == 5; }), 1U);
    EXPECT_EQ(sharedChunks(numbers, copy), 7U);
    EXPECT_EQ(copy.size(), numbers.size() - 1);
    EXPECT_EQ(copy[5], 6);
}

TEST(SharedArray, ErasingAWholeChunkDropsIt) {
    Numbers numbers = counting(capacity * 3);
    EXPECT_EQ(numbers.eraseIf([](int value) {
        return value >= static_cast<int>(capacity) && value < static_cast<int>(capacity * 2);
    }),
              capacity);
    EXPECT_EQ(numbers.chunks().size(), 2U);
    EXPECT_EQ(numbers[capacity], static_cast<int>(capacity * 2));
}

TEST(SharedArray, ErasingCallsThePredicateOnceForEachInOrder) {
    Numbers numbers = counting(capacity + 10);
    std::vector<int> seen;
    numbers.eraseIf([&](int value) {
        seen.push_back(value);
        return value % 2 == 0;
    });
    expectSound(counting(capacity + 10), seen);
}

TEST(SharedArray, ErasingOneElementCopiesOnlyItsChunk) {
    const Numbers numbers = counting(capacity * 8);
    Numbers copy = numbers;
    copy.erase(capacity * 2);
    EXPECT_EQ(sharedChunks(numbers, copy), 7U);
    EXPECT_EQ(copy[capacity * 2], static_cast<int>(capacity * 2 + 1));
    EXPECT_EQ(numbers.size(), copy.size() + 1);
}

TEST(SharedArray, ErasingTheOnlyElementOfAChunkDropsTheChunk) {
    Numbers numbers = counting(capacity + 1);
    numbers.erase(capacity);
    expectSound(numbers, std::vector<int>(numbers.begin(), numbers.end()));
    EXPECT_EQ(numbers.chunks().size(), 1U);
    Numbers one{4};
    one.erase(0);
    EXPECT_TRUE(one.empty());
}

TEST(SharedArray, EditingWhereCopiesOnlyChunksThatChange) {
    const Numbers numbers = counting(capacity * 8);
    Numbers copy = numbers;
    // Every element is offered a change; only one ends up different.
    copy.editWhere([](int) { return true; }, [](int& value) { value = value == 3 ? -3 : value; });
    EXPECT_EQ(sharedChunks(numbers, copy), 7U);
    EXPECT_EQ(copy[3], -3);
    EXPECT_EQ(numbers[3], 3);
}

TEST(SharedArray, FindsTheFirstPick) {
    const Numbers numbers = counting(capacity * 2);
    const auto big = [](int value) { return value > 300; };
    EXPECT_EQ(numbers.firstIndex(big), 301U);
    EXPECT_EQ(numbers.first(big), &numbers[301]);
    EXPECT_EQ(numbers.firstIndex([](int value) { return value < 0; }), std::nullopt);
    EXPECT_EQ(numbers.first([](int value) { return value < 0; }), nullptr);
}

TEST(SharedArray, EqualityDoesNotDependOnTheChunks) {
    Numbers erased = counting(capacity * 2);
    erased.eraseIf([](int value) { return value < 100; });
    Numbers built;
    for (int value = 100; value < static_cast<int>(capacity * 2); ++value) {
        built.push_back(value);
    }
    EXPECT_NE(erased.chunks()[0]->size(), built.chunks()[0]->size());
    EXPECT_EQ(erased, built);
    built.edit(200) = 0;
    EXPECT_NE(erased, built);
}

struct Counted {
    int value = 0;
    static inline int comparisons = 0;

    friend bool operator==(const Counted& a, const Counted& b) {
        ++comparisons;
        return a.value == b.value;
    }
};

TEST(SharedArray, EqualityDoesNotLookIntoSharedChunks) {
    SharedArray<Counted> array;
    for (int value = 0; value < static_cast<int>(capacity * 10); ++value) {
        array.push_back({value});
    }
    SharedArray<Counted> copy = array;
    Counted::comparisons = 0;
    EXPECT_TRUE(array == copy);
    EXPECT_EQ(Counted::comparisons, 0);
    copy.edit(0).value = 0;
    EXPECT_TRUE(array == copy);
    EXPECT_EQ(Counted::comparisons, static_cast<int>(capacity));
}

TEST(SharedArray, IsEmptyAfterClearingAndUsableAgain) {
    Numbers numbers = counting(capacity * 2);
    const Numbers copy = numbers;
    numbers.clear();
    EXPECT_TRUE(numbers.empty());
    numbers.push_back(4);
    expectSound(numbers, {4});
    EXPECT_EQ(copy, counting(capacity * 2));
}

TEST(SharedArray, BehavesAsAVectorAndLeavesSnapshotsAlone) {
    std::mt19937 random(42);
    const auto below = [&](std::size_t limit) { return random() % limit; };
    for (int round = 0; round < 20; ++round) {
        Numbers array;
        std::vector<int> model;
        std::vector<std::pair<Numbers, std::vector<int>>> snapshots;
        for (int step = 0; step < 150; ++step) {
            const int value = static_cast<int>(below(1000));
            const int divisor = static_cast<int>(below(40)) + 2;
            const auto picks = [&](int element) { return element % divisor == 1; };
            switch (below(7)) {
            case 0:
            case 1:
                for (int count = value / 4; count > 0; --count) {
                    array.push_back(value + count);
                    model.push_back(value + count);
                }
                break;
            case 2:
                ASSERT_EQ(array.eraseIf(picks), std::erase_if(model, picks));
                break;
            case 3:
                if (!model.empty()) {
                    const std::size_t index = below(model.size());
                    array.edit(index) = value;
                    model[index] = value;
                }
                break;
            case 4:
                if (!model.empty()) {
                    const std::size_t index = below(model.size());
                    array.erase(index);
                    model.erase(model.begin() + static_cast<std::ptrdiff_t>(index));
                }
                break;
            case 5:
                array.editWhere(picks, [](int& element) { element += 3; });
                std::for_each(model.begin(), model.end(),
                              [&](int& element) { element += picks(element) ? 3 : 0; });
                break;
            default:
                snapshots.emplace_back(array, model);
            }
            expectSound(array, model);
        }
        for (const auto& [snapshot, expected] : snapshots) {
            expectSound(snapshot, expected);
            EXPECT_EQ(snapshot == array, expected == model);
        }
    }
}

} // namespace
} // namespace oakfen
