#include "Oakfen/Widgets/Components/EntryField.h"

#include <QFocusEvent>
#include <QSignalBlocker>
#include <QTimer>
#include <utility>

#include "Oakfen/Widgets/Bridge.h"
#include "Oakfen/Widgets/Theme.h"

namespace oakfen {

namespace {

/// Whether the field still is where the keyboard belongs, beneath a menu or another window.
bool isMomentary(const QFocusEvent& event) {
    return event.reason() == Qt::PopupFocusReason || event.reason() == Qt::ActiveWindowFocusReason;
}

} // namespace

EntryField::EntryField(const QString& title, QString help, QWidget* parent)
    : QLineEdit(parent), help_(std::move(help)) {
    setAccessibleName(title);
    // However the text came: typed, pasted, or set by an assistant.
    connect(this, &QLineEdit::textChanged, this, [this](const QString& text) { readText(text); });
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
        // After the click that gave the focus, which would take the selection away again.
        QTimer::singleShot(0, this, &QLineEdit::selectAll);
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
    setToolTip(isReadable() ? help_ : explanation());
    setAccessibleDescription(toolTip());
    if (property("invalid").toBool() == isReadable()) {
        Theme::setTrait(*this, "invalid", !isReadable());
    }
    textShown();
}

} // namespace oakfen
