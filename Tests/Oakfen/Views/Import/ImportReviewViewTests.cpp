#include "Oakfen/Views/Import/ImportReviewView.h"

#include <gtest/gtest.h>

#include "Oakfen/Views/TableChanges.h"
#include "OakfenCore/LibraryOperations/Transactions.h"
#include "OakfenCore/Support/Text/Formatting.h"
#include "Tests/Generators/RandomLibrary.h"
#include "Tests/Support/LocaleForTest.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {

using testing::amount;
using testing::day;
using testing::LocaleForTest;
using testing::makeAccount;
using testing::makeTransaction;
using testing::TestEnvironment;

class ImportReview : public ::testing::Test {
protected:
    ImportReview() {
        test_.store->mutate("Add", [this](Library& library) {
            library.accounts.push_back(everyday_);
            library.accounts.push_back(savings_);
            upsert(library, known_);
        });
        test_.undoManager->removeAllActions();
    }

    static ImportedTransaction line(std::string payee, std::string_view value, int dayOfMonth) {
        return {.id = UUID::random(),
                .date = day(2026, 3, dayOfMonth, 0),
                .payee = std::move(payee),
                .amount = amount(value)};
    }

    [[nodiscard]] ImportReviewView review(const UUID& accountID) {
        return review(accountID,
                      {line("Bakery", "-4.50", 3), line("SHOP", "-40", 5), line("Pay", "1000", 6)});
    }
    [[nodiscard]] ImportReviewView review(const UUID& accountID,
                                          std::vector<ImportedTransaction> lines) {
        return {*test_,
                std::make_shared<const ImportSession>(ImportSession{.id = UUID::random(),
                                                                    .fileName = "march.csv",
                                                                    .items = std::move(lines),
                                                                    .accountID = accountID})};
    }
    static ImportedTransaction filed(ImportedTransaction item, std::string category) {
        item.categoryName = std::move(category);
        return item;
    }
    static Cell cell(const ImportReviewView& view, std::size_t line, std::string_view column) {
        const auto table = view.content()->table;
        return table->cell(line, columnNamed(*table, column).value());
    }

    static std::optional<RepeatedEntry> duplicate(const ImportReviewView& view, std::size_t line) {
        return view.content()->table->rows().at(line)->duplicate;
    }
    /// What a screen reader adds to each cell of a line.
    static std::string description(const ImportReviewView& view, std::size_t line) {
        return view.content()->table->cell(line, 1).description;
    }

    Account everyday_ = makeAccount("Everyday");
    Account savings_ = makeAccount("Savings", AccountType::savings);
    Transaction known_ = makeTransaction(everyday_.id, day(2026, 3, 4), "Shop", "-40");
    TestEnvironment test_;
};

TEST_F(ImportReview, BeginsWithAllLinesForTheProposedAccount) {
    const ImportReviewView view = review(everyday_.id);
    EXPECT_EQ(view.accountID(), everyday_.id);
    EXPECT_EQ(view.included().size(), 3U);
    EXPECT_TRUE(view.included().contains(view.items()[1].id));
    EXPECT_TRUE(view.content()->canImport);
}

TEST_F(ImportReview, SaysWhatWasFound) {
    const ImportReviewView view = review(everyday_.id);
    EXPECT_EQ(ImportReviewView::heading({.fileName = "march.csv"}), "Import march.csv");
    EXPECT_EQ(view.content()->summary, "3 transactions found · 1 already in this account");
}

TEST_F(ImportReview, ShowsANameWithALineBreakOnOneLine) {
    EXPECT_EQ(ImportReviewView::heading({.fileName = "a\nb.csv"}), "Import a\\nb.csv");
}

TEST_F(ImportReview, MarksALineThatTheAccountHas) {
    const ImportReviewView view = review(everyday_.id);
    EXPECT_FALSE(duplicate(view, 0));
    ASSERT_TRUE(duplicate(view, 1));
    EXPECT_EQ(duplicate(view, 1)->date, known_.date);
    EXPECT_EQ(description(view, 0), "");
    EXPECT_NE(description(view, 1).find("Shop"), std::string::npos);
}

