#include "Oakfen/Widgets/Shell/SheetHost.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPointer>
#include <QProxyStyle>
#include <QScrollBar>
#include <QUrl>
#include <QVariantAnimation>
#include <QWheelEvent>
#include <algorithm>
#include <set>

#include "Oakfen/Widgets/Components/CrossFade.h"
#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Components/SheetBody.h"
#include "Oakfen/Widgets/Components/SheetScaffold.h"
#include "Oakfen/Widgets/Editors/TransactionEditorDialog.h"
#include "Oakfen/Widgets/Gate/GateWidget.h"
#include "Oakfen/Widgets/Register/RegisterWidget.h"
#include "Oakfen/Widgets/Theme/ThemeStyle.h"
#include "OakfenCore/LibraryOperations/Transactions.h"
#include "Tests/Oakfen/Widgets/AccessibleTree.h"
#include "Tests/Oakfen/Widgets/WindowFixture.h"

namespace oakfen {
namespace {

using testing::AccessibleNode;
using testing::accessibleNodes;
using testing::day;
using testing::makeTransaction;
using testing::settle;

/// A sheet over the register of an account with some entries.
class SheetHostTest : public testing::WindowTest {
protected:
    SheetHostTest() {
        everyday = addAccount("Everyday");
        test->store->mutate("Add", [this](Library& library) {
            for (int number = 1; number <= 40; ++number) {
                upsert(library, makeTransaction(everyday.id, day(2026, 3, 4),
                                                "Shop " + std::to_string(number), "-40"));
            }
        });
        select(SidebarItem::account(everyday.id));
        window->activateWindow();
        settle();
    }

    void open(ActiveSheet sheet) {
        test->appState->setSheet(std::move(sheet));
        settle();
    }
    void openNewAccount() { open({ActiveSheet::NewAccount{}}); }
    void closeSheet() {
        test->appState->setSheet(std::nullopt);
        settle();
    }
    void lock() {
        test->authenticator.holdPrompt();
        test->defaults.set(settings::requireAuthentication, true);
        test->appState->setUnlocked(false);
        settle();
    }
    void unlock() {
        test->authenticator.answer({.kind = AuthenticationResult::Kind::passed});
        settle();
    }

    [[nodiscard]] SheetScaffold* sheet() const { return shown<SheetScaffold>(); }
    [[nodiscard]] SheetHost* host() const { return window->findChild<SheetHost*>(); }
    [[nodiscard]] LedgerTable* table() const {
        return window->findChild<RegisterWidget*>()->table();
    }
    [[nodiscard]] bool hasKeyboard() const {
        return sheet() != nullptr && sheet()->isAncestorOf(QApplication::focusWidget());
    }
    [[nodiscard]] QLineEdit* nameField() const {
        for (QLineEdit* each : sheet()->findChildren<QLineEdit*>()) {
            if (each->accessibleName() == QStringLiteral("Name")) {
                return each;
            }
        }
        return nullptr;
    }
    /// A place beside the sheet, where the register lies beneath.
    [[nodiscard]] QPoint beside() const { return {host()->width() - 40, host()->height() / 2}; }
    [[nodiscard]] std::vector<AccessibleNode> heard(QAccessible::Role role) const {
        auto nodes = accessibleNodes(*window);
        std::erase_if(nodes, [role](const AccessibleNode& node) { return node.role != role; });
        return nodes;
    }

