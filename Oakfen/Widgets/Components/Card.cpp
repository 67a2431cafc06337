#include "Oakfen/Widgets/Components/Card.h"

#include <QLabel>
#include <QVBoxLayout>

#include "Oakfen/Widgets/Components/SymbolLabel.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

Card::Card(const QString& title, std::string_view symbolName, QWidget* parent)
    : QFrame(parent), titleLine_(new QHBoxLayout), content_(new QVBoxLayout) {
    constexpr int symbolSize = 16;
    // What the theme draws the panel by.
    setObjectName(QStringLiteral("Card"));
    setAccessibleName(title);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(2 * Theme::grid, 2 * Theme::grid, 2 * Theme::grid, 2 * Theme::grid);
    column->setSpacing(Theme::grid);
    column->addLayout(titleLine_);
    column->addLayout(content_, 1);
    content_->setSpacing(Theme::grid);

    titleLine_->setSpacing(Theme::grid);
    if (!symbolName.empty()) {
        titleLine_->addWidget(new SymbolLabel(symbolName, symbolSize, ThemeColor::secondaryText));
    }
    auto* label = new QLabel(title);
    label->setTextFormat(Qt::PlainText);
    Theme::setText(*label, TextStyle::headline);
    titleLine_->addWidget(label, 1);
}

void Card::setAccessory(QWidget* accessory) {
    titleLine_->addWidget(accessory);
}

} // namespace oakfen