TEST_F(ImportReview, LooksForDuplicatesAnewInAnotherAccount) {
    ImportReviewView view = review(everyday_.id);
    ASSERT_TRUE(duplicate(view, 1));
    view.setAccountID(savings_.id);
    EXPECT_FALSE(duplicate(view, 1));
    EXPECT_EQ(view.content()->summary, "3 transactions found · 0 already in this account");
}

TEST_F(ImportReview, LooksForDuplicatesAnewAfterAnEdit) {
    const ImportReviewView view = review(everyday_.id);
    ASSERT_FALSE(duplicate(view, 2));
    test_.store->mutate("Add", [this](Library& library) {
        upsert(library, makeTransaction(everyday_.id, day(2026, 3, 7), "pay", "1000"));
    });
    EXPECT_TRUE(duplicate(view, 2));
}

TEST_F(ImportReview, TellsOnlyOfWhatLooksDifferent) {
    ImportReviewView view = review(everyday_.id);
    const auto before = view.content();
    int notices = 0;
    const Subscription changed = view.changed.observe([&] { ++notices; });
    const auto edit = [&](auto change) {
        test_.store->mutate("Edit", [&](Library& library) {
            change(known_);
            upsert(library, known_);
        });
    };
    edit([](Transaction& entry) { entry.checkNumber = "101"; });
    EXPECT_EQ(notices, 0);
    EXPECT_EQ(view.content(), before);
    edit([](Transaction& entry) { entry.payee = "The Shop"; });
    EXPECT_EQ(notices, 1);
    EXPECT_EQ(changesBetween(*before->table, *view.content()->table),
              (TableChanges{.changed = TableChanges::Span{1, 1}}));
}

TEST_F(ImportReview, HasNoAccountWhenTheProposedOneIsNotFound) {
    ImportReviewView view = review(UUID::random());
    EXPECT_FALSE(view.accountID());
    EXPECT_FALSE(view.content()->canImport);
    EXPECT_FALSE(duplicate(view, 1));
    view.importLines();
    EXPECT_FALSE(test_.undoManager->canUndo());
    view.setAccountID(savings_.id);
    EXPECT_TRUE(view.content()->canImport);
}

TEST_F(ImportReview, NeedsALine) {
    ImportReviewView view = review(everyday_.id);
    for (std::size_t each = 0; each < view.items().size(); ++each) {
        view.setIncluded({view.items()[each].id}, false);
    }
    EXPECT_FALSE(view.content()->canImport);
}

TEST_F(ImportReview, AddsTheTickedLinesInOneStepAndSkipsATickedDuplicate) {
    ImportReviewView view = review(everyday_.id);
    view.setIncluded({view.items()[2].id}, false);
    view.importLines();
    EXPECT_EQ(test_.undoManager->undoActionName(), "Import Transactions");
    ASSERT_EQ(test_.library().transactions.size(), 2U);
    const Transaction& added = test_.library().transactions.back();
    EXPECT_EQ(added.payee, "Bakery");
    EXPECT_EQ(added.cleared, ClearedState::cleared);
    EXPECT_EQ(added.accountID, everyday_.id);
    test_.undoManager->undo();
    EXPECT_EQ(test_.library().transactions.size(), 1U);
}

TEST_F(ImportReview, TellsHowManyLinesCameInAndTakesThemBack) {
    const Library before = test_.library();
    review(everyday_.id).importLines();
    ASSERT_TRUE(test_.appState->notice());
    EXPECT_EQ(test_.appState->notice()->text, "2 transactions imported");
    EXPECT_EQ(test_.appState->notice()->actionTitle, "Undo");
    const auto undo = test_.appState->notice()->action;
    undo();
    EXPECT_EQ(test_.library(), before);
    EXPECT_FALSE(test_.appState->notice());
}

TEST_F(ImportReview, TellsOfOneLineInTheSingular) {
    ImportReviewView view = review(everyday_.id);
    view.setIncluded({view.items()[2].id}, false);
    view.importLines();
    EXPECT_EQ(test_.appState->notice()->text, "1 transaction imported");
}

TEST_F(ImportReview, OffersNoUndoOnceAnotherStepIsMade) {
    review(everyday_.id).importLines();
    ASSERT_TRUE(test_.appState->notice());
    test_.store->mutate("Add", [this](Library& library) {
        upsert(library, makeTransaction(everyday_.id, day(2026, 3, 7), "Later", "-1"));
    });
    EXPECT_FALSE(test_.appState->notice());
}

