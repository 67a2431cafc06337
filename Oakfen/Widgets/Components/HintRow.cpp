#include "Oakfen/Widgets/Components/HintRow.h"

#include <QHBoxLayout>
#include <QPushButton>

#include "Oakfen/Widgets/Components/FlowingLabel.h"
#include "Oakfen/Widgets/Components/SymbolLabel.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

HintRow::HintRow(QWidget* parent)
    : QWidget(parent), sentence_(new FlowingLabel(TextStyle::body, ThemeColor::text)),
      button_(new QPushButton) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Theme::grid);
    row->addWidget(new SymbolLabel("info.circle", 2 * Theme::grid, ThemeColor::information));
    row->addWidget(sentence_, 1);
    row->addWidget(button_);
    button_->setAutoDefault(false);
    connect(button_, &QPushButton::clicked, this, [this] { pressed(); });
    hide();
}

void HintRow::showHint(const QString& sentence, const QString& buttonTitle) {
    sentence_->showText(sentence);
    button_->setText(buttonTitle);
    button_->setToolTip(plainToolTip(sentence));
    button_->setVisible(!buttonTitle.isEmpty());
    setVisible(!sentence.isEmpty());
}

QLabel* HintRow::sentence() const {
    return sentence_;
}

} // namespace oakfen
