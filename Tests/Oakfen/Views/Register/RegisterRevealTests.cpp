#include "Tests/Oakfen/Views/Register/RegisterFixture.h"

namespace oakfen {

class RegisterReveal : public testing::RegisterFixture {
protected:
    /// The entry that is to be in sight.
    [[nodiscard]] std::optional<UUID> revealed() const {
        const auto content = view.content();
        return content->revealed ? std::optional(content->revealed->id) : std::nullopt;
    }
};

TEST_F(RegisterReveal, FollowsWhatIsSavedInAnEditor) {
    test.appState->transactionSaved.notify(shop.id);
    EXPECT_EQ(revealed(), shop.id);
    EXPECT_EQ(selection(), UUIDSet{shop.id});
}

TEST_F(RegisterReveal, TellsOfTheSameEntryAgain) {
    view.reveal(shop.id);
    const auto before = view.content();
    view.reveal(shop.id);
    EXPECT_NE(view.content()->revealed, before->revealed);
}

TEST_F(RegisterReveal, SelectsTheEntryAndNothingElse) {
    view.select({rent.id, pay.id});
    view.reveal(shop.id);
    EXPECT_EQ(revealed(), shop.id);
    EXPECT_EQ(selection(), UUIDSet{shop.id});
}

TEST_F(RegisterReveal, SelectsTheLegInThisAccountOfATransferEnteredInAnother) {
    view.reveal(*stored(cardPayment.id).transferID);
    EXPECT_EQ(revealed(), cardPayment.id);
    EXPECT_EQ(selection(), UUIDSet{cardPayment.id});
}

TEST_F(RegisterReveal, LeavesTheSelectionWhenTheEntryIsHidden) {
    view.select({shop.id});
    view.setSearchText("shop");
    view.reveal(rent.id);
    view.reveal(UUID::random());
    EXPECT_FALSE(revealed());
    EXPECT_EQ(selection(), UUIDSet{shop.id});
}

TEST_F(RegisterReveal, SaysThatTheSearchHidesTheEntry) {
    EXPECT_FALSE(view.content()->hiddenNotice);
    view.setSearchText("shop");
    view.reveal(rent.id);
    EXPECT_EQ(view.content()->hiddenNotice, "The saved transaction is hidden by the search.");
}

TEST_F(RegisterReveal, CountsTheEntriesThatTheFilterHides) {
    view.setFilter(RegisterFilter::thisMonth);
    view.setSearchText(" ");
    view.reveal(shop.id);
    EXPECT_EQ(view.content()->hiddenNotice, "The saved transaction is hidden by the filter.");
    view.reveal(shop.id);
    view.reveal(cardPayment.id);
    EXPECT_EQ(view.content()->hiddenNotice, "2 saved transactions are hidden by the filter.");
}

TEST_F(RegisterReveal, NamesBothWhenBothNarrowTheRows) {
    view.setFilter(RegisterFilter::thisMonth);
    view.setSearchText("shop");
    view.reveal(shop.id);
    EXPECT_EQ(view.content()->hiddenNotice,
              "The saved transaction is hidden by the search and filter.");
}

TEST_F(RegisterReveal, SaysNothingOfAnEntryThatIsShownOrOfAnotherAccount) {
    view.setSearchText("shop");
    view.reveal(shop.id);
    EXPECT_FALSE(view.content()->hiddenNotice);
    const Transaction elsewhere =
        testing::makeTransaction(savings.id, testing::day(2026, 3, 1), "Interest", "1");
    test.store->mutate("Add", [&](Library& library) { upsert(library, elsewhere); });
    view.reveal(elsewhere.id);
    EXPECT_FALSE(view.content()->hiddenNotice);
}

TEST_F(RegisterReveal, SaysNoMoreOnceTheSearchIsAnother) {
    view.setSearchText("shop");
    view.reveal(rent.id);
    view.setSearchText("shops");
    EXPECT_FALSE(view.content()->hiddenNotice);
    view.showHidden();
    EXPECT_FALSE(revealed());
}

TEST_F(RegisterReveal, SaysNothingWhenTheSameSearchComesBackLater) {
    view.setSearchText("shop");
    view.reveal(rent.id);
    view.setSearchText("");
    view.setSearchText("shop");
    EXPECT_FALSE(view.content()->hiddenNotice);
}

TEST_F(RegisterReveal, SaysNoMoreOnceTheEntryIsGoneOrShown) {
    view.setFilter(RegisterFilter::uncleared);
    view.reveal(shop.id);
    ASSERT_TRUE(view.content()->hiddenNotice);
    view.toggleCleared(shop.id);
    EXPECT_FALSE(view.content()->hiddenNotice);
    view.toggleCleared(shop.id);
    ASSERT_TRUE(view.content()->hiddenNotice);
    test.store->mutate("Delete",
                       [this](Library& library) { deleteTransactions(library, {shop.id}); });
    EXPECT_FALSE(view.content()->hiddenNotice);
}

TEST_F(RegisterReveal, ShowsWhatWasHiddenAndSelectsIt) {
    view.setFilter(RegisterFilter::thisMonth);
    view.setSearchText("nothing");
    view.reveal(shop.id);
    view.reveal(rent.id);
    view.showHidden();
    EXPECT_EQ(revealed(), rent.id);
    EXPECT_EQ(selection(), (UUIDSet{shop.id, rent.id}));
    EXPECT_FALSE(view.content()->isNarrowed());
    EXPECT_FALSE(view.content()->hiddenNotice);
    EXPECT_EQ(shownRows().size(), 4U);
}

} // namespace oakfen