TEST_F(ImportReview, TakesNothingBackForWhoeverFindsTheWindowLocked) {
    review(everyday_.id).importLines();
    const Library after = test_.library();
    test_.defaults.set(settings::requireAuthentication, true);
    test_.appState->setUnlocked(false);
    test_.appState->notice()->action();
    EXPECT_EQ(test_.library(), after);
}

TEST_F(ImportReview, LeavesNothingBehindWhenItIsTakenBack) {
    const Library before = test_.library();
    review(everyday_.id).importLines();
    const Library after = test_.library();
    EXPECT_NE(after, before);
    test_.undoManager->undo();
    EXPECT_EQ(test_.library(), before);
    test_.undoManager->redo();
    EXPECT_EQ(test_.library(), after);
}

TEST_F(ImportReview, MarksEveryLineOfAFileThatComesAgainAndAddsNone) {
    review(everyday_.id).importLines();
    test_.undoManager->removeAllActions();
    ImportReviewView again = review(everyday_.id);
    EXPECT_EQ(again.content()->summary, "3 transactions found · 3 already in this account");
    again.importLines();
    EXPECT_EQ(test_.library().transactions.size(), 3U);
    EXPECT_EQ(test_.appState->notice()->text,
              "Nothing was imported: what is ticked is in the account already");
    EXPECT_EQ(test_.appState->notice()->actionTitle, "");
    EXPECT_FALSE(test_.undoManager->canUndo());
}

TEST_F(ImportReview, SaysWhichEntryALineRepeats) {
    const LocaleForTest locale("en_CA");
    test_.store->mutate("Add", [this](Library& library) {
        upsert(library, makeTransaction(everyday_.id, day(2026, 3, 7), "pay", "1000"));
        upsert(library, makeTransaction(savings_.id, day(2026, 3, 3), "Bakery", "-4.50"));
    });
    ImportReviewView view = review(everyday_.id);
    const auto described = [&](int dayOfMonth, const std::string& rest) {
        return "Already in this account: " +
               abbreviatedDateText(day(2026, 3, dayOfMonth), Calendar::utc()) + ", " + rest;
    };
    EXPECT_EQ(description(view, 0), "");
    EXPECT_EQ(description(view, 1), described(4, "Shop, -$40.00"));
    EXPECT_EQ(description(view, 2), described(7, "pay, $1,000.00"));
    view.setAccountID(savings_.id);
    EXPECT_EQ(description(view, 0), described(3, "Bakery, -$4.50"));
    EXPECT_EQ(description(view, 1), "");
}

TEST_F(ImportReview, AddsToTheChosenAccount) {
    ImportReviewView view = review(everyday_.id);
    view.setAccountID(savings_.id);
    view.importLines();
    EXPECT_EQ(test_.index().transactions(savings_.id).size(), 3U);
}

