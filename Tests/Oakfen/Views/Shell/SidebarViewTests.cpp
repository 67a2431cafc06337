#include "Oakfen/Views/Shell/SidebarView.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "OakfenCore/LibraryOperations/Accounts.h"
#include "OakfenCore/Support/Text/Formatting.h"
#include "Tests/Generators/RandomLibrary.h"
#include "Tests/Support/LocaleForTest.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::LocaleForTest;
using testing::makeAccount;
using testing::makeTransaction;
using testing::RandomLibrary;
using testing::TestEnvironment;

class SidebarViewTest : public ::testing::Test {
protected:
    Account add(Account account) {
        test.store->mutate("New Account", [&](Library& library) { upsert(library, account); });
        return account;
    }
    void addReminder(Date nextDate) {
        test.store->mutate("New Reminder", [&](Library& library) {
            library.scheduled.push_back(
                {.id = UUID::random(), .payee = "Rent", .nextDate = nextDate});
        });
    }
    [[nodiscard]] int badge(SidebarItem::Kind kind) const {
        const auto rows = view.content()->overview;
        return std::find_if(rows.begin(), rows.end(),
                            [kind](const auto& row) { return row.item.kind == kind; })
            ->badge;
    }
    [[nodiscard]] std::vector<std::string> menuTitles(const UUID& id) {
        std::vector<std::string> titles;
        for (const MenuEntry& entry : view.contextMenu(id)) {
            titles.push_back(entry.title);
        }
        return titles;
    }
    void perform(const UUID& id, const std::string& title) {
        for (const MenuEntry& entry : view.contextMenu(id)) {
            if (entry.title == title) {
                entry.perform();
                return;
            }
        }
        FAIL() << "no entry is called " << title;
    }

    TestEnvironment test;
    SidebarView view{*test};
};

TEST_F(SidebarViewTest, ListsTheOverviewWithIcons) {
    const auto rows = view.content()->overview;
    ASSERT_EQ(rows.size(), 7U);
    EXPECT_EQ(rows[1].title, "Bills & Income");
    EXPECT_EQ(rows[1].symbolName, "calendar.badge.clock");
    EXPECT_EQ(rows[1].item.kind, SidebarItem::Kind::bills);
}

TEST_F(SidebarViewTest, CountsRemindersDueTodayButNotTomorrow) {
    addReminder(
        Calendar::utc().date({.year = 2026, .month = 3, .day = 15, .hour = 23, .minute = 59}));
    addReminder(day(2026, 3, 16, 0));
    addReminder(day(2026, 2, 1));
    EXPECT_EQ(badge(SidebarItem::Kind::bills), 2);
    EXPECT_EQ(badge(SidebarItem::Kind::dashboard), 0);
}

TEST_F(SidebarViewTest, GroupsAccountsInTheOrderOfTheGroups) {
    add(makeAccount("Loan", AccountType::loan));
    add(makeAccount("Visa", AccountType::creditCard));
    add(makeAccount("zebra"));
    add(makeAccount("Apple"));
    const auto sections = view.content()->sections;
    ASSERT_EQ(sections.size(), 3U);
    EXPECT_EQ(sections[0].title, "Banking");
    ASSERT_EQ(sections[0].rows.size(), 2U);
    EXPECT_EQ(sections[0].rows[0].name, "Apple");
    EXPECT_EQ(sections[1].title, "Credit");
    EXPECT_EQ(sections[2].title, "Property & Debt");
}

TEST_F(SidebarViewTest, HasNoSectionForAGroupOfOnlyClosedAccounts) {
    Account account = makeAccount("Old Card", AccountType::creditCard);
    account.isClosed = true;
    add(account);
    EXPECT_TRUE(view.content()->sections.empty());
    view.toggleClosedAccounts();
    EXPECT_TRUE(view.showsClosedAccounts());
    ASSERT_EQ(view.content()->sections.size(), 1U);
    EXPECT_TRUE(view.content()->sections[0].rows[0].isClosed);
    EXPECT_TRUE(test.defaults.get(settings::showClosedAccounts));
}

TEST_F(SidebarViewTest, ShowsTheBalanceOfAClosedAccountToo) {
    const LocaleForTest locale("en_CA");
    Account account = makeAccount("Old Savings", AccountType::savings);
    account.isClosed = true;
    account.openingBalance = amount("12.5");
    add(account);
    view.toggleClosedAccounts();
    EXPECT_NE(view.content()->sections[0].rows[0].balance.text.find("12.50"), std::string::npos);
}

