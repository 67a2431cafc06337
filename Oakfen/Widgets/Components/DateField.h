#pragma once

#include <optional>

#include "Oakfen/Views/Components/DateEntry.h"
#include "Oakfen/Widgets/Components/EntryField.h"

class QCalendarWidget;

namespace oakfen {

/// A field for a day, typed in the locale's order or as "t", "y", "+7". The up and down keys, and a
/// plus or minus before anything is typed, go to the next and the previous day; page up and down go
/// by months; Alt+Down opens a calendar. Keeps the record's time of day.
class DateField final : public EntryField {
public:
    /// The clock, which must outlive the field, says what day is today.
    DateField(const QString& title, const Clock& clock, QWidget* parent = nullptr);

    /// What the text stands for, or stood for before it could not be read.
    [[nodiscard]] oakfen::Date value() const { return entry_.value(); }
    /// Shows another date.
    void setValue(oakfen::Date value);

    /// Lets the person choose the day in a month's sheet beneath the field.
    void openCalendar();
    /// That sheet; null before it was opened.
    [[nodiscard]] QCalendarWidget* calendarSheet() const { return sheet_; }

protected:
    [[nodiscard]] const TypedEntry& entry() const override { return entry_; }
    [[nodiscard]] TypedEntry& entry() override { return entry_; }
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    /// Whether the key was one that moves the day.
    bool moveByKey(const QKeyEvent& event);
    /// Shows the day that the entry moved to.
    void showMove();
    void makeCalendarSheet();
    void dressCalendarSheet();

    /// A plus or minus that was just pressed, how many signs that makes, and the day before it.
    struct Sign {
        QString text;
        int count;
        CivilTime from;
    };
    /// Goes to the next or previous day, whichever the sign means.
    void moveBySign(const QString& text, int count);
    /// Has the digit after one sign mean a number of days from where the sign was pressed.
    void beginStep(const Sign& sign, const QString& digit);

    DateEntry entry_;
    std::optional<Sign> lastSign_;
    QCalendarWidget* sheet_ = nullptr;
};

} // namespace oakfen
