#include "Tests/Oakfen/Views/Dashboard/DashboardFixture.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::makeAccount;

class DashboardAlerts : public testing::DashboardFixture {
protected:
    void setAccount(const std::function<void(Account&)>& change) {
        edit([&](Library& library) {
            Account account = library.accounts[0];
            change(account);
            upsert(library, account);
        });
    }
    void setBalance(std::string_view text) {
        setAccount([&](Account& account) { account.openingBalance = amount(text); });
    }
    std::vector<std::string> texts() {
        std::vector<std::string> result;
        for (const AlertsCard::AlertItem& item : shown().alerts.items) {
            result.push_back(item.text);
        }
        return result;
    }
    using Texts = std::vector<std::string>;
};

TEST_F(DashboardAlerts, OneAccountRaisesBothForItsBalanceAndForItsCredit) {
    setAccount([](Account& account) {
        account.lowBalanceAlert = amount("-100");
        account.creditLimit = amount("1000");
        account.openingBalance = amount("-500");
    });
    EXPECT_EQ(texts(),
              (Texts{"Everyday is below -$100.00.", "Everyday is using 50% of its limit."}));
    for (const AlertsCard::AlertItem& item : shown().alerts.items) {
        EXPECT_EQ(item.target, SidebarItem::account(everyday.id));
        EXPECT_EQ(item.color, TextTone::warning);
    }
}

TEST_F(DashboardAlerts, CreditInOnesFavourAndExactlyThirtyPercentAreSilent) {
    setAccount([](Account& account) { account.creditLimit = amount("1000"); });
    setBalance("250");
    EXPECT_EQ(texts(), Texts());
    setBalance("-300");
    EXPECT_EQ(texts(), Texts());
    setBalance("-300.01");
    EXPECT_EQ(texts(), Texts{"Everyday is using 30% of its limit."});
}

TEST_F(DashboardAlerts, ABalanceJustUnderTheThresholdAlertsAndOneEqualToItDoesNot) {
    setAccount([](Account& account) { account.lowBalanceAlert = amount("500"); });
    setBalance("500");
    EXPECT_EQ(texts(), Texts());
    setBalance("499.99");
    EXPECT_EQ(texts(), Texts{"Everyday is below $500.00."});
}

TEST_F(DashboardAlerts, ClosedAccountsRaiseNone) {
    setAccount([](Account& account) {
        account.lowBalanceAlert = amount("500");
        account.isClosed = true;
    });
    EXPECT_EQ(texts(), Texts());
}

TEST_F(DashboardAlerts, NamesTheCategoriesOverBudgetInCodePointOrder) {
    for (const char* name : {"apples", "Öl", "Zoo", "within"}) {
        const UUID id = addCategory(name);
        setBudget(id, "10");
        enter(day(2026, 3, 2), std::string(name) == "within" ? "-10" : "-10.01", id);
    }
    EXPECT_EQ(texts(), Texts{"Over budget: Zoo, apples, Öl."});
    EXPECT_EQ(shown().alerts.items[0].target, SidebarItem{SidebarItem::Kind::budget});
    EXPECT_EQ(shown().alerts.items[0].color, TextTone::negative);
}

TEST_F(DashboardAlerts, OverBudgetCountsACategoryAloneAndOnlyExpensesWithABudget) {
    const UUID food = addCategory("Food");
    const UUID groceries = addCategory("Groceries", CategoryKind::expense, food);
    const UUID pay = addCategory("Pay", CategoryKind::income);
    setBudget(food, "10");
    setBudget(pay, "10");
    enter(day(2026, 3, 2), "-50", groceries);
    enter(day(2026, 3, 2), "500", pay);
    EXPECT_EQ(texts(), Texts());
    setBudget(groceries, "-5");
    EXPECT_EQ(texts(), Texts());
}

TEST_F(DashboardAlerts, EachHasItsIconAndColour) {
    setAccount([](Account& account) {
        account.lowBalanceAlert = amount("0");
        account.creditLimit = amount("100");
        account.openingBalance = amount("-50");
    });
    const UUID food = addCategory("Food");
    setBudget(food, "10");
    enter(day(2026, 3, 2), "-20", food);
    enter(day(2026, 3, 2), "-1");
    remind(day(2026, 3, 1), "-1");
    const std::vector<AlertsCard::AlertItem> items = shown().alerts.items;
    ASSERT_EQ(items.size(), 5U);
    const std::vector<std::pair<std::string, TextTone>> expected{
        {"exclamationmark.triangle.fill", TextTone::warning},
        {"creditcard.trianglebadge.exclamationmark", TextTone::warning},
        {"chart.bar.xaxis", TextTone::negative},
        {"calendar.badge.exclamationmark", TextTone::negative},
        {"questionmark.folder", TextTone::information}};
    for (std::size_t index = 0; index < expected.size(); ++index) {
        EXPECT_EQ(items[index].symbolName, expected[index].first);
        EXPECT_EQ(items[index].color, expected[index].second);
    }
}

TEST_F(DashboardAlerts, OverdueIsWhatWasDueBeforeTodayBegan) {
    remind(day(2026, 3, 15, 0), "-1");
    EXPECT_EQ(texts(), Texts());
    remind(day(2026, 3, 14, 23), "-1");
    EXPECT_EQ(texts(), Texts{"1 reminder is overdue."});
    remind(day(2026, 3, 1), "-1");
    EXPECT_EQ(texts(), Texts{"2 reminders are overdue."});
    EXPECT_EQ(shown().alerts.items[0].target, SidebarItem{SidebarItem::Kind::bills});
}

TEST_F(DashboardAlerts, WhatNeedsACategoryLeadsNowhere) {
    enter(day(2026, 3, 2), "-1");
    EXPECT_EQ(texts(), Texts{"1 transaction needs a category."});
    enter(day(2026, 3, 3), "-1");
    EXPECT_EQ(texts(), Texts{"2 transactions need a category."});
    const AlertsCard::AlertItem item = shown().alerts.items[0];
    EXPECT_FALSE(item.target);
    const auto before = test.appState->selection();
    view.follow(item);
    EXPECT_EQ(test.appState->selection(), before);
}

TEST_F(DashboardAlerts, AClickGoesWhereTheAlertLeads) {
    remind(day(2026, 3, 1), "-1");
    view.follow(shown().alerts.items[0]);
    EXPECT_EQ(test.appState->selection(), SidebarItem{SidebarItem::Kind::bills});
}

} // namespace
} // namespace oakfen
