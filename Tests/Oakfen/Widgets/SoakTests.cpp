#include <gtest/gtest.h>

#include <cstdlib>
#include <exception>
#include <string>
#include <vector>

#include "Tests/Oakfen/Widgets/SoakDriver.h"

namespace oakfen {
namespace {

bool isLongRun() {
    const char* const value = std::getenv("OAKFEN_LONG_TESTS");
    return value != nullptr && std::string(value) == "1";
}

/// The usual ones, or the one that the environment names for looking into a failure.
std::vector<int> seeds() {
    const char* const value = std::getenv("OAKFEN_SOAK_SEED");
    return value != nullptr ? std::vector<int>{std::atoi(value)} : std::vector<int>{1, 3};
}

class Soak : public ::testing::TestWithParam<int> {};

TEST_P(Soak, OfRandomUseKeepsTheLedgerWholeAndCanAllBeTakenBack) {
    const int actions = isLongRun() ? 1000 : 200;
    constexpr int actionsBetweenCleanings = 25;
    testing::SoakDriver driver(static_cast<std::uint64_t>(GetParam()));
    const Library first = driver.library();
    try {
        for (int action = 1; action <= actions; ++action) {
            driver.act();
            driver.requireHealthy();
            if (action % actionsBetweenCleanings == 0) {
                driver.closeEverything();
            }
        }
        driver.closeEverything();
        EXPECT_GT(driver.changes(), actions / 50) << driver.story();
        const Library last = driver.library();
        EXPECT_TRUE(driver.savedLibrary() == last);
        const int steps = driver.undoEverything();
        EXPECT_TRUE(driver.library() == first) << driver.story();
        driver.redo(steps);
        EXPECT_TRUE(driver.library() == last) << driver.story();
        driver.requireHealthy();
    } catch (const std::exception& error) {
        FAIL() << error.what() << "\n" << driver.story();
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, Soak, ::testing::ValuesIn(seeds()));

} // namespace
} // namespace oakfen
