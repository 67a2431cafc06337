#include "Oakfen/Views/Shell/SidebarView.h"

#include "Oakfen/AccountClosing.h"
#include "Oakfen/Reminders.h"
#include "Oakfen/Views/Components/Components.h"
#include "OakfenCore/LibraryOperations/Accounts.h"
#include "OakfenCore/Support/Text/Formatting.h"
#include "OakfenCore/Support/Text/Quotation.h"

namespace oakfen {

namespace {

void deleteAccountAndLeaveIt(AppEnvironment& environment, const UUID& id) {
    // The screen leaves the account before it stops existing.
    if (environment.appState.selectedAccountID() == id) {
        environment.appState.setSelection(SidebarItem{SidebarItem::Kind::dashboard});
    }
    environment.store.mutate("Delete Account",
                             [id](Library& library) { deleteAccount(library, id); });
}

void toggleClosed(AppEnvironment& environment, const UUID& id, const std::string& actionName) {
    const Account* account = environment.store.index().account(id);
    if (account == nullptr) {
        return;
    }
    Account changed = *account;
    changed.isClosed = !changed.isClosed;
    storeAccount(environment, actionName, changed);
}

} // namespace

std::optional<std::string> creditUseText(const Account& account, const Decimal& balance) {
    if (!isLiability(account.type) || !account.creditLimit || !account.creditLimit->isPositive()) {
        return std::nullopt;
    }
    const auto percent =
        wholePercent((-balance).doubleValue() / account.creditLimit->doubleValue());
    return percent ? std::optional(std::to_string(*percent) + "% of limit used") : std::nullopt;
}

SidebarView::SidebarView(AppEnvironment& environment)
    : Screen(environment),
      statusChanged_(environment.store.statusChanged.observe([this] { stateChanged(); })),
      closedAccountsChanged_(
          environment.defaults.observe(settings::showClosedAccounts, [this] { stateChanged(); })) {}

SidebarContent SidebarView::derive(const SidebarContent* /*earlier*/) const {
    return {.overview = overview(), .sections = sections(), .footer = footer()};
}

bool SidebarView::showsClosedAccounts() const {
    return environment_.defaults.get(settings::showClosedAccounts);
}

void SidebarView::toggleClosedAccounts() {
    environment_.defaults.set(settings::showClosedAccounts, !showsClosedAccounts());
}

int SidebarView::badge(const SidebarItem& item) const {
    return item.kind == SidebarItem::Kind::bills ? dueReminderCount(environment_) : 0;
}

std::vector<SidebarContent::OverviewRow> SidebarView::overview() const {
    std::vector<SidebarContent::OverviewRow> rows;
    for (const SidebarItem& item : overviewItems()) {
        rows.push_back(
            {item, std::string(title(item.kind)), std::string(symbolName(item.kind)), badge(item)});
    }
    return rows;
}

SidebarContent::Figure SidebarView::figure(const Decimal& amount) const {
    return {.text = currencyText(amount, environment_.currencyCode()),
            .compact = compactCurrencyText(amount, environment_.currencyCode()),
            .isNegative = amount.isNegative()};
}

SidebarContent::AccountRow SidebarView::row(const Account& account, const Decimal& balance) const {
    return {.id = account.id,
            .name = account.name,
            .symbolName = std::string(symbolName(account.type)),
            .isClosed = account.isClosed,
            .balance = figure(balance),
            .detail = creditUseText(account, balance)};
}

std::vector<SidebarContent::Section> SidebarView::sections() const {
    std::vector<SidebarContent::Section> result;
    for (const AccountGroup group : allCases<AccountGroup>) {
        SidebarContent::Section each = section(group);
        if (!each.rows.empty()) {
            result.push_back(std::move(each));
        }
    }
    return result;
}

SidebarContent::Section SidebarView::section(AccountGroup group) const {
    const LibraryIndex& index = environment_.store.index();
    SidebarContent::Section result{.title = std::string(title(group)), .rows = {}, .total = {}};
    Decimal total;
    for (const Account* account : index.accounts(group, showsClosedAccounts())) {
        const Decimal balance = index.balance(account->id);
        result.rows.push_back(row(*account, balance));
        total += balance;
    }
    result.total = figure(total);
    return result;
}

SidebarContent::Footer SidebarView::footer() const {
    const LibraryIndex& index = environment_.store.index();
    return {.netWorth = figure(index.netWorth()),
            .assets = figure(index.totalAssets()),
            .liabilities = figure(index.totalLiabilities())};
}

MenuEntry SidebarView::closeOrReopen(const Account& account) {
    const std::string name = account.isClosed ? "Reopen Account" : "Close Account";
    return {.title = name,
            .perform = [&environment = environment_, id = account.id,
                        name] { toggleClosed(environment, id, name); },
            .startsGroup = true};
}

std::vector<MenuEntry> SidebarView::contextMenu(const UUID& accountID) {
    const Account* account = environment_.store.index().account(accountID);
    if (account == nullptr) {
        return {};
    }
    AppState& state = environment_.appState;
    std::vector<MenuEntry> entries;
    entries.push_back({.title = "Edit Account", .perform = [&state, accountID] {
                           state.setSheet(ActiveSheet{ActiveSheet::EditAccount{accountID}});
                       }});
    if (!isInvestment(account->type)) {
        entries.push_back({.title = "Reconcile…", .perform = [&state, accountID] {
                               state.setSheet(ActiveSheet{ActiveSheet::Reconcile{accountID}});
                           }});
        entries.push_back({.title = "New Transaction", .perform = [&state, accountID] {
                               state.setSheet(ActiveSheet{ActiveSheet::NewTransaction{accountID}});
                           }});
    }
    entries.push_back(closeOrReopen(*account));
    entries.push_back({.title = "Delete Account…",
                       .perform = [this, accountID] { requestDeletion(accountID); },
                       .isDestructive = true});
    return entries;
}

std::vector<MenuEntry> SidebarView::addMenu() {
    return {{.title = "New Account…",
             .symbolName = "building.columns",
             .perform =
                 [&state = environment_.appState] {
                     state.setSheet(ActiveSheet{ActiveSheet::NewAccount{}});
                 }},
            {.title = "New Category…",
             .symbolName = "tag",
             .perform =
                 [&state = environment_.appState] {
                     state.setSheet(ActiveSheet{ActiveSheet::Category{}});
                 }},
            {.title = "New Reminder…",
             .symbolName = "calendar.badge.plus",
             .perform =
                 [&state = environment_.appState] {
                     state.setSheet(ActiveSheet{ActiveSheet::Scheduled{}});
                 }},
            {.title = "Show Closed Accounts",
             .perform = [this] { toggleClosedAccounts(); },
             .isChecked = showsClosedAccounts(),
             .startsGroup = true}};
}

void SidebarView::requestDeletion(const UUID& accountID) {
    const Account* account = environment_.store.index().account(accountID);
    if (account == nullptr) {
        return;
    }
    const ConfirmationRequest request{
        .title = "Delete " + legible(account->name) + "?",
        .message = "All of this account’s transactions will be removed. Transfers to other "
                   "accounts stay but become uncategorized.",
        .confirmTitle = "Delete Account",
        .isDestructive = true};
    environment_.panels.confirm(request, [&environment = environment_, accountID](bool confirmed) {
        if (confirmed) {
            deleteAccountAndLeaveIt(environment, accountID);
        }
    });
}

} // namespace oakfen
