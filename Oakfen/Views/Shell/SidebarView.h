#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Oakfen/MenuEntry.h"
#include "Oakfen/Views/Screen.h"

namespace oakfen {

/// What the left column shows.
struct SidebarContent {
    /// An amount.
    struct Figure {
        std::string text;
        /// In few characters, for where no line holds the whole text.
        std::string compact;
        bool isNegative = false;

        friend bool operator==(const Figure&, const Figure&) = default;
    };
    struct OverviewRow {
        SidebarItem item;
        std::string title;
        std::string symbolName;
        /// A number to draw attention; zero for none.
        int badge = 0;

        friend bool operator==(const OverviewRow&, const OverviewRow&) = default;
    };
    struct AccountRow {
        UUID id;
        std::string name;
        std::string symbolName;
        bool isClosed = false;
        Figure balance;
        /// "42% of limit used", where the account has a limit.
        std::optional<std::string> detail = {};

        friend bool operator==(const AccountRow&, const AccountRow&) = default;
    };
    struct Section {
        std::string title;
        std::vector<AccountRow> rows;
        /// What the rows add up to.
        Figure total;

        friend bool operator==(const Section&, const Section&) = default;
    };
    struct Footer {
        Figure netWorth;
        Figure assets;
        Figure liabilities;

        friend bool operator==(const Footer&, const Footer&) = default;
    };

    std::vector<OverviewRow> overview;
    /// The groups that have an account to show, in order.
    std::vector<Section> sections;
    Footer footer;

    friend bool operator==(const SidebarContent&, const SidebarContent&) = default;
};

/// The left column: the overview, the accounts by group, net worth and the add menu.
class SidebarView final : public Screen<SidebarContent> {
public:
    explicit SidebarView(AppEnvironment& environment);

    [[nodiscard]] bool showsClosedAccounts() const;
    void toggleClosedAccounts();

    /// The lines of an account's context menu; none for an account that is gone.
    [[nodiscard]] std::vector<MenuEntry> contextMenu(const UUID& accountID);
    [[nodiscard]] std::vector<MenuEntry> addMenu();
    /// Asks whether to delete the account, and does so if confirmed.
    void requestDeletion(const UUID& accountID);

protected:
    [[nodiscard]] SidebarContent derive(const SidebarContent* earlier) const override;

private:
    [[nodiscard]] int badge(const SidebarItem& item) const;
    [[nodiscard]] std::vector<SidebarContent::OverviewRow> overview() const;
    [[nodiscard]] std::vector<SidebarContent::Section> sections() const;
    [[nodiscard]] SidebarContent::Section section(AccountGroup group) const;
    [[nodiscard]] SidebarContent::AccountRow row(const Account& account,
                                                 const Decimal& balance) const;
    [[nodiscard]] SidebarContent::Figure figure(const Decimal& amount) const;
    [[nodiscard]] SidebarContent::Footer footer() const;
    [[nodiscard]] MenuEntry closeOrReopen(const Account& account);

    Subscription statusChanged_;
    Subscription closedAccountsChanged_;
};

/// "42% of limit used" for what owes part of its limit; nothing for an account without one.
[[nodiscard]] std::optional<std::string> creditUseText(const Account& account,
                                                       const Decimal& balance);

} // namespace oakfen
