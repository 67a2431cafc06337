#include "Tests/Oakfen/Widgets/SoakDriver.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <algorithm>
#include <array>
#include <stdexcept>

#include "Fuzz/LibraryRules.h"
#include "Oakfen/Views/Shell/SidebarView.h"
#include "Oakfen/Widgets/Components/AmountField.h"
#include "Oakfen/Widgets/Components/DateField.h"
#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Components/Mnemonics.h"
#include "Oakfen/Widgets/Components/PickerBox.h"
#include "Oakfen/Widgets/Components/SheetScaffold.h"
#include "Oakfen/Widgets/Register/RegisterWidget.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "OakfenCore/Models/LibraryCoding.h"
#include "OakfenCore/SampleData/SampleData.h"
#include "Tests/Oakfen/Widgets/Settle.h"

namespace oakfen::testing {

namespace {

constexpr const char* statementPath = "/home/ann/Downloads/statement.csv";
constexpr int mostStepsBack = 10'000;

/// The last weeks of the sample household: all kinds of entries, quickly checked.
Library smallHousehold() {
    Library library = SampleData::make(day(2026, 3, 15), "CAD", Calendar::utc());
    library.transactions.eraseIf(
        [](const Transaction& entry) { return entry.date < day(2026, 1, 25); });
    return library;
}

void require(bool holds, const std::string& rule) {
    if (!holds) {
        throw std::runtime_error(rule);
    }
}

/// Any text, also such as no key is named for.
void typeText(QWidget& widget, const QString& text) {
    for (const QChar character : text) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QString(character));
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_unknown, Qt::NoModifier, QString(character));
        QApplication::sendEvent(&widget, &press);
        QApplication::sendEvent(&widget, &release);
    }
}

void collectItems(const QList<QAction*>& actions, std::vector<QAction*>& items) {
    for (QAction* action : actions) {
        if (action->menu() != nullptr) {
            collectItems(action->menu()->actions(), items);
        } else if (action->isEnabled() && !action->isSeparator()) {
            items.push_back(action);
        }
    }
}

void requireEqualFigures(const LibraryIndex& index, const LibraryIndex& fresh) {
    require(index.netWorth() == fresh.netWorth() && index.totalAssets() == fresh.totalAssets() &&
                index.totalLiabilities() == fresh.totalLiabilities(),
            "the index has other totals than a fresh one");
    for (const Account& account : index.library().accounts) {
        const UUID& id = account.id;
        require(index.balance(id) == fresh.balance(id) &&
                    index.endingBalance(id) == fresh.endingBalance(id) &&
                    index.clearedBalance(id) == fresh.clearedBalance(id) &&
                    index.reconciledBalance(id) == fresh.reconciledBalance(id),
                "the index has other balances than a fresh one");
        require(index.registerRows(id) == fresh.registerRows(id),
                "the index has other register rows than a fresh one");
    }
}

} // namespace

SoakDriver::SoakDriver(std::uint64_t seed)
    : random_(seed), test_(smallHousehold()), window_(*test_, [] {}) {
    window_.show();
    window_.activateWindow();
    settle();
    QObject::connect(&impatience_, &QTimer::timeout, [] {
        if (QWidget* popup = QApplication::activePopupWidget()) {
            popup->close();
        }
    });
    impatience_.start(5);
    changed_ = test_.store->libraryChanged.observe([this] { ++changes_; });
}

std::string SoakDriver::story() const {
    std::string text;
    const std::size_t start = notes_.size() > 25 ? notes_.size() - 25 : 0;
    for (std::size_t index = start; index < notes_.size(); ++index) {
        text += std::to_string(index) + ": " + notes_[index] + "\n";
    }
    return text;
}

