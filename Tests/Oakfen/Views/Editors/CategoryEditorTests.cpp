#include "Oakfen/Views/Editors/CategoryEditor.h"

#include <gtest/gtest.h>

#include "OakfenCore/LibraryOperations/Categories.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::makeCategory;
using testing::TestEnvironment;

class CategoryEditing : public ::testing::Test {
protected:
    CategoryEditing() {
        test.store->mutate("Add", [this](Library& library) {
            for (const Category& each : {food, groceries, car, pay}) {
                upsert(library, each);
            }
        });
        test.undoManager->removeAllActions();
    }

    [[nodiscard]] CategoryEditor editorOf(const Category& category) {
        return {*test, ActiveSheet::Category{category.id, category.kind}};
    }
    [[nodiscard]] CategoryEditor newEditor(CategoryKind kind = CategoryKind::expense) {
        return {*test, ActiveSheet::Category{.kind = kind}};
    }
    [[nodiscard]] const Category& stored(const Category& category) const {
        return *test.index().category(category.id);
    }
    static std::string titles(const CategoryEditor& editor) {
        std::string text;
        for (const PickerRow& row : editor.parentRows()) {
            text += (text.empty() ? "" : "|") + row.title;
        }
        return text;
    }

    TestEnvironment test;
    Category food = makeCategory("Food");
    Category groceries = makeCategory("Groceries", CategoryKind::expense, food.id);
    Category car = makeCategory("Car");
    Category pay = makeCategory("Pay", CategoryKind::income);
};

TEST_F(CategoryEditing, ANewCategoryIsOfTheKindThatWasAskedForAndHasNoParent) {
    for (const CategoryKind kind : allCases<CategoryKind>) {
        const CategoryEditor editor = newEditor(kind);
        EXPECT_TRUE(editor.isNew());
        EXPECT_EQ(editor.title(), "New Category");
        EXPECT_EQ(editor.primaryTitle(), "Save");
        EXPECT_EQ(editor.draft.kind, kind);
        EXPECT_EQ(editor.draft.name, "");
        EXPECT_NE(editor.draft.id, UUID{});
        EXPECT_FALSE(editor.parent);
        EXPECT_EQ(editor.obstacle(), "Enter a name.");
        EXPECT_FALSE(editor.deleteConfirmation());
    }
}

TEST_F(CategoryEditing, ACategoryIsLoadedWithItsParent) {
    const CategoryEditor editor = editorOf(groceries);
    EXPECT_FALSE(editor.isNew());
    EXPECT_EQ(editor.title(), "Edit Category");
    EXPECT_EQ(editor.draft, groceries);
    EXPECT_EQ(editor.parent, food.id);
    EXPECT_TRUE(editor.canSave());
}

TEST_F(CategoryEditing, ANewCategoryIsAppendedInOneStep) {
    CategoryEditor editor = newEditor();
    editor.draft.name = "\t Fuel ";
    editor.draft.isTaxRelated = true;
    editor.parent = car.id;
    editor.save();
    ASSERT_EQ(test.library().categories.size(), 5U);
    const Category& added = test.library().categories.back();
    EXPECT_EQ(added.name, "Fuel");
    EXPECT_EQ(added.parentID, car.id);
    EXPECT_TRUE(added.isTaxRelated);
    EXPECT_EQ(added.kind, CategoryKind::expense);
    EXPECT_EQ(test.undoManager->undoActionName(), "New Category");
    test.undoManager->undo();
    EXPECT_EQ(test.library().categories.size(), 4U);
}

TEST_F(CategoryEditing, AnEditStaysInPlaceAndIsTakenBack) {
    CategoryEditor editor = editorOf(groceries);
    editor.draft.name = "Market";
    editor.parent.reset();
    editor.save();
    EXPECT_EQ(test.library().categories[1].name, "Market");
    EXPECT_FALSE(stored(groceries).parentID);
    EXPECT_EQ(test.undoManager->undoActionName(), "Edit Category");
    test.undoManager->undo();
    EXPECT_EQ(stored(groceries), groceries);
}

TEST_F(CategoryEditing, ANameOfBlanksIsNone) {
    CategoryEditor editor = editorOf(food);
    editor.draft.name = " \t";
    EXPECT_EQ(editor.obstacle(), "Enter a name.");
}

TEST_F(CategoryEditing, AColonInTheNameBecomesAHyphen) {
    CategoryEditor editor = newEditor();
    editor.draft.name = " Food: Out:side ";
    EXPECT_EQ(editor.nameHint(),
              "It is kept as “Food- Out-side”, since a colon parts the names of a path.");
    editor.save();
    EXPECT_EQ(test.library().categories.back().name, "Food- Out-side");
}

