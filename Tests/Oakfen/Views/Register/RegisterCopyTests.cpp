#include <gtest/gtest.h>

#include "Tests/Oakfen/Views/Register/RegisterFixture.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::RegisterFixture;

/// The row as a line for a spreadsheet.
std::string copied(const RegisterRow& row) {
    const Table<RegisterRow> table(registerColumns(false), {row}, nullptr,
                                   {"CAD", Calendar::utc()});
    return clipboardText(table, std::vector<std::size_t>{0});
}

TEST(CopiedRow, HoldsAllColumnsInPlainForms) {
    EXPECT_EQ(copied({.date = day(2026, 3, 5),
                      .checkNumber = "101",
                      .payee = "Shop",
                      .categoryName = "Food: Groceries",
                      .memo = "milk",
                      .amount = amount("-1234.50"),
                      .balance = amount("-20"),
                      .cleared = ClearedState::reconciled,
                      .tags = {"a", "b"}}),
              "Reconciled\t2026-03-05\t101\tShop\tFood: Groceries\ta, b\t1234.5\t\t-20");
}

TEST(CopiedRow, LetsNoTextEndItsCellOrBecomeAFormula) {
    EXPECT_EQ(copied({.date = day(2026, 3, 5),
                      .payee = "=Corner\tShop\r\nLtd",
                      .categoryName = "Uncategorized",
                      .amount = amount("7")}),
              "Uncleared\t2026-03-05\t\t'=Corner Shop Ltd\tUncategorized\t\t\t7\t0");
}

TEST_F(RegisterFixture, CopiesTheSelectedRowsInTheirOrderOnTheScreen) {
    view.select({shop.id, rent.id});
    EXPECT_EQ(view.copiedText(), "Uncleared\t2026-03-16\t\tRent\tUncategorized\t\t1200\t\t260\n"
                                 "Cleared\t2026-02-14\t\tShop\tFood\t\t40\t\t460");
}

TEST_F(RegisterFixture, CopiesNothingWithoutASelection) {
    EXPECT_EQ(view.copiedText(), "");
}

} // namespace
} // namespace oakfen