TEST_F(ImportReview, CountsWithTheLocalesSeparators) {
    const LocaleForTest locale("en_CA");
    std::vector<ImportedTransaction> lines;
    for (int each = 0; each < 1'200; ++each) {
        lines.push_back(line("SHOP", "-40", 5));
    }
    lines.resize(2'400, line("New", "1", 5));
    for (ImportedTransaction& each : lines) {
        each.id = UUID::random();
    }
    const ImportReviewView view = review(everyday_.id, std::move(lines));
    EXPECT_EQ(view.content()->summary, "2,400 transactions found · 1,200 already in this account");
    EXPECT_EQ(view.content()->importTitle, "Import 1,200");
}

TEST_F(ImportReview, SaysHowManyLinesComeIn) {
    ImportReviewView view = review(everyday_.id);
    EXPECT_EQ(view.content()->importTitle, "Import 2");
    view.setIncluded({view.items()[0].id}, false);
    EXPECT_EQ(view.content()->importTitle, "Import 1");
    view.setIncluded({view.items()[2].id}, false);
    EXPECT_EQ(view.content()->importTitle, "Import");
    view.setAccountID(savings_.id);
    EXPECT_EQ(view.content()->importTitle, "Import 1");
    view.setAccountID(std::nullopt);
    EXPECT_EQ(view.content()->importTitle, "Import");
}

TEST_F(ImportReview, AddsUpWhatComesInOnly) {
    ImportReviewView view = review(everyday_.id);
    EXPECT_EQ(view.content()->moneyIn, amount("1000"));
    EXPECT_EQ(view.content()->moneyOut, amount("-4.5"));
    view.setIncluded({view.items()[2].id}, false);
    EXPECT_EQ(view.content()->moneyIn, Decimal());
    view.setAccountID(savings_.id);
    EXPECT_EQ(view.content()->moneyOut, amount("-44.5"));
}

TEST_F(ImportReview, TicksAllOrNone) {
    ImportReviewView view = review(everyday_.id);
    EXPECT_FALSE(view.content()->canTick);
    EXPECT_TRUE(view.content()->canUntick);
    view.tickNone();
    EXPECT_TRUE(view.included().empty());
    EXPECT_TRUE(view.content()->canTick);
    EXPECT_FALSE(view.content()->canUntick);
    EXPECT_FALSE(view.content()->canImport);
    view.tickAll();
    EXPECT_EQ(view.included().size(), 3U);
}

TEST_F(ImportReview, ShowsTheCategoryThatALineIsGoingToHave) {
    const Category food = testing::makeCategory("Food");
    const Category groceries = testing::makeCategory("Groceries", CategoryKind::expense, food.id);
    test_.store->mutate("Add", [&](Library& library) {
        library.categories.push_back(food);
        library.categories.push_back(groceries);
        Transaction filedBefore = makeTransaction(savings_.id, day(2026, 1, 1), "Market", "-9");
        filedBefore.categoryID = food.id;
        upsert(library, filedBefore);
    });
    const ImportReviewView view =
        review(everyday_.id, {filed(line("A", "-1", 1), "groceries"), line("market", "-2", 2),
                              line("B", "-3", 3), filed(line("Clinic", "-4", 4), "Medical"),
                              filed(line("Market", "-5", 5), "Medical")});
    EXPECT_EQ(cell(view, 0, "category").text, "Food: Groceries");
    EXPECT_EQ(cell(view, 1, "category").text, "Food");
    EXPECT_EQ(cell(view, 2, "category").text, "Uncategorized");
    EXPECT_EQ(cell(view, 2, "category").detail, "");
    EXPECT_EQ(cell(view, 3, "category").text, "Uncategorized");
    EXPECT_EQ(cell(view, 3, "category").detail, "not “Medical”");
    EXPECT_EQ(cell(view, 3, "category").toolTip, "“Medical” isn’t one of your categories");
    EXPECT_EQ(cell(view, 4, "category").text, "Food");
    EXPECT_EQ(cell(view, 4, "category").detail, "not “Medical”");
    EXPECT_TRUE(cell(view, 4, "category").keepsDetail);
    EXPECT_EQ(cell(view, 4, "category").toolTip,
              "“Medical” isn’t one of your categories\nFiled as its payee was last: Food");
}

TEST_F(ImportReview, NamesTheCategoriesThatAreMissing) {
    const std::string outcome = ": these lines are filed as their payee was last, or stay "
                                "uncategorized";
    const auto note = [&](const std::vector<std::string>& names) {
        std::vector<ImportedTransaction> lines;
        for (const std::string& name : names) {
            lines.push_back(filed(line("A", "-1", 1), name));
        }
        return review(everyday_.id, std::move(lines)).content()->note;
    };
    EXPECT_EQ(note({""}), "");
    EXPECT_EQ(note({"Medical", "Medical"}), "“Medical” isn’t one of your categories" + outcome);
    EXPECT_EQ(note({"Medical", "Pets"}),
              "“Medical” and “Pets” aren’t among your categories" + outcome);
    EXPECT_EQ(note({"Medical", "Pets", "Fun", "Pets", "Sea"}),
              "“Medical”, “Pets” and 2 more aren’t among your categories" + outcome);
}

TEST_F(ImportReview, DoesNotMindTheMissingCategoryOfALineThatIsLeftOut) {
    ImportReviewView view = review(
        everyday_.id, {filed(line("A", "-1", 1), "Pets"), filed(line("Shop", "-40", 5), "Fun")});
    EXPECT_NE(view.content()->note.find("“Pets” isn’t"), std::string::npos);
    view.setIncluded({view.items()[0].id}, false);
    EXPECT_EQ(view.content()->note, "");
}

TEST_F(ImportReview, MutesTheTickOfALineThatTheAccountHas) {
    ImportReviewView view = review(everyday_.id);
    EXPECT_EQ(cell(view, 0, "included").tone, TextTone::primary);
    EXPECT_EQ(cell(view, 1, "included").tone, TextTone::secondary);
    EXPECT_EQ(cell(view, 1, "payee").tone, TextTone::secondary);
    view.setIncluded({view.items()[1].id}, false);
    EXPECT_EQ(cell(view, 1, "included").spoken, "Left out: already in this account");
}

TEST_F(ImportReview, NamesTheMonthInItsDates) {
    const LocaleForTest locale("en_CA");
    const ImportReviewView view = review(everyday_.id);
    EXPECT_EQ(cell(view, 0, "date").text, "Mar 3, 2026");
    EXPECT_EQ(view.content()->table->wholeTexts(1).size(), 12U);
}

TEST_F(ImportReview, ShowsOneBlankForEachRunOfThemAndImportsThePayeeAsItIs) {
    const std::string payee = "CLINIC      ANYTOWN\t\u00A0 ON ";
    ImportReviewView view = review(everyday_.id, {line(payee, "-1", 1)});
    EXPECT_EQ(cell(view, 0, "payee").text, "CLINIC ANYTOWN ON");
    view.importLines();
    EXPECT_EQ(test_.library().transactions.back().payee, payee);
}

TEST_F(ImportReview, NeedsRoomForItsMarkOnlyWhereALineHasIt) {
    ImportReviewView view = review(everyday_.id);
    const auto mark = columnNamed(*view.content()->table, "mark").value();
    EXPECT_EQ(view.content()->table->wholeTexts(mark), std::vector<std::string>{"Duplicate"});
    view.setAccountID(savings_.id);
    EXPECT_TRUE(view.content()->table->wholeTexts(mark).empty());
}

/// Statements made of what the ledger has and of what it hasn't.
std::vector<ImportedTransaction> randomStatement(testing::RandomLibrary& random,
                                                 const Library& library) {
    std::vector<ImportedTransaction> lines;
    for (int count = 0; count < 40; ++count) {
        const Transaction& entry = library.transactions[random.below(library.transactions.size())];
        ImportedTransaction line{.id = UUID::random(),
                                 .date = random.chance(2) ? entry.date : random.date(),
                                 .payee = random.chance(4) ? random.text() : entry.payee,
                                 .amount = random.chance(3) ? random.amount() : entry.amount};
        if (random.chance(2)) {
            line.categoryName =
                random.chance(3) ? random.text()
                                 : library.categories[random.below(library.categories.size())].name;
        }
        lines.push_back(std::move(line));
    }
    return lines;
}

TEST_F(ImportReview, ShowsWhatTheImportDoesInAnyLedger) {
    const LocaleForTest locale("en_CA");
    for (std::uint64_t seed = 1; seed <= 30; ++seed) {
        SCOPED_TRACE(seed);
        testing::RandomLibrary random(seed, testing::RandomLibrary::Amounts::wholeCents);
        test_.store->replaceLibrary(random.make(80), std::nullopt);
        const Library before = test_.library();
        const UUID account = before.accounts[random.below(before.accounts.size())].id;
        ImportReviewView view = review(account, randomStatement(random, before));
        for (const ImportedTransaction& item : view.items()) {
            view.setIncluded({item.id}, !random.chance(4));
        }
        const auto shown = view.content();
        std::vector<std::string> expected;
        for (std::size_t row = 0; row < shown->table->rowCount(); ++row) {
            if (shown->table->rows()[row]->comesIn()) {
                expected.push_back(cell(view, row, "category").text);
            }
        }
        view.importLines();
        const auto& entries = test_.library().transactions;
        const std::size_t added = entries.size() - before.transactions.size();
        EXPECT_EQ(shown->importTitle, added == 0 ? "Import" : "Import " + countText(added));
        std::vector<std::string> categories;
        Decimal sum;
        for (std::size_t each = before.transactions.size(); each < entries.size(); ++each) {
            categories.push_back(drawnText(test_.index().categoryName(entries[each].categoryID)));
            sum = sum + entries[each].amount;
        }
        EXPECT_EQ(categories, expected);
        EXPECT_EQ(shown->moneyIn + shown->moneyOut, sum);
    }
}

} // namespace oakfen
