#include "Oakfen/AppCommands.h"

#include <gtest/gtest.h>

#include <set>
#include <stdexcept>

#include "OakfenCore/LibraryOperations/Accounts.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::day;
using testing::makeAccount;
using testing::TestEnvironment;

/// A line that opens no submenu, and the menus that lead to it: "File/Export".
struct Command {
    std::string menu;
    MenuEntry entry;
};

void collect(const std::vector<MenuEntry>& entries, const std::string& menu,
             std::vector<Command>& into) {
    for (const MenuEntry& entry : entries) {
        if (entry.children.empty()) {
            into.push_back({menu, entry});
        } else {
            collect(entry.children, (menu.empty() ? "" : menu + "/") + entry.title, into);
        }
    }
}

std::vector<Command> commandsOf(TestEnvironment& test, const WindowActions& window) {
    std::vector<Command> commands;
    collect(makeMenuBar(*test, window), "", commands);
    return commands;
}

class AppCommandsTest : public ::testing::Test {
protected:
    [[nodiscard]] std::vector<Command> commands() { return commandsOf(test, window); }
    [[nodiscard]] MenuEntry command(const std::string& title) {
        for (const Command& each : commands()) {
            if (each.entry.title == title) {
                return each.entry;
            }
        }
        throw std::invalid_argument("no command is called " + title);
    }
    [[nodiscard]] bool isEnabled(const std::string& title) { return command(title).canBeChosen(); }

    Account addAccount(const std::string& name) {
        Account account = makeAccount(name);
        test.store->mutate("New Account", [&](Library& library) { upsert(library, account); });
        return account;
    }

    TestEnvironment test;
    bool isSidebarShown = true;
    int quits = 0;
    std::string panes;
    WindowActions window{.quit = [this] { ++quits; },
                         .showAbout = [] {},
                         .isSidebarShown = [this] { return isSidebarShown; },
                         .toggleSidebar = [this] { isSidebarShown = !isSidebarShown; },
                         .goToPane = [this](bool forward) { panes += forward ? '>' : '<'; }};
};

TEST_F(AppCommandsTest, ListsEveryItemInItsPlace) {
    std::string list;
    for (const auto& [menu, entry] : commands()) {
        list += entry.startsGroup ? "-\n" : "";
        list += menu + ": " + entry.title +
                (entry.shortcut.empty() ? "" : " (" + entry.shortcut + ")") + "\n";
    }
    EXPECT_EQ(list, "File: New Transaction (Ctrl+N)\n"
                    "File: New Account… (Ctrl+Shift+N)\n"
                    "File: New Reminder… (Ctrl+Alt+N)\n"
                    "-\n"
                    "File: Import Transactions… (Ctrl+Shift+I)\n"
                    "File: Import Quicken Data File… (Ctrl+Alt+Shift+I)\n"
                    "File/Export: All Transactions as CSV…\n"
                    "File/Export: Current Account as QIF…\n"
                    "-\n"
                    "File: Back Up… (Ctrl+Shift+B)\n"
                    "File: Restore from Backup…\n"
                    "-\n"
                    "File: Quit Oakfen (Ctrl+Q)\n"
                    "Edit: Undo (Ctrl+Z)\n"
                    "Edit: Redo (Ctrl+Shift+Z)\n"
                    "-\n"
                    "Edit: Cut (Ctrl+X)\n"
                    "Edit: Copy (Ctrl+C)\n"
                    "Edit: Paste (Ctrl+V)\n"
                    "Edit: Select All (Ctrl+A)\n"
                    "-\n"
                    "Edit: Find (Ctrl+F)\n"
                    "Edit: Find in All Accounts… (Ctrl+Shift+F)\n"
                    "-\n"
                    "Edit: Settings… (Ctrl+,)\n"
                    "View: Hide Sidebar (F9)\n"
                    "-\n"
                    "View: Next Pane (F6)\n"
                    "View: Previous Pane (Shift+F6)\n"
                    "Go: Dashboard (Ctrl+1)\n"
                    "Go: Bills & Income (Ctrl+2)\n"
                    "Go: Budget (Ctrl+3)\n"
                    "Go: Reports (Ctrl+4)\n"
                    "Go: Investing (Ctrl+5)\n"
                    "Go: Savings Goals (Ctrl+6)\n"
                    "Go: Categories (Ctrl+7)\n"
                    "-\n"
                    "Go: Back (Alt+Left)\n"
                    "Go: Forward (Alt+Right)\n"
                    "Transactions: Reconcile… (Ctrl+Shift+R)\n"
                    "Transactions: Enter Due Reminders\n"
                    "-\n"
                    "Transactions: Lock Oakfen (Ctrl+Shift+L)\n"
                    "Help: About Oakfen\n");
}

