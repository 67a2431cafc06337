#include <QComboBox>
#include <QToolButton>
#include <map>

#include "Oakfen/Widgets/Register/RegisterHeaderWidget.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Tests/Oakfen/Widgets/Register/RegisterWindowFixture.h"

namespace oakfen {

using RegisterHeader = testing::RegisterWindow;

TEST_F(RegisterHeader, HasItsToolsInTheirOrder) {
    const auto* header = widget->findChild<RegisterHeaderWidget*>();
    ASSERT_NE(header, nullptr);
    std::map<int, const QToolButton*> fromLeftToRight;
    for (const QToolButton* each : header->findChildren<QToolButton*>()) {
        if (each->menu() == nullptr && each->toolButtonStyle() == Qt::ToolButtonTextBesideIcon) {
            fromLeftToRight[each->mapTo(header, QPoint()).x()] = each;
        }
    }
    std::vector<std::string> tools;
    for (const auto& [x, each] : fromLeftToRight) {
        tools.push_back(utf8(each->text() + QStringLiteral(": ") + each->toolTip()));
    }
    EXPECT_EQ(tools, (std::vector<std::string>{"Reconcile: Reconcile with a statement",
                                               "Import: Import a CSV, QIF, OFX or QFX statement",
                                               "Edit Account: Account details",
                                               "New Transaction: New transaction (⌘N)"}));
}

TEST_F(RegisterHeader, ListsEveryFilterInItsPicker) {
    const auto* picker = widget->findChild<QComboBox*>();
    ASSERT_NE(picker, nullptr);
    EXPECT_EQ(picker->accessibleName(), QStringLiteral("Show"));
    EXPECT_EQ(picker->toolTip(), QStringLiteral("Filter transactions"));
    std::vector<std::string> titles;
    for (int row = 0; row < picker->count(); ++row) {
        titles.push_back(utf8(picker->itemText(row)));
    }
    EXPECT_EQ(titles, (std::vector<std::string>{"All Transactions", "This Month", "Last 30 Days",
                                                "Last 90 Days", "This Year", "Uncleared",
                                                "Uncategorized"}));
}

TEST_F(RegisterHeader, OpensWhatItsToolsAreFor) {
    const auto opened = [&](const char* text) {
        test.appState->setSheet(std::nullopt);
        QTest::mouseClick(button(text), Qt::LeftButton);
        return test.appState->sheet();
    };
    EXPECT_EQ(opened("Reconcile"), ActiveSheet{ActiveSheet::Reconcile{everyday.id}});
    EXPECT_EQ(opened("Edit Account"), ActiveSheet{ActiveSheet::EditAccount{everyday.id}});
    EXPECT_EQ(opened("New Transaction"), ActiveSheet{ActiveSheet::NewTransaction{everyday.id}});
    EXPECT_EQ(opened("Import"), std::nullopt);
    EXPECT_EQ(test.panels.openRequests.size(), 1U);
}

} // namespace oakfen