TEST_F(SidebarViewTest, TellsANegativeBalance) {
    Account account = makeAccount("Visa", AccountType::creditCard);
    account.openingBalance = amount("-50");
    add(account);
    EXPECT_TRUE(view.content()->sections[0].rows[0].balance.isNegative);
}

TEST_F(SidebarViewTest, TellsHowMuchOfTheLimitIsUsed) {
    Account card = makeAccount("Visa", AccountType::creditCard);
    card.creditLimit = amount("1000");
    EXPECT_EQ(creditUseText(card, amount("-429.99")), "42% of limit used");
    EXPECT_EQ(creditUseText(card, Decimal()), "0% of limit used");
}

TEST_F(SidebarViewTest, TellsTheUseOfALimitForEveryKindOfDebtAndForNothingElse) {
    for (const AccountType type : allCases<AccountType>) {
        Account account = makeAccount("Any", type);
        account.creditLimit = amount("100");
        const bool isDebt = type == AccountType::creditCard || type == AccountType::lineOfCredit ||
                            type == AccountType::liability || type == AccountType::loan;
        EXPECT_EQ(creditUseText(account, amount("-10")).has_value(), isDebt) << title(type);
    }
}

TEST_F(SidebarViewTest, CutsThePercentOfALimitToItsWholePart) {
    Account card = makeAccount("Visa", AccountType::creditCard);
    card.creditLimit = amount("1000");
    EXPECT_EQ(creditUseText(card, amount("-999.99")), "99% of limit used");
    EXPECT_EQ(creditUseText(card, amount("-1500")), "150% of limit used");
    EXPECT_EQ(creditUseText(card, amount("9.99")), "0% of limit used");
}

TEST_F(SidebarViewTest, ShowsANegativeUseForCreditInOnesFavour) {
    Account card = makeAccount("Visa", AccountType::creditCard);
    card.creditLimit = amount("200");
    EXPECT_EQ(creditUseText(card, amount("25")), "-12% of limit used");
}

TEST_F(SidebarViewTest, ShowsNoUseWithoutALimit) {
    Account card = makeAccount("Visa", AccountType::creditCard);
    EXPECT_FALSE(creditUseText(card, amount("-10")));
    card.creditLimit = Decimal();
    EXPECT_FALSE(creditUseText(card, amount("-10")));
    card.creditLimit = amount("-5");
    EXPECT_FALSE(creditUseText(card, amount("-10")));
    Account chequing = makeAccount("Everyday");
    chequing.creditLimit = amount("100");
    EXPECT_FALSE(creditUseText(chequing, amount("-10")));
}

TEST_F(SidebarViewTest, ShowsNoUseThatNoIntegerHolds) {
    Account card = makeAccount("Visa", AccountType::creditCard);
    card.creditLimit = amount("0.000000000000000001");
    EXPECT_FALSE(creditUseText(card, amount("-1000000000")));
}

TEST_F(SidebarViewTest, SumsUpInTheFooter) {
    const LocaleForTest locale("en_CA");
    Account savings = makeAccount("Savings", AccountType::savings);
    savings.openingBalance = amount("1000");
    add(savings);
    Account card = makeAccount("Visa", AccountType::creditCard);
    card.openingBalance = amount("-1250");
    add(card);
    const SidebarContent::Footer footer = view.content()->footer;
    EXPECT_TRUE(footer.netWorth.isNegative);
    EXPECT_EQ(footer.netWorth.text, "-$250.00");
    EXPECT_EQ(footer.assets.text, "$1,000.00");
    EXPECT_EQ(footer.liabilities.text, "-$1,250.00");
}

TEST_F(SidebarViewTest, AddsUpTheAccountsOfEachGroup) {
    const LocaleForTest locale("en_CA");
    for (const char* balance : {"1000.10", "-250.05"}) {
        Account account = makeAccount("Savings", AccountType::savings);
        account.openingBalance = amount(balance);
        add(account);
    }
    Account card = makeAccount("Visa", AccountType::creditCard);
    card.openingBalance = amount("-50");
    add(card);
    const auto sections = view.content()->sections;
    ASSERT_EQ(sections.size(), 2U);
    EXPECT_EQ(sections[0].total.text, "$750.05");
    EXPECT_FALSE(sections[0].total.isNegative);
    EXPECT_EQ(sections[1].total.text, "-$50.00");
    EXPECT_TRUE(sections[1].total.isNegative);
}

