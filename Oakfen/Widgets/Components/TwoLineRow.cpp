#include "Oakfen/Widgets/Components/TwoLineRow.h"

#include <QHBoxLayout>

#include "Oakfen/Widgets/Components/DiscLabel.h"
#include "Oakfen/Widgets/Components/ElidedLabel.h"
#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Components/MoneyLabel.h"
#include "Oakfen/Widgets/Components/RowActionButton.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

TwoLineRow::TwoLineRow(int height, QWidget* parent)
    : QWidget(parent), line_(new QHBoxLayout(this)),
      title_(new ElidedLabel(TextStyle::body, ThemeColor::text)),
      detail_(new ElidedLabel(TextStyle::caption, ThemeColor::secondaryText)),
      amount_(new MoneyLabel) {
    setMinimumHeight(height);
    line_->setContentsMargins(0, 0, 0, 0);
    line_->setSpacing(Theme::grid * 3 / 2);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(0);
    texts->addStretch(1);
    texts->addWidget(title_);
    texts->addWidget(detail_);
    texts->addStretch(1);
    line_->addLayout(texts, 1);
    line_->addWidget(amount_);
}

void TwoLineRow::showMark(std::string_view symbolName, TextTone tone, std::string_view spoken) {
    if (disc_ == nullptr) {
        disc_ = new DiscLabel;
        line_->insertWidget(0, disc_);
    }
    disc_->showMark(symbolName, tone);
    spokenMark_ = qt(spoken);
    tell();
}

void TwoLineRow::showTexts(const std::string& title, const std::string& detail,
                           TextTone detailTone) {
    title_->showText(qt(title));
    detail_->showText(qt(detail));
    Theme::setText(*detail_, TextStyle::caption, themeColor(detailTone));
    tell();
}

void TwoLineRow::showAmount(const MoneyText& money) {
    amount_->setMoney(money);
    tell();
}

QPushButton* TwoLineRow::addButton(const QString& title, const QString& help) {
    auto* button = new RowActionButton(title, help);
    addWidget(*button);
    return button;
}

void TwoLineRow::addWidget(QWidget& widget) {
    line_->addWidget(&widget);
}

void TwoLineRow::tell() {
    QStringList parts{spokenMark_, title_->wholeText(), detail_->wholeText(),
                      qt(amount_->money().text)};
    parts.removeAll(QString());
    setAccessibleName(parts.join(QStringLiteral(", ")));
}

} // namespace oakfen
