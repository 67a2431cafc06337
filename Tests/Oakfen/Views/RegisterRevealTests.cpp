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

TEST_F(RegisterReveal, SaysThatTheSearchHidesTheEntry) {
    EXPECT_FALSE(view.hiddenNotice());
    view.searchText = "shop";
    view.reveal(rent.id);
    EXPECT_EQ(view.hiddenNotice(), "The saved transaction is hidden by the search.");
}

TEST_F(RegisterReveal, CountsTheEntriesThatTheFilterHides) {
    view.filter = RegisterFilter::thisMonth;
    view.searchText = " ";
    view.reveal(shop.id);
    EXPECT_EQ(view.hiddenNotice(), "The saved transaction is hidden by the filter.");
    view.reveal(shop.id);
    view.reveal(cardPayment.id);
    EXPECT_EQ(view.hiddenNotice(), "2 saved transactions are hidden by the filter.");
}

TEST_F(RegisterReveal, NamesBothWhenBothNarrowTheRows) {
    view.filter = RegisterFilter::thisMonth;
    view.searchText = "shop";
    view.reveal(shop.id);
    EXPECT_EQ(view.hiddenNotice(), "The saved transaction is hidden by the search and filter.");
}

TEST_F(RegisterReveal, SaysNothingOfAnEntryThatIsShownOrOfAnotherAccount) {
    view.searchText = "shop";
    view.reveal(shop.id);
    EXPECT_FALSE(view.hiddenNotice());
    const Transaction elsewhere =
        testing::makeTransaction(savings.id, testing::day(2026, 3, 1), "Interest", "1");
    test.store->mutate("Add", [&](Library& library) { upsert(library, elsewhere); });
    view.reveal(elsewhere.id);
    EXPECT_FALSE(view.hiddenNotice());
}

TEST_F(RegisterReveal, SaysNoMoreOnceTheSearchIsAnother) {
    view.searchText = "shop";
    view.reveal(rent.id);
    view.searchText = "shops";
    EXPECT_FALSE(view.hiddenNotice());
    EXPECT_FALSE(view.showHidden());
}

TEST_F(RegisterReveal, SaysNothingWhenTheSameSearchComesBackLater) {
    view.searchText = "shop";
    view.reveal(rent.id);
    view.searchText.clear();
    view.forgetHiddenIfChanged();
    view.searchText = "shop";
    view.forgetHiddenIfChanged();
    EXPECT_FALSE(view.hiddenNotice());
}

TEST_F(RegisterReveal, SaysNoMoreOnceTheEntryIsGoneOrShown) {
    view.filter = RegisterFilter::uncleared;
    view.reveal(shop.id);
    ASSERT_TRUE(view.hiddenNotice());
    view.toggleCleared(shop.id);
    EXPECT_FALSE(view.hiddenNotice());
    view.toggleCleared(shop.id);
    ASSERT_TRUE(view.hiddenNotice());
    test.store->mutate("Delete",
                       [this](Library& library) { deleteTransactions(library, {shop.id}); });
    EXPECT_FALSE(view.hiddenNotice());
}

TEST_F(RegisterReveal, ShowsWhatWasHiddenAndSelectsIt) {
    view.filter = RegisterFilter::thisMonth;
    view.searchText = "nothing";
    view.reveal(shop.id);
    view.reveal(rent.id);
    EXPECT_EQ(view.showHidden(), rent.id);
    EXPECT_EQ(view.selection, (UUIDSet{shop.id, rent.id}));
    EXPECT_FALSE(view.isNarrowed());
    EXPECT_FALSE(view.hiddenNotice());
    EXPECT_EQ(view.filteredRows().size(), 4U);
}

} // namespace oakfen
