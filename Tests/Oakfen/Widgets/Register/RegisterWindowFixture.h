#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMenu>
#include <QScrollBar>
#include <QTest>
#include <memory>
#include <string>
#include <vector>

#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Components/Mnemonics.h"
#include "Oakfen/Widgets/Register/RegisterWidget.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Tests/Oakfen/Views/Register/RegisterFixture.h"

namespace oakfen::testing {

/// The register of the everyday account in a window, and ways to use it.
class RegisterWindow : public RegisterFixture {
protected:
    RegisterWindow() { open(everyday.id); }

    void open(const UUID& accountID) {
        widget = std::make_unique<RegisterWidget>(*test, accountID);
        widget->resize(1100, 600);
        widget->show();
        widget->activateWindow();
        QApplication::processEvents();
        widget->table()->setFocus();
        QApplication::processEvents();
    }

    [[nodiscard]] std::string payees() const {
        const auto* model = widget->table()->model();
        std::string result;
        for (int row = 0; row < model->rowCount(); ++row) {
            result += (row == 0 ? "" : "|") + cell(row, "payee");
        }
        return result;
    }

    [[nodiscard]] int column(std::string_view name) const {
        return static_cast<int>(columnNamed(*widget->view().content()->table, name).value());
    }

    [[nodiscard]] std::string cell(int row, std::string_view column) const {
        return utf8(index(row, column).data().toString());
    }

    [[nodiscard]] QModelIndex index(int row, std::string_view name) const {
        return widget->table()->model()->index(row, column(name));
    }

    void click(int row, std::string_view column, Qt::KeyboardModifiers modifiers = {}) const {
        QTest::mouseClick(widget->table()->viewport(), Qt::LeftButton, modifiers,
                          widget->table()->visualRect(index(row, column)).center());
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
        QTest::keyClick(widget->table(), key, modifiers);
    }

    [[nodiscard]] UUIDSet selection() const { return *widget->view().content()->selection; }

    [[nodiscard]] QAbstractButton* button(const char* text) const {
        for (QAbstractButton* each : widget->findChildren<QAbstractButton*>()) {
            if (each->text() == QString::fromUtf8(text) && each->isVisible()) {
                return each;
            }
        }
        return nullptr;
    }

    static std::vector<std::string> titles(const QMenu& menu) {
        std::vector<std::string> result;
        for (const QAction* action : menu.actions()) {
            result.push_back(action->isSeparator() ? "-" : utf8(withoutMnemonic(action->text())));
        }
        return result;
    }

    static QAction* action(const QMenu& menu, const char* title) {
        for (QAction* each : menu.actions()) {
            if (withoutMnemonic(each->text()) == QString::fromUtf8(title)) {
                return each;
            }
        }
        return nullptr;
    }

    std::unique_ptr<RegisterWidget> widget;
};

/// An account with more entries than the table has room for.
class LongRegisterWindow : public RegisterWindow {
protected:
    LongRegisterWindow() {
        test.store->mutate("Add", [this](Library& library) {
            for (int number = 0; number < 200; ++number) {
                upsert(library, makeTransaction(everyday.id, day(2026, 1, 5), "Entry", "-1"));
            }
        });
        QApplication::processEvents();
    }

    [[nodiscard]] QScrollBar* scrollBar() const { return widget->table()->verticalScrollBar(); }

    [[nodiscard]] bool isInSight(int row) const {
        const QRect place = widget->table()->visualRect(index(row, "payee"));
        return widget->table()->viewport()->rect().contains(place.center());
    }
};

} // namespace oakfen::testing