void SoakDriver::act() {
    using Action = void (SoakDriver::*)();
    // What stands here twice is done twice as often.
    static const std::vector<Action> atTheWindow{
        &SoakDriver::triggerMenuItem, &SoakDriver::triggerMenuItem, &SoakDriver::pressKey,
        &SoakDriver::pressKey,        &SoakDriver::clickButton,     &SoakDriver::typeIntoField,
        &SoakDriver::chooseFromList,  &SoakDriver::goSomewhere,     &SoakDriver::clickRegister,
        &SoakDriver::clickRegister,   &SoakDriver::useRegisterMenu, &SoakDriver::useRegisterMenu,
        &SoakDriver::useRegisterMenu, &SoakDriver::useSidebarMenu,  &SoakDriver::openSheet,
        &SoakDriver::openSheet,       &SoakDriver::letTimePass,     &SoakDriver::hearNews};
    static const std::vector<Action> atADialog{
        &SoakDriver::typeIntoField,  &SoakDriver::typeIntoField, &SoakDriver::typeIntoField,
        &SoakDriver::chooseFromList, &SoakDriver::clickRegister, &SoakDriver::clickButton,
        &SoakDriver::pressKey,       &SoakDriver::saveSheet,     &SoakDriver::saveSheet,
        &SoakDriver::saveSheet,      &SoakDriver::letTimePass};
    prepareAnswers();
    front().activateWindow();
    (this->*oneOf(&front() == &window_ ? atTheWindow : atADialog))();
    settle();
}

