#pragma once

#include <functional>
#include <string>
#include <vector>

#include "Oakfen/AppEnvironment.h"
#include "Oakfen/Views/Components/EmptyState.h"

namespace oakfen {

/// The screen shown at start.
class DashboardView {
public:
    /// A line that leads on.
    struct Step {
        std::string symbolName;
        std::string title;
        std::string text;
        std::function<void()> perform;
        bool isEnabled = true;
    };

    explicit DashboardView(AppEnvironment& environment) : environment_(environment) {}

    [[nodiscard]] std::string greeting() const;
    [[nodiscard]] std::string dateText() const;

    /// Whether there is no account at all, closed ones included.
    [[nodiscard]] bool isEmpty() const;
    [[nodiscard]] static EmptyState emptyState();
    /// What the button of the empty state does.
    void addAccount();

    /// What one can do next.
    [[nodiscard]] std::vector<Step> steps();

private:
    void showFirstAccount();

    AppEnvironment& environment_;
};

} // namespace oakfen
