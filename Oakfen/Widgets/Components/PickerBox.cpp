#include "Oakfen/Widgets/Components/PickerBox.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStandardItemModel>
#include <QWheelEvent>
#include <algorithm>

#include "Oakfen/Widgets/Components/EntryField.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

PickerBox::PickerBox(const QString& title, QWidget* parent) : QComboBox(parent) {
    setAccessibleName(title);
    // The toolkit gives the choice as the name; this says what it is a choice of.
    setAccessibleDescription(title);
    setMaxVisibleItems(20);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(18);
    setEditable(true);
    setInsertPolicy(NoInsert);
    completer()->setCompletionMode(QCompleter::PopupCompletion);
    completer()->setFilterMode(Qt::MatchContains);
    completer()->setCaseSensitivity(Qt::CaseInsensitive);
    completer()->popup()->installEventFilter(this);
    lineEdit()->setAccessibleName(title);
    connect(lineEdit(), &QLineEdit::editingFinished, this, [this] { takeTypedText(); });
    connect(this, &QComboBox::activated, this, [this] {
        showBeginning();
        chosen();
    });
}

void PickerBox::setRows(const std::vector<PickerRow>& rows) {
    const bool hadChoice = currentIndex() >= 0;
    const auto before = chosenID();
    rows_ = rows;
    clear();
    for (const PickerRow& row : rows_) {
        addItem(qt(singleLine(row.title)));
        if (row.isHeader) {
            auto* item = qobject_cast<QStandardItemModel*>(model())->item(count() - 1);
            item->setFlags(Qt::NoItemFlags);
            item->setFont(Theme::font(TextStyle::captionStrong));
        }
    }
    setCurrentIndex(-1);
    if (hadChoice) {
        choose(before);
    }
}

std::optional<UUID> PickerBox::chosenID() const {
    const int index = currentIndex();
    return index < 0 ? std::nullopt : rows_[static_cast<std::size_t>(index)].id;
}

void PickerBox::choose(const std::optional<UUID>& id) {
    const auto row = std::ranges::find_if(
        rows_, [&](const PickerRow& each) { return !each.isHeader && each.id == id; });
    setCurrentIndex(row == rows_.end() ? -1 : static_cast<int>(row - rows_.begin()));
    showBeginning();
}

bool PickerBox::takeTypedText() {
    if (currentText() == itemText(currentIndex())) {
        return true;
    }
    const int row = rowOf(currentText().trimmed());
    const bool isChange = row >= 0 && row != currentIndex();
    if (isChange) {
        setCurrentIndex(row);
    }
    setEditText(itemText(currentIndex()));
    showBeginning();
    if (isChange) {
        chosen();
    }
    return row >= 0;
}

void PickerBox::setPrompt(const QString& prompt) {
    lineEdit()->setPlaceholderText(prompt);
}

bool PickerBox::eventFilter(QObject* watched, QEvent* event) {
    if (watched == completer()->popup() && event->type() == QEvent::KeyPress &&
        leaveListByKey(*static_cast<QKeyEvent*>(event))) {
        return true;
    }
    return QComboBox::eventFilter(watched, event);
}

bool PickerBox::leaveListByKey(QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        takeMatch();
        focusNextPrevChild(event.key() == Qt::Key_Tab);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if ((event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier) {
            return false;
        }
        // The list has the keyboard, so the key would not reach the sheet by itself.
        takeMatch();
        QApplication::sendEvent(parentWidget(), &event);
        return true;
    default:
        return false;
    }
}

void PickerBox::takeMatch() {
    const QModelIndex match = completer()->popup()->currentIndex();
    completer()->popup()->hide();
    if (match.isValid()) {
        Q_EMIT completer()->activated(match);
    } else {
        takeTypedText();
    }
}

void PickerBox::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    // Before the toolkit does it, which would take a header of that title too. A text that means
    // no row goes back to the choice, for the person to see before the sheet is saved with it.
    if (isReturn && !takeTypedText()) {
        event->accept();
        return;
    }
    QComboBox::keyPressEvent(event);
}

void PickerBox::focusOutEvent(QFocusEvent* event) {
    if (isMomentary(*event)) {
        // What is half typed stays so; the toolkit would take it for finished.
        const QSignalBlocker blocker(lineEdit());
        QComboBox::focusOutEvent(event);
        return;
    }
    takeTypedText();
    QComboBox::focusOutEvent(event);
}

void PickerBox::wheelEvent(QWheelEvent* event) {
    // For what scrolls beneath the picker.
    event->ignore();
}

int PickerBox::rowOf(const QString& text) const {
    const auto first = [this](auto&& fits) {
        const auto row = std::ranges::find_if(rows_, [&](const PickerRow& each) {
            return !each.isHeader && fits(each, qt(singleLine(each.title)));
        });
        return row == rows_.end() ? -1 : static_cast<int>(row - rows_.begin());
    };
    if (text.isEmpty()) {
        return first([](const PickerRow& row, const QString&) { return !row.id; });
    }
    const int exact = first([&](const PickerRow&, const QString& title) {
        return title.compare(text, Qt::CaseInsensitive) == 0;
    });
    return exact >= 0 ? exact : first([&](const PickerRow&, const QString& title) {
        return title.contains(text, Qt::CaseInsensitive);
    });
}

void PickerBox::showBeginning() {
    // A long name shows its beginning.
    lineEdit()->setCursorPosition(0);
}

AccountPicker::AccountPicker(const QString& title, QWidget* parent) : PickerBox(title, parent) {
    setPrompt(tr("Choose an account"));
}

} // namespace oakfen