TEST_F(AppCommandsTest, GivesNoShortcutTwice) {
    std::set<std::string> shortcuts;
    for (const auto& [menu, entry] : commands()) {
        if (!entry.shortcut.empty()) {
            EXPECT_TRUE(shortcuts.insert(entry.shortcut).second) << entry.shortcut;
        }
    }
}

TEST_F(AppCommandsTest, NeedsAnOpenAccountForAnImportButNotForANewAccount) {
    EXPECT_FALSE(isEnabled("Import Transactions…"));
    EXPECT_FALSE(isEnabled("New Transaction"));
    EXPECT_TRUE(isEnabled("New Account…"));
    Account account = addAccount("Everyday");
    EXPECT_TRUE(isEnabled("Import Transactions…"));
    account.isClosed = true;
    test.store->mutate("Close Account", [&](Library& library) { upsert(library, account); });
    EXPECT_FALSE(isEnabled("Import Transactions…"));
}

TEST_F(AppCommandsTest, OpensTheSheetOfANewAccount) {
    command("New Account…").perform();
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::NewAccount{}});
}

TEST_F(AppCommandsTest, HandsTheSelectedAccountToANewTransaction) {
    const UUID id = addAccount("Everyday").id;
    command("New Transaction").perform();
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::NewTransaction{}});
    test.appState->setSelection(SidebarItem::account(id));
    command("New Transaction").perform();
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::NewTransaction{id}});
}

TEST_F(AppCommandsTest, GoesToEachScreenByItsDigit) {
    int digit = 0;
    for (const SidebarItem& item : overviewItems()) {
        ++digit;
        const MenuEntry go = command(std::string(title(item.kind)));
        EXPECT_EQ(go.shortcut, "Ctrl+" + std::to_string(digit));
        EXPECT_TRUE(go.canBeChosen());
        go.perform();
        EXPECT_EQ(test.appState->selection(), item);
    }
    EXPECT_EQ(digit, 7);
}

TEST_F(AppCommandsTest, NamesWhatUndoAndRedoWouldDo) {
    EXPECT_EQ(command("Undo").shortcut, "Ctrl+Z");
    EXPECT_FALSE(isEnabled("Undo"));
    EXPECT_FALSE(isEnabled("Redo"));
    addAccount("Everyday");
    ASSERT_TRUE(isEnabled("Undo New Account"));
    command("Undo New Account").perform();
    EXPECT_TRUE(test.library().accounts.empty());
    ASSERT_TRUE(isEnabled("Redo New Account"));
    EXPECT_FALSE(isEnabled("Undo"));
    command("Redo New Account").perform();
    EXPECT_EQ(test.library().accounts.size(), 1U);
}

TEST_F(AppCommandsTest, KeepsUndoAwayWhileASheetIsOpen) {
    addAccount("Everyday");
    test.appState->setSheet(ActiveSheet{ActiveSheet::NewAccount{}});
    EXPECT_FALSE(isEnabled("Undo New Account"));
    test.appState->setSheet(std::nullopt);
    EXPECT_TRUE(isEnabled("Undo New Account"));
}

TEST(MenuEntry, OpensASubmenuOnlyWhileALineInItCanBeChosen) {
    MenuEntry menu{.title = "Export", .children = {{.title = "One"}, {.title = "All"}}};
    EXPECT_FALSE(menu.canBeChosen());
    menu.children[1].perform = [] {};
    EXPECT_TRUE(menu.canBeChosen());
    menu.children[1].isEnabled = false;
    EXPECT_FALSE(menu.canBeChosen());
}

TEST_F(AppCommandsTest, LeavesOnlyTheFieldsCommandsAndLockingWhileASheetIsOpen) {
    test.appState->setSelection(SidebarItem::account(addAccount("Everyday").id));
    test.defaults.set(settings::requireAuthentication, true);
    test.appState->setUnlocked(true);
    test.appState->setSheet(ActiveSheet{ActiveSheet::NewAccount{}});
    std::set<std::string> live;
    for (const auto& [menu, entry] : commands()) {
        if (entry.canBeChosen()) {
            live.insert(entry.title);
        }
    }
    EXPECT_EQ(live, (std::set<std::string>{"Cut", "Copy", "Paste", "Select All", "Lock Oakfen"}));
}

TEST_F(AppCommandsTest, KeepsUndoAwayWhileTheScreenIsCovered) {
    addAccount("Everyday");
    test.defaults.set(settings::requireAuthentication, true);
    test.appState->setUnlocked(false);
    EXPECT_FALSE(isEnabled("Undo New Account"));
}

