#include "Oakfen/Widgets/Components/Form.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QStandardItemModel>
#include <memory>
#include <utility>

#include "Oakfen/Widgets/Components/AmountField.h"
#include "Oakfen/Widgets/Components/DateField.h"
#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Components/MoneyLabel.h"
#include "Oakfen/Widgets/Components/PickerBox.h"
#include "Oakfen/Widgets/Components/SegmentedChoice.h"
#include "Oakfen/Widgets/Components/StepField.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/SymbolIcons.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

constexpr int paragraphHeight = 68;

/// Shows the text from its beginning, which nobody takes for typing.
void showText(QLineEdit& field, const std::string& text) {
    const QSignalBlocker blocker(&field);
    field.setText(qt(text));
    field.setCursorPosition(0);
}

} // namespace

Form::Form(const Clock& clock, QWidget* parent)
    : QWidget(parent), clock_(clock), layout_(new QFormLayout(this)) {
    layout_->setContentsMargins(0, 0, 0, 0);
    layout_->setHorizontalSpacing(2 * Theme::grid);
    layout_->setVerticalSpacing(Theme::grid);
    layout_->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    layout_->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
}

template <typename Value>
std::function<void()> Form::tie(FieldRow& row, const Bound<Value>& value,
                                std::function<Value()> take,
                                std::function<void(const Value&)> put) {
    // What the field stands for, as far as the draft knows.
    const auto known = std::make_shared<std::optional<Value>>();
    row.show_ = [value, known, put = std::move(put)] {
        // Value by value: what is known and what is chosen can both be absent.
        if (const Value now = value.read(); !known->has_value() || !(**known == now)) {
            put(now);
            *known = now;
        }
    };
    return [this, value, known, take = std::move(take)] {
        *known = take();
        value.write(**known);
        changed();
    };
}

FieldRow& Form::addField(const QString& label, QWidget* field, bool isNamedByLabel) {
    FieldRow& row = rows_.emplace_back(*layout_, *field, isNamedByLabel);
    row.showLabel(label);
    return row;
}

FieldRow& Form::addText(const QString& label, QLineEdit* field, const Bound<std::string>& value) {
    FieldRow& row = addField(label, field);
    connect(field, &QLineEdit::textChanged, field,
            tie<std::string>(
                row, value, [field] { return utf8(field->text()); },
                [field](const std::string& text) { showText(*field, text); }));
    return row;
}

FieldRow& Form::text(const QString& label, const Bound<std::string>& value) {
    return addText(label, new QLineEdit, value);
}

FieldRow& Form::secret(const QString& label, const Bound<std::string>& value) {
    auto* field = new QLineEdit;
    field->setEchoMode(QLineEdit::Password);
    return addText(label, field, value);
}

FieldRow& Form::paragraph(const QString& label, const Bound<std::string>& value) {
    auto* field = new QPlainTextEdit;
    field->setTabChangesFocus(true);
    field->setFixedHeight(paragraphHeight);
    FieldRow& row = addField(label, field);
    connect(field, &QPlainTextEdit::textChanged, field,
            tie<std::string>(
                row, value, [field] { return utf8(field->toPlainText()); },
                [field](const std::string& text) {
                    const QSignalBlocker blocker(field);
                    field->setPlainText(qt(text));
                }));
    return row;
}

FieldRow& Form::amount(const QString& label, const Bound<Decimal>& value, AmountKind kind) {
    auto* field = new AmountField(label, kind);
    FieldRow& row = addField(label, field);
    field->edited = tie<Decimal>(
        row, value, [field] { return field->value(); },
        [field](const Decimal& amount) { field->setValue(amount); });
    return row.narrow();
}

FieldRow& Form::day(const QString& label, const Bound<oakfen::Date>& value) {
    auto* field = new DateField(label, clock_);
    FieldRow& row = addField(label, field);
    field->edited = tie<oakfen::Date>(
        row, value, [field] { return field->value(); },
        [field](const oakfen::Date& date) { field->setValue(date); });
    return row.narrow();
}

FieldRow& Form::account(const QString& label, const Bound<std::optional<UUID>>& value,
                        PickerRows rows) {
    return addPicker(label, new AccountPicker(label), value, std::move(rows));
}

FieldRow& Form::category(const QString& label, const Bound<std::optional<UUID>>& value,
                         PickerRows rows) {
    return addPicker(label, new CategoryPicker(label), value, std::move(rows));
}

