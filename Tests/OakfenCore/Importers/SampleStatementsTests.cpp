#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>

#include "OakfenCore/Support/Text/Text.h"
#include "Tests/OakfenCore/Importers/StatementFixtures.h"

/// Statements of many banks and programs, kept outside the source tree: in the folder that the
/// environment variable OAKFEN_SAMPLES names, with the folders "csv", "ofx" and "qif" in it.
namespace oakfen {

namespace {

namespace fs = std::filesystem;

/// What a statement comes to.
struct Figures {
    std::size_t count = 0;
    Decimal sum;

    friend bool operator==(const Figures&, const Figures&) = default;
    friend std::ostream& operator<<(std::ostream& stream, const Figures& figures) {
        return stream << figures.count << " lines of " << figures.sum.toString();
    }
};

fs::path samplesFolder() {
    const char* const named = std::getenv("OAKFEN_SAMPLES");
    return named != nullptr ? fs::path(named)
                            : fs::path(OAKFEN_SOURCE_DIRECTORY) / ".." / "shared" / "samples";
}

std::string contents(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

Figures figures(const fs::path& path, ImportFormat format) {
    try {
        const auto all = testing::lines(contents(path), format);
        return {all.size(), sum(all, &ImportedTransaction::amount)};
    } catch (const ImportError& error) {
        EXPECT_EQ(error.kind(), ImportError::Kind::noTransactions) << path;
        return {};
    }
}

std::vector<fs::path> files(const std::string& folder) {
    std::vector<fs::path> all;
    for (const auto& each : fs::directory_iterator(samplesFolder() / folder)) {
        all.push_back(each.path());
    }
    std::sort(all.begin(), all.end());
    return all;
}

/// The figures of each file as another reader counted them.
std::map<std::string, Figures> countedFigures(const std::string& table, const std::string& counts,
                                              const std::string& sums) {
    std::ifstream stream(samplesFolder() / table);
    std::string line;
    std::getline(stream, line);
    const auto headings = split(line, '\t');
    const auto columnOf = [&](const std::string& heading) {
        const auto found = std::find_if(headings.begin(), headings.end(), [&](const auto& each) {
            return each.starts_with(heading);
        });
        return static_cast<std::size_t>(found - headings.begin());
    };
    const std::size_t countColumn = columnOf(counts);
    const std::size_t sumColumn = columnOf(sums);
    std::map<std::string, Figures> figures;
    while (std::getline(stream, line)) {
        const auto cells = split(line, '\t');
        figures[std::string(cells.at(0))] = {std::stoul(std::string(cells.at(countColumn))),
                                             testing::money(cells.at(sumColumn))};
    }
    return figures;
}

/// By the part of the name behind the source: where this reader differs, and why it does.
const std::map<std::string, Figures> differences = {
    // The amount "56.77invalid" is 56.77: letters in an amount are passed over.
    {"test.qfx", {3, testing::money("4.59")}},
    // Dates with a day above 12 in front: QIF is read month first, and such an entry is left out.
    {"test_category_override.qif", {3, testing::money("1077.44")}},
    {"3_records_ddmmyyyy.qif", {2, testing::money("-30")}},
    {"3_records_invalid_header.qif", {2, testing::money("-30")}},
};

/// By the part of the name behind the source. Of the others no line can be read: their cells stand
/// between semicolons or tabs, their header is missing or in another language, their dates are of
/// another shape, or a column of dates named "Value Date" is taken for the amount.
const std::map<std::string, Figures> csvFigures = {
    {"sample-statement.csv", {12, testing::money("8881.99")}},
    {"wise-personal-new-format-EUR.csv", {4, testing::money("-290.50")}},
    {"20180226_12345678.csv", {1, testing::money("-5.00")}},
    {"dba33fceecd62c3c727893361e0ba4d3.P000000027355791.csv", {1, testing::money("-7.80")}},
    {"51-sample.csv", {8, testing::money("-79.25")}},
    {"73-sample.csv", {1, testing::money("27.00")}},
    {"english_date_example.csv", {2, testing::money("642.00")}},
    {"intuit_mint_example.csv", {7, testing::money("-5191230116380474.34")}},
    {"suntrust.csv", {5, testing::money("500.00")}},
    {"examplebanktivity.csv", {2, testing::money("-14.69")}},
    {"1110.csv", {1, testing::money("10")}},
    {"811.csv", {2, testing::money("-80.00")}},
    {"convert-test.csv", {2, testing::money("-80.00")}},
    {"sample_investment.csv", {2, testing::money("-256.25")}},
    {"inspira_hsa_anon.csv", {144, testing::money("-585.15")}},
    {"mint_extra.csv", {4, testing::money("7000.00")}},
    {"payoneer.csv", {2, testing::money("20")}},
    {"pcmastercard.csv", {2, testing::money("50.31")}},
    {"schwab-checking-baltest-case7.csv", {2, testing::money("0.00")}},
};

void expectCountedFigures(const std::string& folder, ImportFormat format, const std::string& counts,
                          const std::string& sums) {
    const auto counted = countedFigures(folder + "-counts.tsv", counts, sums);
    for (const fs::path& path : files(folder)) {
        const std::string name = path.filename().string();
        const auto difference = differences.find(name.substr(name.find("__") + 2));
        EXPECT_EQ(figures(path, format),
                  difference == differences.end() ? counted.at(name) : difference->second)
            << name;
    }
}

} // namespace

class SampleStatements : public ::testing::Test {
protected:
    void SetUp() override {
        if (!fs::is_directory(samplesFolder())) {
            GTEST_SKIP() << "no sample statements in " << samplesFolder();
        }
    }
};

TEST_F(SampleStatements, OfOFXComeToTheFiguresCounted) {
    expectCountedFigures("ofx", ImportFormat::ofx, "own_count", "own_sum");
}

TEST_F(SampleStatements, OfQIFComeToTheFiguresCounted) {
    expectCountedFigures("qif", ImportFormat::qif, "own_bank", "own_sum");
}

TEST_F(SampleStatements, OfCSVComeToTheFiguresExpected) {
    for (const fs::path& path : files("csv")) {
        const std::string name = path.filename().string();
        const auto expected = csvFigures.find(name.substr(name.find("__") + 2));
        EXPECT_EQ(figures(path, ImportFormat::csv),
                  expected == csvFigures.end() ? Figures() : expected->second)
            << name;
    }
}

} // namespace oakfen
