#include "Tests/OakfenCore/Exporters/ExportFixture.h"

namespace oakfen {

using testing::amount;
using testing::day;

namespace {

const std::string header = "Date,Account,Num,Payee,Category,Memo,Amount,Status,Tags\n";

class TransactionsCSV : public testing::ExportFixture {};

} // namespace

TEST_F(TransactionsCSV, HasOnlyTheHeaderForNoTransactions) {
    EXPECT_EQ(csv(), header);
}

TEST_F(TransactionsCSV, HasOneLineForEachEntryWithAllItsTexts) {
    Transaction& shop = add(day(2026, 3, 5), "Corner, Shop", "-12.50");
    shop.checkNumber = "101";
    shop.categoryID = groceries.id;
    shop.memo = "milk\nand \"bread\"";
    shop.cleared = ClearedState::reconciled;
    shop.tags = {"home", "week 10"};
    EXPECT_EQ(csv(), header + "2026-03-05,Everyday,101,\"Corner, Shop\",Food: Groceries,"
                              "\"milk\nand \"\"bread\"\"\",-12.5,Reconciled,home; week 10\n");
}

TEST_F(TransactionsCSV, GuardsAPayeeThatLooksLikeAFormulaButNotTheAmount) {
    add(day(2026, 3, 5), "=HYPERLINK(1)", "-3");
    EXPECT_EQ(csv(), header + "2026-03-05,Everyday,,\"'=HYPERLINK(1)\",Uncategorized,,-3,"
                              "Uncleared,\n");
}

TEST_F(TransactionsCSV, SortsByDateThenAmountDownwardsThenPayee) {
    add(day(2026, 3, 6), "Later", "1");
    add(day(2026, 3, 5), "B", "-2");
    add(day(2026, 3, 5), "A", "-2");
    add(day(2026, 3, 5), "C", "9");
    const std::string text = csv();
    EXPECT_LT(text.find(",C,"), text.find(",A,"));
    EXPECT_LT(text.find(",A,"), text.find(",B,"));
    EXPECT_LT(text.find(",B,"), text.find(",Later,"));
}

TEST_F(TransactionsCSV, LeavesTheNameOfAnUnknownAccountEmpty) {
    add(day(2026, 3, 5), "Shop", "-3").accountID = UUID::random();
    EXPECT_EQ(csv(), header + "2026-03-05,,,Shop,Uncategorized,,-3,Uncleared,\n");
}

TEST_F(TransactionsCSV, DescribesTransfersAndSplitsAsTheRegisterDoes) {
    Transaction& transfer = add(day(2026, 3, 4), "To card", "-50");
    transfer.transferAccountID = card.id;
    transfer.cleared = ClearedState::cleared;
    add(day(2026, 3, 5), "Market", "-30").splits = {
        {.id = UUID::random(), .categoryID = food.id, .amount = amount("-20")},
        {.id = UUID::random(), .amount = amount("-10")}};
    EXPECT_EQ(csv(), header + "2026-03-04,Everyday,,To card,[Card],,-50,Cleared,\n"
                              "2026-03-05,Everyday,,Market,— Split (2) —,,-30,Uncleared,\n");
}

} // namespace oakfen
