#include "Oakfen/AppCommands.h"

#include <algorithm>
#include <iterator>

#include "Oakfen/Cover.h"
#include "Oakfen/FileActions.h"
#include "Oakfen/Reminders.h"
#include "Oakfen/ScreenCommands.h"
#include "Oakfen/ScreenHistory.h"

namespace oakfen {

namespace {

using Lines = std::vector<MenuEntry>;

/// Makes the bar menu by menu; what the lines refer to outlives them.
class MenuBarTable {
public:
    MenuBarTable(AppEnvironment& environment, const WindowActions& window)
        : environment_(environment), window_(window) {}

    [[nodiscard]] Lines make() const {
        return {
            {.title = "File", .children = fileMenu()},
            {.title = "Edit", .children = editMenu()},
            {.title = "View", .children = viewMenu()},
            {.title = "Go", .children = goMenu()},
            {.title = "Transactions", .children = transactionsMenu()},
            {.title = "Help",
             .children = {
                 {.title = "About Oakfen", .perform = window_.showAbout, .isEnabled = isFree()}}}};
    }

private:
    /// Beneath a sheet nothing acts: it would surprise whoever is at work in the sheet.
    [[nodiscard]] bool isFree() const { return !environment_.appState.sheet(); }
    [[nodiscard]] bool isOpen() const {
        return isFree() && environment_.store.accessState().isOpen();
    }
    [[nodiscard]] bool isOpenWithAccounts() const {
        return isOpen() && !environment_.store.index().openAccounts().empty();
    }
    [[nodiscard]] bool isOpenWithSelectedAccount() const {
        return isOpen() && environment_.appState.selectedAccountID().has_value();
    }
    /// What nobody can see should not change: taking it back would surprise.
    [[nodiscard]] bool isVisible() const { return isMainScreenFree(environment_); }

    /// Opens the sheet that `make` describes at that moment.
    template <typename MakeContent>
    [[nodiscard]] std::function<void()> showing(MakeContent make) const {
        return [&state = environment_.appState, make] { state.setSheet(ActiveSheet{make(state)}); };
    }
    [[nodiscard]] std::function<void()> starting(void (*flow)(AppEnvironment&)) const {
        return [&environment = environment_, flow] { flow(environment); };
    }

    [[nodiscard]] Lines fileMenu() const {
        return {{.title = "New Transaction",
                 .shortcut = "Ctrl+N",
                 .perform = showing([](const AppState& state) {
                     return ActiveSheet::NewTransaction{state.selectedAccountID()};
                 }),
                 .isEnabled = isOpenWithAccounts()},
                {.title = "New Account…",
                 .shortcut = "Ctrl+Shift+N",
                 .perform = showing([](const AppState&) { return ActiveSheet::NewAccount{}; }),
                 .isEnabled = isOpen()},
                {.title = "New Reminder…",
                 .shortcut = "Ctrl+Alt+N",
                 .perform = showing([](const AppState&) { return ActiveSheet::Scheduled{}; }),
                 .isEnabled = isOpen()},
                {.title = "Import Transactions…",
                 .shortcut = "Ctrl+Shift+I",
                 .perform = starting(FileActions::importTransactions),
                 .isEnabled = isOpenWithAccounts(),
                 .startsGroup = true},
                {.title = "Import Quicken Data File…", .shortcut = "Ctrl+Alt+Shift+I"},
                {.title = "Export",
                 .children = {{.title = "All Transactions as CSV…",
                               .perform = starting(FileActions::exportCSV),
                               .isEnabled = isOpen()},
                              {.title = "Current Account as QIF…",
                               .perform = starting(FileActions::exportQIF),
                               .isEnabled = isOpenWithSelectedAccount()}}},
                {.title = "Back Up…", .shortcut = "Ctrl+Shift+B", .startsGroup = true},
                {.title = "Restore from Backup…"},
                {.title = "Quit Oakfen",
                 .shortcut = "Ctrl+Q",
                 .perform = window_.quit,
                 .isEnabled = canClose(environment_),
                 .startsGroup = true}};
    }

    static std::string named(const std::string& verb, const std::string& action) {
        return action.empty() ? verb : verb + " " + action;
    }

