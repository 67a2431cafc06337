#include "Oakfen/Widgets/Components/Card.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "Oakfen/Widgets/Components/SymbolLabel.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

constexpr int padding = 2 * Theme::grid;

} // namespace

Card::Card(const QString& title, std::string_view symbolName, QWidget* parent)
    : QFrame(parent), titleLine_(new QHBoxLayout), content_(new QVBoxLayout) {
    constexpr int symbolSize = 16;
    constexpr int titleHeight = 20;
    // What the theme draws the panel by.
    setObjectName(QStringLiteral("Card"));
    setAccessibleName(title);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(padding, padding, padding, padding);
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
    label->setMinimumHeight(titleHeight);
    Theme::setText(*label, TextStyle::bodyStrong);
    titleLine_->addWidget(label, 1);
}

void Card::setAccessory(QWidget* accessory) {
    titleLine_->addWidget(accessory);
}

void Card::setNote(const QString& note) {
    if (note_ == nullptr) {
        note_ = new QLabel;
        note_->setTextFormat(Qt::PlainText);
        Theme::setText(*note_, TextStyle::caption, ThemeColor::secondaryText);
        setAccessory(note_);
    }
    note_->setText(note);
}

QPushButton* Card::addLink(const QString& title, const QString& help) {
    auto* link = new QPushButton(title);
    link->setAccessibleName(title);
    link->setAutoDefault(false);
    link->setToolTip(help);
    link->setProperty("cardLink", true);
    Theme::setTrait(*link, "link");
    setAccessory(link);
    return link;
}

void Card::setFoot(int height) {
    QMargins margins = layout()->contentsMargins();
    margins.setBottom(height);
    layout()->setContentsMargins(margins);
}

void Card::fillToEdges() {
    auto* column = static_cast<QVBoxLayout*>(layout());
    column->setContentsMargins(1, padding, 1, 1);
    titleLine_->setContentsMargins(padding - 1, 0, padding - 1, 0);
}

} // namespace oakfen
