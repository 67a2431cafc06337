// The seeds of the fuzz targets, and what fuzzing once found, each as a named file.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "Fuzz/Targets.h"
#include "Tests/Support/Table.h"

namespace oakfen::fuzz {
namespace {

/// Runs the target on every file of the folder; gives how many there are.
int replay(const Target& target, const std::string& folder) {
    const std::filesystem::path path =
        std::string(OAKFEN_SOURCE_DIRECTORY "/Fuzz/") + folder + "/" + std::string(target.name);
    int count = 0;
    if (std::filesystem::exists(path)) {
        for (const auto& file : std::filesystem::directory_iterator(path)) {
            ++count;
            SCOPED_TRACE(folder + "/" + file.path().filename().string());
            EXPECT_NO_THROW(target.run(testing::contentsOf(file.path())));
        }
    }
    return count;
}

class FuzzTarget : public ::testing::TestWithParam<Target> {};

TEST_P(FuzzTarget, HoldsForItsSeeds) {
    EXPECT_GT(replay(GetParam(), "seeds"), 2);
}

TEST_P(FuzzTarget, HoldsForWhatWasFoundBefore) {
    replay(GetParam(), "findings");
}

TEST_P(FuzzTarget, HoldsForNothing) {
    EXPECT_NO_THROW(GetParam().run(""));
}

INSTANTIATE_TEST_SUITE_P(All, FuzzTarget, ::testing::ValuesIn(targets().begin(), targets().end()),
                         [](const auto& param) { return std::string(param.param.name); });

TEST(FuzzTargets, AreFoundByName) {
    EXPECT_EQ(targetNamed("csv").run, readCSVStatement);
    EXPECT_THROW((void)targetNamed("xml"), std::invalid_argument);
}

TEST(FuzzTargets, ReportABrokenRule) {
    EXPECT_NO_THROW(require(true, "holds"));
    EXPECT_THROW(require(false, "does not hold"), Violation);
}

} // namespace
} // namespace oakfen::fuzz
