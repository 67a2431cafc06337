#include "Oakfen/AppCommands.h"

#include <utility>

#include "Oakfen/FileActions.h"
#include "Oakfen/Views/ContentView.h"
#include "Oakfen/Views/Reminders.h"

namespace oakfen {

namespace {

using Predicate = std::function<bool()>;

/// Builds the table menu by menu; the references outlive the table.
class CommandTable {
public:
    CommandTable(AppEnvironment& environment, History& undoManager, WindowActions window)
        : environment_(environment), undoManager_(undoManager), window_(std::move(window)) {}

    [[nodiscard]] std::vector<AppCommand> make() {
        addFileMenu();
        addEditMenu();
        addViewMenu();
        addGoMenu();
        addTransactionsMenu();
        add({.menu = "Help", .title = fixed("About Oakfen"), .perform = window_.showAbout});
        return std::move(commands_);
    }

private:
    /// All that a command does is taken back in one step. One that does nothing is disabled: what
    /// is to come is shown, so that nothing moves when it does.
    void add(AppCommand command) {
        if (command.perform) {
            command.perform = [&history = undoManager_, perform = std::move(command.perform)] {
                const UserEvent event(history);
                perform();
            };
        } else if (command.standard == AppCommand::Standard::none) {
            command.isEnabled = [] { return false; };
        }
        commands_.push_back(std::move(command));
    }

    static std::function<std::string()> fixed(std::string title) {
        return [title = std::move(title)] { return title; };
    }

    [[nodiscard]] Predicate open() const {
        return [&store = environment_.store] { return store.accessState().isOpen(); };
    }
    [[nodiscard]] Predicate openWithAccounts() const {
        return [isOpen = open(), &store = environment_.store] {
            return isOpen() && !store.index().openAccounts().empty();
        };
    }
    [[nodiscard]] Predicate openWithSelectedAccount() const {
        return [isOpen = open(), &state = environment_.appState] {
            return isOpen() && state.selectedAccountID().has_value();
        };
    }

    /// Opens the sheet that `make` describes at that moment.
    template <typename MakeContent>
    [[nodiscard]] std::function<void()> showing(MakeContent make) const {
        return [&state = environment_.appState, make] { state.setSheet(ActiveSheet{make(state)}); };
    }

    void addFileMenu() {
        add({.menu = "File",
             .title = fixed("New Transaction"),
             .shortcut = "Ctrl+N",
             .isEnabled = openWithAccounts(),
             .perform = showing([](const AppState& state) {
                 return ActiveSheet::NewTransaction{state.selectedAccountID()};
             })});
        add({.menu = "File",
             .title = fixed("New Account…"),
             .shortcut = "Ctrl+Shift+N",
             .isEnabled = open(),
             .perform = showing([](const AppState&) { return ActiveSheet::NewAccount{}; })});
        add({.menu = "File", .title = fixed("New Reminder…"), .shortcut = "Ctrl+Alt+N"});
        add({.menu = "File",
             .title = fixed("Import Transactions…"),
             .shortcut = "Ctrl+Shift+I",
             .startsGroup = true,
             .isEnabled = openWithAccounts(),
             .perform = [&environment = environment_] {
                 FileActions::importTransactions(environment);
             }});
        add({.menu = "File",
             .title = fixed("Import Quicken Data File…"),
             .shortcut = "Ctrl+Alt+Shift+I"});
        add({.menu = "File",
             .submenu = "Export",
             .title = fixed("All Transactions as CSV…"),
             .isEnabled = open(),
             .perform = [&environment = environment_] { FileActions::exportCSV(environment); }});
        add({.menu = "File",
             .submenu = "Export",
             .title = fixed("Current Account as QIF…"),
             .isEnabled = openWithSelectedAccount(),
             .perform = [&environment = environment_] { FileActions::exportQIF(environment); }});
        add({.menu = "File",
             .title = fixed("Back Up…"),
             .shortcut = "Ctrl+Shift+B",
             .startsGroup = true});
        add({.menu = "File", .title = fixed("Restore from Backup…")});
        add({.menu = "File",
             .title = fixed("Quit Oakfen"),
             .shortcut = "Ctrl+Q",
             .startsGroup = true,
             .perform = window_.quit});
    }

