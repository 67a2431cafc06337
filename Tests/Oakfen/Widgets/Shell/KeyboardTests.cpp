#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>

#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Register/RegisterWidget.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "OakfenCore/LibraryOperations/Transactions.h"
#include "Tests/Oakfen/Widgets/WindowFixture.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::makeTransaction;
using testing::settle;

/// The window without a mouse, on the register of an account.
class KeyboardTest : public testing::WindowTest {
protected:
    KeyboardTest() {
        QApplication::setActiveWindow(window.get());
        everyday = addAccount("Everyday");
        select(SidebarItem::account(everyday.id));
        sidebar()->setFocus();
    }

    void addEntry() {
        test->store->mutate("New Transaction", [&](Library& library) {
            upsert(library, makeTransaction(everyday.id, day(2026, 3, 4), "Grocer", "-12.34"));
        });
        settle();
    }
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        settle();
    }
    /// What has the keyboard, as it is called.
    [[nodiscard]] static std::string place() {
        const QWidget* focus = QApplication::focusWidget();
        if (focus == nullptr) {
            return "nothing";
        }
        const auto* button = qobject_cast<const QAbstractButton*>(focus);
        return utf8(focus->accessibleName().isEmpty() && button != nullptr
                        ? button->text()
                        : focus->accessibleName());
    }
    /// The places that the key comes to until it is where it began.
    [[nodiscard]] static std::vector<std::string> tour(Qt::Key key,
                                                       Qt::KeyboardModifiers modifiers = {}) {
        constexpr std::size_t most = 30;
        const QWidget* begin = QApplication::focusWidget();
        std::vector<std::string> places{place()};
        press(key, modifiers);
        while (QApplication::focusWidget() != begin && places.size() < most) {
            places.push_back(place());
            press(key, modifiers);
        }
        return places;
    }

    [[nodiscard]] LedgerTable* table() const { return window->findChild<LedgerTable*>(); }
    [[nodiscard]] bool isEnabled(const char* title) const {
        const QAction* found = action(QString::fromUtf8(title));
        return found != nullptr && found->isEnabled();
    }

    Account everyday;
};

TEST_F(KeyboardTest, TabFollowsTheOrderOfReading) {
    addEntry();
    EXPECT_EQ(tour(Qt::Key_Tab),
              (std::vector<std::string>{"Screens and accounts", "Reconcile", "Import",
                                        "Edit Account", "New Transaction", "Show", "Search",
                                        "Transactions", "Sort by", "Add"}));
}

TEST_F(KeyboardTest, ShiftTabGoesTheSameWayBack) {
    addEntry();
    std::vector<std::string> there = tour(Qt::Key_Tab);
    std::ranges::reverse(there.begin() + 1, there.end());
    EXPECT_EQ(tour(Qt::Key_Backtab, Qt::ShiftModifier), there);
}

TEST_F(KeyboardTest, TabComesToTheButtonsThatStandInThePlaceOfTheTable) {
    const std::vector<std::string> places = tour(Qt::Key_Tab);
    EXPECT_EQ(std::vector<std::string>(places.end() - 4, places.end()),
              (std::vector<std::string>{"Search", "New Transaction", "Import…", "Add"}));
}

TEST_F(KeyboardTest, GoesFromPaneToPane) {
    addEntry();
    EXPECT_EQ(tour(Qt::Key_F6),
              (std::vector<std::string>{"Screens and accounts", "Reconcile", "Transactions"}));
    EXPECT_EQ(tour(Qt::Key_F6, Qt::ShiftModifier),
              (std::vector<std::string>{"Screens and accounts", "Transactions", "Reconcile"}));
}