TEST_F(SidebarViewTest, RoundsTheTotalOfAGroupOnceAndNotItsParts) {
    const LocaleForTest locale("en_CA");
    for (const char* name : {"One", "Two"}) {
        Account account = makeAccount(name);
        account.openingBalance = amount("0.004");
        add(account);
    }
    EXPECT_EQ(view.content()->sections[0].rows[0].balance.text, "$0.00");
    EXPECT_EQ(view.content()->sections[0].total.text, "$0.01");
}

TEST_F(SidebarViewTest, CountsAClosedAccountInItsGroupOnlyWhileItIsListed) {
    const LocaleForTest locale("en_CA");
    Account account = makeAccount("Everyday");
    account.openingBalance = amount("10");
    add(account);
    account = makeAccount("Old");
    account.openingBalance = amount("5");
    account.isClosed = true;
    add(account);
    EXPECT_EQ(view.content()->sections[0].total.text, "$10.00");
    view.toggleClosedAccounts();
    EXPECT_EQ(view.content()->sections[0].total.text, "$15.00");
}

TEST_F(SidebarViewTest, TellsLargeAmountsInFewCharactersToo) {
    const LocaleForTest locale("en_CA");
    Account account = makeAccount("Rupiah");
    account.openingBalance = amount("-999999999999999");
    add(account);
    const SidebarContent::Section section = view.content()->sections[0];
    EXPECT_EQ(section.rows[0].balance.text, "-$999,999,999,999,999.00");
    EXPECT_EQ(section.rows[0].balance.compact, compactCurrencyText(account.openingBalance, "CAD"));
    EXPECT_EQ(section.total, section.rows[0].balance);
    EXPECT_EQ(view.content()->footer.netWorth, section.total);
}

TEST_F(SidebarViewTest, AddsUpTheGroupsOfAnyDocument) {
    for (std::uint64_t seed = 1; seed <= 20; ++seed) {
        const Library document = RandomLibrary(seed, RandomLibrary::Amounts::wholeCents).make(30);
        test.store->mutate("Replace", [&](Library& library) { library = document; });
        view.toggleClosedAccounts();
        std::map<std::string, Decimal> totals;
        for (const Account& account : document.accounts) {
            if (view.showsClosedAccounts() || !account.isClosed) {
                totals[std::string(title(group(account.type)))] += test.index().balance(account.id);
            }
        }
        const auto sections = view.content()->sections;
        EXPECT_EQ(sections.size(), totals.size());
        for (const SidebarContent::Section& section : sections) {
            const Decimal total = totals.at(section.title);
            EXPECT_EQ(section.total.text, currencyText(total, document.currencyCode)) << seed;
            EXPECT_EQ(section.total.isNegative, total.isNegative()) << seed;
        }
    }
}

TEST_F(SidebarViewTest, OffersAMenuForAnOrdinaryAccount) {
    const UUID id = add(makeAccount("Everyday")).id;
    EXPECT_EQ(menuTitles(id),
              (std::vector<std::string>{"Edit Account", "Reconcile…", "New Transaction",
                                        "Close Account", "Delete Account…"}));
}

TEST_F(SidebarViewTest, ReconcilesAndEntersFromTheMenuOfAnAccount) {
    const UUID id = add(makeAccount("Everyday")).id;
    perform(id, "Reconcile…");
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::Reconcile{id}});
    perform(id, "New Transaction");
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::NewTransaction{id}});
}

TEST_F(SidebarViewTest, PutsADividerBeforeClosingAnAccount) {
    const UUID id = add(makeAccount("Everyday")).id;
    for (const MenuEntry& entry : view.contextMenu(id)) {
        EXPECT_EQ(entry.startsGroup, entry.title == "Close Account") << entry.title;
    }
}

TEST_F(SidebarViewTest, LeavesReconcilingOutForAnInvestmentAccount) {
    const UUID id = add(makeAccount("Stocks", AccountType::brokerage)).id;
    EXPECT_EQ(menuTitles(id),
              (std::vector<std::string>{"Edit Account", "Close Account", "Delete Account…"}));
}

TEST_F(SidebarViewTest, HasNoMenuForAnAccountThatIsGone) {
    EXPECT_TRUE(view.contextMenu(UUID::random()).empty());
}

TEST_F(SidebarViewTest, EditsAnAccountInASheet) {
    const UUID id = add(makeAccount("Everyday")).id;
    perform(id, "Edit Account");
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::EditAccount{id}});
}

