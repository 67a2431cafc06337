#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>
#include <algorithm>

#include "Oakfen/Widgets/Components/AmountField.h"
#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Components/Mnemonics.h"
#include "Oakfen/Widgets/Components/SheetScaffold.h"
#include "Oakfen/Widgets/Register/RegisterWidget.h"
#include "Oakfen/Widgets/Shell/MainWindow.h"
#include "Oakfen/Widgets/Shell/SheetRouter.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "OakfenCore/Models/LibraryCoding.h"
#include "OakfenCore/SampleData/SampleData.h"
#include "Tests/Oakfen/Widgets/AccessibleTree.h"
#include "Tests/Oakfen/Widgets/Settle.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {

using testing::AccessibleNode;
using testing::accessibleNodes;
using testing::amount;
using testing::day;
using testing::describeTree;
using ::testing::IsEmpty;
using testing::namelessNodes;
using testing::settle;
using testing::stepsAgainstReadingOrder;
using testing::tabOrder;
using testing::TestEnvironment;

namespace {

/// The window on a household, heard and not seen.
class Accessibility : public ::testing::Test {
protected:
    Accessibility()
        : test(SampleData::make(day(2026, 3, 15), "CAD", Calendar::utc())), window(*test, [] {}) {
        window.show();
        settle();
    }

    void expectGoodOrder(QWidget& root) {
        EXPECT_THAT(namelessNodes(root), IsEmpty());
        EXPECT_THAT(stepsAgainstReadingOrder(root), IsEmpty());
    }
    /// Each text has a letter that no other one has, as long as one of its letters is free.
    static void expectLetters(const QStringList& marked) {
        QString used;
        for (const QString& each : marked) {
            if (const QChar letter = mnemonicOf(each); !letter.isNull()) {
                EXPECT_FALSE(used.contains(letter)) << utf8(marked.join(QLatin1Char('|')));
                used.append(letter);
            }
        }
        for (const QString& each : marked) {
            const bool isStuck = std::ranges::none_of(each.toLower(), [&](QChar letter) {
                return letter.isLetter() && letter.unicode() < 0x80 && !used.contains(letter);
            });
            EXPECT_TRUE(isStuck || !mnemonicOf(each).isNull()) << utf8(each);
        }
    }
    static void expectLetters(const QList<QAction*>& lines) {
        QStringList marked;
        for (const QAction* line : lines) {
            marked.append(line->text());
            if (line->menu() != nullptr) {
                expectLetters(line->menu()->actions());
            }
        }
        expectLetters(marked);
    }
    /// While Alt is held, in what the window shows; none before and after.
    static void expectLetters(QWidget& root) {
        EXPECT_TRUE(marksOf(root).isEmpty());
        QTest::keyPress(&root, Qt::Key_Alt, Qt::AltModifier);
        QStringList marked = marksOf(root);
        EXPECT_GE(marked.size(), 3);
        if (const auto* bar = root.findChild<QMenuBar*>()) {
            for (const QAction* menu : bar->actions()) {
                marked.append(menu->text());
            }
        }
        expectLetters(marked);
        for (const QString& each : marked) {
            EXPECT_FALSE(mnemonicOf(each).isNull()) << utf8(each);
        }
        QTest::keyRelease(&root, Qt::Key_Alt);
        EXPECT_TRUE(marksOf(root).isEmpty());
    }
    /// The texts of buttons and of labels of fields that one can go to, as far as one is marked.
    [[nodiscard]] static QStringList marksOf(const QWidget& root) {
        QStringList texts;
        for (const QAbstractButton* each : root.findChildren<QAbstractButton*>()) {
            const auto* tool = qobject_cast<const QToolButton*>(each);
            if (mayHaveLetter(*each) &&
                (tool == nullptr || tool->toolButtonStyle() != Qt::ToolButtonIconOnly)) {
                addVisible(*each, each->text(), texts);
            }
        }
        for (const QLabel* each : root.findChildren<QLabel*>()) {
            if (each->buddy() != nullptr && each->buddy()->focusPolicy() != Qt::NoFocus) {
                addVisible(*each, each->text(), texts);
            }
        }
        const bool isAny = std::ranges::any_of(
            texts, [](const QString& text) { return !mnemonicOf(text).isNull(); });
        return isAny ? texts : QStringList();
    }
    static void addVisible(const QWidget& widget, const QString& text, QStringList& texts) {
        if (widget.isVisible() && !text.isEmpty()) {
            texts.append(text);
        }
    }
    [[nodiscard]] const Account& account(AccountType type) const {
        return *test.library().accounts.first(
            [type](const Account& each) { return each.type == type; });
    }
    void select(const SidebarItem& item) {
        test.appState->setSelection(item);
        settle();
    }
    [[nodiscard]] bool reads(const QString& name) {
        return std::ranges::any_of(accessibleNodes(window), [&](const AccessibleNode& node) {
            return node.role == QAccessible::StaticText && node.name == name;
        });
    }
    /// Where the first node of that name is read; -1 if it is not.
    [[nodiscard]] std::ptrdiff_t placeOf(int role, const QString& name) {
        const auto nodes = accessibleNodes(window);
        const auto found = std::ranges::find_if(nodes, [&](const AccessibleNode& node) {
            return node.role == role && node.name == name;
        });
        return found == nodes.end() ? -1 : found - nodes.begin();
    }
    [[nodiscard]] std::vector<ActiveSheet> everySheet() const {
        const UUID id = account(AccountType::chequing).id;
        const UUID entry = test.index().transactions(id).back()->id;
        const auto session = std::make_shared<const ImportSession>(
            ImportSession{.id = UUID::random(),
                          .fileName = "march.csv",
                          .items = {{.id = UUID::random(),
                                     .date = day(2026, 3, 4),
                                     .payee = "Bakery",
                                     .amount = amount("-4.5")}},
                          .accountID = id});
        return {{ActiveSheet::NewAccount{}},
                {ActiveSheet::EditAccount{id}},
                {ActiveSheet::EditAccount{account(AccountType::creditCard).id}},
                {ActiveSheet::NewTransaction{id}},
                {ActiveSheet::EditTransaction{entry}},
                {ActiveSheet::EditSeveral{std::make_shared<const UUIDSet>(
                    UUIDSet{entry, test.index().transactions(id).front()->id})}},
                {ActiveSheet::Reconcile{id}},
                {ActiveSheet::ImportReview{session}},
                {ActiveSheet::Scheduled{}},
                {ActiveSheet::Goal{}},
                {ActiveSheet::Contribute{test.library().goals.front().id}},
                {ActiveSheet::Category{}}};
    }

