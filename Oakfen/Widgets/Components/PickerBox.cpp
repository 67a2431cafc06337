#include "Oakfen/Widgets/Components/PickerBox.h"

#include <QCompleter>
#include <QLineEdit>
#include <QStandardItemModel>
#include <algorithm>

#include "Oakfen/Widgets/Bridge.h"
#include "Oakfen/Widgets/Theme.h"

namespace oakfen {

PickerBox::PickerBox(const QString& title, QWidget* parent) : QComboBox(parent) {
    setAccessibleName(title);
    // The toolkit gives the choice as the name; this says what it is a choice of.
    setAccessibleDescription(title);
    setMaxVisibleItems(20);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(18);
    connect(this, &QComboBox::activated, this, [this] { chosen(); });
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
    if (lineEdit() != nullptr) {
        // A long name shows its beginning.
        lineEdit()->setCursorPosition(0);
    }
}

CategoryPicker::CategoryPicker(const QString& title, QWidget* parent) : PickerBox(title, parent) {
    setEditable(true);
    setInsertPolicy(NoInsert);
    completer()->setCompletionMode(QCompleter::PopupCompletion);
    completer()->setFilterMode(Qt::MatchContains);
    completer()->setCaseSensitivity(Qt::CaseInsensitive);
    lineEdit()->setAccessibleName(title);
    connect(lineEdit(), &QLineEdit::editingFinished, this, [this] { takeTypedText(); });
}

void CategoryPicker::focusOutEvent(QFocusEvent* event) {
    takeTypedText();
    PickerBox::focusOutEvent(event);
}

/// Takes the one category that the text means, else goes back to the choice that was.
void CategoryPicker::takeTypedText() {
    if (currentText() == itemText(currentIndex())) {
        return;
    }
    const auto* items = qobject_cast<const QStandardItemModel*>(model());
    int match = findText(currentText(), Qt::MatchFixedString);
    for (int index = 0; match < 0 && index < count(); ++index) {
        const bool isChoice = items->item(index)->isEnabled();
        if (isChoice && !currentText().trimmed().isEmpty() &&
            itemText(index).contains(currentText().trimmed(), Qt::CaseInsensitive)) {
            match = index;
        }
    }
    if (match < 0 || !items->item(match)->isEnabled()) {
        setEditText(itemText(currentIndex()));
        return;
    }
    setCurrentIndex(match);
    setEditText(itemText(match));
    chosen();
}

} // namespace oakfen
