#pragma once

#include <functional>
#include <string>
#include <vector>

#include "Oakfen/Views/Components/EmptyState.h"
#include "Oakfen/Views/Dashboard/DashboardContent.h"
#include "Oakfen/Views/Screen.h"

namespace oakfen {

/// The screen shown at start: a greeting and seven cards, each of which sums up what lies behind
/// it and leads there.
class DashboardView final : public Screen<DashboardContent> {
public:
    /// A line that leads on, while nothing has been entered yet.
    struct Step {
        std::string symbolName;
        std::string title;
        std::string text;
        std::function<void()> perform;
        bool isEnabled = true;
    };

    explicit DashboardView(AppEnvironment& environment);

    [[nodiscard]] static EmptyState emptyState();
    /// What the button of the empty state does.
    void addAccount();

    /// What one can do next with accounts that hold nothing.
    [[nodiscard]] std::vector<Step> steps();

    /// Shows the screen behind a card.
    void show(SidebarItem::Kind kind);
    /// Goes where the alert leads; nothing happens where it leads nowhere.
    void follow(const AlertsCard::AlertItem& alert);
    /// Shows what makes up a figure.
    void showLines(const FigureLines& figure);
    /// Records the next occurrence of the reminder in the register.
    void enter(const UUID& reminderID);
    /// Opens the entry in its editor.
    void edit(const UUID& entryID);

protected:
    [[nodiscard]] DashboardContent derive(const DashboardContent* earlier) const override;

private:
    void showFirstAccount();

    Subscription hourChanged_;
};

/// What the hour of the day is greeted with.
[[nodiscard]] std::string greeting(Date now, const Calendar& calendar);

} // namespace oakfen
