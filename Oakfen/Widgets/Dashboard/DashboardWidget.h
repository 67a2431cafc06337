#pragma once

#include <QWidget>
#include <string>
#include <vector>

#include "Oakfen/Views/Dashboard/DashboardView.h"
#include "OakfenCore/Support/Values/Observers.h"

class QLabel;

namespace oakfen {

/// Draws the start screen.
class DashboardWidget final : public QWidget {
    Q_OBJECT

public:
    explicit DashboardWidget(AppEnvironment& environment, QWidget* parent = nullptr);

private:
    void refresh();
    [[nodiscard]] QWidget* makeEmptyState();
    [[nodiscard]] QWidget* makeSteps(const std::vector<DashboardView::Step>& steps);

    DashboardView view_;
    QLabel* greeting_;
    QLabel* date_;
    QWidget* body_ = nullptr;
    /// What the body was made for: the texts of its steps; none for the empty state.
    std::vector<std::string> shownTexts_;
    Subscription libraryChanged_;
    Subscription hourChanged_;
};

} // namespace oakfen
