#include <cstdio>
#include <memory>
#include <random>
#include <unistd.h>

#include "OakfenCore/Support/Files/FileSystem.h"
#include "OakfenCore/Support/Files/SystemFileSystem.h"
#include "OakfenCore/Support/Files/WriteOwnerOnly.h"
#include "OakfenCore/Support/Text/Text.h"
#include "Tests/OakfenCore/Exporters/ExportFixture.h"
#include "Tests/OakfenCore/Support/Files/TemporaryFolder.h"

namespace oakfen {

using testing::day;

namespace {

using Rows = std::vector<std::vector<std::string>>;

constexpr const char* python = "/usr/bin/python3";

std::string fromHexadecimal(std::string_view digits) {
    std::string bytes;
    for (std::size_t place = 0; place + 1 < digits.size(); place += 2) {
        bytes += static_cast<char>(std::stoi(std::string(digits.substr(place, 2)), nullptr, 16));
    }
    return bytes;
}

/// What another program's reader finds in the text.
Rows readElsewhere(const std::string& text) {
    const TemporaryFolder folder;
    const std::string file = folder / "export.csv";
    writeOwnerOnly(systemFiles(), text, file);
    const std::string command =
        std::string(python) + " -B " OAKFEN_TEST_DIRECTORY "/read-csv.py " + file;
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(::popen(command.c_str(), "r"),
                                                               ::pclose);
    std::string output;
    for (int byte = std::fgetc(pipe.get()); byte != EOF; byte = std::fgetc(pipe.get())) {
        output += static_cast<char>(byte);
    }
    Rows rows;
    for (const std::string_view line : split(output, '\n')) {
        if (!line.empty()) {
            auto& row = rows.emplace_back();
            for (const std::string_view cell : split(line, ' ')) {
                row.push_back(cell == "." ? std::string() : fromHexadecimal(cell));
            }
        }
    }
    return rows;
}

class AnotherProgram : public testing::ExportFixture {
protected:
    void SetUp() override {
        if (::access(python, X_OK) != 0) {
            GTEST_SKIP() << python << " is not installed";
        }
    }
};

} // namespace

TEST_F(AnotherProgram, ReadsBackTheTransactions) {
    Transaction& shop = add(day(2026, 3, 5), "Corner, \"Shop\"", "-12.50");
    shop.memo = "two\r\nlines, one\rmore\n";
    shop.tags = {"a;b", "c"};
    add(day(2026, 3, 6), "=1+1", "0");
    EXPECT_EQ(
        readElsewhere(csv()),
        (Rows{{"Date", "Account", "Num", "Payee", "Category", "Memo", "Amount", "Status", "Tags"},
              {"2026-03-05", "Everyday", "", "Corner, \"Shop\"", "Uncategorized",
               "two\r\nlines, one\rmore\n", "-12.5", "Uncleared", "a;b; c"},
              {"2026-03-06", "Everyday", "", "'=1+1", "Uncategorized", "", "0", "Uncleared", ""}}));
}

TEST_F(AnotherProgram, ReadsBackAnyTable) {
    std::mt19937 random(20260315);
    const std::vector<std::string> pieces{"a", "é", "€", "\"", ",", "\n", "\r", "\t", " ",
                                          ";", "=", "-", "+",  "@", "'",  "0",  "🌰"};
    const auto below = [&](std::size_t limit) { return random() % limit; };
    Rows table;
    for (int row = 0; row < 400; ++row) {
        auto& cells = table.emplace_back();
        for (int column = 0; column < 4; ++column) {
            std::string& cell = cells.emplace_back();
            for (std::size_t length = below(6); length > 0; --length) {
                cell += pieces[below(pieces.size())];
            }
        }
    }
    Rows expected = table;
    for (auto& row : expected) {
        for (std::size_t column = 0; column < row.size(); ++column) {
            row[column] = column == 2 ? row[column] : Exporter::guarded(row[column]);
        }
    }
    Rows found = readElsewhere(Exporter::csv({"1", "2", "3", "4"}, table, {2}));
    ASSERT_EQ(found.size(), expected.size() + 1);
    found.erase(found.begin());
    EXPECT_EQ(found, expected);
}

} // namespace oakfen
