#include "Tests/Generators/RandomLibrary.h"
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

TEST_F(RegisterReveal, SelectsWhatUndoBringsBack) {
    view.requestDelete({shop.id, pay.id});
    ASSERT_TRUE(selection().empty());
    test.undoManager->undo();
    EXPECT_EQ(selection(), (UUIDSet{shop.id, pay.id}));
    EXPECT_EQ(revealed(), pay.id);
}

TEST_F(RegisterReveal, SelectsWhatUndoAndRedoChange) {
    view.markAs(ClearedState::reconciled, {shop.id, rent.id});
    view.select({cardPayment.id});
    ASSERT_EQ(selection(), UUIDSet{cardPayment.id});
    test.undoManager->undo();
    EXPECT_EQ(selection(), (UUIDSet{shop.id, rent.id}));
    view.select({});
    test.undoManager->redo();
    EXPECT_EQ(selection(), (UUIDSet{shop.id, rent.id}));
    EXPECT_EQ(revealed(), rent.id);
}

TEST_F(RegisterReveal, KeepsTheSelectionWhenUndoChangesNothingThatIsShown) {
    test.store->mutate("Edit", [this](Library& library) {
        upsert(library, testing::makeTransaction(savings.id, testing::day(2026, 3, 1), "I", "1"));
    });
    view.markAs(ClearedState::reconciled, {shop.id});
    view.setFilter(RegisterFilter::thisMonth);
    view.select({pay.id});
    test.undoManager->undo();
    test.undoManager->undo();
    EXPECT_EQ(selection(), UUIDSet{pay.id});
    EXPECT_FALSE(revealed());
}

TEST_F(RegisterReveal, LeavesTheSelectionAsItIsWhenSomethingElseAddsAnEntry) {
    view.select({pay.id});
    test.store->mutate("Edit", [this](Library& library) {
        upsert(library, testing::makeTransaction(everyday.id, testing::day(2026, 3, 1), "N", "1"));
    });
    EXPECT_EQ(selection(), UUIDSet{pay.id});
}

/// Whatever is taken back, what is selected is what it brought back or changed.
TEST_F(RegisterReveal, SelectsExactlyWhatAnyStepHasTouched) {
    for (std::uint64_t seed = 0; seed < 40; ++seed) {
        SCOPED_TRACE(seed);
        testing::RandomLibrary source(seed);
        test.store->mutate("Edit", [&](Library& library) {
            UUIDSet deleted;
            for (std::size_t place = 0; place < library.transactions.size(); ++place) {
                if (library.transactions[place].accountID != everyday.id) {
                    continue;
                }
                switch (source.below(4)) {
                case 0:
                    deleted.insert(library.transactions[place].id);
                    break;
                case 1:
                    library.transactions.edit(place).memo += "x";
                    break;
                default:
                    break;
                }
            }
            deleteTransactions(library, deleted);
            upsert(library,
                   testing::makeTransaction(
                       everyday.id, testing::day(2026, 1, 1 + static_cast<int>(source.below(28))),
                       "N", "2"));
        });
        const Library after = test.library();
        const UUIDSet kept = selection();
        test.undoManager->undo();
        UUIDSet touched;
        for (const Transaction& each : test.library().transactions) {
            const Transaction* was = after.transactions.first(
                [&](const Transaction& other) { return other.id == each.id; });
            if (each.accountID == everyday.id && (was == nullptr || *was != each)) {
                touched.insert(each.id);
            }
        }
        EXPECT_EQ(selection(), touched.empty() ? kept : touched);
        test.undoManager->redo();
    }
}

} // namespace oakfen