    Account everyday;
};

TEST_F(SheetHostTest, ShowsTheSheetInTheMiddleOfTheWindowUnderItsTitle) {
    openNewAccount();
    ASSERT_NE(sheet(), nullptr);
    EXPECT_EQ(sheet()->window(), window.get());
    EXPECT_EQ(host()->size(), window->size());
    const QPoint middle = sheet()->geometry().center() - host()->rect().center();
    EXPECT_LE(middle.manhattanLength(), 2);
    const auto labels = sheet()->findChildren<QLabel*>();
    EXPECT_TRUE(std::ranges::any_of(labels, [](const QLabel* each) {
        return each->isVisible() && each->text() == QStringLiteral("New Account");
    }));
}

TEST_F(SheetHostTest, MovesTheKeyboardIntoTheSheetAndBackAfterwards) {
    table()->setFocus();
    openNewAccount();
    EXPECT_EQ(QApplication::focusWidget(), nameField());
    closeSheet();
    EXPECT_EQ(sheet(), nullptr);
    EXPECT_EQ(QApplication::focusWidget(), table());
}

TEST_F(SheetHostTest, KeepsTheKeyboardInTheSheetHoweverOftenTabIsPressed) {
    openNewAccount();
    std::set<QWidget*> reached;
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
        for (int press = 0; press < 20; ++press) {
            QTest::keyClick(QApplication::focusWidget(), key);
            ASSERT_TRUE(hasKeyboard());
            reached.insert(QApplication::focusWidget());
        }
    }
    EXPECT_GT(reached.size(), 5U);
    EXPECT_TRUE(reached.contains(button(QStringLiteral("Cancel"))));
}

TEST_F(SheetHostTest, HandsTheKeyboardAfterwardsToWhatAskedForItMeanwhile) {
    sidebar()->setFocus();
    openNewAccount();
    table()->setFocus();
    EXPECT_EQ(QApplication::focusWidget(), nameField());
    closeSheet();
    EXPECT_EQ(QApplication::focusWidget(), table());
}

TEST_F(SheetHostTest, SavesWithReturnAndCancelsWithEscape) {
    openNewAccount();
    QTest::keyClicks(nameField(), QStringLiteral("Holidays"));
    QTest::keyClick(nameField(), Qt::Key_Escape);
    settle();
    EXPECT_FALSE(test->appState->sheet());
    EXPECT_EQ(test->library().accounts.size(), 1U);
    openNewAccount();
    QTest::keyClicks(nameField(), QStringLiteral("Holidays"));
    QTest::keyClick(nameField(), Qt::Key_Return);
    settle();
    EXPECT_FALSE(test->appState->sheet());
    EXPECT_EQ(test->library().accounts.size(), 2U);
    EXPECT_EQ(sheet(), nullptr);
}

TEST_F(SheetHostTest, KeepsItsDefaultButtonOnceTheKeyboardHasBeenOnIt) {
    openNewAccount();
    nameField()->setText(QStringLiteral("Cash"));
    QPushButton* primary = sheet()->primaryButton();
    primary->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(primary->hasFocus());
    nameField()->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(primary->isDefault());
    QTest::keyClick(nameField(), Qt::Key_Return);
    settle();
    EXPECT_FALSE(test->appState->sheet());
    EXPECT_EQ(test->library().accounts.size(), 2U);
}

TEST_F(SheetHostTest, TakesCtrlReturnFromAnOpenListOfChoices) {
    open({ActiveSheet::NewTransaction{everyday.id}});
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Sho"));
    settle();
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return, Qt::ControlModifier);
    settle();
    EXPECT_EQ(test->library().transactions.size(), 41U);
    EXPECT_NE(sheet(), nullptr);
}

TEST_F(SheetHostTest, LetsNoShortcutActBeneathTheSheet) {
    openNewAccount();
    for (const auto& [key, modifiers] :
         {std::pair(Qt::Key_N, Qt::ControlModifier), std::pair(Qt::Key_2, Qt::ControlModifier),
          std::pair(Qt::Key_F, Qt::ControlModifier), std::pair(Qt::Key_Z, Qt::ControlModifier),
          std::pair(Qt::Key_Q, Qt::ControlModifier)}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        settle();
    }
    EXPECT_EQ(test->appState->sheet(), ActiveSheet{ActiveSheet::NewAccount{}});
    EXPECT_EQ(test->appState->selectedAccountID(), everyday.id);
    EXPECT_EQ(test->library().accounts.size(), 1U);
    EXPECT_EQ(quitRequests, 0);
    EXPECT_TRUE(hasKeyboard());
}

TEST_F(SheetHostTest, LetsNoClickOrWheelReachWhatLiesBeneath) {
    openNewAccount();
    const int place = table()->verticalScrollBar()->value();
    QWidget* hit = window->childAt(beside());
    ASSERT_EQ(hit, host());
    QTest::mouseClick(hit, Qt::LeftButton, {}, beside());
    QTest::mouseDClick(hit, Qt::LeftButton, {}, beside());
    QWheelEvent wheel(beside(), host()->mapToGlobal(beside()), {}, {0, -480}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(hit, &wheel);
    QContextMenuEvent menu(QContextMenuEvent::Mouse, beside(), host()->mapToGlobal(beside()));
    QApplication::sendEvent(hit, &menu);
    settle();
    EXPECT_EQ(table()->verticalScrollBar()->value(), place);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(test->appState->sheet(), ActiveSheet{ActiveSheet::NewAccount{}});
    EXPECT_EQ(QApplication::focusWidget(), nameField());
    // The menus too.
    EXPECT_EQ(window->childAt(window->menuBar()->geometry().center()), host());
}

TEST_F(SheetHostTest, TakesTheKeyboardBackFromTheMenusWithAClick) {
    openNewAccount();
    window->menuBar()->setFocus();
    EXPECT_FALSE(hasKeyboard());
    QTest::mouseClick(host(), Qt::LeftButton, {}, beside());
    EXPECT_EQ(QApplication::focusWidget(), nameField());
}

TEST_F(SheetHostTest, RefusesAFileThatIsDroppedWhileItIsOpen) {
    openNewAccount();
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(QStringLiteral("/home/ann/March.csv"))});
    QDragEnterEvent event(beside(), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    event.ignore();
    EXPECT_FALSE(host()->acceptDrops());
    QApplication::sendEvent(window.get(), &event);
    EXPECT_FALSE(event.isAccepted());
}