/// What the person will answer to the questions that this step may ask.
void SoakDriver::prepareAnswers() {
    test_.panels.confirms = below(4) == 0;
    test_.panels.choice = below(2) == 0 ? std::optional<std::size_t>() : below(2);
    test_.panels.path = below(3) == 0 ? std::nullopt : std::optional<std::string>(statementPath);
    const int cents = static_cast<int>(below(100'000));
    test_.files.addFile(statementPath, "Date,Description,Amount\n2026-03-02,Corner Coffee,-4.50\n"
                                       "2026-03-0" +
                                           std::to_string(1 + below(9)) + ",Shop " +
                                           std::to_string(below(5)) + ",-" +
                                           std::to_string(cents / 100) + "." +
                                           std::to_string(10 + (cents % 90)) + "\n");
}

QWidget* SoakDriver::frontDialog() {
    if (QWidget* modal = QApplication::activeModalWidget()) {
        return modal;
    }
    const auto sheets = window_.findChildren<SheetScaffold*>();
    const auto shown = std::ranges::find_if(sheets, &QWidget::isVisible);
    return shown == sheets.end() ? nullptr : *shown;
}

QWidget& SoakDriver::front() {
    QWidget* dialog = frontDialog();
    return dialog != nullptr ? *dialog : window_;
}

template <typename Widget>
std::vector<Widget*> SoakDriver::usable() {
    std::vector<Widget*> found;
    for (Widget* each : front().findChildren<Widget*>()) {
        if (each->isVisible() && each->isEnabled() && each->window() == front().window()) {
            found.push_back(each);
        }
    }
    return found;
}

std::vector<QAction*> SoakDriver::menuItems() const {
    std::vector<QAction*> items;
    collectItems(window_.menuBar()->actions(), items);
    return items;
}

QAction* SoakDriver::menuItem(const QString& verb) const {
    const auto items = menuItems();
    const auto found = std::ranges::find_if(
        items, [&](const QAction* each) { return withoutMnemonic(each->text()).startsWith(verb); });
    return found == items.end() ? nullptr : *found;
}

void SoakDriver::triggerMenuItem() {
    QAction* item = oneOf(menuItems());
    if (below(6) == 0) {
        if (QAction* history = menuItem(below(2) == 0 ? qt("Undo") : qt("Redo"))) {
            item = history;
        }
    }
    note("menu " + utf8(item->text()));
    item->trigger();
}

void SoakDriver::pressKey() {
    static constexpr std::array keys{
        Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Up,     Qt::Key_Down,   Qt::Key_Left,
        Qt::Key_Home, Qt::Key_End,     Qt::Key_PageUp, Qt::Key_Delete, Qt::Key_Backspace,
        Qt::Key_Down, Qt::Key_Space,   Qt::Key_Return, Qt::Key_Escape, Qt::Key_Right};
    static constexpr std::array modifiers{
        Qt::KeyboardModifiers(), Qt::KeyboardModifiers(), Qt::KeyboardModifiers(),
        Qt::KeyboardModifiers(Qt::ShiftModifier), Qt::KeyboardModifiers(Qt::ControlModifier)};
    QWidget* popup = QApplication::activePopupWidget();
    QWidget* focus = QApplication::focusWidget();
    if (focus == nullptr || below(4) == 0) {
        auto widgets = usable<QWidget>();
        std::erase_if(widgets, [](const QWidget* each) {
            return (each->focusPolicy() & Qt::TabFocus) != Qt::TabFocus;
        });
        focus = widgets.empty() ? &front() : oneOf(widgets);
        focus->setFocus();
    }
    QWidget* target = popup != nullptr ? popup : focus;
    const Qt::Key key = oneOf(keys);
    note("key " + utf8(QKeySequence(key).toString()) + " in " + target->metaObject()->className());
    QTest::keyClick(target, key, oneOf(modifiers));
}

void SoakDriver::clickButton() {
    auto buttons = usable<QAbstractButton>();
    // The menus of these are opened through their own actions.
    std::erase_if(buttons, [](const QAbstractButton* each) {
        const auto* tool = qobject_cast<const QToolButton*>(each);
        return tool != nullptr && tool->menu() != nullptr;
    });
    if (!buttons.empty()) {
        QAbstractButton* button = oneOf(buttons);
        note("button " + utf8(button->text()));
        QTest::mouseClick(button, Qt::LeftButton);
    }
}

std::string SoakDriver::randomText() {
    static const std::array<std::string, 10> texts{
        "Corner Coffee", "groceries", "Überweisung", "家賃",     "<b>&x;",
        "Savings",       "12.50",     "%",           "tag, two", " "};
    return oneOf(texts);
}

std::string SoakDriver::randomAmount() {
    static const std::array<std::string, 8> texts{"12.50", "1,250.50", "-3",  "3*4+2",
                                                  "0",     "999",      "0.1", "12+"};
    return oneOf(texts);
}

std::string SoakDriver::randomDate() {
    static const std::array<std::string, 6> texts{"2026-01-31", "3/1",  "15",
                                                  "20240229",   "2/30", "+"};
    return oneOf(texts);
}

void SoakDriver::typeIntoField() {
    const auto areas = usable<QPlainTextEdit>();
    const auto fields = usable<QLineEdit>();
    if (!fields.empty() && (areas.empty() || below(5) != 0)) {
        QLineEdit* field = oneOf(fields);
        const std::string text = dynamic_cast<AmountField*>(field) != nullptr ? randomAmount()
                                 : dynamic_cast<DateField*>(field) != nullptr ? randomDate()
                                                                              : randomText();
        note("types “" + text + "” into " + utf8(field->accessibleName()));
        field->setFocus();
        if (below(2) == 0) {
            field->selectAll();
        }
        typeText(*field, qt(text));
    } else if (!areas.empty()) {
        note("types into an area");
        typeText(*oneOf(areas), qt(randomText()));
    }
}

void SoakDriver::chooseFromList() {
    const auto lists = usable<QComboBox>();
    if (lists.empty()) {
        return;
    }
    QComboBox* list = oneOf(lists);
    note("chooses in " + utf8(list->accessibleName()));
    list->setFocus();
    for (std::size_t steps = below(6) + 1; steps > 0; --steps) {
        QTest::keyClick(list, below(3) == 0 ? Qt::Key_Up : Qt::Key_Down);
    }
    if (dynamic_cast<PickerBox*>(list) != nullptr) {
        QTest::keyClick(list, Qt::Key_Tab); // takes the line it went to
    }
}

void SoakDriver::goSomewhere() {
    const auto& accounts = library().accounts;
    const bool goesToAccount = accounts.size() > 0 && below(8) != 0;
    const SidebarItem item = goesToAccount
                                 ? SidebarItem::account(accounts[below(accounts.size())].id)
                                 : oneOf(overviewItems());
    note("goes to " + std::string(title(item.kind)));
    test_.appState->setSelection(item);
}

void SoakDriver::clickRegister() {
    const auto tables = usable<LedgerTable>();
    if (tables.empty() || tables.front()->model()->rowCount() == 0) {
        return;
    }
    LedgerTable* table = tables.front();
    if (below(6) == 0) {
        const int column =
            static_cast<int>(below(static_cast<std::size_t>(table->horizontalHeader()->count())));
        note("sorts by column " + std::to_string(column));
        const int place = table->horizontalHeader()->sectionViewportPosition(column) + 12;
        QTest::mouseClick(table->horizontalHeader()->viewport(), Qt::LeftButton, {},
                          QPoint(place, 10));
        return;
    }
    const auto rows = static_cast<std::size_t>(table->model()->rowCount());
    const auto columns = static_cast<std::size_t>(table->model()->columnCount());
    const QModelIndex cell =
        table->model()->index(static_cast<int>(below(rows)), static_cast<int>(below(columns)));
    table->scrollTo(cell);
    static constexpr std::array modifiers{Qt::NoModifier, Qt::NoModifier, Qt::ControlModifier,
                                          Qt::ShiftModifier};
    const QPoint place = table->visualRect(cell).center();
    if (below(6) == 0) {
        note("double click in the table");
        QTest::mouseDClick(table->viewport(), Qt::LeftButton, {}, place);
    } else {
        note("click in the table");
        QTest::mouseClick(table->viewport(), Qt::LeftButton, oneOf(modifiers), place);
    }
}

void SoakDriver::useRegisterMenu() {
    if (usable<RegisterWidget>().empty()) {
        goSomewhere();
        settle();
    }
    const auto registers = usable<RegisterWidget>();
    if (registers.empty()) {
        return;
    }
    if (registers.front()->view().content()->selection->empty()) {
        registers.front()->table()->selectRow(0);
    }
    const auto menu =
        registers.front()->makeContextMenu(*registers.front()->view().content()->selection);
    std::vector<QAction*> items;
    collectItems(menu->actions(), items);
    if (!items.empty()) {
        QAction* item = oneOf(items);
        note("register menu " + utf8(item->text()));
        item->trigger();
    }
}

void SoakDriver::useSidebarMenu() {
    const auto& accounts = library().accounts;
    if (accounts.size() == 0) {
        return;
    }
    SidebarView sidebar(*test_);
    const auto entries = below(3) == 0 ? sidebar.addMenu()
                                       : sidebar.contextMenu(accounts[below(accounts.size())].id);
    const MenuEntry& entry = oneOf(entries);
    if (entry.isEnabled && entry.perform) {
        note("sidebar menu " + entry.title);
        entry.perform();
    }
}

void SoakDriver::openSheet() {
    const auto& entries = library().transactions;
    const auto& accounts = library().accounts;
    std::vector<ActiveSheet> sheets{{ActiveSheet::NewAccount{}},
                                    {ActiveSheet::Scheduled{}},
                                    {ActiveSheet::EditAccount{UUID::random()}},
                                    {ActiveSheet::Reconcile{UUID::random()}},
                                    {ActiveSheet::EditTransaction{UUID::random()}}};
    if (accounts.size() > 0) {
        const UUID id = accounts[below(accounts.size())].id;
        sheets.insert(sheets.end(), {{ActiveSheet::EditAccount{id}},
                                     {ActiveSheet::NewTransaction{id}},
                                     {ActiveSheet::Reconcile{id}}});
    }
    if (entries.size() > 0) {
        sheets.push_back({ActiveSheet::EditTransaction{entries[below(entries.size())].id}});
        UUIDSet several;
        for (std::size_t count = below(6); count > 0; --count) {
            several.insert(entries[below(entries.size())].id);
        }
        sheets.push_back(
            {ActiveSheet::EditSeveral{std::make_shared<const UUIDSet>(std::move(several))}});
    }
    // Mostly one that opens.
    const std::size_t unknown = below(4) == 0 ? 0 : std::min<std::size_t>(5, sheets.size() - 1);
    const std::size_t chosen = unknown + below(sheets.size() - unknown);
    note("opens sheet " + std::to_string(sheets[chosen].content.index()));
    test_.appState->setSheet(sheets[chosen]);
}

void SoakDriver::saveSheet() {
    if (const auto* sheet = qobject_cast<SheetScaffold*>(&front())) {
        note("saves the sheet");
        QTest::mouseClick(sheet->primaryButton(), Qt::LeftButton);
    }
}

void SoakDriver::letTimePass() {
    note("waits");
    test_.clock.advance(static_cast<double>(below(100'000)));
    test_.scheduler.advance(static_cast<double>(below(20)) / 10.0);
    test_.scheduler.runBackground();
}

/// What comes from outside: a message, a changed setting, a screen lock.
void SoakDriver::hearNews() {
    switch (below(4)) {
    case 0:
        note("an alert");
        test_.appState->setAlertMessage(randomText());
        break;
    case 1:
        note("busy");
        test_.appState->setBusyMessage(below(2) == 0 ? std::optional(randomText()) : std::nullopt);
        break;
    case 2:
        note("the lock is set or unset");
        test_.defaults.set(settings::requireAuthentication, below(3) == 0);
        break;
    default:
        note("closed accounts are shown or hidden");
        SidebarView(*test_).toggleClosedAccounts();
    }
}

void SoakDriver::requireHealthy() {
    fuzz::requireReadableCopy(library());
    fuzz::requireSound(library());
    const LibraryIndex& index = test_.index();
    require(index.library() == library(), "the index is of another document");
    requireEqualFigures(index, LibraryIndex(library(), index.now(), test_.clock.calendar()));
    const auto sheets = window_.findChildren<SheetScaffold*>();
    // Beneath a lock the sheet is still there.
    const auto shown =
        std::ranges::count_if(sheets, [](const QWidget* each) { return !each->isHidden(); });
    require(shown == (test_.appState->sheet() ? 1 : 0), "the sheet and its dialog are out of step");
    require(front().isVisible() && front().isEnabled(), "what has the word can’t be used");
}

void SoakDriver::closeEverything() {
    test_.defaults.set(settings::requireAuthentication, false);
    for (int round = 0; round < 20; ++round) {
        // A review that has waited for the sheets to close comes now.
        test_.scheduler.advance(1);
        settle();
        QWidget* popup = QApplication::activePopupWidget();
        QWidget* dialog = frontDialog();
        if (popup == nullptr && dialog == nullptr) {
            return;
        }
        QTest::keyClick(popup != nullptr ? popup : dialog, Qt::Key_Escape);
    }
    throw std::runtime_error(std::string("a dialog stays: ") +
                             frontDialog()->metaObject()->className());
}

int SoakDriver::undoEverything() {
    for (int steps = 0; steps < mostStepsBack; ++steps) {
        if (menuItem(QStringLiteral("Undo")) == nullptr) {
            return steps;
        }
        menuItem(QStringLiteral("Undo"))->trigger();
        settle();
    }
    throw std::runtime_error("there is no end to undoing");
}

void SoakDriver::redo(int steps) {
    for (; steps > 0; --steps) {
        QAction* item = menuItem(QStringLiteral("Redo"));
        require(item != nullptr, "a step that was undone can’t be redone");
        item->trigger();
        settle();
    }
}

Library SoakDriver::savedLibrary() {
    test_.scheduler.advance(1);
    test_.scheduler.runBackground();
    return decodeLibrary(test_.files.contents(TestEnvironment::dataFile).value());
}

} // namespace oakfen::testing
