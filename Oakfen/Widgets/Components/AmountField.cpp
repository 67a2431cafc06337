#include "Oakfen/Widgets/Components/AmountField.h"

#include <QFocusEvent>
#include <QSignalBlocker>
#include <QStyle>
#include <QTimer>

#include "Oakfen/Widgets/Bridge.h"

namespace oakfen {

namespace {

/// More than any amount needs; keeps a wrong paste from being a novel.
constexpr int greatestLength = 120;

} // namespace

AmountField::AmountField(const QString& title, QWidget* parent) : QLineEdit(parent) {
    setAccessibleName(title);
    setAlignment(Qt::AlignRight);
    setMaxLength(greatestLength);
    setText(qt(entry_.text()));
    // However the text came: typed, pasted, or set by an assistant.
    connect(this, &QLineEdit::textChanged, this, [this](const QString& text) { readText(text); });
    showState();
}

void AmountField::setValue(const Decimal& value) {
    entry_.setValue(value);
    showText();
    showState();
}

QString AmountField::explanation() const {
    return qt(entry_.explanation());
}

void AmountField::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (event->reason() != Qt::PopupFocusReason) {
        // After the click that gave the focus, which would take the selection away again.
        QTimer::singleShot(0, this, &QLineEdit::selectAll);
    }
}

void AmountField::focusOutEvent(QFocusEvent* event) {
    entry_.finishEditing();
    showText();
    QLineEdit::focusOutEvent(event);
}

void AmountField::readText(const QString& text) {
    entry_.edit(utf8(text));
    showState();
    edited();
}

void AmountField::showText() {
    const QSignalBlocker blocker(this);
    setText(qt(entry_.text()));
}

void AmountField::showState() {
    setToolTip(isReadable() ? tr("An amount, or a sum such as 12.50+3*2") : explanation());
    setAccessibleDescription(toolTip());
    setProperty("invalid", !isReadable());
    style()->unpolish(this);
    style()->polish(this);
}

} // namespace oakfen
