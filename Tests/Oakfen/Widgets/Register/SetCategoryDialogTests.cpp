#include "Oakfen/Widgets/Register/SetCategoryDialog.h"

#include <gmock/gmock.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>

#include "Oakfen/Widgets/Components/PickerList.h"
#include "Tests/Oakfen/Widgets/AccessibleTree.h"
#include "Tests/Oakfen/Widgets/Register/RegisterWindowFixture.h"

namespace oakfen {

class SetCategoryPanel : public testing::RegisterFixture {
protected:
    SetCategoryPanel() {
        dialog.show();
        dialog.activateWindow();
        QApplication::processEvents();
    }

    void type(const char* text) { QTest::keyClicks(dialog.field(), QString::fromUtf8(text)); }
    void press(Qt::Key key) { QTest::keyClick(dialog.field(), key); }
    [[nodiscard]] std::string highlighted() const {
        const auto line = dialog.list()->current();
        return line ? dialog.list()->lines()[*line].title : "";
    }
    [[nodiscard]] bool tells(const char* text) const {
        const auto labels = dialog.findChildren<QLabel*>();
        return std::ranges::any_of(labels, [&](const QLabel* label) {
            return label->isVisible() && label->text() == QString::fromUtf8(text);
        });
    }

    SetCategoryDialog dialog{*test, std::make_shared<const UUIDSet>(UUIDSet{shop.id, rent.id})};
};

TEST_F(SetCategoryPanel, TakesWhatIsTypedWithReturn) {
    EXPECT_TRUE(tells("Categorize 2 Transactions"));
    EXPECT_EQ(QApplication::focusWidget(), dialog.field());
    type("sal");
    EXPECT_EQ(highlighted(), "Salary");
    press(Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(stored(shop.id).categoryID, salary.id);
    EXPECT_EQ(stored(rent.id).categoryID, salary.id);
    EXPECT_EQ(undoName(), "Set Category");
}

TEST_F(SetCategoryPanel, TakesNothingThatNobodyChose) {
    EXPECT_EQ(highlighted(), "");
    EXPECT_FALSE(dialog.primaryButton()->isEnabled());
    press(Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(tells("Choose a category."));
    type("Pets");
    EXPECT_EQ(highlighted(), "");
    EXPECT_TRUE(dialog.field()->property("invalid").toBool());
    press(Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(tells("“Pets” isn’t a category. Choose “Create” in its list to make it one."));
    EXPECT_FALSE(test.undoManager->undoActionName() == "Set Category");
}

TEST_F(SetCategoryPanel, IsWalkedThroughWithTheArrowKeys) {
    press(Qt::Key_Down);
    EXPECT_EQ(highlighted(), "Food");
    press(Qt::Key_Down);
    EXPECT_EQ(highlighted(), "Salary");
    press(Qt::Key_Return);
    EXPECT_EQ(stored(rent.id).categoryID, salary.id);
}

TEST_F(SetCategoryPanel, MakesACategory) {
    type("Pets: Vet");
    press(Qt::Key_Down);
    EXPECT_EQ(highlighted(), "Create “Pets: Vet”");
    press(Qt::Key_Return);
    ASSERT_TRUE(stored(rent.id).categoryID);
    EXPECT_EQ(test.index().categoryName(stored(rent.id).categoryID), "Pets: Vet");
}

TEST_F(SetCategoryPanel, TakesTheLineThatIsClicked) {
    const PickerList* list = dialog.list();
    const auto click = [&](int line) {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualRect(list->model()->index(line, 0)).center());
    };
    click(0); // a header
    EXPECT_TRUE(dialog.isVisible());
    click(1);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(stored(rent.id).categoryID, food.id);
}

TEST_F(SetCategoryPanel, EndsWithoutAChangeAtEscape) {
    const Library before = test.library();
    type("sal");
    press(Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(test.library(), before);
}

TEST_F(SetCategoryPanel, TellsThoseWhoListenWhatEachPartIs) {
    EXPECT_THAT(testing::namelessNodes(dialog), ::testing::IsEmpty());
}

} // namespace oakfen
