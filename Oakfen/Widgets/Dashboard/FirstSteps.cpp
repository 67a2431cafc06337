#include "Oakfen/Widgets/Dashboard/FirstSteps.h"

#include <QHBoxLayout>
#include <utility>

#include "Oakfen/Widgets/Components/StepButton.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

constexpr std::size_t mostSteps = 3;

} // namespace

FirstSteps::FirstSteps(QWidget* parent) : QWidget(parent) {
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(2 * Theme::grid);
    for (std::size_t index = 0; index < mostSteps; ++index) {
        auto* button = new StepButton(this);
        button->setMinimumWidth(1);
        // A copy: what it does may end the screen.
        connect(button, &QAbstractButton::clicked, this, [this, index] {
            const std::function<void()> perform = steps_[index].perform;
            perform();
        });
        line->addWidget(button, 1);
        buttons_.push_back(button);
    }
}

void FirstSteps::show(std::vector<DashboardView::Step> steps) {
    steps_ = std::move(steps);
    for (std::size_t index = 0; index < buttons_.size(); ++index) {
        StepButton& button = *buttons_[index];
        button.setVisible(index < steps_.size());
        if (index < steps_.size()) {
            const DashboardView::Step& step = steps_[index];
            button.showStep(step.symbolName, qt(step.title), qt(step.text));
            button.setEnabled(step.isEnabled);
        }
    }
}

} // namespace oakfen
