#include "OakfenCore/Support/Values/SharedArray.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <vector>

namespace oakfen {
namespace {

using Numbers = SharedArray<int>;

std::size_t chunksNotIn(const Numbers& snapshot, const Numbers& edited) {
    std::set<const Numbers::Chunk*> shared;
    for (const auto& chunk : snapshot.chunks()) {
        shared.insert(chunk.get());
    }
    return static_cast<std::size_t>(
        std::count_if(edited.chunks().begin(), edited.chunks().end(),
                      [&](const auto& chunk) { return !shared.contains(chunk.get()); }));
}

/// How many chunks hold an element that is picked.
template <typename Predicate>
std::size_t chunksWith(const Numbers& array, Predicate picks) {
    return static_cast<std::size_t>(
        std::count_if(array.chunks().begin(), array.chunks().end(), [&](const auto& chunk) {
            return std::any_of(chunk->begin(), chunk->end(), picks);
        }));
}

/// Arrays with chunks of many lengths, as long editing leaves them.
class SharedArraySharing : public testing::Test {
protected:
    SharedArraySharing() {
        for (int value = 0; value < 5000; ++value) {
            array_.push_back(value);
        }
    }

    std::size_t below(std::size_t limit) { return random_() % limit; }

    void thinOut() {
        const int divisor = static_cast<int>(below(40)) + 2;
        array_.eraseIf([=](int value) { return value % divisor == 0; });
        while (array_.size() < 3000) {
            array_.push_back(static_cast<int>(below(10000)));
        }
    }

    template <typename Edit>
    void forManyEdits(Edit edit) {
        for (int round = 0; round < 300; ++round) {
            thinOut();
            const Numbers snapshot = array_;
            const std::vector<int> before(snapshot.begin(), snapshot.end());
            edit(snapshot);
            ASSERT_TRUE(std::equal(snapshot.begin(), snapshot.end(), before.begin(), before.end()));
        }
    }

    std::mt19937 random_{2026};
    Numbers array_;
};

TEST_F(SharedArraySharing, ChangingOneElementCopiesOneChunk) {
    forManyEdits([&](const Numbers& snapshot) {
        array_.edit(below(array_.size())) = -1;
        ASSERT_EQ(chunksNotIn(snapshot, array_), 1U);
    });
}

TEST_F(SharedArraySharing, AppendingMakesOneChunkAtMost) {
    forManyEdits([&](const Numbers& snapshot) {
        array_.push_back(7);
        ASSERT_EQ(chunksNotIn(snapshot, array_), 1U);
    });
}

TEST_F(SharedArraySharing, RemovingOneElementCopiesOneChunkAtMost) {
    forManyEdits([&](const Numbers& snapshot) {
        array_.erase(below(array_.size()));
        ASSERT_LE(chunksNotIn(snapshot, array_), 1U);
    });
}

TEST_F(SharedArraySharing, RemovingManyCopiesOnlyTheChunksThatHeldThem) {
    forManyEdits([&](const Numbers& snapshot) {
        const int limit = static_cast<int>(below(60));
        const auto picks = [=](int value) { return value < limit; };
        array_.eraseIf(picks);
        ASSERT_LE(chunksNotIn(snapshot, array_), chunksWith(snapshot, picks));
    });
}

TEST_F(SharedArraySharing, ChangingManyCopiesOnlyTheChunksThatHoldThem) {
    forManyEdits([&](const Numbers& snapshot) {
        const int limit = static_cast<int>(below(60));
        const auto picks = [=](int value) { return value >= 0 && value < limit; };
        array_.editWhere(picks, [](int& value) { value = -1 - value; });
        ASSERT_EQ(chunksNotIn(snapshot, array_), chunksWith(snapshot, picks));
    });
}

} // namespace
} // namespace oakfen