    /// Taking back what nobody can see, or beneath an open draft, would surprise.
    [[nodiscard]] Predicate historyIfVisible(bool (History::*canMove)() const) const {
        return [&environment = environment_, &undoManager = undoManager_, canMove] {
            return !ContentView(environment).isObscured() && !environment.appState.sheet() &&
                   (undoManager.*canMove)();
        };
    }

    static std::string named(std::string verb, const std::string& action) {
        return action.empty() ? verb : verb + " " + action;
    }

    void addEditMenu() {
        add({.menu = "Edit",
             .title = [&manager = undoManager_] { return named("Undo", manager.undoActionName()); },
             .shortcut = "Ctrl+Z",
             .isEnabled = historyIfVisible(&History::canUndo),
             .perform = [&manager = undoManager_] { manager.undo(); }});
        add({.menu = "Edit",
             .title = [&manager = undoManager_] { return named("Redo", manager.redoActionName()); },
             .shortcut = "Ctrl+Shift+Z",
             .isEnabled = historyIfVisible(&History::canRedo),
             .perform = [&manager = undoManager_] { manager.redo(); }});
        using Standard = AppCommand::Standard;
        add({.menu = "Edit",
             .title = fixed("Cut"),
             .shortcut = "Ctrl+X",
             .startsGroup = true,
             .standard = Standard::cut});
        add({.menu = "Edit",
             .title = fixed("Copy"),
             .shortcut = "Ctrl+C",
             .standard = Standard::copy});
        add({.menu = "Edit",
             .title = fixed("Paste"),
             .shortcut = "Ctrl+V",
             .standard = Standard::paste});
        add({.menu = "Edit",
             .title = fixed("Select All"),
             .shortcut = "Ctrl+A",
             .standard = Standard::selectAll});
        add({.menu = "Edit",
             .title = fixed("Settings…"),
             .shortcut = "Ctrl+,",
             .startsGroup = true});
    }

    void addViewMenu() {
        add({.menu = "View",
             .title =
                 [shown = window_.isSidebarShown] {
                     return std::string(shown() ? "Hide Sidebar" : "Show Sidebar");
                 },
             .shortcut = "F9",
             .perform = window_.toggleSidebar});
    }

    void addGoMenu() {
        int digit = 0;
        for (const SidebarItem& item : overviewItems()) {
            ++digit;
            add({.menu = "Go",
                 .title = fixed(std::string(title(item.kind))),
                 .shortcut = "Ctrl+" + std::to_string(digit),
                 .isEnabled = open(),
                 .perform = [&state = environment_.appState, item] { state.setSelection(item); }});
        }
    }

    void addTransactionsMenu() {
        add({.menu = "Transactions",
             .title = fixed("Reconcile…"),
             .shortcut = "Ctrl+Shift+R",
             .isEnabled = openWithSelectedAccount(),
             .perform = showing([](const AppState& state) {
                 return ActiveSheet::Reconcile{state.selectedAccountID().value_or(UUID{})};
             })});
        add({.menu = "Transactions",
             .title = fixed("Enter Due Reminders"),
             .isEnabled =
                 [isOpen = open(), &environment = environment_] {
                     return isOpen() && dueReminderCount(environment) > 0;
                 },
             .perform = [&environment = environment_] { enterDueReminders(environment); }});
        add({.menu = "Transactions",
             .title = fixed("Lock Oakfen"),
             .shortcut = "Ctrl+Shift+L",
             .startsGroup = true,
             .isEnabled =
                 [&defaults = environment_.defaults] {
                     return defaults.get(settings::requireAuthentication);
                 },
             .perform = [&state = environment_.appState] { state.setUnlocked(false); }});
    }

    AppEnvironment& environment_;
    History& undoManager_;
    WindowActions window_;
    std::vector<AppCommand> commands_;
};

} // namespace

std::vector<AppCommand> makeAppCommands(AppEnvironment& environment, History& undoManager,
                                        const WindowActions& window) {
    return CommandTable(environment, undoManager, window).make();
}

} // namespace oakfen