TEST_F(AppCommandsTest, KeepsTheSearchThroughAllAccountsAwayWhileTheScreenIsCovered) {
    window.findInAllAccounts = [] {};
    test.defaults.set(settings::requireAuthentication, true);
    test.appState->setUnlocked(true);
    EXPECT_TRUE(isEnabled("Find in All Accounts…"));
    test.appState->setUnlocked(false);
    EXPECT_FALSE(isEnabled("Find in All Accounts…"));
}

TEST_F(AppCommandsTest, GoByTheOpenFileAloneWhileTheLockShows) {
    const UUID id = addAccount("Everyday").id;
    test.appState->setSelection(SidebarItem::account(id));
    test.defaults.set(settings::requireAuthentication, true);
    const std::vector<Command> before = commands();
    test.appState->setUnlocked(false);
    const std::vector<Command> behindTheLock = commands();
    ASSERT_EQ(behindTheLock.size(), before.size());
    for (std::size_t place = 0; place < before.size(); ++place) {
        const MenuEntry& entry = behindTheLock[place].entry;
        EXPECT_EQ(entry.title, before[place].entry.title);
        const bool goesBack = entry.title.starts_with("Undo") || entry.title == "Back";
        EXPECT_EQ(entry.canBeChosen(), before[place].entry.canBeChosen() && !goesBack)
            << entry.title;
    }
}

TEST_F(AppCommandsTest, LocksOnlyWhenTheSettingIsOn) {
    EXPECT_FALSE(isEnabled("Lock Oakfen"));
    test.defaults.set(settings::requireAuthentication, true);
    EXPECT_TRUE(isEnabled("Lock Oakfen"));
    command("Lock Oakfen").perform();
    EXPECT_FALSE(test.appState->isUnlocked());
}

TEST_F(AppCommandsTest, AsksTheWindowToFindInAllAccountsOfAnOpenFile) {
    int opened = 0;
    window.findInAllAccounts = [&] { ++opened; };
    command("Find in All Accounts…").perform();
    EXPECT_EQ(opened, 1);
    test.appState->setSheet(ActiveSheet{ActiveSheet::NewAccount{}});
    EXPECT_FALSE(isEnabled("Find in All Accounts…"));
}

TEST_F(AppCommandsTest, DisablesWhatThisVersionCannotDo) {
    const UUID id = addAccount("Everyday").id;
    test.appState->setSelection(SidebarItem::account(id));
    EXPECT_TRUE(isEnabled("New Transaction"));
    EXPECT_FALSE(isEnabled("Back Up…"));
    EXPECT_FALSE(isEnabled("Restore from Backup…"));
    EXPECT_FALSE(isEnabled("Settings…"));
}

TEST_F(AppCommandsTest, ReconcilesAndExportsOnlyASelectedAccount) {
    const UUID id = addAccount("Everyday").id;
    EXPECT_FALSE(isEnabled("Reconcile…"));
    EXPECT_FALSE(isEnabled("Current Account as QIF…"));
    EXPECT_TRUE(isEnabled("All Transactions as CSV…"));
    test.appState->setSelection(SidebarItem::account(id));
    ASSERT_TRUE(isEnabled("Reconcile…"));
    ASSERT_TRUE(isEnabled("Current Account as QIF…"));
    command("Reconcile…").perform();
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::Reconcile{id}});
}

TEST_F(AppCommandsTest, AsksWhereToExportTo) {
    test.appState->setSelection(SidebarItem::account(addAccount("Everyday").id));
    command("All Transactions as CSV…").perform();
    command("Current Account as QIF…").perform();
    ASSERT_EQ(test.panels.saveRequests.size(), 2U);
    EXPECT_EQ(test.panels.saveRequests[0].suggestedName, "Oakfen Transactions.csv");
    EXPECT_EQ(test.panels.saveRequests[1].suggestedName, "Everyday.qif");
}

TEST_F(AppCommandsTest, BeginsAReminderWhereTheFileIsOpen) {
    ASSERT_TRUE(isEnabled("New Reminder…"));
    command("New Reminder…").perform();
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::Scheduled{}});
    EXPECT_FALSE(isEnabled("New Reminder…"));
}

