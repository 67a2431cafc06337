// The table comes from Tests/Generators/decimal-cases.py.
#include "OakfenCore/Support/Number/Decimal.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "Tests/Support/Table.h"

namespace oakfen {
namespace {

using testing::TableRow;

const std::vector<TableRow>& table() {
    static const auto rows = testing::readTable(OAKFEN_TEST_DIRECTORY "/decimal-cases.tsv");
    return rows;
}

/// Reads "-123e-2" without the help of what is tested here.
Decimal number(const std::string& text) {
    if (text == "NaN") {
        return Decimal::nan();
    }
    const std::size_t mark = text.find('e');
    const bool isNegative = text.starts_with('-');
    Int128 coefficient = 0;
    for (std::size_t index = isNegative ? 1 : 0; index < mark; ++index) {
        coefficient = coefficient * 10 + (text[index] - '0');
    }
    return Decimal::make(isNegative ? -coefficient : coefficient, std::stoi(text.substr(mark + 1)));
}

/// Checks the lines of that kind; there must be hundreds.
void checkCases(const std::string& kind, const std::function<void(const TableRow&)>& check) {
    int count = 0;
    for (const TableRow& row : table()) {
        if (row[0] == kind) {
            SCOPED_TRACE("line " + std::to_string(row.line));
            check(row);
            ++count;
        }
    }
    EXPECT_GE(count, 300);
}

template <typename Operation>
void checkOperation(const std::string& sign, Operation operation) {
    checkCases(sign, [&](const TableRow& row) {
        EXPECT_EQ(operation(number(row[1]), number(row[2])), number(row[3]));
    });
}

TEST(DecimalCases, AreReadAsTheyAreWritten) {
    EXPECT_EQ(number("-1999e-2"), Decimal::cents(-1999));
    EXPECT_EQ(number("0e0"), Decimal());
    EXPECT_TRUE(number("NaN").isNaN());
}

TEST(DecimalCases, Add) {
    checkOperation("+", std::plus<>());
}

TEST(DecimalCases, Subtract) {
    checkOperation("-", std::minus<>());
}

TEST(DecimalCases, Multiply) {
    checkOperation("*", std::multiplies<>());
}

TEST(DecimalCases, Divide) {
    checkOperation("/", std::divides<>());
}

TEST(DecimalCases, Compare) {
    checkCases("compare", [](const TableRow& row) {
        const std::strong_ordering order = number(row[1]) <=> number(row[2]);
        EXPECT_EQ(order, std::stoi(row[3]) <=> 0);
        EXPECT_EQ(number(row[1]) == number(row[2]), row[3] == "0");
    });
}

TEST(DecimalCases, RoundInEveryMode) {
    checkCases("round", [](const TableRow& row) {
        const Decimal value = number(row[1]);
        const int scale = std::stoi(row[2]);
        EXPECT_EQ(value.rounded(scale, RoundingMode::plain), number(row[3]));
        EXPECT_EQ(value.rounded(scale, RoundingMode::down), number(row[4]));
        EXPECT_EQ(value.rounded(scale, RoundingMode::up), number(row[5]));
        EXPECT_EQ(value.rounded(scale, RoundingMode::bankers), number(row[6]));
    });
}

void expectRead(const std::optional<Decimal>& read, const TableRow& row) {
    if (row[2] == "none") {
        EXPECT_EQ(read, std::nullopt) << row[1];
    } else {
        EXPECT_EQ(read, number(row[2])) << row[1];
    }
}

TEST(DecimalCases, AreReadFromPlainDigits) {
    checkCases("parse", [](const TableRow& row) { expectRead(Decimal::parse(row[1]), row); });
}

TEST(DecimalCases, AreReadFromNumbersOfJSON) {
    checkCases("json",
               [](const TableRow& row) { expectRead(Decimal::parseJSONNumber(row[1]), row); });
}

TEST(DecimalCases, AreWrittenAsPlainDigits) {
    checkCases("print", [](const TableRow& row) { EXPECT_EQ(number(row[1]).toString(), row[2]); });
}

TEST(DecimalCases, HaveANearestBinaryNumber) {
    checkCases("double", [](const TableRow& row) {
        EXPECT_EQ(number(row[1]).doubleValue(), testing::doubleIn(row[2]));
    });
}

} // namespace
} // namespace oakfen
