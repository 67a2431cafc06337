#include "Oakfen/Widgets/Categories/CategoriesWidget.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>

#include "Oakfen/FigureLines.h"
#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Components/Mnemonics.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "OakfenCore/LibraryOperations/Categories.h"
#include "Tests/Oakfen/Widgets/Settle.h"
#include "Tests/Support/LocaleForTest.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::makeCategory;
using testing::settle;

class CategoriesWindow : public ::testing::Test {
protected:
    CategoriesWindow() {
        store({car, fuel, food, pay});
        test.undoManager->removeAllActions();
        lines = test.appState->linesWanted.observe(
            [this](const FigureLines& figure) { wanted.push_back(figure.title); });
        widget.resize(1030, 700);
        widget.show();
        widget.activateWindow();
        table().setFocus();
        settle();
    }

    void store(const std::vector<Category>& categories) {
        test.store->mutate("Category", [&](Library& library) {
            for (const Category& each : categories) {
                upsert(library, each);
            }
        });
        settle();
    }
    /// Enough for several pages.
    void storeMany() {
        std::vector<Category> many;
        for (int number = 100; number < 200; ++number) {
            many.push_back(makeCategory("Many " + std::to_string(number)));
        }
        store(many);
        // The page learns of its height in a turn of its own.
        settle();
    }
    [[nodiscard]] LedgerTable& table() const { return *widget.table(); }
    [[nodiscard]] std::string name(int row) const {
        return utf8(table().model()->index(row, 0).data().toString());
    }
    [[nodiscard]] std::string names() const {
        std::string text;
        for (int row = 0; row < table().model()->rowCount(); ++row) {
            text += (row == 0 ? "" : "|") + name(row);
        }
        return text;
    }
    [[nodiscard]] std::string current() const { return name(table().currentIndex().row()); }
    void goTo(int row) const {
        table().goTo(row);
        settle();
    }
    void press(Qt::Key key) const {
        QTest::keyClick(&table(), key);
        settle();
    }
    void click(int row, int column) const {
        QTest::mouseClick(table().viewport(), Qt::LeftButton, {},
                          table().visualRect(table().model()->index(row, column)).center());
    }
    [[nodiscard]] bool isInSight(int row) const {
        const QRect place = table().visualRect(table().model()->index(row, 0));
        const QPoint middle = table().viewport()->mapTo(widget.viewport(), place.center());
        return widget.viewport()->rect().contains(middle);
    }

    testing::LocaleForTest locale{"en_CA"};
    testing::TestEnvironment test;
    Category car = makeCategory("Car");
    Category fuel = makeCategory("Fuel", CategoryKind::expense, car.id);
    Category food = makeCategory("Food");
    Category pay = makeCategory("Pay", CategoryKind::income);
    std::vector<std::string> wanted;
    Subscription lines;
    CategoriesWidget widget{*test};
};

TEST_F(CategoriesWindow, ListsTheKindThatIsChosen) {
    EXPECT_EQ(names(), "Car|Fuel|Food");
    EXPECT_EQ(table().accessibleName(), QStringLiteral("Expense categories"));
    for (QPushButton* word : widget.findChildren<QPushButton*>()) {
        if (word->text() == QStringLiteral("Income")) {
            word->click();
        }
    }
    settle();
    EXPECT_EQ(names(), "Pay");
    EXPECT_EQ(table().accessibleName(), QStringLiteral("Income categories"));
    QTest::mouseClick(widget.findChild<QToolButton*>(), Qt::LeftButton);
    EXPECT_EQ(test.appState->sheet(),
              (ActiveSheet{ActiveSheet::Category{.kind = CategoryKind::income}}));
}

TEST_F(CategoriesWindow, SaysSoWhereThereIsNone) {
    test.store->mutate("Delete", [](Library& library) { library.categories.clear(); });
    settle();
    EXPECT_FALSE(table().isVisible());
    bool isSaid = false;
    for (const QLabel* each : widget.findChildren<QLabel*>()) {
        isSaid =
            isSaid || (each->isVisible() &&
                       each->text() == QStringLiteral("There are no categories of this kind."));
    }
    EXPECT_TRUE(isSaid);
    test.undoManager->undo();
    settle();
    EXPECT_TRUE(table().isVisible());
}

TEST_F(CategoriesWindow, EditsWithReturnAndADoubleClick) {
    goTo(1);
    press(Qt::Key_Return);
    const ActiveSheet sheet{ActiveSheet::Category{fuel.id, CategoryKind::expense}};
    EXPECT_EQ(test.appState->sheet(), sheet);
    test.appState->setSheet(std::nullopt);
    click(1, 0);
    QTest::mouseDClick(table().viewport(), Qt::LeftButton, {},
                       table().visualRect(table().model()->index(1, 0)).center());
    EXPECT_EQ(test.appState->sheet(), sheet);
}

TEST_F(CategoriesWindow, ARowThatOnlyHasTheRingIsActedOn) {
    // As after Tab: nothing is selected yet.
    table().setCurrentIndex({});
    table().selectionModel()->setCurrentIndex(table().model()->index(2, 0),
                                              QItemSelectionModel::NoUpdate);
    press(Qt::Key_Return);
    EXPECT_EQ(test.appState->sheet(),
              (ActiveSheet{ActiveSheet::Category{food.id, CategoryKind::expense}}));
}