TEST_F(AppCommandsTest, EntersReminders) {
    const UUID id = addAccount("Everyday").id;
    const ScheduledTransaction rent{
        .id = UUID::random(), .payee = "Rent", .accountID = id, .nextDate = day(2026, 3, 15)};
    EXPECT_FALSE(isEnabled("Enter Due Reminders"));
    test.store->mutate("Add", [&](Library& library) { library.scheduled.push_back(rent); });
    ASSERT_TRUE(isEnabled("Enter Due Reminders"));
    command("Enter Due Reminders").perform();
    EXPECT_EQ(test.library().transactions.size(), 1U);
    EXPECT_FALSE(isEnabled("Enter Due Reminders"));
}

TEST_F(AppCommandsTest, NamesTheSidebarItemByWhatItWouldDo) {
    command("Hide Sidebar").perform();
    EXPECT_FALSE(isSidebarShown);
    command("Show Sidebar").perform();
    EXPECT_TRUE(isSidebarShown);
}

TEST_F(AppCommandsTest, GoesBackAndForwardAmongTheScreens) {
    EXPECT_FALSE(isEnabled("Back"));
    command("Budget").perform();
    EXPECT_FALSE(isEnabled("Forward"));
    command("Back").perform();
    EXPECT_EQ(test.appState->selection(), SidebarItem{});
    command("Forward").perform();
    EXPECT_EQ(test.appState->selection(), SidebarItem{SidebarItem::Kind::budget});
    test.appState->setSheet(ActiveSheet{ActiveSheet::NewAccount{}});
    EXPECT_FALSE(isEnabled("Back"));
}

TEST_F(AppCommandsTest, EndsTheTransactionsMenuWithTheLinesOfTheScreen) {
    int found = 0;
    int notices = 0;
    const Subscription watching = test->screenCommands.changed.observe([&notices] { ++notices; });
    Subscription offer = test->screenCommands.offer(
        {.find = [&found] { ++found; },
         .forRows =
             [] {
                 return std::vector<MenuEntry>{
                     {.title = "Edit", .symbolName = "pencil", .perform = [] {}},
                     {.title = "Duplicate", .perform = [] {}, .isEnabled = false}};
             }});
    EXPECT_EQ(notices, 1);
    EXPECT_TRUE(command("Edit").canBeChosen());
    EXPECT_TRUE(command("Edit").startsGroup);
    EXPECT_EQ(command("Edit").symbolName, "");
    EXPECT_FALSE(command("Duplicate").canBeChosen());
    command("Find").perform();
    EXPECT_EQ(found, 1);

    test.appState->setSheet(ActiveSheet{ActiveSheet::NewAccount{}});
    EXPECT_FALSE(isEnabled("Edit"));
    EXPECT_FALSE(isEnabled("Find"));
    test.appState->setSheet(std::nullopt);
    offer.reset();
    EXPECT_EQ(notices, 2);
    EXPECT_THROW(static_cast<void>(command("Edit")), std::invalid_argument);
    EXPECT_FALSE(isEnabled("Find"));
}

TEST_F(AppCommandsTest, TakesTheLinesOfTheScreenThatCameUpLast) {
    const auto offerOf = [this](const char* title) {
        return test->screenCommands.offer({.forRows = [title] {
            return std::vector<MenuEntry>{{.title = title, .perform = [] {}}};
        }});
    };
    Subscription earlier = offerOf("Earlier");
    const Subscription later = offerOf("Later");
    EXPECT_TRUE(isEnabled("Later"));
    // The screen before it ends only now.
    earlier.reset();
    EXPECT_TRUE(isEnabled("Later"));
}

TEST_F(AppCommandsTest, GoesFromPaneToPaneThroughTheWindow) {
    command("Next Pane").perform();
    command("Previous Pane").perform();
    EXPECT_EQ(panes, "><");
}

TEST_F(AppCommandsTest, QuitsThroughTheWindow) {
    EXPECT_TRUE(isEnabled("Quit Oakfen"));
    command("Quit Oakfen").perform();
    EXPECT_EQ(quits, 1);
}

TEST(AppCommandsBehindTheGate, AreDisabledButForLocking) {
    TestEnvironment test{TestEnvironment::Unopened{}};
    test.defaults.set(settings::requireAuthentication, true);
    const WindowActions window{[] {}, [] {}, [] { return true; }, [] {}, [] {}, [](bool) {}};
    for (const auto& [menu, entry] : commandsOf(test, window)) {
        const bool isOfTheLedger =
            menu.starts_with("File") || menu == "Go" || menu == "Transactions";
        const bool staysLive = entry.title == "Lock Oakfen" || entry.title == "Quit Oakfen";
        if (isOfTheLedger) {
            EXPECT_EQ(entry.canBeChosen(), staysLive) << entry.title;
        }
    }
}

} // namespace
} // namespace oakfen
