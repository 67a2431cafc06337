#include <QLineEdit>

#include "Oakfen/Widgets/Components/PickerList.h"
#include "Tests/Oakfen/Widgets/Editors/TransactionSheetFixture.h"

namespace oakfen {

using TransactionSheetCategory = testing::TransactionSheetFixture;

TEST_F(TransactionSheetCategory, AClickAndTypingReplaceTheChoice) {
    openEdit(shop.id);
    auto* picker = named<CategoryPicker>("Category");
    QTest::mouseClick(picker->lineEdit(), Qt::LeftButton, {}, QPoint(10, 8));
    settle();
    ASSERT_NE(picker->list(), nullptr);
    type("hom");
    EXPECT_EQ(picker->currentText(), QStringLiteral("hom"));
    press(Qt::Key_Tab);
    EXPECT_EQ(dialog->editor().draft.categoryID, home.id);
}

TEST_F(TransactionSheetCategory, AWordThatMeansNothingHoldsTheSaveAndStays) {
    const Library before = test.library();
    openEdit(shop.id);
    tabTo("Category");
    type("foobar");
    press(Qt::Key_Tab);
    EXPECT_EQ(named<CategoryPicker>("Category")->currentText(), QStringLiteral("foobar"));
    press(Qt::Key_Tab);
    press(Qt::Key_Return);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(tells("Category: “foobar” isn’t a category. Choose “Create” in its list"));
    EXPECT_EQ(focusName(), "Category");
    EXPECT_EQ(test.library(), before);
    type("home");
    press(Qt::Key_Return); // takes the match
    press(Qt::Key_Return);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(stored(shop.id).categoryID, home.id);
}

TEST_F(TransactionSheetCategory, AnUnknownAccountHoldsTheSaveToo) {
    openEdit(shop.id);
    tabTo("Account");
    type("xyz");
    press(Qt::Key_Tab);
    press(Qt::Key_Return);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(tells("Account: “xyz” isn’t an account."));
}

TEST_F(TransactionSheetCategory, EscapeClosesTheListBeforeTheSheet) {
    openEdit(shop.id);
    tabTo("Category");
    press(Qt::Key_Down);
    press(Qt::Key_Escape);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(named<CategoryPicker>("Category")->list(), nullptr);
    press(Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(TransactionSheetCategory, ACategoryIsMadeWithTheEntryAndTakenBackWithIt) {
    const Library before = test.library();
    openEdit(shop.id);
    tabTo("Category");
    type("Pets: Vet");
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(named<CategoryPicker>("Category")->currentText(), QStringLiteral("Pets: Vet"));
    EXPECT_EQ(test.library(), before);
    press(Qt::Key_Return);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(test.index().categoryName(stored(shop.id).categoryID), "Pets: Vet");
    test.undoManager->undo();
    EXPECT_EQ(test.library(), before);
}

TEST_F(TransactionSheetCategory, CancellingMakesNoCategory) {
    const Library before = test.library();
    openEdit(shop.id);
    tabTo("Category");
    type("Vet");
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    press(Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(test.library(), before);
}

TEST_F(TransactionSheetCategory, ACategoryMadeForOneLineCanBeChosenForTheNext) {
    openEdit(shop.id);
    tabTo("Split Across Categories…");
    press(Qt::Key_Space);
    type("Vet");
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    tabTo("Amount");
    type("30");
    tabTo("Category");
    type("vet");
    press(Qt::Key_Tab);
    tabTo("Amount");
    type("10.25");
    press(Qt::Key_Return);
    EXPECT_FALSE(dialog->isVisible());
    const auto& lines = stored(shop.id).splits;
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(test.index().categoryName(lines[0].categoryID), "Vet");
    EXPECT_EQ(lines[1].categoryID, lines[0].categoryID);
    EXPECT_EQ(test.library().categories.size(), 3U);
}

} // namespace oakfen
