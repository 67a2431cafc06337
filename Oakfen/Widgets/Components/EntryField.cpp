#include "Oakfen/Widgets/Components/EntryField.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QTimer>
#include <utility>

#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

bool isPlainReturn(const QKeyEvent& event) {
    const bool isReturn = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    return isReturn && (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

bool isMomentary(const QFocusEvent& event) {
    return event.reason() == Qt::PopupFocusReason || event.reason() == Qt::ActiveWindowFocusReason;
}

EntryField::EntryField(const QString& title, QString help, QWidget* parent)
    : QLineEdit(parent), help_(std::move(help)) {
    setAccessibleName(title);
    // However the text came: typed, pasted, or set by an assistant.
    connect(this, &QLineEdit::textChanged, this, [this](const QString& text) { readText(text); });
}

void EntryField::setPurpose(const QString& purpose) {
    purpose_ = purpose;
    showState();
}

QString EntryField::explanation() const {
    return qt(entry().explanation());
}

void EntryField::showEntry() {
    const QString shown = qt(entry().text());
    if (shown != text()) {
        const QSignalBlocker blocker(this);
        setText(shown);
    }
    showState();
}

void EntryField::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (!isEntered_) {
        isEntered_ = true;
        selectAll();
        if (event->reason() == Qt::MouseFocusReason) {
            // Once more after the click, which takes the selection away; not over what was typed.
            QTimer::singleShot(0, this, [this, shown = text()] {
                if (text() == shown) {
                    selectAll();
                }
            });
        }
    }
}

void EntryField::focusOutEvent(QFocusEvent* event) {
    if (!isMomentary(*event)) {
        isEntered_ = false;
        entry().finishEditing();
        showEntry();
    }
    QLineEdit::focusOutEvent(event);
}

void EntryField::readText(const QString& text) {
    entry().edit(utf8(text));
    showState();
    edited();
}

void EntryField::showState() {
    const QString help =
        purpose_.isEmpty() ? help_ : purpose_ + QStringLiteral(". ") + help_ + QLatin1Char('.');
    setToolTip(isReadable() ? help : plainToolTip(explanation()));
    setAccessibleDescription(isReadable() ? help : explanation());
    if (property("invalid").toBool() == isReadable()) {
        Theme::setTrait(*this, "invalid", !isReadable());
    }
    textShown();
}

} // namespace oakfen