    [[nodiscard]] Lines editMenu() const {
        using Standard = MenuEntry::Standard;
        History& history = environment_.undoManager;
        return {
            {.title = named("Undo", history.undoActionName()),
             .shortcut = "Ctrl+Z",
             .perform = [&history] { history.undo(); },
             .isEnabled = isVisible() && history.canUndo()},
            {.title = named("Redo", history.redoActionName()),
             .shortcut = "Ctrl+Shift+Z",
             .perform = [&history] { history.redo(); },
             .isEnabled = isVisible() && history.canRedo()},
            {.title = "Cut", .shortcut = "Ctrl+X", .standard = Standard::cut, .startsGroup = true},
            {.title = "Copy", .shortcut = "Ctrl+C", .standard = Standard::copy},
            {.title = "Paste", .shortcut = "Ctrl+V", .standard = Standard::paste},
            {.title = "Select All", .shortcut = "Ctrl+A", .standard = Standard::selectAll},
            {.title = "Find",
             .shortcut = "Ctrl+F",
             .perform = finding(),
             .isEnabled = isVisible(),
             .startsGroup = true},
            {.title = "Find in All Accounts…",
             .shortcut = "Ctrl+Shift+F",
             .perform = window_.findInAllAccounts,
             .isEnabled = isOpen() && isVisible()},
            {.title = "Settings…", .shortcut = "Ctrl+,", .startsGroup = true}};
    }

    [[nodiscard]] std::function<void()> finding() const {
        const auto screen = environment_.screenCommands.present();
        return screen != nullptr ? screen->find : nullptr;
    }

    [[nodiscard]] Lines viewMenu() const {
        Lines lines = windowLines();
        const auto screen = environment_.screenCommands.present();
        if (screen != nullptr && screen->forOrder) {
            lines.push_back({.title = "Sort By",
                             .isEnabled = isVisible(),
                             .startsGroup = true,
                             .children = screen->forOrder()});
        }
        return lines;
    }

    [[nodiscard]] Lines windowLines() const {
        return {{.title = window_.isSidebarShown() ? "Hide Sidebar" : "Show Sidebar",
                 .shortcut = "F9",
                 .perform = window_.toggleSidebar,
                 .isEnabled = isFree()},
                {.title = "Next Pane",
                 .shortcut = "F6",
                 .perform = [go = window_.goToPane] { go(true); },
                 .isEnabled = isFree(),
                 .startsGroup = true},
                {.title = "Previous Pane",
                 .shortcut = "Shift+F6",
                 .perform = [go = window_.goToPane] { go(false); },
                 .isEnabled = isFree()}};
    }

    [[nodiscard]] Lines goMenu() const {
        Lines lines;
        for (const SidebarItem& item : overviewItems()) {
            lines.push_back(
                {.title = std::string(title(item.kind)),
                 .shortcut = "Ctrl+" + std::to_string(lines.size() + 1),
                 .perform = [&state = environment_.appState, item] { state.setSelection(item); },
                 .isEnabled = isOpen()});
        }
        ScreenHistory& history = environment_.screenHistory;
        lines.push_back({.title = "Back",
                         .shortcut = "Alt+Left",
                         .perform = [&history] { history.goBack(); },
                         .isEnabled = isVisible() && history.canGoBack(),
                         .startsGroup = true});
        lines.push_back({.title = "Forward",
                         .shortcut = "Alt+Right",
                         .perform = [&history] { history.goForward(); },
                         .isEnabled = isVisible() && history.canGoForward()});
        return lines;
    }

    /// What the screen can do with the rows that are selected on it.
    [[nodiscard]] Lines rowLines() const {
        const auto screen = environment_.screenCommands.present();
        Lines lines = screen != nullptr && screen->forRows ? screen->forRows() : Lines();
        if (!lines.empty()) {
            lines.front().startsGroup = true;
        }
        for (MenuEntry& line : lines) {
            // The bar has no pictures.
            line.symbolName.clear();
            for (MenuEntry& child : line.children) {
                child.symbolName.clear();
            }
            line.isEnabled = line.isEnabled && isVisible();
        }
        return lines;
    }

    [[nodiscard]] Lines transactionsMenu() const {
        Lines lines = standingTransactionLines();
        std::ranges::move(rowLines(), std::back_inserter(lines));
        return lines;
    }

    [[nodiscard]] Lines standingTransactionLines() const {
        return {{.title = "Reconcile…",
                 .shortcut = "Ctrl+Shift+R",
                 .perform = showing([](const AppState& state) {
                     return ActiveSheet::Reconcile{state.selectedAccountID().value_or(UUID{})};
                 }),
                 .isEnabled = isOpenWithSelectedAccount()},
                {.title = "Enter Due Reminders",
                 .perform = starting(enterDueReminders),
                 .isEnabled = isOpen() && dueReminderCount(environment_) > 0},
                {.title = "Lock Oakfen",
                 .shortcut = "Ctrl+Shift+L",
                 .perform = [&state = environment_.appState] { state.setUnlocked(false); },
                 .isEnabled = environment_.defaults.get(settings::requireAuthentication),
                 .startsGroup = true}};
    }

    AppEnvironment& environment_;
    const WindowActions& window_;
};

} // namespace

std::vector<MenuEntry> makeMenuBar(AppEnvironment& environment, const WindowActions& window) {
    return MenuBarTable(environment, window).make();
}

} // namespace oakfen
