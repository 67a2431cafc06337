#pragma once

#include <QWidget>
#include <vector>

#include "Oakfen/Views/Dashboard/DashboardView.h"

namespace oakfen {

class StepButton;

/// What one can do first with accounts that hold nothing, side by side. The buttons stay the same
/// whatever they say, and so does the keyboard's place among them.
class FirstSteps final : public QWidget {
    Q_OBJECT

public:
    explicit FirstSteps(QWidget* parent = nullptr);

    void show(std::vector<DashboardView::Step> steps);

private:
    std::vector<StepButton*> buttons_;
    std::vector<DashboardView::Step> steps_;
};

} // namespace oakfen
