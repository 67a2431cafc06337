#include "Oakfen/Widgets/Dashboard/ListCards.h"

#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "Oakfen/Widgets/Components/Card.h"
#include "Oakfen/Widgets/Components/ElidedLabel.h"
#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Components/MoneyLabel.h"
#include "Oakfen/Widgets/Components/SymbolLabel.h"
#include "Oakfen/Widgets/Components/TwoLineRow.h"
#include "Oakfen/Widgets/Dashboard/CardRows.h"
#include "Oakfen/Widgets/Dashboard/RowButton.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

namespace {

constexpr int symbolSize = 16;

/// A row that leads to what the index of its content says.
template <typename Act>
RowButton* makeRowButton(CardRows& rows, int height, Act act) {
    auto* button = new RowButton(height);
    QObject::connect(button, &QAbstractButton::clicked, &rows, [&rows, button, act] {
        const auto place = std::ranges::find(rows.rows(), static_cast<QWidget*>(button));
        act(static_cast<std::size_t>(place - rows.rows().begin()));
    });
    return button;
}

/// One line: an icon, its text, and the sign that it leads on.
class AlertLine final : public QWidget {
public:
    AlertLine()
        : line_(new QHBoxLayout(this)), text_(new ElidedLabel(TextStyle::body, ThemeColor::text)) {
        line_->setContentsMargins(0, 0, 0, 0);
        line_->setSpacing(Theme::grid * 2);
        line_->addWidget(text_, 1);
        leadsOn_ = new SymbolLabel("chevron.right", symbolSize * 3 / 4, ThemeColor::secondaryText);
        line_->addWidget(leadsOn_);
    }

    void show(const AlertsCard::AlertItem& item) {
        delete symbol_;
        symbol_ = new SymbolLabel(item.symbolName, symbolSize, themeColor(item.color));
        line_->insertWidget(0, symbol_);
        text_->showText(qt(item.text));
        leadsOn_->setVisible(item.target.has_value());
    }

private:
    QHBoxLayout* line_;
    SymbolLabel* symbol_ = nullptr;
    ElidedLabel* text_;
    SymbolLabel* leadsOn_;
};

} // namespace

UpcomingBillsPart::UpcomingBillsPart(DashboardView& view, Card& card)
    : view_(view), rows_(new CardRows(QStringLiteral("Nothing due in the next two weeks."))) {
    QPushButton* link =
        card.addLink(QStringLiteral("See All"), QStringLiteral("Show all bills and income"));
    QObject::connect(link, &QPushButton::clicked, rows_,
                     [this] { view_.show(SidebarItem::Kind::bills); });
    card.content()->addWidget(rows_);
}

QWidget* UpcomingBillsPart::makeRow() {
    auto* row = new TwoLineRow(TwoLineRow::cardHeight);
    QPushButton* enter = row->addButton(QStringLiteral("Enter"),
                                        QStringLiteral("Record this payment in the register"));
    QObject::connect(enter, &QPushButton::clicked, row, [this, row] {
        const auto place = std::ranges::find(rows_->rows(), static_cast<QWidget*>(row));
        view_.enter(shown_.rows[static_cast<std::size_t>(place - rows_->rows().begin())].id);
    });
    return row;
}

void UpcomingBillsPart::show(const UpcomingBillsCard& content) {
    if (content == shown_) {
        return;
    }
    shown_ = content;
    rows_->setCount(content.rows.size(), [this] { return makeRow(); });
    for (std::size_t index = 0; index < content.rows.size(); ++index) {
        const UpcomingBillsCard::UpcomingRow& reminder = content.rows[index];
        auto& row = *static_cast<TwoLineRow*>(rows_->rows()[index]);
        row.showMark(reminder.mark.symbolName, reminder.mark.tone, reminder.mark.spoken);
        row.showTexts(reminder.payee, reminder.detail, reminder.detailTone);
        row.showAmount(reminder.amount);
        row.findChild<QPushButton*>()->setAccessibleName(QStringLiteral("Enter ") +
                                                         qt(reminder.payee));
    }
}

AlertsPart::AlertsPart(DashboardView& view, Card& card)
    : view_(view), card_(card), rows_(new CardRows({})), allWell_(new QWidget) {
    rows_->setPlain();
    auto* line = new QHBoxLayout(allWell_);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(Theme::grid * 2);
    line->addWidget(new SymbolLabel("checkmark.seal.fill", symbolSize, ThemeColor::positive));
    auto* text = new QLabel(QStringLiteral("Everything looks good."));
    Theme::setText(*text, TextStyle::body, ThemeColor::secondaryText);
    line->addWidget(text, 1);
    card.content()->addWidget(allWell_);
    card.content()->addWidget(rows_);
    card.content()->addStretch(1);
    rows_->hide();
}

QWidget* AlertsPart::makeRow() {
    RowButton* row = makeRowButton(*rows_, Theme::tableRowHeight, [this](std::size_t index) {
        view_.follow(shown_.items[index]);
    });
    row->line()->addWidget(new AlertLine);
    return row;
}

void AlertsPart::show(const AlertsCard& content) {
    if (content == shown_) {
        return;
    }
    shown_ = content;
    allWell_->setVisible(content.items.empty());
    rows_->setVisible(!content.items.empty());
    card_.setNote(content.items.empty() ? QString() : QString::number(content.items.size()));
    rows_->setCount(content.items.size(), [this] { return makeRow(); });
    for (std::size_t index = 0; index < content.items.size(); ++index) {
        const AlertsCard::AlertItem& item = content.items[index];
        auto& row = *static_cast<RowButton*>(rows_->rows()[index]);
        static_cast<AlertLine*>(row.line()->itemAt(0)->widget())->show(item);
        row.setLeadsOn(item.target.has_value());
        row.setAccessibleName(qt(item.text));
        // In a narrow card the text is cut.
        row.setToolTip(plainToolTip(qt(item.text)));
    }
}

RecentTransactionsPart::RecentTransactionsPart(DashboardView& view, Card& card)
    : view_(view), rows_(new CardRows(QStringLiteral("No transactions yet."))) {
    card.content()->addWidget(rows_);
}

void RecentTransactionsPart::setColumnCount(int count) {
    rows_->setColumnCount(count);
}

QWidget* RecentTransactionsPart::makeRow() {
    RowButton* row = makeRowButton(*rows_, TwoLineRow::cardHeight, [this](std::size_t index) {
        view_.edit(shown_.rows[index].id);
    });
    row->line()->addWidget(new TwoLineRow(TwoLineRow::cardHeight));
    return row;
}

void RecentTransactionsPart::show(const RecentTransactionsCard& content) {
    if (content == shown_) {
        return;
    }
    shown_ = content;
    rows_->setCount(content.rows.size(), [this] { return makeRow(); });
    for (std::size_t index = 0; index < content.rows.size(); ++index) {
        const RecentTransactionsCard::Row& entry = content.rows[index];
        auto& button = *static_cast<RowButton*>(rows_->rows()[index]);
        auto& row = *static_cast<TwoLineRow*>(button.line()->itemAt(0)->widget());
        row.showTexts(entry.payee, entry.detail);
        row.showAmount(entry.amount);
        button.setAccessibleName(row.accessibleName());
        button.setToolTip(plainToolTip(
            qt(entry.payee + "\n" + entry.detail + "\nClick to edit this transaction.")));
    }
}

} // namespace oakfen
