#include "Oakfen/Widgets/Dashboard/DashboardWidget.h"

#include "Oakfen/Widgets/Components/EmptyStateWidget.h"
#include "Oakfen/Widgets/Components/StepButton.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

DashboardWidget::DashboardWidget(AppEnvironment& environment, QWidget* parent)
    : QWidget(parent), view_(environment), greeting_(new QLabel(this)), date_(new QLabel(this)) {
    setAccessibleName(QStringLiteral("Dashboard"));
    Theme::setText(*greeting_, TextStyle::title);
    Theme::setText(*date_, TextStyle::body, ThemeColor::secondaryText);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Theme::grid * 4, Theme::grid * 3, Theme::grid * 4, Theme::grid * 3);
    column->setSpacing(Theme::grid / 2);
    column->addWidget(greeting_);
    column->addWidget(date_);
    column->addSpacing(Theme::grid * 2);
    refresh();
    libraryChanged_ = environment.store.libraryChanged.observe([this] { refresh(); });
    hourChanged_ = environment.dayChange.hourChanged.observe([this] { refresh(); });
}

void DashboardWidget::refresh() {
    greeting_->setText(qt(view_.greeting()));
    date_->setText(qt(view_.dateText()));

    std::vector<DashboardView::Step> steps;
    std::vector<std::string> texts;
    if (!view_.isEmpty()) {
        steps = view_.steps();
        for (const DashboardView::Step& step : steps) {
            texts.push_back(step.title + step.text + (step.isEnabled ? "" : "-"));
        }
    }
    if (body_ != nullptr && texts == shownTexts_) {
        return;
    }
    shownTexts_ = std::move(texts);
    if (body_ != nullptr) {
        // Later: what changed the document may be one of its own buttons.
        body_->hide();
        body_->deleteLater();
    }
    body_ = steps.empty() ? makeEmptyState() : makeSteps(steps);
    static_cast<QVBoxLayout*>(layout())->addWidget(body_, 1);
    body_->show();
}

QWidget* DashboardWidget::makeEmptyState() {
    auto* empty = new EmptyStateWidget(DashboardView::emptyState(), this);
    empty->addButton(QStringLiteral("Add Account"), true, [this] { view_.addAccount(); });
    return empty;
}

QWidget* DashboardWidget::makeSteps(const std::vector<DashboardView::Step>& steps) {
    auto* body = new QWidget(this);
    auto* column = new QVBoxLayout(body);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Theme::grid);
    for (const DashboardView::Step& step : steps) {
        auto* button = new StepButton(step.symbolName, qt(step.title), qt(step.text), body);
        button->setEnabled(step.isEnabled);
        button->setMaximumWidth(560);
        connect(button, &QAbstractButton::clicked, this, step.perform);
        column->addWidget(button);
    }
    column->addStretch(1);
    return body;
}

} // namespace oakfen
