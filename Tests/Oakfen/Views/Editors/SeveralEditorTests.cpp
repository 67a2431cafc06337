#include "Oakfen/Views/Editors/SeveralEditor.h"

#include <gtest/gtest.h>

#include "Oakfen/Views/Components/DateEntry.h"
#include "Oakfen/Views/Editors/TagsText.h"
#include "Oakfen/Views/Editors/TransactionEditor.h"
#include "OakfenCore/LibraryOperations/Transactions.h"
#include "Tests/Generators/RandomLibrary.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::day;
using testing::makeAccount;
using testing::makeTransaction;
using testing::RandomLibrary;
using testing::TestEnvironment;

class SeveralEditing : public ::testing::Test {
protected:
    SeveralEditing() {
        test.store->mutate("Add", [this](Library& library) {
            library.accounts = {everyday, savings};
            upsert(library, shop);
            upsert(library, fuel);
            upsert(library, transfer);
        });
        test.undoManager->removeAllActions();
    }

    [[nodiscard]] static SeveralEditor edit(TestEnvironment& environment, UUIDSet ids) {
        return SeveralEditor(*environment, ActiveSheet::EditSeveral{
                                               std::make_shared<const UUIDSet>(std::move(ids))});
    }
    [[nodiscard]] SeveralEditor edit(UUIDSet ids) { return edit(test, std::move(ids)); }
    [[nodiscard]] const Transaction& stored(const UUID& id) {
        return *test.index().transaction(id);
    }

    static Transaction tagged(Transaction entry, std::vector<std::string> tags) {
        entry.tags = std::move(tags);
        return entry;
    }

    TestEnvironment test;
    Account everyday = makeAccount("Everyday");
    Account savings = makeAccount("Savings", AccountType::savings);
    Transaction shop =
        tagged(makeTransaction(everyday.id, day(2026, 3, 1, 9), "Metro", "-5"), {"home", "food"});
    Transaction fuel =
        tagged(makeTransaction(everyday.id, day(2026, 3, 1, 17), "Fuel", "-9"), {"home", "food"});
    Transaction transfer = [this] {
        Transaction leg = makeTransaction(everyday.id, day(2026, 3, 4), "Metro", "-20");
        leg.transferAccountID = savings.id;
        return leg;
    }();
};

TEST_F(SeveralEditing, ShowsWhatAllHaveInCommonAndLeavesEverythingAsItIs) {
    const SeveralEditor editor = edit({shop.id, fuel.id});
    EXPECT_FALSE(editor.payee.isCommon());
    EXPECT_EQ(editor.payee.value(), "");
    EXPECT_TRUE(editor.memo.isCommon());
    EXPECT_TRUE(editor.tagsText.isCommon());
    EXPECT_EQ(editor.tagsText.value(), "home, food");
    EXPECT_TRUE(editor.day.isCommon());
    EXPECT_TRUE(editor.payee.isLeft() && editor.memo.isLeft() && editor.tagsText.isLeft() &&
                editor.day.isLeft());
    EXPECT_FALSE(edit({shop.id, transfer.id}).day.isCommon());
    EXPECT_EQ(edit({shop.id, transfer.id}).payee.value(), "Metro");
}

TEST_F(SeveralEditing, LeavesNoStepWhereNothingChanges) {
    edit({shop.id, fuel.id}).save();
    SeveralEditor same = edit({shop.id, transfer.id});
    same.payee.set(" Metro ");
    EXPECT_EQ(same.subtitle(), "All stay as they are so far.");
    same.save();
    EXPECT_FALSE(test.undoManager->canUndo());
}

TEST_F(SeveralEditing, ChangesAllInOneStepThatUndoTakesBack) {
    const Library before = test.library();
    SeveralEditor editor = edit({shop.id, fuel.id, transfer.id});
    editor.payee.set("Corner Shop");
    editor.tagsText.set("week, , plan ");
    editor.day.set(day(2026, 3, 20));
    editor.save();
    EXPECT_EQ(stored(fuel.id).payee, "Corner Shop");
    EXPECT_EQ(stored(fuel.id).tags, (std::vector<std::string>{"week", "plan"}));
    EXPECT_EQ(stored(shop.id).date, day(2026, 3, 20, 9));
    EXPECT_EQ(stored(fuel.id).date, day(2026, 3, 20, 17));
    const Transaction& twin = stored(*stored(transfer.id).transferID);
    EXPECT_EQ(twin.payee, "Corner Shop");
    EXPECT_EQ(twin.date, stored(transfer.id).date);
    EXPECT_TRUE(twin.tags.empty());
    EXPECT_EQ(test.undoManager->undoActionName(), "Edit Transactions");
    test.undoManager->undo();
    EXPECT_EQ(test.library(), before);
    EXPECT_FALSE(test.undoManager->canUndo());
}

