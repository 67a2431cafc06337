#include "Tests/Oakfen/Views/Editors/TransactionFixture.h"

namespace oakfen {

using testing::amount;

/// An entry that is filed under a category which isn't there yet.
class TransactionNewCategory : public testing::TransactionFixture {
protected:
    [[nodiscard]] const Category* named(std::string_view name) const {
        return test.library().categories.first(
            [&](const Category& each) { return each.name == name; });
    }
    [[nodiscard]] std::size_t categoryCount() const { return test.library().categories.size(); }
    [[nodiscard]] UUID vetFor(TransactionEditor& editor) const {
        return editor.planCategory("Pets: Vet").id.value();
    }
};

TEST_F(TransactionNewCategory, IsMadeWithTheEntryInOneStep) {
    const Library before = test.library();
    TransactionEditor editor = newEntry("Animal Clinic");
    editor.amount = amount("80");
    editor.draft.categoryID = vetFor(editor);
    EXPECT_EQ(test.library(), before);
    editor.save();
    const Category* vet = named("Vet");
    ASSERT_NE(vet, nullptr);
    EXPECT_EQ(stored(editor.draft.id).categoryID, vet->id);
    EXPECT_EQ(test.index().categoryName(vet->id), "Pets: Vet");
    EXPECT_EQ(vet->kind, CategoryKind::expense);
    EXPECT_EQ(test.undoManager->undoActionName(), "New Transaction");
    test.undoManager->undo();
    EXPECT_EQ(test.library(), before);
    EXPECT_FALSE(test.undoManager->canUndo());
    test.undoManager->redo();
    EXPECT_NE(named("Vet"), nullptr);
}

TEST_F(TransactionNewCategory, IsForIncomeWhereMoneyComesIn) {
    TransactionEditor editor = newEntry("Uncle");
    editor.draft.categoryID = editor.planCategory("Presents").id;
    editor.setKind(TransactionEditor::Kind::deposit);
    editor.amount = amount("50");
    editor.save();
    EXPECT_EQ(named("Presents")->kind, CategoryKind::income);
}

TEST_F(TransactionNewCategory, GoesByTheKindOfAnEntryWithoutAnAmount) {
    TransactionEditor editor = newEntry("Uncle");
    editor.draft.categoryID = editor.planCategory("Presents").id;
    editor.setKind(TransactionEditor::Kind::deposit);
    editor.save();
    EXPECT_EQ(named("Presents")->kind, CategoryKind::income);
}

TEST_F(TransactionNewCategory, IsMadeForSplitLinesByTheirOwnDirection) {
    TransactionEditor editor = newEntry("Employer");
    editor.setKind(TransactionEditor::Kind::deposit);
    editor.amount = amount("1000");
    editor.splitAcrossCategories();
    editor.splits[0].categoryID = editor.planCategory("Wages").id;
    editor.splits[0].amount = amount("1200");
    editor.splits[1].categoryID = editor.planCategory("Taxes: Federal").id;
    editor.splits[1].amount = amount("-200");
    editor.save();
    EXPECT_EQ(named("Wages")->kind, CategoryKind::income);
    EXPECT_EQ(named("Federal")->kind, CategoryKind::expense);
    EXPECT_EQ(named("Taxes")->kind, CategoryKind::expense);
    const auto& lines = stored(editor.draft.id).splits;
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].categoryID, named("Wages")->id);
    EXPECT_EQ(lines[1].categoryID, named("Federal")->id);
    test.undoManager->undo();
    EXPECT_EQ(named("Wages"), nullptr);
    EXPECT_EQ(named("Taxes"), nullptr);
}

TEST_F(TransactionNewCategory, IsMadeOnceForSeveralLines) {
    TransactionEditor editor = newEntry("Animal Clinic");
    editor.amount = amount("80");
    editor.splitAcrossCategories();
    for (TransactionEditor::SplitDraft& line : editor.splits) {
        line.categoryID = vetFor(editor);
        line.amount = amount("40");
    }
    const std::size_t before = categoryCount();
    editor.save();
    EXPECT_EQ(categoryCount(), before + 2);
    EXPECT_EQ(stored(editor.draft.id).splits[0].categoryID,
              stored(editor.draft.id).splits[1].categoryID);
}

TEST_F(TransactionNewCategory, IsNotMadeWhereNothingIsFiledUnderIt) {
    const std::size_t before = categoryCount();
    TransactionEditor another = newEntry("Animal Clinic");
    another.draft.categoryID = vetFor(another);
    another.draft.categoryID = food.id;
    another.save();
    TransactionEditor moved = newEntry("To Savings");
    moved.draft.categoryID = vetFor(moved);
    moved.setKind(TransactionEditor::Kind::transfer);
    moved.transferSelection = savings.id;
    moved.amount = amount("10");
    moved.save();
    TransactionEditor split = newEntry("Shop");
    split.amount = amount("10");
    split.splitAcrossCategories();
    split.splits[1].categoryID = vetFor(split);
    split.save();
    EXPECT_EQ(categoryCount(), before);
    EXPECT_FALSE(stored(moved.draft.id).categoryID);
}

TEST_F(TransactionNewCategory, IsTheOneThatSomethingElseMadeMeanwhile) {
    TransactionEditor editor = newEntry("Animal Clinic");
    editor.draft.categoryID = editor.planCategory("Vet").id;
    const Category vet = testing::makeCategory("vet");
    test.store->mutate("Add", [&](Library& library) { library.categories.push_back(vet); });
    editor.save();
    EXPECT_EQ(stored(editor.draft.id).categoryID, vet.id);
}

TEST_F(TransactionNewCategory, IsListedWhileTheEntryIsBeingEdited) {
    TransactionEditor editor = newEntry("Animal Clinic");
    const UUID vet = vetFor(editor);
    const std::vector<PickerRow> rows = editor.categoryChoices(vet);
    EXPECT_EQ(rows.back(), (PickerRow{.title = "Pets: Vet", .id = vet}));
    editor.draft.categoryID = vet;
    editor.save();
    editor.startNext();
    EXPECT_EQ(editor.categoryChoices(std::nullopt), categoryPickerRows(test.index()));
    EXPECT_EQ(editor.categoryOffer("pets: vet").known, named("Vet")->id);
}

TEST_F(TransactionNewCategory, SavingRemembersWhatTheEntryIsFiledUnder) {
    TransactionEditor editor = newEntry("Animal Clinic");
    editor.draft.categoryID = vetFor(editor);
    editor.save();
    EXPECT_EQ(test.appState->recentCategories(), std::vector<UUID>{named("Vet")->id});
    enter(splitEntry("Shop", "-1", "-2"));
    TransactionEditor split = edit(test.library().transactions.back().id);
    split.save();
    EXPECT_EQ(test.appState->recentCategories(),
              (std::vector<UUID>{home.id, food.id, named("Vet")->id}));
}

} // namespace oakfen
