#include <gmock/gmock.h>

#include "Tests/Oakfen/Views/Editors/TransactionFixture.h"

namespace oakfen {

using testing::amount;
using testing::day;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::makeTransaction;
using Kind = TransactionEditor::Kind;
using TransactionPayees = testing::TransactionFixture;

TEST_F(TransactionPayees, SuggestsPayeesThatHoldTheTermInAnyCase) {
    enter(makeTransaction(everyday.id, day(2026, 3, 2), "Corner Shop", "-1"));
    enter(makeTransaction(everyday.id, day(2026, 3, 2), "Bakery", "-1"));
    EXPECT_THAT(newEntry(" SHOP\t").payeeSuggestions(), ElementsAre("Corner Shop", "Shop"));
    EXPECT_THAT(newEntry("Shop").payeeSuggestions(), ElementsAre("Corner Shop"));
    EXPECT_THAT(newEntry(" ").payeeSuggestions(), IsEmpty());
    EXPECT_THAT(newEntry("Grocer").payeeSuggestions(), IsEmpty());
}

TEST_F(TransactionPayees, SuggestsTheFirstEightPayeesOnly) {
    for (char letter = 'a'; letter <= 'j'; ++letter) {
        enter(makeTransaction(everyday.id, day(2026, 3, 2), std::string("Store ") + letter, "-1"));
    }
    const auto suggestions = newEntry("store").payeeSuggestions();
    ASSERT_EQ(suggestions.size(), 8U);
    EXPECT_EQ(suggestions.front(), "Store a");
    EXPECT_EQ(suggestions.back(), "Store h");
}

TEST_F(TransactionPayees, AMemorizedPayeeFillsInANewEntry) {
    TransactionEditor editor = newEntry(" shop ");
    EXPECT_TRUE(editor.applyMemorizedPayee());
    EXPECT_EQ(editor.draft.payee, "Shop");
    EXPECT_EQ(editor.amount, amount("40.25"));
    EXPECT_EQ(editor.draft.categoryID, food.id);
    EXPECT_EQ(editor.kind(), Kind::payment);
    EXPECT_EQ(editor.draft.memo, "");
}

TEST_F(TransactionPayees, AMemorizedPayeeLeavesATypedAmount) {
    TransactionEditor editor = newEntry("Shop");
    editor.amount = amount("7");
    editor.applyMemorizedPayee();
    EXPECT_EQ(editor.amount, amount("7"));
    EXPECT_EQ(editor.draft.categoryID, food.id);
}

TEST_F(TransactionPayees, AnUnknownPayeeFillsInNothing) {
    TransactionEditor editor = newEntry("Somebody");
    EXPECT_FALSE(editor.applyMemorizedPayee());
    EXPECT_EQ(editor.draft.payee, "Somebody");
    EXPECT_EQ(editor.amount, Decimal());
}

TEST_F(TransactionPayees, AMemorizedPayeeNeverChangesAnExistingEntry) {
    enter(makeTransaction(everyday.id, day(2026, 3, 9), "Bakery", "-5"));
    TransactionEditor editor = edit(shop.id);
    editor.draft.payee = "bakery";
    EXPECT_FALSE(editor.applyMemorizedPayee());
    EXPECT_EQ(editor.draft.payee, "bakery");
    EXPECT_EQ(editor.amount, amount("40.25"));
    EXPECT_EQ(editor.draft.categoryID, food.id);
}

TEST_F(TransactionPayees, AMemorizedDepositBecomesADeposit) {
    enter(makeTransaction(everyday.id, day(2026, 3, 9), "Payroll", "900"));
    TransactionEditor editor = newEntry("Payroll");
    editor.applyMemorizedPayee();
    EXPECT_EQ(editor.kind(), Kind::deposit);
    EXPECT_EQ(editor.amount, amount("900"));
}

TEST_F(TransactionPayees, AMemorizedTransferGoesTheSameWay) {
    rememberLoneLeg("75");
    TransactionEditor editor = newEntry("moved");
    EXPECT_TRUE(editor.applyMemorizedPayee());
    EXPECT_EQ(editor.kind(), Kind::transfer);
    EXPECT_EQ(editor.transferSelection, savings.id);
    EXPECT_TRUE(editor.transferIn);
    EXPECT_EQ(editor.amount, amount("75"));
    rememberLoneLeg("-60");
    editor.applyMemorizedPayee();
    EXPECT_FALSE(editor.transferIn);
    EXPECT_TRUE(editor.canSave());
}

TEST_F(TransactionPayees, AMemorizedTransferToTheSelectedAccountCountsByItsCategory) {
    rememberLoneLeg("75");
    TransactionEditor editor(*test, ActiveSheet::NewTransaction{savings.id});
    editor.draft.payee = "Moved";
    editor.draft.categoryID = food.id;
    EXPECT_TRUE(editor.applyMemorizedPayee());
    EXPECT_EQ(editor.kind(), Kind::deposit);
    EXPECT_FALSE(editor.transferSelection);
    EXPECT_FALSE(editor.draft.categoryID);
}

} // namespace oakfen
