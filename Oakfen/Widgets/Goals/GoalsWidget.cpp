#include "Oakfen/Widgets/Goals/GoalsWidget.h"

#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include "Oakfen/Widgets/Components/EmptyStateWidget.h"
#include "Oakfen/Widgets/Goals/CardGrid.h"
#include "Oakfen/Widgets/Goals/GoalCardWidget.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

GoalsWidget::GoalsWidget(AppEnvironment& environment, QWidget* parent)
    : Page(qt(title(SidebarItem::Kind::goals)), parent), view_(environment), grid_(new CardGrid) {
    connect(addTool("plus", tr("New Goal"), tr("Set a target to save towards")),
            &QToolButton::clicked, this, [this] { view_.newGoal(); });
    column()->addWidget(grid_);
    column()->addStretch(1);
    showContent();
    changed_ = view_.changed.observe([this] { showContent(); });
}

void GoalsWidget::showContent() {
    const auto content = view_.content();
    // The cards stay where they are, whichever goals they show, and so does the keyboard.
    while (cards_.size() < content->cards.size()) {
        cards_.push_back(makeCard());
    }
    while (cards_.size() > content->cards.size()) {
        cards_.back()->hide();
        cards_.back()->deleteLater();
        cards_.pop_back();
    }
    for (std::size_t place = 0; place < cards_.size(); ++place) {
        cards_[place]->showCard(content->cards[place]);
    }
    grid_->showCards({cards_.begin(), cards_.end()});
    showEmptyState(content->emptyState());
}

GoalCardWidget* GoalsWidget::makeCard() {
    auto* card = new GoalCardWidget(grid_);
    connect(card->editButton(), &QPushButton::clicked, this,
            [this, card] { view_.edit(card->card().id); });
    connect(card->contributeButton(), &QPushButton::clicked, this,
            [this, card] { view_.contribute(card->card().id); });
    if (!cards_.empty()) {
        setTabOrder(cards_.back()->contributeButton(), card->editButton());
    }
    setTabOrder(card->editButton(), card->contributeButton());
    card->show();
    return card;
}

void GoalsWidget::showEmptyState(const std::optional<EmptyState>& state) {
    grid_->setVisible(!state);
    if (state && emptyState_ == nullptr) {
        emptyState_ = new EmptyStateWidget(*state);
        emptyState_->addButton(tr("New Goal"), true, [this] { view_.newGoal(); });
        constexpr int overTheStretch = 100;
        column()->insertWidget(column()->indexOf(grid_), emptyState_, overTheStretch);
    }
    if (emptyState_ != nullptr) {
        emptyState_->setVisible(state.has_value());
    }
}

} // namespace oakfen