TEST_F(SheetHostTest, LeavesOnlyTheSheetToScreenReaders) {
    ASSERT_FALSE(heard(QAccessible::Table).empty());
    openNewAccount();
    EXPECT_TRUE(heard(QAccessible::Table).empty()) << testing::describeTree(*window);
    EXPECT_TRUE(heard(QAccessible::Tree).empty());
    const auto dialogs = heard(QAccessible::Dialog);
    ASSERT_EQ(dialogs.size(), 1U);
    EXPECT_EQ(dialogs[0].name, QStringLiteral("New Account"));
    EXPECT_FALSE(heard(QAccessible::EditableText).empty());
    EXPECT_TRUE(testing::namelessNodes(*window).empty());
    closeSheet();
    EXPECT_FALSE(heard(QAccessible::Table).empty());
    EXPECT_TRUE(heard(QAccessible::Dialog).empty());
}

TEST_F(SheetHostTest, LetsANoticeBeneathNotAct) {
    test->appState->showNotice({.text = "Gone", .actionTitle = "Take Back", .stays = true});
    openNewAccount();
    EXPECT_EQ(button(QStringLiteral("Take Back")), nullptr);
    closeSheet();
    EXPECT_NE(button(QStringLiteral("Take Back")), nullptr);
}

TEST_F(SheetHostTest, HoldsTheWindowOpenForTheDraft) {
    openNewAccount();
    QTest::keyClicks(nameField(), QStringLiteral("Holidays"));
    window->close();
    EXPECT_EQ(quitRequests, 0);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(nameField()->text(), QStringLiteral("Holidays"));
    closeSheet();
    window->close();
    EXPECT_EQ(quitRequests, 1);
}

TEST_F(SheetHostTest, ShowsTheScreenAsItWasAndAsItBecomes) {
    const QImage before = window->grab().toImage();
    openNewAccount();
    for (CrossFade* fade : window->findChildren<CrossFade*>()) {
        delete fade;
    }
    const QImage first = window->grab().toImage();
    EXPECT_NE(first, before);
    EXPECT_LT(first.pixelColor(beside()).lightness(), before.pixelColor(beside()).lightness());
    test->store->mutate("Add", [this](Library& library) {
        upsert(library, makeTransaction(everyday.id, day(2026, 3, 5), "Bakery", "-7"));
    });
    settle();
    EXPECT_NE(window->grab().toImage(), first);
}

TEST_F(SheetHostTest, NeverGrowsBeyondTheWindowButScrolls) {
    QWidget small;
    QWidget beneath(&small);
    small.resize(700, 420);
    small.show();
    SheetHost host(small, beneath);
    auto* editor = new TransactionEditorDialog(
        **test, TransactionEditor(**test, ActiveSheet::NewTransaction{everyday.id}));
    host.open(*editor);
    small.activateWindow();
    settle();
    EXPECT_TRUE(host.rect().contains(editor->geometry()));
    const auto* body = editor->findChild<SheetBody*>();
    EXPECT_GT(body->verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(body->horizontalScrollBar()->maximum(), 0);
    // The buttons stay, and Tab brings each field into sight.
    for (const QPushButton* each : {editor->cancelButton(), editor->primaryButton()}) {
        const QRect place(each->mapTo(editor, QPoint()), each->size());
        EXPECT_TRUE(editor->rect().contains(place));
    }
    for (int press = 0; press < 15; ++press) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        settle();
        ASSERT_TRUE(editor->isAncestorOf(QApplication::focusWidget()));
        EXPECT_FALSE(QApplication::focusWidget()->visibleRegion().isEmpty());
    }
}

TEST_F(SheetHostTest, NeedsNoScrollingWhereThereIsRoom) {
    openNewAccount();
    EXPECT_EQ(sheet()->findChild<SheetBody*>()->verticalScrollBar()->maximum(), 0);
    open({ActiveSheet::Reconcile{everyday.id}});
    EXPECT_EQ(sheet()->size(), QSize(760, 600));
    EXPECT_EQ(sheet()->findChild<SheetBody*>()->verticalScrollBar()->maximum(), 0);
}

