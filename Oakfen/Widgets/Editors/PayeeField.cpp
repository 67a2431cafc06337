#include "Oakfen/Widgets/Editors/PayeeField.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QStringListModel>

namespace oakfen {

PayeeField::PayeeField(const QString& title, QWidget* parent)
    : QLineEdit(parent), suggestions_(new QStringListModel(this)) {
    setAccessibleName(title);
    auto* suggester = new QCompleter(suggestions_, this);
    // The list is narrowed down already.
    suggester->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    suggester->popup()->setAccessibleName(tr("Known Payees"));
    setCompleter(suggester);
    connect(suggester, qOverload<const QString&>(&QCompleter::activated), this,
            [this](const QString& payee) { takeSuggestion(payee); });
    connect(this, &QLineEdit::textChanged, this, [this] { edited(); });
    // Typed only: walking through the list changes the text too, but must not change the list.
    connect(this, &QLineEdit::textEdited, this, [this] {
        edited();
        suggestions_->setStringList(suggestions());
    });
}

void PayeeField::setPayee(const QString& payee) {
    if (payee == text()) {
        return;
    }
    const QSignalBlocker blocker(this);
    setText(payee);
}

void PayeeField::takeSuggestion(const QString& payee) {
    completer()->popup()->hide();
    setPayee(payee);
    edited();
    completed();
}

void PayeeField::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        handleReturn(event);
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

void PayeeField::handleReturn(QKeyEvent* event) {
    QAbstractItemView* list = completer()->popup();
    const bool wasOffering = list->isVisible();
    const QModelIndex offered = wasOffering ? list->currentIndex() : QModelIndex();
    list->hide();
    if ((event->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) {
        // The list had the keyboard, so the key would not reach the sheet by itself.
        event->setAccepted(wasOffering && QApplication::sendEvent(parentWidget(), event));
    } else if (offered.isValid()) {
        takeSuggestion(offered.data().toString());
    } else if (!returned() && !wasOffering) {
        event->ignore();
    }
}

} // namespace oakfen
