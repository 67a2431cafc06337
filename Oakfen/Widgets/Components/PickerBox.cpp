#include "Oakfen/Widgets/Components/PickerBox.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStandardItemModel>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

#include "Oakfen/Widgets/Components/EntryField.h"
#include "Oakfen/Widgets/Components/PickerList.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

PickerBox::PickerBox(const QString& title, PickerSubject subject, QWidget* parent)
    : QComboBox(parent), subject_(subject) {
    setAccessibleName(title);
    // The toolkit gives the choice as the name; this says what it is a choice of.
    setAccessibleDescription(title);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(18);
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
    lineEdit()->setAccessibleName(title);
    lineEdit()->installEventFilter(this);
    connect(lineEdit(), &QLineEdit::editingFinished, this, [this] { takeTypedText(); });
    connect(lineEdit(), &QLineEdit::textChanged, this, [this] { showState(); });
    connect(lineEdit(), &QLineEdit::textEdited, this, [this] { showMatches(); });
    connect(this, &QComboBox::activated, this, [this] {
        showBeginning();
        chosen();
    });
}

PickerBox::~PickerBox() {
    delete list_.data();
}

void PickerBox::addRowItem(const PickerRow& row) {
    addItem(qt(singleLine(row.title)));
    if (row.isHeader) {
        auto* item = qobject_cast<QStandardItemModel*>(model())->item(count() - 1);
        item->setFlags(Qt::NoItemFlags);
        item->setFont(Theme::font(TextStyle::captionStrong));
    }
}

void PickerBox::setRows(const std::vector<PickerRow>& rows) {
    if (rows == rows_) {
        return;
    }
    const bool hadChoice = currentIndex() >= 0;
    const auto before = chosenID();
    const auto typed = isTyped() ? std::optional(currentText()) : std::nullopt;
    hidePopup();
    rows_ = rows;
    clear();
    std::ranges::for_each(rows_, [this](const PickerRow& row) { addRowItem(row); });
    setCurrentIndex(-1);
    if (hadChoice) {
        choose(before);
    }
    if (typed) {
        setEditText(*typed);
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
    showChoice();
}

bool PickerBox::isTyped() const {
    return currentText() != itemText(currentIndex());
}

std::optional<std::size_t> PickerBox::typedRow() const {
    return meantRow(rows_, utf8(currentText()));
}

CategoryOffer PickerBox::offer() const {
    return creation_.offer ? creation_.offer(utf8(currentText())) : CategoryOffer{};
}

bool PickerBox::takeTypedText() {
    if (!isTyped()) {
        return true;
    }
    const auto row = typedRow();
    if (row) {
        takeRow(*row);
    } else {
        showState();
    }
    return row.has_value();
}

void PickerBox::takeRow(std::size_t row) {
    const bool isChange = currentIndex() != static_cast<int>(row);
    setCurrentIndex(static_cast<int>(row));
    showChoice();
    if (isChange) {
        chosen();
    }
}

void PickerBox::takeLine(const PickerLine& line) {
    if (line.kind != PickerLine::Kind::creation) {
        takeRow(line.row);
        return;
    }
    const PickerRow made = creation_.make(offer().path);
    rows_.push_back(made);
    addRowItem(made);
    takeRow(rows_.size() - 1);
}

bool PickerBox::takeHighlighted() {
    const auto line = list_ != nullptr ? list_->current() : std::nullopt;
    if (!line) {
        return false;
    }
    const PickerLine taken = list_->lines()[*line];
    hidePopup();
    takeLine(taken);
    return true;
}

void PickerBox::showChoice() {
    setEditText(itemText(currentIndex()));
    // The text may be the one that was typed, which meant nothing until now.
    showState();
    showBeginning();
}

void PickerBox::setPrompt(const QString& prompt) {
    lineEdit()->setPlaceholderText(prompt);
}

void PickerBox::selectText() {
    lineEdit()->selectAll();
}

void PickerBox::showState() {
    const bool wasReadable = isReadable();
    explanation_ = !isTyped() || typedRow()
                       ? QString()
                       : qt(pickerExplanation(subject_, utf8(currentText()), offer()));
    if (wasReadable && !isReadable()) {
        purpose_ = accessibleDescription();
        help_ = toolTip();
    }
    if (!isReadable() || !wasReadable) {
        setAccessibleDescription(isReadable() ? purpose_ : explanation_);
        setToolTip(isReadable() ? help_ : plainToolTip(explanation_));
        setProperty("invalid", !isReadable());
        update();
    }
}

void PickerBox::focusOutEvent(QFocusEvent* event) {
    hidePopup();
    if (!isMomentary(*event)) {
        takeTypedText();
    }
    // The toolkit would look by itself for what was typed, and take a header of that title too.
    const QSignalBlocker blocker(lineEdit());
    QComboBox::focusOutEvent(event);
}

void PickerBox::hideEvent(QHideEvent* event) {
    hidePopup();
    QComboBox::hideEvent(event);
}

void PickerBox::wheelEvent(QWheelEvent* event) {
    // For what scrolls beneath the picker.
    event->ignore();
}

void PickerBox::showBeginning() {
    // A long name shows its beginning.
    lineEdit()->setCursorPosition(0);
}

AccountPicker::AccountPicker(const QString& title, QWidget* parent)
    : PickerBox(title, PickerSubject::account, parent) {
    setPrompt(tr("Choose an account"));
}

} // namespace oakfen