TEST_F(SidebarViewTest, ClosesAndReopensAnAccountAsOneStepEach) {
    const UUID id = add(makeAccount("Everyday")).id;
    perform(id, "Close Account");
    EXPECT_TRUE(test.index().account(id)->isClosed);
    EXPECT_EQ(test.undoManager->undoActionName(), "Close Account");
    perform(id, "Reopen Account");
    EXPECT_FALSE(test.index().account(id)->isClosed);
    EXPECT_EQ(test.undoManager->undoActionName(), "Reopen Account");
}

TEST_F(SidebarViewTest, ReopensAClosedAccountFromItsMenu) {
    Account account = makeAccount("Old");
    account.isClosed = true;
    add(account);
    EXPECT_EQ(menuTitles(account.id),
              (std::vector<std::string>{"Edit Account", "Reconcile…", "New Transaction",
                                        "Reopen Account", "Delete Account…"}));
    perform(account.id, "Reopen Account");
    EXPECT_FALSE(test.index().account(account.id)->isClosed);
}

TEST_F(SidebarViewTest, AsksBeforeDeletingAnAccount) {
    const UUID id = add(makeAccount("Everyday")).id;
    test.panels.confirms = false;
    perform(id, "Delete Account…");
    ASSERT_EQ(test.panels.confirmations.size(), 1U);
    const ConfirmationRequest& request = test.panels.confirmations[0];
    EXPECT_EQ(request.title, "Delete Everyday?");
    EXPECT_EQ(request.message, "All of this account’s transactions will be removed. Transfers to "
                               "other accounts stay but become uncategorized.");
    EXPECT_EQ(request.confirmTitle, "Delete Account");
    EXPECT_TRUE(request.isDestructive);
    EXPECT_NE(test.index().account(id), nullptr);
}

TEST_F(SidebarViewTest, AsksAboutAnAccountWithALineBreakInItsNameOnOneLine) {
    test.panels.confirms = false;
    perform(add(makeAccount("Every\nday")).id, "Delete Account…");
    ASSERT_EQ(test.panels.confirmations.size(), 1U);
    EXPECT_EQ(test.panels.confirmations[0].title, "Delete Every\\nday?");
}

TEST_F(SidebarViewTest, LandsOnTheDashboardAfterDeletingTheSelectedAccount) {
    const UUID id = add(makeAccount("Everyday")).id;
    test.appState->setSelection(SidebarItem::account(id));
    bool existedWhenLeft = false;
    const Subscription watching = test.appState->selectionChanged.observe(
        [&] { existedWhenLeft = test.index().account(id) != nullptr; });
    view.requestDeletion(id);
    EXPECT_EQ(test.index().account(id), nullptr);
    EXPECT_EQ(test.appState->selection(), SidebarItem{SidebarItem::Kind::dashboard});
    EXPECT_TRUE(existedWhenLeft);
    EXPECT_EQ(test.undoManager->undoActionName(), "Delete Account");
}

TEST_F(SidebarViewTest, KeepsTheSelectionWhenAnotherAccountIsDeleted) {
    const UUID shown = add(makeAccount("Everyday")).id;
    const UUID other = add(makeAccount("Spare")).id;
    test.appState->setSelection(SidebarItem::account(shown));
    view.requestDeletion(other);
    EXPECT_EQ(test.appState->selectedAccountID(), shown);
    EXPECT_EQ(test.library().accounts.size(), 1U);
}

TEST_F(SidebarViewTest, AddsFromItsMenu) {
    const auto entries = view.addMenu();
    ASSERT_EQ(entries.size(), 4U);
    EXPECT_EQ(entries[0].title, "New Account…");
    EXPECT_EQ(entries[1].title, "New Category…");
    EXPECT_EQ(entries[2].title, "New Reminder…");
    EXPECT_EQ(entries[3].title, "Show Closed Accounts");
    EXPECT_EQ(entries[3].isChecked, false);
    EXPECT_TRUE(entries[3].startsGroup);
    EXPECT_EQ(entries[0].symbolName, "building.columns");
    EXPECT_EQ(entries[1].symbolName, "tag");
    EXPECT_EQ(entries[2].symbolName, "calendar.badge.plus");
    entries[0].perform();
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::NewAccount{}});
    entries[1].perform();
    EXPECT_EQ(test.appState->sheet(),
              (ActiveSheet{ActiveSheet::Category{.kind = CategoryKind::expense}}));
    entries[2].perform();
    EXPECT_EQ(test.appState->sheet(), ActiveSheet{ActiveSheet::Scheduled{}});
    entries[3].perform();
    EXPECT_EQ(view.addMenu()[3].isChecked, true);
}

} // namespace
} // namespace oakfen
