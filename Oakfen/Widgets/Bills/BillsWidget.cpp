#include "Oakfen/Widgets/Bills/BillsWidget.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "Oakfen/Widgets/Bills/FigureCard.h"
#include "Oakfen/Widgets/Bills/ListRow.h"
#include "Oakfen/Widgets/Bills/ProjectionCard.h"
#include "Oakfen/Widgets/Bills/ReminderGrid.h"
#include "Oakfen/Widgets/Bills/UpcomingList.h"
#include "Oakfen/Widgets/Components/Card.h"
#include "Oakfen/Widgets/Components/EmptyStateWidget.h"
#include "Oakfen/Widgets/Components/Mnemonics.h"
#include "Oakfen/Widgets/Components/SegmentedChoice.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "OakfenCore/Support/Text/Formatting.h"

namespace oakfen {

BillsWidget::BillsWidget(AppEnvironment& environment, QWidget* parent)
    : Page(tr("Bills & Income"), parent), view_(environment),
      newReminder_(
          addTool("plus", tr("New Reminder"), tr("Schedule a bill, paycheque or transfer"))),
      projection_(nullptr) {
    connect(newReminder_, &QToolButton::clicked, this, [this] { view_.newReminder(); });
    addFigures();
    projection_ = new ProjectionCard(view_, environment.clock);
    column()->addWidget(projection_);
    addUpcoming();
    addReminders();
    column()->addStretch(1);
    refresh();
    changed_ = view_.changed.observe([this] { refresh(); });
}

void BillsWidget::addFigures() {
    auto* row = new QHBoxLayout;
    row->setSpacing(2 * Theme::grid);
    for (const BillsContent::Figure& figure : view_.content()->figures) {
        figures_.push_back(new FigureCard(figure));
        row->addWidget(figures_.back(), 1);
    }
    column()->addLayout(row);
}

void BillsWidget::addUpcoming() {
    QStringList words;
    for (const HorizonChoice& each : BillsView::horizons) {
        words.append(qt(each.title));
    }
    auto* card = new Card(tr("Upcoming"));
    card->fillToEdges();
    horizon_ = new SegmentedChoice(tr("Horizon"), words);
    horizon_->chosen = [this] {
        const auto place = static_cast<std::size_t>(horizon_->choice());
        view_.setHorizonDays(BillsView::horizons.at(place).days);
    };
    card->setAccessory(horizon_);
    empty_ = new EmptyStateWidget(BillsView::emptyState());
    constexpr int emptyHeight = 240;
    empty_->setMinimumHeight(emptyHeight);
    beforeRows_ = empty_->addButton(tr("New Reminder"), true, [this] { view_.newReminder(); });
    upcoming_ = new UpcomingList(view_);
    upcoming_->keyboardMoved = [this](QWidget* widget) { follow(widget); };
    card->content()->addWidget(empty_);
    more_ = new QPushButton;
    more_->setAutoDefault(false);
    more_->setToolTip(tr("List more of what is due in these days"));
    Theme::setTrait(*more_, "link");
    leaveWithoutLetter(*more_);
    connect(more_, &QPushButton::clicked, this, [this] { listMore(); });
    card->content()->addWidget(upcoming_);
    card->content()->addWidget(more_, 0, Qt::AlignHCenter);
    column()->addWidget(card);
}

void BillsWidget::addReminders() {
    reminderCard_ = new Card(tr("All Reminders"), "list.bullet");
    reminderCard_->fillToEdges();
    reminders_ = new ReminderGrid(view_);
    auto* nothing = new QLabel(tr("There are no reminders yet."));
    nothing->setContentsMargins(ListRow::padding, 0, ListRow::padding, 2 * Theme::grid);
    Theme::setText(*nothing, TextStyle::body, ThemeColor::secondaryText);
    noReminders_ = nothing;
    reminderCard_->content()->addWidget(noReminders_);
    reminderCard_->content()->addWidget(reminders_);
    column()->addWidget(reminderCard_);
}

void BillsWidget::refresh() {
    const std::shared_ptr<const BillsContent> earlier = std::exchange(shown_, view_.content());
    for (std::size_t each = 0; each < figures_.size(); ++each) {
        figures_[each]->showFigure(shown_->figures[each]);
    }
    const auto* horizon =
        std::ranges::find(BillsView::horizons, shown_->horizonDays, &HorizonChoice::days);
    horizon_->choose(static_cast<int>(horizon - BillsView::horizons.begin()));
    projection_->showProjection(shown_->projection);
    if (earlier == nullptr || earlier->days != shown_->days) {
        upcoming_->showDays(shown_->days);
        upcoming_->setVisible(!shown_->days.empty());
        empty_->setVisible(shown_->days.empty());
    }
    if (earlier == nullptr || earlier->reminders != shown_->reminders) {
        showReminders();
    }
    QWidget* lastOfRows = upcoming_->putInTabOrder(beforeRows_);
    setTabOrder(lastOfRows, more_);
    showRest(*lastOfRows);
    reminders_->putInTabOrder(more_);
    fitFigures();
}

void BillsWidget::showReminders() {
    const bool isAny = !shown_->reminders.empty();
    reminderCard_->setNote(qt(shown_->reminderCount));
    reminders_->showReminders(shown_->reminders);
    reminders_->setVisible(isAny);
    noReminders_->setVisible(!isAny);
}

void BillsWidget::showRest(QWidget& lastOfRows) {
    const std::size_t count = std::min(shown_->hiddenCount, BillsView::rowsAtOnce);
    const QString title = tr("Show %1 More").arg(qt(countText(count)));
    more_->setText(title);
    more_->setAccessibleName(title);
    if (count == 0 && more_->hasFocus()) {
        // Else the toolkit would scroll on to what comes after the list.
        lastOfRows.setFocus(Qt::OtherFocusReason);
    }
    more_->setVisible(count > 0);
}

void BillsWidget::listMore() {
    const std::size_t first = upcoming_->rows().size();
    const bool hadKeyboard = more_->hasFocus();
    view_.showMore();
    QPushButton* next = hadKeyboard ? upcoming_->enterButtonFrom(first) : nullptr;
    if (next == nullptr) {
        return;
    }
    next->setFocus(Qt::OtherFocusReason);
    // The page can scroll there once it has grown.
    const auto show = [this, next] {
        if (next->hasFocus()) {
            follow(next);
        }
    };
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, next, show, Qt::SingleShotConnection);
}

void BillsWidget::fitFigures() {
    // Measured with the notes beside the titles, so that the answer doesn't depend on the last one.
    int needed = 2 * static_cast<int>(figures_.size() - 1) * Theme::grid;
    for (FigureCard* each : figures_) {
        needed += each->wideWidth();
    }
    for (FigureCard* each : figures_) {
        each->setNarrow(needed > columnWidth());
    }
}

void BillsWidget::resizeEvent(QResizeEvent* event) {
    Page::resizeEvent(event);
    fitFigures();
}

void BillsWidget::follow(QWidget* widget) {
    if (widget != nullptr) {
        ensureWidgetVisible(widget);
    } else {
        newReminder_->setFocus(Qt::OtherFocusReason);
    }
}

} // namespace oakfen
