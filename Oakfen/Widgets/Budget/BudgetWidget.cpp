#include "Oakfen/Widgets/Budget/BudgetWidget.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "Oakfen/Widgets/Budget/BudgetTableWidget.h"
#include "Oakfen/Widgets/Budget/BudgetTotalsWidget.h"
#include "Oakfen/Widgets/Components/Card.h"
#include "Oakfen/Widgets/Components/CommandMenu.h"
#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Components/MenuBuilder.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/SymbolIcons.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

BudgetWidget::BudgetWidget(AppEnvironment& environment, QWidget* parent)
    : Page(tr("Budget"), parent), view_(environment), autofillMenu_(new CommandMenu(this)),
      month_(new QLabel), thisMonth_(new QPushButton(tr("This Month"))),
      showsAll_(new QCheckBox(tr("Show All Categories"))), totals_(new BudgetTotalsWidget(view_)),
      spending_(new BudgetTableWidget(view_, tr("Spending"), view_.content()->spendingTable)),
      income_(new BudgetTableWidget(view_, tr("Income"), view_.content()->incomeTable)) {
    addAutofill();
    addMonthRow();
    column()->addWidget(totals_);
    addShowsAll();
    addTable(spending_);
    addTable(income_);
    column()->addStretch(1);
    spending_->passed = [this](bool forward) { return forward && income_->editEnd(true); };
    income_->passed = [this](bool forward) { return !forward && spending_->editEnd(false); };
    changed_ = view_.changed.observe([this] { showContent(); });
    showContent();
}

BudgetWidget::~BudgetWidget() {
    // Before the view, to which the tables hand their input.
    delete takeWidget();
}

void BudgetWidget::addAutofill() {
    QToolButton* tool = addTool("wand.and.stars", tr("Auto-Fill"),
                                tr("Set budget amounts from your spending history"));
    tool->setMenu(autofillMenu_);
    tool->setPopupMode(QToolButton::InstantPopup);
    connect(autofillMenu_, &QMenu::aboutToShow, this,
            [this] { refreshMenu(*autofillMenu_, view_.autofillMenu()); });
    fillMenu(*autofillMenu_, view_.autofillMenu());
}

QPushButton* BudgetWidget::addMonthButton(const char* symbolName, const QString& help,
                                          const QKeySequence& keys, int months) {
    constexpr int size = 28;
    auto* button = new QPushButton;
    button->setIcon(symbolIcon(symbolName, ThemeColor::text));
    button->setFixedSize(size, size);
    button->setAutoDefault(false);
    button->setAccessibleName(help);
    button->setToolTip(
        QStringLiteral("%1 (%2)").arg(help, keys.toString(QKeySequence::NativeText)));
    const auto shift = [this, months] { view_.shift(months); };
    connect(button, &QPushButton::clicked, this, shift);
    connect(new QShortcut(keys, this), &QShortcut::activated, this, shift);
    return button;
}

void BudgetWidget::addMonthRow() {
    constexpr int usualMonthWidth = 152;
    auto* row = new QHBoxLayout;
    row->setSpacing(Theme::grid);
    column()->addLayout(row);
    row->addWidget(addMonthButton("chevron.left", tr("Previous month"),
                                  QKeySequence(Qt::CTRL | Qt::Key_PageUp), -1));
    month_->setTextFormat(Qt::PlainText);
    month_->setAlignment(Qt::AlignCenter);
    month_->setMinimumWidth(usualMonthWidth);
    Theme::setText(*month_, TextStyle::headline);
    row->addWidget(month_);
    row->addWidget(addMonthButton("chevron.right", tr("Next month"),
                                  QKeySequence(Qt::CTRL | Qt::Key_PageDown), 1));
    row->addSpacing(Theme::grid);
    thisMonth_->setAutoDefault(false);
    thisMonth_->setToolTip(tr("Go back to the month that it is"));
    connect(thisMonth_, &QPushButton::clicked, this, [this] {
        if (thisMonth_->hasFocus()) {
            // Disabled in a moment; the keyboard stays in the row.
            focusPreviousChild();
        }
        view_.showThisMonth();
    });
    row->addWidget(thisMonth_);
    row->addStretch(1);
}

void BudgetWidget::addShowsAll() {
    showsAll_->setToolTip(tr("Show categories with no budget and no entries too"));
    connect(showsAll_, &QCheckBox::toggled, this,
            [this](bool isChecked) { view_.setShowsAllCategories(isChecked); });
    column()->addWidget(showsAll_, 0, Qt::AlignRight);
}

void BudgetWidget::addTable(BudgetTableWidget* table) {
    auto* card = new Card(table->table()->accessibleName());
    card->fillToEdges();
    card->content()->addWidget(table);
    column()->addWidget(card);
    table->reached = [this, table](const QRect& place) {
        const QPoint centre = table->mapTo(widget(), place.center());
        ensureVisible(centre.x(), centre.y(), 0, 2 * place.height());
    };
}

void BudgetWidget::showContent() {
    const auto shown = view_.content();
    month_->setText(qt(shown->monthTitle));
    // The buttons stay where they are from month to month.
    month_->setMinimumWidth(std::max(month_->minimumWidth(), month_->sizeHint().width()));
    thisMonth_->setEnabled(!shown->isThisMonth);
    showsAll_->setChecked(shown->showsAllCategories);
    totals_->showContent(*shown);
    spending_->showTable(shown->spendingTable);
    income_->showTable(shown->incomeTable);
}

} // namespace oakfen
