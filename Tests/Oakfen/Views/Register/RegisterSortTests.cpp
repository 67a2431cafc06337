#include <gtest/gtest.h>

#include "Oakfen/Views/Register/RegisterTable.h"
#include "Oakfen/Views/TableSort.h"
#include "Tests/Support/TestLedger.h"

namespace oakfen {

using testing::amount;
using testing::day;

namespace {

/// The rows' memos after sorting.
std::string sorted(const std::vector<RegisterRow>& rows, std::string_view column, bool ascending) {
    std::vector<const RegisterRow*> pointers;
    for (const RegisterRow& row : rows) {
        pointers.push_back(&row);
    }
    TableSorter<RegisterRow>().sort(pointers, *columnNamed(registerColumns(false), column),
                                    ascending);
    std::string memos;
    for (const RegisterRow* row : pointers) {
        memos += row->memo;
    }
    return memos;
}

} // namespace

TEST(RegisterSort, ByDateKeepsLedgerOrderAmongEqualDatesInBothDirections) {
    const std::vector<RegisterRow> rows{{.date = day(2026, 1, 1), .memo = "a"},
                                        {.date = day(2026, 1, 2), .memo = "b"},
                                        {.date = day(2026, 1, 2), .memo = "c"},
                                        {.date = day(2026, 1, 3), .memo = "d"}};
    EXPECT_EQ(sorted(rows, "date", true), "abcd");
    EXPECT_EQ(sorted(rows, "date", false), "dbca");
}

TEST(RegisterSort, ByDateAlsoSortsRowsThatComeInNoOrder) {
    const std::vector<RegisterRow> rows{{.date = day(2026, 1, 3), .memo = "a"},
                                        {.date = day(2026, 1, 1), .memo = "b"},
                                        {.date = day(2026, 1, 3), .memo = "c"},
                                        {.date = day(2026, 1, 2), .memo = "d"}};
    EXPECT_EQ(sorted(rows, "date", true), "bdac");
    EXPECT_EQ(sorted(rows, "date", false), "acdb");
}

TEST(RegisterSort, ByStateFollowsTheStatesWord) {
    const std::vector<RegisterRow> rows{{.memo = "u", .cleared = ClearedState::uncleared},
                                        {.memo = "r", .cleared = ClearedState::reconciled},
                                        {.memo = "c", .cleared = ClearedState::cleared}};
    EXPECT_EQ(sorted(rows, "cleared", true), "cru");
    EXPECT_EQ(sorted(rows, "cleared", false), "urc");
}

TEST(RegisterSort, ByNumberComparesDigitsAsNumbers) {
    const std::vector<RegisterRow> rows{{.checkNumber = "10", .memo = "b"},
                                        {.checkNumber = "", .memo = "-"},
                                        {.checkNumber = "EFT", .memo = "c"},
                                        {.checkNumber = "9", .memo = "a"}};
    EXPECT_EQ(sorted(rows, "number", true), "-abc");
}

TEST(RegisterSort, ByPayeeIgnoresCaseAndKeepsLedgerOrderAmongTheSame) {
    const std::vector<RegisterRow> rows{{.payee = "beta", .memo = "1"},
                                        {.payee = "Acme", .memo = "2"},
                                        {.payee = "acme", .memo = "3"},
                                        {.payee = "Émile", .memo = "4"},
                                        {.payee = "zoo", .memo = "5"}};
    EXPECT_EQ(sorted(rows, "payee", true), "23145");
    EXPECT_EQ(sorted(rows, "payee", false), "54123");
}

TEST(RegisterSort, ByCategoryComparesThePath) {
    const std::vector<RegisterRow> rows{{.categoryName = "Travel", .memo = "t"},
                                        {.categoryName = "food: Out", .memo = "o"},
                                        {.categoryName = "Food: Groceries", .memo = "g"}};
    EXPECT_EQ(sorted(rows, "category", true), "got");
}

TEST(RegisterSort, ByAmountsComparesThem) {
    const std::vector<RegisterRow> rows{
        {.memo = "a", .amount = amount("-20"), .balance = amount("-20")},
        {.memo = "b", .amount = amount("100"), .balance = amount("80")},
        {.memo = "c", .amount = amount("-3"), .balance = amount("77")}};
    EXPECT_EQ(sorted(rows, "payment", true), "bca");
    EXPECT_EQ(sorted(rows, "deposit", true), "acb");
    EXPECT_EQ(sorted(rows, "deposit", false), "bac");
    EXPECT_EQ(sorted(rows, "balance", true), "acb");
}

TEST(RegisterSort, ComparesAmountsOfAnySizeAndPrecision) {
    const std::vector<RegisterRow> everyday{{.memo = "a", .balance = amount("1.5")},
                                            {.memo = "b", .balance = amount("-2000")},
                                            {.memo = "c", .balance = amount("1.495")},
                                            {.memo = "d"}};
    EXPECT_EQ(sorted(everyday, "balance", true), "bdca");
    std::vector<RegisterRow> extreme = everyday;
    extreme.push_back({.memo = "e", .balance = amount("12345678901234567890123456789")});
    extreme.push_back({.memo = "f", .balance = amount("-0.00000000000000000000001")});
    EXPECT_EQ(sorted(extreme, "balance", true), "bfdcae");
    EXPECT_EQ(sorted(extreme, "balance", false), "eacdfb");
}

TEST(RegisterSort, ByAmountKeepsLedgerOrderAmongTheSame) {
    const std::vector<RegisterRow> rows{{.memo = "a", .amount = amount("5")},
                                        {.memo = "b", .amount = amount("-1")},
                                        {.memo = "c", .amount = amount("5")},
                                        {.memo = "d", .amount = amount("-1")}};
    EXPECT_EQ(sorted(rows, "deposit", true), "bdac");
    EXPECT_EQ(sorted(rows, "deposit", false), "acbd");
}

TEST(RegisterSort, LeavesTheOrderAloneForTags) {
    const std::vector<RegisterRow> rows{{.memo = "a", .tags = {"z"}}, {.memo = "b", .tags = {"a"}}};
    EXPECT_EQ(sorted(rows, "tags", true), "ab");
}

} // namespace oakfen
