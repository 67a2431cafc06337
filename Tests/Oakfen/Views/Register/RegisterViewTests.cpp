#include "Oakfen/Views/Register/RegisterView.h"

#include <gtest/gtest.h>

#include "Oakfen/Views/TableChanges.h"
#include "Tests/Generators/RandomLibrary.h"
#include "Tests/Oakfen/Views/Register/RegisterFixture.h"
#include "Tests/Support/LocaleForTest.h"

namespace oakfen {

using testing::amount;
using testing::day;
using testing::LocaleForTest;
using testing::RegisterFixture;

using RegisterScreen = RegisterFixture;

TEST_F(RegisterScreen, IsTitledByTheAccountAndItsInstitution) {
    EXPECT_EQ(view.content()->title, "Everyday");
    EXPECT_EQ(view.content()->subtitle, "Maple Bank");
    EXPECT_EQ(RegisterView(*test, card.id).content()->subtitle, title(AccountType::creditCard));
}

TEST_F(RegisterScreen, NamesTheAmountColumnsByTheKindOfAccount) {
    const auto titles = [](const RegisterView& shown) {
        const auto content = shown.content();
        std::vector<std::string_view> result;
        for (std::size_t column = 0; column < content->table->columnCount(); ++column) {
            result.push_back(content->table->head(column).title);
        }
        return result;
    };
    EXPECT_EQ(titles(view),
              (std::vector<std::string_view>{"", "Date", "Num", "Payee", "Category", "Tags",
                                             "Payment", "Deposit", "Balance"}));
    EXPECT_EQ(titles(RegisterView(*test, card.id)),
              (std::vector<std::string_view>{"", "Date", "Num", "Payee", "Category", "Tags",
                                             "Charge", "Payment", "Balance"}));
}

TEST_F(RegisterScreen, ShowsTheLatestEntryFirst) {
    EXPECT_EQ(shownPayees(), "Rent|Pay|Shop|Card Company");
}

TEST_F(RegisterScreen, TurnsTheDirectionWithASecondClickOnTheHeader) {
    view.sortBy("payee");
    EXPECT_EQ(view.content()->sort, (TableOrder{"payee", true}));
    EXPECT_EQ(shownPayees(), "Card Company|Pay|Rent|Shop");
    view.sortBy("payee");
    EXPECT_EQ(shownPayees(), "Shop|Rent|Pay|Card Company");
}

TEST_F(RegisterScreen, DoesNotSortByTags) {
    view.sortBy("tags");
    EXPECT_EQ(view.content()->sort, TableOrder());
}

TEST_F(RegisterScreen, KeepsTheBalancesAlongLedgerOrderHoweverItIsSorted) {
    const auto balances = [this] {
        std::map<UUID, Decimal> byID;
        for (const RegisterRow* row : shownRows()) {
            byID[row->id] = row->balance;
        }
        return byID;
    };
    const auto before = balances();
    view.sortBy("payment");
    EXPECT_EQ(balances(), before);
    EXPECT_EQ(before.at(rent.id), amount("260"));
}

TEST_F(RegisterScreen, FindsUncategorizedRowsByThatWord) {
    view.setSearchText("uncategorized");
    EXPECT_EQ(shownPayees(), "Rent|Pay");
}

TEST_F(RegisterScreen, FiltersWithTheClocksMoment) {
    view.setFilter(RegisterFilter::thisMonth);
    EXPECT_EQ(shownPayees(), "Rent|Pay");
    test.clock.set(day(2026, 2, 20));
    test.store->refreshIndex();
    EXPECT_EQ(shownPayees(), "Shop|Card Company");
}

TEST_F(RegisterScreen, CatchesARealCategoryNamedUncategorizedInThatFilter) {
    test.store->mutate("Edit", [this](Library& library) {
        Category category = testing::makeCategory("Uncategorized");
        setCategory(library, category.id, {shop.id});
        library.categories.push_back(category);
    });
    view.setFilter(RegisterFilter::uncategorized);
    EXPECT_EQ(shownPayees(), "Rent|Pay|Shop");
}

TEST_F(RegisterScreen, DoesNotFilterByBlanks) {
    view.setSearchText("  ");
    EXPECT_EQ(shownRows().size(), 4U);
}

TEST_F(RegisterScreen, ShowsTheNewRowsAfterAnEdit) {
    EXPECT_EQ(shownRows().size(), 4U);
    test.store->mutate("Edit", [this](Library& library) {
        upsert(library, testing::makeTransaction(everyday.id, day(2026, 3, 20), "Later", "1"));
    });
    EXPECT_EQ(shownPayees(), "Later|Rent|Pay|Shop|Card Company");
}

TEST_F(RegisterScreen, SumsUpTheAccountInItsFooter) {
    const RegisterFooter footer = view.content()->footer;
    EXPECT_EQ(footer.figures, (std::vector<RegisterFooter::Figure>{{"Cleared", amount("460")},
                                                                   {"Today", amount("1460")},
                                                                   {"Ending", amount("260")}}));
    EXPECT_FALSE(footer.selection);
}

TEST_F(RegisterScreen, ShowsTheCreditThatIsLeft) {
    const auto figures = RegisterView(*test, card.id).content()->footer.figures;
    ASSERT_EQ(figures.size(), 4U);
    EXPECT_EQ(figures[3], (RegisterFooter::Figure{"Available Credit", amount("2025")}));
}

TEST_F(RegisterScreen, ShowsNoAvailableCreditForALimitOfZero) {
    test.store->mutate("Edit", [this](Library& library) {
        Account changed = card;
        changed.creditLimit = Decimal();
        upsert(library, changed);
    });
    EXPECT_EQ(RegisterView(*test, card.id).content()->footer.figures.size(), 3U);
}

TEST_F(RegisterScreen, CountsAndSumsTheSelection) {
    view.select({rent.id, pay.id});
    EXPECT_EQ(view.content()->footer.selection,
              (RegisterFooter::Figure{"2 selected", amount("-200")}));
}

TEST_F(RegisterScreen, DropsFromTheSelectionWhatIsNotShown) {
    view.select({rent.id, shop.id});
    view.setFilter(RegisterFilter::thisMonth);
    EXPECT_EQ(selection(), UUIDSet{rent.id});
}

TEST_F(RegisterScreen, OffersToAddOrImportWhenTheAccountIsEmpty) {
    const RegisterView empty(*test, savings.id);
    EXPECT_FALSE(empty.content()->isNarrowed());
    EXPECT_EQ(empty.content()->emptyState(),
              (EmptyState{"No Transactions", "list.bullet.rectangle",
                          "Add a transaction or import a statement from your bank."}));
}

TEST_F(RegisterScreen, SpeaksOfASearchWithoutResults) {
    view.setSearchText("nobody ");
    EXPECT_TRUE(shownRows().empty());
    EXPECT_EQ(view.content()->emptyState()->title, "No Results for “nobody”");
    EXPECT_TRUE(view.content()->isNarrowed());
}

TEST_F(RegisterScreen, QuotesNoMoreOfALongSearchThanFitsOnALine) {
    view.setSearchText("Uncleared\tno one\n" + std::string(200, 'x'));
    EXPECT_EQ(view.content()->emptyState()->title,
              "No Results for “Uncleared\tno one " + std::string(23, 'x') + "…”");
}

TEST_F(RegisterScreen, TakesBlanksForASearchOnlyInTheEmptyState) {
    RegisterView empty(*test, savings.id);
    empty.setSearchText(" ");
    EXPECT_EQ(empty.content()->emptyState()->title, "No Results");
}

TEST_F(RegisterScreen, SpeaksOfAFilterWithoutResults) {
    RegisterView empty(*test, savings.id);
    empty.setFilter(RegisterFilter::uncleared);
    EXPECT_EQ(empty.content()->emptyState()->title, "No Results");
}

TEST_F(RegisterScreen, GivesTheFiguresOfAllRowsRoomAfterAnEditToo) {
    const LocaleForTest locale("en_CA");
    view.setSearchText("nobody"); // which rows are shown makes no difference
    const auto widest = [this](std::string_view column) {
        const auto content = view.content();
        return content->table->wholeTexts(columnNamed(*content->table, column).value());
    };
    using Texts = std::vector<std::string>;
    EXPECT_EQ(widest("payment"), (Texts{"$0.00", "$1,200.00"}));
    EXPECT_EQ(widest("deposit"), (Texts{"$0.00", "$1,000.00"}));
    EXPECT_EQ(widest("balance"), (Texts{"$0.00", "$1,460.00"}));
    test.store->mutate("Delete",
                       [this](Library& library) { deleteTransactions(library, {pay.id}); });
    EXPECT_EQ(widest("deposit"), (Texts{"$0.00", "$0.00"}));
    EXPECT_EQ(widest("balance"), (Texts{"-$740.00", "$500.00"}));
}

TEST_F(RegisterScreen, TellsOnlyOfWhatLooksDifferent) {
    const auto before = view.content();
    int notices = 0;
    const Subscription changed = view.changed.observe([&] { ++notices; });
    test.store->mutate("Edit", [this](Library& library) {
        upsert(library, testing::makeTransaction(savings.id, day(2026, 3, 1), "Interest", "1"));
    });
    view.select({});
    view.setSort({});
    EXPECT_EQ(notices, 0);
    EXPECT_EQ(view.content(), before);
    view.toggleCleared(rent.id);
    EXPECT_EQ(notices, 1);
    EXPECT_EQ(changesBetween(*before->table, *view.content()->table),
              (TableChanges{.changed = TableChanges::Span{0, 0}}));
    EXPECT_EQ(before->table->rows()[0]->cleared, ClearedState::uncleared);
}

TEST_F(RegisterScreen, LeavesWhatSomebodyStillShowsAsItIs) {
    std::vector<std::shared_ptr<const RegisterContent>> shown{view.content()};
    for (const char* payee : {"A", "B", "C", "D"}) {
        test.store->mutate("Edit", [&](Library& library) {
            upsert(library, testing::makeTransaction(everyday.id, day(2026, 4, 1), payee, "-1"));
        });
        shown.push_back(view.content());
    }
    for (std::size_t edits = 0; edits < shown.size(); ++edits) {
        ASSERT_EQ(shown[edits]->table->rowCount(), 4 + edits);
        EXPECT_EQ(shown[edits]->table->rows()[edits]->balance, amount("260"));
    }
}

TEST_F(RegisterScreen, ForgetsASelectionThatAFilterHasHidden) {
    view.select({shop.id});
    ASSERT_EQ(selection(), UUIDSet{shop.id});
    view.setFilter(RegisterFilter::thisMonth);
    view.setFilter(RegisterFilter::all);
    EXPECT_TRUE(selection().empty());
}

/// Whatever is edited, what is shown is what a screen that is opened now shows.
TEST_F(RegisterScreen, FollowsAnyEditsAsIfItWereOpenedAfresh) {
    for (std::uint64_t seed = 0; seed < 30; ++seed) {
        SCOPED_TRACE(seed);
        testing::RandomLibrary source(seed);
        view.setSort({"payee", true});
        for (int step = 0; step < 10; ++step) {
            const auto earlier = view.content();
            const std::size_t count = test.library().transactions.size();
            test.store->mutate("Edit", [&](Library& library) {
                Transaction entry = library.transactions[source.below(count)];
                switch (source.below(5)) {
                case 0:
                    entry.id = UUID::random();
                    entry.payee += "x";
                    break;
                case 1:
                    entry.date = day(2026, 1, 1 + static_cast<int>(source.below(28)));
                    break;
                case 2:
                    entry.cleared = ClearedState::cleared;
                    break;
                default:
                    entry.amount += amount("1.25");
                }
                entry.transferID.reset();
                entry.transferAccountID.reset();
                upsert(library, entry);
            });
            if (source.chance(4)) {
                test.undoManager->undo();
            }
            RegisterView fresh(*test, everyday.id);
            fresh.setSort({"payee", true});
            // What undo has brought back is selected.
            fresh.select(*view.content()->selection);
            ASSERT_TRUE(isSameTable(*view.content()->table, *fresh.content()->table));
            EXPECT_EQ(view.content()->footer, fresh.content()->footer);
        }
    }
}

TEST_F(RegisterScreen, StandsADeletedAccount) {
    test.store->mutate("Delete Account",
                       [this](Library& library) { deleteAccount(library, everyday.id); });
    EXPECT_EQ(view.content()->title, "");
    EXPECT_TRUE(shownRows().empty());
    EXPECT_EQ(view.content()->footer.figures[1].amount, Decimal());
}

} // namespace oakfen
