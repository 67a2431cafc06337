#include "Oakfen/Widgets/Components/CaptionedAmount.h"

#include <QVBoxLayout>

namespace oakfen {

CaptionedAmount::CaptionedAmount(const QString& title, TextStyle style, QWidget* parent)
    : QWidget(parent), figure_{new QLabel(title), new MoneyLabel(style)} {
    figure_.label->setTextFormat(Qt::PlainText);
    figure_.label->setAlignment(Qt::AlignRight);
    Theme::setText(*figure_.label, TextStyle::caption, ThemeColor::secondaryText);
    figure_.amount->setAlignment(Qt::AlignRight | Qt::AlignTop);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(figure_.label);
    column->addWidget(figure_.amount);
    column->addStretch(1);
}

} // namespace oakfen
