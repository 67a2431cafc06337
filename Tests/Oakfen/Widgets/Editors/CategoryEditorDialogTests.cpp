#include "Oakfen/Widgets/Editors/CategoryEditorDialog.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "Oakfen/Widgets/Components/PickerBox.h"
#include "OakfenCore/LibraryOperations/Categories.h"
#include "Tests/Oakfen/Widgets/Settle.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::makeCategory;
using testing::settle;

class CategorySheet : public ::testing::Test {
protected:
    CategorySheet() {
        test.store->mutate("Add", [this](Library& library) {
            for (const Category& each : {food, groceries, car, pay}) {
                upsert(library, each);
            }
        });
        test.undoManager->removeAllActions();
    }

    void open(const ActiveSheet::Category& sheet) {
        dialog = std::make_unique<CategoryEditorDialog>(*test, sheet);
        dialog->show();
        dialog->activateWindow();
        settle();
    }
    [[nodiscard]] QLineEdit& name() const { return *dialog->findChild<QLineEdit*>(); }
    [[nodiscard]] PickerBox& parent() const {
        for (QComboBox* each : dialog->findChildren<QComboBox*>()) {
            if (auto* box = dynamic_cast<PickerBox*>(each)) {
                return *box;
            }
        }
        throw std::logic_error("no picker");
    }
    [[nodiscard]] QPushButton& word(const char* text) const {
        for (QPushButton* each : dialog->findChildren<QPushButton*>()) {
            if (each->text() == QString::fromUtf8(text)) {
                return *each;
            }
        }
        throw std::logic_error("no word");
    }
    [[nodiscard]] bool reads(const char* text) const {
        for (const QLabel* each : dialog->findChildren<QLabel*>()) {
            if (each->isVisible() && each->text() == QString::fromUtf8(text)) {
                return true;
            }
        }
        return false;
    }
    void save() const {
        QTest::mouseClick(dialog->primaryButton(), Qt::LeftButton);
        settle();
    }

    testing::TestEnvironment test;
    Category food = makeCategory("Food");
    Category groceries = makeCategory("Groceries", CategoryKind::expense, food.id);
    Category car = makeCategory("Car");
    Category pay = makeCategory("Pay", CategoryKind::income);
    std::unique_ptr<CategoryEditorDialog> dialog;
};

TEST_F(CategorySheet, MakesACategoryOfTheKind) {
    open({.kind = CategoryKind::income});
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("New Category"));
    EXPECT_FALSE(dialog->primaryButton()->isEnabled());
    EXPECT_TRUE(word("Income").isChecked());
    EXPECT_LT(word("Expense").x(), word("Income").x());
    EXPECT_FALSE(parent().chosenID());
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Rent"));
    dialog->findChild<QCheckBox*>()->click();
    save();
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    const Category& added = test.library().categories.back();
    EXPECT_EQ(added.name, "Rent");
    EXPECT_EQ(added.kind, CategoryKind::income);
    EXPECT_TRUE(added.isTaxRelated);
    EXPECT_FALSE(added.parentID);
}

TEST_F(CategorySheet, ShowsACategoryWithItsParentAndHasNoDeletion) {
    open({groceries.id, CategoryKind::expense});
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Edit Category"));
    EXPECT_EQ(name().text(), QStringLiteral("Groceries"));
    EXPECT_EQ(parent().chosenID(), food.id);
    EXPECT_EQ(dialog->destructiveButton(), nullptr);
    save();
    EXPECT_FALSE(test.undoManager->canUndo());
}

TEST_F(CategorySheet, ClearsTheParentWithTheOtherType) {
    open({groceries.id, CategoryKind::expense});
    word("Income").click();
    settle();
    EXPECT_FALSE(parent().chosenID());
    EXPECT_EQ(parent().currentText(), QStringLiteral("None (Top Level)"));
    save();
    EXPECT_EQ(test.index().category(groceries.id)->kind, CategoryKind::income);
    EXPECT_FALSE(test.index().category(groceries.id)->parentID);
}

TEST_F(CategorySheet, TellsOfAPathThatIsTaken) {
    open({groceries.id, CategoryKind::expense});
    name().selectAll();
    QTest::keyClicks(&name(), QStringLiteral("car"));
    EXPECT_FALSE(reads("There is another category of this path."));
    parent().choose(std::nullopt);
    parent().chosen();
    settle();
    EXPECT_TRUE(reads("There is another category of this path."));
    EXPECT_TRUE(dialog->primaryButton()->isEnabled());
}

} // namespace
} // namespace oakfen
