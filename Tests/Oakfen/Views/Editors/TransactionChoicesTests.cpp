#include <gmock/gmock.h>

#include "Tests/Oakfen/Views/Editors/TransactionFixture.h"

namespace oakfen {

using ::testing::ElementsAre;
using TransactionChoices = testing::TransactionFixture;

namespace {

std::vector<std::string> titles(const std::vector<PickerRow>& rows) {
    std::vector<std::string> result;
    for (const PickerRow& row : rows) {
        result.push_back(row.title);
    }
    return result;
}

} // namespace

TEST_F(TransactionChoices, ATransferCannotBeSavedOnceItsAccountBecomesTheOtherOne) {
    const Transaction out = transfer("-75");
    enter(out);
    TransactionEditor editor = edit(out.id);
    editor.accountSelection = savings.id;
    EXPECT_FALSE(editor.canSave());
    EXPECT_THAT(titles(editor.transferChoices()),
                ElementsAre("Banking", "Everyday", "Credit", "Card"));
}

TEST_F(TransactionChoices, KeepsAClosedAccountAmongTheChoices) {
    const Transaction out = transfer("-75");
    enter(out);
    test.store->mutate("Close", [](Library& library) {
        library.accounts.edit(0).isClosed = true;
        library.accounts.edit(1).isClosed = true;
    });
    TransactionEditor editor = edit(out.id);
    EXPECT_THAT(titles(editor.accountChoices()), ElementsAre("Credit", "Card", "Everyday"));
    EXPECT_THAT(titles(editor.transferChoices()), ElementsAre("Credit", "Card", "Savings"));
    const Library before = test.library();
    editor.save();
    EXPECT_EQ(test.library(), before);
}

TEST_F(TransactionChoices, KeepsWhatItHasNoNameFor) {
    TransactionEditor editor = edit(shop.id);
    editor.transferSelection = UUID::random();
    EXPECT_EQ(editor.transferChoices().back(),
              (PickerRow{.title = "Unknown Account", .id = editor.transferSelection}));
    const UUID lost = UUID::random();
    EXPECT_EQ(editor.categoryChoices(lost).back(),
              (PickerRow{.title = "Unknown Category", .id = lost}));
}

TEST_F(TransactionChoices, ListsEachChoiceOnce) {
    const TransactionEditor editor = edit(shop.id);
    EXPECT_EQ(editor.accountChoices(), accountPickerRows(test.index()));
    EXPECT_EQ(editor.categoryChoices(food.id), categoryPickerRows(test.index()));
    EXPECT_EQ(editor.categoryChoices(std::nullopt), categoryPickerRows(test.index()));
}

} // namespace oakfen