TEST_F(SheetHostTest, ClosesAMenuThatWasOpenBeneath) {
    auto* menu = new QMenu(window.get());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const QPointer<QMenu> open(menu);
    menu->addAction(QStringLiteral("Delete"));
    menu->popup(window->mapToGlobal(window->rect().center()));
    settle();
    ASSERT_TRUE(open != nullptr && open->isVisible());
    openNewAccount();
    EXPECT_TRUE(open == nullptr || !open->isVisible());
    EXPECT_TRUE(sheet()->isVisible());
}

TEST_F(SheetHostTest, GrowsAndShrinksWithWhatItHolds) {
    openNewAccount();
    const int height = sheet()->height();
    const int top = sheet()->y();
    auto* alert = sheet()->findChild<QCheckBox*>();
    alert->click();
    settle();
    EXPECT_GT(sheet()->height(), height);
    EXPECT_EQ(sheet()->y(), top);
    alert->click();
    settle();
    EXPECT_EQ(sheet()->height(), height);
}

TEST_F(SheetHostTest, StaysInTheMiddleWhenTheWindowChangesItsSize) {
    openNewAccount();
    window->resize(1400, 900);
    settle();
    EXPECT_EQ(host()->size(), window->size());
    EXPECT_LE((sheet()->geometry().center() - host()->rect().center()).manhattanLength(), 2);
    const QSize beneath = window->centralWidget()->size();
    closeSheet();
    EXPECT_EQ(window->centralWidget()->size(), beneath);
}

TEST_F(SheetHostTest, LiesBeneathTheLockAndComesBackWithItsDraft) {
    openNewAccount();
    QTest::keyClicks(nameField(), QStringLiteral("Holidays"));
    lock();
    EXPECT_EQ(sheet(), nullptr);
    ASSERT_NE(shown<GateWidget>(), nullptr);
    EXPECT_TRUE(shown<GateWidget>()->isAncestorOf(QApplication::focusWidget()));
    EXPECT_TRUE(heard(QAccessible::Dialog).empty());
    unlock();
    ASSERT_NE(sheet(), nullptr);
    EXPECT_EQ(nameField()->text(), QStringLiteral("Holidays"));
    EXPECT_EQ(QApplication::focusWidget(), nameField());
    QTest::keyClick(nameField(), Qt::Key_Return);
    settle();
    EXPECT_EQ(test->library().accounts.size(), 2U);
    EXPECT_EQ(shown<GateWidget>(), nullptr);
}

TEST_F(SheetHostTest, TakesItsListsAlongWhenTheLockComes) {
    open({ActiveSheet::NewTransaction{everyday.id}});
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Sho"));
    settle();
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    lock();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(SheetHostTest, ShowsAQuestionOverTheSheet) {
    openNewAccount();
    test->appState->setAlertMessage("Something to know");
    settle();
    auto* box = shown<QMessageBox>();
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(box->isWindow());
    QTest::keyClick(box, Qt::Key_Escape);
    settle();
    EXPECT_NE(sheet(), nullptr);
}

/// A desktop on which nothing moves, or everything does.
class DesktopThatAnimates final : public QProxyStyle {
public:
    explicit DesktopThatAnimates(bool animates)
        : QProxyStyle(new ThemeStyle), animates_(animates) {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returnData) const override {
        constexpr int usual = 200;
        if (hint == SH_Widget_Animation_Duration) {
            return animates_ ? usual : 0;
        }
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }

private:
    bool animates_;
};

TEST_F(SheetHostTest, FadesInAndOutWhereTheDesktopAnimates) {
    const auto fades = [this] {
        const CrossFade* fade = window->findChild<CrossFade*>();
        const int duration =
            fade != nullptr ? fade->findChild<QVariantAnimation*>()->duration() : 0;
        delete fade;
        return duration;
    };
    for (const bool animates : {true, false}) {
        SCOPED_TRACE(animates);
        QApplication::setStyle(new DesktopThatAnimates(animates));
        test->appState->setSheet(ActiveSheet{ActiveSheet::NewAccount{}});
        EXPECT_EQ(fades(), animates ? 150 : 0);
        settle();
        QTest::keyClick(sheet(), Qt::Key_Escape);
        EXPECT_EQ(fades(), animates ? 150 : 0);
        settle();
    }
    QApplication::setStyle(new ThemeStyle);
}

} // namespace
} // namespace oakfen
