#include "Tests/Oakfen/Views/RegisterFixture.h"

namespace oakfen {

using RegisterReveal = testing::RegisterFixture;

TEST_F(RegisterReveal, SelectsTheEntryAndNothingElse) {
    view.selection = {rent.id, pay.id};
    EXPECT_EQ(view.reveal(shop.id), shop.id);
    EXPECT_EQ(view.selection, UUIDSet{shop.id});
}

TEST_F(RegisterReveal, SelectsTheLegInThisAccountOfATransferEnteredInAnother) {
    EXPECT_EQ(view.reveal(*stored(cardPayment.id).transferID), cardPayment.id);
    EXPECT_EQ(view.selection, UUIDSet{cardPayment.id});
}

TEST_F(RegisterReveal, LeavesTheSelectionWhenTheEntryIsHidden) {
    view.selection = {shop.id};
    view.searchText = "shop";
    EXPECT_FALSE(view.reveal(rent.id));
    EXPECT_FALSE(view.reveal(UUID::random()));
    EXPECT_EQ(view.selection, UUIDSet{shop.id});
}

} // namespace oakfen
