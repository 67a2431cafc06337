#include "Oakfen/Widgets/Budget/BudgetTotalsWidget.h"

#include <QEvent>
#include <QVBoxLayout>
#include <algorithm>

#include "Oakfen/Widgets/Components/BudgetBarWidget.h"
#include "Oakfen/Widgets/Components/Card.h"
#include "Oakfen/Widgets/Components/ElidedLabel.h"
#include "Oakfen/Widgets/Components/MetricButton.h"
#include "Oakfen/Widgets/Components/MetricWidget.h"
#include "Oakfen/Widgets/Components/MoneyLabel.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

namespace {

constexpr int gap = 2 * Theme::grid;
constexpr int barHeight = 6;

} // namespace

BudgetTotalsWidget::BudgetTotalsWidget(BudgetView& view, QWidget* parent) : QWidget(parent) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    income_ = addTotals(view, tr("Income"), CategoryKind::income);
    spending_ = addTotals(view, tr("Spending"), CategoryKind::expense);
    addLeftToBudget();
}

Card* BudgetTotalsWidget::addCard(const QString& title) {
    auto* card = new Card(title, {}, this);
    cards_.push_back(card);
    return card;
}

BudgetTotalsWidget::Figures BudgetTotalsWidget::addTotals(BudgetView& view, const QString& title,
                                                          CategoryKind kind) {
    QVBoxLayout* content = addCard(title)->content();
    Figures figures{new MetricButton, new MetricWidget({}), new BudgetBarWidget};
    figures.actual->setToolTip(tr("Show entries"));
    connect(figures.actual, &QAbstractButton::clicked, this,
            [&view, kind] { view.showEntries(kind); });
    figures.bar->setFixedHeight(barHeight);
    auto* row = new QHBoxLayout;
    row->setSpacing(gap);
    row->addWidget(figures.actual, 1);
    row->addWidget(figures.budget, 1);
    content->addLayout(row);
    content->addStretch(1);
    content->addWidget(figures.bar);
    return figures;
}

void BudgetTotalsWidget::addLeftToBudget() {
    QVBoxLayout* content = addCard(tr("Left to Budget"))->content();
    auto* caption = new ElidedLabel(TextStyle::caption, ThemeColor::secondaryText);
    caption->showText(tr("Planned income less planned spending"));
    // Its figure stands on the line of the others.
    caption->setFixedHeight(QFontMetrics(Theme::font(TextStyle::capitals)).height());
    left_ = new MoneyLabel(TextStyle::figure);
    auto* column = new QVBoxLayout;
    column->setSpacing(0);
    column->addWidget(caption);
    column->addWidget(left_);
    content->addLayout(column);
    content->addStretch(1);
}

void BudgetTotalsWidget::Figures::show(const BudgetTotals& totals) const {
    actual->setMetric(totals.actual);
    actual->setEnabled(totals.hasActual);
    budget->setMetric(totals.budget);
    bar->setFraction(totals.fraction);
}

void BudgetTotalsWidget::showContent(const BudgetContent& content) {
    income_.show(content.income);
    spending_.show(content.spending);
    left_->setMoney(content.leftToBudget);
}

std::vector<QRect> BudgetTotalsWidget::places(int width) const {
    int cardWidth = 0;
    int height = 0;
    for (const Card* card : cards_) {
        cardWidth = std::max(cardWidth, card->minimumSizeHint().width());
        height = std::max(height, card->minimumSizeHint().height());
    }
    const int count = static_cast<int>(cards_.size());
    const int columns = std::clamp((width + gap) / (cardWidth + gap), 1, count);
    std::vector<QRect> result;
    for (int each = 0; each < count; ++each) {
        const int inRow = std::min(columns, count - (each - each % columns));
        const int column = each % columns;
        const int left = column * (width + gap) / inRow;
        const int right = (column + 1) * (width + gap) / inRow - gap;
        result.emplace_back(left, each / columns * (height + gap), right - left, height);
    }
    return result;
}

int BudgetTotalsWidget::heightForWidth(int width) const {
    return places(width).back().bottom() + 1;
}

QSize BudgetTotalsWidget::sizeHint() const {
    return {minimumSizeHint().width(), heightForWidth(width())};
}

QSize BudgetTotalsWidget::minimumSizeHint() const {
    QSize least;
    for (const Card* card : cards_) {
        least = least.expandedTo(card->minimumSizeHint());
    }
    return least;
}

bool BudgetTotalsWidget::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest) {
        // A longer figure may need another arrangement.
        updateGeometry();
        place();
    }
    return QWidget::event(event);
}

void BudgetTotalsWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    place();
}

void BudgetTotalsWidget::place() {
    const std::vector<QRect> places = this->places(width());
    for (std::size_t each = 0; each < cards_.size(); ++each) {
        cards_[each]->setGeometry(places[each]);
    }
}

} // namespace oakfen
