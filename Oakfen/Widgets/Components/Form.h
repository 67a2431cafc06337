#pragma once

#include <QWidget>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "Oakfen/Views/Components/AmountEntry.h"
#include "Oakfen/Views/Components/Choices.h"
#include "Oakfen/Widgets/Components/Bound.h"
#include "OakfenCore/Platform/Clock.h"

class QFormLayout;
class QLabel;
class QLineEdit;

namespace oakfen {

class FlowingLabel;
class PickerBox;
struct PickerCreation;
struct StepRange;

/// One row of a form: a field with its label, and what about it follows the draft.
class FieldRow {
public:
    /// `isNamedByLabel` is not so for a widget that says itself what it is.
    FieldRow(QFormLayout& layout, QWidget& field, bool isNamedByLabel);
    FieldRow(const FieldRow&) = delete;
    FieldRow& operator=(const FieldRow&) = delete;

    /// The row is there only while that is so.
    FieldRow& shownWhen(std::function<bool()> isShown);
    /// The label is another one as the draft changes.
    FieldRow& labelled(std::function<QString()> label);
    /// A line beneath the field, while there is a text for it.
    FieldRow& hint(std::function<QString()> text);
    /// What the field is for: its tooltip, and what those hear who come to it.
    FieldRow& help(const QString& text);
    /// What the field says while it is empty.
    FieldRow& prompt(const QString& text);
    /// As wide as an amount or a day needs.
    FieldRow& narrow();

    [[nodiscard]] QWidget* field() const { return &field_; }
    [[nodiscard]] bool isShown() const { return !isShown_ || isShown_(); }

private:
    friend class Form;

    void refresh();
    void showLabel(const QString& label);
    /// Tells those who listen what the field is, and what it is for.
    void describe();
    void describeBox();

    QFormLayout& layout_;
    QWidget& field_;
    QLabel* label_ = nullptr;
    FlowingLabel* hint_ = nullptr;
    QString title_;
    QString help_;
    bool isNamedByLabel_;
    std::function<void()> show_;
    std::function<bool()> isShown_;
    std::function<QString()> labelText_;
    std::function<QString()> hintText_;
};

/// A form as a list of fields, each declared once with its label and the value of the draft that
/// it is about. What the person enters is written into the draft at once; `refresh` shows the whole
/// draft again, but touches no field whose value is still the same, so that nothing is lost there
/// that is only half typed.
class Form final : public QWidget {
public:
    /// The clock, which must outlive the form, says what day is today.
    explicit Form(const Clock& clock, QWidget* parent = nullptr);

    FieldRow& text(const QString& label, const Bound<std::string>& value);
    /// A text of several lines.
    FieldRow& paragraph(const QString& label, const Bound<std::string>& value);
    /// A text that nobody may read over the person's shoulder.
    FieldRow& secret(const QString& label, const Bound<std::string>& value);
    FieldRow& amount(const QString& label, const Bound<Decimal>& value,
                     AmountKind kind = AmountKind::money);
    FieldRow& day(const QString& label, const Bound<oakfen::Date>& value);

    using PickerRows = std::function<std::vector<PickerRow>()>;
    FieldRow& account(const QString& label, const Bound<std::optional<UUID>>& value,
                      PickerRows rows);
    FieldRow& category(const QString& label, const Bound<std::optional<UUID>>& value,
                       PickerRows rows);
    /// One that can be made on the spot.
    FieldRow& category(const QString& label, const Bound<std::optional<UUID>>& value,
                       PickerRows rows, PickerCreation creation);
    /// A choice among other records.
    FieldRow& record(const QString& label, const Bound<std::optional<UUID>>& value,
                     PickerRows rows);

    /// A choice from a list that opens.
    FieldRow& choice(const QString& label, const std::vector<ChoiceRow>& rows,
                     const Bound<int>& value);
    template <typename Enumeration>
    requires std::is_enum_v<Enumeration> FieldRow&
    choice(const QString& label, const std::vector<ChoiceRow>& rows, Enumeration& value) {
        return choice(label, rows, asNumber(Bound<Enumeration>(value)));
    }

    /// A choice among words that stand side by side; the value is the place of the chosen one.
    FieldRow& segments(const QString& label, const QStringList& words, const Bound<int>& value);
    template <typename Enumeration>
    FieldRow& segments(const QString& label, const Bound<Enumeration>& value) {
        return segments(label, wordsOf(choiceRows<Enumeration>()), asPlace(value));
    }
    template <typename Enumeration>
    requires std::is_enum_v<Enumeration> FieldRow& segments(const QString& label,
                                                            Enumeration& value) {
        return segments(label, Bound<Enumeration>(value));
    }

    /// A tick before its own title.
    FieldRow& toggle(const QString& title, const Bound<bool>& value);
    FieldRow& stepper(const QString& label, const StepRange& range, const Bound<int>& value);
    /// An amount that follows from the draft, to be read only.
    FieldRow& figure(const QString& label, std::function<MoneyText()> money);
    /// Any other widget, which writes into the draft by itself and calls `fieldChanged` then;
    /// `show` shows the draft in it.
    FieldRow& custom(const QString& label, QWidget* field, std::function<void()> show = {});

    /// Shows the draft as it is now.
    void refresh();
    /// The draft was changed by a field.
    void fieldChanged() { changed(); }
    /// Goes to the first field that the person can type into or choose with.
    void focusFirst();

    /// Called after each change by the person.
    std::function<void()> changed = [] {};

private:
    [[nodiscard]] static QStringList wordsOf(const std::vector<ChoiceRow>& rows);

    FieldRow& addField(const QString& label, QWidget* field, bool isNamedByLabel = true);
    FieldRow& addText(const QString& label, QLineEdit* field, const Bound<std::string>& value);
    FieldRow& addPicker(const QString& label, PickerBox* box,
                        const Bound<std::optional<UUID>>& value, PickerRows rows);
    /// Ties the field of the row to the value. What it returns is to be called after each change in
    /// the field: it takes the value over from there.
    template <typename Value>
    [[nodiscard]] std::function<void()> tie(FieldRow& row, const Bound<Value>& value,
                                            std::function<Value()> take,
                                            std::function<void(const Value&)> put);

    const Clock& clock_;
    QFormLayout* layout_;
    std::deque<FieldRow> rows_;
};

} // namespace oakfen
