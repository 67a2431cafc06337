#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <memory>

#include "Oakfen/Widgets/Components/Mnemonics.h"
#include "Oakfen/Widgets/Shell/MainWindow.h"
#include "OakfenCore/LibraryOperations/Accounts.h"
#include "Tests/Oakfen/Widgets/Settle.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen::testing {

/// The window on a document in memory, and ways to find what it shows.
class WindowTest : public ::testing::Test {
protected:
    WindowTest() : WindowTest(std::make_unique<TestEnvironment>()) {}
    explicit WindowTest(std::unique_ptr<TestEnvironment> environment)
        : test(std::move(environment)) {
        openWindow();
    }

    void openWindow() {
        window = std::make_unique<MainWindow>(**test, [this] { ++quitRequests; });
        window->show();
        settle();
    }
    /// Closes the window for good and opens it as the next start of the program does.
    void reopenWindow() {
        window.reset();
        openWindow();
    }

    void add(const Account& account) {
        test->store->mutate("New Account", [&](Library& library) { upsert(library, account); });
        settle();
    }
    Account addAccount(const std::string& name) {
        Account account = makeAccount(name);
        add(account);
        return account;
    }
    void select(const SidebarItem& item) {
        test->appState->setSelection(item);
        settle();
    }

    [[nodiscard]] QAction* action(const QString& text) const {
        for (QAction* each : window->menuBar()->findChildren<QAction*>()) {
            if (withoutMnemonic(each->text()) == text) {
                return each;
            }
        }
        return nullptr;
    }
    template <typename Widget>
    [[nodiscard]] Widget* shown() const {
        for (Widget* each : window->findChildren<Widget*>()) {
            if (each->isVisible()) {
                return each;
            }
        }
        return nullptr;
    }
    [[nodiscard]] QPushButton* button(const QString& text) const {
        for (QPushButton* each : window->findChildren<QPushButton*>()) {
            if (each->text() == text && each->isVisible()) {
                return each;
            }
        }
        return nullptr;
    }

    [[nodiscard]] QTreeWidget* sidebar() const {
        return window->findChild<QTreeWidget*>(QStringLiteral("SidebarList"));
    }
    [[nodiscard]] QTreeWidgetItem* line(const QString& title) const {
        const auto found = sidebar()->findItems(title, Qt::MatchExactly | Qt::MatchRecursive);
        return found.isEmpty() ? nullptr : found.first();
    }
    void click(QTreeWidgetItem* item) const {
        QTest::mouseClick(sidebar()->viewport(), Qt::LeftButton, {},
                          sidebar()->visualItemRect(item).center());
        settle();
    }

    int quitRequests = 0;
    std::unique_ptr<TestEnvironment> test;
    std::unique_ptr<MainWindow> window;
};

} // namespace oakfen::testing