FieldRow& Form::category(const QString& label, const Bound<std::optional<UUID>>& value,
                         PickerRows rows, PickerCreation creation) {
    auto* box = new CategoryPicker(label);
    box->setCreation(std::move(creation));
    return addPicker(label, box, value, std::move(rows));
}

FieldRow& Form::record(const QString& label, const Bound<std::optional<UUID>>& value,
                       PickerRows rows) {
    return addPicker(label, new PickerBox(label), value, std::move(rows));
}

FieldRow& Form::addPicker(const QString& label, PickerBox* box,
                          const Bound<std::optional<UUID>>& value, PickerRows rows) {
    FieldRow& row = addField(label, box);
    box->chosen = tie<std::optional<UUID>>(
        row, value, [box] { return box->chosenID(); },
        [box](const std::optional<UUID>& id) { box->choose(id); });
    row.show_ = [box, value, rows = std::move(rows), listed = std::vector<PickerRow>(),
                 showValue = std::move(row.show_)]() mutable {
        if (std::vector<PickerRow> now = rows(); now != listed) {
            box->setRows(now);
            box->choose(value.read());
            listed = std::move(now);
        }
        showValue();
    };
    return row;
}

FieldRow& Form::choice(const QString& label, const std::vector<ChoiceRow>& rows,
                       const Bound<int>& value) {
    auto* box = new QComboBox;
    for (const ChoiceRow& row : rows) {
        if (row.isHeader) {
            box->addItem(qt(row.title));
            auto* item = qobject_cast<QStandardItemModel*>(box->model())->item(box->count() - 1);
            item->setFlags(Qt::NoItemFlags);
            item->setFont(Theme::font(TextStyle::captionStrong));
        } else if (row.symbolName.empty()) {
            box->addItem(qt(row.title), row.value);
        } else {
            box->addItem(symbolIcon(row.symbolName, themeColor(row.tone)), qt(row.title),
                         row.value);
        }
    }
    box->setMaxVisibleItems(box->count());
    FieldRow& row = addField(label, box);
    connect(box, &QComboBox::activated, box,
            tie<int>(
                row, value, [box] { return box->currentData().toInt(); },
                [box](const int& chosen) { box->setCurrentIndex(box->findData(chosen)); }));
    return row;
}

QStringList Form::wordsOf(const std::vector<ChoiceRow>& rows) {
    QStringList words;
    for (const ChoiceRow& row : rows) {
        words.append(qt(row.title));
    }
    return words;
}

FieldRow& Form::segments(const QString& label, const QStringList& words, const Bound<int>& value) {
    auto* field = new SegmentedChoice(label, words);
    FieldRow& row = addField(label, field);
    field->chosen = tie<int>(
        row, value, [field] { return field->choice(); },
        [field](const int& place) { field->choose(place); });
    return row;
}

FieldRow& Form::toggle(const QString& title, const Bound<bool>& value) {
    auto* box = new QCheckBox(title);
    FieldRow& row = addField({}, box);
    connect(box, &QCheckBox::toggled, box,
            tie<bool>(
                row, value, [box] { return box->isChecked(); },
                [box](const bool& isOn) {
                    const QSignalBlocker blocker(box);
                    box->setChecked(isOn);
                }));
    return row;
}

FieldRow& Form::stepper(const QString& label, const StepRange& range, const Bound<int>& value) {
    auto* field = new StepField(label, range);
    FieldRow& row = addField(label, field);
    connect(field, &QSpinBox::valueChanged, field,
            tie<int>(
                row, value, [field] { return field->value(); },
                [field](const int& number) { field->showValue(number); }));
    return row.narrow();
}

FieldRow& Form::figure(const QString& label, std::function<MoneyText()> money) {
    auto* field = new MoneyLabel(TextStyle::bodyStrong);
    return custom(label, field, [field, money = std::move(money)] { field->setMoney(money()); });
}

FieldRow& Form::custom(const QString& label, QWidget* field, std::function<void()> show) {
    FieldRow& row = addField(label, field, false);
    row.show_ = std::move(show);
    return row;
}

void Form::refresh() {
    for (FieldRow& row : rows_) {
        row.refresh();
    }
    // At once, or the sheet would take the new height in a step of its own.
    layout()->activate();
}

void Form::focusFirst() {
    const auto first = std::ranges::find_if(rows_, [](const FieldRow& row) {
        return row.isShown() && (row.field()->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
    });
    if (first == rows_.end()) {
        return;
    }
    first->field()->setFocus();
    if (auto* text = qobject_cast<QLineEdit*>(first->field())) {
        text->end(false); // where the person types on
    }
}

} // namespace oakfen