TEST_F(SeveralEditing, SaysHowManyItChanges) {
    SeveralEditor editor = edit({shop.id, fuel.id});
    EXPECT_EQ(editor.title(), "Edit 2 Transactions");
    EXPECT_EQ(editor.subtitle(), "All stay as they are so far.");
    editor.payee.set("Metro");
    EXPECT_EQ(editor.subtitle(), "Changes 1 of 2 transactions.");
    editor.memo.set("x");
    EXPECT_EQ(editor.subtitle(), "Changes all 2 transactions.");
    editor.memo.setLeft(true);
    EXPECT_EQ(editor.subtitle(), "Changes 1 of 2 transactions.");
    SeveralEditor withTransfer = edit({shop.id, transfer.id});
    withTransfer.tagsText.set("x");
    EXPECT_EQ(withTransfer.subtitle(), "Changes all 2 transactions.");
    withTransfer.memo.set("x");
    EXPECT_EQ(withTransfer.subtitle(),
              "Changes all 2 transactions. Transfers change in both accounts.");
}

TEST_F(SeveralEditing, EmptiesWhatIsNotLeftAsItIsAndStaysEmpty) {
    SeveralEditor editor = edit({shop.id, fuel.id});
    editor.tagsText.set("");
    editor.save();
    EXPECT_TRUE(stored(shop.id).tags.empty());
    EXPECT_TRUE(stored(fuel.id).tags.empty());
}

TEST_F(SeveralEditing, WantsAPayeeOnceThatIsNotLeftAsItIs) {
    SeveralEditor editor = edit({shop.id, fuel.id});
    EXPECT_TRUE(editor.canSave());
    editor.payee.setLeft(false);
    EXPECT_EQ(editor.obstacle(), "Enter a payee.");
    editor.payee.set("  ");
    EXPECT_EQ(editor.obstacle(), "Enter a payee.");
    editor.payee.setLeft(true);
    EXPECT_TRUE(editor.canSave());
}

/// A document whose entries the editor of one entry would store as they are.
Library tidy(Library library) {
    library.transactions.editWhere(
        [](const Transaction&) { return true; },
        [](Transaction& entry) {
            entry.payee = "Payee";
            entry.tags = tagsOf("home, food");
            std::erase_if(entry.splits, [](const Split& line) { return line.amount.isZero(); });
        });
    return library;
}

TEST_F(SeveralEditing, DoesWhatTheEditorDoesWithEachEntryAlone) {
    for (std::uint64_t seed = 1; seed <= 25; ++seed) {
        RandomLibrary random(seed, RandomLibrary::Amounts::wholeCents);
        const Library document = tidy(random.make(40));
        UUIDSet ids;
        for (const Transaction& entry : document.transactions) {
            if (random.chance(3)) {
                ids.insert(entry.id);
            }
        }
        const bool changesPayee = random.chance(2);
        const bool changesTags = random.chance(2);
        const bool changesDay = random.chance(2);
        const Date to = day(2026, 3, 1 + static_cast<int>(random.below(28)));

        TestEnvironment alone;
        alone.store->mutate("Open", [&](Library& library) { library = document; });
        for (const UUID& id : ids) {
            TransactionEditor editor(*alone, ActiveSheet::EditTransaction{id});
            editor.draft.payee = changesPayee ? " Corner Shop" : editor.draft.payee;
            editor.draft.memo = "Weekly";
            editor.tagsText = changesTags ? "plan,,week" : editor.tagsText;
            if (changesDay) {
                DateEntry field(alone.clock);
                field.setValue(editor.draft.date);
                const CivilTime civil = alone.clock.calendar().civil(to);
                field.setDay(civil.year, civil.month, civil.day);
                editor.draft.date = field.value();
            }
            editor.save();
        }

        test.store->mutate("Open", [&](Library& library) { library = document; });
        SeveralEditor editor = edit(ids);
        editor.memo.set("Weekly");
        if (changesPayee) {
            editor.payee.set(" Corner Shop");
        }
        if (changesTags) {
            editor.tagsText.set("plan,,week");
        }
        if (changesDay) {
            editor.day.set(to);
        }
        editor.save();
        ASSERT_EQ(test.library(), alone.library()) << seed;
        test.undoManager->undo();
        ASSERT_EQ(test.library(), document) << seed;
    }
}

} // namespace
} // namespace oakfen