TEST_F(KeyboardTest, ComesBackToWhereItWasInAPane) {
    addEntry();
    press(Qt::Key_F6);
    press(Qt::Key_Tab);
    ASSERT_EQ(place(), "Import");
    press(Qt::Key_F6);
    ASSERT_EQ(place(), "Transactions");
    press(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(place(), "Import");
}

TEST_F(KeyboardTest, FindsTwoPanesOnAScreenOfOnePiece) {
    select(SidebarItem{});
    sidebar()->setFocus();
    EXPECT_EQ(tour(Qt::Key_F6),
              (std::vector<std::string>{"Screens and accounts", "Import a Statement"}));
}

TEST_F(KeyboardTest, LeavesThePanesAloneBehindASheet) {
    test->appState->setSheet(ActiveSheet{ActiveSheet::NewAccount{}});
    settle();
    const QWidget* before = QApplication::focusWidget();
    press(Qt::Key_F6);
    EXPECT_EQ(QApplication::focusWidget(), before);
}

TEST_F(KeyboardTest, PressesAButtonByReturn) {
    press(Qt::Key_F6);
    ASSERT_EQ(place(), "Reconcile");
    press(Qt::Key_Return);
    EXPECT_EQ(test->appState->sheet(), ActiveSheet{ActiveSheet::Reconcile{everyday.id}});
    test->appState->setSheet(std::nullopt);
    select(SidebarItem{});
    sidebar()->setFocus();
    press(Qt::Key_F6);
    while (place() != "Open Budget") {
        press(Qt::Key_Tab);
        ASSERT_NE(place(), "Screens and accounts");
    }
    press(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(test->appState->selection(), SidebarItem{SidebarItem::Kind::budget});
}

TEST_F(KeyboardTest, AHeldReturnPressesAButtonOnlyOnce) {
    press(Qt::Key_F6);
    ASSERT_EQ(place(), "Reconcile");
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"),
                       true);
    QApplication::sendEvent(QApplication::focusWidget(), &repeated);
    EXPECT_FALSE(test->appState->sheet());
    press(Qt::Key_Return);
    EXPECT_TRUE(test->appState->sheet());
}

TEST_F(KeyboardTest, FollowsTheLettersOfASheet) {
    test->appState->setSheet(ActiveSheet{ActiveSheet::NewTransaction{everyday.id}});
    settle();
    press(Qt::Key_T, Qt::AltModifier);
    EXPECT_EQ(place(), "Payment");
    QTest::keyPress(QApplication::focusWidget(), Qt::Key_Alt, Qt::AltModifier);
    QPushButton* cancel = nullptr;
    for (QPushButton* each : window->findChildren<QPushButton*>()) {
        cancel = withoutMnemonic(each->text()) == QStringLiteral("Cancel") ? each : cancel;
    }
    ASSERT_NE(cancel, nullptr);
    const QChar letter = mnemonicOf(cancel->text());
    ASSERT_FALSE(letter.isNull());
    QTest::keyClick(QApplication::focusWidget(), letter.toLatin1(), Qt::AltModifier);
    // The button is seen to go down first.
    EXPECT_TRUE(QTest::qWaitFor([this] { return !test->appState->sheet(); }));
}

TEST_F(KeyboardTest, TypesNoLetterThatIsPressedWithAlt) {
    addEntry();
    auto* search = window->findChild<QLineEdit*>();
    ASSERT_NE(search, nullptr);
    search->setFocus();
    press(Qt::Key_Z, Qt::AltModifier);
    EXPECT_EQ(search->text(), QString());
    press(Qt::Key_Z);
    EXPECT_EQ(search->text(), QStringLiteral("z"));
}

TEST_F(KeyboardTest, StaysInASheetWhenAltIsLetGo) {
    test->appState->setSheet(ActiveSheet{ActiveSheet::NewAccount{}});
    settle();
    const QWidget* before = QApplication::focusWidget();
    press(Qt::Key_Alt, Qt::AltModifier);
    EXPECT_EQ(QApplication::focusWidget(), before);
    test->appState->setSheet(std::nullopt);
    settle();
    sidebar()->setFocus();
    press(Qt::Key_Alt, Qt::AltModifier);
    EXPECT_EQ(QApplication::focusWidget(), window->menuBar());
}

TEST_F(KeyboardTest, LeavesNoLetterMarkedInAWindowThatIsLeft) {
    QTest::keyPress(sidebar(), Qt::Key_Alt, Qt::AltModifier);
    const auto marks = [this] {
        const auto buttons = window->findChildren<QAbstractButton*>();
        return std::ranges::count_if(
            buttons, [](const auto* each) { return !mnemonicOf(each->text()).isNull(); });
    };
    EXPECT_GT(marks(), 0);
    QEvent left(QEvent::WindowDeactivate);
    QApplication::sendEvent(window.get(), &left);
    EXPECT_EQ(marks(), 0);
}

TEST_F(KeyboardTest, GoesToTheSearchFromAnywhere) {
    addEntry();
    press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(place(), "Search");
    select(SidebarItem{});
    EXPECT_FALSE(isEnabled("Find"));
}

TEST_F(KeyboardTest, EnablesTheCommandsOfRowsJustWhenSomeAreSelected) {
    addEntry();
    EXPECT_FALSE(isEnabled("Duplicate"));
    EXPECT_FALSE(isEnabled("Mark As"));
    table()->selectRow(0);
    EXPECT_TRUE(isEnabled("Duplicate"));
    EXPECT_TRUE(isEnabled("Mark As"));
    EXPECT_FALSE(isEnabled("Go to Transfer"));
    table()->clearSelection();
    EXPECT_FALSE(isEnabled("Duplicate"));
    table()->selectRow(0);
    select(SidebarItem{});
    EXPECT_EQ(action(QStringLiteral("Duplicate")), nullptr);
}

TEST_F(KeyboardTest, DoesByItsKeyWhatTheMenuSays) {
    addEntry();
    table()->setFocus();
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(test->library().transactions.size(), 1U);
    table()->selectRow(0);
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(test->library().transactions.size(), 2U);
    press(Qt::Key_Return);
    EXPECT_TRUE(test->appState->sheet());
}

TEST_F(KeyboardTest, LeavesTheKeysOfTheTableToTheFieldsBesideIt) {
    addEntry();
    table()->selectRow(0);
    press(Qt::Key_F, Qt::ControlModifier);
    press(Qt::Key_Delete);
    press(Qt::Key_Return);
    EXPECT_TRUE(test->panels.confirmations.empty());
    EXPECT_FALSE(test->appState->sheet());
}

TEST_F(KeyboardTest, SortsByTheMenuToo) {
    addEntry();
    ASSERT_NE(action(QStringLiteral("Sort By")), nullptr);
    const QList<QAction*> orders = action(QStringLiteral("Sort By"))->menu()->actions();
    EXPECT_TRUE(orders[1]->isChecked());
    orders[3]->trigger();
    EXPECT_EQ(window->findChild<RegisterWidget*>()->view().content()->sort.column, "payee");
    EXPECT_TRUE(orders[3]->isChecked());
    EXPECT_FALSE(orders[1]->isChecked());
}

TEST_F(KeyboardTest, KeepsTheLinesThatLeadToAnotherScreen) {
    const Account card = addAccount("Card");
    test->store->mutate("New Transaction", [&](Library& library) {
        Transaction payment = makeTransaction(everyday.id, day(2026, 3, 4), "Card", "-50");
        payment.transferAccountID = card.id;
        upsert(library, payment);
    });
    settle();
    table()->setFocus();
    table()->selectRow(0);
    action(QStringLiteral("Go to Card"))->trigger();
    settle();
    EXPECT_EQ(test->appState->selectedAccountID(), card.id);
    EXPECT_FALSE(isEnabled("Go to Transfer"));
}

TEST_F(KeyboardTest, GoesBackAndForwardByTheArrowsAndTheMouse) {
    const SidebarItem here = SidebarItem::account(everyday.id);
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(test->appState->selection(), SidebarItem{});
    press(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(test->appState->selection(), here);
    addEntry();
    QTest::mouseClick(table()->viewport(), Qt::BackButton);
    settle();
    EXPECT_EQ(test->appState->selection(), SidebarItem{});
    QTest::mouseClick(sidebar()->viewport(), Qt::ForwardButton);
    settle();
    EXPECT_EQ(test->appState->selection(), here);
}

TEST_F(KeyboardTest, GoesNowhereFromASheet) {
    test->appState->setSheet(ActiveSheet{ActiveSheet::NewAccount{}});
    settle();
    press(Qt::Key_Left, Qt::AltModifier);
    QTest::mouseClick(QApplication::focusWidget(), Qt::BackButton);
    EXPECT_EQ(test->appState->selectedAccountID(), everyday.id);
}

} // namespace
} // namespace oakfen
