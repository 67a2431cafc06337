#include "Oakfen/Widgets/Budget/BudgetField.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>

#include "Oakfen/Views/Components/AmountReading.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

namespace {

constexpr int greatestLength = 300;

/// A key that, together with Ctrl, may be a command's.
bool isCommandKey(const QKeyEvent& event) {
    return event.modifiers().testFlag(Qt::ControlModifier) && event.key() != Qt::Key_Control &&
           event.key() != Qt::Key_Shift && event.key() != Qt::Key_Alt;
}

} // namespace

BudgetField::BudgetField(QWidget* parent)
    : EntryField(tr("Budget"),
                 tr("An amount, or a sum such as %1 or 100+13%").arg(qt(exampleCalculation())),
                 parent) {
    setObjectName(QStringLiteral("BudgetField"));
    setAlignment(Qt::AlignRight);
    setMaxLength(greatestLength);
    showEntry();
}

void BudgetField::setValue(const Decimal& value) {
    entry_.setValue(value);
    showEntry();
}

int BudgetField::neededWidth() const {
    constexpr int frame = 22;
    return fontMetrics().horizontalAdvance(text()) + frame;
}

bool BudgetField::isReadable() const {
    return text().trimmed().isEmpty() || EntryField::isReadable();
}

bool BudgetField::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && !isUndoAvailable() &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Undo)) {
        // Nothing was typed here: it means the last step of the document.
        event->ignore();
        return false;
    }
    const bool isHandled = EntryField::event(event);
    if (event->type() == QEvent::ShortcutOverride && !event->isAccepted() &&
        isCommandKey(static_cast<const QKeyEvent&>(*event))) {
        entered(false);
    }
    return isHandled;
}

void BudgetField::keyPressEvent(QKeyEvent* event) {
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    const bool isPlain = modifiers == Qt::NoModifier;
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (isPlain || modifiers == Qt::ShiftModifier) {
            if (!stepped(isPlain ? Step::down : Step::up)) {
                parentWidget()->setFocus(Qt::OtherFocusReason);
            }
        }
        break;
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (isPlain) {
            stepped(event->key() == Qt::Key_Up ? Step::up : Step::down);
        }
        break;
    case Qt::Key_Escape:
        cancelled();
        break;
    default:
        EntryField::keyPressEvent(event);
    }
    // The table beneath has keys of its own.
    event->accept();
}

void BudgetField::focusOutEvent(QFocusEvent* event) {
    EntryField::focusOutEvent(event);
    const QWidget* popup = QApplication::activePopupWidget();
    const bool isOwnMenu =
        event->reason() == Qt::PopupFocusReason && popup != nullptr && popup->parent() == this;
    if (!isOwnMenu) {
        entered(!isMomentary(*event));
    }
}

bool BudgetField::focusNextPrevChild(bool next) {
    return stepped(next ? Step::next : Step::previous) || EntryField::focusNextPrevChild(next);
}

} // namespace oakfen
