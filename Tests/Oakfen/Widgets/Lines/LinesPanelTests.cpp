#include "Oakfen/Widgets/Lines/LinesPanel.h"

#include <QApplication>
#include <QClipboard>
#include <QTest>
#include <QToolButton>

#include "Oakfen/Widgets/Components/EmptyStateWidget.h"
#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Components/SheetScaffold.h"
#include "OakfenCore/LibraryOperations/Transactions.h"
#include "Tests/Oakfen/Widgets/WindowFixture.h"
#include "Tests/Support/LocaleForTest.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::makeCategory;
using testing::makeTransaction;
using testing::settle;

/// The window with the lines behind a category's total over the screen.
class LinesPanelTest : public testing::WindowTest {
protected:
    LinesPanelTest() {
        const Account account = addAccount("Everyday");
        test->store->mutate("Edit", [&](Library& library) {
            library.categories.push_back(food);
            for (int each = 1; each <= 3; ++each) {
                Transaction entry = makeTransaction(account.id, day(2026, 3, each),
                                                    "Shop " + std::to_string(each), "-10");
                entry.categoryID = food.id;
                library.transactions.push_back(entry);
            }
        });
        window->activateWindow();
        sidebar()->setFocus();
        FigureLines figure = actualLines(test->index(), food.id,
                                         {Date::distantPast(), Date::distantFuture()}, false);
        figure.detail = "Actual · March 2026";
        test->appState->linesWanted.notify(figure);
        settle();
    }

    [[nodiscard]] LinesPanel* panel() const { return shown<LinesPanel>(); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        settle();
    }
    [[nodiscard]] QString payee(int row) const {
        return panel()->table()->model()->index(row, 1).data().toString();
    }

    testing::LocaleForTest locale{"en_CA"};
    Category food = makeCategory("Food");
};

TEST_F(LinesPanelTest, TakesTheKeyboardAndTellsWhatTheFigureIs) {
    ASSERT_NE(panel(), nullptr);
    EXPECT_EQ(panel()->accessibleName(), QStringLiteral("Food"));
    EXPECT_EQ(panel()->accessibleDescription(), QStringLiteral("Actual · March 2026"));
    EXPECT_EQ(QApplication::focusWidget(), panel()->table());
    EXPECT_EQ(panel()->table()->targetRow(), 0);
    EXPECT_EQ(payee(0), QStringLiteral("Shop 3"));
}

TEST_F(LinesPanelTest, EscapeReturnsTheKeyboardToWhereItWas) {
    press(Qt::Key_Escape);
    EXPECT_EQ(panel(), nullptr);
    EXPECT_EQ(QApplication::focusWidget(), sidebar());
}

TEST_F(LinesPanelTest, ReturnOpensTheEntryAndThePanelIsThereAfterwards) {
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(test->appState->sheet(),
              ActiveSheet{ActiveSheet::EditTransaction{test->library().transactions[1].id}});
    ASSERT_NE(shown<SheetScaffold>(), nullptr);
    press(Qt::Key_Escape);
    ASSERT_NE(panel(), nullptr);
    EXPECT_EQ(panel()->table()->targetRow(), 1);
}

TEST_F(LinesPanelTest, FollowsAnEditAndGoesOnFromTheRowThatHasGone) {
    press(Qt::Key_Down);
    test->store->mutate("Move", [&](Library& library) {
        Transaction entry = library.transactions[1];
        entry.categoryID.reset();
        upsert(library, entry);
    });
    settle();
    EXPECT_EQ(panel()->table()->model()->rowCount(), 2);
    EXPECT_EQ(panel()->table()->targetRow(), 1);
    EXPECT_EQ(payee(1), QStringLiteral("Shop 1"));
    test->undoManager->undo();
    settle();
    EXPECT_EQ(panel()->table()->model()->rowCount(), 3);
}

TEST_F(LinesPanelTest, CtrlReturnLeadsToTheRegister) {
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(test->appState->selectedAccountID(), test->library().accounts[0].id);
    EXPECT_EQ(panel(), nullptr);
}

TEST_F(LinesPanelTest, CopiesTheSelectedRows) {
    press(Qt::Key_Down, Qt::ShiftModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().count(QStringLiteral("Shop")), 2);
}

TEST_F(LinesPanelTest, ADoubleClickOpensTheEntry) {
    LedgerTable* table = panel()->table();
    const QPoint place = table->visualRect(table->model()->index(2, 1)).center();
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(table->viewport(), Qt::LeftButton, {}, place);
    settle();
    EXPECT_EQ(test->appState->sheet(),
              ActiveSheet{ActiveSheet::EditTransaction{test->library().transactions[0].id}});
}

TEST_F(LinesPanelTest, SaysSoWhenTheLastLineHasGone) {
    test->store->mutate("Delete", [](Library& library) { library.transactions = {}; });
    settle();
    EXPECT_FALSE(panel()->table()->isVisible());
    EXPECT_NE(panel()->findChild<EmptyStateWidget*>(), nullptr);
    test->undoManager->undo();
    settle();
    EXPECT_TRUE(panel()->table()->isVisible());
}

} // namespace
} // namespace oakfen
