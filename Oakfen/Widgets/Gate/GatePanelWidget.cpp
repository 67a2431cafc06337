#include "Oakfen/Widgets/Gate/GatePanelWidget.h"

#include <QApplication>
#include <QKeyEvent>

#include "Oakfen/Widgets/Components/SymbolLabel.h"
#include "Oakfen/Widgets/Components/WrappedLabel.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

GatePanelWidget::GatePanelWidget(const GatePanelText& text, QWidget* parent)
    : QFrame(parent), fields_(new QVBoxLayout), buttons_(new QVBoxLayout),
      errorRow_(new QWidget(this)),
      errorLabel_(new WrappedLabel(TextStyle::body, ThemeColor::text,
                                   contentWidth - (3 * Theme::grid), errorRow_)) {
    setObjectName(QStringLiteral("GatePanel"));
    // The frame's line counts too.
    setFixedWidth(contentWidth + (2 * Theme::grid * 5) + 2);
    setAccessibleName(qt(text.title));

    auto* title = new WrappedLabel(TextStyle::title, ThemeColor::text, contentWidth, this);
    title->showText(qt(text.title));
    auto* message =
        new WrappedLabel(TextStyle::body, ThemeColor::secondaryText, contentWidth, this);
    message->showText(qt(text.message));
    for (QLabel* label : {title, message}) {
        label->setAlignment(Qt::AlignHCenter);
    }

    auto* errorLayout = new QHBoxLayout(errorRow_);
    errorLayout->setContentsMargins(0, 0, 0, 0);
    errorLayout->addWidget(
        new SymbolLabel("exclamationmark.triangle.fill", 16, ThemeColor::warning, errorRow_), 0,
        Qt::AlignTop);
    errorLayout->addWidget(errorLabel_, 1);
    errorRow_->hide();

    fields_->setSpacing(Theme::grid);
    buttons_->setSpacing(Theme::grid);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Theme::grid * 5, Theme::grid * 4, Theme::grid * 5, Theme::grid * 4);
    column->setSpacing(Theme::grid);
    column->addWidget(new SymbolLabel(text.symbolName, 48, ThemeColor::accent, this), 0,
                      Qt::AlignHCenter);
    column->addSpacing(Theme::grid);
    column->addWidget(title);
    column->addWidget(message);
    column->addSpacing(Theme::grid * 2);
    column->addLayout(fields_);
    column->addWidget(errorRow_);
    column->addLayout(buttons_);
}

void GatePanelWidget::setDefaultButton(QPushButton* button) {
    defaultButton_ = button;
    Theme::setTrait(*button, "prominent");
    button->setFocus();
}

void GatePanelWidget::setErrorText(const std::optional<std::string>& text) {
    errorLabel_->showText(qt(text.value_or("")));
    errorRow_->setVisible(text.has_value());
}

void GatePanelWidget::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn) {
        auto* focused = qobject_cast<QPushButton*>(QApplication::focusWidget());
        QPushButton* pressed = focused != nullptr ? focused : defaultButton_;
        if (pressed != nullptr) {
            pressed->click();
        }
        return;
    }
    if (event->key() == Qt::Key_Escape && cancelButton_ != nullptr) {
        cancelButton_->click();
        return;
    }
    QFrame::keyPressEvent(event);
}

} // namespace oakfen