    TestEnvironment test;
    MainWindow window;
};

TEST_F(Accessibility, NamesAndOrdersEveryOverviewScreen) {
    for (const SidebarItem& item : overviewItems()) {
        SCOPED_TRACE(std::string(title(item.kind)));
        select(item);
        expectGoodOrder(window);
    }
}

TEST_F(Accessibility, NamesAndOrdersEveryAccountsScreen) {
    for (const Account& each : test.library().accounts) {
        SCOPED_TRACE(each.name);
        select(SidebarItem::account(each.id));
        expectGoodOrder(window);
    }
}

TEST_F(Accessibility, NamesAndOrdersEverySheet) {
    int sheets = 0;
    for (const ActiveSheet& sheet : everySheet()) {
        const std::unique_ptr<QDialog> dialog(makeSheet(*test, sheet, nullptr));
        if (dialog == nullptr) {
            continue;
        }
        SCOPED_TRACE(utf8(dialog->windowTitle()));
        dialog->show();
        settle();
        ++sheets;
        expectGoodOrder(*dialog);
    }
    EXPECT_GE(sheets, 4);
}

TEST_F(Accessibility, ReadsWhatStandsUnderTheTitleOfASheet) {
    const std::unique_ptr<QDialog> dialog(makeSheet(
        *test, ActiveSheet{ActiveSheet::Reconcile{account(AccountType::chequing).id}}, nullptr));
    const QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(dialog.get());
    EXPECT_EQ(heard->role(), QAccessible::Dialog);
    EXPECT_EQ(heard->text(QAccessible::Name), dialog->windowTitle());
    EXPECT_TRUE(heard->text(QAccessible::Description).startsWith(qt("Tick")))
        << utf8(heard->text(QAccessible::Description));
}

TEST_F(Accessibility, LeadsByALetterOfItsOwnToEachPlaceOfASheet) {
    int sheets = 0;
    for (const ActiveSheet& sheet : everySheet()) {
        const std::unique_ptr<QDialog> dialog(makeSheet(*test, sheet, nullptr));
        if (dialog == nullptr) {
            continue;
        }
        SCOPED_TRACE(utf8(dialog->windowTitle()));
        dialog->show();
        settle();
        ++sheets;
        expectLetters(*dialog);
        // What else a sheet shows once something was chosen in it.
        for (QPushButton* word : dialog->findChildren<QPushButton*>()) {
            if (word->isCheckable()) {
                word->click();
                settle();
                expectLetters(*dialog);
            }
        }
    }
    EXPECT_GE(sheets, 4);
}

TEST_F(Accessibility, LeadsByALetterOfItsOwnToEachPlaceOfAScreen) {
    for (const SidebarItem& item :
         {SidebarItem{}, SidebarItem::account(account(AccountType::chequing).id)}) {
        select(item);
        expectLetters(window);
    }
}

TEST_F(Accessibility, OpensNoMenuByALetterWhileASheetIsOpen) {
    const auto letters = [this] {
        std::string found;
        for (const QAction* menu : window.menuBar()->actions()) {
            const QChar letter = mnemonicOf(menu->text());
            found += letter.isNull() ? '-' : letter.toLatin1();
        }
        return found;
    };
    EXPECT_EQ(letters(), "fevgth");
    test.appState->setSheet(ActiveSheet{ActiveSheet::NewAccount{}});
    EXPECT_EQ(letters(), "------");
    test.appState->setSheet(std::nullopt);
    EXPECT_EQ(letters(), "fevgth");
}

TEST_F(Accessibility, LeadsByALetterOfItsOwnToEachLineOfAMenu) {
    select(SidebarItem::account(account(AccountType::chequing).id));
    auto* shown = window.findChild<RegisterWidget*>();
    shown->table()->selectRow(0);
    settle();
    const auto context = shown->makeContextMenu(*shown->view().content()->selection);
    expectLetters(context->actions());
    expectLetters(window.menuBar()->actions());
}

TEST_F(Accessibility, ReadsTheSidebarBeforeTheScreenBesideIt) {
    select(SidebarItem::account(account(AccountType::chequing).id));
    const auto sidebar = placeOf(QAccessible::Tree, QStringLiteral("Screens and accounts"));
    const auto table = placeOf(QAccessible::Table, QStringLiteral("Transactions"));
    EXPECT_GE(sidebar, 0);
    EXPECT_GT(table, sidebar) << describeTree(window);
    const auto order = tabOrder(window);
    const auto indexOf = [&](const QWidget* widget) {
        return std::ranges::find(order, widget) - order.begin();
    };
    EXPECT_LT(indexOf(window.findChild<QTreeWidget*>()), indexOf(window.findChild<LedgerTable*>()));
}

TEST_F(Accessibility, ReadsEachFigureWithItsLabel) {
    const Account& chequing = account(AccountType::chequing);
    select(SidebarItem::account(chequing.id));
    const auto spoken = [](const char* label, const Decimal& value) {
        return QString::fromLatin1(label) + QStringLiteral(", ") + qt(moneyText(value, "CAD").text);
    };
    EXPECT_TRUE(reads(spoken("Cleared", test.index().clearedBalance(chequing.id))));
    EXPECT_TRUE(reads(spoken("Today", test.index().balance(chequing.id))));
    EXPECT_TRUE(reads(spoken("Ending", test.index().endingBalance(chequing.id))));
    EXPECT_TRUE(reads(spoken("Net Worth", test.index().netWorth()))) << describeTree(window);
}

TEST_F(Accessibility, ReadsTheSelectionAfterTheBalances) {
    select(SidebarItem::account(account(AccountType::chequing).id));
    auto* table = window.findChild<LedgerTable*>();
    table->selectRow(0);
    settle();
    std::ptrdiff_t selected = -1;
    std::ptrdiff_t ending = -1;
    std::ptrdiff_t place = 0;
    for (const AccessibleNode& node : accessibleNodes(window)) {
        if (node.name.startsWith(QStringLiteral("1 selected, "))) {
            selected = place;
        } else if (node.name.startsWith(QStringLiteral("Ending, "))) {
            ending = place;
        }
        ++place;
    }
    EXPECT_GT(ending, 0);
    EXPECT_GT(selected, ending) << describeTree(window);
}

TEST_F(Accessibility, ReadsARowOfTheRegisterCellByCell) {
    select(SidebarItem::account(account(AccountType::chequing).id));
    QAccessibleInterface* table =
        QAccessible::queryAccessibleInterface(window.findChild<LedgerTable*>());
    ASSERT_NE(table->tableInterface(), nullptr);
    const auto content = window.findChild<RegisterWidget*>()->view().content();
    const auto& rows = content->table->rows();
    const auto cell = [&](int column) {
        return utf8(table->tableInterface()->cellAt(0, column)->text(QAccessible::Name));
    };
    EXPECT_EQ(cell(0), std::string(clearedBadge(rows[0]->cleared).tooltip));
    EXPECT_EQ(cell(3), rows[0]->payee);
    EXPECT_EQ(cell(4), rows[0]->categoryName);
    EXPECT_EQ(cell(8), moneyText(rows[0]->balance, "CAD").text);
}

TEST_F(Accessibility, TakesATextThatAnAssistantSetsInsteadOfTyping) {
    const std::unique_ptr<QDialog> dialog(
        makeSheet(*test, ActiveSheet{ActiveSheet::NewAccount{}}, nullptr));
    dialog->show();
    settle();
    for (QLineEdit* field : dialog->findChildren<QLineEdit*>()) {
        QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(field);
        if (field->accessibleName() == QStringLiteral("Name")) {
            heard->setText(QAccessible::Value, QStringLiteral("Holidays"));
        } else if (field->accessibleName() == QStringLiteral("Opening Balance")) {
            heard->setText(QAccessible::Value, QStringLiteral("1,250.50"));
        }
    }
    for (QPushButton* button : dialog->findChildren<QPushButton*>()) {
        if (button->isDefault()) {
            EXPECT_TRUE(button->isEnabled());
            button->click();
        }
    }
    const Account& added = test.library().accounts.back();
    EXPECT_EQ(added.name, "Holidays");
    EXPECT_EQ(added.openingBalance, amount("1250.5"));
}

/// Each gate, by the file that leads to it.
class AccessibilityOfGates : public ::testing::TestWithParam<std::string> {};

TEST_P(AccessibilityOfGates, NamesAndOrdersTheGate) {
    TestEnvironment test{TestEnvironment::Unopened{}};
    if (!GetParam().empty()) {
        test.files.addFile(TestEnvironment::dataFile, GetParam());
        test.store->retryLoading();
    }
    ASSERT_FALSE(test.store->accessState().isOpen());
    MainWindow window(*test, [] {});
    window.show();
    settle();
    EXPECT_THAT(namelessNodes(window), IsEmpty());
    EXPECT_THAT(stepsAgainstReadingOrder(window), IsEmpty());
    EXPECT_FALSE(tabOrder(window).empty());
}

TEST(AccessibilityOfTheWelcome, NamesAndOrdersTheSecondStep) {
    TestEnvironment test{TestEnvironment::Unopened{}};
    MainWindow window(*test, [] {});
    window.show();
    settle();
    for (QPushButton* button : window.findChildren<QPushButton*>()) {
        if (button->text() == QStringLiteral("Start Fresh")) {
            button->click();
            break;
        }
    }
    settle();
    EXPECT_THAT(namelessNodes(window), IsEmpty());
    EXPECT_THAT(stepsAgainstReadingOrder(window), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(All, AccessibilityOfGates,
                         ::testing::Values("", encodeLibrary(Library{.currencyCode = "CAD"}),
                                           "OAKFEN-ENC-3", "TARNWICKENC1"));

} // namespace
} // namespace oakfen
