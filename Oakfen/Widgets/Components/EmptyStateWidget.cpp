#include "Oakfen/Widgets/Components/EmptyStateWidget.h"

#include "Oakfen/Widgets/Components/SymbolLabel.h"
#include "Oakfen/Widgets/Components/WrappedLabel.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

EmptyStateWidget::EmptyStateWidget(const EmptyState& state, QWidget* parent)
    : QWidget(parent), buttons_(new QHBoxLayout) {
    setAccessibleName(qt(state.title));
    setAccessibleDescription(qt(state.text));

    auto* title = new QLabel(qt(state.title), this);
    Theme::setText(*title, TextStyle::headline);
    title->setTextFormat(Qt::PlainText);
    auto* text = new WrappedLabel(TextStyle::body, ThemeColor::secondaryText, 380, this);
    text->showText(qt(state.text));
    text->setAlignment(Qt::AlignHCenter);
    text->setVisible(!state.text.empty());
    buttons_->setSpacing(Theme::grid);

    auto* column = new QVBoxLayout(this);
    column->setSpacing(Theme::grid);
    column->addStretch(2);
    column->addWidget(new SymbolLabel(state.symbolName, 44, ThemeColor::secondaryText, this), 0,
                      Qt::AlignHCenter);
    column->addSpacing(Theme::grid);
    column->addWidget(title, 0, Qt::AlignHCenter);
    column->addWidget(text, 0, Qt::AlignHCenter);
    column->addSpacing(Theme::grid);
    column->addLayout(buttons_);
    column->addStretch(3);
    column->setAlignment(buttons_, Qt::AlignHCenter);
}

QPushButton* EmptyStateWidget::addButton(const QString& title, bool isProminent,
                                         std::function<void()> action) {
    auto* button = new QPushButton(title, this);
    Theme::setTrait(*button, "prominent", isProminent);
    connect(button, &QPushButton::clicked, this, std::move(action));
    buttons_->addWidget(button);
    return button;
}

} // namespace oakfen