TEST_F(CategoriesWindow, DeletesAfterAQuestionAndGoesOnWithTheNextRow) {
    goTo(0);
    test.panels.confirms = false;
    press(Qt::Key_Delete);
    EXPECT_EQ(names(), "Car|Fuel|Food");
    test.panels.confirms = true;
    press(Qt::Key_Delete);
    EXPECT_EQ(test.panels.confirmations.size(), 2U);
    EXPECT_EQ(names(), "Food|Fuel");
    EXPECT_TRUE(table().currentIndex().isValid());
    test.undoManager->undo();
    settle();
    EXPECT_EQ(names(), "Car|Fuel|Food");
    EXPECT_EQ(current(), "Car");
}

TEST_F(CategoriesWindow, ShowsTheEntriesBehindATotal) {
    click(1, 2);
    EXPECT_EQ(wanted, std::vector<std::string>{"Car: Fuel"});
    click(0, 0);
    click(0, 1);
    EXPECT_EQ(wanted.size(), 1U);
    press(Qt::Key_Space);
    EXPECT_EQ(wanted, (std::vector<std::string>{"Car: Fuel", "Car"}));
    EXPECT_FALSE(test.appState->sheet());
}

TEST_F(CategoriesWindow, FindsWhatIsTyped) {
    store({makeCategory("Fo Ox")});
    goTo(0);
    QTest::keyClicks(&table(), QStringLiteral("fo"));
    EXPECT_EQ(current(), "Fo Ox");
    // The blank is part of the name.
    QTest::keyClicks(&table(), QStringLiteral(" o"));
    EXPECT_EQ(current(), "Fo Ox");
    EXPECT_TRUE(wanted.empty());
}

TEST_F(CategoriesWindow, OpensItsMenuWhereTheRowIs) {
    goTo(1);
    Q_EMIT table().customContextMenuRequested(QPoint(1, 1));
    settle();
    auto* menu = widget.findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    std::string titles;
    for (const QAction* action : menu->actions()) {
        titles += action->isSeparator() ? "-|" : utf8(withoutMnemonic(action->text())) + "|";
    }
    EXPECT_EQ(titles, "Edit|Delete|-|Show Entries|");
    menu->close();
    settle();
}

TEST_F(CategoriesWindow, IsAsHighAsItsRowsAndThePageScrollsWithTheKeyboard) {
    storeMany();
    EXPECT_EQ(table().verticalScrollBar()->maximum(), 0);
    EXPECT_GT(widget.verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(table().height(), 103 * 28);
    goTo(0);
    press(Qt::Key_End);
    EXPECT_EQ(current(), "Many 199");
    EXPECT_TRUE(isInSight(102));
    EXPECT_FALSE(isInSight(0));
    press(Qt::Key_Home);
    EXPECT_TRUE(isInSight(0));
    press(Qt::Key_PageDown);
    const int turned = table().currentIndex().row();
    EXPECT_GT(turned, 10);
    EXPECT_LT(turned, 40);
    EXPECT_TRUE(isInSight(turned));
    press(Qt::Key_PageUp);
    EXPECT_EQ(table().currentIndex().row(), 0);
}

TEST_F(CategoriesWindow, LeavesTheWheelToThePage) {
    storeMany();
    const QPoint place = table().viewport()->mapToGlobal(QPoint(50, 50));
    QWheelEvent turn(QPointF(50, 50), place, QPoint(), QPoint(0, -120), Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(table().viewport(), &turn);
    EXPECT_FALSE(turn.isAccepted());
}

TEST_F(CategoriesWindow, StaysWithTheCategoryThroughAnEdit) {
    storeMany();
    goTo(60);
    const int scrolled = widget.verticalScrollBar()->value();
    const std::string before = current();
    Category other = food;
    other.isTaxRelated = true;
    store({other});
    EXPECT_EQ(current(), before);
    EXPECT_EQ(widget.verticalScrollBar()->value(), scrolled);
    // A name that brings it to another place takes the ring along.
    goTo(2);
    other.name = "Zoo";
    store({other});
    EXPECT_EQ(current(), "Zoo");
}

TEST_F(CategoriesWindow, GoesToTheCategoryThatWasMade) {
    storeMany();
    goTo(0);
    store({makeCategory("Zoo")});
    EXPECT_EQ(current(), "Zoo");
    EXPECT_TRUE(isInSight(103));
}

TEST_F(CategoriesWindow, IsWalkedThroughWithTab) {
    const std::vector<QWidget*> order = [&] {
        std::vector<QWidget*> found;
        widget.findChild<QToolButton*>()->setFocus();
        for (int step = 0; step < 3; ++step) {
            found.push_back(QApplication::focusWidget());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        return found;
    }();
    EXPECT_EQ(order[0], widget.findChild<QToolButton*>());
    auto* word = qobject_cast<QPushButton*>(order[1]);
    ASSERT_NE(word, nullptr);
    EXPECT_EQ(word->text(), QStringLiteral("Expenses"));
    EXPECT_EQ(order[2], &table());
}

} // namespace
} // namespace oakfen
