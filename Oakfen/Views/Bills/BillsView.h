#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "Oakfen/MenuEntry.h"
#include "Oakfen/Views/Bills/BillsContent.h"
#include "Oakfen/Views/Components/EmptyState.h"
#include "Oakfen/Views/Screen.h"

namespace oakfen {

/// A choice of how far ahead one looks.
struct HorizonChoice {
    std::string_view title;
    int days = 0;
};

/// What is due in the coming days, what it makes of an account's balance, and all reminders.
class BillsView final : public Screen<BillsContent> {
public:
    static constexpr std::array<HorizonChoice, 4> horizons{
        {{"2 Weeks", 14}, {"30 Days", 30}, {"60 Days", 60}, {"90 Days", 90}}};

    /// How many due dates are listed at first, and come with each wish for more. Few documents have
    /// as many; a weekly reminder that is years overdue has hundreds by itself, and a screen of
    /// thousands would open slowly.
    static constexpr std::size_t rowsAtOnce = 200;

    explicit BillsView(AppEnvironment& environment);

    [[nodiscard]] int horizonDays() const { return horizonDays_; }
    void setHorizonDays(int days);
    /// Lists more of what is due.
    void showMore();
    [[nodiscard]] const std::optional<UUID>& forecastAccountID() const {
        return forecastAccountID_;
    }
    void setForecastAccountID(const std::optional<UUID>& id);

    /// What stands in the place of the days where nothing is due.
    [[nodiscard]] static EmptyState emptyState();

    /// Enters the next occurrence as the reminder has it.
    void enter(const UUID& reminderID);
    /// Moves the reminder on without an entry.
    void skip(const UUID& reminderID);
    /// Opens the sheet that enters it with another amount or on another day.
    void enterOtherwise(const UUID& reminderID);
    void editReminder(const UUID& reminderID);
    void newReminder();
    /// What can be done with an occurrence; `isNext` as its row says.
    [[nodiscard]] std::vector<MenuEntry> contextMenu(const UUID& reminderID, bool isNext);

    // Entries that are tried out: they live as long as the screen and are stored nowhere.
    void setTriesOut(bool triesOut);
    /// Begins an empty one for today, and returns its id.
    UUID addTriedEntry();
    /// Replaces the one of that id; nothing for an id that is gone.
    void changeTriedEntry(const WhatIfEntry& entry);
    void removeTriedEntry(const UUID& id);

protected:
    [[nodiscard]] BillsContent derive(const BillsContent* earlier) const override;

private:
    [[nodiscard]] Date horizon() const;
    /// The one that was chosen; once it is gone, the first again.
    [[nodiscard]] std::optional<UUID> accountToProject() const;
    [[nodiscard]] std::optional<UUID> firstBankingAccount() const;
    [[nodiscard]] std::vector<BillsContent::Figure>
    figures(const std::vector<Occurrence>& upcoming) const;
    [[nodiscard]] std::vector<BillsContent::Day> days(std::span<const Occurrence> upcoming) const;
    [[nodiscard]] BillsContent::Row row(const Occurrence& occurrence) const;
    [[nodiscard]] std::vector<BillsContent::Reminder> reminders() const;
    [[nodiscard]] BillsContent::Projection
    projection(const std::vector<Occurrence>& upcoming) const;
    [[nodiscard]] std::vector<BillsContent::TriedRow> triedRows() const;
    [[nodiscard]] std::string money(const Decimal& amount) const;
    /// Of an amount in a list: what comes in is set off, what goes out only has its minus.
    [[nodiscard]] MoneyText listed(const ScheduledTransaction& reminder) const;

    int horizonDays_ = 30;
    std::size_t mostRows_ = rowsAtOnce;
    std::optional<UUID> forecastAccountID_;
    bool triesOut_ = false;
    std::vector<WhatIfEntry> tried_;
    Subscription dayChanged_;
};

} // namespace oakfen