TEST_F(CategoryEditing, WarnsOfAPathThatIsTakenAndKeepsItAllTheSame) {
    CategoryEditor editor = newEditor();
    editor.draft.name = " groceries ";
    EXPECT_EQ(editor.nameHint(), "");
    editor.parent = food.id;
    EXPECT_EQ(editor.nameHint(), "There is another category of this path.");
    EXPECT_TRUE(editor.canSave());
    editor.save();
    EXPECT_EQ(test.index().children(food.id).size(), 2U);
}

TEST_F(CategoryEditing, ItsOwnPathIsNotTaken) {
    EXPECT_EQ(editorOf(groceries).nameHint(), "");
    EXPECT_EQ(editorOf(food).nameHint(), "");
}

TEST_F(CategoryEditing, OffersTheTopsOfItsKindAsParents) {
    EXPECT_EQ(titles(newEditor()), "None (Top Level)|Car|Food");
    EXPECT_EQ(titles(newEditor(CategoryKind::income)), "None (Top Level)|Pay");
    EXPECT_EQ(titles(editorOf(groceries)), "None (Top Level)|Car|Food");
}

TEST_F(CategoryEditing, NeverOffersACategoryAsItsOwnParent) {
    EXPECT_EQ(titles(editorOf(car)), "None (Top Level)|Food");
}

TEST_F(CategoryEditing, ACategoryThatIsItsOwnParentComesToTheTopOnSaving) {
    car.parentID = car.id;
    test.store->mutate("Break", [this](Library& library) { upsert(library, car); });
    CategoryEditor editor = editorOf(car);
    EXPECT_FALSE(editor.parent);
    EXPECT_EQ(titles(editor), "None (Top Level)|Food");
    editor.setKind(CategoryKind::income);
    EXPECT_EQ(editor.kindHint(), "");
    editor.setKind(CategoryKind::expense);
    editor.save();
    EXPECT_FALSE(stored(car).parentID);
    EXPECT_EQ(test.undoManager->undoActionName(), "Edit Category");
    test.undoManager->undo();
    EXPECT_EQ(stored(car), car);
}

TEST_F(CategoryEditing, CategoriesThatAreEachOthersParentsAreKeptUntilOneComesToTheTop) {
    car.parentID = food.id;
    food.parentID = car.id;
    test.store->mutate("Break", [this](Library& library) {
        upsert(library, car);
        upsert(library, food);
    });
    CategoryEditor editor = editorOf(car);
    EXPECT_EQ(editor.parent, food.id);
    const std::vector<PickerRow> rows = editor.parentRows();
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].title, "None (Top Level)");
    EXPECT_EQ(rows[1].id, food.id);
    editor.save();
    EXPECT_EQ(stored(car), car);
    editor.parent.reset();
    editor.save();
    EXPECT_FALSE(stored(car).parentID);
    EXPECT_EQ(stored(food).parentID, car.id);
}

TEST_F(CategoryEditing, WhatHasSubcategoriesStaysAtTheTop) {
    EXPECT_EQ(titles(editorOf(food)), "None (Top Level)");
}

TEST_F(CategoryEditing, AnotherTypeClearsAParentOfTheFirst) {
    CategoryEditor editor = editorOf(groceries);
    editor.setKind(CategoryKind::expense);
    EXPECT_EQ(editor.parent, food.id);
    editor.setKind(CategoryKind::income);
    EXPECT_FALSE(editor.parent);
    EXPECT_EQ(titles(editor), "None (Top Level)|Pay");
    editor.save();
    EXPECT_EQ(stored(groceries).kind, CategoryKind::income);
    EXPECT_FALSE(stored(groceries).parentID);
}

TEST_F(CategoryEditing, SaysThatSubcategoriesKeepTheirType) {
    CategoryEditor editor = editorOf(food);
    EXPECT_EQ(editor.kindHint(), "");
    editor.setKind(CategoryKind::income);
    EXPECT_EQ(editor.kindHint(), "Its subcategories keep their type.");
    CategoryEditor leaf = editorOf(car);
    leaf.setKind(CategoryKind::income);
    EXPECT_EQ(leaf.kindHint(), "");
}

TEST_F(CategoryEditing, AParentThatTheListWouldLeaveOutIsShownAndKept) {
    groceries.kind = CategoryKind::income;
    test.store->mutate("Edit", [this](Library& library) { upsert(library, groceries); });
    CategoryEditor editor = editorOf(groceries);
    EXPECT_EQ(titles(editor), "None (Top Level)|Pay|Food");
    editor.draft.name = "Returns";
    editor.save();
    EXPECT_EQ(stored(groceries).parentID, food.id);
}

} // namespace
} // namespace oakfen
