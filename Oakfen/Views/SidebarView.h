#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Oakfen/AppEnvironment.h"
#include "Oakfen/Views/MenuEntry.h"

namespace oakfen {

/// The left column: the overview, the accounts by group, net worth and the add menu.
class SidebarView {
public:
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
        std::string balance;
        bool isNegative = false;
        /// "42% of limit used", where the account has a limit.
        std::optional<std::string> detail = {};

        friend bool operator==(const AccountRow&, const AccountRow&) = default;
    };
    struct Section {
        std::string title;
        std::vector<AccountRow> rows;

        friend bool operator==(const Section&, const Section&) = default;
    };
    struct Footer {
        std::string netWorth;
        bool isNegative = false;
        std::string assets;
        std::string liabilities;

        friend bool operator==(const Footer&, const Footer&) = default;
    };

    explicit SidebarView(AppEnvironment& environment) : environment_(environment) {}

    [[nodiscard]] bool showsClosedAccounts() const;
    void toggleClosedAccounts();

    [[nodiscard]] std::vector<OverviewRow> overview() const;
    /// The groups that have an account to show, in order.
    [[nodiscard]] std::vector<Section> sections() const;
    [[nodiscard]] Footer footer() const;

    /// The lines of an account's context menu; none for an account that is gone.
    [[nodiscard]] std::vector<MenuEntry> contextMenu(const UUID& accountID);
    [[nodiscard]] std::vector<MenuEntry> addMenu();
    /// Asks whether to delete the account, and does so if confirmed.
    void requestDeletion(const UUID& accountID);

private:
    [[nodiscard]] int badge(const SidebarItem& item) const;
    [[nodiscard]] AccountRow row(const Account& account) const;
    [[nodiscard]] MenuEntry closeOrReopen(const Account& account);

    AppEnvironment& environment_;
};

/// "42% of limit used" for what owes part of its limit; nothing for an account without one.
[[nodiscard]] std::optional<std::string> creditUseText(const Account& account,
                                                       const Decimal& balance);

} // namespace oakfen
