#include "Oakfen/Widgets/Dashboard/BudgetPart.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "Oakfen/Widgets/Components/BudgetBarWidget.h"
#include "Oakfen/Widgets/Components/Card.h"
#include "Oakfen/Widgets/Components/ElidedLabel.h"
#include "Oakfen/Widgets/Components/MoneyLabel.h"
#include "Oakfen/Widgets/Dashboard/CardRows.h"
#include "Oakfen/Widgets/Dashboard/RowButton.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

namespace {

constexpr int rowHeight = 29;

QLabel* makeQuietLabel() {
    auto* label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    Theme::setText(*label, TextStyle::body, ThemeColor::secondaryText);
    return label;
}

/// A category's name, how far its budget is used up, and what is left of it.
class BudgetRow final : public QWidget {
public:
    BudgetRow()
        : name_(new ElidedLabel(TextStyle::body, ThemeColor::text)), bar_(new BudgetBarWidget),
          left_(new MoneyLabel) {
        auto* line = new QHBoxLayout(this);
        line->setContentsMargins(0, 0, 0, 0);
        line->setSpacing(Theme::grid / 2);
        line->addWidget(name_, 5);
        line->addSpacing(Theme::grid);
        line->addWidget(bar_, 9);
        left_->setAlignment(Qt::AlignRight);
        // The bars of all rows begin and end alike, however long an amount is.
        left_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        left_->setMinimumWidth(1);
        line->addWidget(left_, 4);
        line->addWidget(makeQuietLeft());
    }

    void show(const BudgetSummaryCard::Row& row) {
        name_->showText(qt(row.name));
        bar_->setFraction(row.fraction);
        left_->setMoney(row.left);
    }

private:
    static QLabel* makeQuietLeft() {
        QLabel* label = makeQuietLabel();
        label->setText(QStringLiteral("left"));
        return label;
    }

    ElidedLabel* name_;
    BudgetBarWidget* bar_;
    MoneyLabel* left_;
};

} // namespace

BudgetPart::BudgetPart(DashboardView& view, Card& card)
    : view_(view), head_(new RowButton(Theme::grid * 5 / 2)),
      spent_(new MoneyLabel(TextStyle::bodyStrong)), budgeted_(makeQuietLabel()),
      percent_(makeQuietLabel()), bar_(new BudgetBarWidget),
      rows_(new CardRows(QStringLiteral("Set monthly targets in Budget to track spending."))) {
    QPushButton* link =
        card.addLink(QStringLiteral("Open Budget"), QStringLiteral("Show the whole budget"));
    QObject::connect(link, &QPushButton::clicked, rows_,
                     [this] { view_.show(SidebarItem::Kind::budget); });
    QObject::connect(head_, &QAbstractButton::clicked, rows_,
                     [this] { view_.showLines(shown_.lines); });
    head_->setToolTip(QStringLiteral("Show what was spent in all budgeted categories"));
    head_->line()->setSpacing(Theme::grid / 2);
    head_->line()->addWidget(spent_);
    head_->line()->addWidget(budgeted_);
    head_->line()->addStretch(1);
    head_->line()->addWidget(percent_);
    rows_->setPlain();
    rows_->spread();
    card.content()->setSpacing(Theme::grid / 2);
    card.content()->addWidget(head_);
    card.content()->addWidget(bar_);
    card.content()->addWidget(rows_, 1);
    head_->hide();
    bar_->hide();
}

QWidget* BudgetPart::makeRow() {
    auto* row = new RowButton(rowHeight);
    row->line()->addWidget(new BudgetRow);
    QObject::connect(row, &QAbstractButton::clicked, rows_, [this, row] {
        const auto place = std::ranges::find(rows_->rows(), static_cast<QWidget*>(row));
        view_.showLines(shown_.rows[static_cast<std::size_t>(place - rows_->rows().begin())].lines);
    });
    return row;
}

void BudgetPart::show(const BudgetSummaryCard& content) {
    if (content == shown_) {
        return;
    }
    shown_ = content;
    const bool hasBudget = !content.rows.empty();
    head_->setVisible(hasBudget);
    bar_->setVisible(hasBudget);
    spent_->setMoney({.text = content.spent});
    budgeted_->setText(QStringLiteral("of ") + qt(content.budgeted));
    percent_->setText(qt(content.percent));
    head_->setAccessibleName(
        qt(content.spent + " of " + content.budgeted + ", " + content.percent));
    bar_->setFraction(content.fraction);
    rows_->setCount(content.rows.size(), [this] { return makeRow(); });
    for (std::size_t index = 0; index < content.rows.size(); ++index) {
        const BudgetSummaryCard::Row& row = content.rows[index];
        auto& button = *static_cast<RowButton*>(rows_->rows()[index]);
        static_cast<BudgetRow*>(button.line()->itemAt(0)->widget())->show(row);
        button.setAccessibleName(qt(row.name + ", " + row.left.text + " left"));
        button.setToolTip(
            plainToolTip(qt(row.name + ": " + budgetBar(row.fraction).accessibilityText +
                            "\nClick to show what was spent here.")));
    }
}

} // namespace oakfen
