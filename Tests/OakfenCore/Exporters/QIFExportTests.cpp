#include "Tests/OakfenCore/Exporters/ExportFixture.h"

namespace oakfen {

using testing::amount;
using testing::day;
using testing::makeAccount;

namespace {

class QIFExport : public testing::ExportFixture {};

} // namespace

TEST_F(QIFExport, HasOnlyTheTypeForNoTransactions) {
    EXPECT_EQ(qif(), "!Type:Bank\n");
}

TEST_F(QIFExport, NamesTheSectionOfEachTypeOfAccount) {
    std::string sections;
    for (const AccountType type : allCases<AccountType>) {
        sections += std::string(rawValue(type)) + " " + qif(makeAccount("Any", type));
    }
    EXPECT_EQ(sections, "chequing !Type:Bank\nsavings !Type:Bank\ncash !Type:Cash\n"
                        "creditCard !Type:CCard\nlineOfCredit !Type:CCard\n"
                        "brokerage !Type:Bank\nretirement !Type:Bank\nasset !Type:Oth A\n"
                        "liability !Type:Oth L\nloan !Type:Oth L\n");
}

TEST_F(QIFExport, WritesTheLinesOfAnEntryInTheirOrder) {
    Transaction& shop = add(day(2026, 3, 5), "Corner Shop", "-12.50");
    shop.checkNumber = "101";
    shop.memo = "milk";
    shop.categoryID = groceries.id;
    shop.cleared = ClearedState::reconciled;
    EXPECT_EQ(qif(), "!Type:Bank\nD03/05/2026\nT-12.5\nN101\nPCorner Shop\nMmilk\nCX\n"
                     "LFood:Groceries\n^\n");
}

TEST_F(QIFExport, WritesAnEmptyPayeeAndLeavesOtherEmptyLinesOut) {
    add(day(2026, 3, 5), "", "7");
    EXPECT_EQ(qif(), "!Type:Bank\nD03/05/2026\nT7\nP\n^\n");
}

TEST_F(QIFExport, MarksAClearedEntryWithAStar) {
    add(day(2026, 3, 5), "Shop", "7").cleared = ClearedState::cleared;
    EXPECT_EQ(qif(), "!Type:Bank\nD03/05/2026\nT7\nPShop\nC*\n^\n");
}

TEST_F(QIFExport, JoinsALineBreakIntoOneLine) {
    Transaction& shop = add(day(2026, 3, 5), "Corner\nShop", "7");
    shop.memo = "two\r\nlines";
    shop.checkNumber = "1\r2";
    EXPECT_EQ(qif(), "!Type:Bank\nD03/05/2026\nT7\nN1 2\nPCorner Shop\nMtwo  lines\n^\n");
}

TEST_F(QIFExport, WritesTheOtherAccountOfATransferAndNoSplits) {
    library.accounts.edit(1).name = "My\nCard";
    Transaction& transfer = add(day(2026, 3, 5), "Pay card", "-50");
    transfer.transferAccountID = card.id;
    transfer.categoryID = food.id;
    transfer.splits = {{.id = UUID::random(), .categoryID = food.id, .amount = amount("-50")}};
    EXPECT_EQ(qif(), "!Type:Bank\nD03/05/2026\nT-50\nPPay card\nL[My Card]\n^\n");
}

TEST_F(QIFExport, LeavesTheNameOfAnUnknownOtherAccountEmpty) {
    add(day(2026, 3, 5), "Pay", "-50").transferAccountID = UUID::random();
    EXPECT_EQ(qif(), "!Type:Bank\nD03/05/2026\nT-50\nPPay\nL[]\n^\n");
}

TEST_F(QIFExport, WritesEachSplitWithItsMemoAndAmount) {
    Transaction& market = add(day(2026, 3, 5), "Market", "-30");
    market.categoryID = food.id;
    market.splits = {{.id = UUID::random(),
                      .categoryID = groceries.id,
                      .memo = "for\nhome",
                      .amount = amount("-20.5")},
                     {.id = UUID::random(), .amount = amount("-9.50")}};
    EXPECT_EQ(qif(), "!Type:Bank\nD03/05/2026\nT-30\nPMarket\nSFood:Groceries\nEfor home\n$-20.5\n"
                     "SUncategorized\n$-9.5\n^\n");
}

TEST_F(QIFExport, WritesUncategorizedForACategoryThatIsGone) {
    Transaction& shop = add(day(2026, 3, 5), "Shop", "-7");
    shop.categoryID = UUID::random();
    EXPECT_EQ(qif(), "!Type:Bank\nD03/05/2026\nT-7\nPShop\nLUncategorized\n^\n");
    shop.splits = {{.id = UUID::random(), .categoryID = UUID::random(), .amount = amount("-7")}};
    EXPECT_EQ(qif(), "!Type:Bank\nD03/05/2026\nT-7\nPShop\nSUncategorized\n$-7\n^\n");
}

TEST_F(QIFExport, JoinsALineBreakInACategorysName) {
    library.categories.edit(0).name = "Food\nand\rDrink";
    Transaction& shop = add(day(2026, 3, 5), "Shop", "-7");
    shop.categoryID = groceries.id;
    EXPECT_EQ(qif(), "!Type:Bank\nD03/05/2026\nT-7\nPShop\nLFood and Drink:Groceries\n^\n");
    shop.splits = {{.id = UUID::random(), .categoryID = food.id, .amount = amount("-7")}};
    EXPECT_EQ(qif(), "!Type:Bank\nD03/05/2026\nT-7\nPShop\nSFood and Drink\n$-7\n^\n");
}

TEST_F(QIFExport, KeepsTheGivenOrderOfEntriesThatAgreeInDateAmountAndPayee) {
    std::string expected = "!Type:Bank\n";
    for (const std::string memo : {"m", "c", "z", "a", "k"}) {
        add(day(2026, 3, 5), "Shop", "-7").memo = memo;
        expected += "D03/05/2026\nT-7\nPShop\nM" + memo + "\n^\n";
    }
    EXPECT_EQ(qif(), expected);
}

TEST_F(QIFExport, SortsAsTheRegisterDoes) {
    add(day(2026, 3, 6), "Later", "1");
    add(day(2026, 3, 5), "B", "-2");
    add(day(2026, 3, 5), "A", "-2");
    add(day(2026, 3, 5), "C", "9");
    EXPECT_EQ(qif(), "!Type:Bank\nD03/05/2026\nT9\nPC\n^\nD03/05/2026\nT-2\nPA\n^\n"
                     "D03/05/2026\nT-2\nPB\n^\nD03/06/2026\nT1\nPLater\n^\n");
}

} // namespace oakfen
