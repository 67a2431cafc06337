#include "Oakfen/Widgets/Bills/FigureCard.h"

#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

#include "Oakfen/Widgets/Components/Card.h"
#include "Oakfen/Widgets/Components/MoneyLabel.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

namespace {

int textWidth(TextStyle style, const QString& text) {
    return QFontMetrics(Theme::font(style)).horizontalAdvance(text);
}

} // namespace

FigureCard::FigureCard(const BillsContent::Figure& figure, QWidget* parent)
    : QWidget(parent), card_(new Card(qt(figure.title), figure.symbolName)),
      amount_(new MoneyLabel(TextStyle::title)), below_(new QLabel),
      titleWidth_(textWidth(TextStyle::bodyStrong, qt(figure.title)) +
                  (figure.symbolName.empty() ? 0 : 3 * Theme::grid)) {
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(card_);
    card_->content()->addWidget(amount_);
    card_->content()->addWidget(below_);
    below_->setTextFormat(Qt::PlainText);
    Theme::setText(*below_, TextStyle::caption, ThemeColor::secondaryText);
    below_->hide();
    showFigure(figure);
}

void FigureCard::showFigure(const BillsContent::Figure& figure) {
    note_ = qt(figure.note);
    amount_->setMoney(figure.money);
    // By itself the figure would say too little.
    amount_->setAccessibleName(
        QStringLiteral("%1, %2, %3").arg(qt(figure.title), qt(figure.money.text), note_));
    setNarrow(isNarrow_);
}

void FigureCard::setNarrow(bool isNarrow) {
    isNarrow_ = isNarrow;
    card_->setNote(isNarrow ? QString() : note_);
    below_->setText(note_);
    below_->setVisible(isNarrow);
}

int FigureCard::wideWidth() const {
    const int padding = 2 * (2 * Theme::grid + 1);
    const int titleLine = titleWidth_ + (2 * Theme::grid) + textWidth(TextStyle::caption, note_);
    return padding + std::max(titleLine, amount_->sizeHint().width());
}

} // namespace oakfen
