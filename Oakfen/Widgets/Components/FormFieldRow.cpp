#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <utility>

#include "Oakfen/Widgets/Components/EntryField.h"
#include "Oakfen/Widgets/Components/FlowingLabel.h"
#include "Oakfen/Widgets/Components/Form.h"
#include "Oakfen/Widgets/Components/SegmentedChoice.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

/// Of amounts, days and other short things.
constexpr int narrowWidth = 160;

QString sentences(const QString& first, const QString& second) {
    return second.isEmpty() ? first : first + QStringLiteral(". ") + second;
}

} // namespace

FieldRow::FieldRow(QFormLayout& layout, QWidget& field, bool isNamedByLabel)
    : layout_(layout), field_(field), isNamedByLabel_(isNamedByLabel) {
    layout_.addRow(QString(), &field_);
}

FieldRow& FieldRow::shownWhen(std::function<bool()> isShown) {
    isShown_ = std::move(isShown);
    return *this;
}

FieldRow& FieldRow::labelled(std::function<QString()> label) {
    labelText_ = std::move(label);
    return *this;
}

FieldRow& FieldRow::hint(std::function<QString()> text) {
    hintText_ = std::move(text);
    hint_ = new FlowingLabel(TextStyle::caption, ThemeColor::secondaryText);
    layout_.addRow(QString(), hint_);
    return *this;
}

FieldRow& FieldRow::help(const QString& text) {
    help_ = text;
    describe();
    return *this;
}

FieldRow& FieldRow::prompt(const QString& text) {
    auto* box = qobject_cast<QComboBox*>(&field_);
    if (QLineEdit* line = box != nullptr ? box->lineEdit() : qobject_cast<QLineEdit*>(&field_)) {
        line->setPlaceholderText(text);
    }
    return *this;
}

FieldRow& FieldRow::narrow() {
    field_.setMaximumWidth(narrowWidth);
    return *this;
}

void FieldRow::refresh() {
    if (show_) {
        show_();
    }
    if (labelText_) {
        showLabel(labelText_());
    }
    const bool isNow = isShown();
    layout_.setRowVisible(&field_, isNow);
    if (hint_ != nullptr) {
        hint_->showText(hintText_());
        layout_.setRowVisible(hint_, isNow && !hint_->text().isEmpty());
    }
}

void FieldRow::showLabel(const QString& label) {
    if (label == title_) {
        return;
    }
    title_ = label;
    if (label_ == nullptr) {
        label_ = new QLabel;
        // A label may be a name out of the document.
        label_->setTextFormat(Qt::PlainText);
        label_->setBuddy(&field_);
        int place = 0;
        layout_.getWidgetPosition(&field_, &place, nullptr);
        layout_.setWidget(place, QFormLayout::LabelRole, label_);
        label_->stackUnder(&field_); // and is read before it
    }
    // An ampersand would name a key.
    label_->setText(QString(label).replace(QLatin1Char('&'), QStringLiteral("&&")));
    describe();
}

void FieldRow::describe() {
    if (!isNamedByLabel_ || title_.isEmpty()) {
        if (!help_.isEmpty()) {
            field_.setToolTip(help_);
        }
    } else if (auto* entry = dynamic_cast<EntryField*>(&field_)) {
        entry->setAccessibleName(title_);
        entry->setPurpose(help_);
    } else if (auto* words = dynamic_cast<SegmentedChoice*>(&field_)) {
        words->setTitle(title_);
        words->setToolTip(help_);
    } else {
        field_.setAccessibleName(title_);
        field_.setToolTip(help_);
        describeBox();
    }
}

void FieldRow::describeBox() {
    auto* box = qobject_cast<QComboBox*>(&field_);
    if (box == nullptr) {
        return;
    }
    // The toolkit gives the choice as the name; this says what it is a choice of.
    box->setAccessibleDescription(sentences(title_, help_));
    if (box->lineEdit() != nullptr) {
        box->lineEdit()->setAccessibleName(title_);
    }
}

} // namespace oakfen
